// Setting and deleting expressions.

#include "commands/ExpressionSteps.h"
#include "support/FailOnWarning.h"

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
    std::unique_ptr<DocumentFixture> fixture;
    std::unique_ptr<ExpressionSteps> steps;
};

void TestExpressionCommands::init()
{
    failOnUnexpectedWarning();
    fixture = std::make_unique<DocumentFixture>();
    steps = std::make_unique<ExpressionSteps>(*fixture);
}

void TestExpressionCommands::cleanup()
{
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
    QCOMPARE(fixture->lineText, QString());
    steps->redo();
    QCOMPARE(expressionOf(a), QString("t"));
    QCOMPARE(fixture->lineText, QString("t"));
}

void TestExpressionCommands::undoOfAChangedExpressionRestoresWhatTheTreePrints()
{
    const LentCurve& a = fixture->editCurve("n.a", {});
    QVERIFY(steps->parse(" ( t ) + 1.50 ", {"n.a"}));
    QCOMPARE(fixture->lineText, QString(" ( t ) + 1.50 "));
    QVERIFY(steps->parse("f", {"n.a"}));
    steps->undo();
    QCOMPARE(expressionOf(a), QString("t+1.5"));
    QCOMPARE(fixture->lineText, QString("t+1.5"));
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
    fixture->takeCalls();
    QVERIFY(!steps->parse("t+", {"n.a", "n.b"}));
    // A box for each curve, then the report of none.
    QCOMPARE(fixture->takeCalls(),
             (QStringList{"box: Syntax error", "box: Syntax error", "refresh"}));
    QVERIFY(!fixture->parsed.errorSpans.empty()); // which the line marks
    QCOMPARE(expressionOf(a), QString("t"));
    QCOMPARE(expressionOf(b), QString("none"));
    QVERIFY(fixture->undoAll().isEmpty());
    QVERIFY(fixture->takeReports().isEmpty());
}

void TestExpressionCommands::settingReportsTheCurvesThatTookIt()
{
    fixture->addCurve("n.a", {});
    fixture->addCurve("n.x.b", {}, "t");
    fixture->takeCalls();
    QVERIFY(steps->parse("f", {"n.a", "n.x.b"}));
    QCOMPARE(fixture->takeReports(), (QStringList{"n|a", "n|x.b"}));
    steps->undo();
    QCOMPARE(fixture->takeReports(), (QStringList{"n|a", "n|x.b"}));
    steps->redo();
    QCOMPARE(fixture->takeReports(), (QStringList{"n|a", "n|x.b"}));
}

void TestExpressionCommands::settingWritesIntoTheSlotOfACurveThatHasLeftTheCanvas()
{
    const LentCurve& a = fixture->editCurve("n.a", {}, "t");
    QVERIFY(steps->parse("f", {"n.a"}));
    fixture->leaveCanvas("n.a");
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
    fixture->removeCurve("n.b");
    steps->undo();
    QCOMPARE(fixture->texts, QStringList{"Variable n.b not found"});
    QCOMPARE(expressionOf(a), QString("none"));
    steps->undo();
    steps->redo();
    QCOMPARE(fixture->texts.size(), 2); // the text that was typed names it as well
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
    fixture->whenCalled = [&](const QString& call) {
        if (call == "n|a") {
            heard.append(fixture->lineText);
        }
    };
    QVERIFY(isDeletion ? steps->remove(QStringList{"n.a"}) : steps->parse(text, {"n.a"}));
    QCOMPARE(heard, QStringList{text});
    steps->undo(); // the line follows after the host
    QCOMPARE(heard, QStringList(2, text));
    QCOMPARE(fixture->lineText, QString("t"));
}

void TestExpressionCommands::deletingNamesACurveWithoutExpressionAndUndoLeavesItAlone()
{
    const LentCurve& a = fixture->addCurve("n.a", {}, "t");
    LentCurve& b = fixture->addCurve("n.b", {{1, 1}});
    fixture->takeCalls();
    QVERIFY(steps->remove(QStringList{"n.a", "n.b"}));
    QCOMPARE(fixture->takeReports(), (QStringList{"n|a", "n|b"}));
    b.setExpression("f");
    steps->undo();
    QCOMPARE(fixture->takeReports(), QStringList{"n|a"});
    QCOMPARE(expressionOf(a), QString("t"));
    QCOMPARE(expressionOf(b), QString("f"));
}

