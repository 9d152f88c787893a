#include "core/ParseMessage.h"
#include "curves/CurveHold.h"
#include "curves/CurveHost.h"
#include "curves/CurveTreeTest.h"
#include "files/CurveType.h"
#include "graphs/SplineCurveGraph.h"
#include "graphs/ViewPort.h"
#include "support/BoxCatcher.h"

#include <QTest>

namespace {

/// Answers what the test says.
class Shower : public CurveHost
{
public:
    ViewPort* view() const override { return &viewPort; }
    int labelDecimals() const override { return 2; }
    bool dependsOnItself(const QString& parserName, QString& offender) const override
    {
        askedFor = parserName;
        if (!culprit.isEmpty()) {
            offender = culprit;
        }
        return !culprit.isEmpty();
    }
    const ParserScope* parserScope() const override { return nullptr; }
    void createNodeAtCursor(CurveNode* curve) override { atCursor = curve; }

    mutable ViewPort viewPort;
    mutable QString askedFor;
    QString culprit;
    CurveNode* atCursor = nullptr;
};

} // namespace

/// Curve objects by name, without anything that shows them but what a test puts there.
class TestCurveTree : public CurveTreeTest
{
    Q_OBJECT

private slots:
    void init() { openTree(); }
    void cleanup() { closeTree(); }

    void aCurveIsMadeOfItsRecord();
    void aCurveOfALostSplineHasNoSlot();
    void aRecordOfATakenNameGivesTheNodeThatIsThere();
    void severalNamesAreFoundInTheirOrderWithoutUnknownOnes();
    void knownAreLivingNodesLinkedOrNot();
    void linkedIsWhatAWalkMeets();
    void editingAGroupEditsItsLeaves();
    void removingTakesACurveOutOfTheEditingSet();
    void clearingLeavesTheSelectionsOfKeys();
    void aNodeThatIsDeletedLeavesTheEditingSet();
    void aNewNameIsFoundAtOnce();
    void theRateOfTheViewOfWhoeverShowsTheCurves();
    void withoutAShowerTheRateIsTen();
    void aCurveThatDependsOnItselfIsFoundByWhoeverShowsIt();
    void aKeyAtTheCursorIsAskedOfWhoeverShowsTheCurve();
    void withoutAShowerNoKeyIsMade();

private:
    void showTree()
    {
        closeTree();
        openTree(&shower);
    }

    Shower shower;
};

void TestCurveTree::aCurveIsMadeOfItsRecord()
{
    curve_editor::NodeStruct record = recordOf("n.a.b");
    record.color = QColor(1, 2, 3);
    record.curveValue = 4.0f;
    record.minValue = -5.0f;
    record.maxValue = 6.0f;
    record.notifyHost = false;
    hosts["n.a.b"]->spline.setAddFunc(true);
    auto* const curve = dynamic_cast<CurveNodeBase*>(tree->add(record));
    QVERIFY(curve);
    QCOMPARE(curve->dotName(), QString("n.a.b"));
    QCOMPARE(curve->parentNode(), tree->findCurve("n.a"));
    QCOMPARE(curve->spline(), &hosts["n.a.b"]->spline);
    QCOMPARE(curve->expressionSlot(), &hosts["n.a.b"]->expression);
    QCOMPARE(curve->curveColor(), QColor(1, 2, 3));
    QCOMPARE(curve->curveValue(), 4.0f);
    QCOMPARE(curve->minimumValue(), -5.0f);
    QCOMPARE(curve->maximumValue(), 6.0f);
    QVERIFY(!curve->notifiesHost());
    QCOMPARE(curve->curveType(), int(splinePlusExpressionCurve));
}

void TestCurveTree::aCurveOfALostSplineHasNoSlot()
{
    const curve_editor::NodeStruct record = recordOf("n.a");
    hosts.clear();
    CurveNode* const curve = tree->add(record);
    QVERIFY(!curve->spline());
    QVERIFY(!curve->expressionSlot());
    QCOMPARE(curve->curveType(), int(splineCurve));
}

void TestCurveTree::aRecordOfATakenNameGivesTheNodeThatIsThere()
{
    CurveNode* const curve = add("n.a");
    QCOMPARE(add("n.a"), curve);
    QCOMPARE(add("n"), tree->findCurve("n"));
    QCOMPARE(tree->topNodes().size(), 1);
}

void TestCurveTree::severalNamesAreFoundInTheirOrderWithoutUnknownOnes()
{
    CurveNode* const a = add("n.a");
    CurveNode* const b = add("n.b");
    QCOMPARE(tree->findAll({"n.b", "x", "n", "n.a", "n.b"}),
             (QList<CurveNode*>{b, tree->findCurve("n"), a, b}));
}

