#pragma once

#include "commands/LostReleases.h"
#include "commands/MouseEdits.h"
#include "commands/MouseTargets.h"

/// The steps of a mouse session: events of mouse and keyboard, and all that can come between the
/// press and the release of a gesture.
class MouseSteps
{
public:
    explicit MouseSteps(MouseStage& mouseStage)
        : stage(mouseStage)
        , targets(mouseStage)
        , edits(mouseStage)
        , lost(mouseStage)
    {}

    struct Kind
    {
        const char* name;
        int weightAtRest;
        int weightInGesture;
        void (MouseSteps::*take)(Chance& chance);
    };

    static const std::vector<Kind>& kinds()
    {
        static const std::vector<Kind> all{
            {"press of a button", 34, 4, &MouseSteps::press},
            {"press of another button", 2, 4, &MouseSteps::pressOther},
            {"move", 8, 34, &MouseSteps::move},
            {"release", 4, 12, &MouseSteps::release},
            {"double click", 3, 1, &MouseSteps::doubleClick},
            {"wheel", 1, 2, &MouseSteps::turnWheel},
            {"arrow", 3, 3, &MouseSteps::typeArrow},
            {"Delete", 2, 2, &MouseSteps::typeDelete},
            {"Ctrl+Z", 3, 3, &MouseSteps::typeUndo},
            {"Ctrl+Y", 2, 2, &MouseSteps::typeRedo},
            {"undo or redo by the host", 1, 1, &MouseSteps::askForUndo},
            {"modifier key", 3, 4, &MouseSteps::switchModifier},
            {"select all or none", 4, 2, &MouseSteps::selectKeys},
            {"tool", 4, 2, &MouseSteps::takeTool},
            {"mode", 1, 1, &MouseSteps::setMode},
            {"edit of the selected keys", 6, 3, &MouseSteps::editKeys},
            {"clipboard", 2, 1, &MouseSteps::useClipboard},
            {"key dialog and fields", 4, 3, &MouseSteps::useKeysDialog},
            {"view and units", 1, 1, &MouseSteps::changeView},
            {"other curves", 2, 2, &MouseSteps::changeSet},
            {"lost release", 1, 3, &MouseSteps::loseRelease},
            {"repaint", 1, 1, &MouseSteps::paint},
        };
        return all;
    }

    static const Kind& anyKind(Chance& chance, const bool& isInGesture)
    {
        const auto weightOf = isInGesture ? &Kind::weightInGesture : &Kind::weightAtRest;
        int sum = 0;
        for (const Kind& kind : kinds()) {
            sum += kind.*weightOf;
        }
        int place = chance.below(sum);
        for (const Kind& kind : kinds()) {
            place -= kind.*weightOf;
            if (place < 0) {
                return kind;
            }
        }
        return kinds().back();
    }

    /// What a host does in its slot, mostly while a gesture runs.
    void interrupt(Chance& chance)
    {
        switch (chance.below(10)) {
        case 0:
            lost.openDialog();
            stage.hand.loseButtons();
            break;
        case 1:
            typeUndo(chance);
            break;
        case 2:
            typeRedo(chance);
            break;
        case 3:
            typeDelete(chance);
            break;
        case 4:
            takeTool(chance);
            break;
        case 5:
            changeSet(chance);
            break;
        case 6:
            selectKeys(chance);
            break;
        case 7:
        case 8:
            feedMoves(chance);
            break;
        default:
            lost.happen(chance);
            break;
        }
    }

    /// Ends what runs: the buttons go up, the modifiers too, and the mouse moves on.
    void endGestures()
    {
        for (const Qt::MouseButton& button : stage.hand.held()) {
            stage.hand.release(button);
        }
        stage.hand.letGoOfModifiers();
        stage.hand.moveTo(QPoint(3, 3));
    }

private:
    MouseHand& hand() { return stage.hand; }

