// The expression line by itself: what it shows, and what keys, mouse and drops do to it.

#include "support/FailOnWarning.h"
#include "support/TextDrop.h"
#include "widgets/CommandLine.h"

#include <QApplication>
#include <QSignalSpy>
#include <QTest>

namespace {

const QColor errorColor(255, 55, 33);

ParseMessage messageOf(const QString& text, const std::vector<std::pair<int, int>>& spans)
{
    ParseMessage message;
    message.expressionText = text.toLocal8Bit().toStdString();
    message.errorSpans = spans;
    message.errorKind = spans.empty() ? 0 : 4;
    return message;
}

bool isMarked(const CommandLine& line)
{
    return line.palette().color(QPalette::HighlightedText) == errorColor;
}

} // namespace

class TestCommandLine : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void theLineHasItsSettings();
    void theTextIsLimitedTo16384Characters();
    void aMessageWithoutSpansShowsItsTextAlone();
    void anErrorIsRedOnTheWindowsOwnColour();
    void allOfTheMessageIsKept();
    void spansCountBytesAndTheSelectionCharacters_data();
    void spansCountBytesAndTheSelectionCharacters();
    void spansBesideTheTextAreBorne_data();
    void spansBesideTheTextAreBorne();
    void anErrorBehindTheLinesLimitIsBorne();
    void aTextWithNulBytesIsShownWhole();
    void theNextKeyOrMouseButtonHidesTheErrorFirst_data();
    void theNextKeyOrMouseButtonHidesTheErrorFirst();
    void thePaletteIsThatOfTheLinesConstruction();
    void anErrorStaysThroughAMessageWithoutOne();
    void aDropInsertsAtTheCursorWithUnderscoresForBlanks();
    void aDropTakesTheFocusAndIsAccepted();
    void aDropWithoutTextChangesNothing();
    void anUnderscoreIsInsertedAtTheCursor();
    void anInsertionLeavesASelectionStanding();
};

void TestCommandLine::theLineHasItsSettings()
{
    const CommandLine line;
    QCOMPARE(line.alignment(), Qt::AlignRight);
    QCOMPARE(line.maxLength(), 16384);
    QCOMPARE(line.focusPolicy(), Qt::StrongFocus);
    QCOMPARE(line.sizeIncrement(), QSize(1, 1));
    QCOMPARE(line.sizePolicy().horizontalPolicy(), QSizePolicy::Expanding);
    QCOMPARE(line.sizePolicy().verticalPolicy(), QSizePolicy::Fixed);
    QVERIFY(line.hasMouseTracking());
    QVERIFY(line.acceptDrops());
    QVERIFY(line.text().isEmpty());
    QVERIFY(!line.isReadOnly());
    QVERIFY(!line.isErrorShown());
}

void TestCommandLine::theTextIsLimitedTo16384Characters()
{
    CommandLine line;
    line.setText(QString(20000, QLatin1Char('1')));
    QCOMPARE(line.text().size(), 16384);
    QTest::keyClick(&line, Qt::Key_2);
    QCOMPARE(line.text(), QString(16384, QLatin1Char('1')));
}

void TestCommandLine::aMessageWithoutSpansShowsItsTextAlone()
{
    CommandLine line;
    const QPalette before = line.palette();
    line.setParseMessage(messageOf(" sin(t) ", {}));
    QCOMPARE(line.text(), QString(" sin(t) "));
    QCOMPARE(line.palette(), before);
    QVERIFY(!line.hasSelectedText());
    QVERIFY(!line.isErrorShown());
}

void TestCommandLine::anErrorIsRedOnTheWindowsOwnColour()
{
    CommandLine line;
    line.setParseMessage(messageOf("t+foo+bar", {{2, 3}, {6, 3}}));
    QCOMPARE(line.text(), QString("t+foo+bar"));
    QCOMPARE(line.selectedText(), QString("foo"));
    QCOMPARE(line.selectionStart(), 2);
    QVERIFY(line.isErrorShown());
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        QCOMPARE(line.palette().color(group, QPalette::HighlightedText), errorColor);
        QCOMPARE(line.palette().color(group, QPalette::Highlight),
                 line.palette().color(QPalette::Window));
    }
}

