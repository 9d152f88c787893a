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

    /// `owner` holds this object. `spline` may be null and is not owned.
    ControlSplineNode(SplineCurveGraph* owner, SplineBase* spline);

    SplineBase* spline() const; ///< null when there is none or it has been destroyed
    void setSpline(SplineBase* spline);

    /// Appends the point to the selection unless it is there already. So null ends up in the
    /// list: to clear a selection call clear().
    void setCurrentPoint(PointInfo* point);
    /// The point alone is selected; null selects nothing.
    void selectSinglePoint(PointInfo* point);
    /// Selects these, the first of them current. More than one are to ascend in time.
    void selectPoints(const QList<PointInfo*>& points);
    /// Takes the point into the selection, or out of it; the last one in time becomes current.
    /// Does nothing for a point that is not in the spline.
    void togglePoint(PointInfo* point);
    /// setCurrentPoint(null) and then an empty list.
    void clear();
    /// Forgets selected keys that the spline does not hold.
    void dropDeparted();
    /// A current point is set and at least one key is selected (and the spline lives).
    bool hasSelection() const;
    /// What commands work on: none without a current point or a selected key; the current point
    /// alone while one key is selected; otherwise the whole list.
    QList<PointInfo*> commandPoints() const;
    /// The list in its order.
    std::vector<const PointInfo*> selectedPointsVector() const;
    /// Times of the first and the last key of the list, in seconds; of the current point where
    /// the list is empty. Keys that left the spline are passed over; 0 when none is left.
    void selectedTimeRange(double& first, double& last) const;

    /// Moves what keyPart names to a time in seconds and a value: the key itself, or a handle,
    /// whose slope then points there. Dropped on the key itself, where no slope is a finite number,
    /// a handle leaves the slopes as they are. This and the next two work on the current point, and
    /// do nothing while several keys are selected.
    void movePoint(const double& x, const double& y);
    /// Multiplies time and value.
    void scalePoint(const double& sx, const double& sy);
    /// Adds to time (seconds) and value.
    void offsetPoint(const double& dx, const double& dy);
    /// Takes the selected keys out of the spline without freeing them: they belong to the caller.
    void removeSelected();

    /// The selected key with the least or greatest time or value; of equal ones the current
    /// point, then the first. Null without a selection.
    PointInfo* earliestPoint() const;
    PointInfo* latestPoint() const;
    PointInfo* lowestPoint() const;
    PointInfo* highestPoint() const;

    SplineCurveGraph* owner; ///< the graph that holds this object
    int keyPart = keyItself; ///< see keyParts
    /// Keys of the spline, owned by it. currentPoint is null or in selectedPoints. Whoever reads
    /// through one asks the spline first (findIndex): another editor may have freed the key, and
    /// the arrow keys may have put a key of another curve here.
    PointInfo* currentPoint = nullptr;
    QList<PointInfo*> selectedPoints;

private:
    bool isKey(const PointInfo* point) const;
    bool canEditCurrentPoint() const;
    void placeCurrentPoint(const double& time, const double& value);
    void moveHandle(const double& x, const double& y);
    template <typename IsBetter>
    PointInfo* bestPoint(const IsBetter& isBetter) const;

    SplineHandle splineHandle;
};
