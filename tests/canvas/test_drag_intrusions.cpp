#include "support/EditorFixture.h"
#include "support/FailOnWarning.h"
#include "support/SplineState.h"

#include <functional>

using Mode = CurveEditor::curveEditorModes;

namespace {

using Intrusion = std::function<void(EditorFixture&)>;

SplineBase* splineOf(EditorFixture& fixture)
{
    const auto found = fixture.curves.find("n.a");
    return found == fixture.curves.end() ? nullptr : &found->second->spline;
}

void freeAKey(EditorFixture& fixture)
{
    SplineBase* const spline = splineOf(fixture);
    if (spline && spline->getControlPointsNumber() > 1) {
        const std::unique_ptr<PointInfo> taken(spline->at(1));
        spline->remove(taken.get());
    }
}

void freeAllKeys(EditorFixture& fixture)
{
    if (SplineBase* const spline = splineOf(fixture)) {
        spline->removeAllControlPoints();
    }
}

void addAKey(EditorFixture& fixture)
{
    fixture.logic().addKey(fixture.logic().findCurve("n.a"), 21.0, 21.0);
}

void undoAndAdd(EditorFixture& fixture)
{
    fixture.editor.getCmdManager()->undo();
    addAKey(fixture);
}

struct IntrusionRow
{
    const char* name;
    Intrusion intrude;
};

const std::vector<IntrusionRow>& intrusions()
{
    static const std::vector<IntrusionRow> rows{
        {"the host frees a key", freeAKey},
        {"the host frees all keys", freeAllKeys},
        {"the host destroys the spline", [](EditorFixture& f) { f.curves.erase("n.a"); }},
        {"the curve is removed", [](EditorFixture& f) { f.editor.removeCurve("n", "a"); }},
        {"the curve leaves the canvas",
         [](EditorFixture& f) { f.editor.removeCurveFromEditing("n.a"); }},
        {"another curve is chosen",
         [](EditorFixture& f) { f.editor.selectNodes(QStringList("n.b")); }},
        {"both curves are chosen",
         [](EditorFixture& f) {
             f.editor.selectNodes({"n.a", "n.b"});
         }},
        {"undo", [](EditorFixture& f) { f.editor.getCmdManager()->undo(); }},
        {"undo and a new key", undoAndAdd},
        {"a new key", addAKey},
        {"all keys are selected", [](EditorFixture& f) { f.editor.selectAllKeys(); }},
        {"no key is selected", [](EditorFixture& f) { f.editor.selectNoneKeys(); }},
        {"the selection is deleted", [](EditorFixture& f) { f.editor.deleteSelectedKeys(); }},
        {"the history is cleared", [](EditorFixture& f) { f.editor.clearStack(); }},
        {"no history is kept", [](EditorFixture& f) { f.editor.setUndoLevels(0); }},
        {"the keys are flattened", [](EditorFixture& f) { f.editor.flatTangents(); }},
        {"another tool", [](EditorFixture& f) { f.editor.setDeleteKeyMode(); }},
        {"the editor is closed", [](EditorFixture& f) { f.editor.close(); }},
        {"delete key", [](EditorFixture& f) { f.typeKey(Qt::Key_Delete); }},
        {"ctrl z", [](EditorFixture& f) { f.typeKey(Qt::Key_Z, Qt::ControlModifier); }},
        {"ctrl y", [](EditorFixture& f) { f.typeKey(Qt::Key_Y, Qt::ControlModifier); }},
        {"an arrow", [](EditorFixture& f) { f.typeKey(Qt::Key_Right); }},
        {"a second button",
         [](EditorFixture& f) {
             // Where the gesture is over already, the menu opens.
             f.closesMenuOf([&f] {
                 f.send(QEvent::MouseButtonPress, QPoint(60, 60), Qt::RightButton,
                        Qt::LeftButton | Qt::RightButton);
             });
         }},
        {"a second left press", [](EditorFixture& f) { f.press(f.pixel(30, 10)); }},
        {"a release", [](EditorFixture& f) { f.release(f.pixel(30, 10)); }},
    };
    return rows;
}

} // namespace

/// What user and host do in the middle of a drag, between two steps of it or inside the host's
/// slot. Whatever it is, no key is lost or freed twice, and the history leads back to the start.
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
        } cases[] = {
            {"between the steps", true}, {"in the slot", false}, {"in the last slot", true}};
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
        EditorFixture fixture;
        LentCurve& other = fixture.addCurve("n.b", {{12, 30}, {22, 35}});
        const SplineState otherBefore(other.spline);
        fixture.editCurve("n.a", {{10, 10}, {20, 20}, {30, 10}, {40, 5}});
        if (several) {
            fixture.selectKeys("n.a", {0, 1, 2});
        }
        fixture.paint();
        const auto intrude = [&] {
            intrusions()[static_cast<std::size_t>(intrusion)].intrude(fixture);
        };
        bool isDue = false;
        connect(&fixture.editor, &CurveEditor::curveHasChanged, this, [&](QString&, QString&) {
            if (std::exchange(isDue, false)) {
                intrude();
            }
        });

        fixture.press(fixture.pixel(20, 20));
        fixture.moveTo(fixture.pixel(21, 22));
        isDue = moment == "in the slot";
        fixture.moveTo(fixture.pixel(33, 24));
        if (moment == "between the steps") {
            intrude();
        }
        fixture.moveTo(fixture.pixel(35, 25));
        fixture.paint();
        isDue = moment == "in the last slot";
        fixture.release(fixture.pixel(35, 25));
        isDue = false;

        QVERIFY(fixture.editor.getCurrentMode() != Mode::MOVING);
        while (fixture.editor.getCmdManager()->undo()) {
        }
        while (fixture.editor.getCmdManager()->redo()) {
        }
        fixture.undoAll();
        QVERIFY(SplineState(other.spline) == otherBefore);
        if (SplineBase* const spline = splineOf(fixture)) {
            for (unsigned i = 1; i < spline->getControlPointsNumber(); ++i) {
                QVERIFY(spline->at(i - 1)->time <= spline->at(i)->time);
            }
        }
        // The next gesture starts anew.
        fixture.click(fixture.pixel(45, 38));
        fixture.paint();
    }

    void undoInMidDragLeavesTheSelectionOfBefore()
    {
        EditorFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{10, 10}, {20, 20}});
        fixture.selectKeys("n.a", {0});
        fixture.paint();
        fixture.press(fixture.pixel(20, 20)); // selects the second key: a step
        fixture.moveTo(fixture.pixel(22, 22));
        fixture.typeKey(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(fixture.selectionOf("n.a").currentPoint, curve.spline.at(0));
        fixture.release(fixture.pixel(22, 22));
        QCOMPARE(fixture.undoAll().size(), 2); // the way so far is a step of the dragged key
        QCOMPARE(curve.spline.at(1)->time, 20.0);
        QCOMPARE(curve.spline.at(0)->time, 10.0);
    }

    void aCurveRemovedInMidDragEndsItInTheChosenTool()
    {
        EditorFixture fixture;
        fixture.editCurve("n.a", {{10, 10}, {20, 20}});
        fixture.editor.setMoveMode();
        fixture.paint();
        fixture.press(fixture.pixel(10, 10));
        fixture.editor.removeCurve("n", "a");
        fixture.moveTo(fixture.pixel(12, 12));
        fixture.release(fixture.pixel(12, 12));
        QCOMPARE(fixture.editor.getCurrentMode(), Mode::MOVE);
        QVERIFY(fixture.undoSteps().isEmpty());
    }
};

QTEST_MAIN(TestDragIntrusions)
#include "test_drag_intrusions.moc"
