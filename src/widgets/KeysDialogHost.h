#pragma once

#include <QList>

class CurveTree;
class CustomEditLine;
class SplineCurveGraph;

namespace curve_editor {

class CommandContext;
class CurveCommandsManager;

/// What the dialog of the keys asks of whoever shows it.
class KeysDialogHost
{
public:
    KeysDialogHost() = default;
    KeysDialogHost(const KeysDialogHost&) = delete;
    KeysDialogHost& operator=(const KeysDialogHost&) = delete;
    virtual ~KeysDialogHost() = default;

    /// What the commands of the dialog change.
    virtual CommandContext& context() const = 0;
    /// The history that they are handed to.
    virtual CurveCommandsManager& manager() const = 0;
    /// The curve objects, for a CurveVisit.
    virtual CurveTree* tree() const = 0;
    /// The graph of each curve being edited.
    virtual QList<SplineCurveGraph*> keyContainers() const = 0;
    /// What a time in seconds is multiplied by where it is shown: 1, or the rate for frames.
    virtual double timeUnit() const = 0;
    /// The twins of posX and posY on the menu bar; not owned.
    virtual CustomEditLine* positionX() const = 0;
    virtual CustomEditLine* positionY() const = 0;
    /// Ends a gesture on the canvas as its release would.
    virtual void endCanvasGesture() = 0;
    /// Has the dialog show the keys that are selected now.
    virtual void refreshKeysDialog() = 0;
};

} // namespace curve_editor
