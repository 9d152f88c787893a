#include "core/SplineKeys.h"
#include "support/FailOnWarning.h"

#include <QTest>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>

namespace {

using Times = std::vector<double>;
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

bool isAscending(SplineBase& spline)
{
    const Times times = timesOf(spline);
    return std::is_sorted(times.begin(), times.end());
}

} // namespace

class TestSplineOrder : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void keysStandInTimeOrderHoweverTheyCome();
    void aNewKeyGoesBehindKeysOfItsTime();
    void aKeyWithATimeOfNanSortsLast();
    void setTimeKeepsThePointerAndRestoresTheOrder_data();
    void setTimeKeepsThePointerAndRestoresTheOrder();
    void setTimeLeavesAKeyThatIsInOrderWhereItIs();
    void setTimeToNanMovesTheKeyToTheEnd();
    void manyRetimedKeysStayInOrder();
    void copyPointMovesTheKeyBehindItsNeighbours();
    void copyPointNoUpdateLeavesOrderAndChangedFlag();
    void theNextRetimingRestoresAnUpsetOrder();
    void keysAreFoundAfterTheirTimesWereWrittenFromOutside();
};

void TestSplineOrder::keysStandInTimeOrderHoweverTheyCome()
{
    SplineBase spline;
    for (const double time : {3.0, 1.0, 2.0, -1.0, 4.0, 2.5}) {
        spline.addPoint(time, 0.0);
    }
    QCOMPARE(timesOf(spline), (Times{-1.0, 1.0, 2.0, 2.5, 3.0, 4.0}));
}

void TestSplineOrder::aNewKeyGoesBehindKeysOfItsTime()
{
    SplineBase spline;
    spline.addPoint(2.0, 0.0);
    spline.addPoint(1.0, 10.0);
    spline.addPoint(1.0, 11.0);
    spline.addPoint(2.0, 1.0);
    QCOMPARE(spline[0]->value, 10.0);
    QCOMPARE(spline[1]->value, 11.0);
    QCOMPARE(spline[2]->value, 0.0);
    QCOMPARE(spline[3]->value, 1.0);
}

void TestSplineOrder::aKeyWithATimeOfNanSortsLast()
{
    SplineBase spline;
    for (const double time : {1.0, notANumber, 0.0, notANumber, 2.0}) {
        spline.addPoint(time, 0.0);
    }
    const Times times = timesOf(spline);
    QCOMPARE(times[0], 0.0);
    QCOMPARE(times[2], 2.0);
    QVERIFY(std::isnan(times[3]) && std::isnan(times[4]));
    QCOMPARE(spline.findIndex(spline[3]), 3);
    QCOMPARE(spline.findIndex(spline[4]), 4);
}

void TestSplineOrder::setTimeKeepsThePointerAndRestoresTheOrder_data()
{
    QTest::addColumn<unsigned>("index");
    QTest::addColumn<double>("time");
    QTest::addColumn<int>("newIndex");
    QTest::newRow("past the next one") << 1U << 2.5 << 2;
    QTest::newRow("past the one before") << 2U << 0.5 << 1;
    QTest::newRow("to the very end") << 0U << 100.0 << 4;
    QTest::newRow("to the very start") << 4U << -1.0 << 0;
    QTest::newRow("between its neighbours") << 2U << 2.75 << 2;
    QTest::newRow("onto the next one stays before it") << 1U << 2.0 << 1;
    QTest::newRow("onto the one before stays behind it") << 2U << 1.0 << 2;
    QTest::newRow("beyond the next onto one more stops before it") << 1U << 3.0 << 2;
    QTest::newRow("to infinity") << 1U << std::numeric_limits<double>::infinity() << 4;
}

void TestSplineOrder::setTimeKeepsThePointerAndRestoresTheOrder()
{
    QFETCH(unsigned, index);
    QFETCH(double, time);
    SplineBase spline;
    for (int i = 0; i < 5; ++i) {
        spline.addPoint(i, i);
    }
    const PointInfo* const key = spline[index];
    spline.setChanged(false);
    spline.setTime(key, time);
    QVERIFY(spline.hasChanged());
    QCOMPARE(key->time, time);
    QTEST(spline.findIndex(key), "newIndex");
    QVERIFY(isAscending(spline));
}

