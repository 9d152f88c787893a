#include "support/DocumentFixture.h"
#include "support/FailOnWarning.h"

#include "commands/CommandSelectPoints.h"
#include "commands/PerformGesture.h"

using namespace curve_editor;

/// The command of a changed selection.
class TestSelectingKeys : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void aChangedSelectionIsTakenBackAndRepeated()
    {
        DocumentFixture fixture;
        LentCurve& a = fixture.addCurve("n.a", {{1, 1}, {2, 2}, {3, 3}});
        LentCurve& b = fixture.addCurve("n.b", {{1, 1}, {2, 2}});
        fixture.edit({"n.a", "n.b"});
        fixture.selectKeys("n.a", {0, 2});
        fixture.takeCalls();
        QVERIFY(perform<CommandSelectPoints>(fixture, [&] {
            fixture.selectKeys("n.a", {1});
            fixture.selectKeys("n.b", {0, 1});
        }));
        CurveCommandsManager& manager = fixture.manager;
        QCOMPARE(QString::fromStdString(manager.undo()->getDescription()),
                 QString("Select Control Points"));
        QCOMPARE(fixture.selectionOf("n.a").selectedPoints,
                 (QList<PointInfo*>{a.spline.at(0), a.spline.at(2)}));
        QCOMPARE(fixture.selectionOf("n.a").currentPoint, a.spline.at(0));
        QVERIFY(fixture.selectionOf("n.b").selectedPoints.isEmpty());
        QVERIFY(!fixture.selectionOf("n.b").currentPoint);
        manager.redo();
        QCOMPARE(fixture.selectionOf("n.a").selectedPoints, QList<PointInfo*>{a.spline.at(1)});
        QCOMPARE(fixture.selectionOf("n.b").selectedPoints.size(), 2);
        QCOMPARE(fixture.selectionOf("n.b").currentPoint, b.spline.at(0));
        QVERIFY(fixture.takeReports().isEmpty());
    }

    void theSameKeysInAnotherOrderAreNoStep()
    {
        DocumentFixture fixture;
        fixture.editCurve("n.a", {{1, 1}, {2, 2}, {3, 3}});
        fixture.selectKeys("n.a", {0, 1});
        QVERIFY(!perform<CommandSelectPoints>(fixture, [&] { fixture.selectKeys("n.a", {1, 0}); }));
        QVERIFY(perform<CommandSelectPoints>(fixture, [&] { fixture.selectKeys("n.a", {1, 2}); }));
        QVERIFY(perform<CommandSelectPoints>(fixture, [&] { fixture.selectKeys("n.a", {1}); }));
    }

    void aCurveThatLeftIsPassedOverByTheSelection()
    {
        DocumentFixture fixture;
        LentCurve& a = fixture.addCurve("n.a", {{1, 1}, {2, 2}});
        LentCurve& b = fixture.addCurve("n.b", {{1, 1}, {2, 2}});
        fixture.edit({"n.a", "n.b"});
        fixture.selectKeys("n.a", {0});
        fixture.selectKeys("n.b", {0});
        QVERIFY(perform<CommandSelectPoints>(fixture, [&] {
            fixture.selectKeys("n.a", {1});
            fixture.selectKeys("n.b", {1});
        }));
        fixture.leaveCanvas("n.a");
        fixture.manager.undo();
        QCOMPARE(fixture.selectionOf("n.b").currentPoint, b.spline.at(0));
        fixture.manager.redo();
        QCOMPARE(fixture.selectionOf("n.b").currentPoint, b.spline.at(1));
        QCOMPARE(a.spline.getControlPointsNumber(), 2u);
    }

    void aCurveThatLeavesDuringTheGestureKeepsTheOthersInStep()
    {
        DocumentFixture fixture;
        fixture.addCurve("n.a", {{1, 1}, {2, 2}});
        LentCurve& b = fixture.addCurve("n.b", {{1, 1}, {2, 2}});
        fixture.edit({"n.a", "n.b"});
        fixture.selectKeys("n.a", {0});
        fixture.selectKeys("n.b", {0});
        QVERIFY(perform<CommandSelectPoints>(fixture, [&] {
            fixture.leaveCanvas("n.a");
            fixture.selectKeys("n.b", {0, 1});
        }));
        fixture.manager.undo();
        QCOMPARE(fixture.selectionOf("n.b").selectedPoints, QList<PointInfo*>{b.spline.at(0)});
        fixture.manager.redo();
        QCOMPARE(fixture.selectionOf("n.b").selectedPoints.size(), 2);
    }
};

QTEST_MAIN(TestSelectingKeys)
#include "test_selecting_keys.moc"
