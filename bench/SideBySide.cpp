#include "SideBySide.h"

#include <algorithm>
#include <cstdio>

namespace {

constexpr const char* itemsCounter = "items";

// Per key, for ten times as many keys: caches no longer hold them all. Quadratic would be 10.
constexpr double nearLinear = 2.5;
constexpr double olderFileLimit = 5.0; // seconds for a million keys

constexpr Comparison comparisons[] = {
    {"sin(t*2)*exp(-t/5)+if(f>24,1,0): muParser", "expression A/ours", "expression A/muParser", 0,
     1.0},
    {"the same: native function", "expression A/ours", "expression A/native", 0, 2.2},
    {"t*2-t/5+if(f>24,1,0): muParser", "expression B/ours", "expression B/muParser", 0, 1.0},

    {"1,000 Bezier keys, random: by hand", "random/bezier/1000/ours", "random/bezier/1000/hand", 0,
     1.3},
    {"100,000 Bezier keys, random: by hand", "random/bezier/100000/ours",
     "random/bezier/100000/hand", 0, 1.3},
    {"1,000 TCB keys, random: by hand", "random/tcb/1000/ours", "random/tcb/1000/hand", 0, 1.3},
    {"100,000 TCB keys, random: by hand", "random/tcb/100000/ours", "random/tcb/100000/hand", 0,
     1.3},
    {"1,000 Bezier keys, sweep: by hand", "sweep/bezier/1000/ours", "sweep/bezier/1000/hand", 0,
     1.5},
    {"100,000 Bezier keys, sweep: by hand", "sweep/bezier/100000/ours", "sweep/bezier/100000/hand",
     0, 1.5},
    {"1,000 TCB keys, sweep: by hand", "sweep/tcb/1000/ours", "sweep/tcb/1000/hand", 0, 1.5},
    {"100,000 TCB keys, sweep: by hand", "sweep/tcb/100000/ours", "sweep/tcb/100000/hand", 0, 1.5},

    {"sampler, 100,000 Bezier keys, random: live", "sampler random/bezier/ours",
     "sampler random/bezier/live", 0, 0.5},
    {"sampler, 100,000 TCB keys, random: live", "sampler random/tcb/ours",
     "sampler random/tcb/live", 0, 0.5},
    {"sampler, 1,000 Bezier keys, range: live", "sampler range/bezier/ours",
     "sampler range/bezier/live", 0, 0.4},
    {"sampler, 1,000 TCB keys, range: live", "sampler range/tcb/ours", "sampler range/tcb/live", 0,
     0.4},
    {"sampler, first formula over a range: native", "expression A/sampler",
     "expression A/native range", 0, 1.0},
    {"sampler, second formula over a range: native", "expression B/sampler",
     "expression B/native range", 0, 1.0},
    {"sampler, 4 threads: 1 thread (2 cores)", "sampler threads/4", "sampler threads/1", 0,
     1.0 / 1.8},

    {"first formula after QImage::fill: clean", "registers tree/after fill", "registers tree/clean",
     0, 1.1},
    {"sampler after QImage::fill: clean", "registers sampler/after fill", "registers sampler/clean",
     0, 1.1},

    {"append, a key: 100,000 to 10,000", "append/100000", "append/10000", 0, nearLinear},
    {"append, a key: 1,000,000 to 100,000", "append/1000000", "append/100000", 0, nearLinear},
    {"addPoints, 1,000,000: append, stable_sort", "addPoints/1000000", "appendAndSort/1000000", 0,
     1.3},
    {"reduce, a key: 100,000 to 10,000", "reduce/100000", "reduce/10000", 0, nearLinear},
    {"copyDup, a key: 100,000 to 10,000", "copyDup/100000", "copyDup/10000", 0, nearLinear},
    {"combine, a key: 100,000 to 10,000", "combine/100000", "combine/10000", 0, nearLinear},

    {"XML file of 100,000 keys: bare QXmlStreamReader", "xml/ours", "xml/bare", 0, 1.5},
    {"older format, 1,000,000 keys: 5 s", "older format/1000000", nullptr, olderFileLimit, 1.0},

    {"time line over 100 curves of 1,000 keys: bare", "gui moves/time line", "gui bare/100 x 1000",
     0, 0.01},
    {"rubber band over them: bare picture", "gui moves/rubber band", "gui bare/100 x 1000", 0,
     0.01},
    {"drag of a key of one of them: bare picture", "gui drag/1 of 100 x 1000",
     "gui bare/100 x 1000", 0, 0.04},
    {"zoom, 100 curves of 100 keys: bare", "gui zoom/100 x 100", "gui bare/100 x 100", 0, 0.6},
    {"zoom, 100 curves of 1,000 keys: bare", "gui zoom/100 x 1000", "gui bare/100 x 1000", 0, 0.6},
    {"zoom, 100,000 keys: bare", "gui zoom/1 x 100000", "gui bare/1 x 100000", 0, 0.2},
    {"zoom to 100 of 100,000 keys: bare", "gui zoom/100 of 100000", "gui bare/100 of 100000", 0,
     1.3},
    {"drag of 1 of 100,000 keys: bare picture", "gui drag/1 of 100000", "gui bare/1 x 100000", 0,
     0.2},
    {"drag of 10,000 of 100,000 keys: bare, no labels", "gui drag/10000 of 100000",
     "gui bare/1 x 100000", 0, 0.3},
};

std::string withUnit(double seconds)
{
    const struct
    {
        double seconds;
        const char* name;
    } units[] = {{1.0, "s"}, {1e-3, "ms"}, {1e-6, "us"}, {1e-9, "ns"}};
    const auto* unit = std::find_if(std::begin(units), std::end(units) - 1,
                                    [&](const auto& each) { return seconds >= each.seconds; });
    char text[32];
    std::snprintf(text, sizeof text, "%.1f %s", seconds / unit->seconds, unit->name);
    return text;
}

} // namespace

