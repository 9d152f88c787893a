// Curves and nodes that the host removes or renames.

#include "editor/EditorParts.h"
#include "support/EditorFixture.h"
#include "support/FailOnWarning.h"

class TestRemovingAndRenaming : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void removingTheLastCurveOfANodeLeavesTheNodeInTheList();
    void removingACurveTakesItOffTheCanvas();
    void aRecordHiddenBehindAPrefixIsRemovedByItsExactName();
    void removingANodeRemovesItsCurvesAndItsItem();
    void removingAnUnknownNodeEmptiesTheSelectionAllTheSame();
    void removingANodeWithoutCurvesRemovesItsItem();
    void theArgumentOfRemoveNodeMayBeTheNameInTheRecord();
    void aRenamedCurveKeepsItsObject();
    void aCurveRenamedToTheMarkerIsHiddenAndDeselected();
    void renamingACurveOffTheCanvasChangesTheRecordOnly();
    void theSafeNameOutlivesARenamedCurveButNotARenamedNode();
    void unknownNamesRenameNothing();
    void aRenamedNodeTakesItsCurvesAlongAndLeavesTheSelection();
    void afterARenamedNodeEveryCurveReportsTheNameOfItsRecord_data();
    void afterARenamedNodeEveryCurveReportsTheNameOfItsRecord();
    void theArgumentOfRenameNodeMayBeTheNameInTheRecord();
};

void TestRemovingAndRenaming::removingTheLastCurveOfANodeLeavesTheNodeInTheList()
{
    EditorFixture fixture;
    LentCurve curve;
    fixture.editor.addCurve("n", "a", Qt::red, 0, &curve.spline, nullptr, 0, 1, false, true);
    fixture.editor.removeCurve("n", "a");
    QVERIFY(fixture.editor.searchMainNode("n"));
    QVERIFY(!fixture.editor.searchAllNodeList("n.a"));
    QCOMPARE(topTexts(fixture.editor), QStringList{"n"});
}

void TestRemovingAndRenaming::removingACurveTakesItOffTheCanvas()
{
    EditorFixture fixture;
    fixture.editCurve("n.a", {{1, 1}});
    fixture.addCurve("n.b", {{1, 1}});
    CurveEditor::NodeStruct* const record = fixture.editor.searchAllNodeList("n.a");
    fixture.editor.removeCurve("n", "a");
    QVERIFY(!fixture.logic().findCurve("n.a"));
    QVERIFY(fixture.logic().findCurve("n.b"));
    QVERIFY(!fixture.editor.checkListsEditing->findTreeItem("n.a"));
    QVERIFY(!record->isEditing); // the record itself lives on
    fixture.editor.removeCurve("n", "unknown");
    fixture.editor.removeCurve("unknown", "b");
    QVERIFY(fixture.logic().findCurve("n.b"));
}

void TestRemovingAndRenaming::aRecordHiddenBehindAPrefixIsRemovedByItsExactName()
{
    EditorFixture fixture;
    LentCurve curve;
    CurveEditor& editor = fixture.editor;
    editor.addCurve("n", "width", Qt::red, 0, &curve.spline, nullptr, 0, 1, false, true);
    editor.addCurve("n", "width2", Qt::red, 0, &curve.spline, nullptr, 0, 1, false, true);
    editor.removeCurve("n", "width2");
    QVERIFY(!editor.searchAllNodeListCurveName("n.width2"));
    editor.removeCurve("n", "width");
    QVERIFY(!editor.searchAllNodeListCurveName("n.width"));
}

void TestRemovingAndRenaming::removingANodeRemovesItsCurvesAndItsItem()
{
    EditorFixture fixture;
    LentCurve listed;
    fixture.editCurve("n.a", {{1, 1}});
    fixture.addCurve("m.a", {{1, 1}});
    fixture.editor.addCurve("n", "b", Qt::red, 0, &listed.spline, nullptr, 0, 1, false, true);
    fixture.editor.removeNode("n");
    QVERIFY(!fixture.editor.searchMainNode("n"));
    QVERIFY(!fixture.editor.searchAllNodeList("n.a"));
    QVERIFY(!fixture.editor.searchAllNodeList("n.b"));
    QVERIFY(!fixture.logic().findCurve("n"));
    QVERIFY(fixture.logic().findCurve("m.a"));
    QCOMPARE(topTexts(fixture.editor), QStringList{"m"});
    fixture.editor.removeNode("unknown");
    QCOMPARE(topTexts(fixture.editor), QStringList{"m"});
}

