#include "curves/CurveFileTest.h"

#include <QTest>
#include <QXmlStreamReader>

namespace {

const char* const errorTitle = "Error Reading XML File";

} // namespace

class TestXmlCurveErrors : public CurveFileTest
{
    Q_OBJECT

private slots:
    void init() { openCurve(); }
    void cleanup() { closeCurve(); }

    void theVersionDecidesWhetherAFileIsRead_data();
    void theVersionDecidesWhetherAFileIsRead();
    void aDoctypeOfAnyNameOrNoneIsNoError_data();
    void aDoctypeOfAnyNameOrNoneIsNoError();
    void errorsAreToldInABoxAndNothingChanges_data();
    void errorsAreToldInABoxAndNothingChanges();
    void malformedXmlIsToldInTheReadersOwnWords();
    void aFileThatCannotBeOpenedIsRefusedWithoutAWord();
    void unknownElementsOfACurveEndIt();
    void anUnknownElementAtTheStartOfAPointEndsPointListAndCurve();
    void anUnknownElementAfterOthersOfAPointEndsItThere();
    void readingFromAStreamShowsNoBox();
};

void TestXmlCurveErrors::theVersionDecidesWhetherAFileIsRead_data()
{
    QTest::addColumn<QByteArray>("attribute");
    QTest::addColumn<QString>("error");
    QTest::newRow("current") << QByteArray("version='1.0'") << "";
    QTest::newRow("older") << QByteArray("version='0.5'") << "";
    QTest::newRow("current in many digits") << "version='1." + QByteArray(2000, '0') + "'"
                                            << "";
    QTest::newRow("later by less than a float tells") << QByteArray("version='1.00000001'") << "";
    QTest::newRow("beyond a float")
        << QByteArray("version='1e39'") << "Unsupported Version: 1e39 > 1.0";
    QTest::newRow("beyond all numbers")
        << QByteArray("version='1e999'") << "Unsupported Version: 1e999 > 1.0";
    QTest::newRow("below a float") << QByteArray("version='1e-60'") << "Undefined Version";
    QTest::newRow("later") << QByteArray("version='1.01'") << "Unsupported Version: 1.01 > 1.0";
    QTest::newRow("infinite") << QByteArray("version='inf'") << "Unsupported Version: inf > 1.0";
    QTest::newRow("missing") << QByteArray("") << "Undefined Version";
    QTest::newRow("empty") << QByteArray("version=''") << "Undefined Version";
    QTest::newRow("a word") << QByteArray("version='new'") << "Undefined Version";
    QTest::newRow("zero") << QByteArray("version='0'") << "Undefined Version";
    QTest::newRow("negative") << QByteArray("version='-1'") << "Undefined Version";
    QTest::newRow("nan") << QByteArray("version='nan'") << "Undefined Version";
}

void TestXmlCurveErrors::theVersionDecidesWhetherAFileIsRead()
{
    QFETCH(QByteArray, attribute);
    QFETCH(QString, error);
    fillCurve();
    const bool isRead = load(curveFile("<type>spline</type>", attribute));
    QCOMPARE(isRead, error.isEmpty());
    if (!error.isEmpty()) {
        QCOMPARE(boxes->texts.size(), 1);
        QVERIFY2(boxes->texts.first().contains("\n" + error + "\nat line:3, column:"),
                 qPrintable(boxes->texts.first()));
        verifyIsFilled();
    }
}

void TestXmlCurveErrors::aDoctypeOfAnyNameOrNoneIsNoError_data()
{
    QTest::addColumn<QByteArray>("doctype");
    QTest::newRow("another") << QByteArray("<!DOCTYPE something-else>");
    QTest::newRow("none") << QByteArray();
}

void TestXmlCurveErrors::aDoctypeOfAnyNameOrNoneIsNoError()
{
    QFETCH(QByteArray, doctype);
    QVERIFY(load(doctype + "<curve version=\"1.0\"><type>spline</type></curve>"));
}

void TestXmlCurveErrors::errorsAreToldInABoxAndNothingChanges_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("error");
    const QByteArray point = "<type>spline</type><control-points><point><x>1</x></point>";
    QTest::newRow("another root") << QByteArray("<spline version='1.0'/>")
                                  << "Bad Format: Expected <curve> instead of <spline>";
    QTest::newRow("another root without a version")
        << QByteArray("<spline/>") << "Bad Format: Expected <curve> instead of <spline>";
    QTest::newRow("curve type") << curveFile("<type>Wavy</type>") << "Unknown curve type: <Wavy>";
    QTest::newRow("mixed type") << curveFile("<type>unknown</type>")
                                << "Unknown curve type: <unknown>";
    QTest::newRow("empty curve type") << curveFile("<type/>") << "Unknown curve type: <>";
    QTest::newRow("no curve type")
        << curveFile("<expression>1</expression>") << "Unknown curve type: <>";
    QTest::newRow("nothing at all") << curveFile("") << "Unknown curve type: <>";
    QTest::newRow("first node type")
        << curveFile("<type>spline</type><first-node-type>Wavy</first-node-type>")
        << "Unknown node type: <Wavy>";
    QTest::newRow("last node type")
        << curveFile(point + "</control-points><last-node-type/>") << "Unknown node type: <>";
    QTest::newRow("empty point type")
        << curveFile(point + "<point><type></type></point></control-points>")
        << "Unknown interpolation type: <>";
}

