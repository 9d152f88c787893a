#include "widgets/EditLineFixture.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDialog>
#include <QMouseEvent>
#include <QWheelEvent>

namespace {

void sendMouse(QWidget& widget, const QEvent::Type& type, const Qt::MouseButton& button,
               const Qt::MouseButtons& buttons, const QPointF& global)
{
    QMouseEvent event(type, QPointF(5.0, 5.0), QPointF(5.0, 5.0), global, button, buttons,
                      Qt::NoModifier);
    QCoreApplication::sendEvent(&widget, &event);
}

void press(QWidget& widget, const double& y, const Qt::MouseButton& button = Qt::LeftButton)
{
    sendMouse(widget, QEvent::MouseButtonPress, button, button, QPointF(100.0, y));
}

void moveTo(QWidget& widget, const double& y, const Qt::MouseButton& button = Qt::LeftButton)
{
    sendMouse(widget, QEvent::MouseMove, Qt::NoButton, button, QPointF(100.0, y));
}

void release(QWidget& widget, const double& y, const Qt::MouseButton& button = Qt::LeftButton)
{
    sendMouse(widget, QEvent::MouseButtonRelease, button, Qt::NoButton, QPointF(100.0, y));
}

void turnWheel(QWidget& widget, const QPoint& angle,
               const Qt::KeyboardModifiers& modifiers = Qt::NoModifier)
{
    QWheelEvent event(QPointF(5.0, 5.0), QPointF(105.0, 105.0), QPoint(), angle, Qt::NoButton,
                      modifiers, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&widget, &event);
}

} // namespace

class TestCustomEditLineMouse : public QObject, private EditLineFixture
{
    Q_OBJECT

private slots:
    void init();

    void cleanup() { close(); }

    void draggingChangesTheValueByHalfAPercentAPixel_data();
    void draggingChangesTheValueByHalfAPercentAPixel();
    void theStepOfOnePixelIsAFloat();
    void eachMoveStartsFromThePressAndNotFromTheLastMove();
    void aClickWithAnUnsteadyHandIsNoDrag();
    void aDragOverAnUnendingNumberComesBackToTheBound();
    void aMoveWithoutAButtonTellsOfALostRelease();
    void aDragCanBeEndedUnderAHeldButton();
    void aDragWithTheMiddleButtonPastesNothing();
    void pressAndReleaseAreToldAroundADrag();
    void aMoveWithoutAPressChangesNothing();
    void aDragWithTheRightButtonChangesNothing();
    void theMiddleButtonDragsAsTheLeftOneDoes();
    void onlyTheFirstClickSelectsEverythingUntilTheFocusIsLost();
    void theRightButtonNeitherSelectsNorUsesUpTheFirstClick();
    void turningTheWheelAwayFromTheUserLowersTheValue_data();
    void turningTheWheelAwayFromTheUserLowersTheValue();
    void furtherStepsOfTheWheelGiveTheSameValueUntilTheNextPress();
    void beforeTheFirstPressEachStepOfTheWheelStartsFromTheText();
    void aFieldThatBeginsAnewHasNotBeenPressed();
    void theWheelChangesNothingWhereNoValueIsShown_data();
    void theWheelChangesNothingWhereNoValueIsShown();
    void aSidewaysTurnChangesNothing();
    void aWheelEventWithoutATurnChangesNothing();
    void aValueSetByMouseOrWheelIsNotSentAgainOnLeaving();
    void aFieldDisabledOrHiddenDuringADragEndsIt_data();
    void aFieldDisabledOrHiddenDuringADragEndsIt();
    void aMenuOrAModalDialogDuringADragEndsIt_data();
    void aMenuOrAModalDialogDuringADragEndsIt();
};

void TestCustomEditLineMouse::init()
{
    failOnUnexpectedWarning();
    open();
}

