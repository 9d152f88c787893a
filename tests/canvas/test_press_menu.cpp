#include "support/EditorFixture.h"
#include "support/FailOnWarning.h"

#include <QPointer>

using Mode = CurveEditor::curveEditorModes;

/// The right press and the menu that it opens.
class TestPressMenu : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void theMenuOpensInEveryModeButZoom_data()
    {
        QTest::addColumn<int>("mode");
        QTest::addColumn<bool>("opens");
        QTest::newRow("default") << int(Mode::DEFAULT) << true;
        QTest::newRow("select") << int(Mode::SELECT) << true;
        QTest::newRow("selecting") << int(Mode::SELECTING) << true;
        QTest::newRow("move") << int(Mode::MOVE) << true;
        QTest::newRow("add") << int(Mode::ADD) << true;
        QTest::newRow("delete") << int(Mode::DEL) << true;
        QTest::newRow("scale") << int(Mode::SCALE) << true;
        QTest::newRow("zoom") << int(Mode::ZOOM) << false;
    }

    void theMenuOpensInEveryModeButZoom()
    {
        QFETCH(int, mode);
        QFETCH(bool, opens);
        EditorFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{10, 10}, {20, 20}});
        fixture.editor.setUserMode(static_cast<Mode>(mode));
        fixture.editor.setCurrentMode(static_cast<Mode>(mode));
        fixture.paint();
        QCOMPARE(fixture.closesMenuOf(
                     [&fixture] { fixture.press(fixture.pixel(40, 35), Qt::RightButton); }),
                 opens);
        QCOMPARE(curve.spline.getControlPointsNumber(), 2u);
    }

    void anExpressionCurveHasNoMenu()
    {
        EditorFixture fixture;
        fixture.editCurve("n.a", {}, "t");
        QVERIFY(!fixture.closesMenuOf(
            [&fixture] { fixture.press(fixture.pixel(40, 35), Qt::RightButton); }));
    }

    void aRightPressOnASelectedKeyKeepsTheSelection()
    {
        EditorFixture fixture;
        fixture.editCurve("n.a", {{10, 10}, {20, 20}, {30, 10}});
        fixture.selectKeys("n.a", {0, 1});
        fixture.paint();
        QVERIFY(fixture.closesMenuOf(
            [&fixture] { fixture.press(fixture.pixel(20, 20), Qt::RightButton); }));
        QCOMPARE(fixture.selectionOf("n.a").selectedPoints.size(), qsizetype(2));
        QVERIFY(fixture.undoSteps().isEmpty());
    }

    /// What was selected before the press counts, though the press may take it away.
    void theViewSeesARightPressOnlyWhereNoKeyWasSelected()
    {
        EditorFixture fixture;
        fixture.editCurve("n.a", {{10, 10}, {20, 20}});
        fixture.paint();
        fixture.canvas().anchorX = -1;
        const auto pressAt = [&fixture](const QPoint& pixel) {
            fixture.closesMenuOf([&] { fixture.press(pixel, Qt::RightButton); });
            fixture.release(pixel, Qt::RightButton);
        };
        pressAt(fixture.pixel(20, 20));
        QCOMPARE(fixture.canvas().anchorX, 200);
        pressAt(fixture.pixel(40, 35));
        QCOMPARE(fixture.canvas().anchorX, 200);
        QVERIFY(fixture.selectionOf("n.a").selectedPoints.isEmpty());
        pressAt(fixture.pixel(40, 35));
        QCOMPARE(fixture.canvas().anchorX, 400);
    }

    void aSecondRightPressWhileTheMenuIsOpenOpensNoOther()
    {
        EditorFixture fixture;
        fixture.editCurve("n.a", {{10, 10}, {20, 20}});
        fixture.paint();
        bool cameBack = false;
        int turns = 0;
        QTimer watch;
        connect(&watch, &QTimer::timeout, &watch, [&] {
            if (QApplication::activePopupWidget() && turns++ == 0) {
                fixture.press(fixture.pixel(20, 20), Qt::RightButton);
                cameBack = true;
            } else if (QWidget* menu = QApplication::activePopupWidget()) {
                menu->close();
            }
        });
        watch.start(0);
        fixture.press(fixture.pixel(40, 35), Qt::RightButton);
        QVERIFY(cameBack);
        QCOMPARE(turns, 2);
    }

    void aLeftPressWhileTheMenuIsOpenIsAGestureOfItsOwn()
    {
        EditorFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{10, 10}, {20, 20}});
        fixture.paint();
        QTimer::singleShot(0, this, [&] {
            fixture.drag(fixture.pixel(20, 20), fixture.pixel(22, 21));
            QApplication::activePopupWidget()->close();
        });
        fixture.press(fixture.pixel(40, 35), Qt::RightButton);
        fixture.release(fixture.pixel(40, 35), Qt::RightButton);
        QCOMPARE(curve.spline.at(1)->time, 22.0);
        QCOMPARE(fixture.editor.getCurrentMode(), Mode::DEFAULT);
    }

    void theHostMayDoAnythingWhileTheMenuIsOpen_data()
    {
        QTest::addColumn<QString>("deed");
        for (const char* deed : {"destroy the spline", "remove the curve", "undo", "delete keys",
                                 "empty the set", "close"}) {
            QTest::newRow(deed) << QString(deed);
        }
    }

    void theHostMayDoAnythingWhileTheMenuIsOpen()
    {
        QFETCH(QString, deed);
        EditorFixture fixture;
        fixture.editCurve("n.a", {{10, 10}, {20, 20}});
        fixture.paint();
        QTimer::singleShot(0, this, [&] {
            if (deed == "destroy the spline") {
                fixture.curves.erase("n.a");
            } else if (deed == "remove the curve") {
                fixture.editor.removeCurve("n", "a");
            } else if (deed == "undo") {
                fixture.undoAll();
            } else if (deed == "delete keys") {
                fixture.editor.deleteSelectedKeys();
            } else if (deed == "empty the set") {
                fixture.editor.selectNodes(QStringList());
            } else {
                fixture.editor.close();
            }
            if (QWidget* menu = QApplication::activePopupWidget()) {
                menu->close();
            }
        });
        fixture.press(fixture.pixel(20, 20), Qt::RightButton);
        fixture.release(fixture.pixel(20, 20), Qt::RightButton);
        fixture.paint();
        fixture.undoAll();
    }

    void theEditorMayBeDeletedWhileTheMenuIsOpen()
    {
        LentCurve curve;
        curve.addKey(10, 10);
        auto editor = std::make_unique<CurveEditor>(nullptr, qEnvironmentVariable("ZK_ICONS_DIR"));
        editor->addCurve("n", "a", Qt::green, 0, &curve.spline, nullptr, -100, 100, true, true);
        editor->show();
        const QPointer<FunctionEditor> canvas(editor->getFunctionEditor());
        QTimer::singleShot(0, this, [&editor] { editor.reset(); });
        QMouseEvent press(QEvent::MouseButtonPress, QPointF(5, 5),
                          canvas->mapToGlobal(QPoint(5, 5)), Qt::RightButton, Qt::RightButton,
                          Qt::NoModifier);
        QApplication::sendEvent(canvas, &press);
        QVERIFY(!canvas);
        QVERIFY(!editor);
    }
};

QTEST_MAIN(TestPressMenu)
#include "test_press_menu.moc"
