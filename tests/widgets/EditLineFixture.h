#pragma once

#include "support/FailOnWarning.h"
#include "support/Patience.h"
#include "widgets/CustomEditLine.h"

#include <QSignalSpy>
#include <QTest>

#include <memory>

/// A shown number field, which has the focus, and ears for all that it sends.
class EditLineFixture
{
protected:
    /// A shown window with the field under test and a second field to which the focus can go.
    class Window : public QWidget
    {
    public:
        Window()
        {
            field.setGeometry(10, 10, 120, 24);
            other.setGeometry(10, 50, 120, 24);
            resize(200, 100);
            show();
            activateWindow();
            field.setFocus();
        }

        CustomEditLine field{this};
        QLineEdit other{this};
    };

    void open()
    {
        window = std::make_unique<Window>();
        field = &window->field;
        QVERIFY(QTest::qWaitForWindowActive(window.get(), patience));
        QTRY_VERIFY_WITH_TIMEOUT(field->hasFocus(), patience);
        valueSet =
            std::make_unique<QSignalSpy>(field, SIGNAL(newValueSet(ZK_DOUBLE, CustomEditLine*)));
        valueTyped =
            std::make_unique<QSignalSpy>(field, SIGNAL(newValueTyped(ZK_DOUBLE, CustomEditLine*)));
        pressed = std::make_unique<QSignalSpy>(field, SIGNAL(mousePressEditLine()));
        released = std::make_unique<QSignalSpy>(field, SIGNAL(mouseReleaseEditLine()));
    }

    void close()
    {
        valueSet.reset();
        valueTyped.reset();
        pressed.reset();
        released.reset();
        window.reset();
    }

    std::unique_ptr<Window> window;
    CustomEditLine* field = nullptr; ///< in the window
    std::unique_ptr<QSignalSpy> valueSet;
    std::unique_ptr<QSignalSpy> valueTyped;
    std::unique_ptr<QSignalSpy> pressed;
    std::unique_ptr<QSignalSpy> released;
};
