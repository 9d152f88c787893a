#include "core/Truncate.h"

#include <cmath>
#include <limits>

namespace {

int truncateWithin(const double& number, const int& lowest, const int& highest)
{
    if (std::isnan(number)) {
        return 0;
    }
    if (number <= lowest) {
        return lowest;
    }
    if (number >= highest) {
        return highest;
    }
    return static_cast<int>(number);
}

} // namespace

int truncateToInt(const double& number)
{
    return truncateWithin(number, std::numeric_limits<int>::min(), std::numeric_limits<int>::max());
}

int truncateToPixel(const double& number)
{
    constexpr int limit = (1 << 29) - 1;
    return truncateWithin(number, -limit, limit);
}