bool SideBySide::ReportContext(const Context&)
{
    return true;
}

void SideBySide::ReportRuns(const std::vector<Run>& runs)
{
    for (const Run& run : runs) {
        if (run.error_occurred || run.run_type != Run::RT_Iteration) {
            continue;
        }
        const auto items = run.counters.find(itemsCounter);
        const double count = items == run.counters.end() ? 1.0 : items->second.value;
        const bool isByTheClock = !run.run_name.time_type.empty();
        const double seconds =
            (isByTheClock ? run.real_accumulated_time : run.cpu_accumulated_time) /
            static_cast<double>(run.iterations) / count;
        const std::string& argument = run.run_name.args;
        const std::string name =
            run.run_name.function_name + (argument.empty() ? argument : "/" + argument);
        const auto [known, isNew] = quickest.emplace(name, seconds);
        known->second = std::min(known->second, seconds);
    }
}

void SideBySide::printTable() const
{
    std::printf("%-48s %10s %10s %7s %7s  %s\n", "measure: beside", "ours", "beside", "ratio",
                "limit", "ok?");
    for (const Comparison& comparison : comparisons) {
        const auto ours = quickest.find(comparison.ours);
        const auto other = comparison.other ? quickest.find(comparison.other) : ours;
        if (ours == quickest.end() || other == quickest.end()) {
            continue;
        }
        const double beside = comparison.other ? other->second : comparison.otherSeconds;
        const double ratio = ours->second / beside;
        std::printf("%-48s %10s %10s %7.2f %7.2f  %s\n", comparison.measure,
                    withUnit(ours->second).c_str(), withUnit(beside).c_str(), ratio,
                    comparison.limit, ratio <= comparison.limit ? "yes" : "NO");
    }
}

void SideBySide::countItems(benchmark::State& state, const std::size_t& itemsPerIteration)
{
    state.counters[itemsCounter] = static_cast<double>(itemsPerIteration);
}
