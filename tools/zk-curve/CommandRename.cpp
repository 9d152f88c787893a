#include "CommandLine.h"
#include "Commands.h"
#include "CurveFiles.h"
#include "core/FunctionParserBase.h"

#include <QFile>
#include <QFileInfo>

using curve_files::CurveContent;
using curve_files::CurveFormat;

namespace {

/// How an expression names a curve: in lower case, with "_" for blanks.
QString nameInExpressions(const QString& dotName)
{
    return dotName.toLower().replace(u' ', u'_');
}

/// Whether an expression of this name alone, in quotes where it needs them, is that name.
bool isReadAsName(const QString& name)
{
    bool isAsked = false;
    CurveContent content;
    content.type = expressionCurve;
    content.expressionText = QString::fromLocal8Bit(
        FunctionParserBase::writtenName(name.toLocal8Bit().toStdString()).c_str());
    const curve_files::CurveFileResult result = content.checkExpression([&](const QString& word) {
        isAsked = isAsked || word == name;
        return true;
    });
    return result && isAsked;
}

/// The file of the old name gets the new one, in its folder and with its ending. Empty for others.
QString targetOf(const QString& path, const QString& oldName, const QString& newName)
{
    const QFileInfo file(path);
    if (path == QLatin1String("-") ||
        file.completeBaseName() != curve_files::fileNameOfCurve(oldName)) {
        return QString();
    }
    return file.path() + u'/' + curve_files::fileNameOfCurve(newName) + u'.' + file.suffix();
}

bool areTargetsFree(const QStringList& paths, const QString& oldName, const QString& newName)
{
    bool areFree = true;
    for (const QString& path : paths) {
        const QString target = targetOf(path, oldName, newName);
        if (!target.isEmpty() && QFileInfo::exists(target)) {
            tell(QStringLiteral("%1: There is a %2 already.").arg(path, target));
            areFree = false;
        }
    }
    return areFree;
}

bool renameFile(const QString& path, const QString& target)
{
    QFile moved(path);
    if (target.isEmpty() || moved.rename(target)) {
        return true;
    }
    tell(QStringLiteral("%1: %2").arg(path, moved.errorString()));
    return false;
}

} // namespace

namespace commands {

int rename(const QStringList& words, QString& problem)
{
    CommandLine line(words, {}, 3, 0);
    const QString oldName = line.files().value(0);
    const QString newName = line.files().value(1);
    const QString newWord = nameInExpressions(newName);
    if (line.isGood() && !isReadAsName(newWord)) {
        line.fail(QStringLiteral("No expression can name a curve \"%1\".").arg(newName));
    }
    if (!line.isGood()) {
        problem = line.problem();
        return wrongUsage;
    }
    const QStringList paths = line.files().mid(2);
    if (!areTargetsFree(paths, oldName, newName)) {
        return someFileBad;
    }
    return forEachFile(paths, [&](const QString& name) {
        CurveContent content;
        CurveFormat format = CurveFormat::xml;
        if (!readCurve(name, content, &format)) {
            return false;
        }
        const bool isStream = name == QLatin1String("-");
        const int count = content.renameInExpression(nameInExpressions(oldName), newWord);
        const bool needsWriting = count > 0 || isStream;
        if (needsWriting && !writeCurve(name, content, format)) {
            return false;
        }
        return renameFile(name, targetOf(name, oldName, newName));
    });
}

} // namespace commands
