#include "core/RandomCurves.h"
#include "core/SplineKeys.h"
#include "support/FailOnWarning.h"

#include <QTest>

#include <type_traits>
#include <utility>

namespace {

using Times = std::vector<double>;

static_assert(std::is_nothrow_move_constructible_v<SplineBase>);
static_assert(std::is_nothrow_move_assignable_v<SplineBase>);

SplineBase splineOf(const Times& times)
{
    SplineBase spline;
    for (const double time : times) {
        spline.addPoint(time, time * 10.0);
    }
    return spline;
}

/// As KeyState has it, but for a spline that is only read.
bool isSame(const SplineBase& spline, const SplineBase& other)
{
    bool same = spline.getControlPointsNumber() == other.getControlPointsNumber() &&
                spline.firstNodeType() == other.firstNodeType() &&
                spline.lastNodeType() == other.lastNodeType() &&
                spline.getDefaultValue() == other.getDefaultValue() &&
                spline.isAddFunc() == other.isAddFunc() &&
                spline.hasChanged() == other.hasChanged();
    for (unsigned key = 0; same && key < spline.getControlPointsNumber(); ++key) {
        const PointInfo& a = *spline[key];
        const PointInfo& b = *other[key];
        same = a.time == b.time && a.value == b.value && a.type == b.type &&
               a.bezier.tangentLeft == b.bezier.tangentLeft &&
               a.bezier.tangentRight == b.bezier.tangentRight && a.tcb.bias == b.tcb.bias &&
               a.tcb.easeTo == b.tcb.easeTo && a.unifiedTangents == b.unifiedTangents;
    }
    return same;
}

} // namespace

/// Splines as values: moved, cloned and read without being changed.
class TestSplineMoving : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void aVectorOfSplinesGrowsAndShrinks();
    void aMoveTakesKeysAndFieldsAndLeavesNone();
    void aMoveOntoASplineFreesItsKeys();
    void aMoveOntoASplineChangesIt();
    void aMoveOntoItselfKeepsTheKeys();
    void keysKeepTheirSerialsWhereTheyMove();
    void aRemovedKeyComesBackToWhereItsSplineMoved();
    void whoWatchesALifeWatchesTheObject();
    void aSplineThatWasMovedFromIsOfUseAgain();
    void aCloneIsEqualAndHasKeysOfItsOwn();
    void readingASplineGivesWhatEditingItGives();
    void readingFindsKeysThatSomebodyPutOutOfOrder();
};

void TestSplineMoving::aVectorOfSplinesGrowsAndShrinks()
{
    std::vector<SplineBase> splines;
    for (int i = 0; i < 100; ++i) {
        splines.push_back(splineOf({0.0, 1.0, 2.0 + i}));
    }
    splines.erase(splines.begin() + 10, splines.begin() + 20);
    splines.insert(splines.begin(), splineOf({7.0}));
    QCOMPARE(splines.size(), 91U);
    QCOMPARE(timesOf(splines[0]), Times({7.0}));
    QCOMPARE(timesOf(splines[10]), Times({0.0, 1.0, 11.0}));
    QCOMPARE(timesOf(splines[11]), Times({0.0, 1.0, 22.0}));
}

void TestSplineMoving::aMoveTakesKeysAndFieldsAndLeavesNone()
{
    SplineBase source = splineOf({1.0, 2.0});
    source.setFirstNodeType(SplineBase::zero);
    source.setLastNodeType(SplineBase::loopOffset);
    source.setDefaultValue(3.0);
    source.setAddFunc(true);
    source.setChanged(false);
    const PointInfo* const key = source[1];
    const SplineBase twin = source.clone();
    SplineBase target(std::move(source));
    QVERIFY(isSame(target, twin));
    QCOMPARE(target[1], key);
    QCOMPARE(target.findIndex(key), 1);
    // NOLINTBEGIN(bugprone-use-after-move): what it is then is what is asked
    QCOMPARE(source.getControlPointsNumber(), 0U);
    QCOMPARE(source.findIndex(key), -1);
    QVERIFY(source.hasChanged());
    // NOLINTEND(bugprone-use-after-move)
}

void TestSplineMoving::aMoveOntoASplineFreesItsKeys()
{
    // The leak check of the sanitizers tells if they were not.
    SplineBase target = splineOf({5.0, 6.0, 7.0});
    const PointInfo* const former = target[0];
    target = splineOf({1.0});
    QCOMPARE(timesOf(target), Times({1.0}));
    QCOMPARE(target.findIndex(former), former == target[0] ? 0 : -1);
}

void TestSplineMoving::aMoveOntoASplineChangesIt()
{
    SplineBase spline = splineOf({1.0, 2.0});
    spline.setChanged(false);
    SplineBase backup = spline.clone();
    spline.setPos(spline.at(0), 3.0);
    spline.setTime(spline.at(0), 1.5);
    spline.setChanged(false);
    spline = std::move(backup);
    QVERIFY(spline.hasChanged());
    QCOMPARE(timesOf(spline), Times({1.0, 2.0}));
}

