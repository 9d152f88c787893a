#include "core/RandomCurves.h"
#include "core/SplineKeys.h"
#include "support/FailOnWarning.h"

#include <QTest>

#include <algorithm>
#include <cmath>

namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

/// Times all over the keys, close to them and beyond, as far as values compare there.
std::vector<double> manyTimes(const SplineBase& spline)
{
    std::vector<double> times;
    const double first = spline.firstKey()->time;
    const double last = spline.lastKey()->time;
    for (int i = -100; i <= 300; ++i) {
        times.push_back(first + (last - first) * i / 200.0);
    }
    for (const PointInfo* key : spline.keys()) {
        times.push_back(key->time);
        times.push_back(std::nextafter(key->time, -infinity));
        times.push_back(std::nextafter(key->time, infinity));
    }
    return times;
}

double rangeOf(const SplineBase& spline)
{
    const ValueBounds bounds = spline.bounds(spline.firstKey()->time, spline.lastKey()->time);
    return std::max({bounds.highest - bounds.lowest, std::abs(bounds.highest), 1.0});
}

bool isAJumpNear(const SplineBase& spline, double time)
{
    const PointInfo* const before = spline.keyBefore(time + 1e-7);
    const PointInfo* const after = spline.keyAfter(time - 1e-7);
    return (before && std::abs(before->time - time) < 1e-7) ||
           (after && std::abs(after->time - time) < 1e-7);
}

void takeEaseAway(SplineBase& spline)
{
    for (unsigned key = 0; key < spline.getControlPointsNumber(); ++key) {
        PointInfo::TcbData data = spline[key]->tcb;
        data.easeFrom = 0.0;
        data.easeTo = 0.0;
        spline.setTcb(key, data);
    }
}

SplineBase easedSpline(double easeFrom, double easeTo, zk_spline::interpolationType type)
{
    SplineBase spline;
    for (const double time : {0.0, 1.0, 3.0, 4.0}) {
        PointInfo key = makeKey(time, std::sin(time * 2.0) * 5.0, type);
        key.bezier = {time, -time};
        if (time == 1.0) {
            key.tcb.easeFrom = easeFrom;
        }
        if (time == 3.0) {
            key.tcb.easeTo = easeTo;
        }
        put(spline, key);
    }
    return spline;
}

} // namespace

/// Keys that are put on a curve and leave it as it is.
class TestSplineInserting : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void curvesWithoutEaseKeepTheirShape();
    void aKeyOnAKeyIsThatKey();
    void nothingIsAddedOutsideOfTheKeys_data();
    void nothingIsAddedOutsideOfTheKeys();
    void easeIsKeptWhereTheSpeedIsEven_data();
    void easeIsKeptWhereTheSpeedIsEven();
    void whereTheSpeedChangesTheErrorIsTold_data();
    void whereTheSpeedChangesTheErrorIsTold();
    void straightKeysStayWhatTheyAre();
    void neighboursWhoseSlopesWouldChangeBecomeBezier();
    void insertedKeysAreKnownToTheSpline();
    void manyKeysOneAfterTheOther();
    void numbersOutOfRangeAreTold();
};

void TestSplineInserting::curvesWithoutEaseKeepTheirShape()
{
    RandomCurves curves(41, false);
    int inserted = 0;
    for (int curve = 0; curve < 4000; ++curve) {
        const auto spline = curves.next();
        if (spline->getControlPointsNumber() < 2) {
            continue;
        }
        takeEaseAway(*spline);
        const SplineBase former = spline->clone();
        const double first = former.firstKey()->time;
        const double last = former.lastKey()->time;
        const InsertedKey made = spline->insertKey(curves.uniform(first, last));
        if (!made.isNew) {
            continue;
        }
        ++inserted;
        QVERIFY(made.keepsShape);
        QCOMPARE(made.error, 0.0);
        QCOMPARE(spline->getControlPointsNumber(), former.getControlPointsNumber() + 1);
        const double tolerance = 1e-9 * rangeOf(former);
        for (const double time : manyTimes(former)) {
            const double was = former(time);
            const double is = (*spline)(time);
            // A slope at an end reaches as far as the time does.
            const double reach = 1.0 + std::abs(time) / std::max(last - first, 1e-3);
            if (!(std::abs(is - was) <= tolerance * reach) && !isAJumpNear(former, time)) {
                QFAIL(qPrintable(QString("curve %1 with a key at %2, at %3: %4 for %5")
                                     .arg(curve)
                                     .arg(made.key->time)
                                     .arg(time)
                                     .arg(is)
                                     .arg(was)));
            }
        }
    }
    QVERIFY(inserted > 2500);
}

