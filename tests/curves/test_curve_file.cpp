#include "core/SplineBase.h"
#include "curves/CurveFile.h"
#include "files/CurveType.h"
#include "support/FailOnWarning.h"
#include "support/ParsedExpression.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using curve_editor::readCurveFile;
using curve_editor::writeCurveFile;

class TestCurveFile : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void whatIsWrittenReadsBack_data();
    void whatIsWrittenReadsBack();
    void readingReplacesTheExpressionInTheSlot();
    void readingASplineEmptiesTheSlot();
    void bothFormatsAreReadAndWritten_data();
    void bothFormatsAreReadAndWritten();
    void anOlderFileOfBadKeysChangesNothing();
    void nullSplineAndNullSlotDropWhatBelongsThere();
    void writingWithoutSplineAndExpression();
    void aFileWithAnErrorChangesNothing_data();
    void aFileWithAnErrorChangesNothing();
    void anErrorBehindTheCurveChangesNothingEither();
    void aMissingFileIsReported();
    void aFolderIsReported();
    void aPathThatCannotBeWrittenIsReported();
    void aFullDeviceIsReportedAndNotReplaced();
    void aFailureLeavesTheOldFile();
    void successClearsTheErrorText();

private:
    QString path(const QString& name) const { return folder.filePath(name); }
    void write(const QByteArray& text);
    void setExpression(const std::string& text);

    QTemporaryDir folder;
    std::unique_ptr<SplineBase> spline;
    FunctionFloatBase* expression = nullptr;
    QString error;
};

void TestCurveFile::init()
{
    failOnUnexpectedWarning();
    spline = std::make_unique<SplineBase>();
    error = "old";
}

void TestCurveFile::cleanup()
{
    spline.reset();
    delete expression;
    expression = nullptr;
}

void TestCurveFile::write(const QByteArray& text)
{
    QFile file(path("curve.xml"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(text);
}

void TestCurveFile::setExpression(const std::string& text)
{
    delete expression;
    expression = ParsedExpression(text).tree.release();
}

void TestCurveFile::whatIsWrittenReadsBack_data()
{
    QTest::addColumn<bool>("addFunc");
    QTest::addColumn<QString>("text");
    QTest::newRow("spline") << false << "";
    QTest::newRow("expression") << false << "t*2";
    QTest::newRow("spline plus expression") << true << "t*2";
    QTest::newRow("spline plus expression without one") << true << "";
}

void TestCurveFile::whatIsWrittenReadsBack()
{
    QFETCH(bool, addFunc);
    QFETCH(QString, text);
    spline->addPoint(1.0, 2.0);
    spline->addPoint(3.0, 4.0);
    spline->setLastNodeType(SplineBase::loop);
    spline->setAddFunc(addFunc);
    if (!text.isEmpty()) {
        setExpression(text.toStdString());
    }
    QVERIFY2(writeCurveFile(path("curve.xml"), spline.get(), expression, error), qPrintable(error));

    SplineBase read;
    FunctionFloatBase* readExpression = nullptr;
    QVERIFY2(readCurveFile(path("curve.xml"), &read, &readExpression, error), qPrintable(error));
    const std::unique_ptr<FunctionFloatBase> owner(readExpression);
    const bool hasKeys = addFunc || text.isEmpty();
    QCOMPARE(read.getControlPointsNumber(), hasKeys ? 2u : 0u);
    QCOMPARE(read.lastNodeType(), hasKeys ? SplineBase::loop : SplineBase::constant);
    QCOMPARE(read.isAddFunc(), addFunc);
    QCOMPARE(owner ? QString::fromStdString(owner->getString()) : QString(), text);
}

void TestCurveFile::readingReplacesTheExpressionInTheSlot()
{
    setExpression("1");
    write("<curve version='1.0'><type>expression</type><expression>t + 2</expression></curve>");
    QVERIFY(readCurveFile(path("curve.xml"), spline.get(), &expression, error));
    QCOMPARE(QString::fromStdString(expression->getString()), QString("t+2"));
}

void TestCurveFile::readingASplineEmptiesTheSlot()
{
    setExpression("1");
    write("<curve version='1.0'><type>spline</type></curve>");
    QVERIFY(readCurveFile(path("curve.xml"), spline.get(), &expression, error));
    QVERIFY(!expression);
}

void TestCurveFile::bothFormatsAreReadAndWritten_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("isXml");
    QTest::newRow("XML") << "a.xml" << true;
    QTest::newRow("the older format") << "a.crv" << false;
    QTest::newRow("the older format in capitals") << "a.CRV" << false;
    QTest::newRow("any other name") << "a.curve" << true;
}

void TestCurveFile::bothFormatsAreReadAndWritten()
{
    QFETCH(QString, name);
    QFETCH(bool, isXml);
    spline->addPoint(1.0, 1.0 / 3.0);
    spline->setAddFunc(true);
    setExpression("t*2");
    int type = -1;
    QVERIFY(writeCurveFile(path(name), spline.get(), expression, error, &type));
    QCOMPARE(type, int(splinePlusExpressionCurve));
    QFile file(path(name));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll().startsWith("<?xml"), isXml);
    SplineBase read;
    FunctionFloatBase* readExpression = nullptr;
    type = -1;
    QVERIFY2(readCurveFile(path(name), &read, &readExpression, error, &type), qPrintable(error));
    const std::unique_ptr<FunctionFloatBase> owner(readExpression);
    QCOMPARE(type, int(splinePlusExpressionCurve));
    QCOMPARE(read.getControlPointsNumber(), 1u);
    QCOMPARE(read[0]->value == 1.0 / 3.0, !isXml);
    QCOMPARE(QString::fromStdString(owner->getString()), QString("t*2"));
}