void TestCommandLine::allOfTheMessageIsKept()
{
    CommandLine line;
    ParseMessage message = messageOf("t+foo", {{2, 3}});
    message.ok = false;
    message.errorKind = 1;
    message.errorDetail = 7;
    line.setParseMessage(message);
    QCOMPARE(line.parseMessage().ok, false);
    QCOMPARE(line.parseMessage().errorKind, 1);
    QCOMPARE(line.parseMessage().errorDetail, 7);
    QCOMPARE(line.parseMessage().expressionText, std::string("t+foo"));
    QCOMPARE(line.parseMessage().errorSpans, message.errorSpans);
}

void TestCommandLine::spansCountBytesAndTheSelectionCharacters_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("length");
    QTest::addColumn<QString>("selected");
    const QString umlaut = QString::fromUtf8("\xc3\xb6");
    const QString wide = QString::fromUtf8("\xf0\x9d\x94\xb8"); // two units of UTF-16
    const auto row = [](const char* name, const QString& before, const QString& marked,
                        const QString& behind) {
        QTest::newRow(name) << before + marked + behind << int(before.toLocal8Bit().size())
                            << int(marked.toLocal8Bit().size()) << marked;
    };
    row("ascii", "1+", "foo", "+2");
    row("an umlaut before", umlaut + "+", "foo", "+2");
    row("an umlaut within", "1+", "f" + umlaut + "o", "+2");
    row("a wide letter before", wide + umlaut + "+", "foo", "");
    row("a wide letter within", "", wide + "." + umlaut, "*2");
}

void TestCommandLine::spansCountBytesAndTheSelectionCharacters()
{
    QFETCH(QString, text);
    QFETCH(int, start);
    QFETCH(int, length);
    CommandLine line;
    line.setParseMessage(messageOf(text, {{start, length}}));
    QTEST(line.selectedText(), "selected");
}

void TestCommandLine::spansBesideTheTextAreBorne_data()
{
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("length");
    QTest::newRow("at the end") << 3 << 1;
    QTest::newRow("behind it") << 100 << 5;
    QTest::newRow("before it") << -5 << 2;
    QTest::newRow("negative length") << 1 << -3;
    QTest::newRow("too long") << 1 << 2000000000;
}

void TestCommandLine::spansBesideTheTextAreBorne()
{
    QFETCH(int, start);
    QFETCH(int, length);
    CommandLine line;
    line.setParseMessage(messageOf("t+1", {{start, length}}));
    QCOMPARE(line.text(), QString("t+1"));
    QVERIFY(line.isErrorShown());
}

void TestCommandLine::anErrorBehindTheLinesLimitIsBorne()
{
    CommandLine line;
    line.setParseMessage(messageOf(QString(20000, QLatin1Char('1')), {{18000, 5}}));
    QVERIFY(line.isErrorShown());
    QVERIFY(!line.hasSelectedText());
}

void TestCommandLine::aTextWithNulBytesIsShownWhole()
{
    CommandLine line;
    const QString text = QString("t") + QChar(0) + "+foo";
    line.setParseMessage(messageOf(text, {{3, 3}}));
    QCOMPARE(line.text(), text);
    QCOMPARE(line.selectedText(), QString("foo"));
}

void TestCommandLine::theNextKeyOrMouseButtonHidesTheErrorFirst_data()
{
    QTest::addColumn<int>("type");
    QTest::newRow("key press") << int(QEvent::KeyPress);
    QTest::newRow("mouse press") << int(QEvent::MouseButtonPress);
    QTest::newRow("mouse release") << int(QEvent::MouseButtonRelease);
}

