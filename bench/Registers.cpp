// The first formula at many moments, right after the toolkit has filled a picture: that leaves the
// processor in a state in which the mathematical library is many times slower, unless somebody
// mends it.

#include "SideBySide.h"

#include "core/CurveSampler.h"
#include "core/EvaluationTime.h"
#include "core/FunctionFloatBase.h"
#include "core/FunctionParserBase.h"
#include "core/ParseMessage.h"
#include "core/VectorRegisters.h"

#include <QImage>

#include <memory>
#include <vector>

namespace {

constexpr const char* formula = "sin(t*2)*exp(-t/5)+if(f>24,1,0)";
constexpr std::size_t samples = 5000; // of an expression in a view
constexpr double step = 0.01;
constexpr double fps = 25.0;

enum Registers
{
    afterFill,
    clean
};

/// Calls `evaluate` in the state that is asked for. The picture is small and takes no time.
template <typename Evaluate>
void measure(benchmark::State& state, const Registers& registers, const Evaluate& evaluate)
{
    QImage picture(64, 64, QImage::Format_ARGB32_Premultiplied);
    for (auto _ : state) {
        picture.fill(Qt::white);
        if (registers == clean) {
            VectorRegisters::clearUpperHalves();
        }
        evaluate();
    }
    VectorRegisters::clearUpperHalves(); // for the next benchmark
    SideBySide::countItems(state, samples);
}

void tree(benchmark::State& state, const Registers& registers)
{
    ParseMessage message;
    const std::unique_ptr<FunctionFloatBase> expression(
        FunctionParserBase::instance()->parseString(formula, message, false));
    measure(state, registers, [&] {
        EvaluationTime moment;
        for (std::size_t i = 0; i < samples; ++i) {
            moment.set(static_cast<double>(i) * step, fps);
            benchmark::DoNotOptimize(expression->value());
        }
    });
}

void sampler(benchmark::State& state, const Registers& registers)
{
    CurveSampler::Source source;
    source.text = formula;
    source.fps = fps;
    const CurveSampler::Pointer made = CurveSampler::make(source);
    std::vector<double> values(samples);
    measure(state, registers, [&] {
        made->values(0.0, step, samples, values.data());
        benchmark::DoNotOptimize(values.data());
    });
}

BENCHMARK_CAPTURE(tree, afterFill, afterFill)->Name("registers tree/after fill");
BENCHMARK_CAPTURE(tree, clean, clean)->Name("registers tree/clean");
BENCHMARK_CAPTURE(sampler, afterFill, afterFill)->Name("registers sampler/after fill");
BENCHMARK_CAPTURE(sampler, clean, clean)->Name("registers sampler/clean");

} // namespace
