#include "canvas/CanvasFunctionBase.h"
#include "canvas/SplineCurveGraph.h"
#include "canvas/ViewPort.h"
#include "core/EvaluationTime.h"
#include "core/KeyValue.h"
#include "core/ParseMessage.h"
#include "curves/CurveNodeBase.h"
#include "curves/CurveType.h"
#include "support/FailOnWarning.h"
#include "support/ParsedExpression.h"

#include <QImage>
#include <QPainter>
#include <QTest>

#include <cmath>
#include <limits>
#include <memory>

namespace {

double keyValue(const char* name)
{
    return readKeyValue(FunctionParserBase::instance()->getKey(name));
}

void writeKey(const char* name, const double& value)
{
    writeKeyValue(FunctionParserBase::instance()->getKey(name), value);
}

/// Claims to be of a type that its contents do not have.
class CurveOfType : public CurveNodeBase
{
public:
    CurveOfType(const int& claimed, FunctionFloatBase** hostSlot)
        : CurveNodeBase(nullptr, "c", "n", Qt::red, 0.0f, nullptr, hostSlot, -10.0f, 10.0f, true)
        , type(claimed)
    {}
    int curveType() override { return type; }

private:
    int type;
};

} // namespace

class TestCurveNodeBase : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void aCurveWithoutAnythingIsASpline();
    void anExpressionHidesTheSpline();
    void addFuncWithAnEmptySlotIsSplinePlusExpression();
    void nullSplineAndNullSlotAreASplineThatHoldsZero();
    void aCurveIsNewlyChanged();
    void castsByClassNameReachBothBases();

    void aSplineIsEvaluatedAndHeldBetweenItsLimits_data();
    void aSplineIsEvaluatedAndHeldBetweenItsLimits();
    void anExpressionIsEvaluatedAtTimeFrameAndRate();
    void anExpressionIsHeldBetweenItsLimits();
    void splinePlusExpressionIsTheirSum();
    void splinePlusExpressionWithAnEmptySlotIsTheSplineAlone();
    void evaluationRestoresTimeFrameAndRate();
    void anExpressionTypeWithAnEmptySlotIsZeroAndLeavesTimeAndFrameChanged();
    void aMixedTypeEvaluatesToZero();
    void notANumberPassesThroughEvaluation();

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

    void updatingClearsBothChangedFlags();
    void updatingDoesNothingWhileNothingChanged();
    void aCurveThatIsNotDrawnIsSampledWhenItBecomesActive();
    void drawingSamplesAnExpressionInFiveThousandSteps();
    void samplesAboveTheMaximumAndNotANumberDrawAtTheMaximum_data();
    void samplesAboveTheMaximumAndNotANumberDrawAtTheMaximum();
    void splinePlusExpressionWithAnEmptySlotDrawsNothing();
    void anInactiveCurveDrawsNothing();
    void antialiasingStaysOnAfterDrawing();

    void aDestroyedSplineIsNeverTouchedAgain();

private:
    std::unique_ptr<CurveNodeBase> makeCurve(const float& minimum, const float& maximum);
    void setExpression(const std::string& text);
    int paintedPixels();

    std::unique_ptr<SplineBase> spline;
    FunctionFloatBase* expression = nullptr;
    std::unique_ptr<CurveNodeBase> curve;
    ViewPort view;
};

void TestCurveNodeBase::init()
{
    failOnUnexpectedWarning();
    spline = std::make_unique<SplineBase>();
    curve = makeCurve(-10.0f, 10.0f);
    view = ViewPort();
    view.viewWidth = 100;
    view.viewHeight = 100;
    view.minX = 0.0;
    view.maxX = 10.0;
    view.minY = -20.0;
    view.maxY = 20.0;
    view.canvasDirty = false;
}

void TestCurveNodeBase::cleanup()
{
    curve.reset();
    spline.reset();
    delete expression;
    expression = nullptr;
}

std::unique_ptr<CurveNodeBase> TestCurveNodeBase::makeCurve(const float& minimum,
                                                            const float& maximum)
{
    return std::make_unique<CurveNodeBase>(nullptr, "c", "n", QColor(200, 100, 51), 4.0f,
                                           spline.get(), &expression, minimum, maximum, true);
}

void TestCurveNodeBase::setExpression(const std::string& text)
{
    ParseMessage message;
    curve->setExpression(ParsedExpression(text).tree.release(), message);
}

