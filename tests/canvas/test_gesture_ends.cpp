#include "canvas/DragIntrusions.h"
#include "canvas/DraggedCurve.h"
#include "canvas/StepLabels.h"
#include "support/FailOnWarning.h"

#include <cmath>

using Mode = CurveEditor::curveEditorModes;

/// Which presses, releases and events begin, carry on and end a gesture.
class TestGestureEnds : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        failOnUnexpectedWarning();
        fixture = std::make_unique<EditorFixture>();
        curve = &fixture->editCurve("n.a", {{10, 10}, {20, 20}, {40, 10}});
        fixture->paint();
    }

    void cleanup() { fixture.reset(); }

    void theReleaseOfADragIsLost_data() { lostReleases(); }

    void theReleaseOfADragIsLost()
    {
        QFETCH(QString, event);
        const DraggedCurve first(curve->spline);
        fixture->press(at(20, 20));
        fixture->moveTo(at(22, 22));
        lose(event);
        QCOMPARE(fixture->editor.getCurrentMode(), Mode::DEFAULT);
        fixture->moveTo(at(24, 24)); // nobody drags any more
        QCOMPARE(curve->spline.at(1)->time, 22.0);
        theNextGesturesAreSound();
        fixture->undoAll();
        QVERIFY(DraggedCurve(curve->spline) == first);
    }

    void theReleaseOfARubberBandIsLost_data() { lostReleases(); }

    void theReleaseOfARubberBandIsLost()
    {
        QFETCH(QString, event);
        fixture->press(at(5, 5));
        fixture->moveTo(at(25, 25));
        QVERIFY(fixture->canvas().rectActive);
        lose(event);
        QVERIFY(!fixture->canvas().rectActive);
        QVERIFY(!fixture->canvas().rectValid);
        QVERIFY(!fixture->canvas().rubberDrag);
        QCOMPARE(fixture->editor.getCurrentMode(), Mode::DEFAULT);
        theNextGesturesAreSound();
    }

    void theSameButtonPressedAgainBeginsAnew()
    {
        fixture->press(at(20, 20));
        fixture->moveTo(at(22, 22));
        fixture->press(at(40, 10));
        QCOMPARE(fixture->editor.getCurrentMode(), Mode::MOVING);
        fixture->moveTo(at(41, 11));
        fixture->release(at(41, 11));
        QCOMPARE(curve->spline.at(1)->time, 22.0);
        QCOMPARE(curve->spline.at(2)->time, 41.0);
        QCOMPARE(fixture->undoAll(), (QStringList{changeLabel, moveLabel, selectLabel, changeLabel,
                                                  moveLabel, selectLabel}));
        QCOMPARE(curve->spline.at(1)->time, 20.0);
    }

    /// The right press tells of it: the button of the drag is not held any more.
    void aReleaseThatWasLostUnderAnotherButtonIsNoticed()
    {
        fixture->press(at(20, 20));
        fixture->moveTo(at(22, 22));
        fixture->closesMenuOf([this] {
            fixture->send(QEvent::MouseButtonPress, at(5, 5), Qt::RightButton, Qt::RightButton);
        });
        QCOMPARE(fixture->editor.getCurrentMode(), Mode::DEFAULT);
        fixture->moveTo(at(30, 30), Qt::RightButton);
        QCOMPARE(curve->spline.at(1)->time, 22.0);
        fixture->release(at(30, 30), Qt::RightButton);
        fixture->undoAll();
        QCOMPARE(curve->spline.at(1)->time, 20.0);
    }

    /// The next press comes while the host is told of the rectangle's step.
    void aDragBegunWhileAnotherGestureEndsIsAStepOfItsOwn()
    {
        const DraggedCurve first(curve->spline);
        bool isDue = true;
        connect(fixture->editor.getCmdManager(),
                &curve_editor::CurveCommandsManager::curveEditorCmdExec, this, [&] {
                    if (std::exchange(isDue, false)) {
                        fixture->press(at(40, 10));
                    }
                });
        fixture->press(at(5, 5));
        fixture->moveTo(at(25, 25));
        fixture->release(at(25, 25));
        QVERIFY(!isDue);
        fixture->moveTo(at(42, 15));
        fixture->release(at(42, 15));
        QCOMPARE(curve->spline.at(2)->time, 42.0);
        fixture->undoAll();
        QVERIFY(DraggedCurve(curve->spline) == first);
    }

    void aStepOfADragInsideTheSlotOfAnotherMovesTheKeysOnce()
    {
        fixture->selectKeys("n.a", {0, 1});
        bool isDue = true;
        connect(&fixture->editor, &CurveEditor::curveHasChanged, this, [&](QString&, QString&) {
            if (std::exchange(isDue, false)) {
                fixture->moveTo(at(23, 23));
            }
        });
        fixture->press(at(20, 20));
        isDue = true;
        fixture->moveTo(at(22, 22));
        QVERIFY(!isDue);
        fixture->moveTo(at(24, 24));
        fixture->release(at(24, 24));
        QCOMPARE(curve->spline.at(1)->time, 24.0);
    }

    void aMiddleClickWithTheSelectToolSelectsNothing()
    {
        fixture->editor.setSelectMode();
        fixture->editor.completeViewport();
        fixture->paint();
        fixture->press(QPoint(3, 3), Qt::MiddleButton);
        fixture->release(QPoint(3, 3), Qt::MiddleButton);
        QVERIFY(fixture->selectionOf("n.a").selectedPoints.isEmpty());
    }

    void theHostOpensABoxInTheSlotOfADrag()
    {
        connect(&fixture->editor, &CurveEditor::curveHasChanged, this, [this](QString&, QString&) {
            if (!std::exchange(wasAsked, true)) {
                askInABox(*fixture);
            }
        });
        wasAsked = false;
        fixture->press(at(20, 20));
        fixture->moveTo(at(22, 22));
        QVERIFY(wasAsked);
        QCOMPARE(fixture->editor.getCurrentMode(), Mode::DEFAULT);
        theNextGesturesAreSound();
        fixture->undoAll();
        QCOMPARE(curve->spline.at(1)->time, 20.0);
    }

    void aBandOverAnExpressionIsNotLeftPainted()
    {
        fixture->editCurve("n.e", {}, "t");
        fixture->press(at(5, 5));
        fixture->moveTo(at(25, 25));
        QVERIFY(fixture->canvas().rectActive);
        fixture->editor.selectNodes(QStringList("n.a"));
        QVERIFY(!fixture->canvas().rectActive);
        fixture->release(at(25, 25));
        QVERIFY(fixture->selectionOf("n.a").selectedPoints.isEmpty());
    }

    void aLeftPressDuringAMiddleDragDoesNothing()
    {
        const DraggedCurve first(curve->spline);
        fixture->press(at(20, 20), Qt::MiddleButton);
        fixture->moveTo(at(22, 22), Qt::MiddleButton);
        fixture->send(QEvent::MouseButtonPress, at(40, 10), Qt::LeftButton,
                      Qt::LeftButton | Qt::MiddleButton);
        fixture->send(QEvent::MouseButtonRelease, at(40, 10), Qt::LeftButton, Qt::MiddleButton);
        QCOMPARE(fixture->editor.getCurrentMode(), Mode::MOVING);
        fixture->moveTo(at(23, 23), Qt::MiddleButton);
        fixture->release(at(23, 23), Qt::MiddleButton);
        QCOMPARE(curve->spline.at(1)->time, 23.0);
        QCOMPARE(fixture->undoAll(), (QStringList{changeLabel, moveLabel, selectLabel}));
        QVERIFY(DraggedCurve(curve->spline) == first);
    }

    /// The keys keep the place that the grid gave them, whatever the second press says.
    void aSecondPressDoesNotShiftWhatIsDragged()
    {
        fixture->selectKeys("n.a", {0, 1});
        fixture->press(at(20, 20));
        fixture->moveTo(at(22, 22));
        fixture->send(QEvent::MouseButtonPress, at(30, 30), Qt::RightButton,
                      Qt::LeftButton | Qt::RightButton);
        fixture->moveTo(at(23, 23));
        fixture->release(at(23, 23));
        QCOMPARE(curve->spline.at(1)->time, 23.0);
        QCOMPARE(curve->spline.at(0)->value, 13.0);
    }

    void aSecondButtonDoesNotFreezeARubberBand_data() { secondButtons(); }

    void aSecondButtonDoesNotFreezeARubberBand()
    {
        fixture->press(at(5, 5));
        fixture->moveTo(at(15, 15));
        clickSecond(at(15, 15));
        QCOMPARE(fixture->editor.getCurrentMode(), Mode::SELECTING);
        fixture->moveTo(at(45, 25));
        fixture->release(at(45, 25));
        QCOMPARE(fixture->selectionOf("n.a").selectedPoints.size(), qsizetype(3));
        QCOMPARE(fixture->undoSteps(), QStringList(selectLabel));
    }

    void aSecondButtonLeavesTheRectangleOfTheZoomTool_data() { secondButtons(); }

    void aSecondButtonLeavesTheRectangleOfTheZoomTool()
    {
        fixture->editor.setZoomMode();
        fixture->press(at(10, 10));
        fixture->moveTo(at(20, 20));
        clickSecond(at(20, 20));
        fixture->moveTo(at(30, 30));
        QVERIFY(!fixture->canvas().zoomDrag);
        QCOMPARE(fixture->canvas().maxX, 50.0);
        fixture->release(at(30, 30));
        QCOMPARE(fixture->canvas().minX, 10.0);
        QCOMPARE(fixture->canvas().maxX, 30.0);
        QCOMPARE(fixture->canvas().maxY, 30.0);
    }

    void anEditOfTheSelectionLeavesADragOfTheView_data()
    {
        QTest::addColumn<int>("button");
        QTest::addColumn<double>("minX"); // after the release
        QTest::newRow("a rectangle") << int(Qt::LeftButton) << 10.0;
        QTest::newRow("a pan") << int(Qt::MiddleButton) << -20.0;
        QTest::newRow("a zoom") << int(Qt::RightButton) << 10.0 - 10.0 * std::pow(5.0, 0.4);
    }

    /// Of 50 seconds across the mouse goes 20.
    void anEditOfTheSelectionLeavesADragOfTheView()
    {
        QFETCH(int, button);
        QFETCH(double, minX);
        const auto held = static_cast<Qt::MouseButton>(button);
        fixture->selectKeys("n.a", {0, 1});
        fixture->editor.setZoomMode();
        fixture->press(at(10, 10), held);
        fixture->moveTo(at(20, 10), held);
        fixture->editor.selectNoneKeys();
        QVERIFY(fixture->selectionOf("n.a").selectedPoints.isEmpty());
        QVERIFY(fixture->canvas().viewDrag);
        fixture->moveTo(EditorFixture::pixel(30, 30), held);
        fixture->release(EditorFixture::pixel(30, 30), held);
        QVERIFY(!fixture->canvas().viewDrag);
        QCOMPARE(fixture->canvas().minX, minX);
    }

    void aMiddleButtonLetGoEndsARubberBand()
    {
        fixture->press(at(5, 5));
        fixture->moveTo(at(25, 25));
        fixture->send(QEvent::MouseButtonPress, at(25, 25), Qt::MiddleButton,
                      Qt::LeftButton | Qt::MiddleButton);
        QCOMPARE(fixture->editor.getCurrentMode(), Mode::SELECTING);
        fixture->send(QEvent::MouseButtonRelease, at(25, 25), Qt::MiddleButton, Qt::LeftButton);
        QCOMPARE(fixture->editor.getCurrentMode(), Mode::DEFAULT);
        QCOMPARE(fixture->selectionOf("n.a").selectedPoints.size(), qsizetype(2));
        fixture->moveTo(at(45, 25));
        fixture->release(at(45, 25));
        QCOMPARE(fixture->selectionOf("n.a").selectedPoints.size(), qsizetype(2));
    }

    void extraButtonsBeginNothing_data()
    {
        QTest::addColumn<int>("mode");
        for (const int mode : {Mode::DEFAULT, Mode::SELECT, Mode::MOVE, Mode::ADD, Mode::DEL,
                               Mode::ADD2SEL, Mode::ZOOM}) {
            QTest::addRow("mode %d", mode) << mode;
        }
    }

    void extraButtonsBeginNothing()
    {
        QFETCH(int, mode);
        const DraggedCurve first(curve->spline);
        fixture->editor.setUserMode(static_cast<Mode>(mode));
        fixture->editor.setCurrentMode(static_cast<Mode>(mode));
        for (const Qt::MouseButton& button : {Qt::BackButton, Qt::ForwardButton}) {
            for (const QPoint& pixel : {at(20, 20), at(45, 35)}) {
                fixture->press(pixel, button);
                QCOMPARE(int(fixture->editor.getCurrentMode()), mode);
                QVERIFY(!fixture->canvas().viewDrag);
                fixture->moveTo(pixel + QPoint(20, 20), button);
                fixture->release(pixel + QPoint(20, 20), button);
                fixture->send(QEvent::MouseButtonDblClick, pixel, button, button);
            }
        }
        QVERIFY(DraggedCurve(curve->spline) == first);
        QCOMPARE(fixture->canvas().maxX, 50.0);
        QVERIFY(fixture->undoSteps().isEmpty());
    }

    void theWheelLeavesTheCornerOfARubberBand()
    {
        fixture->press(at(15, 25));
        fixture->moveTo(at(20, 15));
        fixture->wheel(at(20, 15), 120);
        QVERIFY(fixture->canvas().rectActive);
        QCOMPARE(fixture->canvas().newMinX, 15.0);
        fixture->release(at(20, 15));
        QVERIFY(fixture->selectionOf("n.a").selectedPoints.isEmpty()); // its edge is at the key
    }

    void anotherToolInMidDragIsTheToolAfterIt()
    {
        const DraggedCurve first(curve->spline);
        fixture->press(at(20, 20));
        fixture->moveTo(at(22, 22));
        fixture->editor.setAddKeyMode();
        QCOMPARE(fixture->editor.getCurrentMode(), Mode::ADD);
        fixture->moveTo(at(24, 24));
        fixture->release(at(24, 24));
        QCOMPARE(fixture->editor.getCurrentMode(), Mode::ADD);
        QCOMPARE(curve->spline.at(1)->time, 22.0);
        QCOMPARE(fixture->undoAll(), (QStringList{changeLabel, moveLabel, selectLabel}));
        QVERIFY(DraggedCurve(curve->spline) == first);
    }

    /// What is chosen while the drag's step is told counts, not what was chosen before.
    void aToolChosenInTheLastSlotStays()
    {
        fixture->press(at(20, 20));
        fixture->moveTo(at(22, 22));
        bool isChosen = false;
        connect(&fixture->editor, &CurveEditor::curveHasChanged, this, [&] {
            if (!std::exchange(isChosen, true)) {
                fixture->editor.setAddKeyMode();
            }
        });
        fixture->release(at(22, 22));
        QCOMPARE(fixture->editor.getCurrentMode(), Mode::ADD);
        QCOMPARE(fixture->undoAll(), (QStringList{changeLabel, moveLabel, selectLabel}));
    }

    /// A drag over a field whose release was lost, and a drag on the canvas.
    void gesturesOnTheCanvasAndOverAFieldEndOneAnother()
    {
        const DraggedCurve first(curve->spline);
        fixture->click(at(20, 20));
        CurveKeysDialog& dialog = *fixture->canvas().keysDialog();
        dialog.startMovePoints();
        dialog.valueChanged(21.0, dialog.posY);
        fixture->paint();
        fixture->press(at(20, 21));
        fixture->moveTo(at(22, 22));
        dialog.startChangePoints();
        QCOMPARE(fixture->editor.getCurrentMode(), Mode::DEFAULT);
        fixture->moveTo(at(30, 30));
        dialog.endChangePoints();
        QCOMPARE(curve->spline.at(1)->time, 22.0);
        QCOMPARE(fixture->undoAll(), (QStringList{changeLabel, moveLabel, moveLabel, selectLabel}));
        QVERIFY(DraggedCurve(curve->spline) == first);
    }

