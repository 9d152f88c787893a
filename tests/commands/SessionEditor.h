#pragma once

#include "commands/SessionCurves.h"

#include <QLineEdit>

/// One editor of a session, on the curves of its host.
class SessionEditor
{
public:
    explicit SessionEditor(SessionCurves& sessionCurves)
        : curves(sessionCurves)
    {
        addAll();
        editor().selectNodes(curves.names);
    }

    CurveEditor& editor() { return fixture.editor; }
    CanvasFunctionBase& logic() { return fixture.logic(); }
    curve_editor::CurveCommandsManager& manager() { return *editor().getCmdManager(); }

    void add(const int& curve)
    {
        LentCurve* const content = curves.contentOf(curve).get();
        if (content) {
            editor().addCurve(curves.nodeOf(curve), curves.curveOf(curve), Qt::green, 0,
                              &content->spline, &content->expression, -100, 100, true, true);
        }
    }

    void addAll()
    {
        for (int i = 0; i < curves.names.size(); ++i) {
            add(i);
        }
    }

    void remove(const int& curve)
    {
        editor().removeCurve(curves.nodeOf(curve), curves.curveOf(curve));
    }

    CurveEditor::NodeStruct* anyRecord()
    {
        return editor().searchAllNodeList(curves.names[curves.anyCurve()]);
    }

    ControlSplineNode* anySelection()
    {
        const QList<CurveNode*> editing = logic().editingCurves();
        return editing.isEmpty() ? nullptr : &curves.oneOf(editing)->splineGraph()->selection();
    }

    /// The label of the step that undo would take back; empty when there is none.
    std::string nextUndo()
    {
        curve_editor::CurveCommand* const next = manager().nextUndo();
        return next ? next->getDescription() : std::string();
    }

    std::string nextRedo()
    {
        curve_editor::CurveCommand* const next = manager().nextRedo();
        return next ? next->getDescription() : std::string();
    }

    /// Every selected key is a key of its curve's spline.
    bool selectionsAreSound()
    {
        for (CurveNode* top : logic().topNodes()) {
            for (CurveNode* curve : top->curves()) {
                const ControlSplineNode& selection = curve->splineGraph()->selection();
                QList<PointInfo*> keys = selection.selectedPoints;
                if (selection.currentPoint) {
                    keys.append(selection.currentPoint);
                }
                for (const PointInfo* key : std::as_const(keys)) {
                    if (!curve->spline() || curve->spline()->findIndex(key) < 0) {
                        return false;
                    }
                }
            }
        }
        return true;
    }

    SessionCurves& curves;
    EditorFixture fixture;
};