void TestCurveFile::anOlderFileOfBadKeysChangesNothing()
{
    spline->addPoint(1.0, 2.0);
    setExpression("t+1");
    write("1 2 3\n2\nt*2\n1 1 1 0\n5 x\n");
    QVERIFY(!readCurveFile(path("curve.xml"), spline.get(), &expression, error));
    QVERIFY2(error.endsWith("at line:5, column:3"), qPrintable(error));
    QCOMPARE(spline->at(0)->time, 1.0);
    QCOMPARE(QString::fromStdString(expression->getString()), QString("t+1"));
}

void TestCurveFile::nullSplineAndNullSlotDropWhatBelongsThere()
{
    write("<curve version='1.0'><type>spline-plus-expression</type><expression>t</expression>"
          "<control-points><point/></control-points></curve>");
    QVERIFY(readCurveFile(path("curve.xml"), nullptr, nullptr, error));
    QVERIFY(readCurveFile(path("curve.xml"), spline.get(), nullptr, error));
    QCOMPARE(spline->getControlPointsNumber(), 1u);
    QVERIFY(readCurveFile(path("curve.xml"), nullptr, &expression, error));
    QVERIFY(expression);
}

void TestCurveFile::writingWithoutSplineAndExpression()
{
    spline->addPoint(1.0, 2.0);
    QVERIFY(writeCurveFile(path("curve.xml"), nullptr, nullptr, error));
    QVERIFY(readCurveFile(path("curve.xml"), spline.get(), &expression, error));
    QCOMPARE(spline->getControlPointsNumber(), 0u);
}

void TestCurveFile::aFileWithAnErrorChangesNothing_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("reason");
    QTest::newRow("no XML") << QByteArray("curve") << "at line:1, column:";
    QTest::newRow("cut off") << QByteArray("<curve version='1.0'>\n<type>spline</type>")
                             << "at line:2, column:";
    QTest::newRow("another root") << QByteArray("<spline/>") << "Bad Format";
    QTest::newRow("no version") << QByteArray("<curve/>") << "Undefined Version\nat line:1";
    QTest::newRow("no type") << QByteArray("<curve version='1.0'/>")
                             << "Unknown curve type: <>\nat line:1";
    QTest::newRow("an expression that does not parse")
        << QByteArray("<curve version='1.0'><type>spline-plus-expression</type>"
                      "<expression>nobody+1</expression><control-points/></curve>")
        << "nobody+1";
}

