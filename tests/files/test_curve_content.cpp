#include "core/FunctionFloatBase.h"
#include "core/SplineBase.h"
#include "files/CurveContent.h"
#include "support/FailOnWarning.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <limits>

using curve_files::CurveContent;
using curve_files::CurveFileResult;
using curve_files::CurveFormat;

Q_DECLARE_METATYPE(CurveFormat)

namespace {

CurveContent sample(int type, const QString& text = "sin(t)*nobody.knows")
{
    CurveContent content;
    content.type = type;
    content.expressionText = type == splineCurve ? QString() : text;
    if (hasKeys(type)) {
        content.firstNodeType = SplineBase::zero;
        content.lastNodeType = SplineBase::loopOffset;
        for (int i = 0; i < 4; ++i) {
            PointInfo key;
            key.time = i * 0.5;
            key.value = i * 2.0 - 1.0;
            key.type = static_cast<zk_spline::interpolationType>(i);
            key.unifiedTangents = i == 1;
            content.keys.push_back(key);
        }
    }
    return content;
}

QByteArray written(const CurveContent& content, CurveFormat format)
{
    QBuffer device;
    device.open(QIODevice::WriteOnly);
    return content.write(device, format) ? device.data() : QByteArray();
}

CurveFileResult readFrom(CurveContent& content, const QByteArray& text)
{
    QBuffer device;
    device.setData(text);
    device.open(QIODevice::ReadOnly);
    return content.read(device);
}

QByteArray xmlOf(const QByteArray& children)
{
    return "<curve version='1.0'>" + children + "</curve>";
}

void formatRows()
{
    QTest::addColumn<CurveFormat>("format");
    QTest::newRow("XML") << CurveFormat::xml;
    QTest::newRow("the older format") << CurveFormat::older;
}

} // namespace

/// Curve files without a dialog, a parser or registered names.
class TestCurveContent : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void whatIsWrittenReadsBack_data();
    void whatIsWrittenReadsBack();
    void onlyTheOlderFormatHasColorAndDefaultValue();
    void theFormatIsRecognisedByTheContent_data();
    void theFormatIsRecognisedByTheContent();
    void aMarkOfTheEncodingIsPassedOver_data() { formatRows(); }
    void aMarkOfTheEncodingIsPassedOver();
    void theNameTellsTheFormatToWrite_data();
    void theNameTellsTheFormatToWrite();
    void filesAreReadByContentWhateverTheirName();

    void errorsTellPlaceAndName_data();
    void errorsTellPlaceAndName();
    void whatCannotBeReadLeavesTheContent_data();
    void whatCannotBeReadLeavesTheContent();
    void ofBadKeysTheRestIsTaken();
    void whatCannotBeReadBackIsNotWritten_data();
    void whatCannotBeReadBackIsNotWritten();
    void blanksAreLeftOutOfTheOlderFormat();
    void theOlderFormatKeepsNames_data();
    void theOlderFormatKeepsNames();
    void theOlderFormatKeepsBytesThatAreNoText();
    void aZeroInAnOlderFileIsNoEndOfTheExpression();
    void aFullDeviceIsTold();

    void theExpressionIsCheckedWhenAskedFor_data();
    void theExpressionIsCheckedWhenAskedFor();
    void namesInExpressionsAreRenamed_data();
    void namesInExpressionsAreRenamed();
    void namesAreRenamedToWhatReadsBack_data();
    void namesAreRenamedToWhatReadsBack();
    void manyMentionsAreRenamed();

    void aLiveCurveGoesInAndComesOut();
    void namesOfFilesHoldNoFolders();

    void manyKeysBehindDeclarationsAreRead();
    void aRefusalNamesTheLimit_data();
    void aRefusalNamesTheLimit();
    void aRefusalHidesNoErrorBeforeIt();
    void percentSignsInTextCountForNothing();
};

void TestCurveContent::whatIsWrittenReadsBack_data()
{
    QTest::addColumn<CurveFormat>("format");
    QTest::addColumn<int>("type");
    for (const int type : {0, 1, 2}) {
        QTest::addRow("XML, %d", type) << CurveFormat::xml << type;
        QTest::addRow("older, %d", type) << CurveFormat::older << type;
    }
}

