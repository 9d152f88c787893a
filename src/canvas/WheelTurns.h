#pragma once

class QPoint;
class QWheelEvent;

/// What wheels of fine steps and touchpads turn, until it is enough for a step: parts of a notch
/// add up as long as they go in one direction and belong to one gesture. Notches of a plain wheel
/// pass unchanged, and a single event of less than a notch does nothing.
class WheelTurns
{
public:
    /// Of notches upward, in 120ths: what the canvas is to be zoomed by now.
    int takeZoom(const QWheelEvent& event);
    /// Whether the event turns sideways. With Alt held some platforms deliver the upward turn so.
    static bool isSideways(const QWheelEvent& event);
    /// Logical pixels that the view moves to the left by; a notch is 20.
    int takePan(const QWheelEvent& event);

private:
    struct Sum
    {
        int rest = 0;
        unsigned long long time = 0; ///< of the last event, in milliseconds
        int take(const int& turn, const int& unit, const QWheelEvent& event);
    };

    Sum zoom;
    Sum pan;
};
