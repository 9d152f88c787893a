#include "graphs/KnownValues.h"

#include <algorithm>
#include <cstring>

namespace curve_editor {

bool isSameMoment(const Moment& a, const Moment& b)
{
    // NOLINTNEXTLINE(bugprone-suspicious-memory-comparison): by bits, as the header says
    return std::memcmp(a.data(), b.data(), sizeof(Moment)) == 0;
}

const KnownValue* KnownValues::at(const unsigned long long& epoch, const Moment& moment) const
{
    if (epoch == 0 || latest.epoch != epoch) {
        return nullptr;
    }
    if (isSameMoment(latest.moment, moment)) {
        return &latest;
    }
    const auto found = std::find_if(former.begin(), former.end(), [&](const KnownValue& each) {
        return isSameMoment(each.moment, moment);
    });
    return found == former.end() ? nullptr : &*found;
}

void KnownValues::add(const KnownValue& value)
{
    if (latest.epoch != value.epoch || former.size() >= mostFormer) {
        former.clear();
    } else if (!isSameMoment(latest.moment, value.moment)) {
        const auto same = std::find_if(former.begin(), former.end(), [&](const KnownValue& each) {
            return isSameMoment(each.moment, value.moment);
        });
        if (same != former.end()) {
            *same = latest;
        } else {
            former.push_back(latest);
        }
    }
    latest = value;
}

void KnownValues::clear()
{
    latest.epoch = 0;
    former.clear();
}

} // namespace curve_editor
