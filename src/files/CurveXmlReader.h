#pragma once

#include "files/CurveContent.h"

#include <QString>

#include <functional>

class QXmlStreamReader;

namespace curve_files {

/// Reads XML curve files from a stream. Errors stay in the stream; nothing is shown to the user.
///
///     QXmlStreamReader stream(&file);
///     CurveXmlReader reader(stream);
///     const bool read = reader.readDocument([&](CurveContent& content) { ... });
///     if (!read) { report(reader.errorText()); }
///
/// Elements are not matched by name at their end: a loop ends at the first end element that it
/// meets. So an unknown element ends the one that holds it, and what follows is read one level
/// up. Files have always been read like that.
class ZK_CURVE_FILES_EXPORT CurveXmlReader
{
public:
    /// The stream is not owned.
    explicit CurveXmlReader(QXmlStreamReader& stream);

    /// Reads a whole document. Returns whether it is without an error.
    bool readDocument(const CurveReceiver& receive);

    /// Reads on from the start element `curve`. Returns whether the stream is without an error.
    bool readCurve(CurveContent& content);

    /// Reads on from a start element `point`. Null after an error of the stream.
    std::unique_ptr<PointInfo> readControlPoint();

    /// Lets the stream fail with the message and the line and column of its place.
    void raiseXmlError(const QString& message);

    /// How it went.
    CurveFileResult result() const;

private:
    bool isAtCurveOfKnownVersion();
    void readCurveChild(CurveContent& content, int& type);
    void readCurveType(int& type);
    void readNodeType(int& type);
    void readPoints(CurveContent& content);
    PointInfo readPoint();
    void readPointChild(PointInfo& point);
    void readInterpolationType(PointInfo& point);
    double readNumber();
    const QString& readText();
    bool canGoOn() const;
    CurveFileResult failureHere(CurveFileResult::problems problem, const QString& message) const;
    void raiseXmlError(CurveFileResult::problems problem, const QString& message,
                       const QString& name = QString());

    QXmlStreamReader& stream;
    QString elementText;     // of readText: one buffer for all elements
    CurveFileResult failure; // of raiseXmlError; the stream may hold an error of its own
};

} // namespace curve_files
