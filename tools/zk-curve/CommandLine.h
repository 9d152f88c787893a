#pragma once

#include <QCommandLineOption>
#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

/// What was typed behind the name of a command: files, and options with their values. Anything that
/// does not fit is noted, and makes the command end with the usage status.
class CommandLine
{
public:
    /// `words` begin behind the name of the command. Of files there are `fewest` at least and,
    /// unless it is 0, `most` at most.
    CommandLine(const QStringList& words, const QList<QCommandLineOption>& options, int fewest,
                int most);

    const QStringList& files() const { return names; }
    bool has(const QString& option) const { return values.contains(option); }
    QString text(const QString& option, const QString& otherwise = QString()) const;
    QStringList texts(const QString& option) const { return values.value(option); }

    /// The number behind an option, none where the option was not typed.
    std::optional<double> number(const QString& option);
    /// Notes an option that must be there and is not.
    double neededNumber(const QString& option);
    /// A positive number, and what stands for it otherwise.
    double positiveNumber(const QString& option, double otherwise);

    /// Notes what is wrong; the first word stays.
    void fail(const QString& problem);
    bool isGood() const { return error.isEmpty(); }
    const QString& problem() const { return error; }

private:
    QStringList names;
    QHash<QString, QStringList> values;
    QString error;
};
