// What holds of all one-shot commands on keys, and the commands of types and of the behaviour
// beyond the ends.

#include "support/DocumentFixture.h"
#include "support/FailOnWarning.h"

#include "commands/CommandAddPoint.h"
#include "commands/CommandDelPoints.h"
#include "commands/CommandSetLastNode.h"
#include "commands/CommandSetPointsType.h"
#include "commands/KeyLists.h"

using namespace curve_editor;

class TestPointCommands : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void theTypeOfTheSelectedKeysIsSetAndTakenBack()
    {
        DocumentFixture fixture;
        LentCurve& curve = fixture.editCurve(
            "n.a", {{1, 1, zk_spline::linear}, {2, 2, zk_spline::tcb}, {3, 3, zk_spline::bezier}});
        fixture.selectKeys("n.a", {0, 1});
        fixture.takeCalls();
        CurveCommandsManager& manager = fixture.manager;
        QVERIFY(manager.doCommand(new CommandSetPointsType(fixture, zk_spline::tcb)));
        QCOMPARE(fixture.takeReports(), QStringList{"n|a"});
        QCOMPARE(int(curve.spline.at(0)->type), int(zk_spline::tcb));
        QCOMPARE(int(curve.spline.at(1)->type), int(zk_spline::tcb));
        QCOMPARE(int(curve.spline.at(2)->type), int(zk_spline::bezier));
        QCOMPARE(QString::fromStdString(manager.undo()->getDescription()),
                 QString("Set Control Points Type"));
        QCOMPARE(int(curve.spline.at(0)->type), int(zk_spline::linear));
        QCOMPARE(int(curve.spline.at(1)->type), int(zk_spline::tcb));
        QCOMPARE(fixture.takeReports(), QStringList{"n|a"});
        manager.redo();
        QCOMPARE(int(curve.spline.at(0)->type), int(zk_spline::tcb));
        QCOMPARE(fixture.takeReports(), QStringList{"n|a"});
    }

    void theTypeThatAllSelectedKeysHaveIsNoStep()
    {
        DocumentFixture fixture;
        fixture.editCurve("n.a", {{1, 1, zk_spline::tcb}, {2, 2, zk_spline::tcb}, {3, 3}});
        fixture.selectKeys("n.a", {0, 1});
        fixture.takeCalls();
        CurveCommandsManager& manager = fixture.manager;
        QVERIFY(!manager.doCommand(new CommandSetPointsType(fixture, zk_spline::tcb)));
        fixture.selectKeys("n.a", {});
        QVERIFY(!manager.doCommand(new CommandSetPointsType(fixture, zk_spline::tcb)));
        QVERIFY(fixture.takeReports().isEmpty());
        QVERIFY(!manager.undo());
    }

    void theBehaviourOfAllEditedCurvesIsSetAndTakenBack_data()
    {
        QTest::addColumn<bool>("isFirst");
        QTest::newRow("first") << true;
        QTest::newRow("last") << false;
    }

    void theBehaviourOfAllEditedCurvesIsSetAndTakenBack()
    {
        QFETCH(bool, isFirst);
        DocumentFixture fixture;
        LentCurve& a = fixture.addCurve("n.a", {{1, 1}});
        LentCurve& b = fixture.addCurve("n.b", {{1, 1}});
        const auto behaviour = [&](const LentCurve& curve) {
            return int(isFirst ? curve.spline.firstNodeType() : curve.spline.lastNodeType());
        };
        a.spline.setFirstNodeType(SplineBase::zero);
        a.spline.setLastNodeType(SplineBase::zero);
        b.spline.setFirstNodeType(SplineBase::loopOffset);
        b.spline.setLastNodeType(SplineBase::loopOffset);
        fixture.edit({"n.a", "n.b"});
        fixture.takeCalls();
        CurveCommandsManager& manager = fixture.manager;
        QVERIFY(manager.doCommand(new CommandSetLastNode(fixture, SplineBase::zero, isFirst)));
        QCOMPARE(behaviour(a), int(SplineBase::zero));
        QCOMPARE(behaviour(b), int(SplineBase::zero));
        QVERIFY(b.spline.hasChanged());
        QCOMPARE(fixture.takeReports(), (QStringList{"n|a", "n|b"}));
        fixture.leaveCanvas("n.b"); // it works on the spline alone
        QCOMPARE(QString::fromStdString(manager.undo()->getDescription()),
                 QString(isFirst ? "Set First Node Behaviour" : "Set Last Node Behaviour"));
        QCOMPARE(behaviour(a), int(SplineBase::zero));
        QCOMPARE(behaviour(b), int(SplineBase::loopOffset));
        manager.redo();
        QCOMPARE(behaviour(b), int(SplineBase::zero));
    }

    void theBehaviourThatAllCurvesHaveIsNoStepButReportsAndRefreshes()
    {
        DocumentFixture fixture;
        fixture.editCurve("n.a", {{1, 1}});
        fixture.takeCalls();
        CurveCommandsManager& manager = fixture.manager;
        QVERIFY(!manager.doCommand(new CommandSetLastNode(fixture, SplineBase::constant, false)));
        QCOMPARE(fixture.takeCalls(), (QStringList{"refresh", "n|a", "refresh"}));
        QVERIFY(!manager.undo());
    }

    void theHostHearsBeforeOrAfterTheRefresh_data()
    {
        const QStringList report{"n|a", "refresh"};
        const QStringList refreshFirst{"refresh", "n|a", "refresh"};
        const QStringList refreshLast{"n|a", "refresh", "refresh"};
        QTest::addColumn<QString>("command");
        QTest::addColumn<QStringList>("done");
        QTest::addColumn<QStringList>("undone");
        QTest::addColumn<QStringList>("redone");
        QTest::newRow("add") << "add" << report << report << report;
        QTest::newRow("delete") << "delete" << report << report << report;
        QTest::newRow("type") << "type" << report << report << report;
        QTest::newRow("behaviour") << "behaviour" << refreshFirst << refreshLast << refreshFirst;
    }

    void theHostHearsBeforeOrAfterTheRefresh()
    {
        QFETCH(QString, command);
        QFETCH(QStringList, done);
        QFETCH(QStringList, undone);
        QFETCH(QStringList, redone);
        DocumentFixture fixture;
        fixture.editCurve("n.a", {{1, 1}, {2, 2}});
        fixture.selectKeys("n.a", {0});
        CurveCommandsManager& manager = fixture.manager;
        if (command == "add") {
            manager.doCommand(new CommandAddPoint(fixture, fixture.record("n.a"), 5.0, 7.0));
        } else if (command == "delete") {
            manager.doCommand(new CommandDelPoints(fixture));
        } else if (command == "type") {
            manager.doCommand(new CommandSetPointsType(fixture, zk_spline::stepped));
        } else {
            manager.doCommand(new CommandSetLastNode(fixture, SplineBase::loop, false));
        }
        QCOMPARE(fixture.takeCalls(), done);
        manager.undo();
        QCOMPARE(fixture.takeCalls(), undone);
        manager.redo();
        QCOMPARE(fixture.takeCalls(), redone);
    }

    void curvesThatAreExpressionsOnlyAreUntouched()
    {
        DocumentFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{1, 1}, {2, 2}}, "t");
        fixture.selectionOf("n.a").selectPoints({curve.spline.at(0), curve.spline.at(1)});
        CurveCommandsManager& manager = fixture.manager;
        QVERIFY(!manager.doCommand(new CommandDelPoints(fixture)));
        QVERIFY(!manager.doCommand(new CommandSetPointsType(fixture, zk_spline::tcb)));
        QVERIFY(!manager.doCommand(new CommandSetLastNode(fixture, SplineBase::loop, true)));
        QCOMPARE(keyTimes(curve.spline), (QList<double>{1, 2}));
        QCOMPARE(int(curve.spline.firstNodeType()), int(SplineBase::constant));
    }

    void aDestroyedSplineIsNeverTouchedAgain_data()
    {
        QTest::addColumn<int>("undone");
        QTest::addColumn<QString>("then");
        for (int undone = 0; undone <= 5; ++undone) {
            for (const char* then : {"undo and redo", "clear", "close"}) {
                QTest::addRow("%d undone, %s", undone, then) << undone << QString(then);
            }
        }
    }

    void aDestroyedSplineIsNeverTouchedAgain()
    {
        QFETCH(int, undone);
        QFETCH(QString, then);
        DocumentFixture fixture;
        auto curve = std::make_unique<LentCurve>();
        curve->addKey(1, 1);
        curve->addKey(2, 2);
        LentCurve& other = fixture.addCurve("n.b", {{1, 1}, {2, 2}});
        fixture.lend("n.a", &curve->spline, &curve->expression);
        fixture.edit({"n.a", "n.b"});
        CurveCommandsManager& manager = fixture.manager;
        manager.doCommand(new CommandAddPoint(fixture, fixture.record("n.a"), 5.0, 7.0));
        fixture.selectAllKeys();
        manager.doCommand(new CommandSetPointsType(fixture, zk_spline::stepped));
        manager.doCommand(new CommandSetLastNode(fixture, SplineBase::loop, false));
        manager.doCommand(new CommandDelPoints(fixture));
        for (int i = 0; i < undone; ++i) {
            manager.undo();
        }
        curve.reset();
        if (then == "undo and redo") {
            for (int round = 0; round < 2; ++round) {
                while (manager.undo()) {
                }
                QCOMPARE(keyTimes(other.spline), (QList<double>{1, 2}));
                while (manager.redo()) {
                }
                QCOMPARE(keyTimes(other.spline), QList<double>{});
            }
        } else if (then == "clear") {
            manager.clear();
        }
    }
};

QTEST_MAIN(TestPointCommands)
#include "test_point_commands.moc"
