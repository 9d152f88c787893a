#include "support/EditorFixture.h"
#include "support/FailOnWarning.h"
#include "support/HostEar.h"

#include "commands/CommandDelPoints.h"
#include "commands/KeyLists.h"
#include "support/RefreshCounter.h"

using namespace curve_editor;

/// The command that deletes the selected keys.
class TestDeletingKeys : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void deletingTakesTheSelectedKeysOfEachCurve()
    {
        EditorFixture fixture;
        LentCurve& a = fixture.addCurve("n.a", {{1, 1}, {2, 2}, {3, 3}});
        LentCurve& b = fixture.addCurve("n.b", {{1, 1}, {2, 2}});
        fixture.editor.selectNodes(QStringList{"n.a", "n.b"});
        fixture.selectKeys("n.a", {0, 2});
        fixture.selectKeys("n.b", {});
        HostEar host(fixture.editor);
        CurveCommandsManager& manager = *fixture.editor.getCmdManager();
        QVERIFY(manager.doCommand(new CommandDelPoints(&fixture.editor)));
        QCOMPARE(keyTimes(a.spline), QList<double>{2});
        QCOMPARE(keyTimes(b.spline), (QList<double>{1, 2}));
        QCOMPARE(host.take(), QStringList{"n|a"});
        QVERIFY(fixture.selectionOf("n.a").selectedPoints.isEmpty());

        fixture.selectKeys("n.b", {1});
        PointInfo* const otherKey = b.spline.at(1);
        manager.undo();
        QCOMPARE(keyTimes(a.spline), (QList<double>{1, 2, 3}));
        QCOMPARE(fixture.selectionOf("n.a").selectedPoints,
                 (QList<PointInfo*>{a.spline.at(0), a.spline.at(2)}));
        QCOMPARE(keyTimes(b.spline), (QList<double>{1, 2}));
        QCOMPARE(host.take(), (QStringList{"n|a", "n|b"}));
        QVERIFY(b.spline.findIndex(otherKey) >= 0);

        manager.redo();
        QCOMPARE(keyTimes(a.spline), QList<double>{2});
        QCOMPARE(host.take(), (QStringList{"n|a", "n|b"}));
    }

    void deletingNothingKeepsNoCommandButReports()
    {
        EditorFixture fixture;
        fixture.editCurve("n.a", {{1, 1}});
        HostEar host(fixture.editor);
        RefreshCounter refreshes(fixture.editor);
        QVERIFY(!fixture.editor.getCmdManager()->doCommand(new CommandDelPoints(&fixture.editor)));
        QVERIFY(host.take().isEmpty());
        QCOMPARE(refreshes.taken(), 1); // the report of an empty list
        QVERIFY(!fixture.editor.getCmdManager()->undo());
    }

    void redoDeletesTheRecordedKeysWhateverIsSelectedByThen()
    {
        EditorFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{1, 1}, {2, 2}, {3, 3}});
        fixture.selectKeys("n.a", {1});
        CurveCommandsManager& manager = *fixture.editor.getCmdManager();
        manager.doCommand(new CommandDelPoints(&fixture.editor));
        manager.undo();
        fixture.selectKeys("n.a", {0, 2});
        manager.redo();
        QCOMPARE(keyTimes(curve.spline), (QList<double>{1, 3}));
        QVERIFY(fixture.selectionOf("n.a").selectedPoints.isEmpty());
        manager.undo();
        QCOMPARE(keyTimes(curve.spline), (QList<double>{1, 2, 3}));
    }

    void deletingOnACurveThatLeftTheCanvasIsStillTakenBack()
    {
        EditorFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{1, 1}, {2, 2}});
        fixture.selectKeys("n.a", {0});
        CurveCommandsManager& manager = *fixture.editor.getCmdManager();
        manager.doCommand(new CommandDelPoints(&fixture.editor));
        fixture.editor.removeCurve("n", "a");
        manager.undo();
        QCOMPARE(keyTimes(curve.spline), (QList<double>{1, 2}));
        manager.redo();
        QCOMPARE(keyTimes(curve.spline), QList<double>{2});
    }

    void aReaddedCurveWithAnotherSplineIsLeftAloneByOlderCommands()
    {
        EditorFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{1, 1}, {2, 2}});
        LentCurve other;
        other.addKey(1, 1);
        other.addKey(2, 2);
        fixture.selectKeys("n.a", {0});
        CurveCommandsManager& manager = *fixture.editor.getCmdManager();
        manager.doCommand(new CommandDelPoints(&fixture.editor));
        fixture.editor.removeCurve("n", "a");
        fixture.editor.addCurve("n", "a", Qt::red, 0, &other.spline, nullptr, 0, 1, true, true);
        fixture.selectionOf("n.a").selectPoints({other.spline.at(1)});
        manager.undo();
        QCOMPARE(keyTimes(curve.spline), (QList<double>{1, 2}));
        QCOMPARE(fixture.selectionOf("n.a").selectedPoints, QList<PointInfo*>{other.spline.at(1)});
        manager.redo();
        QCOMPARE(keyTimes(curve.spline), QList<double>{2});
        QCOMPARE(keyTimes(other.spline), (QList<double>{1, 2}));
        fixture.editor.removeCurve("n", "a");
    }

    void splinePlusExpressionCurvesHaveKeysToo()
    {
        EditorFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{1, 1}, {2, 2}}, "t");
        curve.spline.setAddFunc(true);
        fixture.selectKeys("n.a", {0});
        QVERIFY(fixture.editor.getCmdManager()->doCommand(new CommandDelPoints(&fixture.editor)));
        QCOMPARE(keyTimes(curve.spline), QList<double>{2});
    }

    void twoCurvesOfOneSplineDeleteAKeyOnce()
    {
        EditorFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{1, 1}, {2, 2}});
        fixture.editor.addCurve("n", "b", Qt::red, 0, &curve.spline, nullptr, 0, 1, true, true);
        fixture.editor.selectNodes(QStringList{"n.a", "n.b"});
        fixture.selectKeys("n.a", {0});
        fixture.selectionOf("n.b").selectPoints({curve.spline.at(0), curve.spline.at(1)});
        CurveCommandsManager& manager = *fixture.editor.getCmdManager();
        QVERIFY(manager.doCommand(new CommandDelPoints(&fixture.editor)));
        QCOMPARE(keyTimes(curve.spline), QList<double>{});
        QVERIFY(fixture.selectionOf("n.b").selectedPoints.isEmpty());
        manager.undo();
        QCOMPARE(keyTimes(curve.spline), (QList<double>{1, 2}));
        manager.redo();
        manager.clear();
        QCOMPARE(keyTimes(curve.spline), QList<double>{});
    }
};

QTEST_MAIN(TestDeletingKeys)
#include "test_deleting_keys.moc"
