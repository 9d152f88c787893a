#include "curves/OlderCurveFileTest.h"
#include "support/Patience.h"

#include <QDir>
#include <QProcess>
#include <QTest>

#include <limits>

/// The document of the curve files and the schema say what the program writes.
class TestFileFormats : public OlderCurveFileTest
{
    Q_OBJECT

private slots:
    void init() { openCurve(); }
    void cleanup() { closeCurve(); }

    void theExampleOfTheXmlFileIsWhatIsWritten();
    void theExampleOfTheOlderFileIsWhatIsWritten();
    void theExampleOfTheXmlFileReadsBack();
    void theExampleOfTheOlderFileReadsBack();
    void everyFileWrittenFitsTheSchema();
    void theHostsFilesFitTheSchema();
    void theSchemaRefusesWhatIsNeverWritten_data();
    void theSchemaRefusesWhatIsNeverWritten();

private:
    void makeExample();
    static QByteArray example(const QByteArray& language);
    static QByteArray complaints(const QStringList& files);
    void writeAllKinds();

    QStringList written;
};

void TestFileFormats::makeExample()
{
    PointInfo first = pointOf(zk_spline::bezier, false);
    first.time = 0.0;
    first.value = -1.5;
    first.bezier = {1.0, -0.25};
    first.tcb = {};
    addKey(first);
    PointInfo second = pointOf(zk_spline::tcb, true);
    second.time = 4.0 / 3.0;
    second.value = 1e20;
    second.bezier = {};
    second.tcb.tension = 0.1;
    second.tcb.continuity = 0.0;
    second.tcb.bias = -0.2;
    second.tcb.easeFrom = 0.5;
    second.tcb.easeTo = 0.25;
    addKey(second);
    PointInfo third;
    third.time = 2.0;
    third.value = 3.0;
    third.type = zk_spline::linear;
    addKey(third);
    spline->setLastNodeType(SplineBase::loopOffset);
    spline->setDefaultValue(0.5);
    spline->setAddFunc(true);
    setExpression("sin(t)*2");
}

/// The block of the document that is fenced as of this language.
QByteArray TestFileFormats::example(const QByteArray& language)
{
    QFile document(ZK_DOCS "/file-formats.md");
    if (!document.open(QIODevice::ReadOnly)) {
        return QByteArray();
    }
    const QByteArray text = document.readAll();
    const QByteArray fence = "```" + language + "\n";
    const qsizetype begin = text.indexOf(fence) + fence.size();
    return text.mid(begin, text.indexOf("```", begin) - begin);
}

void TestFileFormats::theExampleOfTheXmlFileIsWhatIsWritten()
{
    makeExample();
    QCOMPARE(saved(), example("xml"));
}

void TestFileFormats::theExampleOfTheOlderFileIsWhatIsWritten()
{
    makeExample();
    QCOMPARE("255\n128\n0\n" + body(), example("text"));
}

void TestFileFormats::theExampleOfTheXmlFileReadsBack()
{
    QVERIFY(CurveFileTest::load(example("xml")));
    QCOMPARE(saved(), example("xml"));
}

void TestFileFormats::theExampleOfTheOlderFileReadsBack()
{
    load(example("text"));
    QCOMPARE("255\n128\n0\n" + body(), example("text"));
}

QByteArray TestFileFormats::complaints(const QStringList& files)
{
    QProcess checker;
    checker.start(ZK_XMLLINT,
                  QStringList{"--nonet", "--noout", "--relaxng", ZK_DOCS "/curve-file.rng"} +
                      files);
    if (!checker.waitForFinished(patience) || checker.exitStatus() != QProcess::NormalExit) {
        return "the checker did not run";
    }
    return checker.exitCode() == 0 ? QByteArray() : checker.readAllStandardError();
}