void TestCurveContent::whatIsWrittenReadsBack()
{
    QFETCH(CurveFormat, format);
    QFETCH(int, type);
    const CurveContent content = sample(type);
    CurveContent back;
    const CurveFileResult result = readFrom(back, written(content, format));
    QVERIFY2(result, qPrintable(result.text()));
    QCOMPARE(back.type, type);
    QCOMPARE(back.isAddFunc(), type == 2);
    QCOMPARE(back.expressionText, content.expressionText);
    QCOMPARE(back.firstNodeType, content.firstNodeType);
    QCOMPARE(back.lastNodeType, content.lastNodeType);
    QCOMPARE(back.keys.size(), content.keys.size());
    for (std::size_t i = 0; i < back.keys.size(); ++i) {
        QCOMPARE(back.keys[i].time, content.keys[i].time);
        QCOMPARE(back.keys[i].value, content.keys[i].value);
        QCOMPARE(back.keys[i].type, content.keys[i].type);
        QCOMPARE(back.keys[i].unifiedTangents, content.keys[i].unifiedTangents);
    }
}

void TestCurveContent::onlyTheOlderFormatHasColorAndDefaultValue()
{
    CurveContent content = sample(splineCurve);
    content.red = 12;
    content.green = 34;
    content.blue = 56;
    content.defaultValue = 0.1;
    CurveContent older;
    QVERIFY(readFrom(older, written(content, CurveFormat::older)));
    QCOMPARE(older.red, 12);
    QCOMPARE(older.green, 34);
    QCOMPARE(older.blue, 56);
    QVERIFY(older.defaultValue == 0.1);
    CurveContent xml;
    QVERIFY(readFrom(xml, written(content, CurveFormat::xml)));
    QCOMPARE(xml.red, 255);
    QVERIFY(!xml.defaultValue);
}

void TestCurveContent::theFormatIsRecognisedByTheContent_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<CurveFormat>("format");
    QTest::newRow("an element") << QByteArray("<curve") << CurveFormat::xml;
    QTest::newRow("an element behind blanks") << QByteArray(" \r\n\t<") << CurveFormat::xml;
    QTest::newRow("two-byte text") << QByteArray("\xff\xfe<\0", 4) << CurveFormat::xml;
    QTest::newRow("two-byte text without a mark") << QByteArray("\0<\0?", 4) << CurveFormat::xml;
    QTest::newRow("a number") << QByteArray("12\n") << CurveFormat::older;
    QTest::newRow("a number behind a mark") << QByteArray("\xef\xbb\xbf\n1") << CurveFormat::older;
    QTest::newRow("a negative number") << QByteArray("-1\n") << CurveFormat::older;
    QTest::newRow("neither") << QByteArray("curve") << CurveFormat::xml;
    QTest::newRow("nothing") << QByteArray() << CurveFormat::xml;
}

void TestCurveContent::theFormatIsRecognisedByTheContent()
{
    QFETCH(QByteArray, text);
    QFETCH(CurveFormat, format);
    QBuffer device(&text);
    device.open(QIODevice::ReadOnly);
    QCOMPARE(curve_files::formatOfContent(device), format);
    QCOMPARE(device.pos(), 0);
    const bool isOpen = text.isEmpty() || text == "curve";
    QCOMPARE(curve_files::formatOfContent(device, CurveFormat::older),
             isOpen ? CurveFormat::older : format);
}

void TestCurveContent::aMarkOfTheEncodingIsPassedOver()
{
    QFETCH(CurveFormat, format);
    CurveContent content;
    const CurveFileResult result =
        readFrom(content, "\xef\xbb\xbf" + written(sample(splinePlusExpressionCurve), format));
    QVERIFY2(result, qPrintable(result.text()));
    QCOMPARE(content.keys.size(), std::size_t(4));
}

void TestCurveContent::theNameTellsTheFormatToWrite_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<CurveFormat>("format");
    QTest::newRow("xml") << "a.xml" << CurveFormat::xml;
    QTest::newRow("crv") << "a.crv" << CurveFormat::older;
    QTest::newRow("crv in capitals") << "A.CRV" << CurveFormat::older;
    QTest::newRow("no ending") << "crv" << CurveFormat::xml;
}

