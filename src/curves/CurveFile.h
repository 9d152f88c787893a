#pragma once

#include "zk_curve_editor_export.h"

class FunctionFloatBase;
class QString;
class SplineBase;

namespace curve_editor {

/// Reads a curve file of either format into a spline and an expression slot without any message
/// box. Returns success; otherwise `error` says what is wrong and where, and nothing has changed.
/// `spline` and `slot` belong to the caller; an expression in the slot is deleted, and a file of
/// type spline leaves the slot empty. With a null slot or spline what belongs there is dropped.
/// `type` may be null and is else given the type of the curve in the file (files/CurveType.h).
///
/// Variables of the expression must be registered with the parser. Where they are not, or where a
/// file is to be read in another thread, see files/CurveContent.h.
ZK_CURVE_EDITOR_EXPORT bool readCurveFile(const QString& path, SplineBase* spline,
                                          FunctionFloatBase** slot, QString& error,
                                          int* type = nullptr);

/// Writes a curve file: the older format where the path ends in ".crv", else XML. Returns success;
/// otherwise `error` says what went wrong. Spline and expression stay the caller's; either may be
/// null. `type` may be null and is else given the type that was written.
ZK_CURVE_EDITOR_EXPORT bool writeCurveFile(const QString& path, SplineBase* spline,
                                           const FunctionFloatBase* expression, QString& error,
                                           int* type = nullptr);

} // namespace curve_editor
