#include "curves/CurveFileTest.h"
#include "files/CurveType.h"
#include "graphs/SplineCurveGraph.h"

#include <QTest>

#include <cmath>

class TestXmlCurveReading : public CurveFileTest
{
    Q_OBJECT

private slots:
    void init() { openCurve(); }
    void cleanup() { closeCurve(); }

    void pointsHaveDefaults();
    void pointsAreOrderedByTime();
    void keysInAnyOrderGiveWhatAddingOneByOneGives_data();
    void keysInAnyOrderGiveWhatAddingOneByOneGives();
    void linearInAnySpelling_data();
    void linearInAnySpelling();

    void anExpressionFileLeavesTheKeys();
    void aSplineFileLeavesTheExpression();
    void anExpressionThatDoesNotParseGivesAnEmptySlotWithoutAWord();
    void aLoadedFileClearsTheSelectionAndMarksTheCurveChanged();
    void missingNodeTypesAreStoredAsMinusOneAndSurviveEvaluation();
    void anUnknownPointTypeIsStoredAsMinusOneAndSurvivesEvaluation();
    void aNumberThatDoesNotParseIsZero_data();
    void aNumberThatDoesNotParseIsZero();
    void aNumberOfManyDigitsIsReadToTheLast_data();
    void aNumberOfManyDigitsIsReadToTheLast();
};

void TestXmlCurveReading::pointsHaveDefaults()
{
    QVERIFY(load(splineFile("<point/>")));
    QCOMPARE(spline->getControlPointsNumber(), 1u);
    const PointInfo& point = *spline->at(0);
    QCOMPARE(point.time, 0.0);
    QCOMPARE(point.type, zk_spline::tcb);
    QVERIFY(!point.unifiedTangents);
}

void TestXmlCurveReading::pointsAreOrderedByTime()
{
    QVERIFY(load(splineFile("<point><x>2</x></point><point><x>1</x></point>")));
    QCOMPARE(spline->at(0)->time, 1.0);
    QCOMPARE(spline->at(1)->time, 2.0);
}

void TestXmlCurveReading::keysInAnyOrderGiveWhatAddingOneByOneGives_data()
{
    QTest::addColumn<QList<QByteArray>>("times");
    QTest::newRow("backwards") << QList<QByteArray>{"5", "4", "3", "2", "1", "0"};
    QTest::newRow("shuffled") << QList<QByteArray>{"3", "-1", "4", "1", "-5", "9", "2", "6"};
    QTest::newRow("equal times") << QList<QByteArray>{"2", "1", "2", "1", "0", "1", "2", "0"};
    QTest::newRow("no numbers") << QList<QByteArray>{"1",    "nan", "-1",    "inf", "0", "nan",
                                                     "-inf", "2",   "1e999", "nan", "-2"};
}

/// Of equal times the earlier in the file comes first.
void TestXmlCurveReading::keysInAnyOrderGiveWhatAddingOneByOneGives()
{
    QFETCH(QList<QByteArray>, times);
    SplineBase expected;
    QByteArray points;
    for (int i = 0; i < times.size(); ++i) {
        points += "<point><x>" + times.at(i) + "</x><y>" + QByteArray::number(i) + "</y></point>";
        PointInfo point;
        point.time = times.at(i) == "1e999" ? 0.0 : times.at(i).toDouble();
        point.value = i;
        expected.addPointPtr(new PointInfo(point));
    }
    QVERIFY(load(splineFile(points)));
    QCOMPARE(spline->getControlPointsNumber(), unsigned(times.size()));
    for (unsigned i = 0; i < spline->getControlPointsNumber(); ++i) {
        QVERIFY(spline->at(i)->time == expected.at(i)->time ||
                (std::isnan(spline->at(i)->time) && std::isnan(expected.at(i)->time)));
        QCOMPARE(spline->at(i)->value, expected.at(i)->value);
    }
}

void TestXmlCurveReading::linearInAnySpelling_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("linear") << QByteArray("linear");
    QTest::newRow("lineal") << QByteArray("lineal");
    QTest::newRow("capitals") << QByteArray("LINEAR");
    QTest::newRow("mixed capitals") << QByteArray("LineaL");
}

void TestXmlCurveReading::linearInAnySpelling()
{
    QFETCH(QByteArray, text);
    QVERIFY(load(splineFile("<point><type>" + text + "</type></point>")));
    QCOMPARE(spline->at(0)->type, zk_spline::linear);
}

void TestXmlCurveReading::anExpressionFileLeavesTheKeys()
{
    fillCurve();
    QVERIFY(load(curveFile("<type>Expression</type><expression>2 * t</expression>")));
    QCOMPARE(spline->getControlPointsNumber(), 1u);
    QCOMPARE(spline->firstNodeType(), SplineBase::loop);
    QCOMPARE(curve->curveType(), int(expressionCurve));
    QCOMPARE(curve->evaluate(3.0), 6.0);
}

void TestXmlCurveReading::aSplineFileLeavesTheExpression()
{
    fillCurve();
    QVERIFY(load(splineFile("<point><x>3</x></point>")));
    QCOMPARE(spline->at(0)->time, 3.0);
    QVERIFY(!spline->isAddFunc());
    QCOMPARE(curve->curveType(), int(expressionCurve));
    QCOMPARE(QString::fromStdString(expression->getString()), QString("t+77"));
}