    /// Any button there is, mostly the left one.
    void press(Chance& chance)
    {
        const QPoint pixel = targets.any(chance);
        const auto button = chance.chance(75)
                                ? Qt::LeftButton
                                : chance.oneOf({Qt::MiddleButton, Qt::MiddleButton, Qt::RightButton,
                                                Qt::BackButton, Qt::ForwardButton, Qt::TaskButton,
                                                Qt::ExtraButton4, Qt::ExtraButton13});
        pressOrMove(pixel, button);
    }

    void pressOther(Chance& chance)
    {
        const QPoint pixel = targets.any(chance);
        pressOrMove(pixel, chance.oneOf({Qt::LeftButton, Qt::MiddleButton, Qt::RightButton,
                                         Qt::BackButton, Qt::ExtraButton24}));
    }

    /// A button that is down already goes on with its gesture.
    void pressOrMove(const QPoint& pixel, const Qt::MouseButton& button)
    {
        if (hand().isHolding(button) && stage.isInGesture()) {
            hand().moveTo(pixel);
            return;
        }
        if (hand().isHolding(button)) {
            hand().release(button); // of a gesture that is over
        }
        hand().press(pixel, button);
    }

    void move(Chance& chance)
    {
        for (int i = 1 + chance.below(3); i > 0; --i) {
            hand().moveTo(targets.any(chance));
        }
    }

    /// Moves that wait in the queue are worked off inside of the slot.
    void feedMoves(Chance& chance)
    {
        for (int i = 1 + chance.below(3); i > 0; --i) {
            hand().queueMoveTo(targets.any(chance));
        }
        if (chance.chance(80)) {
            QCoreApplication::processEvents();
        }
    }

    void release(Chance& chance)
    {
        const QList<Qt::MouseButton> held = hand().held();
        if (!held.isEmpty()) {
            hand().release(chance.oneOf(held));
        }
    }

    void doubleClick(Chance& chance)
    {
        const QPoint pixel = targets.any(chance);
        if (!hand().isHolding(Qt::LeftButton)) {
            hand().doubleClick(pixel);
        }
    }

    void turnWheel(Chance& chance)
    {
        hand().turnWheel(targets.any(chance), chance.chance(50) ? 120 : -120);
    }

    void typeArrow(Chance& chance) { hand().typeKey(Qt::Key_Left + chance.below(4)); }
    void typeDelete(Chance&) { hand().typeKey(Qt::Key_Delete); }

    void typeUndo(Chance&)
    {
        hand().typeWithControl(Qt::Key_Z);
        finishUndo();
    }

    void typeRedo(Chance&) { hand().typeWithControl(Qt::Key_Y); }

    void askForUndo(Chance& chance)
    {
        if (chance.chance(40)) {
            stage.editor().redo();
            return;
        }
        chance.chance(50) ? stage.undo() : stage.editor().undo();
        finishUndo();
    }

    void finishUndo()
    {
        if (stage.isAmidDrag()) {
            stage.undo();
        }
    }

    void switchModifier(Chance& chance)
    {
        if (chance.chance(50)) {
            hand().letGoOfModifiers();
        } else {
            hand().switchModifier(
                chance.oneOf({Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier}));
        }
    }

    void selectKeys(Chance& chance) { edits.selectKeys(chance); }
    void takeTool(Chance& chance) { edits.takeTool(chance); }
    void setMode(Chance& chance) { edits.setMode(chance); }
    void editKeys(Chance& chance) { edits.editKeys(chance); }
    void useClipboard(Chance& chance) { edits.useClipboard(chance); }
    void useKeysDialog(Chance& chance) { edits.useKeysDialog(chance); }
    void changeView(Chance& chance) { edits.changeView(chance); }
    void changeSet(Chance& chance) { edits.changeSet(chance); }
    void loseRelease(Chance& chance) { lost.happen(chance); }
    void paint(Chance&) { stage.fixture.paint(); }

    MouseStage& stage;
    MouseTargets targets;
    MouseEdits edits;
    LostReleases lost;
};
