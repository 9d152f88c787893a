#include "core/LevelShares.h"
#include "core/SplineReduction.h"

#include <algorithm>
#include <cmath>

// One segment in the place of several.

namespace {

constexpr int samplesOfPiece = 6;
constexpr int samplesOfEasedPiece = 18;
constexpr int rounds = 4;
constexpr double worthAnotherRound = 3.0;

// Of each stretch of an eased segment in which its speed changes evenly. By the inequality of the
// brothers Markov a polynomial of the sixth degree bends by at most 420 times its greatest value
// on -1..1, so between samples 2 / n apart it exceeds them by 420 / (2 n^2) of that at most.
constexpr int samplesOfStretch = 64;
constexpr double hiddenShare = 420.0 / (2.0 * samplesOfStretch * samplesOfStretch);

double weightOfOut(double share)
{
    return share * (1.0 - share) * (1.0 - share);
}

double weightOfIn(double share)
{
    return -share * share * (1.0 - share);
}

double withoutSlopes(double first, double last, double share)
{
    return first + share * share * (3.0 - 2.0 * share) * (last - first);
}

} // namespace

std::vector<SplineReduction::Sample> SplineReduction::samplesOf(std::size_t begin,
                                                                std::size_t end) const
{
    const double start = nodes[begin].time;
    const double run = nodes[end].time - start;
    std::vector<Sample> samples;
    for (std::size_t index = begin; index < end; ++index) {
        const Piece& piece = pieces[index];
        const int count = piece.ease.isNone() ? samplesOfPiece : samplesOfEasedPiece;
        for (int i = 0; i < count; ++i) {
            const double share = (i + 0.5) / count;
            const double place = (nodes[index].time - start + share * piece.run) / run;
            samples.push_back({place, piece.at(piece.ease.way(share)), piece.run / run / count});
        }
    }
    return samples;
}

/// The slopes of least squares; a slope that must stay is no unknown.
void SplineReduction::solve(const std::vector<Sample>& samples, std::size_t begin, std::size_t end,
                            Fit& found) const
{
    const double first = nodes[begin].value;
    const double last = nodes[end].reached;
    const bool isOutKnown = begin == 0 && keepsFirstSlope;
    const bool isInKnown = end + 1 == nodes.size() && keepsLastSlope;
    double oo = 0.0;
    double oi = 0.0;
    double ii = 0.0;
    double ro = 0.0;
    double ri = 0.0;
    for (const Sample& sample : samples) {
        const double ofOut = weightOfOut(sample.share);
        const double ofIn = weightOfIn(sample.share);
        const double residue = sample.value - withoutSlopes(first, last, sample.share) -
                               (isOutKnown ? ofOut * found.out : 0.0) -
                               (isInKnown ? ofIn * found.in : 0.0);
        oo += sample.weight * ofOut * ofOut;
        oi += sample.weight * ofOut * ofIn;
        ii += sample.weight * ofIn * ofIn;
        ro += sample.weight * ofOut * residue;
        ri += sample.weight * ofIn * residue;
    }
    if (isOutKnown && isInKnown) {
        return;
    }
    if (isOutKnown) {
        found.in = ri / ii;
    } else if (isInKnown) {
        found.out = ro / oo;
    } else {
        const double determinant = oo * ii - oi * oi;
        found.out = (ro * ii - ri * oi) / determinant;
        found.in = (ri * oo - ro * oi) / determinant;
    }
}

