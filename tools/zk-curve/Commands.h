#pragma once

#include <QString>
#include <QStringList>

/// The commands of the program, each on the words behind its name. They return an exit status;
/// `problem` then says what is wrong with the words where that is the usage status.
namespace commands {

int convert(const QStringList& words, QString& problem);
int check(const QStringList& words, QString& problem);
int sample(const QStringList& words, QString& problem);
int reduce(const QStringList& words, QString& problem);
int bake(const QStringList& words, QString& problem);
int plot(const QStringList& words, QString& problem);
int rename(const QStringList& words, QString& problem);

} // namespace commands
