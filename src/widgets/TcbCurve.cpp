#include "widgets/TcbCurve.h"

#include "core/Truncate.h"

#include <QPainter>

namespace {

constexpr int side = 100;  // pixels
constexpr int padding = 2; // pixels between frame and curve
constexpr int lastStep = 30;
constexpr int markedStep = 15;
constexpr int markReach = 2; // pixels
constexpr unsigned shownKey = 2;
constexpr float heightShare = 0.7F; // leaves room for what overshoots

void drawMark(QPainter& painter, const QPoint& point)
{
    painter.setPen(Qt::darkRed);
    painter.drawLine(point - QPoint(markReach, 0), point + QPoint(markReach, 0));
    painter.drawLine(point + QPoint(0, markReach), point - QPoint(0, markReach));
}

} // namespace

TcbCurve::TcbCurve(QWidget* parent)
    : QFrame(parent)
{
    setFrameStyle(QFrame::Box | QFrame::Sunken);
    setLineWidth(2);
    setCursor(Qt::CrossCursor);
    resize(side, side);
    setMinimumSize(side, side);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    previewSpline.addPoint(0.0, 0.0);
    previewSpline.addPoint(0.5, 1.0);
    previewSpline.addPoint(1.0, 0.0);
}

void TcbCurve::showKey(const PointInfo& key)
{
    previewSpline.setTcb(shownKey, key.tcb);
    previewSpline.setBezier(shownKey, key.bezier);
    previewSpline.setInterpolationType(shownKey, key.type);
    update();
}

/// The mark stands at the middle key, although it is the last one that takes on the shown data,
/// and no line leads to it. The time grows by adding a step, rounding and all.
void TcbCurve::paintEvent(QPaintEvent* event)
{
    {
        QPainter painter(this);
        const int left = frameWidth() + padding;
        const int curveWidth = width() - 2 * left;
        const int curveHeight = height() - 2 * left;
        const int bottom = left + curveHeight;
        QPoint previous(left, bottom);
        double time = 0.0;
        for (int step = 0; step <= lastStep; ++step) {
            const double rise =
                previewSpline(time) * curveHeight * static_cast<double>(heightShare);
            const QPoint point(truncateToPixel(curveWidth * time + left),
                               truncateToPixel(bottom - rise));
            if (step == markedStep) {
                drawMark(painter, point);
            } else {
                painter.setPen(Qt::darkGray);
                painter.drawLine(previous, point);
            }
            previous = point;
            time += 1.0 / lastStep;
        }
    }
    QFrame::paintEvent(event);
}
