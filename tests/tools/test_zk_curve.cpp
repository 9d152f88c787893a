#include "support/FailOnWarning.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <fcntl.h>
#include <stdlib.h>
#include <unistd.h>

namespace {

const QByteArray lineFile = "1\n2\n3\n0\n3 1 1 0\n"
                            "0 0 0 0 0 0 0 0 0 0 0\n"
                            "1 10 0 0 0 0 0 0 0 0 0\n"
                            "2 20 0 0 0 0 0 0 0 0 0\n";

QByteArray expressionFile(const QByteArray& text)
{
    return "<?xml version='1.0'?>\n<curve version='1.0'>\n<type>expression</type>\n<expression>" +
           text + "</expression>\n</curve>\n";
}

} // namespace

/// The command as a user runs it.
class TestZkCurve : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        failOnUnexpectedWarning();
        folder = std::make_unique<QTemporaryDir>();
    }

    void helpListsEveryCommandOfTheManual();
    void wrongUsageIsToldWithStatusTwo_data();
    void wrongUsageIsToldWithStatusTwo();
    void aFileIsConvertedThereAndBack();
    void theStandardStreamsAreFiles();
    void checkTellsPlaceAndName_data();
    void checkTellsPlaceAndName();
    void oneBadFileAmongGoodOnesGivesStatusOne();
    void samplesAreCsv();
    void samplesReadVariablesAndOtherCurves();
    void aFileThatCannotBeWrittenStays();
    void tooManyFramesAreRefused();
    void aPictureWithoutRoomIsAnError();
    void progressStandsWhileAFileIsWorkedOn();
    void reducingLeavesFewerKeys();
    void bakingWorksTheExpressionIn();
    void plotsArePictures_data();
    void plotsArePictures();
    void renamingReachesExpressionsAndTheFile();
    void aFileInTheWayOfANewNameStays();

private:
    QString path(const QString& name) const { return folder->filePath(name); }
    void write(const QString& name, const QByteArray& text) const
    {
        QFile file(path(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(text), text.size());
    }
    QByteArray content(const QString& name) const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    /// Run by a shell that has set a limit.
    int runLimited(const QString& limit, const QString& words)
    {
        QProcess process;
        process.setWorkingDirectory(folder->path());
        process.start("bash", {"-c", limit + "; exec '" ZK_CURVE_PROGRAM "' " + words});
        const bool isEnded = process.waitForFinished(120000);
        errors = process.readAllStandardError();
        return isEnded && process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    }
    int run(const QStringList& words, const QByteArray& input = QByteArray())
    {
        QProcess process;
        process.setWorkingDirectory(folder->path());
        process.start(ZK_CURVE_PROGRAM, words);
        process.write(input);
        process.closeWriteChannel();
        const bool isEnded = process.waitForFinished(120000);
        output = process.readAllStandardOutput();
        errors = process.readAllStandardError();
        return isEnded && process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    }

    std::unique_ptr<QTemporaryDir> folder;
    QByteArray output;
    QByteArray errors;
};

void TestZkCurve::helpListsEveryCommandOfTheManual()
{
    QCOMPARE(run({"--help"}), 0);
    QFile manual(ZK_CURVE_MANUAL);
    QVERIFY(manual.open(QIODevice::ReadOnly));
    const QByteArray page = manual.readAll();
    for (const char* command : {"convert", "check", "sample", "reduce", "bake", "plot", "rename"}) {
        QVERIFY(output.contains(QByteArray("\n  ") + command));
        QVERIFY(page.contains(QByteArray("\n.B ") + command));
    }
    QCOMPARE(run({"--version"}), 0);
    QVERIFY(output.startsWith("zk-curve 1."));
}

