// Samplers beside the live spline, a native function, and one thread beside four.

#include "BenchKeys.h"
#include "NativeFormulas.h"
#include "SideBySide.h"

#include "core/CurveSampler.h"
#include "core/RoundingNoise.h"

#include <algorithm>
#include <map>
#include <random>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace {

constexpr std::size_t timesCount = 8192;

/// A spline and a sampler made of it.
struct Curve
{
    SplineBase live;
    CurveSampler::Pointer sampler;
};

const Curve& sharedCurve(unsigned keys, zk_spline::interpolationType type)
{
    static std::map<std::pair<unsigned, int>, Curve> curves;
    Curve& curve = curves[{keys, type}];
    if (!curve.sampler) {
        addBenchKeys(curve.live, keys, type);
        CurveSampler::Source source;
        source.spline = &curve.live;
        curve.sampler = CurveSampler::make(source);
    }
    return curve;
}

void randomTimes(benchmark::State& state, unsigned keys, zk_spline::interpolationType type,
                 bool isLive)
{
    std::mt19937_64 engine(1);
    std::uniform_real_distribution<double> within(1.0, keys - 2.0);
    std::vector<double> times(timesCount);
    std::generate(times.begin(), times.end(), [&] { return within(engine); });
    const Curve& curve = sharedCurve(keys, type);
    for (auto _ : state) {
        for (const double& time : times) {
            benchmark::DoNotOptimize(isLive ? curve.live(time) : curve.sampler->value(time));
        }
    }
    SideBySide::countItems(state, times.size());
}

void ascendingRange(benchmark::State& state, unsigned keys, zk_spline::interpolationType type,
                    bool isLive)
{
    const double step = (keys - 3.0) / timesCount;
    std::vector<double> out(timesCount);
    const Curve& curve = sharedCurve(keys, type);
    for (auto _ : state) {
        if (isLive) {
            for (std::size_t i = 0; i < timesCount; ++i) {
                out[i] = curve.live(1.0 + static_cast<double>(i) * step);
            }
        } else {
            curve.sampler->values(1.0, step, timesCount, out.data());
        }
        benchmark::DoNotOptimize(out.data());
        benchmark::ClobberMemory();
    }
    SideBySide::countItems(state, timesCount);
}

constexpr double fps = 25.0;

// Over the same times, and with the frame that expressions see.
void nativeRange(benchmark::State& state, double (*native)(double t, double f))
{
    std::vector<double> out(1000);
    for (auto _ : state) {
        for (std::size_t i = 0; i < out.size(); ++i) {
            const double time = 0.0 + static_cast<double>(i) * 0.01;
            out[i] = native(time, frameAt(time, fps));
        }
        benchmark::DoNotOptimize(out.data());
        benchmark::ClobberMemory();
    }
    SideBySide::countItems(state, out.size());
}

void expressionRange(benchmark::State& state, const char* text)
{
    CurveSampler::Source source;
    source.text = text;
    source.fps = fps;
    const CurveSampler::Pointer sampler = CurveSampler::make(source);
    std::vector<double> out(1000);
    for (auto _ : state) {
        sampler->values(0.0, 0.01, out.size(), out.data());
        benchmark::DoNotOptimize(out.data());
        benchmark::ClobberMemory();
    }
    SideBySide::countItems(state, out.size());
}

// All threads evaluate one sampler; each writes values of its own.
void threads(benchmark::State& state)
{
    constexpr int rounds = 500; // milliseconds, beside which starting a thread is nothing
    const auto count = static_cast<std::size_t>(state.range(0));
    const CurveSampler& sampler = *sharedCurve(1000, zk_spline::tcb).sampler;
    const auto work = [&] {
        std::vector<double> out(timesCount);
        for (int round = 0; round < rounds; ++round) {
            sampler.values(-100.0, 1200.0 / timesCount, timesCount, out.data());
            benchmark::DoNotOptimize(out.data());
        }
    };
    for (auto _ : state) {
        std::vector<std::thread> workers;
        for (std::size_t i = 0; i < count; ++i) {
            workers.emplace_back(work);
        }
        for (std::thread& worker : workers) {
            worker.join();
        }
    }
    SideBySide::countItems(state, count * rounds * timesCount);
}

bool registerSamplers()
{
    for (const auto type : {zk_spline::bezier, zk_spline::tcb}) {
        const std::string kind = type == zk_spline::bezier ? "bezier" : "tcb";
        for (const bool isLive : {false, true}) {
            const std::string side = isLive ? "/live" : "/ours";
            benchmark::RegisterBenchmark(("sampler random/" + kind + side).c_str(), randomTimes,
                                         100000u, type, isLive);
            benchmark::RegisterBenchmark(("sampler range/" + kind + side).c_str(), ascendingRange,
                                         1000u, type, isLive);
        }
    }
    return true;
}

[[maybe_unused]] const bool areRegistered = registerSamplers();

BENCHMARK_CAPTURE(nativeRange, formulaA, nativeA)->Name("expression A/native range");
BENCHMARK_CAPTURE(nativeRange, formulaB, nativeB)->Name("expression B/native range");
BENCHMARK_CAPTURE(expressionRange, formulaA, "sin(t*2)*exp(-t/5)+if(f>24,1,0)")
    ->Name("expression A/sampler");
BENCHMARK_CAPTURE(expressionRange, formulaB, "t*2-t/5+if(f>24,1,0)")->Name("expression B/sampler");
BENCHMARK(threads)->Name("sampler threads")->Arg(1)->Arg(4)->UseRealTime();

} // namespace
