#pragma once

#include "core/SamplerGraph.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

/// Works out a curve and all that it reads for a block of times at a time, and knows where the
/// values lie meanwhile.
class SamplerPlan
{
public:
    /// The curve is one of the graph.
    SamplerPlan(std::shared_ptr<const SamplerGraph> curvesGraph, const SamplerCurve& rootCurve);

    const SamplerGraph& graph() const { return *curves; }
    const SamplerCurve& root() const { return *rootOf; }

    /// The values at times in seconds, held within limits. The two arrays do not overlap.
    void run(const double* times, double* out, std::size_t count, double fps) const;

private:
    /// One of the two is worked out.
    struct Step
    {
        SamplerCurve::Input what;
        std::size_t firstPlace; // of the curve's inputs, among the places
        std::int32_t line;      // that takes the values
    };

    using Block = SamplerExpression::Block;

    void assignLines();
    std::size_t linesNumber() const;
    void runBlock(Block block, double* lines, double* out) const;
    void runCurve(const Step& step, const Block& block, double* out) const;
    static void callFunction(const SamplerFunction& function, const Block& block, double* out);

    std::shared_ptr<const SamplerGraph> curves; // keeps alive all that the steps point to
    const SamplerCurve* rootOf;
    std::vector<Step> steps;          // the curve itself comes last
    std::vector<std::int32_t> places; // the lines of inputs; -1 reads 0
    std::size_t inputLines = 0;
    std::size_t registers = 0;
    bool usesFrame = false;
    std::size_t blockLength = 1;
};