void TestZkCurve::wrongUsageIsToldWithStatusTwo_data()
{
    QTest::addColumn<QStringList>("words");
    QTest::newRow("nothing") << QStringList();
    QTest::newRow("no command") << QStringList{"twist", "a.xml"};
    QTest::newRow("no file") << QStringList{"check"};
    QTest::newRow("one file too few") << QStringList{"convert", "a.crv"};
    QTest::newRow("one file too many") << QStringList{"convert", "a", "b", "c"};
    QTest::newRow("no option") << QStringList{"check", "--deep", "a.crv"};
    QTest::newRow("no format") << QStringList{"convert", "--format", "txt", "a.crv", "b"};
    QTest::newRow("no tolerance") << QStringList{"reduce", "a.crv", "b.crv"};
    QTest::newRow("no number") << QStringList{"reduce", "--tolerance", "much", "a.crv", "b.crv"};
    QTest::newRow("no rate") << QStringList{"sample", "--rate", "0", "a.crv"};
    QTest::newRow("times the wrong way round")
        << QStringList{"sample", "--from", "2", "--to", "1", "a.crv"};
    QTest::newRow("no value") << QStringList{"sample", "--set", "a", "a.crv"};
    QTest::newRow("samples over the curve") << QStringList{"sample", "a.crv", "./a.crv"};
    QTest::newRow("no picture") << QStringList{"plot", "a.crv", "a.bmp"};
    QTest::newRow("a great picture") << QStringList{"plot", "--width", "1e6", "a.crv", "a.png"};
    QTest::newRow("a name that is none") << QStringList{"rename", "a", "", "a.crv"};
}

void TestZkCurve::wrongUsageIsToldWithStatusTwo()
{
    QFETCH(QStringList, words);
    write("a.crv", lineFile);
    QCOMPARE(run(words), 2);
    QVERIFY(errors.contains("zk-curve"));
    QCOMPARE(output, QByteArray());
    QCOMPARE(QDir(folder->path()).entryList(QDir::Files), QStringList("a.crv"));
    QCOMPARE(content("a.crv"), lineFile);
}

void TestZkCurve::aFileIsConvertedThereAndBack()
{
    write("a.crv", lineFile);
    QCOMPARE(run({"convert", "a.crv", "b.xml"}), 0);
    QVERIFY(content("b.xml").startsWith("<?xml"));
    QCOMPARE(run({"convert", "b.xml", "c.crv"}), 0);
    QCOMPARE(content("c.crv"), lineFile.mid(6).prepend("255\n255\n255\n"));
    QCOMPARE(run({"convert", "--format", "crv", "b.xml", "d.txt"}), 0);
    QCOMPARE(content("d.txt"), content("c.crv"));
    QCOMPARE(run({"convert", "missing.xml", "e.xml"}), 1);
    QVERIFY(errors.contains("missing.xml"));
    QCOMPARE(run({"convert", "a.crv", "no/such/folder.xml"}), 1);
}

void TestZkCurve::theStandardStreamsAreFiles()
{
    QCOMPARE(run({"convert", "-", "-"}, lineFile), 0);
    QCOMPARE(output, lineFile);
    QCOMPARE(run({"convert", "--format", "xml", "-", "-"}, lineFile), 0);
    QVERIFY(output.startsWith("<?xml"));
    QCOMPARE(run({"check", "-"}, "1 2 3 9"), 1);
    QVERIFY(errors.startsWith("standard input:1:"));
}

void TestZkCurve::checkTellsPlaceAndName_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("status");
    QTest::addColumn<QByteArray>("told");
    QTest::newRow("a good file") << lineFile << 0 << QByteArray();
    QTest::newRow("unregistered names") << expressionFile("arm.x*2") << 0 << QByteArray();
    QTest::newRow("an unknown type")
        << QByteArray("<curve version='1.0'>\n<type>bend</type></curve>") << 1
        << QByteArray("a:2:17: Unknown curve type: <bend>\n");
    QTest::newRow("a bad number") << lineFile + "x" << 0 << QByteArray(); // behind the keys
    QTest::newRow("a key cut short")
        << lineFile.chopped(6) << 1 << QByteArray("a:8:18: the text ends too early\n");
    QTest::newRow("an open parenthesis")
        << expressionFile("sin(t") << 1 << QByteArray("a:4:16: Unmatched parenthesis\n");
}

void TestZkCurve::checkTellsPlaceAndName()
{
    QFETCH(QByteArray, text);
    QFETCH(int, status);
    QFETCH(QByteArray, told);
    write("a", text);
    QCOMPARE(run({"check", "a"}), status);
    QCOMPARE(errors, told);
    QCOMPARE(output, QByteArray());
}

void TestZkCurve::oneBadFileAmongGoodOnesGivesStatusOne()
{
    write("a.crv", lineFile);
    write("b.crv", "no curve");
    write("c.crv", "none either");
    QCOMPARE(run({"check", "a.crv", "b.crv", "a.crv", "c.crv"}), 1);
    QCOMPARE(errors.count('\n'), 2);
    QVERIFY(errors.contains("b.crv:1:") && errors.contains("c.crv:1:"));
}

