#include "curves/CurveHold.h"
#include "support/CanvasTest.h"

#include <QPointer>
#include <QSignalSpy>
#include <QTest>

/// Which curves are on the canvas.
class TestCurveRegistry : public CanvasTest
{
    Q_OBJECT

private slots:
    void init() { openCanvas(); }
    void cleanup() { closeCanvas(); }

    void aCurveMakesItsGroupOnceAndASecondOneFindsIt();
    void aDeepNameMakesAllItsGroups();
    void anExistingCurveIsGivenBack();
    void aCurveNamedLikeAGroupIsGivenTheGroup();
    void aCurveKeepsTheAddFuncFlagOfItsSpline();
    void aCurveWithoutSplineAndSlotIsAdded();
    void ensuringThePathOfASingleElementGivesNull();
    void ensuringAPathStopsAtAnElementThatEqualsTheLastOne();
    void aNameThatRepeatsAnElementLiesHigherAndReportsItsWholeName();
    void curvesUnderANodeWithoutANameAreFoundByThePointInFront();
    void aNameThatRepeatsItsFirstElementStandsOnTop();
    void aCurveUnderACurveStandsOnTop();
    void aCurveOfOneElementStandsOnTop();
    void emptyElementsAreKept();

    void removingUnlinks();
    void removingAnUnknownNameDoesNothing();
    void removingTakesTheCurveOutOfTheEditingSet();
    void removingATopCurveUnlinksIt();
    void attachingPutsTheSameObjectBack();
    void attachingUnderATakenNameLeavesTheCurveUnattached();
    void attachingNullGivesNull();
    void attachingACurveFromAnUnlinkedGroupTakesItOutOfThere();
    void aCurvePutBackIsNotDrawnBeforeItIsSelected();
    void discardingFreesOnlyWhatIsUnlinked();
    void clearingDeletesTheTreeAndEmptiesTheEditingSetFirst();
    void unlinkedNodesDieWithTheCanvas();
    void deletingANodeDropsItFromEverywhere();
};

void TestCurveRegistry::aCurveMakesItsGroupOnceAndASecondOneFindsIt()
{
    CurveNode* curve = add("node.curve");
    CurveNode* other = add("node.other");
    QCOMPARE(canvas->topNodes().size(), 1);
    CurveNode* group = canvas->topNodes().first();
    QVERIFY(!group->isCurve());
    QCOMPARE(group->dotName(), QString("node"));
    QCOMPARE(*group->children(), (QList<CurveNode*>{curve, other}));
    QCOMPARE(curve->dotName(), QString("node.curve"));
    QCOMPARE(curve->path(), QString("node"));
}

void TestCurveRegistry::aDeepNameMakesAllItsGroups()
{
    CurveNode* curve = add("a.b.c.d");
    QCOMPARE(curve->parentNode()->dotName(), QString("a.b.c"));
    QCOMPARE(canvas->findCurve("a.b")->children()->first(), canvas->findCurve("a.b.c"));
    CurveNode* other = add("a.b.e");
    QCOMPARE(other->parentNode(), canvas->findCurve("a.b"));
}

void TestCurveRegistry::anExistingCurveIsGivenBack()
{
    CurveNode* curve = add("n.a");
    QCOMPARE(add("n.a"), curve);
    QCOMPARE(canvas->findCurve("n")->children()->size(), 1);
}

void TestCurveRegistry::aCurveNamedLikeAGroupIsGivenTheGroup()
{
    add("n.a.b");
    CurveNode* found = add("n.a");
    QVERIFY(!found->isCurve());
    QCOMPARE(found, canvas->findCurve("n.a"));
}

void TestCurveRegistry::aCurveKeepsTheAddFuncFlagOfItsSpline()
{
    hosts["n.a"] = std::make_unique<Host>();
    hosts["n.a"]->spline.setAddFunc(true);
    QCOMPARE(add("n.a")->curveType(), int(splinePlusExpressionCurve));
}

void TestCurveRegistry::aCurveWithoutSplineAndSlotIsAdded()
{
    CurveNode* curve =
        canvas->addCanvasCurve("n.a", Qt::red, 0.0f, nullptr, nullptr, 0.0f, 1.0f, false);
    QVERIFY(!curve->spline());
    QVERIFY(!curve->notifiesHost());
}

