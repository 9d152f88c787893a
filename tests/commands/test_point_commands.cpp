// What holds of all one-shot commands on keys, and the commands of types and of the behaviour
// beyond the ends.

#include "support/EditorFixture.h"
#include "support/FailOnWarning.h"
#include "support/HostEar.h"

#include "commands/CommandAddPoint.h"
#include "commands/CommandDelPoints.h"
#include "commands/CommandSetLastNode.h"
#include "commands/CommandSetPointsType.h"
#include "commands/KeyLists.h"
#include "support/RefreshCounter.h"

using namespace curve_editor;

class TestPointCommands : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void theTypeOfTheSelectedKeysIsSetAndTakenBack()
    {
        EditorFixture fixture;
        LentCurve& curve = fixture.editCurve(
            "n.a", {{1, 1, zk_spline::linear}, {2, 2, zk_spline::tcb}, {3, 3, zk_spline::bezier}});
        fixture.selectKeys("n.a", {0, 1});
        HostEar host(fixture.editor);
        CurveCommandsManager& manager = *fixture.editor.getCmdManager();
        QVERIFY(manager.doCommand(new CommandSetPointsType(&fixture.editor, zk_spline::tcb)));
        QCOMPARE(host.take(), QStringList{"n|a"});
        QCOMPARE(int(curve.spline.at(0)->type), int(zk_spline::tcb));
        QCOMPARE(int(curve.spline.at(1)->type), int(zk_spline::tcb));
        QCOMPARE(int(curve.spline.at(2)->type), int(zk_spline::bezier));
        QCOMPARE(QString::fromStdString(manager.undo()->getDescription()),
                 QString("Set Control Points Type"));
        QCOMPARE(int(curve.spline.at(0)->type), int(zk_spline::linear));
        QCOMPARE(int(curve.spline.at(1)->type), int(zk_spline::tcb));
        QCOMPARE(host.take(), QStringList{"n|a"});
        manager.redo();
        QCOMPARE(int(curve.spline.at(0)->type), int(zk_spline::tcb));
        QCOMPARE(host.take(), QStringList{"n|a"});
    }

    void theTypeThatAllSelectedKeysHaveIsNoStep()
    {
        EditorFixture fixture;
        fixture.editCurve("n.a", {{1, 1, zk_spline::tcb}, {2, 2, zk_spline::tcb}, {3, 3}});
        fixture.selectKeys("n.a", {0, 1});
        HostEar host(fixture.editor);
        CurveCommandsManager& manager = *fixture.editor.getCmdManager();
        QVERIFY(!manager.doCommand(new CommandSetPointsType(&fixture.editor, zk_spline::tcb)));
        fixture.selectKeys("n.a", {});
        QVERIFY(!manager.doCommand(new CommandSetPointsType(&fixture.editor, zk_spline::tcb)));
        QVERIFY(host.take().isEmpty());
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
        EditorFixture fixture;
        LentCurve& a = fixture.addCurve("n.a", {{1, 1}});
        LentCurve& b = fixture.addCurve("n.b", {{1, 1}});
        const auto behaviour = [&](const LentCurve& curve) {
            return int(isFirst ? curve.spline.firstNodeType() : curve.spline.lastNodeType());
        };
        a.spline.setFirstNodeType(SplineBase::zero);
        a.spline.setLastNodeType(SplineBase::zero);
        b.spline.setFirstNodeType(SplineBase::loopOffset);
        b.spline.setLastNodeType(SplineBase::loopOffset);
        fixture.editor.selectNodes(QStringList{"n.a", "n.b"});
        HostEar host(fixture.editor);
        CurveCommandsManager& manager = *fixture.editor.getCmdManager();
        QVERIFY(
            manager.doCommand(new CommandSetLastNode(&fixture.editor, SplineBase::zero, isFirst)));
        QCOMPARE(behaviour(a), int(SplineBase::zero));
        QCOMPARE(behaviour(b), int(SplineBase::zero));
        QVERIFY(b.spline.hasChanged());
        QCOMPARE(host.take(), (QStringList{"n|a", "n|b"}));
        fixture.editor.removeCurveFromEditing("n.b"); // it works on the spline alone
        QCOMPARE(QString::fromStdString(manager.undo()->getDescription()),
                 QString(isFirst ? "Set First Node Behaviour" : "Set Last Node Behaviour"));
        QCOMPARE(behaviour(a), int(SplineBase::zero));
        QCOMPARE(behaviour(b), int(SplineBase::loopOffset));
        manager.redo();
        QCOMPARE(behaviour(b), int(SplineBase::zero));
    }

    void theBehaviourThatAllCurvesHaveIsNoStepButReportsAndRefreshes()
    {
        EditorFixture fixture;
        fixture.editCurve("n.a", {{1, 1}});
        HostEar host(fixture.editor);
        RefreshCounter refreshes(fixture.editor);
        CurveCommandsManager& manager = *fixture.editor.getCmdManager();
        QVERIFY(!manager.doCommand(
            new CommandSetLastNode(&fixture.editor, SplineBase::constant, false)));
        QCOMPARE(host.take(), QStringList{"n|a"});
        QCOMPARE(refreshes.taken(), 2); // its own, and that of the report
        QVERIFY(!manager.undo());
    }

    /// Whether the editor had refreshed itself before the host heard of the change.
    void theHostHearsBeforeOrAfterTheRefresh_data()
    {
        QTest::addColumn<QString>("command");
        QTest::addColumn<bool>("done");
        QTest::addColumn<bool>("undone");
        QTest::addColumn<bool>("redone");
        QTest::newRow("add") << "add" << false << false << false;
        QTest::newRow("delete") << "delete" << false << false << false;
        QTest::newRow("type") << "type" << false << false << false;
        QTest::newRow("behaviour") << "behaviour" << true << false << true;
    }

    void theHostHearsBeforeOrAfterTheRefresh()
    {
        QFETCH(QString, command);
        QFETCH(bool, done);
        QFETCH(bool, undone);
        QFETCH(bool, redone);
        EditorFixture fixture;
        fixture.editCurve("n.a", {{1, 1}, {2, 2}});
        fixture.selectKeys("n.a", {0});
        CurveEditor& editor = fixture.editor;
        CurveCommandsManager& manager = *editor.getCmdManager();
        QList<bool> heard;
        connect(&editor, &CurveEditor::curveHasChanged, this,
                [&](QString&, QString&) { heard.append(fixture.canvas().canvasDirty); });
        const auto takeHeard = [&] {
            fixture.canvas().canvasDirty = false;
            return std::exchange(heard, {});
        };
        takeHeard();
        if (command == "add") {
            manager.doCommand(
                new CommandAddPoint(&editor, editor.searchAllNodeList("n.a"), 5.0, 7.0));
        } else if (command == "delete") {
            manager.doCommand(new CommandDelPoints(&editor));
        } else if (command == "type") {
            manager.doCommand(new CommandSetPointsType(&editor, zk_spline::stepped));
        } else {
            manager.doCommand(new CommandSetLastNode(&editor, SplineBase::loop, false));
        }
        QVERIFY(fixture.canvas().canvasDirty); // each has refreshed the editor by now
        QCOMPARE(takeHeard(), QList<bool>{done});
        manager.undo();
        QVERIFY(fixture.canvas().canvasDirty);
        QCOMPARE(takeHeard(), QList<bool>{undone});
        manager.redo();
        QCOMPARE(takeHeard(), QList<bool>{redone});
    }

    void curvesThatAreExpressionsOnlyAreUntouched()
    {
        EditorFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{1, 1}, {2, 2}}, "t");
        fixture.selectionOf("n.a").selectPoints({curve.spline.at(0), curve.spline.at(1)});
        CurveCommandsManager& manager = *fixture.editor.getCmdManager();
        QVERIFY(!manager.doCommand(new CommandDelPoints(&fixture.editor)));
        QVERIFY(!manager.doCommand(new CommandSetPointsType(&fixture.editor, zk_spline::tcb)));
        QVERIFY(
            !manager.doCommand(new CommandSetLastNode(&fixture.editor, SplineBase::loop, true)));
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
        EditorFixture fixture;
        auto curve = std::make_unique<LentCurve>();
        curve->addKey(1, 1);
        curve->addKey(2, 2);
        LentCurve& other = fixture.addCurve("n.b", {{1, 1}, {2, 2}});
        CurveEditor& editor = fixture.editor;
        editor.addCurve("n", "a", Qt::red, 0, &curve->spline, &curve->expression, 0, 1, true, true);
        editor.selectNodes(QStringList{"n.a", "n.b"});
        CurveCommandsManager& manager = *editor.getCmdManager();
        manager.doCommand(new CommandAddPoint(&editor, editor.searchAllNodeList("n.a"), 5.0, 7.0));
        editor.selectAllKeys();
        manager.doCommand(new CommandSetPointsType(&editor, zk_spline::stepped));
        manager.doCommand(new CommandSetLastNode(&editor, SplineBase::loop, false));
        manager.doCommand(new CommandDelPoints(&editor));
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
