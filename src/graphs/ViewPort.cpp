#include "graphs/ViewPort.h"

#include "core/Truncate.h"
#include "graphs/MousePixel.h"

#include <QMouseEvent>

#include <algorithm>
#include <cmath>

namespace {

// Single precision, as the sizes are compared in.
constexpr double smallestSpan = static_cast<double>(1e-9f);
constexpr double smallestShareOfPosition = static_cast<double>(0.0001f);

constexpr double zoomBase = 5.0;
constexpr int wheelNotch = 120;
constexpr int pixelsPerNotch = 20;

bool areFinite(const double& a, const double& b, const double& c, const double& d)
{
    return std::isfinite(a) && std::isfinite(b) && std::isfinite(c) && std::isfinite(d);
}

} // namespace

double ViewPort::timeAt(const double& pixelX) const
{
    return viewWidth > 0 ? pixelX / viewWidth * (maxX - minX) + minX : minX;
}

double ViewPort::valueAt(const double& pixelY) const
{
    return viewHeight > 0 ? maxY - pixelY / viewHeight * (maxY - minY) : maxY;
}

int ViewPort::pixelX(const double& time) const
{
    return truncateToPixel((time - minX) * (viewWidth / (maxX - minX)));
}

int ViewPort::pixelY(const double& value) const
{
    return truncateToPixel((maxY - value) * (viewHeight / (maxY - minY)));
}

void ViewPort::validateRect(const bool& checkSize)
{
    rectValid = true;
    rectActive = true;
    const double spanX = std::fabs(newMaxX - newMinX);
    const double spanY = std::fabs(newMaxY - newMinY);
    if (checkSize) {
        if (minRectFraction * (maxX - minX) > spanX || minRectFraction * (maxY - minY) > spanY) {
            rectValid = false;
        }
        // The sums are signed: far on the negative side this never refuses anything.
        if ((newMinX + newMaxX) * smallestShareOfPosition > spanX ||
            (newMinY + newMaxY) * smallestShareOfPosition > spanY) {
            rectValid = false;
        }
    }
    if (spanX < smallestSpan || spanY < smallestSpan) {
        rectValid = false;
    }
    if (!areFinite(newMinX, newMaxX, newMinY, newMaxY) || !std::isfinite(spanX) ||
        !std::isfinite(spanY)) {
        rectValid = false;
    }
}

void ViewPort::applyRect(const bool& checkSize)
{
    validateRect(checkSize);
    if (rectValid) {
        minX = std::min(newMinX, newMaxX);
        maxX = std::max(newMinX, newMaxX);
        minY = std::min(newMaxY, newMinY);
        maxY = std::max(newMaxY, newMinY);
        rectValid = false;
        canvasDirty = true;
    }
    rectActive = false;
}

void ViewPort::panBy(const int& dx, const int& dy)
{
    if (viewWidth <= 0 || viewHeight <= 0) {
        return;
    }
    const double width = maxX - minX;
    const double height = maxY - minY;
    newMinY = minY - static_cast<double>(dy) / viewHeight * height;
    newMaxY = newMinY + height;
    newMinX = static_cast<double>(dx) / viewWidth * width + minX;
    newMaxX = newMinX + width;
    if (newMaxX - newMinX >= smallestSpan && newMaxY - newMinY >= smallestSpan &&
        areFinite(newMinX, newMaxX, newMinY, newMaxY)) {
        minX = newMinX;
        maxX = newMaxX;
        minY = newMinY;
        maxY = newMaxY;
    }
    rectValid = false;
    rectActive = false;
}

void ViewPort::zoomBy(const int& dx, const int& dy)
{
    if (viewWidth <= 0 || viewHeight <= 0) {
        return;
    }
    zoomAround(std::pow(zoomBase, -static_cast<double>(dx) / viewWidth),
               std::pow(zoomBase, static_cast<double>(dy) / viewHeight));
}

/// Around the anchor; a factor below 1 narrows the view.
void ViewPort::zoomAround(const double& factorX, const double& factorY)
{
    const double width = maxX - minX;
    const double height = maxY - minY;
    const double anchorTime = timeAt(anchorX);
    const double anchorValue = valueAt(anchorY);
    const double centreX = ((minX + maxX) / 2.0 - anchorTime) * factorX + anchorTime;
    const double centreY = ((minY + maxY) / 2.0 - anchorValue) * factorY + anchorValue;
    newMinX = centreX - factorX * width / 2.0;
    newMaxX = centreX + factorX * width / 2.0;
    newMinY = centreY - factorY * height / 2.0;
    newMaxY = centreY + factorY * height / 2.0;
    applyRect(true);
}