void TestCurveFile::aFileWithAnErrorChangesNothing()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, reason);
    spline->addPoint(1.0, 2.0);
    spline->setFirstNodeType(SplineBase::loop);
    setExpression("t+1");
    write(text);
    QVERIFY(!readCurveFile(path("curve.xml"), spline.get(), &expression, error));
    QVERIFY2(error.contains(reason), qPrintable(error));
    QCOMPARE(spline->getControlPointsNumber(), 1u);
    QCOMPARE(spline->firstNodeType(), SplineBase::loop);
    QVERIFY(!spline->isAddFunc());
    QCOMPARE(QString::fromStdString(expression->getString()), QString("t+1"));
}

void TestCurveFile::anErrorBehindTheCurveChangesNothingEither()
{
    spline->addPoint(1.0, 2.0);
    write("<curve version='1.0'><type>spline</type><control-points><point><note/><x>1</x><y>2</y>"
          "<type>step</type></point></control-points></curve>");
    QVERIFY(!readCurveFile(path("curve.xml"), spline.get(), &expression, error));
    QVERIFY(error.startsWith("Bad Format: Expected <curve> instead of <type>\nat line:1"));
    QCOMPARE(spline->at(0)->time, 1.0);
    write("<curve version='1.0'><type>spline</type></curve><more/>");
    QVERIFY(!readCurveFile(path("curve.xml"), spline.get(), &expression, error));
    QCOMPARE(spline->getControlPointsNumber(), 1u);
}

void TestCurveFile::aMissingFileIsReported()
{
    QVERIFY(!readCurveFile(path("missing.xml"), spline.get(), &expression, error));
    QVERIFY(error.contains("missing.xml"));
}

void TestCurveFile::aFolderIsReported()
{
    QVERIFY(!readCurveFile(folder.path(), spline.get(), &expression, error));
    QVERIFY(error != "old");
    QVERIFY(!writeCurveFile(folder.path(), spline.get(), expression, error));
    QVERIFY(QFileInfo(folder.path()).isDir());
}

void TestCurveFile::aPathThatCannotBeWrittenIsReported()
{
    QVERIFY(!writeCurveFile(path("no/such/folder/c.xml"), spline.get(), expression, error));
    QVERIFY(error.contains("c.xml"));
}

void TestCurveFile::aFullDeviceIsReportedAndNotReplaced()
{
    if (!QFile::exists("/dev/full") || QFileInfo("/dev/full").isFile()) {
        QSKIP("This system has no device that is always full.");
    }
    QVERIFY(!writeCurveFile("/dev/full", spline.get(), expression, error));
    QVERIFY(error.contains("/dev/full"));
    QVERIFY(!QFileInfo("/dev/full").isFile()); // not replaced by a file
}

void TestCurveFile::aFailureLeavesTheOldFile()
{
    write("old");
    QVERIFY(QFile::setPermissions(path("curve.xml"), QFile::ReadOwner));
    const bool isWritten = writeCurveFile(path("curve.xml"), spline.get(), expression, error);
    QFile file(path("curve.xml"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray text = file.readAll();
    QVERIFY(isWritten ? text.contains("<curve") : text == "old"); // root may write anything
    QCOMPARE(error.isEmpty(), isWritten);
}

void TestCurveFile::successClearsTheErrorText()
{
    QVERIFY(writeCurveFile(path("curve.xml"), spline.get(), expression, error));
    QVERIFY(error.isEmpty());
    error = "old";
    QVERIFY(readCurveFile(path("curve.xml"), spline.get(), &expression, error));
    QVERIFY(error.isEmpty());
}

QTEST_GUILESS_MAIN(TestCurveFile)
#include "test_curve_file.moc"