SplineReduction::Fit SplineReduction::fit(std::size_t begin, std::size_t end) const
{
    const Piece& firstPiece = pieces[begin];
    const Piece& lastPiece = pieces[end - 1];
    Fit found;
    if (end == begin + 1) {
        found.isGood = true;
        found.out = firstPiece.out;
        found.in = firstPiece.in;
        return found;
    }
    const double run = nodes[end].time - nodes[begin].time;
    if (isStraightInto(end)) {
        found.out = nodes[end].reached - nodes[begin].value;
        found.in = found.out;
        const bool keepsSlope =
            begin != 0 || !keepsFirstSlope ||
            (firstPiece.ease.speedAtStart() * firstPiece.out / firstPiece.run == found.out / run);
        found.isGood = keepsSlope && errorOf(found, begin, end) <= tolerance;
        return found;
    }
    found.out = firstPiece.ease.speedAtStart() * firstPiece.out / firstPiece.run * run;
    found.in = lastPiece.ease.speedAtEnd() * lastPiece.in / lastPiece.run * run;
    std::vector<Sample> samples = samplesOf(begin, end);
    Fit tried = found;
    for (int round = 0; round < rounds; ++round) {
        solve(samples, begin, end, tried);
        const double error = errorOf(tried, begin, end);
        tried.isGood = error <= tolerance;
        if (tried.isGood || !(error <= worthAnotherRound * tolerance)) {
            return tried;
        }
        // Lawson's way from least squares towards the least of the greatest errors.
        for (Sample& sample : samples) {
            const double value =
                withoutSlopes(nodes[begin].value, nodes[end].reached, sample.share) +
                weightOfOut(sample.share) * tried.out + weightOfIn(sample.share) * tried.in;
            sample.weight *= std::abs(value - sample.value) / error + 1e-3;
        }
    }
    return tried;
}

/// How far the segment is off at most; of steps that are smoothed, at their feet, too.
double SplineReduction::errorOf(const Fit& found, std::size_t begin, std::size_t end) const
{
    const double start = nodes[begin].time;
    const double run = nodes[end].time - start;
    const double first = nodes[begin].value;
    const double rise = nodes[end].reached - first;
    const double bend2 = 3.0 * rise - 2.0 * found.out - found.in;
    const double bend3 = found.out + found.in - 2.0 * rise;
    double error = 0.0;
    for (std::size_t index = begin; index < end; ++index) {
        const Piece& piece = pieces[index];
        const double from = (nodes[index].time - start) / run;
        const double length = piece.run / run;
        // The segment over the share of this piece's time.
        const double fitted[4] = {first + from * (found.out + from * (bend2 + from * bend3)),
                                  length * (found.out + from * (2.0 * bend2 + 3.0 * from * bend3)),
                                  length * length * (bend2 + 3.0 * from * bend3),
                                  length * length * length * bend3};
        const double here = errorInPiece(piece, fitted);
        if (!(here <= error)) {
            error = here; // NaN comes through
        }
        if (!(error <= worthAnotherRound * tolerance)) {
            return error;
        }
    }
    return error;
}

double SplineReduction::errorInPiece(const Piece& piece, const double (&fitted)[4]) const
{
    double error = 0.0;
    const auto take = [&](double difference) {
        error = std::abs(difference) <= error ? error : std::abs(difference);
    };
    const auto cubicAt = [](const double(&rise)[4], double share) {
        return rise[0] + share * (rise[1] + share * (rise[2] + share * rise[3]));
    };
    if (piece.ease.isNone()) {
        const double difference[4] = {fitted[0] - piece.rise[0], fitted[1] - piece.rise[1],
                                      fitted[2] - piece.rise[2], fitted[3] - piece.rise[3]};
        take(difference[0]);
        take(cubicAt(difference, 1.0));
        const LevelShares level(difference[1], difference[2], difference[3]);
        for (int i = 0; i < level.count; ++i) {
            take(cubicAt(difference, level.share[i]));
        }
        return error;
    }
    const double a = piece.ease.endOfStart();
    const double b = piece.ease.startOfEnd();
    const double stretches[4] = {0.0, a, b, 1.0};
    for (int stretch = 0; stretch < 3; ++stretch) {
        const double from = stretches[stretch];
        const double length = stretches[stretch + 1] - from;
        for (int i = 0; length > 0.0 && i <= samplesOfStretch; ++i) {
            const double share = from + length * i / samplesOfStretch;
            take(cubicAt(fitted, share) - piece.at(piece.ease.way(share)));
        }
    }
    return error / (1.0 - hiddenShare);
}
