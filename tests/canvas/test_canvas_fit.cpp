#include "canvas/CanvasFunctionBase.h"
#include "canvas/FunctionEditor.h"
#include "core/FunctionFloatBase.h"
#include "core/FunctionParserBase.h"
#include "core/ParseMessage.h"
#include "curves/CurveNode.h"
#include "graphs/SplineCurveGraph.h"
#include "support/FailOnWarning.h"

#include <QTest>

#include <map>
#include <memory>

namespace {

struct Lent
{
    SplineBase spline;
    FunctionFloatBase* expression = nullptr;
    ~Lent() { delete expression; }
};

} // namespace

class TestCanvasFit : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        failOnUnexpectedWarning();
        widget = std::make_unique<FunctionEditor>(nullptr, nullptr);
        widget->minX = 0.0;
        widget->maxX = 10.0;
        x1 = 0.0;
        x2 = 10.0;
        y1 = 0.0;
        y2 = 1.0;
    }

    void cleanup()
    {
        widget.reset();
        lent.clear();
    }

    void boundsAreTheExtentsOfAllKeysOfTheSet()
    {
        addCurve("a.x", {{1.0, 5.0}, {3.0, -2.0}});
        addCurve("a.empty", {});
        addCurve("a.y", {{-4.0, 0.0}, {2.0, 7.0}});
        edit({"a.x", "a.empty", "a.y"});
        QVERIFY(widget->canvas().curvesBounds(x1, x2, y1, y2));
        QCOMPARE(x1, -4.0);
        QCOMPARE(x2, 3.0);
        QCOMPARE(y1, -2.0);
        QCOMPARE(y2, 7.0);
    }

    void aSetOfExpressionsOrOfMixedTypesHasNoBounds()
    {
        addCurve("a.x", {{1.0, 5.0}, {3.0, -2.0}});
        addCurve("a.e", {{1.0, 5.0}, {3.0, -2.0}}, "t");
        for (const QStringList& names : {QStringList{"a.e"}, QStringList{"a.x", "a.e"}}) {
            widget->canvas().selectCurves(names);
            QVERIFY(!widget->canvas().curvesBounds(x1, x2, y1, y2));
            QCOMPARE(x1, 0.0);
            QCOMPARE(y2, 1.0);
        }
    }

    void keysOfASplinePlusExpressionHaveBounds()
    {
        addCurve("a.x", {{1.0, 5.0}, {3.0, -2.0}}, "t");
        lent["a.x"]->spline.setAddFunc(true);
        edit({"a.x"});
        QVERIFY(widget->canvas().curvesBounds(x1, x2, y1, y2));
        QCOMPARE(x2, 3.0);
    }

    void aSingleKeyMovesTheRangeOntoItself()
    {
        addCurve("a.x", {{20.0, 5.0}});
        addCurve("a.empty", {});
        edit({"a.x", "a.empty"});
        QVERIFY(widget->canvas().curvesBounds(x1, x2, y1, y2));
        QCOMPARE(x1, 15.0);
        QCOMPARE(x2, 25.0);
        QCOMPARE(y1, 4.5);
        QCOMPARE(y2, 5.5);
    }

    void twoCurvesOfOneKeyEachHaveExtents()
    {
        addCurve("a.x", {{20.0, 5.0}});
        addCurve("a.y", {{30.0, 6.0}});
        edit({"a.x", "a.y"});
        QVERIFY(widget->canvas().curvesBounds(x1, x2, y1, y2));
        QCOMPARE(x1, 20.0);
        QCOMPARE(x2, 30.0);
    }

    void curvesWithoutAnyKeyHaveNoBounds()
    {
        addCurve("a.x", {});
        edit({"a.x"});
        QVERIFY(!widget->canvas().curvesBounds(x1, x2, y1, y2));
        QCOMPARE(x2, 10.0);
    }

    void aDestroyedSplineHasNoBounds()
    {
        addCurve("a.x", {{1.0, 5.0}, {3.0, -2.0}});
        edit({"a.x"});
        select("a.x", {0, 1});
        lent.erase("a.x");
        QVERIFY(!widget->canvas().curvesBounds(x1, x2, y1, y2));
        QVERIFY(widget->canvas().selectionBounds(x1, x2, y1, y2));
        QCOMPARE(x2, 10.0);
    }

    void selectionBoundsTakeTheSelectedKeysAndAnswerWhetherThereAreNone()
    {
        addCurve("a.x", {{1.0, 5.0}, {3.0, -2.0}, {9.0, 9.0}});
        edit({"a.x"});
        QVERIFY(widget->canvas().selectionBounds(x1, x2, y1, y2));
        QCOMPARE(x2, 10.0);
        select("a.x", {0, 1});
        QVERIFY(!widget->canvas().selectionBounds(x1, x2, y1, y2));
        QCOMPARE(x1, 1.0);
        QCOMPARE(x2, 3.0);
        QCOMPARE(y1, -2.0);
        QCOMPARE(y2, 5.0);
    }

    void oneSingleSelectionLeavesOutTheCurvesBesideIt()
    {
        addCurve("a.x", {{1.0, 5.0}, {3.0, -2.0}, {9.0, 9.0}});
        addCurve("a.y", {{20.0, 5.0}, {21.0, 5.0}});
        edit({"a.x", "a.y"});
        select("a.x", {0, 1});
        select("a.y", {0});
        QVERIFY(!widget->canvas().selectionBounds(x1, x2, y1, y2));
        QCOMPARE(x1, 15.0);
        QCOMPARE(x2, 25.0);
        QCOMPARE(y1, 4.5);
        QCOMPARE(y2, 5.5);
    }

    void twoSingleSelectionsHaveExtents()
    {
        addCurve("a.x", {{1.0, 5.0}, {3.0, -2.0}, {9.0, 9.0}});
        addCurve("a.y", {{20.0, 5.0}, {21.0, 5.0}});
        edit({"a.x", "a.y"});
        select("a.x", {2});
        select("a.y", {0});
        QVERIFY(!widget->canvas().selectionBounds(x1, x2, y1, y2));
        QCOMPARE(x1, 9.0);
        QCOMPARE(x2, 20.0);
        QCOMPARE(y1, 5.0);
        QCOMPARE(y2, 9.0);
    }

    void keysThatTheirHostFreedHaveNoBounds()
    {
        addCurve("a.x", {{1.0, 5.0}, {3.0, -2.0}, {9.0, 9.0}});
        edit({"a.x"});
        select("a.x", {0, 1, 2});
        SplineBase& spline = lent["a.x"]->spline;
        PointInfo* freed = spline.at(2);
        spline.remove(freed);
        delete freed;
        QVERIFY(!widget->canvas().selectionBounds(x1, x2, y1, y2));
        QCOMPARE(x2, 3.0);
        QCOMPARE(y2, 5.0);
        spline.removeAllControlPoints();
        QVERIFY(widget->canvas().selectionBounds(x1, x2, y1, y2));
        widget->completeSelV();
        QCOMPARE(widget->maxY, 1.0);
    }

    void fittingAnEmptySetDoesNothing()
    {
        widget->newMinX = 77.0;
        widget->completeH();
        widget->completeV();
        widget->completeSelH();
        widget->completeSelV();
        QCOMPARE(widget->newMinX, 77.0);
        QCOMPARE(widget->minX, 0.0);
    }

    void fittingTakesTheBoundsAndATenthOfMargin()
    {
        addCurve("a.x", {{100.0, 20.0}, {200.0, 40.0}});
        edit({"a.x"});
        widget->completeH();
        QCOMPARE(widget->minX, 90.0);
        QCOMPARE(widget->maxX, 210.0);
        QCOMPARE(widget->minY, -1.0);
        widget->completeV();
        QCOMPARE(widget->minY, 18.0);
        QCOMPARE(widget->maxY, 42.0);
        QCOMPARE(widget->minX, 90.0);
    }

    void fittingToASingleKeyCentresItAndWidensByAFifth()
    {
        addCurve("a.x", {{100.0, 20.0}});
        edit({"a.x"});
        widget->completeH();
        widget->completeV();
        QCOMPARE(widget->minX, 94.0);
        QCOMPARE(widget->maxX, 106.0);
        QCOMPARE(widget->minY, 18.8);
        QCOMPARE(widget->maxY, 21.2);
    }

    void fittingToTwoKeysOfOneTimeIsRefused()
    {
        addCurve("a.x", {{5.0, 1.0}});
        addCurve("a.y", {{5.0, 2.0}});
        edit({"a.x", "a.y"});
        widget->completeH();
        QCOMPARE(widget->minX, 0.0);
        QCOMPARE(widget->maxX, 10.0);
        widget->completeV();
        QCOMPARE(widget->minY, 0.9);
        QCOMPARE(widget->maxY, 2.1);
    }

    void fittingWithoutKeysLeavesTheViewAlone()
    {
        addCurve("a.x", {});
        edit({"a.x"});
        widget->completeH();
        widget->completeV();
        QCOMPARE(widget->minX, 0.0);
        QCOMPARE(widget->maxX, 10.0);
        QCOMPARE(widget->maxY, 1.0);
    }

    void fittingToAnEmptySelectionWidensAcrossAndNotUp()
    {
        addCurve("a.x", {{1.0, 5.0}, {3.0, -2.0}});
        edit({"a.x"});
        widget->completeSelH();
        QCOMPARE(widget->minX, -1.0);
        QCOMPARE(widget->maxX, 11.0);
        widget->completeSelV();
        QCOMPARE(widget->minY, -1.0);
        QCOMPARE(widget->maxY, 1.0);
        widget->completeSelH();
        QCOMPARE(widget->minX, -2.2);
        QCOMPARE(widget->maxX, 12.2);
    }

    void valuesThatFillTheViewGetNoMargin()
    {
        addCurve("a.x", {{0.0, -1.0}, {10.0, 1.0}});
        edit({"a.x"});
        widget->completeV();
        QCOMPARE(widget->minY, -1.0);
        QCOMPARE(widget->maxY, 1.0);
        widget->completeH();
        QCOMPARE(widget->minX, -1.0);
        QCOMPARE(widget->maxX, 11.0);
    }

    void keysFromTheLeftEdgeToTheRightOneOfAnInvertedViewGetNoMargin()
    {
        addCurve("a.x", {{0.0, -1.0}, {10.0, 1.0}});
        edit({"a.x"});
        select("a.x", {0, 1});
        for (void (FunctionEditor::*const fit)() :
             {&FunctionEditor::completeH, &FunctionEditor::completeSelH}) {
            widget->minX = 10.0;
            widget->maxX = 0.0;
            (widget.get()->*fit)();
            QCOMPARE(widget->minX, 0.0);
            QCOMPARE(widget->maxX, 10.0);
        }
    }

    void fittingToTheSelectionTakesTheSelectedKeys()
    {
        addCurve("a.x", {{100.0, 20.0}, {200.0, 40.0}, {900.0, 900.0}});
        edit({"a.x"});
        select("a.x", {0, 1});
        widget->completeSelH();
        widget->completeSelV();
        QCOMPARE(widget->minX, 90.0);
        QCOMPARE(widget->maxX, 210.0);
        QCOMPARE(widget->minY, 18.0);
        QCOMPARE(widget->maxY, 42.0);
    }

    void keysThatAreNotFiniteLeaveTheViewAlone()
    {
        addCurve("a.x", {{0.0, qInf()}, {qInf(), 1.0}});
        edit({"a.x"});
        widget->completeH();
        widget->completeV();
        QCOMPARE(widget->maxX, 10.0);
        QCOMPARE(widget->maxY, 1.0);
        QVERIFY(!widget->rectActive);
    }

