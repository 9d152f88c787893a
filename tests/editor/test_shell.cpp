#include "editor/EditorParts.h"
#include "support/EditorFixture.h"
#include "support/FailOnWarning.h"
#include "support/RefreshCounter.h"
#include "widgets/ControlMenu2.h"
#include "widgets/CustomEditLine.h"

#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QSplitter>

class TestShell : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void theWindowHasItsTitleNameAndSize();
    void windowFlagsAreNoneAskedFor();
    void theTreeIsEmptyAndHeadedCurves();
    void theCanvasStandsInItsFrame();
    void theMainMenuHoldsItsWidgetsInOrder();
    void thePositionFieldsStartDisabledAndEmpty();
    void noButtonIsAutoDefault();
    void theAddButtonIsCheckableAndFlat();
    void theExpressionsRowBeginsTenPixelsIn();
    void undoKeepsTenStepsAndStartsEnabled();
    void everyEditorHasAManagerOfItsOwn();
    void undoLevelsAndTheUndoSwitchReachTheManager();
    void escapeLeavesTheDialogOpen();
    void closingClosesAndTellsNothing();
    void stateSurvivesHiding();
    void aKeyInTheDialogReachesTheCanvas();
    void aKeyOnTheCanvasActsOnce();
    void lettingAModifierGoInTheDialogReachesTheCanvas();
    void returnInANumberFieldClicksNoButton();
    void keysAreSelectedAllAndNoneAndDeleted();
    void tangentsAreBrokenUnifiedAndMadeFlat();
    void theExpressionLineShowsTheExpression();
    void theCanvasAnnouncesAChangedExpressionByARefresh();
    void aSelectionInTheTreeBecomesTheEditingSet();
    void deleteInTheTreeRemovesFromEditing();
    void theTreesMenuRemovesFromEditing();
};

void TestShell::theWindowHasItsTitleNameAndSize()
{
    CurveEditor editor(nullptr, QString());
    QCOMPARE(editor.windowTitle(), QString("Curve Editor"));
    QCOMPARE(editor.objectName(), QString("CurveEditorDialogBaseSetter"));
    QCOMPARE(editor.size(), QSize(500, 300));
    QCOMPARE(editor.focusPolicy(), Qt::StrongFocus);
}

void TestShell::windowFlagsAreNoneAskedFor()
{
    CurveEditor editor(nullptr, QString());
    const QDialog plain(nullptr, Qt::WindowFlags());
    QCOMPARE(editor.windowFlags(), plain.windowFlags());
}

void TestShell::theTreeIsEmptyAndHeadedCurves()
{
    CurveEditor editor(nullptr, QString());
    QCOMPARE(editor.checkListsEditing->headerItem()->text(0), QString("Curves"));
    QCOMPARE(editor.checkListsEditing->topLevelItemCount(), 0);
    QVERIFY(editor.checkListsEditing->hasAutoScroll());
}

void TestShell::theCanvasStandsInItsFrame()
{
    CurveEditor editor(nullptr, QString());
    const FunctionEditor* const canvas = editor.getFunctionEditor();
    QCOMPARE(canvas->parentWidget(), editor.functionView);
    QCOMPARE(canvas->focusPolicy(), Qt::ClickFocus);
    QCOMPARE(editor.functionView->palette().color(QPalette::Window), QColor(Qt::black));
    QVERIFY(qobject_cast<QHBoxLayout*>(editor.functionView->layout()));
    QVERIFY(canvas->hasMouseTracking());
    QCOMPARE(canvas->sizePolicy(),
             QSizePolicy(QSizePolicy::MinimumExpanding, QSizePolicy::MinimumExpanding));
    QCOMPARE(canvas->minimumSize(), editor.functionView->minimumSize());
    QCOMPARE(canvas->maximumSize(), editor.functionView->maximumSize());
    QCOMPARE(canvas->palette().color(QPalette::Window), QColor(192, 192, 192));
}

