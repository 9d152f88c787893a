// What a host lends, and what it lends once more.

#include "curves/CurveNodeBase.h"
#include "support/EditorFixture.h"
#include "support/FailOnWarning.h"

#include <QMetaMethod>
#include <QTreeWidget>

namespace {

double valueOf(EditorFixture& fixture, const QString& name)
{
    auto* const curve = dynamic_cast<CurveNodeBase*>(fixture.editor.curveFromDotName(name));
    return curve ? curve->evaluate(0.0) : std::nan("");
}

} // namespace

class TestLendingAnew : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { fixture.reset(); }

    void aRecordFilledThroughItsFieldsWorksLikeAnyOther();
    void aSplineWrittenIntoARecordOfTheListIsShownFromThenOn();
    void aNewSplineTakesThePlaceOfADestroyedOne_data();
    void aNewSplineTakesThePlaceOfADestroyedOne();
    void aListedCurveOffTheCanvasIsLentANewSpline();
    void aSplineThatLivesIsNotReplaced();
    void curvesOfANodeWithoutANameAreFoundByThePointInFront();
    void theCanvasTakesChangedKeysThroughAPublicSlot();

private:
    void add(const QString& name, SplineBase* spline, bool selects)
    {
        fixture->editor.addCurve("body", name, Qt::red, 0, spline, &slot, -100, 100, selects, true);
    }

    std::unique_ptr<EditorFixture> fixture;
    FunctionFloatBase* slot = nullptr;
};

void TestLendingAnew::init()
{
    failOnUnexpectedWarning();
    fixture = std::make_unique<EditorFixture>();
}

void TestLendingAnew::aRecordFilledThroughItsFieldsWorksLikeAnyOther()
{
    auto spline = std::make_unique<SplineBase>();
    SplineBase other;
    CurveEditor::NodeStruct record;
    QVERIFY(!record.livingSpline() && !record.isSplineLost());
    record.spline = spline.get();
    record.function = &slot;
    QCOMPARE(record.livingSpline(), spline.get());
    QCOMPARE(record.livingSlot(), &slot);
    spline.reset();
    QVERIFY(!record.livingSpline() && record.isSplineLost());
    QVERIFY(!record.livingSlot());
    record.spline = &other;
    QCOMPARE(record.livingSpline(), &other);
    QCOMPARE(record.livingSlot(), &slot);
    record.spline = nullptr;
    QVERIFY(!record.livingSpline() && !record.isSplineLost());
}

void TestLendingAnew::aSplineWrittenIntoARecordOfTheListIsShownFromThenOn()
{
    LentCurve former;
    LentCurve later;
    later.addKey(0.0, 6.0);
    add("w", &former.spline, false);
    CurveEditor::NodeStruct* const record = fixture->editor.searchAllNodeList("body.w");
    record->spline = &later.spline;
    fixture->editor.setCurveEditableOn(record);
    QCOMPARE(fixture->editor.curveFromDotName("body.w")->spline(), &later.spline);
    QCOMPARE(valueOf(*fixture, "body.w"), 6.0);
}

void TestLendingAnew::aNewSplineTakesThePlaceOfADestroyedOne_data()
{
    QTest::addColumn<bool>("selects");
    QTest::newRow("and is selected") << true;
    QTest::newRow("and is not selected") << false;
}

void TestLendingAnew::aNewSplineTakesThePlaceOfADestroyedOne()
{
    QFETCH(bool, selects);
    auto former = std::make_unique<LentCurve>();
    former->addKey(0.0, 3.0);
    LentCurve later;
    later.addKey(0.0, 7.0);
    add("w", &former->spline, true);
    CurveEditor::NodeStruct* const record = fixture->editor.searchAllNodeList("body.w");
    former.reset();
    add("w", &later.spline, selects);
    QCOMPARE(fixture->editor.searchAllNodeList("body.w"), record);
    QCOMPARE(record->livingSpline(), &later.spline);
    QVERIFY(record->isEditing);
    QCOMPARE(fixture->editor.curveFromDotName("body.w")->spline(), &later.spline);
    QCOMPARE(valueOf(*fixture, "body.w"), 7.0);
    QVERIFY(fixture->editor.checkListsEditing->findTreeItem("body.w"));
    if (selects) {
        QCOMPARE(fixture->editor.getSelection(), QStringList{"body.w"});
    }
}

void TestLendingAnew::aListedCurveOffTheCanvasIsLentANewSpline()
{
    auto former = std::make_unique<LentCurve>();
    add("w", &former->spline, false);
    former.reset();
    LentCurve later;
    later.addKey(0.0, 7.0);
    add("w", &later.spline, true);
    QCOMPARE(valueOf(*fixture, "body.w"), 7.0);
    ParseMessage message;
    const std::unique_ptr<FunctionFloatBase> reads(
        FunctionParserBase::instance()->parseString("body.w*2", message, false));
    QVERIFY(reads);
    QCOMPARE(reads->value(), 14.0);
}

void TestLendingAnew::aSplineThatLivesIsNotReplaced()
{
    LentCurve former;
    LentCurve later;
    add("w", &former.spline, false);
    add("w", &later.spline, false);
    QCOMPARE(fixture->editor.searchAllNodeList("body.w")->spline, &former.spline);
}

void TestLendingAnew::curvesOfANodeWithoutANameAreFoundByThePointInFront()
{
    LentCurve curve;
    curve.addKey(0.0, 4.0);
    CurveEditor& editor = fixture->editor;
    editor.addCurve("", "a", Qt::red, 0, &curve.spline, &slot, -100, 100, true, true);
    CurveNode* const node = editor.curveFromDotName(".a");
    QVERIFY(node);
    QCOMPARE(node->dotName(), QString(".a"));
    QCOMPARE(editor.structFromCurve(node), editor.searchAllNodeList(".a"));
    QCOMPARE(valueOf(*fixture, ".a"), 4.0);
    editor.selectNodes(QStringList(".a"));
    QCOMPARE(fixture->logic().editingCurveNames(), QStringList{".a"});
    ParseMessage message;
    const std::unique_ptr<FunctionFloatBase> reads(
        FunctionParserBase::instance()->parseString("'.a'+1", message, false));
    QCOMPARE(reads->value(), 5.0);
    editor.renameCurve("", "a", "b");
    QCOMPARE(editor.curveFromDotName(".b"), node);
    editor.renameNode("", "n");
    QCOMPARE(editor.curveFromDotName("n.b"), node);
    editor.renameNode("n", "");
    QCOMPARE(editor.curveFromDotName(".b"), node);
    editor.removeCurve("", "b");
    QVERIFY(!editor.curveFromDotName(".b"));
}

void TestLendingAnew::theCanvasTakesChangedKeysThroughAPublicSlot()
{
    const QMetaObject& meta = FunctionEditor::staticMetaObject;
    const int index = meta.indexOfSlot("currentNodeHasChanged()");
    QVERIFY(index >= 0);
    QCOMPARE(meta.method(index).access(), QMetaMethod::Public);
    const QMetaObject& curve = CurveNodeBase::staticMetaObject;
    const int signal = curve.indexOfSignal("curveHasChanged(QString&,QString&)");
    QVERIFY(signal >= 0);
    QCOMPARE(curve.method(signal).access(), QMetaMethod::Protected);
}

QTEST_MAIN(TestLendingAnew)
#include "test_lending_anew.moc"
