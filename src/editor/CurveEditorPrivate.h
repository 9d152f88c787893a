#pragma once

#include "canvas/ModeControl.h"
#include "commands/CurveCommandsManager.h"
#include "curves/Catalogue.h"
#include "editor/CurveFileDialogs.h"
#include "editor/EditorActions.h"
#include "editor/EditorCommandContext.h"
#include "editor/Readout.h"
#include "editor/ToolIcons.h"

class CanvasFunctionBase;
class ControlMenu2;
class CurveEditor;
class CurveKeysDialog;
class FunctionEditor;

namespace curve_editor {

/// What an editor consists of behind its interface.
class CurveEditorPrivate
{
public:
    CurveEditorPrivate(CurveEditor* editor, const QString& iconsFolder);
    ~CurveEditorPrivate();
    CurveEditorPrivate(const CurveEditorPrivate&) = delete;
    CurveEditorPrivate& operator=(const CurveEditorPrivate&) = delete;
    /// That of an editor, for those of this folder by whom lower ones ask.
    static CurveEditorPrivate& of(const CurveEditor& editor);

    /// Puts the canvas into its place in the window.
    void initCanvas();
    /// Connects canvas, tree and line with the editor. The actions are connected where they are
    /// made.
    void connectWidgets();

    CanvasFunctionBase& canvas() const;
    CurveKeysDialog* keysDialog() const;
    /// Has the canvas painted anew.
    void repaintCanvas();
    /// The whole window as well.
    void repaintAll();

    Catalogue catalogue; ///< mainNodes, allNodes and their index
    EditorCommandContext commandContext;
    CurveCommandsManager manager;
    ModeControl modes; ///< mode, tool and modifier keys
    ToolIcons icons;
    EditorActions actions;
    Readout readout;
    CurveFileDialogs files;
    int numberOfDecimals = 2;
    FunctionEditor* functionEditor = nullptr; ///< a child widget of the editor
    ControlMenu2* treeMenu = nullptr;         ///< a child of the editor

private:
    CurveEditor* editor; ///< not owned: it owns this object
};

} // namespace curve_editor
