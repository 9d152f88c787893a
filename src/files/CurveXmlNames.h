#pragma once

#include "zk_curve_files_export.h"

#include <QString>

/// The texts that stand for numbers in an XML curve file. Numbers without a text give "unknown";
/// texts are compared without regard to case, and what is none of them gives -1.
namespace curve_files {

ZK_CURVE_FILES_EXPORT QString curveTypeName(const int& type);
ZK_CURVE_FILES_EXPORT int curveTypeFromName(const QString& name);

ZK_CURVE_FILES_EXPORT QString nodeTypeName(const int& type);
ZK_CURVE_FILES_EXPORT int nodeTypeFromName(const QString& name);

ZK_CURVE_FILES_EXPORT QString interpolationTypeName(const int& type);
/// Takes "lineal" for linear as well.
ZK_CURVE_FILES_EXPORT int interpolationTypeFromName(const QString& name);

} // namespace curve_files
