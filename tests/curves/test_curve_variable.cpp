#include "core/EvaluationTime.h"
#include "core/KeyValue.h"
#include "core/SplineBase.h"
#include "curves/CurveWithVariable.h"
#include "support/FailOnWarning.h"
#include "support/ParsedExpression.h"
#include "support/ParserKeys.h"

#include <QTest>

#include <memory>

class TestCurveVariable : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void anExpressionReadsACurveByItsParserForm();
    void namesOutsideOfAsciiAreReadInTheLocalEncoding();
    void aCurvesLimitsHold();
    void splinePlusExpressionIsReadAsTheirSum();
    void aCurveWithoutSplineAndExpressionIsZero();
    void anExpressionThatReadsTheRateSeesTheOneThatIsSet();
    void readingLeavesTimeFrameAndRateAsTheyWere();
    void outsideOfAnyEvaluationItReadsThePresentMoment();
    void withinOneEvaluationACurveIsEvaluatedOnce();
    void anotherMomentOfTheSameEvaluationIsEvaluatedAnew();
    void anEditIsSeenByTheNextEvaluation();
    void renamingMovesTheVariable();
    void aCurveThatGoesReadsZeroAndReadsAgainWhenItComesBack();
    void aDestroyedSplineReadsAsZero();
};

void TestCurveVariable::anExpressionReadsACurveByItsParserForm()
{
    CurveWithVariable curve("My Curve");
    curve.spline.addPoint(0.0, 5.0);
    QCOMPARE(valueOf("n.my_curve*2", 1.0), 10.0);
    QCOMPARE(valueOf("N.My_Curve", 1.0), 5.0);
}

void TestCurveVariable::namesOutsideOfAsciiAreReadInTheLocalEncoding()
{
    CurveWithVariable curve(QString::fromUtf8("h\xc3\xb6he"));
    curve.spline.addPoint(0.0, 5.0);
    QCOMPARE(valueOf(QString::fromUtf8("n.h\xc3\xb6he").toLocal8Bit().toStdString(), 1.0), 5.0);
}

void TestCurveVariable::aCurvesLimitsHold()
{
    CurveWithVariable curve("c");
    curve.record.minValue = -1.0f;
    curve.record.maxValue = 1.0f;
    curve.setExpression("t");
    QCOMPARE(valueOf("n.c", 8.0), 1.0);
    QCOMPARE(valueOf("n.c", -8.0), -1.0);
    QCOMPARE(valueOf("n.c", 0.5), 0.5);
}

void TestCurveVariable::splinePlusExpressionIsReadAsTheirSum()
{
    CurveWithVariable curve("c");
    curve.spline.addPoint(0.0, 5.0);
    curve.spline.setAddFunc(true);
    QCOMPARE(valueOf("n.c", 2.0), 5.0);
    curve.setExpression("t");
    QCOMPARE(valueOf("n.c", 2.0), 7.0);
}

void TestCurveVariable::aCurveWithoutSplineAndExpressionIsZero()
{
    CurveWithVariable curve("c");
    curve.record.setSpline(nullptr);
    curve.record.function = nullptr;
    QCOMPARE(valueOf("n.c+1", 2.0), 1.0);
}

void TestCurveVariable::anExpressionThatReadsTheRateSeesTheOneThatIsSet()
{
    CurveWithVariable curve("c");
    curve.setExpression("f+fps*1000");
    QCOMPARE(valueOf("n.c", 2.0, 25.0), 25050.0);
}

void TestCurveVariable::readingLeavesTimeFrameAndRateAsTheyWere()
{
    CurveWithVariable curve("c");
    curve.spline.addPoint(0.0, 5.0);
    curve.spline.setAddFunc(true);
    curve.setExpression("t");
    const ParsedExpression reader("n.c");
    const EvaluationTime moment(2.0, 25.0);
    reader.tree->value();
    QCOMPARE(keyValue("t"), 2.0);
    QCOMPARE(keyValue("f"), 50.0);
    QCOMPARE(keyValue("fps"), 25.0);
}

