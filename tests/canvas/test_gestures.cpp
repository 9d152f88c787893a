#include "support/EditorFixture.h"
#include "support/FailOnWarning.h"

#include <cmath>

using Mode = CurveEditor::curveEditorModes;

/// Rectangles, zooms and clicks on the canvas.
class TestGestures : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void aRectangleSelectsTheKeysStrictlyInside()
    {
        EditorFixture fixture;
        LentCurve& curve =
            fixture.editCurve("n.a", {{10, 10}, {20, 20}, {25, 15}, {30, 10}, {40, 35}});
        fixture.paint();
        // The key at 20 lies exactly on the edge.
        fixture.drag(fixture.pixel(20, 5), fixture.pixel(35, 30));
        QCOMPARE(fixture.selectionOf("n.a").selectedPoints,
                 (QList<PointInfo*>{curve.spline.at(2), curve.spline.at(3)}));
        QCOMPARE(fixture.selectionOf("n.a").currentPoint, curve.spline.at(3));
        QCOMPARE(fixture.undoAll(), QStringList("Select Control Points"));
        QVERIFY(fixture.selectionOf("n.a").selectedPoints.isEmpty());
    }

    void aRectangleOverNothingClearsTheSelection()
    {
        EditorFixture fixture;
        fixture.editCurve("n.a", {{10, 10}, {20, 20}});
        fixture.selectKeys("n.a", {0, 1});
        fixture.paint();
        fixture.drag(fixture.pixel(30, 5), fixture.pixel(45, 30));
        QVERIFY(fixture.selectionOf("n.a").selectedPoints.isEmpty());
        QVERIFY(!fixture.selectionOf("n.a").currentPoint);
    }

    void shiftPressedInMidRectangleKeepsWhatWasSelected()
    {
        EditorFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{10, 10}, {20, 20}, {30, 10}});
        fixture.selectKeys("n.a", {0});
        fixture.paint();
        fixture.press(fixture.pixel(25, 5));
        fixture.moveTo(fixture.pixel(28, 8), Qt::LeftButton, Qt::ShiftModifier);
        QCOMPARE(fixture.editor.getCurrentMode(), Mode::ADDING2SEL);
        fixture.moveTo(fixture.pixel(35, 15), Qt::LeftButton, Qt::ShiftModifier);
        fixture.release(fixture.pixel(35, 15), Qt::LeftButton, Qt::ShiftModifier);
        QCOMPARE(fixture.selectionOf("n.a").selectedPoints,
                 (QList<PointInfo*>{curve.spline.at(0), curve.spline.at(2)}));
        QCOMPARE(fixture.editor.getCurrentMode(), Mode::ADD2SEL);
    }

    void shiftLetGoInMidRectangleSelectsAnew()
    {
        EditorFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{10, 10}, {20, 20}, {30, 10}});
        fixture.selectKeys("n.a", {0});
        fixture.paint();
        fixture.press(fixture.pixel(25, 5), Qt::LeftButton, Qt::ShiftModifier);
        fixture.moveTo(fixture.pixel(35, 15));
        QCOMPARE(fixture.editor.getCurrentMode(), Mode::SELECTING);
        fixture.release(fixture.pixel(35, 15));
        QCOMPARE(fixture.selectionOf("n.a").selectedPoints,
                 (QList<PointInfo*>{curve.spline.at(2)}));
        QCOMPARE(fixture.editor.getCurrentMode(), Mode::DEFAULT);
    }

    void altDragZoomsToTheRectangle()
    {
        EditorFixture fixture;
        fixture.editCurve("n.a", {{10, 10}, {20, 20}});
        fixture.paint();
        fixture.press(fixture.pixel(10, 10), Qt::LeftButton, Qt::AltModifier);
        QCOMPARE(fixture.editor.getCurrentMode(), Mode::ZOOMING);
        QVERIFY(fixture.canvas().viewDrag);
        fixture.moveTo(fixture.pixel(30, 30), Qt::LeftButton, Qt::AltModifier);
        QCOMPARE(fixture.editor.getCurrentMode(), Mode::ZOOM);
        fixture.release(fixture.pixel(30, 30), Qt::LeftButton, Qt::AltModifier);
        QCOMPARE(fixture.canvas().minX, 10.0);
        QCOMPARE(fixture.canvas().maxX, 30.0);
        QCOMPARE(fixture.canvas().minY, 10.0);
        QCOMPARE(fixture.canvas().maxY, 30.0);
        QVERIFY(fixture.selectionOf("n.a").selectedPoints.isEmpty());
        fixture.moveTo(fixture.pixel(30, 30), Qt::NoButton);
        QCOMPARE(fixture.editor.getCurrentMode(), Mode::DEFAULT);
    }

    void aZoomClickWithoutAMoveEndsByTheAltKey()
    {
        EditorFixture fixture;
        fixture.editCurve("n.a", {{10, 10}, {20, 20}});
        fixture.editor.setZoomMode();
        // In the zoom tool without Alt: the release falls back to the tool.
        fixture.click(fixture.pixel(30, 30));
        QCOMPARE(fixture.editor.getCurrentMode(), Mode::ZOOM);
        QCOMPARE(fixture.canvas().maxX, 50.0); // a rectangle of no size is refused
    }

    void aSmallZoomRectangleIsRefused()
    {
        EditorFixture fixture;
        fixture.editCurve("n.a", {{10, 10}, {20, 20}});
        fixture.editor.setZoomMode();
        fixture.drag(fixture.pixel(10, 10), fixture.pixel(12, 30)); // 4 percent of the width
        QCOMPARE(fixture.canvas().minX, 0.0);
        QCOMPARE(fixture.canvas().maxX, 50.0);
        QCOMPARE(fixture.canvas().maxY, 40.0);
    }

    void theMiddleButtonPansInTheZoomTool()
    {
        EditorFixture fixture;
        fixture.editCurve("n.a", {{10, 10}, {20, 20}});
        fixture.editor.setZoomMode();
        fixture.press(QPoint(100, 100), Qt::MiddleButton);
        QVERIFY(fixture.canvas().panDrag);
        fixture.moveTo(QPoint(150, 80), Qt::MiddleButton);
        fixture.release(QPoint(150, 80), Qt::MiddleButton);
        QCOMPARE(fixture.canvas().minX, -5.0); // the curves follow the mouse
        QCOMPARE(fixture.canvas().maxX, 45.0);
        QCOMPARE(fixture.canvas().minY, -2.0);
        QVERIFY(!fixture.canvas().panDrag);
    }

    void theRightButtonZoomsOnAndOnInTheZoomTool()
    {
        EditorFixture fixture;
        fixture.editCurve("n.a", {{10, 10}, {20, 20}});
        fixture.editor.setZoomMode();
        fixture.press(QPoint(250, 200), Qt::RightButton);
        QVERIFY(fixture.canvas().zoomDrag);
        fixture.moveTo(QPoint(350, 200), Qt::RightButton);
        fixture.release(QPoint(350, 200), Qt::RightButton);
        QVERIFY(fixture.canvas().maxX - fixture.canvas().minX > 50.0); // right widens
        QVERIFY(fixture.undoSteps().isEmpty());
    }

    void theWheelZoomsAroundTheCursor()
    {
        EditorFixture fixture;
        fixture.wheel(QPoint(0, 400), 120);
        QVERIFY(std::fabs(fixture.canvas().minX) < 1e-9);
        QVERIFY(std::fabs(fixture.canvas().minY) < 1e-9);
        QCOMPARE(fixture.canvas().maxX, 50.0 * std::pow(5.0, -20.0 / 500.0));
        QCOMPARE(fixture.canvas().maxY, 40.0 * std::pow(5.0, -20.0 / 400.0));
    }

    void aDoubleClickAddsAKey()
    {
        EditorFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{10, 10}, {20, 20}});
        fixture.paint();
        fixture.doubleClick(fixture.pixel(35, 30));
        QCOMPARE(curve.spline.getControlPointsNumber(), 3u);
        QCOMPARE(curve.spline.at(2)->time, 35.0);
        QCOMPARE(curve.spline.at(2)->value, 30.0);
        QCOMPARE(fixture.undoSteps().first(), QString("Add New Control Point"));
    }

    void aDoubleClickInAnotherToolAddsNothing()
    {
        EditorFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{10, 10}, {20, 20}});
        fixture.editor.setDeleteKeyMode();
        fixture.paint();
        fixture.doubleClick(fixture.pixel(35, 30));
        QCOMPARE(curve.spline.getControlPointsNumber(), 2u);
    }

    void aDoubleClickAddsNothingToSeveralCurvesOrAnExpression()
    {
        EditorFixture fixture;
        LentCurve& a = fixture.addCurve("n.a", {{10, 10}});
        LentCurve& b = fixture.addCurve("n.b", {{10, 20}});
        LentCurve& e = fixture.addCurve("n.e", {}, "t");
        fixture.editor.selectNodes({"n.a", "n.b"});
        fixture.doubleClick(fixture.pixel(35, 30));
        fixture.editor.selectNodes(QStringList("n.e"));
        fixture.doubleClick(fixture.pixel(35, 30));
        QCOMPARE(a.spline.getControlPointsNumber(), 1u);
        QCOMPARE(b.spline.getControlPointsNumber(), 1u);
        QCOMPARE(e.spline.getControlPointsNumber(), 0u);
    }

    /// The list search stops at "n.width". Drags are steps all the same.
    void aCurveHiddenBehindAPrefixGetsNoKeysByClicksButIsDragged()
    {
        EditorFixture fixture;
        fixture.addCurve("n.width", {{10, 10}});
        LentCurve hidden;
        hidden.addKey(10, 10);
        hidden.addKey(20, 20);
        fixture.editor.addCurve("n", "width2", Qt::red, 0, &hidden.spline, nullptr, -100, 100,
                                false, true);
        fixture.logic().addCanvasCurve("n.width2", Qt::red, 0, &hidden.spline, nullptr, -100, 100,
                                       true);
        fixture.logic().selectCurves({"n.width2"});
        QCOMPARE(fixture.logic().editingCurveNames(), QStringList("n.width2"));
        fixture.paint();
        fixture.doubleClick(fixture.pixel(35, 30));
        fixture.click(fixture.pixel(35, 30), Qt::LeftButton, Qt::ControlModifier);
        QCOMPARE(hidden.spline.getControlPointsNumber(), 2u);
        fixture.moveTo(fixture.pixel(35, 30), Qt::NoButton);
        fixture.drag(fixture.pixel(10, 10), fixture.pixel(12, 13));
        QCOMPARE(hidden.spline.at(0)->time, 12.0);
        fixture.undoAll();
        QCOMPARE(hidden.spline.at(0)->time, 10.0);
        fixture.editor.removeCurve("n", "width2");
    }

    void aSecondButtonDuringARectangleIsIgnored()
    {
        EditorFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{10, 10}, {20, 20}, {40, 10}});
        fixture.paint();
        fixture.press(fixture.pixel(5, 5));
        fixture.moveTo(fixture.pixel(25, 25));
        QVERIFY(!fixture.closesMenuOf([&fixture] {
            fixture.send(QEvent::MouseButtonPress, fixture.pixel(25, 25), Qt::RightButton,
                         Qt::LeftButton | Qt::RightButton);
        }));
        fixture.send(QEvent::MouseButtonRelease, fixture.pixel(25, 25), Qt::RightButton,
                     Qt::LeftButton);
        QCOMPARE(fixture.editor.getCurrentMode(), Mode::SELECTING);
        fixture.release(fixture.pixel(25, 25));
        QCOMPARE(fixture.selectionOf("n.a").selectedPoints,
                 (QList<PointInfo*>{curve.spline.at(0), curve.spline.at(1)}));
    }

    void aClickOnNothingClearsTheSelection()
    {
        EditorFixture fixture;
        fixture.editCurve("n.a", {{10, 10}, {20, 20}});
        fixture.paint();
        fixture.drag(fixture.pixel(5, 5), fixture.pixel(25, 25));
        QCOMPARE(fixture.selectionOf("n.a").selectedPoints.size(), qsizetype(2));
        fixture.click(fixture.pixel(40, 35)); // the rectangle of before is not used again
        QVERIFY(fixture.selectionOf("n.a").selectedPoints.isEmpty());
        QCOMPARE(fixture.editor.getCurrentMode(), Mode::DEFAULT);
    }

    void keysAreCommittedBeforeTheModeChanges()
    {
        EditorFixture fixture;
        fixture.editCurve("n.a", {{10, 10}, {20, 20}});
        fixture.paint();
        fixture.press(fixture.pixel(10, 10));
        fixture.moveTo(fixture.pixel(12, 12));
        QStringList steps;
        connect(fixture.editor.getCmdManager(),
                &curve_editor::CurveCommandsManager::curveEditorCmdExec, this, [&] {
                    curve_editor::CurveCommand* step = fixture.editor.getCmdManager()->nextUndo();
                    QCOMPARE(fixture.editor.getCurrentMode(), Mode::MOVING);
                    steps.append(QString::fromStdString(step->getDescription()));
                });
        fixture.release(fixture.pixel(12, 12));
        QCOMPARE(steps, (QStringList{"Move Control Points", "Change Control Points Values"}));
        QCOMPARE(fixture.editor.getCurrentMode(), Mode::DEFAULT);
    }

    void aReleaseInZoomingLooksAtTheAltKeyItself()
    {
        EditorFixture fixture;
        fixture.editor.setZoomModifier("ctrl");
        const auto modeAfter = [&](Qt::KeyboardModifiers modifiers) {
            fixture.editor.setCurrentMode(Mode::ZOOMING);
            QMouseEvent event(QEvent::MouseButtonRelease, QPointF(9, 9), QPointF(9, 9),
                              Qt::RightButton, Qt::NoButton, modifiers);
            fixture.logic().release(&event);
            return fixture.editor.getCurrentMode();
        };
        QCOMPARE(modeAfter(Qt::AltModifier), Mode::ZOOM);
        QCOMPARE(modeAfter(Qt::ControlModifier), Mode::DEFAULT);
    }

    void theCursorIsReportedWithTheFirstCurvesValue()
    {
        EditorFixture fixture;
        fixture.editCurve("n.a", {{0, 10}, {50, 10}});
        QList<double> said;
        connect(&fixture.canvas(), &FunctionEditor::setFuncPosInfo, this,
                [&said](double time, double value, double curve) {
                    said = {time, value, curve};
                });
        fixture.moveTo(fixture.pixel(25, 30), Qt::NoButton);
        QCOMPARE(said, (QList<double>{25.0, 30.0, 10.0}));
        fixture.editor.selectNodes(QStringList());
        fixture.moveTo(fixture.pixel(26, 31), Qt::NoButton);
        QCOMPARE(said, (QList<double>{26.0, 31.0, 0.0}));
    }

    void aKeyIsMadeAtTheCursorForTheOnlyCurve()
    {
        EditorFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{10, 10}});
        fixture.addCurve("n.b", {{10, 20}});
        fixture.click(fixture.pixel(30, 20));
        fixture.logic().createNodeAtCursor(fixture.logic().findCurve("n.b"));
        QCOMPARE(curve.spline.getControlPointsNumber(), 1u);
        fixture.logic().createNodeAtCursor(fixture.logic().findCurve("n.a"));
        QCOMPARE(curve.spline.getControlPointsNumber(), 2u);
        QCOMPARE(curve.spline.at(1)->time, 30.0);
    }
};

QTEST_MAIN(TestGestures)
#include "test_gestures.moc"
