#include "editor/Timecode.h"

#include "core/Truncate.h"

#include <algorithm>
#include <cmath>

namespace curve_editor {

namespace {

/// No finite number of frames per second has more digits; without a bound an endless one would
/// ask for a text of that width.
constexpr int widestField = 324;

} // namespace

QString timecodeText(double seconds, double fps, int /*decimals*/, int digits)
{
    const int minutes = truncateToInt(seconds / 60.0);
    const int secs = truncateToInt(seconds - minutes * 60.0);
    // This order of operations: the rounding of the product decides which frame is shown.
    const double x = fps * seconds / fps;
    const int frame = truncateToInt(std::floor((x - std::trunc(std::floor(x))) * fps));

    const int width = std::clamp(digits, -widestField, widestField);
    const auto field = [&width](int number) {
        return QString("%1").arg(number, width, 10, QLatin1Char('0'));
    };
    return QString("%1:%2:%3").arg(field(minutes), field(secs), field(frame));
}

} // namespace curve_editor
