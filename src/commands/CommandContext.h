#pragma once

#include "commands/KeyDefaults.h"
#include "curves/NodeStruct.h"
#include "curves/Problem.h"

#include <QList>
#include <QString>
#include <QStringList>

class CommandLine;
class CurveEditor;
class CurveNode;
class CurveTree;
class EditingSet;
class ParseMessage;
class QColor;

namespace curve_editor {

class Catalogue;

/// All that commands know of the document that they change, and of whoever shows it: a dialog, or a
/// test. It lives as long as the commands that name it, but for one moment: see tell.
class CommandContext
{
public:
    CommandContext() = default;
    CommandContext(const CommandContext&) = delete;
    CommandContext& operator=(const CommandContext&) = delete;
    virtual ~CommandContext();

    /// @name What there is
    /// @{
    virtual const Catalogue& catalogue() const = 0;
    /// The curve objects on the canvas.
    virtual const CurveTree& tree() const = 0;
    virtual const EditingSet& editingSet() const = 0;
    virtual KeyDefaults keyDefaults() const = 0;
    /// The dotted names that are selected, in the order in which they were given.
    virtual QStringList selection() const = 0;
    /// @}

    /// @name Curves come and go, which changes the document and what shows it
    /// @{
    /// Lists a curve, and its main node on the way, unless they are listed.
    virtual void listCurve(const NodeStruct& content) = 0;
    /// Drops a curve from the list, and off the canvas.
    virtual void unlistCurve(const QString& node, const QString& curve) = 0;
    /// A curve goes on the canvas, with an object of its own or, for null, a new one.
    virtual void enterCanvas(NodeStruct* record, CurveNode* object) = 0;
    /// The same, if it is listed, and it is selected alone.
    virtual void enterSelected(const QString& node, const QString& curve) = 0;
    /// The same with an object; selected even if it is not listed.
    virtual void enterSelected(const QString& node, const QString& curve, CurveNode* object) = 0;
    /// A curve, or all curves of a group or main node, leaves the canvas.
    virtual void leaveCanvas(const QString& dotName) = 0;
    virtual void setColor(NodeStruct* record, const QColor& color) = 0;
    virtual void select(const QStringList& dotNames) = 0;
    /// @}

    /// @name Who hears of it
    /// @{
    /// Tells the host that one curve has changed, unless this one does not report.
    virtual void reportOne(const QString& node, const QString& curve) = 0;
    /// The same of several, then refreshes.
    virtual void report(const QStringList& dotNames) = 0;
    /// Null records are passed over.
    void report(const QList<NodeStruct*>& records);
    void reportEditingCurves();
    /// While blocked, the host hears nothing. Returns whether it was blocked before.
    virtual bool blockReports(const bool& block) = 0;
    /// Brings toolbars, menus and buttons up to date.
    virtual void refresh() = 0;
    virtual void refreshExpressionLine() = 0;
    virtual void refreshKeysDialog() = 0;
    virtual void repaint() = 0;
    /// @}

    /// @name The user
    /// @{
    /// Shows a box for each problem, in which a host may do anything. False if it has deleted the
    /// context by then: whoever asked returns at once, and touches neither context nor records.
    [[nodiscard]] virtual bool tell(const Problems& problems) = 0;
    virtual QString textOf(const CommandLine* line) const = 0;
    /// The line shows the text that was parsed, and marks its first error.
    virtual void showParsed(CommandLine* line, const ParseMessage& message) = 0;
    /// @}
};

/// The context of an editor, which lives as long as it. The folder of the editor defines this.
CommandContext& contextOf(CurveEditor* editor);

} // namespace curve_editor
