#include "curves/CurveHold.h"
#include "curves/CurveTreeTest.h"
#include "curves/CurveVisit.h"
#include "support/Intruder.h"

#include <QPointer>
#include <QTest>

/// Lets a test connect to the signal, which is protected.
struct HeardCurve : CurveNodeBase
{
    using CurveNodeBase::curveHasChanged;
};

/// How long a curve object lives that has left its tree.
class TestUnlinkedCurves : public CurveTreeTest
{
    Q_OBJECT

private slots:
    void init() { openTree(); }
    void cleanup() { closeTree(); }

    void aCurveThatNobodyNamesEndsAsItLeaves();
    void aHeldCurveLivesUntilTheLastHoldEnds();
    void copiesOfAHoldCountEach();
    void aHoldMayOutliveTheCurveAndTheCanvas();
    void aHeldCurveThatIsLinkedStaysWhenTheHoldEnds();
    void aHeldCurveThatIsPutBackIsFreedWhenItLeavesAgain();
    void aCurveOfAnUnlinkedGroupKeepsTheGroupAlive();
    void aGroupEndsAsItsLastHeldCurveIsPutBackWithoutIt();
    void aGroupThatHoldsAnotherHeldCurveGoesOn();
    void curvesOfAnUnlinkedGroupLiveWhileTheyAreBeingEdited();
    void nothingIsFreedDuringAVisit();
    void theLastOfSeveralVisitsFrees();
    void aVisitMayOutliveTheCanvas();
    void aCurveThatIsGoneCannotBePutBack();
    void anObjectOfACallerIsLeftToTheCaller();
    void allCurvesOfTheNameAreFreedAlike();
    void aListenerToTheEndOfOneMayRemoveTheNext();
    void aRefreshFunctionMayRemoveTheCurveThatIsBeingEvaluated();
    void aListenerMayRemoveAGroupThatIsBeingReset();
};

void TestUnlinkedCurves::aCurveThatNobodyNamesEndsAsItLeaves()
{
    const QPointer<CurveNodeBase> curve = addCurve("n.a");
    const QPointer<CurveNodeBase> inGroup = addCurve("m.a");
    tree->remove("n.a");
    QVERIFY(!curve);
    tree->remove("m");
    QVERIFY(!inGroup);
}

void TestUnlinkedCurves::aHeldCurveLivesUntilTheLastHoldEnds()
{
    const QPointer<CurveNodeBase> curve = addCurve("n.a");
    CurveHold first(curve);
    CurveHold second(curve);
    tree->remove("n.a");
    QVERIFY(curve);
    first = CurveHold();
    QVERIFY(curve);
    QCOMPARE(second.get(), static_cast<CurveNode*>(curve.data()));
    second = CurveHold();
    QVERIFY(!curve);
}

void TestUnlinkedCurves::copiesOfAHoldCountEach()
{
    const QPointer<CurveNodeBase> curve = addCurve("n.a");
    auto first = std::make_unique<CurveHold>(curve);
    CurveHold copy(*first);
    CurveHold moved(std::move(*first));
    first.reset();
    tree->remove("n.a");
    moved = CurveHold(nullptr);
    QVERIFY(curve);
    const CurveHold& itself = copy;
    copy = itself;
    QVERIFY(curve);
    copy = CurveHold(add("n.b"));
    QVERIFY(!curve);
}

void TestUnlinkedCurves::aHoldMayOutliveTheCurveAndTheCanvas()
{
    const QPointer<CurveNodeBase> curve = addCurve("n.a");
    const CurveHold deleted(curve);
    const CurveHold kept(add("n.b"));
    delete curve.data();
    QVERIFY(!deleted.get());
    tree->remove("n.b");
    QVERIFY(kept.get());
    tree.reset();
    QVERIFY(!kept.get());
}

void TestUnlinkedCurves::aHeldCurveThatIsLinkedStaysWhenTheHoldEnds()
{
    const QPointer<CurveNodeBase> curve = addCurve("n.a");
    {
        const CurveHold hold(curve);
    }
    QCOMPARE(tree->findCurve("n.a"), static_cast<CurveNode*>(curve.data()));
}

void TestUnlinkedCurves::aHeldCurveThatIsPutBackIsFreedWhenItLeavesAgain()
{
    const QPointer<CurveNodeBase> curve = addCurve("n.a");
    {
        const CurveHold hold(curve);
        tree->remove("n.a");
        tree->attach(hold.get());
    }
    QVERIFY(curve);
    tree->remove("n.a");
    QVERIFY(!curve);
}

void TestUnlinkedCurves::aCurveOfAnUnlinkedGroupKeepsTheGroupAlive()
{
    const QPointer<CurveNodeBase> held = addCurve("n.a");
    const QPointer<CurveNodeBase> sibling = addCurve("n.b");
    CurveHold hold(held);
    tree->remove("n");
    QVERIFY(held);
    QVERIFY(sibling);
    QCOMPARE(held->parentNode()->dotName(), QString("n"));
    hold = CurveHold();
    QVERIFY(!held);
    QVERIFY(!sibling);
}