private:
    static QPoint at(const double& time, const double& value)
    {
        return EditorFixture::pixel(time, value);
    }

    static void lostReleases()
    {
        QTest::addColumn<QString>("event");
        for (const char* event : {"a box", "a popup", "a hidden window", "a disabled canvas",
                                  "another window", "an empty set", "a move without a button"}) {
            QTest::newRow(event) << QString(event);
        }
    }

    void lose(const QString& event)
    {
        if (event == "a box") {
            askInABox(*fixture);
        } else if (event == "a popup") {
            openAPopup(*fixture);
        } else if (event == "a hidden window") {
            hideForAWhile(*fixture);
        } else if (event == "a disabled canvas") {
            fixture->canvas().setEnabled(false);
            fixture->canvas().setEnabled(true);
        } else if (event == "another window") {
            activateAnotherWindow(*fixture);
        } else if (event == "an empty set") {
            fixture->editor.selectNodes(QStringList());
            fixture->editor.selectNodes(QStringList("n.a"));
        } else {
            fixture->moveTo(at(22, 22), Qt::NoButton);
        }
    }

    /// A right click opens the menu, a left click selects the key under it.
    void theNextGesturesAreSound()
    {
        fixture->paint();
        QVERIFY(fixture->closesMenuOf([this] { fixture->press(at(45, 35), Qt::RightButton); }));
        fixture->release(at(45, 35), Qt::RightButton);
        fixture->click(at(45, 35));
        QVERIFY(fixture->selectionOf("n.a").selectedPoints.isEmpty());
        fixture->click(at(40, 10));
        QCOMPARE(fixture->selectionOf("n.a").selectedPoints,
                 QList<PointInfo*>{curve->spline.at(2)});
    }

    static void secondButtons()
    {
        QTest::addColumn<int>("button");
        QTest::newRow("right") << int(Qt::RightButton);
        QTest::newRow("back") << int(Qt::BackButton);
    }

    void clickSecond(const QPoint& pixel)
    {
        QFETCH(int, button);
        const auto second = static_cast<Qt::MouseButton>(button);
        fixture->send(QEvent::MouseButtonPress, pixel, second, Qt::LeftButton | second);
        fixture->send(QEvent::MouseButtonRelease, pixel, second, Qt::LeftButton);
    }

    std::unique_ptr<EditorFixture> fixture;
    LentCurve* curve = nullptr; ///< owned by the fixture
    bool wasAsked = false;
};

QTEST_MAIN(TestGestureEnds)
#include "test_gesture_ends.moc"
