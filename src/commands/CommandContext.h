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
    /// The node on the canvas of that dotted name, a curve or a group, or null.
    virtual CurveNode* findCurve(const QString& dotName) const = 0;
    virtual QList<CurveNode*> topCurves() const = 0;
    virtual QList<CurveNode*> editingCurves() const = 0;
    /// See curves/CurveType.h.
    virtual int editingType() const = 0;
    virtual KeyDefaults keyDefaults() const = 0;
    /// The dotted names that are selected, in the order in which they were given.
    virtual QStringList selection() const = 0;
    QStringList editingCurveNames() const;
    /// @}

    /// @name Curves come and go, which changes the document and what shows it
    /// @{
    /// Lists a curve, and its main node on the way, unless they are listed.
    virtual void listCurve(const NodeStruct& content) = 0;
    /// Drops a curve from the list, and from the editing set.
    virtual void unlistCurve(const QString& node, const QString& curve) = 0;
    /// A curve enters the editing set, with an object of its own or, for null, a new one.
    virtual void enterEditing(NodeStruct* record, CurveNode* object) = 0;
    /// The same, if it is listed, and it is selected alone.
    virtual void enterSelected(const QString& node, const QString& curve) = 0;
    /// The same with an object; selected even if it is not listed.
    virtual void enterSelected(const QString& node, const QString& curve, CurveNode* object) = 0;
    /// A curve, or all curves of a group or main node, leaves the editing set.
    virtual void leaveEditing(const QString& dotName) = 0;
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
