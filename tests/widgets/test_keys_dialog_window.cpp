#include "editor/EditorParts.h"
#include "support/FailOnWarning.h"
#include "widgets/KeysDialogFixture.h"

#include <memory>

namespace {

QToolButton* buttonOf(const CurveEditor& editor)
{
    return toolButton(editor, "Other", 2);
}

} // namespace

/// When the dialog is seen, and which of its fields an editing set opens.
class TestKeysDialogWindow : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void theButtonShowsTheDialogAndClosesIt();
    void closingTheDialogUnchecksTheButton_data();
    void closingTheDialogUnchecksTheButton();
    void closingTheEditorClosesTheDialog();
    void theSlotsOfTheButtonLeaveTheDialog();
    void theCanvasCanAskForTheDialog();
    void eachKindOfSetOpensItsFields_data();
    void eachKindOfSetOpensItsFields();
    void theListsShowTheBehavioursOfTheFirstCurve();
    void anEmptySetClosesWhatWasOpen();
    void aDragOnTheCanvasShowsValuesAndOpensNothing();
    void onlyThreeKeysOnTheCanvasOpenFields_data();
    void onlyThreeKeysOnTheCanvasOpenFields();
    void aDeletedSelectionIsGoneFromTheDialog();
};

void TestKeysDialogWindow::theButtonShowsTheDialogAndClosesIt()
{
    EditorFixture fixture;
    const CurveKeysDialog* const dialog = fixture.canvas().keysDialog();
    QToolButton* const button = buttonOf(fixture.editor);
    QTest::mouseClick(button, Qt::LeftButton);
    QVERIFY(dialog->isVisible());
    QVERIFY(button->isChecked());
    QTest::mouseClick(button, Qt::LeftButton);
    QVERIFY(!dialog->isVisible());
    QVERIFY(!button->isChecked());
}

void TestKeysDialogWindow::closingTheDialogUnchecksTheButton_data()
{
    QTest::addColumn<bool>("byEscape");
    QTest::newRow("Escape") << true;
    QTest::newRow("the window's close button") << false;
}

void TestKeysDialogWindow::closingTheDialogUnchecksTheButton()
{
    QFETCH(bool, byEscape);
    KeysDialogFixture fixture;
    QVERIFY(buttonOf(fixture.editor)->isChecked());
    if (byEscape) {
        QTest::keyClick(&fixture.dialog, Qt::Key_Escape);
    } else {
        fixture.dialog.close();
    }
    QVERIFY(!fixture.dialog.isVisible());
    QVERIFY(!buttonOf(fixture.editor)->isChecked());
    QVERIFY(fixture.editor.isVisible());
}

void TestKeysDialogWindow::closingTheEditorClosesTheDialog()
{
    KeysDialogFixture fixture;
    fixture.editor.close();
    QVERIFY(!fixture.dialog.isVisible());
    QVERIFY(!fixture.editor.isVisible());
    QVERIFY(!buttonOf(fixture.editor)->isChecked());
}

void TestKeysDialogWindow::theSlotsOfTheButtonLeaveTheDialog()
{
    EditorFixture fixture;
    fixture.editor.enableShowKeyPptiesBtn();
    QVERIFY(buttonOf(fixture.editor)->isChecked());
    QVERIFY(!fixture.canvas().keysDialog()->isVisible());
    fixture.editor.showKeyProperties();
    fixture.editor.disableShowKeyPptiesBtn();
    QVERIFY(!buttonOf(fixture.editor)->isChecked());
    QVERIFY(fixture.canvas().keysDialog()->isVisible());
}

void TestKeysDialogWindow::theCanvasCanAskForTheDialog()
{
    EditorFixture fixture;
    emit fixture.logic().showKeyProperties();
    QVERIFY(fixture.canvas().keysDialog()->isVisible());
}

void TestKeysDialogWindow::eachKindOfSetOpensItsFields_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<bool>("fields");
    QTest::addColumn<bool>("behaviours");
    QTest::newRow("no curve") << -1 << false << false;
    QTest::newRow("spline") << 0 << true << true;
    QTest::newRow("expression") << 1 << false << false;
    QTest::newRow("spline plus expression") << 2 << true << true;
    QTest::newRow("spline and expression") << 3 << false << true;
}

void TestKeysDialogWindow::eachKindOfSetOpensItsFields()
{
    QFETCH(int, type);
    QFETCH(bool, fields);
    QFETCH(bool, behaviours);
    KeysDialogFixture fixture;
    LentCurve& curve = fixture.addCurve("n.c", {{10.0, 10.0}, {20.0, 20.0}},
                                        type == 1 || type == 2 ? "1" : nullptr);
    curve.spline.setAddFunc(type == 2);
    fixture.addCurve("n.e", {}, "2");
    if (type >= 0) {
        fixture.editor.selectNodes(type == 3 ? QStringList({"n.c", "n.e"}) : QStringList("n.c"));
        QCOMPARE(fixture.logic().editingType(), type);
    }
    fixture.selectKeys("n.c", {0});
    fixture.editor.refreshEditor();
    QCOMPARE(fixture.dialog.tension->isEnabled(), fields);
    QCOMPARE(fixture.editor.positionX()->isEnabled(), fields);
    QCOMPARE(fixture.dialog.nodeFirst->isEnabled(), behaviours);
    QCOMPARE(fixture.dialog.nodeLast->isEnabled(), behaviours);
}

