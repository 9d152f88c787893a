#pragma once

#include <QImage>
#include <QList>

#include <cstddef>
#include <cstdint>
#include <vector>

class CurveNode;
class LayerPlace;
class QFont;
class QPainter;
class ViewPort;

/// The curves as a stack of transparent pictures, each of a few curves that follow one another in
/// the order of drawing. A picture is made anew only when one of its curves, or what belongs to
/// all of them, has changed; curves that change get a picture of their own.
class CurveLayers
{
public:
    /// Draws the curves in their order. `common` tells by a number all that belongs to all
    /// curves. With `onlyMoved` something else has moved over the curves: those whose change
    /// nobody has marked are not looked at.
    void draw(QPainter* painter, const LayerPlace& place, const QList<CurveNode*>& curves,
              ViewPort* view, const QFont& font, const std::uint64_t& common,
              const bool& onlyMoved);

    /// Frees the pictures.
    void drop();

    /// How often a picture was made, and of how many curves, since the beginning.
    int paintedPictures() const { return pictureCount; }
    int paintedCurves() const { return curveCount; }
    /// How many pictures are kept.
    std::size_t runCount() const { return runs.size(); }

private:
    /// A curve that draws something, and what it draws.
    struct Shown
    {
        CurveNode* curve; ///< not owned; may be freed, and is never read through
        std::uint64_t print;
    };
    struct Run
    {
        std::vector<Shown> curves;
        QImage picture;
        bool isValid = false;
        bool isChanging = false; ///< its curves have changed last
    };

    std::vector<Shown> shownOf(const QList<CurveNode*>& curves, ViewPort* view, bool onlyMoved);
    bool isUnchanged(const std::vector<Shown>& shown) const;
    void divide(const std::vector<Shown>& shown);
    void divideNew(std::size_t mostRuns);
    void unite(std::size_t mostRuns);
    void paint(Run& run, const LayerPlace& place, ViewPort* view, const QPainter& like,
               const QFont& font);

    std::vector<Run> runs;
    std::uint64_t validFor = 0;
    int pictureCount = 0;
    int curveCount = 0;
};