void TestCustomEditLineMouse::draggingChangesTheValueByHalfAPercentAPixel_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("pixelsUp");
    QTest::addColumn<double>("value");
    QTest::newRow("from 0, 100 up") << "0" << 100.0 << 0.5;
    QTest::newRow("from 10, 100 up") << "10" << 100.0 << 15.5;
    QTest::newRow("from -10, 100 up") << "-10" << 100.0 << -4.5;
    QTest::newRow("from 10, 100 down") << "10" << -100.0 << 4.5;
    QTest::newRow("held to the upper bound") << "10" << 10000.0 << 100.0;
    QTest::newRow("held to the lower bound") << "10" << -10000.0 << -100.0;
    QTest::newRow("from three points") << "..." << 100.0 << 0.5;
    QTest::newRow("from nan") << "nan" << 100.0 << 0.5;
    QTest::newRow("from what no float holds, far down") << "1e300" << -1000.0 << -100.0;
    QTest::newRow("from what no double holds, far down") << "1e400" << -1000.0 << -100.0;
}

void TestCustomEditLineMouse::draggingChangesTheValueByHalfAPercentAPixel()
{
    QFETCH(QString, text);
    QFETCH(double, pixelsUp);
    QFETCH(double, value);
    field->setBounds(-100.0, 100.0);
    field->setText(text);
    press(*field, 500.0);
    moveTo(*field, 500.0 - pixelsUp);
    QCOMPARE(valueSet->count(), 1);
    QCOMPARE(valueSet->first().at(0).toDouble(), value);
    QCOMPARE(valueSet->first().at(1).value<CustomEditLine*>(), field);
    QCOMPARE(field->text(), QString::number(value, 'f', 2));
    QCOMPARE(field->toolTip(), field->text());
    release(*field, 500.0 - pixelsUp);
    QCOMPARE(valueTyped->count(), 0);
}

// Half a percent is taken as a 32-bit float.
void TestCustomEditLineMouse::theStepOfOnePixelIsAFloat()
{
    field->setText(QStringLiteral("0"));
    press(*field, 500.0);
    moveTo(*field, 499.0);
    QCOMPARE(valueSet->first().at(0).toDouble(), 0.004999999888241291);
}

void TestCustomEditLineMouse::eachMoveStartsFromThePressAndNotFromTheLastMove()
{
    field->setText(QStringLiteral("10"));
    press(*field, 500.0);
    moveTo(*field, 450.0);
    moveTo(*field, 400.0);
    QCOMPARE(valueSet->last().at(0).toDouble(), 15.5);
    moveTo(*field, 500.0);
    QCOMPARE(valueSet->last().at(0).toDouble(), 10.0);
}

/// The value has more decimals than are shown; the dots stand for several.
void TestCustomEditLineMouse::aClickWithAnUnsteadyHandIsNoDrag()
{
    for (const QString text : {"10", "..."}) {
        field->setText(text);
        press(*field, 500.0);
        sendMouse(*field, QEvent::MouseMove, Qt::NoButton, Qt::LeftButton, QPointF(103.0, 500.0));
        release(*field, 500.0);
        QCOMPARE(field->text(), text);
    }
    QCOMPARE(valueSet->count(), 0);
}

void TestCustomEditLineMouse::aDragOverAnUnendingNumberComesBackToTheBound()
{
    field->setBounds(-100.0, 100.0);
    field->setText("1e300");
    press(*field, 500.0);
    moveTo(*field, 501.0);
    moveTo(*field, 500.0);
    QCOMPARE(valueSet->last().at(0).toDouble(), 100.0);
}

void TestCustomEditLineMouse::aMoveWithoutAButtonTellsOfALostRelease()
{
    field->setText("10");
    press(*field, 500.0);
    moveTo(*field, 490.0);
    moveTo(*field, 300.0, Qt::NoButton);
    QCOMPARE(released->count(), 1);
    QCOMPARE(field->text(), QString("10.55"));
    moveTo(*field, 200.0);
    QCOMPARE(valueSet->count(), 1);
}

