#include "core/EvaluationTime.h"
#include "core/KeyValue.h"
#include "core/SplineBase.h"
#include "curves/CurveVariable.h"
#include "curves/NodeStruct.h"
#include "support/FailOnWarning.h"
#include "support/ParsedExpression.h"

#include <QTest>

#include <cmath>
#include <deque>
#include <memory>

using curve_editor::CurveVariable;
using curve_editor::NodeStruct;

namespace {

/// A record with its variable, and what a host would lend for it.
class Curve
{
public:
    explicit Curve(const QString& name)
    {
        record.mainNodeName = "n";
        record.curveName = name;
        record.dotName = "n." + name;
        record.function = &expression;
        record.minValue = -1e30f;
        record.maxValue = 1e30f;
        record.setSpline(&spline);
        variable = std::make_unique<CurveVariable>(&record);
    }
    ~Curve()
    {
        variable.reset();
        delete expression;
    }
    Curve(const Curve&) = delete;
    Curve& operator=(const Curve&) = delete;

    void setExpression(const std::string& text)
    {
        ParsedExpression parsed(text);
        QCOMPARE(parsed.message.errorKind, 0);
        delete expression;
        expression = parsed.tree.release();
    }

    SplineBase spline;
    FunctionFloatBase* expression = nullptr;
    NodeStruct record;
    std::unique_ptr<CurveVariable> variable;
};

double valueOf(const std::string& text, const double& time, const double& fps = 10.0)
{
    const ParsedExpression parsed(text);
    const EvaluationTime moment(time, fps);
    return parsed.tree ? parsed.tree->value() : std::nan("");
}

double keyValue(const char* name)
{
    return readKeyValue(FunctionParserBase::instance()->getKey(name));
}

QString numbered(const int& number)
{
    return QString("c%1").arg(number);
}

} // namespace

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
    void aCycleGivesTheLastValue();
    void aLongCycleEnds();
    void aCycleReachedFromALongChainEnds();
    void aChainOfTenThousandCurves();
    void aChainOfTenThousandSplinesPlusExpressions();
    void aChainOfDeeplyNestedExpressions();
    void aDiamondOfFortyLevels();
    void aDiamondOfTwoHundredLevels();
    void aDiamondAtATimeThatIsNotANumber();
};

void TestCurveVariable::anExpressionReadsACurveByItsParserForm()
{
    Curve curve("My Curve");
    curve.spline.addPoint(0.0, 5.0);
    QCOMPARE(valueOf("n.my_curve*2", 1.0), 10.0);
    QCOMPARE(valueOf("N.My_Curve", 1.0), 5.0);
}

void TestCurveVariable::namesOutsideOfAsciiAreReadInTheLocalEncoding()
{
    Curve curve(QString::fromUtf8("h\xc3\xb6he"));
    curve.spline.addPoint(0.0, 5.0);
    QCOMPARE(valueOf(QString::fromUtf8("n.h\xc3\xb6he").toLocal8Bit().toStdString(), 1.0), 5.0);
}

void TestCurveVariable::aCurvesLimitsHold()
{
    Curve curve("c");
    curve.record.minValue = -1.0f;
    curve.record.maxValue = 1.0f;
    curve.setExpression("t");
    QCOMPARE(valueOf("n.c", 8.0), 1.0);
    QCOMPARE(valueOf("n.c", -8.0), -1.0);
    QCOMPARE(valueOf("n.c", 0.5), 0.5);
}

void TestCurveVariable::splinePlusExpressionIsReadAsTheirSum()
{
    Curve curve("c");
    curve.spline.addPoint(0.0, 5.0);
    curve.spline.setAddFunc(true);
    QCOMPARE(valueOf("n.c", 2.0), 5.0);
    curve.setExpression("t");
    QCOMPARE(valueOf("n.c", 2.0), 7.0);
}

void TestCurveVariable::aCurveWithoutSplineAndExpressionIsZero()
{
    Curve curve("c");
    curve.record.setSpline(nullptr);
    curve.record.function = nullptr;
    QCOMPARE(valueOf("n.c+1", 2.0), 1.0);
}

void TestCurveVariable::anExpressionThatReadsTheRateSeesTheOneThatIsSet()
{
    Curve curve("c");
    curve.setExpression("f+fps*1000");
    QCOMPARE(valueOf("n.c", 2.0, 25.0), 25050.0);
}

void TestCurveVariable::readingLeavesTimeFrameAndRateAsTheyWere()
{
    Curve curve("c");
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
    Curve curve("c");
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
    Curve curve("c");
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
    Curve curve("c");
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
    Curve curve("c");
    curve.spline.addPoint(0.0, 5.0);
    QCOMPARE(valueOf("n.c", 1.0), 5.0);
    curve.spline.setPos(curve.spline.at(0), 6.0);
    QCOMPARE(valueOf("n.c", 1.0), 6.0);
}

void TestCurveVariable::renamingMovesTheVariable()
{
    Curve curve("c");
    curve.spline.addPoint(0.0, 5.0);
    curve.record.dotName = "n.d";
    curve.variable->rename();
    QCOMPARE(valueOf("n.d", 1.0), 5.0);
    QCOMPARE(ParsedExpression("n.c").message.errorKind, 1);
}

void TestCurveVariable::aCurveThatGoesReadsZeroAndReadsAgainWhenItComesBack()
{
    auto curve = std::make_unique<Curve>("c");
    curve->spline.addPoint(0.0, 5.0);
    const ParsedExpression reader("n.c+1");
    QCOMPARE(reader.tree->value(), 6.0);
    curve.reset();
    QCOMPARE(reader.tree->value(), 1.0);
    Curve again("c");
    again.spline.addPoint(0.0, 7.0);
    QCOMPARE(reader.tree->value(), 8.0);
}

