#include "curves/CurveTreeTest.h"
#include "files/CurveType.h"
#include "graphs/SplineCurveGraph.h"

#include <QTest>

/// The curves being edited, without a canvas.
class TestEditingSet : public CurveTreeTest
{
    Q_OBJECT

private slots:
    void init() { openTree(); }
    void cleanup() { closeTree(); }

    void anEmptySet();
    void theCurvesStandInTheOrderGivenEachOnce();
    void onlyTheCurvesOfTheSetAreDrawn();
    void aCurveThatIsReplacedLosesItsSelectionOfKeys();
    void theSetMayBeReplacedByItself();
    void leavingKeepsTheSelectionsOfKeys();
    void eachReplacementIsToBeTold();
    void exactlyTheLeavesOfANodeInTheirOrder();
    void theTypeComesFromTheFirstCurve_data();
    void theTypeComesFromTheFirstCurve();
    void theTextForTheLine_data();
    void theTextForTheLine();
    void onlyCurvesWithKeysHaveAGraphToEdit();

private:
    CurveNode* addOfType(const QString& name, const int& type, const char* text = "1")
    {
        return type == splineCurve ? add(name)
                                   : addExpression(name, text, type == splinePlusExpressionCurve);
    }
};

void TestEditingSet::anEmptySet()
{
    QVERIFY(editing->isEmpty());
    QCOMPARE(editing->size(), 0);
    QVERIFY(!editing->first());
    QVERIFY(!editing->contains(nullptr));
    QVERIFY(!editing->firstSpline());
    QCOMPARE(editing->firstName(), QString("None"));
    QCOMPARE(editing->type(), int(expressionCurve));
    QCOMPARE(editing->lineText(), QString());
    QVERIFY(editing->isExactly({nullptr}));
    QVERIFY(!editing->isNoticeDue());
}

void TestEditingSet::theCurvesStandInTheOrderGivenEachOnce()
{
    CurveNode* const a = add("n.a");
    CurveNode* const b = add("n.b");
    QCOMPARE(editing->replace({b, nullptr, tree->findCurve("n"), b}), (QStringList{"n.b", "n.a"}));
    QCOMPARE(editing->curves(), (QList<CurveNode*>{b, a}));
    QCOMPARE(editing->names(), (QStringList{"n.b", "n.a"}));
    QCOMPARE(editing->graphs(), (QList<SplineCurveGraph*>{b->splineGraph(), a->splineGraph()}));
    QCOMPARE(editing->first(), b);
    QCOMPARE(editing->firstName(), QString("n.b"));
    QCOMPARE(editing->firstSpline(), &hosts["n.b"]->spline);
    editing->remove(b);
    QCOMPARE(editing->curves(), QList<CurveNode*>{a});
}

void TestEditingSet::onlyTheCurvesOfTheSetAreDrawn()
{
    CurveNode* const a = add("n.a");
    CurveNode* const b = add("n.b");
    editing->replace({a});
    editing->replace({b});
    QVERIFY(!a->splineGraph()->isActive);
    QVERIFY(b->splineGraph()->isActive);
    QCOMPARE(editing->leave(), QList<CurveNode*>{b});
    QVERIFY(!b->splineGraph()->isActive);
    QVERIFY(editing->isEmpty());
}

void TestEditingSet::aCurveThatIsReplacedLosesItsSelectionOfKeys()
{
    CurveNode* const a = add("n.a");
    CurveNode* const b = add("n.b");
    for (CurveNode* const curve : {a, b}) {
        curve->spline()->addPoint(1.0, 1.0);
        curve->splineGraph()->selection().selectSinglePoint(curve->spline()->at(0));
    }
    editing->replace({a, b});
    editing->replace({b});
    QVERIFY(!a->splineGraph()->selection().hasSelection());
    QVERIFY(b->splineGraph()->selection().hasSelection());
}

