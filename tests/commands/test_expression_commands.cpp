// Setting and deleting expressions.

#include "support/BoxCatcher.h"
#include "support/ExpressionSteps.h"
#include "support/FailOnWarning.h"
#include "support/HostEar.h"

using namespace curve_editor;

class TestExpressionCommands : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void anExpressionSetOnThreeCurvesGivesThreeTrees();
    void undoOfAFirstExpressionEmptiesTheSlotAndClearsAddFunc();
    void undoOfAChangedExpressionRestoresWhatTheTreePrints();
    void undoOfAChangedExpressionLeavesAddFunc();
    void withNoRecordsSettingIsRefused();
    void nullRecordsArePassedOver();
    void aTextThatFailsLeavesAllCurvesAndNoStep();
    void settingReportsTheCurvesThatTookIt();
    void settingWritesIntoTheSlotOfACurveThatHasLeftTheCanvas();
    void undoneTextWithAVariableThatHasGoneShowsTheBoxAndLeavesTheSlotEmpty();
    void theHostHearsOfAStepWhileTheLineShowsWhatItSet_data();
    void theHostHearsOfAStepWhileTheLineShowsWhatItSet();

    void deletingNamesACurveWithoutExpressionAndUndoLeavesItAlone();
    void deletingIsUndoneOnACurveThatHasLeftTheCanvas();
    void deletingAgainOnACurveThatHasLeftTheCanvasNoLongerAddsTheSpline();
    void deletingOffTheCanvasEmptiesTheSlotAlone();
    void deletingOffTheCanvasIsRedoneTheSameOnTheCanvas();
    void aSumWithoutExpressionIsNotBroughtBack();
    void deletingMakesASplineOfASplinePlusExpression();
    void deletingPassesOverRecordsWithoutASlot();
    void deletingNothingIsAStep();

    void aCurveThatTookTheNameIsNotWrittenTo();
    void aSlotWhoseSplineIsGoneIsLeftAlone();
    void labels();

private:
    std::unique_ptr<EditorFixture> fixture;
    std::unique_ptr<ExpressionSteps> steps;
    std::unique_ptr<BoxCatcher> boxes;
};

void TestExpressionCommands::init()
{
    failOnUnexpectedWarning();
    fixture = std::make_unique<EditorFixture>();
    steps = std::make_unique<ExpressionSteps>(*fixture);
    boxes = std::make_unique<BoxCatcher>();
}

void TestExpressionCommands::cleanup()
{
    boxes.reset();
    steps.reset();
    fixture.reset();
}

void TestExpressionCommands::anExpressionSetOnThreeCurvesGivesThreeTrees()
{
    const LentCurve& a = fixture->addCurve("n.a", {});
    const LentCurve& b = fixture->addCurve("n.b", {}, "f");
    const LentCurve& c = fixture->addCurve("n.c", {});
    QVERIFY(steps->parse("t+1", {"n.a", "n.b", "n.c"}));
    QVERIFY(a.expression != b.expression && b.expression != c.expression &&
            a.expression != c.expression);
    QVERIFY(steps->remove(QStringList{"n.b"}));
    QCOMPARE(expressionOf(a), QString("t+1"));
    QCOMPARE(expressionOf(b), QString("none"));
    QCOMPARE(expressionOf(c), QString("t+1"));
}

void TestExpressionCommands::undoOfAFirstExpressionEmptiesTheSlotAndClearsAddFunc()
{
    LentCurve& a = fixture->editCurve("n.a", {{1, 1}});
    QVERIFY(steps->parse("t", {"n.a"}));
    a.spline.setAddFunc(true);
    steps->undo();
    QCOMPARE(expressionOf(a), QString("none"));
    QVERIFY(!a.spline.isAddFunc());
    QCOMPARE(fixture->editor.commandLine->text(), QString());
    steps->redo();
    QCOMPARE(expressionOf(a), QString("t"));
    QCOMPARE(fixture->editor.commandLine->text(), QString("t"));
}

void TestExpressionCommands::undoOfAChangedExpressionRestoresWhatTheTreePrints()
{
    const LentCurve& a = fixture->editCurve("n.a", {});
    QVERIFY(steps->parse(" ( t ) + 1.50 ", {"n.a"}));
    QCOMPARE(fixture->editor.commandLine->text(), QString(" ( t ) + 1.50 "));
    QVERIFY(steps->parse("f", {"n.a"}));
    steps->undo();
    QCOMPARE(expressionOf(a), QString("t+1.5"));
    QCOMPARE(fixture->editor.commandLine->text(), QString("t+1.5"));
}

