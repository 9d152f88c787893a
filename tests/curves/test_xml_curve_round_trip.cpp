#include "curves/CurveFileTest.h"
#include "files/CurveType.h"
#include "files/CurveXmlNames.h"

#include <QTest>
#include <QXmlStreamReader>

#include <cmath>
#include <limits>

class TestXmlCurveRoundTrip : public CurveFileTest
{
    Q_OBJECT

private slots:
    void init() { openCurve(); }
    void cleanup() { closeCurve(); }

    void splinePlusExpressionWithAnEmptySlotIsWrittenAndReadBack();

    void aUnifiedBezierKeyComesBackWithEqualTangents();
    void aUnifiedTcbKeyComesBackWithContinuityZero();
    void aLinearOrSteppedKeyComesBackWithoutTangentsAndTcb_data();
    void aLinearOrSteppedKeyComesBackWithoutTangentsAndTcb();
    void aBrokenKeyComesBackWhole_data();
    void aBrokenKeyComesBackWhole();
    void everyCurveTypeComesBack_data();
    void everyCurveTypeComesBack();
    void anEmptySplineLoadsWithNoKey();

    void numbersAtTheEndsOfTheirRangeComeBack_data();
    void numbersAtTheEndsOfTheirRangeComeBack();
    void aCurveWithoutSplineAndSlotReadsAndWrites();
    void aFileWithoutNodeTypesIsSavedAsOneThatReads();
    void aNumberThatIsNoBehaviourIsWrittenAsTheOneThatCounts_data();
    void aNumberThatIsNoBehaviourIsWrittenAsTheOneThatCounts();
};

void TestXmlCurveRoundTrip::splinePlusExpressionWithAnEmptySlotIsWrittenAndReadBack()
{
    spline->addPoint(1.0, 2.0);
    spline->setAddFunc(true);
    const QByteArray text = saved();
    spline->setAddFunc(false);
    QVERIFY(load(text));
    QCOMPARE(curve->curveType(), int(splinePlusExpressionCurve));
    QVERIFY(!expression);
    QCOMPARE(curve->evaluate(1.0), 2.0);
}

void TestXmlCurveRoundTrip::aUnifiedBezierKeyComesBackWithEqualTangents()
{
    addKey(pointOf(zk_spline::bezier, true));
    QVERIFY(load(saved()));
    QVERIFY(spline->at(0)->unifiedTangents);
    QCOMPARE(spline->at(0)->bezier.tangentLeft, 3.0);
    QCOMPARE(spline->at(0)->bezier.tangentRight, 3.0);
}

void TestXmlCurveRoundTrip::aUnifiedTcbKeyComesBackWithContinuityZero()
{
    addKey(pointOf(zk_spline::tcb, true));
    QVERIFY(load(saved()));
    QVERIFY(spline->at(0)->unifiedTangents);
    QCOMPARE(spline->at(0)->tcb.tension, 0.1);
    QCOMPARE(spline->at(0)->tcb.continuity, 0.0);
    QCOMPARE(spline->at(0)->tcb.bias, 0.3);
    // Also where the file says otherwise.
    QVERIFY(load(splineFile("<point><c>5</c><incoming>1</incoming><outgoing>2</outgoing>"
                            "<unified-tangents/></point>")));
    QCOMPARE(spline->at(0)->tcb.continuity, 0.0);
    QCOMPARE(spline->at(0)->bezier.tangentRight, 1.0);
}

void TestXmlCurveRoundTrip::aLinearOrSteppedKeyComesBackWithoutTangentsAndTcb_data()
{
    QTest::addColumn<int>("type");
    QTest::newRow("linear") << int(zk_spline::linear);
    QTest::newRow("stepped") << int(zk_spline::stepped);
}

void TestXmlCurveRoundTrip::aLinearOrSteppedKeyComesBackWithoutTangentsAndTcb()
{
    QFETCH(int, type);
    addKey(pointOf(static_cast<zk_spline::interpolationType>(type), false));
    QVERIFY(load(saved()));
    const PointInfo& point = *spline->at(0);
    QCOMPARE(int(point.type), type);
    QCOMPARE(point.bezier.tangentLeft, 0.0);
    QCOMPARE(point.bezier.tangentRight, 0.0);
    QCOMPARE(point.tcb.tension, 0.0);
    QCOMPARE(point.tcb.continuity, 0.0);
    QCOMPARE(point.tcb.bias, 0.0);
    QCOMPARE(point.tcb.easeTo, 0.4);
    QCOMPARE(point.tcb.easeFrom, 0.5);
}

void TestXmlCurveRoundTrip::aBrokenKeyComesBackWhole_data()
{
    QTest::addColumn<int>("type");
    QTest::newRow("Bezier") << int(zk_spline::bezier);
    QTest::newRow("TCB") << int(zk_spline::tcb);
}

void TestXmlCurveRoundTrip::aBrokenKeyComesBackWhole()
{
    QFETCH(int, type);
    addKey(pointOf(static_cast<zk_spline::interpolationType>(type), false));
    QVERIFY(load(saved()));
    const PointInfo& point = *spline->at(0);
    QCOMPARE(point.time, 1.0);
    QCOMPARE(point.value, 2.0);
    QCOMPARE(int(point.type), type);
    QVERIFY(!point.unifiedTangents);
    const bool isBezier = type == zk_spline::bezier;
    QCOMPARE(point.bezier.tangentLeft, isBezier ? 3.0 : 0.0);
    QCOMPARE(point.bezier.tangentRight, isBezier ? 4.0 : 0.0);
    QCOMPARE(point.tcb.tension, isBezier ? 0.0 : 0.1);
    QCOMPARE(point.tcb.continuity, isBezier ? 0.0 : 0.2);
    QCOMPARE(point.tcb.bias, isBezier ? 0.0 : 0.3);
}

