// The expression of a curve file as a text, and what a file can hold of it.

#include "core/CurveSampler.h"
#include "core/FunctionParserBase.h"
#include "core/ParseMessage.h"
#include "core/SplineBase.h"
#include "files/CurveContent.h"

#include <QCoreApplication>

#include <algorithm>
#include <ostream>
#include <string>

namespace curve_files {

namespace {

using NameFilter = std::function<bool(const QString& name)>;

QString tr(const char* text)
{
    return QCoreApplication::translate("CurveFile", text);
}

/// Parses with every name known that passes the filter.
ParseMessage messageOf(const std::string& text, const NameFilter& isKnown)
{
    CurveSampler::Source source;
    source.text = text;
    ParseMessage message;
    CurveSampler::make(
        source,
        [&](const std::string& name) -> std::optional<CurveSampler::Binding> {
            if (isKnown && !isKnown(QString::fromLocal8Bit(name.c_str()))) {
                return std::nullopt;
            }
            return 0.0;
        },
        &message);
    return message;
}

bool isBlank(const QChar& character)
{
    return character.isSpace();
}

/// Without the blanks between its words; those in quotes are part of a name, and spelt "\\s".
QString withoutBlanks(const QString& text)
{
    QString found;
    bool isQuoted = false;
    bool isEscaped = false;
    for (const QChar& character : text) {
        if (!isBlank(character)) {
            found.append(character);
        } else if (isQuoted) {
            found.append(QLatin1String("\\s"));
        }
        if (character == u'\'' && !isEscaped) {
            isQuoted = !isQuoted;
        }
        isEscaped = isQuoted && character == u'\\' && !isEscaped;
    }
    return found;
}

bool hasBlank(const QString& text)
{
    return std::any_of(text.begin(), text.end(), isBlank);
}

/// What the older format holds of an expression, which it reads back up to the first blank; with
/// blanks where there is no such text.
QString asOneWord(const QString& text)
{
    if (!hasBlank(text)) {
        return text;
    }
    const QString word = withoutBlanks(text);
    const bool isSound = messageOf(text.toLocal8Bit().toStdString(), {}).ok &&
                         messageOf(word.toLocal8Bit().toStdString(), {}).ok;
    return isSound ? word : text;
}

/// Whether an XML document can hold the text, and give it back as it is.
bool isXmlText(const QString& text)
{
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar character = text.at(i);
        if (character.isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate()) {
            ++i;
            continue;
        }
        const char16_t code = character.unicode();
        const bool isControl = code < 0x20 && code != u'\t' && code != u'\n';
        if (isControl || character.isSurrogate() || code >= 0xfffe) {
            return false;
        }
    }
    return true;
}

CurveFileResult notWritable(const QString& message)
{
    CurveFileResult result;
    result.problem = CurveFileResult::notWritable;
    result.message = message;
    return result;
}

} // namespace

CurveFileResult CurveContent::checkWritable(CurveFormat format) const
{
    if (type < splineCurve || type > splinePlusExpressionCurve) {
        return notWritable(tr("No curve file is of type %1").arg(type));
    }
    if (type == splineCurve) {
        return CurveFileResult();
    }
    if (format == CurveFormat::xml && !isXmlText(expressionText)) {
        return notWritable(tr("XML cannot hold the characters of the expression"));
    }
    if (format == CurveFormat::older && hasBlank(asOneWord(expressionText))) {
        return notWritable(tr("The older format cannot hold the blanks of the expression"));
    }
    return CurveFileResult();
}

CurveFileResult CurveContent::checkExpression(const NameFilter& isKnown) const
{
    CurveFileResult result;
    if (type == splineCurve || expressionText.isEmpty()) {
        return result; // which is what a curve without one is saved as
    }
    const ParseMessage found = messageOf(expressionText.toLocal8Bit().toStdString(), isKnown);
    if (found.ok) {
        return result;
    }
    result.problem = CurveFileResult::badExpression;
    const std::size_t place = std::min(static_cast<std::size_t>(std::max(found.errorDetail, 0)),
                                       found.expressionText.size());
    const QString before = QString::fromLocal8Bit(found.expressionText.substr(0, place).c_str());
    result.line = std::max<qint64>(expressionLine, 1) + before.count(u'\n');
    result.column = before.contains(u'\n') ? before.size() - before.lastIndexOf(u'\n')
                                           : std::max<qint64>(expressionColumn, 1) + before.size();
    if (found.errorKind == ParseMessage::unknownName && !found.errorSpans.empty()) {
        const auto [start, length] = found.errorSpans.front();
        result.name = QString::fromLocal8Bit(
            found.expressionText
                .substr(static_cast<std::size_t>(start), static_cast<std::size_t>(length))
                .c_str());
        result.message = tr("Variable %1 not found").arg(result.name);
    } else if (found.errorKind == ParseMessage::openParenthesis) {
        result.message = tr("Unmatched parenthesis");
    } else {
        constexpr qsizetype longest = 200; // no box can lay out a text of some megabytes
        result.message =
            tr("The expression cannot be parsed: %1").arg(expressionText.left(longest));
    }
    return result;
}

int CurveContent::renameInExpression(const QString& name, const QString& newName)
{
    // Names that are not the old one are known; the parser then stops at each place of the old one.
    const NameFilter isAnother = [&](const QString& other) {
        return other.compare(name, Qt::CaseInsensitive) != 0;
    };
    if (type == splineCurve || !isAnother(newName) || !checkExpression()) {
        return 0;
    }
    std::string text = expressionText.toLocal8Bit().toStdString();
    const std::string replacement =
        FunctionParserBase::writtenName(newName.toLocal8Bit().toStdString());
    int count = 0;
    for (;;) {
        const ParseMessage found = messageOf(text, isAnother);
        if (found.ok || found.errorKind != ParseMessage::unknownName || found.errorSpans.empty()) {
            break;
        }
        const auto [start, length] = found.errorSpans.front();
        text.replace(static_cast<std::size_t>(start), static_cast<std::size_t>(length),
                     replacement);
        ++count;
    }
    expressionText = QString::fromLocal8Bit(text.c_str());
    return count;
}

void CurveContent::writeOlderBody(std::ostream& stream) const
{
    stream << std::to_string(type) << '\n';
    if (type != splineCurve) {
        const std::string text = asOneWord(expressionText).toLocal8Bit().toStdString();
        // Without a word of its own the expression would be read from the first of the spline's.
        const bool needsWord = text.empty() && hasKeys(type);
        stream << (needsWord ? "0" : text) << '\n';
    }
    if (hasKeys(type)) {
        SplineBase spline;
        copyKeysTo(spline);
        SplineBase::save(spline, stream);
    }
}

} // namespace curve_files
