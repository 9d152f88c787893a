#include "canvas/GridLabels.h"
#include "support/FailOnWarning.h"

#include <QImage>
#include <QPainter>
#include <QTest>

class TestGridLabels : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void theyAreAsShortAsMayBe()
    {
        QCOMPARE(gridLabels(3, 1, -2.5, 2.5), QStringList({"-2.5", "0", "2.5"}));
        QCOMPARE(gridLabels(3, -1, 1000000.0, 500000.0),
                 QStringList({"1E+06", "1.5E+06", "2E+06"}));
    }

    void neighboursDifferHoweverManyDigitsThatTakes()
    {
        QCOMPARE(gridLabels(3, -1, 1e9, 0.5),
                 QStringList({"1000000000", "1000000000.5", "1000000001"}));
    }

    void aStepBelowTheDigitsOfADoubleEndsAllTheSame()
    {
        QCOMPARE(gridLabels(3, -1, 1e17, 1.0).size(), 3);
    }

    void oneThatWouldLieOnAnotherIsLeftOut()
    {
        QImage image(100, 40, QImage::Format_RGB32);
        image.fill(Qt::black);
        QPainter painter(&image);
        painter.setPen(Qt::white);
        LabelRow row(&painter);
        row.draw(QPoint(5, 20), QStringLiteral("100"));
        const QImage before = image.copy();
        row.drawIfFree(QPoint(8, 20), QStringLiteral("200"));
        QCOMPARE(image, before);
        row.drawIfFree(QPoint(60, 20), QStringLiteral("200"));
        QVERIFY(image != before);
    }
};

QTEST_MAIN(TestGridLabels)
#include "test_grid_labels.moc"
