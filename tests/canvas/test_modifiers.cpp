#include "support/EditorFixture.h"
#include "support/FailOnWarning.h"

using Mode = CurveEditor::curveEditorModes;

/// How modifier keys change the mode at rest and during gestures. Alt zooms and snaps, Ctrl adds
/// a key, Shift adds to the selection.
class TestModifiers : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void heldKeysChooseTheMode_data()
    {
        QTest::addColumn<int>("user");
        QTest::addColumn<int>("mode");
        QTest::addColumn<int>("held");
        QTest::addColumn<int>("expected");
        const int none = Qt::NoModifier;
        const int alt = Qt::AltModifier;
        const int ctrl = Qt::ControlModifier;
        const int shift = Qt::ShiftModifier;
        struct Row
        {
            const char* name;
            int user, mode, held, expected;
        };
        const Row rows[] = {
            {"zooming goes on as zoom", Mode::DEFAULT, Mode::ZOOMING, alt, Mode::ZOOM},
            {"zooming without the key ends", Mode::DEFAULT, Mode::ZOOMING, none, Mode::DEFAULT},
            {"zooming ends in the tool", Mode::ADD, Mode::ZOOMING, none, Mode::ADD},
            {"the zoom tool zooms on", Mode::ZOOM, Mode::ZOOMING, none, Mode::ZOOM},
            {"alt at rest zooms", Mode::DEFAULT, Mode::DEFAULT, alt, Mode::ZOOM},
            {"alt over any tool zooms", Mode::MOVE, Mode::MOVE, alt, Mode::ZOOM},
            {"alt held goes on zooming", Mode::DEFAULT, Mode::ZOOM, alt, Mode::ZOOM},
            {"alt let go", Mode::DEFAULT, Mode::ZOOM, none, Mode::DEFAULT},
            {"the zoom tool stays", Mode::ZOOM, Mode::ZOOM, none, Mode::ZOOM},
            {"alt in a drag locks", Mode::DEFAULT, Mode::MOVING, alt, Mode::SNAP},
            {"the lock lasts", Mode::DEFAULT, Mode::SNAP, alt, Mode::SNAP},
            {"the lock ends", Mode::DEFAULT, Mode::SNAP, none, Mode::MOVING},
            {"a drag without keys", Mode::DEFAULT, Mode::MOVING, none, Mode::MOVING},
            {"ctrl adds", Mode::DEFAULT, Mode::DEFAULT, ctrl, Mode::ADD},
            {"ctrl held adds on", Mode::DEFAULT, Mode::ADD, ctrl, Mode::ADD},
            {"ctrl let go", Mode::DEFAULT, Mode::ADD, none, Mode::DEFAULT},
            {"the add tool stays", Mode::ADD, Mode::ADD, none, Mode::ADD},
            {"ctrl over the select tool", Mode::SELECT, Mode::SELECT, ctrl, Mode::SELECT},
            {"shift adds to the selection", Mode::DEFAULT, Mode::DEFAULT, shift, Mode::ADD2SEL},
            {"shift over the select tool", Mode::SELECT, Mode::SELECT, shift, Mode::ADD2SEL},
            {"shift held", Mode::DEFAULT, Mode::ADD2SEL, shift, Mode::ADD2SEL},
            {"shift let go", Mode::DEFAULT, Mode::ADD2SEL, none, Mode::DEFAULT},
            {"shift let go over the tool", Mode::SELECT, Mode::ADD2SEL, none, Mode::SELECT},
            {"shift in a rectangle", Mode::DEFAULT, Mode::SELECTING, shift, Mode::ADDING2SEL},
            {"shift let go in a rectangle", Mode::DEFAULT, Mode::ADDING2SEL, none, Mode::SELECTING},
            {"a rectangle goes on", Mode::DEFAULT, Mode::SELECTING, none, Mode::SELECTING},
            {"ctrl wins over shift", Mode::DEFAULT, Mode::DEFAULT, ctrl | shift, Mode::ADD},
            {"alt wins over ctrl", Mode::DEFAULT, Mode::DEFAULT, alt | ctrl, Mode::ZOOM},
            {"the delete tool knows no modifier", Mode::DEL, Mode::DEL, shift, Mode::DEL},
            {"the add tool and shift", Mode::ADD, Mode::ADD, shift, Mode::ADD},
        };
        for (const Row& row : rows) {
            QTest::newRow(row.name) << row.user << row.mode << row.held << row.expected;
        }
    }

    void heldKeysChooseTheMode()
    {
        QFETCH(int, user);
        QFETCH(int, mode);
        QFETCH(int, held);
        QFETCH(int, expected);
        EditorFixture fixture;
        fixture.editor.setUserMode(static_cast<Mode>(user));
        fixture.editor.setCurrentMode(static_cast<Mode>(mode));

        // Any event that carries modifiers will do: the mouse moves without a button.
        fixture.moveTo(QPoint(10, 10), Qt::NoButton, Qt::KeyboardModifiers(held));

        QCOMPARE(int(fixture.editor.getCurrentMode()), expected);
        QCOMPARE(int(fixture.editor.getUserMode()), user);
    }

    void aPressedModifierKeyCountsByItself()
    {
        EditorFixture fixture;
        fixture.key(QEvent::KeyPress, Qt::Key_Alt);
        QCOMPARE(fixture.editor.getCurrentMode(), Mode::ZOOM);
        fixture.key(QEvent::KeyRelease, Qt::Key_Alt, Qt::AltModifier);
        QCOMPARE(fixture.editor.getCurrentMode(), Mode::DEFAULT);
    }

    void altPressedDuringADragLocksAndNeverZooms()
    {
        EditorFixture fixture;
        fixture.editCurve("n.a", {{10, 10}, {20, 20}});
        fixture.paint();
        fixture.press(EditorFixture::pixel(10, 10));
        QCOMPARE(fixture.editor.getCurrentMode(), Mode::MOVING);
        fixture.key(QEvent::KeyPress, Qt::Key_Alt);
        QCOMPARE(fixture.editor.getCurrentMode(), Mode::SNAP);
        fixture.key(QEvent::KeyRelease, Qt::Key_Alt);
        QCOMPARE(fixture.editor.getCurrentMode(), Mode::MOVING);
        fixture.release(EditorFixture::pixel(10, 10));
        QCOMPARE(fixture.editor.getCurrentMode(), Mode::DEFAULT);
    }

    void otherModifierKeysCanBeChosen()
    {
        EditorFixture fixture;
        fixture.editor.setZoomModifier("Meta");
        fixture.moveTo(QPoint(10, 10), Qt::NoButton, Qt::AltModifier);
        QCOMPARE(fixture.editor.getCurrentMode(), Mode::DEFAULT);
        fixture.moveTo(QPoint(10, 10), Qt::NoButton, Qt::MetaModifier);
        QCOMPARE(fixture.editor.getCurrentMode(), Mode::ZOOM);
    }

    void theCanvasLogicWatchesItsOwnEventsToo()
    {
        EditorFixture fixture;
        QKeyEvent event(QEvent::KeyPress, Qt::Key_Shift, Qt::NoModifier);
        QApplication::sendEvent(&fixture.logic(), &event);
        QCOMPARE(fixture.editor.getCurrentMode(), Mode::ADD2SEL);
    }
};

QTEST_MAIN(TestModifiers)
#include "test_modifiers.moc"