void TestZkCurve::samplesAreCsv()
{
    write("a.crv", lineFile);
    QCOMPARE(run({"sample", "--rate", "2", "a.crv"}), 0);
    QCOMPARE(output, QByteArray("time,value\n0,0\n0.5,5\n1,10\n1.5,15\n2,20\n"));
    QCOMPARE(run({"sample", "--from", "-1", "--to", "1", "--rate", "1", "a.crv", "a.csv"}), 0);
    QCOMPARE(content("a.csv"), QByteArray("time,value\n-1,0\n0,0\n1,10\n"));
    write("e.xml", expressionFile("f"));
    QCOMPARE(run({"sample", "e.xml"}), 1); // from where to where?
    QCOMPARE(run({"sample", "--from", "0", "--to", "1", "--rate", "2", "e.xml"}), 0);
    QCOMPARE(output, QByteArray("time,value\n0,0\n0.5,1\n1,2\n"));
}

void TestZkCurve::samplesReadVariablesAndOtherCurves()
{
    write("arm.x.crv", lineFile);
    write("e.xml", expressionFile("arm.x*wind+t"));
    const QStringList times = {"--from", "1", "--to", "2", "--rate", "1"};
    QCOMPARE(run(QStringList{"sample"} + times + QStringList{"e.xml"}), 1);
    QVERIFY2(errors.contains("e.xml:4:13: Variable arm.x not found"), errors.constData());
    QCOMPARE(run(QStringList{"sample"} + times +
                 QStringList{"--with", "arm.x.crv", "--set", "wind=0.5", "e.xml"}),
             0);
    QCOMPARE(output, QByteArray("time,value\n1,6\n2,12\n"));
}

void TestZkCurve::aFileThatCannotBeWrittenStays()
{
    write("a.crv", lineFile);
    write("a.csv", "former");
    QCOMPARE(runLimited("trap '' XFSZ; ulimit -f 8", "sample --rate 10000 a.crv a.csv"), 1);
    QVERIFY2(errors.contains("Cannot write a.csv"), errors.constData());
    QCOMPARE(content("a.csv"), QByteArray("former"));
    QCOMPARE(QDir(folder->path()).entryList(QDir::Files), QStringList({"a.crv", "a.csv"}));
}

void TestZkCurve::tooManyFramesAreRefused()
{
    write("a.crv", lineFile);
    QCOMPARE(run({"sample", "--rate", "1e7", "a.crv", "a.csv"}), 1);
    QVERIFY2(errors.contains("more than 5000000 frames"), errors.constData());
    QVERIFY(!QFile::exists(path("a.csv")));
    QCOMPARE(run({"sample", "--from", "5", "a.crv"}), 1);
    QVERIFY2(errors.contains("no frames from 5 to 2"), errors.constData());
    // A picture has no use for them.
    QCOMPARE(run({"plot", "--rate", "1e300", "--width", "100", "a.crv", "a.svg"}), 0);
    QCOMPARE(content("a.svg").count(','), 801);
    QVERIFY(content("a.svg").contains(" 92.00,8.00 \"/>"));
}

void TestZkCurve::aPictureWithoutRoomIsAnError()
{
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    QSKIP("The sanitizer needs more room than the picture.");
#endif
    write("a.crv", lineFile);
    QCOMPARE(runLimited("ulimit -v 800000", "plot --width 16384 --height 16384 a.crv a.png"), 1);
    QCOMPARE(errors, QByteArray("a.png: The picture cannot be made.\n"));
    QVERIFY(!QFile::exists(path("a.png")));
}

void TestZkCurve::progressStandsWhileAFileIsWorkedOn()
{
    const int terminal = posix_openpt(O_RDWR | O_NOCTTY);
    if (terminal < 0 || grantpt(terminal) != 0 || unlockpt(terminal) != 0) {
        QSKIP("There is no terminal to be had.");
    }
    write("a.crv", lineFile);
    QProcess process;
    process.setWorkingDirectory(folder->path());
    process.setStandardErrorFile(ptsname(terminal), QIODevice::Append);
    process.start(ZK_CURVE_PROGRAM, {"check", "-", "a.crv"});
    QVERIFY(process.waitForStarted());
    const auto shown = [terminal] {
        QTest::qWait(500);
        char text[256];
        const ssize_t size = read(terminal, text, sizeof text);
        return QByteArray(text, std::max<ssize_t>(size, 0));
    };
    QCOMPARE(shown(), QByteArray("1 of 2: -"));
    process.write("no curve");
    process.closeWriteChannel();
    QVERIFY(process.waitForFinished(120000));
    const QByteArray rest = shown();
    QVERIFY2(rest.startsWith("\r\x1b[Kstandard input:1:"), rest.constData());
    QVERIFY2(rest.endsWith("2 of 2: a.crv\r\x1b[K"), rest.constData());
    close(terminal);
}

