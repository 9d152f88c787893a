#pragma once

#include "graphs/ControlSplineNode.h"
#include "graphs/CurveCourse.h"

#include <QColor>
#include <QPoint>
#include <QPointF>
#include <QPolygon>

#include <cstddef>
#include <utility>

class CurvePen;
class FunctionFloatBase;
class QPainter;
class ViewPort;

/// The drawing record of a curve's spline: its key selection and its pixels.
class SplineCurveGraph
{
public:
    /// `firstView` is used for hit tests before the first rebuild; not owned, may be null.
    SplineCurveGraph(SplineBase* spline, ViewPort* firstView);

    ControlSplineNode& selection();
    const ControlSplineNode& selection() const;

    void setColors(const QColor& main, const QColor& dim);
    QColor mainColor() const;
    QColor dimColor() const;
    void setSpline(SplineBase* spline);

    bool isActive = false;

    /// Samples the curve for a view; values are held between the limits.
    void rebuildSpline(ViewPort* view, const float& minValue, const float& maxValue);
    void rebuildSplineWithExpression(ViewPort* view, const float& minValue, const float& maxValue,
                                     FunctionFloatBase* expression);
    /// Only the pixels of the keys: hit tests and handles never read pixels older than the
    /// spline.
    void rebuildKeyPixels();
    /// Notes that the samples are old while they were not worth making.
    void markPixelsOld();
    bool arePixelsOld() const;
    /// Frees all pixels; the next rebuild makes them anew.
    void dropPixels();

    void drawCurve(QPainter* painter);
    void drawKeys(QPainter* painter);
    void drawTangents(QPainter* painter);
    void drawSelectedKeys(QPainter* painter);
    /// Time (in frames if `showFrames`) and value at each chosen key, in the painter's font. A
    /// negative number of decimals is the toolkit's default, six.
    void drawLabels(QPainter* painter, const double& fps, const bool& showFrames,
                    const int& decimals);

    /// Where the handle of the key at `index` ends. `fixedLength` at the ends of the curve.
    QPoint rightHandlePos(const QPoint& keyPixel, const int& index, const bool& fixedLength) const;
    QPoint leftHandlePos(const QPoint& keyPixel, const int& index, const bool& fixedLength) const;

    /// The key under a pixel, or null; writes the selection's keyPart.
    PointInfo* hitTest(const QPoint& pixel);
    /// Selects the keys strictly inside a world rectangle; `add` keeps the present ones. Returns
    /// whether any key is selected.
    bool selectInRect(const bool& add, const double& xMin, const double& xMax, const double& yMin,
                      const double& yMax);

    QPolygon keyPixels;   ///< one point a key, in key order
    QPolygon curvePixels; ///< between first and last key, held to the limits
    QPolygon tailPixels;  ///< behind the last key, up to the right edge
    QPolygon rawPixels;   ///< as curvePixels, not held to the limits
    CurveCourse course;   ///< what is painted of them

private:
    /// The keys of the living spline, after bringing keyPixels to their number and place. Empty
    /// without a spline or a view.
    const std::vector<PointInfo*>& keysWithPixels();
    bool startRebuild(ViewPort* newView);
    void drawSquares(QPainter* painter, const QColor& color, const bool& chosen);
    std::pair<std::size_t, std::size_t> keysInView(const std::vector<PointInfo*>& keys) const;
    QPointF placeOf(const PointInfo& key) const;
    double roomOf(const std::vector<PointInfo*>& keys, const std::size_t& index) const;
    void drawThinned(QPainter* painter, const QColor& color);
    bool pixelsAscend() const;
    qsizetype firstWithinReach(const int& column) const;
    void drawGuides(CurvePen& pen, const QPoint& pixel) const;
    void drawHandles(CurvePen& pen, const int& index, const std::vector<PointInfo*>& keys) const;

    ControlSplineNode keySelection;
    QColor main;
    QColor dim;
    ViewPort* view; ///< not owned
    bool pixelsAreOld = true;
};
