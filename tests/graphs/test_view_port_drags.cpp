#include "graphs/PlainView.h"
#include "support/FailOnWarning.h"

#include <QMouseEvent>

#include <cmath>

namespace {

void press(ViewPort& view, const Qt::MouseButton& button, const QPointF& at)
{
    QMouseEvent event(QEvent::MouseButtonPress, at, at, button, button, Qt::NoModifier);
    view.viewPress(&event);
}

void move(ViewPort& view, const QPointF& to)
{
    QMouseEvent event(QEvent::MouseMove, to, to, Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    view.viewMove(&event);
}

} // namespace

/// Pans, zooms and drags of the view by the mouse.
class TestViewPortDrags : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void panningKeepsTheSize()
    {
        ViewPort view = plainView();
        view.canvasDirty = false;
        view.panBy(40, 50);
        COMPARE_RANGE(view, 1.0, 11.0, -1.5, 0.5);
        QVERIFY(!view.rectActive);
        QVERIFY(!view.rectValid);
        QVERIFY(!view.canvasDirty);
    }

    void aViewBrokenByItsHostIsNotPanned()
    {
        ViewPort view = plainView();
        view.minX = notANumber;
        view.panBy(40, 50);
        QCOMPARE(view.minY, -1.0);
        view = plainView();
        view.maxX = view.minX;
        view.panBy(40, 50);
        COMPARE_RANGE(view, 0.0, 0.0, -1.0, 1.0);
    }

    void aDragAcrossTheWholeWidthChangesTheViewFivefold()
    {
        ViewPort view = plainView();
        view.anchorX = 100;
        view.anchorY = 100;
        view.zoomBy(-400, 0);
        QCOMPARE(view.maxX - view.minX, 50.0);
        QCOMPARE(view.maxY - view.minY, 2.0);
        QCOMPARE(view.pixelX(2.5 + 1e-9), 100);
        view.zoomBy(0, -200);
        QCOMPARE(view.maxY - view.minY, 0.4);
    }

    void aZoomBeyondAllNumbersIsRefused()
    {
        ViewPort view = plainView();
        view.zoomBy(-1000000, 1000000);
        COMPARE_RANGE(view, 0.0, 10.0, -1.0, 1.0);
    }

    void theWheelZoomsAroundTheCursor()
    {
        ViewPort view = plainView();
        view.canvasDirty = false;
        view.wheelTurn(120, QPoint(100, 50));
        QCOMPARE(view.maxX - view.minX, 10.0 * std::pow(5.0, -20.0 / 400.0));
        QCOMPARE(view.maxY - view.minY, 2.0 * std::pow(5.0, -20.0 / 200.0));
        QCOMPARE(view.timeAt(100), 2.5);
        QCOMPARE(view.valueAt(50), 0.5);
        QCOMPARE(view.anchorX, 100);
        QCOMPARE(view.lastY, 50);
        QVERIFY(view.canvasDirty);
    }

    void aWheelDeltaBelowANotchChangesNothing()
    {
        for (const int delta : {119, -119, 0}) {
            ViewPort view = plainView();
            view.minX = 0.1;
            view.wheelTurn(delta, QPoint(33, 44));
            COMPARE_RANGE(view, 0.1, 10.0, -1.0, 1.0);
        }
    }

    void aWheelDeltaOfMinus240IsTwoNotchesOutward()
    {
        ViewPort view = plainView();
        view.wheelTurn(-240, QPoint(0, 0));
        QCOMPARE(view.minX, 0.0);
        QCOMPARE(view.maxX, 10.0 * std::pow(5.0, 40.0 / 400.0));
        QCOMPARE(view.maxY, 1.0);
        QCOMPARE(view.minY, 1.0 - 2.0 * std::pow(5.0, 40.0 / 200.0));
    }

    void aLeftPressStartsARectangle()
    {
        ViewPort view = plainView();
        press(view, Qt::LeftButton, QPointF(100.9, 50.9));
        QVERIFY(view.rubberDrag);
        QVERIFY(view.selectDrag);
        QVERIFY(!view.viewDrag);
        QVERIFY(view.rectActive);
        QVERIFY(!view.rectValid);
        QCOMPARE(view.anchorX, 100);
        QCOMPARE(view.lastY, 50);
        move(view, QPointF(200.0, 150.0));
        QVERIFY(view.rectValid);
        QCOMPARE(view.rubberRect(), QRect(100, 50, 100, 100));
        COMPARE_RANGE(view, 0.0, 10.0, -1.0, 1.0);
    }

    void theOtherButtonsDragOnlyInZoomMode()
    {
        for (const Qt::MouseButton button : {Qt::MiddleButton, Qt::RightButton}) {
            ViewPort view = plainView();
            press(view, button, QPointF(100.0, 50.0));
            QVERIFY(!view.panDrag && !view.zoomDrag && !view.viewDrag && !view.rubberDrag);
            move(view, QPointF(200.0, 150.0));
            COMPARE_RANGE(view, 0.0, 10.0, -1.0, 1.0);
            QCOMPARE(view.lastX, 200);
            view.zoomMode = true;
            press(view, button, QPointF(100.0, 50.0));
            QCOMPARE(view.panDrag, button == Qt::MiddleButton);
            QCOMPARE(view.zoomDrag, button == Qt::RightButton);
            QVERIFY(view.viewDrag);
        }
    }

    void aZoomRectangleBelongsToTheZoomTool()
    {
        ViewPort view = plainView();
        view.zoomMode = true;
        press(view, Qt::LeftButton, QPointF(100.0, 50.0));
        QVERIFY(view.rubberDrag);
        QVERIFY(view.viewDrag);
    }

    void theCurvesFollowAPanningMouse()
    {
        ViewPort view = plainView();
        view.zoomMode = true;
        press(view, Qt::MiddleButton, QPointF(100.0, 50.0));
        const double time = view.timeAt(100);
        const double value = view.valueAt(50);
        move(view, QPointF(140.0, 70.0));
        QCOMPARE(view.timeAt(140), time);
        QCOMPARE(view.valueAt(70), value);
        move(view, QPointF(20.0, 30.0));
        QCOMPARE(view.timeAt(20), time);
        QCOMPARE(view.maxX - view.minX, 10.0);
    }

    void aZoomDragToTheRightOrUpWidensAroundThePress()
    {
        ViewPort view = plainView();
        view.zoomMode = true;
        press(view, Qt::RightButton, QPointF(100.0, 50.0));
        const double time = view.timeAt(100);
        move(view, QPointF(140.0, 30.0));
        QVERIFY(view.maxX - view.minX > 10.0);
        QVERIFY(view.maxY - view.minY > 2.0);
        QCOMPARE(view.timeAt(100), time);
        move(view, QPointF(20.0, 90.0));
        QVERIFY(view.maxX - view.minX < 10.0);
        QVERIFY(view.maxY - view.minY < 2.0);
        QCOMPARE(view.timeAt(100), time);
    }

    void clearingEndsTheFiveDrags()
    {
        ViewPort view;
        view.rubberDrag = view.panDrag = view.zoomDrag = view.viewDrag = view.selectDrag = true;
        view.zoomMode = true;
        view.clearDrags();
        QVERIFY(!view.rubberDrag && !view.panDrag && !view.zoomDrag && !view.viewDrag);
        QVERIFY(!view.selectDrag);
        QVERIFY(view.zoomMode);
    }
};

QTEST_GUILESS_MAIN(TestViewPortDrags)
#include "test_view_port_drags.moc"
