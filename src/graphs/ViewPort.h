#pragma once

#include <QPoint>
#include <QRect>

class QMouseEvent;

/// The visible part of the curves, seconds across and value up, and its size in pixels. A plain
/// record whose fields others write; all pixels come from truncation toward zero.
class ViewPort
{
public:
    int viewWidth = 0;  ///< pixels
    int viewHeight = 0; ///< pixels
    int anchorX = 0;    ///< the pixel that a zoom keeps in place
    int anchorY = 0;
    bool showFrames = true;  ///< the x axis and x read-outs are in frames
    bool showLabels = false; ///< value labels at the selected keys in this paint
    double fps = 10.0;       ///< frames per second
    int frameDigits = 1;     ///< digits of fps, written by setFps
    double timeLine = 0.0;   ///< seconds
    double minX = -1.0;      ///< left edge, seconds
    double maxX = 200.0;
    double minY = -1.0; ///< bottom edge, value
    double maxY = 1.0;
    /// The candidate rectangle. While it is dragged its corners may be the wrong way round.
    double newMinX = -1.0;
    double newMaxY = -1.0;
    double newMaxX = 200.0;
    double newMinY = 1.0;
    double minRectFraction = static_cast<double>(0.05f); ///< smallest rectangle, share of the view
    bool rectValid = false;                              ///< the candidate passed the last check
    bool rectActive = false; ///< a rectangle is being dragged or checked
    bool canvasDirty = true; ///< grid, background and curves must be rebuilt; never cleared
    bool rubberDrag = false; ///< left-button rectangle drag
    bool panDrag = false;    ///< pan drag
    bool zoomDrag = false;   ///< continuous zoom drag
    bool viewDrag = false;   ///< the drag belongs to the zoom tool
    bool selectDrag = false; ///< the rectangle drag was started, by whatever tool
    bool zoomMode = false;   ///< the editor is in mode ZOOMING
    int lastX = 0;           ///< mouse at the previous drag step
    int lastY = 0;

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

    /// Clears the five drag flags rubberDrag, panDrag, zoomDrag, viewDrag and selectDrag.
    void clearDrags();
    /// One notch or more of the mouse wheel at a pixel. A rectangle being dragged keeps its
    /// corners.
    void wheelTurn(const int& delta, const QPoint& cursor);
    void viewPress(QMouseEvent* event);
    void viewMove(QMouseEvent* event);

    /// Copies the view into the candidate rectangle.
    void candidateFromView();
    /// Moves the candidate so that the time line stands in its middle, and applies it.
    void centerTimeline();
    /// Back to the initial view, in frames mode. fps, time line and size are kept.
    void resetView();

private:
    void keepCandidateOf(const ViewPort& former);
};
