#include "core/SamplerRig.h"

#include "core/SamplerGraph.h"
#include "core/SamplerGraphMaker.h"
#include "core/SamplerPlan.h"

SamplerRig::SamplerRig(const std::map<std::string, CurveSampler::Source>& curves,
                       const CurveSampler::Bindings& bindings)
    : graph(SamplerGraphMaker(bindings).make(curves))
{
    for (const auto& [name, source] : curves) {
        rates[name] = source.fps;
    }
}

SamplerRig::~SamplerRig() = default;

CurveSampler::Pointer SamplerRig::sampler(const std::string& name) const
{
    const SamplerCurve* const curve = graph->curve(name);
    if (!curve) {
        return nullptr;
    }
    return CurveSampler::Pointer(
        new CurveSampler(std::make_unique<SamplerPlan>(graph, *curve), rates.at(name)));
}

const std::map<std::string, ParseMessage>& SamplerRig::errors() const
{
    return graph->errors;
}
