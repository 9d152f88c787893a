#pragma once

#include "core/SamplerCurve.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <unordered_map>
#include <vector>

/// In which order a curve and all that it reads are worked out: each behind what it reads.
///
/// Curves may read one another in a ring. The mention that closes it, of a curve that is being
/// worked out already, reads 0. What hangs on such a 0 is good only until the curve by which the
/// ring was entered is done; asked from outside of the ring a curve may give another value, and
/// then has two steps. So each curve has one value at a time, as the live curves have, but for
/// mentions in a branch of an "if" that is not taken: here they count.
class SamplerOrder
{
public:
    static constexpr std::int32_t closesRing = -1;

    struct Step
    {
        SamplerCurve::Input what;
        std::size_t firstPlace; ///< of its inputs, among the places
    };

    explicit SamplerOrder(const SamplerCurve& root);

    std::vector<Step> steps;          ///< the curve itself comes last
    std::vector<std::int32_t> places; ///< the steps that inputs are read from, or closesRing

private:
    static constexpr std::size_t never = std::numeric_limits<std::size_t>::max();
    static constexpr std::int32_t unknown = -1;

    struct State
    {
        std::size_t ring = never;        // what all curves that can reach one another share
        std::size_t wayOrder = never;    // while it is being worked out
        std::int32_t openStep = unknown; // within a ring that is being worked out
        std::size_t openUntil = never;   // the evaluation that this hangs on
        std::int32_t settledStep = unknown;
    };

    struct Visit
    {
        const SamplerCurve* curve;
        std::size_t order;
        std::size_t until;     // the outermost evaluation that it hangs on
        std::size_t firstOpen; // of the open curves since its beginning
        std::vector<std::int32_t> read;
    };

    void findRings(const SamplerCurve& root);
    void walk(const SamplerCurve& root);
    void enter(const SamplerCurve& curve);
    void readNext();
    void finish();
    std::int32_t stepOf(const SamplerFunction* function);

    std::unordered_map<const SamplerCurve*, State> states;
    std::unordered_map<const SamplerFunction*, std::int32_t> functionSteps;
    std::vector<std::size_t> ringsOnTheWay; // how many curves of each ring
    std::vector<Visit> way;
    std::vector<State*> open;
    std::size_t lastOrder = 0;
};
