#pragma once

#include "core/CurveSampler.h"
#include "core/FunctionFloatBase.h"
#include "core/FunctionParserBase.h"
#include "core/ParseMessage.h"
#include "core/SplineBase.h"

#include <memory>
#include <string>

using Tree = std::unique_ptr<FunctionFloatBase>;

/// As the parser of the process reads it.
inline Tree parsed(const std::string& text)
{
    ParseMessage message;
    return Tree(FunctionParserBase::instance()->parseString(text, message, false));
}

inline CurveSampler::Source textSource(const std::string& text, double fps = 25.0)
{
    CurveSampler::Source source;
    source.text = text;
    source.fps = fps;
    return source;
}

inline CurveSampler::Pointer samplerOf(const SplineBase& spline)
{
    CurveSampler::Source source;
    source.spline = &spline;
    return CurveSampler::make(source);
}