void TestXmlCurveReading::anExpressionThatDoesNotParseGivesAnEmptySlotWithoutAWord()
{
    fillCurve();
    QVERIFY(load(curveFile("<type>expression</type><expression>nobody+</expression>")));
    QVERIFY(!expression);
    QVERIFY(!spline->isAddFunc());
    QVERIFY(boxes->texts.isEmpty());
}

void TestXmlCurveReading::aLoadedFileClearsTheSelectionAndMarksTheCurveChanged()
{
    spline->addPoint(1.0, 1.0);
    ControlSplineNode& selection = curve->splineGraph()->selection();
    selection.selectSinglePoint(spline->at(0));
    QVERIFY(load(splineFile("<point><x>3</x></point>")));
    QVERIFY(!selection.currentPoint);
    QVERIFY(selection.selectedPoints.isEmpty());
    QVERIFY(curve->hasChanged());
    QVERIFY(spline->hasChanged());
}

void TestXmlCurveReading::missingNodeTypesAreStoredAsMinusOneAndSurviveEvaluation()
{
    QVERIFY(load(splineFile("<point><x>3</x><y>5</y></point>")));
    QCOMPARE(int(spline->firstNodeType()), -1);
    QCOMPARE(int(spline->lastNodeType()), -1);
    QCOMPARE(curve->evaluate(0.0), 5.0);
    QCOMPARE(curve->evaluate(9.0), 5.0);
}

void TestXmlCurveReading::anUnknownPointTypeIsStoredAsMinusOneAndSurvivesEvaluation()
{
    QVERIFY(load(splineFile("<point><x>0</x><y>1</y><type>wavy</type></point>"
                            "<point><x>2</x><y>3</y><type>wavy</type></point>")));
    QCOMPARE(int(spline->at(0)->type), -1);
    QCOMPARE(curve->evaluate(1.0), 2.0);
    QVERIFY(boxes->texts.isEmpty());
}

void TestXmlCurveReading::aNumberThatDoesNotParseIsZero_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<double>("expected");
    QTest::newRow("word") << QByteArray("many") << 0.0;
    QTest::newRow("empty") << QByteArray("") << 0.0;
    QTest::newRow("almost nan") << QByteArray("nano") << 0.0;
    QTest::newRow("almost inf") << QByteArray("--inf") << 0.0;
    QTest::newRow("out of range") << QByteArray("1e999") << 0.0;
    QTest::newRow("far below") << QByteArray("-1e999") << 0.0;
    QTest::newRow("comma") << QByteArray("1,5") << 0.0;
    QTest::newRow("a number") << QByteArray("-1.5e2") << -150.0;
}

void TestXmlCurveReading::aNumberThatDoesNotParseIsZero()
{
    QFETCH(QByteArray, text);
    QFETCH(double, expected);
    QVERIFY(load(splineFile("<point><x>3</x><y>" + text + "</y></point>")));
    QCOMPARE(spline->at(0)->value, expected);
    QCOMPARE(spline->at(0)->time, 3.0);
}

void TestXmlCurveReading::aNumberOfManyDigitsIsReadToTheLast_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<double>("expected");
    const QByteArray zeros(2000, '0');
    const QByteArray half = "1.00000000000000011102230246251565404236316680908203125";
    QTest::newRow("zeros behind") << "-2.5" + zeros << -2.5;
    QTest::newRow("zeros before") << zeros + "2.5" << 2.5;
    QTest::newRow("zeros and an exponent") << "25" + zeros + "e-2001" << 2.5;
    QTest::newRow("zeros and a capital exponent") << "0." + zeros + "25E+2001" << 2.5;
    QTest::newRow("half a bit, to even") << half + zeros << 1.0;
    QTest::newRow("more than half a bit") << half + zeros + "1" << 1.0000000000000002;
    QTest::newRow("a sign") << "+2.5" + zeros << 2.5;
    QTest::newRow("blanks around") << "\n " + zeros + "2.5\t" + QByteArray(2000, ' ') << 2.5;
    QTest::newRow("two signs") << "+-2.5" + zeros << 0.0;
    QTest::newRow("a letter behind") << "2.5" + zeros + "f" << 0.0;
    QTest::newRow("a blank inside") << "2.5 " + zeros << 0.0;
    QTest::newRow("no ASCII digits") << "2.5" + zeros + "\xd9\xa1" << 0.0;
    QTest::newRow("above all numbers") << "1" + zeros << 0.0;
    QTest::newRow("below all numbers") << "0." + zeros + "1" << 0.0;
}

/// Such a text takes a way of its own.
void TestXmlCurveReading::aNumberOfManyDigitsIsReadToTheLast()
{
    QFETCH(QByteArray, text);
    QFETCH(double, expected);
    const double usual = QString::fromUtf8(text).toDouble();
    QVERIFY(usual == expected || std::isinf(usual));
    QVERIFY(load(splineFile("<point><x>3</x><y>" + text + "</y></point>")));
    QVERIFY(spline->at(0)->value == expected);
    QCOMPARE(spline->at(0)->time, 3.0);
}

QTEST_MAIN(TestXmlCurveReading)
#include "test_xml_curve_reading.moc"
