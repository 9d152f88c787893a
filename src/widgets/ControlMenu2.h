#pragma once

#include <QMenu>
#include <QString>

/// The context menu of the tree of editing curves: a separator, "Remove from editing list" and
/// "Change color". It acts on nothing itself; whoever runs it listens to its signals.
class ControlMenu2 : public QMenu
{
    Q_OBJECT

public:
    explicit ControlMenu2(QWidget* parent = nullptr);

    /// Dotted name of the item that the menu was opened on; written before the menu is run.
    QString itemName;

signals:
    /// "Remove from editing list" was chosen.
    void setRemoveItem();
    /// "Change color" was chosen.
    void setColorChange();
};
