#pragma once

#include "support/EditorFixture.h"
#include "support/SplineState.h"

#include "commands/CommandAddPoint.h"
#include "curves/CurveType.h"

#include <QRandomGenerator>

#include <deque>
#include <memory>
#include <vector>

/// The splines of all curves at one moment.
using State = std::vector<SplineState>;

/// An editor with a few curves, and a user and a host who do anything at random.
class RandomSession : public QObject
{
public:
    explicit RandomSession(unsigned seed)
        : random(seed)
    {
        for (int i = 0; i < splineCount; ++i) {
            lent.push_back(std::make_unique<LentCurve>());
            for (int key = 0; key < 4; ++key) {
                lent.back()->addKey(number(), number());
            }
        }
        lent[1]->setExpression("t*2");
        lent[1]->spline.setAddFunc(true);
        for (int i = 0; i < names().size(); ++i) {
            add(i);
        }
        editor().selectNodes(names());
        last = state();
        connect(&manager(), &curve_editor::CurveCommandsManager::curveEditorCmdExec, this,
                [this] { noteCommand(); });
    }

    CurveEditor& editor() { return fixture.editor; }
    curve_editor::CurveCommandsManager& manager() { return *editor().getCmdManager(); }
    CanvasFunctionBase& logic() { return fixture.logic(); }

    /// The last two show the same spline.
    static const QStringList& names()
    {
        static const QStringList all{"n.a", "n.b.c", "m.d", "m.e"};
        return all;
    }

    SplineBase* splineOf(int curve) { return &lent[splineIndex(curve)]->spline; }

    static std::size_t splineIndex(int curve)
    {
        return static_cast<std::size_t>(qMin(curve, splineCount - 1));
    }

    void add(int curve)
    {
        const QString& name = names()[curve];
        LentCurve* const content = lent[splineIndex(curve)].get();
        if (content) {
            editor().addCurve(name.section('.', 0, 0), name.section('.', 1), Qt::green, 0,
                              &content->spline, &content->expression, -100, 100, true, true);
        }
    }

    void remove(int curve)
    {
        const QString& name = names()[curve];
        editor().removeCurve(name.section('.', 0, 0), name.section('.', 1));
    }

    State state()
    {
        State all;
        for (const auto& curve : lent) {
            all.push_back(curve ? SplineState(curve->spline) : SplineState());
        }
        return all;
    }

    /// Half steps of a small grid, so that keys often meet.
    double number() { return random.bounded(41) * 0.5; }
    double offset() { return random.bounded(-8, 9) * 0.5 + 0.0; }
    bool chance(int percent) { return random.bounded(100) < percent; }

    ControlSplineNode* anySelection()
    {
        const QList<CurveNode*> curves = logic().editingCurves();
        if (curves.isEmpty()) {
            return nullptr;
        }
        return &curves[random.bounded(int(curves.size()))]->splineGraph()->selection();
    }

    QList<PointInfo*> someKeys(SplineBase* spline)
    {
        QList<PointInfo*> keys;
        for (PointInfo* key : spline->getControlPoints()) {
            if (chance(40)) {
                keys.append(key);
            }
        }
        return keys;
    }

    /// Shifts the selected keys of all edited curves, as a drag does.
    void dragKeys()
    {
        const double dx = offset();
        const double dy = offset();
        for (CurveNode* curve : logic().editingCurves()) {
            SplineBase* const spline = curve->spline();
            for (PointInfo* key : curve->splineGraph()->selection().selectedPoints) {
                if (spline && spline->findIndex(key) >= 0) {
                    spline->setTime(key, key->time + dx + 0.0);
                    spline->setPos(key, key->value + dy + 0.0);
                }
            }
        }
    }

    void changeKeys()
    {
        for (CurveNode* curve : logic().editingCurves()) {
            SplineBase* const spline = curve->spline();
            for (PointInfo* key : curve->splineGraph()->selection().selectedPoints) {
                if (spline && spline->findIndex(key) >= 0) {
                    PointInfo changed = *key;
                    changed.tcb.tension = number();
                    changed.bezier.tangentRight = number();
                    changed.time = chance(50) ? number() : changed.time;
                    spline->copyPoint(key, &changed);
                }
            }
        }
    }

