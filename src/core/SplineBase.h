#pragma once

#include "core/InsertedKey.h"
#include "core/KeyRef.h"
#include "core/KeySerials.h"
#include "core/LifeToken.h"
#include "core/PointInfo.h"
#include "core/SplineReadResult.h"
#include "core/ValueBounds.h"
#include "zk_curve_core_export.h"

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <memory>
#include <vector>

class DepartedKeys;
class FunctionFloatBase;

// The constness of what is returned is part of the type of a member: hosts spell it in pointers to
// members. Compilers warn that it says nothing else.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wignored-qualifiers"

/// A keyed curve: keys ascending in time, and a behaviour before the first and after the last.
///
///     SplineBase spline;
///     spline.addPoint(0.0, 1.0);
///     spline.addPoint(2.0, 5.0);
///     const double middle = spline(1.0);
///
/// A spline owns the keys in its list and frees them with itself. A `PointInfo*` stays the same
/// while keys are re-timed, and a key that `remove` hands back belongs to the caller. Copying the
/// object and `copyRefs` share keys between two splines: one of the two must give them up with
/// `clearCtrlPoints` before it dies. `copy` and its kin make keys of their own.
///
/// Members that take a key by pointer know it by identity alone. They do nothing when it is not
/// a key of this spline and never read through such a pointer. Members that take an index do
/// nothing when it is out of range.
///
/// A key that enters a spline gets a serial, which no other key of the process ever has. Keys of
/// equal times stand in the order of their serials: a new key behind the others, and one that
/// comes back where it stood before.
///
/// A spline alone may be read and evaluated through its const members from several threads as long
/// as nobody edits it; evaluated with an expression on the user-interface thread only.
class ZK_CURVE_CORE_EXPORT SplineBase
{
public:
    /// What the spline does outside its keys. Any other number counts as constant.
    enum nodeType : int
    {
        zero = 0,         ///< the value 0
        constant = 1,     ///< the value of the end key
        loop = 2,         ///< the keys over and over again; a time that rounding alone parts
                          ///< from a key, or from the start of a cycle, is that moment
        loopOffset = 3,   ///< the same, each period raised by last value minus first value
        followTangent = 4 ///< a straight line with the slope in which the keys end, ease
                          ///< included; level where that is no finite number
    };

    /// No key, both behaviours constant, default value 0, no expression added, changed.
    SplineBase();
    /// Member by member; the copy shares the keys of `other`.
    SplineBase(const SplineBase& other);
    /// Member by member; shares the keys of `other` and drops its own without freeing them.
    SplineBase& operator=(const SplineBase& other);
    /// Member by member; `other` is left without keys. Keys keep their serials, and one that was
    /// taken out of `other` comes back here. Those who watch a life watch that of their own object.
    SplineBase(SplineBase&& other) noexcept;
    /// The same; the keys that were here are freed first, and the changed flag is set.
    SplineBase& operator=(SplineBase&& other) noexcept;
    /// Frees the keys still in the list.
    ~SplineBase();

    /// The number of keys.
    unsigned getControlPointsNumber() const;
    /// The list itself, ascending in time.
    const std::vector<PointInfo*>& getControlPoints();
    /// The key at the index, null when out of range. Owned by the spline.
    const PointInfo* operator[](const unsigned& index) const;
    /// The same. Write times through setTime: the order of the list hangs on them.
    PointInfo* at(const unsigned& index) const;
    /// The first key; null without keys.
    const PointInfo* getFirst();
    /// The last key; null without keys.
    const PointInfo* getLast();
    /// Empties the list without freeing any key. Leaves the changed flag alone.
    void clearCtrlPoints();
    /// The index of this key, -1 when it is not a key of this spline.
    const int findIndex(const PointInfo* point);

    /// The same for a spline that is only read: the list itself, ascending in time.
    const std::vector<PointInfo*>& keys() const;
    /// The first key; null without keys.
    const PointInfo* firstKey() const;
    /// The last key; null without keys.
    const PointInfo* lastKey() const;
    /// The index of this key, -1 when it is not a key of this spline.
    int indexOf(const PointInfo* point) const;
    /// The nearest key strictly before the time, null if there is none.
    const PointInfo* keyBefore(const double& time) const;
    /// The nearest key strictly after the time, null if there is none.
    const PointInfo* keyAfter(const double& time) const;