void TestExpressionCommands::undoOfAChangedExpressionLeavesAddFunc()
{
    LentCurve& a = fixture->editCurve("n.a", {{1, 1}}, "t");
    QVERIFY(steps->parse("f", {"n.a"}));
    a.spline.setAddFunc(true);
    steps->undo();
    QVERIFY(a.spline.isAddFunc());
    QCOMPARE(expressionOf(a), QString("t"));
}

void TestExpressionCommands::withNoRecordsSettingIsRefused()
{
    QVERIFY(!steps->parse("t", {}));
    QVERIFY(fixture->undoAll().isEmpty());
}

void TestExpressionCommands::nullRecordsArePassedOver()
{
    const LentCurve& a = fixture->editCurve("n.a", {});
    QVERIFY(steps->parse("t", {"unknown", "n.a", "unknown"}));
    QCOMPARE(expressionOf(a), QString("t"));
    QVERIFY(!steps->parse("f", {"unknown"}));
    QVERIFY(steps->remove({"unknown", "n.a"}));
    QCOMPARE(fixture->undoAll(), (QStringList{"Delete Expression", "Set Expression"}));
}

void TestExpressionCommands::aTextThatFailsLeavesAllCurvesAndNoStep()
{
    const LentCurve& a = fixture->addCurve("n.a", {}, "t");
    const LentCurve& b = fixture->addCurve("n.b", {});
    HostEar host(fixture->editor);
    QVERIFY(!steps->parse("t+", {"n.a", "n.b"}));
    QCOMPARE(boxes->titles, (QStringList{"Syntax error", "Syntax error"}));
    QCOMPARE(expressionOf(a), QString("t"));
    QCOMPARE(expressionOf(b), QString("none"));
    QVERIFY(fixture->undoAll().isEmpty());
    QVERIFY(host.take().isEmpty());
}

void TestExpressionCommands::settingReportsTheCurvesThatTookIt()
{
    fixture->addCurve("n.a", {});
    fixture->addCurve("n.x.b", {}, "t");
    HostEar host(fixture->editor);
    QVERIFY(steps->parse("f", {"n.a", "n.x.b"}));
    QCOMPARE(host.take(), (QStringList{"n|a", "n|x.b"}));
    steps->undo();
    QCOMPARE(host.take(), (QStringList{"n|a", "n|x.b"}));
    steps->redo();
    QCOMPARE(host.take(), (QStringList{"n|a", "n|x.b"}));
}

void TestExpressionCommands::settingWritesIntoTheSlotOfACurveThatHasLeftTheCanvas()
{
    const LentCurve& a = fixture->editCurve("n.a", {}, "t");
    QVERIFY(steps->parse("f", {"n.a"}));
    fixture->editor.setCurveEditableOff(fixture->editor.searchAllNodeList("n.a"));
    steps->undo();
    QCOMPARE(expressionOf(a), QString("t"));
    steps->redo();
    QCOMPARE(expressionOf(a), QString("f"));
    QVERIFY(steps->remove(QStringList{"n.a"}));
    QVERIFY(steps->parse("t*2", {"n.a"}));
    steps->undo();
    QCOMPARE(expressionOf(a), QString("none"));
}

void TestExpressionCommands::undoneTextWithAVariableThatHasGoneShowsTheBoxAndLeavesTheSlotEmpty()
{
    const LentCurve& a = fixture->editCurve("n.a", {});
    fixture->addCurve("n.b", {{1, 1}});
    QVERIFY(steps->parse("n.b", {"n.a"}));
    QVERIFY(steps->parse("t", {"n.a"}));
    fixture->editor.removeCurve("n", "b");
    steps->undo();
    QCOMPARE(boxes->texts, QStringList{"Variable n.b not found"});
    QCOMPARE(expressionOf(a), QString("none"));
    steps->undo();
    steps->redo();
    QCOMPARE(boxes->texts.size(), 2); // the text that was typed names it as well
    QCOMPARE(expressionOf(a), QString("none"));
    steps->redo();
    QCOMPARE(expressionOf(a), QString("t"));
}

void TestExpressionCommands::theHostHearsOfAStepWhileTheLineShowsWhatItSet_data()
{
    QTest::addColumn<bool>("isDeletion");
    QTest::addColumn<QString>("text");
    QTest::newRow("setting") << false << "f";
    QTest::newRow("deleting") << true << "";
}

