#include "core/SplineKeys.h"
#include "support/FailOnWarning.h"

#include <QTest>

#include <limits>

namespace {

using Times = std::vector<double>;
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

} // namespace

class TestSplineKeys : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void aNewSplineHasNoKeyAndItsDefaults();
    void firstAndLastOfAnEmptySplineAreNull();
    void anIndexOutOfRangeGivesNull();
    void addPointMakesATcbKeyWithAllOtherDataZero();
    void addingAMemberAgainDoesNotInsertItTwice();
    void addingNullDoesNothing();
    void findIndexOfAPointOfAnotherSplineIsMinusOne();
    void findIndexTellsKeysOfOneTimeApart();
    void aPointerThatIsNoMemberIsNeverReadThrough();
    void removingAndAddingTheSamePointerRestoresTheKeyAndItsPlace();
    void removeHandsTheKeyToTheCaller();
    void removeAllFreesTheKeys();
    void clearCtrlPointsFreesNothingAndLeavesTheChangedFlag();
    void copyPointCopiesAllFields();
    void previousAndNextKeyAreStrictlyBeforeAndAfter();
    void resetKeepsDefaultValueAndAddedExpression();
    void observersSeeTheEndOfASpline();
};

void TestSplineKeys::aNewSplineHasNoKeyAndItsDefaults()
{
    const SplineBase spline;
    QCOMPARE(spline.getControlPointsNumber(), 0U);
    QCOMPARE(spline.firstNodeType(), SplineBase::constant);
    QCOMPARE(spline.lastNodeType(), SplineBase::constant);
    QCOMPARE(spline.getDefaultValue(), 0.0);
    QVERIFY(!spline.isAddFunc());
    QVERIFY(spline.hasChanged());
}

void TestSplineKeys::firstAndLastOfAnEmptySplineAreNull()
{
    SplineBase spline;
    QVERIFY(spline.getFirst() == nullptr);
    QVERIFY(spline.getLast() == nullptr);
    spline.addPoint(1.0, 0.0);
    spline.addPoint(2.0, 0.0);
    QCOMPARE(spline.getFirst()->time, 1.0);
    QCOMPARE(spline.getLast()->time, 2.0);
}

void TestSplineKeys::anIndexOutOfRangeGivesNull()
{
    SplineBase spline;
    spline.addPoint(1.0, 0.0);
    QVERIFY(spline.at(0) != nullptr);
    QVERIFY(spline[0] == spline.at(0));
    QVERIFY(spline.at(1) == nullptr);
    QVERIFY(spline[std::numeric_limits<unsigned>::max()] == nullptr);
}

void TestSplineKeys::addPointMakesATcbKeyWithAllOtherDataZero()
{
    SplineBase spline;
    spline.setChanged(false);
    spline.addPoint(2.0, 5.0);
    QVERIFY(spline.hasChanged());
    const PointInfo* const key = spline[0];
    QCOMPARE(key->time, 2.0);
    QCOMPARE(key->value, 5.0);
    QCOMPARE(key->type, zk_spline::tcb);
    QVERIFY(!key->unifiedTangents);
    for (const double number :
         {key->bezier.tangentLeft, key->bezier.tangentRight, key->tcb.tension, key->tcb.continuity,
          key->tcb.bias, key->tcb.easeTo, key->tcb.easeFrom}) {
        QCOMPARE(number, 0.0);
    }
}

void TestSplineKeys::addingAMemberAgainDoesNotInsertItTwice()
{
    SplineBase spline;
    PointInfo* const key = put(spline, makeKey(1.0, 0.0));
    put(spline, makeKey(1.0, 1.0));
    QVERIFY(spline.addPointPtr(key) == key);
    QCOMPARE(spline.getControlPointsNumber(), 2U);
    key->time = 9.0;
    spline.addPointPtr(key);
    QCOMPARE(timesOf(spline), (Times{1.0, 9.0}));
}

void TestSplineKeys::addingNullDoesNothing()
{
    SplineBase spline;
    spline.setChanged(false);
    QVERIFY(spline.addPointPtr(nullptr) == nullptr);
    QCOMPARE(spline.getControlPointsNumber(), 0U);
    QVERIFY(!spline.hasChanged());
}