void TestCommandLine::theNextKeyOrMouseButtonHidesTheErrorFirst()
{
    QFETCH(int, type);
    CommandLine line;
    const QPalette before = line.palette();
    line.setParseMessage(messageOf("t+foo", {{2, 3}}));
    bool wasHidden = false;
    const auto notice = [&] { wasHidden = !isMarked(line); };
    connect(&line, &QLineEdit::textEdited, this, notice);
    connect(&line, &QLineEdit::selectionChanged, this, notice);
    if (type == QEvent::KeyPress) {
        QTest::keyClick(&line, Qt::Key_9);
        QCOMPARE(line.text(), QString("t+9"));
        QVERIFY(wasHidden);
    } else if (type == QEvent::MouseButtonPress) {
        QTest::mousePress(&line, Qt::LeftButton);
        QVERIFY(wasHidden);
    } else {
        QTest::mouseRelease(&line, Qt::LeftButton);
    }
    QVERIFY(!line.isErrorShown());
    QCOMPARE(line.palette(), before);
}

void TestCommandLine::thePaletteIsThatOfTheLinesConstruction()
{
    CommandLine line;
    const QPalette before = line.palette();
    line.setParseMessage(messageOf("foo", {{0, 3}}));
    line.setParseMessage(messageOf("bar", {{0, 3}})); // not the first error's colours
    QTest::keyClick(&line, Qt::Key_Shift);
    QCOMPARE(line.palette(), before);
    // Without an error a key leaves the palette alone.
    QPalette other = before;
    other.setColor(QPalette::Highlight, Qt::green);
    line.setPalette(other);
    QTest::keyClick(&line, Qt::Key_Shift);
    QCOMPARE(line.palette().color(QPalette::Highlight), QColor(Qt::green));
}

void TestCommandLine::anErrorStaysThroughAMessageWithoutOne()
{
    CommandLine line;
    line.setParseMessage(messageOf("foo", {{0, 3}}));
    line.setParseMessage(messageOf("t", {}));
    QVERIFY(line.isErrorShown());
    QVERIFY(isMarked(line));
    QTest::keyClick(&line, Qt::Key_Shift);
    QVERIFY(!line.isErrorShown());
}

void TestCommandLine::aDropInsertsAtTheCursorWithUnderscoresForBlanks()
{
    CommandLine line;
    line.show();
    line.setText("t*2");
    line.setCursorPosition(2);
    QVERIFY(dropText(line, "My Node.a  b"));
    QCOMPARE(line.text(), QString("t*My_Node.a__b2"));
    QCOMPARE(line.cursorPosition(), 14);
    QVERIFY(line.isModified());
}

void TestCommandLine::aDropTakesTheFocusAndIsAccepted()
{
    QWidget window;
    CommandLine line(&window);
    QLineEdit other(&window);
    window.show();
    QApplication::setActiveWindow(&window);
    other.setFocus();
    QSignalSpy finished(&line, &QLineEdit::editingFinished);
    QVERIFY(dropText(line, "x"));
    QVERIFY(line.hasFocus());
    QCOMPARE(finished.count(), 0);
    other.setFocus();
    QCOMPARE(finished.count(), 1);
}

void TestCommandLine::aDropWithoutTextChangesNothing()
{
    CommandLine line;
    line.setText("t");
    QMimeData picture;
    picture.setData("image/png", "x");
    QVERIFY(!enterDrag(line, picture));
    QMimeData text;
    text.setText("t");
    QVERIFY(enterDrag(line, text));
    QVERIFY(dropData(line, picture));
    QCOMPARE(line.text(), QString("t"));
    QVERIFY(!line.isModified());
}

void TestCommandLine::anUnderscoreIsInsertedAtTheCursor()
{
    CommandLine line;
    line.show();
    QApplication::setActiveWindow(&line);
    line.setText("ab");
    line.setCursorPosition(1);
    line.insertUnderscore();
    QCOMPARE(line.text(), QString("a_b"));
    QCOMPARE(line.cursorPosition(), 2);
    QVERIFY(line.isModified());
    QVERIFY(line.hasFocus());
}

void TestCommandLine::anInsertionLeavesASelectionStanding()
{
    CommandLine line;
    line.setText("t+X");
    line.setSelection(2, 1);
    line.insertAtCursor(" f ");
    QCOMPARE(line.text(), QString("t+X f "));
}

QTEST_MAIN(TestCommandLine)
#include "test_command_line.moc"
