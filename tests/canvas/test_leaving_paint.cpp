#include "curves/CurveHold.h"
#include "support/CanvasTest.h"
#include "support/Intruder.h"

#include <QPainter>
#include <QPointer>
#include <QTest>

/// Curve objects that leave the canvas between two paints, or during one.
class TestLeavingPaint : public CanvasTest
{
    Q_OBJECT

private slots:
    void init() { openCanvas(); }
    void cleanup() { closeCanvas(); }

    void pixelsGoAsTheCurveLeavesAndComeBackWithIt();
    void aRefreshFunctionMayRemoveTheCurveThatIsBeingPainted_data();
    void aRefreshFunctionMayRemoveTheCurveThatIsBeingPainted();
    void aRefreshFunctionMayAddCurvesDuringAPaint();

private:
    /// Shows the widget and samples the curves, as its paint does.
    void paint()
    {
        widget->show();
        QImage image(500, 400, QImage::Format_RGB32);
        QPainter painter(&image);
        canvas->paint(&painter);
    }

    static int pixelsOf(CurveNode* curve)
    {
        const SplineCurveGraph& graph = *curve->splineGraph();
        return static_cast<int>(graph.keyPixels.capacity() + graph.curvePixels.capacity() +
                                graph.tailPixels.capacity() + graph.rawPixels.capacity());
    }
};

void TestLeavingPaint::pixelsGoAsTheCurveLeavesAndComeBackWithIt()
{
    CurveNode* const curve = add("n.a");
    const CurveHold kept(curve);
    hosts["n.a"]->spline.addPoint(0.0, 1.0);
    hosts["n.a"]->spline.addPoint(1.0, 2.0);
    canvas->selectCurves({"n.a"});
    paint();
    const QPolygon drawn = curve->splineGraph()->curvePixels;
    QVERIFY(!drawn.isEmpty());
    canvas->removeCanvasCurve("n.a");
    QCOMPARE(pixelsOf(curve), 0);
    canvas->attachCanvasCurve(curve);
    canvas->selectCurves({"n.a"});
    paint();
    QCOMPARE(curve->splineGraph()->curvePixels, drawn);
}

void TestLeavingPaint::aRefreshFunctionMayRemoveTheCurveThatIsBeingPainted_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("removed");
    QTest::newRow("an expression, itself") << int(expressionCurve) << "n.a";
    QTest::newRow("a sum, itself") << int(splinePlusExpressionCurve) << "n.a";
    QTest::newRow("an expression, its group") << int(expressionCurve) << "n";
    QTest::newRow("a sum, its group") << int(splinePlusExpressionCurve) << "n";
    QTest::newRow("the one before") << int(expressionCurve) << "m.a";
    QTest::newRow("the one behind") << int(expressionCurve) << "n.b";
    QTest::newRow("all of them") << int(expressionCurve) << "";
}

void TestLeavingPaint::aRefreshFunctionMayRemoveTheCurveThatIsBeingPainted()
{
    QFETCH(int, type);
    QFETCH(QString, removed);
    Intruder intruder([&] {
        if (removed.isEmpty()) {
            canvas->clearCurves();
        } else {
            canvas->removeCanvasCurve(removed);
        }
    });
    add("m.a");
    const QPointer<CurveNodeBase> curve =
        dynamic_cast<CurveNodeBase*>(addOfType("n.a", type, "intruder*2"));
    add("n.b");
    hosts["n.a"]->spline.addPoint(0.0, 1.0);
    hosts["n.a"]->spline.addPoint(1.0, 2.0);
    canvas->selectCurves({"m", "n"});
    paint();
    QVERIFY(intruder.hasActed());
    canvas->selectCurves({});
    QVERIFY(removed == "m.a" || removed == "n.b" ? !curve.isNull() : curve.isNull());
    paint();
}

void TestLeavingPaint::aRefreshFunctionMayAddCurvesDuringAPaint()
{
    Intruder intruder([&] {
        for (int i = 0; i < 100; ++i) {
            add(QStringLiteral("n.%1").arg(i));
            add(QStringLiteral("top%1").arg(i));
        }
    });
    addOfType("n.a", expressionCurve, "intruder*2");
    add("n.b");
    canvas->selectCurves({"n"});
    paint();
    QVERIFY(intruder.hasActed());
    QVERIFY(canvas->findCurve("top99"));
    paint();
}

QTEST_MAIN(TestLeavingPaint)
#include "test_leaving_paint.moc"
