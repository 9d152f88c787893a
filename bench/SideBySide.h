#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>

/// Two measures of one run, and how they may relate.
struct Comparison
{
    const char* measure; ///< what the reader is told
    const char* ours;    ///< name of a benchmark
    const char* other;   ///< name of a benchmark; null: `otherSeconds` stands instead
    double otherSeconds;
    double limit; ///< of ours divided by other
};

/// Keeps the quickest repetition of each benchmark and prints the comparisons as a table.
///
/// Times are processor times, or real times of benchmarks that ask for it, for one item; a
/// benchmark that works off several items in an iteration says so with `countItems`.
class SideBySide : public benchmark::BenchmarkReporter
{
public:
    bool ReportContext(const Context& context) override;
    void ReportRuns(const std::vector<Run>& runs) override;

    /// A comparison whose benchmarks were not run is left out.
    void printTable() const;

    static void countItems(benchmark::State& state, const std::size_t& itemsPerIteration);

private:
    std::map<std::string, double> quickest; // seconds an item
};
