#include "canvas/CanvasVisit.h"
#include "curves/CurveHold.h"
#include "support/CanvasTest.h"
#include "support/ParserVariable.h"

#include <QPainter>
#include <QPointer>
#include <QTest>

#include <functional>

/// How long a curve object lives that has left the canvas.
/// Lets a test connect to the signal, which is protected.
struct HeardCurve : CurveNodeBase
{
    using CurveNodeBase::curveHasChanged;
};

class TestUnlinkedCurves : public CanvasTest
{
    Q_OBJECT

private slots:
    void init() { openCanvas(); }
    void cleanup() { closeCanvas(); }

    void aCurveThatNobodyNamesEndsAsItLeaves();
    void aHeldCurveLivesUntilTheLastHoldEnds();
    void copiesOfAHoldCountEach();
    void aHoldMayOutliveTheCurveAndTheCanvas();
    void aHeldCurveThatIsLinkedStaysWhenTheHoldEnds();
    void aHeldCurveThatIsPutBackIsFreedWhenItLeavesAgain();
    void pixelsGoAsTheCurveLeavesAndComeBackWithIt();
    void aCurveOfAnUnlinkedGroupKeepsTheGroupAlive();
    void curvesOfAnUnlinkedGroupLiveWhileTheyAreBeingEdited();
    void nothingIsFreedDuringAVisit();
    void theLastOfSeveralVisitsFrees();
    void aVisitMayOutliveTheCanvas();
    void aCurveThatIsGoneCannotBePutBack();
    void anObjectOfACallerIsLeftToTheCaller();
    void allCurvesOfTheNameAreFreedAlike();
    void aListenerToTheEndOfOneMayRemoveTheNext();
    void aRefreshFunctionMayRemoveTheCurveThatIsBeingPainted_data();
    void aRefreshFunctionMayRemoveTheCurveThatIsBeingPainted();
    void aRefreshFunctionMayAddCurvesDuringAPaint();
    void aRefreshFunctionMayRemoveTheCurveThatIsBeingEvaluated();
    void aListenerMayRemoveAGroupThatIsBeingReset();

private:
    /// Shows the widget and samples the curves, as its paint does.
    void paint()
    {
        widget->show();
        QImage image(500, 400, QImage::Format_RGB32);
        QPainter painter(&image);
        canvas->paint(&painter);
    }

    QPointer<CurveNodeBase> addCurve(const QString& name)
    {
        return dynamic_cast<CurveNodeBase*>(add(name));
    }

    static int pixelsOf(CurveNode* curve)
    {
        const SplineCurveGraph& graph = *curve->splineGraph();
        return static_cast<int>(graph.keyPixels.capacity() + graph.curvePixels.capacity() +
                                graph.tailPixels.capacity() + graph.rawPixels.capacity());
    }
};

namespace {

/// A variable whose refresh function does what the test says, once.
class Intruder
{
public:
    explicit Intruder(std::function<void()> act)
        : action(std::move(act))
    {
        parser()->registerKey("intruder", 3, &value, [this] {
            if (const auto once = std::exchange(action, nullptr)) {
                once();
            }
        });
    }
    ~Intruder() { parser()->unregisterKey("intruder", &value); }
    Intruder(const Intruder&) = delete;
    Intruder& operator=(const Intruder&) = delete;

    bool hasActed() const { return !action; }

private:
    std::function<void()> action;
    double value = 2.0;
};

} // namespace

void TestUnlinkedCurves::aCurveThatNobodyNamesEndsAsItLeaves()
{
    const auto curve = addCurve("n.a");
    const auto inGroup = addCurve("m.a");
    canvas->removeCanvasCurve("n.a");
    QVERIFY(!curve);
    canvas->removeCanvasCurve("m");
    QVERIFY(!inGroup);
}

void TestUnlinkedCurves::aHeldCurveLivesUntilTheLastHoldEnds()
{
    const auto curve = addCurve("n.a");
    CurveHold first(curve);
    CurveHold second(curve);
    canvas->removeCanvasCurve("n.a");
    QVERIFY(curve);
    first = CurveHold();
    QVERIFY(curve);
    QCOMPARE(second.get(), static_cast<CurveNode*>(curve.data()));
    second = CurveHold();
    QVERIFY(!curve);
}

void TestUnlinkedCurves::copiesOfAHoldCountEach()
{
    const auto curve = addCurve("n.a");
    auto first = std::make_unique<CurveHold>(curve);
    CurveHold copy(*first);
    CurveHold moved(std::move(*first));
    first.reset();
    canvas->removeCanvasCurve("n.a");
    moved = CurveHold(nullptr);
    QVERIFY(curve);
    const CurveHold& itself = copy;
    copy = itself;
    QVERIFY(curve);
    copy = CurveHold(add("n.b"));
    QVERIFY(!curve);
}

