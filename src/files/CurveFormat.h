#pragma once

#include "zk_curve_files_export.h"

#include <QString>

class QIODevice;

namespace curve_files {

/// The two formats of curve files.
enum class CurveFormat : int
{
    xml,
    older
};

/// The format that a file of this name is written in: the older one where the name ends in ".crv",
/// in any case of letters, else XML.
ZK_CURVE_FILES_EXPORT CurveFormat formatOfName(const QString& name);

/// The format of what the device is about to give, by its first bytes; nothing is taken from it.
/// Where there is nothing but blanks it is `otherwise`.
ZK_CURVE_FILES_EXPORT CurveFormat formatOfContent(QIODevice& device,
                                                  CurveFormat otherwise = CurveFormat::xml);

/// The name of a file in which several curves are saved side by side: the curve's dotted name with
/// "_" for each "/", which no file name holds.
ZK_CURVE_FILES_EXPORT QString fileNameOfCurve(const QString& dotName);

} // namespace curve_files
