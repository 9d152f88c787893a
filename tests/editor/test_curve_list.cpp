// What a host does with the list of curves: adding and looking up.

#include "editor/EditorParts.h"
#include "support/EditorFixture.h"
#include "support/FailOnWarning.h"

#include <QSignalSpy>

class TestCurveList : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void aNodeIsAddedOnceWithItsItem();
    void theItemOfANodeIsTheFirstTopItemOfExactlyItsText();
    void addNewNodeUnderAnUnknownNodeDoesNothing();
    void addNewNodeKeepsWhatItIsGiven();
    void aCurveWithNothingInItIsListedButStaysOffTheCanvas();
    void aCurveWithKeysOrAnExpressionIsSelectedOnRequest_data();
    void aCurveWithKeysOrAnExpressionIsSelectedOnRequest();
    void addingACurveTwiceOnlySelectsItAgain();
    void addingACurveIsNoStepOfUndo();
    void nullSplinesAndSlotsArePassedOver();
    void lookUpsTakeAndGiveNull();
    void aNameThatBeginsWithAnEarlierOneIsNotFound();
    void aRecordIsFoundByTheFormOfItsNameInExpressions();
    void undoWithNothingConnectedChangesNothing();
    void recordsOutliveTheirPlaceInTheList();
    void aCurveListedAnewFindsItsFormerRecord();
    void updateCurvesAsksForAFreshPicture();
    void tenThousandCurvesAreAddedThroughTheEditor();
};

void TestCurveList::aNodeIsAddedOnceWithItsItem()
{
    EditorFixture fixture;
    fixture.editor.addNewMainNode("n");
    fixture.editor.addNewMainNode("n");
    fixture.editor.addNewMainNode("a");
    QCOMPARE(topTexts(fixture.editor), (QStringList{"n", "a"}));
    QCOMPARE(fixture.editor.searchMainNode("n")->name, QString("n"));
    QVERIFY(!fixture.editor.searchMainNode("N"));
    QCOMPARE(fixture.editor.getNodeItem("a")->text(0), QString("a"));
    QVERIFY(!fixture.editor.getNodeItem("A"));
}

void TestCurveList::theItemOfANodeIsTheFirstTopItemOfExactlyItsText()
{
    EditorFixture fixture;
    fixture.addCurve("n.x", {{1, 1}});
    fixture.editor.addNewMainNode("a.b");
    auto* const twin = new QTreeWidgetItem(fixture.editor.checkListsEditing);
    twin->setText(0, "n");
    QCOMPARE(fixture.editor.getNodeItem("a.b"), fixture.editor.checkListsEditing->topLevelItem(1));
    QCOMPARE(fixture.editor.getNodeItem("n"), fixture.editor.checkListsEditing->topLevelItem(0));
    QVERIFY(!fixture.editor.getNodeItem("x")); // not a top item
    QVERIFY(!fixture.editor.getNodeItem("a"));
}

void TestCurveList::addNewNodeUnderAnUnknownNodeDoesNothing()
{
    EditorFixture fixture;
    LentCurve curve;
    fixture.editor.addNewNode("n", "a", Qt::red, 0, &curve.spline, &curve.expression, 0, 1, true);
    QVERIFY(!fixture.editor.searchAllNodeList("n.a"));
    QVERIFY(topTexts(fixture.editor).isEmpty());
}

void TestCurveList::addNewNodeKeepsWhatItIsGiven()
{
    EditorFixture fixture;
    LentCurve curve;
    fixture.editor.addNewMainNode("My Node");
    fixture.editor.addNewNode("My Node", "a b.c", Qt::red, 0.5f, &curve.spline, &curve.expression,
                              -1.5f, 2.5f, false);
    const CurveEditor::NodeStruct* const record = fixture.editor.searchAllNodeList("My Node.a b.c");
    QVERIFY(record);
    QCOMPARE(record->spline, &curve.spline);
    QCOMPARE(record->function, &curve.expression);
    QCOMPARE(record->color, QColor(Qt::red));
    QCOMPARE(record->curveValue, 0.5f);
    QCOMPARE(record->minValue, -1.5f);
    QCOMPARE(record->maxValue, 2.5f);
    QCOMPARE(record->mainNodeName, QString("My Node"));
    QCOMPARE(record->curveName, QString("a b.c"));
    QCOMPARE(record->dotName, QString("My Node.a b.c"));
    QCOMPARE(record->safeDotName, QString("My_Node.a_b.c"));
    QVERIFY(!record->isEditing);
    QVERIFY(!record->notifyHost);
    QVERIFY(!fixture.editor.checkListsEditing->findTreeItem("My Node.a b"));
    QVERIFY(fixture.logic().topNodes().isEmpty());
}