void TestCustomEditLineMouse::aDragCanBeEndedUnderAHeldButton()
{
    field->setText("10");
    press(*field, 500.0);
    moveTo(*field, 490.0);
    field->endDrag();
    field->endDrag();
    QCOMPARE(released->count(), 1);
    moveTo(*field, 300.0);
    QCOMPARE(field->text(), QString("10.55"));
}

/// Where the platform has a selection that the middle button pastes.
void TestCustomEditLineMouse::aDragWithTheMiddleButtonPastesNothing()
{
    QClipboard* const clipboard = QGuiApplication::clipboard();
    if (!clipboard->supportsSelection()) {
        QSKIP("no selection to paste on this platform");
    }
    clipboard->setText("7", QClipboard::Selection);
    field->setText("10");
    press(*field, 500.0, Qt::MiddleButton);
    moveTo(*field, 400.0, Qt::MiddleButton);
    release(*field, 400.0, Qt::MiddleButton);
    QCOMPARE(field->text(), QString("15.50"));
    QVERIFY(!field->isModified());
}

void TestCustomEditLineMouse::pressAndReleaseAreToldAroundADrag()
{
    press(*field, 500.0);
    QCOMPARE(pressed->count(), 1);
    QCOMPARE(released->count(), 0);
    moveTo(*field, 490.0);
    release(*field, 490.0);
    QCOMPARE(pressed->count(), 1);
    QCOMPARE(released->count(), 1);
    moveTo(*field, 480.0, Qt::NoButton);
    QCOMPARE(valueSet->count(), 1);
}

void TestCustomEditLineMouse::aMoveWithoutAPressChangesNothing()
{
    field->setValue(4.0);
    QTest::mouseMove(field, QPoint(20, 5));
    moveTo(*field, 300.0, Qt::NoButton);
    QCOMPARE(field->text(), QStringLiteral("4.00"));
    QCOMPARE(valueSet->count(), 0);
}

void TestCustomEditLineMouse::aDragWithTheRightButtonChangesNothing()
{
    field->setValue(4.0);
    press(*field, 500.0, Qt::RightButton);
    moveTo(*field, 400.0, Qt::RightButton);
    release(*field, 400.0, Qt::RightButton);
    QCOMPARE(field->text(), QStringLiteral("4.00"));
    QCOMPARE(valueSet->count() + pressed->count() + released->count(), 0);
}

void TestCustomEditLineMouse::theMiddleButtonDragsAsTheLeftOneDoes()
{
    field->setText(QStringLiteral("0"));
    press(*field, 500.0, Qt::MiddleButton);
    moveTo(*field, 400.0, Qt::MiddleButton);
    release(*field, 400.0, Qt::MiddleButton);
    QCOMPARE(valueSet->count(), 1);
    QCOMPARE(pressed->count(), 1);
    QCOMPARE(released->count(), 1);
}

void TestCustomEditLineMouse::onlyTheFirstClickSelectsEverythingUntilTheFocusIsLost()
{
    field->setValue(12.0);
    QTest::mouseClick(field, Qt::LeftButton, Qt::NoModifier, QPoint(20, 12));
    QCOMPARE(field->selectedText(), QStringLiteral("12.00"));
    QTest::mouseClick(field, Qt::LeftButton, Qt::NoModifier, QPoint(20, 12));
    QVERIFY(!field->hasSelectedText());
    window->other.setFocus();
    field->setFocus();
    QTest::mouseClick(field, Qt::LeftButton, Qt::NoModifier, QPoint(20, 12));
    QCOMPARE(field->selectedText(), QStringLiteral("12.00"));
}

void TestCustomEditLineMouse::theRightButtonNeitherSelectsNorUsesUpTheFirstClick()
{
    field->setContextMenuPolicy(Qt::NoContextMenu);
    field->setValue(12.0);
    QTest::mouseClick(field, Qt::RightButton, Qt::NoModifier, QPoint(20, 12));
    QVERIFY(!field->hasSelectedText());
    QTest::mouseClick(field, Qt::LeftButton, Qt::NoModifier, QPoint(20, 12));
    QVERIFY(field->hasSelectedText());
}

