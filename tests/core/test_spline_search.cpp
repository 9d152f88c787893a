#include "core/SplineKeys.h"
#include "support/FailOnWarning.h"

#include <QTest>

#include <algorithm>
#include <random>

/// The segment that an evaluation falls into, in splines of few keys and of many. Each key is
/// stepped and its value is its index, so that a value tells the segment.
class TestSplineSearch : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void theLastKeyAtOrBeforeATimeIsFound_data();
    void theLastKeyAtOrBeforeATimeIsFound();
};

void TestSplineSearch::theLastKeyAtOrBeforeATimeIsFound_data()
{
    QTest::addColumn<int>("count");
    for (const int count : {2, 3, 4, 5, 64, 1999, 2000, 2001, 2002, 2048, 4097, 10007}) {
        QTest::addRow("%d keys", count) << count;
    }
}

void TestSplineSearch::theLastKeyAtOrBeforeATimeIsFound()
{
    QFETCH(int, count);
    std::mt19937 random(21);
    std::uniform_real_distribution<double> gap(0.1, 2.0);
    SplineBase spline;
    double time = -7.0;
    for (int i = 0; i < count; ++i) {
        put(spline, makeKey(time, i, zk_spline::stepped));
        time += i % 7 == 3 ? 0.0 : gap(random); // some keys share their time
    }
    const std::vector<double> times = timesOf(spline);
    const auto isFound = [&](const double& at) {
        const auto behind = std::upper_bound(times.begin(), times.end(), at);
        return spline(at) == static_cast<double>(behind - times.begin() - 1);
    };
    std::uniform_real_distribution<double> within(times.front(), times.back());
    std::uniform_int_distribution<std::size_t> index(0, times.size() - 1);
    for (int i = 0; i < 5000; ++i) {
        QVERIFY(isFound(within(random)));
        QVERIFY(isFound(times[index(random)]));
    }
    QVERIFY(isFound(times.front()));
    QVERIFY(isFound(times.back()));
}

QTEST_APPLESS_MAIN(TestSplineSearch)
#include "test_spline_search.moc"
