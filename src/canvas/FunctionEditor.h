#pragma once

#include "core/ZkTypes.h"
#include "graphs/ViewPort.h"
#include "zk_curve_editor_export.h"

#include <QRegion>
#include <QWidget>

#include <memory>

class CanvasFunctionBase;
class CurveEditor;
class CurveKeysDialog;
class QNativeGestureEvent;
class WheelTurns;

/// The canvas widget: receives the events and hands each to the canvas logic, then to its view,
/// then says that the selection may have changed. To a host it is the widget that shows the curves.
class ZK_CURVE_EDITOR_EXPORT FunctionEditor : public QWidget, public ViewPort
{
    Q_OBJECT

public:
    FunctionEditor(QWidget* parent, CurveEditor* editor);
    ~FunctionEditor() override;

    CanvasFunctionBase& canvas();
    /// The dialog of the selected keys' values; owned by the canvas widget. Null
    /// on a canvas without an editor.
    CurveKeysDialog* keysDialog() const;

    /// Each fits the view to all keys, or to the selected ones, of the curves being edited.
    void completeH();
    void completeV();
    void completeSelH();
    void completeSelV();

    /// Shows the selected keys in the key dialog, its fields open if the curves being edited have
    /// keys. Called whenever the selection may have changed.
    void refreshKeysDialog();
    /// Moves the time line to a time in seconds. The next paint need not look at the curves for it.
    void moveTimeLine(const double& time);
    /// Tells the editor time and value under the cursor and the first curve's value there.
    void reportCursor(QMouseEvent* event);

    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;

signals:
    void setFuncPosInfo(ZK_DOUBLE valueX, ZK_DOUBLE valueY, ZK_DOUBLE val);

public slots:
    /// The values of selected keys were changed: tells the host, and draws them.
    void currentNodeHasChanged();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    bool nativeGestureEvent(QNativeGestureEvent* event);
    QRect bandPlace() const;
    QRect timeLineStrip() const;
    void updateMoved(const QRect& before, const QRect& after);
    void showSelectedKeys(bool opensFields);

    std::unique_ptr<CanvasFunctionBase> logic; ///< never null
    std::unique_ptr<WheelTurns> wheel;         ///< never null
    QRegion moved; ///< where only the time line or the rubber band has moved since the last paint
    std::unique_ptr<CurveKeysDialog> keys; ///< its parent is the editor
};
