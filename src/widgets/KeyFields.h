#pragma once

#include "core/KeyRef.h"
#include "core/PointInfo.h"

#include <QList>

#include <array>

class SplineBase;

namespace curve_editor {

/// The numbers of a key that are shown and edited one by one.
enum keyFields : int
{
    noField = -1,
    timeField,
    valueField,
    tensionField,
    continuityField,
    biasField,
    incomingField,
    outgoingField,
    easeFromField,
    easeToField,
    keyFieldsCount
};

/// 0 for noField.
double readField(const PointInfo& key, keyFields field);

/// What an edit of one key makes of a record: on unified tangents a slope is that of both sides,
/// and continuity stays as it is. `number` is in seconds for the time. Returns false where the
/// record does not take the number.
bool editField(PointInfo& record, keyFields field, double number);

/// Copies one number of a record, but never the time, to a key of the spline. The other numbers of
/// the key stay, save that unified tangents remain equal, and their continuity 0.
void copyField(SplineBase& spline, PointInfo* key, keyFields field, const PointInfo& record);

/// In what the keys shown together differ from the first of them.
struct KeyDifferences
{
    bool index = false;
    std::array<bool, keyFieldsCount> fields{};
    bool bezierMix = false; ///< Bezier keys together with others

    /// Numbers are compared exactly; a NaN differs from everything, itself included.
    void add(const PointInfo& reference, const PointInfo& key);
};

/// All that the fields of keys show.
struct ShownKeys
{
    /// Never read, for they may be gone. None: nothing is shown.
    QList<KeyRef> keys;
    PointInfo reference; ///< a copy of the first of them
    int index = -1;      ///< of the reference in its spline
    KeyDifferences differences;
    double unit = 1.0; ///< what times in seconds are multiplied by; NaN: none that is known

    /// A NaN differs from everything, itself included.
    bool showsTheSameAs(const ShownKeys& other) const;
};

} // namespace curve_editor