void TestCurveContent::theNameTellsTheFormatToWrite()
{
    QFETCH(QString, name);
    QFETCH(CurveFormat, format);
    QCOMPARE(curve_files::formatOfName(name), format);
    QTemporaryDir folder;
    QVERIFY(sample(expressionCurve).writeFile(folder.filePath(name)));
    QFile file(folder.filePath(name));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll().startsWith("<?xml"), format == CurveFormat::xml);
}

void TestCurveContent::filesAreReadByContentWhateverTheirName()
{
    QTemporaryDir folder;
    const QString path = folder.filePath("a.xml");
    QVERIFY(sample(splineCurve).writeFile(path, CurveFormat::older));
    CurveContent content;
    CurveFormat format = CurveFormat::xml;
    QVERIFY(content.readFile(path, &format));
    QCOMPARE(format, CurveFormat::older);
    QCOMPARE(content.keys.size(), std::size_t(4));
    QCOMPARE(content.readFile(folder.filePath("missing.xml")).problem, CurveFileResult::notOpened);
    QCOMPARE(content.readFile("/dev/null").problem, CurveFileResult::notOpened);
    QFile::remove(path);
    QFile(path).open(QIODevice::WriteOnly);
    QCOMPARE(content.readFile(path).problem, CurveFileResult::malformed);
}

void TestCurveContent::errorsTellPlaceAndName_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("problem");
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("line");
    QTest::newRow("no XML") << QByteArray("<curve\n<") << int(CurveFileResult::malformed) << ""
                            << 2;
    QTest::newRow("another element")
        << QByteArray("<bend/>") << int(CurveFileResult::otherContent) << "bend" << 1;
    QTest::newRow("a later version")
        << QByteArray("\n<curve version='2'/>") << int(CurveFileResult::otherContent) << "" << 2;
    QTest::newRow("an unknown type")
        << xmlOf("\n\n<type>splin</type>") << int(CurveFileResult::unknownName) << "splin" << 3;
    QTest::newRow("an unknown behaviour")
        << xmlOf("\n<type>spline</type>\n<last-node-type>Lop</last-node-type>")
        << int(CurveFileResult::unknownName) << "Lop" << 3;
    QTest::newRow("an older type")
        << QByteArray("1\n2\n3\n7\n") << int(CurveFileResult::unknownName) << "7" << 4;
    QTest::newRow("no older type")
        << QByteArray("1\n2\n") << int(CurveFileResult::unknownName) << "" << 3;
    QTest::newRow("older keys") << QByteArray("1 2 3 0\n2 1 1 0\n1 2 3 4 5 6 7 8 9 1 0\n1 two 3")
                                << int(CurveFileResult::badKeys) << "" << 4;
}

void TestCurveContent::errorsTellPlaceAndName()
{
    QFETCH(QByteArray, text);
    QFETCH(int, problem);
    QFETCH(QString, name);
    QFETCH(int, line);
    CurveContent content;
    const CurveFileResult result = readFrom(content, text);
    QCOMPARE(int(result.problem), problem);
    QCOMPARE(result.name, name);
    QCOMPARE(int(result.line), line);
    QVERIFY(!result.message.isEmpty());
    QVERIFY(result.text().endsWith(
        QString("\nat line:%1, column:%2").arg(result.line).arg(result.column)));
}

void TestCurveContent::whatCannotBeReadLeavesTheContent_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("half a document") << QByteArray("<curve version='1.0'><type>spline</type>");
    QTest::newRow("an error behind the curve") << xmlOf("<type>spline</type>") + "<more/>";
    QTest::newRow("an older file of no type") << QByteArray("1 2 3 x");
}

void TestCurveContent::whatCannotBeReadLeavesTheContent()
{
    QFETCH(QByteArray, text);
    CurveContent content = sample(splinePlusExpressionCurve);
    QVERIFY(!readFrom(content, text));
    QCOMPARE(content.type, int(splinePlusExpressionCurve));
    QCOMPARE(content.keys.size(), std::size_t(4));
    QVERIFY(!content.expressionText.isEmpty());
}

