#include "editor/EditorParts.h"
#include "support/EditorFixture.h"
#include "support/FailOnWarning.h"
#include "support/RefreshCounter.h"

#include <iostream>
#include <sstream>

namespace {

using Editor = CurveEditor;
using Mode = CurveEditor::curveEditorModes;

/// Runs `write` and gives back what it put on the standard output.
template <class Write>
std::string outputOf(const Write& write)
{
    std::ostringstream caught;
    std::streambuf* const standard = std::cout.rdbuf(caught.rdbuf());
    write();
    std::cout.rdbuf(standard);
    return caught.str();
}

QList<bool> checkedTools(const CurveEditor& editor)
{
    QList<bool> checked;
    for (int tool = 0; tool < 5; ++tool) {
        checked.append(toolButton(editor, "Mode", tool)->defaultAction()->isChecked());
    }
    return checked;
}

} // namespace

class TestModes : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void bothModesStartAtDefault();
    void eachModeHasItsNameAndCursor_data();
    void eachModeHasItsNameAndCursor();
    void anUnknownModeIsStoredWithoutCursorAndPrintsAFixedText();
    void aMissingCursorPictureGivesTheArrow();
    void cursorsComeFromTheFolderThatIsSetNow();
    void theModeAlreadyInForceDoesNotRefresh();
    void settingTheUserModeNeitherRefreshesNorSetsTheCurrentMode();
    void aToolIsChosenAndPutAway_data();
    void aToolIsChosenAndPutAway();
    void clicksOnToolButtonsChangeFromToolToTool();
    void theSelectActionIsCheckedAlthoughItIsInvisible();
    void aUserModeThatIsNoToolUnchecksAllFive();
    void setDefaultModePutsBothModesBack();
    void onlyZoomingSetsTheZoomModeOfTheView();
    void modifiersHaveTheirDefaults();
    void aModifierInCapitalsComesBackInLowerCase();
    void modifiersOfEvents_data();
    void modifiersOfEvents();
    void eachRoleAsksForItsOwnModifier();
};

void TestModes::bothModesStartAtDefault()
{
    CurveEditor editor(nullptr, QString());
    QCOMPARE(editor.getCurrentMode(), Editor::DEFAULT);
    QCOMPARE(editor.getUserMode(), Editor::DEFAULT);
}

void TestModes::eachModeHasItsNameAndCursor_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("icon"); // 0: the arrow, -1: unchanged
    QTest::addColumn<QPoint>("hotSpot");
    QTest::newRow("0") << "DEFAULT" << 0 << QPoint();
    QTest::newRow("1") << "SELECT" << 33 << QPoint(11, 11);
    QTest::newRow("2") << "SELECTING" << 33 << QPoint(11, 11);
    QTest::newRow("3") << "MOVE" << 34 << QPoint(11, 11);
    QTest::newRow("4") << "MOVING" << 33 << QPoint(11, 11);
    QTest::newRow("5") << "ADD" << 35 << QPoint(12, 12);
    QTest::newRow("6") << "DEL" << 36 << QPoint(11, 11);
    QTest::newRow("7") << "ADD2SEL" << -1 << QPoint();
    QTest::newRow("8") << "ADDING2SEL" << -1 << QPoint();
    QTest::newRow("9") << "ZOOM" << 37 << QPoint(17, 17);
    QTest::newRow("10") << "ZOOMING" << 37 << QPoint(17, 17);
    QTest::newRow("11") << "SCALE" << -1 << QPoint();
    QTest::newRow("12") << "SNAP" << 34 << QPoint(0, 0);
}

