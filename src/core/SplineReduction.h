#pragma once

#include "core/Ease.h"
#include "core/PointInfo.h"

#include <cstddef>
#include <vector>

class SplineBase;

/// Fits as few Bezier segments as it finds to the keys of a spline, from the first key on and each
/// as long as the tolerance lets it be. All times and values are finite.
///
/// The slopes of a segment are those of least squares, weighed anew a few times towards the places
/// that are farthest off. How far it is off is told without sampling where there is no ease, and
/// with ease by so many samples that no polynomial of the sixth degree hides between them.
class SplineReduction
{
public:
    SplineReduction(const SplineBase& source, double farthest);

    /// The keys of the reduced spline, in order.
    std::vector<PointInfo> keys();

    /// Whether these keys can be worked on.
    static bool isPossible(const SplineBase& source);

private:
    /// Keys of one time.
    struct Node
    {
        double time = 0.0;
        double reached = 0.0; ///< the value that the curve comes up to
        double value = 0.0;   ///< and the one it goes on from

        bool isJump() const { return reached != value; }
    };

    /// From a node to the next: the value after a share of the way, by its coefficients.
    struct Piece
    {
        double run = 0.0;
        double rise[4] = {0.0, 0.0, 0.0, 0.0};
        double out = 0.0; ///< the rises at the slopes of its ends; of short pieces the
        double in = 0.0;  ///< coefficients no longer tell them
        Ease ease{0.0, 0.0};
        double easeFrom = 0.0;
        double easeTo = 0.0;
        bool isStep = false; ///< one that stays a step
        bool isSoft = false; ///< a step so small that a slope may stand for it

        double at(double way) const
        {
            return rise[0] + way * (rise[1] + way * (rise[2] + way * rise[3]));
        }
    };

    /// A segment in the place of the pieces between two nodes: its rises over its whole time.
    struct Fit
    {
        bool isGood = false;
        double out = 0.0;
        double in = 0.0;
    };

    struct Sample
    {
        double share;
        double value;
        double weight;
    };

    void addNode(const SplineBase& source, unsigned first, unsigned last);
    Piece makePiece(const SplineBase& source, unsigned key) const;
    bool mayPass(std::size_t node) const;
    std::size_t farthestFrom(std::size_t begin) const;
    Fit longestFit(std::size_t begin, std::size_t farthest, std::size_t& end) const;
    Fit fit(std::size_t begin, std::size_t end) const;
    bool isStraightInto(std::size_t node) const;
    std::vector<Sample> samplesOf(std::size_t begin, std::size_t end) const;
    void solve(const std::vector<Sample>& samples, std::size_t begin, std::size_t end,
               Fit& found) const;
    double errorOf(const Fit& found, std::size_t begin, std::size_t end) const;
    double errorInPiece(const Piece& piece, const double (&fitted)[4]) const;
    void emitSegment(std::vector<PointInfo>& made, std::size_t begin, std::size_t end,
                     const Fit& found) const;
    void emitNode(std::vector<PointInfo>& made, const Node& node) const;

    double tolerance;
    bool keepsFirstSlope;
    bool keepsLastSlope;
    std::vector<Node> nodes;
    std::vector<Piece> pieces; ///< one less than nodes
};