void TestCurveVariable::aDestroyedSplineReadsAsZero()
{
    Curve curve("c");
    {
        SplineBase shortLived;
        shortLived.addPoint(0.0, 5.0);
        curve.record.setSpline(&shortLived);
        QCOMPARE(valueOf("n.c", 1.0), 5.0);
        curve.setExpression("8");
    }
    QCOMPARE(valueOf("n.c", 1.0), 0.0);
}

void TestCurveVariable::aCycleGivesTheLastValue()
{
    Curve a("a");
    Curve b("b");
    a.setExpression("n.b+1");
    b.setExpression("n.a*10");
    const ParsedExpression reader("n.a");
    QCOMPARE(reader.tree->value(), 1.0);  // b read 0 of a
    QCOMPARE(reader.tree->value(), 11.0); // and now 1
    a.setExpression("n.a+1");
    QCOMPARE(reader.tree->value(), 12.0);
}

void TestCurveVariable::aLongCycleEnds()
{
    std::deque<Curve> curves;
    const int count = 2000;
    for (int i = 0; i < count; ++i) {
        curves.emplace_back(numbered(i));
    }
    for (int i = 0; i < count; ++i) {
        const QString next = numbered((i + 1) % count);
        curves[static_cast<std::size_t>(i)].setExpression("n." + next.toStdString() + "+1");
    }
    const ParsedExpression reader("n.c0");
    QCOMPARE(reader.tree->value(), double(count));
    QCOMPARE(reader.tree->value(), 2.0 * count);
}

void TestCurveVariable::aCycleReachedFromALongChainEnds()
{
    std::deque<Curve> curves;
    const int count = 500;
    for (int i = 0; i < count; ++i) {
        curves.emplace_back(numbered(i));
        const QString text = QString("n.c%1+1").arg(i - 1);
        curves.back().setExpression(i > 0 ? text.toStdString() : "0");
    }
    curves.front().setExpression("n.c1");
    const ParsedExpression reader("n.c499");
    QCOMPARE(reader.tree->value(), 499.0);
    QCOMPARE(reader.tree->value(), 500.0);
}

void TestCurveVariable::aChainOfTenThousandCurves()
{
    std::deque<Curve> curves;
    const int count = 10000;
    for (int i = 0; i < count; ++i) {
        curves.emplace_back(numbered(i));
        const QString text = QString("n.c%1+1").arg(i - 1);
        curves.back().setExpression(i > 0 ? text.toStdString() : "t");
    }
    QCOMPARE(valueOf("n.c9999", 3.0), 10002.0);
    QCOMPARE(valueOf("n.c9999", 4.0), 10003.0);
    QCOMPARE(valueOf("n.c5000", 4.0), 5004.0);
}

void TestCurveVariable::aChainOfTenThousandSplinesPlusExpressions()
{
    std::deque<Curve> curves;
    const int count = 10000;
    for (int i = 0; i < count; ++i) {
        curves.emplace_back(numbered(i));
        curves.back().spline.addPoint(0.0, 1.0);
        curves.back().spline.setAddFunc(true);
        const QString text = QString("n.c%1").arg(i - 1);
        curves.back().setExpression(i > 0 ? text.toStdString() : "f");
    }
    QCOMPARE(valueOf("n.c9999", 3.0), 10030.0);
}

void TestCurveVariable::aChainOfDeeplyNestedExpressions()
{
    std::deque<Curve> curves;
    const int count = 300;
    const int depth = 250;
    for (int i = 0; i < count; ++i) {
        curves.emplace_back(numbered(i));
        const QString inner = i > 0 ? QString("n.c%1").arg(i - 1) : QString("t");
        const QString text = QString("abs(").repeated(depth) + inner + QString(")").repeated(depth);
        curves.back().setExpression(text.toStdString());
    }
    QCOMPARE(valueOf("n.c299", -3.0), 3.0);
}

void TestCurveVariable::aDiamondOfFortyLevels()
{
    std::deque<Curve> curves;
    for (int i = 0; i < 40; ++i) {
        curves.emplace_back(numbered(i));
        const QString text = QString("n.c%1+n.c%1").arg(i - 1);
        curves.back().setExpression(i > 0 ? text.toStdString() : "t");
    }
    QCOMPARE(valueOf("n.c39", 1.0), std::pow(2.0, 39.0));
}

void TestCurveVariable::aDiamondOfTwoHundredLevels()
{
    std::deque<Curve> curves;
    for (int i = 0; i < 200; ++i) {
        curves.emplace_back(numbered(i));
        const QString text = QString("(n.c%1+n.c%1)/2").arg(i - 1);
        curves.back().setExpression(i > 0 ? text.toStdString() : "t");
    }
    QCOMPARE(valueOf("n.c199", 3.0), 3.0);
}

void TestCurveVariable::aDiamondAtATimeThatIsNotANumber()
{
    std::deque<Curve> curves;
    for (int i = 0; i < 200; ++i) {
        curves.emplace_back(numbered(i));
        const QString text = QString("n.c%1+n.c%1").arg(i - 1);
        curves.back().setExpression(i > 0 ? text.toStdString() : "t");
    }
    QVERIFY(std::isnan(valueOf("n.c199", std::nan(""))));
}

QTEST_GUILESS_MAIN(TestCurveVariable)
#include "test_curve_variable.moc"
