#include "files/CurveXmlNames.h"
#include "support/FailOnWarning.h"

#include <QTest>

class TestXmlCurveNames : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void namesOfCurveTypes_data();
    void namesOfCurveTypes();
    void namesOfNodeTypes_data();
    void namesOfNodeTypes();
    void namesOfInterpolations_data();
    void namesOfInterpolations();
};

void TestXmlCurveNames::namesOfCurveTypes_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("text");
    QTest::newRow("0") << 0 << "spline";
    QTest::newRow("1") << 1 << "expression";
    QTest::newRow("2") << 2 << "spline-plus-expression";
    QTest::newRow("mixed") << 3 << "unknown";
    QTest::newRow("negative") << -1 << "unknown";
}

void TestXmlCurveNames::namesOfCurveTypes()
{
    QFETCH(int, number);
    QFETCH(QString, text);
    QCOMPARE(curve_files::curveTypeName(number), text);
    QCOMPARE(curve_files::curveTypeFromName(text.toUpper()), text == "unknown" ? -1 : number);
}

void TestXmlCurveNames::namesOfNodeTypes_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("text");
    QTest::newRow("0") << 0 << "zero";
    QTest::newRow("1") << 1 << "constant";
    QTest::newRow("2") << 2 << "loop";
    QTest::newRow("3") << 3 << "loop-offset";
    QTest::newRow("4") << 4 << "follow-tangent";
    QTest::newRow("5") << 5 << "unknown";
    QTest::newRow("negative") << -1 << "unknown";
}

void TestXmlCurveNames::namesOfNodeTypes()
{
    QFETCH(int, number);
    QFETCH(QString, text);
    QCOMPARE(curve_files::nodeTypeName(number), text);
    QCOMPARE(curve_files::nodeTypeFromName(text.toUpper()), text == "unknown" ? -1 : number);
}

void TestXmlCurveNames::namesOfInterpolations_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("text");
    QTest::newRow("0") << 0 << "linear";
    QTest::newRow("1") << 1 << "bezier";
    QTest::newRow("2") << 2 << "tcb";
    QTest::newRow("3") << 3 << "step";
    QTest::newRow("4") << 4 << "unknown";
    QTest::newRow("negative") << -1 << "unknown";
}

void TestXmlCurveNames::namesOfInterpolations()
{
    QFETCH(int, number);
    QFETCH(QString, text);
    QCOMPARE(curve_files::interpolationTypeName(number), text);
    QCOMPARE(curve_files::interpolationTypeFromName(text.toUpper()),
             text == "unknown" ? -1 : number);
    QCOMPARE(curve_files::interpolationTypeFromName("Lineal"), 0);
}

QTEST_APPLESS_MAIN(TestXmlCurveNames)
#include "test_xml_curve_names.moc"
