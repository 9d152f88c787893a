#include "support/EditorFixture.h"
#include "support/FailOnWarning.h"

/// The keys of the keyboard on the canvas: arrows, undo, redo and delete.
class TestKeyboard : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void theArrowsWalkFromKeyToKey()
    {
        EditorFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{10, 10}, {20, 20}, {30, 10}});
        fixture.selectKeys("n.a", {0});
        fixture.typeKey(Qt::Key_Right);
        QCOMPARE(fixture.selectionOf("n.a").currentPoint, curve.spline.at(1));
        fixture.typeKey(Qt::Key_Right, Qt::ShiftModifier);
        QCOMPARE(fixture.selectionOf("n.a").currentPoint, curve.spline.at(2));
        fixture.typeKey(Qt::Key_Right); // no further key: the selection stays
        QCOMPARE(fixture.selectionOf("n.a").currentPoint, curve.spline.at(2));
        fixture.typeKey(Qt::Key_Left);
        QCOMPARE(fixture.selectionOf("n.a").currentPoint, curve.spline.at(1));
    }

    void theArrowsLeaveSeveralKeysAlone()
    {
        EditorFixture fixture;
        fixture.editCurve("n.a", {{10, 10}, {20, 20}, {30, 10}});
        fixture.selectKeys("n.a", {0, 1});
        fixture.typeKey(Qt::Key_Right);
        QCOMPARE(fixture.selectionOf("n.a").selectedPoints.size(), qsizetype(2));
    }

    void withSeveralCurvesTheFirstCurvesKeysLead()
    {
        EditorFixture fixture;
        LentCurve& a = fixture.addCurve("n.a", {{10, 10}, {20, 20}});
        fixture.addCurve("n.b", {{5, 30}, {12, 35}, {40, 35}});
        fixture.editor.selectNodes({"n.a", "n.b"});
        fixture.selectKeys("n.b", {1});
        fixture.typeKey(Qt::Key_Right);
        QCOMPARE(fixture.selectionOf("n.b").currentPoint, a.spline.at(1));
        // A borrowed key is neither painted, moved nor deleted, and never read once it is gone.
        fixture.paint();
        fixture.drag(fixture.pixel(20, 35), fixture.pixel(22, 30));
        fixture.typeKey(Qt::Key_Delete);
        QCOMPARE(a.spline.getControlPointsNumber(), 2u);
        fixture.curves.erase("n.a");
        fixture.paint();
        fixture.typeKey(Qt::Key_Left);
        fixture.typeKey(Qt::Key_Delete);
        fixture.undoAll();
    }

    void undoAndRedoKeysAskTheHost_data()
    {
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("modifiers");
        QTest::addColumn<int>("undos");
        QTest::addColumn<int>("redos");
        QTest::newRow("ctrl z") << int(Qt::Key_Z) << int(Qt::ControlModifier) << 1 << 0;
        QTest::newRow("ctrl y") << int(Qt::Key_Y) << int(Qt::ControlModifier) << 0 << 1;
        QTest::newRow("ctrl shift z")
            << int(Qt::Key_Z) << int(Qt::ControlModifier | Qt::ShiftModifier) << 0 << 0;
        QTest::newRow("z alone") << int(Qt::Key_Z) << int(Qt::NoModifier) << 0 << 0;
    }

    void undoAndRedoKeysAskTheHost()
    {
        QFETCH(int, key);
        QFETCH(int, modifiers);
        QFETCH(int, undos);
        QFETCH(int, redos);
        EditorFixture fixture;
        int undoCount = 0;
        int redoCount = 0;
        connect(&fixture.editor, &CurveEditor::curveEditorUndo, this, [&] { ++undoCount; });
        connect(&fixture.editor, &CurveEditor::curveEditorRedo, this, [&] { ++redoCount; });
        fixture.typeKey(key, Qt::KeyboardModifiers(modifiers));
        QCOMPARE(undoCount, undos);
        QCOMPARE(redoCount, redos);
    }

    void theDeleteKeyBuildsACommandEvenWithNothingSelected()
    {
        EditorFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{10, 10}, {20, 20}});
        fixture.typeKey(Qt::Key_Delete); // refused: nothing was deleted
        QCOMPARE(curve.spline.getControlPointsNumber(), 2u);
        QVERIFY(fixture.undoSteps().isEmpty());
        fixture.selectKeys("n.a", {0});
        fixture.typeKey(Qt::Key_Delete);
        QCOMPARE(curve.spline.getControlPointsNumber(), 1u);
        QCOMPARE(fixture.undoSteps(), QStringList("Delete Control Points"));
    }

    void theSlotDeletesOnlyASelection()
    {
        EditorFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{10, 10}, {20, 20}});
        fixture.logic().deleteSelectedNodes();
        QCOMPARE(curve.spline.getControlPointsNumber(), 2u);
        fixture.selectKeys("n.a", {1});
        fixture.logic().deleteSelectedNodes();
        QCOMPARE(curve.spline.getControlPointsNumber(), 1u);
    }
};

QTEST_MAIN(TestKeyboard)
#include "test_keyboard.moc"
