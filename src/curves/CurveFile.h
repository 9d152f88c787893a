#pragma once

#include "zk_curve_editor_export.h"

class FunctionFloatBase;
class QString;
class SplineBase;

namespace curve_editor {

/// Reads an XML curve file into a spline and an expression slot without any message box. Returns
/// success; otherwise `error` says what is wrong and where, and nothing has changed. `spline` and
/// `slot` belong to the caller; an expression in the slot that the file replaces is deleted. With
/// a null slot or spline what belongs there is dropped.
ZK_CURVE_EDITOR_EXPORT bool readCurveFile(const QString& path, SplineBase* spline,
                                          FunctionFloatBase** slot, QString& error);

/// Writes an XML curve file. Returns success; otherwise `error` says what went wrong. Spline and
/// expression stay the caller's; either may be null.
ZK_CURVE_EDITOR_EXPORT bool writeCurveFile(const QString& path, SplineBase* spline,
                                           const FunctionFloatBase* expression, QString& error);

} // namespace curve_editor