void TestCustomEditLineMouse::turningTheWheelAwayFromTheUserLowersTheValue_data()
{
    QTest::addColumn<QPoint>("angle");
    QTest::addColumn<double>("value");
    const double step = 11.0 * 0.004999999888241291;
    QTest::newRow("away") << QPoint(0, 120) << 10.0 - step;
    QTest::newRow("towards") << QPoint(0, -120) << 10.0 + step;
    QTest::newRow("a fine turn counts as a whole one") << QPoint(0, 1) << 10.0 - step;
    QTest::newRow("delivered sideways, away") << QPoint(120, 0) << 10.0 - step;
    QTest::newRow("delivered sideways, towards") << QPoint(-120, 0) << 10.0 + step;
}

void TestCustomEditLineMouse::turningTheWheelAwayFromTheUserLowersTheValue()
{
    QFETCH(QPoint, angle);
    QFETCH(double, value);
    field->setText(QStringLiteral("10"));
    press(*field, 500.0);
    release(*field, 500.0);
    turnWheel(*field, angle, angle.y() == 0 ? Qt::AltModifier : Qt::NoModifier);
    QCOMPARE(valueSet->count(), 1);
    QCOMPARE(valueSet->first().at(0).toDouble(), value);
    QCOMPARE(field->text(), QString::number(value, 'f', 2));
}

void TestCustomEditLineMouse::furtherStepsOfTheWheelGiveTheSameValueUntilTheNextPress()
{
    field->setText(QStringLiteral("10"));
    press(*field, 500.0);
    release(*field, 500.0);
    turnWheel(*field, QPoint(0, -120));
    turnWheel(*field, QPoint(0, -120));
    QCOMPARE(valueSet->at(0).at(0).toDouble(), valueSet->at(1).at(0).toDouble());
    field->setText(QStringLiteral("100"));
    turnWheel(*field, QPoint(0, -120));
    QCOMPARE(valueSet->at(2).at(0).toDouble(), valueSet->at(0).at(0).toDouble());
    field->setText(QStringLiteral("100"));
    press(*field, 500.0);
    release(*field, 500.0);
    turnWheel(*field, QPoint(0, -120));
    QVERIFY(valueSet->at(3).at(0).toDouble() > 100.0);
}

void TestCustomEditLineMouse::beforeTheFirstPressEachStepOfTheWheelStartsFromTheText()
{
    const double step = 0.004999999888241291;
    field->setValue(50.0);
    turnWheel(*field, QPoint(0, 120));
    QCOMPARE(valueSet->takeFirst().at(0).toDouble(), 50.0 - 51.0 * step);
    field->setValue(20.0);
    turnWheel(*field, QPoint(0, -120));
    QCOMPARE(valueSet->takeFirst().at(0).toDouble(), 20.0 + 21.0 * step);
    field->setBounds(1.0, 2.0);
    turnWheel(*field, QPoint(0, -120));
    QCOMPARE(valueSet->takeFirst().at(0).toDouble(), 2.0);
}

void TestCustomEditLineMouse::aFieldThatBeginsAnewHasNotBeenPressed()
{
    field->setText("10");
    press(*field, 500.0);
    release(*field, 500.0);
    field->setText("50");
    field->beginAnew();
    turnWheel(*field, QPoint(0, 120));
    QCOMPARE(field->text(), QString("49.75"));
}

void TestCustomEditLineMouse::theWheelChangesNothingWhereNoValueIsShown_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("presses");
    QTest::newRow("dots") << "..." << false;
    QTest::newRow("nothing") << "" << false;
    QTest::newRow("dots, pressed") << "..." << true;
    QTest::newRow("nothing, pressed") << "" << true;
}

