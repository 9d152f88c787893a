#include "core/SplineBase.h"
#include "curves/CurveNodeBase.h"
#include "curves/DetachedCurve.h"
#include "support/FailOnWarning.h"
#include "support/ParsedExpression.h"

#include <QTest>

using curve_editor::DetachedCurve;

class TestDetachedCurve : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void itIsItsModelWithoutKeysAndExpression();
    void itsExpressionGoesWithIt();
    void aSplineThatWasTakenOutlivesIt();

private:
    SplineBase spline;
    FunctionFloatBase* expression = nullptr;
    CurveNodeBase model{nullptr, "c",  "n.m", QColor(1, 2, 3), 4.0f, &spline, &expression,
                        -5.0f,   6.0f, false};
};

void TestDetachedCurve::itIsItsModelWithoutKeysAndExpression()
{
    spline.addPoint(1.0, 2.0);
    const ParsedExpression parsed("t*2");
    expression = parsed.tree.get();
    const DetachedCurve detached(model);
    CurveNodeBase& curve = *detached.curve();
    QCOMPARE(curve.name(), QString("c"));
    QCOMPARE(curve.path(), QString("n.m"));
    QCOMPARE(curve.curveColor(), QColor(1, 2, 3));
    QCOMPARE(curve.curveValue(), 4.0f);
    QCOMPARE(curve.minimumValue(), -5.0f);
    QCOMPARE(curve.maximumValue(), 6.0f);
    QCOMPARE(curve.notifiesHost(), false);
    QCOMPARE(curve.spline(), detached.spline());
    QCOMPARE(curve.spline()->getControlPointsNumber(), 0u);
    QVERIFY(curve.expressionSlot() && curve.expressionSlot() != &expression);
    QVERIFY(!curve.expression());
    QCOMPARE(spline.getControlPointsNumber(), 1u);
    expression = nullptr;
}

void TestDetachedCurve::itsExpressionGoesWithIt()
{
    const DetachedCurve detached(model);
    ParseMessage message;
    detached.curve()->setExpression(ParsedExpression("t").tree.release(), message);
    QVERIFY(detached.curve()->expression());
    QVERIFY(!expression);
}

void TestDetachedCurve::aSplineThatWasTakenOutlivesIt()
{
    std::unique_ptr<SplineBase> taken;
    {
        DetachedCurve detached(model);
        detached.spline()->addPoint(1.0, 2.0);
        taken = detached.takeSpline();
        QVERIFY(!detached.spline());
    }
    QCOMPARE(taken->at(0)->value, 2.0);
}

QTEST_MAIN(TestDetachedCurve)
#include "test_detached_curve.moc"
