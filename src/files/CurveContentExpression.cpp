// The expression of a curve file as a text, and what a file can hold of it.

#include "core/CurveSampler.h"
#include "core/ExpressionLexer.h"
#include "core/FunctionParserBase.h"
#include "core/ParseMessage.h"
#include "core/SplineBase.h"
#include "files/CurveContent.h"

#include <QCoreApplication>
#include <QSet>

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

/// All of it, also behind a zero.
QString textOf(const std::string& bytes)
{
    return QString::fromLocal8Bit(QByteArray::fromStdString(bytes));
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
            if (isKnown && !isKnown(textOf(name))) {
                return std::nullopt;
            }
            return 0.0;
        },
        &message);
    return message;
}

/// What ends a word of the older format.
bool isBlank(char byte)
{
    return byte == ' ' || (byte >= '\t' && byte <= '\r');
}

/// Without the blanks between its words; those in quotes are part of a name, and spelt "\\s".
std::string withoutBlanks(const std::string& text)
{
    using Lexer = ExpressionLexer;
    std::string found;
    Lexer lexer(text);
    for (Lexer::Token token = lexer.next(); token.kind != Lexer::end; token = lexer.next()) {
        for (const char byte : text.substr(token.start, token.length)) {
            found += token.isQuoted && byte == ' ' ? std::string("\\s") : std::string(1, byte);
        }
    }
    return found;
}

bool hasBlank(const std::string& text)
{
    return std::any_of(text.begin(), text.end(), isBlank);
}

/// What the older format holds of an expression, which it reads back up to the first blank; with
/// blanks where there is no such text.
std::string asOneWord(const std::string& text)
{
    if (!hasBlank(text)) {
        return text;
    }
    const std::string word = withoutBlanks(text);
    return messageOf(text, {}).ok && messageOf(word, {}).ok ? word : text;
}

/// Whether the written name is read as the name.
bool isReadAs(const std::string& written, const QString& name)
{
    bool isAsked = false;
    const ParseMessage message = messageOf(written, [&](const QString& word) {
        isAsked = isAsked || word == name;
        return true;
    });
    return message.ok && isAsked;
}

/// Whether the text is without control characters and halves of characters.
bool isSound(const QString& text)
{
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar character = text.at(i);
        if (character.isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate()) {
            ++i;
            continue;
        }
        const char16_t code = character.unicode();
        const bool isControl = code < 0x20 && code != u'\t' && code != u'\n';
        if (isControl || character.isSurrogate()) {
            return false;
        }
    }
    return true;
}

bool isXmlCharacter(const QChar& character)
{
    return character.unicode() < 0xfffe;
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
    const std::string bytes = expressionBytes();
    if (format == CurveFormat::xml) {
        const bool isText =
            isSound(expressionText) &&
            std::all_of(expressionText.begin(), expressionText.end(), isXmlCharacter) &&
            expressionText.toLocal8Bit().toStdString() == bytes;
        return isText ? CurveFileResult()
                      : notWritable(tr("XML cannot hold the characters of the expression"));
    }
    const std::string word = asOneWord(bytes);
    if (hasBlank(word)) {
        return notWritable(tr("The older format cannot hold the blanks of the expression"));
    }
    if (!isSound(textOf(word)) || textOf(bytes) != expressionText) {
        return notWritable(tr("The older format cannot hold the characters of the expression"));
    }
    return CurveFileResult();
}

std::string CurveContent::expressionBytes() const
{
    const bool isForeign =
        !foreignBytes.isEmpty() && QString::fromLocal8Bit(foreignBytes) == expressionText;
    return (isForeign ? foreignBytes : expressionText.toLocal8Bit()).toStdString();
}

void CurveContent::setExpressionBytes(const std::string& bytes)
{
    expressionText = textOf(bytes);
    const bool isText = expressionText.toLocal8Bit().toStdString() == bytes;
    foreignBytes = isText ? QByteArray() : QByteArray::fromStdString(bytes);
}

CurveFileResult CurveContent::checkExpression(const NameFilter& isKnown) const
{
    CurveFileResult result;
    if (type == splineCurve || expressionText.isEmpty()) {
        return result; // which is what a curve without one is saved as
    }
    const ParseMessage found = messageOf(expressionBytes(), isKnown);
    if (found.ok) {
        return result;
    }
    result.problem = CurveFileResult::badExpression;
    const std::size_t place = std::min(static_cast<std::size_t>(std::max(found.errorDetail, 0)),
                                       found.expressionText.size());
    const QString before = textOf(found.expressionText.substr(0, place));
    result.line = std::max<qint64>(expressionLine, 1) + before.count(u'\n');
    result.column = before.contains(u'\n') ? before.size() - before.lastIndexOf(u'\n')
                                           : std::max<qint64>(expressionColumn, 1) + before.size();
    if (found.errorKind == ParseMessage::unknownName && !found.errorSpans.empty()) {
        const auto [start, length] = found.errorSpans.front();
        result.name = textOf(found.expressionText.substr(static_cast<std::size_t>(start),
                                                         static_cast<std::size_t>(length)));
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
    using Lexer = ExpressionLexer;
    const std::string written =
        FunctionParserBase::writtenName(newName.toLocal8Bit().toStdString());
    const bool isSame = newName.compare(name, Qt::CaseInsensitive) == 0;
    if (type == splineCurve || isSame || !isReadAs(written, newName)) {
        return 0;
    }
    const std::string text = expressionBytes();
    QSet<QString> spellings; // of the old name, where it is a variable's
    const ParseMessage message = messageOf(text, [&](const QString& word) {
        if (word.compare(name, Qt::CaseInsensitive) == 0) {
            spellings.insert(word);
        }
        return true;
    });
    if (!message.ok || spellings.isEmpty()) {
        return 0;
    }
    int count = 0;
    std::string renamed;
    std::size_t copied = 0;
    Lexer lexer(text);
    for (Lexer::Token token = lexer.next(), next; token.kind != Lexer::end; token = next) {
        next = lexer.next();
        const bool isFunction = !token.isQuoted && next.sign == '(';
        if (token.kind == Lexer::name && !isFunction &&
            spellings.contains(textOf(lexer.nameOf(token)))) {
            renamed.append(text, copied, token.start - copied).append(written);
            copied = token.start + token.length;
            ++count;
        }
    }
    setExpressionBytes(renamed.append(text, copied));
    return count;
}

void CurveContent::writeOlderBody(std::ostream& stream) const
{
    stream << std::to_string(type) << '\n';
    if (type != splineCurve) {
        const std::string text = asOneWord(expressionBytes());
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
