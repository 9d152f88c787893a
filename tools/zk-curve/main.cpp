#include "Commands.h"
#include "CurveFiles.h"

#include <QCoreApplication>

#include <cstdio>

namespace {

constexpr const char* usage = R"(Usage: zk-curve COMMAND [OPTION...] FILE...

Reads and writes curve files, XML (.xml) and older ones (.crv), without a dialog. Formats are
recognised by the content; "-" stands for the standard input and output.

  convert [--format xml|crv] IN OUT
        Writes the same curve to another file, in the format of its name.
  check FILE...
        Tells what is wrong in which line and column, also with expressions.
  sample [--from S] [--to S] [--rate R] [--set NAME=V]... [--with FILE]... IN [OUT]
        Writes times and values as CSV, from S to S seconds, R times a second (25).
  reduce --tolerance T [--format xml|crv] IN OUT
        Writes a curve of fewer keys that stays within T of the first.
  bake [--from S] [--to S] [--rate R] [--set NAME=V]... [--with FILE]... IN OUT
        Writes a curve of a key for each frame, its expression worked in.
  plot [--from S] [--to S] [--rate R] [--width W] [--height H] IN OUT.png|OUT.svg
        Draws the curve.
  rename OLD NEW FILE...
        Puts a curve's new name for the old one in expressions, and renames the file called so.

  --set NAME=V   a variable of expressions
  --with FILE    another curve, which expressions name as the file is called

Exit status: 0 all went well, 1 some file is bad, 2 wrong usage.
)";

using Command = int (*)(const QStringList& words, QString& problem);

constexpr struct
{
    const char* name;
    Command run;
} table[] = {
    {"convert", commands::convert}, {"check", commands::check}, {"sample", commands::sample},
    {"reduce", commands::reduce},   {"bake", commands::bake},   {"plot", commands::plot},
    {"rename", commands::rename},
};

int runCommand(const QStringList& words)
{
    for (const auto& each : table) {
        if (words.value(0) == QLatin1String(each.name)) {
            QString problem;
            const int status = each.run(words.mid(1), problem);
            if (!problem.isEmpty()) {
                tell(QStringLiteral("zk-curve %1: %2 See zk-curve --help.").arg(words[0], problem));
            }
            return status;
        }
    }
    tell(words.isEmpty()
             ? QStringLiteral("zk-curve: There is no command. See zk-curve --help.")
             : QStringLiteral("zk-curve: No command \"%1\". See zk-curve --help.").arg(words[0]));
    return wrongUsage;
}

} // namespace

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    const QStringList words = QCoreApplication::arguments().mid(1);
    if (words.contains("--help") || words.contains("-h")) {
        std::fputs(usage, stdout);
        return allGood;
    }
    if (words.contains("--version")) {
        std::puts("zk-curve " VERSION);
        return allGood;
    }
    return runCommand(words);
}
