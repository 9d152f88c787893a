#include "Commands.h"

#include "CommandLine.h"
#include "CurveFiles.h"
#include "Plot.h"
#include "Sampling.h"
#include "core/SplineBase.h"

#include <array>
#include <charconv>

using curve_files::CurveContent;
using curve_files::CurveFormat;

namespace {

constexpr double smallestPicture = 16.0;
constexpr double greatestPicture = 16384.0;
constexpr int pointsOfPixel = 8;

const QCommandLineOption formatOption("format", "", "F");

/// The format in which a file is to be written: as told, else by the name, and on the standard
/// stream that of what was read.
CurveFormat formatToWrite(CommandLine& line, const QString& name, CurveFormat read)
{
    const QString text = line.text("format");
    if (text == QLatin1String("xml")) {
        return CurveFormat::xml;
    }
    if (text == QLatin1String("crv")) {
        return CurveFormat::older;
    }
    return name == QLatin1String("-") ? read : curve_files::formatOfName(name);
}

void checkFormat(CommandLine& line)
{
    const QString text = line.text("format", "xml");
    if (text != QLatin1String("xml") && text != QLatin1String("crv")) {
        line.fail(QStringLiteral("--format wants xml or crv, not \"%1\".").arg(text));
    }
}

/// Reads the first file, changes what it says, and writes it to the second.
template <typename Change>
int fromFileToFile(CommandLine& line, QString& problem, const Change& change)
{
    checkFormat(line);
    if (!line.isGood()) {
        problem = line.problem();
        return wrongUsage;
    }
    const QString from = line.files().first();
    const QString to = line.files().last();
    CurveContent content;
    CurveFormat format = CurveFormat::xml;
    const bool isDone = readCurve(from, content, &format) && change(from, content) &&
                        writeCurve(to, content, formatToWrite(line, to, format));
    return isDone ? allGood : someFileBad;
}

/// What is no curve must not take the place of the curve that it is made from.
void refuseToReplaceSource(CommandLine& line)
{
    if (line.files().size() > 1 && isSameFile(line.files().first(), line.files().last())) {
        line.fail(QStringLiteral("IN and OUT are the same file."));
    }
}

void takeKeys(CurveContent& content, const SplineBase& spline)
{
    content.keys.clear();
    for (const PointInfo* key : spline.keys()) {
        content.keys.push_back(*key);
    }
}

void append(QByteArray& text, double number)
{
    constexpr std::size_t longestNumber = 32;
    std::array<char, longestNumber> digits;
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    text.append(digits.data(), end - digits.data());
}

} // namespace

namespace commands {

int convert(const QStringList& words, QString& problem)
{
    CommandLine line(words, {formatOption}, 2, 2);
    return fromFileToFile(line, problem, [](const QString&, CurveContent&) { return true; });
}

int check(const QStringList& words, QString& problem)
{
    const CommandLine line(words, {}, 1, 0);
    if (!line.isGood()) {
        problem = line.problem();
        return wrongUsage;
    }
    return forEachFile(line.files(), [](const QString& name) {
        CurveContent content;
        if (!readCurve(name, content)) {
            return false;
        }
        const curve_files::CurveFileResult result = content.checkExpression();
        if (!result) {
            tell(name, result);
        }
        return static_cast<bool>(result);
    });
}

int sample(const QStringList& words, QString& problem)
{
    CommandLine line(words, Sampling::options(), 1, 2);
    Sampling sampling(line);
    refuseToReplaceSource(line);
    if (!line.isGood()) {
        problem = line.problem();
        return wrongUsage;
    }
    const QString from = line.files().first();
    CurveContent content;
    if (!readCurve(from, content) || !sampling.run(from, content)) {
        return someFileBad;
    }
    QByteArray text = "time,value\n";
    for (std::size_t i = 0; i < sampling.times.size(); ++i) {
        append(text, sampling.times[i]);
        text += ',';
        append(text, sampling.values[i]);
        text += '\n';
    }
    return writeBytes(line.files().value(1, "-"), text) ? allGood : someFileBad;
}

int reduce(const QStringList& words, QString& problem)
{
    CommandLine line(words, {formatOption, {"tolerance", "", "T"}}, 2, 2);
    const double tolerance = line.neededNumber("tolerance");
    return fromFileToFile(line, problem, [&](const QString& name, CurveContent& content) {
        if (!hasKeys(content.type)) {
            tell(QStringLiteral("%1: It has no keys.").arg(shownName(name)));
            return false;
        }
        SplineBase spline;
        content.copyKeysTo(spline);
        takeKeys(content, spline.reduce(tolerance));
        return true;
    });
}

int bake(const QStringList& words, QString& problem)
{
    CommandLine line(words, QList<QCommandLineOption>{formatOption} + Sampling::options(), 2, 2);
    Sampling sampling(line);
    return fromFileToFile(line, problem, [&](const QString& name, CurveContent& content) {
        if (!sampling.run(name, content)) {
            return false;
        }
        content.type = splineCurve;
        content.expressionText.clear();
        content.keys.clear();
        for (std::size_t i = 0; i < sampling.times.size(); ++i) {
            PointInfo key;
            key.time = sampling.times[i];
            key.value = sampling.values[i];
            key.type = zk_spline::linear;
            content.keys.push_back(key);
        }
        return true;
    });
}

int plot(const QStringList& words, QString& problem)
{
    CommandLine line(words,
                     QList<QCommandLineOption>{{"width", "", "W"}, {"height", "", "H"}} +
                         Sampling::options(),
                     2, 2);
    Sampling sampling(line);
    const double width = line.positiveNumber("width", 640.0);
    const double height = line.positiveNumber("height", 360.0);
    if (!(std::min(width, height) >= smallestPicture &&
          std::max(width, height) <= greatestPicture)) {
        line.fail(QStringLiteral("A picture has 16 to 16384 pixels on each side."));
    }
    const QString to = line.files().value(1);
    const bool isSvg = to.endsWith(QLatin1String(".svg"), Qt::CaseInsensitive);
    if (!isSvg && !to.endsWith(QLatin1String(".png"), Qt::CaseInsensitive)) {
        line.fail(QStringLiteral("The picture's name must end in .png or .svg."));
    }
    refuseToReplaceSource(line);
    if (!line.isGood()) {
        problem = line.problem();
        return wrongUsage;
    }
    sampling.mostTimes = pointsOfPixel * static_cast<int>(width);
    const QString from = line.files().first();
    CurveContent content;
    if (!readCurve(from, content) || !sampling.run(from, content)) {
        return someFileBad;
    }
    const Plot picture = {sampling.times, sampling.values, static_cast<int>(width),
                          static_cast<int>(height)};
    const QByteArray bytes = isSvg ? picture.svg() : picture.png();
    if (bytes.isEmpty()) {
        tell(QStringLiteral("%1: The picture cannot be made.").arg(to));
        return someFileBad;
    }
    return writeBytes(to, bytes) ? allGood : someFileBad;
}

} // namespace commands
