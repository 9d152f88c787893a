#include "files/XmlInputGuard.h"

#include <QCoreApplication>

#include <cstring>

namespace curve_files {

namespace {

constexpr int mostAttributes = 200;
constexpr qint64 deepest = 10000;
constexpr qint64 mostWork = 400000000;
constexpr qint64 workOfReference = 65536; // some times what the reader lets an entity grow to
// The reader passes over each attribute of a list at each tag. A few of them stay close at hand,
// and are less work than a byte of a default for each of their bytes.
constexpr qint64 mostBytesAtHand = 4000;
constexpr qint64 bytesOfAttributeWork = 6;

QString translated(const char* text)
{
    return QCoreApplication::translate("XmlInputGuard", text);
}

} // namespace

XmlInputGuard::XmlInputGuard(QIODevice& device)
    : source(device)
{
    open(QIODevice::ReadOnly | QIODevice::Unbuffered);
}

bool XmlInputGuard::atEnd() const
{
    return isEnded || source.atEnd();
}

qint64 XmlInputGuard::bytesAvailable() const
{
    return isEnded ? 0 : source.bytesAvailable();
}

qint64 XmlInputGuard::readData(char* data, qint64 longest)
{
    if (isEnded) {
        return -1;
    }
    const qint64 length = source.read(data, longest);
    if (length < 0) {
        return length;
    }
    const char* const end = data + length;
    for (const char* byte = data; byte < end; ++byte) {
        if (state == text && !hasEntities) { // where only a tag matters
            byte = static_cast<const char*>(
                std::memchr(byte, '<', static_cast<std::size_t>(end - byte)));
            if (!byte) {
                break;
            }
        }
        if (!isHarmless(*byte)) {
            isEnded = true;
            return byte - data;
        }
    }
    return length;
}

qint64 XmlInputGuard::writeData(const char*, qint64)
{
    return -1;
}

QString XmlInputGuard::refusal() const
{
    if (!isEnded) {
        return QString();
    }
    if (attributes > mostAttributes) {
        return translated("A tag has more than %1 attributes").arg(mostAttributes);
    }
    if (depth > deepest) {
        return translated("Elements are more than %1 deep").arg(deepest);
    }
    return translated("Declarations are too long, or too many tags and references follow them");
}

bool XmlInputGuard::isHarmless(char byte)
{
    if (byte == '\0') {
        return true; // half a character of a two-byte encoding
    }
    if (byte == '<') {
        // Stands in no value of an attribute, so that a tag is met whatever came before it.
        state = markup;
        attributes = 0;
        expected = nullptr;
        work += declared;
    } else if (byte == '&') {
        work += hasEntities ? workOfReference : 0;
    } else if (byte == '%' && hasEntities) {
        // Only where a declaration holds one can "%name;" stand for a longer text.
        hasParameters = hasParameters || state == declaration;
        work += hasParameters ? workOfReference : 0;
    } else if (state != text) {
        step(byte);
    }
    return attributes <= mostAttributes && depth <= deepest && work <= mostWork;
}

/// The state behind a byte that stands in a start tag and in no quotes.
XmlInputGuard::State XmlInputGuard::behind(char byte)
{
    switch (byte) {
    case '"':
        return doubleQuoted;
    case '\'':
        return singleQuoted;
    case '>':
        return text;
    case '/':
        return slash;
    case ' ':
    case '\n':
    case '\t':
    case '\r':
        return blank;
    default:
        return tag;
    }
}

/// An attribute whose name begins with "xmlns" counts as a namespace.
void XmlInputGuard::countNamespace(char byte)
{
    expected = expected && *expected == byte ? expected + 1 : nullptr;
    if (expected && !*expected) {
        ++declared;
        expected = nullptr;
    }
}

/// What a list of attributes without defaults, which ends here, makes each tag cost.
qint64 XmlInputGuard::workOfList()
{
    const qint64 before = listedInAll - listed;
    const qint64 atHand = qBound(qint64(0), mostBytesAtHand - before, listed);
    return atHand / bytesOfAttributeWork + (listed - atHand) + 1;
}

void XmlInputGuard::stepInDeclaration(char byte)
{
    switch (state) {
    case exclaimed:
        // "<!ENTITY", "<!ELEMENT", "<!ATTLIST", "<!NOTATION"
        state = byte == 'E'   ? elementOrEntity
                : byte == 'A' ? attributeList
                : byte == 'N' ? declaration
                              : text;
        listed = 0;
        break;
    case elementOrEntity:
        // The reader forgets what an element may hold.
        state = byte == 'L' ? text : declaration;
        hasEntities = hasEntities || state == declaration;
        break;
    case attributeList:
        ++listed;
        ++listedInAll;
        // Each attribute has a default or a word behind a "#", and is compared with all others.
        work += byte == '#' ? listedInAll : 0;
        if (byte == '>') {
            declared += workOfList();
            state = text;
        } else if (byte == '"' || byte == '\'') {
            declared += listed;
            state = declaration;
        }
        break;
    case declaration:
        ++declared;
        work += byte == '"' || byte == '\'' ? declared : 0; // the reader compares them, too
        break;
    default:
        break;
    }
}

void XmlInputGuard::step(char byte)
{
    switch (state) {
    case markup:
        state = byte == '!' ? exclaimed : byte == '?' || byte == '/' ? text : tag;
        depth = byte == '/' ? qMax(depth - 1, qint64(0)) : state == tag ? depth + 1 : depth;
        break;
    case exclaimed:
    case elementOrEntity:
    case attributeList:
    case declaration:
        stepInDeclaration(byte);
        break;
    case blank:
        expected = "xmlns";
        [[fallthrough]];
    case slash:
        depth -= state == slash && byte == '>' ? 1 : 0;
        [[fallthrough]];
    case tag:
        attributes += byte == '=' ? 1 : 0;
        countNamespace(byte);
        state = behind(byte);
        break;
    case singleQuoted:
        state = byte == '\'' ? blank : singleQuoted;
        break;
    case doubleQuoted:
        state = byte == '"' ? blank : doubleQuoted;
        break;
    default:
        break;
    }
}

} // namespace curve_files
