#pragma once

#include "commands/KeyLists.h"
#include "editor/EditorParts.h"
#include "support/EditorFixture.h"
#include "support/SplineState.h"

#include <initializer_list>

/// What a test of commands on whole curves looks at.

inline curve_editor::CurveCommandsManager& managerOf(EditorFixture& fixture)
{
    return *fixture.editor.getCmdManager();
}

/// The keys themselves.
inline QList<PointInfo*> keysOf(SplineBase& spline)
{
    const std::vector<PointInfo*>& keys = spline.getControlPoints();
    return QList<PointInfo*>(keys.begin(), keys.end());
}

inline QString textOf(const LentCurve& curve)
{
    return curve.expression ? QString::fromStdString(curve.expression->getString())
                            : QString("none");
}

inline QString commandLineText(const CurveEditor& editor)
{
    return editor.commandLine->text();
}

/// Every selected key of every curve on the canvas is a key of that curve's spline.
inline bool selectionsAreSound(EditorFixture& fixture)
{
    for (CurveNode* top : fixture.logic().topNodes()) {
        for (CurveNode* curve : top->curves()) {
            for (const PointInfo* key : curve->splineGraph()->selection().selectedPoints) {
                if (!curve->spline() || curve->spline()->findIndex(key) < 0) {
                    return false;
                }
            }
        }
    }
    return true;
}

/// Chooses an entry of the menu bar as the user does; returns whether it could be chosen.
inline bool choose(CurveEditor& editor, const QString& path)
{
    QAction* const menu = menuAction(editor, path.section('/', 0, -2));
    QAction* const action = menuAction(editor, path);
    if (!action || !action->isEnabled() || !menu->isEnabled()) {
        return false;
    }
    action->trigger();
    return true;
}

/// A curve that is spline plus expression.
inline LentCurve& editSum(EditorFixture& fixture, const QString& name,
                          std::initializer_list<EditorFixture::Key> keys, const char* expression)
{
    LentCurve& curve = fixture.editCurve(name, keys, expression);
    curve.spline.setAddFunc(true);
    fixture.editor.refreshEditor();
    return curve;
}
