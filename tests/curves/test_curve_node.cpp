#include "core/ParseMessage.h"
#include "curves/CurveGroup.h"
#include "files/CurveType.h"
#include "graphs/SplineCurveGraph.h"
#include "graphs/ViewPort.h"
#include "support/FailOnWarning.h"
#include "support/ParsedExpression.h"

#include <QImage>
#include <QPainter>
#include <QTest>

#include <memory>

namespace {

FunctionFloatBase* parsed(const std::string& text)
{
    return ParsedExpression(text).tree.release();
}

void setType(CurveNodeBase* curve, const int& type)
{
    ParseMessage message;
    if (type != splineCurve) {
        curve->setExpression(parsed("1"), message);
    }
    curve->setAddFunc(type == splinePlusExpressionCurve);
}

} // namespace

class TestCurveNode : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void aGroupWithoutChildrenIsMixed();
    void settingAddFuncOnAGroupWithoutChildrenDoesNothing();
    void aGroupsTypeComesFromItsChildren_data();
    void aGroupsTypeComesFromItsChildren();
    void addFuncIsForwardedButNotToPlainSplines();
    void removingAChildUnlinksItAndTheCallerOwnsIt();
    void removingADeeperNodeUnlinksIt();
    void removingAnUnknownNameOrTheNodeItselfDoesNothing();
    void curvesAreTheLeavesInOrder();
    void splinesAreThoseOfTheLeavesThatHaveOne();
    void aGroupHasNoSplineExpressionOrGraph();
    void removingExpressionsOnAGroupAlwaysRemoves();
    void aGroupForwardsToEveryChild();
    void aGroupPassesOnChangesRebuildingAndDrawing();
    void aGroupHandsAnExpressionToItsLeaf();
    void theReportingFlagStaysWithTheNode();
    void aChildAddedElsewhereLeavesItsFormerGroup();
    void addingNullOrTheNodeItselfDoesNothing();
    void deletingANodeTakesItOutOfItsGroup();
    void aLeafHasNoChildren();
};

void TestCurveNode::aGroupWithoutChildrenIsMixed()
{
    CurveNode group(nullptr, "n", "");
    QCOMPARE(group.curveType(), int(mixedCurves));
    QVERIFY(group.curves().isEmpty());
}

void TestCurveNode::settingAddFuncOnAGroupWithoutChildrenDoesNothing()
{
    CurveNode group(nullptr, "n", "");
    group.setAddFunc(true);
    QCOMPARE(group.curveType(), int(mixedCurves));
}

void TestCurveNode::aGroupsTypeComesFromItsChildren_data()
{
    QTest::addColumn<QList<int>>("types");
    QTest::addColumn<int>("expected");
    QTest::newRow("one spline") << QList<int>{0} << 0;
    QTest::newRow("expression, then spline plus expression") << QList<int>{1, 2} << 1;
    QTest::newRow("spline plus expression, then expression") << QList<int>{2, 1} << 2;
    QTest::newRow("spline and expression") << QList<int>{0, 1} << 3;
    QTest::newRow("expression and spline") << QList<int>{1, 0} << 3;
    QTest::newRow("spline and spline plus expression") << QList<int>{0, 2} << 3;
    QTest::newRow("the spline stands last") << QList<int>{2, 1, 0} << 3;
}

void TestCurveNode::aGroupsTypeComesFromItsChildren()
{
    QFETCH(QList<int>, types);
    QFETCH(int, expected);
    CurveGroup tree;
    for (const int& type : types) {
        setType(tree.add(tree.top.get(), QString::number(type)), type);
    }
    QCOMPARE(tree.top->curveType(), expected);
    // A mixed child group makes its parent mixed.
    CurveNode* empty = tree.addGroup(tree.top.get(), "empty");
    QCOMPARE(empty->curveType(), int(mixedCurves));
    QCOMPARE(tree.top->curveType(), int(mixedCurves));
}

void TestCurveNode::addFuncIsForwardedButNotToPlainSplines()
{
    CurveGroup tree;
    CurveNodeBase* curve = tree.add(tree.top.get(), "c");
    tree.top->setAddFunc(true);
    QVERIFY(!curve->spline()->isAddFunc());
    setType(curve, expressionCurve);
    tree.top->setAddFunc(true);
    QVERIFY(curve->spline()->isAddFunc());
    tree.top->setAddFunc(false);
    QVERIFY(!curve->spline()->isAddFunc());
}

void TestCurveNode::removingAChildUnlinksItAndTheCallerOwnsIt()
{
    CurveGroup tree;
    const std::unique_ptr<CurveNode> leaf(tree.add(tree.top.get(), "c"));
    tree.top->removeNode("n.c");
    QVERIFY(tree.top->children()->isEmpty());
    QVERIFY(!leaf->parentNode());
    QCOMPARE(leaf->dotName(), QString("n.c"));
}

void TestCurveNode::removingADeeperNodeUnlinksIt()
{
    CurveGroup tree;
    CurveNode* a = tree.addGroup(tree.top.get(), "a");
    const std::unique_ptr<CurveNode> leaf(tree.add(a, "c"));
    tree.top->removeNode("n.a.c");
    QVERIFY(a->children()->isEmpty());
    QCOMPARE(tree.top->children()->size(), 1);
}

void TestCurveNode::removingAnUnknownNameOrTheNodeItselfDoesNothing()
{
    CurveGroup tree;
    tree.add(tree.top.get(), "c");
    tree.top->removeNode("n.d");
    tree.top->removeNode("n");
    QCOMPARE(tree.top->children()->size(), 1);
}