void TestShell::theMainMenuHoldsItsWidgetsInOrder()
{
    CurveEditor editor(nullptr, QString());
    QStringList classes;
    for (QAction* const action : editor.mainMenu->actions()) {
        classes.append(editor.mainMenu->widgetForAction(action)->metaObject()->className());
    }
    QCOMPARE(classes, QStringList({"QMenuBar", "QLabel", "CustomEditLine", "CustomEditLine",
                                   "QLabel", "QLabel", "QLabel", "QLabel", "QLabel"}));
    QCOMPARE(editor.mainMenu->palette().color(QPalette::Disabled, QPalette::ButtonText),
             QColor(Qt::darkGray));
    auto* const filler =
        qobject_cast<QLabel*>(editor.mainMenu->widgetForAction(editor.mainMenu->actions().at(1)));
    QVERIFY(filler->text().isEmpty());
    QCOMPARE(filler->alignment(), Qt::AlignRight | Qt::AlignVCenter);
    auto* const pointer =
        qobject_cast<QLabel*>(editor.mainMenu->widgetForAction(editor.mainMenu->actions().at(4)));
    QCOMPARE(pointer->text(), QString("    Pointer:  "));
    QCOMPARE(pointer->minimumWidth(), 40);
}

void TestShell::thePositionFieldsStartDisabledAndEmpty()
{
    CurveEditor editor(nullptr, QString());
    for (const char* const name : {"posX", "posY"}) {
        const auto* const field = editor.findChild<CustomEditLine*>(name);
        QVERIFY(!field->isEnabled());
        QVERIFY(field->text().isEmpty());
        QCOMPARE(field->minimumSize(), QSize(50, 20));
        QCOMPARE(field->focusPolicy(), Qt::StrongFocus);
        QVERIFY(field->hasMouseTracking());
        QVERIFY(field->acceptDrops());
    }
}

void TestShell::noButtonIsAutoDefault()
{
    CurveEditor editor(nullptr, QString());
    const QList<QPushButton*> buttons = editor.findChildren<QPushButton*>();
    QVERIFY(!buttons.isEmpty());
    for (const QPushButton* const button : buttons) {
        QVERIFY2(!button->autoDefault() && !button->isDefault(), qPrintable(button->objectName()));
    }
}

void TestShell::theAddButtonIsCheckableAndFlat()
{
    CurveEditor editor(nullptr, QString());
    QVERIFY(editor.addToSpline->isCheckable());
    QVERIFY(editor.addToSpline->isFlat());
}

void TestShell::theExpressionsRowBeginsTenPixelsIn()
{
    CurveEditor editor(nullptr, QString());
    QCOMPARE(editor.tabExpresion->contentsMargins(), QMargins(10, 0, 0, 0));
    QCOMPARE(editor.tabExpresion->layout()->contentsMargins(), QMargins());
}

void TestShell::undoKeepsTenStepsAndStartsEnabled()
{
    EditorFixture fixture;
    QVERIFY(fixture.editor.getCmdManager()->isEnabled());
    fixture.editCurve("n.c", {{10.0, 10.0}});
    for (int step = 0; step < 12; ++step) {
        fixture.editor.changeNodeLastType(step % 2 == 0 ? 0 : 2);
    }
    QCOMPARE(fixture.undoAll().size(), 10);
}

void TestShell::everyEditorHasAManagerOfItsOwn()
{
    CurveEditor first(nullptr, QString());
    CurveEditor second(nullptr, QString());
    QVERIFY(first.getCmdManager() != second.getCmdManager());
    QVERIFY(first.getCmdManager() != &curve_editor::CurveCommandsManager::instance());
}

void TestShell::undoLevelsAndTheUndoSwitchReachTheManager()
{
    EditorFixture fixture;
    fixture.editCurve("n.c", {{10.0, 10.0}});
    fixture.editor.setUndoLevels(2);
    for (const int behaviour : {0, 2, 3}) {
        fixture.editor.changeNodeLastType(behaviour);
    }
    QCOMPARE(fixture.undoSteps().size(), 2);
    fixture.editor.clearStack();
    QVERIFY(fixture.undoSteps().isEmpty());
    fixture.editor.setLastNodeLoop();
    fixture.editor.setEnableUndo(false);
    QVERIFY(fixture.undoSteps().isEmpty());
    fixture.editor.setLastNodeZero();
    QVERIFY(fixture.undoSteps().isEmpty());
    fixture.editor.setEnableUndo(true);
    fixture.editor.setLastNodeLoop();
    QCOMPARE(fixture.undoSteps().size(), 1);
}