void TestXmlCurveRoundTrip::everyCurveTypeComesBack_data()
{
    QTest::addColumn<int>("type");
    QTest::newRow("spline") << int(splineCurve);
    QTest::newRow("expression") << int(expressionCurve);
    QTest::newRow("spline plus expression") << int(splinePlusExpressionCurve);
}

void TestXmlCurveRoundTrip::everyCurveTypeComesBack()
{
    QFETCH(int, type);
    spline->addPoint(0.0, 5.0);
    spline->setFirstNodeType(SplineBase::followTangent);
    spline->setLastNodeType(SplineBase::loop);
    spline->setAddFunc(type == splinePlusExpressionCurve);
    if (type != splineCurve) {
        setExpression("t");
    }
    const QByteArray text = saved();
    const double value = curve->evaluate(3.0);
    curve->reset();
    QVERIFY(load(text));
    QCOMPARE(curve->curveType(), type);
    QCOMPARE(curve->evaluate(3.0), value);
    if (type != expressionCurve) {
        QCOMPARE(spline->firstNodeType(), SplineBase::followTangent);
        QCOMPARE(spline->lastNodeType(), SplineBase::loop);
    }
}

void TestXmlCurveRoundTrip::anEmptySplineLoadsWithNoKey()
{
    const QByteArray text = saved();
    spline->addPoint(0.0, 5.0);
    QVERIFY(load(text));
    QCOMPARE(spline->getControlPointsNumber(), 0u);
}

void TestXmlCurveRoundTrip::numbersAtTheEndsOfTheirRangeComeBack_data()
{
    QTest::addColumn<double>("number");
    QTest::addColumn<double>("expected"); // to six digits
    const double infinity = std::numeric_limits<double>::infinity();
    QTest::newRow("infinite") << infinity << infinity;
    QTest::newRow("minus infinite") << -infinity << -infinity;
    QTest::newRow("not a number") << std::nan("") << std::nan("");
    QTest::newRow("greatest") << std::numeric_limits<double>::max() << 1.79769e308;
    QTest::newRow("least") << std::numeric_limits<double>::denorm_min() << 4.94066e-324;
}

void TestXmlCurveRoundTrip::numbersAtTheEndsOfTheirRangeComeBack()
{
    QFETCH(double, number);
    QFETCH(double, expected);
    PointInfo written = pointOf(zk_spline::bezier, false);
    written.value = number;
    written.bezier.tangentRight = number;
    addKey(written);
    QVERIFY(load(saved()));
    for (const double& read : {spline->at(0)->value, spline->at(0)->bezier.tangentRight}) {
        QVERIFY(std::isnan(number) ? std::isnan(read) : read == expected);
    }
}

void TestXmlCurveRoundTrip::aCurveWithoutSplineAndSlotReadsAndWrites()
{
    CurveNodeBase bare(nullptr, "c", "n", Qt::red, 0.0f, nullptr, nullptr, 0.0f, 1.0f, true);
    QXmlStreamReader reader(
        curveFile("<type>spline-plus-expression</type><expression>1</expression>"
                  "<control-points><point/></control-points>"));
    reader.readNextStartElement();
    QVERIFY(bare.LoadXmlStream(reader, FunctionParserBase::instance()));
    bare.saveXML(path("bare.xml"));
    QVERIFY(curve->LoadXML(path("bare.xml"), FunctionParserBase::instance()));
    QCOMPARE(spline->lastNodeType(), SplineBase::constant);
}

void TestXmlCurveRoundTrip::aFileWithoutNodeTypesIsSavedAsOneThatReads()
{
    QVERIFY(load(splineFile("<point><x>1</x><y>4</y></point><point><x>2</x><y>6</y></point>")));
    QCOMPARE(int(spline->lastNodeType()), -1);
    const double before = curve->evaluate(0.0);
    const double after = curve->evaluate(9.0);
    const QByteArray text = saved();
    spline->reset();
    QVERIFY(load(text));
    QVERIFY(boxes->texts.isEmpty());
    QCOMPARE(spline->getControlPointsNumber(), 2u);
    QCOMPARE(curve->evaluate(0.0), before);
    QCOMPARE(curve->evaluate(9.0), after);
}

void TestXmlCurveRoundTrip::aNumberThatIsNoBehaviourIsWrittenAsTheOneThatCounts_data()
{
    QTest::addColumn<int>("number");
    for (const int number : {-1, 5, 1000, std::numeric_limits<int>::min()}) {
        QTest::addRow("%d", number) << number;
    }
}

void TestXmlCurveRoundTrip::aNumberThatIsNoBehaviourIsWrittenAsTheOneThatCounts()
{
    QFETCH(int, number);
    spline->setFirstNodeType(static_cast<SplineBase::nodeType>(number));
    spline->setLastNodeType(static_cast<SplineBase::nodeType>(number));
    const QByteArray text = saved();
    QVERIFY(text.contains("<first-node-type>constant</first-node-type>"));
    QVERIFY(text.contains("<last-node-type>constant</last-node-type>"));
    QVERIFY(load(text));
    QCOMPARE(spline->firstNodeType(), SplineBase::constant);
    QCOMPARE(spline->lastNodeType(), SplineBase::constant);
    QCOMPARE(curve_files::nodeTypeName(number), QString("unknown"));
}

QTEST_MAIN(TestXmlCurveRoundTrip)
#include "test_xml_curve_round_trip.moc"
