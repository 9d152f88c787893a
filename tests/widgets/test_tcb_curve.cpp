#include "support/FailOnWarning.h"
#include "support/GoldenPicture.h"
#include "widgets/TcbCurve.h"

#include <QPalette>
#include <QStyleFactory>

#include <cmath>
#include <limits>
#include <memory>

namespace {

PointInfo keyOf(const zk_spline::interpolationType& type, const PointInfo::TcbData& tcb = {},
                const PointInfo::BezierData& bezier = {})
{
    PointInfo key;
    key.type = type;
    key.tcb = tcb;
    key.bezier = bezier;
    return key;
}

/// In a style and in colours of its own.
QImage pictureOf(TcbCurve& preview)
{
    const std::unique_ptr<QStyle> style(QStyleFactory::create(QStringLiteral("Windows")));
    preview.setStyle(style.get());
    preview.setPalette(QPalette(QColor(220, 220, 220)));
    QImage picture(preview.size(), QImage::Format_RGB32);
    preview.render(&picture);
    preview.setStyle(nullptr);
    return picture;
}

/// Whether the curve passes through a column of pixels.
bool hasCurveIn(const QImage& picture, const int& x)
{
    for (int y = 8; y < picture.height() - 8; ++y) {
        if (picture.pixelColor(x, y) == QColor(Qt::darkGray)) {
            return true;
        }
    }
    return false;
}

QPoint crossIn(const QImage& picture)
{
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (picture.pixelColor(x, y) == QColor(Qt::darkRed)) {
                return QPoint(x, y); // its topmost pixel
            }
        }
    }
    return {};
}

} // namespace

class TestTcbCurve : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void aNewPreviewHasItsFrameSizeAndCursor();
    void aKeyOfEachKindHasItsShape();
    void onlyTheSecondHalfFollowsTheKey();
    void theMarkStandsAtTheMiddleKey();
    void theCurveFillsALargerWidget();
    void noLineLeadsToTheMarkButOneLeadsAwayFromIt();
    void anyDataCanBePainted();
};

void TestTcbCurve::aNewPreviewHasItsFrameSizeAndCursor()
{
    TcbCurve preview;
    QCOMPARE(preview.frameStyle(), QFrame::Box | QFrame::Sunken);
    QCOMPARE(preview.lineWidth(), 2);
    QCOMPARE(preview.cursor().shape(), Qt::CrossCursor);
    QCOMPARE(preview.size(), QSize(100, 100));
    QCOMPARE(preview.minimumSize(), QSize(100, 100));
    QCOMPARE(preview.sizePolicy().horizontalPolicy(), QSizePolicy::Expanding);
    QCOMPARE(preview.sizePolicy().verticalPolicy(), QSizePolicy::Expanding);
}

void TestTcbCurve::aKeyOfEachKindHasItsShape()
{
    TcbCurve preview;
    COMPARE_PICTURE("preview-new", pictureOf(preview));
    preview.showKey(keyOf(zk_spline::tcb, {0.5, -0.5, 1.0, 0.0, 0.0}));
    COMPARE_PICTURE("preview-tcb", pictureOf(preview));
    preview.showKey(keyOf(zk_spline::bezier, {}, {4.0, 0.0}));
    COMPARE_PICTURE("preview-bezier", pictureOf(preview));
    preview.showKey(keyOf(zk_spline::linear));
    COMPARE_PICTURE("preview-linear", pictureOf(preview));
    preview.showKey(keyOf(zk_spline::stepped));
    COMPARE_PICTURE("preview-stepped", pictureOf(preview));
}

/// The data go to the last key: what leads into the middle one stays as it was.
void TestTcbCurve::onlyTheSecondHalfFollowsTheKey()
{
    TcbCurve preview;
    const QImage before = pictureOf(preview);
    preview.showKey(keyOf(zk_spline::bezier, {}, {9.0, -9.0}));
    const QImage after = pictureOf(preview);
    const QRect firstHalf(0, 0, 49, 100);
    QCOMPARE(after.copy(firstHalf), before.copy(firstHalf));
    QVERIFY(after != before);
}

/// Frame 4 and padding 2 leave 88 pixels a side: the value 1 stands at int(94 - 88 * 0.7). The
/// time has grown by adding to a bit less than 0.5, so that the mark falls on pixel 49, not 50.
void TestTcbCurve::theMarkStandsAtTheMiddleKey()
{
    TcbCurve preview;
    const QImage picture = pictureOf(preview);
    QCOMPARE(crossIn(picture), QPoint(49, 30));
    QCOMPARE(picture.pixelColor(47, 32), QColor(Qt::darkRed));
}

void TestTcbCurve::theCurveFillsALargerWidget()
{
    TcbCurve preview;
    preview.resize(212, 112); // 200 by 100 pixels inside
    QCOMPARE(crossIn(pictureOf(preview)), QPoint(105, 34));
}

void TestTcbCurve::noLineLeadsToTheMarkButOneLeadsAwayFromIt()
{
    TcbCurve preview;
    preview.resize(612, 112); // a sample every 20 pixels, the mark at 305
    const QImage picture = pictureOf(preview);
    QVERIFY(hasCurveIn(picture, 276));
    QVERIFY(!hasCurveIn(picture, 296));
    QVERIFY(hasCurveIn(picture, 316));
}

void TestTcbCurve::anyDataCanBePainted()
{
    const double endless = std::numeric_limits<double>::infinity();
    TcbCurve preview;
    for (const double number : {1e300, -1e300, endless, -endless, std::nan("")}) {
        for (const auto& type : {zk_spline::tcb, zk_spline::bezier, zk_spline::linear}) {
            preview.showKey(
                keyOf(type, {number, number, number, number, number}, {number, -number}));
            QVERIFY(!pictureOf(preview).isNull());
        }
    }
}

QTEST_MAIN(TestTcbCurve)
#include "test_tcb_curve.moc"
