#pragma once

#include "core/FunctionFloatBase.h"
#include "core/SamplerGraph.h"

#include <map>
#include <memory>
#include <optional>
#include <string>

/// Makes a graph of sources: parses what is text, then compiles all and binds the names.
class SamplerGraphMaker
{
public:
    using Source = CurveSampler::Source;

    /// Graphs that keep one another alive nest this deep; the stack must bear their end.
    static constexpr int deepestNesting = 1000;

    /// The bindings must outlive the maker.
    explicit SamplerGraphMaker(const CurveSampler::Bindings& bindings);

    /// For use once.
    std::shared_ptr<const SamplerGraph> make(const std::map<std::string, Source>& sources);

private:
    using Operand = SamplerExpression::Operand;

    /// What a name stands for: an input, or else a number or a part of the moment.
    struct Meaning
    {
        Operand operand;
        SamplerCurve::Input input = {nullptr, nullptr};
        bool isTooDeep = false; // a sampler that would nest too deep
    };

    void parse(const std::string& name, const std::string& text);
    void fill(SamplerCurve& curve, const std::string& name, const Source& source);
    bool compile(SamplerCurve& curve, const FunctionFloatBase& tree);

    const Meaning* meaningOf(const std::string& name);
    const Meaning* meaningAsSpelt(const std::string& name);
    std::optional<Meaning> builtIn(const std::string& name) const;
    std::optional<Meaning> bind(const std::optional<CurveSampler::Binding>& binding);

    const CurveSampler::Bindings& bindings;
    std::shared_ptr<SamplerGraph> graph = std::make_shared<SamplerGraph>();
    std::map<std::string, std::unique_ptr<const FunctionFloatBase>> trees; // of parsed texts
    std::map<std::string, std::optional<Meaning>> meanings;                // of the names asked for
};
