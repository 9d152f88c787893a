// Curves that read one another at other moments, through refresh functions of a host.

#include "curves/CurveWithVariable.h"
#include "support/FailOnWarning.h"
#include "support/RefreshedVariable.h"

#include <QTest>

#include <deque>
#include <functional>

namespace {

using Shift = std::function<double(double)>;

/// Curves "n.c0" to the last. The first is the time, each further one reads the one before it by
/// its name and, as "late" with its number, at another moment.
class Chain
{
public:
    Chain(const int& count, const QString& pattern, const Shift& shift)
    {
        curves.emplace_back("c0");
        curves.back().setExpression("t");
        for (int i = 1; i < count; ++i) {
            readers.emplace_back(QString("n.c%1").arg(i - 1).toStdString());
            const FunctionFloatBase* read = readers.back().tree.get();
            lateOnes.emplace_back(QString("late%1").arg(i - 1).toStdString(),
                                  [this, read, shift](double& value) {
                                      ++calls;
                                      const double now = EvaluationTime::now()[0];
                                      const EvaluationTime moment(shift(now), 10.0);
                                      value = read->value();
                                  });
            curves.emplace_back(QString("c%1").arg(i));
            curves.back().setExpression(pattern.arg(i - 1).toStdString());
        }
    }

    int calls = 0; ///< of refresh functions

private:
    std::deque<ParsedExpression> readers;
    std::deque<RefreshedVariable> lateOnes;
    std::deque<CurveWithVariable> curves;
};

double aSecondLater(double time)
{
    return time + 1.0;
}

double atFive(double)
{
    return 5.0;
}

} // namespace

class TestCurveMoments : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void aChainIsWorkedOutOnceForEachMoment_data();
    void aChainIsWorkedOutOnceForEachMoment();
    void moreMomentsThanAreRememberedGiveTheSame();
    void anEditBetweenTwoEvaluationsCounts();
    void aRingThroughAnotherMomentHasOneValue();
};

void TestCurveMoments::aChainIsWorkedOutOnceForEachMoment_data()
{
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<bool>("isRelative");
    QTest::addColumn<double>("expected");
    const double power = 0x1p39;
    for (const bool isRelative : {true, false}) {
        const auto row = [&](const char* pattern, double relative, double fixed) {
            QTest::addRow("%s, %s", pattern, isRelative ? "a second later" : "at five seconds")
                << pattern << isRelative << (isRelative ? relative : fixed);
        };
        row("n.c%1/2+late%1/2", 3.0 + 39.0 / 2.0, 5.0 - 2.0 / power);
        row("late%1/2+n.c%1/2", 3.0 + 39.0 / 2.0, 5.0 - 2.0 / power);
        row("late%1/2+late%1/2", 42.0, 5.0);
        row("n.c%1/4+late%1/2+n.c%1/4", 3.0 + 39.0 / 2.0, 5.0 - 2.0 / power);
        row("late%1/4+n.c%1/2+late%1/4", 3.0 + 39.0 / 2.0, 5.0 - 2.0 / power);
    }
}

void TestCurveMoments::aChainIsWorkedOutOnceForEachMoment()
{
    QFETCH(QString, pattern);
    QFETCH(bool, isRelative);
    Chain chain(40, pattern, isRelative ? aSecondLater : atFive);
    QTEST(valueOf("n.c39", 3.0), "expected");
    QVERIFY2(chain.calls <= 2 * 40 * 40, qPrintable(QString::number(chain.calls)));
}

void TestCurveMoments::moreMomentsThanAreRememberedGiveTheSame()
{
    Chain chain(3, "n.c%1", aSecondLater);
    const ParsedExpression read("n.c2");
    const RefreshedVariable sum("sum", [&](double& value) {
        value = 0.0;
        for (int i = 0; i < 2000; ++i) {
            const EvaluationTime moment(i % 1000, 10.0);
            value += read.tree->value();
        }
    });
    QCOMPARE(valueOf("n.c2+sum+n.c2", 7.5), 999000.0 + 15.0);
}

void TestCurveMoments::anEditBetweenTwoEvaluationsCounts()
{
    CurveWithVariable curve("c");
    curve.spline.addPoint(0.0, 1.0);
    const EvaluationTime around;
    QCOMPARE(valueOf("n.c", 3.0), 1.0);
    curve.spline.at(0)->value = 2.0;
    QCOMPARE(valueOf("n.c", 3.0), 2.0);
}

/// Asked for after another curve of its ring, which was asked for at another moment.
void TestCurveMoments::aRingThroughAnotherMomentHasOneValue()
{
    CurveWithVariable a("a");
    CurveWithVariable b("b");
    const ParsedExpression read("n.b");
    const auto readAtFive = [&](double& value) {
        const EvaluationTime moment(5.0, 10.0);
        value = read.tree->value();
    };
    const RefreshedVariable late("late", readAtFive);
    const RefreshedVariable probe("probe", readAtFive);
    a.setExpression("late+1");
    b.setExpression("n.a*2");
    QCOMPARE(valueOf("n.a", 3.0), 1.0);
    QCOMPARE(valueOf("n.b", 5.0), 2.0);
    QCOMPARE(valueOf("probe", 3.0), 2.0);
    QCOMPARE(valueOf("probe*10+n.a", 3.0), 21.0);
    QCOMPARE(valueOf("n.a+probe*10+n.a*100", 3.0), 121.0);
}

QTEST_APPLESS_MAIN(TestCurveMoments)
#include "test_curve_moments.moc"
