// Which curves are on the canvas and in the tree, and how they get there and leave.

#include "editor/EditorParts.h"
#include "support/EditorFixture.h"
#include "support/FailOnWarning.h"

#include "curves/CurveHold.h"
#include "curves/CurveNodeBase.h"

#include <QStyleFactory>

class TestEditingSet : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void enteringMakesAnObjectAndAPathInTheTree();
    void enteringDoesNotSelect();
    void enteringTwiceMakesOneObjectAndOneItem();
    void childrenAreSortedTopItemsAreNot();
    void childrenEnterWhereSortingWouldPutThem();
    void theParentsOfANewItemAreExpanded();
    void emptyPartsOfANameAreLevelsToo();
    void theLastCurveOfAGroupTakesTheGroupAlong();
    void curvesThatShareAnItemKeepItUntilTheLastGoes();
    void leavingKeepsTheListOfTheSelection();
    void anExistingObjectIsPutBack();
    void setDefaultSelectedEntersAndSelectsAlone();
    void aNodeNameRemovesAllItsCurvesAndTheyStayCatalogued();
    void aGroupNameRemovesTheCurvesBelowIt();
    void anEmptyNodeLeavesTheTree();
    void anItemBelowTheTopThatNoRecordAnswersToStays();
    void removingANodeEndsWhenACurveOfItCannotBeFound();
    void cleanSelectedsEmptiesTheSet();
    void cleanSelectedsOfRecordsNeverEditedChangesNothingVisible();
    void deleteInTheTreeRemovesTheSelectedItems();
    void theTreeIsShownHiddenAndStyled();
    void aRecordWhoseSplineTheHostDestroyedEntersEmpty();
};

void TestEditingSet::enteringMakesAnObjectAndAPathInTheTree()
{
    EditorFixture fixture;
    fixture.addCurve("n.a.b", {{1, 1}});
    QCOMPARE(treeNames(fixture.editor), (QStringList{"n", "n.a", "n.a.b"}));
    const auto* const curve = dynamic_cast<CurveNodeBase*>(fixture.logic().findCurve("n.a.b"));
    QVERIFY(curve);
    QCOMPARE(curve->curveColor(), QColor(Qt::green));
    QCOMPARE(curve->minimumValue(), -1000.0f);
    QCOMPARE(curve->maximumValue(), 1000.0f);
    QVERIFY(fixture.editor.searchAllNodeList("n.a.b")->isEditing);
}

void TestEditingSet::enteringDoesNotSelect()
{
    EditorFixture fixture;
    fixture.editCurve("n.a", {{1, 1}});
    fixture.addCurve("n.b", {{1, 1}});
    QCOMPARE(fixture.editor.getSelection(), QStringList{"n.a"});
    QCOMPARE(fixture.logic().editingCurveNames(), QStringList{"n.a"});
}

void TestEditingSet::enteringTwiceMakesOneObjectAndOneItem()
{
    EditorFixture fixture;
    fixture.addCurve("n.a", {{1, 1}});
    CurveNode* const object = fixture.logic().findCurve("n.a");
    fixture.editor.setCurveEditableOn(fixture.editor.searchAllNodeList("n.a"));
    QCOMPARE(fixture.logic().findCurve("n.a"), object);
    QCOMPARE(fixture.logic().topNodes().first()->curves(), QList<CurveNode*>{object});
    QCOMPARE(treeNames(fixture.editor), (QStringList{"n", "n.a"}));
}

void TestEditingSet::childrenAreSortedTopItemsAreNot()
{
    EditorFixture fixture;
    for (const char* name : {"n.c", "n.a", "b.z", "b.x.2", "b.x.1"}) {
        fixture.addCurve(name, {{1, 1}});
    }
    QCOMPARE(treeNames(fixture.editor),
             (QStringList{"n", "n.a", "n.c", "b", "b.x", "b.x.1", "b.x.2", "b.z"}));
}

void TestEditingSet::childrenEnterWhereSortingWouldPutThem()
{
    EditorFixture fixture;
    for (const char* name :
         {"b 10|", "B|", "b 2|", "|", "\u00e4|", "b|", "a|", "z|", "Z|", "b 1|"}) {
        fixture.addCurve(QStringLiteral("n.") + QString::fromUtf8(name), {{1, 1}});
    }
    const QStringList entered = treeNames(fixture.editor);
    QCOMPARE(entered.size(), 11);
    fixture.editor.getNodeItem("n")->sortChildren(0, Qt::AscendingOrder);
    QCOMPARE(entered, treeNames(fixture.editor));
}

void TestEditingSet::theParentsOfANewItemAreExpanded()
{
    EditorFixture fixture;
    fixture.addCurve("n.a.b", {{1, 1}});
    fixture.addCurve("n.a.c", {{1, 1}});
    QVERIFY(fixture.editor.checkListsEditing->findTreeItem("n")->isExpanded());
    QVERIFY(fixture.editor.checkListsEditing->findTreeItem("n.a")->isExpanded());
}

