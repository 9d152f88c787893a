// The selection of curves: one list, mirrored in the tree and on the canvas.

#include "curves/CurveHold.h"
#include "editor/EditorParts.h"
#include "support/EditorFixture.h"
#include "support/FailOnWarning.h"
#include "support/HostEar.h"
#include "support/RefreshCounter.h"

#include <QSignalSpy>

namespace {

QStringList selectedItems(const CurveEditor& editor)
{
    QStringList names;
    for (QTreeWidgetItem* item : editor.checkListsEditing->selectedItems()) {
        names.append(editor.checkListsEditing->itemDotName(item));
    }
    names.sort();
    return names;
}

} // namespace

class TestTreeSelection : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void selectingReachesTreeAndCanvas();
    void addingToTheSelectionKeepsDoubles();
    void namesThatAreNotInTheTreeStayInTheList();
    void aGroupSelectsItsCurvesOnTheCanvas();
    void theSameNamesInAnotherOrderRefreshTheCanvasButNotTheExpressionLine();
    void aListOfTheSameLengthWithNoNewNameCountsAsTheSame();
    void clicksInTheTreeSelectAndAdd();
    void theCanvasLeadsTheTree();
    void theArgumentMayBeTheEditorsOwnList();
    void aReportSplitsTheNameAtItsFirstPoint();
    void theEditingCurvesAreReportedInTheirOrder();
    void recordsAreReportedAndNullIsPassedOver();
    void aCurveThatDoesNotReportIsNotHeardOf();
    void aCurveObjectReportsToTheHostOncePerEntry();
    void aReportOfManyCurvesRefreshesTheEditorOnceAlsoForAnEmptyList();
    void whatTheHostWritesIntoAReportReachesNoRecord();
    void aHostMayTakeCurvesAwayWhileItIsTold();
};

void TestTreeSelection::selectingReachesTreeAndCanvas()
{
    EditorFixture fixture;
    fixture.addCurve("n.a", {{1, 1}});
    fixture.addCurve("n.b", {{1, 1}});
    fixture.addCurve("n.c", {{1, 1}});
    fixture.editor.selectNodes(QStringList{"n.c", "n.a"});
    QCOMPARE(fixture.editor.getSelection(), (QStringList{"n.c", "n.a"}));
    QCOMPARE(selectedItems(fixture.editor), (QStringList{"n.a", "n.c"}));
    QCOMPARE(fixture.logic().editingCurveNames(), (QStringList{"n.c", "n.a"}));
    fixture.editor.selectNodes(QString("n.b"));
    QCOMPARE(fixture.editor.getSelection(), QStringList{"n.b"});
    QCOMPARE(selectedItems(fixture.editor), QStringList{"n.b"});
}

void TestTreeSelection::addingToTheSelectionKeepsDoubles()
{
    EditorFixture fixture;
    fixture.editCurve("n.a", {{1, 1}});
    fixture.addCurve("n.b", {{1, 1}});
    fixture.editor.addNodesToSelection(QStringList{"n.b", "n.a"});
    QCOMPARE(fixture.editor.getSelection(), (QStringList{"n.a", "n.b", "n.a"}));
    QCOMPARE(fixture.logic().editingCurveNames(), (QStringList{"n.a", "n.b"}));
    fixture.editor.addNodesToSelection(QString("n.b"));
    QCOMPARE(fixture.editor.getSelection().size(), 4);
}

void TestTreeSelection::namesThatAreNotInTheTreeStayInTheList()
{
    EditorFixture fixture;
    fixture.addCurve("n.a", {{1, 1}});
    fixture.editor.selectNodes(QStringList{"unknown", "n.a"});
    QCOMPARE(fixture.editor.getSelection(), (QStringList{"unknown", "n.a"}));
    QCOMPARE(fixture.logic().editingCurveNames(), QStringList{"n.a"});
}

void TestTreeSelection::aGroupSelectsItsCurvesOnTheCanvas()
{
    EditorFixture fixture;
    fixture.addCurve("n.a", {{1, 1}});
    fixture.addCurve("n.b", {{1, 1}});
    fixture.editor.selectNodes(QString("n"));
    QCOMPARE(fixture.logic().editingCurveNames(), (QStringList{"n.a", "n.b"}));
    QCOMPARE(selectedItems(fixture.editor), QStringList{"n"});
    QCOMPARE(fixture.editor.getSelection(), QStringList{"n"});
}

