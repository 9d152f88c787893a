#pragma once

#include "core/Decimals.h"
#include "core/ZkTypes.h"
#include "zk_curve_editor_export.h"

#include <QLineEdit>

/// A number within bounds, changed by typing, by dragging the mouse up and down over the field,
/// or with the wheel.
///
/// A value set with the mouse and a value typed come by signals of their own. Press and release
/// are told as well, so that a listener can make one undoable change of a whole drag. The text
/// "..." stands for several differing values and is never read when the field is left.
class ZK_CURVE_EDITOR_EXPORT CustomEditLine : public QLineEdit
{
    Q_OBJECT

public:
    /// More digits behind the point are not shown, here or in the read-outs.
    static constexpr int mostDecimals = curve_editor::mostDecimals;

    explicit CustomEditLine(QWidget* parent = nullptr);

    /// Shows the value with the present number of decimals, as text and tool tip. Sends nothing
    /// and doesn't look at the bounds.
    void setValue(const double& value);
    /// Digits behind the point, from the next setValue on; a negative number counts as 0.
    void setDecimals(const int& number);
    /// Bounds of what typing, dragging and the wheel give. The text stays.
    void setBounds(const double& minimum, const double& maximum);
    /// Shows a text as it is; the tool tip stays. A field that shows it already keeps its cursor,
    /// and one whose whole text is selected goes on so: what is typed next replaces all of it.
    void showText(const QString& text);

    /// Ends a drag as its release would, though the button may be held still.
    void endDrag();
    /// From now on the field stands for another number, that of another key or in another unit. A
    /// drag ends, a press on the former number is no base of the wheel any more, and a Return that
    /// is just being handled sends nothing more.
    void beginAnew();

public slots:
    /// Brings the text into the bounds, shows it as a number and sends newValueTyped. Text that is
    /// no number counts as 0; the text "..." stays and nothing is sent.
    void checkTextBounds();

signals:
    /// A drag or a step of the wheel gave this value. A press is no drag before the mouse has moved
    /// up or down, and the wheel does nothing over an empty field and over the text "...".
    void newValueSet(ZK_DOUBLE value, CustomEditLine* field);
    /// A typed value was accepted.
    void newValueTyped(ZK_DOUBLE value, CustomEditLine* field);
    /// A press with a button other than the right one began.
    void mousePressEditLine();
    /// That press ended, or the field was disabled or hidden under it, its window left, or a menu
    /// or a modal dialog took the mouse; or a move without a button tells of a lost release.
    void mouseReleaseEditLine();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    double held(const double& value) const;
    double textValue() const;
    void setByMouse(const double& value);

    /// Global y of the last press, in pixels.
    int dragStartY = 0;
    /// The value at the last press; the base of every step of the wheel until the next press.
    double dragStartValue = 0.0;
    /// There is such a press. Before it each step of the wheel starts from the text.
    bool pressedOnce = false;
    /// A press is held.
    bool dragging = false;
    /// The mouse has moved up or down since that press.
    bool moved = false;
    /// The field has selected its text since it last lost focus.
    bool selectedOnce = false;
    double maxValue = 100000000.0;
    double minValue = -100000000.0;
    int decimals = 2;
    /// The base class is handling a loss of focus.
    bool leaving = false;
    /// A Return is being handled whose second value is still to be sent.
    bool returning = false;
};
