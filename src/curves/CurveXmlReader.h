#pragma once

#include "curves/CurveXmlContent.h"

#include <QString>

#include <functional>

class QXmlStreamReader;

namespace curve_editor {

/// Reads XML curve files from a stream. Errors stay in the stream; nothing is shown to the user.
///
///     QXmlStreamReader stream(&file);
///     CurveXmlReader reader(stream);
///     const bool read = reader.readDocument([&](CurveXmlContent& content) { ... });
///     if (!read) { report(reader.errorText()); }
///
/// Elements are not matched by name at their end: a loop ends at the first end element that it
/// meets. So an unknown element ends the one that holds it, and what follows is read one level
/// up. Files have always been read like that.
class CurveXmlReader
{
public:
    /// Receives a curve as soon as its element has been read, though an error may still follow.
    using Receiver = std::function<void(CurveXmlContent&)>;

    /// The stream is not owned.
    explicit CurveXmlReader(QXmlStreamReader& stream);

    /// Reads a whole document. Returns whether it is without an error.
    bool readDocument(const Receiver& receive);

    /// Reads on from the start element `curve`. Returns whether the stream is without an error.
    bool readCurve(CurveXmlContent& content);

    /// Reads on from the start element `point`. What was read until an error is no key.
    std::unique_ptr<PointInfo> readControlPoint();

    /// Lets the stream fail with the message and the line and column of its place.
    void raiseXmlError(const QString& message);

    /// The error with the line and column of its place.
    QString errorText() const;

private:
    bool isAtCurveOfKnownVersion();
    void readCurveChild(CurveXmlContent& content, int& type);
    void readCurveType(int& type);
    void readNodeType(int& type);
    void readPoints(CurveXmlContent& content);
    void readPointChild(PointInfo& point);
    void readInterpolationType(PointInfo& point);
    double readNumber();
    const QString& readText();
    bool canGoOn() const;
    QString withPlace(const QString& message) const;

    QXmlStreamReader& stream;
    QString elementText;       // of readText: one buffer for all elements
    bool foundElement = false; // the error is an element inside of a text
};

} // namespace curve_editor
