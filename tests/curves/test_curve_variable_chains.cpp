#include "curves/CurveWithVariable.h"
#include "support/FailOnWarning.h"
#include "support/ParsedExpression.h"

#include <QTest>

#include <cmath>
#include <deque>

namespace {

QString numbered(const int& number)
{
    return QString("c%1").arg(number);
}

} // namespace

class TestCurveVariableChains : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void theMentionThatClosesACycleReadsZero();
    void aLongCycleEnds();
    void aCycleReachedFromALongChainEnds();
    void aChainOfTenThousandCurves();
    void aChainOfTenThousandSplinesPlusExpressions();
    void aChainOfDeeplyNestedExpressions();
    void aDiamondOfFortyLevels();
    void aDiamondOfTwoHundredLevels();
    void aDiamondAtATimeThatIsNotANumber();
};

void TestCurveVariableChains::theMentionThatClosesACycleReadsZero()
{
    CurveWithVariable a("a");
    CurveWithVariable b("b");
    a.setExpression("n.b+1");
    b.setExpression("n.a*10");
    const ParsedExpression reader("n.a");
    QCOMPARE(reader.tree->value(), 1.0);
    QCOMPARE(reader.tree->value(), 1.0);
    a.setExpression("n.a+1");
    QCOMPARE(reader.tree->value(), 1.0);
}

void TestCurveVariableChains::aLongCycleEnds()
{
    std::deque<CurveWithVariable> curves;
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
    QCOMPARE(reader.tree->value(), double(count));
    QCOMPARE(valueOf("n.c777", 0.0), double(count));
}

void TestCurveVariableChains::aCycleReachedFromALongChainEnds()
{
    std::deque<CurveWithVariable> curves;
    const int count = 500;
    for (int i = 0; i < count; ++i) {
        curves.emplace_back(numbered(i));
        const QString text = QString("n.c%1+1").arg(i - 1);
        curves.back().setExpression(i > 0 ? text.toStdString() : "0");
    }
    curves.front().setExpression("n.c1");
    const ParsedExpression reader("n.c499");
    QCOMPARE(reader.tree->value(), 499.0);
    QCOMPARE(reader.tree->value(), 499.0);
}

void TestCurveVariableChains::aChainOfTenThousandCurves()
{
    std::deque<CurveWithVariable> curves;
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

void TestCurveVariableChains::aChainOfTenThousandSplinesPlusExpressions()
{
    std::deque<CurveWithVariable> curves;
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

void TestCurveVariableChains::aChainOfDeeplyNestedExpressions()
{
    std::deque<CurveWithVariable> curves;
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

void TestCurveVariableChains::aDiamondOfFortyLevels()
{
    std::deque<CurveWithVariable> curves;
    for (int i = 0; i < 40; ++i) {
        curves.emplace_back(numbered(i));
        const QString text = QString("n.c%1+n.c%1").arg(i - 1);
        curves.back().setExpression(i > 0 ? text.toStdString() : "t");
    }
    QCOMPARE(valueOf("n.c39", 1.0), std::pow(2.0, 39.0));
}

void TestCurveVariableChains::aDiamondOfTwoHundredLevels()
{
    std::deque<CurveWithVariable> curves;
    for (int i = 0; i < 200; ++i) {
        curves.emplace_back(numbered(i));
        const QString text = QString("(n.c%1+n.c%1)/2").arg(i - 1);
        curves.back().setExpression(i > 0 ? text.toStdString() : "t");
    }
    QCOMPARE(valueOf("n.c199", 3.0), 3.0);
}

void TestCurveVariableChains::aDiamondAtATimeThatIsNotANumber()
{
    std::deque<CurveWithVariable> curves;
    for (int i = 0; i < 200; ++i) {
        curves.emplace_back(numbered(i));
        const QString text = QString("n.c%1+n.c%1").arg(i - 1);
        curves.back().setExpression(i > 0 ? text.toStdString() : "t");
    }
    QVERIFY(std::isnan(valueOf("n.c199", std::nan(""))));
}

QTEST_GUILESS_MAIN(TestCurveVariableChains)
#include "test_curve_variable_chains.moc"
