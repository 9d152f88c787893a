#pragma once

#include "core/KeyRef.h"
#include "core/SplineHandle.h"

#include <QList>
#include <QObject>

#include <cstdint>
#include <vector>

class SplineCurveGraph;

/// A curve's selection of keys, and the tool that moves them.
///
/// A selected key may leave its spline at any time and be freed, and a new one may then lie at its
/// address. So the selection notes who each key is (see KeyRef) when it is selected, and passes
/// over those that are gone: whoever reads through a selected key takes it from heldPoints or
/// heldCurrent.
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
    /// The same for a key of another spline.
    void selectSingleKey(const KeyRef& key);
    /// Selects these, the first of them current. More than one are to ascend in time.
    void selectPoints(const QList<PointInfo*>& points);
    /// Takes the point into the selection, or out of it; the last one in time becomes current.
    /// Does nothing for a point that is not in the spline.
    void togglePoint(PointInfo* point);
    /// setCurrentPoint(null) and then an empty list.
    void clear();
    /// Forgets selected keys that the spline does not hold.
    void dropDeparted();
    /// The selected keys in their order, without those that the spline does not hold.
    QList<PointInfo*> heldPoints() const;
    /// The current point; null as well when the spline does not hold it.
    PointInfo* heldCurrent() const;
    /// Whether the key, which is one of the spline, is selected.
    bool isSelected(const PointInfo* key) const;
    /// All that are selected in their order, also those that are gone, and without null.
    QList<KeyRef> selectedKeys() const;
    /// A current point is set and at least one key is selected (and the spline lives).
    bool hasSelection() const;
    /// What commands work on: none without a current point or a selected key; the current point
    /// alone while one key is selected; otherwise the whole list. Some may be gone.
    QList<KeyRef> commandKeys() const;
    /// The list in its order, without those that are gone.
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
    /// Keys of the spline, owned by it. currentPoint is null or in selectedPoints. Any of them may
    /// be freed, and the arrow keys may have put a key of another curve here: see the class
    /// comment. Whoever writes an address here directly names the key that lies there when the
    /// selection is next used; an address that stays keeps its key.
    PointInfo* currentPoint = nullptr;
    QList<PointInfo*> selectedPoints;

private:
    KeyRef present(PointInfo* point) const;
    void note() const;
    bool isHeld(const qsizetype& index) const;
    bool canEditCurrentPoint() const;
    void placeCurrentPoint(const double& time, const double& value);
    void moveHandle(const double& x, const double& y);
    template <typename IsBetter>
    PointInfo* bestPoint(const IsBetter& isBetter) const;

    curve_editor::SplineHandle splineHandle;

    // Who the keys of the two public fields are, as far as these still say the same.
    mutable QList<PointInfo*> notedPoints;
    mutable std::vector<std::uint64_t> notedSerials; ///< one for each of notedPoints
    mutable KeyRef notedCurrent;
};
