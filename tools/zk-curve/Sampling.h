#pragma once

#include "CommandLine.h"
#include "core/CurveSampler.h"
#include "files/CurveContent.h"

#include <QString>

#include <vector>

/// The values of a curve file at evenly spaced times, as the options --from, --to, --rate, --set
/// and --with tell them.
class Sampling
{
public:
    /// Notes on the command line what is wrong with its options.
    explicit Sampling(CommandLine& line);

    static QList<QCommandLineOption> options();

    /// Works out times and values; `name` stands for the file in messages. The times are those of
    /// the keys from the first to the last where no others were told.
    bool run(const QString& name, const curve_files::CurveContent& content);

    /// Where there are more frames than these, so many even steps take their place; 0 for none,
    /// and then some millions of frames are refused.
    int mostTimes = 0;

    std::vector<double> times;
    std::vector<double> values;

private:
    bool readOthers();
    bool findTimes(const QString& name, const curve_files::CurveContent& content);
    void addFrames(double first, double last);

    CommandLine& line;
    std::optional<double> from;
    std::optional<double> to;
    double rate;
    std::map<std::string, CurveSampler::Binding> constants;
};
