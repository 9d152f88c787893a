// Taking keys and expression away from curves at once.

#include "commands/WholeCurves.h"
#include "support/BoxCatcher.h"
#include "support/FailOnWarning.h"
#include "support/HostEar.h"
#include "support/ParserVariable.h"

#include "commands/CommandDelCurves.h"
#include "files/CurveType.h"

using namespace curve_editor;

class TestDeletingCurves : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void keysAndExpressionBothReturnAndTheHostHearsOnceAStep_data()
    {
        QTest::addColumn<bool>("isSum");
        QTest::newRow("spline plus expression") << true;
        QTest::newRow("expression over a hidden spline") << false;
    }

    void keysAndExpressionBothReturnAndTheHostHearsOnceAStep()
    {
        QFETCH(bool, isSum);
        EditorFixture fixture;
        LentCurve& curve = editSum(fixture, "n.a", {{1, 1}, {2, 2}}, "t*2");
        curve.spline.setAddFunc(isSum);
        if (isSum) {
            fixture.selectKeys("n.a", {1});
        }
        const QList<PointInfo*> keys = keysOf(curve.spline);
        const SplineState before(curve.spline);
        HostEar host(fixture.editor);
        fixture.editor.deleteCurveAndExp("n", "a", nullptr);
        for (int round = 0; round < 3; ++round) {
            QCOMPARE(host.take(), QStringList{"n|a"});
            QCOMPARE(curve.spline.getControlPointsNumber(), 0u);
            QCOMPARE(textOf(curve), QString("none"));
            QVERIFY(!curve.spline.isAddFunc());
            QCOMPARE(commandLineText(fixture.editor), QString());
            QVERIFY(fixture.selectionOf("n.a").selectedPoints.isEmpty());
            QVERIFY(fixture.editor.searchAllNodeList("n.a")); // it stays listed
            QCOMPARE(fixture.editor.getSelection(), QStringList{"n.a"});

            QCOMPARE(QString::fromStdString(managerOf(fixture).undo()->getDescription()),
                     QString("Delete Curves"));
            QCOMPARE(host.take(), QStringList{"n|a"});
            QCOMPARE(keysOf(curve.spline), keys);
            QVERIFY(SplineState(curve.spline) == before);
            QCOMPARE(textOf(curve), QString("t*2"));
            QCOMPARE(curve.spline.isAddFunc(), isSum);
            QCOMPARE(commandLineText(fixture.editor), QString("t*2"));
            QCOMPARE(fixture.selectionOf("n.a").selectedPoints,
                     isSum ? QList<PointInfo*>{keys[1]} : QList<PointInfo*>());
            managerOf(fixture).redo();
        }
    }

    void severalCurvesAreReportedOnceEach()
    {
        EditorFixture fixture;
        LentCurve& a = fixture.addCurve("n.a", {{1, 1}});
        LentCurve& b = fixture.addCurve("n.x.b", {{2, 2}}, "t");
        HostEar host(fixture.editor);
        managerOf(fixture).doCommand(
            new CommandDelCurves(&fixture.editor, QStringList{"n.a", "unknown", "n.x.b"}));
        QCOMPARE(host.take(), (QStringList{"n|a", "n|x.b"}));
        QCOMPARE(a.spline.getControlPointsNumber(), 0u);
        QCOMPARE(b.spline.getControlPointsNumber(), 0u);
        QCOMPARE(textOf(b), QString("none"));
        managerOf(fixture).undo();
        QCOMPARE(host.take(), (QStringList{"n|a", "n|x.b"}));
        QCOMPARE(keyTimes(a.spline), QList<double>{1});
        QCOMPARE(textOf(b), QString("t"));
    }

    void blockedSignalsStayBlocked()
    {
        EditorFixture fixture;
        fixture.editCurve("n.a", {{1, 1}});
        HostEar host(fixture.editor);
        fixture.editor.blockSignals(true);
        fixture.editor.deleteCurveAndExp("n", "a", nullptr);
        QVERIFY(fixture.editor.signalsBlocked());
        managerOf(fixture).undo();
        QVERIFY(fixture.editor.signalsBlocked());
        managerOf(fixture).redo();
        QVERIFY(fixture.editor.signalsBlocked());
        QVERIFY(host.take().isEmpty());
        fixture.editor.blockSignals(false);
        managerOf(fixture).undo();
        QVERIFY(!fixture.editor.signalsBlocked());
        QCOMPARE(host.take(), QStringList{"n|a"});
    }

    void aCurveOffTheCanvasLosesKeysAndExpressionToo()
    {
        EditorFixture fixture;
        LentCurve& curve = editSum(fixture, "n.a", {{1, 1}}, "t*2");
        const SplineState before(curve.spline);
        fixture.editor.removeCurveFromEditing("n.a");
        HostEar host(fixture.editor);
        fixture.editor.deleteCurveAndExp("n", "a", &curve.expression);
        QCOMPARE(host.take(), QStringList{"n|a"});
        QCOMPARE(curve.spline.getControlPointsNumber(), 0u);
        QCOMPARE(textOf(curve), QString("none"));
        managerOf(fixture).undo();
        QVERIFY(SplineState(curve.spline) == before);
        QCOMPARE(textOf(curve), QString("t*2"));
        fixture.editor.setCurveEditableOn(fixture.editor.searchAllNodeList("n.a"));
        QCOMPARE(fixture.logic().findCurve("n.a")->curveType(), int(splinePlusExpressionCurve));
    }

    void anUnknownNameMakesNoStep()
    {
        EditorFixture fixture;
        fixture.editCurve("n.a", {{1, 1}});
        fixture.editor.deleteCurveAndExp("n", "unknown", nullptr);
        QVERIFY(fixture.undoAll().isEmpty());
    }

    void theSlotThatIsPassedIsNotUsed()
    {
        LentCurve other;
        other.setExpression("t");
        EditorFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{1, 1}}, "t*2");
        fixture.editor.deleteCurveAndExp("n", "a", &other.expression);
        QCOMPARE(textOf(curve), QString("none"));
        QCOMPARE(textOf(other), QString("t"));
    }

    void aHostRunsTheCommandTwice()
    {
        EditorFixture fixture;
        LentCurve& curve = editSum(fixture, "n.a", {{1, 1}}, "t*2");
        CommandDelCurves command(&fixture.editor, QStringList{"n.a"});
        QVERIFY(command.execute());
        curve.addKey(5, 5);
        curve.setExpression("t*3");
        QVERIFY(command.execute());
        QCOMPARE(curve.spline.getControlPointsNumber(), 0u);
        command.undo();
        QCOMPARE(keyTimes(curve.spline), QList<double>{5});
        QCOMPARE(textOf(curve), QString("t*3"));
        command.redo();
        QCOMPARE(curve.spline.getControlPointsNumber(), 0u);
        // It ends with both sets of keys in its hands.
    }

    void undoAndRedoBeforeTheFirstExecutionDoNothing()
    {
        EditorFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{1, 1}});
        CommandDelCurves command(&fixture.editor, QStringList{"n.a"});
        HostEar host(fixture.editor);
        command.undo();
        command.redo();
        QCOMPARE(keyTimes(curve.spline), QList<double>{1});
        QVERIFY(host.take().isEmpty());
    }

    void aCopyOfACommandThatHasNotRunDoesTheSame()
    {
        EditorFixture fixture;
        LentCurve& a = fixture.editCurve("n.a", {{1, 1}});
        LentCurve& b = fixture.editCurve("n.b", {{2, 2}});
        const CommandDelCurves first(&fixture.editor, QStringList{"n.a"});
        CommandDelCurves second(first);
        CommandDelCurves third(&fixture.editor, QStringList{"n.b"});
        QVERIFY(second.execute());
        QCOMPARE(a.spline.getControlPointsNumber(), 0u);
        second.undo();
        third = first;
        QVERIFY(third.execute());
        QCOMPARE(a.spline.getControlPointsNumber(), 0u);
        QCOMPARE(b.spline.getControlPointsNumber(), 1u);
        third.undo();
        QCOMPARE(keyTimes(a.spline), QList<double>{1});
    }

    void aSplineThatDiedMeanwhileIsPassedOver()
    {
        EditorFixture fixture;
        auto doomed = std::make_unique<LentCurve>();
        doomed->addKey(1, 1);
        doomed->setExpression("t");
        fixture.editor.addCurve("n", "a", Qt::red, 0, &doomed->spline, &doomed->expression, -9, 9,
                                true, true);
        fixture.editor.deleteCurveAndExp("n", "a", nullptr);
        fixture.editor.removeCurve("n", "a");
        doomed.reset();
        managerOf(fixture).undo();
        managerOf(fixture).redo();
    }

    void anExpressionThatNoLongerParsesSaysSo()
    {
        EditorFixture fixture;
        auto variable = std::make_unique<Variable>("gone_soon", 2.0);
        LentCurve& a = editSum(fixture, "n.a", {{1, 1}}, "gone_soon*2");
        fixture.editor.deleteCurveAndExp("n", "a", nullptr);
        variable.reset();
        BoxCatcher boxes;
        HostEar host(fixture.editor);
        managerOf(fixture).undo();
        QCOMPARE(boxes.texts, QStringList{"Variable gone_soon not found"});
        QCOMPARE(host.take(), QStringList{"n|a"});
        QVERIFY(!fixture.editor.signalsBlocked());
        QCOMPARE(keyTimes(a.spline), QList<double>{1});
        QCOMPARE(textOf(a), QString("none"));
        managerOf(fixture).redo();
        const Variable again("gone_soon", 2.0);
        managerOf(fixture).undo();
        QCOMPARE(textOf(a), QString("gone_soon*2"));
        QVERIFY(a.spline.isAddFunc());
        delete std::exchange(a.expression, nullptr); // before the variable goes
    }

    void olderStepsAreUndoneBeneathIt()
    {
        EditorFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{1, 1}, {2, 2}});
        const SplineState before(curve.spline);
        fixture.selectKeys("n.a", {1});
        fixture.editor.deleteSelectedKeys();
        fixture.editor.deleteCurveAndExp("n", "a", nullptr);
        for (int round = 0; round < 2; ++round) {
            QCOMPARE(fixture.undoAll(), (QStringList{"Delete Curves", "Delete Control Points"}));
            QVERIFY(SplineState(curve.spline) == before);
            while (managerOf(fixture).redo()) {
            }
        }
    }
};

QTEST_MAIN(TestDeletingCurves)
#include "test_deleting_curves.moc"
