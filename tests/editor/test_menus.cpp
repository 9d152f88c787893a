#include "editor/EditorParts.h"
#include "support/EditorFixture.h"
#include "support/FailOnWarning.h"
#include "support/Patience.h"

#include <QActionGroup>
#include <QSignalSpy>

class TestMenus : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void theMenuBarHoldsFourMenus();
    void eachMenuHoldsItsEntriesInOrder_data();
    void eachMenuHoldsItsEntriesInOrder();
    void theMenuKeysIsTheOneOfTheMenuBar();
    void selectAndMoveToolsAreHiddenInTheMenuToo();
    void menusAndToolbarsShareTheirActions();
    void actionsWithoutAMenuAreKeptByName_data();
    void actionsWithoutAMenuAreKeptByName();
    void ofEachGroupOneIsChecked_data();
    void ofEachGroupOneIsChecked();
    void eachToolbarsEntryIsCheckedAtTheStart();
    void theFileActionsExplainThemselves();
    void shortcuts_data();
    void shortcuts();
    void aShortcutReachesTheEditorThatHasTheFocusWhenTwoAreOpen();
    void aShortcutWorksForEditorsThatShareAWindow();
    void showTimeThenShowFramesLeavesExactlyOneChecked();
    void undoAndRedoInTheMenuOnlyAskTheHost();
    void theInsertButtonPopsUpAtOnce();

    void theCanvasMenuOfTheClassIsNull() { QVERIFY(!CurveEditor::canvasMenu); }
};

void TestMenus::theMenuBarHoldsFourMenus()
{
    CurveEditor editor(nullptr, QString());
    QStringList titles;
    for (const QAction* action : editor.mainMenu->findChild<QMenuBar*>()->actions()) {
        titles.append(action->text());
    }
    QCOMPARE(titles, QStringList({"File", "Edit", "Keys", "View"}));
}

void TestMenus::eachMenuHoldsItsEntriesInOrder_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QStringList>("texts");
    QTest::newRow("File") << "File"
                          << QStringList({"Reset All Curves", "Reset Selected Curves", "----",
                                          "Load Curve...", "Save Curve..."});
    QTest::newRow("Edit") << "Edit"
                          << QStringList({"Undo", "Redo", "----", "Copy", "Paste", "----",
                                          "Select Control Points", "Move Selected",
                                          "Add New Control Point", "Remove Control Point",
                                          "Zoom Tool", "----", "Pan Selection", "Scale Selection"});
    QTest::newRow("Copy") << "Edit/Copy" << QStringList({"Copy Selected Keys", "Copy Curve"});
    QTest::newRow("Paste") << "Edit/Paste"
                           << QStringList({"Paste Combined", "Paste Combined After Timeline",
                                           "Paste Combined on Current Frame", "Paste and Replace",
                                           "Paste and Replace After Timeline",
                                           "Paste and Replace on Current Frame"});
    QTest::newRow("Keys") << "Keys"
                          << QStringList({"Select All", "Select None", "Delete Selected", "----",
                                          "Node Type", "Start Node Behaviour",
                                          "Last Node Behaviour", "----", "Break Tangents",
                                          "Unify Tangents", "Flat Tangents", "----",
                                          "Show Key Properties"});
    QTest::newRow("Node Type") << "Keys/Node Type"
                               << QStringList({"Set Selected to TCB", "Set Selected to Bezier",
                                               "Set Selected to Linear",
                                               "Set Selected to Stepped"});
    QTest::newRow("Start Node Behaviour")
        << "Keys/Start Node Behaviour" << QStringList({"Zero", "Constant"});
    QTest::newRow("Last Node Behaviour")
        << "Keys/Last Node Behaviour"
        << QStringList({"Zero", "Constant", "Loop", "Loop offset", "Follow tangent"});
    QTest::newRow("View") << "View"
                          << QStringList({"Show Key Properties", "Show ToolTips", "Horizontal axis",
                                          "----", "Set Range", "Reset View", "----",
                                          "Center View To TimeLine", "Fit View",
                                          "Fit View to Selection", "Snap to Grid", "----",
                                          "Load image", "Clear image", "----", "Toolbars"});
    QTest::newRow("Horizontal axis")
        << "View/Horizontal axis" << QStringList({"Show time", "Show frames"});
    QTest::newRow("Fit View") << "View/Fit View"
                              << QStringList(
                                     {"Fit View", "Fit Horizontal View", "Fit Vertical View"});
    QTest::newRow("Fit View to Selection")
        << "View/Fit View to Selection"
        << QStringList({"Fit View To Selection", "Fit Horizontal View To Selection",
                        "Fit Vertical View To Selection"});
    QTest::newRow("Snap to Grid") << "View/Snap to Grid"
                                  << QStringList({"Horizontal Snap", "Vertical Snap"});
    QTest::newRow("Toolbars") << "View/Toolbars"
                              << QStringList({"Mode", "Pan/Scale", "Copy/Paste", "Undo/Redo", "Fit",
                                              "Snap", "Node Type", "Tangents", "Other"});
    QTest::newRow("Insert") << "Insert"
                            << QStringList({"Unary functions", "Binary functions",
                                            "Ternary functions", "I vars", "D vars", "Constants"});
    QTest::newRow("Unary functions")
        << "Insert/Unary functions"
        << QStringList({"cos",  "sin",  "tan",   "exp",  "log",   "log10", "rnd",
                        "abs",  "sqrt", "acos",  "asin", "atan",  "cosh",  "sinh",
                        "tanh", "ceil", "floor", "j0",   "logj1", "not"});
    QTest::newRow("Binary functions, an ampersand written as two")
        << "Insert/Binary functions"
        << QStringList({"+", "-", "*", "/", "^", ">", "<", "&&", "|", "=", "min", "max"});
    QTest::newRow("Ternary functions") << "Insert/Ternary functions" << QStringList({"if"});
    QTest::newRow("I vars") << "Insert/I vars" << QStringList({"t", "f", "fps"});
    QTest::newRow("D vars") << "Insert/D vars" << QStringList();
    QTest::newRow("Constants") << "Insert/Constants" << QStringList({"PI", "e", "EPSILON"});
}