void TestModes::eachModeHasItsNameAndCursor()
{
    QFETCH(QString, name);
    QFETCH(int, icon);
    const QString folder = qEnvironmentVariable("ZK_ICONS_DIR");
    CurveEditor editor(nullptr, folder);
    const auto mode = static_cast<Mode>(QByteArray(QTest::currentDataTag()).toInt());
    QCOMPARE(outputOf([&] { editor.printMode(mode); }), name.toStdString());

    FunctionEditor* const canvas = editor.getFunctionEditor();
    canvas->setCursor(Qt::WaitCursor);
    editor.setCurrentMode(Editor::SCALE); // leaves the cursor alone
    QCOMPARE(canvas->cursor().shape(), Qt::WaitCursor);
    editor.setCurrentMode(mode);
    if (icon < 0) {
        QCOMPARE(canvas->cursor().shape(), Qt::WaitCursor);
    } else if (icon == 0) {
        QCOMPARE(canvas->cursor().shape(), Qt::ArrowCursor);
    } else {
        QCOMPARE(canvas->cursor().shape(), Qt::BitmapCursor);
        QTEST(canvas->cursor().hotSpot(), "hotSpot");
        const QPixmap picture(
            QString("%1/curveeditor%2.png").arg(folder).arg(icon, 3, 10, QChar('0')));
        QCOMPARE(canvas->cursor().pixmap().toImage(), picture.toImage());
    }
    QVERIFY(editor.cursor().shape() == Qt::ArrowCursor);
}

void TestModes::anUnknownModeIsStoredWithoutCursorAndPrintsAFixedText()
{
    CurveEditor editor(nullptr, qEnvironmentVariable("ZK_ICONS_DIR"));
    editor.setCurrentMode(Editor::ZOOM);
    const QPoint hotSpot = editor.getFunctionEditor()->cursor().hotSpot();
    for (const int value : {13, -1, 1000}) {
        editor.setCurrentMode(static_cast<Mode>(value));
        QCOMPARE(static_cast<int>(editor.getCurrentMode()), value);
        QCOMPARE(editor.getFunctionEditor()->cursor().hotSpot(), hotSpot);
        QCOMPARE(outputOf([&] { editor.printMode(static_cast<Mode>(value)); }),
                 std::string("UNKNOWN curve editor mode"));
    }
}

void TestModes::aMissingCursorPictureGivesTheArrow()
{
    CurveEditor editor(nullptr, "/nowhere");
    editor.getFunctionEditor()->setCursor(Qt::WaitCursor);
    editor.setCurrentMode(Editor::ADD);
    QCOMPARE(editor.getFunctionEditor()->cursor().shape(), Qt::ArrowCursor);
}

void TestModes::cursorsComeFromTheFolderThatIsSetNow()
{
    CurveEditor editor(nullptr, "/nowhere");
    editor.setIconsPath(qEnvironmentVariable("ZK_ICONS_DIR"));
    editor.setCurrentMode(Editor::ADD);
    QCOMPARE(editor.getFunctionEditor()->cursor().shape(), Qt::BitmapCursor);
}

void TestModes::theModeAlreadyInForceDoesNotRefresh()
{
    EditorFixture fixture;
    fixture.editCurve("n.c", {{1.0, 1.0}, {2.0, 2.0}});
    RefreshCounter refreshes(fixture.editor);
    fixture.editor.setCurrentMode(Editor::ZOOM);
    QCOMPARE(refreshes.taken(), 1);
    fixture.editor.setCurrentMode(Editor::ZOOM);
    QCOMPARE(refreshes.taken(), 0);
}

void TestModes::settingTheUserModeNeitherRefreshesNorSetsTheCurrentMode()
{
    EditorFixture fixture;
    fixture.editCurve("n.c", {{1.0, 1.0}, {2.0, 2.0}});
    RefreshCounter refreshes(fixture.editor);
    fixture.editor.setUserMode(Editor::ZOOM);
    QCOMPARE(refreshes.taken(), 0);
    QCOMPARE(fixture.editor.getCurrentMode(), Editor::DEFAULT);
    QCOMPARE(fixture.editor.getUserMode(), Editor::ZOOM);
}

void TestModes::aToolIsChosenAndPutAway_data()
{
    QTest::addColumn<QByteArray>("slot");
    QTest::addColumn<int>("mode");
    QTest::addColumn<int>("tool");
    QTest::newRow("select") << QByteArray("setSelectMode") << 1 << 0;
    QTest::newRow("move") << QByteArray("setMoveMode") << 3 << 1;
    QTest::newRow("add") << QByteArray("setAddKeyMode") << 5 << 2;
    QTest::newRow("delete") << QByteArray("setDeleteKeyMode") << 6 << 3;
    QTest::newRow("zoom") << QByteArray("setZoomMode") << 9 << 4;
}

