#include "core/SegmentSplit.h"

#include "core/Ease.h"
#include "core/SplineFormulas.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

using spline_formulas::isFinite;

namespace {

constexpr int easeSteps = 16;

// Of each stretch in which no speed bends. Values differ there by a polynomial of the sixth
// degree, and by the inequality of the brothers Markov it exceeds the samples by this share of its
// greatest value at most.
constexpr int samplesOfStretch = 64;
constexpr double hiddenShare = 420.0 / (2.0 * samplesOfStretch * samplesOfStretch);

/// A cubic over the share of a way, by its end values and the rises at the slopes of its ends.
struct Cubic
{
    double first, last, out, in;

    double at(double way) const
    {
        const double rise = last - first;
        return first +
               way * (out + way * (3.0 * rise - 2.0 * out - in + way * (out + in - 2.0 * rise)));
    }
    double riseAt(double way) const
    {
        const double rise = last - first;
        return out +
               way * (2.0 * (3.0 * rise - 2.0 * out - in) + way * 3.0 * (out + in - 2.0 * rise));
    }
};

struct Sample
{
    double share;
    double weight;
};

double held(double ease)
{
    return ease > 0.0 ? std::min(ease, 1.0) : 0.0;
}

} // namespace

/// One of the two parts, seen over its own time, 0 to 1.
struct SegmentSplit::Piece
{
    Cubic whole;       ///< the curve that was, over the way of the uncut segment
    Ease wholeEase;    ///< and the ease that it had
    double begin, end; ///< shares of the uncut segment's time
    double easeFrom = 0.0;
    double easeTo = 0.0;
    double out = 0.0; ///< the rises at the slopes of its ends, over its own way
    double in = 0.0;

    double formerValue(double share) const
    {
        return whole.at(wholeEase.way(begin + share * (end - begin)));
    }
    /// What the curve that was makes of the piece's own ease, where that is the same ease.
    void takeExactly()
    {
        const double from = wholeEase.way(begin);
        const double to = wholeEase.way(end);
        out = whole.riseAt(from) * (to - from);
        in = whole.riseAt(to) * (to - from);
    }
    /// Places all over the piece, as close in a narrow ease as in a wide one. The piece would have
    /// the ease told.
    std::vector<Sample> samples(const Ease& ease) const
    {
        std::vector<double> ends = {0.0, 1.0};
        for (const double bend : {ease.endOfStart(), ease.startOfEnd(),
                                  (wholeEase.endOfStart() - begin) / (end - begin),
                                  (wholeEase.startOfEnd() - begin) / (end - begin)}) {
            if (bend > 0.0 && bend < 1.0) {
                ends.push_back(bend);
            }
        }
        std::sort(ends.begin(), ends.end());
        std::vector<Sample> made;
        for (std::size_t i = 1; i < ends.size(); ++i) {
            const double length = ends[i] - ends[i - 1];
            for (int j = 0; length > 0.0 && j <= samplesOfStretch; ++j) {
                made.push_back({ends[i - 1] + length * j / samplesOfStretch, length});
            }
        }
        return made;
    }
    double errorOf(const Cubic& cubic, const Ease& ease, const std::vector<Sample>& samples) const
    {
        double farthest = 0.0;
        for (const Sample& sample : samples) {
            const double value = cubic.at(ease.way(sample.share));
            farthest = std::max(farthest, std::abs(value - formerValue(sample.share)));
        }
        return farthest / (1.0 - hiddenShare);
    }
    /// Gives the cubic the slopes of least squares: the normal equations of two unknowns.
    void fitSlopes(Cubic& cubic, const Ease& ease, const std::vector<Sample>& samples) const
    {
        double oo = 0.0, oi = 0.0, ii = 0.0, ro = 0.0, ri = 0.0;
        for (const auto& [share, weight] : samples) {
            const double way = ease.way(share);
            const double rest = 1.0 - way;
            const double ofOut = way * rest * rest;
            const double ofIn = -way * way * rest;
            const double straight = way * way * (1.0 + 2.0 * rest) * (cubic.last - cubic.first);
            const double residue = formerValue(share) - (cubic.first + straight);
            oo += weight * ofOut * ofOut;
            oi += weight * ofOut * ofIn;
            ii += weight * ofIn * ofIn;
            ro += weight * ofOut * residue;
            ri += weight * ofIn * residue;
        }
        const double determinant = oo * ii - oi * oi;
        cubic.out = (ro * ii - ri * oi) / determinant;
        cubic.in = (ri * oo - ro * oi) / determinant;
    }
};

