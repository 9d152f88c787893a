// The buttons beside the expression line, and what a host may call.

#include "editor/EditorParts.h"
#include "support/BoxCatcher.h"
#include "support/ExpressionLine.h"
#include "support/FailOnWarning.h"
#include "support/HostEar.h"
#include "support/Patience.h"

#include "curves/CurveNodeBase.h"

class TestExpressionSlots : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void theDeleteButtonDeletesAllExpressionsInOneStep();
    void theDeleteButtonActsWhenPressed();
    void thePlusButtonAddsTheSplineAndTakesItOut();
    void thePlusButtonShowsTheTrueStateAfterwards();
    void thePlusSlotRefreshesSplinesButMakesNoStep();
    void theCanvasAddsTheSplineAsWell();
    void aCurveBehindAPrefixTakesExpressions();

    void setExpressionMarksTheCurvesAndAnnouncesIt();
    void setTcbMarksTheCurvesAndKeepsTheExpression();

    void deletingAnExpressionInAVisibleEditorGoesThroughTheCurve();
    void deletingInAVisibleEditorWithoutTheCurveLeavesTheSlot();
    void deletingInAVisibleEditorLeavesTheCurvesOfAGroup();
    void deletingInAHiddenEditorEmptiesTheSlot();

    void aHostMayRemoveTheCurvesWhenTheyChange();
    void aHostMayCloseAndDeleteTheEditorWhenACurveChanges();

private:
    CurveEditor& editor() { return fixture->editor; }
    CurveNodeBase* leaf(const QString& name);

    std::unique_ptr<EditorFixture> fixture;
    std::unique_ptr<ExpressionLine> line;
};

CurveNodeBase* TestExpressionSlots::leaf(const QString& name)
{
    return dynamic_cast<CurveNodeBase*>(fixture->logic().findCurve(name));
}

void TestExpressionSlots::init()
{
    failOnUnexpectedWarning();
    fixture = std::make_unique<EditorFixture>();
    line = std::make_unique<ExpressionLine>(*fixture);
}

void TestExpressionSlots::cleanup()
{
    line.reset();
    fixture.reset();
}

void TestExpressionSlots::theDeleteButtonDeletesAllExpressionsInOneStep()
{
    const LentCurve& a = fixture->addCurve("n.a", {}, "t");
    const LentCurve& b = fixture->addCurve("n.b", {{1, 1}});
    const LentCurve& c = fixture->addCurve("n.c", {}, "f");
    editor().selectNodes(QStringList{"n.a", "n.b", "n.c"});
    HostEar host(editor());
    QTest::mouseClick(editor().deleteCurve, Qt::LeftButton);
    QCOMPARE(expressionOf(a), QString("none"));
    QCOMPARE(expressionOf(b), QString("none"));
    QCOMPARE(expressionOf(c), QString("none"));
    QCOMPARE(line->text(), QString());
    QVERIFY(!editor().deleteCurve->isEnabled());
    QCOMPARE(host.take(), (QStringList{"n|a", "n|b", "n|c"}));
    QCOMPARE(fixture->undoAll(), QStringList{"Delete Expression"});
    QCOMPARE(host.take(), (QStringList{"n|a", "n|c"}));
    QCOMPARE(expressionOf(a), QString("t"));
    QCOMPARE(expressionOf(c), QString("f"));
}

void TestExpressionSlots::theDeleteButtonActsWhenPressed()
{
    const LentCurve& a = fixture->editCurve("n.a", {}, "t");
    QTest::mousePress(editor().deleteCurve, Qt::LeftButton);
    QCOMPARE(expressionOf(a), QString("none"));
    QTest::mouseRelease(editor().deleteCurve, Qt::LeftButton);
    QCOMPARE(fixture->undoAll(), QStringList{"Delete Expression"});
}

