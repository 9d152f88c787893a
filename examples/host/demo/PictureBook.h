#pragma once

#include "CanvasMouse.h"
#include "CurveStore.h"
#include "EditorHand.h"
#include "ModalGuest.h"

#include <QDir>

#include <functional>
#include <memory>

class CurveEditor;
class QToolButton;

/// Draws the pictures of the editor's manual: the editor by itself with the curves of the scene,
/// its menus, its dialogs, and all of it in a dark palette.
class PictureBook
{
public:
    /// The pictures go into the folder, which is made if need be.
    explicit PictureBook(const QString& path);
    ~PictureBook();
    PictureBook(const PictureBook&) = delete;
    PictureBook& operator=(const PictureBook&) = delete;

    /// False if a picture could not be drawn or written.
    bool draw();

private:
    void openEditor();
    void drawEditor();
    void drawMenus();
    void drawToolbars();
    void drawTreeMenu();
    void drawExpressionLine();
    void drawErrorBox();
    void drawKeyProperties();
    void drawDialogs();
    void drawDark();

    void edit(const QStringList& dotNames);
    void selectKey();
    void drawMenu(const QString& path);
    void drawDropDown(QToolButton& button);
    void drawOpenMenus(const QString& name, const QRect& above);
    void drawDialog(const QString& name, const std::function<void()>& step);
    void save(const QString& name, const QPixmap& picture);

    const QDir folder;
    CurveStore store; ///< outlives the editor
    std::unique_ptr<CurveEditor> editor;
    std::unique_ptr<EditorHand> hand;
    std::unique_ptr<CanvasMouse> mouse;
    ModalGuest guest;
    bool complete = true;
};