void TestUnlinkedCurves::aHoldMayOutliveTheCurveAndTheCanvas()
{
    const auto curve = addCurve("n.a");
    const CurveHold deleted(curve);
    const CurveHold kept(add("n.b"));
    delete curve.data();
    QVERIFY(!deleted.get());
    canvas->removeCanvasCurve("n.b");
    QVERIFY(kept.get());
    widget.reset();
    QVERIFY(!kept.get());
}

void TestUnlinkedCurves::aHeldCurveThatIsLinkedStaysWhenTheHoldEnds()
{
    const auto curve = addCurve("n.a");
    {
        const CurveHold hold(curve);
    }
    QCOMPARE(canvas->findCurve("n.a"), static_cast<CurveNode*>(curve.data()));
}

void TestUnlinkedCurves::aHeldCurveThatIsPutBackIsFreedWhenItLeavesAgain()
{
    const auto curve = addCurve("n.a");
    {
        const CurveHold hold(curve);
        canvas->removeCanvasCurve("n.a");
        canvas->attachCanvasCurve(hold.get());
    }
    QVERIFY(curve);
    canvas->removeCanvasCurve("n.a");
    QVERIFY(!curve);
}

void TestUnlinkedCurves::pixelsGoAsTheCurveLeavesAndComeBackWithIt()
{
    CurveNode* const curve = add("n.a");
    const CurveHold kept(curve);
    hosts["n.a"]->spline.addPoint(0.0, 1.0);
    hosts["n.a"]->spline.addPoint(1.0, 2.0);
    canvas->selectCurves({"n.a"});
    paint();
    const QPolygon drawn = curve->splineGraph()->curvePixels;
    QVERIFY(!drawn.isEmpty());
    canvas->removeCanvasCurve("n.a");
    QCOMPARE(pixelsOf(curve), 0);
    canvas->attachCanvasCurve(curve);
    canvas->selectCurves({"n.a"});
    paint();
    QCOMPARE(curve->splineGraph()->curvePixels, drawn);
}

void TestUnlinkedCurves::aCurveOfAnUnlinkedGroupKeepsTheGroupAlive()
{
    const auto held = addCurve("n.a");
    const auto sibling = addCurve("n.b");
    CurveHold hold(held);
    canvas->removeCanvasCurve("n");
    QVERIFY(held);
    QVERIFY(sibling);
    QCOMPARE(held->parentNode()->dotName(), QString("n"));
    hold = CurveHold();
    QVERIFY(!held);
    QVERIFY(!sibling);
}

void TestUnlinkedCurves::curvesOfAnUnlinkedGroupLiveWhileTheyAreBeingEdited()
{
    const auto curve = addCurve("n.a");
    canvas->selectCurves({"n.a"});
    canvas->removeCanvasCurve("n");
    QCOMPARE(canvas->editingCurves(), QList<CurveNode*>{curve});
    canvas->updateCanvas();
    QVERIFY(curve);
    canvas->selectCurves({});
    QVERIFY(!curve);
}

void TestUnlinkedCurves::nothingIsFreedDuringAVisit()
{
    const auto curve = addCurve("n.a");
    {
        const CanvasVisit visit(canvas);
        canvas->removeCanvasCurve("n.a");
        QVERIFY(curve);
        QVERIFY(!canvas->findCurve("n.a"));
    }
    QVERIFY(!curve);
    const CanvasVisit nowhere(nullptr);
}

void TestUnlinkedCurves::theLastOfSeveralVisitsFrees()
{
    const auto curve = addCurve("n.a");
    auto outer = std::make_unique<CanvasVisit>(canvas);
    auto inner = std::make_unique<CanvasVisit>(canvas);
    canvas->removeCanvasCurve("n.a");
    inner.reset();
    QVERIFY(curve);
    outer.reset();
    QVERIFY(!curve);
}

void TestUnlinkedCurves::aVisitMayOutliveTheCanvas()
{
    const auto curve = addCurve("n.a");
    const auto linked = addCurve("n.b");
    const CanvasVisit visit(canvas);
    canvas->removeCanvasCurve("n.a");
    widget.reset();
    QVERIFY(!curve);
    QVERIFY(!linked);
}

void TestUnlinkedCurves::aCurveThatIsGoneCannotBePutBack()
{
    CurveNode* const curve = add("n.a");
    canvas->removeCanvasCurve("n.a");
    QVERIFY(!canvas->attachCanvasCurve(curve)); // known by its address alone
    QVERIFY(!canvas->findCurve("n.a"));
}

