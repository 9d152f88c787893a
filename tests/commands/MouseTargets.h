#pragma once

#include "commands/MouseStage.h"
#include "graphs/SplineCurveGraph.h"

/// Places on the canvas that a mouse goes to.
class MouseTargets
{
public:
    explicit MouseTargets(MouseStage& mouseStage)
        : stage(mouseStage)
    {}

    /// A key, a handle of a selected key, the time or the value of a key, or anywhere.
    QPoint any(Chance& chance)
    {
        const QList<SplineCurveGraph*> graphs = stage.logic().keyContainers();
        SplineCurveGraph* const graph = graphs.isEmpty() ? nullptr : chance.oneOf(graphs);
        SplineBase* const spline = graph ? graph->selection().spline() : nullptr;
        if (!spline || spline->getControlPointsNumber() == 0) {
            return anywhere(chance);
        }
        const int what = chance.below(100);
        if (what < 20) {
            return onCanvas(handle(chance, *graph, *spline), chance);
        }
        const PointInfo* const key = chance.oneOf(spline->getControlPoints());
        const QPoint place(stage.view().pixelX(key->time), stage.view().pixelY(key->value));
        if (what < 70) {
            return onCanvas(place, chance);
        }
        return what < 80 ? onCanvas(QPoint(place.x(), anywhere(chance).y()), chance)
                         : anywhere(chance);
    }

private:
    QPoint handle(Chance& chance, SplineCurveGraph& graph, SplineBase& spline)
    {
        const QList<PointInfo*> selected = graph.selection().heldPoints();
        const int index = selected.isEmpty() ? -1 : spline.findIndex(selected.first());
        if (index < 0) {
            return anywhere(chance);
        }
        const PointInfo* const key = spline.at(static_cast<unsigned>(index));
        const QPoint place(stage.view().pixelX(key->time), stage.view().pixelY(key->value));
        const int last = static_cast<int>(spline.getControlPointsNumber()) - 1;
        return chance.chance(50) ? graph.rightHandlePos(place, index, index == 0)
                                 : graph.leftHandlePos(place, index, index == last);
    }

    /// Keys out of sight cannot be pressed.
    QPoint onCanvas(const QPoint& pixel, Chance& chance)
    {
        return QRect(0, 0, 500, 400).contains(pixel) ? pixel : anywhere(chance);
    }

    /// Mostly at round times and values; a drag may leave the canvas.
    QPoint anywhere(Chance& chance)
    {
        return chance.chance(60) ? QPoint(chance.below(11) * 50, chance.below(9) * 50)
                                 : QPoint(chance.below(560) - 30, chance.below(460) - 30);
    }

    MouseStage& stage;
};