void TestUnlinkedCurves::aGroupEndsAsItsLastHeldCurveIsPutBackWithoutIt()
{
    const CurveHold hold(add("n.a"));
    const QPointer<CurveNodeBase> sibling = addCurve("n.b");
    CurveNode* const group = tree->findCurve("n");
    tree->remove("n");
    QVERIFY(tree->isKnown(group));
    QCOMPARE(tree->attach(hold.get()), hold.get());
    QVERIFY(!tree->isKnown(group));
    QVERIFY(!sibling);
    QCOMPARE(tree->findCurve("n")->curves(), QList<CurveNode*>{hold.get()});
}

void TestUnlinkedCurves::aGroupThatHoldsAnotherHeldCurveGoesOn()
{
    const CurveHold hold(add("n.a"));
    const QPointer<CurveNodeBase> sibling = addCurve("n.b");
    auto other = std::make_unique<CurveHold>(sibling);
    CurveNode* const group = tree->findCurve("n");
    tree->remove("n");
    tree->attach(hold.get());
    QCOMPARE(sibling->parentNode(), group);
    other.reset();
    QVERIFY(!tree->isKnown(group));
    QVERIFY(!sibling);
}

void TestUnlinkedCurves::curvesOfAnUnlinkedGroupLiveWhileTheyAreBeingEdited()
{
    const QPointer<CurveNodeBase> curve = addCurve("n.a");
    tree->edit({curve});
    tree->remove("n");
    QCOMPARE(editing->curves(), QList<CurveNode*>{curve});
    tree->edit(editing->curves());
    QVERIFY(curve);
    tree->edit({});
    QVERIFY(!curve);
}

void TestUnlinkedCurves::nothingIsFreedDuringAVisit()
{
    const QPointer<CurveNodeBase> curve = addCurve("n.a");
    {
        const CurveVisit visit(tree.get());
        tree->remove("n.a");
        QVERIFY(curve);
        QVERIFY(!tree->findCurve("n.a"));
    }
    QVERIFY(!curve);
    const CurveVisit nowhere(nullptr);
}

void TestUnlinkedCurves::theLastOfSeveralVisitsFrees()
{
    const QPointer<CurveNodeBase> curve = addCurve("n.a");
    auto outer = std::make_unique<CurveVisit>(tree.get());
    auto inner = std::make_unique<CurveVisit>(tree.get());
    tree->remove("n.a");
    inner.reset();
    QVERIFY(curve);
    outer.reset();
    QVERIFY(!curve);
}

void TestUnlinkedCurves::aVisitMayOutliveTheCanvas()
{
    const QPointer<CurveNodeBase> curve = addCurve("n.a");
    const QPointer<CurveNodeBase> linked = addCurve("n.b");
    const CurveVisit visit(tree.get());
    tree->remove("n.a");
    tree.reset();
    QVERIFY(!curve);
    QVERIFY(!linked);
}

void TestUnlinkedCurves::aCurveThatIsGoneCannotBePutBack()
{
    CurveNode* const curve = add("n.a");
    tree->remove("n.a");
    QVERIFY(!tree->attach(curve)); // known by its address alone
    QVERIFY(!tree->findCurve("n.a"));
}

void TestUnlinkedCurves::anObjectOfACallerIsLeftToTheCaller()
{
    add("n.a");
    const QPointer<CurveNodeBase> own = new CurveNodeBase(*tree, recordOf("n.a"));
    tree->remove("n.a");
    QVERIFY(own);
    QCOMPARE(tree->attach(own), static_cast<CurveNode*>(own.data()));
    tree->remove("n.a");
    QVERIFY(!own);
}

void TestUnlinkedCurves::allCurvesOfTheNameAreFreedAlike()
{
    const QPointer<CurveNodeBase> first = addCurve("n.a");
    const QPointer<CurveNodeBase> second = addCurve("m.a");
    second->setDotName("n.a");
    tree->remove("n.a");
    QVERIFY(!first);
    QVERIFY(!second);
    QVERIFY(tree->findCurve("m"));
}

void TestUnlinkedCurves::aListenerToTheEndOfOneMayRemoveTheNext()
{
    const QPointer<CurveNodeBase> first = addCurve("n.a");
    const QPointer<CurveNodeBase> second = addCurve("n.b");
    connect(first, &QObject::destroyed, this, [this] { tree->remove("n.b"); });
    tree->remove("n.a");
    QVERIFY(!first);
    QVERIFY(!second);
}

void TestUnlinkedCurves::aRefreshFunctionMayRemoveTheCurveThatIsBeingEvaluated()
{
    Intruder intruder([&] { tree->remove("n.a"); });
    const QPointer<CurveNodeBase> curve =
        dynamic_cast<CurveNodeBase*>(addExpression("n.a", "intruder*2"));
    QCOMPARE(curve->evaluate(1.0), 4.0);
    QVERIFY(intruder.hasActed());
    QVERIFY(!curve);
}

void TestUnlinkedCurves::aListenerMayRemoveAGroupThatIsBeingReset()
{
    const QPointer<CurveNodeBase> first = addCurve("n.a");
    const QPointer<CurveNodeBase> second = addCurve("n.b");
    connect(first, &HeardCurve::curveHasChanged, this, [this] { tree->remove("n"); });
    hosts["n.b"]->spline.addPoint(0.0, 1.0);
    tree->findCurve("n")->reset();
    QVERIFY(!first);
    QVERIFY(!second);
    QCOMPARE(hosts["n.b"]->spline.getControlPointsNumber(), 0u);
}

QTEST_MAIN(TestUnlinkedCurves)
#include "test_unlinked_curves.moc"