void TestSplineOrder::setTimeLeavesAKeyThatIsInOrderWhereItIs()
{
    SplineBase spline;
    for (int i = 0; i < 3; ++i) {
        spline.addPoint(1.0, i);
    }
    spline.setTime(spline[0], 1.0);
    QCOMPARE(spline[0]->value, 0.0);
    QCOMPARE(spline[2]->value, 2.0);
}

void TestSplineOrder::setTimeToNanMovesTheKeyToTheEnd()
{
    SplineBase spline;
    for (int i = 0; i < 4; ++i) {
        spline.addPoint(i, i);
    }
    const PointInfo* const key = spline[1];
    spline.setTime(key, notANumber);
    QCOMPARE(spline.findIndex(key), 3);
    spline.setTime(key, 0.5);
    QCOMPARE(timesOf(spline), (Times{0.0, 0.5, 2.0, 3.0}));
}

void TestSplineOrder::manyRetimedKeysStayInOrder()
{
    SplineBase spline;
    std::mt19937 random(7);
    std::uniform_int_distribution<int> anyTime(0, 40);
    for (int i = 0; i < 200; ++i) {
        spline.addPoint(anyTime(random), i);
    }
    const std::vector<PointInfo*> keys = spline.getControlPoints();
    for (int round = 0; round < 20; ++round) {
        for (const PointInfo* key : keys) {
            spline.setTime(key, anyTime(random));
        }
        QVERIFY(isAscending(spline));
    }
    for (const PointInfo* key : keys) {
        const int index = spline.findIndex(key);
        QVERIFY(index >= 0);
        QVERIFY(spline[static_cast<unsigned>(index)] == key);
    }
}

void TestSplineOrder::copyPointMovesTheKeyBehindItsNeighbours()
{
    SplineBase spline;
    for (int i = 0; i < 4; ++i) {
        spline.addPoint(i, i);
    }
    const PointInfo* const key = spline[0];
    const PointInfo source = makeKey(2.5, 9.0);
    spline.setChanged(false);
    spline.copyPoint(key, &source);
    QVERIFY(spline.hasChanged());
    QCOMPARE(spline.findIndex(key), 2);
    QCOMPARE(timesOf(spline), (Times{1.0, 2.0, 2.5, 3.0}));
}

void TestSplineOrder::copyPointNoUpdateLeavesOrderAndChangedFlag()
{
    SplineBase spline;
    for (int i = 0; i < 3; ++i) {
        spline.addPoint(i, i);
    }
    const PointInfo source = makeKey(9.0, 5.0);
    spline.setChanged(false);
    spline.copyPointNoUpdate(spline.at(0), &source);
    QVERIFY(!spline.hasChanged());
    QCOMPARE(timesOf(spline), (Times{9.0, 1.0, 2.0}));
    QCOMPARE(spline.findIndex(spline[0]), 0);
    QCOMPARE(spline.findIndex(spline[2]), 2);
    QCOMPARE(timesOf(spline), (Times{9.0, 1.0, 2.0}));
}

void TestSplineOrder::theNextRetimingRestoresAnUpsetOrder()
{
    SplineBase spline;
    for (int i = 0; i < 4; ++i) {
        spline.addPoint(i, i);
    }
    const PointInfo source = makeKey(9.0, 0.0);
    spline.copyPointNoUpdate(spline.at(0), &source);
    spline.setTime(spline[3], 1.5);
    QCOMPARE(timesOf(spline), (Times{1.0, 1.5, 2.0, 9.0}));
    spline.copyPointNoUpdate(spline.at(0), &source);
    spline.addPoint(0.0, 0.0);
    QCOMPARE(timesOf(spline), (Times{0.0, 1.5, 2.0, 9.0, 9.0}));
}

void TestSplineOrder::keysAreFoundAfterTheirTimesWereWrittenFromOutside()
{
    SplineBase spline;
    for (int i = 0; i < 50; ++i) {
        spline.addPoint(i, i);
    }
    for (unsigned i = 0; i < 50; ++i) {
        spline.at(i)->time = (i * 37) % 50;
    }
    for (unsigned i = 0; i < 50; ++i) {
        QCOMPARE(spline.findIndex(spline[i]), static_cast<int>(i));
    }
    spline.setTime(spline[7], 100.0);
    QVERIFY(isAscending(spline));
}

QTEST_APPLESS_MAIN(TestSplineOrder)
#include "test_spline_order.moc"
