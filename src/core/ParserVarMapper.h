#pragma once

#include "core/FunctionParserBase.h"
#include "zk_curve_core_export.h"

#include <string>

/// A host's answer for names that the parser does not know.
class ZK_CURVE_CORE_EXPORT ParserVarMapper
{
public:
    virtual ~ParserVarMapper();

    /// The key of this name, owned by the mapper and living as long as expressions read it;
    /// null if the mapper does not know the name either.
    virtual FunctionParserBase::keyStruct* keyOf(const std::string& name) const = 0;
};