void TestTreeSelection::theSameNamesInAnotherOrderRefreshTheCanvasButNotTheExpressionLine()
{
    EditorFixture fixture;
    fixture.addCurve("n.a", {}, "t");
    fixture.addCurve("n.b", {}, "t");
    fixture.editor.selectNodes(QStringList{"n.a", "n.b"});
    QCOMPARE(fixture.editor.commandLine->text(), QString("t"));
    fixture.editor.commandLine->setText("being typed");
    QSignalSpy canvas(&fixture.logic(), &CanvasFunctionBase::selectionChanged);
    fixture.editor.selectNodes(QStringList{"n.b", "n.a"});
    QVERIFY(canvas.count() > 0);
    QCOMPARE(fixture.logic().editingCurveNames(), (QStringList{"n.b", "n.a"}));
    QCOMPARE(fixture.editor.commandLine->text(), QString("being typed"));
    fixture.editor.selectNodes(QStringList{"n.b"});
    QCOMPARE(fixture.editor.commandLine->text(), QString("t"));
}

void TestTreeSelection::aListOfTheSameLengthWithNoNewNameCountsAsTheSame()
{
    EditorFixture fixture;
    fixture.addCurve("n.a", {}, "t");
    fixture.addCurve("n.b", {}, "2*t");
    fixture.editor.selectNodes(QStringList{"n.a", "n.b"});
    QCOMPARE(fixture.editor.commandLine->text(), QString("..."));
    fixture.editor.selectNodes(QStringList{"n.a", "n.a"});
    QCOMPARE(fixture.editor.getSelection(), (QStringList{"n.a", "n.a"}));
    QCOMPARE(fixture.editor.commandLine->text(), QString("...")); // not refreshed
}

void TestTreeSelection::clicksInTheTreeSelectAndAdd()
{
    EditorFixture fixture;
    fixture.addCurve("n.a", {{1, 1}});
    fixture.addCurve("n.b", {{1, 1}});
    EditingTree* const tree = fixture.editor.checkListsEditing;
    const auto click = [&](const QString& name, Qt::KeyboardModifiers modifiers) {
        QTest::mouseClick(tree->viewport(), Qt::LeftButton, modifiers,
                          tree->visualItemRect(tree->findTreeItem(name)).center());
    };
    click("n.b", Qt::NoModifier);
    QCOMPARE(fixture.editor.getSelection(), QStringList{"n.b"});
    click("n.a", Qt::ControlModifier);
    QCOMPARE(fixture.editor.getSelection(), (QStringList{"n.b", "n.a"}));
    click("n.b", Qt::ControlModifier);
    QCOMPARE(fixture.editor.getSelection(), QStringList{"n.a"});
    QCOMPARE(fixture.logic().editingCurveNames(), QStringList{"n.a"});
}

void TestTreeSelection::theCanvasLeadsTheTree()
{
    EditorFixture fixture;
    fixture.addCurve("n.a", {{1, 1}});
    fixture.editCurve("n.b", {{1, 1}});
    fixture.logic().selectCurveObjects({fixture.logic().findCurve("n.a")});
    QCOMPARE(fixture.editor.getSelection(), QStringList{"n.a"});
    QCOMPARE(selectedItems(fixture.editor), QStringList{"n.a"});
}

void TestTreeSelection::theArgumentMayBeTheEditorsOwnList()
{
    EditorFixture fixture;
    fixture.editCurve("n.a", {{1, 1}});
    fixture.editor.selectNodes(fixture.editor.getSelection());
    QCOMPARE(fixture.editor.getSelection(), QStringList{"n.a"});
}

void TestTreeSelection::aReportSplitsTheNameAtItsFirstPoint()
{
    EditorFixture fixture;
    HostEar host(fixture.editor);
    fixture.editor.emitSignalCurvesHaveChanged(QStringList{"n.a.b", "n", "x..y", "%2.%1"});
    QCOMPARE(host.reports, (QStringList{"n|a.b", "n|", "x|.y", "%2|%1"}));
}

void TestTreeSelection::theEditingCurvesAreReportedInTheirOrder()
{
    EditorFixture fixture;
    fixture.addCurve("n.a", {{1, 1}});
    fixture.addCurve("n.b", {{1, 1}});
    fixture.editor.selectNodes(QStringList{"n.b", "n.a"});
    HostEar host(fixture.editor);
    fixture.editor.emitSignalCurvesHaveChanged();
    QCOMPARE(host.reports, (QStringList{"n|b", "n|a"}));
}

