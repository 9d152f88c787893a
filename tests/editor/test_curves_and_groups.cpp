// Curves that bear the name of a group, or stand under the name of another curve or node.

#include "editor/EditorParts.h"
#include "support/EditorFixture.h"
#include "support/FailOnWarning.h"

class TestCurvesAndGroups : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void aCurveRenamedOutOfItsGroupOutlivesTheGroup();
    void aCurveRenamedToTheNameOfItsOwnGroupTakesTheGroupsPlace_data();
    void aCurveRenamedToTheNameOfItsOwnGroupTakesTheGroupsPlace();
    void aGroupThatItsLastCurveWasRenamedOutOfGivesWayToACurveOfItsName();
    void aCurveRenamedToTheNameOfAGroupWithOtherCurvesIsNoneOfThem();
    void removingACurveOffTheCanvasLeavesTheCurvesBelowItsName();
    void renamingACurveOffTheCanvasLeavesTheCurvesBelowItsName();
    void renamingACurveWhoseNameAGroupAnswersToLeavesTheCurvesOfTheGroup();
    void aRenamedNodeLeavesTheCurvesOfAnotherThatStandUnderItsName_data();
    void aRenamedNodeLeavesTheCurvesOfAnotherThatStandUnderItsName();
    void theLastItemOfANodeLeavesCurvesOfAnotherNodeThatStandUnderItsName();
    void theLastItemOfANodeLeavesTheCurvesOfANodeThatWasRenamedToItsName();
};

void TestCurvesAndGroups::aCurveRenamedOutOfItsGroupOutlivesTheGroup()
{
    EditorFixture fixture;
    fixture.addCurve("n.a.b", {{1, 1}});
    fixture.addCurve("n.a.x", {{1, 1}});
    CurveNode* const object = fixture.logic().findCurve("n.a.b");
    fixture.editor.renameCurve("n", "a.b", "c");
    QCOMPARE(fixture.logic().findCurve("n.c"), object);
    fixture.editor.removeCurve("n", "a.x");
    QVERIFY(!fixture.logic().findCurve("n.a.x"));
    QCOMPARE(fixture.logic().findCurve("n.c"), object);
    QVERIFY(fixture.editor.checkListsEditing->findTreeItem("n.c"));
}

void TestCurvesAndGroups::aCurveRenamedToTheNameOfItsOwnGroupTakesTheGroupsPlace_data()
{
    QTest::addColumn<QString>("curve");
    QTest::newRow("right under it") << "a.b";
    QTest::newRow("deep under it") << "a.b.c";
}

void TestCurvesAndGroups::aCurveRenamedToTheNameOfItsOwnGroupTakesTheGroupsPlace()
{
    QFETCH(QString, curve);
    EditorFixture fixture;
    fixture.addCurve("n." + curve, {{1, 1}});
    CurveNode* const object = fixture.logic().findCurve("n." + curve);
    fixture.editor.renameCurve("n", curve, "a");
    QCOMPARE(fixture.logic().findCurve("n.a"), object);
    fixture.editor.selectNodes(QString("n.a"));
    fixture.editor.selectAllKeys();
    fixture.editor.deleteSelectedKeys();
    QCOMPARE(object->spline()->getControlPointsNumber(), 0u);
    fixture.editor.removeCurve("n", "a");
    QVERIFY(fixture.logic().topNodes().isEmpty());
    QVERIFY(topTexts(fixture.editor).isEmpty());
}

void TestCurvesAndGroups::aGroupThatItsLastCurveWasRenamedOutOfGivesWayToACurveOfItsName()
{
    LentCurve curve;
    EditorFixture fixture;
    curve.addKey(1, 1);
    fixture.addCurve("n.a.b", {{1, 1}});
    fixture.editor.renameCurve("n", "a.b", "c");
    fixture.editor.addCurve("n", "a", Qt::red, 0, &curve.spline, nullptr, 0, 1, true, true);
    QVERIFY(fixture.logic().findCurve("n.a"));
    QCOMPARE(fixture.logic().findCurve("n.a")->spline(), &curve.spline);
    QCOMPARE(fixture.logic().editingCurveNames(), QStringList{"n.a"});
}

void TestCurvesAndGroups::aCurveRenamedToTheNameOfAGroupWithOtherCurvesIsNoneOfThem()
{
    EditorFixture fixture;
    fixture.addCurve("n.a.b", {{1, 1}});
    fixture.addCurve("n.a.c", {{1, 1}});
    CurveNode* const other = fixture.logic().findCurve("n.a.c");
    fixture.editor.renameCurve("n", "a.b", "a");
    QCOMPARE(fixture.logic().findCurve("n.a")->curves(), QList<CurveNode*>{other});
    QVERIFY(fixture.editor.checkListsEditing->findTreeItem("n.a.c"));
    fixture.editor.renameCurve("n", "a", "d");
    QVERIFY(fixture.logic().findCurve("n.d"));
    QCOMPARE(fixture.logic().findCurve("n.d")->spline(), &fixture.curves.at("n.a.b")->spline);
    QVERIFY(fixture.editor.checkListsEditing->findTreeItem("n.d"));
}