void TestCustomEditLineMouse::theWheelChangesNothingWhereNoValueIsShown()
{
    QFETCH(QString, text);
    QFETCH(bool, presses);
    field->setText(text);
    if (presses) {
        press(*field, 500.0);
        release(*field, 500.0);
    }
    turnWheel(*field, QPoint(0, 120));
    turnWheel(*field, QPoint(0, -120));
    QCOMPARE(field->text(), text);
    QCOMPARE(valueSet->count(), 0);
}

void TestCustomEditLineMouse::aSidewaysTurnChangesNothing()
{
    field->setText("10");
    for (const bool presses : {false, true}) {
        if (presses) {
            press(*field, 500.0);
            release(*field, 500.0);
        }
        turnWheel(*field, QPoint(120, 0));
        turnWheel(*field, QPoint(-120, 0));
        turnWheel(*field, QPoint(120, 0), Qt::ShiftModifier);
    }
    QCOMPARE(field->text(), QString("10"));
    QCOMPARE(valueSet->count(), 0);
}

void TestCustomEditLineMouse::aWheelEventWithoutATurnChangesNothing()
{
    field->setValue(50.0);
    turnWheel(*field, QPoint(0, 0));
    QCOMPARE(field->text(), QStringLiteral("50.00"));
    QCOMPARE(valueSet->count(), 0);
}

void TestCustomEditLineMouse::aValueSetByMouseOrWheelIsNotSentAgainOnLeaving()
{
    press(*field, 500.0);
    moveTo(*field, 400.0);
    release(*field, 400.0);
    turnWheel(*field, QPoint(0, 120));
    window->other.setFocus();
    QCOMPARE(valueTyped->count(), 0);
}

void TestCustomEditLineMouse::aFieldDisabledOrHiddenDuringADragEndsIt_data()
{
    QTest::addColumn<bool>("hides");
    QTest::newRow("disabled") << false;
    QTest::newRow("hidden") << true;
}

void TestCustomEditLineMouse::aFieldDisabledOrHiddenDuringADragEndsIt()
{
    QFETCH(bool, hides);
    field->setText("10");
    press(*field, 100.0);
    moveTo(*field, 90.0);
    if (hides) {
        field->hide();
        field->show();
    } else {
        field->setEnabled(false);
        field->setEnabled(true);
    }
    QCOMPARE(released->count(), 1);
    valueSet->clear();
    // The mouse passes over the field without a button.
    sendMouse(*field, QEvent::MouseMove, Qt::NoButton, Qt::NoButton, QPointF(100.0, 50.0));
    QCOMPARE(valueSet->count(), 0);
    QCOMPARE(field->text(), QString("10.55"));
}

void TestCustomEditLineMouse::aMenuOrAModalDialogDuringADragEndsIt_data()
{
    QTest::addColumn<bool>("isMenu");
    QTest::newRow("the field's menu") << true;
    QTest::newRow("a modal dialog") << false;
}

void TestCustomEditLineMouse::aMenuOrAModalDialogDuringADragEndsIt()
{
    QFETCH(bool, isMenu);
    field->setText("10");
    press(*field, 100.0);
    moveTo(*field, 90.0);
    if (isMenu) {
        QContextMenuEvent asked(QContextMenuEvent::Mouse, QPoint(5, 5), QPoint(105, 105),
                                Qt::NoModifier);
        QCoreApplication::sendEvent(field, &asked);
        QVERIFY(QApplication::activePopupWidget());
        QApplication::activePopupWidget()->close();
    } else {
        QDialog dialog;
        dialog.setModal(true);
        dialog.show();
    }
    QCOMPARE(released->count(), 1);
    valueSet->clear();
    sendMouse(*field, QEvent::MouseMove, Qt::NoButton, Qt::NoButton, QPointF(100.0, 50.0));
    QCOMPARE(valueSet->count(), 0);
    QCOMPARE(field->text(), QString("10.55"));
}

QTEST_MAIN(TestCustomEditLineMouse)
#include "test_custom_edit_line_mouse.moc"
