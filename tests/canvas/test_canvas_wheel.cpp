#include "support/EditorFixture.h"
#include "support/FailOnWarning.h"

#include <QNativeGestureEvent>
#include <QPointingDevice>
#include <QTest>

#include <cmath>
#include <memory>

/// Wheels of fine steps, touchpads and pinches.
class TestCanvasWheel : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        failOnUnexpectedWarning();
        on = std::make_unique<EditorFixture>();
    }

    void cleanup() { on.reset(); }

    void partsOfANotchAddUpToIt()
    {
        for (int i = 0; i < 7; ++i) {
            turn(QPoint(0, 15));
            QCOMPARE(width(), 50.0);
        }
        turn(QPoint(0, 15));
        QCOMPARE(width(), 50.0 * std::pow(5.0, -20.0 / 500.0));
    }

    void oneEventOfLessThanANotchDoesNothing()
    {
        turn(QPoint(0, 119));
        QCOMPARE(width(), 50.0);
    }

    void aTurnBackOrAnotherGestureBeginsAnew()
    {
        turn(QPoint(0, 100));
        turn(QPoint(0, -100));
        QCOMPARE(width(), 50.0);
        turn(QPoint(0, -100), Qt::ScrollBegin);
        QCOMPARE(width(), 50.0);
        turn(QPoint(0, -30));
        QVERIFY(width() > 50.0);
    }

    void aTurnSidewaysMovesTheViewAndKeepsItsSize()
    {
        turn(QPoint(120, 0));
        QCOMPARE(width(), 50.0);
        QCOMPARE(on->canvas().minX, -2.0);
        turn(QPoint(-240, 10));
        QCOMPARE(on->canvas().minX, 2.0);
        QCOMPARE(width(), 50.0);
    }

    void aTurnOfTheOtherAxisWithAltZooms()
    {
        turn(QPoint(120, 0), Qt::NoScrollPhase, Qt::AltModifier);
        QVERIFY(width() < 50.0);
    }

    void aPinchZoomsAroundThePointer()
    {
        const double before = on->canvas().timeAt(100.0);
        QNativeGestureEvent event(Qt::ZoomNativeGesture, QPointingDevice::primaryPointingDevice(),
                                  2, QPointF(100, 100), QPointF(100, 100), QPointF(100, 100), 0.25,
                                  QPointF());
        QCoreApplication::sendEvent(&on->canvas(), &event);
        QVERIFY(std::abs(width() - 40.0) < 1e-9);
        QVERIFY(std::abs(on->canvas().timeAt(100.0) - before) < 1e-9);
    }

private:
    double width() { return on->canvas().maxX - on->canvas().minX; }

    void turn(const QPoint& angle, Qt::ScrollPhase phase = Qt::NoScrollPhase,
              Qt::KeyboardModifiers held = Qt::NoModifier)
    {
        const QPointF place(250, 200);
        QWheelEvent event(place, on->canvas().mapToGlobal(place), QPoint(), angle, Qt::NoButton,
                          held, phase, false);
        QCoreApplication::sendEvent(&on->canvas(), &event);
    }

    std::unique_ptr<EditorFixture> on;
};

QTEST_MAIN(TestCanvasWheel)
#include "test_canvas_wheel.moc"
