#include "curves/CurveFileTest.h"

#include <QTest>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

class TestXmlCurveWriting : public CurveFileTest
{
    Q_OBJECT

private slots:
    void init() { openCurve(); }
    void cleanup() { closeCurve(); }

    void aWholeFileLooksLikeThis();
    void anEmptySplineWritesAnEmptyListOfPoints();
    void aPointWritesTheElementsOfItsType_data();
    void aPointWritesTheElementsOfItsType();
    void anExpressionFileHasNoKeysAndNoNodeTypes();
    void numbersHaveSixSignificantDigits();
    void savingToAPathThatCannotBeOpenedSaysNothing();

    void writingToAStreamGivesTheElementAlone();
};

void TestXmlCurveWriting::aWholeFileLooksLikeThis()
{
    addKey(pointOf(zk_spline::bezier, false));
    spline->setLastNodeType(SplineBase::loopOffset);
    spline->setAddFunc(true);
    setExpression("sin( t ) * 2");
    QCOMPARE(QString::fromUtf8(saved()),
             QString("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                     "<!DOCTYPE qxxml-curve>\n"
                     "<curve version=\"1.0\">\n"
                     "    <type>spline-plus-expression</type>\n"
                     "    <expression>sin(t)*2</expression>\n"
                     "    <first-node-type>constant</first-node-type>\n"
                     "    <last-node-type>loop-offset</last-node-type>\n"
                     "    <control-points>\n"
                     "        <point>\n"
                     "            <x>1</x>\n"
                     "            <y>2</y>\n"
                     "            <type>bezier</type>\n"
                     "            <ease-from>0.5</ease-from>\n"
                     "            <ease-to>0.4</ease-to>\n"
                     "            <incoming>3</incoming>\n"
                     "            <outgoing>4</outgoing>\n"
                     "        </point>\n"
                     "    </control-points>\n"
                     "</curve>\n"));
}

void TestXmlCurveWriting::anEmptySplineWritesAnEmptyListOfPoints()
{
    QVERIFY(saved().contains("<control-points/>") || saved().contains("<control-points></"));
}

void TestXmlCurveWriting::aPointWritesTheElementsOfItsType_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<bool>("unified");
    QTest::addColumn<QStringList>("elements");
    const QStringList common = {"x", "y", "type", "ease-from", "ease-to"};
    QTest::newRow("linear") << 0 << false << common;
    QTest::newRow("unified linear") << 0 << true << common + QStringList{"unified-tangents"};
    QTest::newRow("Bezier") << 1 << false << common + QStringList{"incoming", "outgoing"};
    QTest::newRow("unified Bezier")
        << 1 << true << common + QStringList{"incoming", "unified-tangents"};
    QTest::newRow("TCB") << 2 << false << common + QStringList{"t", "c", "b"};
    QTest::newRow("unified TCB") << 2 << true << common + QStringList{"t", "b", "unified-tangents"};
    QTest::newRow("stepped") << 3 << false << common;
    QTest::newRow("none of the four") << -1 << false << common;
}

void TestXmlCurveWriting::aPointWritesTheElementsOfItsType()
{
    QFETCH(int, type);
    QFETCH(bool, unified);
    addKey(pointOf(static_cast<zk_spline::interpolationType>(type), unified));
    QXmlStreamReader reader(saved());
    QStringList elements;
    bool inPoint = false;
    while (!reader.atEnd()) {
        reader.readNext();
        if (reader.isStartElement() && inPoint) {
            elements.append(reader.name().toString());
        }
        inPoint = inPoint || (reader.isStartElement() && reader.name() == QLatin1String("point"));
    }
    QTEST(elements, "elements");
}

void TestXmlCurveWriting::anExpressionFileHasNoKeysAndNoNodeTypes()
{
    addKey(pointOf(zk_spline::tcb, false));
    setExpression("t");
    const QByteArray text = saved();
    QVERIFY(text.contains("<type>expression</type>"));
    QVERIFY(!text.contains("node-type"));
    QVERIFY(!text.contains("control-points"));
}

void TestXmlCurveWriting::numbersHaveSixSignificantDigits()
{
    spline->addPoint(1.23456789, 123456789.0);
    const QByteArray text = saved();
    QVERIFY(text.contains("<x>1.23457</x>"));
    QVERIFY(text.contains("<y>1.23457e+08</y>"));
}

void TestXmlCurveWriting::savingToAPathThatCannotBeOpenedSaysNothing()
{
    curve->saveXML(path("no/such/folder/c.xml"));
    QVERIFY(boxes->texts.isEmpty());
    QVERIFY(!QFile::exists(path("no")));
}

void TestXmlCurveWriting::writingToAStreamGivesTheElementAlone()
{
    QByteArray text;
    QXmlStreamWriter writer(&text);
    setExpression("1");
    curve->writeXmlStream(writer);
    QCOMPARE(QString::fromUtf8(text), QString("<curve version=\"1.0\"><type>expression</type>"
                                              "<expression>1</expression></curve>"));
}

QTEST_MAIN(TestXmlCurveWriting)
#include "test_xml_curve_writing.moc"
