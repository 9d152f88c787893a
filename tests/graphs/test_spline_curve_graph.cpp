#include "core/FunctionFloatBase.h"
#include "core/FunctionParserBase.h"
#include "core/KeyValue.h"
#include "core/ParseMessage.h"
#include "support/FailOnWarning.h"
#include "support/GraphFixture.h"

#include <QTest>

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>

namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double infinite = std::numeric_limits<double>::infinity();

std::unique_ptr<FunctionFloatBase> parsed(const char* text)
{
    ParseMessage message;
    return std::unique_ptr<FunctionFloatBase>(
        FunctionParserBase::instance()->parseString(text, message, false));
}

QList<QPointF> paintedPoints(const StrokeLine& line)
{
    QList<QPointF> points;
    for (qsizetype i = 0; i < line.pieceCount(); ++i) {
        for (qsizetype j = 0; j < line.pieceSize(i); ++j) {
            points << line.piece(i)[j];
        }
    }
    return points;
}

double variable(const char* name)
{
    return readKeyValue(FunctionParserBase::instance()->getKey(name));
}

} // namespace

class TestSplineCurveGraph : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void aCurveWithoutKeysKeepsTheSamplesOfItsLastOnes()
    {
        GraphFixture on;
        on.addKey(1.0, 0.5);
        on.addKey(2.0, 0.5);
        on.rebuild();
        const QPolygon curve = on.graph.curvePixels;
        const QPolygon tail = on.graph.tailPixels;
        const QPolygon raw = on.graph.rawPixels;
        QVERIFY(!curve.isEmpty() && !tail.isEmpty() && !raw.isEmpty());
        on.spline.removeAllControlPoints();
        on.rebuild();
        QVERIFY(on.graph.keyPixels.isEmpty());
        QCOMPARE(on.graph.curvePixels, curve);
        QCOMPARE(on.graph.tailPixels, tail);
        QCOMPARE(on.graph.rawPixels, raw);
        QVERIFY(isBlank(on.drawn([&](QPainter* painter) {
            on.graph.drawCurve(painter);
            on.graph.drawKeys(painter);
            on.graph.drawTangents(painter);
            on.graph.drawSelectedKeys(painter);
            on.graph.drawLabels(painter, 10.0, true, 2);
        })));
    }

    void aSingleKeyIsSampledOnceAndHasATail()
    {
        GraphFixture on;
        on.addKey(5.0, 0.5);
        on.rebuild();
        QCOMPARE(on.graph.keyPixels, QPolygon({QPoint(200, 50)}));
        QCOMPARE(on.graph.curvePixels, QPolygon({QPoint(200, 50)}));
        QCOMPARE(on.graph.rawPixels, QPolygon({QPoint(200, 50)}));
        QCOMPARE(on.graph.tailPixels.size(), 501);
        QCOMPARE(on.graph.tailPixels.first(), QPoint(200, 50));
    }

    void aViewLeftOfTheFirstKeyHasOneSampleOffTheRightAndNoTail()
    {
        GraphFixture on;
        on.addKey(20.0, 0.5);
        on.addKey(30.0, 0.5);
        on.rebuild();
        QCOMPARE(on.graph.curvePixels, QPolygon({QPoint(800, 50)}));
        QVERIFY(on.graph.tailPixels.isEmpty());
        QCOMPARE(on.graph.keyPixels, QPolygon({QPoint(500, 50), QPoint(500, 50)}));
    }

    void aViewRightOfTheLastKeyHasOneSampleAndATail()
    {
        GraphFixture on;
        on.addKey(-4.0, 0.5);
        on.addKey(-2.0, 0.5);
        on.rebuild();
        QCOMPARE(on.graph.curvePixels, QPolygon({QPoint(0, 50)}));
        QCOMPARE(on.graph.tailPixels.size(), 1201);
        QCOMPARE(on.graph.tailPixels.first(), QPoint(-80, 50));
    }

    void aThousandStepsMakeAViewWhateverItsWidth()
    {
        GraphFixture on;
        on.addKey(-5.0, 0.0);
        on.addKey(15.0, 0.0);
        on.rebuild();
        QCOMPARE(on.graph.curvePixels.size(), 1001);
        QCOMPARE(on.graph.rawPixels.size(), 1001);
        QVERIFY(on.graph.tailPixels.isEmpty());
        on.view.viewWidth = 40;
        on.rebuild();
        QCOMPARE(on.graph.curvePixels.size(), 1001);
        QCOMPARE(on.graph.curvePixels.last().x(), 40);
    }

    void theSamplesFollowTheSpline()
    {
        GraphFixture on;
        on.addKey(0.0, -1.0);
        on.addKey(10.0, 1.0);
        on.rebuild();
        for (int i = 0; i <= 1000; i += 100) {
            const QPoint sample = on.graph.curvePixels.at(i);
            QVERIFY(std::abs(sample.x() - i * 400 / 1000) <= 1);
            QVERIFY(std::abs(sample.y() - (200 - i * 200 / 1000)) <= 1);
        }
    }

    void valuesAreHeldToTheLimitsButRawOnesAreNot()
    {
        GraphFixture on;
        on.addKey(0.0, 0.9);
        on.addKey(10.0, 0.9);
        on.rebuild(-0.5f, 0.5f);
        QCOMPARE(on.graph.curvePixels.at(500).y(), 50);
        QCOMPARE(on.graph.rawPixels.at(500).y(), 9);
        QCOMPARE(on.graph.keyPixels.first().y(), 9);
    }

    void samplesOffTheCanvasStayJustOffIt()
    {
        GraphFixture on;
        on.addKey(0.0, 50.0);
        on.addKey(10.0, 50.0);
        on.rebuild();
        QCOMPARE(on.graph.curvePixels.at(500).y(), -1);
        QCOMPARE(on.graph.keyPixels.first(), QPoint(0, -100));
        on.rebuild(-1000.0f, -50.0f);
        QCOMPARE(on.graph.curvePixels.at(500).y(), 200);
        QCOMPARE(on.graph.rawPixels.at(500).y(), -1);
    }

    void keysFarOutsideStay100PixelsOffTheCanvas()
    {
        GraphFixture on;
        on.addKey(-1e300, 1e300);
        on.addKey(1e300, -1e300);
        on.rebuild();
        QCOMPARE(on.graph.keyPixels, QPolygon({QPoint(-100, -100), QPoint(500, 300)}));
    }

    void theTailEndsAtTheRightEdgeAndIsLimited()
    {
        GraphFixture on;
        on.addKey(0.0, 0.0);
        on.addKey(5.0, 0.5)->type = zk_spline::linear;
        on.spline.setLastNodeType(SplineBase::loopOffset);
        on.rebuild(-1000.0f, 0.75f);
        QCOMPARE(on.graph.tailPixels.size(), 501);
        QCOMPARE(on.graph.tailPixels.first().x(), 200);
        QVERIFY(on.graph.tailPixels.last().x() >= 399);
        QCOMPARE(on.graph.tailPixels.last().y(), 25);
    }

    void aTailFromFarAwayStartsAtTheView()
    {
        for (const double& last : {-1e9, -1e300}) {
            GraphFixture on;
            on.addKey(last, 0.5);
            on.rebuild();
            QCOMPARE(on.graph.tailPixels.first(), QPoint(0, 50));
            QCOMPARE(on.graph.tailPixels.size(), 1001);
        }
    }

    void aTailOfMoreSamplesThanANumberTellsIsEmpty()
    {
        for (const double& last : {-1.5e308, -infinite}) {
            GraphFixture on;
            on.addKey(last, 0.5);
            on.rebuild();
            QVERIFY(on.graph.tailPixels.isEmpty());
        }
    }

    void viewsAndKeysThatAreNotFiniteGiveFewSamples_data()
    {
        QTest::addColumn<double>("from");
        QTest::addColumn<double>("to");
        QTest::addColumn<double>("time");
        QTest::newRow("inverted view") << 10.0 << 0.0 << 5.0;
        QTest::newRow("empty view") << 5.0 << 5.0 << 4.0;
        QTest::newRow("view of NaN") << notANumber << notANumber << 5.0;
        QTest::newRow("NaN on the left") << notANumber << 10.0 << 5.0;
        QTest::newRow("NaN on the right") << 0.0 << notANumber << 5.0;
        QTest::newRow("endless view") << -infinite << infinite << 5.0;
        QTest::newRow("huge view") << -1.5e308 << 1.5e308 << 5.0;
        QTest::newRow("view of one double") << 0.0 << 5e-324 << 5.0;
        QTest::newRow("NaN key") << 0.0 << 10.0 << notANumber;
        QTest::newRow("infinite key") << 0.0 << 10.0 << infinite;
        QTest::newRow("key before all time") << 0.0 << 10.0 << -infinite;
    }
    void viewsAndKeysThatAreNotFiniteGiveFewSamples()
    {
        QFETCH(double, from);
        QFETCH(double, to);
        QFETCH(double, time);
        const auto expression = parsed("t");
        for (const bool single : {true, false}) {
            GraphFixture on;
            if (!single) {
                on.addKey(1.0, 0.0);
            }
            on.addKey(time, notANumber);
            on.view.minX = from;
            on.view.maxX = to;
            for (const bool withExpression : {true, false}) {
                if (withExpression) {
                    on.graph.rebuildSplineWithExpression(&on.view, -1.0f, 1.0f, expression.get());
                } else {
                    on.rebuild(-1.0f, 1.0f);
                }
                QVERIFY(!on.graph.curvePixels.isEmpty());
                QVERIFY(on.graph.curvePixels.size() <= 1002);
                QCOMPARE(on.graph.rawPixels.size(), on.graph.curvePixels.size());
                QVERIFY(on.graph.tailPixels.size() <= 10001);
                on.drawn([&](QPainter* painter) {
                    on.graph.drawCurve(painter);
                    on.graph.drawKeys(painter);
                });
            }
        }
    }

    void anExpressionIsAddedAtItsOwnTimeAndFrame()
    {
        GraphFixture on;
        on.addKey(0.0, 0.25);
        on.addKey(5.0, 0.25);
        const auto expression = parsed("if(f=t*10,t/20,100)");
        QVERIFY(expression);
        on.graph.rebuildSplineWithExpression(&on.view, -1000.0f, 1000.0f, expression.get());
        QCOMPARE(on.graph.curvePixels.size(), 501);
        QCOMPARE(on.graph.curvePixels.at(0).y(), 75);
        QVERIFY(std::abs(on.graph.curvePixels.at(400).y() - 55) <= 1);
        QCOMPARE(on.graph.rawPixels.at(400).y(), 75);
        QVERIFY(std::abs(on.graph.tailPixels.at(400).y() - 30) <= 1);
    }

    void theVariablesAreAsBeforeAfterSampling()
    {
        writeKeyValue(FunctionParserBase::instance()->getKey("t"), 7.0);
        writeKeyValue(FunctionParserBase::instance()->getKey("f"), 8.0);
        GraphFixture on;
        on.addKey(0.0, 0.25);
        on.addKey(5.0, 0.25);
        const auto expression = parsed("t+f");
        on.graph.rebuildSplineWithExpression(&on.view, -1000.0f, 1000.0f, expression.get());
        QCOMPARE(variable("t"), 7.0);
        QCOMPARE(variable("f"), 8.0);
        QCOMPARE(variable("fps"), 10.0);
    }

    void anUndefinedSumIsDrawnAtTheMaximumBetweenTheKeys()
    {
        GraphFixture on;
        on.addKey(0.0, 0.25);
        on.addKey(5.0, 0.25);
        const auto expression = parsed("log(-1)");
        QVERIFY(expression);
        on.graph.rebuildSplineWithExpression(&on.view, -0.5f, 0.5f, expression.get());
        QCOMPARE(on.graph.curvePixels.at(100).y(), 50);
        QCOMPARE(on.graph.rawPixels.at(100).y(), 75);
        // The tail does not ask whether the sum is a number.
        QCOMPARE(on.graph.tailPixels.at(100).y(), 0);
    }

    void withoutAnExpressionTheSplineAloneIsSampled()
    {
        GraphFixture on;
        on.addKey(0.0, 0.25);
        on.addKey(5.0, 0.25);
        on.graph.rebuildSplineWithExpression(&on.view, -1000.0f, 1000.0f, nullptr);
        QCOMPARE(on.graph.curvePixels.at(100).y(), 75);
        QCOMPARE(on.graph.tailPixels.at(100).y(), 75);
    }

    void aMarkOfOldPixelsLastsUntilTheNextRebuild()
    {
        GraphFixture on;
        QVERIFY(on.graph.arePixelsOld());
        on.addKey(0.0, 0.25);
        on.rebuild();
        QVERIFY(!on.graph.arePixelsOld());
        on.graph.markPixelsOld();
        QVERIFY(on.graph.arePixelsOld());
        on.graph.rebuildKeyPixels();
        QVERIFY(on.graph.arePixelsOld());
        on.rebuild();
        QVERIFY(!on.graph.arePixelsOld());
    }

    void whatIsPaintedGoesThroughEachKey()
    {
        GraphFixture on;
        for (int i = 0; i < 400; ++i) {
            on.addKey(0.0125 + i * 0.025, i % 2 == 0 ? -0.703 : 0.651);
        }
        on.rebuild();
        const QList<QPointF> points = paintedPoints(on.graph.course.limited);
        for (int i = 0; i < 400; ++i) {
            const QPointF place((0.0125 + i * 0.025) * 40.0,
                                (1.0 - (i % 2 == 0 ? -0.703 : 0.651)) * 100.0);
            QVERIFY(std::any_of(points.cbegin(), points.cend(), [&](const QPointF& point) {
                return (point - place).manhattanLength() < 1e-6;
            }));
        }
        QCOMPARE(points.last().x(), 9.9875 * 40.0);
    }

    void aStepAndAJumpBetweenEqualTimesArePaintedUpright()
    {
        GraphFixture on;
        on.addKey(1.0, 0.5, zk_spline::stepped);
        on.addKey(4.0, -0.5);
        on.addKey(4.0, 0.25);
        on.addKey(8.0, 0.25);
        on.rebuild();
        QCOMPARE(paintedPoints(on.graph.course.limited),
                 (QList<QPointF>{
                     {40.0, 50.0}, {160.0, 50.0}, {160.0, 150.0}, {160.0, 75.0}, {320.0, 75.0}}));
    }

    void whatLiesFarOffTheCanvasRunsAlongItsBorderAndKeepsItsSlopeInside()
    {
        GraphFixture on;
        on.addKey(0.0, -1e300);
        on.addKey(4.0, 0.0);
        on.addKey(6.0, 100.0);
        on.rebuild();
        const QList<QPointF> points = paintedPoints(
            on.graph.course.raw.isEmpty() ? on.graph.course.limited : on.graph.course.raw);
        for (const QPointF& point : points) {
            QVERIFY(point.y() >= -4.0 && point.y() <= 204.0);
        }
    }

    void theTailOfALoopReachesItsRepeatedKeys()
    {
        GraphFixture on;
        on.addKey(0.0, 0.0);
        on.addKey(0.011, 0.9);
        on.addKey(1.0, 0.0);
        on.spline.setLastNodeType(SplineBase::loop);
        on.rebuild();
        const QList<QPointF> points = paintedPoints(on.graph.course.tail);
        int peaks = 0;
        for (const QPointF& point : points) {
            peaks += std::abs(point.y() - 10.0) < 0.01 ? 1 : 0;
        }
        QVERIFY(peaks >= 9); // a sample of a pixel may meet one, too
        QCOMPARE(points.last().x(), 400.0);
    }

    void aDestroyedSplineIsNeitherSampledNorDrawnNorHit()
    {
        auto spline = std::make_unique<SplineBase>();
        spline->addPoint(1.0, 0.5);
        spline->addPoint(2.0, 0.5);
        ViewPort view = GraphFixture().view;
        SplineCurveGraph graph(spline.get(), &view);
        graph.rebuildSpline(&view, -1.0f, 1.0f);
        graph.selection().selectSinglePoint(spline->at(0));
        const QPoint key = graph.keyPixels.first();
        spline.reset();
        QImage image(400, 200, QImage::Format_RGB32);
        image.fill(Qt::black);
        QPainter painter(&image);
        graph.drawCurve(&painter);
        graph.drawKeys(&painter);
        graph.drawTangents(&painter);
        graph.drawSelectedKeys(&painter);
        graph.drawLabels(&painter, 10.0, true, 2);
        painter.end();
        QVERIFY(isBlank(image));
        QVERIFY(!graph.hitTest(key));
        QVERIFY(!graph.selectInRect(true, -10.0, 10.0, -10.0, 10.0));
        QCOMPARE(graph.rightHandlePos(key, 0, true), key);
        graph.rebuildSplineWithExpression(&view, -1.0f, 1.0f, nullptr);
        QVERIFY(graph.keyPixels.isEmpty());
    }

    void aGraphWithoutSplineOrViewDrawsAndHitsNothing()
    {
        SplineCurveGraph graph(nullptr, nullptr);
        graph.rebuildSpline(nullptr, -1.0f, 1.0f);
        QVERIFY(!graph.hitTest(QPoint(0, 0)));
        QVERIFY(!graph.selectInRect(false, -1.0, 1.0, -1.0, 1.0));
        SplineBase spline;
        spline.addPoint(0.0, 0.0);
        graph.setSpline(&spline);
        QVERIFY(!graph.hitTest(QPoint(0, 0)));
        QVERIFY(graph.keyPixels.isEmpty());
    }
};

QTEST_MAIN(TestSplineCurveGraph)
#include "test_spline_curve_graph.moc"
