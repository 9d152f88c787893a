#include "graphs/CurvePen.h"
#include "graphs/StrokeLine.h"
#include "support/FailOnWarning.h"
#include "support/Pixels.h"

#include <QPainter>
#include <QTest>

#include <cmath>

/// How lines of curves come onto the pixels.
class TestLineRaster : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void levelAndUprightLinesAreSharp()
    {
        const QImage image =
            drawn(1.0, CurvePen::solid, {{10.0, 20.0}, {50.0, 20.0}, {50.0, 60.0}});
        QCOMPARE(countOf(image, Qt::white), 40 + 40);
        QCOMPARE(countOf(image, Qt::black), image.width() * image.height() - 80);
    }

    void aLineIsAsThickAtEachRatio_data()
    {
        QTest::addColumn<double>("ratio");
        QTest::newRow("1") << 1.0;
        QTest::newRow("1.5") << 1.5;
        QTest::newRow("2") << 2.0;
        QTest::newRow("3") << 3.0;
    }
    void aLineIsAsThickAtEachRatio()
    {
        QFETCH(double, ratio);
        for (const QPointF& end : {QPointF(90.0, 90.0), QPointF(90.0, 30.5), QPointF(31.2, 90.0)}) {
            const QPointF begin(10.0, 10.0);
            const QImage image = drawn(ratio, CurvePen::solid, {begin, end});
            double light = 0.0;
            for (int y = 0; y < image.height(); ++y) {
                for (int x = 0; x < image.width(); ++x) {
                    light += qRed(image.pixel(x, y)) / 255.0;
                }
            }
            const double length = std::hypot(end.x() - begin.x(), end.y() - begin.y());
            QVERIFY(std::abs(light / (ratio * ratio) - length) < 0.03 * length);
        }
    }

    void dotsAreEvenHoweverManyPointsTheLineHas()
    {
        for (const double& step : {0.01, 0.3, 1.4, 80.0}) {
            QList<QPointF> points;
            for (double x = 5.0; x < 95.0; x += step) {
                points << QPointF(x, 50.5);
            }
            points << QPointF(95.0, 50.5);
            const QImage image = drawn(1.0, CurvePen::dotted, points);
            for (int x = 5; x < 95; ++x) {
                QCOMPARE(image.pixelColor(x, 50) != QColor(Qt::black), (x - 5) % 3 == 0);
            }
        }
    }

    void whatLiesOutsideOfThePictureIsPassedOver()
    {
        const QImage image =
            drawn(1.0, CurvePen::solid,
                  {{-1e6, 40.5}, {1e6, 40.5}, {1e6, -1e6}, {50.5, -1e6}, {50.5, 1e6}});
        QCOMPARE(countOf(image, Qt::white), 100 + 100 - 1);
    }

    /// Farther than an int reaches, on one side of the picture.
    void aLineBeyondAllPixelsCoversNothing_data()
    {
        QTest::addColumn<QPointF>("begin");
        QTest::addColumn<QPointF>("end");
        QTest::newRow("left") << QPointF(-1e12, 40.5) << QPointF(-1e11, 50.5);
        QTest::newRow("right") << QPointF(1e11, 40.5) << QPointF(1e12, 50.5);
        QTest::newRow("above") << QPointF(40.5, -1e12) << QPointF(50.5, -1e11);
        QTest::newRow("below") << QPointF(40.5, 1e11) << QPointF(50.5, 1e12);
    }
    void aLineBeyondAllPixelsCoversNothing()
    {
        QFETCH(QPointF, begin);
        QFETCH(QPointF, end);
        const QImage image = drawn(1.0, CurvePen::solid, {begin, end});
        QCOMPARE(countOf(image, Qt::black), image.width() * image.height());
    }

    void manyPointsInOneColumnAreDrawnFromTheLowestToTheHighest()
    {
        QList<QPointF> points;
        for (int i = 0; i <= 1000; ++i) {
            points << QPointF(50.0 + i * 0.0009, i % 2 == 0 ? 20.0 : 80.0);
        }
        const QImage image = drawn(1.0, CurvePen::solid, points);
        for (int y = 21; y < 79; ++y) {
            QVERIFY(qRed(image.pixel(50, y)) + qRed(image.pixel(49, y)) + qRed(image.pixel(51, y)) >
                    200);
        }
    }

    void squaresLieOnTheDevicesPixels()
    {
        QImage image(200, 200, QImage::Format_RGB32);
        image.setDevicePixelRatio(2.0);
        image.fill(Qt::black);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        CurvePen(&painter).drawSquares({{20.26, 30.0}, {20.3, 30.1}, {40.0, 99.9}}, Qt::white);
        painter.end();
        QCOMPARE(countOf(image.copy(0, 0, 100, 100), Qt::white), 10 * 10);
        QCOMPARE(image.pixelColor(41 - 5, 60), QColor(Qt::white));
        QCOMPARE(image.pixelColor(41 - 6, 60), QColor(Qt::black));
        QCOMPARE(countOf(image.copy(0, 100, 200, 100), Qt::white), 10 * 5);
    }

    void anOddPainterDrawsTheSameLinesByItself()
    {
        QImage image(100, 100, QImage::Format_RGB32);
        image.fill(Qt::black);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.rotate(90.0);
        CurvePen pen(&painter);
        pen.setColor(Qt::white, CurvePen::solid);
        pen.drawLine(QPointF(10.0, -50.5), QPointF(90.0, -50.5));
        painter.end();
        QVERIFY(qRed(image.pixel(50, 50)) > 200);
        QCOMPARE(image.pixelColor(30, 50), QColor(Qt::black));
    }

private:
    static QImage drawn(const double& ratio, const CurvePen::Style& style,
                        const QList<QPointF>& points)
    {
        QImage image(QSize(100, 100) * ratio, QImage::Format_RGB32);
        image.setDevicePixelRatio(ratio);
        image.fill(Qt::black);
        StrokeLine line;
        line.clear(100.0);
        for (const QPointF& point : points) {
            line.add(point.x(), point.y());
        }
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        CurvePen pen(&painter);
        pen.setColor(Qt::white, style);
        pen.drawStroke(line);
        return image;
    }
};

QTEST_MAIN(TestLineRaster)
#include "test_line_raster.moc"
