#include "commands/CurveCommandsManager.h"
#include "editor/EditorParts.h"
#include "support/EditorFixture.h"
#include "support/FailOnWarning.h"
#include "support/SplineState.h"

#include <limits>

namespace {

constexpr double endless = std::numeric_limits<double>::infinity();
constexpr double most = std::numeric_limits<double>::max();
constexpr double noNumber = std::numeric_limits<double>::quiet_NaN();

} // namespace

/// Ranges and rates that nobody checks: nothing hangs or crashes, no key is lost, and undo brings
/// back what gestures in such a view have done.
class TestExtremeViews : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void everythingIsTriedAndUndone_data();
    void everythingIsTriedAndUndone();
};

void TestExtremeViews::everythingIsTriedAndUndone_data()
{
    QTest::addColumn<QList<double>>("view");
    QTest::addColumn<double>("rate");
    const auto row = [](const char* name, const QList<double>& view, const double& rate) {
        QTest::newRow(name) << view << rate;
    };
    row("a usual one", {0.0, 50.0, 0.0, 40.0}, 25.0);
    row("no frames per second", {0.0, 50.0, 0.0, 40.0}, 0.0);
    row("negative frames per second", {0.0, 50.0, 0.0, 40.0}, -25.0);
    row("endless frames per second", {0.0, 50.0, 0.0, 40.0}, endless);
    row("frames per second that are no number", {0.0, 50.0, 0.0, 40.0}, noNumber);
    row("inverted in time", {50.0, 0.0, 0.0, 40.0}, 25.0);
    row("inverted in value", {0.0, 50.0, 40.0, 0.0}, 25.0);
    row("inverted in both", {50.0, 0.0, 40.0, 0.0}, 25.0);
    row("empty in time", {20.0, 20.0, 0.0, 40.0}, 25.0);
    row("empty in value", {0.0, 50.0, 20.0, 20.0}, 25.0);
    row("empty in both", {0.0, 0.0, 0.0, 0.0}, 25.0);
    row("tiny", {20.0, 20.0 + 1e-13, 20.0, 20.0 + 1e-13}, 25.0);
    row("huge", {-1e300, 1e300, -1e300, 1e300}, 25.0);
    row("wider than a double holds", {-most, most, -most, most}, 25.0);
    row("far away", {1e300, 1e301, -1e301, -1e300}, 25.0);
    row("endless", {-endless, endless, -endless, endless}, 25.0);
    row("no number", {noNumber, noNumber, noNumber, noNumber}, 25.0);
}

void TestExtremeViews::everythingIsTriedAndUndone()
{
    QFETCH(QList<double>, view);
    QFETCH(double, rate);
    EditorFixture fixture;
    CurveEditor& editor = fixture.editor;
    LentCurve& curve = fixture.editCurve(
        "n.c", {{10.0, 10.0, zk_spline::tcb}, {20.0, 20.0, zk_spline::bezier}, {30.0, 10.0}});
    editor.setUndoLevels(1000);
    const SplineState before(curve.spline);
    editor.setFps(rate);

    const auto look = [&] {
        editor.setTimeRange(view.at(0), view.at(1));
        editor.setMinValue(view.at(2));
        editor.setMaxValue(view.at(3));
        fixture.paint();
    };
    look();
    fixture.selectKeys("n.c", {0, 1});
    editor.selectAllKeys();
    for (const QPoint& from : {QPoint(1, 1), QPoint(250, 200), QPoint(200, 200)}) {
        look();
        fixture.drag(from, QPoint(350, 120));
        fixture.click(from);
        fixture.drag(from, QPoint(120, 350), Qt::ShiftModifier);
        fixture.click(from, Qt::LeftButton, Qt::ControlModifier);
        fixture.drag(from, QPoint(20, 30), Qt::AltModifier);
        fixture.paint();
    }
    for (void (CurveEditor::*const slot)() :
         {&CurveEditor::centerTimeline, &CurveEditor::switchFramesTime, &CurveEditor::switchSnap,
          &CurveEditor::completeViewport, &CurveEditor::completeViewportSel,
          &CurveEditor::flatTangents, &CurveEditor::setSelectedTcb,
          &CurveEditor::setLastNodeLoopOffset, &CurveEditor::resetViewport}) {
        look();
        (editor.*slot)();
        fixture.drag(QPoint(250, 200), QPoint(260, 190));
        editor.setFuncPosInfo(view.at(0), view.at(2), view.at(3));
        fixture.paint();
    }
    QVERIFY(curve.spline.getControlPointsNumber() >= 3u);
    fixture.undoAll();
    QVERIFY(before == SplineState(curve.spline));
    while (editor.getCmdManager()->redo()) {
    }
    fixture.paint();
    fixture.undoAll();
    QVERIFY(before == SplineState(curve.spline));
}

QTEST_MAIN(TestExtremeViews)
#include "test_extreme_views.moc"
