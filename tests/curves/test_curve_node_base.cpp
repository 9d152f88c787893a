#include "core/ParseMessage.h"
#include "curves/CurveNodeBaseTest.h"
#include "files/CurveType.h"
#include "graphs/SplineCurveGraph.h"
#include "support/ParsedExpression.h"

#include <QTest>

/// Lets a test connect to the signal, which is protected.
struct HeardCurve : CurveNodeBase
{
    using CurveNodeBase::curveHasChanged;
};

class TestCurveNodeBase : public CurveNodeBaseTest
{
    Q_OBJECT

private slots:
    void init() { openCurve(); }
    void cleanup() { closeCurve(); }

    void aCurveWithoutAnythingIsASpline();
    void anExpressionHidesTheSpline();
    void addFuncWithAnEmptySlotIsSplinePlusExpression();
    void nullSplineAndNullSlotAreASplineThatHoldsZero();
    void aCurveIsNewlyChanged();
    void castsByClassNameReachBothBases();

    void theDimColourIsTheIntegerMeanWithTheBackground();
    void aCurveKeepsAnInvalidColour();
    void settingActiveReachesTheSplineGraph();

    void removingAnExpressionWithFalseOnlySetsChanged();
    void removingTheExpressionOfSplinePlusExpressionGivesASpline();
    void settingAnExpressionDeletesTheOldOne();
    void settingTheStoredExpressionAgainKeepsIt();
    void settingNullEmptiesTheSlot();
    void withoutASlotAnExpressionIsFreed();

    void aNewDottedNameIsSplitAtItsLastPoint();
    void aNewDottedNameWithoutAPointGivesAPathEqualToTheName();
    void resetEmptiesSplineExpressionAndSelection();
    void resetReportsNodeAndTheWholeRestOfTheName();
    void aHostMayDestroyTheCurveWhenItHearsOfTheReset();

    void aDestroyedSplineIsNeverTouchedAgain();
};

void TestCurveNodeBase::aCurveWithoutAnythingIsASpline()
{
    QCOMPARE(curve->curveType(), int(splineCurve));
}

void TestCurveNodeBase::anExpressionHidesTheSpline()
{
    spline->addPoint(0.0, 1.0);
    setExpression("5");
    QCOMPARE(curve->curveType(), int(expressionCurve));
    QCOMPARE(curve->evaluate(0.0), 5.0);
}

void TestCurveNodeBase::addFuncWithAnEmptySlotIsSplinePlusExpression()
{
    curve->setAddFunc(true);
    QCOMPARE(curve->curveType(), int(splinePlusExpressionCurve));
}

void TestCurveNodeBase::nullSplineAndNullSlotAreASplineThatHoldsZero()
{
    CurveNodeBase bare(nullptr, "c", "n", Qt::red, 0.0f, nullptr, nullptr, -1.0f, 1.0f, true);
    ParseMessage message;
    QCOMPARE(bare.curveType(), int(splineCurve));
    QCOMPARE(bare.evaluate(1.0), 0.0);
    QVERIFY(bare.splines().isEmpty());
    QVERIFY(!bare.expression());
    bare.setAddFunc(true);
    bare.removeExpression(true);
    bare.setExpression(nullptr, message);
    bare.reset();
    bare.updateGraph(&view);
    bare.updateGraph(nullptr);
}

void TestCurveNodeBase::aCurveIsNewlyChanged()
{
    QVERIFY(curve->hasChanged());
    QCOMPARE(curve->curveValue(), 4.0f);
    QCOMPARE(curve->minimumValue(), -10.0f);
    QCOMPARE(curve->maximumValue(), 10.0f);
    QVERIFY(curve->notifiesHost());
}

void TestCurveNodeBase::castsByClassNameReachBothBases()
{
    QCOMPARE(curve->qt_metacast("CurveNodeBase"), static_cast<void*>(curve.get()));
    QCOMPARE(curve->qt_metacast("CurveNode"),
             static_cast<void*>(static_cast<CurveNode*>(curve.get())));
}

void TestCurveNodeBase::theDimColourIsTheIntegerMeanWithTheBackground()
{
    QCOMPARE(curve->curveColor(), QColor(200, 100, 51));
    QCOMPARE(curve->splineGraph()->dimColor(), QColor(100, 50, 25));
    curve->setColor(QColor(200, 100, 51, 10), QColor(101, 255, 0));
    QCOMPARE(curve->splineGraph()->dimColor(), QColor(150, 177, 25, 255));
}

void TestCurveNodeBase::aCurveKeepsAnInvalidColour()
{
    curve->setColor(QColor(), Qt::black);
    QVERIFY(!curve->curveColor().isValid());
}

void TestCurveNodeBase::settingActiveReachesTheSplineGraph()
{
    QVERIFY(!curve->splineGraph()->isActive);
    curve->setActive(true);
    QVERIFY(curve->splineGraph()->isActive);
}

