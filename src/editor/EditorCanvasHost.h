#pragma once

#include "canvas/CanvasHost.h"

namespace curve_editor {

/// An editor as its canvas sees it.
class EditorCanvasHost : public CanvasHost
{
public:
    /// Not owned: it outlives its canvas, but for the last moments of both.
    explicit EditorCanvasHost(CurveEditor& curveEditor);

    CurveCommandsManager& manager() const override;
    ModeControl& modes() const override;
    NodeStruct* findRecord(const QString& dotName) const override;
    bool dependsOnItself(const QString& parserName, QString& offender) const override;
    const ParserScope* parserScope() const override;
    int numberOfDecimals() const override;
    void reportCurve(const QString& dotName) override;
    void reportEditingCurves() override;
    void refresh() override;
    QMenu* keysMenu() const override;
    void undo() override;
    void redo() override;

private:
    CurveEditor& editor;
};

} // namespace curve_editor
