#pragma once

#include "core/SplineBase.h"

#include <cmath>
#include <limits>
#include <memory>
#include <random>
#include <vector>

/// Makes curves of all sorts, the same ones for the same seed: each type and behaviour, ease, keys
/// of equal times, and now and then numbers that are none, or that leave their range.
class RandomCurves
{
public:
    explicit RandomCurves(unsigned seed, bool isWild)
        : engine(seed)
        , wild(isWild)
    {}

    std::unique_ptr<SplineBase> next()
    {
        auto spline = std::make_unique<SplineBase>();
        const double size = oneOf({1e-3, 1.0, 1.0, 1.0, 100.0, 1e6});
        const unsigned count = below(9);
        double time = number() * size;
        for (unsigned i = 0; i < count; ++i) {
            auto* const key = new PointInfo;
            key->time = odd(time);
            key->value = odd(number());
            key->bezier = {odd(number()), odd(number())};
            key->tcb = {odd(number()), odd(number()), odd(number()), ease(), ease()};
            key->type = static_cast<zk_spline::interpolationType>(below(4));
            spline->addPointPtr(key);
            time += below(5) == 0 ? 0.0 : size * std::abs(number());
        }
        spline->setFirstNodeType(static_cast<SplineBase::nodeType>(below(6)));
        spline->setLastNodeType(static_cast<SplineBase::nodeType>(below(6)));
        spline->setDefaultValue(number());
        return spline;
    }

    /// Times at the keys, just beside them, between and beyond.
    std::vector<double> timesFor(SplineBase& spline)
    {
        constexpr double infinity = std::numeric_limits<double>::infinity();
        double first = 0.0;
        double last = 1.0;
        std::vector<double> times;
        for (const PointInfo* key : spline.getControlPoints()) {
            times.push_back(key->time);
            times.push_back(std::nextafter(key->time, below(2) == 0 ? -infinity : infinity));
            first = times.size() == 2 ? key->time : first;
            last = key->time;
        }
        const double span = last > first ? last - first : 1.0;
        for (int i = 0; i < 6; ++i) {
            times.push_back(first + span * uniform(-2.0, 3.0));
            times.push_back(first + span * uniform(0.0, 1.0));
        }
        times.push_back(first + span * static_cast<double>(below(9)) - 3.0 * span);
        if (below(8) == 0) {
            times.push_back(oneOf({infinity, -infinity, 1e300, -1e300, 1e18,
                                   std::numeric_limits<double>::quiet_NaN()}));
        }
        return times;
    }

    double number() { return std::normal_distribution<double>(0.0, 3.0)(engine); }
    double uniform(double from, double to)
    {
        return std::uniform_real_distribution<double>(from, to)(engine);
    }
    unsigned below(unsigned end) { return static_cast<unsigned>(engine() % end); }
    double oneOf(std::initializer_list<double> numbers)
    {
        return numbers.begin()[below(static_cast<unsigned>(numbers.size()))];
    }

private:
    double odd(double number)
    {
        constexpr double infinity = std::numeric_limits<double>::infinity();
        if (!wild || below(12) != 0) {
            return number;
        }
        return oneOf({std::numeric_limits<double>::quiet_NaN(), infinity, -infinity, 1e308, -1e308,
                      1.7e308, 1e-310, 0.0, -0.0, 1e200});
    }

    double ease() { return odd(below(2) == 0 ? 0.0 : uniform(-0.2, 1.2)); }

    std::mt19937_64 engine;
    bool wild;
};
