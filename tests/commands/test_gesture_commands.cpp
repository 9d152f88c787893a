// Commands that wrap a gesture: built before it, captured after it.

#include "support/EditorFixture.h"
#include "support/FailOnWarning.h"
#include "support/HostEar.h"
#include "support/SplineState.h"

#include "commands/CommandChangePoints.h"
#include "commands/CommandDelPoints.h"
#include "commands/CommandMovePoints.h"
#include "commands/CommandSelectPoints.h"

#include <algorithm>
#include <limits>

using namespace curve_editor;

namespace {

QList<double> times(SplineBase& spline)
{
    QList<double> all;
    for (const PointInfo* point : spline.getControlPoints()) {
        all.append(point->time);
    }
    return all;
}

QList<double> values(SplineBase& spline)
{
    QList<double> all;
    for (const PointInfo* point : spline.getControlPoints()) {
        all.append(point->value);
    }
    return all;
}

/// Runs a gesture; returns whether it became a step.
template <class Command, class Gesture>
bool perform(EditorFixture& fixture, const Gesture& gesture)
{
    auto command = std::make_unique<Command>(&fixture.editor);
    gesture();
    return command->captureFinalState() &&
           fixture.editor.getCmdManager()->doCommand(command.release());
}

} // namespace

class TestGestureCommands : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void aMoveIsTakenBackAndRepeated()
    {
        EditorFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{1, 1}, {2, 2}, {3, 3}});
        fixture.selectKeys("n.a", {0});
        PointInfo* const key = curve.spline.at(0);
        HostEar host(fixture.editor);
        QVERIFY(perform<CommandMovePoints>(fixture, [&] {
            curve.spline.setTime(key, 2.5);
            curve.spline.setPos(key, 9.0);
        }));
        QCOMPARE(host.take(), QStringList{"n|a"});
        QCOMPARE(times(curve.spline), (QList<double>{2, 2.5, 3}));
        curve.spline.setChanged(false);
        QCOMPARE(QString::fromStdString(fixture.editor.getCmdManager()->undo()->getDescription()),
                 QString("Move Control Points"));
        QCOMPARE(times(curve.spline), (QList<double>{1, 2, 3}));
        QCOMPARE(values(curve.spline), (QList<double>{1, 2, 3}));
        QCOMPARE(curve.spline.at(0), key);
        QVERIFY(curve.spline.hasChanged());
        QCOMPARE(host.take(), QStringList{"n|a"});
        fixture.editor.getCmdManager()->redo();
        QCOMPARE(times(curve.spline), (QList<double>{2, 2.5, 3}));
        QCOMPARE(values(curve.spline), (QList<double>{2, 9, 3}));
        QCOMPARE(host.take(), QStringList{"n|a"});
    }

    void aMoveThatEndsWhereItBeganIsNoStepAndKeepsTheRedoStack()
    {
        EditorFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{1, 1}, {2, 2}});
        fixture.selectKeys("n.a", {0});
        PointInfo* const key = curve.spline.at(0);
        QVERIFY(perform<CommandMovePoints>(fixture, [&] { curve.spline.setTime(key, 1.5); }));
        fixture.editor.getCmdManager()->undo();
        QVERIFY(!perform<CommandMovePoints>(fixture, [&] {
            curve.spline.setTime(key, 8.0);
            curve.spline.setTime(key, 1.0);
        }));
        QVERIFY(!fixture.editor.getCmdManager()->undo());
        QVERIFY(fixture.editor.getCmdManager()->redo());
        QCOMPARE(times(curve.spline), (QList<double>{1.5, 2}));
    }

    void aGestureWithNothingSelectedIsNoStep()
    {
        EditorFixture fixture;
        QVERIFY(!perform<CommandMovePoints>(fixture, [] {})); // no curve at all
        LentCurve& curve = fixture.editCurve("n.a", {{1, 1}});
        const auto move = [&] { curve.spline.setTime(curve.spline.at(0), 5.0); };
        QVERIFY(!perform<CommandMovePoints>(fixture, move));
        QVERIFY(!perform<CommandChangePoints>(fixture, move));
        QVERIFY(!perform<CommandSelectPoints>(fixture, move));
    }

    void twoKeysOnEachOfTwoCurvesAreOneStep()
    {
        EditorFixture fixture;
        LentCurve& a = fixture.addCurve("n.a", {{1, 1}, {2, 2}, {3, 3}});
        LentCurve& b = fixture.addCurve("n.b", {{1, 4}, {2, 5}, {3, 6}});
        fixture.editor.selectNodes(QStringList{"n.a", "n.b"});
        fixture.selectKeys("n.a", {0, 1});
        fixture.selectKeys("n.b", {1, 2});
        QVERIFY(perform<CommandMovePoints>(fixture, [&] {
            for (PointInfo* key : fixture.selectionOf("n.a").selectedPoints) {
                a.spline.setTime(key, key->time + 5);
                key->value += 1;
            }
            for (PointInfo* key : fixture.selectionOf("n.b").selectedPoints) {
                b.spline.setTime(key, key->time - 5);
                key->value += 1;
            }
        }));
        QCOMPARE(times(a.spline), (QList<double>{3, 6, 7}));
        QCOMPARE(times(b.spline), (QList<double>{-3, -2, 1}));
        QCOMPARE(fixture.undoAll(), QStringList{"Move Control Points"});
        QCOMPARE(times(a.spline), (QList<double>{1, 2, 3}));
        QCOMPARE(values(a.spline), (QList<double>{1, 2, 3}));
        QCOMPARE(times(b.spline), (QList<double>{1, 2, 3}));
        QCOMPARE(values(b.spline), (QList<double>{4, 5, 6}));
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
        EditorFixture fixture;
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
        fixture.editor.getCmdManager()->redo();
        QVERIFY(SplineState::bitsOf(changed) == SplineState::bitsOf(*key));
    }

    void aValueChangedAndRestoredIsNoStep()
    {
        EditorFixture fixture;
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
        EditorFixture fixture;
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

    void neitherUndoNorRedoOfAMoveTouchesTheSelection()
    {
        EditorFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{1, 1}, {2, 2}});
        fixture.selectKeys("n.a", {0});
        QVERIFY(perform<CommandMovePoints>(fixture,
                                           [&] { curve.spline.setTime(curve.spline.at(0), 7.0); }));
        fixture.selectionOf("n.a").clear();
        fixture.editor.getCmdManager()->undo();
        QVERIFY(!fixture.selectionOf("n.a").currentPoint);
        QCOMPARE(times(curve.spline), (QList<double>{1, 2}));
    }

    void oneSelectedKeyIsTheCurrentOneWhateverTheListSays()
    {
        EditorFixture fixture;
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

    void aChangedSelectionIsTakenBackAndRepeated()
    {
        EditorFixture fixture;
        LentCurve& a = fixture.addCurve("n.a", {{1, 1}, {2, 2}, {3, 3}});
        LentCurve& b = fixture.addCurve("n.b", {{1, 1}, {2, 2}});
        fixture.editor.selectNodes(QStringList{"n.a", "n.b"});
        fixture.selectKeys("n.a", {0, 2});
        HostEar host(fixture.editor);
        QVERIFY(perform<CommandSelectPoints>(fixture, [&] {
            fixture.selectKeys("n.a", {1});
            fixture.selectKeys("n.b", {0, 1});
        }));
        CurveCommandsManager& manager = *fixture.editor.getCmdManager();
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
        QVERIFY(host.take().isEmpty());
    }

    void theSameKeysInAnotherOrderAreNoStep()
    {
        EditorFixture fixture;
        fixture.editCurve("n.a", {{1, 1}, {2, 2}, {3, 3}});
        fixture.selectKeys("n.a", {0, 1});
        QVERIFY(!perform<CommandSelectPoints>(fixture, [&] { fixture.selectKeys("n.a", {1, 0}); }));
        QVERIFY(perform<CommandSelectPoints>(fixture, [&] { fixture.selectKeys("n.a", {1, 2}); }));
        QVERIFY(perform<CommandSelectPoints>(fixture, [&] { fixture.selectKeys("n.a", {1}); }));
    }

    void aCurveThatLeftIsPassedOverByTheSelection()
    {
        EditorFixture fixture;
        LentCurve& a = fixture.addCurve("n.a", {{1, 1}, {2, 2}});
        LentCurve& b = fixture.addCurve("n.b", {{1, 1}, {2, 2}});
        fixture.editor.selectNodes(QStringList{"n.a", "n.b"});
        fixture.selectKeys("n.a", {0});
        fixture.selectKeys("n.b", {0});
        QVERIFY(perform<CommandSelectPoints>(fixture, [&] {
            fixture.selectKeys("n.a", {1});
            fixture.selectKeys("n.b", {1});
        }));
        fixture.editor.removeCurveFromEditing("n.a");
        fixture.editor.getCmdManager()->undo();
        QCOMPARE(fixture.selectionOf("n.b").currentPoint, b.spline.at(0));
        fixture.editor.getCmdManager()->redo();
        QCOMPARE(fixture.selectionOf("n.b").currentPoint, b.spline.at(1));
        QCOMPARE(a.spline.getControlPointsNumber(), 2u);
    }

    void aCurveThatLeavesDuringTheGestureKeepsTheOthersInStep()
    {
        EditorFixture fixture;
        fixture.addCurve("n.a", {{1, 1}, {2, 2}});
        LentCurve& b = fixture.addCurve("n.b", {{1, 1}, {2, 2}});
        fixture.editor.selectNodes(QStringList{"n.a", "n.b"});
        fixture.selectKeys("n.a", {0});
        fixture.selectKeys("n.b", {0});
        QVERIFY(perform<CommandSelectPoints>(fixture, [&] {
            fixture.editor.removeCurveFromEditing("n.a");
            fixture.selectKeys("n.b", {0, 1});
        }));
        fixture.editor.getCmdManager()->undo();
        QCOMPARE(fixture.selectionOf("n.b").selectedPoints, QList<PointInfo*>{b.spline.at(0)});
        fixture.editor.getCmdManager()->redo();
        QCOMPARE(fixture.selectionOf("n.b").selectedPoints.size(), 2);
    }

    void aMoveGoesOnWithoutTheCurveOnTheCanvas()
    {
        EditorFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{1, 1}, {2, 2}});
        fixture.selectKeys("n.a", {0});
        QVERIFY(perform<CommandMovePoints>(fixture, [&] {
            curve.spline.setTime(curve.spline.at(0), 7.0);
            fixture.editor.removeCurve("n", "a");
        }));
        fixture.editor.getCmdManager()->undo();
        QCOMPARE(times(curve.spline), (QList<double>{1, 2}));
        fixture.editor.getCmdManager()->redo();
        QCOMPARE(times(curve.spline), (QList<double>{2, 7}));
    }

    void keysDeletedDuringAGestureLeaveItsLists()
    {
        EditorFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{1, 1}, {2, 2}, {3, 3}});
        fixture.selectKeys("n.a", {0, 1});
        PointInfo* const kept = curve.spline.at(1);
        CurveCommandsManager& manager = *fixture.editor.getCmdManager();
        QVERIFY(perform<CommandMovePoints>(fixture, [&] {
            curve.spline.setPos(kept, 8.0);
            fixture.selectKeys("n.a", {0});
            manager.doCommand(new CommandDelPoints(&fixture.editor));
            manager.setMaxStackSize(0); // frees the deleted key
            manager.setMaxStackSize(10);
        }));
        QCOMPARE(values(curve.spline), (QList<double>{8, 3}));
        manager.undo();
        QCOMPARE(values(curve.spline), (QList<double>{2, 3}));
        manager.redo();
        QCOMPARE(values(curve.spline), (QList<double>{8, 3}));
    }

    void keysThatTheHostFreedAreNeverTouched()
    {
        EditorFixture fixture;
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
        while (fixture.editor.getCmdManager()->redo()) {
        }
        QCOMPARE(curve.spline.getControlPointsNumber(), 0u);
    }

    void aDestroyedSplineIsNeverTouchedAgain()
    {
        EditorFixture fixture;
        auto curve = std::make_unique<LentCurve>();
        curve->addKey(1, 1);
        curve->addKey(2, 2);
        fixture.editor.addCurve("n", "a", Qt::red, 0, &curve->spline, nullptr, 0, 1, true, true);
        fixture.editor.selectAllKeys();
        QVERIFY(perform<CommandMovePoints>(
            fixture, [&] { curve->spline.setPos(curve->spline.at(0), 8.0); }));
        QVERIFY(perform<CommandChangePoints>(
            fixture, [&] { curve->spline.setTanLeft(curve->spline.at(0), 8.0); }));
        QVERIFY(!perform<CommandMovePoints>(fixture, [&] {
            curve->spline.setPos(curve->spline.at(0), 9.0);
            curve.reset();
        }));
        QCOMPARE(fixture.undoAll().size(), 3);
        while (fixture.editor.getCmdManager()->redo()) {
        }
    }

    void clearLeavesAPendingGestureAlone()
    {
        EditorFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{1, 1}});
        fixture.selectKeys("n.a", {0});
        QVERIFY(perform<CommandMovePoints>(fixture, [&] {
            curve.spline.setPos(curve.spline.at(0), 8.0);
            fixture.editor.getCmdManager()->clear();
        }));
        QCOMPARE(fixture.undoAll().size(), 1);
        QCOMPARE(values(curve.spline), QList<double>{1});
    }

    /// The first key stays where it is, and so says nothing of the order of the others.
    void aScaleOfManyKeysAboutTheFirstIsTakenBackInOrder()
    {
        EditorFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {});
        QList<PointInfo*> keys;
        for (int i = 0; i < 300; ++i) {
            PointInfo* const key = curve.addKey(i, i);
            if (i < 200) {
                keys.append(key);
            }
        }
        const SplineState before(curve.spline);
        const QList<double> timesBefore = times(curve.spline);
        fixture.selectionOf("n.a").selectPoints(keys);
        fixture.logic().scaleSelection(1.45, 1.0);
        const QList<double> timesAfter = times(curve.spline);
        QVERIFY(std::is_sorted(timesAfter.cbegin(), timesAfter.cend()));
        QCOMPARE(timesAfter.at(1), 1.45);
        fixture.editor.getCmdManager()->undo();
        QCOMPARE(times(curve.spline), timesBefore);
        QVERIFY(SplineState(curve.spline) == before);
        fixture.editor.getCmdManager()->redo();
        QCOMPARE(times(curve.spline), timesAfter);
    }

    void aMoveOfManyKeysAmongManyIsTakenBack_data()
    {
        QTest::addColumn<int>("every");
        QTest::addColumn<double>("offset");
        QTest::newRow("a block to the right") << 1 << 30000.5;
        QTest::newRow("a block to the left") << 1 << -2000.5;
        QTest::newRow("a block to the left past two keys") << 1 << -2.5;
        QTest::newRow("a block to the right past one key") << 1 << 1.5;
        QTest::newRow("every tenth, a little") << 10 << 25.5;
        QTest::newRow("every tenth, a little to the left") << 10 << -25.5;
        QTest::newRow("every tenth, onto others") << 10 << 20.0;
    }

    void aMoveOfManyKeysAmongManyIsTakenBack()
    {
        QFETCH(int, every);
        QFETCH(double, offset);
        EditorFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {});
        const int count = 20000;
        for (int i = 0; i < count; ++i) {
            curve.addKey(i, i);
        }
        QList<PointInfo*> keys;
        const unsigned first = every == 1 ? 9000 : 0;
        for (unsigned i = 0; i < 2000; ++i) {
            keys.append(curve.spline.at(first + i * static_cast<unsigned>(every)));
        }
        const auto move = [&] {
            for (PointInfo* key : keys) {
                curve.spline.setTime(key, key->time + offset);
                key->value += 1.0;
                key->bezier.tangentLeft = 3.0;
            }
        };
        const QList<double> before = times(curve.spline);
        fixture.selectionOf("n.a").selectPoints(keys);
        QVERIFY(perform<CommandMovePoints>(fixture, move));
        QVERIFY(perform<CommandChangePoints>(fixture, move));
        const QList<double> after = times(curve.spline);
        QVERIFY(after != before);
        QCOMPARE(fixture.undoAll().size(), 2);
        QCOMPARE(times(curve.spline), before);
        QCOMPARE(values(curve.spline).last(), count - 1.0);
        QCOMPARE(curve.spline.at(first)->bezier.tangentLeft, 3.0); // the move does not hold it
        fixture.editor.getCmdManager()->redo();
        fixture.editor.getCmdManager()->redo();
        QCOMPARE(times(curve.spline), after);
    }
};

QTEST_MAIN(TestGestureCommands)
#include "test_gesture_commands.moc"