void TestSplineKeys::findIndexOfAPointOfAnotherSplineIsMinusOne()
{
    SplineBase spline;
    SplineBase other;
    spline.addPoint(1.0, 0.0);
    other.addPoint(1.0, 0.0);
    QCOMPARE(spline.findIndex(other[0]), -1);
    QCOMPARE(spline.findIndex(nullptr), -1);
    QCOMPARE(SplineBase().findIndex(other[0]), -1);
    QCOMPARE(other.findIndex(other[0]), 0);
}

void TestSplineKeys::findIndexTellsKeysOfOneTimeApart()
{
    SplineBase spline;
    for (int i = 0; i < 20; ++i) {
        spline.addPoint(i / 7, i);
    }
    for (unsigned i = 0; i < 20; ++i) {
        QCOMPARE(spline.findIndex(spline[i]), static_cast<int>(i));
    }
}

void TestSplineKeys::aPointerThatIsNoMemberIsNeverReadThrough()
{
    SplineBase spline;
    spline.addPoint(1.0, 5.0);
    // A freed key: the address sanitizer tells of any look at it.
    auto* const freed = new PointInfo;
    delete freed;
    const PointInfo source = makeKey(3.0, 4.0);
    spline.setChanged(false);
    for (PointInfo* const stranger : {freed, static_cast<PointInfo*>(nullptr)}) {
        QCOMPARE(spline.findIndex(stranger), -1);
        spline.remove(stranger);
        spline.setTime(stranger, 2.0);
        spline.setPos(stranger, 2.0);
        spline.setType(stranger, zk_spline::linear);
        spline.setInterpolationType(stranger, zk_spline::linear);
        spline.breakTangent(stranger);
        spline.unifyTangent(stranger);
        spline.setTanLeft(stranger, 2.0);
        spline.setTanRight(stranger, 2.0);
        spline.setTcb(stranger, PointInfo::TcbData());
        spline.setBezier(stranger, PointInfo::BezierData());
        spline.copyPoint(stranger, &source);
        spline.copyPointNoUpdate(stranger, &source);
    }
    spline.copyPoint(spline[0], nullptr);
    spline.copyPointNoUpdate(spline.at(0), nullptr);
    QVERIFY(!spline.hasChanged());
    QCOMPARE(timesOf(spline), (Times{1.0}));
    QCOMPARE(spline[0]->value, 5.0);
}

void TestSplineKeys::removingAndAddingTheSamePointerRestoresTheKeyAndItsPlace()
{
    SplineBase spline;
    for (const double time : {1.0, 2.0, 3.0}) {
        spline.addPoint(time, time * 10.0);
    }
    PointInfo* const key = spline.at(1);
    spline.setChanged(false);
    spline.remove(key);
    QVERIFY(spline.hasChanged());
    QCOMPARE(timesOf(spline), (Times{1.0, 3.0}));
    QCOMPARE(spline.findIndex(key), -1);
    QVERIFY(spline.addPointPtr(key) == key);
    QVERIFY(spline[1] == key);
    QCOMPARE(key->value, 20.0);
}

void TestSplineKeys::removeHandsTheKeyToTheCaller()
{
    PointInfo* key = nullptr;
    {
        SplineBase spline;
        key = put(spline, makeKey(1.0, 7.0));
        spline.remove(key);
    }
    QCOMPARE(key->value, 7.0);
    delete key;
}

void TestSplineKeys::removeAllFreesTheKeys()
{
    SplineBase spline;
    spline.addPoint(1.0, 0.0);
    spline.addPoint(2.0, 0.0);
    spline.setChanged(false);
    spline.removeAllControlPoints();
    QCOMPARE(spline.getControlPointsNumber(), 0U);
    QVERIFY(spline.hasChanged());
}