/// All types of curve, behaviours and interpolations, unified or not, and numbers of all kinds.
void TestFileFormats::writeAllKinds()
{
    const double numbers[] = {0.0,
                              -0.0,
                              123456789.0,
                              -1e-300,
                              1.0 / 3.0,
                              std::numeric_limits<double>::infinity(),
                              -std::numeric_limits<double>::infinity(),
                              std::numeric_limits<double>::quiet_NaN()};
    for (int i = 0; i < 40; ++i) {
        PointInfo key = pointOf(static_cast<zk_spline::interpolationType>(i % 5 - 1), i % 2 == 0);
        key.time = i;
        key.value = numbers[i % 8];
        key.bezier.tangentLeft = numbers[(i + 1) % 8];
        key.tcb = {numbers[(i + 2) % 8], numbers[(i + 3) % 8], numbers[(i + 4) % 8],
                   numbers[(i + 5) % 8], numbers[(i + 6) % 8]};
        addKey(key);
    }
    for (int behaviour = -1; behaviour < 6; ++behaviour) {
        spline->setFirstNodeType(static_cast<SplineBase::nodeType>(behaviour));
        spline->setLastNodeType(static_cast<SplineBase::nodeType>(4 - behaviour));
        for (const char* const text : {"", "t<1&t>0", "sin(t)"}) {
            setExpression(text);
            for (const bool& isSum : {false, true}) {
                spline->setAddFunc(isSum);
                written.append(path(QStringLiteral("%1.xml").arg(written.size())));
                curve->saveXML(written.last());
            }
        }
    }
}

void TestFileFormats::everyFileWrittenFitsTheSchema()
{
    writeAllKinds();
    spline->removeAllControlPoints();
    setExpression("");
    for (const bool& isSum : {false, true}) {
        spline->setAddFunc(isSum);
        written.append(path(QStringLiteral("%1.xml").arg(written.size())));
        curve->saveXML(written.last());
    }
    QCOMPARE(written.size(), 44);
    QCOMPARE(complaints(written), QByteArray());
}

void TestFileFormats::theHostsFilesFitTheSchema()
{
    QStringList files;
    for (const QFileInfo& file : QDir(ZK_EXAMPLE_CURVES).entryInfoList({"*.xml"})) {
        files.append(file.filePath());
    }
    QVERIFY(!files.isEmpty());
    QCOMPARE(complaints(files), QByteArray());
}

void TestFileFormats::theSchemaRefusesWhatIsNeverWritten_data()
{
    QTest::addColumn<QByteArray>("text");
    const QByteArray ends = "<first-node-type>zero</first-node-type>"
                            "<last-node-type>zero</last-node-type>";
    const QByteArray head = "<type>spline</type>" + ends + "<control-points><point><x>1</x>";
    const QByteArray tail = "</point></control-points>";
    const QByteArray easing = "<ease-from>0</ease-from><ease-to>0</ease-to>";
    QTest::newRow("another version") << QByteArray("<curve version=\"0.9\"/>");
    QTest::newRow("no type") << curveFile(ends + "<control-points/>");
    QTest::newRow("keys of an expression")
        << curveFile("<type>expression</type><expression/><control-points/>");
    QTest::newRow("continuity of a unified key")
        << curveFile(head + "<y>0</y><type>tcb</type>" + easing +
                     "<t>0</t><c>0</c><b>0</b><unified-tangents/>" + tail);
    QTest::newRow("slope of a linear key") << curveFile(head + "<y>0</y><type>linear</type>" +
                                                        easing + "<incoming>0</incoming>" + tail);
    QTest::newRow("decimal comma")
        << curveFile(head + "<y>0,5</y><type>linear</type>" + easing + tail);
}

void TestFileFormats::theSchemaRefusesWhatIsNeverWritten()
{
    QFETCH(QByteArray, text);
    QFile file(path("refused.xml"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(text), text.size());
    file.close();
    QVERIFY(complaints({file.fileName()}).contains("fails to validate"));
}

QTEST_MAIN(TestFileFormats)
#include "test_file_formats.moc"
