#include "curves/CurveFile.h"
#include "curves/OlderCurveFileTest.h"
#include "support/SplineState.h"

#include <QTest>

#include <functional>
#include <sys/stat.h>

using Maker = std::function<QByteArray()>;
Q_DECLARE_METATYPE(Maker)

/// Files that were damaged or made to do harm: each gives the box, or a result that is told, and
/// takes nothing from the curve that it does not replace.
class TestHostileCurveFiles : public OlderCurveFileTest
{
    Q_OBJECT

private slots:
    void init() { openCurve(); }
    void cleanup() { closeCurve(); }

    void anXmlFileCutAnywhereChangesNothing();
    void anOlderFileCutAnywhereKeepsOrReplacesTheKeysAsAWhole();
    void anXmlFileThatIsRefusedChangesNothing_data();
    void anXmlFileThatIsRefusedChangesNothing();
    void anXmlFileThatIsOddIsRead_data();
    void anXmlFileThatIsOddIsRead();
    void anExpressionBeyondTheParserLeavesTheSlotEmpty_data();
    void anExpressionBeyondTheParserLeavesTheSlotEmpty();
    void anOlderFileWithoutATypeChangesNothing_data();
    void anOlderFileWithoutATypeChangesNothing();
    void anOlderFileOfBadKeysKeepsTheOldOnes_data();
    void anOlderFileOfBadKeysKeepsTheOldOnes();
    void manyKeysAreRead_data();
    void manyKeysAreRead();
    void aPipeOrADeviceIsNotRead_data();
    void aPipeOrADeviceIsNotRead();
    void aLinkToAFileIsRead();

private:
    static void row(const char* name, const Maker& maker);
};

namespace {

const int manyBytes = 5000000; // of which the sanitizers make a second's work

/// The element alone, for a file with a head of its own.
QByteArray bare(const QByteArray& file)
{
    return file.mid(file.indexOf("<curve"));
}

} // namespace

/// Made only when its row runs, and freed behind it.
void TestHostileCurveFiles::row(const char* name, const Maker& maker)
{
    QTest::newRow(name) << maker;
}

void TestHostileCurveFiles::anXmlFileCutAnywhereChangesNothing()
{
    const QByteArray text =
        curveFile("<type>spline-plus-expression</type><expression>t&lt;2</expression>"
                  "<first-node-type>zero</first-node-type><control-points><point><x>1</x>"
                  "<unified-tangents/></point></control-points>");
    fillCurve();
    const SplineState before(*spline);
    for (qsizetype length = 0; length < text.size(); ++length) {
        QVERIFY(!CurveFileTest::load(text.left(length)));
        QVERIFY(SplineState(*spline) == before);
        verifyIsFilled();
        QCOMPARE(boxes->titles.size(), length + 1);
    }
    QVERIFY(CurveFileTest::load(text));
    QVERIFY(!(SplineState(*spline) == before));
}

void TestHostileCurveFiles::anOlderFileCutAnywhereKeepsOrReplacesTheKeysAsAWhole()
{
    const QByteArray text = whole("2\nt*2\n2 0 2 5\n" + keyLine("10") + keyLine("20"));
    for (qsizetype length = 0; length < text.size(); ++length) {
        spline->removeAllControlPoints();
        fillCurve();
        load(text.left(length));
        if (length < whole("2").size()) {
            QCOMPARE(boxes->texts, QStringList("Curve type not valid"));
            boxes->texts.clear();
            verifyIsFilled();
            continue;
        }
        QVERIFY(boxes->texts.isEmpty());
        const bool isWhole = length >= text.size() - 1; // without its last line feed
        QCOMPARE(spline->getControlPointsNumber(), isWhole ? 2u : 1u);
        QCOMPARE(spline->at(0)->time, isWhole ? 10.0 : 7.0);
        QCOMPARE(spline->firstNodeType(), isWhole ? SplineBase::zero : SplineBase::loop);
        QVERIFY(spline->isAddFunc());
    }
}