void TestCurveVariable::outsideOfAnyEvaluationItReadsThePresentMoment()
{
    CurveWithVariable curve("c");
    curve.setExpression("t");
    const ParsedExpression reader("n.c");
    auto* time = FunctionParserBase::instance()->getKey("t");
    const double before = readKeyValue(time);
    writeKeyValue(time, 3.0);
    QCOMPARE(reader.tree->value(), 3.0);
    writeKeyValue(time, 4.0);
    QCOMPARE(reader.tree->value(), 4.0);
    curve.setExpression("t*2");
    QCOMPARE(reader.tree->value(), 8.0);
    writeKeyValue(time, before);
}

void TestCurveVariable::withinOneEvaluationACurveIsEvaluatedOnce()
{
    int evaluations = 0;
    double counter = 0.0;
    FunctionParserBase::instance()->registerKey("counter", 3, &counter, [&] { ++evaluations; });
    CurveWithVariable curve("c");
    curve.setExpression("counter+t");
    const ParsedExpression reader("n.c+n.c+n.c");
    {
        const EvaluationTime moment(2.0, 10.0);
        QCOMPARE(reader.tree->value(), 6.0);
        QCOMPARE(reader.tree->value(), 6.0);
    }
    FunctionParserBase::instance()->unregisterKey("counter", &counter);
    QCOMPARE(evaluations, 1);
}

void TestCurveVariable::anotherMomentOfTheSameEvaluationIsEvaluatedAnew()
{
    CurveWithVariable curve("c");
    curve.setExpression("t");
    const ParsedExpression reader("n.c");
    EvaluationTime outer(2.0, 10.0);
    QCOMPARE(reader.tree->value(), 2.0);
    {
        const EvaluationTime inner(3.0, 10.0);
        QCOMPARE(reader.tree->value(), 3.0);
    }
    QCOMPARE(reader.tree->value(), 2.0);
    outer.set(4.0, 10.0);
    QCOMPARE(reader.tree->value(), 4.0);
}

void TestCurveVariable::anEditIsSeenByTheNextEvaluation()
{
    CurveWithVariable curve("c");
    curve.spline.addPoint(0.0, 5.0);
    QCOMPARE(valueOf("n.c", 1.0), 5.0);
    curve.spline.setPos(curve.spline.at(0), 6.0);
    QCOMPARE(valueOf("n.c", 1.0), 6.0);
}

void TestCurveVariable::renamingMovesTheVariable()
{
    CurveWithVariable curve("c");
    curve.spline.addPoint(0.0, 5.0);
    curve.record.dotName = "n.d";
    curve.variable->rename();
    QCOMPARE(valueOf("n.d", 1.0), 5.0);
    QCOMPARE(ParsedExpression("n.c").message.errorKind, 1);
}

void TestCurveVariable::aCurveThatGoesReadsZeroAndReadsAgainWhenItComesBack()
{
    auto curve = std::make_unique<CurveWithVariable>("c");
    curve->spline.addPoint(0.0, 5.0);
    const ParsedExpression reader("n.c+1");
    QCOMPARE(reader.tree->value(), 6.0);
    curve.reset();
    QCOMPARE(reader.tree->value(), 1.0);
    CurveWithVariable again("c");
    again.spline.addPoint(0.0, 7.0);
    QCOMPARE(reader.tree->value(), 8.0);
}

void TestCurveVariable::aDestroyedSplineReadsAsZero()
{
    CurveWithVariable curve("c");
    {
        SplineBase shortLived;
        shortLived.addPoint(0.0, 5.0);
        curve.record.setSpline(&shortLived);
        QCOMPARE(valueOf("n.c", 1.0), 5.0);
        curve.setExpression("8");
    }
    QCOMPARE(valueOf("n.c", 1.0), 0.0);
}

QTEST_GUILESS_MAIN(TestCurveVariable)
#include "test_curve_variable.moc"