    void edit()
    {
        switch (random.bounded(13)) {
        case 0:
            manager().doCommand(new curve_editor::CommandAddPoint(
                &editor(), editor().searchAllNodeList(names()[random.bounded(int(names().size()))]),
                number(), number()));
            break;
        case 1:
            editor().deleteSelectedKeys();
            break;
        case 2:
            logic().beginMoveCommand();
            dragKeys();
            logic().commitMoveCommand();
            break;
        case 3:
            logic().panSelection(offset(), offset());
            break;
        case 4:
            logic().beginChangeCommand();
            changeKeys();
            logic().commitChangeCommand();
            break;
        case 5:
            logic().scaleSelection(1.0 + random.bounded(3) * 0.5, 1.0);
            break;
        case 6:
            editor().breakTangents();
            break;
        case 7:
            editor().flatTangents();
            break;
        case 8:
            editor().setSelectedStep();
            break;
        case 9:
            editor().setSelectedTcb();
            break;
        case 10:
            editor().changeNodeLastType(random.bounded(5));
            break;
        case 11:
            editor().changeNodeFirstType(random.bounded(2));
            break;
        default:
            editor().unifyTangents();
            break;
        }
    }

    void select()
    {
        ControlSplineNode* const selection = anySelection();
        if (!selection || chance(10)) {
            editor().selectAllKeys();
        } else if (chance(10)) {
            editor().selectNoneKeys();
        } else {
            logic().beginSelectCommand();
            if (selection->spline()) {
                selection->selectPoints(someKeys(selection->spline()));
            }
            logic().commitSelectCommand();
        }
    }

    void changeSet()
    {
        const int curve = random.bounded(int(names().size()));
        switch (random.bounded(6)) {
        case 0:
            editor().removeCurvesFromEditing();
            break;
        case 1:
            remove(curve);
            break;
        case 2:
            remove(curve);
            add(curve);
            break;
        case 3:
            editor().removeCurveFromEditing(names()[curve]);
            break;
        case 4:
            editor().selectNodes(names()[curve]);
            break;
        default:
            for (int i = 0; i < names().size(); ++i) {
                add(i);
            }
            editor().selectNodes(names());
            break;
        }
    }

    bool undo()
    {
        if (!manager().undo()) {
            return false;
        }
        after.push_back(last);
        last = before.back();
        before.pop_back();
        return true;
    }

    bool redo()
    {
        if (!manager().redo()) {
            return false;
        }
        before.push_back(last);
        last = after.back();
        after.pop_back();
        return true;
    }

    void setLimit(std::size_t newLimit)
    {
        limit = newLimit;
        editor().setUndoLevels(static_cast<unsigned>(limit));
        while (before.size() > limit) {
            before.pop_front();
        }
        while (after.size() > limit) {
            after.pop_front();
        }
    }

    void clear()
    {
        editor().clearStack();
        before.clear();
        after.clear();
    }

    void setEnabled(bool on)
    {
        editor().setEnableUndo(on);
        isEnabled = on;
        if (!on) {
            before.clear();
            after.clear();
        }
    }

    /// A command has run; unless it is only executed it stands on the stack by now.
    void noteCommand()
    {
        if (isEnabled) {
            after.clear();
            if (limit > 0 && before.size() == limit) {
                before.pop_front();
            }
            if (limit > 0) {
                before.push_back(last);
            }
        }
        last = state();
    }

    /// Every selected key is a key of its curve's spline.
    bool selectionsAreSound()
    {
        for (CurveNode* top : logic().topNodes()) {
            for (CurveNode* curve : top->curves()) {
                const ControlSplineNode& selection = curve->splineGraph()->selection();
                for (const PointInfo* key : selection.selectedPoints) {
                    if (!curve->spline() || curve->spline()->findIndex(key) < 0) {
                        return false;
                    }
                }
            }
        }
        return true;
    }

    static constexpr int splineCount = 3;
    QRandomGenerator random;
    std::vector<std::unique_ptr<LentCurve>> lent; ///< destroyed after the editor
    EditorFixture fixture;
    std::deque<State> before; ///< what undo leads to, the nearest last
    std::deque<State> after;  ///< what redo leads to, the nearest last
    State last;
    std::size_t limit = 10;
    bool isEnabled = true;
};
