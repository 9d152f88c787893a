#pragma once

#include "support/ParserVariable.h"

#include <functional>
#include <utility>

/// A variable whose refresh function does what the test says, once.
class Intruder
{
public:
    explicit Intruder(std::function<void()> act)
        : action(std::move(act))
    {
        parser()->registerKey("intruder", 3, &value, [this] {
            if (const auto once = std::exchange(action, nullptr)) {
                once();
            }
        });
    }
    ~Intruder() { parser()->unregisterKey("intruder", &value); }
    Intruder(const Intruder&) = delete;
    Intruder& operator=(const Intruder&) = delete;

    bool hasActed() const { return !action; }

private:
    std::function<void()> action;
    double value = 2.0;
};
