#include "support/FailOnWarning.h"
#include "support/SplineState.h"
#include "widgets/KeysDialogFixture.h"

#include <functional>
#include <memory>

namespace {

const QString changeStep("Change Control Points Values");
const QString moveStep("Move Control Points");
const QString selectStep("Select Control Points");
const QString typeStep("Set Control Points Type");

} // namespace

/// What comes between the fields and their user: keys that change without the dialog being told,
/// and whatever happens in the middle of a drag or of typing.
class TestKeysDialogIntrusions : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void cleanup() { fixture.reset(); }

    void aKeyThatTheHostMovedIsEditedFromWhereItIs_data();
    void aKeyThatTheHostMovedIsEditedFromWhereItIs();
    void aKeyThatAnotherEditorMovedIsEditedFromWhereItIs();
    void aTextBegunIsNotSentToAKeySelectedUnnoticed_data();
    void aTextBegunIsNotSentToAKeySelectedUnnoticed();
    void aTextBegunOutlastsWhatTheHostDoesToTheSameKey();
    void whatIsTypedAfterAClickReplacesANumberShownMeanwhile();
    void aClickWithAnUnsteadyHandRoundsNothing();
    void theWheelLeavesDotsAlone();
    void theWheelStartsFromTheKeyShown();
    void aKeySelectedByTheHostWhileItHearsOfReturnStaysAsItIs();
    void continuityThatTheKeyShownDoesNotTakeIsNotGivenToTheOthers();
    void aDragIsAStepBeforeAnythingElseChanges_data();
    void aDragIsAStepBeforeAnythingElseChanges();
    void undoInMidDragTakesTheDragBack_data();
    void undoInMidDragTakesTheDragBack();
    void aDragCanBeEndedInTheSlotThatHearsOfIt();
    void aStepBegunByTheProgramCanBeEnded();

private:
    void intrude(const QString& what, CustomEditLine* field);

    std::unique_ptr<KeysDialogFixture> fixture;
    CurveKeysDialog* dialog = nullptr;
    CurveEditor* editor = nullptr;
    LentCurve* curve = nullptr; ///< owned by the fixture
};

void TestKeysDialogIntrusions::init()
{
    failOnUnexpectedWarning();
    fixture = std::make_unique<KeysDialogFixture>();
    dialog = &fixture->dialog;
    editor = &fixture->editor;
    curve = &fixture->editThreeKeys();
}

/// The field shows 10, the key has 30 by now.
void TestKeysDialogIntrusions::aKeyThatTheHostMovedIsEditedFromWhereItIs_data()
{
    QTest::addColumn<QString>("way");
    QTest::addColumn<double>("value");
    QTest::newRow("drag") << "drag" << 30.0 + 31.0 * 0.5;
    QTest::newRow("Return") << "Return" << 30.0;
    QTest::newRow("wheel") << "wheel" << 30.0 - 31.0 * static_cast<double>(0.005F);
}

void TestKeysDialogIntrusions::aKeyThatTheHostMovedIsEditedFromWhereItIs()
{
    QFETCH(QString, way);
    fixture->pick({{10.0, 10.0}});
    curve->spline.setPos(curve->spline.at(0), 30.0);
    CustomEditLine* const line = dialog->posY;
    if (way == "drag") {
        fixture->pressField(line);
        fixture->dragField(line, 100);
        fixture->releaseField(line);
    } else if (way == "wheel") {
        fixture->turnWheel(line, 120);
    } else {
        QApplication::setActiveWindow(dialog);
        line->setFocus();
        QTest::keyClick(line, Qt::Key_Return);
    }
    QTEST(curve->spline.at(0)->value, "value");
}

void TestKeysDialogIntrusions::aKeyThatAnotherEditorMovedIsEditedFromWhereItIs()
{
    KeysDialogFixture other;
    other.editor.addCurve("n", "c", Qt::green, 0.0f, &curve->spline, &curve->expression, -1000.0f,
                          1000.0f, false, true);
    other.editor.setDefaultSelected("n", "c");
    fixture->pick({{10.0, 10.0}});
    other.pick({{10.0, 10.0}});
    other.type(other.dialog.posY, "30");
    QApplication::setActiveWindow(dialog);
    dialog->posY->setFocus();
    QTest::keyClick(dialog->posY, Qt::Key_Return);
    QCOMPARE(curve->spline.at(0)->value, 30.0);
}

/// The host has selected another key and told nobody.
void TestKeysDialogIntrusions::aTextBegunIsNotSentToAKeySelectedUnnoticed_data()
{
    QTest::addColumn<bool>("returns");
    QTest::newRow("leaving the field") << false;
    QTest::newRow("Return") << true;
}

void TestKeysDialogIntrusions::aTextBegunIsNotSentToAKeySelectedUnnoticed()
{
    QFETCH(bool, returns);
    fixture->pick({{10.0, 10.0}});
    fixture->write(dialog->posY, "35");
    fixture->selectKeys("n.c", {1});
    if (returns) {
        QTest::keyClick(dialog->posY, Qt::Key_Return);
    } else {
        dialog->posY->clearFocus();
    }
    QCOMPARE(curve->spline.at(0)->value, 10.0);
    QCOMPARE(curve->spline.at(1)->value, 20.0);
    QCOMPARE(dialog->posY->text(), QString("20.00"));
}