void TestUnlinkedCurves::anObjectOfACallerIsLeftToTheCaller()
{
    add("n.a");
    const QPointer<CurveNodeBase> own =
        new CurveNodeBase(canvas, "a", "n", Qt::red, 0.0f, nullptr, nullptr, -1.0f, 1.0f, true);
    canvas->removeCanvasCurve("n.a");
    QVERIFY(own);
    QCOMPARE(canvas->attachCanvasCurve(own), static_cast<CurveNode*>(own.data()));
    canvas->removeCanvasCurve("n.a");
    QVERIFY(!own);
}

void TestUnlinkedCurves::allCurvesOfTheNameAreFreedAlike()
{
    const auto first = addCurve("n.a");
    const auto second = addCurve("m.a");
    second->setDotName("n.a");
    canvas->removeCanvasCurve("n.a");
    QVERIFY(!first);
    QVERIFY(!second);
    QVERIFY(canvas->findCurve("m"));
}

void TestUnlinkedCurves::aListenerToTheEndOfOneMayRemoveTheNext()
{
    const auto first = addCurve("n.a");
    const auto second = addCurve("n.b");
    connect(first, &QObject::destroyed, this, [this] { canvas->removeCanvasCurve("n.b"); });
    canvas->removeCanvasCurve("n.a");
    QVERIFY(!first);
    QVERIFY(!second);
}

void TestUnlinkedCurves::aRefreshFunctionMayRemoveTheCurveThatIsBeingPainted_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("removed");
    QTest::newRow("an expression, itself") << int(expressionCurve) << "n.a";
    QTest::newRow("a sum, itself") << int(splinePlusExpressionCurve) << "n.a";
    QTest::newRow("an expression, its group") << int(expressionCurve) << "n";
    QTest::newRow("a sum, its group") << int(splinePlusExpressionCurve) << "n";
    QTest::newRow("the one before") << int(expressionCurve) << "m.a";
    QTest::newRow("the one behind") << int(expressionCurve) << "n.b";
    QTest::newRow("all of them") << int(expressionCurve) << "";
}

void TestUnlinkedCurves::aRefreshFunctionMayRemoveTheCurveThatIsBeingPainted()
{
    QFETCH(int, type);
    QFETCH(QString, removed);
    Intruder intruder([&] {
        if (removed.isEmpty()) {
            canvas->clearCurves();
        } else {
            canvas->removeCanvasCurve(removed);
        }
    });
    add("m.a");
    const QPointer<CurveNodeBase> curve =
        dynamic_cast<CurveNodeBase*>(addOfType("n.a", type, "intruder*2"));
    add("n.b");
    hosts["n.a"]->spline.addPoint(0.0, 1.0);
    hosts["n.a"]->spline.addPoint(1.0, 2.0);
    canvas->selectCurves({"m", "n"});
    paint();
    QVERIFY(intruder.hasActed());
    canvas->selectCurves({});
    QVERIFY(removed == "m.a" || removed == "n.b" ? !curve.isNull() : curve.isNull());
    paint();
}

void TestUnlinkedCurves::aRefreshFunctionMayAddCurvesDuringAPaint()
{
    Intruder intruder([&] {
        for (int i = 0; i < 100; ++i) {
            add(QStringLiteral("n.%1").arg(i));
            add(QStringLiteral("top%1").arg(i));
        }
    });
    addOfType("n.a", expressionCurve, "intruder*2");
    add("n.b");
    canvas->selectCurves({"n"});
    paint();
    QVERIFY(intruder.hasActed());
    QVERIFY(canvas->findCurve("top99"));
    paint();
}

void TestUnlinkedCurves::aRefreshFunctionMayRemoveTheCurveThatIsBeingEvaluated()
{
    Intruder intruder([&] { canvas->removeCanvasCurve("n.a"); });
    const QPointer<CurveNodeBase> curve =
        dynamic_cast<CurveNodeBase*>(addOfType("n.a", expressionCurve, "intruder*2"));
    QCOMPARE(curve->evaluate(1.0), 4.0);
    QVERIFY(intruder.hasActed());
    QVERIFY(!curve);
}

void TestUnlinkedCurves::aListenerMayRemoveAGroupThatIsBeingReset()
{
    const auto first = addCurve("n.a");
    const auto second = addCurve("n.b");
    connect(first, &HeardCurve::curveHasChanged, this, [this] { canvas->removeCanvasCurve("n"); });
    hosts["n.b"]->spline.addPoint(0.0, 1.0);
    canvas->findCurve("n")->reset();
    QVERIFY(!first);
    QVERIFY(!second);
    QCOMPARE(hosts["n.b"]->spline.getControlPointsNumber(), 0u);
}

QTEST_MAIN(TestUnlinkedCurves)
#include "test_unlinked_curves.moc"
