#include "curves/ManyCurves.h"
#include "support/FailOnWarning.h"
#include "support/ParsedExpression.h"

#include <QTest>

#include <cmath>

/// Curves that depend on each other: the mention that closes the ring reads 0.
class TestCurveRings : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void theSameTimeGivesTheSameValueAtEachEvaluation();
    void eachCurveOfARingHasItsValueWhateverWasAskedBefore();
    void aCurveThatMentionsItselfReadsZeroThere();
    void anEditOfOneCurveShowsInTheWholeRing();
    void aMentionThatIsNotReachedClosesNothing();
    void aCurveOutsideOfARingIsWorkedOutOnce();
    void ringsAboveRingsAreWorkedOutInNoTime();
    void aRingThroughAHostsVariableGivesTheSame();
    void aTimeThatIsNotANumberEndsToo();
};

void TestCurveRings::theSameTimeGivesTheSameValueAtEachEvaluation()
{
    Curves curves;
    addCurves(curves, 3);
    curves[0].setExpression("n.c1+1");
    curves[1].setExpression("n.c2*10+t");
    curves[2].setExpression("n.c0+5");
    for (int round = 0; round < 5; ++round) {
        QCOMPARE(valueOf("n.c0", 2.0), 53.0);
        QCOMPARE(valueOf("n.c0", 3.0), 54.0);
        QCOMPARE(valueOf("n.c1", 2.0), 62.0);
        QCOMPARE(valueOf("n.c2", 2.0), 8.0);
    }
}

void TestCurveRings::eachCurveOfARingHasItsValueWhateverWasAskedBefore()
{
    Curves curves;
    addCurves(curves, 2);
    curves[0].setExpression("n.c1+1");
    curves[1].setExpression("n.c0*10");
    // Alone 1 and 10.
    QCOMPARE(valueOf("n.c0", 0.0), 1.0);
    QCOMPARE(valueOf("n.c1", 0.0), 10.0);
    QCOMPARE(valueOf("n.c0+100*n.c1", 0.0), 1001.0);
    QCOMPARE(valueOf("n.c1*100+n.c0", 0.0), 1001.0);
    QCOMPARE(valueOf("n.c1*100+n.c0+n.c1*100+n.c0", 0.0), 2002.0);
}

void TestCurveRings::aCurveThatMentionsItselfReadsZeroThere()
{
    Curves curves;
    addCurves(curves, 1);
    curves[0].setExpression("n.c0+1");
    QCOMPARE(valueOf("n.c0", 0.0), 1.0);
    QCOMPARE(valueOf("n.c0+n.c0", 0.0), 2.0);
    curves[0].spline.addPoint(0.0, 5.0);
    curves[0].spline.setAddFunc(true);
    QCOMPARE(valueOf("n.c0", 0.0), 6.0);
    curves[0].record.minValue = 7.0f; // the mention reads 0 all the same
    QCOMPARE(valueOf("n.c0", 0.0), 7.0);
}

void TestCurveRings::anEditOfOneCurveShowsInTheWholeRing()
{
    Curves curves;
    addCurves(curves, 2);
    curves[0].setExpression("n.c1+1");
    curves[1].setExpression("n.c0+10");
    QCOMPARE(valueOf("n.c0", 0.0), 11.0);
    curves[1].setExpression("n.c0+20");
    QCOMPARE(valueOf("n.c0", 0.0), 21.0);
    curves[1].setExpression("30");
    QCOMPARE(valueOf("n.c0", 0.0), 31.0);
}

void TestCurveRings::aMentionThatIsNotReachedClosesNothing()
{
    Curves curves;
    addCurves(curves, 2);
    curves[0].setExpression("if(t<5,2,n.c1)");
    curves[1].setExpression("n.c0+1");
    QCOMPARE(valueOf("n.c0", 1.0), 2.0);
    QCOMPARE(valueOf("n.c1", 1.0), 3.0);
    QCOMPARE(valueOf("n.c0+n.c1", 1.0), 5.0);
    QCOMPARE(valueOf("n.c0", 9.0), 1.0);
    QCOMPARE(valueOf("n.c1", 9.0), 1.0);
}

void TestCurveRings::aCurveOutsideOfARingIsWorkedOutOnce()
{
    int evaluations = 0;
    const RefreshedVariable counter("counter", [&](double&) { ++evaluations; });
    Curves curves;
    addCurves(curves, 4);
    curves[0].setExpression("n.c1+n.c3");
    curves[1].setExpression("n.c0+n.c3");
    curves[2].setExpression("n.c0+n.c3");
    curves[3].setExpression("counter+1");
    QCOMPARE(valueOf("n.c2+n.c0+n.c1+n.c2", 0.0), 3.0 + 2.0 + 2.0 + 3.0);
    QCOMPARE(evaluations, 1);
}

void TestCurveRings::ringsAboveRingsAreWorkedOutInNoTime()
{
    Curves curves;
    const int rings = 200;
    addCurves(curves, 2 * rings);
    for (int i = 0; i < rings; ++i) {
        const std::string below =
            i > 0 ? nameOf(2 * i - 2) + "/2+" + nameOf(2 * i - 1) + "/2" : "1";
        curves[std::size_t(2 * i)].setExpression(nameOf(2 * i + 1) + "/4+" + below);
        curves[std::size_t(2 * i + 1)].setExpression(nameOf(2 * i) + "/4+" + below);
    }
    const double value = valueOf(nameOf(2 * rings - 1), 0.0);
    QVERIFY(value > 1.0);
    QCOMPARE(valueOf(nameOf(2 * rings - 1), 0.0), value);
}

void TestCurveRings::aRingThroughAHostsVariableGivesTheSame()
{
    Curves curves;
    addCurves(curves, 1);
    std::unique_ptr<ParsedExpression> read;
    const RefreshedVariable host("host.v",
                                 [&](double& value) { value = read->tree->value() + 1.0; });
    read = std::make_unique<ParsedExpression>("n.c0");
    curves[0].setExpression("host.v*10");
    for (int round = 0; round < 3; ++round) {
        QCOMPARE(valueOf("n.c0", 0.0), 10.0);
    }
}

void TestCurveRings::aTimeThatIsNotANumberEndsToo()
{
    Curves curves;
    addCurves(curves, 2);
    curves[0].setExpression("n.c1+1");
    curves[1].setExpression("n.c0+10");
    QCOMPARE(valueOf("n.c0", std::nan("")), 11.0);
}

QTEST_GUILESS_MAIN(TestCurveRings)
#include "test_curve_rings.moc"
