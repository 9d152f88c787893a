#include "support/FailOnWarning.h"
#include "support/ParsedExpression.h"

#include "core/EvaluationTime.h"
#include "core/KeyValue.h"

#include <QTest>

#include <limits>

namespace {

double read(const char* name)
{
    return readKeyValue(FunctionParserBase::instance()->getKey(name));
}

void write(const char* name, double value)
{
    writeKeyValue(FunctionParserBase::instance()->getKey(name), value);
}

} // namespace

class TestExpressionTime : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        failOnUnexpectedWarning();
        write("t", 1.0);
        write("f", 2.0);
        write("fps", 10.0);
    }

    void aMomentIsWrittenAndRestored();
    void withoutAMomentNothingIsWritten();
    void keepRestoresNothing();
    void momentsNest();
    void thereIsNoEpochOutsideOfAnEvaluation();
    void theEpochGrowsWithEachOutermostMoment();
    void theEpochStaysInNestedEvaluationsOfTheSameMoment();
    void theEpochGrowsOnTheWayIntoAnotherMomentAndOut();
    void theEpochGrowsWhenAKeptInnerMomentIsRestored();
    void notANumberIsTheSameMomentAsItself();
};

void TestExpressionTime::aMomentIsWrittenAndRestored()
{
    {
        EvaluationTime moment(3.0, 24.0);
        QCOMPARE(read("t"), 3.0);
        QCOMPARE(read("f"), 72.0);
        QCOMPARE(read("fps"), 24.0);
        moment.set(-1.5, 30.0);
        QCOMPARE(read("t"), -1.5);
        QCOMPARE(read("f"), -45.0);
        QCOMPARE(read("fps"), 30.0);
    }
    QCOMPARE(read("t"), 1.0);
    QCOMPARE(read("f"), 2.0);
    QCOMPARE(read("fps"), 10.0);
}

void TestExpressionTime::withoutAMomentNothingIsWritten()
{
    const EvaluationTime moment;
    QCOMPARE(read("t"), 1.0);
    QCOMPARE(read("f"), 2.0);
    QCOMPARE(read("fps"), 10.0);
}

void TestExpressionTime::keepRestoresNothing()
{
    {
        EvaluationTime moment(3.0, 24.0);
        moment.keep();
    }
    QCOMPARE(read("t"), 3.0);
    QCOMPARE(read("f"), 72.0);
    QCOMPARE(read("fps"), 24.0);
}

void TestExpressionTime::momentsNest()
{
    const EvaluationTime outer(3.0, 24.0);
    {
        const EvaluationTime inner(5.0, 24.0);
        QCOMPARE(read("t"), 5.0);
    }
    QCOMPARE(read("t"), 3.0);
    QCOMPARE(read("f"), 72.0);
}

void TestExpressionTime::thereIsNoEpochOutsideOfAnEvaluation()
{
    QCOMPARE(EvaluationTime::epoch(), 0ULL);
    {
        const EvaluationTime moment(3.0, 24.0);
        QVERIFY(EvaluationTime::epoch() > 0);
    }
    QCOMPARE(EvaluationTime::epoch(), 0ULL);
}

void TestExpressionTime::theEpochGrowsWithEachOutermostMoment()
{
    unsigned long long last = 0;
    for (int i = 0; i < 2; ++i) {
        // The same moment twice: the curves may have been edited in between.
        EvaluationTime moment(1.0, 24.0);
        QVERIFY(EvaluationTime::epoch() > last);
        last = EvaluationTime::epoch();
        moment.set(1.0, 24.0);
        QVERIFY(EvaluationTime::epoch() > last);
        last = EvaluationTime::epoch();
    }
    const EvaluationTime present;
    QVERIFY(EvaluationTime::epoch() > last);
}

void TestExpressionTime::theEpochStaysInNestedEvaluationsOfTheSameMoment()
{
    const EvaluationTime outer(1.0, 24.0);
    const unsigned long long epoch = EvaluationTime::epoch();
    {
        EvaluationTime inner(1.0, 24.0);
        QCOMPARE(EvaluationTime::epoch(), epoch);
        inner.set(1.0, 24.0);
        QCOMPARE(EvaluationTime::epoch(), epoch);
        const EvaluationTime innermost;
        QCOMPARE(EvaluationTime::epoch(), epoch);
    }
    QCOMPARE(EvaluationTime::epoch(), epoch);
}

void TestExpressionTime::theEpochGrowsOnTheWayIntoAnotherMomentAndOut()
{
    const EvaluationTime outer(1.0, 24.0);
    const unsigned long long before = EvaluationTime::epoch();
    unsigned long long inside = 0;
    {
        const EvaluationTime inner(2.0, 24.0);
        inside = EvaluationTime::epoch();
        QVERIFY(inside > before);
    }
    QVERIFY(EvaluationTime::epoch() > inside);
}

void TestExpressionTime::theEpochGrowsWhenAKeptInnerMomentIsRestored()
{
    const EvaluationTime outer(1.0, 24.0);
    unsigned long long inside = 0;
    {
        const EvaluationTime middle(1.0, 24.0);
        EvaluationTime inner(2.0, 24.0);
        inner.keep();
        inside = EvaluationTime::epoch();
    }
    QCOMPARE(read("t"), 1.0);
    QVERIFY(EvaluationTime::epoch() > inside);
}

void TestExpressionTime::notANumberIsTheSameMomentAsItself()
{
    const double notANumber = std::numeric_limits<double>::quiet_NaN();
    const EvaluationTime outer(notANumber, 24.0);
    const unsigned long long epoch = EvaluationTime::epoch();
    const EvaluationTime inner(notANumber, 24.0);
    QCOMPARE(EvaluationTime::epoch(), epoch);
}

QTEST_APPLESS_MAIN(TestExpressionTime)
#include "test_expression_time.moc"
