#include "curves/CurveGroup.h"
#include "support/FailOnWarning.h"

#include <QTest>

class TestCurveNodeNames : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void aTopNodesDottedNameHasNoPoint();
    void aDottedNameJoinsPathAndName();
    void namesWithPercentSignsStayWhole();
    void findingGoesToAnyDepthAndIncludesTheNodeItself();
    void findingComparesWholeNames();
    void renamingATopNodeChangesItsNameAndTheChildrensPaths();
    void renamingATopNodeToADottedNameTakesTheLastElement();
    void renamingANodeBelowTheTopMovesItsPath();
    void renamingANodeBelowTheTopToANameWithoutAPointGivesAPathEqualToTheName();
    void everyChildTakesTheNewDottedNameForItsPath();
    void changingTheRootReachesAllPaths();
    void changingTheRootToTheSameDoesNothing();
    void changingTheRootOfATopNodeGivesItAPath();
};

void TestCurveNodeNames::aTopNodesDottedNameHasNoPoint()
{
    const CurveNode group(nullptr, "n", "");
    QCOMPARE(group.dotName(), QString("n"));
    QCOMPARE(group.name(), QString("n"));
    QCOMPARE(group.path(), QString());
}

void TestCurveNodeNames::aDottedNameJoinsPathAndName()
{
    const CurveNode group(nullptr, "b", "n.a");
    QCOMPARE(group.dotName(), QString("n.a.b"));
    QCOMPARE(group.name(), QString("b"));
    QCOMPARE(group.path(), QString("n.a"));
}

void TestCurveNodeNames::namesWithPercentSignsStayWhole()
{
    const CurveNode group(nullptr, "%1", "%2");
    QCOMPARE(group.dotName(), QString("%2.%1"));
}

void TestCurveNodeNames::findingGoesToAnyDepthAndIncludesTheNodeItself()
{
    CurveGroup tree;
    CurveNode* a = tree.addGroup(tree.top.get(), "a");
    CurveNode* b = tree.addGroup(a, "b");
    CurveNode* leaf = tree.add(b, "c");
    QCOMPARE(tree.top->findNode("n"), tree.top.get());
    QCOMPARE(tree.top->findNode("n.a.b"), b);
    QCOMPARE(tree.top->findNode("n.a.b.c"), leaf);
    QVERIFY(!tree.top->findNode("n.a.c"));
    QVERIFY(!tree.top->findNode(""));
}

void TestCurveNodeNames::findingComparesWholeNames()
{
    CurveGroup tree;
    tree.add(tree.top.get(), "width");
    QVERIFY(!tree.top->findNode("n.widt"));
    QVERIFY(!tree.top->findNode("n.widths"));
    QVERIFY(!tree.top->findNode("m.width"));
    QVERIFY(!tree.top->findNode("n_width"));
    QVERIFY(!tree.top->findNode("n.Width"));
    QVERIFY(!tree.top->findNode("width"));
}

void TestCurveNodeNames::renamingATopNodeChangesItsNameAndTheChildrensPaths()
{
    CurveGroup tree;
    CurveNode* a = tree.addGroup(tree.top.get(), "a");
    CurveNode* leaf = tree.add(a, "c");
    tree.top->setDotName("m");
    QCOMPARE(tree.top->dotName(), QString("m"));
    QCOMPARE(tree.top->path(), QString());
    QCOMPARE(a->dotName(), QString("m.a"));
    QCOMPARE(leaf->dotName(), QString("m.a.c"));
}

void TestCurveNodeNames::renamingATopNodeToADottedNameTakesTheLastElement()
{
    CurveGroup tree;
    CurveNode* leaf = tree.add(tree.top.get(), "c");
    tree.top->setDotName("x.y");
    QCOMPARE(tree.top->dotName(), QString("y"));
    QCOMPARE(leaf->dotName(), QString("y.c"));
}

void TestCurveNodeNames::renamingANodeBelowTheTopMovesItsPath()
{
    CurveGroup tree;
    CurveNode* a = tree.addGroup(tree.top.get(), "a");
    CurveNode* leaf = tree.add(a, "c");
    a->setDotName("m.k.b");
    QCOMPARE(a->path(), QString("m.k"));
    QCOMPARE(a->name(), QString("b"));
    QCOMPARE(leaf->dotName(), QString("m.k.b.c"));
}

void TestCurveNodeNames::renamingANodeBelowTheTopToANameWithoutAPointGivesAPathEqualToTheName()
{
    CurveNode group(nullptr, "a", "n");
    group.setDotName("b");
    QCOMPARE(group.dotName(), QString("b.b"));
}

void TestCurveNodeNames::everyChildTakesTheNewDottedNameForItsPath()
{
    CurveGroup tree;
    CurveNodeBase* leaf = tree.add(tree.top.get(), "b");
    CurveNode* group = tree.addGroup(tree.top.get(), "g");
    CurveNodeBase* deeper = tree.add(group, "c");
    leaf->setPath("n.b"); // stands higher than its name says
    tree.top->setPath("p");
    QCOMPARE(tree.top->dotName(), QString("p.n"));
    QCOMPARE(leaf->path(), QString("p.n"));
    QCOMPARE(group->path(), QString("p.n"));
    QCOMPARE(deeper->path(), QString("p.n.g"));
    leaf->setPath("elsewhere");
    tree.top->setDotName("m.k");
    QCOMPARE(leaf->dotName(), QString("m.k.b"));
    QCOMPARE(deeper->dotName(), QString("m.k.g.c"));
}

void TestCurveNodeNames::changingTheRootReachesAllPaths()
{
    CurveGroup tree;
    CurveNode* a = tree.addGroup(tree.top.get(), "a");
    CurveNode* leaf = tree.add(a, "c");
    a->setRootName("m");
    QCOMPARE(a->dotName(), QString("m.a"));
    QCOMPARE(leaf->dotName(), QString("m.a.c"));
    leaf->setRootName("k");
    QCOMPARE(leaf->dotName(), QString("k.a.c"));
}

void TestCurveNodeNames::changingTheRootToTheSameDoesNothing()
{
    CurveGroup tree;
    CurveNode* leaf = tree.add(tree.top.get(), "c");
    leaf->setRootName("n");
    QCOMPARE(leaf->dotName(), QString("n.c"));
}

void TestCurveNodeNames::changingTheRootOfATopNodeGivesItAPath()
{
    CurveGroup tree;
    CurveNode* leaf = tree.add(tree.top.get(), "c");
    tree.top->setRootName("m");
    QCOMPARE(tree.top->path(), QString("m"));
    QCOMPARE(leaf->dotName(), QString("m.n.c"));
}

QTEST_MAIN(TestCurveNodeNames)
#include "test_curve_node_names.moc"