    /// Copies all fields of source over the key, then takes it out and puts it back in order.
    void copyPoint(const PointInfo* target, const PointInfo* source);
    /// Copies all fields of source over the key and nothing else: the order and the changed flag
    /// stay. The next member that inserts or re-times a key restores the order.
    void copyPointNoUpdate(PointInfo* target, const PointInfo* source);
    /// Writes the key's value.
    void setPos(const PointInfo* point, const double& value);
    /// Writes the key's time in seconds and moves the key as far as the order asks, and no
    /// farther. NaN sorts last.
    void setTime(const PointInfo* point, const double& time);
    /// Writes the key's interpolation.
    void setType(const PointInfo* point, const zk_spline::interpolationType& type);
    /// Lets the two tangents part; they keep their values.
    void breakTangent(const PointInfo* point);
    /// Makes the two tangents one: continuity 0, right tangent := left. At the first key, whose
    /// left tangent shapes nothing, left := right instead.
    void unifyTangent(const PointInfo* point);
    /// Writes the key's interpolation.
    void setInterpolationType(const PointInfo* point, zk_spline::interpolationType type);
    void setInterpolationType(unsigned index, zk_spline::interpolationType type);
    /// Writes the incoming slope (value per second), on a unified key the outgoing one too.
    void setTanLeft(const PointInfo* point, const double& slope);
    /// Writes the outgoing slope (value per second), on a unified key the incoming one too.
    void setTanRight(const PointInfo* point, const double& slope);
    /// Writes all five fields; a unified key keeps continuity 0.
    void setTcb(const PointInfo* point, const PointInfo::TcbData& data);
    void setTcb(unsigned index, const PointInfo::TcbData& data);
    /// Writes both slopes; a unified key takes the left one for both.
    void setBezier(const PointInfo* point, const PointInfo::BezierData& data);
    void setBezier(unsigned index, const PointInfo::BezierData& data);

    /// The value of a spline without keys.
    const double getDefaultValue() const;
    /// Leaves the changed flag alone.
    void setDefaultValue(double value);
    /// True when an expression is added to this spline.
    const bool isAddFunc() const;
    /// Leaves the changed flag alone.
    void setAddFunc(const bool& add);
    /// True when something was edited since the flag was last cleared.
    const bool hasChanged() const;
    void setChanged(const bool& change);
    /// The behaviour before the first key.
    nodeType firstNodeType() const;
    /// The behaviour after the last key.
    nodeType lastNodeType() const;
    void setFirstNodeType(nodeType type);
    void setLastNodeType(nodeType type);

    /// Adds a new TCB key with all other data 0, behind keys of the same time.
    void addPoint(const double& time, const double& value);
    /// Takes the key into the spline and returns it. From then on the spline owns it. A key is new,
    /// and goes behind keys of the same time, unless it comes back just as `remove` gave it out: it
    /// then takes its former place among them, as long as it is one of the last 1024 that were
    /// removed. A key that is inside already is only put in order; null does nothing.
    PointInfo* addPointPtr(PointInfo* point);
    /// The same for a caller who knows what the key is: new, with 0, or that which had this serial
    /// here, however it has changed since. A serial that was never given out counts as 0; one that
    /// another key has is the caller's error. Returns the key with the serial that it now has.
    KeyRef addPointPtr(PointInfo* point, std::uint64_t serial);
    /// Adds copies of as many records, in any order: those of equal times in the order given,
    /// behind keys of the same time. Sorted and merged once, so this is the quick way to many keys.
    void addPoints(const PointInfo* points, std::size_t count);
    void addPoints(const std::vector<PointInfo>& points);
    /// Adds a key on the curve at a time within the keys, and keeps the curve's shape; TCB
    /// neighbours become Bezier keys of the slopes they had where a key between would bend them.
    /// Where a segment speeds up or slows down through ease the shape is kept as nearly as keys can
    /// keep it, which the result tells. At the time of a key that key is the result; outside of the
    /// keys nothing is added.
    InsertedKey insertKey(const double& time);
    /// Takes the key out without freeing it: it belongs to the caller.
    void remove(const PointInfo* point);
    /// The same for a caller who remembers the serial himself, to put the key back with it; the
    /// spline does not. Names no key where `point` is not one of this spline.
    KeyRef take(const PointInfo* point);
    /// The serial of this key, 0 when it is not a key of this spline.
    std::uint64_t keySerial(const PointInfo* point) const;
    /// Whether the very key is in this spline, and not another one at its address.
    bool holds(const KeyRef& ref) const;
    /// Frees all keys.
    void removeAllControlPoints();