SegmentSplit::SegmentSplit(const Segment& segment, double time, double value)
    : leftOut(segment.out)
    , rightIn(segment.in)
    , leftEaseFrom(segment.left.tcb.easeFrom)
    , rightEaseTo(segment.right.tcb.easeTo)
{
    key.time = time;
    key.value = value;
    const double run = segment.right.time - segment.left.time;
    if (segment.left.type == zk_spline::stepped || !isFinite(run)) {
        key.type = zk_spline::stepped;
        keepsShape = value == segment.left.value;
        return;
    }
    key.type = segment.isCurved ? zk_spline::bezier : zk_spline::linear;
    if (Ease(leftEaseFrom, rightEaseTo).isNone()) {
        splitEvenly(segment);
    } else {
        splitEased(segment);
    }
    if (!isFinite(key.value) || !isFinite(leftOut) || !isFinite(rightIn) ||
        !isFinite(key.bezier.tangentLeft) || !isFinite(key.bezier.tangentRight) ||
        !isFinite(error)) {
        keepsShape = false;
        error = std::numeric_limits<double>::quiet_NaN();
    }
}

void SegmentSplit::splitEvenly(const Segment& segment)
{
    if (!segment.isCurved) {
        return;
    }
    const double run = segment.right.time - segment.left.time;
    const Cubic whole = {segment.left.value, segment.right.value, segment.out * run,
                         segment.in * run};
    const double slope = whole.riseAt((key.time - segment.left.time) / run) / run;
    key.bezier = {slope, slope};
    key.unifiedTangents = true;
}

/// Where the speed is even the two parts keep the ease of their ends. A part that begins or ends
/// while the speed still changes, and not at the end where it does so from rest, has no like ease:
/// it gets the nearest.
void SegmentSplit::splitEased(const Segment& segment)
{
    const double run = segment.right.time - segment.left.time;
    const double share = (key.time - segment.left.time) / run;
    const Ease ease(leftEaseFrom, rightEaseTo);
    const double sum = std::max(held(leftEaseFrom) + held(rightEaseTo), 1.0);
    const double from = held(leftEaseFrom) / sum;
    const double to = held(rightEaseTo) / sum;
    const double rise = segment.right.value - segment.left.value;
    const Cubic whole = {segment.left.value, segment.right.value,
                         segment.isCurved ? segment.out * run : rise,
                         segment.isCurved ? segment.in * run : rise};
    Piece first = {whole, ease, 0.0, share};
    Piece second = {whole, ease, share, 1.0};
    first.easeFrom = share > 0.0 ? std::min(from / share, 1.0) : 0.0;
    second.easeTo = share < 1.0 ? std::min(to / (1.0 - share), 1.0) : 0.0;
    first.takeExactly();
    second.takeExactly();
    if (share > 1.0 - to) {
        first.easeTo = (share - (1.0 - to)) / share;
        fitPiece(segment, first);
    }
    if (share < from) {
        second.easeFrom = (from - share) / (1.0 - share);
        fitPiece(segment, second);
    }
    leftEaseFrom = first.easeFrom;
    rightEaseTo = second.easeTo;
    key.tcb.easeTo = first.easeTo;
    key.tcb.easeFrom = second.easeFrom;
    if (segment.isCurved) {
        leftOut = first.out / (share * run);
        rightIn = second.in / ((1.0 - share) * run);
        key.bezier = {first.in / (share * run), second.out / ((1.0 - share) * run)};
        key.unifiedTangents = key.bezier.tangentLeft == key.bezier.tangentRight;
    }
}

/// Tries eases from none up to what is left of the uncut one at the end where the piece was cut,
/// each with the slopes of least squares, and takes the one whose farthest value is nearest.
void SegmentSplit::fitPiece(const Segment& segment, Piece& piece)
{
    const Piece wanted = piece;
    const double first = wanted.formerValue(0.0);
    const double last = wanted.formerValue(1.0);
    double least = std::numeric_limits<double>::infinity();
    const bool isCutAtStart = wanted.begin > 0.0;
    for (int step = 0; step <= easeSteps; ++step) {
        const double kept = static_cast<double>(step) / easeSteps;
        const double easeFrom = wanted.easeFrom * (isCutAtStart ? kept : 1.0);
        const double easeTo = wanted.easeTo * (isCutAtStart ? 1.0 : kept);
        const Ease ease(easeFrom, easeTo);
        const std::vector<Sample> samples = wanted.samples(ease);
        Cubic cubic = {first, last, last - first, last - first};
        if (segment.isCurved) {
            wanted.fitSlopes(cubic, ease, samples);
        }
        const double found = wanted.errorOf(cubic, ease, samples);
        if (found < least) {
            least = found;
            piece.easeFrom = easeFrom;
            piece.easeTo = easeTo;
            piece.out = cubic.out;
            piece.in = cubic.in;
        }
    }
    keepsShape = false;
    error = std::max(error, least);
}