void TestExpressionSlots::thePlusButtonAddsTheSplineAndTakesItOut()
{
    const LentCurve& a = fixture->editCurve("n.a", {{1, 1}});
    QVERIFY(!editor().addToSpline->isEnabled());
    line->enter("t*2");
    QVERIFY(editor().addToSpline->isEnabled());
    QTest::mouseClick(editor().addToSpline, Qt::LeftButton);
    QVERIFY(a.spline.isAddFunc());
    QVERIFY(editor().addToSpline->isChecked());
    QCOMPARE(leaf("n.a")->evaluate(3.0), 7.0);
    QTest::mouseClick(editor().addToSpline, Qt::LeftButton);
    QVERIFY(!a.spline.isAddFunc());
    QVERIFY(!editor().addToSpline->isChecked());
    QCOMPARE(fixture->undoAll(), (QStringList{"Add Spline to Expression",
                                              "Add Spline to Expression", "Set Expression"}));
    QVERIFY(!editor().addToSpline->isChecked());
}

void TestExpressionSlots::thePlusButtonShowsTheTrueStateAfterwards()
{
    // A sum with an expression-only curve behind it: the click takes the splines out of both.
    LentCurve& a = fixture->addCurve("n.a", {{1, 1}}, "t");
    LentCurve& b = fixture->addCurve("n.b", {{1, 1}}, "t");
    a.spline.setAddFunc(true);
    editor().selectNodes(QStringList{"n.a", "n.b"});
    QVERIFY(editor().addToSpline->isChecked());
    QTest::mouseClick(editor().addToSpline, Qt::LeftButton);
    QVERIFY(!a.spline.isAddFunc() && !b.spline.isAddFunc());
    QVERIFY(!editor().addToSpline->isChecked());
    editor().getCmdManager()->undo();
    QVERIFY(a.spline.isAddFunc() && !b.spline.isAddFunc());
    QVERIFY(editor().addToSpline->isChecked());
}

void TestExpressionSlots::thePlusSlotRefreshesSplinesButMakesNoStep()
{
    const LentCurve& a = fixture->editCurve("n.a", {{1, 1}});
    editor().addToSpline->setChecked(true);
    editor().switchAddFuncToSpline();
    QVERIFY(!editor().addToSpline->isChecked());
    QVERIFY(!a.spline.isAddFunc());
    QVERIFY(fixture->undoAll().isEmpty());
}

void TestExpressionSlots::theCanvasAddsTheSplineAsWell()
{
    const LentCurve& a = fixture->editCurve("n.a", {{1, 1}}, "t");
    QVERIFY(QMetaObject::invokeMethod(&fixture->logic(), "switchAddFuncToSpline"));
    QVERIFY(a.spline.isAddFunc());
    fixture->editCurve("n.b", {{1, 1}});
    QVERIFY(QMetaObject::invokeMethod(&fixture->logic(), "switchAddFuncToSpline"));
    QCOMPARE(fixture->undoAll(), QStringList{"Add Spline to Expression"});
}

void TestExpressionSlots::aCurveBehindAPrefixTakesExpressions()
{
    // The list search ends at "n.width" when it looks for "n.width2".
    LentCurve second;
    fixture->addCurve("n.width", {{1, 1}});
    editor().addCurve("n", "width2", Qt::red, 0, &second.spline, &second.expression, 0, 1, false,
                      true);
    QVERIFY(!editor().searchAllNodeList("n.width2"));
    editor().setCurveEditableOn(editor().searchAllNodeListCurveName("n.width2"));
    editor().selectNodes(QStringList("n.width2"));
    line->enter("t");
    QCOMPARE(expressionOf(second), QString("t"));
    QTest::mouseClick(editor().addToSpline, Qt::LeftButton);
    QVERIFY(second.spline.isAddFunc());
    QTest::mouseClick(editor().deleteCurve, Qt::LeftButton);
    QCOMPARE(expressionOf(second), QString("none"));
    QCOMPARE(fixture->undoAll().size(), 3);
    editor().removeNode("n");
}

void TestExpressionSlots::setExpressionMarksTheCurvesAndAnnouncesIt()
{
    fixture->editCurve("n.a", {{1, 1}}, "t");
    fixture->paint();
    QVERIFY(!leaf("n.a")->hasChanged());
    QSignalSpy announced(&fixture->logic(), SIGNAL(changeCommandLine()));
    QVERIFY(QMetaObject::invokeMethod(&editor(), "setExpression"));
    QVERIFY(leaf("n.a")->hasChanged());
    QCOMPARE(announced.count(), 1);
    QVERIFY(fixture->undoAll().isEmpty());
}

