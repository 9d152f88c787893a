#pragma once

#include "files/CurveContent.h"
#include "files/DeviceStreamBuffer.h"

#include <istream>

namespace curve_files {

/// Reads an older curve file: three numbers of a colour, the curve type, the expression and the
/// spline, parted by blanks. Of the expression it takes the first word alone.
class OlderCurveReader
{
public:
    /// The device is open for reading, and not owned. A mark of the encoding is passed over.
    explicit OlderCurveReader(QIODevice& device);

    /// Of bad keys type and expression are taken, else all or nothing.
    CurveFileResult read(CurveContent& content);

private:
    bool readColorAndType(CurveContent& content);
    bool readKeys(CurveContent& content);
    CurveFileResult failureHere(CurveFileResult::problems problem, const QString& message) const;

    DeviceStreamBuffer buffer;
    std::istream stream;
    CurveFileResult result;
};

} // namespace curve_files