void TestCurveRegistry::ensuringThePathOfASingleElementGivesNull()
{
    QVERIFY(!canvas->ensurePath("solo"));
    QVERIFY(!canvas->ensurePath(""));
    QVERIFY(canvas->topNodes().isEmpty());
}

void TestCurveRegistry::ensuringAPathStopsAtAnElementThatEqualsTheLastOne()
{
    CurveNode* group = canvas->ensurePath("a.b.b");
    QCOMPARE(group->dotName(), QString("a"));
    QVERIFY(group->children()->isEmpty());
    QVERIFY(!canvas->ensurePath("body.body"));
    QVERIFY(!canvas->ensurePath("body.x.body"));
}

void TestCurveRegistry::curvesUnderANodeWithoutANameAreFoundByThePointInFront()
{
    CurveNode* curve = add(".a");
    const CurveHold kept(curve);
    CurveNode* deeper = add(".b.c");
    QCOMPARE(canvas->topNodes().size(), qsizetype(1));
    QCOMPARE(curve->dotName(), QString(".a"));
    QCOMPARE(curve->path(), QString());
    QCOMPARE(deeper->dotName(), QString(".b.c"));
    QCOMPARE(canvas->findCurve(".a"), curve);
    QCOMPARE(canvas->findCurve(".b.c"), deeper);
    QCOMPARE(canvas->findCurve(".b"), deeper->parentNode());
    QCOMPARE(canvas->topNodes().at(0)->findNode(".a"), curve);
    QVERIFY(!canvas->findCurve("a") && !canvas->findCurve("b"));
    canvas->removeCanvasCurve(".a");
    QVERIFY(!canvas->findCurve(".a"));
    QCOMPARE(canvas->attachCanvasCurve(curve), curve);
    QCOMPARE(canvas->findCurve(".a"), curve);
    curve->setDotName(".z");
    QCOMPARE(canvas->findCurve(".z"), curve);
    canvas->findCurve("")->setDotName("n");
    QCOMPARE(canvas->findCurve("n.z"), curve);
    QCOMPARE(canvas->findCurve("n.b.c"), deeper);
    canvas->findCurve("n")->setDotName("");
    QCOMPARE(canvas->findCurve(".z"), curve);
    QCOMPARE(canvas->findCurve(".b.c"), deeper);
}

void TestCurveRegistry::aNameThatRepeatsAnElementLiesHigherAndReportsItsWholeName()
{
    CurveNode* curve = add("a.b.b");
    const CurveHold kept(curve);
    QCOMPARE(curve->parentNode()->dotName(), QString("a"));
    QCOMPARE(curve->dotName(), QString("a.b.b"));
    QCOMPARE(canvas->findCurve("a.b.b"), curve);
    QVERIFY(!canvas->findCurve("a.b"));
    canvas->findCurve("a")->setDotName("x");
    QCOMPARE(curve->dotName(), QString("x.b"));
    curve->setDotName("x.b.b");
    QCOMPARE(canvas->findCurve("x.b.b"), curve);
    canvas->removeCanvasCurve("x.b.b");
    QVERIFY(!canvas->findCurve("x.b.b"));
    QCOMPARE(canvas->attachCanvasCurve(curve), curve);
    QCOMPARE(curve->parentNode(), canvas->findCurve("x"));
}

void TestCurveRegistry::aNameThatRepeatsItsFirstElementStandsOnTop()
{
    CurveNode* curve = add("body.body");
    QCOMPARE(canvas->topNodes(), QList<CurveNode*>{curve});
    QCOMPARE(curve->dotName(), QString("body.body"));
    curve->setDotName("hull.body");
    QCOMPARE(canvas->findCurve("hull.body"), curve);
}

void TestCurveRegistry::aCurveUnderACurveStandsOnTop()
{
    CurveNode* upper = add("n.a");
    CurveNode* lower = add("n.a.b");
    QVERIFY(!lower->parentNode());
    QCOMPARE(lower->dotName(), QString("n.a.b"));
    QCOMPARE(canvas->findCurve("n.a"), upper);
    QCOMPARE(canvas->findCurve("n.a.b"), lower);
    QVERIFY(!canvas->ensurePath("n.a.b.c"));
}