void TestTreeSelection::recordsAreReportedAndNullIsPassedOver()
{
    EditorFixture fixture;
    fixture.addCurve("n.a", {{1, 1}});
    HostEar host(fixture.editor);
    fixture.editor.emitSignalCurvesHaveChanged(
        QList<CurveEditor::NodeStruct*>{nullptr, fixture.editor.searchAllNodeList("n.a")});
    QCOMPARE(host.reports, QStringList{"n|a"});
}

void TestTreeSelection::aCurveThatDoesNotReportIsNotHeardOf()
{
    LentCurve curve;
    EditorFixture fixture;
    curve.addKey(1, 1);
    fixture.editor.addCurve("n", "a", Qt::red, 0, &curve.spline, nullptr, 0, 10, true, false);
    HostEar host(fixture.editor);
    fixture.editor.setLastNodeLoop();
    fixture.editor.emitSignalCurvesHaveChanged(QStringList{"n.a"});
    fixture.logic().findCurve("n.a")->reset();
    QString node("n");
    QString name("a");
    fixture.editor.emitSignalCurveHasChanged(node, name);
    QVERIFY(host.reports.isEmpty());
    fixture.editor.setCurveEditableOff(fixture.editor.searchAllNodeList("n.a"));
    fixture.editor.emitSignalCurveHasChanged(node, name);
    QCOMPARE(host.reports, QStringList{"n|a"}); // without an object nothing holds it back
}

void TestTreeSelection::aCurveObjectReportsToTheHostOncePerEntry()
{
    EditorFixture fixture;
    fixture.addCurve("n.a.b", {{1, 1}});
    auto* const record = fixture.editor.searchAllNodeList("n.a.b");
    CurveNode* const object = fixture.logic().findCurve("n.a.b");
    const CurveHold kept(object); // off the canvas nobody else would name it
    HostEar host(fixture.editor);
    object->reset();
    QCOMPARE(host.reports, QStringList{"n|a.b"});
    fixture.editor.setCurveEditableOff(record);
    fixture.editor.setCurveEditableOn(record, object);
    object->reset();
    QCOMPARE(host.reports.size(), 3);
}

void TestTreeSelection::aReportOfManyCurvesRefreshesTheEditorOnceAlsoForAnEmptyList()
{
    EditorFixture fixture;
    fixture.editCurve("n.a", {{1, 1}});
    RefreshCounter refreshes(fixture.editor);
    fixture.editor.emitSignalCurvesHaveChanged(QStringList());
    QCOMPARE(refreshes.taken(), 1);
    fixture.editor.emitSignalCurvesHaveChanged(QStringList{"n.a", "n.a"});
    QCOMPARE(refreshes.taken(), 1);
    QString node("n");
    QString name("a");
    fixture.editor.emitSignalCurveHasChanged(node, name);
    QCOMPARE(refreshes.taken(), 0);
}

void TestTreeSelection::whatTheHostWritesIntoAReportReachesNoRecord()
{
    EditorFixture fixture;
    fixture.editCurve("n.a", {{1, 1}});
    connect(&fixture.editor, &CurveEditor::curveHasChanged, &fixture.editor,
            [](QString& node, QString& curve) {
                node = "spoilt";
                curve = "spoilt";
            });
    fixture.editor.emitSignalCurvesHaveChanged();
    fixture.editor.setLastNodeLoop();
    fixture.logic().addKey(fixture.logic().findCurve("n.a"), 3.0, 3.0);
    fixture.undoAll();
    const auto* const record = fixture.editor.searchAllNodeList("n.a");
    QCOMPARE(record->mainNodeName, QString("n"));
    QCOMPARE(record->curveName, QString("a"));
    QCOMPARE(fixture.editor.getSelection(), QStringList{"n.a"});
}

void TestTreeSelection::aHostMayTakeCurvesAwayWhileItIsTold()
{
    EditorFixture fixture;
    fixture.addCurve("n.a", {{1, 1}});
    fixture.addCurve("n.b", {{1, 1}});
    fixture.addCurve("n.c", {{1, 1}});
    fixture.editor.selectNodes(QStringList{"n.a", "n.b", "n.c"});
    connect(&fixture.editor, &CurveEditor::curveHasChanged, &fixture.editor, [&] {
        fixture.editor.removeCurve("n", "b");
        fixture.editor.selectNodes(QStringList());
    });
    fixture.editor.emitSignalCurvesHaveChanged();
    fixture.editor.removeCurvesFromEditing();
    QVERIFY(!fixture.logic().findCurve("n.b"));
}

QTEST_MAIN(TestTreeSelection)
#include "test_tree_selection.moc"