void TestModes::aToolIsChosenAndPutAway()
{
    QFETCH(QByteArray, slot);
    QFETCH(int, mode);
    QFETCH(int, tool);
    CurveEditor editor(nullptr, QString());
    QList<bool> expected(5, false);
    QMetaObject::invokeMethod(&editor, slot.constData());
    QCOMPARE(static_cast<int>(editor.getUserMode()), mode);
    QCOMPARE(static_cast<int>(editor.getCurrentMode()), mode);
    expected[tool] = true;
    QCOMPARE(checkedTools(editor), expected);
    // Two calls leave both modes at 0 and no button checked.
    QMetaObject::invokeMethod(&editor, slot.constData());
    QCOMPARE(editor.getUserMode(), Editor::DEFAULT);
    QCOMPARE(editor.getCurrentMode(), Editor::DEFAULT);
    QCOMPARE(checkedTools(editor), QList<bool>(5, false));
}

void TestModes::clicksOnToolButtonsChangeFromToolToTool()
{
    EditorFixture fixture;
    CurveEditor& editor = fixture.editor;
    QTest::mouseClick(toolButton(editor, "Mode", 2), Qt::LeftButton);
    QCOMPARE(editor.getUserMode(), Editor::ADD);
    QTest::mouseClick(toolButton(editor, "Mode", 4), Qt::LeftButton);
    QCOMPARE(editor.getUserMode(), Editor::ZOOM);
    QCOMPARE(checkedTools(editor), QList<bool>({false, false, false, false, true}));
    QTest::mouseClick(toolButton(editor, "Mode", 4), Qt::LeftButton);
    QCOMPARE(editor.getUserMode(), Editor::DEFAULT);
    QCOMPARE(checkedTools(editor), QList<bool>(5, false));
}

void TestModes::theSelectActionIsCheckedAlthoughItIsInvisible()
{
    CurveEditor editor(nullptr, QString());
    editor.setUserMode(Editor::SELECT);
    QAction* const select = toolButton(editor, "Mode", 0)->defaultAction();
    QVERIFY(select->isChecked());
    QVERIFY(!select->isVisible());
}

void TestModes::aUserModeThatIsNoToolUnchecksAllFive()
{
    CurveEditor editor(nullptr, QString());
    editor.setUserMode(Editor::ADD);
    editor.setUserMode(Editor::SELECTING);
    QCOMPARE(editor.getUserMode(), Editor::SELECTING);
    QCOMPARE(checkedTools(editor), QList<bool>(5, false));
}

void TestModes::setDefaultModePutsBothModesBack()
{
    CurveEditor editor(nullptr, QString());
    editor.setAddKeyMode();
    editor.setCurrentMode(Editor::MOVING);
    editor.setDefaultMode();
    QCOMPARE(editor.getUserMode(), Editor::DEFAULT);
    QCOMPARE(editor.getCurrentMode(), Editor::DEFAULT);
}

void TestModes::onlyZoomingSetsTheZoomModeOfTheView()
{
    CurveEditor editor(nullptr, QString());
    FunctionEditor* const canvas = editor.getFunctionEditor();
    for (const int value : {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 11, 12, 13}) {
        editor.setCurrentMode(Editor::ZOOMING);
        QVERIFY(canvas->zoomMode);
        editor.setCurrentMode(static_cast<Mode>(value));
        QVERIFY2(!canvas->zoomMode, qPrintable(QString::number(value)));
    }
}

void TestModes::modifiersHaveTheirDefaults()
{
    CurveEditor editor(nullptr, QString());
    QCOMPARE(editor.getZoomModifier(), QString("alt"));
    QCOMPARE(editor.getSnapModifier(), QString("alt"));
    QCOMPARE(editor.getAddModifier(), QString("ctrl"));
    QCOMPARE(editor.getAdd2selModifier(), QString("shift"));
}