void TestCurveRegistry::aCurveOfOneElementStandsOnTop()
{
    CurveNode* curve = add("solo");
    QCOMPARE(canvas->topNodes(), QList<CurveNode*>{curve});
    QCOMPARE(curve->dotName(), QString("solo"));
}

void TestCurveRegistry::emptyElementsAreKept()
{
    CurveNode* curve = add("n..a");
    QCOMPARE(curve->dotName(), QString("n..a"));
    QCOMPARE(curve->parentNode()->name(), QString());
    QCOMPARE(canvas->findCurve("n..a"), curve);
    CurveNode* nameless = add("m.");
    QCOMPARE(nameless->dotName(), QString("m."));
    QCOMPARE(canvas->findCurve("m."), nameless);
}

void TestCurveRegistry::removingUnlinks()
{
    CurveNode* curve = add("n.a");
    const CurveHold kept(curve);
    canvas->removeCanvasCurve("n.a");
    QVERIFY(!canvas->findCurve("n.a"));
    QVERIFY(canvas->findCurve("n"));
    QVERIFY(!curve->parentNode());
    QCOMPARE(curve->dotName(), QString("n.a"));
    canvas->removeCanvasCurve("n");
    QVERIFY(canvas->topNodes().isEmpty());
}

void TestCurveRegistry::removingAnUnknownNameDoesNothing()
{
    add("n.a");
    canvas->removeCanvasCurve("n.b");
    QVERIFY(canvas->findCurve("n.a"));
}

void TestCurveRegistry::removingTakesTheCurveOutOfTheEditingSet()
{
    CurveNode* curve = add("n.a");
    const CurveHold kept(curve);
    CurveNode* other = add("n.b");
    canvas->selectCurves({"n.a", "n.b"});
    canvas->removeCanvasCurve("n.a");
    QCOMPARE(canvas->editingCurves(), QList<CurveNode*>{other});
    QVERIFY(!curve->splineGraph()->isActive);
}

void TestCurveRegistry::removingATopCurveUnlinksIt()
{
    CurveNode* curve = add("body.body");
    const CurveHold kept(curve);
    canvas->removeCanvasCurve("body.body");
    QVERIFY(canvas->topNodes().isEmpty());
    QCOMPARE(canvas->attachCanvasCurve(curve), curve);
    QCOMPARE(canvas->topNodes(), QList<CurveNode*>{curve});
}

void TestCurveRegistry::attachingPutsTheSameObjectBack()
{
    CurveNode* curve = add("n.a.b");
    const CurveHold kept(curve);
    canvas->removeCanvasCurve("n.a.b");
    canvas->removeCanvasCurve("n.a");
    canvas->removeCanvasCurve("n");
    QCOMPARE(canvas->attachCanvasCurve(curve), curve);
    QCOMPARE(canvas->findCurve("n.a.b"), curve);
    QCOMPARE(curve->parentNode(), canvas->findCurve("n.a"));
    QCOMPARE(canvas->attachCanvasCurve(curve), curve);
    QCOMPARE(canvas->findCurve("n.a")->children()->size(), 1);
}

void TestCurveRegistry::attachingUnderATakenNameLeavesTheCurveUnattached()
{
    CurveNode* curve = add("n.a");
    const CurveHold kept(curve);
    canvas->removeCanvasCurve("n.a");
    CurveNode* other = add("n.a");
    QVERIFY(other != curve);
    QCOMPARE(canvas->attachCanvasCurve(curve), other);
    QVERIFY(!curve->parentNode());
}

void TestCurveRegistry::attachingNullGivesNull()
{
    QVERIFY(!canvas->attachCanvasCurve(nullptr));
}