void TestExpressionSlots::setTcbMarksTheCurvesAndKeepsTheExpression()
{
    const LentCurve& a = fixture->editCurve("n.a", {{1, 1}}, "t");
    fixture->paint();
    QSignalSpy announced(&fixture->logic(), SIGNAL(changeCommandLine()));
    QVERIFY(QMetaObject::invokeMethod(&editor(), "setTcb"));
    QVERIFY(leaf("n.a")->hasChanged());
    QCOMPARE(announced.count(), 1);
    QCOMPARE(expressionOf(a), QString("t"));
}

void TestExpressionSlots::deletingAnExpressionInAVisibleEditorGoesThroughTheCurve()
{
    LentCurve& a = fixture->editCurve("n.a", {{1, 1}}, "t");
    a.spline.setAddFunc(true);
    FunctionFloatBase* other = nullptr;
    editor().deleteExpression("n", "a", &other);
    QCOMPARE(expressionOf(a), QString("none"));
    QVERIFY(!a.spline.isAddFunc());
    QCOMPARE(line->text(), QString());
    QVERIFY(fixture->undoAll().isEmpty());
}

void TestExpressionSlots::deletingInAVisibleEditorWithoutTheCurveLeavesTheSlot()
{
    LentCurve& a = fixture->editCurve("n.a", {{1, 1}}, "t");
    line->line().setText("being typed");
    editor().setCurveEditableOff(editor().searchAllNodeList("n.a"));
    editor().deleteExpression("n", "a", &a.expression);
    QCOMPARE(expressionOf(a), QString("t"));
    QCOMPARE(line->text(), QString());
}

void TestExpressionSlots::deletingInAVisibleEditorLeavesTheCurvesOfAGroup()
{
    LentCurve& b = fixture->editCurve("n.a.b", {}, "t");
    editor().deleteExpression("n", "a", nullptr);
    QCOMPARE(expressionOf(b), QString("t"));
}

void TestExpressionSlots::deletingInAHiddenEditorEmptiesTheSlot()
{
    LentCurve& a = fixture->editCurve("n.a", {{1, 1}}, "t");
    editor().hide();
    editor().deleteExpression("n", "a", &a.expression);
    QCOMPARE(expressionOf(a), QString("none"));
    editor().deleteExpression("n", "a", &a.expression);
    QVERIFY(!a.expression);
    editor().deleteExpression("n", "a", nullptr);
}

void TestExpressionSlots::aHostMayRemoveTheCurvesWhenTheyChange()
{
    const LentCurve& a = fixture->addCurve("n.a", {});
    const LentCurve& b = fixture->addCurve("n.b", {});
    editor().selectNodes(QStringList{"n.a", "n.b"});
    const auto connection = connect(&editor(), &CurveEditor::curveHasChanged, this,
                                    [this] { editor().removeNode("n"); });
    line->enter("t");
    QVERIFY(disconnect(connection));
    QCOMPARE(expressionOf(a), QString("t"));
    QCOMPARE(expressionOf(b), QString("t"));
    QVERIFY(!line->line().isEnabled());
    QCOMPARE(fixture->undoAll(), QStringList{"Set Expression"});
    QCOMPARE(expressionOf(a), QString("none"));
}

void TestExpressionSlots::aHostMayCloseAndDeleteTheEditorWhenACurveChanges()
{
    LentCurve curve;
    QPointer<CurveEditor> other = new CurveEditor(nullptr, QString());
    other->addCurve("m", "a", Qt::red, 0, &curve.spline, &curve.expression, 0, 1, false, true);
    other->setDefaultSelected("m", "a");
    other->show();
    QApplication::setActiveWindow(other);
    connect(other, &CurveEditor::curveHasChanged, other, [&] {
        other->close();
        other->deleteLater();
    });
    other->commandLine->setFocus();
    QTest::keyClick(other->commandLine, Qt::Key_T);
    QTest::keyClick(other->commandLine, Qt::Key_Return);
    QCOMPARE(expressionOf(curve), QString("t"));
    QTRY_VERIFY_WITH_TIMEOUT(!other, patience);
}

QTEST_MAIN(TestExpressionSlots)
#include "test_expression_slots.moc"

#include <QSignalSpy>
