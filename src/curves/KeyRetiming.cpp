#include "curves/KeyRetiming.h"

#include "core/SplineBase.h"

#include <algorithm>
#include <utility>

namespace {

// From here on one sort of the whole spline is cheaper than moving each key.
const std::size_t manyKeys = 100;

/// In the order that the keys have in the spline before anything moves.
std::vector<RetimedKey> inKeyOrder(SplineBase& spline, const std::vector<RetimedKey>& keys)
{
    std::vector<std::pair<int, RetimedKey>> places;
    places.reserve(keys.size());
    for (const RetimedKey& retimed : keys) {
        places.emplace_back(spline.findIndex(retimed.key), retimed);
    }
    std::sort(places.begin(), places.end(),
              [](const auto& a, const auto& b) { return a.first < b.first; });
    std::vector<RetimedKey> ordered;
    ordered.reserve(keys.size());
    for (const auto& [index, retimed] : places) {
        ordered.push_back(retimed);
    }
    return ordered;
}

/// Those that move to the right from the right end on, then the others from the left end on.
void retimeOneByOne(SplineBase& spline, const std::vector<RetimedKey>& keys)
{
    const std::vector<RetimedKey> ordered = inKeyOrder(spline, keys);
    std::vector<RetimedKey> others;
    for (auto retimed = ordered.rbegin(); retimed != ordered.rend(); ++retimed) {
        if (retimed->time > retimed->key->time) {
            spline.setTime(retimed->key, retimed->time);
        } else {
            others.push_back(*retimed);
        }
    }
    for (auto retimed = others.rbegin(); retimed != others.rend(); ++retimed) {
        spline.setTime(retimed->key, retimed->time);
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
