#include "support/DocumentFixture.h"
#include "support/FailOnWarning.h"

#include "commands/CommandAddPoint.h"
#include "commands/KeyLists.h"

using namespace curve_editor;

/// The command that adds a key.
class TestAddingKeys : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void aNewKeyHoldsTheDefaults_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<bool>("broken");
        QTest::newRow("bezier, unified") << 1 << false;
        QTest::newRow("stepped, broken") << 3 << true;
    }

    void aNewKeyHoldsTheDefaults()
    {
        QFETCH(int, type);
        QFETCH(bool, broken);
        DocumentFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{1, 1}, {9, 9}});
        fixture.defaults = {static_cast<zk_spline::interpolationType>(type), !broken};
        NodeStruct* const record = fixture.record("n.a");
        QVERIFY(fixture.manager.doCommand(new CommandAddPoint(fixture, record, 5.0, 7.0)));
        const PointInfo* const key = curve.spline.at(1);
        QCOMPARE(key->time, 5.0);
        QCOMPARE(key->value, 7.0);
        QCOMPARE(int(key->type), type);
        QCOMPARE(key->unifiedTangents, !broken);
        QCOMPARE(key->bezier.tangentLeft, 0.0);
        QCOMPARE(key->bezier.tangentRight, 0.0);
        QCOMPARE(key->tcb.tension, 0.0);
        QCOMPARE(key->tcb.continuity, 0.0);
        QCOMPARE(key->tcb.bias, 0.0);
        QCOMPARE(key->tcb.easeTo, 0.0);
        QCOMPARE(key->tcb.easeFrom, 0.0);
        QCOMPARE(fixture.selectionOf("n.a").currentPoint, key);
        QCOMPARE(fixture.selectionOf("n.a").selectedPoints.size(), 1);
    }

    void undoTakesOutTheVeryKeyAndRedoPutsItBack()
    {
        DocumentFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{5, 1}, {9, 9}});
        fixture.selectKeys("n.a", {0, 1});
        PointInfo* const old = curve.spline.at(0);
        CurveCommandsManager& manager = fixture.manager;
        manager.doCommand(new CommandAddPoint(fixture, fixture.record("n.a"), 5.0, 7.0));
        QCOMPARE(keyTimes(curve.spline), (QList<double>{5, 5, 9}));
        PointInfo* const added = fixture.selectionOf("n.a").currentPoint;
        QVERIFY(added != old);
        QCOMPARE(QString::fromStdString(manager.undo()->getDescription()),
                 QString("Add New Control Point"));
        QCOMPARE(curve.spline.findIndex(added), -1);
        QCOMPARE(curve.spline.findIndex(old), 0);
        QCOMPARE(fixture.selectionOf("n.a").selectedPoints.size(), 2);
        manager.redo();
        QVERIFY(curve.spline.findIndex(added) >= 0);
        QCOMPARE(fixture.selectionOf("n.a").selectedPoints, QList<PointInfo*>{added});
    }

    void aMissingNodeOrSplineRefusesTheKey()
    {
        DocumentFixture fixture;
        CurveCommandsManager& manager = fixture.manager;
        QVERIFY(!manager.doCommand(new CommandAddPoint(fixture, nullptr, 1.0, 1.0)));
        fixture.lend("n.a", nullptr, nullptr);
        QVERIFY(!manager.doCommand(new CommandAddPoint(fixture, fixture.record("n.a"), 1.0, 1.0)));
        QVERIFY(!manager.undo());
    }

    void addingTellsTheHostAndThenRefreshes()
    {
        DocumentFixture fixture;
        fixture.editCurve("n.a.b", {{1, 1}});
        fixture.takeCalls();
        fixture.manager.doCommand(new CommandAddPoint(fixture, fixture.record("n.a.b"), 5.0, 7.0));
        QCOMPARE(fixture.takeCalls(), (QStringList{"n|a.b", "refresh"}));
        fixture.manager.undo();
        QCOMPARE(fixture.takeCalls(), (QStringList{"n|a.b", "refresh"}));
        fixture.manager.redo();
        QCOMPARE(fixture.takeCalls(), (QStringList{"n|a.b", "refresh"}));
    }

    void undoOfAKeyOnACurveThatLeftTheCanvasTellsNobodyButRefreshes()
    {
        DocumentFixture fixture;
        fixture.addCurve("n.b", {{1, 1}});
        LentCurve& curve = fixture.editCurve("n.a", {{1, 1}});
        fixture.manager.doCommand(new CommandAddPoint(fixture, fixture.record("n.a"), 5.0, 7.0));
        fixture.leaveCanvas("n.a");
        fixture.edit({"n.b"});
        fixture.takeCalls();
        fixture.manager.undo();
        QCOMPARE(keyTimes(curve.spline), QList<double>{1});
        QCOMPARE(fixture.takeCalls(), QStringList{"refresh"});
        fixture.manager.redo();
        QCOMPARE(keyTimes(curve.spline), (QList<double>{1, 5}));
        QCOMPARE(fixture.takeCalls(), QStringList{"refresh"});
    }

    void aKeyThatTheHostTookIsNotTakenAgain()
    {
        DocumentFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{1, 1}});
        CurveCommandsManager& manager = fixture.manager;
        manager.doCommand(new CommandAddPoint(fixture, fixture.record("n.a"), 5.0, 7.0));
        fixture.selectionOf("n.a").clear();
        const std::unique_ptr<PointInfo> taken(curve.spline.at(1));
        curve.spline.remove(taken.get());
        manager.undo();
        manager.redo();
        QCOMPARE(keyTimes(curve.spline), QList<double>{1});
    }
};

QTEST_MAIN(TestAddingKeys)
#include "test_adding_keys.moc"