void TestCurveContent::ofBadKeysTheRestIsTaken()
{
    CurveContent content = sample(splineCurve);
    const CurveFileResult result = readFrom(content, "1 2 3\n2\nt*2\n1 1 1 0\n1 2 x\n");
    QCOMPARE(result.problem, CurveFileResult::badKeys);
    QCOMPARE(result.line, 5);
    QCOMPARE(result.column, 5);
    QCOMPARE(content.type, int(splinePlusExpressionCurve));
    QCOMPARE(content.expressionText, "t*2");
    QCOMPARE(content.keys.size(), std::size_t(4));
}

void TestCurveContent::whatCannotBeReadBackIsNotWritten_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("text");
    QTest::addColumn<CurveFormat>("format");
    QTest::newRow("several types") << int(mixedCurves) << "t" << CurveFormat::xml;
    QTest::newRow("several types, older") << int(mixedCurves) << "t" << CurveFormat::older;
    QTest::newRow("no character") << 1 << QString(QChar(0xffff)) << CurveFormat::xml;
    for (const CurveFormat format : {CurveFormat::xml, CurveFormat::older}) {
        const char* const name = format == CurveFormat::xml ? "XML" : "older";
        QTest::addRow("a zero, %s", name) << 1 << QString("t") + QChar(0) + "*2" << format;
        QTest::addRow("a control character, %s", name) << 1 << "t\x01" << format;
        QTest::addRow("half a character, %s", name) << 1 << QString(QChar(0xd800)) << format;
    }
    QTest::newRow("blanks that part two words") << 2 << "t f" << CurveFormat::older;
}

void TestCurveContent::whatCannotBeReadBackIsNotWritten()
{
    QFETCH(int, type);
    QFETCH(QString, text);
    QFETCH(CurveFormat, format);
    QTemporaryDir folder;
    const QString path = folder.filePath("kept");
    QVERIFY(sample(splineCurve).writeFile(path));
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray former = file.readAll();
    const CurveContent content = sample(type, text);
    QCOMPARE(content.checkWritable(format).problem, CurveFileResult::notWritable);
    QCOMPARE(content.writeFile(path, format).problem, CurveFileResult::notWritable);
    QCOMPARE(written(content, format), QByteArray());
    QVERIFY(file.seek(0));
    QCOMPARE(file.readAll(), former);
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files).size(), 1);
}

void TestCurveContent::blanksAreLeftOutOfTheOlderFormat()
{
    const CurveContent content = sample(splinePlusExpressionCurve, " sin( t ) * 2\n+ a.b ");
    CurveContent back;
    QVERIFY(readFrom(back, written(content, CurveFormat::older)));
    QCOMPARE(back.expressionText, "sin(t)*2+a.b");
    QCOMPARE(back.keys.size(), std::size_t(4));
    CurveContent xml;
    QVERIFY(readFrom(xml, written(content, CurveFormat::xml)));
    QCOMPARE(xml.expressionText, content.expressionText);
    const CurveContent quoted = sample(expressionCurve, "'arm left.x' * 2");
    QVERIFY(readFrom(back, written(quoted, CurveFormat::older)));
    QCOMPARE(back.expressionText, "'arm\\sleft.x'*2");
}

void TestCurveContent::theOlderFormatKeepsNames_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("word");
    QTest::newRow("a wide blank in a name")
        << QStringLiteral("arm\u3000left.x + 1") << QStringLiteral("arm\u3000left.x+1");
    QTest::newRow("another") << QStringLiteral("arm\u2003left.x\t+ a\u0085b")
                             << QStringLiteral("arm\u2003left.x+a\u0085b");
    QTest::newRow("a no-break space in quotes")
        << QStringLiteral("'arm\u00a0left.x' * 2") << QStringLiteral("'arm\u00a0left.x'*2");
    QTest::newRow("a no-break space") << QStringLiteral("t\u00a0* 2") << QStringLiteral("t*2");
    QTest::newRow("no other blank") << QStringLiteral("t\u00a0*2") << QStringLiteral("t\u00a0*2");
    QTest::newRow("quotes in quotes") << R"('a\'b c' + 'd\\' * t)"
                                      << R"('a\'b\sc'+'d\\'*t)";
}

