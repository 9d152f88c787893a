#pragma once

#include "core/CurveSampler.h"
#include "core/ParseMessage.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

struct SamplerGraph;

/// Curves that read one another by their names, for evaluation in any thread.
///
///     SamplerRig rig({{"body.height", bodySource}, {"arm.height", armSource}});
///     const CurveSampler::Pointer arm = rig.sampler("arm.height");
///
/// In a ring the mention that closes it reads 0, as with live curves: asked from outside, each
/// curve has the value that it gives by itself. A mention counts here even where it stands in a
/// branch of an "if" that is not taken.
class ZK_CURVE_CORE_EXPORT SamplerRig
{
public:
    /// The curves under the names by which expressions find them: exactly as they are spelt there,
    /// or in lower case. All other names are bound by `bindings`.
    explicit SamplerRig(const std::map<std::string, CurveSampler::Source>& curves,
                        const CurveSampler::Bindings& bindings = CurveSampler::Bindings());
    ~SamplerRig();
    SamplerRig(const SamplerRig&) = delete;
    SamplerRig& operator=(const SamplerRig&) = delete;

    /// Null for a name that no curve has, and for one that is among the errors. The sampler, with
    /// the rate of that curve's source, outlives the rig. Any thread may ask.
    CurveSampler::Pointer sampler(const std::string& name) const;

    /// What is wrong with expressions, by the names of their curves. Whoever reads one of these
    /// curves reads 0.
    const std::map<std::string, ParseMessage>& errors() const;

private:
    std::shared_ptr<const SamplerGraph> graph;
    std::map<std::string, double> rates; // of the curves' sources
};
