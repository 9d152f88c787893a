#pragma once

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QFont>
#include <QImage>
#include <QString>
#include <QTest>

#include <algorithm>
#include <cstdlib>

/// The font of the pictures, the same on every machine: a family of its own, sized in pixels, grey
/// and unhinted whatever the user's settings say.
inline QFont pictureFont()
{
    QFont font(QStringLiteral("Liberation Sans"));
    font.setPixelSize(11);
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setStyleStrategy(QFont::NoSubpixelAntialias);
    return font;
}

/// How many pixels of two pictures differ by more than antialiasing may, all of them if the sizes
/// differ.
inline int differingPixels(const QImage& actual, const QImage& expected, const int& mostPerChannel)
{
    if (actual.size() != expected.size()) {
        return std::max(actual.width() * actual.height(), 1);
    }
    int count = 0;
    for (int y = 0; y < actual.height(); ++y) {
        for (int x = 0; x < actual.width(); ++x) {
            const QRgb a = actual.pixel(x, y);
            const QRgb b = expected.pixel(x, y);
            const int most = std::max({std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)),
                                       std::abs(qBlue(a) - qBlue(b))});
            count += most > mostPerChannel ? 1 : 0;
        }
    }
    return count;
}

/// Compares a picture with the PNG file of that name under the test data. A few pixels may differ,
/// as much as another renderer of fonts makes of the edges of texts. On a mismatch writes the
/// actual picture, the expected one and their difference to files whose places the message tells.
/// With ZK_UPDATE_GOLDEN=1 in the environment the file is written anew.
class GoldenPicture
{
public:
    explicit GoldenPicture(const QString& pictureName)
        : name(pictureName)
        , file(QStringLiteral(ZK_TEST_DATA "/golden/%1.png").arg(pictureName))
    {}

    /// Empty when the picture is as expected, otherwise what differs.
    QString compare(const QImage& picture) const
    {
        const QImage actual = picture.convertToFormat(QImage::Format_RGB32);
        if (qEnvironmentVariableIntValue("ZK_UPDATE_GOLDEN") == 1) {
            QDir().mkpath(QFileInfo(file).path());
            return actual.save(file) ? QString() : QStringLiteral("cannot write %1").arg(file);
        }
        const QImage expected = QImage(file).convertToFormat(QImage::Format_RGB32);
        if (differingPixels(actual, expected, 48) * 1000 <= actual.width() * actual.height()) {
            return QString();
        }
        const QString folder = QDir::tempPath() + QStringLiteral("/zk-golden");
        QDir().mkpath(folder);
        const QString stem = QStringLiteral("%1/%2-%3.png").arg(folder, name);
        actual.save(stem.arg(QStringLiteral("actual")));
        expected.save(stem.arg(QStringLiteral("expected")));
        difference(actual, expected).save(stem.arg(QStringLiteral("difference")));
        return QStringLiteral("picture differs from %1; see %2")
            .arg(file, stem.arg(QStringLiteral("{actual,expected,difference}")));
    }

private:
    /// White where the two differ.
    static QImage difference(const QImage& actual, const QImage& expected)
    {
        QImage result(actual.size(), QImage::Format_RGB32);
        result.fill(Qt::black);
        for (int y = 0; y < actual.height(); ++y) {
            for (int x = 0; x < actual.width(); ++x) {
                if (!expected.valid(x, y) || expected.pixel(x, y) != actual.pixel(x, y)) {
                    result.setPixelColor(x, y, Qt::white);
                }
            }
        }
        return result;
    }

    QString name;
    QString file;
};

#define COMPARE_PICTURE(name, picture)                                                             \
    do {                                                                                           \
        const QString mismatch = GoldenPicture(QStringLiteral(name)).compare(picture);             \
        QVERIFY2(mismatch.isEmpty(), qPrintable(mismatch));                                        \
    } while (false)