void TestCurveContent::theOlderFormatKeepsNames()
{
    QFETCH(QString, text);
    CurveContent back;
    QVERIFY(readFrom(back, written(sample(expressionCurve, text), CurveFormat::older)));
    QTEST(back.expressionText, "word");
}

void TestCurveContent::theOlderFormatKeepsBytesThatAreNoText()
{
    CurveContent content;
    QVERIFY(readFrom(content, "1 2 3\n1\ncaf\xe9.x+1\n"));
    QVERIFY(content.checkExpression());
    QVERIFY(written(content, CurveFormat::older).contains("\ncaf\xe9.x+1\n"));
    QCOMPARE(content.checkWritable(CurveFormat::xml).problem, CurveFileResult::notWritable);
    content.expressionText = "t";
    QVERIFY(written(content, CurveFormat::older).endsWith("\nt\n"));
    QVERIFY(content.checkWritable(CurveFormat::xml));
}

void TestCurveContent::aZeroInAnOlderFileIsNoEndOfTheExpression()
{
    CurveContent content;
    QVERIFY(readFrom(content, QByteArray("1 2 3\n1\nt\0*2\n", 13)));
    QCOMPARE(content.expressionText.size(), 4);
    QCOMPARE(content.checkExpression().problem, CurveFileResult::badExpression);
}

void TestCurveContent::aFullDeviceIsTold()
{
    QFile full("/dev/full");
    if (!full.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) {
        QSKIP("This system has no device that is always full.");
    }
    QCOMPARE(sample(splineCurve).write(full, CurveFormat::xml).problem,
             CurveFileResult::notWritten);
    QCOMPARE(sample(splineCurve).write(full, CurveFormat::older).problem,
             CurveFileResult::notWritten);
    QCOMPARE(sample(splineCurve).writeFile("/no/such/folder/a.xml").problem,
             CurveFileResult::notWritten);
}

void TestCurveContent::theExpressionIsCheckedWhenAskedFor_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("isGood");
    QTest::addColumn<bool>("isGoodWithNames");
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("column");
    QTest::newRow("of time alone") << "sin(t)*f/fps" << true << true << "" << 0;
    QTest::newRow("of a known name") << "body.w*2" << true << true << "" << 0;
    QTest::newRow("of another name") << "2*nobody" << true << false << "nobody" << 3;
    QTest::newRow("empty") << "" << true << true << "" << 0;
    QTest::newRow("an open parenthesis") << "sin(t" << false << false << "" << 0;
    QTest::newRow("no expression") << "2*/3" << false << false << "" << 0;
}

void TestCurveContent::theExpressionIsCheckedWhenAskedFor()
{
    QFETCH(QString, text);
    QFETCH(bool, isGood);
    QFETCH(bool, isGoodWithNames);
    QFETCH(QString, name);
    QFETCH(int, column);
    const CurveContent content = sample(expressionCurve, text);
    QCOMPARE(bool(content.checkExpression()), isGood);
    const CurveFileResult result =
        content.checkExpression([](const QString& each) { return each == "body.w"; });
    QCOMPARE(bool(result), isGoodWithNames);
    QCOMPARE(result.name, name);
    if (column > 0) {
        QCOMPARE(result.line, 1);
        QCOMPARE(int(result.column), column);
    }
    CurveContent fromFile;
    QVERIFY(readFrom(fromFile, xmlOf("\n <type>expression</type>\n <expression>2*nobody"
                                     "</expression>")));
    const CurveFileResult inFile = fromFile.checkExpression([](const QString&) { return false; });
    QCOMPARE(inFile.line, 3);
    QCOMPARE(inFile.column, qint64(QByteArray(" <expression>2*").size() + 1));
}

