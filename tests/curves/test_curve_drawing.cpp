#include "curves/CurveNodeBaseTest.h"
#include "graphs/SplineCurveGraph.h"
#include "support/ParserKeys.h"

#include <QImage>
#include <QPainter>
#include <QTest>

class TestCurveDrawing : public CurveNodeBaseTest
{
    Q_OBJECT

private slots:
    void init() { openCurve(); }
    void cleanup() { closeCurve(); }

    void updatingClearsBothChangedFlags();
    void updatingDoesNothingWhileNothingChanged();
    void aCurveThatIsNotDrawnIsSampledWhenItBecomesActive();
    void drawingSamplesAnExpressionInFiveThousandSteps();
    void samplesBeyondTheLimitsAndNotANumberDrawAtALimit_data();
    void samplesBeyondTheLimitsAndNotANumberDrawAtALimit();
    void splinePlusExpressionWithAnEmptySlotDrawsNothing();
    void anInactiveCurveDrawsNothing();
    void antialiasingStaysOnAfterDrawing();
};

void TestCurveDrawing::updatingClearsBothChangedFlags()
{
    spline->addPoint(0.0, 2.0);
    curve->updateGraph(&view);
    QVERIFY(!curve->hasChanged());
    QVERIFY(!spline->hasChanged());
    curve->splineChanged();
    QVERIFY(curve->hasChanged());
    curve->updateGraph(&view);
    curve->markChanged();
    QVERIFY(curve->hasChanged());
}

void TestCurveDrawing::updatingDoesNothingWhileNothingChanged()
{
    spline->addPoint(1.0, 2.0);
    curve->updateGraph(&view);
    const QPolygon before = curve->splineGraph()->keyPixels;
    view.maxX = 20.0;
    curve->updateGraph(&view);
    QCOMPARE(curve->splineGraph()->keyPixels, before);
    view.canvasDirty = true;
    curve->updateGraph(&view);
    QVERIFY(curve->splineGraph()->keyPixels != before);
}

void TestCurveDrawing::aCurveThatIsNotDrawnIsSampledWhenItBecomesActive()
{
    spline->addPoint(1.0, 2.0);
    spline->addPoint(9.0, 2.0);
    QCOMPARE(paintedPixels(), 0);
    QVERIFY(!curve->hasChanged());
    QVERIFY(!spline->hasChanged());
    curve->setActive(true);
    QVERIFY(paintedPixels() > 0);
}

void TestCurveDrawing::drawingSamplesAnExpressionInFiveThousandSteps()
{
    // Every sample is counted by a variable that the expression reads.
    int samples = 0;
    double lastTime = -1.0;
    double counter = 0.0;
    FunctionParserBase::instance()->registerKey("counter", 3, &counter, [&] {
        ++samples;
        lastTime = keyValue("t");
    });
    setExpression("counter+t*0");
    curve->setActive(true);
    QVERIFY(paintedPixels() > 0);
    FunctionParserBase::instance()->unregisterKey("counter", &counter);
    QCOMPARE(samples, 5000);
    QCOMPARE(lastTime, 4999.0 * (10.0 / 5000.0)); // one step short of maxX
}

void TestCurveDrawing::samplesBeyondTheLimitsAndNotANumberDrawAtALimit_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("row");
    // The limits of 10 and -10 stand a quarter of the view from its top and bottom.
    QTest::newRow("above") << "1000" << 25;
    QTest::newRow("below") << "-1000" << 75;
    QTest::newRow("not a number") << "sqrt(-1)" << 25;
    QTest::newRow("infinite") << "1/0" << 25;
    QTest::newRow("minus infinite") << "-1/0" << 75;
}

void TestCurveDrawing::samplesBeyondTheLimitsAndNotANumberDrawAtALimit()
{
    QFETCH(QString, text);
    QFETCH(int, row);
    setExpression(text.toStdString());
    curve->setActive(true);
    QImage image(100, 100, QImage::Format_RGB32);
    image.fill(Qt::black);
    QPainter painter(&image);
    curve->draw(&view, &painter);
    painter.end();
    const auto isPainted = [&](const int& y) {
        return image.pixelColor(50, y) != QColor(Qt::black);
    };
    QVERIFY(isPainted(row - 1) || isPainted(row) || isPainted(row + 1));
    QVERIFY(!isPainted(row - 5) && !isPainted(row + 5) && !isPainted(0) && !isPainted(99));
}

void TestCurveDrawing::splinePlusExpressionWithAnEmptySlotDrawsNothing()
{
    spline->addPoint(1.0, 2.0);
    spline->addPoint(9.0, 2.0);
    curve->setActive(true);
    QVERIFY(paintedPixels() > 0);
    curve->setAddFunc(true);
    QCOMPARE(paintedPixels(), 0);
    setExpression("1");
    QVERIFY(paintedPixels() > 0);
}

void TestCurveDrawing::anInactiveCurveDrawsNothing()
{
    setExpression("1");
    QCOMPARE(paintedPixels(), 0);
    curve->setActive(true);
    QVERIFY(paintedPixels() > 0);
    curve->setActive(false);
    QCOMPARE(paintedPixels(), 0);
}

void TestCurveDrawing::antialiasingStaysOnAfterDrawing()
{
    QImage image(10, 10, QImage::Format_RGB32);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing, false);
    curve->draw(&view, &painter);
    QVERIFY(painter.renderHints().testFlag(QPainter::Antialiasing));
}

QTEST_MAIN(TestCurveDrawing)
#include "test_curve_drawing.moc"
