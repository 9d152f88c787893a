#pragma once

#include "graphs/CandidateRect.h"
#include "graphs/TimeAxis.h"
#include "graphs/ViewDrags.h"
#include "graphs/ViewRange.h"

#include <QPoint>
#include <QRect>

class QMouseEvent;

/// The view on the curves, seconds across and value up, and its size in pixels. A plain record
/// whose fields others write; all pixels come from truncation toward zero.
class ViewPort : public curve_editor::ViewRange,
                 public curve_editor::CandidateRect,
                 public curve_editor::TimeAxis,
                 public curve_editor::ViewDrags
{
public:
    int viewWidth = 0;       ///< pixels
    int viewHeight = 0;      ///< pixels
    bool showLabels = false; ///< value labels at the selected keys in this paint
    bool thinsKeys = false;  ///< keys whose squares would overlap are points of the curve's colour
    bool canvasDirty = true; ///< grid, background and curves must be rebuilt; never cleared

    /// World of a pixel; a canvas without width or height gives minX and maxY.
    double timeAt(const double& pixelX) const;
    double valueAt(const double& pixelY) const;

    /// Pixel of a world point, truncated toward zero.
    int pixelX(const double& time) const;
    int pixelY(const double& value) const;

    /// Checks the candidate rectangle: sets rectValid and rectActive.
    void validateRect(const bool& checkSize);
    /// Makes a valid candidate the view; a refused one leaves it exactly as it was.
    void applyRect(const bool& checkSize);
    /// Moves the view by pixels, keeping its size.
    void panBy(const int& dx, const int& dy);
    /// Zooms by a drag of so many pixels around the anchor.
    void zoomBy(const int& dx, const int& dy);
    /// The candidate rectangle in pixels.
    QRect rubberRect() const;

    /// One notch or more of the mouse wheel at a pixel. A rectangle being dragged keeps its
    /// corners.
    void wheelTurn(const int& delta, const QPoint& cursor);
    /// Moves the view by pixels along its times; a rectangle being dragged keeps its corners.
    void slideBy(const int& dx);
    /// Shows a pixel's surroundings that many times as large. No number above 0: nothing.
    void magnify(const double& times, const QPoint& centre);

    /// @name Drags: of a rectangle, or with the zoom tool of the view itself
    /// @{
    /// Begins the one that belongs to the button.
    void viewPress(QMouseEvent* event);
    /// One step of it.
    void viewMove(QMouseEvent* event);
    /// Ends it: the rectangle of the zoom tool becomes the view. See clearDrags, too.
    void endDrag();
    /// @}

    /// Copies the view into the candidate rectangle.
    void candidateFromView();
    /// Moves the candidate so that the time line stands in its middle, and applies it.
    void centerTimeline();
    /// Back to the initial view, in frames mode. fps, time line and size are kept.
    void resetView();

private:
    void zoomAround(const double& factorX, const double& factorY);
    void keepCandidateOf(const ViewPort& former);
};