void TestCurveContent::namesInExpressionsAreRenamed_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("count");
    QTest::addColumn<QString>("renamed");
    QTest::newRow("once") << "arm.x*2" << 1 << "leg.x*2";
    QTest::newRow("three times") << "arm.x+sin(arm.x)-if(t>1,arm.x,0)" << 3
                                 << "leg.x+sin(leg.x)-if(t>1,leg.x,0)";
    QTest::newRow("in another case") << "Arm.X*2" << 1 << "leg.x*2";
    QTest::newRow("not within longer names")
        << "arm.xy+my.arm.x+arm.x" << 1 << "arm.xy+my.arm.x+leg.x";
    QTest::newRow("with blanks kept") << " arm.x  * 2 " << 1 << " leg.x  * 2 ";
    QTest::newRow("not at all") << "sin(t)" << 0 << "sin(t)";
    QTest::newRow("not in what is no expression") << "arm.x*(" << 0 << "arm.x*(";
}

void TestCurveContent::namesInExpressionsAreRenamed()
{
    QFETCH(QString, text);
    QFETCH(int, count);
    QFETCH(QString, renamed);
    CurveContent content = sample(splinePlusExpressionCurve, text);
    QCOMPARE(content.renameInExpression("arm.x", "leg.x"), count);
    QCOMPARE(content.expressionText, renamed);
    QCOMPARE(content.renameInExpression("leg.x", "LEG.X"), 0);
    if (count == 1) {
        QCOMPARE(content.renameInExpression("leg.x", "leg-left.x"), 1);
        QCOMPARE(content.expressionText, renamed.replace("leg.x", "'leg-left.x'"));
        QCOMPARE(content.renameInExpression("leg-left.x", "arm.x"), 1);
        QCOMPARE(content.expressionText, renamed.replace("'leg-left.x'", "arm.x"));
    }
}

void TestCurveContent::namesAreRenamedToWhatReadsBack_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("count");
    QTest::newRow("empty") << "" << 0;
    QTest::newRow("the time") << "t" << 0;
    QTest::newRow("a constant") << "PI" << 0;
    QTest::newRow("two lines") << "b\nc" << 0;
    QTest::newRow("half a character") << QString(QChar(0xd800)) << 0;
    QTest::newRow("two words") << "b c" << 1;
    QTest::newRow("a function's") << "sin" << 1;
}

void TestCurveContent::namesAreRenamedToWhatReadsBack()
{
    QFETCH(QString, name);
    QFETCH(int, count);
    CurveContent content = sample(expressionCurve, "arm.x*2");
    QCOMPARE(content.renameInExpression("arm.x", name), count);
    QCOMPARE(content.expressionText == "arm.x*2", count == 0);
    QCOMPARE(content.renameInExpression(name, "leg.x"), count);
}

void TestCurveContent::manyMentionsAreRenamed()
{
    constexpr int mentions = 50000;
    const QString sum = QString("+arm.x").repeated(mentions);
    CurveContent content = sample(expressionCurve, "sin(sin)" + sum);
    QCOMPARE(content.renameInExpression("arm.x", "b"), mentions);
    QCOMPARE(content.expressionText, "sin(sin)" + QString("+b").repeated(mentions));
    QCOMPARE(content.renameInExpression("sin", "c"), 1);
    QVERIFY(content.expressionText.startsWith("sin(c)+b"));
}

void TestCurveContent::aLiveCurveGoesInAndComesOut()
{
    SplineBase spline;
    spline.addPoint(2.0, 3.0);
    spline.addPoint(1.0, 4.0);
    spline.setDefaultValue(5.0);
    spline.setAddFunc(true);
    const CurveContent content = CurveContent::of(&spline, nullptr);
    QCOMPARE(content.type, int(splinePlusExpressionCurve));
    QCOMPARE(content.keys.front().time, 1.0);
    SplineBase other;
    other.addPoint(9.0, 9.0);
    content.copyTo(&other, nullptr, nullptr);
    QCOMPARE(other.getControlPointsNumber(), 2U);
    QCOMPARE(other(2.0), 3.0);
    QCOMPARE(other.getDefaultValue(), 5.0);
    QVERIFY(other.isAddFunc());
    QCOMPARE(CurveContent::of(nullptr, nullptr).type, int(splineCurve));
}

