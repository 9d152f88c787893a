#include "canvas/FrameGrid.h"
#include "graphs/ViewPort.h"
#include "support/FailOnWarning.h"

#include <QImage>
#include <QPainter>
#include <QTest>
#include <QWidget>

#include <limits>

namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double infinite = std::numeric_limits<double>::infinity();

/// A view in seconds of 400 by 200 pixels.
ViewPort secondsView(const double& from, const double& to)
{
    ViewPort view;
    view.viewWidth = 400;
    view.viewHeight = 200;
    view.showFrames = false;
    view.minX = from;
    view.maxX = to;
    return view;
}

} // namespace

class TestFrameGrid : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        failOnUnexpectedWarning();
        widget.resize(400, 200);
    }

    void aNewGridIsWhiteAndHasNoLines()
    {
        const FrameGrid grid(&widget);
        QCOMPARE(grid.countX, 0);
        QCOMPARE(grid.countY, 0);
        QVERIFY(grid.lines.isEmpty());
        QCOMPARE(grid.linePen.color(), QColor(Qt::white));
        QCOMPARE(grid.linePen.widthF(), 1.0);
        QCOMPARE(grid.linePen.style(), Qt::SolidLine);
        QCOMPARE(grid.fontColor, QColor(Qt::white));
        QCOMPARE(grid.timeLineColor, QColor(220, 255, 255));
        QCOMPARE(grid.labelFont.family(), QStringLiteral("Arial"));
        QCOMPARE(grid.labelFont.pointSize(), 8);
        QCOMPARE(grid.labelFont.stretch(), 87);
        QVERIFY(!grid.labelFont.italic());
    }

    void theFirstViewHasLabelsFromMinus10To2000Frames()
    {
        ViewPort view = secondsView(-1.0, 200.0);
        view.showFrames = true;
        FrameGrid grid(&widget);
        grid.update(view);
        QCOMPARE(grid.stepX, 500.0);
        QCOMPARE(grid.snapStepX, 50.0);
        QCOMPARE(grid.firstX, 0.0);
        QCOMPARE(grid.countX, 5);
        QCOMPARE(grid.zeroIndexX, 0);
        QCOMPARE(grid.stepY, 0.5);
        QCOMPARE(grid.snapStepY, 0.5);
        QCOMPARE(grid.firstY, -1.0);
        QCOMPARE(grid.countY, 5);
        QCOMPARE(grid.zeroIndexY, 2);
    }

    void theStepIsAPowerOfTenHalvedUntilFiveLinesFit_data()
    {
        QTest::addColumn<double>("from");
        QTest::addColumn<double>("to");
        QTest::addColumn<double>("step");
        QTest::addColumn<int>("count");
        QTest::addColumn<int>("zeroIndex");
        QTest::newRow("0 to 100") << 0.0 << 100.0 << 25.0 << 5 << 0;
        QTest::newRow("10 to 110") << 10.0 << 110.0 << 12.5 << 8 << -1;
        QTest::newRow("0 to 10") << 0.0 << 10.0 << 2.5 << 5 << 0;
        QTest::newRow("-10 to 0") << -10.0 << 0.0 << 2.5 << 5 << -1;
        QTest::newRow("-50 to 50") << -50.0 << 50.0 << 25.0 << 5 << 2;
        QTest::newRow("0 to 99") << 0.0 << 99.0 << 10.0 << 10 << 0;
        QTest::newRow("0 to 0.001") << 0.0 << 0.001 << 0.00025 << 5 << 0;
        QTest::newRow("-1.2e300 to 1.2e300") << -1.2e300 << 1.2e300 << 5e299 << 5 << 2;
    }
    void theStepIsAPowerOfTenHalvedUntilFiveLinesFit()
    {
        QFETCH(double, from);
        QFETCH(double, to);
        QFETCH(double, step);
        QFETCH(int, count);
        QFETCH(int, zeroIndex);
        FrameGrid grid(&widget);
        grid.update(secondsView(from, to));
        QCOMPARE(grid.stepX, step);
        QCOMPARE(grid.snapStepX, step);
        QCOMPARE(grid.countX, count);
        QCOMPARE(grid.zeroIndexX, zeroIndex);
        QCOMPARE(grid.lines.size(), 2 * (grid.countX + grid.countY));
    }

    void theSameRuleHoldsForValues()
    {
        ViewPort view = secondsView(0.0, 1.0);
        view.minY = 10.0;
        view.maxY = 110.0;
        FrameGrid grid(&widget);
        grid.update(view);
        QCOMPARE(grid.stepY, 12.5);
        QCOMPARE(grid.countY, 8);
        QCOMPARE(grid.firstY, 12.5);
        QCOMPARE(grid.zeroIndexY, -1);
    }

    void verticalLinesComeBeforeHorizontalOnes()
    {
        FrameGrid grid(&widget);
        grid.update(secondsView(0.0, 10.0));
        QCOMPARE(grid.lines.at(0), QPoint(0, 0));
        QCOMPARE(grid.lines.at(1), QPoint(0, 200));
        QCOMPARE(grid.lines.at(2), QPoint(100, 0));
        QCOMPARE(grid.lines.at(2 * grid.countX), QPoint(0, 200));
        QCOMPARE(grid.lines.at(2 * grid.countX + 1), QPoint(400, 200));
        QCOMPARE(grid.lines.at(2 * grid.countX + 2), QPoint(0, 150));
    }

    void linesAreAsLongAsTheWidgetAndTheSizeIsThatOfTheView()
    {
        widget.resize(300, 100);
        FrameGrid grid(&widget);
        grid.update(secondsView(0.0, 10.0));
        QCOMPARE(grid.lines.at(3), QPoint(75, 100));
        QCOMPARE(grid.gridWidth, 400);
        QCOMPARE(grid.gridHeight, 200);
    }

    void theTimeLineIsInSecondsAlsoInFramesMode()
    {
        ViewPort view = secondsView(0.0, 10.0);
        view.showFrames = true;
        view.timeLine = 2.5;
        FrameGrid grid(&widget);
        grid.update(view);
        QCOMPARE(grid.timeLinePixel, 100);
        view.timeLine = infinite;
        grid.update(view);
        QCOMPARE(grid.timeLinePixel, (1 << 29) - 1);
    }

    void aRangeThatHasNoLinesLeavesAllButTheSizeAsItWas_data()
    {
        QTest::addColumn<double>("from");
        QTest::addColumn<double>("to");
        QTest::newRow("inverted") << 10.0 << 0.0;
        QTest::newRow("empty") << 10.0 << 10.0;
        QTest::newRow("NaN on the left") << notANumber << 10.0;
        QTest::newRow("NaN on the right") << 0.0 << notANumber;
        QTest::newRow("infinite on the left") << -infinite << 10.0;
        QTest::newRow("infinite on the right") << 0.0 << infinite;
        QTest::newRow("infinitely wide") << -1.7e308 << 1.7e308;
        QTest::newRow("so narrow that its step is 0") << 0.0 << 5e-324;
        QTest::newRow("one double wide") << 1e16 << 1e16 + 2.0;
    }
    void aRangeThatHasNoLinesLeavesAllButTheSizeAsItWas()
    {
        QFETCH(double, from);
        QFETCH(double, to);
        for (const bool onTimeAxis : {true, false}) {
            FrameGrid grid(&widget);
            ViewPort view = secondsView(0.0, 10.0);
            grid.update(view);
            const QPolygon lines = grid.lines;
            view.viewWidth = 500;
            (onTimeAxis ? view.minX : view.minY) = from;
            (onTimeAxis ? view.maxX : view.maxY) = to;
            grid.update(view);
            QCOMPARE(grid.gridWidth, 500);
            if (from < 1e16) {
                QCOMPARE(grid.lines, lines);
                QCOMPARE(grid.stepX, 2.5);
                QCOMPARE(grid.countX, 5);
            }
            QVERIFY(grid.lines.size() < 100);
        }
    }

    void noFramesPerSecondInFramesModeLeaveTheGridAsItWas()
    {
        for (const double& fps : {0.0, -10.0, notANumber}) {
            FrameGrid grid(&widget);
            ViewPort view = secondsView(0.0, 10.0);
            view.showFrames = true;
            view.fps = fps;
            grid.update(view);
            QCOMPARE(grid.countX, 0);
            QVERIFY(grid.lines.isEmpty());
            view.fps = 10.0;
            grid.update(view);
            const QPolygon lines = grid.lines;
            view.fps = fps;
            grid.update(view);
            QCOMPARE(grid.lines, lines);
            QCOMPARE(grid.snapStepX, 2.5);
        }
    }

    void manyViewsAllEndWithAFewLines()
    {
        FrameGrid grid(&widget);
        double from = -3.7;
        for (int exponent = -300; exponent <= 300; exponent += 7) {
            const double size = std::pow(10.0, exponent);
            for (const double& share : {0.9, 1.0, 1.0000001, 3.0, 9.99999}) {
                grid.update(secondsView(from * size, from * size + share * size));
                QVERIFY(grid.countX >= 5);
                QVERIFY(grid.countX <= 21);
            }
            from += 0.21;
        }
    }

    void aTimeLabelAtTheFarLeftIsLeftOutAndValueLabelsNever()
    {
        QImage image(400, 200, QImage::Format_RGB32);
        const auto isPainted = [&](const QRect& box) {
            for (int y = box.top(); y <= box.bottom(); ++y) {
                for (int x = box.left(); x <= box.right(); ++x) {
                    if (image.pixelColor(x, y) == Qt::red) {
                        return true;
                    }
                }
            }
            return false;
        };
        FrameGrid grid(&widget);
        grid.labelFont = QFont(QStringLiteral("Liberation Sans"), 8);
        grid.labelFont.setStyleStrategy(QFont::NoAntialias);
        grid.fontColor = Qt::red;
        ViewPort view = secondsView(0.0, 10.0);
        view.minY = -0.4;
        view.maxY = 2.0;
        const auto draw = [&] {
            image.fill(Qt::black);
            grid.update(view);
            QPainter painter(&image);
            grid.draw(&painter);
        };
        draw();
        QVERIFY(!isPainted(QRect(2, 186, 60, 12)));
        QVERIFY(isPainted(QRect(104, 186, 60, 12)));
        QVERIFY(isPainted(QRect(5, grid.lines.at(2 * grid.countX).y() - 14, 20, 12)));
        // The first line at pixel 8 has its label at 12: left out; at pixel 9 it stays.
        view.minX = -0.2;
        view.maxX = 9.8;
        draw();
        QCOMPARE(grid.lines.at(0).x(), 8);
        QVERIFY(!isPainted(QRect(11, 186, 40, 12)));
        view.minX = -0.225;
        view.maxX = 9.775;
        draw();
        QCOMPARE(grid.lines.at(0).x(), 9);
        QVERIFY(isPainted(QRect(12, 186, 40, 12)));
    }

    void theTimeLineIsDrawnOnlyOnTheGrid()
    {
        QImage image(400, 200, QImage::Format_RGB32);
        FrameGrid grid(&widget);
        grid.timeLineColor = Qt::green;
        grid.gridWidth = 400;
        grid.gridHeight = 200;
        const auto hasTimeLine = [&] {
            image.fill(Qt::black);
            QPainter painter(&image);
            grid.draw(&painter);
            painter.end();
            for (int x = 0; x < image.width(); ++x) {
                if (image.pixelColor(x, 100) == Qt::green) {
                    return true;
                }
            }
            return false;
        };
        grid.timeLinePixel = 200;
        QVERIFY(hasTimeLine());
        grid.timeLinePixel = 0;
        QVERIFY(hasTimeLine());
        grid.timeLinePixel = -1;
        QVERIFY(!hasTimeLine());
        grid.timeLinePixel = 401;
        QVERIFY(!hasTimeLine());
    }

    void labelsLeaveTheBackgroundModeOpaque()
    {
        QImage image(400, 200, QImage::Format_RGB32);
        QPainter painter(&image);
        FrameGrid grid(&widget);
        grid.draw(&painter);
        QCOMPARE(painter.backgroundMode(), Qt::OpaqueMode);
        QCOMPARE(painter.font().stretch(), 87);
    }

private:
    QWidget widget;
};

QTEST_MAIN(TestFrameGrid)
#include "test_frame_grid.moc"
