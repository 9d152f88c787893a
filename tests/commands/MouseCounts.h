#pragma once

#include <QString>

#include <cstdio>
#include <map>
#include <string>

/// What the hand and the host of a number of mouse sessions did, by kind of event.
class MouseCounts
{
public:
    /// A session that is told or tried again counts once.
    void add(const char* kind, const bool& isInGesture)
    {
        auto& count = kinds[kind];
        ++count.all;
        count.inGesture += isInGesture ? 1 : 0;
    }

    /// One line each, for scripts/histories to add up.
    void print() const
    {
        for (const auto& [kind, count] : kinds) {
            std::printf("mouse\t%s\t%lu\t%lu\n", kind.c_str(), count.all, count.inGesture);
        }
        std::printf("sessions\t%lu\t%lu\n", sessions, steps);
        std::fflush(stdout);
    }

    unsigned long sessions = 0;
    unsigned long steps = 0; ///< of undo, that the sessions left

private:
    struct Count
    {
        unsigned long all = 0;
        unsigned long inGesture = 0;
    };
    std::map<std::string, Count> kinds;
};