void TestCurveContent::namesOfFilesHoldNoFolders()
{
    QCOMPARE(curve_files::fileNameOfCurve("arm.x"), "arm.x");
    QCOMPARE(curve_files::fileNameOfCurve("in/out.x/y"), "in_out.x_y");
    QCOMPARE(curve_files::fileNameOfCurve("../../x"), ".._.._x");
}

void TestCurveContent::manyKeysBehindDeclarationsAreRead()
{
    QByteArray declarations;
    for (const char* element : {"curve", "type", "expression", "control-points", "point", "x", "y",
                                "ease-from", "ease-to", "incoming", "outgoing", "t", "c", "b"}) {
        declarations += QByteArray("<!ELEMENT ") + element + " ANY>\n<!ATTLIST " + element +
                        " id CDATA #IMPLIED\n  version CDATA #IMPLIED>\n";
    }
    const QByteArray point = "<point><x>1</x><y>2</y><type>bezier</type><ease-from>0</ease-from>"
                             "<ease-to>0</ease-to><incoming>1</incoming><outgoing>2</outgoing>"
                             "</point>\n";
    CurveContent content;
    const CurveFileResult result =
        readFrom(content, "<!DOCTYPE curve [" + declarations + "]>" +
                              xmlOf("<type>spline</type><control-points>" + point.repeated(40000) +
                                    "</control-points>"));
    QVERIFY2(result, qPrintable(result.text()));
    QCOMPARE(content.keys.size(), std::size_t(40000));
}

void TestCurveContent::aRefusalNamesTheLimit_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("words");
    QByteArray attributes;
    for (int i = 0; i < 300; ++i) {
        attributes += " a" + QByteArray::number(i) + "='1'";
    }
    QTest::newRow("attributes") << "<curve" + attributes + "/>"
                                << "more than 200 attributes";
    QTest::newRow("depth") << "<curve version='1.0'><type>spline</type>" +
                                  QByteArray("<a>").repeated(20000)
                           << "more than 10000 deep";
    QByteArray list;
    for (int i = 0; i < 50000; ++i) {
        list += " a" + QByteArray::number(i) + " CDATA #IMPLIED";
    }
    QByteArray defaults;
    for (int i = 0; i < 140; ++i) {
        defaults += "<!ATTLIST x a" + QByteArray::number(i) + " CDATA '1'>";
    }
    QTest::newRow("parameters") << "<!DOCTYPE curve [<!-- <a> --><!ENTITY % a \"" + defaults +
                                       "\">" + QByteArray("%a;\n").repeated(40000) + "]>" +
                                       xmlOf("<type>spline</type>")
                                << "Declarations are too long";
    QTest::newRow("declarations") << "<!DOCTYPE curve [<!ATTLIST x" + list + ">]>" +
                                         xmlOf("<type>spline</type>" +
                                               QByteArray("<x></x>").repeated(100000))
                                  << "Declarations are too long";
}

void TestCurveContent::aRefusalNamesTheLimit()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, words);
    CurveContent content;
    const CurveFileResult result = readFrom(content, text);
    QCOMPARE(result.problem, CurveFileResult::malformed);
    QVERIFY2(result.message.contains(words), qPrintable(result.message));
}

void TestCurveContent::aRefusalHidesNoErrorBeforeIt()
{
    QByteArray attributes;
    for (int i = 0; i < 210; ++i) {
        attributes += " a" + QByteArray::number(i) + "='1'";
    }
    CurveContent content;
    const CurveFileResult result = readFrom(content, "<svg><g" + attributes + "/></svg>");
    QCOMPARE(result.problem, CurveFileResult::otherContent);
    QCOMPARE(result.message, "Bad Format: Expected <curve> instead of <svg>");
}

void TestCurveContent::percentSignsInTextCountForNothing()
{
    CurveContent content;
    const QByteArray percents = "<!--" + QByteArray("%").repeated(100000) + "-->";
    const CurveFileResult result = readFrom(content, "<!DOCTYPE curve [<!ENTITY a 'spline'>]>" +
                                                         xmlOf("<type>&a;</type>" + percents));
    QVERIFY2(result, qPrintable(result.text()));
}

QTEST_GUILESS_MAIN(TestCurveContent)
#include "test_curve_content.moc"