void TestEditingSet::emptyPartsOfANameAreLevelsToo()
{
    EditorFixture fixture;
    fixture.addCurve("n.a..b", {{1, 1}});
    QCOMPARE(treeNames(fixture.editor), (QStringList{"n", "n.a", "n.a.", "n.a..b"}));
}

void TestEditingSet::theLastCurveOfAGroupTakesTheGroupAlong()
{
    EditorFixture fixture;
    fixture.addCurve("n.a.b", {{1, 1}});
    fixture.editor.setCurveEditableOff(fixture.editor.searchAllNodeList("n.a.b"));
    QVERIFY(treeNames(fixture.editor).isEmpty());
    QVERIFY(!fixture.logic().findCurve("n.a.b"));
    QVERIFY(!fixture.logic().findCurve("n.a"));
    QVERIFY(!fixture.logic().findCurve("n"));
    QVERIFY(!fixture.editor.searchAllNodeList("n.a.b")->isEditing);
}

void TestEditingSet::curvesThatShareAnItemKeepItUntilTheLastGoes()
{
    EditorFixture fixture;
    fixture.addCurve("n.x.1", {{1, 1}});
    fixture.addCurve("n.x.2", {{1, 1}});
    fixture.editor.removeCurveFromEditing("n.x.1");
    QCOMPARE(treeNames(fixture.editor), (QStringList{"n", "n.x", "n.x.2"}));
    QVERIFY(fixture.logic().findCurve("n.x"));
    QVERIFY(fixture.logic().findCurve("n.x.2"));
    fixture.editor.removeCurveFromEditing("n.x.2");
    QVERIFY(treeNames(fixture.editor).isEmpty());
    QVERIFY(fixture.logic().topNodes().isEmpty());
}

void TestEditingSet::leavingKeepsTheListOfTheSelection()
{
    EditorFixture fixture;
    fixture.editCurve("n.a", {{1, 1}});
    fixture.editor.setCurveEditableOff(fixture.editor.searchAllNodeList("n.a"));
    QCOMPARE(fixture.editor.getSelection(), QStringList{"n.a"});
    QVERIFY(fixture.logic().editingCurves().isEmpty());
}

void TestEditingSet::anExistingObjectIsPutBack()
{
    EditorFixture fixture;
    fixture.addCurve("n.a.b", {{1, 1}});
    CurveNode* const object = fixture.logic().findCurve("n.a.b");
    const CurveHold kept(object);
    CurveEditor::NodeStruct* const record = fixture.editor.searchAllNodeList("n.a.b");
    fixture.editor.setCurveEditableOff(record);
    fixture.editor.setCurveEditableOn(record, object);
    QCOMPARE(fixture.logic().findCurve("n.a.b"), object);
    QCOMPARE(treeNames(fixture.editor), (QStringList{"n", "n.a", "n.a.b"}));
}

void TestEditingSet::setDefaultSelectedEntersAndSelectsAlone()
{
    EditorFixture fixture;
    LentCurve listed;
    fixture.editCurve("n.a", {{1, 1}});
    fixture.editor.addCurve("n", "b", Qt::red, 0, &listed.spline, nullptr, 0, 1, false, true);
    fixture.editor.setDefaultSelected("n", "b");
    QCOMPARE(fixture.editor.getSelection(), QStringList{"n.b"});
    QVERIFY(fixture.logic().findCurve("n.b"));
    fixture.editor.setDefaultSelected("n", "unknown");
    QCOMPARE(fixture.editor.getSelection(), QStringList{"n.b"});
}

void TestEditingSet::aNodeNameRemovesAllItsCurvesAndTheyStayCatalogued()
{
    EditorFixture fixture;
    for (const char* name : {"n.a", "n.x.1", "n.x.2", "m.a"}) {
        fixture.addCurve(name, {{1, 1}});
    }
    fixture.editor.removeCurveFromEditing("n");
    QCOMPARE(treeNames(fixture.editor), (QStringList{"m", "m.a"}));
    QVERIFY(!fixture.logic().findCurve("n"));
    for (const char* name : {"n.a", "n.x.1", "n.x.2"}) {
        QVERIFY(!fixture.logic().findCurve(name));
        QVERIFY(fixture.editor.searchAllNodeList(name));
        QVERIFY(!fixture.editor.searchAllNodeList(name)->isEditing);
    }
    QVERIFY(fixture.logic().findCurve("m.a"));
}

void TestEditingSet::aGroupNameRemovesTheCurvesBelowIt()
{
    EditorFixture fixture;
    for (const char* name : {"n.a", "n.x.1", "n.x.2"}) {
        fixture.addCurve(name, {{1, 1}});
    }
    fixture.editor.removeCurveFromEditing("n.x");
    QCOMPARE(treeNames(fixture.editor), (QStringList{"n", "n.a"}));
    QVERIFY(!fixture.logic().findCurve("n.x"));
}

