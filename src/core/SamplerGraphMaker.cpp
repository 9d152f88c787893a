#include "core/SamplerGraphMaker.h"

#include "core/ExpressionGrammar.h"
#include "core/ExpressionTables.h"
#include "core/ParserKeyEntry.h"
#include "core/SamplerCompiler.h"
#include "core/SamplerPlan.h"
#include "core/SplineBase.h"
#include "core/TimeOrder.h"

#include <algorithm>
#include <utility>

namespace {

constexpr std::size_t longestText = 1000000; // as the parser takes it

std::string lowerCase(std::string name)
{
    for (char& c : name) {
        if (c >= 'A' && c <= 'Z') {
            c = static_cast<char>(c - 'A' + 'a');
        }
    }
    return name;
}

ParseMessage errorMessage(const std::string& text, const ExpressionGrammar::Error& error)
{
    ParseMessage message;
    message.ok = false;
    message.errorKind = error.kind;
    message.errorDetail = static_cast<int>(error.start);
    message.expressionText = text;
    message.errorSpans = {{static_cast<int>(error.start), static_cast<int>(error.length)}};
    return message;
}

bool isInOrder(const SplineBase& spline)
{
    for (unsigned key = 1; key < spline.getControlPointsNumber(); ++key) {
        if (isBefore(spline[key]->time, spline[key - 1]->time)) {
            return false;
        }
    }
    return true;
}

/// Somebody wrote times past the spline: its keys are put in order, as its next edit would.
std::unique_ptr<const SamplerKeys> keysOf(const SplineBase& spline)
{
    if (isInOrder(spline)) {
        return std::make_unique<SamplerKeys>(spline);
    }
    SplineBase ordered;
    for (unsigned key = 0; key < spline.getControlPointsNumber(); ++key) {
        ordered.addPointPtr(new PointInfo(*spline[key]));
    }
    ordered.setFirstNodeType(spline.firstNodeType());
    ordered.setLastNodeType(spline.lastNodeType());
    return std::make_unique<SamplerKeys>(ordered);
}

} // namespace

SamplerGraphMaker::SamplerGraphMaker(const CurveSampler::Bindings& givenBindings)
    : bindings(givenBindings)
{}

std::shared_ptr<const SamplerGraph>
SamplerGraphMaker::make(const std::map<std::string, Source>& sources)
{
    // The names of all curves are known before any expression is read.
    for (const auto& [name, source] : sources) {
        graph->curves[name] = std::make_unique<SamplerCurve>();
    }
    for (const auto& [name, source] : sources) {
        if (!source.expression && !source.text.empty()) {
            parse(name, source.text);
        }
    }
    for (const auto& [name, source] : sources) {
        if (graph->errors.count(name) == 0) {
            fill(*graph->curves[name], name, source);
        }
    }
    return graph;
}

void SamplerGraphMaker::parse(const std::string& name, const std::string& text)
{
    if (text.size() > longestText) {
        graph->errors[name] = errorMessage(text, {ParseMessage::otherError, longestText, 1});
        return;
    }
    FunctionParserBase::keyStruct anyKey; // the grammar asks of what kind it is
    ExpressionGrammar grammar(text, [&](const std::string& variable) {
        return meaningOf(variable) ? std::make_shared<ParserKeyEntry>(variable, &anyKey) : nullptr;
    });
    trees[name] = grammar.read();
    if (!trees[name]) {
        graph->errors[name] = errorMessage(text, grammar.error());
    }
}

void SamplerGraphMaker::fill(SamplerCurve& curve, const std::string& name, const Source& source)
{
    const FunctionFloatBase* const tree = source.expression ? source.expression : trees[name].get();
    if (tree && !compile(curve, *tree)) {
        const std::string text = tree->getString();
        graph->errors[name] = errorMessage(text, {ParseMessage::otherError, 0, text.size()});
        return;
    }
    curve.minimum = source.minimum;
    curve.maximum = source.maximum;
    if (source.spline && (source.spline->isAddFunc() || !tree)) {
        curve.keys = keysOf(*source.spline);
    }
}

