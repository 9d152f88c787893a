#pragma once

#include "widgets/KeysDialogHost.h"

class CurveEditor;

namespace curve_editor {

/// The editor as the dialog of the keys sees it.
class EditorKeysDialogHost : public KeysDialogHost
{
public:
    /// `editor` is not owned and outlives this object.
    explicit EditorKeysDialogHost(CurveEditor* editor);

    CommandContext& context() const override;
    CurveCommandsManager& manager() const override;
    CurveTree* tree() const override;
    QList<SplineCurveGraph*> keyContainers() const override;
    double timeUnit() const override;
    CustomEditLine* positionX() const override;
    CustomEditLine* positionY() const override;
    void endCanvasGesture() override;
    void refreshKeysDialog() override;

private:
    CurveEditor* editor; ///< not owned
};

} // namespace curve_editor
