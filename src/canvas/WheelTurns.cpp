#include "canvas/WheelTurns.h"

#include <QPoint>
#include <QWheelEvent>

#include <cmath>
#include <cstdlib>

namespace {

constexpr int notch = 120;
constexpr int pixelsPerNotch = 20;
// 120ths of a notch that a pixel of a touchpad stands for, where it tells nothing but pixels.
constexpr int turnPerPixel = notch / pixelsPerNotch;
// A plain wheel has no beginning and no end: after this pause it is another gesture.
constexpr unsigned long long pause = 500;

QPoint turnOf(const QWheelEvent& event)
{
    return event.angleDelta().isNull() ? event.pixelDelta() * turnPerPixel : event.angleDelta();
}

} // namespace

/// Whole units of the turn so far; the rest waits for more of the same gesture.
int WheelTurns::Sum::take(const int& turn, const int& unit, const QWheelEvent& event)
{
    const bool isNew = event.phase() == Qt::ScrollBegin || event.timestamp() > time + pause ||
                       (rest < 0) != (turn < 0);
    time = event.timestamp();
    rest = (isNew ? 0 : rest) + turn;
    const int whole = rest / unit * unit;
    rest -= whole;
    return whole;
}

bool WheelTurns::isSideways(const QWheelEvent& event)
{
    const QPoint turn = turnOf(event);
    return std::abs(turn.x()) > std::abs(turn.y()) && !event.modifiers().testFlag(Qt::AltModifier);
}

int WheelTurns::takeZoom(const QWheelEvent& event)
{
    const QPoint turn = turnOf(event);
    const int upward = turn.y() != 0 ? turn.y() : turn.x();
    return upward == 0 ? 0 : zoom.take(upward, notch, event);
}

int WheelTurns::takePan(const QWheelEvent& event)
{
    const int turn = turnOf(event).x();
    return turn == 0 ? 0 : pan.take(turn, turnPerPixel, event) / turnPerPixel;
}