void TestHostileCurveFiles::anXmlFileThatIsRefusedChangesNothing_data()
{
    QTest::addColumn<Maker>("maker");
    row("nothing", [] { return QByteArray(); });
    row("zero bytes", [] { return QByteArray(1000, '\0'); });
    row("many zero bytes", [] { return QByteArray(manyBytes, '\0'); });
    row("a zero byte inside",
        [] { return curveFile("<type>spline</type>").replace("pline", QByteArray("\0line", 5)); });
    row("a mark of two-byte text before one-byte text",
        [] { return "\xff\xfe" + curveFile("<type>spline</type>"); });
    row("an encoding that nobody knows",
        [] { return curveFile("<type>spline</type>").replace("?>", " encoding=\"klingon\"?>"); });
    row("bytes that are no text of the encoding",
        [] { return curveFile("<type>expression</type><expression>\xff\xfe</expression>"); });
    row("elements a million deep",
        [] { return curveFile("<type>spline</type>" + QByteArray("<a>").repeated(1000000)); });
    row("elements a million deep behind as many ends in a comment", [] {
        return curveFile("<type>spline</type><!--" + QByteArray("</").repeated(1000000) + "-->" +
                         QByteArray("<a b='/>'>").repeated(1000000));
    });
    row("points a million deep", [] {
        return curveFile("<type>spline</type><control-points>" +
                         QByteArray("<point>").repeated(1000000));
    });
    row("entities that multiply", [] {
        QByteArray entities = "<!ENTITY e0 \"ha\">";
        for (int i = 1; i < 40; ++i) {
            const QByteArray earlier = "&e" + QByteArray::number(i - 1) + ";";
            entities += "<!ENTITY e" + QByteArray::number(i) + " \"" + earlier.repeated(10) + "\">";
        }
        return "<!DOCTYPE curve [" + entities +
               "]><curve version=\"1.0\"><type>expression</type><expression>&e39;</expression>"
               "</curve>";
    });
    row("an entity of itself", [] {
        return QByteArray("<!DOCTYPE curve [<!ENTITY e \"&e;\">]><curve version=\"1.0\">"
                          "<type>&e;</type></curve>");
    });
    row("an entity of another file", [] {
        return QByteArray("<!DOCTYPE curve [<!ENTITY e SYSTEM \"/etc/passwd\">]>"
                          "<curve version=\"1.0\"><type>&e;</type></curve>");
    });
    row("a tag of a million attributes", [] {
        QByteArray attributes = "version=\"1.0\"";
        for (int i = 0; i < 1000000; ++i) {
            attributes += " a" + QByteArray::number(i) + "='>'";
        }
        return curveFile("<type>spline</type>", attributes);
    });
    row("such a tag behind an open quote of a comment", [] {
        QByteArray attributes = "version=\"1.0\"";
        for (int i = 0; i < 100000; ++i) {
            attributes += "\na" + QByteArray::number(i) + " = \"1\"";
        }
        return "<!-- > <a b=' -->" + bare(curveFile("<type>spline</type>", attributes));
    });
    row("namespaces each inside another", [] {
        QByteArray children = "<type>spline</type>";
        for (int i = 0; i < 200000; ++i) {
            children += "<a xmlns:a" + QByteArray::number(i) + "=\"1\">";
        }
        return curveFile(children);
    });
    row("defaults of attributes for many elements", [] {
        QByteArray defaults;
        for (int i = 0; i < 50000; ++i) {
            defaults += " a" + QByteArray::number(i) + " CDATA \"1\"";
        }
        return "<!DOCTYPE curve [<!ATTLIST point" + defaults + ">]>" +
               bare(splineFile(QByteArray("<point/>").repeated(100000)));
    });
    row("an entity called a million times", [] {
        return "<!DOCTYPE curve [<!ENTITY e \"" + QByteArray(4000, 'a') + "\">]>" +
               bare(curveFile("<type>expression</type><expression>" +
                              QByteArray("&e;").repeated(1000000) + "</expression>"));
    });
    row("an endless name", [] { return "<" + QByteArray(manyBytes, 'a'); });
    row("an endless attribute", [] { return "<curve version=\"" + QByteArray(manyBytes, '1'); });
    row("a version of endless digits", [] {
        return curveFile("<type>spline</type>", "version='" + QByteArray(manyBytes, '1') + "'");
    });
    row("an endless type",
        [] { return curveFile("<type>" + QByteArray(manyBytes, 'a') + "</type>"); });
    row("an endless comment", [] { return "<!--" + QByteArray(manyBytes, 'a'); });
    row("a version of huge exponent",
        [] { return curveFile("<type>spline</type>", "version=\"1e999999999\""); });
    row("a version that is not a number",
        [] { return curveFile("<type>spline</type>", "version=\"nan\""); });
}

void TestHostileCurveFiles::anXmlFileThatIsRefusedChangesNothing()
{
    QFETCH(Maker, maker);
    fillCurve();
    QVERIFY(!CurveFileTest::load(maker()));
    QCOMPARE(boxes->titles, QStringList("Error Reading XML File"));
    verifyIsFilled();
}

