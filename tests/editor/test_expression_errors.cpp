// What users may type wrong, and curves that read each other.

#include "support/BoxCatcher.h"
#include "support/ExpressionLine.h"
#include "support/FailOnWarning.h"

class TestExpressionErrors : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void badTextIsToldAndMarkedAndChangesNothing_data();
    void badTextIsToldAndMarkedAndChangesNothing();
    void theLongestTextThatFitsIsTaken();
    void namesWithUmlautsAreTakenAndMarked();

    void aSelfReferenceIsSetToldAndMarked();
    void aRingOfThreeIsSetToldAndMarked();
    void everyPlaceOfACycleIsInTheMessage();
    void aRingClosedByAnUndoIsTold();
    void aRingDrawsAndIsTakenBack();
    void anExpressionThatNamesARemovedCurve();
    void anExpressionThatNamesARenamedCurve();

private:
    CurveEditor& editor() { return fixture->editor; }
    LentCurve& curve(const QString& name) { return *fixture->curves.at(name); }
    void enterOn(const QString& name, const QString& text);

    std::unique_ptr<EditorFixture> fixture;
    std::unique_ptr<ExpressionLine> line;
    std::unique_ptr<BoxCatcher> boxes;
};

void TestExpressionErrors::init()
{
    failOnUnexpectedWarning();
    fixture = std::make_unique<EditorFixture>();
    line = std::make_unique<ExpressionLine>(*fixture);
    boxes = std::make_unique<BoxCatcher>();
}

void TestExpressionErrors::cleanup()
{
    boxes.reset();
    line.reset();
    fixture.reset();
}

void TestExpressionErrors::enterOn(const QString& name, const QString& text)
{
    editor().selectNodes(QStringList(name));
    line->enter(text);
}

void TestExpressionErrors::badTextIsToldAndMarkedAndChangesNothing_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("box");
    QTest::addColumn<QString>("marked");
    const auto row = [](const char* name, const QString& text, const char* box,
                        const QString& marked) {
        QTest::newRow(name) << text << QString(box) << marked;
    };
    const QString nested = QString(300, '(') + "t" + QString(300, ')');
    row("nested parentheses", nested, "Unknown", "(");
    row("too long", QString(16384, 'a'), "Variable %1 not found", QString(16384, 'a'));
    row("unknown function", "sine(t)", "Variable sine not found", "sine");
    row("unknown variable", "t*width", "Variable width not found", "width");
    row("too few arguments", "min(t)", "Unknown", ")");
    row("too many arguments", "sin(t,t)", "Unknown", ",");
    row("no argument", "sin()", "Unknown", ")");
    row("if of two", "if(t,1)", "Unknown", ")");
    row("two points", "1..2", "Unknown", QString());
    row("half an exponent", "1e", "Unknown", QString());
    row("unclosed", "2*(t+1", "Unmatched parenthesis", "(");
    row("unopened", "2*t)+1", "Unknown", ")");
    row("stray operator", "t+", "Unknown", QString());
    row("operator first", "*t", "Unknown", "*");
    row("two operators", "t*/2", "Unknown", "/");
    row("two operands", "t t", "Unknown", "t");
    row("dots", "...", "Unknown", QString());
    row("a tab and a bell", "t+\a1", "Unknown", "\a");
    row("a NUL byte", QString("t+") + QChar(0) + "1", "Unknown", QString(1, QChar(0)));
    row("a line's end", "t+1\n)", "Unknown", ")");
    row("half a pair", QString("t+") + QChar(0xd800), "Variable %1 not found", QString());
}

void TestExpressionErrors::badTextIsToldAndMarkedAndChangesNothing()
{
    QFETCH(QString, text);
    QFETCH(QString, box);
    QFETCH(QString, marked);
    const LentCurve& a = fixture->editCurve("n.a", {{1, 1}});
    line->enter("t*5");
    line->paste(text);
    line->press(Qt::Key_Return);
    QCOMPARE(boxes->titles, QStringList{"Syntax error"});
    if (box.contains("%1")) {
        box = box.arg(line->line().selectedText());
    }
    QCOMPARE(boxes->texts, QStringList{box});
    QVERIFY(line->line().isErrorShown());
    if (!marked.isNull()) {
        QCOMPARE(line->line().selectedText(), marked);
    }
    QVERIFY(!line->line().parseMessage().errorSpans.empty());
    line->leave();
    QCOMPARE(boxes->texts.size(), 1);
    QCOMPARE(expressionOf(a), QString("t*5"));
    QCOMPARE(fixture->undoAll(), QStringList{"Set Expression"});
}

void TestExpressionErrors::theLongestTextThatFitsIsTaken()
{
    const LentCurve& a = fixture->editCurve("n.a", {});
    QString sum("t");
    while (sum.size() < 16383) {
        sum += "+t";
    }
    line->paste(sum + " +t");
    QCOMPARE(line->text().size(), 16384);
    line->press(Qt::Key_Return);
    QVERIFY(boxes->texts.isEmpty());
    QCOMPARE(expressionOf(a), sum);
    QCOMPARE(fixture->undoAll().size(), 1);
}

