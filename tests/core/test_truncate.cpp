#include "core/Truncate.h"
#include "support/FailOnWarning.h"

#include <QTest>

#include <limits>

class TestTruncate : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void numbersAreCutTowardZeroAndHeld_data();
    void numbersAreCutTowardZeroAndHeld();
};

void TestTruncate::numbersAreCutTowardZeroAndHeld_data()
{
    QTest::addColumn<double>("number");
    QTest::addColumn<int>("asInt");
    QTest::addColumn<int>("asPixel");
    constexpr int lowest = std::numeric_limits<int>::min();
    constexpr int highest = std::numeric_limits<int>::max();
    constexpr int pixel = (1 << 29) - 1;
    constexpr double infinity = std::numeric_limits<double>::infinity();
    QTest::newRow("positive") << 2.9 << 2 << 2;
    QTest::newRow("negative") << -2.9 << -2 << -2;
    QTest::newRow("not a number") << std::numeric_limits<double>::quiet_NaN() << 0 << 0;
    QTest::newRow("infinity") << infinity << highest << pixel;
    QTest::newRow("minus infinity") << -infinity << lowest << -pixel;
    QTest::newRow("just inside int") << 2147483646.5 << 2147483646 << pixel;
    QTest::newRow("beyond int") << 2147483648.0 << highest << pixel;
    QTest::newRow("just inside a pixel") << pixel - 0.5 << pixel - 1 << pixel - 1;
    QTest::newRow("beyond a pixel") << -pixel - 1.0 << -pixel - 1 << -pixel;
}

void TestTruncate::numbersAreCutTowardZeroAndHeld()
{
    QFETCH(double, number);
    QTEST(truncateToInt(number), "asInt");
    QTEST(truncateToPixel(number), "asPixel");
}

QTEST_APPLESS_MAIN(TestTruncate)
#include "test_truncate.moc"