void TestHostileCurveFiles::anXmlFileThatIsOddIsRead_data()
{
    QTest::addColumn<Maker>("maker");
    row("numbers beyond all numbers", [] {
        return splineFile(
            "<point><x>1e999</x><y>-1e999999999999</y><t>1e400</t><b>1e-400</b></point>");
    });
    row("a number of endless digits",
        [] { return splineFile("<point><x>0." + QByteArray(manyBytes, '0') + "</x></point>"); });
    row("numbers of endless digits beyond all numbers", [] {
        const QByteArray digits(manyBytes, '1');
        return splineFile("<point><x>" + digits + "</x><y>-" + digits + "</y><t>1e" + digits +
                          "</t><b>1e-" + digits + "</b></point>");
    });
    row("endless texts that are almost numbers", [] {
        const QByteArray digits = "0." + QByteArray(manyBytes, '1');
        return splineFile("<point><x>" + digits + "x</x><y>+-" + digits + "</y><t>" + digits +
                          ".</t><b>" + digits + " 1</b></point>");
    });
    row("an endless name of an interpolation", [] {
        return splineFile("<point><type>" + QByteArray(manyBytes, 'a') + "</type></point>");
    });
    row("an endless comment",
        [] { return splineFile("<!--" + QByteArray(manyBytes, 'a') + "--><point/>"); });
    row("attributes, namespaces and references in a usual number", [] {
        QByteArray attributes;
        for (int i = 0; i < 100; ++i) {
            attributes += " a" + QByteArray::number(i) + " = \"=&lt;'/>=\"";
        }
        return "<!DOCTYPE curve [<!ENTITY e \"0\"><!ATTLIST x a CDATA \"1\">]>" +
               bare(splineFile("<!--" + QByteArray("=<a =").repeated(9000) + "--><point" +
                               attributes + " xmlns:a='b'><x id='/'>&e;</x><y/></point>"));
    });
    row("many attributes that begin like a namespace", [] {
        return splineFile("<point xmln='1'>" + QByteArray("<t x='1' xm='2'/>").repeated(50000) +
                          "</point>");
    });
    row("more elements beside each other than may be inside", [] {
        return splineFile("<point>" + QByteArray("<x>0</x><y/><t a='/'/>").repeated(20000) +
                          "</point>");
    });
    row("blanks without end", [] {
        return splineFile(QByteArray(manyBytes, ' ') + "<point/>") + QByteArray(manyBytes, '\n');
    });
}

void TestHostileCurveFiles::anXmlFileThatIsOddIsRead()
{
    QFETCH(Maker, maker);
    fillCurve();
    QVERIFY(CurveFileTest::load(maker()));
    QCOMPARE(spline->getControlPointsNumber(), 1u);
    const PointInfo& key = *spline->at(0);
    QCOMPARE(key.time, 0.0);
    QCOMPARE(key.value, 0.0);
    QCOMPARE(key.tcb.tension, 0.0);
    QCOMPARE(key.tcb.bias, 0.0);
}

void TestHostileCurveFiles::anExpressionBeyondTheParserLeavesTheSlotEmpty_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("many bytes") << QByteArray(manyBytes, '1');
    QTest::newRow("deep nesting") << QByteArray(500000, '(') + "t" + QByteArray(500000, ')');
    QTest::newRow("a chain of signs") << QByteArray(999999, '-') + "t";
}

void TestHostileCurveFiles::anExpressionBeyondTheParserLeavesTheSlotEmpty()
{
    QFETCH(QByteArray, text);
    fillCurve();
    QVERIFY(CurveFileTest::load(
        curveFile("<type>expression</type><expression>" + text + "</expression>")));
    QVERIFY(!expression);
    fillCurve();
    load(whole("1\n" + text));
    QVERIFY(!expression);
    QVERIFY(boxes->titles.isEmpty());
}

void TestHostileCurveFiles::anOlderFileWithoutATypeChangesNothing_data()
{
    QTest::addColumn<Maker>("maker");
    row("nothing", [] { return QByteArray(); });
    row("zero bytes", [] { return QByteArray(manyBytes, '\0'); });
    row("two-byte text", [] { return QByteArray("1\0\n\0002\0\n\0003\0\n\0000\0\n\0", 16); });
    row("an endless number", [] { return QByteArray(manyBytes, '1'); });
    row("endless blanks", [] { return QByteArray(manyBytes, ' '); });
    row("a colour beyond its type", [] { return whole("0\n0 1 1 0\n", "1\n2\n99999999999\n"); });
    row("a colour that is broken", [] { return whole("0\n0 1 1 0\n", "1\n2.5\n3\n"); });
    row("a negative type", [] { return whole("-1\n0 1 1 0\n"); });
    row("a type of zero bytes", [] { return whole(QByteArray(10, '\0')); });
    row("XML", [] { return curveFile("<type>spline</type>"); });
}

void TestHostileCurveFiles::anOlderFileWithoutATypeChangesNothing()
{
    QFETCH(Maker, maker);
    fillCurve();
    load(maker());
    QCOMPARE(boxes->texts, QStringList("Curve type not valid"));
    verifyIsFilled();
}

