#pragma once

#include <array>
#include <cstdio>
#include <map>
#include <string>

/// What happened in a number of histories.
class HistoryCounts
{
public:
    enum event : int
    {
        executed = 0,
        undone = 1,
        redone = 2
    };

    void add(const std::string& label, const event& what)
    {
        static constexpr std::array names{"executed", "undone", "redone"};
        if (!label.empty()) {
            tell(std::string(names[static_cast<std::size_t>(what)]) + '\t' + label);
            ++commands[label][static_cast<std::size_t>(what)];
        }
    }

    void tell(const std::string& what) const
    {
        if (isTelling) {
            std::printf("step\t%lu\t%s\n", steps, what.c_str());
            std::fflush(stdout);
        }
    }

    /// One line each, for scripts/histories to add up.
    void print() const
    {
        for (const auto& [label, events] : commands) {
            std::printf("count\t%s\t%lu\t%lu\t%lu\n", label.c_str(), events[executed],
                        events[undone], events[redone]);
        }
        std::printf("total\t%lu\t%lu\t%lu\n", histories, steps, boxes);
        std::fflush(stdout);
    }

    /// Each step is written as it happens.
    bool isTelling = false;
    unsigned long histories = 0;
    unsigned long steps = 0;
    unsigned long boxes = 0;

private:
    std::map<std::string, std::array<unsigned long, 3>> commands;
};
