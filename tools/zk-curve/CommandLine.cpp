#include "CommandLine.h"

#include <QCommandLineParser>

#include <cmath>

CommandLine::CommandLine(const QStringList& words, const QList<QCommandLineOption>& options,
                         int fewest, int most)
{
    QCommandLineParser parser;
    parser.addOptions(options);
    if (!parser.parse(QStringList(QStringLiteral("zk-curve")) + words)) {
        fail(parser.errorText());
        return;
    }
    names = parser.positionalArguments();
    for (const QCommandLineOption& option : options) {
        const QString name = option.names().last();
        if (parser.isSet(name)) {
            values[name] = parser.values(name);
        }
    }
    if (names.size() < fewest) {
        fail(QStringLiteral("There are too few file names."));
    } else if (most > 0 && names.size() > most) {
        fail(QStringLiteral("There are too many file names."));
    }
}

QString CommandLine::text(const QString& option, const QString& otherwise) const
{
    return has(option) ? values.value(option).last() : otherwise;
}

std::optional<double> CommandLine::number(const QString& option)
{
    if (!has(option)) {
        return std::nullopt;
    }
    bool isNumber = false;
    const double value = text(option).toDouble(&isNumber);
    if (!isNumber || !std::isfinite(value)) {
        fail(QStringLiteral("--%1 wants a number, not \"%2\".").arg(option, text(option)));
    }
    return value;
}

double CommandLine::neededNumber(const QString& option)
{
    const std::optional<double> value = number(option);
    if (!value) {
        fail(QStringLiteral("--%1 is missing.").arg(option));
    }
    return value.value_or(0.0);
}

double CommandLine::positiveNumber(const QString& option, double otherwise)
{
    const double value = number(option).value_or(otherwise);
    if (!(value > 0.0)) {
        fail(QStringLiteral("--%1 wants a number above 0.").arg(option));
    }
    return value;
}

void CommandLine::fail(const QString& problem)
{
    if (error.isEmpty()) {
        error = problem;
    }
}