void TestExpressionErrors::namesWithUmlautsAreTakenAndMarked()
{
    const QString name = QString::fromUtf8("k\xc3\xb6rper.gr\xc3\xb6\xc3\x9f"
                                           "e");
    const LentCurve& a = fixture->editCurve("n.a", {});
    fixture->addCurve(name, {{1, 1}});
    line->enter(name + "*2");
    QVERIFY(boxes->texts.isEmpty());
    QCOMPARE(expressionOf(a), name + "*2");
    line->enter(name + QString::fromUtf8("*f\xc3\xbcnf+1"));
    QCOMPARE(boxes->texts, QStringList{QString::fromUtf8("Variable f\xc3\xbcnf not found")});
    QCOMPARE(line->line().selectedText(), QString::fromUtf8("f\xc3\xbcnf"));
    QCOMPARE(expressionOf(a), name + "*2");
    editor().getCmdManager()->undo();
    editor().getCmdManager()->redo();
    QCOMPARE(expressionOf(a), name + "*2");
}

void TestExpressionErrors::aSelfReferenceIsSetToldAndMarked()
{
    const LentCurve& a = fixture->editCurve("n.My Curve", {});
    line->enter("1 + n.my_curve");
    QCOMPARE(boxes->titles, QStringList{"Cyclical dependency"});
    QCOMPARE(boxes->texts, QStringList{"Cyclical dependency has been found for d-var n.My Curve "});
    QCOMPARE(expressionOf(a), QString("1+n.my_curve"));
    QCOMPARE(line->text(), QString("1 + n.my_curve"));
    QCOMPARE(line->line().selectedText(), QString("n.my_curve"));
    QVERIFY(line->line().isErrorShown());
    QCOMPARE(fixture->undoAll(), QStringList{"Set Expression"});
    QCOMPARE(expressionOf(a), QString("none"));
}

void TestExpressionErrors::aRingOfThreeIsSetToldAndMarked()
{
    for (const char* const name : {"n.a", "n.b", "n.c"}) {
        fixture->addCurve(name, {});
    }
    enterOn("n.b", "n.c");
    enterOn("n.c", "n.a");
    QVERIFY(boxes->texts.isEmpty());
    enterOn("n.a", "t*n.b+n.c");
    // The curve that the second one reads is named.
    QCOMPARE(boxes->texts, QStringList{"Cyclical dependency has been found for d-var n.c "});
    QCOMPARE(line->line().selectedText(), QString("n.c"));
    QCOMPARE(expressionOf(curve("n.a")), QString("t*n.b+n.c"));
    QCOMPARE(fixture->undoAll().size(), 3);
}

void TestExpressionErrors::everyPlaceOfACycleIsInTheMessage()
{
    fixture->editCurve("n.a", {});
    line->enter("n.a + n.a");
    QCOMPARE(line->line().parseMessage().errorKind, 2);
    QCOMPARE(line->line().parseMessage().errorSpans,
             (std::vector<std::pair<int, int>>{{0, 3}, {6, 3}}));
}

void TestExpressionErrors::aRingClosedByAnUndoIsTold()
{
    fixture->addCurve("n.a", {});
    fixture->addCurve("n.b", {});
    enterOn("n.a", "n.b");
    enterOn("n.a", "t");
    // The host goes behind the history's back.
    curve("n.b").setExpression("n.a");
    editor().getCmdManager()->undo();
    QCOMPARE(boxes->titles, QStringList{"Cyclical dependency"});
    QCOMPARE(expressionOf(curve("n.a")), QString("n.b"));
    QCOMPARE(line->text(), QString("n.b"));
    QVERIFY(!line->line().isErrorShown());
    editor().getCmdManager()->redo();
    QCOMPARE(expressionOf(curve("n.a")), QString("t"));
}

void TestExpressionErrors::aRingDrawsAndIsTakenBack()
{
    fixture->addCurve("n.a", {});
    fixture->addCurve("n.b", {});
    enterOn("n.a", "n.b+1");
    enterOn("n.b", "n.a+1");
    QCOMPARE(boxes->texts.size(), 1);
    editor().selectNodes(QStringList{"n.a", "n.b"});
    fixture->paint();
    QCOMPARE(fixture->undoAll().size(), 2);
    QCOMPARE(expressionOf(curve("n.b")), QString("none"));
}

void TestExpressionErrors::anExpressionThatNamesARemovedCurve()
{
    fixture->addCurve("n.a", {});
    fixture->addCurve("n.b", {{1, 5}});
    enterOn("n.a", "n.b+1");
    editor().removeCurve("n", "b");
    fixture->paint();
    QCOMPARE(expressionOf(curve("n.a")), QString("n.b+1"));
    QCOMPARE(curve("n.a").expression->value(), 1.0); // what is not there reads 0
    enterOn("n.a", "n.b+2");
    QCOMPARE(boxes->texts, QStringList{"Variable n.b not found"});
    QCOMPARE(expressionOf(curve("n.a")), QString("n.b+1"));
    QCOMPARE(fixture->undoAll().size(), 1);
}

void TestExpressionErrors::anExpressionThatNamesARenamedCurve()
{
    fixture->addCurve("n.a", {});
    fixture->addCurve("n.b", {{1, 5}});
    enterOn("n.a", "n.b+1");
    editor().renameCurve("n", "b", "c");
    QCOMPARE(curve("n.a").expression->value(), 1.0);
    enterOn("n.a", "n.c+1");
    QVERIFY(boxes->texts.isEmpty());
    QCOMPARE(curve("n.a").expression->value(), 6.0);
    editor().getCmdManager()->undo(); // what it names has gone
    QCOMPARE(boxes->texts, QStringList{"Variable n.b not found"});
    QCOMPARE(expressionOf(curve("n.a")), QString("none"));
    editor().getCmdManager()->redo();
    QCOMPARE(expressionOf(curve("n.a")), QString("n.c+1"));
}

QTEST_MAIN(TestExpressionErrors)
#include "test_expression_errors.moc"
