#pragma once

#include "support/EditorFixture.h"
#include "widgets/CurveKeysDialog.h"
#include "widgets/TcbCurve.h"

#include <QComboBox>

/// A shown editor with its key dialog shown too, used as a user uses them.
class KeysDialogFixture : public EditorFixture
{
public:
    KeysDialogFixture()
        : dialog(*canvas().keysDialog())
    {
        editor.showKeyProperties();
    }

    /// Edits "n.c" with keys at (10, 10), (20, 20) and (30, 5), all but the last of them TCB keys,
    /// and shows times.
    LentCurve& editThreeKeys(const zk_spline::interpolationType& last = zk_spline::tcb)
    {
        LentCurve& curve = editCurve(
            "n.c", {{10.0, 10.0, zk_spline::tcb}, {20.0, 20.0, zk_spline::tcb}, {30.0, 5.0, last}});
        editor.setShowTime();
        return curve;
    }

    /// Clicks on keys on the canvas; from the second on with the modifier that adds to the
    /// selection.
    void pick(std::initializer_list<QPointF> places)
    {
        bool isFirst = true;
        for (const QPointF& place : places) {
            click(pixel(place.x(), place.y()), Qt::LeftButton,
                  isFirst ? Qt::NoModifier : Qt::ShiftModifier);
            key(QEvent::KeyRelease, Qt::Key_Shift);
            isFirst = false;
        }
    }

    /// Writes a text into a field, without ending the edit.
    void write(CustomEditLine* line, const QString& text)
    {
        QApplication::setActiveWindow(line->window());
        line->setFocus();
        line->selectAll();
        QTest::keyClicks(line, text);
    }

    /// Writes a text and leaves the field for another one.
    void type(CustomEditLine* line, const QString& text)
    {
        write(line, text);
        line->clearFocus();
    }

    static void sendMouse(QWidget* widget, const QEvent::Type& type, const int& globalY,
                          const Qt::MouseButton& button, const Qt::MouseButtons& buttons)
    {
        QMouseEvent event(type, QPointF(5.0, 5.0), QPointF(5.0, 5.0), QPointF(100.0, globalY),
                          button, buttons, Qt::NoModifier);
        QApplication::sendEvent(widget, &event);
    }

    /// A drag over a field is made of these three; up is positive.
    static void pressField(QWidget* line)
    {
        sendMouse(line, QEvent::MouseButtonPress, 500, Qt::LeftButton, Qt::LeftButton);
    }
    static void dragField(QWidget* line, const int& pixelsUp)
    {
        sendMouse(line, QEvent::MouseMove, 500 - pixelsUp, Qt::NoButton, Qt::LeftButton);
    }
    static void releaseField(QWidget* line)
    {
        sendMouse(line, QEvent::MouseButtonRelease, 500, Qt::LeftButton, Qt::NoButton);
    }

    static void turnWheel(QWidget* line, const int& delta)
    {
        QWheelEvent event(QPointF(5.0, 5.0), QPointF(100.0, 500.0), QPoint(), QPoint(0, delta),
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(line, &event);
    }

    /// Picks an entry of a combo box with the keyboard.
    static void choose(QComboBox* combo, const int& index)
    {
        combo->setFocus();
        combo->showPopup();
        QAbstractItemView* const list = combo->view();
        list->setCurrentIndex(list->model()->index(index, 0));
        QTest::keyClick(list, Qt::Key_Return);
    }

    CurveKeysDialog& dialog;
};
