#include "core/SplineReduction.h"

#include "core/SplineBase.h"
#include "core/SplineFormulas.h"

#include <algorithm>
#include <cmath>

// The nodes, the pieces between them, and the walk from node to node. The fitting of one segment
// has a file of its own.

namespace {

constexpr double safelyFinite = 1e300;

bool isSafe(double number)
{
    return std::abs(number) <= safelyFinite;
}

} // namespace

bool SplineReduction::isPossible(const SplineBase& source)
{
    const unsigned count = source.getControlPointsNumber();
    if (count < 3) {
        return false;
    }
    const double span = source[count - 1]->time - source[0]->time;
    double length = 0.0;
    for (unsigned key = 0; key < count; ++key) {
        const double slopes = std::abs(source.getTangentLeftAtNode(key, length)) +
                              std::abs(source.getTangentRightAtNode(key + 1, length));
        if (!isSafe(source[key]->time) || !isSafe(source[key]->value) || !isSafe(slopes * span)) {
            return false;
        }
    }
    // The tangent of keys that jump at once is none of a segment.
    const auto follows = [](SplineBase::nodeType type) {
        return type == SplineBase::followTangent;
    };
    return !(follows(source.firstNodeType()) && source[0]->time == source[1]->time) &&
           !(follows(source.lastNodeType()) && source[count - 1]->time == source[count - 2]->time);
}

SplineReduction::SplineReduction(const SplineBase& source, double farthest)
    : tolerance(farthest > 0.0 ? farthest : 0.0)
    , keepsFirstSlope(source.firstNodeType() == SplineBase::followTangent)
    , keepsLastSlope(source.lastNodeType() == SplineBase::followTangent)
{
    const unsigned count = source.getControlPointsNumber();
    for (unsigned first = 0; first < count;) {
        unsigned last = first;
        while (last + 1 < count && source[last + 1]->time == source[first]->time) {
            ++last;
        }
        addNode(source, first, last);
        first = last + 1;
    }
}

/// The keys from `first` to `last` are all those of one time.
void SplineReduction::addNode(const SplineBase& source, unsigned first, unsigned last)
{
    Node node;
    node.time = source[first]->time;
    node.reached = source[first]->value;
    node.value = source[last]->value;
    nodes.push_back(node);
    if (last + 1 < source.getControlPointsNumber()) {
        pieces.push_back(makePiece(source, last));
    }
}

SplineReduction::Piece SplineReduction::makePiece(const SplineBase& source, unsigned key) const
{
    const PointInfo& left = *source[key];
    const PointInfo& right = *source[key + 1];
    Piece piece;
    piece.run = right.time - left.time;
    piece.rise[0] = left.value;
    if (left.type == zk_spline::stepped) {
        const double step = std::abs(right.value - left.value);
        // A slope for the first step would go on before it.
        piece.isStep = step > tolerance || (key == 0 && keepsFirstSlope && step > 0.0);
        piece.isSoft = !piece.isStep;
        return piece;
    }
    const double rise = right.value - left.value;
    piece.rise[1] = rise;
    piece.out = rise;
    piece.in = rise;
    if (spline_formulas::isCurved(left) && spline_formulas::isCurved(right)) {
        double length = 0.0;
        piece.out = source.getTangentRightAtNode(key + 1, length) * piece.run;
        piece.in = source.getTangentLeftAtNode(key + 1, length) * piece.run;
        piece.rise[1] = piece.out;
        piece.rise[2] = 3.0 * rise - 2.0 * piece.out - piece.in;
        piece.rise[3] = piece.out + piece.in - 2.0 * rise;
    }
    piece.ease = Ease(left.tcb.easeFrom, right.tcb.easeTo);
    if (!piece.ease.isNone()) {
        piece.easeFrom = left.tcb.easeFrom;
        piece.easeTo = right.tcb.easeTo;
    }
    return piece;
}

/// Whether one segment may reach beyond the node, which is neither the first nor the last.
bool SplineReduction::mayPass(std::size_t node) const
{
    return !nodes[node].isJump() && !pieces[node - 1].isStep && !pieces[node].isStep;
}

/// What comes into a stepped key is straight.
bool SplineReduction::isStraightInto(std::size_t node) const
{
    return node < pieces.size() && pieces[node].isStep && !nodes[node].isJump();
}

std::size_t SplineReduction::farthestFrom(std::size_t begin) const
{
    std::size_t end = begin + 1;
    while (end + 1 < nodes.size() && mayPass(end)) {
        ++end;
    }
    return end;
}

/// Doubles the length, up to the farthest node, while there is a fit, then closes in on the
/// longest.
SplineReduction::Fit SplineReduction::longestFit(std::size_t begin, std::size_t farthest,
                                                 std::size_t& end) const
{
    std::size_t good = begin + 1;
    std::size_t bad = farthest + 1;
    Fit best = fit(begin, good);
    for (std::size_t step = 1; good < farthest; step *= 2) {
        const std::size_t next = std::min(good + step, farthest);
        const Fit found = fit(begin, next);
        if (!found.isGood) {
            bad = next;
            break;
        }
        good = next;
        best = found;
    }
    while (good + 1 < bad) {
        const std::size_t middle = good + (bad - good) / 2;
        const Fit found = fit(begin, middle);
        if (found.isGood) {
            good = middle;
            best = found;
        } else {
            bad = middle;
        }
    }
    end = good;
    return best;
}

std::vector<PointInfo> SplineReduction::keys()
{
    std::vector<PointInfo> made;
    emitNode(made, nodes.front());
    std::size_t farthest = 0;
    for (std::size_t begin = 0; begin + 1 < nodes.size();) {
        farthest = begin < farthest ? farthest : farthestFrom(begin);
        std::size_t end = begin + 1;
        const Fit found = longestFit(begin, farthest, end);
        emitSegment(made, begin, end, found);
        begin = end;
    }
    return made;
}

/// The keys of the node; what goes out of them is written later.
void SplineReduction::emitNode(std::vector<PointInfo>& made, const Node& node) const
{
    PointInfo key;
    key.time = node.time;
    key.value = node.reached;
    key.type = zk_spline::bezier;
    made.push_back(key);
    if (node.isJump()) {
        key.value = node.value;
        made.push_back(key);
    }
}

void SplineReduction::emitSegment(std::vector<PointInfo>& made, std::size_t begin, std::size_t end,
                                  const Fit& found) const
{
    const double run = nodes[end].time - nodes[begin].time;
    const Piece& piece = pieces[begin];
    const bool isAlone = end == begin + 1;
    PointInfo& left = made.back();
    left.type = piece.isStep ? zk_spline::stepped : zk_spline::bezier;
    left.bezier.tangentRight = piece.isStep ? 0.0 : found.out / run;
    left.tcb.easeFrom = isAlone ? piece.easeFrom : 0.0;
    const std::size_t place = made.size();
    emitNode(made, nodes[end]);
    PointInfo& right = made[place];
    right.bezier.tangentLeft = piece.isStep ? 0.0 : found.in / run;
    right.tcb.easeTo = isAlone ? piece.easeTo : 0.0;
}
