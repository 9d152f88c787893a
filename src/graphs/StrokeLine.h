#pragma once

#include <QPolygonF>

#include <vector>

/// A line of unrounded points in the canvas's logical pixels, in pieces that do not touch one
/// another. What lies far above or below the canvas runs along its border, just out of sight, so
/// that no coordinate is large and what shows keeps its place and slope.
class StrokeLine
{
public:
    /// Forgets the points, not the memory. `canvasHeight` in logical pixels.
    void clear(const double& canvasHeight);
    /// Gives the memory back.
    void drop();

    /// The next point begins a piece of its own.
    void breakOff();
    /// `y` may be any number; one that is none counts as 0.
    void add(const double& x, const double& y);

    bool isEmpty() const { return points.isEmpty(); }
    qsizetype pieceCount() const { return static_cast<qsizetype>(starts.size()); }
    const QPointF* piece(const qsizetype& index) const;
    qsizetype pieceSize(const qsizetype& index) const;
    QPointF first() const { return points.first(); }
    QPointF last() const { return points.last(); }

private:
    double held(const double& y) const;
    void crossBorder(const double& border, const double& x, const double& y);
    void append(const double& x, const double& y);

    QPolygonF points;
    std::vector<qsizetype> starts; ///< the index of each piece's first point
    bool isBroken = true;
    double bottom = 0.0;
    double lastX = 0.0; ///< the point added last, where it really lies
    double lastY = 0.0;
};