void TestCurveList::aCurveWithNothingInItIsListedButStaysOffTheCanvas()
{
    EditorFixture fixture;
    LentCurve curve;
    fixture.editor.addCurve("n", "a", Qt::red, 0, &curve.spline, &curve.expression, 0, 1, true,
                            true);
    QVERIFY(fixture.editor.searchAllNodeList("n.a"));
    QVERIFY(!fixture.logic().findCurve("n.a"));
    QCOMPARE(topTexts(fixture.editor), QStringList{"n"});
    QVERIFY(fixture.editor.getSelection().isEmpty());
}

void TestCurveList::aCurveWithKeysOrAnExpressionIsSelectedOnRequest_data()
{
    QTest::addColumn<bool>("keys");
    QTest::addColumn<bool>("expression");
    QTest::addColumn<bool>("request");
    QTest::newRow("keys") << true << false << true;
    QTest::newRow("expression") << false << true << true;
    QTest::newRow("not asked for") << true << true << false;
}

void TestCurveList::aCurveWithKeysOrAnExpressionIsSelectedOnRequest()
{
    QFETCH(bool, keys);
    QFETCH(bool, expression);
    QFETCH(bool, request);
    LentCurve curve;
    EditorFixture fixture;
    if (keys) {
        curve.addKey(0.0, 1.0);
    }
    if (expression) {
        curve.setExpression("t");
    }
    fixture.editor.addCurve("n", "a", Qt::red, 0, &curve.spline, &curve.expression, 0, 1, request,
                            true);
    QCOMPARE(fixture.logic().findCurve("n.a") != nullptr, request);
    QCOMPARE(fixture.editor.getSelection(), request ? QStringList{"n.a"} : QStringList());
    QCOMPARE(fixture.logic().editingCurveNames(), fixture.editor.getSelection());
}

void TestCurveList::addingACurveTwiceOnlySelectsItAgain()
{
    EditorFixture fixture;
    LentCurve& curve = fixture.editCurve("n.a", {{1, 1}});
    CurveNode* const object = fixture.logic().findCurve("n.a");
    fixture.editor.selectNodes(QStringList());
    fixture.editor.addCurve("n", "a", Qt::red, 0, &curve.spline, &curve.expression, 0, 1, false,
                            true);
    QVERIFY(fixture.editor.getSelection().isEmpty());
    fixture.editor.addCurve("n", "a", Qt::red, 0, &curve.spline, &curve.expression, 0, 1, true,
                            true);
    QCOMPARE(fixture.editor.getSelection(), QStringList{"n.a"});
    QCOMPARE(fixture.logic().findCurve("n.a"), object);
    fixture.editor.removeCurve("n", "a");
    QVERIFY(!fixture.editor.searchAllNodeList("n.a")); // there was no second record
}

void TestCurveList::addingACurveIsNoStepOfUndo()
{
    EditorFixture fixture;
    QSignalSpy executed(fixture.editor.getCmdManager(),
                        &curve_editor::CurveCommandsManager::curveEditorCmdExec);
    fixture.editCurve("n.a", {{1, 1}});
    QCOMPARE(executed.count(), 0);
    QVERIFY(!fixture.editor.getCmdManager()->undo());
    QVERIFY(!fixture.editor.getCmdManager()->redo());
}

void TestCurveList::nullSplinesAndSlotsArePassedOver()
{
    EditorFixture fixture;
    fixture.editor.addCurve("n", "a", Qt::red, 0, nullptr, nullptr, 0, 1, true, true);
    QVERIFY(fixture.editor.searchAllNodeList("n.a"));
    fixture.editor.setDefaultSelected("n", "a");
    QCOMPARE(fixture.logic().editingCurveNames(), QStringList{"n.a"});
    fixture.editor.selectAllKeys();
    fixture.editor.deleteSelectedKeys();
    fixture.editor.setLastNodeLoop();
    fixture.paint();
    QVERIFY(fixture.undoSteps().isEmpty());
    fixture.editor.removeCurve("n", "a");
    QVERIFY(!fixture.logic().findCurve("n.a"));
}

void TestCurveList::lookUpsTakeAndGiveNull()
{
    EditorFixture fixture;
    fixture.addCurve("n.a", {{1, 1}});
    CurveEditor& editor = fixture.editor;
    CurveEditor::NodeStruct* const record = editor.structFromDotName("n.a");
    CurveNode* const curve = editor.curveFromDotName("n.a");
    QVERIFY(record);
    QVERIFY(curve);
    QCOMPARE(editor.structFromCurve(curve), record);
    QCOMPARE(editor.curveFromStruct(record), curve);
    QCOMPARE(editor.dotName(record), QString("n.a"));
    QCOMPARE(editor.dotName(curve), QString("n.a"));
    QCOMPARE(editor.structsFromDotNames({"n.b", "n.a"}),
             (QList<CurveEditor::NodeStruct*>{nullptr, record}));
    QCOMPARE(editor.structsFromCurves({curve, nullptr}),
             (QList<CurveEditor::NodeStruct*>{record, nullptr}));
    QCOMPARE(editor.dotNamesFromStructs({nullptr, record}), QStringList{"n.a"});
    QVERIFY(!editor.structFromDotName("n"));
    QVERIFY(!editor.structFromCurve(nullptr));
    QVERIFY(!editor.curveFromStruct(nullptr));
    QVERIFY(!editor.curveFromDotName("n.b"));
    editor.setCurveEditableOn(nullptr);
    editor.setCurveEditableOff(nullptr);
    editor.setColorToEditingNode(nullptr, Qt::red);
}