void TestModes::aModifierInCapitalsComesBackInLowerCase()
{
    CurveEditor editor(nullptr, QString());
    editor.setZoomModifier("ALT");
    editor.setSnapModifier("Shift");
    editor.setAddModifier("META");
    editor.setAdd2selModifier("Ctrl");
    QCOMPARE(editor.getZoomModifier(), QString("alt"));
    QCOMPARE(editor.getSnapModifier(), QString("shift"));
    QCOMPARE(editor.getAddModifier(), QString("meta"));
    QCOMPARE(editor.getAdd2selModifier(), QString("ctrl"));
}

void TestModes::modifiersOfEvents_data()
{
    QTest::addColumn<QString>("modifier");
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("flags");
    QTest::addColumn<bool>("isHeld");
    const int press = QEvent::KeyPress;
    const int letGo = QEvent::KeyRelease;
    QTest::newRow("a press of Alt")
        << "alt" << press << int(Qt::Key_Alt) << int(Qt::NoModifier) << true;
    QTest::newRow("a release of Alt, though the flags still hold it")
        << "alt" << letGo << int(Qt::Key_Alt) << int(Qt::AltModifier) << false;
    QTest::newRow("a press of Shift")
        << "shift" << press << int(Qt::Key_Shift) << int(Qt::NoModifier) << true;
    QTest::newRow("a press of Control")
        << "ctrl" << press << int(Qt::Key_Control) << int(Qt::NoModifier) << true;
    QTest::newRow("a press of Meta")
        << "meta" << press << int(Qt::Key_Meta) << int(Qt::NoModifier) << true;
    QTest::newRow("a press of A with Control held")
        << "ctrl" << press << int(Qt::Key_A) << int(Qt::ControlModifier) << true;
    QTest::newRow("a release of A with Control held")
        << "ctrl" << letGo << int(Qt::Key_A) << int(Qt::ControlModifier) << true;
    QTest::newRow("a press of A alone")
        << "ctrl" << press << int(Qt::Key_A) << int(Qt::NoModifier) << false;
    QTest::newRow("a press of Shift with Alt held, asked for alt")
        << "alt" << press << int(Qt::Key_Shift) << int(Qt::AltModifier) << true;
    QTest::newRow("an unknown name")
        << "hyper" << press << int(Qt::Key_Alt) << int(Qt::AltModifier) << false;
    QTest::newRow("no name") << "" << press << int(Qt::Key_Alt) << int(Qt::AltModifier) << false;
}

void TestModes::modifiersOfEvents()
{
    QFETCH(QString, modifier);
    QFETCH(int, type);
    QFETCH(int, key);
    QFETCH(int, flags);
    QFETCH(bool, isHeld);
    CurveEditor editor(nullptr, QString());
    QKeyEvent event(static_cast<QEvent::Type>(type), key,
                    static_cast<Qt::KeyboardModifiers>(flags));
    editor.setZoomModifier(modifier);
    editor.setSnapModifier(modifier);
    editor.setAddModifier(modifier);
    editor.setAdd2selModifier(modifier);
    QCOMPARE(editor.isZoomPressed(&event), isHeld);
    QCOMPARE(editor.isSnapPressed(&event), isHeld);
    QCOMPARE(editor.isAddPressed(&event), isHeld);
    QCOMPARE(editor.isAdd2selPressed(&event), isHeld);
}

void TestModes::eachRoleAsksForItsOwnModifier()
{
    CurveEditor editor(nullptr, QString());
    editor.setZoomModifier("alt");
    editor.setSnapModifier("meta");
    QMouseEvent event(QEvent::MouseMove, QPointF(), QPointF(), Qt::NoButton, Qt::NoButton,
                      Qt::MetaModifier | Qt::ShiftModifier);
    QVERIFY(!editor.isZoomPressed(&event));
    QVERIFY(editor.isSnapPressed(&event));
    QVERIFY(!editor.isAddPressed(&event));
    QVERIFY(editor.isAdd2selPressed(&event));
}

QTEST_MAIN(TestModes)
#include "test_modes.moc"
