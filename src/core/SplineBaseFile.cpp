// The text of a spline in the older curve file.

#include "core/SplineBase.h"
#include "core/WordReader.h"

#include <array>
#include <charconv>
#include <fstream>
#include <string>
#include <vector>

// The layout: number of keys, behaviour before, behaviour after, default value; then a line for
// each key with its numbers in the order of numbersOf, its interpolation and 1 for unified.

namespace {

constexpr int exactDigits = 17;
constexpr int longestNumber = 64;

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
    std::array<char, longestNumber> word{};
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

template <typename Enumeration>
bool readEnumeration(WordReader& reader, Enumeration& value)
{
    int number = 0;
    if (!reader.readNumber(number)) {
        return false;
    }
    value = static_cast<Enumeration>(number);
    return true;
}

bool readPoint(WordReader& reader, PointInfo& point)
{
    for (double* number : numbersOf(point)) {
        if (!reader.readNumber(*number)) {
            return false;
        }
    }
    int unified = 0;
    if (!readEnumeration(reader, point.type) || !reader.readNumber(unified)) {
        return false;
    }
    point.unifiedTangents = unified == 1;
    return unified == 0 || unified == 1 || reader.fail("unified tangents are told by 0 or 1");
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
    load(spline, static_cast<std::istream&>(stream));
}

SplineReadResult SplineBase::load(SplineBase* spline, std::istream& stream)
{
    SplineReadResult result;
    if (spline == nullptr) {
        result.problem = "there is no spline to read into";
        return result;
    }
    WordReader reader(stream);
    SplineBase loaded;
    unsigned count = 0;
    if (!reader.readNumber(count) || !readEnumeration(reader, loaded.firstType) ||
        !readEnumeration(reader, loaded.lastType) || !reader.readNumber(loaded.defaultValue)) {
        return reader.failure();
    }
    // The count is the file's word only: memory grows with the keys that are really there.
    std::vector<PointInfo> points;
    for (unsigned read = 0; read < count; ++read) {
        points.emplace_back();
        if (!readPoint(reader, points.back())) {
            return reader.failure();
        }
    }
    // Sorted once: a file may hold its keys in any order.
    loaded.addPoints(points);
    spline->freePoints();
    spline->controlPoints.swap(loaded.controlPoints);
    spline->serials.swap(loaded.serials);
    spline->firstType = loaded.firstType;
    spline->lastType = loaded.lastType;
    spline->defaultValue = loaded.defaultValue;
    spline->changed = true;
    result.isRead = true;
    return result;
}