void TestCurveRegistry::attachingACurveFromAnUnlinkedGroupTakesItOutOfThere()
{
    CurveNode* curve = add("n.a");
    CurveNode* top = add("body.body");
    CurveNode* group = canvas->findCurve("n");
    const CurveHold keptGroup(group);
    const CurveHold keptTop(top);
    canvas->removeCanvasCurve("n");
    canvas->attachCanvasCurve(curve);
    QVERIFY(group->children()->isEmpty());
    QVERIFY(curve->parentNode() != group);
    QCOMPARE(canvas->findCurve("n.a"), curve);
    canvas->removeCanvasCurve("body.body");
    group->addChild(top);
    canvas->attachCanvasCurve(top);
    QVERIFY(group->children()->isEmpty());
    canvas->discardUnlinked(group);
    QCOMPARE(canvas->findCurve("n.a"), curve);
    QCOMPARE(canvas->findCurve("body.body"), top);
}

void TestCurveRegistry::aCurvePutBackIsNotDrawnBeforeItIsSelected()
{
    CurveNode* curve = add("n.a");
    const CurveHold kept(curve);
    canvas->selectCurves({"n.a"});
    canvas->removeCanvasCurve("n.a");
    canvas->attachCanvasCurve(curve);
    QVERIFY(!curve->splineGraph()->isActive);
    canvas->selectCurves({"n.a"});
    QVERIFY(curve->splineGraph()->isActive);
}

void TestCurveRegistry::discardingFreesOnlyWhatIsUnlinked()
{
    QPointer<CurveNodeBase> curve = dynamic_cast<CurveNodeBase*>(add("n.a"));
    CurveNode* node = curve;
    canvas->discardUnlinked(node);
    QVERIFY(curve);
    canvas->discardUnlinked(canvas->findCurve("n"));
    QVERIFY(canvas->findCurve("n"));
    node->unlink(); // whoever calls this owns it
    QVERIFY(curve);
    canvas->discardUnlinked(node);
    QVERIFY(!curve);
    canvas->discardUnlinked(node); // known by its address alone
    canvas->discardUnlinked(nullptr);
}

void TestCurveRegistry::clearingDeletesTheTreeAndEmptiesTheEditingSetFirst()
{
    QPointer<CurveNodeBase> curve = dynamic_cast<CurveNodeBase*>(add("n.a"));
    QPointer<CurveNodeBase> unlinked = dynamic_cast<CurveNodeBase*>(add("n.b"));
    const CurveHold kept(unlinked);
    canvas->selectCurves({"n.a"});
    canvas->removeCanvasCurve("n.b");
    connect(curve, &QObject::destroyed, this, [this] { QVERIFY(!canvas->isEditing()); });
    QSignalSpy announced(canvas, &CanvasFunctionBase::selectionChanged);
    canvas->clearCurves();
    QVERIFY(!curve);
    QVERIFY(unlinked);
    QVERIFY(canvas->topNodes().isEmpty());
    QVERIFY(canvas->editingCurves().isEmpty());
    QCOMPARE(announced.size(), 1);
    QCOMPARE(announced.first().first().toStringList(), QStringList());
}

void TestCurveRegistry::unlinkedNodesDieWithTheCanvas()
{
    QPointer<CurveNodeBase> curve = dynamic_cast<CurveNodeBase*>(add("n.a"));
    QPointer<CurveNodeBase> inGroup = dynamic_cast<CurveNodeBase*>(add("m.a"));
    const CurveHold kept(curve);
    const CurveHold keptInGroup(inGroup);
    canvas->removeCanvasCurve("n.a");
    canvas->removeCanvasCurve("m");
    widget.reset();
    QVERIFY(!curve);
    QVERIFY(!inGroup);
    QVERIFY(!kept.get());
}

void TestCurveRegistry::deletingANodeDropsItFromEverywhere()
{
    add("n.a");
    CurveNode* top = add("body.body");
    canvas->selectCurves({"n.a", "body.body"});
    delete top;
    QCOMPARE(canvas->editingCurveNames(), QStringList{"n.a"});
    QCOMPARE(canvas->topNodes().size(), 1);
    delete canvas->findCurve("n");
    QVERIFY(canvas->topNodes().isEmpty());
    QVERIFY(!canvas->isEditing());
}

QTEST_MAIN(TestCurveRegistry)
#include "test_curve_registry.moc"
