#include "canvas/PaintedCanvas.h"
#include "support/FailOnWarning.h"

/// Pictures of the canvas, compared with those on file.
class TestCanvasPictures : public QObject, PaintedCanvas
{
    Q_OBJECT

private slots:
    void init()
    {
        failOnUnexpectedWarning();
        open();
    }

    void cleanup() { close(); }

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
        canvas().setBackground(std::move(picture));
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
};

QTEST_MAIN(TestCanvasPictures)
#include "test_canvas_pictures.moc"
