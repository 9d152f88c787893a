#include "canvas/CanvasLayers.h"
#include "canvas/PaintedCanvas.h"
#include "support/FailOnWarning.h"

#include <functional>

/// What is kept of the last picture shows everything that has changed since.
class TestCanvasLayers : public QObject, PaintedCanvas
{
    Q_OBJECT

    using Change = std::function<void(TestCanvasLayers&)>;

private slots:
    void init()
    {
        failOnUnexpectedWarning();
        open();
        for (int i = 0; i < curveCount; ++i) {
            const double middle = -0.7 + 0.1 * i;
            addCurve(name(i), QColor::fromHsv(i * 20, 200, 255), zk_spline::bezier, middle);
            names << name(i);
        }
        addKeys("a.sum", Qt::cyan, zk_spline::linear, {{1.0, -0.8}, {7.0, 0.4}});
        setExpression("a.sum", "sin(t*5)/8+f*0");
        lent["a.sum"]->spline.setAddFunc(true);
        addKeys("a.e", Qt::white, zk_spline::linear, {});
        setExpression("a.e", "cos(t)*0.9");
        names << "a.sum"
              << "a.e";
        edit(names);
        select(name(3), {1, 2});
        widget->showLabels = true;
        painted();
    }

    void cleanup()
    {
        names.clear();
        close();
    }

    void noPictureIsStale_data()
    {
        QTest::addColumn<Change>("change");
        using Self = TestCanvasLayers&;
        const auto row = [](const char* what, const Change& change) {
            QTest::newRow(what) << change;
        };
        row("left edge", [](Self on) { on.widget->minX = 1.0; });
        row("right edge", [](Self on) { on.widget->maxX = 8.0; });
        row("bottom edge", [](Self on) { on.widget->minY = -2.0; });
        row("top edge", [](Self on) { on.widget->maxY = 2.0; });
        row("width", [](Self on) { on.resize(320, 300); });
        row("height", [](Self on) { on.resize(400, 200); });
        row("unit of the axis", [](Self on) { on.widget->showFrames = true; });
        row("labels", [](Self on) { on.widget->showLabels = false; });
        row("keys without room as points", [](Self on) {
            on.key(5, 1).time = 4.01;
            on.key(5, 2).time = 4.03;
            on.painted();
            on.widget->thinsKeys = true;
        });
        row("frames a second", [](Self on) {
            on.widget->showFrames = true;
            on.widget->fps = 7.0;
        });
        row("time line", [](Self on) { on.widget->timeLine = 4.0; });
        row("rubber band", [](Self on) {
            on.widget->newMinX = 2.0;
            on.widget->newMaxX = 6.0;
            on.widget->newMinY = -0.5;
            on.widget->newMaxY = 0.25;
            on.widget->validateRect(true);
        });
        row("font of labels", [](Self on) { on.canvas().frameGrid()->labelFont.setPixelSize(17); });
        row("pen of the grid",
            [](Self on) { on.canvas().frameGrid()->linePen = QPen(QColor(10, 90, 10)); });
        row("colour of grid labels", [](Self on) { on.canvas().frameGrid()->fontColor = Qt::red; });
        row("colour of the bottom border",
            [](Self on) { on.canvas().frameGrid()->vLineColor = Qt::red; });
        row("colour of the left border",
            [](Self on) { on.canvas().frameGrid()->hLineColor = Qt::red; });
        row("colour of the time line", [](Self on) {
            on.widget->timeLine = 3.0;
            on.canvas().frameGrid()->timeLineColor = Qt::red;
        });
        row("colour of the canvas", [](Self on) { on.canvas().canvasColor = Qt::darkBlue; });
        row("colour of the selection", [](Self on) { on.canvas().selectionColor = Qt::darkRed; });
        row("colour of keys", [](Self) { CanvasColors::shared().controlPoint = Qt::white; });
        row("colour of selected keys",
            [](Self) { CanvasColors::shared().controlPointSelected = Qt::white; });
        row("colour of handles", [](Self) { CanvasColors::shared().controller = Qt::blue; });
        row("colour of broken handles",
            [](Self) { CanvasColors::shared().brokenController = Qt::blue; });
        row("colour of grabbed handles", [](Self on) {
            CanvasColors::shared().controllerSelected = Qt::blue;
            on.selectionOf(3).keyPart = ControlSplineNode::leftHandle;
        });
        row("background picture", [](Self on) {
            auto picture = std::make_unique<CanvasBackground>();
            picture->image = QImage(2, 1, QImage::Format_RGB32);
            picture->image.fill(QColor(0, 80, 40));
            on.canvas().setBackground(std::move(picture));
        });
        row("value", [](Self on) { on.key(5, 1).value = 0.9; });
        row("value, told", [](Self on) { on.splineOf(5).setPos(&on.key(5, 1), 0.9); });
        row("time", [](Self on) { on.key(5, 1).time = 3.0; });
        row("interpolation", [](Self on) { on.key(5, 1).type = zk_spline::stepped; });
        row("left slope", [](Self on) { on.key(5, 1).bezier.tangentLeft = 2.0; });
        row("right slope", [](Self on) { on.key(5, 1).bezier.tangentRight = 2.0; });
        row("unified tangents", [](Self on) { on.key(3, 1).unifiedTangents = true; });
        row("easing", [](Self on) { on.key(5, 1).tcb.easeTo = 1.0; });
        row("easing away", [](Self on) { on.key(5, 1).tcb.easeFrom = 1.0; });
        row("tension", [](Self on) { on.makeTcb().tension = 1.0; });
        row("continuity", [](Self on) { on.makeTcb().continuity = 1.0; });
        row("bias", [](Self on) { on.makeTcb().bias = 1.0; });
        row("new key", [](Self on) { on.splineOf(5).addPoint(5.0, 0.9); });
        row("removed key", [](Self on) {
            PointInfo* const key = on.splineOf(5).at(1);
            on.splineOf(5).remove(key);
            delete key;
        });
        row("before the keys", [](Self on) { on.splineOf(5).setFirstNodeType(SplineBase::zero); });
        row("behind the keys", [](Self on) { on.splineOf(5).setLastNodeType(SplineBase::loop); });
        row("kind of a curve", [](Self on) {
            on.setExpression(name(5), "sin(t*9)/9");
            on.splineOf(5).setAddFunc(true);
        });
        row("selected keys", [](Self on) { on.select(name(3), {0}); });
        row("selected keys of another curve", [](Self on) { on.select(name(7), {2}); });
        row("current key", [](Self on) { on.selectionOf(3).setCurrentPoint(&on.key(3, 0)); });
        row("grabbed part",
            [](Self on) { on.selectionOf(3).keyPart = ControlSplineNode::handleLine; });
        row("colour of a curve",
            [](Self on) { on.canvas().findCurve(name(5))->setColor(Qt::white, Qt::black); });
        row("fewer curves", [](Self on) { on.edit(on.names.mid(2, 9)); });
        row("no curves", [](Self on) { on.edit({}); });
        row("removed curve", [](Self on) { on.canvas().removeCanvasCurve(name(5)); });
        row("new curve", [](Self on) {
            on.addCurve("a.new", Qt::white, zk_spline::linear, 0.8);
            on.edit(on.names + QStringList("a.new"));
        });
        row("spline of a host's destroyed", [](Self on) { on.lent.erase(name(5)); });
        row("expression", [](Self on) { on.setExpression("a.e", "sin(t)*0.9"); });
        row("expression in a sum", [](Self on) { on.setExpression("a.sum", "t/20"); });
        row("no expression",
            [](Self on) { delete std::exchange(on.lent["a.e"]->expression, nullptr); });
    }

