#include "canvas/CurveLayers.h"

#include "canvas/LayerPlace.h"
#include "curves/CurveNodeBase.h"
#include "graphs/ViewPort.h"

#include <QFont>
#include <QPainter>

#include <algorithm>
#include <unordered_map>

namespace {

constexpr std::size_t mostRuns = 12;
constexpr std::size_t fewestRuns = 3;
// Of all pictures together, as long as there are more than the fewest.
constexpr std::size_t mostBytes = std::size_t{96} << 20;

std::size_t runsWithin(const QSize& picture)
{
    const auto bytes = static_cast<std::size_t>(picture.width()) *
                       static_cast<std::size_t>(picture.height()) * sizeof(quint32);
    return std::clamp(mostBytes / std::max<std::size_t>(bytes, 1), fewestRuns, mostRuns);
}

} // namespace

void CurveLayers::drop()
{
    runs.clear();
    validFor = 0;
}

std::vector<CurveLayers::Shown> CurveLayers::shownOf(const QList<CurveNode*>& curves,
                                                     ViewPort* view, bool onlyMoved)
{
    std::unordered_map<CurveNode*, std::uint64_t> known;
    if (onlyMoved) {
        for (const Run& run : runs) {
            for (const Shown& each : run.curves) {
                known.emplace(each.curve, each.print);
            }
        }
    }
    std::vector<Shown> shown;
    shown.reserve(static_cast<std::size_t>(curves.size()));
    for (CurveNode* node : curves) {
        auto* const curve = dynamic_cast<CurveNodeBase*>(node);
        if (!curve) {
            continue;
        }
        const auto found = onlyMoved && curve->isPlain() ? known.find(node) : known.end();
        const std::uint64_t print =
            found != known.end() ? found->second : curve->refreshGraph(view);
        if (print != 0) {
            shown.push_back({node, print});
        }
    }
    return shown;
}

bool CurveLayers::isUnchanged(const std::vector<Shown>& shown) const
{
    auto next = shown.cbegin();
    for (const Run& run : runs) {
        for (const Shown& each : run.curves) {
            if (next == shown.cend() || next->curve != each.curve || next->print != each.print) {
                return false;
            }
            ++next;
        }
    }
    return next == shown.cend();
}

/// Runs of curves that are all as they were keep their pictures. Of a run that has changed in part
/// each stretch becomes a run of its own, so that what changes again is alone then.
void CurveLayers::divide(const std::vector<Shown>& shown)
{
    struct Former
    {
        std::size_t run;
        std::size_t index;
        std::uint64_t print;
    };
    std::unordered_map<const CurveNode*, Former> formers;
    for (std::size_t r = 0; r < runs.size(); ++r) {
        for (std::size_t i = 0; i < runs[r].curves.size(); ++i) {
            const Shown& each = runs[r].curves[i];
            formers.emplace(each.curve, Former{r, i, each.print});
        }
    }

    const std::size_t none = runs.size();
    std::vector<Run> divided;
    std::vector<std::size_t> formerRuns; // of each run in `divided`
    std::size_t nextIndex = 0;
    for (const Shown& each : shown) {
        const auto found = formers.find(each.curve);
        const bool isKnown = found != formers.end();
        const std::size_t run = isKnown ? found->second.run : none;
        const bool hasChanged = isKnown && found->second.print != each.print;
        const bool goesOn = !divided.empty() && formerRuns.back() == run &&
                            divided.back().isChanging == hasChanged &&
                            (!isKnown || found->second.index == nextIndex);
        if (!goesOn) {
            divided.emplace_back();
            divided.back().isChanging = hasChanged;
            formerRuns.push_back(run);
        }
        nextIndex = isKnown ? found->second.index + 1 : 0;
        divided.back().curves.push_back(each);
    }
    for (std::size_t i = 0; i < divided.size(); ++i) {
        if (formerRuns[i] != none &&
            divided[i].curves.size() == runs[formerRuns[i]].curves.size()) {
            Run& former = runs[formerRuns[i]];
            divided[i].isValid = former.isValid && !divided[i].isChanging;
            divided[i].picture = std::move(former.picture);
            divided[i].isChanging = divided[i].isChanging || former.isChanging;
        }
    }
    runs = std::move(divided);
}

