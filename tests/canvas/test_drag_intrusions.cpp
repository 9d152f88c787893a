#include "canvas/DragIntrusions.h"
#include "canvas/DraggedCurve.h"
#include "canvas/StepLabels.h"
#include "support/FailOnWarning.h"

#include <QSignalSpy>

#include <optional>

using Mode = CurveEditor::curveEditorModes;

namespace {

int redoSteps(EditorFixture& fixture, const qsizetype& count)
{
    int done = 0;
    while (done < count && fixture.editor.getCmdManager()->redo()) {
        ++done;
    }
    return done;
}

} // namespace

/// What user and host do in the middle of a drag, between two steps of it or inside the host's
/// slot. Whatever it is, no key is lost or freed twice, and the history leads back to the start and
/// forth to the end.
class TestDragIntrusions : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void aDragIsBrokenInto_data()
    {
        QTest::addColumn<int>("intrusion");
        QTest::addColumn<QString>("moment");
        QTest::addColumn<bool>("several");
        const struct
        {
            const char* moment;
            bool several;
        } cases[] = {{"between the steps", true},
                     {"between the steps of one key", false},
                     {"in the slot", false},
                     {"in the last slot", true},
                     {"in the last slot of one key", false}};
        for (std::size_t i = 0; i < intrusions().size(); ++i) {
            for (const auto& [moment, several] : cases) {
                QTest::addRow("%s %s", intrusions()[i].name, moment)
                    << int(i) << QString(moment) << several;
            }
        }
    }

    void aDragIsBrokenInto()
    {
        QFETCH(int, intrusion);
        QFETCH(QString, moment);
        QFETCH(bool, several);
        const Intrusion& broken = intrusions()[static_cast<std::size_t>(intrusion)];
        const bool isByCommands = broken.kind == byCommands || broken.kind == undoing;
        EditorFixture fixture;
        LentCurve& other = fixture.addCurve("n.b", {{12, 30}, {22, 35}});
        const SplineState otherBefore(other.spline);
        LentCurve& curve = fixture.editCurve("n.a", {{10, 10, zk_spline::bezier},
                                                     {20, 20, zk_spline::bezier},
                                                     {30, 10, zk_spline::bezier},
                                                     {40, 5, zk_spline::bezier}});
        fixture.editor.setUndoLevels(100);
        if (several) {
            fixture.selectKeys("n.a", {0, 1, 2});
        }
        fixture.paint();
        const DraggedCurve first(curve.spline);
        bool isDue = false;
        connect(&fixture.editor, &CurveEditor::curveHasChanged, this, [&](QString&, QString&) {
            if (std::exchange(isDue, false)) {
                broken.intrude(fixture);
            }
        });

        fixture.press(fixture.pixel(20, 20));
        fixture.moveTo(fixture.pixel(21, 22));
        isDue = moment == "in the slot";
        fixture.moveTo(fixture.pixel(33, 24));
        if (moment.startsWith("between the steps")) {
            broken.intrude(fixture);
        }
        fixture.moveTo(fixture.pixel(35, 25));
        fixture.paint();
        isDue = moment.startsWith("in the last slot");
        fixture.release(fixture.pixel(35, 25));
        isDue = false;
        fixture.release(fixture.pixel(35, 25)); // of a press in the slot
        fixture.canvas().keysDialog()->endMovePoints();

        QVERIFY(fixture.editor.getCurrentMode() != Mode::MOVING);
        QVERIFY(!fixture.canvas().rectActive);
        std::optional<DraggedCurve> last;
        if (draggedSpline(fixture)) {
            last.emplace(curve.spline);
        }
        const qsizetype steps = fixture.undoAll().size();
        if (last) {
            const DraggedCurve undone(curve.spline);
            QVERIFY(undone.agreesWith(broken.kind == forgetting ? *last : first));
            QVERIFY(undone == first || !isByCommands);
            QVERIFY(steps > 0 || broken.kind != byCommands);
            QVERIFY(steps == 0 || broken.kind != forgetting);
        }
        QCOMPARE(redoSteps(fixture, steps), steps);
        // Of the two steps of one key's drag the second alone was undone; redone, the first moves
        // the key.
        const bool isHalfUndone = broken.kind == undoing && !several;
        if (last && !isHalfUndone) {
            QVERIFY(DraggedCurve(curve.spline) == *last);
        }
        redoSteps(fixture, 1000);
        fixture.undoAll();
        if (last) {
            QVERIFY(DraggedCurve(curve.spline) == first || !isByCommands);
        }
        QVERIFY(SplineState(other.spline) == otherBefore);
        // The next gesture starts anew.
        fixture.click(fixture.pixel(45, 38));
        fixture.paint();
    }

    void undoInMidDragTakesTheDragBack()
    {
        EditorFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{10, 10}, {20, 20}});
        fixture.selectKeys("n.a", {0});
        fixture.paint();
        const DraggedCurve first(curve.spline);
        fixture.press(fixture.pixel(20, 20)); // selects the second key: a step
        fixture.moveTo(fixture.pixel(22, 22));
        const DraggedCurve dragged(curve.spline);
        fixture.typeKey(Qt::Key_Z, Qt::ControlModifier);
        QVERIFY(DraggedCurve(curve.spline) == first);
        QCOMPARE(fixture.selectionOf("n.a").currentPoint, curve.spline.at(1));
        fixture.moveTo(fixture.pixel(25, 25)); // with the button still held
        fixture.release(fixture.pixel(25, 25));
        QVERIFY(DraggedCurve(curve.spline) == first);
        QCOMPARE(fixture.editor.getCurrentMode(), Mode::DEFAULT);
        fixture.typeKey(Qt::Key_Y, Qt::ControlModifier);
        QVERIFY(DraggedCurve(curve.spline) == dragged);
        QCOMPARE(fixture.undoAll(), (QStringList{changeLabel, moveLabel, selectLabel}));
        QCOMPARE(fixture.selectionOf("n.a").currentPoint, curve.spline.at(0));
    }

    /// A host that looks for a step before it undoes finds that of the drag.
    void theHostThatIsAskedToUndoInMidDragFindsAStep()
    {
        EditorFixture fixture;
        fixture.editCurve("n.a", {{10, 10}, {20, 20}});
        fixture.editor.clearStack();
        fixture.selectKeys("n.a", {1});
        fixture.paint();
        bool hadStep = false;
        connect(&fixture.editor, &CurveEditor::curveEditorRedo, this,
                [&] { hadStep = fixture.editor.getCmdManager()->nextUndo(); });
        fixture.press(fixture.pixel(20, 20));
        fixture.moveTo(fixture.pixel(22, 22));
        fixture.editor.redo();
        QVERIFY(hadStep);
    }

    void deleteInMidDrag_data()
    {
        QTest::addColumn<bool>("two");
        QTest::newRow("one key") << false;
        QTest::newRow("two keys") << true;
    }

    void deleteInMidDrag()
    {
        QFETCH(bool, two);
        EditorFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{10, 10}, {25, 5}, {40, 10}});
        if (two) {
            fixture.selectKeys("n.a", {0, 1});
        }
        fixture.paint();
        const DraggedCurve first(curve.spline);
        fixture.press(fixture.pixel(25, 5));
        fixture.moveTo(fixture.pixel(30, 3));
        fixture.typeKey(Qt::Key_Delete);
        QCOMPARE(curve.spline.getControlPointsNumber(), two ? 1u : 2u);
        fixture.release(fixture.pixel(30, 3));
        fixture.undoAll();
        QVERIFY(DraggedCurve(curve.spline) == first);
    }

    void anArrowInMidDragDragsNoOtherKey()
    {
        EditorFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{10, 10}, {25, 5}, {40, 10}});
        fixture.paint();
        const DraggedCurve first(curve.spline);
        fixture.press(fixture.pixel(25, 5));
        fixture.moveTo(fixture.pixel(30, 3));
        fixture.typeKey(Qt::Key_Right);
        QCOMPARE(fixture.selectionOf("n.a").currentPoint, curve.spline.at(2));
        fixture.moveTo(fixture.pixel(35, 20));
        fixture.release(fixture.pixel(35, 20));
        QCOMPARE(curve.spline.at(1)->time, 30.0);
        QCOMPARE(curve.spline.at(2)->time, 40.0);
        fixture.undoAll();
        QVERIFY(DraggedCurve(curve.spline) == first);
    }

    /// The history has no say in a drag that has not ended.
    void clearingTheHistoryInMidDragLeavesTheDrag()
    {
        EditorFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{10, 10}, {20, 20}});
        fixture.paint();
        const DraggedCurve first(curve.spline);
        fixture.press(fixture.pixel(20, 20));
        fixture.moveTo(fixture.pixel(22, 22));
        fixture.editor.clearStack();
        fixture.moveTo(fixture.pixel(24, 24));
        fixture.release(fixture.pixel(24, 24));
        QCOMPARE(curve.spline.at(1)->time, 24.0);
        QCOMPARE(fixture.undoAll(), (QStringList{changeLabel, moveLabel}));
        QVERIFY(DraggedCurve(curve.spline) == first);
    }

    void aCurveRemovedInMidDragEndsItInTheChosenTool()
    {
        EditorFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{10, 10}, {20, 20}});
        fixture.selectKeys("n.a", {0});
        fixture.editor.setMoveMode();
        fixture.paint();
        const DraggedCurve first(curve.spline);
        fixture.press(fixture.pixel(10, 10));
        fixture.moveTo(fixture.pixel(11, 11));
        fixture.editor.removeCurve("n", "a");
        QCOMPARE(fixture.editor.getCurrentMode(), Mode::MOVE);
        fixture.moveTo(fixture.pixel(12, 12));
        fixture.release(fixture.pixel(12, 12));
        QCOMPARE(curve.spline.at(0)->time, 11.0);
        fixture.undoAll();
        QVERIFY(DraggedCurve(curve.spline) == first);
    }

    void anotherCurveMayComeAndGoInMidDrag()
    {
        EditorFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{10, 10}, {20, 20}});
        fixture.paint();
        fixture.press(fixture.pixel(20, 20));
        fixture.moveTo(fixture.pixel(21, 21));
        fixture.addCurve("n.b", {{12, 30}});
        fixture.moveTo(fixture.pixel(22, 22));
        fixture.editor.setCurveEditableOff(fixture.editor.searchAllNodeList("n.b"));
        fixture.editor.selectNodes(QStringList("n.a"));
        QCOMPARE(fixture.editor.getCurrentMode(), Mode::MOVING);
        fixture.moveTo(fixture.pixel(23, 23));
        fixture.release(fixture.pixel(23, 23));
        QCOMPARE(curve.spline.at(1)->time, 23.0);
        QCOMPARE(fixture.undoAll(), (QStringList{changeLabel, moveLabel, selectLabel}));
    }
};

QTEST_MAIN(TestDragIntrusions)
#include "test_drag_intrusions.moc"