    /// The value at a time in seconds, the behaviours applied outside the keys. At a key's time it
    /// is the key's value, of several keys at that time the last one's. Between keys of finite
    /// values it is finite: a slope that is no finite number counts as level. Without keys the
    /// default value; at a time of NaN, NaN.
    const double operator()(const double& time) const;
    /// The same with the value of the expression added, which sees "t" as time, "f" as the frame,
    /// see EvaluationTime, and "fps"; all three are restored afterwards. A null expression adds
    /// nothing.
    const double operator()(const double& time, FunctionFloatBase* expression,
                            const double& fps) const;
    /// The slope in value per second at a time in seconds, exactly: at a key that of the segment
    /// which follows, at a jump and where a value is held 0. At a time of NaN, NaN. For many times
    /// CurveSampler is quicker.
    double derivative(const double& time) const;
    /// The lowest and the highest value between two times in seconds, both included, in either
    /// order; exactly. Counts a value that the curve only comes up to at the foot or the head of a
    /// jump. NaN where there is no number among the values and where a time is NaN.
    ValueBounds bounds(const double& from, const double& to) const;
    /// The slope (value per second) with which the curve comes into the key at the index, 0 to
    /// the number of keys minus one; 0 at any other index. A linear key answers with its chord, a
    /// stepped one with 0. `len` is always written: it sizes the handle, (1 - tension) / 2 held
    /// to 0..2 for a TCB key, else 0.667.
    const double getTangentLeftAtNode(const unsigned& index, double& len) const;
    /// The slope with which the curve leaves the key before the index, which is 1 to the number
    /// of keys; else as getTangentLeftAtNode.
    const double getTangentRightAtNode(const unsigned& index, double& len) const;
    /// The nearest key strictly before the time, null if there is none.
    const PointInfo* getPrev(const double& time);
    /// The nearest key strictly after the time, null if there is none.
    const PointInfo* getNext(const double& time);

    /// Becomes a deep copy: new keys, both behaviours, default value and both flags.
    void copy(const SplineBase& source);
    /// A deep copy.
    SplineBase clone() const;
    /// A spline of linear keys on this curve, at `first` and every 1 / `rate` seconds after it, and
    /// at `last`; with the behaviours, default value and flags of this one. Without keys when the
    /// times or the rate (frames per second) are no finite numbers in order, or when there would be
    /// more than 100 million keys.
    SplineBase bake(const double& first, const double& last, const double& rate) const;
    /// A spline of fewer keys, at times of keys of this one, that is never farther than `tolerance`
    /// from it within the keys and no farther behind them, in values at the same time. Jumps and
    /// steps beyond the tolerance stay. From each key on, the longest stretch is taken that one
    /// Bezier segment fits: after Schneider, "An Algorithm for Automatically Fitting Digitized
    /// Curves", Graphics Gems, 1990, with time for the curve's parameter. As it is, when a key
    /// holds a time or value that is no finite number. A negative tolerance and NaN count as 0.
    SplineBase reduce(const double& tolerance) const;
    /// Takes over the keys of source as pointers, with their serials, and its other fields. Drops
    /// its own keys without freeing them; the changed flag is set.
    void copyRefs(const SplineBase& source);
    /// Becomes a copy with new keys moved by `offset` seconds, both behaviours and default value.
    void copyDup(const SplineBase& source, const double& offset);
    /// Becomes a copy of just those keys of source that are listed, with its behaviours.
    void copySelected(const SplineBase& source, const std::vector<const PointInfo*>& points);
    /// Adds copies of the keys of source, moved by `offset` seconds. Returns the added ones in
    /// time order; they belong to this spline.
    std::vector<const PointInfo*> combine(const SplineBase& source, const double& offset);
    /// Frees the keys and puts both behaviours back to constant. Default value and the mark of an
    /// added expression stay.
    void reset();