void TestEditingSet::theSetMayBeReplacedByItself()
{
    CurveNode* const a = add("n.a");
    CurveNode* const b = add("n.b");
    editing->replace({a, b});
    QCOMPARE(editing->replace(editing->curves()), (QStringList{"n.a", "n.b"}));
    QCOMPARE(editing->curves(), (QList<CurveNode*>{a, b}));
}

void TestEditingSet::leavingKeepsTheSelectionsOfKeys()
{
    CurveNode* const a = add("n.a");
    a->spline()->addPoint(1.0, 1.0);
    a->splineGraph()->selection().selectSinglePoint(a->spline()->at(0));
    editing->replace({a});
    editing->leave();
    QVERIFY(a->splineGraph()->selection().hasSelection());
}

void TestEditingSet::eachReplacementIsToBeTold()
{
    editing->replace({});
    QVERIFY(editing->isNoticeDue());
    editing->noticeGiven();
    QVERIFY(!editing->isNoticeDue());
}

void TestEditingSet::exactlyTheLeavesOfANodeInTheirOrder()
{
    CurveNode* const a = add("n.a");
    CurveNode* const b = add("n.b");
    CurveNode* const group = tree->findCurve("n");
    editing->replace({a, b});
    QVERIFY(editing->isExactly({group}));
    QVERIFY(editing->isExactly({a, nullptr, group, b}));
    QVERIFY(!editing->isExactly({b, a}));
    QVERIFY(!editing->isExactly({a}));
    QVERIFY(!editing->isExactly({group, add("m.c")}));
}

void TestEditingSet::theTypeComesFromTheFirstCurve_data()
{
    QTest::addColumn<QList<int>>("types");
    QTest::addColumn<int>("expected");
    QTest::newRow("splines") << QList<int>{0, 0} << 0;
    QTest::newRow("an expression, then a sum") << QList<int>{1, 2} << 1;
    QTest::newRow("a sum, then an expression") << QList<int>{2, 1} << 2;
    QTest::newRow("a spline, then an expression") << QList<int>{0, 1} << 3;
    QTest::newRow("a sum, then a spline") << QList<int>{2, 0} << 3;
}

void TestEditingSet::theTypeComesFromTheFirstCurve()
{
    QFETCH(QList<int>, types);
    QFETCH(int, expected);
    QList<CurveNode*> curves;
    for (const int& type : types) {
        curves.append(addOfType(QStringLiteral("n.%1").arg(curves.size()), type));
    }
    editing->replace(curves);
    QCOMPARE(editing->type(), expected);
}

void TestEditingSet::theTextForTheLine_data()
{
    QTest::addColumn<int>("secondType");
    QTest::addColumn<QByteArray>("secondText");
    QTest::addColumn<QString>("expected");
    QTest::newRow("the same") << 1 << QByteArray("t*2") << "t*2";
    QTest::newRow("the same, in a sum") << 2 << QByteArray("t*2") << "t*2";
    QTest::newRow("another one") << 1 << QByteArray("t*3") << "...";
    QTest::newRow("a spline") << 0 << QByteArray() << "Multiple Types";
}

void TestEditingSet::theTextForTheLine()
{
    QFETCH(int, secondType);
    QFETCH(QByteArray, secondText);
    QFETCH(QString, expected);
    CurveNode* const first = addExpression("n.a", "t*2");
    CurveNode* const second = addOfType("n.b", secondType, secondText.constData());
    editing->replace({first, second});
    QCOMPARE(editing->lineText(), expected);
    editing->replace({add("n.c")});
    QCOMPARE(editing->lineText(), QString());
}

void TestEditingSet::onlyCurvesWithKeysHaveAGraphToEdit()
{
    CurveNode* const spline = addOfType("n.a", splineCurve);
    CurveNode* const expression = addOfType("n.b", expressionCurve);
    CurveNode* const sum = addOfType("n.c", splinePlusExpressionCurve);
    editing->replace({spline, expression, sum});
    QCOMPARE(editing->editableGraphs(),
             (QList<SplineCurveGraph*>{spline->splineGraph(), sum->splineGraph()}));
}

QTEST_MAIN(TestEditingSet)
#include "test_editing_set.moc"
