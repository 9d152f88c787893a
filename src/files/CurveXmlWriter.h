#pragma once

#include "zk_curve_files_export.h"

class QString;
class QXmlStreamWriter;
struct PointInfo;

namespace curve_files {

struct CurveContent;

/// Writes XML curve files to a stream. Numbers have six significant digits.
class ZK_CURVE_FILES_EXPORT CurveXmlWriter
{
public:
    /// The stream is not owned.
    explicit CurveXmlWriter(QXmlStreamWriter& stream);

    /// A whole document.
    void writeDocument(const CurveContent& content);

    /// The element `curve` alone.
    void writeCurve(const CurveContent& content);

private:
    void writeKeys(const CurveContent& content);
    void writePoint(const PointInfo& point);
    void writeText(const char* element, const QString& text);
    void writeNumber(const char* element, const double& number);

    QXmlStreamWriter& stream;
};

} // namespace curve_files
