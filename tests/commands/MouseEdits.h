#pragma once

#include "commands/MouseStage.h"

#include "widgets/CurveKeysDialog.h"
#include "widgets/CustomEditLine.h"

/// What menus, buttons, toolbars and number fields do, at rest and in mid-gesture.
class MouseEdits
{
public:
    explicit MouseEdits(MouseStage& mouseStage)
        : stage(mouseStage)
    {}

    void takeTool(Chance& chance)
    {
        const auto tool = chance.oneOf({&CurveEditor::setSelectMode, &CurveEditor::setMoveMode,
                                        &CurveEditor::setAddKeyMode, &CurveEditor::setDeleteKeyMode,
                                        &CurveEditor::setZoomMode});
        chance.chance(60) ? stage.editor().setDefaultMode() : (stage.editor().*tool)();
    }

    /// The slots behind the tools; a host may call either alone.
    void setMode(Chance& chance)
    {
        const auto mode = chance.oneOf({CurveEditor::DEFAULT, CurveEditor::DEFAULT,
                                        CurveEditor::SELECT, CurveEditor::MOVE, CurveEditor::ADD,
                                        CurveEditor::DEL, CurveEditor::ZOOM});
        if (chance.chance(50)) {
            stage.editor().setUserMode(mode);
        }
        stage.editor().setCurrentMode(mode);
    }

    void selectKeys(Chance& chance)
    {
        chance.chance(70) ? stage.editor().selectAllKeys() : stage.editor().selectNoneKeys();
    }

    void editKeys(Chance& chance)
    {
        CurveEditor& editor = stage.editor();
        switch (chance.below(9)) {
        case 0:
            (editor.*chance.oneOf({&CurveEditor::setSelectedLinear, &CurveEditor::setSelectedBezier,
                                   &CurveEditor::setSelectedTcb, &CurveEditor::setSelectedStep}))();
            break;
        case 1:
            (editor.*chance.oneOf({&CurveEditor::breakTangents, &CurveEditor::unifyTangents,
                                   &CurveEditor::flatTangents}))();
            break;
        case 2:
            stage.logic().panSelection(chance.offset(), chance.offset());
            break;
        case 3:
            stage.logic().scaleSelection(1.0 + chance.below(3) * 0.5, chance.offset());
            break;
        case 4:
            chance.chance(50) ? editor.setPanSelection() : editor.setScaleSelection();
            break;
        case 5:
            editor.changeNodeLastType(chance.below(5));
            break;
        case 6:
            editor.changeNodeFirstType(chance.below(2));
            break;
        case 7:
            editor.switchAddFuncToSpline();
            break;
        default:
            editor.deleteSelectedKeys();
            break;
        }
    }

    void useClipboard(Chance& chance)
    {
        if (chance.chance(50)) {
            (stage.editor().*chance.oneOf({&CurveEditor::copyBtn, &CurveEditor::copyKeys}))();
        }
        (stage.editor().*
         chance.oneOf({&CurveEditor::pasteBtn, &CurveEditor::pasteKeysBtn,
                       &CurveEditor::pasteKeysOffsetBtn, &CurveEditor::pasteKeysOnTimelineBtn,
                       &CurveEditor::copyBtn, &CurveEditor::copyKeys}))();
    }

    /// Other views and units alter no curve.
    void changeView(Chance& chance)
    {
        switch (chance.below(5)) {
        case 0:
            (stage.editor().*chance.oneOf({&CurveEditor::switchSnap, &CurveEditor::switchSnapH,
                                           &CurveEditor::switchSnapV}))();
            break;
        case 1:
            stage.editor().switchFramesTime();
            break;
        case 2:
            stage.editor().setTimeLine(chance.number());
            break;
        case 3:
            (stage.editor().*
             chance.oneOf({&CurveEditor::completeViewport, &CurveEditor::completeViewportSel}))();
            break;
        default:
            stage.fixture.setView(0.0, 50.0, 0.0, 40.0);
            break;
        }
    }

    void changeSet(Chance& chance)
    {
        switch (chance.below(4)) {
        case 0:
            stage.editor().selectNodes(chance.oneOf(stage.names));
            break;
        case 1:
            stage.editor().removeCurveFromEditing(chance.oneOf(stage.names));
            break;
        default:
            for (const QString& name : std::as_const(stage.names)) {
                stage.editor().setCurveEditableOn(stage.editor().searchAllNodeList(name));
            }
            stage.editor().selectNodes(stage.names);
            break;
        }
    }

    void useKeysDialog(Chance& chance)
    {
        CurveKeysDialog& dialog = *stage.fixture.canvas().keysDialog();
        switch (chance.below(4)) {
        case 0:
            stage.editor().showKeyProperties();
            break;
        case 1:
            chance.chance(50) ? dialog.clickedNext() : dialog.clickedPrev();
            break;
        case 2:
            dialog.changeNodeType(chance.below(4));
            break;
        default:
            useField(chance, dialog);
            break;
        }
    }

private:
    void useField(Chance& chance, CurveKeysDialog& dialog)
    {
        QList<CustomEditLine*> lines{stage.editor().positionX(), stage.editor().positionY()};
        if (dialog.isVisible()) {
            lines += dialog.findChildren<CustomEditLine*>();
        }
        CustomEditLine& line = *chance.oneOf(lines);
        if (!line.isEnabled() || !line.isVisible()) {
            return;
        }
        switch (chance.below(3)) {
        case 0:
            type(line, QString::number(chance.number()));
            break;
        case 1:
            turnWheel(line, chance.chance(50) ? 120 : -240);
            break;
        default:
            drag(chance, line);
            break;
        }
    }

    void type(CustomEditLine& line, const QString& text)
    {
        QApplication::setActiveWindow(line.window());
        line.setFocus();
        line.selectAll();
        line.insert(text);
        QTest::keyClick(&line, Qt::Key_Return);
        QApplication::setActiveWindow(&stage.editor());
    }

    static void turnWheel(CustomEditLine& line, const int& delta)
    {
        QWheelEvent event(QPointF(5.0, 5.0), QPointF(100.0, 500.0), QPoint(), QPoint(0, delta),
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&line, &event);
    }

    /// Up and down over the field, mostly to the release.
    void drag(Chance& chance, CustomEditLine& line)
    {
        sendMouse(line, QEvent::MouseButtonPress, 0, Qt::LeftButton, Qt::LeftButton);
        for (int i = chance.below(4); i > 0; --i) {
            sendMouse(line, QEvent::MouseMove, chance.below(60) - 30, Qt::NoButton, Qt::LeftButton);
        }
        switch (chance.below(10)) {
        case 0:
            stage.undo();
            break;
        case 1:
            stage.editor().selectAllKeys();
            break;
        case 2:
            stage.editor().deleteSelectedKeys();
            break;
        case 3:
            stage.editor().selectNodes(chance.oneOf(stage.names));
            break;
        default:
            break;
        }
        sendMouse(line, QEvent::MouseMove, chance.below(60) - 30, Qt::NoButton, Qt::LeftButton);
        sendMouse(line, QEvent::MouseButtonRelease, 0, Qt::LeftButton, Qt::NoButton);
    }

    static void sendMouse(CustomEditLine& line, const QEvent::Type& type, const int& pixelsUp,
                          const Qt::MouseButton& button, const Qt::MouseButtons& buttons)
    {
        QMouseEvent event(type, QPointF(5.0, 5.0), QPointF(5.0, 5.0),
                          QPointF(100.0, 500.0 - pixelsUp), button, buttons, Qt::NoModifier);
        QApplication::sendEvent(&line, &event);
    }

    MouseStage& stage;
};
