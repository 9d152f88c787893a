#include "Sampling.h"

#include "CurveFiles.h"
#include "core/ParseMessage.h"
#include "core/RoundingNoise.h"
#include "core/SamplerRig.h"
#include "core/SplineBase.h"

#include <QFileInfo>

#include <cmath>
#include <deque>

using curve_files::CurveContent;

namespace {

constexpr double usualRate = 25.0;
constexpr double mostFrames = 5e6;

/// How an expression names a curve: in lower case, with "_" for blanks.
std::string nameInExpressions(const QString& dotName)
{
    return dotName.toLower().replace(u' ', u'_').toLocal8Bit().toStdString();
}

/// A curve as a rig takes it, with the spline that it is made from.
struct Source
{
    SplineBase spline;
    CurveSampler::Source source;

    Source(const CurveContent& content, double rate)
    {
        if (hasKeys(content.type)) {
            content.copyKeysTo(spline);
            spline.setAddFunc(content.isAddFunc());
            source.spline = &spline;
        }
        if (content.type != splineCurve) {
            source.text = content.expressionBytes();
        }
        source.fps = rate;
    }
};

} // namespace

Sampling::Sampling(CommandLine& commandLine)
    : line(commandLine)
    , from(line.number("from"))
    , to(line.number("to"))
    , rate(line.positiveNumber("rate", usualRate))
{
    if (from && to && *from > *to) {
        line.fail(QStringLiteral("--from lies behind --to."));
    }
    const QStringList settings = line.texts("set");
    for (const QString& setting : settings) {
        bool isNumber = false;
        const double value = setting.section(u'=', 1).toDouble(&isNumber);
        if (!isNumber) {
            line.fail(QStringLiteral("--set wants NAME=NUMBER, not \"%1\".").arg(setting));
        }
        constants[nameInExpressions(setting.section(u'=', 0, 0))] = value;
    }
}

QList<QCommandLineOption> Sampling::options()
{
    return {{"from", "", "S"},
            {"to", "", "S"},
            {"rate", "", "R"},
            {"set", "", "N=V"},
            {"with", "", "FILE"}};
}

bool Sampling::findTimes(const QString& name, const CurveContent& content)
{
    SplineBase keys;
    keys.addPoints(content.keys);
    if (!keys.firstKey() && !(from && to)) {
        tell(QStringLiteral("%1: It has no keys; tell --from and --to.").arg(shownName(name)));
        return false;
    }
    const double first = from.value_or(keys.firstKey() ? keys.firstKey()->time : 0.0);
    const double last = to.value_or(keys.firstKey() ? keys.lastKey()->time : 0.0);
    const double frames = (last - first) * rate;
    times.clear();
    if (!std::isfinite(first) || !std::isfinite(last) || last < first) {
        tell(QStringLiteral("%1: There are no frames from %2 to %3.")
                 .arg(shownName(name))
                 .arg(first)
                 .arg(last));
    } else if (mostTimes > 0 && frames > mostTimes) {
        for (int i = 0; i <= mostTimes; ++i) {
            const double share = static_cast<double>(i) / mostTimes;
            times.push_back(first * (1.0 - share) + last * share);
        }
    } else if (frames > mostFrames) {
        tell(QStringLiteral("%1: From %2 to %3 there are more than %4 frames.")
                 .arg(shownName(name))
                 .arg(first)
                 .arg(last)
                 .arg(mostFrames, 0, 'f', 0));
    } else {
        addFrames(first, last);
    }
    return !times.empty();
}

/// As baked splines have them: one that falls on the end but for roundings is the end.
void Sampling::addFrames(double first, double last)
{
    const double frames = (last - first) * rate;
    const double noise = frames == 0.0 ? 0.0 : roundingNoise(std::abs(first * rate) + frames);
    for (double frame = 0.0; frame + noise < frames; frame += 1.0) {
        times.push_back(first + frame / rate);
    }
    times.push_back(last);
}

bool Sampling::run(const QString& name, const CurveContent& content)
{
    if (!findTimes(name, content)) {
        return false;
    }
    std::deque<Source> sources; // which stay where they are
    std::map<std::string, CurveSampler::Source> rig;
    const QStringList others = line.texts("with");
    for (const QString& other : others) {
        CurveContent read;
        if (!readCurve(other, read)) {
            return false;
        }
        sources.emplace_back(read, rate);
        rig[nameInExpressions(QFileInfo(other).completeBaseName())] = sources.back().source;
    }
    // Not a name that an expression can hold, so that no other curve goes by it.
    const std::string own = " ";
    sources.emplace_back(content, rate);
    rig[own] = sources.back().source;
    const curve_files::CurveFileResult checked = content.checkExpression([&](const QString& word) {
        const std::string text = nameInExpressions(word);
        return constants.count(text) > 0 || rig.count(text) > 0;
    });
    const SamplerRig curves(rig, CurveSampler::named(constants));
    const CurveSampler::Pointer sampler = curves.sampler(own);
    if (!checked) {
        tell(name, checked);
        return false;
    }
    if (!sampler) {
        tell(QStringLiteral("%1: Its expression is too deep.").arg(shownName(name)));
        return false;
    }
    values = sampler->values(times);
    return true;
}
