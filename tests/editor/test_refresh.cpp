#include "editor/EditorParts.h"
#include "support/EditorFixture.h"
#include "support/FailOnWarning.h"

#include <QPushButton>

#include <memory>
#include <vector>

namespace {

/// What a set of curves being edited is like.
enum sets : int
{
    emptySet,
    splineNoKeySelected,
    splineKeySelected,
    twoSplinesKeySelected,
    expressionOnly,
    splinePlusExpression,
    splineAndExpression
};

void prepare(EditorFixture& fixture, const int& set)
{
    if (set == emptySet) {
        return;
    }
    if (set == expressionOnly) {
        fixture.editCurve("n.e", {}, "t");
        return;
    }
    LentCurve& curve = fixture.editCurve("n.c", {{10.0, 10.0}, {20.0, 20.0}},
                                         set == splinePlusExpression ? "t" : nullptr);
    curve.spline.setAddFunc(set == splinePlusExpression);
    if (set == twoSplinesKeySelected) {
        fixture.addCurve("n.d", {{10.0, 10.0}, {20.0, 20.0}});
        fixture.editor.selectNodes(QStringList({"n.c", "n.d"}));
    }
    if (set == splineAndExpression) {
        fixture.addCurve("n.e", {}, "t");
        fixture.editor.selectNodes(QStringList({"n.c", "n.e"}));
    }
    if (set != splineNoKeySelected && set != splineAndExpression) {
        fixture.selectKeys("n.c", {0});
    }
    fixture.editor.refreshEditor();
}

QPushButton* pushButton(const CurveEditor& editor, const char* name)
{
    return editor.findChild<QPushButton*>(name);
}

} // namespace

class TestRefresh : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void initTestCase();

    void cleanupTestCase() { fixtures.clear(); }

    void aNewEditorHasFileKeysAndInsertDisabled();
    void menusAndActionsFollowTheSet_data();
    void menusAndActionsFollowTheSet();
    void buttonsFollowTheSet_data();
    void buttonsFollowTheSet();
    void theExpressionLineFollowsTheSet();
    void theFitButtonStaysEnabledWhileItShowsADisabledEntry();
    void theSaveActionReadsInThePluralForTwoCurves();
    void anEmptySetLeavesTheCanvasUnmarked();
    void aSetMarksTheCanvas();
    void snapAndToolTipsAreShownAsTheyAre();
    void theBehaviourOfTheFirstCurveIsToggledAtEachRefresh_data();
    void theBehaviourOfTheFirstCurveIsToggledAtEachRefresh();
    void aSplineThatItsHostDestroyedIsNotRead();

private:
    std::vector<std::unique_ptr<EditorFixture>> fixtures; ///< one for each of the sets
};

void TestRefresh::initTestCase()
{
    for (int set = emptySet; set <= splineAndExpression; ++set) {
        fixtures.push_back(std::make_unique<EditorFixture>());
        prepare(*fixtures.back(), set);
    }
}

void TestRefresh::aNewEditorHasFileKeysAndInsertDisabled()
{
    CurveEditor editor(nullptr, QString());
    QVERIFY(!menuAt(editor, "File")->isEnabled());
    QVERIFY(!menuAction(editor, "File")->isEnabled());
    QVERIFY(!menuAt(editor, "Keys")->isEnabled());
    QVERIFY(!menuAt(editor, "Insert")->isEnabled());
    QVERIFY(menuAt(editor, "Edit")->isEnabled());
    QVERIFY(menuAt(editor, "View")->isEnabled());
    QVERIFY(menuAction(editor, "Edit/Undo")->isEnabled());
    QVERIFY(toolButton(editor, "Undo/Redo", 0)->isEnabled());
}

