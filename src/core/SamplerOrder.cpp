#include "core/SamplerOrder.h"

#include <algorithm>
#include <utility>

// Without recursion throughout: curves may read one another in long chains.

SamplerOrder::SamplerOrder(const SamplerCurve& root)
{
    findRings(root);
    walk(root);
}

/// Tarjan, "Depth-first search and linear graph algorithms", 1972: the strongly connected parts.
void SamplerOrder::findRings(const SamplerCurve& root)
{
    struct Node
    {
        const SamplerCurve* curve;
        std::size_t next; // input
        std::size_t lowest;
    };
    std::unordered_map<const SamplerCurve*, std::size_t> numbers;
    std::vector<Node> nodes;
    std::vector<const SamplerCurve*> ringless;
    const auto begin = [&](const SamplerCurve* curve) {
        const std::size_t number = numbers.size();
        numbers[curve] = number;
        nodes.push_back({curve, 0, number});
        ringless.push_back(curve);
    };
    begin(&root);
    while (!nodes.empty()) {
        Node& node = nodes.back();
        if (node.next < node.curve->inputs.size()) {
            const SamplerCurve* const read = node.curve->inputs[node.next++].curve;
            const auto known = numbers.find(read);
            if (known != numbers.end() && states.count(read) == 0) {
                node.lowest = std::min(node.lowest, known->second);
            } else if (read && known == numbers.end()) {
                begin(read);
            }
            continue;
        }
        const Node done = node;
        nodes.pop_back();
        if (!nodes.empty()) {
            nodes.back().lowest = std::min(nodes.back().lowest, done.lowest);
        }
        if (done.lowest == numbers[done.curve]) {
            const SamplerCurve* member = nullptr;
            while (member != done.curve) {
                member = ringless.back();
                ringless.pop_back();
                states[member].ring = ringsOnTheWay.size();
            }
            ringsOnTheWay.push_back(0);
        }
    }
}

void SamplerOrder::walk(const SamplerCurve& root)
{
    enter(root);
    while (!way.empty()) {
        if (way.back().read.size() < way.back().curve->inputs.size()) {
            readNext();
        } else {
            finish();
        }
    }
}

void SamplerOrder::enter(const SamplerCurve& curve)
{
    State& state = states[&curve];
    state.wayOrder = lastOrder++;
    ++ringsOnTheWay[state.ring];
    way.push_back({&curve, state.wayOrder, never, open.size(), {}});
}

void SamplerOrder::readNext()
{
    Visit& visit = way.back();
    const SamplerCurve::Input& input = visit.curve->inputs[visit.read.size()];
    if (input.function) {
        visit.read.push_back(stepOf(input.function));
        return;
    }
    const State& state = states[input.curve];
    if (state.wayOrder != never) {
        visit.read.push_back(closesRing);
        visit.until = std::min(visit.until, state.wayOrder);
    } else if (state.openStep != unknown) {
        visit.read.push_back(state.openStep);
        visit.until = std::min(visit.until, state.openUntil);
    } else if (state.settledStep != unknown && ringsOnTheWay[state.ring] == 0) {
        visit.read.push_back(state.settledStep);
    } else {
        enter(*input.curve); // and its end tells what was read
    }
}

void SamplerOrder::finish()
{
    const Visit visit = std::move(way.back());
    way.pop_back();
    State& state = states[visit.curve];
    state.wayOrder = never;
    --ringsOnTheWay[state.ring];
    const auto step = static_cast<std::int32_t>(steps.size());
    steps.push_back({{visit.curve, nullptr}, places.size()});
    places.insert(places.end(), visit.read.begin(), visit.read.end());
    const bool isOpen = visit.until < visit.order;
    if (isOpen) {
        state.openStep = step;
        state.openUntil = visit.until;
        open.push_back(&state);
    } else {
        state.settledStep = step;
        for (; open.size() > visit.firstOpen; open.pop_back()) {
            open.back()->openStep = unknown;
        }
    }
    if (!way.empty()) {
        way.back().read.push_back(step);
        way.back().until = std::min(way.back().until, isOpen ? visit.until : never);
    }
}

std::int32_t SamplerOrder::stepOf(const SamplerFunction* function)
{
    const auto [known, isNew] =
        functionSteps.try_emplace(function, static_cast<std::int32_t>(steps.size()));
    if (isNew) {
        steps.push_back({{nullptr, function}, places.size()});
    }
    return known->second;
}
