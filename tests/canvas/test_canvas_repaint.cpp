#include "graphs/SplineCurveGraph.h"
#include "support/EditorFixture.h"
#include "support/FailOnWarning.h"

#include <QPainter>
#include <QTest>

#include <memory>

/// What a repaint must bring up to date, and what may be left out of it.
class TestCanvasRepaint : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        failOnUnexpectedWarning();
        on = std::make_unique<EditorFixture>();
        on->canvas().timeLine = -1.0;
        on->editCurve(QStringLiteral("a.x"), {{10.0, 10.0}, {20.0, 30.0}, {40.0, 20.0}});
    }

    void cleanup() { on.reset(); }

    void paintingNeverClearsTheMarkOfTheView()
    {
        painted();
        QVERIFY(on->canvas().canvasDirty);
    }

    void aCurveChangedWhileItWasNotEditedIsSampledAnewWhenItIs()
    {
        const QImage before = painted();
        on->editor.selectNodes(QStringList());
        SplineBase& spline = on->curves.at(QStringLiteral("a.x"))->spline;
        spline.setPos(spline.at(1), 5.0);
        painted();
        QVERIFY(!spline.hasChanged());
        on->editor.selectNodes(QStringList(QStringLiteral("a.x")));
        on->canvas().canvasDirty = false;
        const QImage sampledLate = painted();
        on->canvas().canvasDirty = true;
        QCOMPARE(sampledLate, painted());
        QVERIFY(sampledLate != before);
    }

    void aKeyMovedWhileItsCurveWasNotEditedIsHitWhereItStands()
    {
        painted();
        on->editor.selectNodes(QStringList());
        SplineBase& spline = on->curves.at(QStringLiteral("a.x"))->spline;
        spline.setPos(spline.at(1), 5.0);
        painted();
        on->editor.selectNodes(QStringList(QStringLiteral("a.x")));
        SplineCurveGraph* const graph = on->logic().findCurve(QStringLiteral("a.x"))->splineGraph();
        QCOMPARE(graph->hitTest(EditorFixture::pixel(20.0, 5.0)), spline.at(1));
        QVERIFY(!graph->hitTest(EditorFixture::pixel(20.0, 30.0)));
    }

    void keySquaresAreAntialiasedAndLabelsAreDrawnWithoutIt()
    {
        on->selectKeys(QStringLiteral("a.x"), {1});
        QImage image(500, 400, QImage::Format_RGB32);
        QPainter painter(&image);
        on->canvas().showLabels = true;
        on->logic().paint(&painter);
        // The labels put the hint back that the keys were drawn with.
        QVERIFY(painter.testRenderHint(QPainter::Antialiasing));
        // The outline lies half on the pixels beside the square.
        const QColor beside = image.pixelColor(197, 98);
        QVERIFY(beside.red() > 0 && beside.red() < 255);
        QCOMPARE(image.pixelColor(199, 98), QColor(Qt::red));
    }

private:
    QImage painted()
    {
        QImage image(500, 400, QImage::Format_RGB32);
        QPainter painter(&image);
        on->logic().paint(&painter);
        return image;
    }

    std::unique_ptr<EditorFixture> on;
};

QTEST_MAIN(TestCanvasRepaint)
#include "test_canvas_repaint.moc"
