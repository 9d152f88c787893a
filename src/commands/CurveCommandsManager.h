#pragma once

#include "editor/zk_curve_editor_export.h"

#include <QObject>

#include <list>

namespace curve_editor {

class CurveCommand;

/// Runs commands and keeps them for undo and redo.
class ZK_CURVE_EDITOR_EXPORT CurveCommandsManager : public QObject
{
    Q_OBJECT

public:
    static CurveCommandsManager& instance();
    CurveCommandsManager(const CurveCommandsManager& other);
    ~CurveCommandsManager() override;

    bool doCommand(CurveCommand* const command);
    CurveCommand* undo();
    CurveCommand* redo();
    void clear();
    void setMaxStackSize(unsigned int size);
    void setEnable(bool enable);
    bool isEnabled() const;

signals:
    void curveEditorCmdExec();

private:
    CurveCommandsManager();
};

} // namespace curve_editor