void TestZkCurve::reducingLeavesFewerKeys()
{
    write("a.crv", lineFile);
    QCOMPARE(run({"reduce", "--tolerance", "0.001", "a.crv", "b.crv"}), 0);
    QVERIFY(content("b.crv").contains("\n2 1 1 0\n"));
    QCOMPARE(run({"sample", "--rate", "1", "b.crv"}), 0);
    QCOMPARE(output, QByteArray("time,value\n0,0\n1,10\n2,20\n"));
    write("e.xml", expressionFile("t"));
    QCOMPARE(run({"reduce", "--tolerance", "1", "e.xml", "b.xml"}), 1);
}

void TestZkCurve::bakingWorksTheExpressionIn()
{
    write("a.crv", QByteArray(lineFile).replace("3\n0\n", "3\n2\nt*100\n"));
    QCOMPARE(run({"bake", "--from", "0", "--to", "1", "--rate", "2", "a.crv", "b.crv"}), 0);
    QCOMPARE(run({"sample", "--rate", "4", "b.crv"}), 0);
    QCOMPARE(output, QByteArray("time,value\n0,0\n0.25,27.5\n0.5,55\n0.75,82.5\n1,110\n"));
    QVERIFY(content("b.crv").contains("\n0\n3 1 1 0\n"));
}

void TestZkCurve::plotsArePictures_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("PNG") << "a.png";
    QTest::newRow("SVG") << "a.SVG";
}

void TestZkCurve::plotsArePictures()
{
    QFETCH(QString, name);
    write("a.crv", lineFile);
    QCOMPARE(run({"plot", "--width", "100", "--height", "50", "a.crv", name}), 0);
    if (name.endsWith("png")) {
        const QImage picture(path(name));
        QCOMPARE(picture.size(), QSize(100, 50));
        // From the lower left to the upper right.
        QVERIFY(qRed(picture.pixel(9, 41)) > qGreen(picture.pixel(9, 41)) + 50);
        QVERIFY(qRed(picture.pixel(90, 9)) > qGreen(picture.pixel(90, 9)) + 50);
        QCOMPARE(picture.pixel(9, 9), qRgb(255, 255, 255));
    } else {
        QVERIFY(content(name).contains("points=\"8.00,42.00 "));
        QVERIFY(content(name).contains(" 92.00,8.00 \"/>"));
    }
}

void TestZkCurve::renamingReachesExpressionsAndTheFile()
{
    write("Arm.X.crv", lineFile);
    write("e.xml", expressionFile("arm.x+sin(arm.x)-my.arm.x"));
    write("other.xml", expressionFile("t"));
    const QByteArray other = content("other.xml");
    QCOMPARE(run({"rename", "Arm.X", "Leg.X", "Arm.X.crv", "e.xml", "other.xml"}), 0);
    QVERIFY(content("e.xml").contains("<expression>leg.x+sin(leg.x)-my.arm.x</expression>"));
    QCOMPARE(content("other.xml"), other);
    QCOMPARE(content("Leg.X.crv"), lineFile);
    QVERIFY(!QFile::exists(path("Arm.X.crv")));
}

void TestZkCurve::aFileInTheWayOfANewNameStays()
{
    write("a.crv", lineFile);
    write("b.crv", "something else");
    write("e.xml", expressionFile("a"));
    QCOMPARE(run({"rename", "a", "b", "e.xml", "a.crv"}), 1);
    QCOMPARE(content("e.xml"), expressionFile("a"));
    QVERIFY(errors.contains("b.crv already"));
    QCOMPARE(content("a.crv"), lineFile);
    QCOMPARE(content("b.crv"), QByteArray("something else"));
}

QTEST_GUILESS_MAIN(TestZkCurve)
#include "test_zk_curve.moc"