void TestSplineKeys::clearCtrlPointsFreesNothingAndLeavesTheChangedFlag()
{
    SplineBase spline;
    PointInfo* const key = put(spline, makeKey(1.0, 7.0));
    spline.setChanged(false);
    spline.clearCtrlPoints();
    QVERIFY(!spline.hasChanged());
    QCOMPARE(spline.getControlPointsNumber(), 0U);
    QCOMPARE(spline.findIndex(key), -1);
    QCOMPARE(key->value, 7.0);
    delete key;
}

void TestSplineKeys::copyPointCopiesAllFields()
{
    SplineBase spline;
    spline.addPoint(0.0, 0.0);
    PointInfo source = makeKey(2.0, 9.0, zk_spline::bezier);
    source.bezier = {1.0, 2.0};
    source.tcb = {3.0, 4.0, 5.0, 0.25, 0.5};
    source.unifiedTangents = true;
    spline.copyPoint(spline[0], &source);
    const PointInfo* const key = spline[0];
    QCOMPARE(key->value, 9.0);
    QCOMPARE(key->type, zk_spline::bezier);
    QCOMPARE(key->bezier.tangentLeft, 1.0);
    QCOMPARE(key->bezier.tangentRight, 2.0);
    QCOMPARE(key->tcb.tension, 3.0);
    QCOMPARE(key->tcb.continuity, 4.0);
    QCOMPARE(key->tcb.bias, 5.0);
    QCOMPARE(key->tcb.easeTo, 0.25);
    QCOMPARE(key->tcb.easeFrom, 0.5);
    QVERIFY(key->unifiedTangents);
}

void TestSplineKeys::previousAndNextKeyAreStrictlyBeforeAndAfter()
{
    SplineBase spline;
    QVERIFY(spline.getPrev(0.0) == nullptr);
    QVERIFY(spline.getNext(0.0) == nullptr);
    for (const double time : {1.0, 2.0, 2.0, 3.0}) {
        spline.addPoint(time, 0.0);
    }
    QVERIFY(spline.getPrev(1.0) == nullptr);
    QVERIFY(spline.getPrev(1.5) == spline[0]);
    QVERIFY(spline.getPrev(2.0) == spline[0]);
    QVERIFY(spline.getPrev(2.5) == spline[2]);
    QVERIFY(spline.getPrev(99.0) == spline[3]);
    QVERIFY(spline.getNext(3.0) == nullptr);
    QVERIFY(spline.getNext(2.0) == spline[3]);
    QVERIFY(spline.getNext(1.0) == spline[1]);
    QVERIFY(spline.getNext(-99.0) == spline[0]);
    QVERIFY(spline.getPrev(notANumber) == nullptr);
    QVERIFY(spline.getNext(notANumber) == nullptr);
}

void TestSplineKeys::resetKeepsDefaultValueAndAddedExpression()
{
    SplineBase spline;
    spline.addPoint(1.0, 2.0);
    spline.setDefaultValue(4.0);
    spline.setAddFunc(true);
    spline.setFirstNodeType(SplineBase::zero);
    spline.setLastNodeType(SplineBase::loop);
    spline.setChanged(false);
    spline.reset();
    QCOMPARE(spline.getControlPointsNumber(), 0U);
    QCOMPARE(spline.firstNodeType(), SplineBase::constant);
    QCOMPARE(spline.lastNodeType(), SplineBase::constant);
    QCOMPARE(spline.getDefaultValue(), 4.0);
    QVERIFY(spline.isAddFunc());
    QVERIFY(spline.hasChanged());
}

void TestSplineKeys::observersSeeTheEndOfASpline()
{
    std::weak_ptr<const void> ofOriginal;
    std::weak_ptr<const void> ofCopy;
    {
        SplineBase copy;
        {
            const SplineBase original;
            ofOriginal = original.watchLife();
            const SplineBase sameLife(original);
            ofCopy = copy.watchLife();
            copy = original;
            QVERIFY(!ofOriginal.expired());
        }
        QVERIFY(ofOriginal.expired());
        QVERIFY(!ofCopy.expired());
    }
    QVERIFY(ofCopy.expired());
}

QTEST_APPLESS_MAIN(TestSplineKeys)
#include "test_spline_keys.moc"
