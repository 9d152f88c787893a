#include "core/DepartedKeys.h"

#include <cstring>

namespace {

// Enough for a hand's work, and little beside the spline itself.
constexpr std::size_t mostDepartures = 1024;

template <typename Field>
bool areSameBits(const Field& a, const Field& b)
{
    // NOLINTNEXTLINE(bugprone-suspicious-memory-comparison): doubles without gaps between them
    return std::memcmp(&a, &b, sizeof a) == 0;
}

/// By their bits: a key whose time is not a number comes back as well.
bool isSame(const PointInfo& a, const PointInfo& b)
{
    return areSameBits(a.time, b.time) && areSameBits(a.value, b.value) &&
           areSameBits(a.bezier, b.bezier) && areSameBits(a.tcb, b.tcb) && a.type == b.type &&
           a.unifiedTangents == b.unifiedTangents;
}

} // namespace

void DepartedKeys::note(const PointInfo* key, std::uint64_t serial)
{
    keys.insert_or_assign(key, Departed{*key, serial, ++clock});
    departures.emplace_back(key, clock);
    if (departures.size() > mostDepartures) {
        const auto oldest = keys.find(departures.front().first);
        if (oldest != keys.end() && oldest->second.when == departures.front().second) {
            keys.erase(oldest);
        }
        departures.pop_front();
    }
}

std::uint64_t DepartedKeys::take(const PointInfo* key)
{
    const auto found = keys.find(key);
    if (found == keys.end()) {
        return 0;
    }
    const std::uint64_t serial = isSame(found->second.record, *key) ? found->second.serial : 0;
    keys.erase(found);
    return serial;
}
