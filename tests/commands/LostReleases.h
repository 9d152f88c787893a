#pragma once

#include "commands/MouseStage.h"

#include <QDialog>
#include <QMenu>

/// What takes the mouse away from the canvas, so that a release never comes there.
class LostReleases
{
public:
    explicit LostReleases(MouseStage& mouseStage)
        : stage(mouseStage)
    {}

    void happen(Chance& chance)
    {
        switch (chance.below(7)) {
        case 0:
            hideWindow();
            break;
        case 1:
            deactivateWindow();
            break;
        case 2:
            openPopup();
            break;
        case 3:
            openDialog();
            break;
        case 4:
            emptyEditingSet(chance);
            return; // the canvas still has the mouse
        default:
            break; // no reason is known
        }
        stage.hand.loseButtons();
    }

    void hideWindow()
    {
        stage.editor().hide();
        stage.editor().show();
        QApplication::setActiveWindow(&stage.editor());
    }

    void deactivateWindow()
    {
        QWidget other;
        other.show();
        QApplication::setActiveWindow(&other);
        QApplication::setActiveWindow(&stage.editor());
    }

    /// Closed by whoever serves popups, or here.
    void openPopup()
    {
        QMenu menu(&stage.editor());
        menu.addAction("entry");
        menu.popup(QPoint(10, 10));
        QCoreApplication::processEvents();
        menu.close();
    }

    /// Closed by whoever serves dialogs.
    void openDialog() { QDialog(&stage.editor()).exec(); }

    void emptyEditingSet(Chance& chance)
    {
        switch (chance.below(3)) {
        case 0:
            stage.editor().selectNodes(QStringList());
            break;
        case 1:
            stage.editor().removeCurvesFromEditing();
            break;
        default:
            stage.editor().cleanSelecteds();
            break;
        }
    }

private:
    MouseStage& stage;
};
