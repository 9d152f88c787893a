#include "curves/DottedName.h"

#include <QtTest>

using curve_editor::DottedName;

class TestDottedName : public QObject
{
    Q_OBJECT

private slots:
    void aNameIsPartedAtItsFirstPoint_data();
    void aNameIsPartedAtItsFirstPoint();
    void aPercentSignInANameIsNoPlaceHolder();
    void theSafeFormHasUnderscoresForBlanks();
};

void TestDottedName::aNameIsPartedAtItsFirstPoint_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("node");
    QTest::addColumn<QString>("curve");
    QTest::newRow("node and curve") << "body.width"
                                    << "body"
                                    << "width";
    QTest::newRow("points within the curve's name") << "body.arm.width"
                                                    << "body"
                                                    << "arm.width";
    QTest::newRow("a node without a name") << ".width"
                                           << ""
                                           << "width";
    QTest::newRow("a curve without a name") << "body."
                                            << "body"
                                            << "";
}

void TestDottedName::aNameIsPartedAtItsFirstPoint()
{
    QFETCH(QString, text);
    const DottedName name = DottedName::fromText(text);
    QTEST(name.node, "node");
    QTEST(name.curve, "curve");
    QCOMPARE(name.text(), text);
}

void TestDottedName::aPercentSignInANameIsNoPlaceHolder()
{
    QCOMPARE(DottedName("%2", "width").text(), QString("%2.width"));
}

void TestDottedName::theSafeFormHasUnderscoresForBlanks()
{
    QCOMPARE(DottedName("left arm", "the width").safeText(), QString("left_arm.the_width"));
}

QTEST_GUILESS_MAIN(TestDottedName)
#include "test_dotted_name.moc"
