// The pieces of the XML curve file that a curve object offers by themselves.

#include "core/PointInfo.h"
#include "core/SplineBase.h"
#include "curves/CurveNodeBase.h"
#include "files/CurveType.h"
#include "support/FailOnWarning.h"

#include <QTest>
#include <QXmlStreamReader>

#include <memory>

class TestXmlCurveMembers : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void aPointIsReadOnFromItsStart();
    void anErrorGivesNoPoint();
    void anyEndElementIsTheEnd();
    void anErrorIsRaisedWithItsPlace();
    void numbersHaveTexts();
    void textsHaveNumbers();
};

void TestXmlCurveMembers::aPointIsReadOnFromItsStart()
{
    QXmlStreamReader reader("<point><x>1.5</x><y>-2</y><type>Bezier</type><incoming>3</incoming>"
                            "<unified-tangents/></point>");
    QVERIFY(reader.readNextStartElement());
    const std::unique_ptr<PointInfo> point(CurveNodeBase::readControlPoint(reader));
    QVERIFY(point);
    QCOMPARE(point->time, 1.5);
    QCOMPARE(point->value, -2.0);
    QCOMPARE(point->type, zk_spline::bezier);
    QCOMPARE(point->bezier.tangentLeft, 3.0);
    QCOMPARE(point->bezier.tangentRight, 3.0);
    QVERIFY(point->unifiedTangents);
    QVERIFY(CurveNodeBase::isEndOf(reader, "point"));
}

void TestXmlCurveMembers::anErrorGivesNoPoint()
{
    QXmlStreamReader reader("<point><x>1</x><type></type></point>");
    QVERIFY(reader.readNextStartElement());
    QVERIFY(!CurveNodeBase::readControlPoint(reader));
    QVERIFY(reader.hasError());
}

void TestXmlCurveMembers::anyEndElementIsTheEnd()
{
    QXmlStreamReader reader("<curve></curve>");
    QVERIFY(reader.readNextStartElement());
    QVERIFY(!CurveNodeBase::isEndOf(reader, "curve"));
    reader.readNext();
    QVERIFY(CurveNodeBase::isEndOf(reader, "curve"));
    QVERIFY(CurveNodeBase::isEndOf(reader, "point"));
}

void TestXmlCurveMembers::anErrorIsRaisedWithItsPlace()
{
    QXmlStreamReader reader("<curve>\n  <point/></curve>");
    QVERIFY(reader.readNextStartElement());
    QVERIFY(reader.readNextStartElement());
    const QString place =
        QString("\nat line:%1, column:%2").arg(reader.lineNumber()).arg(reader.columnNumber());
    CurveNodeBase::raiseXmlError(reader, "Something %1 else");
    QVERIFY(reader.hasError());
    QCOMPARE(reader.errorString(), "Something %1 else" + place);
}

void TestXmlCurveMembers::numbersHaveTexts()
{
    QCOMPARE(CurveNodeBase::curveTypeName(splineCurve), QString("spline"));
    QCOMPARE(CurveNodeBase::curveTypeName(splinePlusExpressionCurve),
             QString("spline-plus-expression"));
    QCOMPARE(CurveNodeBase::curveTypeName(3), QString("unknown"));
    QCOMPARE(CurveNodeBase::nodeTypeName(SplineBase::loopOffset), QString("loop-offset"));
    QCOMPARE(CurveNodeBase::nodeTypeName(-1), QString("unknown"));
    QCOMPARE(CurveNodeBase::interpolationTypeName(zk_spline::stepped), QString("step"));
    QCOMPARE(CurveNodeBase::interpolationTypeName(4), QString("unknown"));
}

void TestXmlCurveMembers::textsHaveNumbers()
{
    QCOMPARE(CurveNodeBase::nodeTypeFromName("Follow-Tangent"), int(SplineBase::followTangent));
    QCOMPARE(CurveNodeBase::nodeTypeFromName("cubic"), -1);
    QCOMPARE(CurveNodeBase::interpolationTypeFromName("LINEAL"), int(zk_spline::linear));
    QCOMPARE(CurveNodeBase::interpolationTypeFromName("tcb"), int(zk_spline::tcb));
    QCOMPARE(CurveNodeBase::interpolationTypeFromName(""), -1);
}

QTEST_APPLESS_MAIN(TestXmlCurveMembers)
#include "test_xml_curve_members.moc"
