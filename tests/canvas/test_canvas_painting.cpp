#include "canvas/CanvasBackground.h"
#include "canvas/CanvasColors.h"
#include "canvas/FrameGrid.h"
#include "canvas/FunctionEditor.h"
#include "canvas/SplineCurveGraph.h"
#include "core/FunctionFloatBase.h"
#include "core/FunctionParserBase.h"
#include "core/ParseMessage.h"
#include "curves/CurveNode.h"
#include "support/FailOnWarning.h"
#include "support/GoldenPicture.h"

#include <QPainter>
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

int countOf(const QImage& image, const QColor& color)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            count += image.pixelColor(x, y) == color ? 1 : 0;
        }
    }
    return count;
}

} // namespace

/// Pictures of a canvas of 400 by 300 pixels over 0 to 10 seconds and -1 to 1 in value.
class TestCanvasPainting : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        failOnUnexpectedWarning();
        CanvasColors::shared() = CanvasColors();
        widget = std::make_unique<FunctionEditor>(nullptr, nullptr);
        widget->setFixedSize(400, 300);
        widget->show();
        widget->viewWidth = 400;
        widget->viewHeight = 300;
        widget->minX = 0.0;
        widget->maxX = 10.0;
        widget->timeLine = -1.0;
        widget->showFrames = false;
        canvas().frameGrid()->labelFont = pictureFont();
        canvas().frameGrid()->linePen.setColor(QColor(70, 70, 70));
    }

    void cleanup()
    {
        widget.reset();
        lent.clear();
    }

    void theGridInSeconds() { COMPARE_PICTURE("grid-seconds", painted()); }

    void theGridInFramesOfTheFirstView()
    {
        widget->resetView();
        canvas().frameGrid()->linePen = FrameGrid(widget.get()).linePen;
        COMPARE_PICTURE("grid-frames", painted());
    }

    void theTimeLine()
    {
        widget->timeLine = 6.5;
        COMPARE_PICTURE("time-line", painted());
    }

    void eachInterpolation()
    {
        addCurve("a.linear", Qt::red, zk_spline::linear, 0.75);
        addCurve("a.bezier", Qt::green, zk_spline::bezier, 0.25);
        addCurve("a.tcb", Qt::cyan, zk_spline::tcb, -0.25);
        addCurve("a.stepped", Qt::yellow, zk_spline::stepped, -0.75);
        edit({"a.linear", "a.bezier", "a.tcb", "a.stepped"});
        COMPARE_PICTURE("interpolations", painted());
    }

    void eachBehaviour_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<QString>("name");
        QTest::newRow("zero") << int(SplineBase::zero) << "behaviour-zero";
        QTest::newRow("constant") << int(SplineBase::constant) << "behaviour-constant";
        QTest::newRow("loop") << int(SplineBase::loop) << "behaviour-loop";
        QTest::newRow("loop with offset") << int(SplineBase::loopOffset) << "behaviour-loop-offset";
        QTest::newRow("follow tangent") << int(SplineBase::followTangent) << "behaviour-follow";
    }
    void eachBehaviour()
    {
        QFETCH(int, type);
        QFETCH(QString, name);
        SplineBase& spline =
            addKeys("a.x", Qt::green, zk_spline::bezier, {{2.0, -0.6}, {3.0, 0.4}, {4.5, -0.2}});
        spline.setFirstNodeType(static_cast<SplineBase::nodeType>(type));
        spline.setLastNodeType(static_cast<SplineBase::nodeType>(type));
        const PointInfo* last = spline.at(2);
        spline.setTanLeft(last, 0.3);
        edit({"a.x"});
        const QString mismatch = GoldenPicture(name).compare(painted());
        QVERIFY2(mismatch.isEmpty(), qPrintable(mismatch));
    }

    void aSelectedKeyWithUnifiedHandles()
    {
        SplineBase& spline = addBumps();
        spline.at(1)->unifiedTangents = true;
        spline.setTanLeft(spline.at(1), 0.3);
        select("a.x", {1});
        COMPARE_PICTURE("handles-unified", painted());
    }

    void aSelectedKeyWithBrokenHandlesOneOfThemGrabbed()
    {
        SplineBase& spline = addBumps();
        spline.setTanLeft(spline.at(1), 0.3);
        spline.setTanRight(spline.at(1), -0.6);
        select("a.x", {1});
        COMPARE_PICTURE("handles-broken", painted());
        canvas().findCurve("a.x")->splineGraph()->selection().keyPart =
            ControlSplineNode::leftHandle;
        COMPARE_PICTURE("handles-left-grabbed", painted());
    }

    void severalSelectedKeysWithTheirSpanAndLabels()
    {
        addBumps();
        select("a.x", {1, 2});
        widget->showLabels = true;
        COMPARE_PICTURE("span-and-labels", painted());
    }

    void labelsInFrames()
    {
        addBumps();
        select("a.x", {0});
        widget->showLabels = true;
        widget->showFrames = true;
        COMPARE_PICTURE("labels-frames", painted());
    }

    void aSelectedTcbKeyHasBareLines()
    {
        addKeys("a.x", Qt::green, zk_spline::tcb,
                {{1.0, -0.5}, {4.0, 0.5}, {7.0, -0.25}, {9.0, 0.25}});
        edit({"a.x"});
        select("a.x", {1, 2});
        COMPARE_PICTURE("handles-tcb", painted());
    }

    void aCurveHeldToItsLimits()
    {
        addKeys("a.x", Qt::green, zk_spline::linear, {{1.0, -0.8}, {5.0, 0.8}, {9.0, -0.8}}, -0.4f,
                0.4f);
        edit({"a.x"});
        COMPARE_PICTURE("limits", painted());
    }

    void anExpressionAndASplinePlusExpression()
    {
        addKeys("a.e", Qt::cyan, zk_spline::linear, {{1.0, -0.8}, {5.0, 0.8}});
        setExpression("a.e", "sin(t)/2");
        SplineBase& spline =
            addKeys("a.both", Qt::green, zk_spline::linear, {{1.0, -0.8}, {7.0, 0.4}});
        setExpression("a.both", "sin(t*5)/8");
        spline.setAddFunc(true);
        edit({"a.e", "a.both"});
        COMPARE_PICTURE("expressions", painted());
    }

    void anAcceptedRubberBand()
    {
        addBumps();
        widget->newMinX = 2.0;
        widget->newMaxX = 6.0;
        widget->newMinY = -0.5;
        widget->newMaxY = 0.25;
        widget->validateRect(true);
        COMPARE_PICTURE("rubber-band-accepted", painted());
    }

    void aRefusedRubberBandInTheColourOfTheCanvas()
    {
        canvas().canvasColor = QColor(60, 20, 60);
        canvas().frameGrid()->linePen.setColor(QColor(20, 60, 20));
        widget->newMinX = 2.0;
        widget->newMaxX = 6.0;
        widget->newMinY = 0.1;
        widget->newMaxY = 0.18;
        widget->validateRect(true);
        QVERIFY(!widget->rectValid);
        COMPARE_PICTURE("rubber-band-refused", painted());
    }

    void aBackgroundIsStretchedToTheCanvas()
    {
        addBumps();
        auto picture = std::make_unique<CanvasBackground>();
        picture->image = QImage(2, 1, QImage::Format_RGB32);
        picture->image.fill(QColor(0, 80, 40));
        CanvasBackground* kept = picture.get();
        canvas().setBackground(picture.release());
        COMPARE_PICTURE("background", painted());
        QCOMPARE(kept->pixmap.size(), QSize(400, 300));
        QVERIFY(!canvas().frameGrid()->opaqueLabels);
        widget->setFixedSize(200, 150);
        widget->viewWidth = 200;
        widget->viewHeight = 150;
        painted();
        QCOMPARE(kept->pixmap.size(), QSize(200, 150));
        kept->image.fill(Qt::blue);
        QCOMPARE(countOf(painted(), QColor(0, 80, 40)), 0);
        canvas().setBackground(nullptr);
        QVERIFY(!canvas().backgroundPicture());
        painted();
        QVERIFY(canvas().frameGrid()->opaqueLabels);
    }

    void aBackgroundWithoutAnImageShowsTheCanvas()
    {
        canvas().setBackground(new CanvasBackground);
        QCOMPARE(painted(), paintedAfter([this] { canvas().setBackground(nullptr); }));
    }

    void aHiddenCanvasPaintsNothing()
    {
        widget->hide();
        QCOMPARE(countOf(painted(), Qt::magenta), 400 * 300);
    }

    void aSelectionOfOneKeyHasNoSpan()
    {
        addBumps();
        canvas().selectionColor = QColor(1, 2, 3);
        select("a.x", {1});
        QCOMPARE(countOf(painted(), canvas().selectionColor), 0);
        select("a.x", {1, 2});
        QVERIFY(countOf(painted(), canvas().selectionColor) > 10000);
        widget->rectActive = true;
        QCOMPARE(countOf(painted(), canvas().selectionColor), 0);
    }

    void theSpanRunsOverTheWholeHeightUpToTheLastSelectedKey()
    {
        addBumps();
        canvas().selectionColor = QColor(1, 2, 3);
        canvas().frameGrid()->linePen = QPen(Qt::NoPen);
        select("a.x", {1, 2});
        const QImage image = painted();
        QCOMPARE(image.pixelColor(161, 2), canvas().selectionColor);
        QCOMPARE(image.pixelColor(278, 2), canvas().selectionColor);
        QCOMPARE(image.pixelColor(278, 297), canvas().selectionColor);
        QCOMPARE(image.pixelColor(281, 2), QColor(Qt::black));
        QCOMPARE(image.pixelColor(157, 2), QColor(Qt::black));
    }

    void aCurveThatIsNotEditedIsNotDrawn()
    {
        addKeys("a.x", QColor(1, 200, 3), zk_spline::linear, {{1.0, 0.5}, {9.0, 0.5}});
        const QImage without = painted();
        edit({"a.x"});
        QVERIFY(painted() != without);
        edit({});
        QCOMPARE(painted(), without);
    }

    void anExpressionOnlyCurveShowsNoKeysAndNoHandles()
    {
        addBumps();
        select("a.x", {1});
        setExpression("a.x", "100");
        edit({"a.x"});
        const QImage image = painted();
        QCOMPARE(countOf(image, CanvasColors::shared().controlPointSelected), 0);
        QCOMPARE(countOf(image, CanvasColors::shared().controller), 0);
    }

    void aSplinePlusExpressionWithoutAnExpressionDrawsNothing()
    {
        const QImage without = painted();
        SplineBase& spline = addBumps();
        spline.setAddFunc(true);
        QCOMPARE(painted(), without);
    }

    void aSplineDestroyedByItsHostDrawsNothing()
    {
        const QImage without = painted();
        addBumps();
        select("a.x", {1, 2});
        painted();
        lent.clear();
        QCOMPARE(painted(), without);
    }

    void aCanvasOfNoSizeOrOfNoRangeIsPaintedAllTheSame()
    {
        addBumps();
        select("a.x", {1, 2});
        widget->showLabels = true;
        for (const double& right : {0.0, -5.0, qQNaN(), qInf()}) {
            widget->maxX = right;
            widget->rectActive = right < 0.0;
            painted();
        }
        widget->viewWidth = 0;
        widget->viewHeight = 0;
        painted();
    }