/// On a failure the curve stays empty: whoever has bound it reads 0.
bool SamplerGraphMaker::compile(SamplerCurve& curve, const FunctionFloatBase& tree)
{
    std::vector<SamplerCurve::Input> inputs;
    std::vector<std::string> unbound;
    bool isTooDeep = false;
    SamplerCompiler compiler([&](const std::string& name) {
        const Meaning* const meaning = meaningOf(name);
        if (!meaning) {
            if (std::find(unbound.begin(), unbound.end(), name) == unbound.end()) {
                unbound.push_back(name);
            }
            return Operand();
        }
        isTooDeep = isTooDeep || meaning->isTooDeep;
        Operand operand = meaning->operand;
        if (operand.kind == Operand::input) {
            const auto known = std::find(inputs.begin(), inputs.end(), meaning->input);
            operand.index = static_cast<std::uint32_t>(known - inputs.begin());
            if (known == inputs.end()) {
                inputs.push_back(meaning->input);
            }
        }
        return operand;
    });
    std::unique_ptr<const SamplerExpression> expression = compiler.compile(tree);
    if (!expression || isTooDeep) {
        return false;
    }
    curve.expression = std::move(expression);
    curve.inputs = std::move(inputs);
    curve.unboundNames = std::move(unbound);
    return true;
}

/// As it is spelt, then in lower case; but no name answers in lower case to what is a constant
/// there. As the parser does it.
const SamplerGraphMaker::Meaning* SamplerGraphMaker::meaningOf(const std::string& name)
{
    if (const Meaning* const meaning = meaningAsSpelt(name)) {
        return meaning;
    }
    const std::string lower = lowerCase(name);
    const bool isOther = lower != name && !expression_tables::constant(lower);
    return isOther ? meaningAsSpelt(lower) : nullptr;
}

const SamplerGraphMaker::Meaning* SamplerGraphMaker::meaningAsSpelt(const std::string& name)
{
    const auto [known, isNew] = meanings.try_emplace(name);
    std::optional<Meaning>& meaning = known->second;
    if (isNew) {
        meaning = builtIn(name);
        if (!meaning && bindings) {
            meaning = bind(bindings(name));
        }
    }
    return meaning ? &*meaning : nullptr;
}

/// The parts of the moment, then the curves of the graph.
std::optional<SamplerGraphMaker::Meaning> SamplerGraphMaker::builtIn(const std::string& name) const
{
    Meaning meaning;
    if (name == "t") {
        meaning.operand.kind = Operand::seconds;
    } else if (name == "f") {
        meaning.operand.kind = Operand::frame;
    } else if (name == "fps") {
        meaning.operand.kind = Operand::rate;
    } else if (const auto found = graph->curves.find(name);
               found != graph->curves.end() && !name.empty()) {
        meaning.operand.kind = Operand::input;
        meaning.input.curve = found->second.get();
    } else {
        return std::nullopt;
    }
    return meaning;
}

std::optional<SamplerGraphMaker::Meaning>
SamplerGraphMaker::bind(const std::optional<CurveSampler::Binding>& binding)
{
    if (!binding) {
        return std::nullopt;
    }
    Meaning meaning;
    if (const double* const number = std::get_if<double>(&*binding)) {
        meaning.operand.value = *number;
        return meaning;
    }
    meaning.operand.kind = Operand::input;
    if (const auto* const sampler = std::get_if<CurveSampler::Pointer>(&*binding)) {
        if (!*sampler) {
            return std::nullopt;
        }
        const SamplerPlan& plan = *(*sampler)->plan;
        meaning.isTooDeep = plan.graph().nesting >= deepestNesting;
        if (!meaning.isTooDeep) {
            graph->nesting = std::max(graph->nesting, plan.graph().nesting + 1);
            graph->kept.push_back(*sampler);
            meaning.input.curve = &plan.root();
        }
        return meaning;
    }
    std::unique_ptr<const SamplerFunction> function;
    if (const auto* const ofTime = std::get_if<CurveSampler::Function>(&*binding)) {
        function = *ofTime ? std::make_unique<SamplerFunction>(*ofTime) : nullptr;
    } else if (const auto* const ofMoment = std::get_if<CurveSampler::MomentFunction>(&*binding)) {
        function = *ofMoment ? std::make_unique<SamplerFunction>(*ofMoment) : nullptr;
    }
    if (!function) {
        return std::nullopt;
    }
    meaning.input.function = function.get();
    graph->functions.push_back(std::move(function));
    return meaning;
}
