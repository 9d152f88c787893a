// How long the objects of curves live that the editor shows.

#include "support/EditorFixture.h"
#include "support/FailOnWarning.h"

#include "curves/CurveNodeBase.h"

#include <QPointer>

class TestCurveObjects : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void cleanup() { fixture.reset(); }

    void aCurveThatLeavesTheSetEnds();
    void aCurveThatIsTakenOffTheListEnds();
    void theStepThatTookACurveOutKeepsItsObjectButNoPixels();
    void aCurveThatTheHostListsAnewWithOtherLimitsIsNotPutBackAsItWas();
    void theObjectEndsWithTheLastStepThatKeepsIt();
    void aRedoneStepKeepsOnlyWhatItTookOutFirst();
    void aFreedObjectIsReplacedByANewOne();
    void anObjectWithoutAPlaceUnderItsNewNameEnds();
    void anObjectMayLeaveInTheSlotOfAStepAndOfADrag_data();
    void anObjectMayLeaveInTheSlotOfAStepAndOfADrag();
    void anObjectMayLeaveWhileItsExpressionIsPainted();

private:
    CurveEditor& editor() { return fixture->editor; }
    curve_editor::CurveCommandsManager& history() { return *editor().getCmdManager(); }
    CurveNodeBase* objectOf(const QString& name);

    std::unique_ptr<EditorFixture> fixture;
};

void TestCurveObjects::init()
{
    failOnUnexpectedWarning();
    fixture = std::make_unique<EditorFixture>();
    fixture->editCurve("n.a", {{10, 10}, {20, 20}});
}

void TestCurveObjects::aCurveThatLeavesTheSetEnds()
{
    const QPointer<CurveNodeBase> object = objectOf("n.a");
    editor().setCurveEditableOff(editor().searchAllNodeList("n.a"));
    QVERIFY(!object);
}

void TestCurveObjects::aCurveThatIsTakenOffTheListEnds()
{
    const QPointer<CurveNodeBase> object = objectOf("n.a");
    editor().removeNode("n");
    QVERIFY(!object);
}

void TestCurveObjects::theStepThatTookACurveOutKeepsItsObjectButNoPixels()
{
    fixture->paint();
    const QPointer<CurveNodeBase> object = objectOf("n.a");
    QVERIFY(!object->splineGraph()->curvePixels.isEmpty());
    editor().removeCurvesFromEditing();
    QVERIFY(object);
    QCOMPARE(object->splineGraph()->curvePixels.capacity(), 0);
    history().undo();
    QCOMPARE(objectOf("n.a"), object.data());
    editor().selectNodes("n.a");
    fixture->paint();
    QVERIFY(!object->splineGraph()->curvePixels.isEmpty());
}

void TestCurveObjects::aCurveThatTheHostListsAnewWithOtherLimitsIsNotPutBackAsItWas()
{
    LentCurve& lent = *fixture->curves.at("n.a");
    editor().removeCurvesFromEditing();
    editor().removeCurve("n", "a");
    editor().addCurve("n", "a", Qt::blue, 0.0f, &lent.spline, &lent.expression, 0.0f, 15.0f, false,
                      false);
    history().undo();
    QCOMPARE(objectOf("n.a")->evaluate(20.0), 15.0);
    QVERIFY(!objectOf("n.a")->notifiesHost());
    QCOMPARE(objectOf("n.a")->curveColor(), QColor(Qt::blue));
}

void TestCurveObjects::theObjectEndsWithTheLastStepThatKeepsIt()
{
    const QPointer<CurveNodeBase> object = objectOf("n.a");
    editor().removeCurvesFromEditing();
    history().undo();
    editor().selectNodes("n.a");
    fixture->logic().selectAllKeys();
    editor().removeCurvesFromEditing();
    history().setMaxStackSize(1);
    QVERIFY(object);
    history().clear();
    QVERIFY(!object);
}

void TestCurveObjects::aRedoneStepKeepsOnlyWhatItTookOutFirst()
{
    editor().removeCurvesFromEditing();
    const auto removed = [this] { return objectOf("n.a"); };
    history().undo();
    const QPointer<CurveNodeBase> first = removed();
    auto curve = std::make_unique<LentCurve>();
    curve->addKey(1, 1);
    editor().removeCurve("n", "a");
    editor().addCurve("n", "a", Qt::red, 0.0f, &curve->spline, &curve->expression, -1.0f, 1.0f,
                      true, true);
    const QPointer<CurveNodeBase> second = removed();
    QVERIFY(first);
    QVERIFY(second != first);
    history().redo();
    QVERIFY(!second);
    history().undo();
    QVERIFY(removed());
    QVERIFY(removed() != first.data()); // which shows another spline
    editor().removeCurve("n", "a");
}

void TestCurveObjects::aFreedObjectIsReplacedByANewOne()
{
    CurveEditor::NodeStruct* const record = editor().searchAllNodeList("n.a");
    CurveNode* const object = editor().curveFromStruct(record);
    editor().setCurveEditableOff(record);
    editor().setCurveEditableOn(record, object); // known by its address alone
    QVERIFY(objectOf("n.a"));
    QCOMPARE(objectOf("n.a")->spline(), &fixture->curves.at("n.a")->spline);
}

void TestCurveObjects::anObjectWithoutAPlaceUnderItsNewNameEnds()
{
    fixture->addCurve("n.x.c", {{1, 1}});
    fixture->addCurve("n.b.d", {{1, 1}});
    const QPointer<CurveNodeBase> object = objectOf("n.x.c");
    editor().renameCurve("n", "x.c", "b");
    QVERIFY(!object);
    QVERIFY(objectOf("n.b.d"));
}

void TestCurveObjects::anObjectMayLeaveInTheSlotOfAStepAndOfADrag_data()
{
    QTest::addColumn<bool>("isDrag");
    QTest::newRow("a drag") << true;
    QTest::newRow("a step") << false;
}

void TestCurveObjects::anObjectMayLeaveInTheSlotOfAStepAndOfADrag()
{
    QFETCH(bool, isDrag);
    const QPointer<CurveNodeBase> object = objectOf("n.a");
    bool hasLeft = false;
    connect(&editor(), &CurveEditor::curveHasChanged, this, [&] {
        if (!hasLeft) {
            hasLeft = true;
            editor().removeNode("n");
            fixture->paint();
        }
    });
    if (isDrag) {
        fixture->drag(fixture->pixel(10, 10), fixture->pixel(12, 12));
    } else {
        fixture->logic().resetEditingCurves();
    }
    QVERIFY(hasLeft);
    history().clear();
    QVERIFY(!object);
}

void TestCurveObjects::anObjectMayLeaveWhileItsExpressionIsPainted()
{
    double value = 1.0;
    int refreshes = 0;
    FunctionParserBase* const parser = FunctionParserBase::instance();
    parser->registerKey("intruder", 3, &value, [&] {
        if (++refreshes == 100) {
            editor().removeNode("n");
        }
    });
    fixture->addCurve("n.b", {}, "intruder");
    const QPointer<CurveNodeBase> object = objectOf("n.b");
    editor().selectNodes(QStringList{"n.a", "n.b"});
    fixture->paint();
    parser->unregisterKey("intruder", &value);
    QVERIFY(refreshes > 100);
    QVERIFY(!object);
}

CurveNodeBase* TestCurveObjects::objectOf(const QString& name)
{
    return dynamic_cast<CurveNodeBase*>(editor().curveFromDotName(name));
}

QTEST_MAIN(TestCurveObjects)
#include "test_curve_objects.moc"
