#include "core/KeyIndex.h"

#include <cmath>

namespace {

constexpr std::size_t mostStretches = std::size_t(1) << 30U;

} // namespace

KeyIndex::KeyIndex(const std::vector<double>& keyTimes)
    : times(keyTimes)
{
    std::size_t stretches = 1;
    if (times.size() > 1) {
        const double span = times.back() - times.front();
        const std::size_t wanted = std::min(times.size() * 2, mostStretches);
        const double density = static_cast<double>(wanted) / span;
        if (span > 0.0 && std::isfinite(span) && std::isfinite(density)) {
            start = times.front();
            stretchesPerSecond = density;
            lastStretch = static_cast<double>(wanted - 1);
            stretches = wanted;
        }
    }
    firstKeys.assign(stretches + 1, 0);
    std::size_t stretch = 0;
    for (std::size_t key = 0; key < times.size(); ++key) {
        const std::size_t own = stretches == 1 ? 0 : stretchOf(times[key]);
        for (; stretch < own; ++stretch) {
            firstKeys[stretch + 1] = static_cast<std::uint32_t>(key == 0 ? 0 : key - 1);
        }
    }
    const std::size_t last = times.empty() ? 0 : times.size() - 1;
    std::fill(firstKeys.begin() + static_cast<std::ptrdiff_t>(stretch) + 1, firstKeys.end(),
              static_cast<std::uint32_t>(last));
}
