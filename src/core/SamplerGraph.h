#pragma once

#include "core/ParseMessage.h"
#include "core/SamplerCurve.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

/// Curves that may read one another, in rings, too, and all that they read. Once it is made it
/// never changes.
struct SamplerGraph
{
    std::map<std::string, std::unique_ptr<SamplerCurve>> curves; ///< by their names
    std::map<std::string, ParseMessage> errors; ///< of those that are empty for it and read 0
    std::vector<std::unique_ptr<const SamplerFunction>> functions;
    std::vector<CurveSampler::Pointer> kept; ///< samplers of other graphs that are read
    int nesting = 1;                         ///< of graphs that keep one another, this one included

    /// Null for a name that no curve has, and for one among the errors.
    const SamplerCurve* curve(const std::string& name) const
    {
        const auto found = curves.find(name);
        return found == curves.end() || errors.count(name) != 0 ? nullptr : found->second.get();
    }
};