void TestShell::escapeLeavesTheDialogOpen()
{
    EditorFixture fixture;
    QSignalSpy finished(&fixture.editor, SIGNAL(finished(int)));
    QTest::keyClick(&fixture.editor, Qt::Key_Escape);
    QTest::keyClick(fixture.editor.checkListsEditing, Qt::Key_Escape);
    fixture.editor.reject();
    QVERIFY(fixture.editor.isVisible());
    QCOMPARE(finished.count(), 0);
}

void TestShell::closingClosesAndTellsNothing()
{
    EditorFixture fixture;
    QSignalSpy closed(&fixture.editor, SIGNAL(closed()));
    QVERIFY(fixture.editor.close());
    QVERIFY(!fixture.editor.isVisible());
    QCOMPARE(closed.count(), 0);
}

void TestShell::stateSurvivesHiding()
{
    EditorFixture fixture;
    fixture.editCurve("n.c", {{10.0, 10.0}, {20.0, 20.0}});
    fixture.selectKeys("n.c", {1});
    fixture.editor.setAddKeyMode();
    fixture.editor.close();
    fixture.editor.show();
    QCOMPARE(fixture.editor.getSelection(), QStringList("n.c"));
    QCOMPARE(fixture.selectionOf("n.c").selectedPoints.size(), 1);
    QCOMPARE(fixture.editor.getUserMode(), CurveEditor::ADD);
}

void TestShell::aKeyInTheDialogReachesTheCanvas()
{
    EditorFixture fixture;
    fixture.editCurve("n.c", {{10.0, 10.0}, {20.0, 20.0}, {30.0, 30.0}});
    fixture.selectKeys("n.c", {0});
    QTest::keyClick(&fixture.editor, Qt::Key_Right);
    QCOMPARE(fixture.selectionOf("n.c").currentPoint, fixture.curves.at("n.c")->spline.at(1));
}

