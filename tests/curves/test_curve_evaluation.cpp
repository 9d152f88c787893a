#include "core/EvaluationTime.h"
#include "curves/CurveNodeBaseTest.h"
#include "files/CurveType.h"
#include "support/ParserKeys.h"

#include <QTest>

#include <cmath>

namespace {

/// Claims to be of a type that its contents do not have.
class CurveOfType : public CurveNodeBase
{
public:
    CurveOfType(const int& claimed, FunctionFloatBase** hostSlot)
        : CurveNodeBase(nullptr, "c", "n", Qt::red, 0.0f, nullptr, hostSlot, -10.0f, 10.0f, true)
        , type(claimed)
    {}
    int curveType() override { return type; }

private:
    int type;
};

} // namespace

class TestCurveEvaluation : public CurveNodeBaseTest
{
    Q_OBJECT

private slots:
    void init() { openCurve(); }
    void cleanup() { closeCurve(); }

    void aSplineIsEvaluatedAndHeldBetweenItsLimits_data();
    void aSplineIsEvaluatedAndHeldBetweenItsLimits();
    void anExpressionIsEvaluatedAtTimeFrameAndRate();
    void anExpressionIsHeldBetweenItsLimits();
    void splinePlusExpressionIsTheirSum();
    void splinePlusExpressionWithAnEmptySlotIsTheSplineAlone();
    void evaluationRestoresTimeFrameAndRate();
    void anExpressionTypeWithAnEmptySlotIsZeroAndLeavesTimeAndFrameChanged();
    void aMixedTypeEvaluatesToZero();
    void notANumberPassesThroughEvaluation();
};

void TestCurveEvaluation::aSplineIsEvaluatedAndHeldBetweenItsLimits_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<double>("expected");
    QTest::newRow("inside") << 3.0 << 3.0;
    QTest::newRow("above") << 11.0 << 10.0;
    QTest::newRow("below") << -11.0 << -10.0;
}

void TestCurveEvaluation::aSplineIsEvaluatedAndHeldBetweenItsLimits()
{
    QFETCH(double, value);
    spline->addPoint(0.0, value);
    QTEST(curve->evaluate(0.0), "expected");
}

void TestCurveEvaluation::anExpressionIsEvaluatedAtTimeFrameAndRate()
{
    curve = makeCurve(-1e9f, 1e9f);
    setExpression("t*1000000+f*1000+fps");
    QCOMPARE(curve->evaluate(2.0), 2020010.0);
}

void TestCurveEvaluation::anExpressionIsHeldBetweenItsLimits()
{
    setExpression("t");
    QCOMPARE(curve->evaluate(12.0), 10.0);
    QCOMPARE(curve->evaluate(-12.0), -10.0);
    QCOMPARE(curve->evaluate(3.0), 3.0);
}

void TestCurveEvaluation::splinePlusExpressionIsTheirSum()
{
    spline->addPoint(0.0, 2.0);
    setExpression("t+fps/10");
    curve->setAddFunc(true);
    QCOMPARE(curve->evaluate(3.0), 2.0 + 3.0 + 1.0);
    QCOMPARE(curve->evaluate(30.0), 10.0);
}

void TestCurveEvaluation::splinePlusExpressionWithAnEmptySlotIsTheSplineAlone()
{
    spline->addPoint(0.0, 2.0);
    curve->setAddFunc(true);
    QCOMPARE(curve->evaluate(3.0), 2.0);
}

void TestCurveEvaluation::evaluationRestoresTimeFrameAndRate()
{
    const EvaluationTime restore;
    writeKey("t", 5.0);
    writeKey("f", 6.0);
    writeKey("fps", 7.0);
    setExpression("t");
    curve->evaluate(2.0);
    curve->updateGraph(&view);
    QCOMPARE(keyValue("t"), 5.0);
    QCOMPARE(keyValue("f"), 6.0);
    QCOMPARE(keyValue("fps"), 7.0);
}

void TestCurveEvaluation::anExpressionTypeWithAnEmptySlotIsZeroAndLeavesTimeAndFrameChanged()
{
    const EvaluationTime restore;
    writeKey("t", 5.0);
    writeKey("f", 6.0);
    CurveOfType claims(expressionCurve, &expression);
    QCOMPARE(claims.evaluate(2.0), 0.0);
    QCOMPARE(keyValue("t"), 2.0);
    QCOMPARE(keyValue("f"), 20.0);
}

void TestCurveEvaluation::aMixedTypeEvaluatesToZero()
{
    CurveOfType claims(mixedCurves, &expression);
    QCOMPARE(claims.evaluate(2.0), 0.0);
}

void TestCurveEvaluation::notANumberPassesThroughEvaluation()
{
    setExpression("sqrt(-1)");
    QVERIFY(std::isnan(curve->evaluate(2.0)));
}

QTEST_MAIN(TestCurveEvaluation)
#include "test_curve_evaluation.moc"
