#pragma once

#include "core/FunctionParserBase.h"
#include "core/zk_curve_core_export.h"

/// Reads by kind; an unknown kind gives 0.
ZK_CURVE_CORE_EXPORT double readKeyValue(const FunctionParserBase::keyStruct* key);

/// Writes by kind: float narrowed, int cut toward zero, bool as "not equal to 0"; an unknown
/// kind writes nothing.
ZK_CURVE_CORE_EXPORT void writeKeyValue(FunctionParserBase::keyStruct* key, double value);