void TestKeysDialogIntrusions::aTextBegunOutlastsWhatTheHostDoesToTheSameKey()
{
    fixture->pick({{10.0, 10.0}});
    fixture->write(dialog->posY, "3");
    curve->spline.setPos(curve->spline.at(0), 12.0);
    curve->spline.setTime(curve->spline.at(0), 11.0);
    editor->refreshEditor();
    QTest::keyClicks(dialog->posY, "5");
    curve->spline.setTime(curve->spline.at(0), 12.0);
    dialog->posY->clearFocus();
    QCOMPARE(curve->spline.at(0)->value, 35.0);
}

/// The first click selects the whole text, which the first digit is to replace.
void TestKeysDialogIntrusions::whatIsTypedAfterAClickReplacesANumberShownMeanwhile()
{
    fixture->pick({{10.0, 10.0}});
    QApplication::setActiveWindow(dialog);
    QTest::mouseClick(dialog->posY, Qt::LeftButton);
    QCOMPARE(dialog->posY->selectedText(), QString("10.00"));
    curve->spline.setPos(curve->spline.at(0), 12.0);
    editor->refreshEditor();
    QTest::keyClicks(dialog->posY, "5");
    QCOMPARE(dialog->posY->text(), QString("5"));
}

/// Values have more digits than are shown.
void TestKeysDialogIntrusions::aClickWithAnUnsteadyHandRoundsNothing()
{
    curve->spline.setPos(curve->spline.at(0), 10.0049);
    fixture->pick({{10.0, 10.0}, {20.0, 20.0}});
    QCOMPARE(dialog->posY->text(), QString("..."));
    const SplineState before(curve->spline);
    for (CustomEditLine* const line : {dialog->posY, editor->positionY(), dialog->tension}) {
        fixture->pressField(line);
        fixture->dragField(line, 0);
        fixture->releaseField(line);
    }
    QVERIFY(SplineState(curve->spline) == before);
}

void TestKeysDialogIntrusions::theWheelLeavesDotsAlone()
{
    fixture->pick({{10.0, 10.0}, {20.0, 20.0}});
    const SplineState before(curve->spline);
    fixture->turnWheel(dialog->posY, 120);
    fixture->turnWheel(dialog->posY, -120);
    QCOMPARE(dialog->posY->text(), QString("..."));
    QVERIFY(SplineState(curve->spline) == before);
}

void TestKeysDialogIntrusions::theWheelStartsFromTheKeyShown()
{
    fixture->pick({{10.0, 10.0}});
    fixture->pressField(dialog->posY);
    fixture->releaseField(dialog->posY);
    fixture->pick({{20.0, 20.0}});
    fixture->turnWheel(dialog->posY, 120);
    QCOMPARE(curve->spline.at(1)->value, 20.0 - 21.0 * static_cast<double>(0.005F));
}

/// Return sends what was typed and then what the field shows, but not to another key.
void TestKeysDialogIntrusions::aKeySelectedByTheHostWhileItHearsOfReturnStaysAsItIs()
{
    curve->spline.setPos(curve->spline.at(1), 20.0049);
    fixture->pick({{10.0, 10.0}});
    fixture->write(dialog->posY, "20");
    connect(editor, &CurveEditor::curveHasChanged, editor, [this] {
        fixture->selectKeys("n.c", {1});
        editor->getFunctionEditor()->refreshKeysDialog();
    });
    QTest::keyClick(dialog->posY, Qt::Key_Return);
    QCOMPARE(curve->spline.at(0)->value, 20.0);
    QCOMPARE(curve->spline.at(1)->value, 20.0049);
}

/// The first key is unified and takes none; the others must not get its own.
void TestKeysDialogIntrusions::continuityThatTheKeyShownDoesNotTakeIsNotGivenToTheOthers()
{
    curve->spline.at(1)->tcb.continuity = 0.75;
    fixture->pick({{10.0, 10.0}});
    editor->unifyTangents();
    fixture->selectKeys("n.c", {0, 1});
    editor->refreshEditor();
    QVERIFY(curve->spline.at(0)->unifiedTangents);
    QVERIFY(!curve->spline.at(1)->unifiedTangents);
    fixture->type(dialog->continuity, "0.5");
    QCOMPARE(curve->spline.at(1)->tcb.continuity, 0.75);
    QCOMPARE(dialog->continuity->text(), QString("..."));
}

