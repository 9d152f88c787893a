#include "widgets/EditLineFixture.h"

#include <QClipboard>
#include <QDropEvent>
#include <QGuiApplication>
#include <QMimeData>

class TestCustomEditLine : public QObject, private EditLineFixture
{
    Q_OBJECT

private slots:
    void init();

    void cleanup() { close(); }

    void aNewFieldIsRightAlignedAndTracksTheMouse();
    void signalsAndSlotsHaveTheSpellingsOfStringConnections_data();
    void signalsAndSlotsHaveTheSpellingsOfStringConnections();
    void setValueShowsTheDecimalsInTextAndToolTip_data();
    void setValueShowsTheDecimalsInTextAndToolTip();
    void setDecimalsAndSetBoundsLeaveTheTextUntilTheNextValue();
    void typingAndLeavingSendsTheValueHeldToTheBounds_data();
    void typingAndLeavingSendsTheValueHeldToTheBounds();
    void theBoundsOfANewFieldAreAHundredMillion();
    void threePointsSurviveLeavingTheFieldAndSendNothing();
    void leavingAFieldInWhichNobodyTypedSendsNothing();
    void aTextSetByTheProgramAfterTypingIsNotSentOnLeaving();
    void disablingOrHidingAFocusedFieldSendsOnlyWhatWasTyped();
    void aPastedTextIsSentOnLeaving();
    void aDroppedTextIsSentOnLeaving();
    void returnSendsTheValueTwiceAndLeavingAfterItNothingMore_data();
    void returnSendsTheValueTwiceAndLeavingAfterItNothingMore();
    void returnInAFieldInWhichNobodyTypedSendsAllTheSame();
    void returnOnThreePointsSendsZeroOnceAndLeavesTheText();
    void returnSendsNothingMoreOnceTheFieldStandsForAnotherNumber();
    void aNumberShownAnewKeepsWhatIsSelected();
    void theSameNumberShownAnewKeepsTheCursor();
    void aKeyOtherThanReturnAndEnterSendsNothing_data();
    void aKeyOtherThanReturnAndEnterSendsNothing();
    void checkTextBoundsCalledByTheProgramAlwaysSends();
};

void TestCustomEditLine::init()
{
    failOnUnexpectedWarning();
    open();
}

void TestCustomEditLine::aNewFieldIsRightAlignedAndTracksTheMouse()
{
    QCOMPARE(field->alignment(), Qt::AlignRight);
    QCOMPARE(field->maxLength(), 15);
    QVERIFY(field->hasMouseTracking());
    QVERIFY(field->text().isEmpty());
}

void TestCustomEditLine::signalsAndSlotsHaveTheSpellingsOfStringConnections_data()
{
    QTest::addColumn<QByteArray>("signature");
    QTest::newRow("set") << QByteArray("newValueSet(ZK_DOUBLE,CustomEditLine*)");
    QTest::newRow("typed") << QByteArray("newValueTyped(ZK_DOUBLE,CustomEditLine*)");
    QTest::newRow("press") << QByteArray("mousePressEditLine()");
    QTest::newRow("release") << QByteArray("mouseReleaseEditLine()");
    QTest::newRow("bounds") << QByteArray("checkTextBounds()");
}

void TestCustomEditLine::signalsAndSlotsHaveTheSpellingsOfStringConnections()
{
    QFETCH(QByteArray, signature);
    QVERIFY(field->metaObject()->indexOfMethod(signature) >= 0);
}

void TestCustomEditLine::setValueShowsTheDecimalsInTextAndToolTip_data()
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

void TestCustomEditLine::setValueShowsTheDecimalsInTextAndToolTip()
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

void TestCustomEditLine::setDecimalsAndSetBoundsLeaveTheTextUntilTheNextValue()
{
    field->setValue(7.0);
    field->setDecimals(3);
    field->setBounds(0.0, 1.0);
    QCOMPARE(field->text(), QStringLiteral("7.00"));
    field->setValue(7.0);
    QCOMPARE(field->text(), QStringLiteral("7.000"));
}

void TestCustomEditLine::typingAndLeavingSendsTheValueHeldToTheBounds_data()
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

void TestCustomEditLine::typingAndLeavingSendsTheValueHeldToTheBounds()
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

void TestCustomEditLine::theBoundsOfANewFieldAreAHundredMillion()
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

