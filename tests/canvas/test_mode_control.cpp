#include "canvas/ModeControl.h"
#include "support/FailOnWarning.h"

#include <QKeyEvent>
#include <QStringList>
#include <QTest>

#include <utility>

using curve_editor::CanvasMode;
using curve_editor::ModeCallbacks;
using curve_editor::ModeControl;
using curve_editor::ModifierRole;

/// Modes, tool and modifiers, without a canvas and without a dialog.
class TestModeControl : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void aModeThatIsInForceIsToldToNobody();
    void theModeIsToldBeforeAndAfterItChanges();
    void aModeThatComesIntoForceBeforehandIsToldOnce();
    void aToolLeavesTheModeAsItIs();
    void aSecondChoiceOfAToolPutsItAway();
    void whatEndsBeforeAChoiceMayChooseItself();
    void modifiersHaveTheirDefaults_data();
    void modifiersHaveTheirDefaults();
    void aModifierIsToldByItsKeyElseByTheFlags_data();
    void aModifierIsToldByItsKeyElseByTheFlags();
    void aNameThatIsNoModifierIsNeverHeld();

private:
    ModeControl listened();

    QStringList heard;
};

void TestModeControl::init()
{
    failOnUnexpectedWarning();
    heard.clear();
}

/// A control that writes down what it tells.
ModeControl TestModeControl::listened()
{
    ModeControl modes;
    ModeCallbacks callbacks;
    callbacks.beforeTool = [this] { heard << "choosing"; };
    callbacks.beforeMode = [this](CanvasMode next) {
        heard << QString("leaving for %1").arg(static_cast<int>(next));
    };
    callbacks.toolChanged = [this] { heard << "tool"; };
    callbacks.modeChanged = [this] { heard << "mode"; };
    modes.setCallbacks(callbacks);
    return modes;
}

void TestModeControl::aModeThatIsInForceIsToldToNobody()
{
    ModeControl modes = listened();
    modes.setMode(CanvasMode::DEFAULT);
    modes.setUserMode(CanvasMode::DEFAULT);
    QCOMPARE(heard, QStringList());
}

void TestModeControl::theModeIsToldBeforeAndAfterItChanges()
{
    ModeControl modes = listened();
    modes.setMode(CanvasMode::MOVING);
    QCOMPARE(modes.mode(), CanvasMode::MOVING);
    QCOMPARE(heard, (QStringList{"leaving for 4", "mode"}));
}

void TestModeControl::aModeThatComesIntoForceBeforehandIsToldOnce()
{
    ModeControl modes;
    bool isDue = true;
    ModeCallbacks callbacks;
    callbacks.beforeMode = [&](CanvasMode next) {
        if (std::exchange(isDue, false)) {
            modes.setMode(next);
        }
    };
    callbacks.modeChanged = [this] { heard << "mode"; };
    modes.setCallbacks(callbacks);
    modes.setMode(CanvasMode::ADD);
    QCOMPARE(heard, QStringList("mode"));
}

void TestModeControl::aToolLeavesTheModeAsItIs()
{
    ModeControl modes = listened();
    modes.setUserMode(CanvasMode::SELECT);
    QCOMPARE(modes.mode(), CanvasMode::DEFAULT);
    QCOMPARE(modes.userMode(), CanvasMode::SELECT);
    QCOMPARE(heard, QStringList("tool"));
}

void TestModeControl::aSecondChoiceOfAToolPutsItAway()
{
    ModeControl modes = listened();
    modes.toggleTool(CanvasMode::ZOOM);
    QCOMPARE(modes.userMode(), CanvasMode::ZOOM);
    QCOMPARE(modes.mode(), CanvasMode::ZOOM);
    modes.toggleTool(CanvasMode::ZOOM);
    QCOMPARE(modes.userMode(), CanvasMode::DEFAULT);
    QCOMPARE(modes.mode(), CanvasMode::DEFAULT);
    QCOMPARE(heard, (QStringList{"choosing", "tool", "leaving for 9", "mode", "choosing", "tool",
                                 "leaving for 0", "mode"}));
}

/// A gesture that ends may let a slot choose a tool: the choice made after it goes by that.
void TestModeControl::whatEndsBeforeAChoiceMayChooseItself()
{
    ModeControl modes;
    ModeCallbacks callbacks;
    callbacks.beforeTool = [&] { modes.setUserMode(CanvasMode::DEL); };
    modes.setCallbacks(callbacks);
    modes.toggleTool(CanvasMode::DEL);
    QCOMPARE(modes.userMode(), CanvasMode::DEFAULT);
}

void TestModeControl::modifiersHaveTheirDefaults_data()
{
    QTest::addColumn<int>("role");
    QTest::addColumn<QString>("name");
    QTest::newRow("zoom") << int(ModifierRole::zoom) << "alt";
    QTest::newRow("snap") << int(ModifierRole::snap) << "alt";
    QTest::newRow("add") << int(ModifierRole::add) << "ctrl";
    QTest::newRow("add to selection") << int(ModifierRole::addToSelection) << "shift";
}

void TestModeControl::modifiersHaveTheirDefaults()
{
    QFETCH(int, role);
    QFETCH(QString, name);
    ModeControl modes;
    const auto which = static_cast<ModifierRole>(role);
    QCOMPARE(modes.modifier(which), name);
    modes.setModifier(which, "META");
    QCOMPARE(modes.modifier(which), QString("meta"));
}

void TestModeControl::aModifierIsToldByItsKeyElseByTheFlags_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("flags");
    QTest::addColumn<bool>("held");
    const int press = QEvent::KeyPress;
    const int release = QEvent::KeyRelease;
    QTest::newRow("its key goes down") << press << int(Qt::Key_Alt) << 0 << true;
    QTest::newRow("its key comes up, whatever the flags still hold")
        << release << int(Qt::Key_Alt) << int(Qt::AltModifier) << false;
    QTest::newRow("another key beside it")
        << press << int(Qt::Key_A) << int(Qt::AltModifier) << true;
    QTest::newRow("another key comes up beside it")
        << release << int(Qt::Key_A) << int(Qt::AltModifier) << true;
    QTest::newRow("another modifier") << press << int(Qt::Key_Shift) << 0 << false;
    QTest::newRow("nothing") << press << int(Qt::Key_A) << 0 << false;
}

void TestModeControl::aModifierIsToldByItsKeyElseByTheFlags()
{
    QFETCH(int, type);
    QFETCH(int, key);
    QFETCH(int, flags);
    QFETCH(bool, held);
    const QKeyEvent event(static_cast<QEvent::Type>(type), key, Qt::KeyboardModifiers(flags));
    QCOMPARE(ModeControl().isPressed(ModifierRole::zoom, &event), held);
}

void TestModeControl::aNameThatIsNoModifierIsNeverHeld()
{
    ModeControl modes;
    modes.setModifier(ModifierRole::zoom, "hyper");
    const QKeyEvent event(QEvent::KeyPress, Qt::Key_Alt, Qt::AltModifier);
    QVERIFY(!modes.isPressed(ModifierRole::zoom, &event));
    QVERIFY(!modes.isPressed(ModifierRole::snap, nullptr));
}

QTEST_MAIN(TestModeControl)
#include "test_mode_control.moc"