void TestKeysDialogIntrusions::aDragIsAStepBeforeAnythingElseChanges_data()
{
    QTest::addColumn<QString>("intrusion");
    QTest::addColumn<QString>("line");
    QTest::addColumn<QStringList>("steps");
    for (const QString line : {"tension", "posY"}) {
        const QString step = line == "posY" ? moveStep : changeStep;
        const auto row = [&](const char* name, const QStringList& steps) {
            QTest::addRow("%s, %s", name, qPrintable(line)) << name << line << steps;
        };
        row("next key", {selectStep, step, selectStep});
        row("type", {typeStep, step, selectStep});
        row("end", {step, selectStep});
        row("no key", {step, selectStep});
        row("another curve", {step, selectStep});
        row("window left", {step, selectStep});
        row("lost release", {step, selectStep});
        row("hidden", {step, selectStep});
        row("a behaviour", {"Set Last Node Behaviour", step, selectStep});
        row("deleted keys", {"Delete Control Points", step, selectStep});
    }
}

void TestKeysDialogIntrusions::aDragIsAStepBeforeAnythingElseChanges()
{
    QFETCH(QString, intrusion);
    QFETCH(QString, line);
    QFETCH(QStringList, steps);
    fixture->addCurve("n.d", {{12.0, 30.0}});
    const SplineState before(curve->spline);
    fixture->pick({{10.0, 10.0}});
    CustomEditLine* const field = dialog->findChild<CustomEditLine*>(line);
    fixture->pressField(field);
    fixture->dragField(field, 50);
    intrude(intrusion, field);
    const SplineState after(curve->spline);
    fixture->dragField(field, 80);
    fixture->releaseField(field);
    QVERIFY(SplineState(curve->spline) == after);
    QCOMPARE(fixture->undoSteps().mid(0, steps.size()), steps);
    editor->selectNodes(QStringList("n.c"));
    fixture->undoAll();
    QVERIFY(SplineState(curve->spline) == before);
    while (editor->getCmdManager()->redo()) {
    }
    QVERIFY(SplineState(curve->spline) == after);
}

void TestKeysDialogIntrusions::undoInMidDragTakesTheDragBack_data()
{
    QTest::addColumn<QString>("line");
    QTest::newRow("tension") << "tension";
    QTest::newRow("value") << "posY";
}

void TestKeysDialogIntrusions::undoInMidDragTakesTheDragBack()
{
    QFETCH(QString, line);
    const SplineState before(curve->spline);
    fixture->pick({{10.0, 10.0}});
    CustomEditLine* const field = dialog->findChild<CustomEditLine*>(line);
    fixture->pressField(field);
    fixture->dragField(field, 50);
    const SplineState dragged(curve->spline);
    QVERIFY(!(dragged == before));
    editor->getCmdManager()->undo();
    QVERIFY(SplineState(curve->spline) == before);
    fixture->dragField(field, 80);
    fixture->releaseField(field);
    QVERIFY(SplineState(curve->spline) == before);
    editor->getCmdManager()->redo();
    QVERIFY(SplineState(curve->spline) == dragged);
}

/// In the host's slot, at the first step of the drag.
void TestKeysDialogIntrusions::aDragCanBeEndedInTheSlotThatHearsOfIt()
{
    fixture->pick({{10.0, 10.0}});
    const SplineState before(curve->spline);
    connect(editor, &CurveEditor::curveHasChanged, editor, [this] { dialog->endGesture(); });
    fixture->pressField(dialog->posY);
    fixture->dragField(dialog->posY, 50);
    const SplineState after(curve->spline);
    fixture->dragField(dialog->posY, 80);
    fixture->releaseField(dialog->posY);
    QVERIFY(SplineState(curve->spline) == after);
    QCOMPARE(fixture->undoSteps(), QStringList({moveStep, selectStep}));
    fixture->undoAll();
    QVERIFY(SplineState(curve->spline) == before);
}

void TestKeysDialogIntrusions::aStepBegunByTheProgramCanBeEnded()
{
    fixture->pick({{10.0, 10.0}});
    dialog->startChangePoints();
    dialog->valueChanged(2.0, dialog->tension);
    dialog->endGesture();
    dialog->endGesture();
    QCOMPARE(fixture->undoSteps(), QStringList({changeStep, selectStep}));
}

void TestKeysDialogIntrusions::intrude(const QString& what, CustomEditLine* field)
{
    if (what == "next key") {
        dialog->clickedNext();
    } else if (what == "type") {
        dialog->changeNodeType(2);
    } else if (what == "end") {
        dialog->endGesture();
    } else if (what == "no key") {
        fixture->selectionOf("n.c").clear();
        editor->refreshEditor();
    } else if (what == "a behaviour") {
        editor->setLastNodeLoop();
    } else if (what == "deleted keys") {
        editor->deleteSelectedKeys();
    } else if (what == "another curve") {
        editor->selectNodes(QStringList("n.d"));
    } else if (what == "window left") {
        QEvent left(QEvent::WindowDeactivate);
        QApplication::sendEvent(field, &left);
    } else if (what == "lost release") {
        KeysDialogFixture::sendMouse(field, QEvent::MouseMove, 100, Qt::NoButton, Qt::NoButton);
    } else {
        dialog->hide();
        dialog->show();
    }
}

QTEST_MAIN(TestKeysDialogIntrusions)
#include "test_keys_dialog_intrusions.moc"