void TestRemovingAndRenaming::removingAnUnknownNodeEmptiesTheSelectionAllTheSame()
{
    EditorFixture fixture;
    fixture.editCurve("n.a", {{1, 1}});
    fixture.editor.removeNode("unknown");
    QVERIFY(fixture.editor.getSelection().isEmpty());
    QVERIFY(fixture.logic().findCurve("n.a"));
}

void TestRemovingAndRenaming::removingANodeWithoutCurvesRemovesItsItem()
{
    EditorFixture fixture;
    fixture.editor.addNewMainNode("n");
    fixture.editor.removeNode("n");
    QVERIFY(topTexts(fixture.editor).isEmpty());
}

void TestRemovingAndRenaming::theArgumentOfRemoveNodeMayBeTheNameInTheRecord()
{
    EditorFixture fixture;
    fixture.addCurve("n.a", {{1, 1}});
    fixture.editor.removeNode(fixture.editor.searchMainNode("n")->name);
    QVERIFY(!fixture.editor.searchMainNode("n"));
    QVERIFY(topTexts(fixture.editor).isEmpty());
}

void TestRemovingAndRenaming::aRenamedCurveKeepsItsObject()
{
    EditorFixture fixture;
    fixture.editCurve("n.a", {{1, 1}});
    CurveNode* const object = fixture.logic().findCurve("n.a");
    fixture.editor.renameCurve("n", "a", "b");
    QCOMPARE(fixture.logic().findCurve("n.b"), object);
    QVERIFY(!fixture.logic().findCurve("n.a"));
    QVERIFY(fixture.editor.checkListsEditing->findTreeItem("n.b"));
    QVERIFY(!fixture.editor.checkListsEditing->findTreeItem("n.a"));
    const auto* const record = fixture.editor.searchAllNodeList("n.b");
    QVERIFY(record);
    QVERIFY(record->isEditing);
    QCOMPARE(record->curveName, QString("b"));
    QVERIFY(!fixture.editor.searchAllNodeList("n.a"));
    QVERIFY(fixture.editor.getSelection().isEmpty());
}

void TestRemovingAndRenaming::aCurveRenamedToTheMarkerIsHiddenAndDeselected()
{
    EditorFixture fixture;
    fixture.editCurve("n.a", {{1, 1}});
    fixture.editor.renameCurve("n", "a", "a###OLD###");
    const QTreeWidgetItem* const item =
        fixture.editor.checkListsEditing->findTreeItem("n.a###OLD###");
    QVERIFY(item);
    QVERIFY(item->isHidden());
    QVERIFY(fixture.editor.getSelection().isEmpty());
    QVERIFY(fixture.editor.searchAllNodeList("n.a###OLD###"));
    fixture.editor.renameCurve("n", "a###OLD###", "a###old###");
    QVERIFY(!fixture.editor.checkListsEditing->findTreeItem("n.a###old###")->isHidden());
}

void TestRemovingAndRenaming::renamingACurveOffTheCanvasChangesTheRecordOnly()
{
    EditorFixture fixture;
    LentCurve listed;
    fixture.editCurve("n.b", {{1, 1}});
    fixture.editor.addCurve("n", "a", Qt::red, 0, &listed.spline, nullptr, 0, 1, false, true);
    fixture.editor.renameCurve("n", "a", "c");
    QVERIFY(fixture.editor.searchAllNodeList("n.c"));
    QVERIFY(!fixture.logic().findCurve("n.c"));
    QVERIFY(!fixture.editor.checkListsEditing->findTreeItem("n.c"));
    QCOMPARE(fixture.editor.getSelection(), QStringList{"n.b"});
}

