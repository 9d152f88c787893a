// The two formulas at many moments: our tree, muParser and a function that the compiler made.

#include "NativeFormulas.h"
#include "SideBySide.h"

#include "core/FunctionFloatBase.h"
#include "core/FunctionParserBase.h"
#include "core/ParseMessage.h"

#include <muParser.h>

#include <memory>
#include <vector>

namespace {

constexpr double fps = 25.0;

struct Formula
{
    const char* ours;
    const char* muParser;
    double (*native)(double t, double f);
};

constexpr Formula formulaA = {"sin(t*2)*exp(-t/5)+if(f>24,1,0)", "sin(t*2)*exp(-t/5)+(f>24?1:0)",
                              nativeA};
constexpr Formula formulaB = {"t*2-t/5+if(f>24,1,0)", "t*2-t/5+(f>24?1:0)", nativeB};

const std::vector<double>& moments()
{
    static const std::vector<double> all = [] {
        std::vector<double> times;
        for (int i = 0; i < 1000; ++i) {
            times.push_back(i * 0.01);
        }
        return times;
    }();
    return all;
}

void ours(benchmark::State& state, const Formula& formula)
{
    FunctionParserBase* parser = FunctionParserBase::instance();
    ParseMessage message;
    const std::unique_ptr<FunctionFloatBase> tree(
        parser->parseString(formula.ours, message, false));
    auto* const t = static_cast<double*>(parser->getKey("t")->value);
    auto* const f = static_cast<double*>(parser->getKey("f")->value);
    for (auto _ : state) {
        for (const double& time : moments()) {
            *t = time;
            *f = time * fps;
            benchmark::DoNotOptimize(tree->value());
        }
    }
    SideBySide::countItems(state, moments().size());
}

void muParser(benchmark::State& state, const Formula& formula)
{
    double t = 0.0;
    double f = 0.0;
    mu::Parser parser;
    parser.DefineVar("t", &t);
    parser.DefineVar("f", &f);
    parser.SetExpr(formula.muParser);
    for (auto _ : state) {
        for (const double& time : moments()) {
            t = time;
            f = time * fps;
            benchmark::DoNotOptimize(parser.Eval());
        }
    }
    SideBySide::countItems(state, moments().size());
}

void native(benchmark::State& state, const Formula& formula)
{
    for (auto _ : state) {
        for (const double& time : moments()) {
            benchmark::DoNotOptimize(formula.native(time, time * fps));
        }
    }
    SideBySide::countItems(state, moments().size());
}

BENCHMARK_CAPTURE(ours, formulaA, formulaA)->Name("expression A/ours");
BENCHMARK_CAPTURE(muParser, formulaA, formulaA)->Name("expression A/muParser");
BENCHMARK_CAPTURE(native, formulaA, formulaA)->Name("expression A/native");
BENCHMARK_CAPTURE(ours, formulaB, formulaB)->Name("expression B/ours");
BENCHMARK_CAPTURE(muParser, formulaB, formulaB)->Name("expression B/muParser");
BENCHMARK_CAPTURE(native, formulaB, formulaB)->Name("expression B/native");

} // namespace