void TestCurveNode::curvesAreTheLeavesInOrder()
{
    CurveGroup tree;
    CurveNode* first = tree.add(tree.top.get(), "1");
    CurveNode* second = tree.add(tree.addGroup(tree.top.get(), "a"), "2");
    CurveNode* third = tree.add(tree.top.get(), "3");
    QCOMPARE(tree.top->curves(), (QList<CurveNode*>{first, second, third}));
    QCOMPARE(second->curves(), QList<CurveNode*>{second});
}

void TestCurveNode::splinesAreThoseOfTheLeavesThatHaveOne()
{
    CurveGroup tree;
    tree.add(tree.top.get(), "1");
    tree.top->addChild(
        new CurveNodeBase(nullptr, "2", "n", Qt::red, 0.0f, nullptr, nullptr, 0.0f, 1.0f, true));
    tree.add(tree.addGroup(tree.top.get(), "a"), "3");
    QCOMPARE(tree.top->splines(),
             (QList<SplineBase*>{&tree.hosts[0]->spline, &tree.hosts[1]->spline}));
}

void TestCurveNode::aGroupHasNoSplineExpressionOrGraph()
{
    CurveNode group(nullptr, "n", "");
    QVERIFY(!group.isCurve());
    QVERIFY(!group.spline());
    QVERIFY(!group.expression());
    QVERIFY(!group.expressionSlot());
    QVERIFY(!group.splineGraph());
    group.reserved();
}

void TestCurveNode::removingExpressionsOnAGroupAlwaysRemoves()
{
    CurveGroup tree;
    CurveNodeBase* curve = tree.add(tree.top.get(), "c");
    setType(curve, expressionCurve);
    tree.top->removeExpression(false);
    QVERIFY(!curve->expression());
}

void TestCurveNode::aGroupForwardsToEveryChild()
{
    CurveGroup tree;
    CurveNodeBase* first = tree.add(tree.top.get(), "1");
    CurveNodeBase* second = tree.add(tree.addGroup(tree.top.get(), "a"), "2");
    tree.top->setActive(true);
    tree.top->setColor(Qt::blue, Qt::white);
    first->spline()->addPoint(0.0, 1.0);
    second->spline()->addPoint(0.0, 1.0);
    tree.top->reset();
    for (CurveNodeBase* curve : {first, second}) {
        QVERIFY(curve->splineGraph()->isActive);
        QCOMPARE(curve->curveColor(), QColor(Qt::blue));
        QCOMPARE(curve->spline()->getControlPointsNumber(), 0u);
    }
}

void TestCurveNode::aGroupPassesOnChangesRebuildingAndDrawing()
{
    CurveGroup tree;
    CurveNodeBase* first = tree.add(tree.top.get(), "1");
    CurveNodeBase* second = tree.add(tree.addGroup(tree.top.get(), "a"), "2");
    ViewPort view;
    tree.top->updateGraph(&view);
    QVERIFY(!first->hasChanged() && !second->hasChanged());
    tree.top->markChanged();
    QVERIFY(first->hasChanged() && second->hasChanged());
    QImage image(10, 10, QImage::Format_RGB32);
    QPainter painter(&image);
    tree.top->draw(&view, &painter);
    QVERIFY(!first->hasChanged() && !second->hasChanged());
}

void TestCurveNode::aGroupHandsAnExpressionToItsLeaf()
{
    CurveGroup tree;
    CurveNodeBase* curve = tree.add(tree.addGroup(tree.top.get(), "a"), "c");
    ParseMessage message;
    tree.top->setExpression(parsed("5"), message);
    QVERIFY(curve->expression());
    QCOMPARE(curve->evaluate(0.0), 5.0);
}

void TestCurveNode::theReportingFlagStaysWithTheNode()
{
    CurveGroup tree;
    CurveNodeBase* curve = tree.add(tree.top.get(), "c");
    QVERIFY(tree.top->notifiesHost());
    tree.top->setNotifiesHost(false);
    QVERIFY(!tree.top->notifiesHost());
    QVERIFY(curve->notifiesHost());
}

void TestCurveNode::aChildAddedElsewhereLeavesItsFormerGroup()
{
    CurveGroup tree;
    CurveNode* a = tree.addGroup(tree.top.get(), "a");
    CurveNode* leaf = tree.add(a, "c");
    tree.top->addChild(leaf);
    QVERIFY(a->children()->isEmpty());
    QCOMPARE(leaf->parentNode(), tree.top.get());
    tree.top->addChild(leaf);
    QCOMPARE(tree.top->children()->count(leaf), 1);
}

void TestCurveNode::addingNullOrTheNodeItselfDoesNothing()
{
    CurveNode group(nullptr, "n", "");
    group.addChild(nullptr);
    group.addChild(&group);
    QVERIFY(group.children()->isEmpty());
}

void TestCurveNode::deletingANodeTakesItOutOfItsGroup()
{
    CurveGroup tree;
    delete tree.add(tree.top.get(), "c");
    QVERIFY(tree.top->children()->isEmpty());
}

void TestCurveNode::aLeafHasNoChildren()
{
    CurveGroup tree;
    CurveNodeBase* leaf = tree.add(tree.top.get(), "c");
    const std::unique_ptr<CurveNode> other(new CurveNode(nullptr, "x", ""));
    leaf->addChild(other.get());
    leaf->removeNode("n.c");
    QVERIFY(leaf->isCurve());
    QVERIFY(!leaf->children());
    QVERIFY(!other->parentNode());
    QCOMPARE(leaf->parentNode(), tree.top.get());
}

QTEST_MAIN(TestCurveNode)
#include "test_curve_node.moc"