void TestCurveNodeBase::removingAnExpressionWithFalseOnlySetsChanged()
{
    setExpression("5");
    curve->setAddFunc(true);
    curve->updateGraph(&view);
    curve->removeExpression(false);
    QVERIFY(curve->hasChanged());
    QVERIFY(expression);
    QVERIFY(spline->isAddFunc());
}

void TestCurveNodeBase::removingTheExpressionOfSplinePlusExpressionGivesASpline()
{
    setExpression("5");
    curve->setAddFunc(true);
    curve->removeExpression(true);
    QVERIFY(!expression);
    QCOMPARE(curve->curveType(), int(splineCurve));
}

void TestCurveNodeBase::settingAnExpressionDeletesTheOldOne()
{
    setExpression("5");
    setExpression("6");
    QCOMPARE(QString::fromStdString(expression->getString()), QString("6"));
}

void TestCurveNodeBase::settingTheStoredExpressionAgainKeepsIt()
{
    ParseMessage message;
    setExpression("5");
    curve->setExpression(expression, message);
    QCOMPARE(curve->evaluate(0.0), 5.0);
}

void TestCurveNodeBase::settingNullEmptiesTheSlot()
{
    ParseMessage message;
    setExpression("5");
    curve->updateGraph(&view);
    curve->setExpression(nullptr, message);
    QVERIFY(!expression);
    QVERIFY(curve->hasChanged());
}

void TestCurveNodeBase::withoutASlotAnExpressionIsFreed()
{
    CurveNodeBase bare(nullptr, "c", "n", Qt::red, 0.0f, spline.get(), nullptr, 0.0f, 1.0f, true);
    ParseMessage message;
    bare.setExpression(ParsedExpression("5").tree.release(), message);
    QVERIFY(!bare.expression());
}

void TestCurveNodeBase::aNewDottedNameIsSplitAtItsLastPoint()
{
    curve->setDotName("m.a.b");
    QCOMPARE(curve->path(), QString("m.a"));
    QCOMPARE(curve->name(), QString("b"));
    QCOMPARE(curve->findNode("m.a.b"), curve.get());
    QVERIFY(!curve->findNode("n.c"));
}

void TestCurveNodeBase::aNewDottedNameWithoutAPointGivesAPathEqualToTheName()
{
    curve->setDotName("solo");
    QCOMPARE(curve->path(), QString("solo"));
    QCOMPARE(curve->dotName(), QString("solo.solo"));
}

void TestCurveNodeBase::resetEmptiesSplineExpressionAndSelection()
{
    spline->addPoint(0.0, 2.0);
    spline->setFirstNodeType(SplineBase::loop);
    curve->splineGraph()->selection().selectSinglePoint(spline->at(0));
    setExpression("5");
    curve->setAddFunc(true);
    curve->updateGraph(&view);
    curve->reset();
    QVERIFY(!expression);
    QVERIFY(!spline->isAddFunc());
    QCOMPARE(spline->getControlPointsNumber(), 0u);
    QCOMPARE(spline->firstNodeType(), SplineBase::constant);
    QVERIFY(!curve->splineGraph()->selection().currentPoint);
    QVERIFY(curve->splineGraph()->selection().selectedPoints.isEmpty());
    QVERIFY(curve->hasChanged());
}

void TestCurveNodeBase::resetReportsNodeAndTheWholeRestOfTheName()
{
    QStringList reports;
    connect(curve.get(), &HeardCurve::curveHasChanged, this,
            [&](QString& node, QString& name) { reports << node << name; });
    curve->setDotName("n.a.b");
    curve->reset();
    QCOMPARE(reports, (QStringList{"n", "a.b"}));
}

void TestCurveNodeBase::aHostMayDestroyTheCurveWhenItHearsOfTheReset()
{
    connect(curve.get(), &HeardCurve::curveHasChanged, this, [&] { curve.reset(); });
    CurveNodeBase* doomed = curve.get();
    doomed->reset();
    QVERIFY(!curve);
}

void TestCurveNodeBase::aDestroyedSplineIsNeverTouchedAgain()
{
    spline->addPoint(1.0, 2.0);
    spline->addPoint(9.0, 2.0);
    curve->splineGraph()->selection().selectSinglePoint(spline->at(0));
    curve->setActive(true);
    QVERIFY(paintedPixels() > 0);
    setExpression("1");
    FunctionFloatBase* kept = expression;
    spline.reset();

    QVERIFY(!curve->spline());
    QVERIFY(!curve->expression());
    QVERIFY(!curve->expressionSlot());
    QVERIFY(curve->splines().isEmpty());
    QVERIFY(curve->splineGraph()->selection().commandKeys().isEmpty());
    QCOMPARE(curve->curveType(), int(splineCurve));
    QCOMPARE(curve->evaluate(1.0), 0.0);
    curve->markChanged();
    QCOMPARE(paintedPixels(), 0);
    setExpression("2");
    curve->setAddFunc(true);
    curve->reset();
    QCOMPARE(expression, kept); // the slot is left alone
}

QTEST_MAIN(TestCurveNodeBase)
#include "test_curve_node_base.moc"
