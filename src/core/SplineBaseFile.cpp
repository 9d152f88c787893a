// The text of a spline in the older curve file.

#include "core/SplineBase.h"

#include <array>
#include <charconv>
#include <fstream>
#include <iomanip>
#include <string>
#include <system_error>

// The layout: number of keys, behaviour before, behaviour after, default value; then a line for
// each key with its numbers in the order of numbersOf, its interpolation and 1 for unified.

namespace {

constexpr int exactDigits = 17;
constexpr int longestWord = 64;

template <typename Record>
auto numbersOf(Record& point)
{
    return std::array{&point.time,
                      &point.value,
                      &point.bezier.tangentLeft,
                      &point.bezier.tangentRight,
                      &point.tcb.tension,
                      &point.tcb.continuity,
                      &point.tcb.bias,
                      &point.tcb.easeTo,
                      &point.tcb.easeFrom};
}

template <typename... Format>
void append(std::string& text, const Format&... numberAndFormat)
{
    std::array<char, longestWord> word{};
    const auto end = std::to_chars(word.data(), word.data() + word.size(), numberAndFormat...).ptr;
    text.append(word.data(), end);
    text += ' ';
}

void appendNumber(std::string& text, const double& number)
{
    append(text, number, std::chars_format::general, exactDigits);
}

/// Writes the line without its last blank, and begins the next.
void endLine(std::string& line, std::ostream& stream)
{
    line.back() = '\n';
    stream.write(line.data(), static_cast<std::streamsize>(line.size()));
    line.clear();
}

/// Reads the next word, which must be a number from its first to its last character.
template <typename Number>
bool readNumber(std::istream& stream, Number& number)
{
    std::string word;
    if (!(stream >> std::setw(longestWord) >> word)) {
        return false;
    }
    if (word.size() == std::size_t{longestWord}) {
        return false;
    }
    const char* const end = word.data() + word.size();
    const auto result = std::from_chars(word.data(), end, number);
    return result.ec == std::errc() && result.ptr == end;
}

template <typename Enumeration>
bool readEnumeration(std::istream& stream, Enumeration& value)
{
    int number = 0;
    if (!readNumber(stream, number)) {
        return false;
    }
    value = static_cast<Enumeration>(number);
    return true;
}

bool readPoint(std::istream& stream, PointInfo& point)
{
    for (double* number : numbersOf(point)) {
        if (!readNumber(stream, *number)) {
            return false;
        }
    }
    int unified = 0;
    if (!readEnumeration(stream, point.type) || !readNumber(stream, unified)) {
        return false;
    }
    point.unifiedTangents = unified == 1;
    return unified == 0 || unified == 1;
}

} // namespace

void SplineBase::save(SplineBase& spline, std::ofstream& stream)
{
    save(spline, static_cast<std::ostream&>(stream));
}

void SplineBase::save(SplineBase& spline, std::ostream& stream)
{
    std::string line;
    append(line, spline.getControlPointsNumber());
    append(line, static_cast<int>(spline.firstType));
    append(line, static_cast<int>(spline.lastType));
    appendNumber(line, spline.defaultValue);
    endLine(line, stream);
    for (const PointInfo* point : spline.controlPoints) {
        for (const double* number : numbersOf(*point)) {
            appendNumber(line, *number);
        }
        append(line, static_cast<int>(point->type));
        append(line, point->unifiedTangents ? 1 : 0);
        endLine(line, stream);
    }
}

void SplineBase::load(SplineBase* spline, std::ifstream& stream)
{
    SplineBase loaded;
    unsigned count = 0;
    if (spline == nullptr || !readNumber(stream, count) ||
        !readEnumeration(stream, loaded.firstType) || !readEnumeration(stream, loaded.lastType) ||
        !readNumber(stream, loaded.defaultValue)) {
        return;
    }
    // The count is the file's word only: memory grows with the keys that are really there.
    for (unsigned read = 0; read < count; ++read) {
        PointInfo point;
        if (!readPoint(stream, point)) {
            return;
        }
        loaded.controlPoints.push_back(new PointInfo(point));
        loaded.serials.insert(loaded.controlPoints.back(), newSerial());
    }
    // Sorted once: a file may hold its keys in any order.
    loaded.restoreOrder();
    spline->freePoints();
    spline->controlPoints.swap(loaded.controlPoints);
    spline->serials.swap(loaded.serials);
    spline->firstType = loaded.firstType;
    spline->lastType = loaded.lastType;
    spline->defaultValue = loaded.defaultValue;
    spline->changed = true;
}
