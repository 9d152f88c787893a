#include "widgets/KeyFields.h"

#include "core/SplineBase.h"

namespace curve_editor {

namespace {

double* numberOf(PointInfo& key, keyFields field)
{
    switch (field) {
    case timeField:
        return &key.time;
    case valueField:
        return &key.value;
    case tensionField:
        return &key.tcb.tension;
    case continuityField:
        return &key.tcb.continuity;
    case biasField:
        return &key.tcb.bias;
    case incomingField:
        return &key.bezier.tangentLeft;
    case outgoingField:
        return &key.bezier.tangentRight;
    case easeFromField:
        return &key.tcb.easeFrom;
    case easeToField:
        return &key.tcb.easeTo;
    default:
        return nullptr;
    }
}

} // namespace

double readField(const PointInfo& key, keyFields field)
{
    PointInfo copy = key;
    const double* const number = numberOf(copy, field);
    return number ? *number : 0.0;
}

bool editField(PointInfo& record, keyFields field, double number)
{
    double* const target = numberOf(record, field);
    const bool isLocked = field == continuityField && record.unifiedTangents;
    if (!target || isLocked) {
        return false;
    }
    *target = number;
    const bool isSlope = field == incomingField || field == outgoingField;
    if (isSlope && record.unifiedTangents) {
        record.bezier = {number, number};
    }
    return true;
}

void copyField(SplineBase& spline, PointInfo* key, keyFields field, const PointInfo& record)
{
    switch (field) {
    case valueField:
        spline.setPos(key, record.value);
        break;
    case tensionField:
    case continuityField:
    case biasField:
    case easeFromField:
    case easeToField: {
        PointInfo edited = *key;
        *numberOf(edited, field) = readField(record, field);
        spline.setTcb(key, edited.tcb);
        break;
    }
    case incomingField:
        spline.setBezier(key, {record.bezier.tangentLeft, key->bezier.tangentRight});
        break;
    case outgoingField: {
        // On unified tangents the spline takes the left one for both.
        const double right = record.bezier.tangentRight;
        const double left = key->unifiedTangents ? right : key->bezier.tangentLeft;
        spline.setBezier(key, {left, right});
        break;
    }
    default:
        break;
    }
}

void KeyDifferences::add(const PointInfo& reference, const PointInfo& key)
{
    for (int field = 0; field < keyFieldsCount; ++field) {
        const auto which = static_cast<keyFields>(field);
        if (readField(key, which) != readField(reference, which)) {
            fields[static_cast<std::size_t>(field)] = true;
        }
    }
    const bool isBezier = key.type == zk_spline::bezier;
    bezierMix = bezierMix || isBezier != (reference.type == zk_spline::bezier);
}

bool ShownKeys::showsTheSameAs(const ShownKeys& other) const
{
    for (int field = 0; field < keyFieldsCount; ++field) {
        const auto which = static_cast<keyFields>(field);
        if (readField(reference, which) != readField(other.reference, which)) {
            return false;
        }
    }
    return keys == other.keys && index == other.index && unit == other.unit &&
           differences.index == other.differences.index &&
           differences.fields == other.differences.fields &&
           differences.bezierMix == other.differences.bezierMix &&
           reference.type == other.reference.type;
}

} // namespace curve_editor
