// Expressions typed into the line of a shown editor.

#include "editor/EditorParts.h"
#include "support/BoxCatcher.h"
#include "support/ExpressionLine.h"
#include "support/FailOnWarning.h"
#include "support/HostEar.h"
#include "support/TextDrop.h"

class TestExpressionLine : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void returnSetsTheTypedExpression();
    void leavingSetsTheTypedExpression();
    void theUntrimmedTextStaysInTheLine();
    void clearingTheLineDeletesTheExpressionsInOneStep();
    void aLineOfBlanksCountsAsEmpty();
    void differingExpressionsShowDotsAndASplineAmongThemMultipleTypes();
    void leavingAnUntouchedLineDoesNothing_data();
    void leavingAnUntouchedLineDoesNothing();
    void returnInAnUntouchedLineExecutesIt();
    void aDirectCallExecutesAnUntouchedLine();
    void aPastedAndADroppedTextCountAsTyped();
    void aDroppedNameParsesOnlyAfterwards();
    void errorClosedInsertsAnUnderscoreThatCountsAsTyped();
    void deleteInTheLineDeletesNoKeys();
    void undoInTheLineIsTheLinesOwn();
    void aModifierLetGoInTheLineLeavesTheMode();

    void anErrorShowsOneBoxForEachCurveAndIsMarked();
    void anErrorTypedAndLeftShowsOneBoxAndStaysMarked();
    void theNextKeyTakesTheMarkAway();
    void aDirectCallInAFocusedLineShowsOneBox();
    void openingAMenuTakesTheTypedTextFirst();
    void openingAMenuWithAWrongTextShowsItsBoxOnce();
    void aWrongTextIsToldBeforeTheMenuOfToolbarsRuns();
    void openingTheInsertMenuLeavesTheTypedTextAlone();

    void removingTheLastCurveWhileTypingMakesNoStep();

private:
    LentCurve& curve(const QString& name) { return *fixture->curves.at(name); }
    CurveEditor& editor() { return fixture->editor; }

    std::unique_ptr<EditorFixture> fixture;
    std::unique_ptr<ExpressionLine> line;
    std::unique_ptr<BoxCatcher> boxes;
};

void TestExpressionLine::init()
{
    failOnUnexpectedWarning();
    fixture = std::make_unique<EditorFixture>();
    line = std::make_unique<ExpressionLine>(*fixture);
    boxes = std::make_unique<BoxCatcher>();
}

void TestExpressionLine::cleanup()
{
    boxes.reset();
    line.reset();
    fixture.reset();
}

void TestExpressionLine::returnSetsTheTypedExpression()
{
    const LentCurve& a = fixture->editCurve("n.a", {{1, 1}});
    HostEar host(editor());
    line->enter("sin(t*2)");
    QCOMPARE(expressionOf(a), QString("sin(t*2)"));
    QCOMPARE(host.take(), QStringList{"n|a"});
    QVERIFY(line->line().hasFocus());
    QVERIFY(editor().deleteCurve->isEnabled());
    line->leave(); // what Return has taken is not taken again
    QCOMPARE(fixture->undoAll(), QStringList{"Set Expression"});
    QCOMPARE(line->text(), QString());
}

void TestExpressionLine::leavingSetsTheTypedExpression()
{
    const LentCurve& a = fixture->editCurve("n.a", {{1, 1}});
    line->type("t/2");
    QCOMPARE(expressionOf(a), QString("none"));
    line->leave();
    QCOMPARE(expressionOf(a), QString("t/2"));
    QCOMPARE(fixture->undoAll(), QStringList{"Set Expression"});
}

void TestExpressionLine::theUntrimmedTextStaysInTheLine()
{
    const LentCurve& a = fixture->editCurve("n.a", {});
    line->enter("  t + 1 ");
    QCOMPARE(line->text(), QString("  t + 1 "));
    QCOMPARE(expressionOf(a), QString("t+1"));
    fixture->addCurve("n.b", {});
    editor().selectNodes(QStringList("n.b"));
    editor().selectNodes(QStringList("n.a"));
    QCOMPARE(line->text(), QString("t+1"));
}