void TestHostileCurveFiles::anOlderFileOfBadKeysKeepsTheOldOnes_data()
{
    QTest::addColumn<Maker>("maker");
    row("no keys at all", [] { return QByteArray(); });
    row("a count beyond all memory", [] { return "4294967295 1 1 0\n" + keyLine("1"); });
    row("a count beyond its type", [] { return "4294967296 1 1 0\n" + keyLine("1"); });
    row("a negative count", [] { return "-1 1 1 0\n" + keyLine("1"); });
    row("one key too few", [] { return "2 1 1 0\n" + keyLine("1"); });
    row("zero bytes", [] { return QByteArray(manyBytes, '\0'); });
    row("an endless number", [] { return "1 1 1 " + QByteArray(manyBytes, '1'); });
    row("many keys and then an end",
        [] { return "1000000 1 1 0\n" + keyLine("1").repeated(300000); });
}

void TestHostileCurveFiles::anOlderFileOfBadKeysKeepsTheOldOnes()
{
    QFETCH(Maker, maker);
    fillCurve();
    const SplineState before(*spline);
    load(whole("2\nt+77\n" + maker()));
    QVERIFY(SplineState(*spline) == before);
    verifyIsFilled();
    QVERIFY(boxes->texts.isEmpty());
}

void TestHostileCurveFiles::manyKeysAreRead_data()
{
    QTest::addColumn<bool>("xml");
    QTest::addColumn<bool>("backwards");
    QTest::addColumn<int>("count");
    QTest::newRow("XML") << true << false << 200000;
    QTest::newRow("XML, the last key first") << true << true << 200000;
    QTest::newRow("older format") << false << false << 200000;
    QTest::newRow("older format, a million, the last key first") << false << true << 1000000;
}

void TestHostileCurveFiles::manyKeysAreRead()
{
    QFETCH(bool, xml);
    QFETCH(bool, backwards);
    QFETCH(int, count);
    QByteArray keys;
    for (int i = 0; i < count; ++i) {
        const QByteArray time = QByteArray::number(backwards ? count - 1 - i : i);
        keys += xml ? "<point><x>" + time + "</x></point>" : keyLine(time);
    }
    if (xml) {
        QVERIFY(CurveFileTest::load(splineFile(keys)));
    } else {
        load(whole("0\n" + QByteArray::number(count) + " 1 1 0\n" + keys));
    }
    QCOMPARE(spline->getControlPointsNumber(), unsigned(count));
    QCOMPARE(spline->getFirst()->time, 0.0);
    QCOMPARE(spline->getLast()->time, count - 1.0);
}

void TestHostileCurveFiles::aPipeOrADeviceIsNotRead_data()
{
    QTest::addColumn<QString>("target");
    QTest::newRow("a device") << "/dev/null";
    QTest::newRow("a device without an end") << "/dev/zero";
    QTest::newRow("a link to a device") << path("link");
    QTest::newRow("a pipe that nobody writes to") << path("pipe");
}

/// As if it could not be opened. Opening such a pipe would wait for ever.
void TestHostileCurveFiles::aPipeOrADeviceIsNotRead()
{
    QFETCH(QString, target);
    QVERIFY(QFile::exists(path("link")) || QFile::link("/dev/null", path("link")));
    QVERIFY(QFile::exists(path("pipe")) || mkfifo(qPrintable(path("pipe")), 0600) == 0);
    fillCurve();
    QVERIFY(!curve->LoadXML(target, FunctionParserBase::instance()));
    curve->loadCrv(target, FunctionParserBase::instance());
    QString error;
    QVERIFY(!curve_editor::readCurveFile(target, spline.get(), &expression, error));
    QCOMPARE(error, QString("Cannot open %1 for reading: It is a pipe or a device").arg(target));
    QVERIFY(boxes->titles.isEmpty());
    verifyIsFilled();
}

void TestHostileCurveFiles::aLinkToAFileIsRead()
{
    load(whole("1\nt*2\n"));
    setExpression("t");
    QVERIFY(QFile::link(path("loaded.crv"), path("linked.crv")));
    curve->loadCrv(path("linked.crv"), FunctionParserBase::instance());
    QCOMPARE(QString::fromStdString(expression->getString()), QString("t*2"));

    QVERIFY(CurveFileTest::load(curveFile("<type>expression</type><expression>t+3</expression>")));
    setExpression("t");
    QVERIFY(QFile::link(path("loaded.xml"), path("linked.xml")));
    QVERIFY(curve->LoadXML(path("linked.xml"), FunctionParserBase::instance()));
    QCOMPARE(QString::fromStdString(expression->getString()), QString("t+3"));
}

QTEST_MAIN(TestHostileCurveFiles)
#include "test_hostile_curve_files.moc"