void TestExpressionCommands::deletingIsUndoneOnACurveThatHasLeftTheCanvas()
{
    LentCurve& a = fixture->editCurve("n.a", {{1, 1}}, "t");
    a.spline.setAddFunc(true);
    NodeStruct* const record = fixture->record("n.a");
    QVERIFY(steps->removeRecords({record}));
    fixture->leaveCanvas("n.a");
    steps->undo();
    QCOMPARE(expressionOf(a), QString("t"));
    QVERIFY(a.spline.isAddFunc());
    fixture->enterCanvas(record, nullptr);
    CurveNode* const returned = fixture->tree().findCurve("n.a");
    QCOMPARE(returned->expression(), a.expression);
    QCOMPARE(returned->curveType(), 2);
}

void TestExpressionCommands::deletingAgainOnACurveThatHasLeftTheCanvasNoLongerAddsTheSpline()
{
    LentCurve& lent = fixture->editCurve("n.a", {{10, 10}}, "t");
    lent.spline.setAddFunc(true);
    QVERIFY(steps->remove(QStringList{"n.a"}));
    fixture->leaveCanvas("n.a");
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
    NodeStruct* const record = fixture->record("n.a");
    fixture->leaveCanvas("n.a");
    QVERIFY(steps->removeRecords({record}));
    QCOMPARE(expressionOf(a), QString("none"));
    QVERIFY(a.spline.isAddFunc());
    fixture->enterCanvas(record, nullptr);
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
    NodeStruct* const record = fixture->record("n.a");
    fixture->leaveCanvas("n.a");
    QVERIFY(steps->removeRecords({record}));
    fixture->enterCanvas(record, nullptr);
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
    CurveNode* const object = fixture->tree().findCurve("n.a");
    QCOMPARE(object->curveType(), 2);
    QVERIFY(steps->remove(QStringList{"n.a"}));
    for (int round = 0; round < 2; ++round) {
        QCOMPARE(object->curveType(), 0);
        QCOMPARE(expressionOf(a), QString("none"));
        QCOMPARE(fixture->lineText, QString());
        steps->undo();
        QCOMPARE(object->curveType(), 2);
        QCOMPARE(fixture->lineText, QString("t"));
        steps->redo();
    }
}

void TestExpressionCommands::deletingPassesOverRecordsWithoutASlot()
{
    SplineBase spline;
    fixture->lend("n.s", &spline, nullptr);
    fixture->addCurve("n.a", {}, "t");
    fixture->takeCalls();
    QVERIFY(steps->remove(QStringList{"n.s", "n.a"}));
    QCOMPARE(fixture->takeReports(), QStringList{"n|a"});
    QVERIFY(steps->parse("f", {"n.s", "n.a"}));
    QCOMPARE(fixture->undoAll().size(), 2);
    fixture->removeCurve("n.s");
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
    fixture->removeCurve("n.a");
    LentCurve second;
    second.addKey(1, 1);
    second.setExpression("t*3");
    fixture->lend("n.a", &second.spline, &second.expression);
    steps->undo();
    QCOMPARE(expressionOf(first), QString("f"));
    steps->undo();
    QCOMPARE(expressionOf(first), QString("t"));
    QCOMPARE(expressionOf(second), QString("t*3"));
    fixture->removeCurve("n.a");
}

void TestExpressionCommands::aSlotWhoseSplineIsGoneIsLeftAlone()
{
    auto lent = std::make_unique<LentCurve>();
    fixture->lend("n.a", &lent->spline, &lent->expression);
    fixture->edit({"n.a"});
    QVERIFY(steps->parse("t", {"n.a"}));
    QVERIFY(steps->addFunc());
    QVERIFY(steps->remove(QStringList{"n.a"}));
    lent.reset();
    QCOMPARE(fixture->undoAll().size(), 3);
    while (fixture->manager.redo()) {
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