/// How many pixels of a black picture the curve paints over.
int TestCurveNodeBase::paintedPixels()
{
    QImage image(view.viewWidth, view.viewHeight, QImage::Format_RGB32);
    image.fill(Qt::black);
    QPainter painter(&image);
    curve->draw(&view, &painter);
    painter.end();
    int painted = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            painted += image.pixelColor(x, y) != QColor(Qt::black) ? 1 : 0;
        }
    }
    return painted;
}

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

void TestCurveNodeBase::aSplineIsEvaluatedAndHeldBetweenItsLimits_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<double>("expected");
    QTest::newRow("inside") << 3.0 << 3.0;
    QTest::newRow("above") << 11.0 << 10.0;
    QTest::newRow("below") << -11.0 << -10.0;
}

void TestCurveNodeBase::aSplineIsEvaluatedAndHeldBetweenItsLimits()
{
    QFETCH(double, value);
    spline->addPoint(0.0, value);
    QTEST(curve->evaluate(0.0), "expected");
}

void TestCurveNodeBase::anExpressionIsEvaluatedAtTimeFrameAndRate()
{
    curve = makeCurve(-1e9f, 1e9f);
    setExpression("t*1000000+f*1000+fps");
    QCOMPARE(curve->evaluate(2.0), 2020010.0);
}

void TestCurveNodeBase::anExpressionIsHeldBetweenItsLimits()
{
    setExpression("t");
    QCOMPARE(curve->evaluate(12.0), 10.0);
    QCOMPARE(curve->evaluate(-12.0), -10.0);
    QCOMPARE(curve->evaluate(3.0), 3.0);
}

void TestCurveNodeBase::splinePlusExpressionIsTheirSum()
{
    spline->addPoint(0.0, 2.0);
    setExpression("t+fps/10");
    curve->setAddFunc(true);
    QCOMPARE(curve->evaluate(3.0), 2.0 + 3.0 + 1.0);
    QCOMPARE(curve->evaluate(30.0), 10.0);
}

void TestCurveNodeBase::splinePlusExpressionWithAnEmptySlotIsTheSplineAlone()
{
    spline->addPoint(0.0, 2.0);
    curve->setAddFunc(true);
    QCOMPARE(curve->evaluate(3.0), 2.0);
}

void TestCurveNodeBase::evaluationRestoresTimeFrameAndRate()
{
    const EvaluationTime restore;
    writeKey("t", 5.0);
    writeKey("f", 6.0);
    writeKey("fps", 7.0);
    setExpression("t");
    curve->evaluate(2.0);
    curve->updateGraph(&view);
    QCOMPARE(keyValue("t"), 5.0);
    QCOMPARE(keyValue("f"), 6.0);
    QCOMPARE(keyValue("fps"), 7.0);
}

void TestCurveNodeBase::anExpressionTypeWithAnEmptySlotIsZeroAndLeavesTimeAndFrameChanged()
{
    const EvaluationTime restore;
    writeKey("t", 5.0);
    writeKey("f", 6.0);
    CurveOfType claims(expressionCurve, &expression);
    QCOMPARE(claims.evaluate(2.0), 0.0);
    QCOMPARE(keyValue("t"), 2.0);
    QCOMPARE(keyValue("f"), 20.0);
}

void TestCurveNodeBase::aMixedTypeEvaluatesToZero()
{
    CurveOfType claims(mixedCurves, &expression);
    QCOMPARE(claims.evaluate(2.0), 0.0);
}

void TestCurveNodeBase::notANumberPassesThroughEvaluation()
{
    setExpression("sqrt(-1)");
    QVERIFY(std::isnan(curve->evaluate(2.0)));
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
    connect(curve.get(), &CurveNodeBase::curveHasChanged, this,
            [&](QString& node, QString& name) { reports << node << name; });
    curve->setDotName("n.a.b");
    curve->reset();
    QCOMPARE(reports, (QStringList{"n", "a.b"}));
}

void TestCurveNodeBase::aHostMayDestroyTheCurveWhenItHearsOfTheReset()
{
    connect(curve.get(), &CurveNodeBase::curveHasChanged, this, [&] { curve.reset(); });
    CurveNodeBase* doomed = curve.get();
    doomed->reset();
    QVERIFY(!curve);
}

