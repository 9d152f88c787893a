#pragma once

#include <QPointer>

class CanvasFunctionBase;

/// While a visit lasts, its canvas frees no curve object. Whoever goes on with curve objects after
/// strangers' code may have run opens one: a slot or a refresh function of the host, a box or a
/// menu may take any curve off the canvas.
class CanvasVisit
{
public:
    /// Null is passed over; the canvas may end during the visit.
    explicit CanvasVisit(CanvasFunctionBase* canvas);
    /// Of several visits at a time the last one to end frees what nobody names any more.
    ~CanvasVisit();
    CanvasVisit(const CanvasVisit&) = delete;
    CanvasVisit& operator=(const CanvasVisit&) = delete;

private:
    QPointer<CanvasFunctionBase> canvas;
};
