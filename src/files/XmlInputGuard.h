#pragma once

#include <QIODevice>
#include <QString>

namespace curve_files {

/// Hands the bytes of an XML file on to a stream reader and ends the input where the reader's work
/// would grow out of proportion to the file, so that the reader takes it for a document that ends
/// too early. It does so at
/// - a tag of more than two hundred attributes: the reader compares each with all others;
/// - elements more than ten thousand deep: the reader keeps a record of some 150 bytes for each;
/// - a file whose declarations (entities, defaults of attributes, namespaces) are so long and whose
///   tags and references so many that their product is beyond all use.
/// Files without such declarations, of any size, pass as they are; so do declarations of
/// elements, and a hundred attributes without defaults before 40,000 keys.
class XmlInputGuard : public QIODevice
{
public:
    /// The source is open for reading, and not owned.
    explicit XmlInputGuard(QIODevice& source);

    /// The limit that the file has met, in a sentence; empty as long as it has met none.
    QString refusal() const;

    bool isSequential() const override { return true; }
    bool atEnd() const override;
    qint64 bytesAvailable() const override;

protected:
    qint64 readData(char* data, qint64 longest) override;
    qint64 writeData(const char* data, qint64 length) override;

private:
    enum State : int
    {
        text,      ///< outside of tags, and in comments and instructions
        markup,    ///< behind "<"
        exclaimed, ///< behind "<!"
        tag,       ///< in a start tag
        blank,     ///< in a start tag, behind a blank
        slash,     ///< in a start tag, behind "/"
        singleQuoted,
        doubleQuoted,
        elementOrEntity, ///< behind "<!E"
        attributeList,   ///< in a list of attributes, none of which has had a default yet
        declaration      ///< in any other declaration of the document type
    };

    bool isHarmless(char byte);
    void step(char byte);
    void stepInDeclaration(char byte);
    void countNamespace(char byte);
    qint64 workOfList();
    static State behind(char byte);

    QIODevice& source;
    bool isEnded = false;
    State state = text;
    qint64 depth = 0;               ///< of elements
    int attributes = 0;             ///< of the present tag
    qint64 declared = 0;            ///< bytes of declarations, and namespaces
    const char* expected = nullptr; ///< the rest of "xmlns" while an attribute's name spells it
    qint64 listedInAll = 0;         ///< bytes of all lists of attributes
    qint64 listed = 0;              ///< bytes of the present list of attributes
    bool hasEntities = false;
    bool hasParameters = false; ///< entities that declarations refer to, with a "%"
    qint64 work = 0;
};

} // namespace curve_files