void TestExpressionLine::clearingTheLineDeletesTheExpressionsInOneStep()
{
    const LentCurve& a = fixture->addCurve("n.a", {}, "t");
    const LentCurve& b = fixture->addCurve("n.b", {}, "f");
    editor().selectNodes(QStringList{"n.a", "n.b"});
    line->enter("");
    QCOMPARE(expressionOf(a), QString("none"));
    QCOMPARE(expressionOf(b), QString("none"));
    QCOMPARE(fixture->undoAll(), QStringList{"Delete Expression"});
    QCOMPARE(expressionOf(a), QString("t"));
    QCOMPARE(expressionOf(b), QString("f"));
}

void TestExpressionLine::aLineOfBlanksCountsAsEmpty()
{
    const LentCurve& a = fixture->editCurve("n.a", {}, "t");
    line->type("  \t ");
    line->leave();
    QCOMPARE(expressionOf(a), QString("none"));
    QCOMPARE(fixture->undoAll(), QStringList{"Delete Expression"});
    QVERIFY(boxes->texts.isEmpty());
}

void TestExpressionLine::differingExpressionsShowDotsAndASplineAmongThemMultipleTypes()
{
    fixture->addCurve("n.a", {}, "t");
    fixture->addCurve("n.b", {});
    fixture->addCurve("n.c", {{1, 1}});
    editor().selectNodes(QStringList{"n.b"});
    line->enter("t*2");
    editor().selectNodes(QStringList{"n.a", "n.b"});
    QCOMPARE(line->text(), QString("..."));
    editor().selectNodes(QStringList{"n.a", "n.c", "n.b"});
    QCOMPARE(line->text(), QString("Multiple Types"));
    line->enter("f");
    QCOMPARE(expressionOf(curve("n.a")), QString("f"));
    QCOMPARE(expressionOf(curve("n.b")), QString("f"));
    QCOMPARE(expressionOf(curve("n.c")), QString("f"));
}

void TestExpressionLine::leavingAnUntouchedLineDoesNothing_data()
{
    QTest::addColumn<QStringList>("selection");
    QTest::newRow("no expression") << QStringList{"n.c"};
    QTest::newRow("an expression") << QStringList{"n.a"};
    QTest::newRow("differing ones") << QStringList{"n.a", "n.b"};
    QTest::newRow("several types") << QStringList{"n.a", "n.c"};
}

void TestExpressionLine::leavingAnUntouchedLineDoesNothing()
{
    QFETCH(QStringList, selection);
    const LentCurve& a = fixture->addCurve("n.a", {}, "t");
    fixture->addCurve("n.b", {}, "f");
    fixture->addCurve("n.c", {{1, 1}});
    editor().selectNodes(selection);
    line->enter("t+1");
    editor().getCmdManager()->undo();
    const FunctionFloatBase* const before = a.expression;
    line->takeUp();
    line->leave();
    line->takeUp();
    line->press(Qt::Key_Tab);
    QVERIFY(!line->line().hasFocus());
    QCOMPARE(a.expression, before);
    QVERIFY(boxes->texts.isEmpty());
    QVERIFY(editor().getCmdManager()->nextRedo());
    QVERIFY(!editor().getCmdManager()->nextUndo());
}

void TestExpressionLine::returnInAnUntouchedLineExecutesIt()
{
    fixture->addCurve("n.a", {}, "t");
    fixture->addCurve("n.b", {}, "f");
    editor().selectNodes(QStringList{"n.a"});
    line->takeUp();
    line->press(Qt::Key_Return);
    QCOMPARE(fixture->undoAll(), QStringList{"Set Expression"});
    editor().selectNodes(QStringList{"n.a", "n.b"});
    line->takeUp();
    line->press(Qt::Key_Enter);
    QCOMPARE(boxes->texts.size(), 2); // "..." is no expression
}

void TestExpressionLine::aDirectCallExecutesAnUntouchedLine()
{
    fixture->editCurve("n.a", {}, "t");
    editor().executeCommand();
    line->line().setText(QString());
    editor().executeCommand();
    QCOMPARE(fixture->undoAll(), (QStringList{"Delete Expression", "Set Expression"}));
}

void TestExpressionLine::aPastedAndADroppedTextCountAsTyped()
{
    const LentCurve& a = fixture->editCurve("n.a", {});
    line->paste("t*4");
    line->leave();
    QCOMPARE(expressionOf(a), QString("t*4"));
    line->takeUp();
    line->press(Qt::Key_End);
    QVERIFY(dropText(line->line(), "+f"));
    line->leave();
    QCOMPARE(expressionOf(a), QString("t*4+f"));
}