QRect ViewPort::rubberRect() const
{
    const double width = maxX - minX;
    const double height = maxY - minY;
    const double left = (std::min(newMinX, newMaxX) - minX) / width * viewWidth;
    const double top = (maxY - std::max(newMaxY, newMinY)) / height * viewHeight;
    const double acrossPixels = std::fabs(newMaxX - newMinX) / width * viewWidth;
    const double downPixels = std::fabs(newMaxY - newMinY) / height * viewHeight;
    return QRect(truncateToPixel(left), truncateToPixel(top), truncateToPixel(acrossPixels),
                 truncateToPixel(downPixels));
}

void ViewPort::wheelTurn(const int& delta, const QPoint& cursor)
{
    anchorX = lastX = cursor.x();
    anchorY = lastY = cursor.y();
    const int steps = delta / wheelNotch;
    if (steps != 0) {
        const ViewPort former = *this;
        zoomBy(pixelsPerNotch * steps, -pixelsPerNotch * steps);
        if (rubberDrag) { // whose corners the zoom has used
            keepCandidateOf(former);
        }
    }
    canvasDirty = true;
}

void ViewPort::slideBy(const int& dx)
{
    if (dx != 0 && viewWidth > 0 && viewHeight > 0) {
        const ViewPort former = *this;
        panBy(dx, 0);
        if (rubberDrag) {
            keepCandidateOf(former);
        }
    }
}

void ViewPort::magnify(const double& times, const QPoint& centre)
{
    if (!(times > 0.0) || !std::isfinite(times)) {
        return;
    }
    const ViewPort former = *this;
    anchorX = lastX = centre.x();
    anchorY = lastY = centre.y();
    zoomAround(1.0 / times, 1.0 / times);
    if (rubberDrag) {
        keepCandidateOf(former);
    }
}

void ViewPort::viewPress(QMouseEvent* event)
{
    const QPoint pixel = mousePixel(event->position());
    anchorX = lastX = pixel.x();
    anchorY = lastY = pixel.y();
    switch (event->button()) {
    case Qt::LeftButton:
        newMinX = newMaxX = timeAt(anchorX);
        newMaxY = newMinY = valueAt(anchorY);
        validateRect(true);
        rubberDrag = true;
        selectDrag = true;
        viewDrag = viewDrag || zoomMode;
        break;
    case Qt::MiddleButton:
        panDrag = panDrag || zoomMode;
        viewDrag = viewDrag || zoomMode;
        break;
    case Qt::RightButton:
        zoomDrag = zoomDrag || zoomMode;
        viewDrag = viewDrag || zoomMode;
        break;
    default:
        break;
    }
}

void ViewPort::viewMove(QMouseEvent* event)
{
    const QPoint pixel = mousePixel(event->position());
    if (rubberDrag) {
        newMaxX = timeAt(pixel.x());
        newMinY = valueAt(pixel.y());
        validateRect(true);
    } else if (panDrag) {
        panBy(lastX - pixel.x(), lastY - pixel.y());
        canvasDirty = true;
    } else if (zoomDrag) {
        zoomBy(lastX - pixel.x(), lastY - pixel.y());
        canvasDirty = true;
    }
    lastX = pixel.x();
    lastY = pixel.y();
}

void ViewPort::endDrag()
{
    if (isZoomRectDragged()) {
        applyRect(true);
    }
    clearDrags();
    zoomMode = false;
}

void ViewPort::keepCandidateOf(const ViewPort& former)
{
    newMinX = former.newMinX;
    newMaxY = former.newMaxY;
    newMaxX = former.newMaxX;
    newMinY = former.newMinY;
    validateRect(true);
}

void ViewPort::candidateFromView()
{
    newMinX = minX;
    newMinY = minY;
    newMaxX = maxX;
    newMaxY = maxY;
}

void ViewPort::centerTimeline()
{
    newMinX = minX;
    newMaxX = maxX;
    newMaxY = minY; // the lower corner comes first, as at construction
    newMinY = maxY;
    const double shift = timeLine - ((newMaxX - newMinX) * 0.5 + newMinX);
    newMinX += shift;
    newMaxX += shift;
    applyRect(false);
    canvasDirty = true;
}

void ViewPort::resetView()
{
    showFrames = curve_editor::TimeAxis().showFrames;
    static_cast<curve_editor::ViewRange&>(*this) = curve_editor::ViewRange();
    static_cast<curve_editor::CandidateRect&>(*this) = curve_editor::CandidateRect();
    clearDrags();
    zoomMode = false;
    canvasDirty = true;
}
