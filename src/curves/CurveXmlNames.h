#pragma once

#include <QString>

/// The texts that stand for numbers in an XML curve file. Numbers without a text give "unknown";
/// texts are compared without regard to case, and what is none of them gives -1.
namespace curve_editor {

QString curveTypeName(const int& type);
int curveTypeFromName(const QString& name);

QString nodeTypeName(const int& type);
int nodeTypeFromName(const QString& name);

QString interpolationTypeName(const int& type);
/// Takes "lineal" for linear as well.
int interpolationTypeFromName(const QString& name);

} // namespace curve_editor
