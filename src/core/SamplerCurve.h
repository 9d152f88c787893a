#pragma once

#include "core/CurveSampler.h"
#include "core/SamplerExpression.h"
#include "core/SamplerKeys.h"

#include <memory>
#include <string>
#include <vector>

/// A function of the host's, with the moment or with the time alone.
using SamplerFunction = std::variant<CurveSampler::Function, CurveSampler::MomentFunction>;

/// One curve, and what its expression reads. A SamplerGraph owns it.
struct SamplerCurve
{
    /// One of the two, not owned; of this curve's graph, or of one that this graph keeps alive.
    struct Input
    {
        const SamplerCurve* curve;
        const SamplerFunction* function;

        bool operator==(const Input& other) const
        {
            return curve == other.curve && function == other.function;
        }
    };

    std::unique_ptr<const SamplerKeys> keys;             ///< null for none
    std::unique_ptr<const SamplerExpression> expression; ///< null for none
    double minimum = -std::numeric_limits<double>::infinity();
    double maximum = std::numeric_limits<double>::infinity();
    std::vector<Input> inputs; ///< each once, as the expression numbers them
    std::vector<std::string> unboundNames;

    bool hasLimits() const
    {
        constexpr double infinity = std::numeric_limits<double>::infinity();
        return minimum > -infinity || maximum < infinity;
    }

    double held(double value) const
    {
        return value < minimum ? minimum : (value > maximum ? maximum : value);
    }
};