void TestShell::aKeyOnTheCanvasActsOnce()
{
    EditorFixture fixture;
    LentCurve& curve = fixture.editCurve("n.c", {{10.0, 10.0}, {20.0, 20.0}, {30.0, 30.0}});
    fixture.selectKeys("n.c", {0});
    fixture.canvas().setFocus();
    QVERIFY(fixture.canvas().hasFocus());
    QTest::keyClick(&fixture.canvas(), Qt::Key_Right);
    QCOMPARE(fixture.selectionOf("n.c").currentPoint, curve.spline.at(1));

    QSignalSpy undone(&fixture.editor, SIGNAL(curveEditorUndo()));
    QTest::keyClick(&fixture.canvas(), Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(undone.count(), 1);
}

void TestShell::lettingAModifierGoInTheDialogReachesTheCanvas()
{
    EditorFixture fixture;
    QTest::keyPress(&fixture.editor, Qt::Key_Alt, Qt::AltModifier);
    QCOMPARE(fixture.editor.getCurrentMode(), CurveEditor::ZOOM);
    QTest::keyRelease(&fixture.editor, Qt::Key_Alt);
    QCOMPARE(fixture.editor.getCurrentMode(), CurveEditor::DEFAULT);
}

void TestShell::returnInANumberFieldClicksNoButton()
{
    EditorFixture fixture;
    fixture.editCurve("n.e", {{10.0, 10.0}}, "t");
    QSignalSpy pressed(fixture.editor.deleteCurve, SIGNAL(pressed()));
    auto* const field = fixture.editor.findChild<CustomEditLine*>("posX");
    field->setEnabled(true);
    field->setFocus();
    QTest::keyClick(field, Qt::Key_Return);
    QCOMPARE(pressed.count(), 0);
    QVERIFY(fixture.editor.isVisible());
}

void TestShell::keysAreSelectedAllAndNoneAndDeleted()
{
    EditorFixture fixture;
    LentCurve& curve = fixture.editCurve("n.c", {{10.0, 10.0}, {20.0, 20.0}, {30.0, 30.0}});
    RefreshCounter refreshes(fixture.editor);
    menuAction(fixture.editor, "Keys/Select All")->trigger();
    QCOMPARE(fixture.selectionOf("n.c").selectedPoints.size(), 3);
    QVERIFY(refreshes.taken() >= 1);
    QVERIFY(menuAction(fixture.editor, "Keys/Delete Selected")->isEnabled());
    menuAction(fixture.editor, "Keys/Select None")->trigger();
    QCOMPARE(fixture.selectionOf("n.c").selectedPoints.size(), 0);
    fixture.selectKeys("n.c", {0, 2});
    fixture.editor.refreshEditor();
    menuAction(fixture.editor, "Keys/Delete Selected")->trigger();
    QCOMPARE(curve.spline.getControlPointsNumber(), 1u);
    QVERIFY(!menuAction(fixture.editor, "Keys/Delete Selected")->isEnabled());
    QCOMPARE(fixture.undoAll().size(), 3);
    QCOMPARE(curve.spline.getControlPointsNumber(), 3u);
}

void TestShell::tangentsAreBrokenUnifiedAndMadeFlat()
{
    EditorFixture fixture;
    LentCurve& curve = fixture.editCurve(
        "n.c", {{10.0, 10.0, zk_spline::bezier}, {20.0, 20.0, zk_spline::bezier}});
    PointInfo* const key = curve.spline.at(0);
    curve.spline.setTanRight(key, 2.0);
    fixture.selectKeys("n.c", {0});
    fixture.editor.unifyTangents();
    QVERIFY(key->unifiedTangents);
    fixture.editor.breakTangents();
    QVERIFY(!key->unifiedTangents);
    fixture.editor.flatTangents();
    QCOMPARE(key->bezier.tangentRight, 0.0);
}

void TestShell::theExpressionLineShowsTheExpression()
{
    EditorFixture fixture;
    fixture.editCurve("n.e", {}, "t");
    QCOMPARE(fixture.editor.commandLine->text(), QString("t"));
    fixture.editor.commandLine->setText("x");
    fixture.editor.refreshCommandLine();
    QCOMPARE(fixture.editor.commandLine->text(), QString("t"));
    fixture.editCurve("n.c", {{10.0, 10.0}});
    QCOMPARE(fixture.editor.commandLine->text(), QString());
}

void TestShell::theCanvasAnnouncesAChangedExpressionByARefresh()
{
    EditorFixture fixture;
    fixture.editCurve("n.c", {{10.0, 10.0}});
    RefreshCounter refreshes(fixture.editor);
    emit fixture.logic().changeCommandLine();
    QCOMPARE(refreshes.taken(), 1);
}

void TestShell::aSelectionInTheTreeBecomesTheEditingSet()
{
    EditorFixture fixture;
    fixture.addCurve("n.c", {{10.0, 10.0}});
    EditingTree* const tree = fixture.editor.checkListsEditing;
    tree->setCurrentItem(tree->findTreeItem("n.c"));
    QCOMPARE(fixture.editor.getSelection(), QStringList("n.c"));
    QCOMPARE(fixture.logic().editingCurveNames(), QStringList("n.c"));
}

void TestShell::deleteInTheTreeRemovesFromEditing()
{
    EditorFixture fixture;
    fixture.editCurve("n.c", {{10.0, 10.0}});
    QTest::keyClick(fixture.editor.checkListsEditing, Qt::Key_Delete);
    QVERIFY(!fixture.logic().findCurve("n.c"));
    fixture.editor.getCmdManager()->undo();
    QVERIFY(fixture.logic().findCurve("n.c"));
}

void TestShell::theTreesMenuRemovesFromEditing()
{
    EditorFixture fixture;
    fixture.editCurve("n.c", {{10.0, 10.0}});
    auto* const menu = fixture.editor.findChild<ControlMenu2*>();
    QVERIFY(menu);
    actionTitled(menu->actions(), "Remove from editing list")->trigger();
    QVERIFY(!fixture.logic().findCurve("n.c"));
}

QTEST_MAIN(TestShell)
#include "test_shell.moc"
