// What holds of all commands that wrap a gesture: built before it, captured after it.

#include "support/DocumentFixture.h"
#include "support/FailOnWarning.h"
#include "support/SplineState.h"

#include "commands/CommandChangePoints.h"
#include "commands/CommandDelPoints.h"
#include "commands/CommandMovePoints.h"
#include "commands/CommandSelectPoints.h"
#include "commands/KeyLists.h"
#include "commands/PerformGesture.h"

#include <limits>

using namespace curve_editor;

class TestGestureCommands : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void aGestureWithNothingSelectedIsNoStep()
    {
        DocumentFixture fixture;
        QVERIFY(!perform<CommandMovePoints>(fixture, [] {})); // no curve at all
        LentCurve& curve = fixture.editCurve("n.a", {{1, 1}});
        const auto move = [&] { curve.spline.setTime(curve.spline.at(0), 5.0); };
        QVERIFY(!perform<CommandMovePoints>(fixture, move));
        QVERIFY(!perform<CommandChangePoints>(fixture, move));
        QVERIFY(!perform<CommandSelectPoints>(fixture, move));
    }

    void theFieldsOfAChange_data()
    {
        QTest::addColumn<QString>("field");
        QTest::addColumn<bool>("counts");
        QTest::newRow("value") << "value" << true;
        QTest::newRow("time") << "time" << true;
        QTest::newRow("left tangent") << "left" << true;
        QTest::newRow("right tangent") << "right" << true;
        QTest::newRow("tension") << "tension" << true;
        QTest::newRow("continuity") << "continuity" << true;
        QTest::newRow("bias") << "bias" << true;
        QTest::newRow("ease to") << "easeTo" << true;
        QTest::newRow("ease from") << "easeFrom" << true;
        QTest::newRow("unified") << "unified" << true;
        QTest::newRow("interpolation alone") << "type" << false;
        QTest::newRow("nothing") << "" << false;
    }

    void theFieldsOfAChange()
    {
        QFETCH(QString, field);
        QFETCH(bool, counts);
        DocumentFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{1, 1}, {2, 2}});
        fixture.selectKeys("n.a", {0});
        PointInfo changed = *curve.spline.at(0);
        const std::map<QString, double*> doubles = {{"value", &changed.value},
                                                    {"time", &changed.time},
                                                    {"left", &changed.bezier.tangentLeft},
                                                    {"right", &changed.bezier.tangentRight},
                                                    {"tension", &changed.tcb.tension},
                                                    {"continuity", &changed.tcb.continuity},
                                                    {"bias", &changed.tcb.bias},
                                                    {"easeTo", &changed.tcb.easeTo},
                                                    {"easeFrom", &changed.tcb.easeFrom}};
        if (doubles.count(field)) {
            *doubles.at(field) += 5.0;
        } else if (field == "unified") {
            changed.unifiedTangents = !changed.unifiedTangents;
        } else if (field == "type") {
            changed.type = zk_spline::stepped;
        }
        const PointInfo before = *curve.spline.at(0);
        PointInfo* const key = curve.spline.at(0);
        QCOMPARE(
            perform<CommandChangePoints>(fixture, [&] { curve.spline.copyPoint(key, &changed); }),
            counts);
        if (!counts) {
            return;
        }
        curve.spline.setChanged(false);
        QCOMPARE(fixture.undoAll(), QStringList{"Change Control Points Values"});
        QVERIFY(curve.spline.hasChanged());
        QCOMPARE(curve.spline.at(0), key);
        QVERIFY(SplineState::bitsOf(before) == SplineState::bitsOf(*key));
        fixture.manager.redo();
        QVERIFY(SplineState::bitsOf(changed) == SplineState::bitsOf(*key));
    }

    void aValueChangedAndRestoredIsNoStep()
    {
        DocumentFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{1, 1}});
        fixture.selectKeys("n.a", {0});
        PointInfo* const key = curve.spline.at(0);
        QVERIFY(!perform<CommandChangePoints>(fixture, [&] {
            key->tcb.tension = 3.0;
            key->tcb.tension = 0.0;
        }));
    }

    void notANumberCountsAsAChange()
    {
        DocumentFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{1, 1}});
        fixture.selectKeys("n.a", {0});
        curve.spline.at(0)->value = std::numeric_limits<double>::quiet_NaN();
        QVERIFY(perform<CommandMovePoints>(fixture, [] {}));
        QVERIFY(perform<CommandChangePoints>(fixture, [] {}));
        curve.spline.at(0)->value = 0.0;
        curve.spline.at(0)->tcb.bias = std::numeric_limits<double>::quiet_NaN();
        QVERIFY(!perform<CommandMovePoints>(fixture, [] {}));
        QVERIFY(perform<CommandChangePoints>(fixture, [] {}));
    }

    void oneSelectedKeyIsTheCurrentOneWhateverTheListSays()
    {
        DocumentFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{1, 1}, {2, 2}});
        ControlSplineNode& selection = fixture.selectionOf("n.a");
        selection.currentPoint = curve.spline.at(1);
        selection.selectedPoints = {curve.spline.at(0)};
        QVERIFY(!perform<CommandMovePoints>(fixture,
                                            [&] { curve.spline.setPos(curve.spline.at(0), 7.0); }));
        QVERIFY(perform<CommandMovePoints>(fixture,
                                           [&] { curve.spline.setPos(curve.spline.at(1), 7.0); }));
        selection.currentPoint = nullptr;
        QVERIFY(!perform<CommandMovePoints>(fixture,
                                            [&] { curve.spline.setPos(curve.spline.at(0), 8.0); }));
        selection.clear();
    }

    void keysDeletedDuringAGestureLeaveItsLists()
    {
        DocumentFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{1, 1}, {2, 2}, {3, 3}});
        fixture.selectKeys("n.a", {0, 1});
        PointInfo* const kept = curve.spline.at(1);
        CurveCommandsManager& manager = fixture.manager;
        QVERIFY(perform<CommandMovePoints>(fixture, [&] {
            curve.spline.setPos(kept, 8.0);
            fixture.selectKeys("n.a", {0});
            manager.doCommand(new CommandDelPoints(fixture));
            manager.setMaxStackSize(0); // frees the deleted key
            manager.setMaxStackSize(10);
        }));
        QCOMPARE(keyValues(curve.spline), (QList<double>{8, 3}));
        manager.undo();
        QCOMPARE(keyValues(curve.spline), (QList<double>{2, 3}));
        manager.redo();
        QCOMPARE(keyValues(curve.spline), (QList<double>{8, 3}));
    }

    void keysThatTheHostFreedAreNeverTouched()
    {
        DocumentFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{1, 1}, {2, 2}});
        fixture.selectKeys("n.a", {0, 1});
        QVERIFY(perform<CommandMovePoints>(fixture,
                                           [&] { curve.spline.setPos(curve.spline.at(0), 8.0); }));
        QVERIFY(perform<CommandChangePoints>(
            fixture, [&] { curve.spline.setTanLeft(curve.spline.at(0), 8.0); }));
        QVERIFY(perform<CommandSelectPoints>(fixture, [&] { fixture.selectKeys("n.a", {1}); }));
        fixture.selectionOf("n.a").clear();
        curve.spline.removeAllControlPoints();
        QCOMPARE(fixture.undoAll().size(), 3);
        QVERIFY(fixture.selectionOf("n.a").selectedPoints.isEmpty());
        while (fixture.manager.redo()) {
        }
        QCOMPARE(curve.spline.getControlPointsNumber(), 0u);
    }

    void aDestroyedSplineIsNeverTouchedAgain()
    {
        DocumentFixture fixture;
        auto curve = std::make_unique<LentCurve>();
        curve->addKey(1, 1);
        curve->addKey(2, 2);
        fixture.lend("n.a", &curve->spline, nullptr);
        fixture.edit({"n.a"});
        fixture.selectAllKeys();
        QVERIFY(perform<CommandMovePoints>(
            fixture, [&] { curve->spline.setPos(curve->spline.at(0), 8.0); }));
        QVERIFY(perform<CommandChangePoints>(
            fixture, [&] { curve->spline.setTanLeft(curve->spline.at(0), 8.0); }));
        QVERIFY(!perform<CommandMovePoints>(fixture, [&] {
            curve->spline.setPos(curve->spline.at(0), 9.0);
            curve.reset();
        }));
        QCOMPARE(fixture.undoAll().size(), 2);
        while (fixture.manager.redo()) {
        }
    }

    void clearLeavesAPendingGestureAlone()
    {
        DocumentFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{1, 1}});
        fixture.selectKeys("n.a", {0});
        QVERIFY(perform<CommandMovePoints>(fixture, [&] {
            curve.spline.setPos(curve.spline.at(0), 8.0);
            fixture.manager.clear();
        }));
        QCOMPARE(fixture.undoAll().size(), 1);
        QCOMPARE(keyValues(curve.spline), QList<double>{1});
    }
};

QTEST_MAIN(TestGestureCommands)
#include "test_gesture_commands.moc"
