#pragma once

#include "CurveStore.h"

#include <QMainWindow>

#include <memory>

class CurveEditor;
class QAction;
class Stage;
class TimeLine;

namespace curve_editor {
class CurveCommand;
} // namespace curve_editor

/// The host's window: the stage, the curve editor beside it, and the time line beneath both.
class HostWindow : public QMainWindow
{
    Q_OBJECT

public:
    HostWindow();
    ~HostWindow() override;

    /// Reads the curves of the scene and offers them to the editor. False if one failed.
    bool openScene();
    /// Opens further curve files as curves of the node "files". A file that can't be read is
    /// reported, and the others are opened all the same.
    void openFiles(const QStringList& paths);
    /// Whether the user is told of failures by message boxes too, or on standard error alone.
    void setMessageBoxes(bool on);

    CurveEditor* curveEditor() const;
    const CurveStore& curves() const;
    TimeLine* timeLine() const;
    /// The stage as it looks now.
    QPixmap grabStage() const;
    QAction* undoMenuAction() const;
    QAction* redoMenuAction() const;

    static constexpr double fps = 25.0;    ///< frames per second
    static constexpr double length = 10.0; ///< of the animation, in seconds

private:
    void createEditor();
    void createLayout();
    void createMenus();

    void undo();
    void redo();
    void refreshHistory();
    void stageChanged();
    void chooseFiles();
    void saveSelection();

    void lend(HostCurve& curve, const QString& path);
    void report(const QString& text);

    /// What the editor works on. It goes after the editor: members are destroyed from the last
    /// to the first, and only then are the children of the window.
    CurveStore store;
    /// Not left to the window as its parent, for the reason above.
    std::unique_ptr<CurveEditor> editor;

    Stage* stage = nullptr; ///< children
    TimeLine* time = nullptr;
    QAction* undoAction = nullptr;
    QAction* redoAction = nullptr;
    bool allRead = true;
    bool messageBoxes = true;
};
