#include "graphs/CanvasColors.h"
#include "graphs/ExpressionCurveGraph.h"
#include "support/FailOnWarning.h"
#include "support/GraphFixture.h"

#include <QTest>

#include <memory>

namespace {

const QColor main = Qt::green;
const QColor dim(0, 127, 0);
const QColor keyColor(10, 20, 30);
const QColor selectedColor(255, 0, 0);
const QColor controller(255, 255, 220);
const QColor broken(100, 255, 220);
const QColor picked(255, 0, 220);

int countIn(const QImage& image, const QRect& box, const QColor& color)
{
    return countOf(image.copy(box), color);
}

} // namespace

class TestSplineCurveGraphDrawing : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        failOnUnexpectedWarning();
        on = std::make_unique<GraphFixture>();
        CanvasColors::shared() = CanvasColors();
        CanvasColors::shared().controlPoint = keyColor;
    }

    void cleanup() { on.reset(); }

    void theSharedColoursStartAsTold()
    {
        const CanvasColors colors;
        QCOMPARE(colors.controlPoint, QColor(0, 0, 0));
        QCOMPARE(colors.controlPointSelected, QColor(255, 0, 0));
        QCOMPARE(colors.controller, QColor(255, 255, 220));
        QCOMPARE(colors.brokenController, QColor(100, 255, 220));
        QCOMPARE(colors.controllerSelected, QColor(255, 0, 220));
    }

    void theCurveIsSolidBetweenItsKeysAndDottedAround()
    {
        on->addKey(2.5, 0.0);
        on->addKey(7.5, 0.0);
        on->rebuild();
        const QImage image = drawnCurve();
        QCOMPARE(countIn(image, QRect(101, 100, 199, 1), main), 199);
        const int before = countIn(image, QRect(0, 100, 99, 1), main);
        QVERIFY(before > 30 && before < 70);
        const int after = countIn(image, QRect(302, 100, 98, 1), main);
        QVERIFY(after > 10 && after < 90);
        QCOMPARE(countIn(image, QRect(0, 0, 400, 99), main), 0);
    }

    void aBehaviourOfZeroDrawsTheLineBeforeAtZero()
    {
        on->addKey(2.5, 0.5);
        on->spline.setFirstNodeType(SplineBase::zero);
        on->rebuild();
        QVERIFY(countIn(drawnCurve(), QRect(0, 100, 99, 1), main) > 30);
        on->spline.setFirstNodeType(SplineBase::constant);
        QCOMPARE(countIn(drawnCurve(), QRect(0, 100, 99, 1), main), 0);
        QVERIFY(countIn(drawnCurve(), QRect(0, 50, 99, 1), main) > 30);
    }

    void aBehaviourOfTwoOrAboveDrawsNoLineBefore()
    {
        on->addKey(2.5, 0.5);
        for (const auto type :
             {SplineBase::loop, SplineBase::loopOffset, SplineBase::followTangent}) {
            on->spline.setFirstNodeType(type);
            on->rebuild();
            QCOMPARE(countIn(drawnCurve(), QRect(0, 0, 99, 200), main), 0);
        }
    }

    void aBehaviourOfZeroBehindTheLastKeyIsInTheTail()
    {
        on->addKey(2.5, 0.5);
        on->spline.setLastNodeType(SplineBase::zero);
        on->rebuild();
        QVERIFY(countIn(drawnCurve(), QRect(105, 100, 290, 1), main) > 50);
    }

    void theUnlimitedCourseIsDottedAndDimBehindTheLimitedOne()
    {
        on->addKey(0.0, 0.9);
        on->addKey(10.0, 0.9);
        on->rebuild(-0.5f, 0.5f);
        const QImage image = drawnCurve();
        QVERIFY(countIn(image, QRect(0, 9, 400, 1), dim) > 50);
        QCOMPARE(countIn(image, QRect(0, 9, 400, 1), main), 0);
        QVERIFY(countIn(image, QRect(0, 50, 400, 1), main) >= 399);
    }

    void keysAreSquaresOf5By5PixelsInTheirColour()
    {
        on->addKey(2.5, 0.0);
        on->addKey(5.0, 0.0);
        on->rebuild();
        on->graph.selection().selectSinglePoint(on->spline.at(1));
        QImage image = on->drawn([this](QPainter* painter) { on->graph.drawKeys(painter); });
        QCOMPARE(countOf(image, keyColor), 25);
        QCOMPARE(countIn(image, QRect(98, 98, 5, 5), keyColor), 25);
        image = on->drawn([this](QPainter* painter) { on->graph.drawSelectedKeys(painter); });
        QCOMPARE(countOf(image, selectedColor), 25);
        QCOMPARE(countIn(image, QRect(198, 98, 5, 5), selectedColor), 25);
    }

    void keysAtTheBorderAreDrawnAsFarAsTheyShow()
    {
        on->addKey(-0.05, 0.0);
        on->addKey(10.025, 0.0);
        on->rebuild();
        QCOMPARE(on->graph.keyPixels.first().x(), -2);
        QCOMPARE(on->graph.keyPixels.last().x(), 401);
        const QImage image = on->drawn([this](QPainter* painter) { on->graph.drawKeys(painter); });
        // The toolkit clips an outline without its last pixel.
        QVERIFY(countIn(image, QRect(0, 98, 1, 5), keyColor) >= 4);
        QVERIFY(countIn(image, QRect(399, 98, 1, 5), keyColor) >= 4);
    }

    void aCurrentKeyOutsideTheListCountsAsSelected()
    {
        on->addKey(2.5, 0.0);
        on->rebuild();
        on->graph.selection().currentPoint = on->spline.at(0);
        QVERIFY(isBlank(on->drawn([this](QPainter* painter) { on->graph.drawKeys(painter); })));
    }

    void aUnifiedKeyHasBothHandlesInOneColour()
    {
        addBeziers()->unifiedTangents = true;
        const QImage image = drawnTangents();
        QVERIFY(countIn(image, rightOfKey, controller) > 30);
        QVERIFY(countIn(image, leftOfKey, controller) > 30);
        QCOMPARE(countOf(image, broken), 0);
        QVERIFY(countIn(image, QRect(195, 0, 11, 95), selectedColor) > 30);
        QVERIFY(countIn(image, QRect(195, 105, 11, 95), selectedColor) > 30);
    }

    void theColourOfABrokenKeyIsThatOfItsRightHandleOnly()
    {
        addBeziers();
        const QImage image = drawnTangents();
        QVERIFY(countIn(image, rightOfKey, broken) > 30);
        QCOMPARE(countIn(image, leftOfKey, broken), 0);
        QVERIFY(countIn(image, leftOfKey, controller) > 30);
    }

    void theGrabbedHandlesAreInTheirOwnColour_data()
    {
        QTest::addColumn<int>("part");
        QTest::addColumn<bool>("unified");
        QTest::addColumn<bool>("left");
        QTest::addColumn<bool>("right");
        QTest::newRow("key") << 0 << false << false << false;
        QTest::newRow("line, broken") << 1 << false << true << true;
        QTest::newRow("left, broken") << 2 << false << true << false;
        QTest::newRow("right, broken") << 3 << false << false << true;
        QTest::newRow("key, unified") << 0 << true << false << false;
        QTest::newRow("left, unified") << 2 << true << true << true;
        QTest::newRow("right, unified") << 3 << true << true << true;
    }
    void theGrabbedHandlesAreInTheirOwnColour()
    {
        QFETCH(int, part);
        QFETCH(bool, unified);
        QFETCH(bool, left);
        QFETCH(bool, right);
        addBeziers()->unifiedTangents = unified;
        on->graph.selection().keyPart = part;
        const QImage image = drawnTangents();
        QCOMPARE(countIn(image, leftOfKey, picked) > 0, left);
        QCOMPARE(countIn(image, rightOfKey, picked) > 0, right);
    }

    void aTcbKeyHasBareLinesThatAreNeverPicked()
    {
        PointInfo* key = addBeziers();
        key->type = zk_spline::tcb;
        on->graph.selection().keyPart = ControlSplineNode::handleLine;
        const QImage image = drawnTangents();
        QCOMPARE(countOf(image, picked), 0);
        QVERIFY(countIn(image, rightOfKey, broken) > 20);
        QCOMPARE(countIn(image, QRect(210, 97, 60, 2), broken), 0);
    }

    void aRightHandleNeedsACurvedNextKeyAndALeftOneACurvedKey()
    {
        addBeziers()->type = zk_spline::linear;
        QImage image = drawnTangents();
        QVERIFY(countIn(image, rightOfKey, broken) > 30);
        QCOMPARE(countIn(image, leftOfKey, controller), 0);
        on->spline.at(1)->type = zk_spline::bezier;
        on->spline.at(2)->type = zk_spline::stepped;
        image = drawnTangents();
        QCOMPARE(countIn(image, rightOfKey, broken), 0);
        QVERIFY(countIn(image, leftOfKey, controller) > 30);
    }

    void theEndsOfACurveHaveNoOuterHandles()
    {
        addBeziers();
        on->graph.selection().selectSinglePoint(on->spline.at(0));
        QCOMPARE(countOf(drawnTangents(), controller), 0);
        on->graph.selection().selectSinglePoint(on->spline.at(2));
        QCOMPARE(countOf(drawnTangents(), broken), 0);
    }

    void aKeyOffTheCanvasHasNoGuidesAndNoHandles()
    {
        PointInfo* key = addBeziers();
        on->spline.setPos(key, 1.021);
        QVERIFY(isBlank(drawnTangents()));
        on->spline.setPos(key, 1.01);
        QVERIFY(!isBlank(drawnTangents()));
    }

    void labelsStandAtSelectedKeysAndLeaveThePainterAsItWas()
    {
        addBeziers();
        on->rebuild();
        QImage image = on->drawn([this](QPainter* painter) {
            painter->setFont(QFont(QStringLiteral("Liberation Sans"), 8));
            painter->setRenderHint(QPainter::Antialiasing);
            painter->setBackground(Qt::blue);
            painter->setBackgroundMode(Qt::OpaqueMode);
            on->graph.drawLabels(painter, 10.0, true, 2);
            QVERIFY(painter->testRenderHint(QPainter::Antialiasing));
            QCOMPARE(painter->background(), QBrush(Qt::blue));
        });
        QVERIFY(!isBlank(image.copy(QRect(200, 88, 100, 14))));
        QCOMPARE(countOf(image, Qt::blue), 0);
        on->graph.selection().clear();
        image =
            on->drawn([this](QPainter* painter) { on->graph.drawLabels(painter, 10.0, true, 2); });
        QVERIFY(isBlank(image));
    }

    void aNegativeNumberOfDecimalsCountsAsSixAndAHugeOneAsTheMostShown()
    {
        addBeziers();
        on->rebuild();
        const auto label = [this](const int& decimals) {
            return on->drawn(
                [&](QPainter* painter) { on->graph.drawLabels(painter, 10.0, true, decimals); });
        };
        QCOMPARE(label(-3), label(6));
        QCOMPARE(label(INT_MAX), label(99));
        QVERIFY(label(1) != label(0));
    }

    void anExpressionStartsRedAndIsAsThickAsASpline()
    {
        ExpressionCurveGraph graph;
        QVERIFY(!graph.isActive);
        QCOMPARE(graph.pen,
                 QPen(QBrush(Qt::red), 1.0, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));
        graph.setColors(main, dim);
        QCOMPARE(graph.pen.color(), main);
        QCOMPARE(graph.pen.widthF(), 1.0);
        QCOMPARE(graph.midColorPen.color(), dim);
        QCOMPARE(graph.midColorPen.widthF(), 1.0);
    }

    void theBoundsOfAnExpressionAreOnePixelLargerThanItsPoints()
    {
        ExpressionCurveGraph graph;
        QVERIFY(graph.pixelsAreOld);
        graph.setPolyline(QPolygon({QPoint(0, 50), QPoint(10, 20), QPoint(30, 40)}));
        QCOMPARE(graph.bounds,
                 QPolygon({QPoint(-1, 19), QPoint(31, 19), QPoint(31, 51), QPoint(-1, 51)}));
        QVERIFY(!graph.pixelsAreOld);
        const QImage image = on->drawn([&](QPainter* painter) { graph.draw(painter); });
        QCOMPARE(image.pixelColor(10, 20), QColor(Qt::red));
    }

    void aHundredThousandKeysAreDrawnAndHit()
    {
        for (int i = 0; i < 100000; ++i) {
            on->addKey(i * 0.01, 0.0);
        }
        on->rebuild();
        QList<PointInfo*> selected;
        for (unsigned i = 50000; i < 60000; ++i) {
            selected << on->spline.at(i);
        }
        on->graph.selection().selectPoints(selected);
        const QImage image = on->drawn([this](QPainter* painter) {
            on->graph.drawKeys(painter);
            on->graph.drawTangents(painter);
            on->graph.drawSelectedKeys(painter);
        });
        QVERIFY(countOf(image, keyColor) > 400);
        QCOMPARE(countOf(image, selectedColor), 0);
        QVERIFY(on->graph.selectInRect(true, 0.0, 1.0, -1.0, 1.0));
        QCOMPARE(on->graph.selection().selectedPoints.size(), 10099);
    }

private:
    /// Three flat Bezier keys, the middle one selected.
    PointInfo* addBeziers()
    {
        on->addBezier(0.0, 0.0, 0.0);
        PointInfo* key = on->addBezier(5.0, 0.0, 0.0);
        on->addBezier(10.0, 0.0, 0.0);
        on->graph.selection().selectSinglePoint(key);
        return key;
    }

    QImage drawnCurve()
    {
        return on->drawn([this](QPainter* painter) { on->graph.drawCurve(painter); });
    }

    QImage drawnTangents()
    {
        on->rebuild();
        return on->drawn([this](QPainter* painter) { on->graph.drawTangents(painter); });
    }

    const QRect leftOfKey{140, 90, 58, 20};
    const QRect rightOfKey{203, 90, 58, 20};
    std::unique_ptr<GraphFixture> on;
};

QTEST_MAIN(TestSplineCurveGraphDrawing)
#include "test_spline_curve_graph_drawing.moc"