void TestCurveTree::knownAreLivingNodesLinkedOrNot()
{
    CurveNode* const curve = add("n.a");
    {
        const CurveHold hold(curve);
        tree->remove("n.a");
        QVERIFY(tree->isKnown(curve));
        QVERIFY(tree->isKnown(tree->findCurve("n")));
    }
    QVERIFY(!tree->isKnown(curve));
    QVERIFY(!tree->isKnown(nullptr));
}

void TestCurveTree::linkedIsWhatAWalkMeets()
{
    CurveNode* const curve = add("n.a");
    const CurveHold hold(curve);
    QVERIFY(tree->isLinked(curve));
    tree->remove("n");
    QVERIFY(!tree->isLinked(curve));
    QVERIFY(!tree->isLinked(curve->parentNode()));
}

void TestCurveTree::editingAGroupEditsItsLeaves()
{
    CurveNode* const a = add("n.a");
    CurveNode* const b = add("n.b");
    QCOMPARE(tree->edit({b, nullptr, tree->findCurve("n")}), (QStringList{"n.b", "n.a"}));
    QCOMPARE(editing->curves(), (QList<CurveNode*>{b, a}));
}

void TestCurveTree::removingTakesACurveOutOfTheEditingSet()
{
    CurveNode* const a = add("n.a");
    CurveNode* const b = add("n.b");
    const CurveHold hold(a);
    tree->edit({a, b});
    tree->remove("n.a");
    QCOMPARE(editing->curves(), QList<CurveNode*>{b});
    QVERIFY(!a->splineGraph()->isActive);
}

void TestCurveTree::clearingLeavesTheSelectionsOfKeys()
{
    CurveNode* const curve = add("n.a");
    const CurveHold hold(curve);
    hosts["n.a"]->spline.addPoint(1.0, 1.0);
    tree->edit({curve});
    curve->splineGraph()->selection().selectSinglePoint(curve->spline()->at(0));
    tree->clear();
    QVERIFY(tree->topNodes().isEmpty());
    QVERIFY(editing->isEmpty());
    QVERIFY(!curve->splineGraph()->isActive);
    QVERIFY(curve->splineGraph()->selection().hasSelection());
}

void TestCurveTree::aNodeThatIsDeletedLeavesTheEditingSet()
{
    CurveNode* const a = add("n.a");
    CurveNode* const b = add("n.b");
    tree->edit({a, b});
    delete a;
    QCOMPARE(editing->curves(), QList<CurveNode*>{b});
    QVERIFY(!tree->findCurve("n.a"));
}

void TestCurveTree::aNewNameIsFoundAtOnce()
{
    CurveNode* const curve = add("n.a");
    curve->setDotName("n.b");
    QCOMPARE(tree->findCurve("n.b"), curve);
    QVERIFY(!tree->findCurve("n.a"));
    tree->findCurve("n")->setDotName("m");
    QCOMPARE(tree->findLeaf("m.b"), curve);
    QVERIFY(!tree->findLeaf("m"));
}

void TestCurveTree::theRateOfTheViewOfWhoeverShowsTheCurves()
{
    showTree();
    shower.viewPort.fps = 25.0;
    addExpression("n.a", "f/100");
    QCOMPARE(dynamic_cast<CurveNodeBase*>(tree->findCurve("n.a"))->evaluate(2.0), 0.5);
}

void TestCurveTree::withoutAShowerTheRateIsTen()
{
    addExpression("n.a", "f/100");
    QCOMPARE(dynamic_cast<CurveNodeBase*>(tree->findCurve("n.a"))->evaluate(2.0), 0.2);
}

void TestCurveTree::aCurveThatDependsOnItselfIsFoundByWhoeverShowsIt()
{
    showTree();
    shower.culprit = "N.B c";
    const BoxCatcher boxes;
    CurveNode* const curve = add("N.A b");
    ParseMessage message;
    message.expressionText = "n.b c + n.b_c";
    curve->setExpression(nullptr, message);
    QCOMPARE(shower.askedFor, QString("n.a_b"));
    QCOMPARE(boxes.titles.size(), 1);
    QCOMPARE(int(message.errorKind), int(ParseMessage::cyclicDependency));
    QCOMPARE(message.errorSpans.size(), 2u);
}

void TestCurveTree::aKeyAtTheCursorIsAskedOfWhoeverShowsTheCurve()
{
    showTree();
    CurveNodeBase* const curve = addCurve("n.a");
    QVERIFY(QMetaObject::invokeMethod(curve, "createNodeAtCursor"));
    QCOMPARE(shower.atCursor, static_cast<CurveNode*>(curve));
}

void TestCurveTree::withoutAShowerNoKeyIsMade()
{
    CurveNodeBase* const curve = addCurve("n.a");
    QVERIFY(QMetaObject::invokeMethod(curve, "createNodeAtCursor"));
    QCOMPARE(curve->spline()->getControlPointsNumber(), 0u);
}

QTEST_MAIN(TestCurveTree)
#include "test_curve_tree.moc"