void TestXmlCurveErrors::errorsAreToldInABoxAndNothingChanges()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, error);
    fillCurve();
    QVERIFY(!load(text));
    QCOMPARE(boxes->titles, QStringList{errorTitle});
    QCOMPARE(boxes->icons, QList<QMessageBox::Icon>{QMessageBox::Critical});
    const QString start = "Error parsing XML curve file.\nReason:\n" + error + "\nat line:";
    QVERIFY2(boxes->texts.first().startsWith(start), qPrintable(boxes->texts.first()));
    QVERIFY(boxes->texts.first().contains(", column:"));
    verifyIsFilled();
}

void TestXmlCurveErrors::malformedXmlIsToldInTheReadersOwnWords()
{
    const QByteArrayList texts = {
        "",
        "no xml",
        curveFile("<type>spline</typo>"),
        curveFile("<type>spline</type><control-points><point><x>1</x></control-points>"),
        curveFile("<type>spline</type><control-points><point><x>1</x></point>").chopped(8),
        curveFile("<type>spline<b/></type>"),
    };
    fillCurve();
    for (const QByteArray& text : texts) {
        QXmlStreamReader reader(text);
        while (!reader.atEnd()) {
            reader.readNext();
        }
        QVERIFY2(!load(text), text.constData());
        QCOMPARE(boxes->titles.takeLast(), errorTitle);
        const QString reason = boxes->texts.takeLast().section("Reason:\n", 1);
        const QString expected =
            text.contains("<b/>") ? QString("Expected character data.") : reader.errorString();
        QCOMPARE(reason, expected);
        verifyIsFilled();
    }
}

void TestXmlCurveErrors::aFileThatCannotBeOpenedIsRefusedWithoutAWord()
{
    fillCurve();
    QVERIFY(!curve->LoadXML(path("missing.xml"), FunctionParserBase::instance()));
    QVERIFY(boxes->texts.isEmpty());
    verifyIsFilled();
}

void TestXmlCurveErrors::unknownElementsOfACurveEndIt()
{
    // The end tag of the unknown element ends the curve; the reader of the document meets the
    // next element.
    QVERIFY(!load(curveFile("<type>spline</type><note/><first-node-type>loop</first-node-type>")));
    QVERIFY(
        boxes->texts.first().contains("Bad Format: Expected <curve> instead of <first-node-type>"));
    QCOMPARE(int(spline->firstNodeType()), -1);
}

void TestXmlCurveErrors::anUnknownElementAtTheStartOfAPointEndsPointListAndCurve()
{
    fillCurve();
    const QByteArray point = "<point><note>n</note><x>1</x><y>2</y><type>step</type></point>";
    QVERIFY(!load(splineFile(point)));
    QCOMPARE(boxes->titles, QStringList{errorTitle});
    QVERIFY(boxes->texts.first().contains("Bad Format: Expected <curve> instead of <type>"));
    // The curve has taken what was read before: one point with its defaults.
    QCOMPARE(spline->getControlPointsNumber(), 1u);
    QCOMPARE(spline->at(0)->time, 0.0);
    QCOMPARE(spline->at(0)->type, zk_spline::tcb);
    QVERIFY(!spline->isAddFunc());
}

void TestXmlCurveErrors::anUnknownElementAfterOthersOfAPointEndsItThere()
{
    QVERIFY(load(splineFile("<point><x>1</x><y>2</y><note/></point>")));
    QCOMPARE(spline->at(0)->time, 1.0);
    QCOMPARE(spline->at(0)->value, 2.0);
}

void TestXmlCurveErrors::readingFromAStreamShowsNoBox()
{
    fillCurve();
    QXmlStreamReader good(curveFile("<type>expression</type><expression>3</expression>"));
    good.readNextStartElement();
    QVERIFY(curve->LoadXmlStream(good, nullptr));
    QCOMPARE(curve->evaluate(0.0), 3.0);
    QXmlStreamReader bad(curveFile("<type>wavy</type>"));
    bad.readNextStartElement();
    QVERIFY(!curve->LoadXmlStream(bad, FunctionParserBase::instance()));
    QVERIFY(bad.errorString().startsWith("Unknown curve type: <wavy>\nat line:3, column:"));
    QVERIFY(boxes->texts.isEmpty());
    QCOMPARE(curve->evaluate(0.0), 3.0);
}

QTEST_MAIN(TestXmlCurveErrors)
#include "test_xml_curve_errors.moc"