void TestSplineInserting::aKeyOnAKeyIsThatKey()
{
    SplineBase spline = easedSpline(0.2, 0.3, zk_spline::tcb);
    spline.setChanged(false);
    for (unsigned key = 0; key < 4; ++key) {
        const InsertedKey found = spline.insertKey(spline[key]->time);
        QCOMPARE(found.key, spline[key]);
        QVERIFY(!found.isNew && found.keepsShape);
    }
    QCOMPARE(spline.getControlPointsNumber(), 4U);
    QVERIFY(!spline.hasChanged());
}

void TestSplineInserting::nothingIsAddedOutsideOfTheKeys_data()
{
    QTest::addColumn<double>("time");
    QTest::newRow("before") << -0.5;
    QTest::newRow("behind") << 4.5;
    QTest::newRow("no number") << notANumber;
    QTest::newRow("endless") << infinity;
}

void TestSplineInserting::nothingIsAddedOutsideOfTheKeys()
{
    QFETCH(double, time);
    SplineBase spline = easedSpline(0.0, 0.0, zk_spline::tcb);
    QVERIFY(!spline.insertKey(time).key);
    QVERIFY(!SplineBase().insertKey(time).key);
    QCOMPARE(spline.getControlPointsNumber(), 4U);
}

void TestSplineInserting::easeIsKeptWhereTheSpeedIsEven_data()
{
    QTest::addColumn<double>("easeFrom");
    QTest::addColumn<double>("easeTo");
    QTest::addColumn<double>("share");
    QTest::addColumn<int>("type");
    for (const int type : {zk_spline::linear, zk_spline::bezier, zk_spline::tcb}) {
        QTest::addRow("from, %d", type) << 0.4 << 0.0 << 0.7 << type;
        QTest::addRow("to, %d", type) << 0.0 << 0.4 << 0.3 << type;
        QTest::addRow("both, %d", type) << 0.3 << 0.4 << 0.45 << type;
        QTest::addRow("at the end of the start, %d", type) << 0.25 << 0.4 << 0.25 << type;
        QTest::addRow("at the only even moment, %d", type) << 0.75 << 0.75 << 0.5 << type;
    }
}

void TestSplineInserting::easeIsKeptWhereTheSpeedIsEven()
{
    QFETCH(double, easeFrom);
    QFETCH(double, easeTo);
    QFETCH(double, share);
    QFETCH(int, type);
    SplineBase spline =
        easedSpline(easeFrom, easeTo, static_cast<zk_spline::interpolationType>(type));
    const SplineBase former = spline.clone();
    const InsertedKey made = spline.insertKey(1.0 + 2.0 * share);
    QVERIFY(made.isNew && made.keepsShape);
    for (const double time : manyTimes(former)) {
        QVERIFY2(std::abs(spline(time) - former(time)) < 1e-9, qPrintable(QString::number(time)));
    }
}

void TestSplineInserting::whereTheSpeedChangesTheErrorIsTold_data()
{
    QTest::addColumn<double>("easeFrom");
    QTest::addColumn<double>("easeTo");
    QTest::addColumn<double>("share");
    QTest::addColumn<int>("type");
    QTest::addColumn<double>("mostError");
    for (const int type : {zk_spline::linear, zk_spline::bezier, zk_spline::tcb}) {
        const double most = type == zk_spline::linear ? 0.2 : 0.06;
        QTest::addRow("speeding up, %d", type) << 0.4 << 0.0 << 0.2 << type << most;
        QTest::addRow("slowing down, %d", type) << 0.0 << 0.4 << 0.9 << type << most;
        QTest::addRow("speeding up of both, %d", type) << 0.6 << 0.4 << 0.3 << type << most;
        QTest::addRow("slowing down of both, %d", type) << 1.0 << 1.0 << 0.7 << type << most;
        QTest::addRow("a narrow start, %d", type) << 0.0706 << 0.0 << 0.068 << type << most;
        QTest::addRow("a narrow end, %d", type) << 0.0 << 0.0706 << 0.932 << type << most;
        QTest::addRow("narrow ones, %d", type) << 0.01 << 0.005 << 0.0095 << type << most;
    }
}

