#include "canvas/PaintedCanvas.h"
#include "support/FailOnWarning.h"

/// What is painted and what is not, whatever it looks like.
class TestCanvasPainting : public QObject, PaintedCanvas
{
    Q_OBJECT

private slots:
    void init()
    {
        failOnUnexpectedWarning();
        open();
    }

    void cleanup() { close(); }

    void aBackgroundWithoutAnImageShowsTheCanvas()
    {
        canvas().setBackground(std::make_unique<CanvasBackground>());
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
};

QTEST_MAIN(TestCanvasPainting)
#include "test_canvas_painting.moc"
