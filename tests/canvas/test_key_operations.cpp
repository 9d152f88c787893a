#include "canvas/StepLabels.h"
#include "support/EditorFixture.h"
#include "support/FailOnWarning.h"

using zk_spline::bezier;
using zk_spline::linear;
using zk_spline::stepped;
using zk_spline::tcb;

namespace {

const QString typeLabel = QStringLiteral("Set Control Points Type");

} // namespace

/// Selecting, scaling, panning and reshaping the selected keys without the mouse.
class TestKeyOperations : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void allKeysAreSelectedInKeyOrder()
    {
        EditorFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{10, 10}, {20, 20}, {30, 10}});
        fixture.editor.selectAllKeys();
        QCOMPARE(fixture.selectionOf("n.a").selectedPoints,
                 (QList<PointInfo*>{curve.spline.at(0), curve.spline.at(1), curve.spline.at(2)}));
        fixture.editor.selectNoneKeys();
        QVERIFY(fixture.selectionOf("n.a").selectedPoints.isEmpty());
        QCOMPARE(fixture.undoSteps(), (QStringList{selectLabel, selectLabel}));
    }

    void allKeysAreSelectedOnCurvesOfEveryType()
    {
        EditorFixture fixture;
        fixture.addCurve("n.s", {{10, 10}, {20, 20}});
        fixture.addCurve("n.e", {{10, 30}, {15, 30}, {20, 30}}, "t");
        fixture.editor.selectNodes({"n.s", "n.e"});
        fixture.editor.selectAllKeys();
        QCOMPARE(fixture.selectionOf("n.s").selectedPoints.size(), qsizetype(2));
        QCOMPARE(fixture.selectionOf("n.e").selectedPoints.size(), qsizetype(3));
    }

    void selectingTheSameSetAgainLeavesNoStep()
    {
        EditorFixture fixture;
        fixture.editCurve("n.a", {{10, 10}, {20, 20}});
        fixture.selectKeys("n.a", {1, 0});
        fixture.editor.selectAllKeys();
        QVERIFY(fixture.undoSteps().isEmpty());
    }

    void scalingIsAboutTimeZeroAndValueZero()
    {
        EditorFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{10, 10}, {20, 20}, {30, 10}});
        fixture.selectKeys("n.a", {0, 1});
        fixture.logic().scaleSelection(2.0, -1.0);
        QCOMPARE(curve.spline.at(0)->time, 20.0);
        QCOMPARE(curve.spline.at(0)->value, -10.0);
        QCOMPARE(curve.spline.at(1)->time, 30.0); // the unselected key is second now
        QCOMPARE(curve.spline.at(2)->time, 40.0);
        QCOMPARE(fixture.undoAll(), QStringList(changeLabel));
        QCOMPARE(curve.spline.at(1)->time, 20.0);
        QCOMPARE(curve.spline.at(1)->value, 20.0);
    }

    void scalingOneKey()
    {
        EditorFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{10, 10}, {20, 20}});
        fixture.selectKeys("n.a", {0});
        fixture.logic().scaleSelection(3.0, 2.0);
        QCOMPARE(curve.spline.at(1)->time, 30.0);
        QCOMPARE(curve.spline.at(1)->value, 20.0);
    }

    void scalingReachesASingleKeyBesideASelectionOfSeveral()
    {
        EditorFixture fixture;
        LentCurve& a = fixture.addCurve("n.a", {{10, 10}, {20, 20}});
        LentCurve& b = fixture.addCurve("n.b", {{10, 10}, {20, 20}});
        fixture.editor.selectNodes({"n.a", "n.b"});
        fixture.selectKeys("n.a", {0, 1});
        fixture.selectKeys("n.b", {1});
        fixture.logic().scaleSelection(1.5, 2.0);
        QCOMPARE(a.spline.at(0)->time, 15.0);
        QCOMPARE(a.spline.at(1)->value, 40.0);
        QCOMPARE(b.spline.at(0)->time, 10.0);
        QCOMPARE(b.spline.at(1)->time, 30.0);
        QCOMPARE(b.spline.at(1)->value, 40.0);
        QCOMPARE(fixture.undoAll(), QStringList(changeLabel));
    }

    void scalingAMixedSetScalesNothing()
    {
        EditorFixture fixture;
        LentCurve& curve = fixture.addCurve("n.a", {{10, 10}, {20, 20}});
        fixture.addCurve("n.b", {}, "t");
        fixture.editor.selectNodes({"n.a", "n.b"});
        fixture.selectKeys("n.a", {0, 1});
        fixture.logic().scaleSelection(2.0, 2.0);
        QCOMPARE(curve.spline.at(0)->time, 10.0);
        QVERIFY(fixture.undoSteps().isEmpty());
    }

    void scalingByOneLeavesNoStep()
    {
        EditorFixture fixture;
        fixture.editCurve("n.a", {{10, 10}, {20, 20}});
        fixture.selectKeys("n.a", {0, 1});
        fixture.logic().scaleSelection(1.0, 1.0);
        QVERIFY(fixture.undoSteps().isEmpty());
    }

    void panningMovesEachSelectedKey()
    {
        EditorFixture fixture;
        LentCurve& a = fixture.addCurve("n.a", {{10, 10}, {20, 20}});
        LentCurve& b = fixture.addCurve("n.b", {{10, 10}, {20, 20}});
        fixture.editor.selectNodes({"n.a", "n.b"});
        fixture.selectKeys("n.a", {0, 1});
        fixture.selectKeys("n.b", {1});
        fixture.logic().panSelection(1.5, -2.0);
        QCOMPARE(a.spline.at(0)->time, 11.5);
        QCOMPARE(a.spline.at(1)->value, 18.0);
        QCOMPARE(b.spline.at(0)->time, 10.0);
        QCOMPARE(b.spline.at(1)->time, 21.5);
        QCOMPARE(fixture.undoAll(), QStringList(moveLabel));
        QCOMPARE(a.spline.at(0)->time, 10.0);
        QCOMPARE(b.spline.at(1)->value, 20.0);
    }

    void panningByZeroLeavesNoStep()
    {
        EditorFixture fixture;
        fixture.editCurve("n.a", {{10, 10}, {20, 20}});
        fixture.selectKeys("n.a", {0, 1});
        fixture.logic().panSelection(0.0, 0.0);
        QVERIFY(fixture.undoSteps().isEmpty());
    }

    void panningAMixedSetMovesNothing()
    {
        EditorFixture fixture;
        LentCurve& a = fixture.addCurve("n.a", {{10, 10}, {20, 20}});
        fixture.addCurve("n.b", {}, "t");
        fixture.editor.selectNodes({"n.a", "n.b"});
        fixture.selectKeys("n.a", {0});
        fixture.logic().panSelection(1.0, 1.0);
        QCOMPARE(a.spline.at(0)->time, 10.0);
        QVERIFY(fixture.undoSteps().isEmpty());
    }

    void flatTangentsTreatBezierAndTcbData_data()
    {
        QTest::addColumn<bool>("unified");
        QTest::addColumn<double>("continuity");
        QTest::newRow("a unified key loses its continuity") << true << 0.0;
        QTest::newRow("a broken key keeps its continuity") << false << 0.5;
    }

    void flatTangentsTreatBezierAndTcbData()
    {
        QFETCH(bool, unified);
        QFETCH(double, continuity);
        EditorFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{10, 10, linear}, {20, 20, linear}});
        PointInfo* key = curve.spline.at(0);
        key->bezier = {3.0, 4.0};
        key->tcb = {0.1, 0.5, 0.7, 0.2, 0.3};
        key->unifiedTangents = unified;
        fixture.selectKeys("n.a", {0});
        fixture.editor.flatTangents();
        QCOMPARE(key->bezier.tangentLeft, 0.0);
        QCOMPARE(key->bezier.tangentRight, 0.0);
        QCOMPARE(key->tcb.tension, 1.0);
        QCOMPARE(key->tcb.continuity, continuity);
        QCOMPARE(key->tcb.bias, 0.7);
        QCOMPARE(key->tcb.easeTo, 0.0);
        QCOMPARE(key->tcb.easeFrom, 0.0);
        QCOMPARE(fixture.undoAll(), QStringList(changeLabel));
        QCOMPARE(key->bezier.tangentLeft, 3.0);
        QCOMPARE(key->tcb.continuity, 0.5);
        QCOMPARE(key->tcb.easeFrom, 0.3);
    }

    void tangentsAreBrokenAndUnified()
    {
        EditorFixture fixture;
        LentCurve& curve =
            fixture.editCurve("n.a", {{10, 10, bezier}, {20, 20, bezier}, {30, 10, tcb}});
        curve.spline.at(0)->bezier = {1.0, 2.0};
        curve.spline.at(1)->bezier = {1.0, 2.0};
        fixture.selectKeys("n.a", {0, 1});
        fixture.editor.unifyTangents();
        QVERIFY(curve.spline.at(0)->unifiedTangents);
        QCOMPARE(curve.spline.at(0)->bezier.tangentLeft, 2.0); // the first key: right to left
        QCOMPARE(curve.spline.at(1)->bezier.tangentRight, 1.0);
        fixture.editor.breakTangents();
        QVERIFY(!curve.spline.at(0)->unifiedTangents);
        QVERIFY(!curve.spline.at(2)->unifiedTangents);
        fixture.editor.breakTangents(); // broken already: no step
        QCOMPARE(fixture.undoAll(), (QStringList{changeLabel, changeLabel}));
        QCOMPARE(curve.spline.at(1)->bezier.tangentRight, 2.0);
    }

    void keysAreRetyped_data()
    {
        QTest::addColumn<int>("type");
        QTest::newRow("linear") << int(linear);
        QTest::newRow("bezier") << int(bezier);
        QTest::newRow("tcb") << int(tcb);
        QTest::newRow("stepped") << int(stepped);
    }

    void keysAreRetyped()
    {
        QFETCH(int, type);
        EditorFixture fixture;
        const auto other = type == linear ? bezier : linear;
        LentCurve& curve = fixture.editCurve("n.a", {{10, 10, other}, {20, 20, other}});
        fixture.selectKeys("n.a", {1});
        switch (type) {
        case linear:
            fixture.editor.setSelectedLinear();
            break;
        case bezier:
            fixture.editor.setSelectedBezier();
            break;
        case tcb:
            fixture.editor.setSelectedTcb();
            break;
        default:
            fixture.editor.setSelectedStep();
            break;
        }
        QCOMPARE(int(curve.spline.at(0)->type), int(other));
        QCOMPARE(int(curve.spline.at(1)->type), type);
        QCOMPARE(fixture.undoAll(), QStringList(typeLabel));
        QCOMPARE(int(curve.spline.at(1)->type), int(other));
    }

    void ofTwoCloseKeysTheEarlierIsHit()
    {
        EditorFixture fixture;
        LentCurve& curve = fixture.editCurve("n.a", {{10, 10}, {10.3, 10}});
        fixture.paint();
        fixture.click(fixture.pixel(10.3, 10));
        QCOMPARE(fixture.selectionOf("n.a").currentPoint, curve.spline.at(0));
    }

    void aKeyIsHitWithinFivePixels_data()
    {
        QTest::addColumn<QPoint>("off");
        QTest::addColumn<bool>("hit");
        QTest::newRow("five aside") << QPoint(5, 0) << true;
        QTest::newRow("two and three") << QPoint(2, -3) << true;
        QTest::newRow("six aside") << QPoint(6, 0) << false;
        QTest::newRow("three and three") << QPoint(3, 3) << false;
    }

    void aKeyIsHitWithinFivePixels()
    {
        QFETCH(QPoint, off);
        QFETCH(bool, hit);
        EditorFixture fixture;
        fixture.editCurve("n.a", {{10, 10}, {40, 20}});
        fixture.paint();
        fixture.click(fixture.pixel(10, 10) + off);
        QCOMPARE(fixture.selectionOf("n.a").currentPoint != nullptr, hit);
    }

    void thePartOfAKeyUnderTheMouse_data()
    {
        QTest::addColumn<QPoint>("off");
        QTest::addColumn<int>("part");
        QTest::newRow("the key") << QPoint(0, 0) << 0;
        QTest::newRow("the right handle") << QPoint(45, 0) << 3;
        QTest::newRow("the left handle") << QPoint(-44, 2) << 2;
        QTest::newRow("the line between them") << QPoint(20, 0) << 1;
    }

    void thePartOfAKeyUnderTheMouse()
    {
        QFETCH(QPoint, off);
        QFETCH(int, part);
        EditorFixture fixture;
        LentCurve& curve =
            fixture.editCurve("n.a", {{5, 10, bezier}, {25, 20, bezier}, {45, 10, bezier}});
        fixture.selectKeys("n.a", {1});
        fixture.paint();
        fixture.press(fixture.pixel(25, 20) + off);
        QCOMPARE(fixture.selectionOf("n.a").keyPart, part);
        QCOMPARE(fixture.selectionOf("n.a").currentPoint, curve.spline.at(1));
        fixture.release(fixture.pixel(25, 20) + off);
    }

    void hitsStayInStepBesideAnExpressionCurve()
    {
        EditorFixture fixture;
        fixture.addCurve("n.e", {}, "t");
        LentCurve& s = fixture.addCurve("n.s", {{10, 10}, {20, 20}}, "t");
        s.spline.setAddFunc(true);
        // The first curve is of keys plus expression, so that the set is not called mixed.
        LentCurve& first = fixture.addCurve("n.f", {{30, 30}}, "t");
        first.spline.setAddFunc(true);
        fixture.editor.selectNodes({"n.f", "n.e", "n.s"});
        fixture.paint();
        QCOMPARE(fixture.logic().editingType(), 2);
        fixture.click(fixture.pixel(20, 20));
        QCOMPARE(fixture.selectionOf("n.s").currentPoint, s.spline.at(1));
        QVERIFY(!fixture.selectionOf("n.f").currentPoint);
        QVERIFY(!fixture.selectionOf("n.e").currentPoint);
    }
};

QTEST_MAIN(TestKeyOperations)
#include "test_key_operations.moc"