/// One letter a set, in the order of the enumeration: enabled or not.
void TestRefresh::menusAndActionsFollowTheSet_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("states");
    //                                       empty, spline, key, two, expr, plus, mixed
    QTest::newRow("File") << "File"
                          << "0111111";
    QTest::newRow("Load Curve...") << "File/Load Curve..."
                                   << "0111111";
    QTest::newRow("Undo") << "Edit/Undo"
                          << "1111111";
    QTest::newRow("Copy") << "Edit/Copy"
                          << "0110110";
    QTest::newRow("Copy Curve") << "Edit/Copy/Copy Curve"
                                << "1110110";
    QTest::newRow("Copy Selected Keys") << "Edit/Copy/Copy Selected Keys"
                                        << "1010010";
    QTest::newRow("Paste") << "Edit/Paste"
                           << "0111111";
    QTest::newRow("Pan Selection") << "Edit/Pan Selection"
                                   << "0011010";
    QTest::newRow("Scale Selection") << "Edit/Scale Selection"
                                     << "0011010";
    QTest::newRow("Keys") << "Keys"
                          << "0111111";
    QTest::newRow("Select All") << "Keys/Select All"
                                << "1111011";
    QTest::newRow("Select None") << "Keys/Select None"
                                 << "1111011";
    QTest::newRow("Delete Selected") << "Keys/Delete Selected"
                                     << "1011010";
    QTest::newRow("Node Type") << "Keys/Node Type"
                               << "0011010";
    QTest::newRow("TCB") << "Keys/Node Type/Set Selected to TCB"
                         << "0011010";
    QTest::newRow("Bezier") << "Keys/Node Type/Set Selected to Bezier"
                            << "0011010";
    QTest::newRow("Linear") << "Keys/Node Type/Set Selected to Linear"
                            << "0011010";
    QTest::newRow("Stepped") << "Keys/Node Type/Set Selected to Stepped"
                             << "0011010";
    QTest::newRow("Start behaviour") << "Keys/Start Node Behaviour"
                                     << "0111011";
    QTest::newRow("Last behaviour") << "Keys/Last Node Behaviour"
                                    << "0111011";
    QTest::newRow("Break Tangents") << "Keys/Break Tangents"
                                    << "0011010";
    QTest::newRow("Unify Tangents") << "Keys/Unify Tangents"
                                    << "0011010";
    QTest::newRow("Flat Tangents") << "Keys/Flat Tangents"
                                   << "0011010";
    QTest::newRow("Show Key Properties") << "Keys/Show Key Properties"
                                         << "1111111";
    QTest::newRow("Fit View") << "View/Fit View"
                              << "0111111";
    QTest::newRow("Fit Horizontal View") << "View/Fit View/Fit Horizontal View"
                                         << "1111111";
    QTest::newRow("Fit Vertical View") << "View/Fit View/Fit Vertical View"
                                       << "1111011";
    QTest::newRow("Fit View to Selection") << "View/Fit View to Selection"
                                           << "0011010";
    QTest::newRow("Snap to Grid") << "View/Snap to Grid"
                                  << "1111111";
    QTest::newRow("Insert") << "Insert"
                            << "0111111";
}

void TestRefresh::menusAndActionsFollowTheSet()
{
    QFETCH(QString, path);
    QString states;
    for (const auto& fixture : fixtures) {
        const QAction* const action = menuAction(fixture->editor, path);
        QVERIFY(action);
        states.append(action->isEnabled() ? "1" : "0");
    }
    QTEST(states, "states");
}

void TestRefresh::buttonsFollowTheSet_data()
{
    QTest::addColumn<QString>("toolBar");
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("states");
    QTest::newRow("copy") << "Copy/Paste" << 0 << "0110110";
    QTest::newRow("paste") << "Copy/Paste" << 1 << "0111111";
    QTest::newRow("fit") << "Fit" << 0 << "0111111";
    QTest::newRow("fit to selection") << "Fit" << 1 << "0011010";
    QTest::newRow("centre") << "Fit" << 2 << "1111111";
    QTest::newRow("pan") << "Pan/Scale" << 0 << "0011010";
    QTest::newRow("stepped") << "Node Type" << 3 << "0011010";
    QTest::newRow("break") << "Tangents" << 0 << "0011010";
    QTest::newRow("add key") << "Mode" << 2 << "1111111";
}

void TestRefresh::buttonsFollowTheSet()
{
    QFETCH(QString, toolBar);
    QFETCH(int, index);
    QString states;
    for (const auto& fixture : fixtures) {
        states.append(toolButton(fixture->editor, toolBar, index)->isEnabled() ? "1" : "0");
    }
    QTEST(states, "states");
}

void TestRefresh::theExpressionLineFollowsTheSet()
{
    QString line;
    QString remove;
    QString add;
    QString checked;
    for (const auto& fixture : fixtures) {
        const CurveEditor& editor = fixture->editor;
        line.append(editor.commandLine->isEnabled() ? "1" : "0");
        remove.append(pushButton(editor, "deleteCurve")->isEnabled() ? "1" : "0");
        add.append(pushButton(editor, "addToSpline")->isEnabled() ? "1" : "0");
        checked.append(pushButton(editor, "addToSpline")->isChecked() ? "1" : "0");
    }
    QCOMPARE(line, QString("0111111"));
    QCOMPARE(remove, QString("0000111"));
    QCOMPARE(add, QString("0000110"));
    QCOMPARE(checked, QString("0000010"));
}

void TestRefresh::theFitButtonStaysEnabledWhileItShowsADisabledEntry()
{
    EditorFixture fixture;
    fixture.editCurve("n.c", {{10.0, 10.0}, {20.0, 20.0}});
    fixture.editor.completeViewportVBtn();
    fixture.editCurve("n.e", {}, "t");
    const QToolButton* const button = toolButton(fixture.editor, "Fit", 0);
    QCOMPARE(button->defaultAction()->text(), QString("Fit Vertical View"));
    QVERIFY(!button->defaultAction()->isEnabled());
    QVERIFY(button->isEnabled());
}