void TestRemovingAndRenaming::theSafeNameOutlivesARenamedCurveButNotARenamedNode()
{
    EditorFixture fixture;
    fixture.addCurve("my node.a b", {{1, 1}});
    const auto* const record = fixture.editor.searchAllNodeList("my node.a b");
    QCOMPARE(record->safeDotName, QString("my_node.a_b"));
    fixture.editor.renameCurve("my node", "a b", "c d");
    QCOMPARE(record->safeDotName, QString("my_node.a_b"));
    fixture.editor.renameNode("my node", "your node");
    QCOMPARE(record->safeDotName, QString("your_node.c_d"));
}

void TestRemovingAndRenaming::unknownNamesRenameNothing()
{
    EditorFixture fixture;
    fixture.editCurve("n.a", {{1, 1}});
    fixture.editor.renameCurve("n", "x", "b");
    fixture.editor.renameCurve("m", "a", "b");
    fixture.editor.renameNode("m", "k");
    QVERIFY(fixture.editor.searchAllNodeList("n.a"));
    QCOMPARE(fixture.editor.getSelection(), QStringList{"n.a"});
}

void TestRemovingAndRenaming::aRenamedNodeTakesItsCurvesAlongAndLeavesTheSelection()
{
    EditorFixture fixture;
    fixture.editCurve("n.a", {{1, 1}});
    fixture.addCurve("n.x.y", {{1, 1}});
    LentCurve listed;
    fixture.editor.addCurve("n", "k", Qt::red, 0, &listed.spline, nullptr, 0, 1, false, true);
    CurveNode* const object = fixture.logic().findCurve("n.a");
    fixture.editor.renameNode("n", "m");
    QCOMPARE(fixture.logic().findCurve("m.a"), object);
    QVERIFY(fixture.logic().findCurve("m.x.y"));
    QVERIFY(!fixture.logic().findCurve("n"));
    QCOMPARE(topTexts(fixture.editor), QStringList{"m"});
    QVERIFY(fixture.editor.checkListsEditing->findTreeItem("m.x.y"));
    QVERIFY(fixture.editor.searchMainNode("m"));
    QVERIFY(!fixture.editor.searchMainNode("n"));
    QVERIFY(fixture.editor.searchAllNodeList("m.a"));
    QVERIFY(fixture.editor.searchAllNodeList("m.k"));
    QCOMPARE(fixture.editor.getSelection(), QStringList{"n.a"});
    QCOMPARE(fixture.logic().editingCurveNames(), QStringList{"m.a"});
}

void TestRemovingAndRenaming::afterARenamedNodeEveryCurveReportsTheNameOfItsRecord_data()
{
    QTest::addColumn<QString>("curve");
    QTest::addColumn<QString>("newNode");
    QTest::newRow("plain") << "b"
                           << "m";
    QTest::newRow("equal last parts") << "b.b"
                                      << "m";
    QTest::newRow("as the node") << "a"
                                 << "m";
    QTest::newRow("a node with a point") << "b.c"
                                         << "m.k";
}

void TestRemovingAndRenaming::afterARenamedNodeEveryCurveReportsTheNameOfItsRecord()
{
    QFETCH(QString, curve);
    QFETCH(QString, newNode);
    EditorFixture fixture;
    fixture.addCurve("a." + curve, {{1, 1}});
    CurveNode* const object = fixture.logic().findCurve("a." + curve);
    QVERIFY(object);
    fixture.editor.renameNode("a", newNode);
    QCOMPARE(object->dotName(), newNode + "." + curve);
    QCOMPARE(fixture.logic().findCurve(newNode + "." + curve), object);
}

void TestRemovingAndRenaming::theArgumentOfRenameNodeMayBeTheNameInTheRecord()
{
    EditorFixture fixture;
    fixture.addCurve("n.a", {{1, 1}});
    fixture.editor.renameNode(fixture.editor.searchAllNodeList("n.a")->mainNodeName, "m");
    QVERIFY(fixture.logic().findCurve("m.a"));
    QCOMPARE(topTexts(fixture.editor), QStringList{"m"});
}

QTEST_MAIN(TestRemovingAndRenaming)
#include "test_removing_and_renaming.moc"
