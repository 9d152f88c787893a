#pragma once

#include "commands/CommandContext.h"

namespace curve_editor {

/// What commands know of an editor, which owns this.
class EditorCommandContext : public CommandContext
{
public:
    /// Neither is owned; both outlive the context.
    EditorCommandContext(CurveEditor& editor, const Catalogue& catalogue);

    const Catalogue& catalogue() const override;
    const CurveTree& tree() const override;
    const EditingSet& editingSet() const override;
    KeyDefaults keyDefaults() const override;
    QStringList selection() const override;

    void listCurve(const NodeStruct& content) override;
    void unlistCurve(const QString& node, const QString& curve) override;
    void enterCanvas(NodeStruct* record, CurveNode* object) override;
    void enterSelected(const QString& node, const QString& curve) override;
    void enterSelected(const QString& node, const QString& curve, CurveNode* object) override;
    void leaveCanvas(const QString& dotName) override;
    void setColor(NodeStruct* record, const QColor& color) override;
    void select(const QStringList& dotNames) override;

    void reportOne(const QString& node, const QString& curve) override;
    using CommandContext::report;
    void report(const QStringList& dotNames) override;
    bool blockReports(const bool& block) override;
    void refresh() override;
    void refreshExpressionLine() override;
    void refreshKeysDialog() override;
    void repaint() override;

    bool tell(const Problems& problems) override;
    QString textOf(const CommandLine* line) const override;
    void showParsed(CommandLine* line, const ParseMessage& message) override;

private:
    CurveEditor& editor;
    const Catalogue& records;
};

} // namespace curve_editor