void TestExpressionLine::aDroppedNameParsesOnlyAfterwards()
{
    const LentCurve& a = fixture->editCurve("n.a", {});
    fixture->addCurve("My Node.The Curve", {{1, 1}});
    QVERIFY(dropText(line->line(), "My Node.The Curve"));
    QVERIFY(line->line().hasFocus());
    QCOMPARE(line->text(), QString("My_Node.The_Curve"));
    QCOMPARE(expressionOf(a), QString("none"));
    line->press(Qt::Key_Return);
    QCOMPARE(expressionOf(a), QString("my_node.the_curve"));
}

void TestExpressionLine::errorClosedInsertsAnUnderscoreThatCountsAsTyped()
{
    const LentCurve& a = fixture->editCurve("n.a", {});
    fixture->addCurve("n.b_c", {{1, 1}});
    line->type("n.bc");
    line->line().setCursorPosition(3);
    QVERIFY(QMetaObject::invokeMethod(&editor(), "errorClosed"));
    QCOMPARE(line->text(), QString("n.b_c"));
    QVERIFY(line->line().hasFocus());
    QCOMPARE(expressionOf(a), QString("none"));
    line->leave();
    QCOMPARE(expressionOf(a), QString("n.b_c"));
}

void TestExpressionLine::deleteInTheLineDeletesNoKeys()
{
    LentCurve& a = fixture->editCurve("n.a", {{1, 1}, {2, 2}});
    fixture->selectKeys("n.a", {0, 1});
    line->type("t");
    for (const Qt::Key key : {Qt::Key_Delete, Qt::Key_Home, Qt::Key_Delete, Qt::Key_Delete,
                              Qt::Key_Backspace, Qt::Key_Left, Qt::Key_Right}) {
        line->press(key);
    }
    QCOMPARE(a.spline.getControlPointsNumber(), 2u);
    QCOMPARE(fixture->selectionOf("n.a").selectedPoints.size(), 2);
    QCOMPARE(line->text(), QString());
}