void TestMenus::eachMenuHoldsItsEntriesInOrder()
{
    QFETCH(QString, path);
    CurveEditor editor(nullptr, QString());
    const QMenu* const menu = menuAt(editor, path);
    QVERIFY(menu);
    QTEST(menuTexts(menu), "texts");
}

void TestMenus::theMenuKeysIsTheOneOfTheMenuBar()
{
    CurveEditor editor(nullptr, QString());
    QCOMPARE(editor.keysMenu(), menuAt(editor, "Keys"));
}

void TestMenus::selectAndMoveToolsAreHiddenInTheMenuToo()
{
    CurveEditor editor(nullptr, QString());
    QVERIFY(!menuAction(editor, "Edit/Select Control Points")->isVisible());
    QVERIFY(!menuAction(editor, "Edit/Move Selected")->isVisible());
    QVERIFY(menuAction(editor, "Edit/Add New Control Point")->isVisible());
}

void TestMenus::menusAndToolbarsShareTheirActions()
{
    CurveEditor editor(nullptr, QString());
    QCOMPARE(menuAction(editor, "Keys/Flat Tangents"),
             toolButton(editor, "Tangents", 2)->defaultAction());
    QCOMPARE(menuAction(editor, "View/Show Key Properties"),
             menuAction(editor, "Keys/Show Key Properties"));
}

void TestMenus::actionsWithoutAMenuAreKeptByName_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("unnamed") << "Unnamed";
    QTest::newRow("grid") << "Grid";
    QTest::newRow("frames") << "Frames";
    QTest::newRow("lastNodeBehaviour") << "Last Node Behaviour";
    QTest::newRow("startNodeBehaviour") << "Start Node Behaviour";
    QTest::newRow("horizontalAxisMode") << "Horizontal axis mode";
    QTest::newRow("showToolbars") << "Show toolbars";
}

void TestMenus::actionsWithoutAMenuAreKeptByName()
{
    QFETCH(QString, text);
    CurveEditor editor(nullptr, QString());
    const QAction* const action = editor.findChild<QAction*>(QTest::currentDataTag());
    QVERIFY(action);
    QVERIFY(action->associatedObjects().isEmpty());
    QCOMPARE(action->text(), text);
}

void TestMenus::ofEachGroupOneIsChecked_data()
{
    QTest::addColumn<QString>("menu");
    QTest::newRow("start") << "Keys/Start Node Behaviour";
    QTest::newRow("last") << "Keys/Last Node Behaviour";
    QTest::newRow("axis") << "View/Horizontal axis";
}

void TestMenus::ofEachGroupOneIsChecked()
{
    QFETCH(QString, menu);
    CurveEditor editor(nullptr, QString());
    const QList<QAction*> entries = menuAt(editor, menu)->actions();
    for (QAction* const chosen : entries) {
        QVERIFY(chosen->isCheckable());
        QCOMPARE(chosen->actionGroup()->actions(), entries);
        chosen->setChecked(true);
        for (const QAction* const entry : entries) {
            QCOMPARE(entry->isChecked(), entry == chosen);
        }
    }
}

void TestMenus::eachToolbarsEntryIsCheckedAtTheStart()
{
    CurveEditor editor(nullptr, QString());
    for (const QAction* const entry : menuAt(editor, "View/Toolbars")->actions()) {
        QVERIFY(entry->isCheckable());
        QVERIFY(entry->isChecked());
    }
}

