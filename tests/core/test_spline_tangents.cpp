#include "core/SplineKeys.h"
#include "support/FailOnWarning.h"

#include <QTest>

#include <limits>

namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

} // namespace

class TestSplineTangents : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void publishedTangentsOfOneKey();
    void tangentQueriesAnswerByKind_data();
    void tangentQueriesAnswerByKind();
    void tangentQueriesOutOfRangeGiveZero();
    void handlesOfTcbKeysFollowTheTension();
};

void TestSplineTangents::publishedTangentsOfOneKey()
{
    SplineBase spline;
    put(spline, makeKey(0.0, 1.0, zk_spline::tcb));
    PointInfo key = makeKey(1.0, 3.0, zk_spline::tcb);
    key.tcb = {0.5, 0.25, -0.5, 0.0, 0.0};
    put(spline, key);
    put(spline, makeKey(3.0, 2.0, zk_spline::tcb));
    // L0 = 0.25 * 1.25 * 0.5, L1 = 0.25 * 0.75 * 1.5, R0 and R1 with continuity reversed; the
    // gaps rise by 2 in 1 s and by -1 in 2 s.
    double length = 0.0;
    QCOMPARE(spline.getTangentRightAtNode(2, length), 2.0 * (0.15625 * 2.0 + 0.28125 * -1.0) / 3.0);
    QCOMPARE(spline.getTangentLeftAtNode(1, length), 2.0 * (0.09375 * 2.0 + 0.46875 * -1.0) / 3.0);
    // At the ends the one chord stands for both gaps.
    QCOMPARE(spline.getTangentRightAtNode(1, length), 2.0);
    QCOMPARE(spline.getTangentLeftAtNode(2, length), -0.5);
}

void TestSplineTangents::tangentQueriesAnswerByKind_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<std::vector<double>>("incoming");
    QTest::addColumn<std::vector<double>>("outgoing");
    using Slopes = std::vector<double>;
    QTest::newRow("linear: the chord") << 0 << Slopes{2.0, 2.0, -1.0} << Slopes{2.0, -1.0, -1.0};
    QTest::newRow("bezier: its own") << 1 << Slopes{7.0, 7.0, 7.0} << Slopes{8.0, 8.0, 8.0};
    QTest::newRow("tcb: Kochanek-Bartels") << 2 << Slopes{2.0, 0.0, -1.0} << Slopes{2.0, 0.0, -1.0};
    QTest::newRow("stepped: none") << 3 << Slopes{0.0, 0.0, 0.0} << Slopes{0.0, 0.0, 0.0};
}

void TestSplineTangents::tangentQueriesAnswerByKind()
{
    QFETCH(int, type);
    QFETCH(std::vector<double>, incoming);
    QFETCH(std::vector<double>, outgoing);
    SplineBase spline;
    const double values[] = {0.0, 2.0, 0.0};
    const double times[] = {0.0, 1.0, 3.0};
    for (int i = 0; i < 3; ++i) {
        PointInfo key = makeKey(times[i], values[i]);
        key.type = static_cast<zk_spline::interpolationType>(type);
        key.bezier = {7.0, 8.0};
        put(spline, key);
    }
    for (unsigned i = 0; i < 3; ++i) {
        double length = -1.0;
        QCOMPARE(spline.getTangentLeftAtNode(i, length), incoming[i]);
        QCOMPARE(length, type == 2 ? 0.5 : 0.667);
        length = -1.0;
        QCOMPARE(spline.getTangentRightAtNode(i + 1, length), outgoing[i]);
        QCOMPARE(length, type == 2 ? 0.5 : 0.667);
    }
}

void TestSplineTangents::tangentQueriesOutOfRangeGiveZero()
{
    SplineBase spline;
    double length = -1.0;
    QCOMPARE(spline.getTangentLeftAtNode(0, length), 0.0);
    QCOMPARE(length, 0.667);
    for (const int type : {0, 2, 3}) {
        SplineBase single;
        put(single, makeKey(1.0, 2.0, static_cast<zk_spline::interpolationType>(type)));
        QCOMPARE(single.getTangentLeftAtNode(0, length), 0.0);
        QCOMPARE(single.getTangentRightAtNode(1, length), 0.0);
    }
    PointInfo key = makeKey(0.0, 0.0, zk_spline::bezier);
    key.bezier = {7.0, 8.0};
    put(spline, key);
    QCOMPARE(spline.getTangentRightAtNode(1, length), 8.0);
    for (const unsigned index : {0U, 2U, std::numeric_limits<unsigned>::max()}) {
        length = -1.0;
        QCOMPARE(spline.getTangentRightAtNode(index, length), 0.0);
        QCOMPARE(length, 0.667);
    }
    for (const unsigned index : {1U, std::numeric_limits<unsigned>::max()}) {
        length = -1.0;
        QCOMPARE(spline.getTangentLeftAtNode(index, length), 0.0);
        QCOMPARE(length, 0.667);
    }
}

void TestSplineTangents::handlesOfTcbKeysFollowTheTension()
{
    SplineBase spline;
    spline.addPoint(0.0, 0.0);
    const auto handle = [&spline](double tension) {
        spline.setTcb(0U, {tension, 0.0, 0.0, 0.0, 0.0});
        double length = -1.0;
        spline.getTangentLeftAtNode(0, length);
        return length;
    };
    QCOMPARE(handle(0.0), 0.5);
    QCOMPARE(handle(-1.0), 1.0);
    QCOMPARE(handle(1.0), 0.0);
    QCOMPARE(handle(10.0), 0.0);
    QCOMPARE(handle(-10.0), 2.0);
    QCOMPARE(handle(notANumber), 0.0);
}

QTEST_APPLESS_MAIN(TestSplineTangents)
#include "test_spline_tangents.moc"
