#pragma once

class FunctionFloatBase;
class QString;
class QXmlStreamWriter;
class SplineBase;
struct PointInfo;

namespace curve_editor {

/// Writes XML curve files to a stream. Numbers have six significant digits.
class CurveXmlWriter
{
public:
    /// The stream is not owned.
    explicit CurveXmlWriter(QXmlStreamWriter& stream);

    /// A whole document. `type` is one of curves/CurveType.h. Spline and expression are not
    /// changed; either may be null.
    void writeDocument(const int& type, SplineBase* spline, const FunctionFloatBase* expression);

    /// The element `curve` alone.
    void writeCurve(const int& type, SplineBase* spline, const FunctionFloatBase* expression);

private:
    void writeSpline(SplineBase* spline);
    void writePoint(const PointInfo& point);
    void writeText(const char* element, const QString& text);
    void writeNumber(const char* element, const double& number);

    QXmlStreamWriter& stream;
};

} // namespace curve_editor
