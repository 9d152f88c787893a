#pragma once

#include "core/FunctionParserBase.h"
#include "core/KeyValue.h"

/// The value of one of the parser's variables, such as "t"; 0 where there is none of that name.
inline double keyValue(const char* name)
{
    return readKeyValue(FunctionParserBase::instance()->getKey(name));
}

/// Sets one of the parser's variables; a name that is not there is passed over.
inline void writeKey(const char* name, const double& value)
{
    writeKeyValue(FunctionParserBase::instance()->getKey(name), value);
}
