#pragma once

#include "curves/CurveHost.h"

class CanvasFunctionBase;

namespace curve_editor {
class CanvasHost;
} // namespace curve_editor

/// Answers the curve objects of a canvas from its view and its host.
class CanvasCurveHost : public CurveHost
{
public:
    /// Neither is owned; both outlive this object. The host is null without an editor.
    CanvasCurveHost(CanvasFunctionBase& shower, const curve_editor::CanvasHost* canvasHost);

    ViewPort* view() const override;
    int labelDecimals() const override;
    bool dependsOnItself(const QString& parserName, QString& offender) const override;
    const ParserScope* parserScope() const override;
    void createNodeAtCursor(CurveNode* curve) override;

private:
    CanvasFunctionBase& canvas;
    const curve_editor::CanvasHost* host;
};
