#include "canvas/FrameGrid.h"
#include "support/EditorFixture.h"
#include "support/FailOnWarning.h"
#include "support/GoldenPicture.h"

#include <QPainter>
#include <QTest>

#include <memory>

class TestCanvasCrossHair : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        failOnUnexpectedWarning();
        on = std::make_unique<EditorFixture>();
        on->logic().frameGrid()->labelFont = pictureFont();
        on->logic().frameGrid()->linePen.setColor(QColor(70, 70, 70));
        on->canvas().showFrames = false;
        on->canvas().timeLine = -1.0;
        on->editCurve(QStringLiteral("a.x"), {{10.0, 10.0}, {20.0, 30.0}, {40.0, 20.0}});
        on->paint();
    }

    void cleanup() { on.reset(); }

    void itStandsAtTheSnappedMouseWhileSeveralKeysAreDragged()
    {
        on->logic().horizontalSnap = true;
        on->logic().hSnapRadius = 0.25;
        on->selectKeys(QStringLiteral("a.x"), {0, 1});
        on->paint();
        const QImage before = painted();
        // Grabbed beside its centre, the key does not cover the cross-hair; and it
        // stays clear of the lines of the grid.
        on->press(EditorFixture::pixel(20.4, 30.0));
        on->moveTo(EditorFixture::pixel(34.4, 26.0));
        COMPARE_PICTURE("cross-hair", painted());
        on->release(EditorFixture::pixel(34.4, 26.0));
        on->undoAll();
        QCOMPARE(painted(), before);
    }

    void itCanBeHiddenInMidDragAndComesBackAtTheNextStep()
    {
        on->logic().horizontalSnap = true;
        on->selectKeys(QStringLiteral("a.x"), {0, 1});
        on->press(EditorFixture::pixel(20.4, 30.0));
        on->moveTo(EditorFixture::pixel(34.4, 26.0));
        const QImage shown = painted();
        QVERIFY(QMetaObject::invokeMethod(&on->logic(), "hideMark"));
        const QImage hidden = painted();
        QVERIFY(hidden != shown);
        on->moveTo(EditorFixture::pixel(34.4, 26.0));
        QCOMPARE(painted(), shown);
        on->release(EditorFixture::pixel(34.4, 26.0));
        // The labels of the drag are gone as well.
        on->canvas().showLabels = true;
        QCOMPARE(painted(), hidden);
    }

    void itIsNotDrawnWhileOneKeyIsDragged()
    {
        on->logic().horizontalSnap = true;
        on->press(EditorFixture::pixel(20.0, 30.0));
        on->moveTo(EditorFixture::pixel(31.0, 29.0));
        const QImage image = painted();
        int white = 0;
        for (int x = 0; x < image.width(); ++x) {
            white += image.pixelColor(x, 110) == Qt::white ? 1 : 0;
        }
        QVERIFY(white < 20);
        on->release(EditorFixture::pixel(31.0, 29.0));
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

QTEST_MAIN(TestCanvasCrossHair)
#include "test_canvas_cross_hair.moc"