void TestCurvesAndGroups::removingACurveOffTheCanvasLeavesTheCurvesBelowItsName()
{
    LentCurve outer;
    EditorFixture fixture;
    fixture.editCurve("n.a.b", {{1, 1}});
    fixture.editor.addNewNode("n", "a", Qt::red, 0, &outer.spline, nullptr, 0, 1, true);
    fixture.editor.removeCurve("n", "a");
    QVERIFY(fixture.logic().findCurve("n.a.b"));
    QVERIFY(fixture.editor.checkListsEditing->findTreeItem("n.a.b"));
    QCOMPARE(fixture.logic().editingCurveNames(), QStringList{"n.a.b"});
}

void TestCurvesAndGroups::renamingACurveOffTheCanvasLeavesTheCurvesBelowItsName()
{
    LentCurve outer;
    EditorFixture fixture;
    fixture.editCurve("n.a.b", {{1, 1}});
    fixture.editor.addNewNode("n", "a", Qt::red, 0, &outer.spline, nullptr, 0, 1, true);
    fixture.editor.renameCurve("n", "a", "c");
    QVERIFY(fixture.logic().findCurve("n.a.b"));
    QVERIFY(fixture.editor.checkListsEditing->findTreeItem("n.a.b"));
    QVERIFY(fixture.editor.searchAllNodeList("n.c"));
}

void TestCurvesAndGroups::renamingACurveWhoseNameAGroupAnswersToLeavesTheCurvesOfTheGroup()
{
    LentCurve outer;
    EditorFixture fixture;
    CurveEditor& editor = fixture.editor;
    fixture.editCurve("n.a.b", {{1, 1}});
    editor.addNewNode("n", "a", Qt::red, 0, &outer.spline, nullptr, 0, 1, true);
    editor.setCurveEditableOn(editor.searchAllNodeListCurveName("n.a"));
    editor.renameCurve("n", "a", "c");
    QVERIFY(fixture.logic().findCurve("n.a.b"));
    QVERIFY(editor.checkListsEditing->findTreeItem("n.a.b"));
    QVERIFY(fixture.logic().findCurve("n.c"));
    QCOMPARE(fixture.logic().findCurve("n.c")->spline(), &outer.spline);
    QVERIFY(editor.checkListsEditing->findTreeItem("n.c"));
    editor.removeCurve("n", "c");
}

void TestCurvesAndGroups::aRenamedNodeLeavesTheCurvesOfAnotherThatStandUnderItsName_data()
{
    QTest::addColumn<QString>("foreign");
    QTest::newRow("in its group") << "n.a.b";
    QTest::newRow("in place of its group") << "n.a";
}

void TestCurvesAndGroups::aRenamedNodeLeavesTheCurvesOfAnotherThatStandUnderItsName()
{
    QFETCH(QString, foreign);
    LentCurve curve;
    EditorFixture fixture;
    CurveEditor& editor = fixture.editor;
    fixture.addCurve(foreign, {{1, 1}});
    CurveNode* const object = fixture.logic().findCurve(foreign);
    editor.addNewMainNode("n.a");
    editor.addNewNode("n.a", "c", Qt::red, 0, &curve.spline, nullptr, 0, 1, true);
    editor.setCurveEditableOn(editor.searchAllNodeListCurveName("n.a.c"));
    CurveNode* const own = fixture.logic().findCurve("n.a.c");
    editor.renameNode("n.a", "m");
    QCOMPARE(fixture.logic().findCurve(foreign), object);
    QCOMPARE(fixture.logic().findCurve("m.c"), own);
    editor.setCurveEditableOff(editor.searchAllNodeList(foreign));
    QVERIFY(!fixture.logic().findCurve(foreign));
    QCOMPARE(fixture.logic().findCurve("m.c"), own);
    editor.removeNode("m");
    QVERIFY(!fixture.logic().findCurve("m.c"));
}

void TestCurvesAndGroups::theLastItemOfANodeLeavesCurvesOfAnotherNodeThatStandUnderItsName()
{
    LentCurve curve;
    EditorFixture fixture;
    fixture.addCurve("n.a", {{1, 1}});
    fixture.editor.addNewMainNode("n.k");
    fixture.editor.addNewNode("n.k", "b", Qt::red, 0, &curve.spline, nullptr, 0, 1, true);
    fixture.editor.setDefaultSelected("n.k", "b");
    CurveNode* const object = fixture.logic().findCurve("n.k.b");
    fixture.editor.removeCurveFromEditing("n.a");
    QCOMPARE(treeNames(fixture.editor), (QStringList{"n.k", "n.k.b"}));
    QCOMPARE(fixture.logic().findCurve("n.k.b"), object);
    QCOMPARE(fixture.logic().editingCurveNames(), QStringList{"n.k.b"});
    fixture.editor.removeCurve("n.k", "b");
    QVERIFY(!fixture.logic().findCurve("n.k.b"));
}

void TestCurvesAndGroups::theLastItemOfANodeLeavesTheCurvesOfANodeThatWasRenamedToItsName()
{
    EditorFixture fixture;
    fixture.editor.addNewMainNode("n");
    fixture.addCurve("m.a", {{1, 1}});
    fixture.addCurve("m.b", {{1, 1}});
    fixture.editor.renameNode("m", "n");
    fixture.editor.removeCurve("n", "a");
    QVERIFY(fixture.logic().findCurve("n.b"));
    QVERIFY(fixture.editor.checkListsEditing->findTreeItem("n.b"));
    fixture.editor.selectNodes(QString("n.b"));
    QCOMPARE(fixture.logic().editingCurveNames(), QStringList{"n.b"});
}

QTEST_MAIN(TestCurvesAndGroups)
#include "test_curves_and_groups.moc"
