// Resetting curves through the file menu, and what undo brings back.

#include "commands/WholeCurves.h"
#include "support/FailOnWarning.h"
#include "support/HostEar.h"

#include "commands/CommandResetCurves.h"
#include "files/CurveType.h"
#include "widgets/CurveKeysDialog.h"

using namespace curve_editor;

namespace {

bool resetSelected(EditorFixture& fixture)
{
    return choose(fixture.editor, "File/Reset Selected Curves");
}

} // namespace

class TestResettingCurves : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void theKeysReturnTheExpressionDoesNot()
    {
        EditorFixture fixture;
        LentCurve& curve = editSum(fixture, "n.a", {{1, 1}, {2, 2}}, "t*2");
        curve.spline.setFirstNodeType(SplineBase::zero);
        curve.spline.setLastNodeType(SplineBase::loop);
        fixture.selectKeys("n.a", {1});
        const QList<PointInfo*> keys = keysOf(curve.spline);
        const SplineState before(curve.spline);
        QVERIFY(resetSelected(fixture));
        QCOMPARE(curve.spline.getControlPointsNumber(), 0u);
        QCOMPARE(curve.spline.firstNodeType(), SplineBase::constant);
        QCOMPARE(curve.spline.lastNodeType(), SplineBase::constant);
        QCOMPARE(textOf(curve), QString("none"));
        QVERIFY(!curve.spline.isAddFunc());
        QVERIFY(fixture.selectionOf("n.a").selectedPoints.isEmpty());
        for (int round = 0; round < 3; ++round) {
            QCOMPARE(QString::fromStdString(managerOf(fixture).undo()->getDescription()),
                     QString("Reset Curves"));
            QCOMPARE(keysOf(curve.spline), keys); // the keys themselves
            QVERIFY(SplineState(curve.spline) == before);
            QCOMPARE(fixture.selectionOf("n.a").selectedPoints, QList<PointInfo*>{keys[1]});
            QCOMPARE(textOf(curve), QString("none"));
            managerOf(fixture).redo();
            QCOMPARE(curve.spline.getControlPointsNumber(), 0u);
            QVERIFY(fixture.selectionOf("n.a").selectedPoints.isEmpty());
        }
    }

    /// Steps below the reset name the keys that it took away.
    void olderStepsAreUndoneBeneathAReset()
    {
        EditorFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{1, 1}, {2, 2}, {9, 9}});
        const SplineState before(curve.spline);
        fixture.selectKeys("n.a", {2});
        fixture.editor.deleteSelectedKeys();
        fixture.selectKeys("n.a", {0});
        fixture.logic().panSelection(3.0, 1.0);
        QVERIFY(resetSelected(fixture));
        for (int round = 0; round < 2; ++round) {
            QCOMPARE(fixture.undoAll(),
                     (QStringList{"Reset Curves", "Move Control Points", "Delete Control Points"}));
            QVERIFY(SplineState(curve.spline) == before);
            while (managerOf(fixture).redo()) {
            }
            QCOMPARE(curve.spline.getControlPointsNumber(), 0u);
        }
    }

    void allCurvesOnTheCanvasAreOneStepAndTheSetStays()
    {
        EditorFixture fixture;
        LentCurve& a = fixture.addCurve("n.a", {{1, 1}});
        LentCurve& b = fixture.addCurve("n.x.b", {{1, 1}}, "t");
        LentCurve& c = fixture.addCurve("m.c", {{1, 1}});
        fixture.editor.selectNodes("m.c");
        fixture.selectKeys("m.c", {0});
        QVERIFY(choose(fixture.editor, "File/Reset All Curves"));
        for (LentCurve* curve : {&a, &b, &c}) {
            QCOMPARE(curve->spline.getControlPointsNumber(), 0u);
        }
        QCOMPARE(textOf(b), QString("none"));
        QCOMPARE(fixture.editor.getSelection(), QStringList{"m.c"});
        QCOMPARE(fixture.logic().editingCurveNames(), QStringList{"m.c"});
        managerOf(fixture).undo();
        for (LentCurve* curve : {&a, &b, &c}) {
            QCOMPARE(curve->spline.getControlPointsNumber(), 1u);
        }
        QCOMPARE(fixture.selectionOf("m.c").selectedPoints, keysOf(c.spline));
        QVERIFY(fixture.selectionOf("n.a").selectedPoints.isEmpty());
        QVERIFY(!managerOf(fixture).undo());
    }

    void withNothingToResetThereIsNoStep()
    {
        EditorFixture fixture;
        fixture.editor.resetAllCheckedF();
        QVERIFY(fixture.undoAll().isEmpty());
        LentCurve& a = fixture.addCurve("n.a", {{1, 1}});
        fixture.editor.resetSelectedF();
        QVERIFY(fixture.undoAll().isEmpty());
        fixture.editor.resetAllCheckedF(); // no curve is being edited, but one is on the canvas
        QCOMPARE(a.spline.getControlPointsNumber(), 0u);
        QVERIFY(fixture.editor.getSelection().isEmpty());
        QCOMPARE(fixture.undoAll(), QStringList{"Reset Curves"});
    }

    void aCurveThatHasLeftTheCanvasLosesOnlyItsKeys()
    {
        EditorFixture fixture;
        LentCurve& curve = editSum(fixture, "n.a", {{1, 1}}, "t*2");
        NodeStruct* const record = fixture.editor.searchAllNodeList("n.a");
        fixture.editor.removeCurveFromEditing("n.a");
        managerOf(fixture).doCommand(new CommandResetCurves(&fixture.editor, {record}));
        QCOMPARE(curve.spline.getControlPointsNumber(), 0u);
        QCOMPARE(textOf(curve), QString("t*2"));
        QVERIFY(curve.spline.isAddFunc());
        managerOf(fixture).undo();
        QCOMPARE(keyTimes(curve.spline), QList<double>{1});
        QCOMPARE(textOf(curve), QString("t*2"));
    }

    void aCurveThatLeftMeanwhileGetsItsKeysBack()
    {
        EditorFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{1, 1}});
        const QList<PointInfo*> keys = keysOf(curve.spline);
        QVERIFY(resetSelected(fixture));
        fixture.editor.renameNode("n", "m");
        fixture.editor.removeNode("m");
        managerOf(fixture).undo();
        QCOMPARE(keysOf(curve.spline), keys);
        managerOf(fixture).redo();
        QCOMPARE(curve.spline.getControlPointsNumber(), 0u);
    }

    void aSplineOfTwoRecordsIsTakenOnce()
    {
        EditorFixture fixture;
        LentCurve& a = fixture.addCurve("n.a", {{1, 1}, {2, 2}});
        fixture.editor.addCurve("n", "b", Qt::red, 0, &a.spline, nullptr, -9, 9, true, true);
        fixture.editor.selectNodes({"n.a", "n.b"});
        fixture.editor.selectAllKeys();
        const QList<PointInfo*> keys = keysOf(a.spline);
        QVERIFY(resetSelected(fixture));
        QVERIFY(selectionsAreSound(fixture));
        for (int round = 0; round < 2; ++round) {
            managerOf(fixture).undo();
            QCOMPARE(keysOf(a.spline), keys);
            QCOMPARE(fixture.selectionOf("n.b").selectedPoints, keys);
            managerOf(fixture).redo();
            QCOMPARE(a.spline.getControlPointsNumber(), 0u);
            QVERIFY(selectionsAreSound(fixture));
        }
        managerOf(fixture).undo();
        fixture.editor.removeNode("n");
    }

    void nullRecordsAndRecordsWithoutASplineArePassedOver()
    {
        EditorFixture fixture;
        LentCurve& a = fixture.editCurve("n.a", {{1, 1}});
        FunctionFloatBase* slot = nullptr;
        fixture.editor.addCurve("n", "e", Qt::red, 0, nullptr, &slot, -9, 9, false, true);
        const QList<NodeStruct*> records =
            fixture.editor.structsFromDotNames({"unknown", "n.a", "n.e"});
        QVERIFY(!records.first());
        managerOf(fixture).doCommand(new CommandResetCurves(&fixture.editor, records));
        QCOMPARE(a.spline.getControlPointsNumber(), 0u);
        managerOf(fixture).undo();
        QCOMPARE(a.spline.getControlPointsNumber(), 1u);
    }

    void aSplineThatDiedMeanwhileIsPassedOver()
    {
        EditorFixture fixture;
        auto doomed = std::make_unique<LentCurve>();
        doomed->addKey(1, 1);
        fixture.editor.addCurve("n", "a", Qt::red, 0, &doomed->spline, &doomed->expression, -9, 9,
                                true, true);
        QVERIFY(resetSelected(fixture));
        doomed.reset();
        managerOf(fixture).undo();
        managerOf(fixture).redo();
        fixture.paint();
    }

    void aSplineThatDiesWhileItIsResetIsPassedOver()
    {
        EditorFixture fixture;
        auto doomed = std::make_unique<LentCurve>();
        doomed->addKey(1, 1);
        fixture.editor.addCurve("n", "a", Qt::red, 0, &doomed->spline, &doomed->expression, -9, 9,
                                true, true);
        QObject::connect(&fixture.editor, &CurveEditor::curveHasChanged, &fixture.editor,
                         [&](QString&, QString&) { doomed.reset(); });
        fixture.editor.resetAllCheckedF();
        QVERIFY(!doomed);
        fixture.undoAll();
    }

    void keysThatTheHostAddedToAResetCurveGiveWayToTheOldOnes()
    {
        EditorFixture fixture;
        LentCurve& a = fixture.editCurve("n.a", {{1, 1}});
        QVERIFY(resetSelected(fixture));
        a.addKey(30, 30);
        fixture.editor.selectAllKeys();
        fixture.editor.clearStack(); // the reset's own keys end here
        QCOMPARE(keyTimes(a.spline), QList<double>{30});
        QVERIFY(resetSelected(fixture));
        a.addKey(40, 40);
        fixture.selectKeys("n.a", {0});
        managerOf(fixture).undo();
        QCOMPARE(keyTimes(a.spline), QList<double>{30});
        QVERIFY(selectionsAreSound(fixture));
        managerOf(fixture).redo();
        managerOf(fixture).undo();
        QCOMPARE(keyTimes(a.spline), QList<double>{30});
    }

    void redoGivesBackWhatTheHostHadPutThereForTheStepsThatFollow()
    {
        EditorFixture fixture;
        LentCurve& a = fixture.editCurve("n.a", {{1, 1}});
        QVERIFY(resetSelected(fixture));
        a.addKey(30, 30);
        a.addKey(40, 40);
        fixture.selectKeys("n.a", {0, 1});
        fixture.logic().panSelection(5.0, 0.0);
        QCOMPARE(keyTimes(a.spline), (QList<double>{35, 45}));
        while (managerOf(fixture).undo()) {
        }
        QCOMPARE(keyTimes(a.spline), QList<double>{1});
        while (managerOf(fixture).redo()) {
        }
        QCOMPARE(keyTimes(a.spline), (QList<double>{35, 45}));
    }

    void theHostHearsOfTheCurve()
    {
        EditorFixture fixture;
        fixture.editCurve("n.a", {{1, 1}});
        HostEar host(fixture.editor);
        fixture.editor.resetSelectedF();
        // Once from the curve itself, once from the command.
        QCOMPARE(host.take(), (QStringList{"n|a", "n|a"}));
        managerOf(fixture).undo();
        QCOMPARE(host.take(), QStringList{"n|a"});
    }

    void theExpressionLineIsEmptied()
    {
        EditorFixture fixture;
        fixture.editCurve("n.a", {{1, 1}}, "t*2");
        QCOMPARE(commandLineText(fixture.editor), QString("t*2"));
        QVERIFY(resetSelected(fixture));
        QCOMPARE(commandLineText(fixture.editor), QString());
    }

    void theKeyDialogClosesItsFields_data()
    {
        QTest::addColumn<QString>("entry");
        QTest::newRow("selected") << "File/Reset Selected Curves";
        QTest::newRow("all") << "File/Reset All Curves";
    }

    void theKeyDialogClosesItsFields()
    {
        QFETCH(QString, entry);
        EditorFixture fixture;
        fixture.editCurve("n.a", {{1, 1}});
        fixture.selectKeys("n.a", {0});
        fixture.canvas().refreshKeysDialog();
        const CurveKeysDialog* const dialog = fixture.canvas().keysDialog();
        QVERIFY(dialog->posX->isEnabled());
        QVERIFY(choose(fixture.editor, entry));
        QVERIFY(!dialog->posX->isEnabled());
        managerOf(fixture).undo();
        QVERIFY(dialog->posX->isEnabled());
    }

    void withUndoOffTheCurveIsResetForGood()
    {
        EditorFixture fixture;
        LentCurve& a = fixture.editCurve("n.a", {{1, 1}});
        fixture.editor.setEnableUndo(false);
        QVERIFY(resetSelected(fixture));
        QCOMPARE(a.spline.getControlPointsNumber(), 0u);
        QVERIFY(!managerOf(fixture).undo());
    }
};

QTEST_MAIN(TestResettingCurves)
#include "test_resetting_curves.moc"