void TestSplineMoving::aMoveOntoItselfKeepsTheKeys()
{
    SplineBase spline = splineOf({1.0, 2.0});
    SplineBase& same = spline;
    spline = std::move(same);
    QCOMPARE(timesOf(spline), Times({1.0, 2.0}));
}

void TestSplineMoving::keysKeepTheirSerialsWhereTheyMove()
{
    SplineBase source = splineOf({1.0, 2.0});
    const KeyRef key{source.at(0), source.keySerial(source[0])};
    SplineBase target;
    target = std::move(source);
    QVERIFY(target.holds(key));
    QVERIFY(!source.holds(key)); // NOLINT(bugprone-use-after-move)
}

void TestSplineMoving::aRemovedKeyComesBackToWhereItsSplineMoved()
{
    SplineBase source = splineOf({1.0, 1.0, 1.0});
    PointInfo* const first = source.at(0);
    source.remove(first);
    SplineBase target = std::move(source);
    target.addPointPtr(first);
    QCOMPARE(target[0], first); // before its equals, as it stood
}

void TestSplineMoving::whoWatchesALifeWatchesTheObject()
{
    std::weak_ptr<const void> ofTarget;
    auto source = std::make_unique<SplineBase>(splineOf({1.0}));
    const std::weak_ptr<const void> ofSource = source->watchLife();
    {
        SplineBase target(std::move(*source));
        ofTarget = target.watchLife();
        QVERIFY(!ofSource.expired());
        source.reset();
        QVERIFY(ofSource.expired());
        QVERIFY(!ofTarget.expired());
        QVERIFY(!target.watchLife().owner_before(ofTarget) &&
                !ofTarget.owner_before(target.watchLife()));
    }
    QVERIFY(ofTarget.expired());
}

void TestSplineMoving::aSplineThatWasMovedFromIsOfUseAgain()
{
    SplineBase spline = splineOf({1.0, 2.0});
    const SplineBase other(std::move(spline));
    // NOLINTBEGIN(bugprone-use-after-move)
    spline.addPoint(4.0, 1.0);
    spline.addPoint(3.0, 2.0);
    QCOMPARE(timesOf(spline), Times({3.0, 4.0}));
    QCOMPARE(spline(3.0), 2.0);
    // NOLINTEND(bugprone-use-after-move)
    QCOMPARE(other.getControlPointsNumber(), 2U);
}

void TestSplineMoving::aCloneIsEqualAndHasKeysOfItsOwn()
{
    RandomCurves curves(5, false);
    for (int curve = 0; curve < 200; ++curve) {
        const auto spline = curves.next();
        spline->setChanged(curve % 2 == 0);
        spline->setAddFunc(curve % 3 == 0);
        SplineBase twin = spline->clone();
        QVERIFY(isSame(twin, *spline));
        for (unsigned key = 0; key < twin.getControlPointsNumber(); ++key) {
            QCOMPARE(spline->findIndex(twin[key]), -1);
        }
    }
}

void TestSplineMoving::readingASplineGivesWhatEditingItGives()
{
    RandomCurves curves(6, false);
    for (int curve = 0; curve < 200; ++curve) {
        const auto spline = curves.next();
        const SplineBase& readOnly = *spline;
        QCOMPARE(readOnly.firstKey(), spline->getFirst());
        QCOMPARE(readOnly.lastKey(), spline->getLast());
        QCOMPARE(&readOnly.keys(), &spline->getControlPoints());
        for (const double time : curves.timesFor(*spline)) {
            QCOMPARE(readOnly.keyBefore(time), spline->getPrev(time));
            QCOMPARE(readOnly.keyAfter(time), spline->getNext(time));
        }
        for (const PointInfo* key : readOnly.keys()) {
            QCOMPARE(readOnly.indexOf(key), spline->findIndex(key));
        }
    }
    const PointInfo stranger;
    QCOMPARE(splineOf({1.0}).indexOf(&stranger), -1);
    QCOMPARE(SplineBase().indexOf(nullptr), -1);
    QVERIFY(!SplineBase().firstKey() && !SplineBase().lastKey());
}

void TestSplineMoving::readingFindsKeysThatSomebodyPutOutOfOrder()
{
    SplineBase spline = splineOf({1.0, 2.0, 3.0});
    PointInfo late;
    late.time = 9.0;
    PointInfo* const key = spline.at(0);
    spline.copyPointNoUpdate(key, &late);
    const SplineBase& readOnly = spline;
    QCOMPARE(readOnly.indexOf(key), 0);
    QCOMPARE(readOnly.indexOf(spline[2]), 2);
}

QTEST_APPLESS_MAIN(TestSplineMoving)
#include "test_spline_moving.moc"
