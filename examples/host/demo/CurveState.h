#pragma once

#include <core/PointInfo.h>

#include <QString>

#include <vector>

class CurveStore;
class HostCurve;

/// What a curve holds at a moment, to be compared later, bit by bit.
struct CurveState
{
    explicit CurveState(const HostCurve& curve);

    std::vector<PointInfo> keys;
    QString expression; ///< as the editor prints it; empty without one
    bool added;         ///< the expression is added to the keys
    int first;          ///< behaviour before the first key
    int last;           ///< behaviour after the last key
};

bool operator==(const CurveState& left, const CurveState& right);

/// Of all curves, in the order of the store.
std::vector<CurveState> statesOf(const CurveStore& store);

bool sameKey(const PointInfo& left, const PointInfo& right);
bool sameKeys(const std::vector<PointInfo>& left, const std::vector<PointInfo>& right);
std::vector<PointInfo> keysOf(const HostCurve& curve);

/// Such as "5 keys, 0.00 s to 10.00 s" or "5 keys + sin(t)".
QString summary(const HostCurve& curve);