/// A long run without a picture becomes several, so that a change of one of its curves is a small
/// one.
void CurveLayers::divideNew(std::size_t runLimit)
{
    const std::size_t wanted = runLimit / 2;
    std::vector<Run> divided;
    std::size_t all = 0;
    for (const Run& run : runs) {
        all += run.curves.size();
    }
    const std::size_t most = std::max<std::size_t>((all + wanted - 1) / wanted, 1);
    for (Run& run : runs) {
        if (run.isValid || run.isChanging || run.curves.size() <= most) {
            divided.push_back(std::move(run));
            continue;
        }
        for (std::size_t i = 0; i < run.curves.size(); i += most) {
            const auto first = run.curves.cbegin() + static_cast<std::ptrdiff_t>(i);
            const auto last = run.curves.cbegin() +
                              static_cast<std::ptrdiff_t>(std::min(i + most, run.curves.size()));
            divided.emplace_back();
            divided.back().curves.assign(first, last);
        }
    }
    runs = std::move(divided);
}

/// Joins neighbours, those first that cost least to be painted once more.
void CurveLayers::unite(std::size_t runLimit)
{
    const auto cost = [this](std::size_t i) {
        const Run& left = runs[i];
        const Run& right = runs[i + 1];
        const std::size_t curves =
            (left.isValid ? left.curves.size() : 0) + (right.isValid ? right.curves.size() : 0);
        const std::size_t all = left.curves.size() + right.curves.size();
        return curves + (left.isChanging != right.isChanging ? all : 0);
    };
    while (runs.size() > runLimit) {
        std::size_t best = 0;
        for (std::size_t i = 1; i + 1 < runs.size(); ++i) {
            best = cost(i) < cost(best) ? i : best;
        }
        Run& left = runs[best];
        const Run& right = runs[best + 1];
        left.curves.insert(left.curves.end(), right.curves.cbegin(), right.curves.cend());
        left.isValid = false;
        left.isChanging = left.isChanging && right.isChanging;
        runs.erase(runs.begin() + static_cast<std::ptrdiff_t>(best) + 1);
    }
}

void CurveLayers::paint(Run& run, const LayerPlace& place, ViewPort* view, const QPainter& like,
                        const QFont& font)
{
    const QSize canvas(view->viewWidth, view->viewHeight);
    if (run.picture.size() != place.pictureSize(canvas) ||
        run.picture.devicePixelRatio() != place.ratio) {
        run.picture = place.newPicture(canvas);
    } else {
        run.picture.fill(Qt::transparent);
    }
    if (!run.picture.isNull()) {
        QPainter painter(&run.picture);
        painter.setRenderHints(like.renderHints());
        painter.setFont(font);
        for (const Shown& each : run.curves) {
            static_cast<CurveNodeBase*>(each.curve)->paintGraph(view, &painter);
        }
        curveCount += static_cast<int>(run.curves.size());
    }
    ++pictureCount;
    run.isValid = true;
}

void CurveLayers::draw(QPainter* painter, const LayerPlace& place, const QList<CurveNode*>& curves,
                       ViewPort* view, const QFont& font, const std::uint64_t& common,
                       const bool& onlyMoved)
{
    const bool isValid = common == validFor;
    const std::vector<Shown> shown = shownOf(curves, view, onlyMoved && isValid);
    if (!isValid) {
        validFor = common;
        for (Run& run : runs) {
            run.isValid = false;
        }
    }
    if (!isUnchanged(shown)) {
        const std::size_t runLimit =
            runsWithin(place.pictureSize(QSize(view->viewWidth, view->viewHeight)));
        divide(shown);
        divideNew(runLimit);
        unite(runLimit);
    }
    for (Run& run : runs) {
        if (!run.isValid) {
            paint(run, place, view, *painter, font);
        }
        place.draw(painter, run.picture);
    }
}
