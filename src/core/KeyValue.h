#pragma once

#include "core/FunctionParserBase.h"
#include "zk_curve_core_export.h"

/// Reads by kind: bool as 0 or 1, int and float widened. A key that was registered with a refresh
/// function is refreshed first. An unknown kind, a null key and a key without a value give 0.
ZK_CURVE_CORE_EXPORT double readKeyValue(const FunctionParserBase::keyStruct* key);

/// Writes by kind: float narrowed, int cut toward zero (NaN as 0), bool as "not equal to 0". An
/// unknown kind, a null key and a key without a value write nothing.
ZK_CURVE_CORE_EXPORT void writeKeyValue(FunctionParserBase::keyStruct* key, double value);
