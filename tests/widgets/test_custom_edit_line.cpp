#include "support/FailOnWarning.h"
#include "widgets/CustomEditLine.h"

#include <QClipboard>
#include <QDropEvent>
#include <QGuiApplication>
#include <QMimeData>
#include <QMouseEvent>
#include <QSignalSpy>
#include <QWheelEvent>

#include <memory>

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

} // namespace

class TestCustomEditLine : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        failOnUnexpectedWarning();
        window = std::make_unique<Window>();
        field = &window->field;
        QVERIFY(QTest::qWaitForWindowActive(window.get()));
        QTRY_VERIFY(field->hasFocus());
        valueSet =
            std::make_unique<QSignalSpy>(field, SIGNAL(newValueSet(ZK_DOUBLE, CustomEditLine*)));
        valueTyped =
            std::make_unique<QSignalSpy>(field, SIGNAL(newValueTyped(ZK_DOUBLE, CustomEditLine*)));
        pressed = std::make_unique<QSignalSpy>(field, SIGNAL(mousePressEditLine()));
        released = std::make_unique<QSignalSpy>(field, SIGNAL(mouseReleaseEditLine()));
    }

    void cleanup()
    {
        valueSet.reset();
        valueTyped.reset();
        pressed.reset();
        released.reset();
        window.reset();
    }

    void aNewFieldIsRightAlignedAndTracksTheMouse()
    {
        QCOMPARE(field->alignment(), Qt::AlignRight);
        QCOMPARE(field->maxLength(), 15);
        QVERIFY(field->hasMouseTracking());
        QVERIFY(field->text().isEmpty());
    }

    void signalsAndSlotsHaveTheSpellingsOfStringConnections_data()
    {
        QTest::addColumn<QByteArray>("signature");
        QTest::newRow("set") << QByteArray("newValueSet(ZK_DOUBLE,CustomEditLine*)");
        QTest::newRow("typed") << QByteArray("newValueTyped(ZK_DOUBLE,CustomEditLine*)");
        QTest::newRow("press") << QByteArray("mousePressEditLine()");
        QTest::newRow("release") << QByteArray("mouseReleaseEditLine()");
        QTest::newRow("bounds") << QByteArray("checkTextBounds()");
    }

    void signalsAndSlotsHaveTheSpellingsOfStringConnections()
    {
        QFETCH(QByteArray, signature);
        QVERIFY(field->metaObject()->indexOfMethod(signature) >= 0);
    }

    void setValueShowsTheDecimalsInTextAndToolTip_data()
    {
        QTest::addColumn<int>("decimals");
        QTest::addColumn<double>("value");
        QTest::addColumn<QString>("shown");
        QTest::newRow("two by default") << 2 << 1.5 << "1.50";
        QTest::newRow("three") << 3 << 1.5 << "1.500";
        QTest::newRow("none") << 0 << 1.75 << "2";
        QTest::newRow("a negative number counts as none") << -1 << 1.75 << "2";
        QTest::newRow("not held to the bounds") << 1 << 2e8 << "200000000.0";
        QTest::newRow("a sign on a rounded zero") << 2 << -0.001 << "-0.00";
        QTest::newRow("cut at fifteen characters") << 20 << 1.0 / 3.0 << "0.3333333333333";
    }

    void setValueShowsTheDecimalsInTextAndToolTip()
    {
        QFETCH(int, decimals);
        QFETCH(double, value);
        QFETCH(QString, shown);
        field->setDecimals(decimals);
        field->setValue(value);
        QCOMPARE(field->text(), shown);
        QCOMPARE(field->toolTip(), shown);
        QCOMPARE(valueSet->count() + valueTyped->count(), 0);
    }

    void setDecimalsAndSetBoundsLeaveTheTextUntilTheNextValue()
    {
        field->setValue(7.0);
        field->setDecimals(3);
        field->setBounds(0.0, 1.0);
        QCOMPARE(field->text(), QStringLiteral("7.00"));
        field->setValue(7.0);
        QCOMPARE(field->text(), QStringLiteral("7.000"));
    }

    void typingAndLeavingSendsTheValueHeldToTheBounds_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<double>("value");
        QTest::addColumn<QString>("shown");
        QTest::newRow("a number above the bound shows the bound") << "11" << 10.0 << "10.00";
        QTest::newRow("a number below the bound") << "-11" << -5.0 << "-5.00";
        QTest::newRow("a number between, unrounded in the signal only for what is typed")
            << "1.23456" << 1.23456 << "1.23";
        QTest::newRow("no number") << "abc" << 0.0 << "0.00";
        QTest::newRow("nothing but a sign") << "-" << 0.0 << "0.00";
        QTest::newRow("nan") << "nan" << 0.0 << "0.00";
        QTest::newRow("inf") << "inf" << 0.0 << "0.00";
        QTest::newRow("-inf") << "-inf" << 0.0 << "0.00";
        QTest::newRow("more than a double holds") << "1e400" << 10.0 << "10.00";
        QTest::newRow("less than a double holds") << "-1e400" << -5.0 << "-5.00";
        QTest::newRow("too small for a double") << "1e-400" << 0.0 << "0.00";
    }

    void typingAndLeavingSendsTheValueHeldToTheBounds()
    {
        QFETCH(QString, typed);
        QFETCH(double, value);
        QFETCH(QString, shown);
        field->setBounds(-5.0, 10.0);
        QTest::keyClicks(field, typed);
        window->other.setFocus();
        QCOMPARE(valueTyped->count(), 1);
        QCOMPARE(valueTyped->first().at(0).toDouble(), value);
        QCOMPARE(valueTyped->first().at(1).value<CustomEditLine*>(), field);
        QCOMPARE(field->text(), shown);
        QCOMPARE(field->toolTip(), shown);
        QCOMPARE(valueSet->count(), 0);
    }

    void theBoundsOfANewFieldAreAHundredMillion()
    {
        QTest::keyClicks(field, "1e9");
        window->other.setFocus();
        QCOMPARE(valueTyped->takeFirst().at(0).toDouble(), 1e8);
        field->setFocus();
        field->selectAll();
        QTest::keyClicks(field, "-1e9");
        window->other.setFocus();
        QCOMPARE(valueTyped->takeFirst().at(0).toDouble(), -1e8);
    }

    void threePointsSurviveLeavingTheFieldAndSendNothing()
    {
        field->setText(QStringLiteral("..."));
        window->other.setFocus();
        QCOMPARE(field->text(), QStringLiteral("..."));
        field->setFocus();
        field->clear();
        QTest::keyClicks(field, "...");
        window->other.setFocus();
        QCOMPARE(field->text(), QStringLiteral("..."));
        QCOMPARE(valueTyped->count(), 0);
    }

    void leavingAFieldInWhichNobodyTypedSendsNothing()
    {
        field->setValue(1.23456);
        window->other.setFocus();
        field->setFocus();
        field->setText(QStringLiteral("8"));
        QTest::keyClick(field, Qt::Key_Tab);
        QVERIFY(!field->hasFocus());
        QCOMPARE(field->text(), QStringLiteral("8"));
        QCOMPARE(valueTyped->count(), 0);
    }

    void aTextSetByTheProgramAfterTypingIsNotSentOnLeaving()
    {
        QTest::keyClicks(field, "5");
        field->setValue(6.0);
        window->other.setFocus();
        QCOMPARE(valueTyped->count(), 0);
        QCOMPARE(field->text(), QStringLiteral("6.00"));
    }

    void disablingOrHidingAFocusedFieldSendsOnlyWhatWasTyped()
    {
        field->setValue(1.0);
        field->setEnabled(false);
        field->setEnabled(true);
        field->setFocus();
        field->hide();
        QCOMPARE(valueTyped->count(), 0);
        field->show();
        field->setFocus();
        field->selectAll();
        QTest::keyClicks(field, "3");
        field->setEnabled(false);
        QCOMPARE(valueTyped->count(), 1);
        QCOMPARE(valueTyped->first().at(0).toDouble(), 3.0);
    }

    void aPastedTextIsSentOnLeaving()
    {
        QGuiApplication::clipboard()->setText(QStringLiteral("42"));
        field->paste();
        window->other.setFocus();
        QCOMPARE(valueTyped->count(), 1);
        QCOMPARE(valueTyped->first().at(0).toDouble(), 42.0);
    }

    void aDroppedTextIsSentOnLeaving()
    {
        field->setValue(1.0);
        field->clear();
        QMimeData data;
        data.setText(QStringLiteral("4.5"));
        QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(field, &enter);
        QDropEvent drop(QPointF(5.0, 5.0), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(field, &drop);
        QCOMPARE(field->text(), QStringLiteral("4.5"));
        window->other.setFocus();
        QCOMPARE(valueTyped->count(), 1);
        QCOMPARE(valueTyped->first().at(0).toDouble(), 4.5);
    }

    void returnSendsTheValueTwiceAndLeavingAfterItNothingMore_data()
    {
        QTest::addColumn<int>("key");
        QTest::newRow("Return") << int(Qt::Key_Return);
        QTest::newRow("Enter") << int(Qt::Key_Enter);
    }

    // The end of the editing sends what was typed, the key itself what the field then shows.
    void returnSendsTheValueTwiceAndLeavingAfterItNothingMore()
    {
        QFETCH(int, key);
        QTest::keyClicks(field, "1.2367");
        QTest::keyClick(field, static_cast<Qt::Key>(key));
        QCOMPARE(valueTyped->count(), 2);
        QCOMPARE(valueTyped->at(0).at(0).toDouble(), 1.2367);
        QCOMPARE(valueTyped->at(1).at(0).toDouble(), 1.24);
        window->other.setFocus();
        QCOMPARE(valueTyped->count(), 2);
    }

    void returnInAFieldInWhichNobodyTypedSendsAllTheSame()
    {
        field->setValue(2.0);
        QTest::keyClick(field, Qt::Key_Return);
        QCOMPARE(valueTyped->count(), 2);
        QCOMPARE(valueTyped->at(1).at(0).toDouble(), 2.0);
    }

    void returnOnThreePointsSendsZeroOnceAndLeavesTheText()
    {
        field->setText(QStringLiteral("..."));
        QTest::keyClick(field, Qt::Key_Return);
        QCOMPARE(valueTyped->count(), 1);
        QCOMPARE(valueTyped->first().at(0).toDouble(), 0.0);
        QCOMPARE(field->text(), QStringLiteral("..."));
    }

    void aKeyOtherThanReturnAndEnterSendsNothing_data()
    {
        QTest::addColumn<int>("key");
        QTest::newRow("digit") << int(Qt::Key_5);
        QTest::newRow("backspace") << int(Qt::Key_Backspace);
        QTest::newRow("delete") << int(Qt::Key_Delete);
        QTest::newRow("up") << int(Qt::Key_Up);
        QTest::newRow("escape") << int(Qt::Key_Escape);
    }

    void aKeyOtherThanReturnAndEnterSendsNothing()
    {
        QFETCH(int, key);
        field->setValue(3.0);
        QTest::keyClick(field, static_cast<Qt::Key>(key));
        QCOMPARE(valueTyped->count() + valueSet->count(), 0);
    }

    void checkTextBoundsCalledByTheProgramAlwaysSends()
    {
        field->setText(QStringLiteral("9e9"));
        field->checkTextBounds();
        QCOMPARE(valueTyped->count(), 1);
        QCOMPARE(field->text(), QStringLiteral("100000000.00"));
    }

    void draggingChangesTheValueByHalfAPercentAPixel_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<double>("pixelsUp");
        QTest::addColumn<double>("value");
        QTest::newRow("from 0, 100 up") << "0" << 100.0 << 0.5;
        QTest::newRow("from 10, 100 up") << "10" << 100.0 << 15.5;
        QTest::newRow("from -10, 100 up") << "-10" << 100.0 << -4.5;
        QTest::newRow("from 10, 100 down") << "10" << -100.0 << 4.5;
        QTest::newRow("nowhere") << "10" << 0.0 << 10.0;
        QTest::newRow("held to the upper bound") << "10" << 10000.0 << 100.0;
        QTest::newRow("held to the lower bound") << "10" << -10000.0 << -100.0;
        QTest::newRow("from three points") << "..." << 100.0 << 0.5;
        QTest::newRow("from nan") << "nan" << 100.0 << 0.5;
        QTest::newRow("from what no float holds, nowhere") << "1e300" << 0.0 << 100.0;
        QTest::newRow("from what no double holds, far down") << "1e400" << -1000.0 << -100.0;
    }

    void draggingChangesTheValueByHalfAPercentAPixel()
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
    void theStepOfOnePixelIsAFloat()
    {
        field->setText(QStringLiteral("0"));
        press(*field, 500.0);
        moveTo(*field, 499.0);
        QCOMPARE(valueSet->first().at(0).toDouble(), 0.004999999888241291);
    }

    void eachMoveStartsFromThePressAndNotFromTheLastMove()
    {
        field->setText(QStringLiteral("10"));
        press(*field, 500.0);
        moveTo(*field, 450.0);
        moveTo(*field, 400.0);
        QCOMPARE(valueSet->last().at(0).toDouble(), 15.5);
        moveTo(*field, 500.0);
        QCOMPARE(valueSet->last().at(0).toDouble(), 10.0);
    }

    void pressAndReleaseAreToldAroundADrag()
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

    void aMoveWithoutAPressChangesNothing()
    {
        field->setValue(4.0);
        QTest::mouseMove(field, QPoint(20, 5));
        moveTo(*field, 300.0, Qt::NoButton);
        QCOMPARE(field->text(), QStringLiteral("4.00"));
        QCOMPARE(valueSet->count(), 0);
    }

    void aDragWithTheRightButtonChangesNothing()
    {
        field->setValue(4.0);
        press(*field, 500.0, Qt::RightButton);
        moveTo(*field, 400.0, Qt::RightButton);
        release(*field, 400.0, Qt::RightButton);
        QCOMPARE(field->text(), QStringLiteral("4.00"));
        QCOMPARE(valueSet->count() + pressed->count() + released->count(), 0);
    }

    void theMiddleButtonDragsAsTheLeftOneDoes()
    {
        field->setText(QStringLiteral("0"));
        press(*field, 500.0, Qt::MiddleButton);
        moveTo(*field, 400.0, Qt::MiddleButton);
        release(*field, 400.0, Qt::MiddleButton);
        QCOMPARE(valueSet->count(), 1);
        QCOMPARE(pressed->count(), 1);
        QCOMPARE(released->count(), 1);
    }

    void onlyTheFirstClickSelectsEverythingUntilTheFocusIsLost()
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

    void theRightButtonNeitherSelectsNorUsesUpTheFirstClick()
    {
        field->setContextMenuPolicy(Qt::NoContextMenu);
        field->setValue(12.0);
        QTest::mouseClick(field, Qt::RightButton, Qt::NoModifier, QPoint(20, 12));
        QVERIFY(!field->hasSelectedText());
        QTest::mouseClick(field, Qt::LeftButton, Qt::NoModifier, QPoint(20, 12));
        QVERIFY(field->hasSelectedText());
    }

    void turningTheWheelAwayFromTheUserLowersTheValue_data()
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

    void turningTheWheelAwayFromTheUserLowersTheValue()
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

    void furtherStepsOfTheWheelGiveTheSameValueUntilTheNextPress()
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

    void theWheelStartsFromZeroBeforeTheFirstPressAndHoldsToTheBounds()
    {
        field->setValue(50.0);
        turnWheel(*field, QPoint(0, -120));
        QCOMPARE(valueSet->takeFirst().at(0).toDouble(), 0.004999999888241291);
        field->setBounds(1.0, 2.0);
        turnWheel(*field, QPoint(0, -120));
        QCOMPARE(valueSet->takeFirst().at(0).toDouble(), 1.0);
    }

    void aWheelEventWithoutATurnChangesNothing()
    {
        field->setValue(50.0);
        turnWheel(*field, QPoint(0, 0));
        QCOMPARE(field->text(), QStringLiteral("50.00"));
        QCOMPARE(valueSet->count(), 0);
    }

    void aValueSetByMouseOrWheelIsNotSentAgainOnLeaving()
    {
        press(*field, 500.0);
        moveTo(*field, 400.0);
        release(*field, 400.0);
        turnWheel(*field, QPoint(0, 120));
        window->other.setFocus();
        QCOMPARE(valueTyped->count(), 0);
    }

private:
    std::unique_ptr<Window> window;
    CustomEditLine* field = nullptr;
    std::unique_ptr<QSignalSpy> valueSet;
    std::unique_ptr<QSignalSpy> valueTyped;
    std::unique_ptr<QSignalSpy> pressed;
    std::unique_ptr<QSignalSpy> released;
};

QTEST_MAIN(TestCustomEditLine)
#include "test_custom_edit_line.moc"