void TestEditingSet::anEmptyNodeLeavesTheTree()
{
    EditorFixture fixture;
    fixture.editor.addNewMainNode("n");
    fixture.editor.removeCurveFromEditing("n");
    QVERIFY(treeNames(fixture.editor).isEmpty());
    QVERIFY(fixture.editor.searchMainNode("n"));
    fixture.editor.removeCurveFromEditing("n");
    fixture.editor.removeCurveFromEditing("unknown.curve");
}

void TestEditingSet::anItemBelowTheTopThatNoRecordAnswersToStays()
{
    EditorFixture fixture;
    fixture.addCurve("n.a", {{1, 1}});
    new QTreeWidgetItem(fixture.editor.getNodeItem("n"), QStringList("x"));
    fixture.editor.removeCurveFromEditing("n.x");
    QCOMPARE(treeNames(fixture.editor), (QStringList{"n", "n.a", "n.x"}));
}

void TestEditingSet::removingANodeEndsWhenACurveOfItCannotBeFound()
{
    EditorFixture fixture;
    LentCurve hidden;
    fixture.addCurve("n.a", {{1, 1}});
    fixture.addCurve("n.width", {{1, 1}});
    fixture.addCurve("n.x", {{1, 1}});
    CurveEditor& editor = fixture.editor;
    editor.addCurve("n", "width2", Qt::red, 0, &hidden.spline, nullptr, 0, 1, false, true);
    editor.setCurveEditableOn(editor.searchAllNodeListCurveName("n.width2"));
    QCOMPARE(treeNames(editor).size(), 5);
    editor.removeCurveFromEditing("n");
    QCOMPARE(treeNames(editor), (QStringList{"n", "n.width2"}));
    QVERIFY(fixture.logic().findCurve("n.width2"));
    QVERIFY(!fixture.logic().findCurve("n.x"));
}

void TestEditingSet::cleanSelectedsEmptiesTheSet()
{
    EditorFixture fixture;
    fixture.addCurve("n.a", {{1, 1}});
    fixture.editCurve("m.a.b", {{1, 1}});
    fixture.editor.cleanSelecteds();
    QVERIFY(treeNames(fixture.editor).isEmpty());
    QVERIFY(fixture.logic().topNodes().isEmpty());
    QVERIFY(fixture.editor.searchAllNodeList("n.a"));
}

void TestEditingSet::cleanSelectedsOfRecordsNeverEditedChangesNothingVisible()
{
    EditorFixture fixture;
    LentCurve listed;
    fixture.editor.addCurve("n", "a", Qt::red, 0, &listed.spline, nullptr, 0, 1, false, true);
    fixture.editor.cleanSelecteds();
    QCOMPARE(treeNames(fixture.editor), QStringList{"n"});
}

void TestEditingSet::deleteInTheTreeRemovesTheSelectedItems()
{
    EditorFixture fixture;
    fixture.addCurve("n.a", {{1, 1}});
    fixture.addCurve("n.b", {{1, 1}});
    fixture.addCurve("n.c", {{1, 1}});
    fixture.editor.selectNodes(QStringList{"n.a", "n.c"});
    QTest::keyClick(fixture.editor.checkListsEditing, Qt::Key_Delete);
    QCOMPARE(treeNames(fixture.editor), (QStringList{"n", "n.b"}));
    fixture.editor.getCmdManager()->undo();
    QCOMPARE(treeNames(fixture.editor), (QStringList{"n", "n.a", "n.b", "n.c"}));
    QCOMPARE(fixture.editor.getSelection(), (QStringList{"n.a", "n.c"}));
}

void TestEditingSet::theTreeIsShownHiddenAndStyled()
{
    EditorFixture fixture;
    QVERIFY(fixture.editor.isTreeVisible());
    fixture.editor.setTreeVisible(false);
    QVERIFY(!fixture.editor.isTreeVisible());
    fixture.editor.setTreeVisible(true);
    QVERIFY(fixture.editor.isTreeVisible());
    const std::unique_ptr<QStyle> style(QStyleFactory::create("Fusion"));
    fixture.editor.setCheckListStyle(style.get());
    QCOMPARE(fixture.editor.checkListsEditing->style(), style.get());
    fixture.editor.setCheckListStyle(nullptr);
}

void TestEditingSet::aRecordWhoseSplineTheHostDestroyedEntersEmpty()
{
    EditorFixture fixture;
    auto curve = std::make_unique<LentCurve>();
    curve->addKey(1, 1);
    fixture.editor.addCurve("n", "a", Qt::red, 0, &curve->spline, &curve->expression, 0, 1, false,
                            true);
    curve.reset();
    fixture.editor.setDefaultSelected("n", "a");
    QVERIFY(!fixture.logic().findCurve("n.a")->spline());
    QVERIFY(!fixture.logic().findCurve("n.a")->expression());
    fixture.paint();
    fixture.editor.selectAllKeys();
    fixture.editor.deleteSelectedKeys();
    fixture.editor.removeNode("n");
}

QTEST_MAIN(TestEditingSet)
#include "test_editing_set.moc"