private:
    void addCurve(const QString& name, const QList<QPair<double, double>>& keys,
                  const char* expression = nullptr)
    {
        auto& curve = lent[name];
        curve = std::make_unique<Lent>();
        for (const auto& key : keys) {
            curve->spline.addPoint(key.first, key.second);
        }
        if (expression) {
            ParseMessage message;
            curve->expression =
                FunctionParserBase::instance()->parseString(expression, message, false);
        }
        widget->canvas().addCanvasCurve(name, Qt::green, 0.0f, &curve->spline, &curve->expression,
                                        -1000.0f, 1000.0f, true);
    }

    void edit(const QStringList& names) { widget->canvas().selectCurves(names); }

    void select(const QString& name, const QList<unsigned>& indexes)
    {
        QList<PointInfo*> keys;
        for (const unsigned& index : indexes) {
            keys << lent[name]->spline.at(index);
        }
        widget->canvas().findCurve(name)->splineGraph()->selection().selectPoints(keys);
    }

    std::unique_ptr<FunctionEditor> widget;
    std::map<QString, std::unique_ptr<Lent>> lent;
    // The range that a test hands in and gets back.
    double x1 = 0.0;
    double x2 = 0.0;
    double y1 = 0.0;
    double y2 = 0.0;
};

QTEST_MAIN(TestCanvasFit)
#include "test_canvas_fit.moc"