void TestRefresh::theSaveActionReadsInThePluralForTwoCurves()
{
    EditorFixture fixture;
    QVERIFY(menuAction(fixture.editor, "File/Save Curve..."));
    fixture.editCurve("n.c", {{10.0, 10.0}});
    QVERIFY(menuAction(fixture.editor, "File/Save curve..."));
    fixture.addCurve("n.d", {{10.0, 10.0}});
    fixture.editor.selectNodes(QStringList({"n.c", "n.d"}));
    QVERIFY(menuAction(fixture.editor, "File/Save curves..."));
    fixture.editor.selectNodes(QStringList("n.d"));
    QVERIFY(menuAction(fixture.editor, "File/Save curve..."));
}

void TestRefresh::anEmptySetLeavesTheCanvasUnmarked()
{
    EditorFixture fixture;
    fixture.canvas().canvasDirty = false;
    fixture.editor.refreshEditor();
    QVERIFY(!fixture.canvas().canvasDirty);
}

void TestRefresh::aSetMarksTheCanvas()
{
    EditorFixture fixture;
    fixture.editCurve("n.c", {{10.0, 10.0}});
    fixture.canvas().canvasDirty = false;
    fixture.editor.refreshEditor();
    QVERIFY(fixture.canvas().canvasDirty);
}

void TestRefresh::snapAndToolTipsAreShownAsTheyAre()
{
    EditorFixture fixture;
    QAction* const horizontal = menuAction(fixture.editor, "View/Snap to Grid/Horizontal Snap");
    QAction* const vertical = menuAction(fixture.editor, "View/Snap to Grid/Vertical Snap");
    const QToolButton* const both = toolButton(fixture.editor, "Snap", 0);
    const QToolButton* const tips = toolButton(fixture.editor, "Other", 1);
    for (int state = 0; state < 8; ++state) {
        fixture.logic().horizontalSnap = (state & 1) != 0;
        fixture.logic().verticalSnap = (state & 2) != 0;
        fixture.logic().toolTipsOn = (state & 4) != 0;
        fixture.editor.refreshEditor();
        QCOMPARE(horizontal->isChecked(), (state & 1) != 0);
        QCOMPARE(vertical->isChecked(), (state & 2) != 0);
        QCOMPARE(both->isChecked(), (state & 3) == 3);
        QCOMPARE(tips->isChecked(), (state & 4) != 0);
    }
}

void TestRefresh::theBehaviourOfTheFirstCurveIsToggledAtEachRefresh_data()
{
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("last");
    QTest::addColumn<QString>("firstAction");
    QTest::addColumn<QString>("lastAction");
    QTest::newRow("zero") << 0 << 0 << "firstZero"
                          << "lastZero";
    QTest::newRow("constant") << 1 << 1 << "firstConstant"
                              << "lastConstant";
    QTest::newRow("loop, none at the first end") << 2 << 2 << ""
                                                 << "lastLoop";
    QTest::newRow("loop offset") << 3 << 3 << ""
                                 << "lastLoopOffset";
    QTest::newRow("follow tangent") << 4 << 4 << ""
                                    << "lastFollowTangent";
    QTest::newRow("neither") << -1 << 7 << ""
                             << "";
}

void TestRefresh::theBehaviourOfTheFirstCurveIsToggledAtEachRefresh()
{
    QFETCH(int, first);
    QFETCH(int, last);
    QFETCH(QString, firstAction);
    QFETCH(QString, lastAction);
    EditorFixture fixture;
    LentCurve& curve = fixture.addCurve("n.c", {{10.0, 10.0}});
    curve.spline.setFirstNodeType(static_cast<SplineBase::nodeType>(first));
    curve.spline.setLastNodeType(static_cast<SplineBase::nodeType>(last));
    QStringList expected;
    for (const QString& name : {firstAction, lastAction}) {
        if (!name.isEmpty()) {
            expected.append(name);
        }
    }
    const auto checkedActions = [&fixture] {
        QStringList names;
        for (const char* const name : {"firstZero", "firstConstant", "lastZero", "lastConstant",
                                       "lastLoop", "lastLoopOffset", "lastFollowTangent"}) {
            if (fixture.editor.findChild<QAction*>(name)->isChecked()) {
                names.append(name);
            }
        }
        return names;
    };
    // One refresh comes with the selection, perhaps more with what follows it.
    fixture.editor.selectNodes(QStringList("n.c"));
    fixture.editor.refreshEditor();
    if (checkedActions().isEmpty()) {
        fixture.editor.refreshEditor();
    }
    QCOMPARE(checkedActions(), expected);
    fixture.editor.refreshEditor();
    QCOMPARE(checkedActions(), QStringList());
    fixture.editor.refreshEditor();
    QCOMPARE(checkedActions(), expected);
}

void TestRefresh::aSplineThatItsHostDestroyedIsNotRead()
{
    EditorFixture fixture;
    fixture.editCurve("n.c", {{10.0, 10.0}});
    fixture.curves.erase("n.c");
    fixture.editor.refreshEditor();
    QVERIFY(!fixture.logic().firstSpline());
}

QTEST_MAIN(TestRefresh)
#include "test_refresh.moc"