private:
    CanvasFunctionBase& canvas() { return widget->canvas(); }

    SplineBase& addKeys(const QString& name, const QColor& color,
                        const zk_spline::interpolationType& type,
                        const QList<QPair<double, double>>& keys, const float& lowest = -1000.0f,
                        const float& highest = 1000.0f)
    {
        auto& curve = lent[name];
        curve = std::make_unique<Lent>();
        for (const auto& key : keys) {
            auto* point = new PointInfo;
            point->time = key.first;
            point->value = key.second;
            point->type = type;
            curve->spline.addPointPtr(point);
        }
        canvas().addCanvasCurve(name, color, 0.0f, &curve->spline, &curve->expression, lowest,
                                highest, true);
        return curve->spline;
    }

    void addCurve(const QString& name, const QColor& color,
                  const zk_spline::interpolationType& type, const double& middle)
    {
        addKeys(name, color, type,
                {{1.0, middle - 0.15}, {4.0, middle + 0.15}, {6.0, middle}, {9.0, middle - 0.1}});
    }

    /// A curve of four Bezier keys, which is edited.
    SplineBase& addBumps()
    {
        SplineBase& spline = addKeys("a.x", Qt::green, zk_spline::bezier,
                                     {{1.0, -0.5}, {4.0, 0.5}, {7.0, -0.25}, {9.0, 0.25}});
        edit({"a.x"});
        return spline;
    }

    void setExpression(const QString& name, const char* text)
    {
        ParseMessage message;
        delete lent[name]->expression;
        lent[name]->expression = FunctionParserBase::instance()->parseString(text, message, false);
        QVERIFY(lent[name]->expression);
    }

    void edit(const QStringList& names) { canvas().selectCurves(names); }

    void select(const QString& name, const QList<unsigned>& indexes)
    {
        QList<PointInfo*> keys;
        for (const unsigned& index : indexes) {
            keys << lent[name]->spline.at(index);
        }
        canvas().findCurve(name)->splineGraph()->selection().selectPoints(keys);
    }

    QImage painted()
    {
        QImage image(400, 300, QImage::Format_RGB32);
        image.fill(Qt::magenta);
        QPainter painter(&image);
        canvas().paint(&painter);
        return image;
    }

    template <typename Change>
    QImage paintedAfter(const Change& change)
    {
        change();
        return painted();
    }

    std::unique_ptr<FunctionEditor> widget;
    std::map<QString, std::unique_ptr<Lent>> lent;
};

QTEST_MAIN(TestCanvasPainting)
#include "test_canvas_painting.moc"
