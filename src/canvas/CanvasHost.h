#pragma once

#include <memory>

class CurveEditor;
class ParserScope;
class QMenu;
class QString;

namespace curve_editor {

class CurveCommandsManager;
class ModeControl;
struct NodeStruct;

/// What the canvas asks of the dialog around it.
class CanvasHost
{
public:
    CanvasHost() = default;
    CanvasHost(const CanvasHost&) = delete;
    CanvasHost& operator=(const CanvasHost&) = delete;
    virtual ~CanvasHost() = default;

    /// The history that commands are handed to.
    virtual CurveCommandsManager& manager() const = 0;
    virtual ModeControl& modes() const = 0;
    /// The record of a curve by its dotted name; null where the list search finds none.
    virtual NodeStruct* findRecord(const QString& dotName) const = 0;
    /// Whether the curve of that name, in the form of the parser, depends on itself. `offender`
    /// gets the dotted name of the curve whose expression closes the ring; else it stays.
    virtual bool dependsOnItself(const QString& parserName, QString& offender) const = 0;
    /// Whose names expressions read first.
    virtual const ParserScope* parserScope() const = 0;
    /// Digits behind the point in the labels at keys.
    virtual int numberOfDecimals() const = 0;
    /// Tells the application that a curve has changed, unless it does not report.
    virtual void reportCurve(const QString& dotName) = 0;
    /// The same of the curves being edited, then refreshes.
    virtual void reportEditingCurves() = 0;
    /// Brings toolbars, menus and buttons up to date.
    virtual void refresh() = 0;
    /// The context menu of the canvas; owned by the dialog.
    virtual QMenu* keysMenu() const = 0;
    /// Ask the application for a step back, or forth again.
    virtual void undo() = 0;
    virtual void redo() = 0;
};

/// The host that an editor is to its canvas; null for null. The editor outlives what asks it. The
/// folder of the editor defines this.
std::unique_ptr<CanvasHost> canvasHostOf(CurveEditor* editor);

} // namespace curve_editor
