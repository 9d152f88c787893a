#include "curves/KeyRetiming.h"

#include "core/SplineBase.h"

#include <algorithm>

namespace {

// From here on one sort of the whole spline is cheaper than moving each key.
const std::size_t manyKeys = 100;

/// In any order: where a key stands follows from its time and its serial alone.
void retimeOneByOne(SplineBase& spline, const std::vector<RetimedKey>& keys)
{
    for (const RetimedKey& retimed : keys) {
        spline.setTime(retimed.key, retimed.time);
    }
}

/// A copy of another time without update tells the spline that its order is upset, and the next
/// key re-timed restores it for all of them.
void retimeAtOnce(SplineBase& spline, const std::vector<RetimedKey>& keys)
{
    const auto moved = std::find_if(keys.begin(), keys.end(), [](const RetimedKey& retimed) {
        return retimed.key->time != retimed.time;
    });
    if (moved != keys.end()) {
        PointInfo upsetting = *moved->key;
        upsetting.time = moved->time;
        spline.copyPointNoUpdate(moved->key, &upsetting);
    }
    for (const RetimedKey& retimed : keys) {
        retimed.key->time = retimed.time;
    }
    spline.setTime(keys.front().key, keys.front().time);
}

} // namespace

void retimeKeys(SplineBase& spline, const std::vector<RetimedKey>& keys)
{
    const auto retime = keys.size() > manyKeys ? retimeAtOnce : retimeOneByOne;
    retime(spline, keys);
}
