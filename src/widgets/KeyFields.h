#pragma once

#include "core/PointInfo.h"

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
double readField(const PointInfo& key, const keyFields& field);

/// What an edit of one key makes of a record: on unified tangents a slope is that of both sides,
/// and continuity stays as it is. `number` is in seconds for the time.
void editField(PointInfo& record, const keyFields& field, const double& number);

/// Copies one number of a record, but never the time, to a key of the spline. The other numbers of
/// the key stay, save that unified tangents remain equal, and their continuity 0.
void copyField(SplineBase& spline, PointInfo* key, const keyFields& field, const PointInfo& record);

/// In what the keys shown together differ from the first of them.
struct KeyDifferences
{
    bool index = false;
    std::array<bool, keyFieldsCount> fields{};
    bool bezierMix = false; ///< Bezier keys together with others

    /// Numbers are compared exactly; a NaN differs from everything, itself included.
    void add(const PointInfo& reference, const PointInfo& key);
};

} // namespace curve_editor