void TestMenus::theFileActionsExplainThemselves()
{
    CurveEditor editor(nullptr, QString());
    QCOMPARE(menuAction(editor, "File/Reset All Curves")->whatsThis(),
             QString("Reset all the loaded curves"));
    QCOMPARE(menuAction(editor, "File/Reset Selected Curves")->whatsThis(),
             QString("Reset the current editing curves"));
    QCOMPARE(menuAction(editor, "File/Load Curve...")->whatsThis(),
             QString("Open previously saved curve"));
    QCOMPARE(menuAction(editor, "File/Save Curve...")->whatsThis(),
             QString("Save the current curve"));
}

void TestMenus::shortcuts_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("keys");
    QTest::newRow("Set Range") << "View/Set Range"
                               << "Alt+S";
    QTest::newRow("Load image") << "View/Load image"
                                << "Alt+I";
    QTest::newRow("Show time") << "View/Horizontal axis/Show time"
                               << "Alt+T";
    QTest::newRow("Show frames") << "View/Horizontal axis/Show frames"
                                 << "Alt+F";
}

void TestMenus::shortcuts()
{
    QFETCH(QString, path);
    CurveEditor editor(nullptr, QString());
    QAction* const action = menuAction(editor, path);
    QTEST(action->shortcut().toString(QKeySequence::PortableText), "keys");
    QCOMPARE(action->shortcutContext(), Qt::WidgetWithChildrenShortcut);
    QVERIFY(editor.actions().contains(action));
}

void TestMenus::aShortcutReachesTheEditorThatHasTheFocusWhenTwoAreOpen()
{
    CurveEditor first(nullptr, QString());
    CurveEditor second(nullptr, QString());
    first.show();
    second.show();
    QApplication::setActiveWindow(&second);
    QVERIFY(QTest::qWaitForWindowActive(&second, patience));
    second.commandLine->setEnabled(true);
    second.getFunctionEditor()->setFocus();
    QTest::keyClick(second.getFunctionEditor(), Qt::Key_T, Qt::AltModifier);
    QVERIFY(second.isModeTime());
    QVERIFY(first.isModeFrames());
    QTest::keyClick(second.getFunctionEditor(), Qt::Key_F, Qt::AltModifier);
    QVERIFY(second.isModeFrames());
}

void TestMenus::aShortcutWorksForEditorsThatShareAWindow()
{
    QWidget window;
    CurveEditor first(&window, QString());
    CurveEditor second(&window, QString());
    first.setWindowFlags(Qt::Widget);
    second.setWindowFlags(Qt::Widget);
    window.show();
    first.show();
    second.show();
    QApplication::setActiveWindow(&window);
    QVERIFY(QTest::qWaitForWindowActive(&window, patience));
    first.getFunctionEditor()->setFocus();
    QTest::keyClick(first.getFunctionEditor(), Qt::Key_T, Qt::AltModifier);
    QVERIFY(first.isModeTime());
    QVERIFY(second.isModeFrames());
}

void TestMenus::showTimeThenShowFramesLeavesExactlyOneChecked()
{
    CurveEditor editor(nullptr, QString());
    QAction* const time = menuAction(editor, "View/Horizontal axis/Show time");
    QAction* const frames = menuAction(editor, "View/Horizontal axis/Show frames");
    QVERIFY(frames->isChecked());
    time->trigger();
    QVERIFY(time->isChecked());
    QVERIFY(!frames->isChecked());
    QVERIFY(editor.isModeTime());
    frames->trigger();
    QVERIFY(!time->isChecked());
    QVERIFY(frames->isChecked());
    QVERIFY(editor.isModeFrames());
}

void TestMenus::undoAndRedoInTheMenuOnlyAskTheHost()
{
    CurveEditor editor(nullptr, QString());
    QSignalSpy undone(&editor, SIGNAL(curveEditorUndo()));
    QSignalSpy redone(&editor, SIGNAL(curveEditorRedo()));
    menuAction(editor, "Edit/Undo")->trigger();
    QCOMPARE(undone.count(), 1);
    QCOMPARE(redone.count(), 0);
    menuAction(editor, "Edit/Redo")->trigger();
    QCOMPARE(redone.count(), 1);
}

void TestMenus::theInsertButtonPopsUpAtOnce()
{
    CurveEditor editor(nullptr, QString());
    QAction* const insert = menuAction(editor, "Insert");
    auto* const button = qobject_cast<QToolButton*>(editor.expressionTool->widgetForAction(insert));
    QVERIFY(button);
    QCOMPARE(button->popupMode(), QToolButton::InstantPopup);
}

QTEST_MAIN(TestMenus)
#include "test_menus.moc"
