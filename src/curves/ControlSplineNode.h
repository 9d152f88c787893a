#pragma once

#include "curves/SplineHandle.h"

#include <QList>
#include <QObject>

#include <vector>

class SplineCurveGraph;

/// A curve's selection of keys, and the tool that moves them.
class ControlSplineNode : public QObject
{
    Q_OBJECT

public:
    /// Which part of the current key the mouse has grabbed.
    enum keyParts : int
    {
        keyItself = 0,
        handleLine = 1,
        leftHandle = 2,
        rightHandle = 3
    };

    ControlSplineNode(SplineCurveGraph* owner, SplineBase* spline);

    SplineBase* spline() const; ///< null when there is none or it has been destroyed
    void setSpline(SplineBase* spline);

    void setCurrentPoint(PointInfo* point);
    void selectSinglePoint(PointInfo* point);
    void selectPoints(const QList<PointInfo*>& points);
    void togglePoint(PointInfo* point);
    /// setCurrentPoint(null) and then an empty list.
    void clear();
    /// A current point is set and at least one key is selected (and the spline lives).
    bool hasSelection() const;
    /// What commands work on: none without a current point or a selected key; the current point
    /// alone while one key is selected; otherwise the whole list.
    QList<PointInfo*> commandPoints() const;
    std::vector<const PointInfo*> selectedPointsVector() const;
    void selectedTimeRange(double& first, double& last) const;

    void movePoint(const double& x, const double& y);
    void scalePoint(const double& sx, const double& sy);
    void offsetPoint(const double& dx, const double& dy);
    /// Takes the selected keys out of the spline without freeing them.
    void removeSelected();

    PointInfo* earliestPoint() const;
    PointInfo* latestPoint() const;
    PointInfo* lowestPoint() const;
    PointInfo* highestPoint() const;

    SplineCurveGraph* owner; ///< the graph that holds this object
    int keyPart = keyItself; ///< see keyParts
    /// Keys of the spline, owned by it. currentPoint is null or in selectedPoints.
    PointInfo* currentPoint = nullptr;
    QList<PointInfo*> selectedPoints;

private:
    SplineHandle splineHandle;
};