    void noPictureIsStale()
    {
        QFETCH(Change, change);
        const QImage before = painted();
        change(*this);
        const QImage kept = painted();
        canvas().layers().drop();
        const QImage anew = painted();
        QCOMPARE(differingPixels(kept, anew, 3), 0);
        QVERIFY(before != kept);
    }

    void aRatioOfTheDeviceHasItsOwnPictures()
    {
        for (const double& ratio : {1.5, 2.0, 1.0}) {
            const QImage kept = paintedAt(ratio);
            QCOMPARE(kept.size(), QSize(400, 300) * ratio);
            canvas().layers().drop();
            QCOMPARE(differingPixels(kept, paintedAt(ratio), 3), 0);
        }
    }

    void aPainterThatScalesPaintsWithoutPictures()
    {
        const int before = pictureCount();
        QImage image(400, 300, QImage::Format_RGB32);
        image.fill(Qt::magenta);
        QPainter painter(&image);
        painter.scale(0.5, 0.5);
        canvas().paint(&painter);
        painter.end();
        QCOMPARE(pictureCount(), before);
        QCOMPARE(image.pixelColor(300, 200), QColor(Qt::magenta));
        QVERIFY(image.pixelColor(100, 4) != QColor(Qt::magenta));
    }

    void aSecondPaintMakesNoPictureAnew()
    {
        const int before = pictureCount();
        painted();
        widget->timeLine = 5.0;
        painted();
        QCOMPARE(pictureCount(), before);
    }

    void ofManyCurvesOnlyTheOneThatChangesIsPaintedAgain()
    {
        key(5, 1).value = 0.5;
        painted();
        const int before = canvas().layers().curveLayers().paintedCurves();
        key(5, 1).value = 0.6;
        painted();
        key(5, 1).value = 0.7;
        painted();
        QCOMPARE(canvas().layers().curveLayers().paintedCurves(), before + 2);
    }

    void curvesThatChangeInTurnsLeaveNoMorePicturesThanAFew()
    {
        for (int round = 0; round < 3; ++round) {
            for (int i = 0; i < curveCount; ++i) {
                key(i, 2).value += 0.01;
                const QImage kept = painted();
                if (i == 4) {
                    canvas().layers().drop();
                    QCOMPARE(differingPixels(kept, painted(), 3), 0);
                }
            }
        }
        QVERIFY(canvas().layers().curveLayers().runCount() <= 12);
    }

private:
    static constexpr int curveCount = 15;

    static QString name(const int& index) { return QStringLiteral("a.c%1").arg(index); }
    SplineBase& splineOf(const int& index) { return lent[name(index)]->spline; }
    PointInfo& key(const int& index, const unsigned& place) { return *splineOf(index).at(place); }
    ControlSplineNode& selectionOf(const int& index)
    {
        return canvas().findCurve(name(index))->splineGraph()->selection();
    }

    int pictureCount()
    {
        return canvas().layers().curveLayers().paintedPictures() +
               canvas().layers().gridLayers().paintedPictures();
    }

    PointInfo::TcbData& makeTcb()
    {
        for (unsigned i = 0; i < 4; ++i) {
            key(5, i).type = zk_spline::tcb;
        }
        painted();
        return key(5, 1).tcb;
    }

    void resize(const int& width, const int& height)
    {
        widget->setFixedSize(width, height);
        widget->viewWidth = width;
        widget->viewHeight = height;
    }

    QImage paintedAt(const double& ratio)
    {
        QImage image(QSize(400, 300) * ratio, QImage::Format_RGB32);
        image.setDevicePixelRatio(ratio);
        image.fill(Qt::magenta);
        QPainter painter(&image);
        canvas().paint(&painter);
        return image;
    }

    QStringList names;
};

QTEST_MAIN(TestCanvasLayers)
#include "test_canvas_layers.moc"