void TestCurveList::aNameThatBeginsWithAnEarlierOneIsNotFound()
{
    EditorFixture fixture;
    LentCurve curve;
    CurveEditor& editor = fixture.editor;
    editor.addCurve("n", "width", Qt::red, 0, &curve.spline, nullptr, 0, 1, false, true);
    editor.addCurve("n", "width2", Qt::red, 0, &curve.spline, nullptr, 0, 1, false, true);
    QVERIFY(editor.searchAllNodeList("n.width"));
    QVERIFY(!editor.searchAllNodeList("n.width2"));
    QVERIFY(!editor.searchAllNodeList("n"));
    QVERIFY(editor.searchAllNodeListCurveName("n.width2"));
}

void TestCurveList::aRecordIsFoundByTheFormOfItsNameInExpressions()
{
    EditorFixture fixture;
    LentCurve curve;
    fixture.editor.addCurve("My Node", "My Curve", Qt::red, 0, &curve.spline, nullptr, 0, 1, false,
                            true);
    const auto* const record = fixture.editor.searchAllNodeListCurveName("my_node.my_curve");
    QVERIFY(record);
    QCOMPARE(record->dotName, QString("My Node.My Curve"));
    QVERIFY(!fixture.editor.searchAllNodeListCurveName("My Node.My Curve"));
}

void TestCurveList::undoWithNothingConnectedChangesNothing()
{
    LentCurve curve;
    curve.addKey(1, 1);
    CurveEditor editor(nullptr, qEnvironmentVariable("ZK_ICONS_DIR"));
    editor.addCurve("n", "a", Qt::red, 0, &curve.spline, nullptr, 0, 1, true, true);
    editor.selectAllKeys();
    editor.deleteSelectedKeys();
    QCOMPARE(curve.spline.getControlPointsNumber(), 0u);
    editor.undo();
    QCOMPARE(curve.spline.getControlPointsNumber(), 0u);
    QVERIFY(editor.getCmdManager()->undo());
    QCOMPARE(curve.spline.getControlPointsNumber(), 1u);
    editor.redo();
    QCOMPARE(curve.spline.getControlPointsNumber(), 1u);
}

void TestCurveList::recordsOutliveTheirPlaceInTheList()
{
    EditorFixture fixture;
    fixture.addCurve("n.a", {{1, 1}});
    const CurveEditor::NodeStruct* const record = fixture.editor.searchAllNodeList("n.a");
    fixture.editor.removeNode("n");
    fixture.curves.clear();
    QVERIFY(!fixture.editor.searchAllNodeList("n.a"));
    QCOMPARE(record->dotName, QString("n.a"));
    QVERIFY(!record->livingSpline()); // the host's went with the host
}

void TestCurveList::aCurveListedAnewFindsItsFormerRecord()
{
    EditorFixture fixture;
    LentCurve& curve = fixture.addCurve("n.a", {{1, 1}});
    const CurveEditor::NodeStruct* const record = fixture.editor.searchAllNodeList("n.a");
    fixture.editor.removeCurve("n", "a");
    fixture.editor.addCurve("n", "a", Qt::blue, 3.0f, &curve.spline, &curve.expression, -2.0f, 2.0f,
                            false, false);
    QCOMPARE(fixture.editor.searchAllNodeList("n.a"), record);
    QCOMPARE(record->color, QColor(Qt::blue));
    QCOMPARE(record->maxValue, 2.0f);
    QVERIFY(!record->isEditing);
    QVERIFY(!record->notifyHost);
}

void TestCurveList::updateCurvesAsksForAFreshPicture()
{
    EditorFixture fixture;
    fixture.canvas().canvasDirty = false;
    fixture.editor.updateCurves();
    QVERIFY(fixture.canvas().canvasDirty);
}

void TestCurveList::tenThousandCurvesAreAddedThroughTheEditor()
{
    LentCurve curve;
    EditorFixture fixture;
    curve.addKey(1, 1);
    for (int i = 0; i < 10000; ++i) {
        const QString node = QStringLiteral("node %1").arg(i / 10);
        const QString name = QStringLiteral("curve %1").arg(i % 10);
        fixture.editor.addCurve(node, name, Qt::red, 0, &curve.spline, &curve.expression, 0, 1,
                                true, true);
    }
    QVERIFY(fixture.editor.searchAllNodeList("node 999.curve 9"));
    QCOMPARE(fixture.editor.checkListsEditing->topLevelItemCount(), 1000);
    QCOMPARE(fixture.logic().editingCurveNames(), QStringList{"node 999.curve 9"});
}

QTEST_MAIN(TestCurveList)
#include "test_curve_list.moc"