void TestExpressionCommands::theHostHearsOfAStepWhileTheLineShowsWhatItSet()
{
    QFETCH(bool, isDeletion);
    QFETCH(QString, text);
    fixture->editCurve("n.a", {}, "t");
    QStringList heard;
    connect(&fixture->editor, &CurveEditor::curveHasChanged, this,
            [&] { heard.append(fixture->editor.commandLine->text()); });
    QVERIFY(isDeletion ? steps->remove(QStringList{"n.a"}) : steps->parse(text, {"n.a"}));
    QCOMPARE(heard, QStringList{text});
    steps->undo(); // the line follows after the host
    QCOMPARE(heard, QStringList(2, text));
    QCOMPARE(fixture->editor.commandLine->text(), QString("t"));
}

void TestExpressionCommands::deletingNamesACurveWithoutExpressionAndUndoLeavesItAlone()
{
    const LentCurve& a = fixture->addCurve("n.a", {}, "t");
    LentCurve& b = fixture->addCurve("n.b", {{1, 1}});
    HostEar host(fixture->editor);
    QVERIFY(steps->remove(QStringList{"n.a", "n.b"}));
    QCOMPARE(host.take(), (QStringList{"n|a", "n|b"}));
    b.setExpression("f");
    steps->undo();
    QCOMPARE(host.take(), QStringList{"n|a"});
    QCOMPARE(expressionOf(a), QString("t"));
    QCOMPARE(expressionOf(b), QString("f"));
}

void TestExpressionCommands::deletingIsUndoneOnACurveThatHasLeftTheCanvas()
{
    LentCurve& a = fixture->editCurve("n.a", {{1, 1}}, "t");
    a.spline.setAddFunc(true);
    NodeStruct* const record = fixture->editor.searchAllNodeList("n.a");
    QVERIFY(steps->removeRecords({record}));
    fixture->editor.setCurveEditableOff(record);
    steps->undo();
    QCOMPARE(expressionOf(a), QString("t"));
    QVERIFY(a.spline.isAddFunc());
    fixture->editor.setCurveEditableOn(record);
    CurveNode* const returned = fixture->logic().findCurve("n.a");
    QCOMPARE(returned->expression(), a.expression);
    QCOMPARE(returned->curveType(), 2);
}

void TestExpressionCommands::deletingAgainOnACurveThatHasLeftTheCanvasNoLongerAddsTheSpline()
{
    LentCurve& lent = fixture->editCurve("n.a", {{10, 10}}, "t");
    lent.spline.setAddFunc(true);
    QVERIFY(steps->remove(QStringList{"n.a"}));
    fixture->editor.removeCurveFromEditing("n.a");
    steps->undo();
    QVERIFY(lent.spline.isAddFunc());
    steps->redo();
    QCOMPARE(expressionOf(lent), QString("none"));
    QVERIFY(!lent.spline.isAddFunc());
}

void TestExpressionCommands::deletingOffTheCanvasEmptiesTheSlotAlone()
{
    LentCurve& a = fixture->editCurve("n.a", {{1, 1}}, "t");
    a.spline.setAddFunc(true);
    NodeStruct* const record = fixture->editor.searchAllNodeList("n.a");
    fixture->editor.setCurveEditableOff(record);
    QVERIFY(steps->removeRecords({record}));
    QCOMPARE(expressionOf(a), QString("none"));
    QVERIFY(a.spline.isAddFunc());
    fixture->editor.setCurveEditableOn(record);
    QVERIFY(steps->parse("f", {"n.a"}));
    for (int round = 0; round < 2; ++round) {
        QCOMPARE(expressionOf(a), QString("f"));
        QVERIFY(a.spline.isAddFunc());
        steps->undo(); // of a first expression: a plain spline is left
        QVERIFY(!a.spline.isAddFunc());
        steps->undo();
        QVERIFY(a.spline.isAddFunc());
        QCOMPARE(expressionOf(a), QString("t"));
        steps->redo();
        steps->redo();
    }
}

void TestExpressionCommands::deletingOffTheCanvasIsRedoneTheSameOnTheCanvas()
{
    LentCurve& a = fixture->editCurve("n.a", {{1, 1}}, "t");
    a.spline.setAddFunc(true);
    NodeStruct* const record = fixture->editor.searchAllNodeList("n.a");
    fixture->editor.setCurveEditableOff(record);
    QVERIFY(steps->removeRecords({record}));
    fixture->editor.setCurveEditableOn(record);
    steps->undo();
    steps->redo();
    QCOMPARE(expressionOf(a), QString("none"));
    QVERIFY(a.spline.isAddFunc());
}