    /// Writes keys, behaviours and default value as text, whatever the locale.
    static void save(SplineBase& spline, std::ofstream& stream);
    static void save(SplineBase& spline, std::ostream& stream);
    /// Replaces keys, behaviours and default value by what save wrote. On anything else the
    /// spline stays as it is.
    static void load(SplineBase* spline, std::ifstream& stream);
    /// The same from any stream; tells how it went. A null spline is not read.
    static SplineReadResult load(SplineBase* spline, std::istream& stream);

    /// Expires when the spline is destroyed: whoever keeps a pointer to a spline of somebody
    /// else's keeps this beside it.
    std::weak_ptr<const void> watchLife() const;

private:
    using PointList = std::vector<PointInfo*>;

    PointList::iterator find(const PointInfo* point);
    PointList::const_iterator placeInOrder(const PointInfo* point) const;
    static std::uint64_t newSerials(std::size_t count);
    bool comesBefore(const PointInfo* point, const PointInfo* other) const;
    void insertNew(PointInfo* point);
    void insertInOrder(PointInfo* point);
    void mergeNew(const PointList& added);
    void holdSlopes(std::size_t index, double incoming, double outgoing);
    void settle(std::size_t index);
    void restoreOrder();
    void dropPoints();
    void freePoints();
    void takePoints(const PointList& newPoints);
    void takeFields(const SplineBase& other);
    void takeAll(SplineBase& other);
    PointList duplicates(const double& offset) const;

    std::size_t segmentAt(double time) const;
    void rememberSegment(std::size_t index) const;
    double valueWithin(double time) const;
    bool isCurvedSegment(std::size_t index) const;
    double valueInSegment(std::size_t index, double time) const;
    double valueBeyondRange(std::size_t index, double time) const;
    std::size_t guessedSegmentAt(double time) const;
    double valueOutside(const double& time, const nodeType& behaviour, const bool& before) const;
    double valueLooped(const double& time, const PointInfo& end, const bool& withOffset) const;
    double valueNear(double time, double noise) const;
    double valueOnTangent(const double& time, const PointInfo& end, const bool& before) const;
    double endSlope(const bool& before, double scale) const;
    double slopeInSegment(std::size_t index, double time) const;
    double chord(std::size_t index, double scale) const;
    double incomingSlope(std::size_t index, double scale) const;
    double outgoingSlope(std::size_t index, double scale) const;
    double tcbSlope(std::size_t index, double factor0, double factor1, double scale) const;

    /// For sums of values that would leave the range of numbers; a power of two.
    static constexpr double smallScale = 0x1p-64;
    double handleSlope(std::size_t index, const bool& outgoing, double& len) const;

    // The tangent coefficients of a TCB key: Kochanek and Bartels, "Interpolating splines with
    // local tension, continuity, and bias control", 1984. 0 weighs the gap to the previous key, 1
    // the gap to the next; L is the left end of the segment that follows, R the right end of the
    // one before.
    const double getFactorL0(const PointInfo* point) const;
    const double getFactorL1(const PointInfo* point) const;
    const double getFactorR0(const PointInfo* point) const;
    const double getFactorR1(const PointInfo* point) const;

    nodeType firstType = constant;
    nodeType lastType = constant;
    double defaultValue = 0.0;
    bool addFunc = false;
    bool changed = true;
    PointList controlPoints; ///< owned, but for copies that share them; see the class comment

    KeySerials serials;                     ///< of the keys of controlPoints
    std::unique_ptr<DepartedKeys> departed; ///< null until a key is removed
    bool orderUpset = false; ///< times were written past setTime: the list must be sorted anew
    mutable std::atomic<std::size_t> lastSegment{0}; ///< a guess only: it may be out of range
    LifeToken life;
};

#pragma GCC diagnostic pop