void TestExpressionLine::undoInTheLineIsTheLinesOwn()
{
    const LentCurve& a = fixture->editCurve("n.a", {});
    line->enter("t");
    line->typeKeys("+1");
    QTest::keyClick(&line->line(), Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(line->text(), QString("t"));
    QTest::keyClick(&line->line(), Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(expressionOf(a), QString("t"));
}

void TestExpressionLine::aModifierLetGoInTheLineLeavesTheMode()
{
    fixture->editCurve("n.a", {{1, 1}});
    line->takeUp();
    QTest::keyPress(&line->line(), Qt::Key_Shift, Qt::ShiftModifier);
    QTest::keyClick(&line->line(), Qt::Key_ParenLeft, Qt::ShiftModifier);
    QTest::keyRelease(&line->line(), Qt::Key_Shift);
    QCOMPARE(line->text(), QString("("));
    QCOMPARE(editor().getCurrentMode(), CurveEditor::DEFAULT);
}

void TestExpressionLine::anErrorShowsOneBoxForEachCurveAndIsMarked()
{
    const LentCurve& a = fixture->addCurve("n.a", {}, "t");
    const LentCurve& b = fixture->addCurve("n.b", {}, "t");
    fixture->addCurve("n.c", {{1, 1}});
    editor().selectNodes(QStringList{"n.a", "n.b", "n.c"});
    line->enter("t+foo*2");
    QCOMPARE(boxes->titles, QStringList(3, "Syntax error"));
    QCOMPARE(boxes->texts, QStringList(3, "Variable foo not found"));
    QCOMPARE(line->text(), QString("t+foo*2"));
    QCOMPARE(line->line().selectedText(), QString("foo"));
    QVERIFY(line->line().isErrorShown());
    QCOMPARE(expressionOf(a), QString("t"));
    QCOMPARE(expressionOf(b), QString("t"));
    line->leave();
    QCOMPARE(boxes->texts.size(), 3);
    QVERIFY(fixture->undoAll().isEmpty());
}

void TestExpressionLine::anErrorTypedAndLeftShowsOneBoxAndStaysMarked()
{
    fixture->editCurve("n.a", {}, "t");
    line->type("sin(t");
    line->press(Qt::Key_Tab);
    QCOMPARE(boxes->texts, QStringList{"Unmatched parenthesis"});
    QCOMPARE(line->line().selectedText(), QString("("));
    QVERIFY(line->line().isErrorShown());
    line->takeUp();
    line->leave();
    QCOMPARE(boxes->texts.size(), 1);
}

void TestExpressionLine::theNextKeyTakesTheMarkAway()
{
    const LentCurve& a = fixture->editCurve("n.a", {});
    const QPalette before = line->line().palette();
    line->enter("t+foo");
    QVERIFY(line->line().palette() != before);
    line->typeKeys("f"); // over the marked name
    QCOMPARE(line->text(), QString("t+f"));
    QCOMPARE(line->line().palette(), before);
    line->press(Qt::Key_Return);
    QCOMPARE(expressionOf(a), QString("t+f"));
    QCOMPARE(line->line().palette(), before);
}

void TestExpressionLine::aDirectCallInAFocusedLineShowsOneBox()
{
    fixture->editCurve("n.a", {});
    line->type("t+");
    editor().executeCommand();
    QCOMPARE(boxes->texts, QStringList{"Unknown"});
}

void TestExpressionLine::openingAMenuTakesTheTypedTextFirst()
{
    const LentCurve& a = fixture->editCurve("n.a", {}, "t");
    line->type("f");
    QVERIFY(EditorFixture::closesMenuOf(
        [&] { menuAt(editor(), "File")->exec(editor().mapToGlobal(QPoint(10, 10))); }));
    QCOMPARE(expressionOf(a), QString("f"));
}

void TestExpressionLine::openingAMenuWithAWrongTextShowsItsBoxOnce()
{
    const LentCurve& a = fixture->editCurve("n.a", {}, "t");
    line->type("f+");
    QMenu* const menu = menuAt(editor(), "File");
    menu->popup(editor().mapToGlobal(QPoint(10, 10)));
    menu->close(); // on some platforms the box has closed it
    QCOMPARE(boxes->texts, QStringList{"Unknown"});
    QVERIFY(line->line().isErrorShown());
    QCOMPARE(expressionOf(a), QString("t"));
}

void TestExpressionLine::aWrongTextIsToldBeforeTheMenuOfToolbarsRuns()
{
    const LentCurve& a = fixture->editCurve("n.a", {}, "t");
    line->type("f+");
    QVERIFY(EditorFixture::closesMenuOf([&] { editor().showTopToolbarMenu(); }));
    QCOMPARE(boxes->texts, QStringList{"Unknown"});
    QCOMPARE(expressionOf(a), QString("t"));
}

void TestExpressionLine::openingTheInsertMenuLeavesTheTypedTextAlone()
{
    if (QGuiApplication::platformName() == QLatin1String("offscreen")) {
        QSKIP("a menu takes the activation away on this platform");
    }
    const LentCurve& a = fixture->editCurve("n.a", {}, "t");
    line->type("f+");
    QVERIFY(EditorFixture::closesMenuOf([&] {
        QAction* const insert = menuAction(editor(), "Insert");
        QTest::mouseClick(editor().expressionTool->widgetForAction(insert), Qt::LeftButton);
    }));
    QCOMPARE(expressionOf(a), QString("t"));
    QVERIFY(boxes->texts.isEmpty());
    line->choose({"I vars", "fps"});
    QCOMPARE(expressionOf(a), QString("f+fps"));
    QVERIFY(boxes->texts.isEmpty());
    QCOMPARE(fixture->undoAll(), QStringList{"Set Expression"});
}

void TestExpressionLine::removingTheLastCurveWhileTypingMakesNoStep()
{
    const LentCurve& a = fixture->editCurve("n.a", {}, "t");
    for (const char* const typed : {"f", ""}) {
        line->type(typed);
        editor().selectNodes(QStringList());
        QVERIFY(!line->line().isEnabled());
        QCOMPARE(expressionOf(a), QString("t"));
        QVERIFY(!editor().getCmdManager()->nextUndo());
        editor().selectNodes(QStringList("n.a"));
    }
}

QTEST_MAIN(TestExpressionLine)
#include "test_expression_line.moc"
