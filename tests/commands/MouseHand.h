#pragma once

#include "support/EditorFixture.h"

/// A hand on the mouse and one on the modifier keys: what is held stays held until it is let go,
/// and each event tells of it.
class MouseHand
{
public:
    explicit MouseHand(EditorFixture& editorFixture)
        : fixture(editorFixture)
    {}

    bool isHolding() const { return buttons != Qt::NoButton; }
    bool isHolding(const Qt::MouseButton& button) const { return buttons.testFlag(button); }
    Qt::KeyboardModifiers heldModifiers() const { return modifiers; }

    /// The buttons that are down, one by one.
    QList<Qt::MouseButton> held() const
    {
        QList<Qt::MouseButton> all;
        for (unsigned bit = 1; bit <= Qt::MaxMouseButton; bit <<= 1) {
            if (buttons & static_cast<int>(bit)) {
                all.append(static_cast<Qt::MouseButton>(bit));
            }
        }
        return all;
    }

    void press(const QPoint& pixel, const Qt::MouseButton& button,
               const QEvent::Type& type = QEvent::MouseButtonPress)
    {
        deliverQueued();
        at = pixel;
        buttons |= button;
        fixture.send(type, at, button, buttons, modifiers);
    }

    void moveTo(const QPoint& pixel)
    {
        deliverQueued();
        at = pixel;
        fixture.send(QEvent::MouseMove, at, Qt::NoButton, buttons, modifiers);
    }

    /// A move that comes when the event loop runs again or, as all events come in their order,
    /// before the next one of this hand.
    void queueMoveTo(const QPoint& pixel)
    {
        at = pixel;
        QCoreApplication::postEvent(&fixture.canvas(),
                                    new QMouseEvent(QEvent::MouseMove, at,
                                                    fixture.canvas().mapToGlobal(at), Qt::NoButton,
                                                    buttons, modifiers));
    }

    void release(const Qt::MouseButton& button)
    {
        deliverQueued();
        buttons &= ~Qt::MouseButtons(button);
        fixture.send(QEvent::MouseButtonRelease, at, button, buttons, modifiers);
    }

    void doubleClick(const QPoint& pixel)
    {
        press(pixel, Qt::LeftButton);
        release(Qt::LeftButton);
        press(pixel, Qt::LeftButton, QEvent::MouseButtonDblClick);
        release(Qt::LeftButton);
    }

    /// The buttons go up where the editor does not see it.
    void loseButtons()
    {
        deliverQueued();
        buttons = Qt::NoButton;
    }

    void turnWheel(const QPoint& pixel, const int& delta)
    {
        deliverQueued();
        QWheelEvent event(pixel, fixture.canvas().mapToGlobal(pixel), QPoint(), QPoint(0, delta),
                          buttons, modifiers, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&fixture.canvas(), &event);
    }

    /// Takes a modifier key down, or lets it go.
    void switchModifier(const Qt::KeyboardModifier& flag)
    {
        static const std::map<Qt::KeyboardModifier, Qt::Key> keys{
            {Qt::ShiftModifier, Qt::Key_Shift},
            {Qt::ControlModifier, Qt::Key_Control},
            {Qt::AltModifier, Qt::Key_Alt}};
        modifiers ^= flag;
        fixture.key(modifiers.testFlag(flag) ? QEvent::KeyPress : QEvent::KeyRelease, keys.at(flag),
                    modifiers);
    }

    void letGoOfModifiers()
    {
        for (const auto& flag : {Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier}) {
            if (modifiers.testFlag(flag)) {
                switchModifier(flag);
            }
        }
    }

    void typeKey(const int& code) { fixture.typeKey(code, modifiers); }

    /// A key together with Control, which may be held already.
    void typeWithControl(const int& code)
    {
        const bool isHeld = modifiers.testFlag(Qt::ControlModifier);
        if (!isHeld) {
            switchModifier(Qt::ControlModifier);
        }
        typeKey(code);
        if (!isHeld) {
            switchModifier(Qt::ControlModifier);
        }
    }

private:
    void deliverQueued()
    {
        QCoreApplication::sendPostedEvents(&fixture.canvas(), QEvent::MouseMove);
    }

    EditorFixture& fixture;
    Qt::MouseButtons buttons = Qt::NoButton;
    Qt::KeyboardModifiers modifiers = Qt::NoModifier;
    QPoint at{1, 1};
};
