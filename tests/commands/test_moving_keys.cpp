#include "support/DocumentFixture.h"
#include "support/FailOnWarning.h"
#include "support/SplineState.h"

#include "commands/CommandChangePoints.h"
#include "commands/CommandMovePoints.h"
#include "commands/KeyLists.h"
#include "commands/PerformGesture.h"
#include "curves/KeyRetiming.h"

#include <algorithm>
#include <vector>

using namespace curve_editor;

/// The command of a move of the selected keys.
class TestMovingKeys : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void aMoveIsTakenBackAndRepeated()
    {
        DocumentFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{1, 1}, {2, 2}, {3, 3}});
        fixture.selectKeys("n.a", {0});
        PointInfo* const key = curve.spline.at(0);
        fixture.takeCalls();
        QVERIFY(perform<CommandMovePoints>(fixture, [&] {
            curve.spline.setTime(key, 2.5);
            curve.spline.setPos(key, 9.0);
        }));
        QCOMPARE(fixture.takeReports(), QStringList{"n|a"});
        QCOMPARE(keyTimes(curve.spline), (QList<double>{2, 2.5, 3}));
        curve.spline.setChanged(false);
        QCOMPARE(QString::fromStdString(fixture.manager.undo()->getDescription()),
                 QString("Move Control Points"));
        QCOMPARE(keyTimes(curve.spline), (QList<double>{1, 2, 3}));
        QCOMPARE(keyValues(curve.spline), (QList<double>{1, 2, 3}));
        QCOMPARE(curve.spline.at(0), key);
        QVERIFY(curve.spline.hasChanged());
        QCOMPARE(fixture.takeReports(), QStringList{"n|a"});
        fixture.manager.redo();
        QCOMPARE(keyTimes(curve.spline), (QList<double>{2, 2.5, 3}));
        QCOMPARE(keyValues(curve.spline), (QList<double>{2, 9, 3}));
        QCOMPARE(fixture.takeReports(), QStringList{"n|a"});
    }

    void aMoveThatEndsWhereItBeganIsNoStepAndKeepsTheRedoStack()
    {
        DocumentFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{1, 1}, {2, 2}});
        fixture.selectKeys("n.a", {0});
        PointInfo* const key = curve.spline.at(0);
        QVERIFY(perform<CommandMovePoints>(fixture, [&] { curve.spline.setTime(key, 1.5); }));
        fixture.manager.undo();
        QVERIFY(!perform<CommandMovePoints>(fixture, [&] {
            curve.spline.setTime(key, 8.0);
            curve.spline.setTime(key, 1.0);
        }));
        QVERIFY(!fixture.manager.undo());
        QVERIFY(fixture.manager.redo());
        QCOMPARE(keyTimes(curve.spline), (QList<double>{1.5, 2}));
    }

    void twoKeysOnEachOfTwoCurvesAreOneStep()
    {
        DocumentFixture fixture;
        LentCurve& a = fixture.addCurve("n.a", {{1, 1}, {2, 2}, {3, 3}});
        LentCurve& b = fixture.addCurve("n.b", {{1, 4}, {2, 5}, {3, 6}});
        fixture.edit({"n.a", "n.b"});
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
        QCOMPARE(keyTimes(a.spline), (QList<double>{3, 6, 7}));
        QCOMPARE(keyTimes(b.spline), (QList<double>{-3, -2, 1}));
        QCOMPARE(fixture.undoAll(), QStringList{"Move Control Points"});
        QCOMPARE(keyTimes(a.spline), (QList<double>{1, 2, 3}));
        QCOMPARE(keyValues(a.spline), (QList<double>{1, 2, 3}));
        QCOMPARE(keyTimes(b.spline), (QList<double>{1, 2, 3}));
        QCOMPARE(keyValues(b.spline), (QList<double>{4, 5, 6}));
    }

    void neitherUndoNorRedoOfAMoveTouchesTheSelection()
    {
        DocumentFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{1, 1}, {2, 2}});
        fixture.selectKeys("n.a", {0});
        QVERIFY(perform<CommandMovePoints>(fixture,
                                           [&] { curve.spline.setTime(curve.spline.at(0), 7.0); }));
        fixture.selectionOf("n.a").clear();
        fixture.manager.undo();
        QVERIFY(!fixture.selectionOf("n.a").currentPoint);
        QCOMPARE(keyTimes(curve.spline), (QList<double>{1, 2}));
    }

    void aMoveGoesOnWithoutTheCurveOnTheCanvas()
    {
        DocumentFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{1, 1}, {2, 2}});
        fixture.selectKeys("n.a", {0});
        QVERIFY(perform<CommandMovePoints>(fixture, [&] {
            curve.spline.setTime(curve.spline.at(0), 7.0);
            fixture.removeCurve("n.a");
        }));
        fixture.manager.undo();
        QCOMPARE(keyTimes(curve.spline), (QList<double>{1, 2}));
        fixture.manager.redo();
        QCOMPARE(keyTimes(curve.spline), (QList<double>{2, 7}));
    }

    /// The first key stays where it is, and so says nothing of the order of the others.
    void aScaleOfManyKeysAboutTheFirstIsTakenBackInOrder()
    {
        DocumentFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {});
        QList<PointInfo*> keys;
        for (int i = 0; i < 300; ++i) {
            PointInfo* const key = curve.addKey(i, i);
            if (i < 200) {
                keys.append(key);
            }
        }
        const SplineState before(curve.spline);
        const QList<double> timesBefore = keyTimes(curve.spline);
        fixture.selectionOf("n.a").selectPoints(keys);
        QVERIFY(perform<CommandMovePoints>(fixture, [&] {
            std::vector<RetimedKey> scaled;
            for (PointInfo* key : keys) {
                scaled.push_back({key, key->time * 1.45});
            }
            retimeKeys(curve.spline, scaled);
        }));
        const QList<double> timesAfter = keyTimes(curve.spline);
        QVERIFY(std::is_sorted(timesAfter.cbegin(), timesAfter.cend()));
        QCOMPARE(timesAfter.at(1), 1.45);
        fixture.manager.undo();
        QCOMPARE(keyTimes(curve.spline), timesBefore);
        QVERIFY(SplineState(curve.spline) == before);
        fixture.manager.redo();
        QCOMPARE(keyTimes(curve.spline), timesAfter);
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
        DocumentFixture fixture;
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
        const QList<double> before = keyTimes(curve.spline);
        fixture.selectionOf("n.a").selectPoints(keys);
        QVERIFY(perform<CommandMovePoints>(fixture, move));
        QVERIFY(perform<CommandChangePoints>(fixture, move));
        const QList<double> after = keyTimes(curve.spline);
        QVERIFY(after != before);
        QCOMPARE(fixture.undoAll().size(), 2);
        QCOMPARE(keyTimes(curve.spline), before);
        QCOMPARE(keyValues(curve.spline).last(), count - 1.0);
        QCOMPARE(curve.spline.at(first)->bezier.tangentLeft, 3.0); // the move does not hold it
        fixture.manager.redo();
        fixture.manager.redo();
        QCOMPARE(keyTimes(curve.spline), after);
    }
};

QTEST_MAIN(TestMovingKeys)
#include "test_moving_keys.moc"