void TestKeysDialogWindow::theListsShowTheBehavioursOfTheFirstCurve()
{
    KeysDialogFixture fixture;
    LentCurve& curve = fixture.editCurve("n.c", {{10.0, 10.0}, {20.0, 20.0}});
    for (int behaviour = 0; behaviour < 5; ++behaviour) {
        curve.spline.setFirstNodeType(static_cast<SplineBase::nodeType>(behaviour));
        curve.spline.setLastNodeType(static_cast<SplineBase::nodeType>(4 - behaviour));
        fixture.editor.refreshEditor();
        // A first behaviour that is not offered leaves its list blank.
        QCOMPARE(fixture.dialog.nodeFirst->currentIndex(), behaviour < 2 ? behaviour : -1);
        QCOMPARE(fixture.dialog.nodeLast->currentIndex(), 4 - behaviour);
    }
}

void TestKeysDialogWindow::anEmptySetClosesWhatWasOpen()
{
    KeysDialogFixture fixture;
    fixture.editCurve("n.c", {{10.0, 10.0}, {20.0, 20.0}});
    fixture.pick({{10.0, 10.0}});
    QVERIFY(fixture.dialog.posX->isEnabled());
    fixture.editor.selectNodes(QStringList());
    QVERIFY(!fixture.dialog.posX->isEnabled());
    QVERIFY(!fixture.dialog.nodeLast->isEnabled());
    QVERIFY(fixture.editor.positionX()->text().isEmpty());
}

void TestKeysDialogWindow::aDragOnTheCanvasShowsValuesAndOpensNothing()
{
    KeysDialogFixture fixture;
    fixture.editCurve("n.c", {{10.0, 10.0}, {20.0, 20.0}});
    fixture.editor.setShowTime();
    fixture.press(EditorFixture::pixel(10.0, 10.0));
    fixture.dialog.easeTo->setEnabled(false);
    fixture.moveTo(EditorFixture::pixel(12.0, 13.0));
    QCOMPARE(fixture.dialog.posX->text(), QString("12.00"));
    QCOMPARE(fixture.editor.positionY()->text(), QString("13.00"));
    QVERIFY(!fixture.dialog.easeTo->isEnabled());
    fixture.release(EditorFixture::pixel(12.0, 13.0));
    QVERIFY(fixture.dialog.easeTo->isEnabled());
}

void TestKeysDialogWindow::onlyThreeKeysOnTheCanvasOpenFields_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<bool>("opens");
    QTest::newRow("T") << int(Qt::Key_T) << true;
    QTest::newRow("C") << int(Qt::Key_C) << true;
    QTest::newRow("Tab") << int(Qt::Key_Tab) << true;
    QTest::newRow("A") << int(Qt::Key_A) << false;
    QTest::newRow("Right") << int(Qt::Key_Right) << false;
}

void TestKeysDialogWindow::onlyThreeKeysOnTheCanvasOpenFields()
{
    QFETCH(int, code);
    QFETCH(bool, opens);
    KeysDialogFixture fixture;
    fixture.editCurve("n.c", {{10.0, 10.0}, {20.0, 20.0}});
    fixture.pick({{10.0, 10.0}});
    fixture.dialog.easeTo->setEnabled(false);
    QKeyEvent event(QEvent::KeyPress, code, Qt::NoModifier);
    fixture.canvas().keyPressEvent(&event);
    QCOMPARE(fixture.dialog.easeTo->isEnabled(), opens);
    QCOMPARE(fixture.dialog.node->text(), code == Qt::Key_Right ? "1" : "0");
}

void TestKeysDialogWindow::aDeletedSelectionIsGoneFromTheDialog()
{
    KeysDialogFixture fixture;
    fixture.editCurve("n.c", {{10.0, 10.0}, {20.0, 20.0}});
    fixture.pick({{10.0, 10.0}});
    fixture.typeKey(Qt::Key_Delete);
    QVERIFY(!fixture.dialog.posX->isEnabled());
    QVERIFY(fixture.dialog.node->text().isEmpty());
    fixture.editor.getCmdManager()->undo();
    QCOMPARE(fixture.dialog.node->text(), QString("0"));
}

QTEST_MAIN(TestKeysDialogWindow)
#include "test_keys_dialog_window.moc"
