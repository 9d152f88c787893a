#include "graphs/PlainView.h"
#include "support/FailOnWarning.h"

/// Pixels and world, the rectangles that become the view, and its settings.
class TestViewPort : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void aNewViewShowsMinus1To200SecondsInFrames()
    {
        const ViewPort view;
        COMPARE_RANGE(view, -1.0, 200.0, -1.0, 1.0);
        QVERIFY(view.showFrames);
        QVERIFY(!view.showLabels);
        QVERIFY(view.canvasDirty);
        QCOMPARE(view.fps, 10.0);
        QCOMPARE(view.frameDigits, 1);
        QCOMPARE(view.newMaxY, -1.0);
        QCOMPARE(view.newMinY, 1.0);
        QCOMPARE(view.minRectFraction, 0.05000000074505806);
    }

    void pixelsAndWorldAreTheWrongWayUpOfOneAnother()
    {
        const ViewPort view = plainView();
        QCOMPARE(view.timeAt(0), 0.0);
        QCOMPARE(view.timeAt(100), 2.5);
        QCOMPARE(view.valueAt(0), 1.0);
        QCOMPARE(view.valueAt(150), -0.5);
        QCOMPARE(view.pixelX(2.5), 100);
        QCOMPARE(view.pixelY(-0.5), 150);
    }

    void pixelsAreCutTowardZeroAndNeverRounded()
    {
        const ViewPort view = plainView();
        QCOMPARE(view.pixelX(0.0249), 0);
        QCOMPARE(view.pixelX(-0.0249), 0);
        QCOMPARE(view.pixelX(0.0499), 1);
        QCOMPARE(view.pixelX(-0.0499), -1);
        QCOMPARE(view.pixelY(1.0 - 0.0199), 1);
        QCOMPARE(view.pixelY(1.0 + 0.0199), -1);
    }

    void pixelsOfEndlessAndUndefinedPointsAreInts()
    {
        ViewPort view = plainView();
        QCOMPARE(view.pixelX(notANumber), 0);
        QCOMPARE(view.pixelX(infinite), (1 << 29) - 1);
        QCOMPARE(view.pixelX(-1e300), 1 - (1 << 29));
        view.maxX = view.minX;
        QCOMPARE(view.pixelX(0.0), 0);
        QCOMPARE(view.pixelX(1.0), (1 << 29) - 1);
    }

    void aCanvasWithoutSizeMapsPixelsToMinXAndMaxY()
    {
        ViewPort view = plainView();
        view.viewWidth = 0;
        view.viewHeight = 0;
        QCOMPARE(view.timeAt(17), 0.0);
        QCOMPARE(view.valueAt(17), 1.0);
    }

    void aCanvasWithoutSizeIgnoresPanAndZoom()
    {
        for (const QSize& size : {QSize(0, 200), QSize(400, 0), QSize(0, 0)}) {
            ViewPort view = plainView();
            view.viewWidth = size.width();
            view.viewHeight = size.height();
            view.panBy(10, 10);
            view.zoomBy(10, 10);
            view.wheelTurn(240, QPoint(3, 3));
            COMPARE_RANGE(view, 0.0, 10.0, -1.0, 1.0);
            QVERIFY(!view.rectActive);
            QVERIFY(!view.rectValid);
        }
    }

    void aRectangleOfAtLeastATwentiethOfTheViewIsAccepted_data()
    {
        QTest::addColumn<double>("x2");
        QTest::addColumn<double>("y2");
        QTest::addColumn<bool>("accepted");
        QTest::newRow("large on both axes") << 2.0 << 0.5 << true;
        QTest::newRow("just large enough") << 0.5001 << 0.1001 << true;
        QTest::newRow("too narrow") << 0.4999 << 0.5 << false;
        QTest::newRow("too low") << 2.0 << 0.0999 << false;
        QTest::newRow("to the left and down") << -2.0 << -0.5 << true;
    }

    void aRectangleOfAtLeastATwentiethOfTheViewIsAccepted()
    {
        QFETCH(double, x2);
        QFETCH(double, y2);
        QFETCH(bool, accepted);
        ViewPort view = plainView();
        setCandidate(view, 0.0, x2, 0.0, y2);
        view.validateRect(true);
        QCOMPARE(view.rectValid, accepted);
        QVERIFY(view.rectActive);
    }

    void farToTheRightOrUpARectangleMayNotBeNarrowForItsPosition_data()
    {
        QTest::addColumn<double>("from");
        QTest::addColumn<double>("to");
        QTest::addColumn<bool>("accepted");
        QTest::newRow("1000 to 1000.1") << 1000.0 << 1000.1 << false;
        QTest::newRow("1000 to 1000.3") << 1000.0 << 1000.3 << true;
        QTest::newRow("-1000 to -999.9") << -1000.0 << -999.9 << true;
    }

    void farToTheRightOrUpARectangleMayNotBeNarrowForItsPosition()
    {
        QFETCH(double, from);
        QFETCH(double, to);
        QFETCH(bool, accepted);
        ViewPort view = plainView();
        view.minX = from;
        view.maxX = to;
        setCandidate(view, from, to, -1.0, 1.0);
        view.validateRect(true);
        QCOMPARE(view.rectValid, accepted);
        setCandidate(view, from, to, -1.0, 1.0);
        view.validateRect(false);
        QVERIFY(view.rectValid);
        // Up the same rule holds.
        view = plainView();
        view.minY = from;
        view.maxY = to;
        setCandidate(view, 0.0, 10.0, to, from);
        view.validateRect(true);
        QCOMPARE(view.rectValid, accepted);
    }

    void anEmptyRectangleIsRefusedWhateverIsChecked()
    {
        for (const bool checkSize : {false, true}) {
            ViewPort view = plainView();
            setCandidate(view, 1.0, 1.0, -1.0, 1.0);
            view.validateRect(checkSize);
            QVERIFY(!view.rectValid);
            setCandidate(view, 0.0, 10.0, 0.0, 1e-10);
            view.validateRect(checkSize);
            QVERIFY(!view.rectValid);
        }
    }

    void aRectangleThatIsNotFiniteIsRefused()
    {
        for (const double& bad : {notANumber, infinite, -infinite}) {
            ViewPort view = plainView();
            setCandidate(view, bad, 10.0, -1.0, 1.0);
            view.applyRect(false);
            setCandidate(view, 0.0, 10.0, -1.0, bad);
            view.applyRect(false);
            COMPARE_RANGE(view, 0.0, 10.0, -1.0, 1.0);
        }
        ViewPort view = plainView();
        setCandidate(view, -1.5e308, 1.5e308, -1.0, 1.0);
        view.applyRect(true);
        COMPARE_RANGE(view, 0.0, 10.0, -1.0, 1.0);
    }

    void applyingSortsTheCorners()
    {
        ViewPort view = plainView();
        view.canvasDirty = false;
        setCandidate(view, 8.0, 2.0, 0.5, -0.5);
        view.applyRect(true);
        COMPARE_RANGE(view, 2.0, 8.0, -0.5, 0.5);
        QVERIFY(view.canvasDirty);
        QVERIFY(!view.rectValid);
        QVERIFY(!view.rectActive);
    }

    void aRefusedRectangleLeavesTheViewAsItWas()
    {
        ViewPort view = plainView();
        view.canvasDirty = false;
        setCandidate(view, 2.0, 2.1, -0.5, 0.5);
        view.applyRect(true);
        COMPARE_RANGE(view, 0.0, 10.0, -1.0, 1.0);
        QVERIFY(!view.canvasDirty);
        QVERIFY(!view.rectActive);
    }

    void theRubberRectangleIsThatOfTheCandidate()
    {
        ViewPort view = plainView();
        setCandidate(view, 5.0, 2.5, 0.5, -0.5);
        QCOMPARE(view.rubberRect(), QRect(100, 50, 100, 100));
        QCOMPARE(view.rubberRect().bottomRight(), QPoint(199, 149));
    }

    void theRubberRectangleOfABrokenViewIsARectangleOfInts()
    {
        ViewPort view = plainView();
        setCandidate(view, notANumber, 1e300, -infinite, infinite);
        view.maxX = view.minX;
        QVERIFY(view.rubberRect().width() <= (1 << 29));
    }

    void centringPutsTheTimeLineInTheMiddle()
    {
        ViewPort view = plainView();
        view.timeLine = 50.0;
        view.canvasDirty = false;
        view.centerTimeline();
        COMPARE_RANGE(view, 45.0, 55.0, -1.0, 1.0);
        QVERIFY(view.canvasDirty);
        view.timeLine = notANumber;
        view.centerTimeline();
        COMPARE_RANGE(view, 45.0, 55.0, -1.0, 1.0);
    }

    void resettingRestoresTheViewAndKeepsTheClockAndTheSize()
    {
        ViewPort view = plainView();
        view.fps = 25.0;
        view.timeLine = 3.0;
        view.showFrames = false;
        view.minRectFraction = 0.5;
        view.rectValid = view.rectActive = view.zoomMode = view.rubberDrag = true;
        view.canvasDirty = false;
        setCandidate(view, 3.0, 4.0, 5.0, 6.0);
        view.resetView();
        COMPARE_RANGE(view, -1.0, 200.0, -1.0, 1.0);
        QVERIFY(view.showFrames);
        QCOMPARE(view.newMinX, -1.0);
        QCOMPARE(view.newMaxX, 200.0);
        QCOMPARE(view.newMaxY, -1.0);
        QCOMPARE(view.newMinY, 1.0);
        QCOMPARE(view.minRectFraction, 0.05000000074505806);
        QVERIFY(!view.rectValid && !view.rectActive && !view.zoomMode && !view.rubberDrag);
        QVERIFY(view.canvasDirty);
        QCOMPARE(view.fps, 25.0);
        QCOMPARE(view.timeLine, 3.0);
        QCOMPARE(view.viewWidth, 400);
    }
};

QTEST_GUILESS_MAIN(TestViewPort)
#include "test_view_port.moc"
