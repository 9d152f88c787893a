#pragma once

#include "core/FunctionFloatBase.h"
#include "core/PointInfo.h"
#include "files/CurveFileResult.h"
#include "files/CurveFormat.h"
#include "files/CurveType.h"
#include "zk_curve_files_export.h"

#include <QByteArray>
#include <QString>

#include <functional>
#include <iosfwd>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class FunctionParserBase;
class ParseMessage;
class ParserScope;
class QIODevice;
class SplineBase;

namespace curve_files {

/// What a curve file says of a curve: a value, which neither needs nor touches a live curve, a
/// parser or registered names.
///
///     CurveContent content;
///     const CurveFileResult result = content.readFile("arm.x.xml");
///     if (!result) {
///         report(result.text());
///     }
///     content.writeFile("arm.x.crv");
///
/// The text of the expression is kept as it is; `checkExpression` tells when asked whether it can
/// be one. Reading replaces the value only when all went well, unless an operation says otherwise.
struct ZK_CURVE_FILES_EXPORT CurveContent
{
    int type = splineCurve; ///< one of curveTypes, never mixed
    QString expressionText; ///< empty for none
    int firstNodeType = -1; ///< a SplineBase::nodeType, or -1 where the file has none
    int lastNodeType = -1;
    std::optional<double> defaultValue; ///< none where the format has none, which is XML
    std::vector<PointInfo> keys;        ///< in the order of the file
    int red = 255;                      ///< the colour, which the older format alone has, 0 to 255
    int green = 255;
    int blue = 255;

    /// Where in the file the text of the expression began; 0 where no file was read.
    qint64 expressionLine = 0;
    qint64 expressionColumn = 0;

    /// The bytes of the expression where they are no text of the local encoding, else empty. They
    /// count as long as `expressionText` is what they read as.
    QByteArray foreignBytes;

    /// The expression as the parser and the older format have it.
    std::string expressionBytes() const;
    /// Sets the text, and the bytes where they are none.
    void setExpressionBytes(const std::string& bytes);

    /// Whether the expression is added to the keys.
    bool isAddFunc() const { return type == splinePlusExpressionCurve; }

    /// The content of a live curve. Either may be null, and both stay as they are.
    static CurveContent of(const SplineBase* spline, const FunctionFloatBase* expression);
    /// The same with the type told, whatever the two are.
    static CurveContent of(int type, const SplineBase* spline, const FunctionFloatBase* expression);

    /// Reads on from where the device stands, which is open; the format is recognised by the
    /// content.
    CurveFileResult read(QIODevice& device);
    /// The same in one format. Of an older file of bad keys type and expression are taken.
    CurveFileResult read(QIODevice& device, CurveFormat format);
    /// Reads a file; the format is recognised by the content, and by the ending of the name where
    /// there is nothing to recognise. Neither pipes nor devices are opened. `format` may be null
    /// and is else given the format that was read.
    CurveFileResult readFile(const QString& path, CurveFormat* format = nullptr);

    /// Writes to a device that is open. Nothing is written that could not be read back.
    CurveFileResult write(QIODevice& device, CurveFormat format) const;
    /// Writes a file in the format of its name (see formatOfName). The old one outlives a failure.
    CurveFileResult writeFile(const QString& path) const;
    CurveFileResult writeFile(const QString& path, CurveFormat format) const;
    /// The older format from the line of the type on, behind the colour.
    void writeOlderBody(std::ostream& stream) const;

    /// What would keep the content from being written and read back.
    CurveFileResult checkWritable(CurveFormat format) const;
    /// What would keep the text from being an expression. `isKnown` tells whether a name stands for
    /// something, besides "t", "f" and "fps"; an empty function lets all names pass.
    CurveFileResult
    checkExpression(const std::function<bool(const QString& name)>& isKnown = {}) const;
    /// Puts another name, in quotes where it needs them, in each place where the expression
    /// mentions one, whatever the case of its letters, and returns how many there were; 0 where the
    /// text is no expression, or the new name would not be read back as it is ("t", an empty one).
    int renameInExpression(const QString& name, const QString& newName);

    /// The tree of the expression; null when the type has none or the text does not parse. The
    /// scope, which may be null, is whose names it reads first.
    std::unique_ptr<FunctionFloatBase> parseExpression(FunctionParserBase& parser,
                                                       ParseMessage& message,
                                                       const ParserScope* scope = nullptr) const;

    /// Replaces keys and behaviours of the spline, and its default value where there is one.
    void copyKeysTo(SplineBase& spline) const;
    /// Replaces keys and behaviours of the spline if the type has them, the expression in the
    /// slot if the type has one, and the add func flag. Either may be null: what belongs there is
    /// dropped.
    void copyTo(SplineBase* spline, FunctionFloatBase** slot,
                std::unique_ptr<FunctionFloatBase> expression) const;
};

/// Receives a curve of an XML document as soon as it has been read, though an error may follow.
using CurveReceiver = std::function<void(const CurveContent&)>;

/// Reads an XML document from a device that is open, curve by curve.
ZK_CURVE_FILES_EXPORT CurveFileResult readXmlDocument(QIODevice& device,
                                                      const CurveReceiver& receive);

} // namespace curve_files
