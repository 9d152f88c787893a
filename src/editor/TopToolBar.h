#pragma once

#include <QToolBar>

/// A movable toolbar of the frame. Its layout has no margins and no spacing, whatever the style
/// gives toolbars: the toolbar's width is measured for its buttons alone.
class TopToolBar : public QToolBar
{
    Q_OBJECT

public:
    TopToolBar(const QString& title, QWidget* parent);

protected:
    void changeEvent(QEvent* event) override;

private:
    void closeUp();
};