void TestExpressionCommands::aSumWithoutExpressionIsNotBroughtBack()
{
    // As a file leaves it whose expression does not parse.
    LentCurve& a = fixture->editCurve("n.a", {{1, 1}});
    a.spline.setAddFunc(true);
    QVERIFY(steps->parse("t", {"n.a"}));
    QVERIFY(a.spline.isAddFunc());
    steps->undo();
    QVERIFY(!a.spline.isAddFunc());
    a.spline.setAddFunc(true);
    QVERIFY(steps->remove(QStringList{"n.a"}));
    steps->undo();
    QVERIFY(!a.spline.isAddFunc());
    QCOMPARE(expressionOf(a), QString("none"));
}

void TestExpressionCommands::deletingMakesASplineOfASplinePlusExpression()
{
    LentCurve& a = fixture->editCurve("n.a", {{1, 1}}, "t");
    a.spline.setAddFunc(true);
    CurveNode* const object = fixture->logic().findCurve("n.a");
    QCOMPARE(object->curveType(), 2);
    QVERIFY(steps->remove(QStringList{"n.a"}));
    for (int round = 0; round < 2; ++round) {
        QCOMPARE(object->curveType(), 0);
        QCOMPARE(expressionOf(a), QString("none"));
        QCOMPARE(fixture->editor.commandLine->text(), QString());
        steps->undo();
        QCOMPARE(object->curveType(), 2);
        QCOMPARE(fixture->editor.commandLine->text(), QString("t"));
        steps->redo();
    }
}

void TestExpressionCommands::deletingPassesOverRecordsWithoutASlot()
{
    SplineBase spline;
    fixture->editor.addCurve("n", "s", Qt::red, 0, &spline, nullptr, 0, 1, false, true);
    fixture->addCurve("n.a", {}, "t");
    HostEar host(fixture->editor);
    QVERIFY(steps->remove(QStringList{"n.s", "n.a"}));
    QCOMPARE(host.take(), QStringList{"n|a"});
    QVERIFY(steps->parse("f", {"n.s", "n.a"}));
    QCOMPARE(fixture->undoAll().size(), 2);
    fixture->editor.removeCurve("n", "s");
}

void TestExpressionCommands::deletingNothingIsAStep()
{
    QVERIFY(steps->remove(QStringList()));
    QCOMPARE(fixture->undoAll(), QStringList{"Delete Expression"});
}

void TestExpressionCommands::aCurveThatTookTheNameIsNotWrittenTo()
{
    const LentCurve& first = fixture->editCurve("n.a", {{1, 1}}, "t");
    QVERIFY(steps->parse("f", {"n.a"}));
    QVERIFY(steps->remove(QStringList{"n.a"}));
    fixture->editor.removeCurve("n", "a");
    LentCurve second;
    second.addKey(1, 1);
    second.setExpression("t*3");
    fixture->editor.addCurve("n", "a", Qt::red, 0, &second.spline, &second.expression, 0, 1, true,
                             true);
    steps->undo();
    QCOMPARE(expressionOf(first), QString("f"));
    steps->undo();
    QCOMPARE(expressionOf(first), QString("t"));
    QCOMPARE(expressionOf(second), QString("t*3"));
    fixture->editor.removeCurve("n", "a");
}

void TestExpressionCommands::aSlotWhoseSplineIsGoneIsLeftAlone()
{
    auto lent = std::make_unique<LentCurve>();
    fixture->editor.addCurve("n", "a", Qt::red, 0, &lent->spline, &lent->expression, 0, 1, true,
                             true);
    fixture->editor.setDefaultSelected("n", "a");
    QVERIFY(steps->parse("t", {"n.a"}));
    QVERIFY(steps->addFunc());
    QVERIFY(steps->remove(QStringList{"n.a"}));
    lent.reset();
    QCOMPARE(fixture->undoAll().size(), 3);
    while (fixture->editor.getCmdManager()->redo()) {
    }
    QCOMPARE(fixture->undoAll().size(), 3);
}

void TestExpressionCommands::labels()
{
    fixture->editCurve("n.a", {{1, 1}});
    QVERIFY(steps->parse("t", {"n.a"}));
    QVERIFY(steps->addFunc());
    QVERIFY(steps->remove(QStringList{"n.a"}));
    QCOMPARE(fixture->undoAll(),
             (QStringList{"Delete Expression", "Add Spline to Expression", "Set Expression"}));
}

QTEST_MAIN(TestExpressionCommands)
#include "test_expression_commands.moc"
