#pragma once

#include "curves/CurveHost.h"

class CanvasFunctionBase;

/// Answers the curve objects of a canvas from its view and its editor, which may be null.
class CanvasCurveHost : public CurveHost
{
public:
    /// Not owned; outlives this object.
    explicit CanvasCurveHost(CanvasFunctionBase& shower);

    ViewPort* view() const override;
    int labelDecimals() const override;
    bool dependsOnItself(const QString& parserName, QString& offender) const override;
    void createNodeAtCursor(CurveNode* curve) override;

private:
    CanvasFunctionBase& canvas;
};
