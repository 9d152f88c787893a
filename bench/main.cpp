#include "SideBySide.h"

#include <vector>

// Repetitions of all benchmarks take turns, so that a slow spell of the machine meets both sides
// of a comparison. Arguments on the command line come later and win.
int main(int argc, char* argv[])
{
    std::vector<std::string> words = {argv[0], "--benchmark_enable_random_interleaving=true",
                                      "--benchmark_repetitions=31", "--benchmark_min_time=0.05"};
    words.insert(words.end(), argv + 1, argv + argc);
    std::vector<char*> arguments;
    for (std::string& word : words) {
        arguments.push_back(word.data());
    }
    int count = static_cast<int>(arguments.size());
    arguments.push_back(nullptr);
    benchmark::Initialize(&count, arguments.data());
    if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) {
        return 1;
    }
    SideBySide reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.printTable();
    return 0;
}