void TestSplineInserting::whereTheSpeedChangesTheErrorIsTold()
{
    QFETCH(double, easeFrom);
    QFETCH(double, easeTo);
    QFETCH(double, share);
    QFETCH(int, type);
    QFETCH(double, mostError);
    SplineBase spline =
        easedSpline(easeFrom, easeTo, static_cast<zk_spline::interpolationType>(type));
    const SplineBase former = spline.clone();
    const InsertedKey made = spline.insertKey(1.0 + 2.0 * share);
    QVERIFY(made.isNew && !made.keepsShape);
    double greatest = 0.0;
    std::vector<double> times = manyTimes(former);
    for (int i = 0; i < 2000; ++i) {
        times.push_back(1.0 + 2.0 * easeFrom * i / 2000.0);
        times.push_back(3.0 - 2.0 * easeTo * i / 2000.0);
    }
    for (const double time : times) {
        greatest = std::max(greatest, std::abs(spline(time) - former(time)));
    }
    QVERIFY2(greatest <= made.error + 1e-9,
             qPrintable(QString("%1 for %2").arg(greatest).arg(made.error)));
    QVERIFY2(made.error < mostError * rangeOf(former), qPrintable(QString::number(made.error)));
    QCOMPARE(made.key->value, former(made.key->time));
}

void TestSplineInserting::straightKeysStayWhatTheyAre()
{
    SplineBase spline;
    for (const double time : {0.0, 1.0, 2.0, 3.0}) {
        put(spline, makeKey(time, 3.0 * time, zk_spline::tcb));
    }
    const InsertedKey made = spline.insertKey(1.25);
    QVERIFY(made.keepsShape);
    QCOMPARE(made.key->type, zk_spline::bezier);
    QVERIFY(made.key->unifiedTangents);
    QCOMPARE(made.key->bezier.tangentLeft, 3.0);
    for (const unsigned key : {0U, 1U, 3U, 4U}) {
        QCOMPARE(spline[key]->type, zk_spline::tcb);
    }
}

void TestSplineInserting::neighboursWhoseSlopesWouldChangeBecomeBezier()
{
    SplineBase spline;
    for (const double time : {0.0, 1.0, 2.0, 3.0}) {
        PointInfo key = makeKey(time, time * time, zk_spline::tcb);
        key.unifiedTangents = time == 1.0;
        put(spline, key);
    }
    spline.insertKey(1.5);
    QCOMPARE(spline[0]->type, zk_spline::tcb);
    QCOMPARE(spline[1]->type, zk_spline::bezier);
    QCOMPARE(spline[1]->bezier.tangentLeft, 2.0);
    QCOMPARE(spline[1]->bezier.tangentRight, 2.0);
    QVERIFY(spline[1]->unifiedTangents);
    QCOMPARE(spline[3]->type, zk_spline::bezier);
    QVERIFY(!spline[3]->unifiedTangents);
    QCOMPARE(spline[4]->type, zk_spline::tcb);
}

void TestSplineInserting::insertedKeysAreKnownToTheSpline()
{
    SplineBase spline = easedSpline(0.0, 0.0, zk_spline::linear);
    spline.setChanged(false);
    const InsertedKey made = spline.insertKey(2.0);
    QVERIFY(spline.hasChanged());
    QCOMPARE(spline.findIndex(made.key), 2);
    QVERIFY(spline.keySerial(made.key) != 0);
}

void TestSplineInserting::manyKeysOneAfterTheOther()
{
    SplineBase spline = easedSpline(0.0, 0.0, zk_spline::tcb);
    const SplineBase former = spline.clone();
    RandomCurves random(43, false);
    for (int i = 0; i < 500; ++i) {
        QVERIFY(spline.insertKey(random.uniform(0.0, 4.0)).keepsShape);
    }
    QCOMPARE(spline.getControlPointsNumber(), 504U);
    for (const double time : manyTimes(former)) {
        QVERIFY(std::abs(spline(time) - former(time)) < 1e-9 * rangeOf(former));
    }
}

void TestSplineInserting::numbersOutOfRangeAreTold()
{
    RandomCurves curves(44, true);
    for (int curve = 0; curve < 3000; ++curve) {
        const auto spline = curves.next();
        for (const double time : curves.timesFor(*spline)) {
            const unsigned count = spline->getControlPointsNumber();
            const InsertedKey made = spline->insertKey(time);
            QCOMPARE(spline->getControlPointsNumber(), count + (made.isNew ? 1 : 0));
            QVERIFY(!made.keepsShape || made.error == 0.0);
            QVERIFY(!made.key || spline->findIndex(made.key) >= 0);
        }
    }
}

QTEST_APPLESS_MAIN(TestSplineInserting)
#include "test_spline_inserting.moc"