void TestCustomEditLine::threePointsSurviveLeavingTheFieldAndSendNothing()
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

void TestCustomEditLine::leavingAFieldInWhichNobodyTypedSendsNothing()
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

void TestCustomEditLine::aTextSetByTheProgramAfterTypingIsNotSentOnLeaving()
{
    QTest::keyClicks(field, "5");
    field->setValue(6.0);
    window->other.setFocus();
    QCOMPARE(valueTyped->count(), 0);
    QCOMPARE(field->text(), QStringLiteral("6.00"));
}

void TestCustomEditLine::disablingOrHidingAFocusedFieldSendsOnlyWhatWasTyped()
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

void TestCustomEditLine::aPastedTextIsSentOnLeaving()
{
    QGuiApplication::clipboard()->setText(QStringLiteral("42"));
    field->paste();
    window->other.setFocus();
    QCOMPARE(valueTyped->count(), 1);
    QCOMPARE(valueTyped->first().at(0).toDouble(), 42.0);
}

void TestCustomEditLine::aDroppedTextIsSentOnLeaving()
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

void TestCustomEditLine::returnSendsTheValueTwiceAndLeavingAfterItNothingMore_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("Return") << int(Qt::Key_Return);
    QTest::newRow("Enter") << int(Qt::Key_Enter);
}

// The end of the editing sends what was typed, the key itself what the field then shows.
void TestCustomEditLine::returnSendsTheValueTwiceAndLeavingAfterItNothingMore()
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

void TestCustomEditLine::returnInAFieldInWhichNobodyTypedSendsAllTheSame()
{
    field->setValue(2.0);
    QTest::keyClick(field, Qt::Key_Return);
    QCOMPARE(valueTyped->count(), 2);
    QCOMPARE(valueTyped->at(1).at(0).toDouble(), 2.0);
}

void TestCustomEditLine::returnOnThreePointsSendsZeroOnceAndLeavesTheText()
{
    field->setText(QStringLiteral("..."));
    QTest::keyClick(field, Qt::Key_Return);
    QCOMPARE(valueTyped->count(), 1);
    QCOMPARE(valueTyped->first().at(0).toDouble(), 0.0);
    QCOMPARE(field->text(), QStringLiteral("..."));
}

/// A listener has gone on to another key, for which the text now stands.
void TestCustomEditLine::returnSendsNothingMoreOnceTheFieldStandsForAnotherNumber()
{
    connect(field, &CustomEditLine::newValueTyped, field, [this] {
        field->setValue(1.24);
        field->beginAnew();
    });
    QTest::keyClicks(field, "1.2367");
    QTest::keyClick(field, Qt::Key_Return);
    QCOMPARE(valueTyped->count(), 1);
}

void TestCustomEditLine::aNumberShownAnewKeepsWhatIsSelected()
{
    field->setValue(10.0);
    field->selectAll();
    field->setValue(20.0);
    QTest::keyClicks(field, "5");
    QCOMPARE(field->text(), QString("5"));
}

void TestCustomEditLine::theSameNumberShownAnewKeepsTheCursor()
{
    field->setValue(10.0);
    field->setCursorPosition(1);
    field->setValue(10.0);
    QTest::keyClicks(field, "5");
    QCOMPARE(field->text(), QString("150.00"));
}

void TestCustomEditLine::aKeyOtherThanReturnAndEnterSendsNothing_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("digit") << int(Qt::Key_5);
    QTest::newRow("backspace") << int(Qt::Key_Backspace);
    QTest::newRow("delete") << int(Qt::Key_Delete);
    QTest::newRow("up") << int(Qt::Key_Up);
    QTest::newRow("escape") << int(Qt::Key_Escape);
}

void TestCustomEditLine::aKeyOtherThanReturnAndEnterSendsNothing()
{
    QFETCH(int, key);
    field->setValue(3.0);
    QTest::keyClick(field, static_cast<Qt::Key>(key));
    QCOMPARE(valueTyped->count() + valueSet->count(), 0);
}

void TestCustomEditLine::checkTextBoundsCalledByTheProgramAlwaysSends()
{
    field->setText(QStringLiteral("9e9"));
    field->checkTextBounds();
    QCOMPARE(valueTyped->count(), 1);
    QCOMPARE(field->text(), QStringLiteral("100000000.00"));
}

QTEST_MAIN(TestCustomEditLine)
#include "test_custom_edit_line.moc"
