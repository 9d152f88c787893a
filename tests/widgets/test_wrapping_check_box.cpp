#include "support/FailOnWarning.h"
#include "widgets/WrappingCheckBox.h"

#include <QFontMetrics>

using curve_editor::WrappingCheckBox;

class TestWrappingCheckBox : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void aTextWithRoomStandsInOneLineAsInAnyCheckBox();
    void aTextWithoutRoomStandsInTwoLinesOfLikeLength();
    void aWordIsNotBroken();
    void bothLinesArePainted();
    void aClickOnTheSecondLineChecksIt();
};

void TestWrappingCheckBox::aTextWithRoomStandsInOneLineAsInAnyCheckBox()
{
    const WrappingCheckBox box(QStringLiteral("one two three four"));
    const QCheckBox plain(QStringLiteral("one two three four"));
    QCOMPARE(box.sizeHint(), plain.sizeHint());
    QCOMPARE(box.minimumSizeHint(), plain.minimumSizeHint());
}

void TestWrappingCheckBox::aTextWithoutRoomStandsInTwoLinesOfLikeLength()
{
    WrappingCheckBox box(QStringLiteral("one two three four"));
    box.setMaximumWidth(box.sizeHint().width() - 1);
    const QSize lines = box.sizeHint();
    QCOMPARE(lines.width(), QCheckBox(QStringLiteral("three four")).sizeHint().width());
    QVERIFY(lines.height() >= 2 * QFontMetrics(box.font()).height());
    QCOMPARE(box.minimumSizeHint(), lines);
    QCOMPARE(box.text(), QStringLiteral("one two three four"));
    box.setMaximumWidth(QWIDGETSIZE_MAX);
    QCOMPARE(box.sizeHint(), QCheckBox(box.text()).sizeHint());
}

void TestWrappingCheckBox::aWordIsNotBroken()
{
    WrappingCheckBox box(QStringLiteral("indivisible"));
    box.setMaximumWidth(20);
    QCOMPARE(box.sizeHint(), QCheckBox(box.text()).sizeHint());
}

void TestWrappingCheckBox::bothLinesArePainted()
{
    WrappingCheckBox box(QStringLiteral("MMMMMM MMMMMM"));
    box.setMaximumWidth(box.sizeHint().width() - 1);
    box.resize(box.sizeHint());
    const QImage picture = box.grab().toImage();
    WrappingCheckBox empty(QStringLiteral(" "));
    empty.resize(box.size());
    const QImage blank = empty.grab().toImage();
    const int half = picture.height() / 2;
    const QRect upper(0, 0, picture.width(), half);
    const QRect lower(0, half, picture.width(), half);
    QVERIFY(picture.copy(upper) != blank.copy(upper));
    QVERIFY(picture.copy(lower) != blank.copy(lower));
}

void TestWrappingCheckBox::aClickOnTheSecondLineChecksIt()
{
    WrappingCheckBox box(QStringLiteral("one two three four"));
    box.setMaximumWidth(box.sizeHint().width() - 1);
    box.resize(box.sizeHint());
    box.show();
    QTest::mouseClick(&box, Qt::LeftButton, Qt::NoModifier,
                      QPoint(box.width() - 8, box.height() - 4));
    QVERIFY(box.isChecked());
}

QTEST_MAIN(TestWrappingCheckBox)
#include "test_wrapping_check_box.moc"
