#include "support/DocumentFixture.h"
#include "support/FailOnWarning.h"

#include "commands/CommandDelPoints.h"
#include "commands/KeyLists.h"

using namespace curve_editor;

/// The command that deletes the selected keys.
class TestDeletingKeys : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void deletingTakesTheSelectedKeysOfEachCurve()
    {
        DocumentFixture fixture;
        LentCurve& a = fixture.addCurve("n.a", {{1, 1}, {2, 2}, {3, 3}});
        LentCurve& b = fixture.addCurve("n.b", {{1, 1}, {2, 2}});
        fixture.edit({"n.a", "n.b"});
        fixture.selectKeys("n.a", {0, 2});
        fixture.selectKeys("n.b", {});
        fixture.takeCalls();
        CurveCommandsManager& manager = fixture.manager;
        QVERIFY(manager.doCommand(new CommandDelPoints(fixture)));
        QCOMPARE(keyTimes(a.spline), QList<double>{2});
        QCOMPARE(keyTimes(b.spline), (QList<double>{1, 2}));
        QCOMPARE(fixture.takeReports(), QStringList{"n|a"});
        QVERIFY(fixture.selectionOf("n.a").selectedPoints.isEmpty());

        fixture.selectKeys("n.b", {1});
        PointInfo* const otherKey = b.spline.at(1);
        manager.undo();
        QCOMPARE(keyTimes(a.spline), (QList<double>{1, 2, 3}));
        QCOMPARE(fixture.selectionOf("n.a").selectedPoints,
                 (QList<PointInfo*>{a.spline.at(0), a.spline.at(2)}));
        QCOMPARE(keyTimes(b.spline), (QList<double>{1, 2}));
        QCOMPARE(fixture.takeReports(), (QStringList{"n|a", "n|b"}));
        QVERIFY(b.spline.findIndex(otherKey) >= 0);

        manager.redo();
        QCOMPARE(keyTimes(a.spline), QList<double>{2});
        QCOMPARE(fixture.takeReports(), (QStringList{"n|a", "n|b"}));
    }

    void deletingNothingKeepsNoCommandButReports()
    {
        DocumentFixture fixture;
        fixture.editCurve("n.a", {{1, 1}});
        fixture.takeCalls();
        QVERIFY(!fixture.manager.doCommand(new CommandDelPoints(fixture)));
        QCOMPARE(fixture.takeCalls(), QStringList{"refresh"}); // the report of an empty list
        QVERIFY(!fixture.manager.undo());
    }

    void redoDeletesTheRecordedKeysWhateverIsSelectedByThen()
    {
        DocumentFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{1, 1}, {2, 2}, {3, 3}});
        fixture.selectKeys("n.a", {1});
        CurveCommandsManager& manager = fixture.manager;
        manager.doCommand(new CommandDelPoints(fixture));
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
        DocumentFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{1, 1}, {2, 2}});
        fixture.selectKeys("n.a", {0});
        CurveCommandsManager& manager = fixture.manager;
        manager.doCommand(new CommandDelPoints(fixture));
        fixture.removeCurve("n.a");
        manager.undo();
        QCOMPARE(keyTimes(curve.spline), (QList<double>{1, 2}));
        manager.redo();
        QCOMPARE(keyTimes(curve.spline), QList<double>{2});
    }

    void aReaddedCurveWithAnotherSplineIsLeftAloneByOlderCommands()
    {
        DocumentFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{1, 1}, {2, 2}});
        LentCurve other;
        other.addKey(1, 1);
        other.addKey(2, 2);
        fixture.selectKeys("n.a", {0});
        CurveCommandsManager& manager = fixture.manager;
        manager.doCommand(new CommandDelPoints(fixture));
        fixture.removeCurve("n.a");
        fixture.lend("n.a", &other.spline, nullptr);
        fixture.edit({"n.a"});
        fixture.selectionOf("n.a").selectPoints({other.spline.at(1)});
        manager.undo();
        QCOMPARE(keyTimes(curve.spline), (QList<double>{1, 2}));
        QCOMPARE(fixture.selectionOf("n.a").selectedPoints, QList<PointInfo*>{other.spline.at(1)});
        manager.redo();
        QCOMPARE(keyTimes(curve.spline), QList<double>{2});
        QCOMPARE(keyTimes(other.spline), (QList<double>{1, 2}));
        fixture.removeCurve("n.a");
    }

    void splinePlusExpressionCurvesHaveKeysToo()
    {
        DocumentFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{1, 1}, {2, 2}}, "t");
        curve.spline.setAddFunc(true);
        fixture.selectKeys("n.a", {0});
        QVERIFY(fixture.manager.doCommand(new CommandDelPoints(fixture)));
        QCOMPARE(keyTimes(curve.spline), QList<double>{2});
    }

    void twoCurvesOfOneSplineDeleteAKeyOnce()
    {
        DocumentFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{1, 1}, {2, 2}});
        fixture.lend("n.b", &curve.spline, nullptr);
        fixture.edit({"n.a", "n.b"});
        fixture.selectKeys("n.a", {0});
        fixture.selectionOf("n.b").selectPoints({curve.spline.at(0), curve.spline.at(1)});
        CurveCommandsManager& manager = fixture.manager;
        QVERIFY(manager.doCommand(new CommandDelPoints(fixture)));
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
