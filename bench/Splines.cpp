// Evaluation at random and ascending times beside a spline written by hand, and the making,
// copying and reducing of long splines.

#include "BenchKeys.h"
#include "HandWrittenSpline.h"
#include "SideBySide.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <utility>

namespace {

constexpr std::size_t timesCount = 8192;

using Times = std::vector<double>;

// Within the keys, away from their ends.
Times randomTimes(unsigned keys)
{
    std::mt19937_64 engine(1);
    std::uniform_real_distribution<double> within(1.0, keys - 2.0);
    Times times(timesCount);
    std::generate(times.begin(), times.end(), [&] { return within(engine); });
    return times;
}

Times ascendingTimes(unsigned keys)
{
    // Four times a key, as a painted curve asks.
    Times times(timesCount);
    const double span = std::min(keys - 3.0, timesCount / 4.0);
    for (std::size_t i = 0; i < timesCount; ++i) {
        times[i] = 1.0 + span * static_cast<double>(i) / timesCount;
    }
    return times;
}

// One for both sides of a comparison: where the keys lie in memory counts for much.
SplineBase& sharedSpline(unsigned keys, zk_spline::interpolationType type)
{
    static std::map<std::pair<unsigned, int>, SplineBase> splines;
    SplineBase& spline = splines[{keys, type}];
    if (spline.getControlPointsNumber() == 0) {
        addBenchKeys(spline, keys, type);
    }
    return spline;
}

template <typename Evaluate>
void evaluateAll(benchmark::State& state, const Times& times, const Evaluate& evaluate)
{
    for (auto _ : state) {
        for (const double& time : times) {
            benchmark::DoNotOptimize(evaluate(time));
        }
    }
    SideBySide::countItems(state, times.size());
}

void evaluations(benchmark::State& state, unsigned keys, zk_spline::interpolationType type,
                 bool sweeps, bool byHand)
{
    SplineBase& spline = sharedSpline(keys, type);
    const Times times = sweeps ? ascendingTimes(keys) : randomTimes(keys);
    HandWrittenSpline hand(spline.getControlPoints());
    if (!byHand) {
        evaluateAll(state, times, [&](double time) { return spline(time); });
    } else if (sweeps) {
        evaluateAll(state, times, [&](double time) { return hand.onwards(time); });
    } else {
        evaluateAll(state, times, [&](double time) { return hand.at(time); });
    }
}

void append(benchmark::State& state)
{
    const auto keys = static_cast<unsigned>(state.range(0));
    for (auto _ : state) {
        auto spline = std::make_unique<SplineBase>();
        for (unsigned i = 0; i < keys; ++i) {
            spline->addPoint(i, 1.0);
        }
        state.PauseTiming();
        spline.reset();
        state.ResumeTiming();
    }
    SideBySide::countItems(state, keys);
}

std::vector<PointInfo> shuffledKeys(unsigned count)
{
    std::vector<PointInfo> keys(count);
    for (unsigned i = 0; i < count; ++i) {
        keys[i] = benchKey(i, zk_spline::bezier);
    }
    std::shuffle(keys.begin(), keys.end(), std::mt19937_64(2));
    return keys;
}

void addPoints(benchmark::State& state)
{
    const std::vector<PointInfo> keys = shuffledKeys(static_cast<unsigned>(state.range(0)));
    for (auto _ : state) {
        auto spline = std::make_unique<SplineBase>();
        spline->addPoints(keys);
        state.PauseTiming();
        spline.reset();
        state.ResumeTiming();
    }
    SideBySide::countItems(state, keys.size());
}

void appendAndSort(benchmark::State& state)
{
    const std::vector<PointInfo> keys = shuffledKeys(static_cast<unsigned>(state.range(0)));
    for (auto _ : state) {
        auto points = std::make_unique<std::vector<std::unique_ptr<PointInfo>>>();
        for (const PointInfo& key : keys) {
            points->push_back(std::make_unique<PointInfo>(key));
        }
        std::stable_sort(points->begin(), points->end(),
                         [](const auto& a, const auto& b) { return a->time < b->time; });
        state.PauseTiming();
        points.reset();
        state.ResumeTiming();
    }
    SideBySide::countItems(state, keys.size());
}

void reduce(benchmark::State& state)
{
    const auto keys = static_cast<unsigned>(state.range(0));
    SplineBase baked;
    for (unsigned i = 0; i < keys; ++i) {
        baked.addPoint(i / 25.0, std::sin(i / 25.0));
    }
    for (auto _ : state) {
        benchmark::DoNotOptimize(baked.reduce(1e-3).getControlPointsNumber());
    }
    SideBySide::countItems(state, keys);
}

void copyDup(benchmark::State& state)
{
    const auto keys = static_cast<unsigned>(state.range(0));
    SplineBase source;
    addBenchKeys(source, keys, zk_spline::bezier);
    for (auto _ : state) {
        auto copy = std::make_unique<SplineBase>();
        copy->copyDup(source, 0.5);
        state.PauseTiming();
        copy.reset();
        state.ResumeTiming();
    }
    SideBySide::countItems(state, keys);
}

// As many keys again, each between two of the others.
void combine(benchmark::State& state)
{
    const auto keys = static_cast<unsigned>(state.range(0));
    SplineBase source;
    addBenchKeys(source, keys, zk_spline::bezier);
    for (auto _ : state) {
        state.PauseTiming();
        auto target = std::make_unique<SplineBase>();
        target->copyDup(source, 0.0);
        state.ResumeTiming();
        benchmark::DoNotOptimize(target->combine(source, 0.5));
        state.PauseTiming();
        target.reset();
        state.ResumeTiming();
    }
    SideBySide::countItems(state, keys);
}

bool registerEvaluations()
{
    for (const unsigned keys : {1000u, 100000u}) {
        for (const auto type : {zk_spline::bezier, zk_spline::tcb}) {
            for (const bool sweeps : {false, true}) {
                for (const bool byHand : {false, true}) {
                    const std::string name = std::string(sweeps ? "sweep/" : "random/") +
                                             (type == zk_spline::bezier ? "bezier/" : "tcb/") +
                                             std::to_string(keys) + (byHand ? "/hand" : "/ours");
                    benchmark::RegisterBenchmark(name.c_str(), evaluations, keys, type, sweeps,
                                                 byHand);
                }
            }
        }
    }
    return true;
}

[[maybe_unused]] const bool areRegistered = registerEvaluations();

BENCHMARK(append)->Arg(10000)->Arg(100000)->Arg(1000000);
BENCHMARK(addPoints)->Arg(1000000);
BENCHMARK(appendAndSort)->Arg(1000000);
BENCHMARK(reduce)->Arg(10000)->Arg(100000);
BENCHMARK(copyDup)->Arg(10000)->Arg(100000);
BENCHMARK(combine)->Arg(10000)->Arg(100000);

} // namespace