void TestCurveNodeBase::updatingClearsBothChangedFlags()
{
    spline->addPoint(0.0, 2.0);
    curve->updateGraph(&view);
    QVERIFY(!curve->hasChanged());
    QVERIFY(!spline->hasChanged());
    curve->splineChanged();
    QVERIFY(curve->hasChanged());
    curve->updateGraph(&view);
    curve->markChanged();
    QVERIFY(curve->hasChanged());
}

void TestCurveNodeBase::updatingDoesNothingWhileNothingChanged()
{
    spline->addPoint(1.0, 2.0);
    curve->updateGraph(&view);
    const QPolygon before = curve->splineGraph()->keyPixels;
    view.maxX = 20.0;
    curve->updateGraph(&view);
    QCOMPARE(curve->splineGraph()->keyPixels, before);
    view.canvasDirty = true;
    curve->updateGraph(&view);
    QVERIFY(curve->splineGraph()->keyPixels != before);
}

void TestCurveNodeBase::aCurveThatIsNotDrawnIsSampledWhenItBecomesActive()
{
    spline->addPoint(1.0, 2.0);
    spline->addPoint(9.0, 2.0);
    QCOMPARE(paintedPixels(), 0);
    QVERIFY(!curve->hasChanged());
    QVERIFY(!spline->hasChanged());
    curve->setActive(true);
    QVERIFY(paintedPixels() > 0);
}

void TestCurveNodeBase::drawingSamplesAnExpressionInFiveThousandSteps()
{
    // Every sample is counted by a variable that the expression reads.
    int samples = 0;
    double lastTime = -1.0;
    double counter = 0.0;
    FunctionParserBase::instance()->registerKey("counter", 3, &counter, [&] {
        ++samples;
        lastTime = keyValue("t");
    });
    setExpression("counter+t*0");
    curve->setActive(true);
    QVERIFY(paintedPixels() > 0);
    FunctionParserBase::instance()->unregisterKey("counter", &counter);
    QCOMPARE(samples, 5000);
    QCOMPARE(lastTime, 4999.0 * (10.0 / 5000.0)); // one step short of maxX
}

void TestCurveNodeBase::samplesAboveTheMaximumAndNotANumberDrawAtTheMaximum_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("above") << "1000";
    QTest::newRow("not a number") << "sqrt(-1)";
    QTest::newRow("infinite") << "1/0";
}

void TestCurveNodeBase::samplesAboveTheMaximumAndNotANumberDrawAtTheMaximum()
{
    QFETCH(QString, text);
    setExpression(text.toStdString());
    curve->setActive(true);
    QImage image(100, 100, QImage::Format_RGB32);
    image.fill(Qt::black);
    QPainter painter(&image);
    curve->draw(&view, &painter);
    painter.end();
    // The maximum of 10 stands a quarter below the top of the view.
    const auto isPainted = [&](const int& y) {
        return image.pixelColor(50, y) != QColor(Qt::black);
    };
    QVERIFY(isPainted(24) || isPainted(25) || isPainted(26));
    QVERIFY(!isPainted(20) && !isPainted(30) && !isPainted(0) && !isPainted(99));
}

void TestCurveNodeBase::splinePlusExpressionWithAnEmptySlotDrawsNothing()
{
    spline->addPoint(1.0, 2.0);
    spline->addPoint(9.0, 2.0);
    curve->setActive(true);
    QVERIFY(paintedPixels() > 0);
    curve->setAddFunc(true);
    QCOMPARE(paintedPixels(), 0);
    setExpression("1");
    QVERIFY(paintedPixels() > 0);
}

void TestCurveNodeBase::anInactiveCurveDrawsNothing()
{
    setExpression("1");
    QCOMPARE(paintedPixels(), 0);
    curve->setActive(true);
    QVERIFY(paintedPixels() > 0);
    curve->setActive(false);
    QCOMPARE(paintedPixels(), 0);
}

void TestCurveNodeBase::antialiasingStaysOnAfterDrawing()
{
    QImage image(10, 10, QImage::Format_RGB32);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing, false);
    curve->draw(&view, &painter);
    QVERIFY(painter.renderHints().testFlag(QPainter::Antialiasing));
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
    QVERIFY(curve->splineGraph()->selection().commandPoints().isEmpty());
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
