#pragma once

#include "core/ZkTypes.h"

#include <QMenu>

/// What a menu of the canvas may ask for. An interface without behaviour: the library declares it
/// for CurveEditor::canvasMenu and makes no object of it.
class ControlMenu : public QMenu
{
    Q_OBJECT

public:
    using QMenu::QMenu;

public slots:
    /// Told whether a selection exists and whether a key may be created. Does nothing here.
    void setupActions(ZK_BOOL existSelection, ZK_BOOL createKey);

signals:
    void setSelectedLinear();
    void setSelectedBezier();
    void setSelectedTcb();
    void createNodeAtCursor();
    void deleteSelectedNodes();
    void selectAllKeys();
    void deselectAllKeys();
    void showKeyProperties();
};
