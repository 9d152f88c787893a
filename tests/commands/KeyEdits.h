#pragma once

#include "commands/SessionEditor.h"

#include "commands/CommandAddPoint.h"
#include "files/CurveType.h"
#include "widgets/CurveKeysDialog.h"
#include "widgets/CustomEditLine.h"

/// A user who works on keys: by slots, by the mouse and by the keyboard.
class KeyEdits
{
public:
    explicit KeyEdits(SessionEditor& sessionEditor)
        : session(sessionEditor)
        , curves(sessionEditor.curves)
    {}

    /// The arrow keys may be used on several curves, which gives them keys of the first one.
    bool walksOnSeveralCurves = true;

    void edit()
    {
        switch (curves.below(17)) {
        case 0:
            session.manager().doCommand(new curve_editor::CommandAddPoint(
                &editor(), session.anyRecord(), curves.number(), curves.number()));
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
            logic().panSelection(curves.offset(), curves.offset());
            break;
        case 4:
            logic().beginChangeCommand();
            changeKeys();
            logic().commitChangeCommand();
            break;
        case 5:
            logic().scaleSelection(1.0 + curves.below(3) * 0.5, 1.0);
            break;
        case 6:
            editor().changeNodeLastType(curves.below(5));
            break;
        case 7:
            editor().changeNodeFirstType(curves.below(2));
            break;
        case 8:
        case 9:
            setType();
            break;
        case 10:
            editor().breakTangents();
            break;
        case 11:
            editor().flatTangents();
            break;
        case 12:
            editor().unifyTangents();
            break;
        case 13:
        case 14:
            useDialog();
            break;
        default:
            useMouse();
            break;
        }
    }

    void select()
    {
        ControlSplineNode* const selection = session.anySelection();
        if (!selection || curves.chance(10)) {
            editor().selectAllKeys();
        } else if (curves.chance(10)) {
            editor().selectNoneKeys();
        } else {
            logic().beginSelectCommand();
            if (selection->spline()) {
                selection->selectPoints(someKeys(*selection->spline()));
            }
            logic().commitSelectCommand();
        }
    }

    /// Begins all gestures at once, with something else happening before they end.
    template <typename Action>
    void gestureAround(const Action& action)
    {
        logic().beginMoveCommand();
        logic().beginChangeCommand();
        logic().beginSelectCommand();
        dragKeys();
        action();
        dragKeys();
        logic().commitMoveCommand();
        logic().commitChangeCommand();
        logic().commitSelectCommand();
    }

private:
    CurveEditor& editor() { return session.editor(); }
    CanvasFunctionBase& logic() { return session.logic(); }

    QList<PointInfo*> someKeys(SplineBase& spline)
    {
        QList<PointInfo*> keys;
        for (PointInfo* key : spline.getControlPoints()) {
            if (curves.chance(40)) {
                keys.append(key);
            }
        }
        return keys;
    }

    /// The keys that a gesture works on.
    template <typename Action>
    void forEachSelectedKey(const Action& action)
    {
        for (CurveNode* curve : logic().editingCurves()) {
            SplineBase* const spline = curve->spline();
            if (!spline || !hasKeys(curve->curveType())) {
                continue;
            }
            for (const KeyRef& key : curve->splineGraph()->selection().commandKeys()) {
                if (spline->holds(key)) {
                    action(*spline, key.key);
                }
            }
        }
    }

    void dragKeys()
    {
        const double dx = curves.offset();
        const double dy = curves.offset();
        forEachSelectedKey([&](SplineBase& spline, PointInfo* key) {
            spline.setTime(key, key->time + dx + 0.0);
            spline.setPos(key, key->value + dy + 0.0);
        });
    }

    void changeKeys()
    {
        forEachSelectedKey([&](SplineBase& spline, PointInfo* key) {
            PointInfo changed = *key;
            changed.tcb.tension = curves.number();
            changed.bezier.tangentRight = curves.number();
            changed.time = curves.chance(50) ? curves.number() : changed.time;
            spline.copyPoint(key, &changed);
        });
    }

    void setType()
    {
        switch (curves.below(4)) {
        case 0:
            editor().setSelectedStep();
            break;
        case 1:
            editor().setSelectedTcb();
            break;
        case 2:
            editor().setSelectedBezier();
            break;
        default:
            editor().setSelectedLinear();
            break;
        }
    }

    /// Somewhere on the canvas, mostly on a key.
    QPoint anyPixel()
    {
        const ControlSplineNode* const selection = session.anySelection();
        SplineBase* const spline = selection ? selection->spline() : nullptr;
        if (spline && spline->getControlPointsNumber() > 0 && curves.chance(70)) {
            const PointInfo* const key = curves.oneOf(spline->getControlPoints());
            if (qAbs(key->time) < 1000.0 && qAbs(key->value) < 1000.0) {
                return EditorFixture::pixel(key->time, key->value);
            }
        }
        return EditorFixture::pixel(curves.number(), curves.number());
    }

    /// The window of exact values works whether it is open or not.
    void useDialog()
    {
        CurveKeysDialog& dialog = *session.fixture.canvas().keysDialog();
        switch (curves.below(6)) {
        case 0:
            editor().showKeyProperties();
            break;
        case 1:
            curves.chance(50) ? dialog.clickedNext() : dialog.clickedPrev();
            break;
        case 2:
            dialog.changeNodeType(curves.below(4));
            break;
        case 3:
            dialog.startMovePoints();
            dialog.valueChanged(curves.number(), dialog.posX);
            dialog.valueChanged(curves.number(), dialog.posY);
            dialog.endMovePoints();
            break;
        default:
            dialog.valueChangedTyped(curves.number(),
                                     curves.oneOf(dialog.findChildren<CustomEditLine*>()));
            break;
        }
    }

    void takeTool()
    {
        switch (curves.below(8)) {
        case 0:
            editor().setSelectMode();
            break;
        case 1:
            editor().setMoveMode();
            break;
        case 2:
            editor().setAddKeyMode();
            break;
        case 3:
            editor().setDeleteKeyMode();
            break;
        default:
            editor().setDefaultMode();
            break;
        }
    }

    void useMouse()
    {
        static const QList<Qt::KeyboardModifiers> modifiers{Qt::NoModifier, Qt::NoModifier,
                                                            Qt::ShiftModifier, Qt::ControlModifier};
        EditorFixture& fixture = session.fixture;
        takeTool();
        switch (curves.below(4)) {
        case 0:
            fixture.click(anyPixel(), Qt::LeftButton, curves.oneOf(modifiers));
            break;
        case 1:
            fixture.doubleClick(anyPixel());
            break;
        case 2:
            if (curves.chance(30)) {
                fixture.typeKey(Qt::Key_Delete);
            } else if (walksOnSeveralCurves || logic().editingCurves().size() == 1) {
                fixture.typeKey(Qt::Key_Left + curves.below(4));
            }
            break;
        default: {
            const QPoint from = anyPixel();
            fixture.drag(from, anyPixel(), curves.oneOf(modifiers));
            break;
        }
        }
        editor().setDefaultMode();
    }

    SessionEditor& session;
    SessionCurves& curves;
};
