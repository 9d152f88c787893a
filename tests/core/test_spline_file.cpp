#include "core/SplineKeys.h"
#include "support/FailOnWarning.h"

#include <QTemporaryDir>
#include <QTest>

#include <cstring>
#include <fstream>
#include <limits>
#include <locale>
#include <sstream>

namespace {

using Times = std::vector<double>;

/// Numbers as half of Europe writes them.
class CommaNumbers : public std::numpunct<char>
{
protected:
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

bool isSameBits(double number, double other)
{
    return std::memcmp(&number, &other, sizeof number) == 0;
}

} // namespace

class TestSplineFile : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }
    void cleanup() { std::locale::global(std::locale::classic()); }

    void everyBitComesBack_data();
    void everyBitComesBack();
    void loadReplacesWhatWasThere();
    void loadReadsOnWhereTheStreamStands();
    void anEmptySplineComesBackEmpty();
    void numbersOutsideTheEnumerationsComeBack();
    void loadPutsKeysInOrder();
    void badDataLeavesTheSplineUnchanged_data();
    void badDataLeavesTheSplineUnchanged();
    void aStreamThatIsNotOpenLeavesTheSplineUnchanged();
    void anyStreamIsRead();
    void aBadWordIsToldWithItsPlace_data();
    void aBadWordIsToldWithItsPlace();
    void readingLeavesWhatFollows();

private:
    std::string path(const char* name) const
    {
        return directory.filePath(QString::fromLatin1(name)).toStdString();
    }
    void write(const std::string& file, const std::string& text) const
    {
        std::ofstream(file) << text;
    }

    QTemporaryDir directory;
};

void TestSplineFile::everyBitComesBack_data()
{
    QTest::addColumn<bool>("commaLocale");
    QTest::newRow("plain") << false;
    QTest::newRow("under a locale with decimal commas") << true;
}

void TestSplineFile::everyBitComesBack()
{
    QFETCH(bool, commaLocale);
    if (commaLocale) {
        std::locale::global(std::locale(std::locale::classic(), new CommaNumbers));
    }
    const double hard[] = {0.1,
                           -1.0 / 3.0,
                           1234567.891,
                           1e300,
                           -5e-324,
                           2.2250738585072011e-308,
                           -0.0,
                           std::numeric_limits<double>::infinity(),
                           std::numeric_limits<double>::quiet_NaN()};
    SplineBase spline;
    for (int i = 0; i < 9; ++i) {
        PointInfo key = makeKey(1000.5 * i, hard[i]);
        key.type = static_cast<zk_spline::interpolationType>(i % 4);
        key.bezier = {hard[(i + 1) % 9], hard[(i + 2) % 9]};
        key.tcb = {hard[(i + 3) % 9], hard[(i + 4) % 9], hard[(i + 5) % 9], hard[(i + 6) % 9],
                   hard[(i + 7) % 9]};
        key.unifiedTangents = i % 2 == 1;
        put(spline, key);
    }
    spline.setFirstNodeType(SplineBase::zero);
    spline.setLastNodeType(SplineBase::followTangent);
    spline.setDefaultValue(1234.5);
    const std::string file = path("hard.txt");
    {
        std::ofstream stream(file);
        SplineBase::save(spline, stream);
    }
    SplineBase loaded;
    std::ifstream stream(file);
    SplineBase::load(&loaded, stream);
    QCOMPARE(loaded.getControlPointsNumber(), 9U);
    QCOMPARE(loaded.firstNodeType(), SplineBase::zero);
    QCOMPARE(loaded.lastNodeType(), SplineBase::followTangent);
    QCOMPARE(loaded.getDefaultValue(), 1234.5);
    for (unsigned i = 0; i < 9; ++i) {
        const PointInfo& key = *spline[i];
        const PointInfo& other = *loaded[i];
        QVERIFY(isSameBits(key.time, other.time));
        QVERIFY(isSameBits(key.value, other.value));
        QVERIFY(isSameBits(key.bezier.tangentLeft, other.bezier.tangentLeft));
        QVERIFY(isSameBits(key.bezier.tangentRight, other.bezier.tangentRight));
        QVERIFY(isSameBits(key.tcb.tension, other.tcb.tension));
        QVERIFY(isSameBits(key.tcb.continuity, other.tcb.continuity));
        QVERIFY(isSameBits(key.tcb.bias, other.tcb.bias));
        QVERIFY(isSameBits(key.tcb.easeTo, other.tcb.easeTo));
        QVERIFY(isSameBits(key.tcb.easeFrom, other.tcb.easeFrom));
        QCOMPARE(key.type, other.type);
        QCOMPARE(key.unifiedTangents, other.unifiedTangents);
    }
}

void TestSplineFile::loadReplacesWhatWasThere()
{
    const std::string file = path("two.txt");
    {
        SplineBase spline;
        spline.addPoint(1.0, 2.0);
        spline.addPoint(3.0, 4.0);
        std::ofstream stream(file);
        SplineBase::save(spline, stream);
    }
    SplineBase spline;
    spline.addPoint(50.0, 60.0);
    spline.setLastNodeType(SplineBase::loop);
    spline.setDefaultValue(9.0);
    spline.setAddFunc(true);
    spline.setChanged(false);
    std::ifstream stream(file);
    SplineBase::load(&spline, stream);
    QCOMPARE(timesOf(spline), (Times{1.0, 3.0}));
    QCOMPARE(spline.findIndex(spline[1]), 1);
    QCOMPARE(spline.lastNodeType(), SplineBase::constant);
    QCOMPARE(spline.getDefaultValue(), 0.0);
    QVERIFY(spline.isAddFunc());
    QVERIFY(spline.hasChanged());
}

void TestSplineFile::loadReadsOnWhereTheStreamStands()
{
    const std::string file = path("behind.txt");
    {
        SplineBase spline;
        spline.addPoint(1.0, 2.0);
        std::ofstream stream(file);
        stream << "sin(t)\n";
        SplineBase::save(spline, stream);
        SplineBase::save(spline, stream);
        stream << "end";
    }
    std::ifstream stream(file);
    std::string word;
    stream >> word;
    SplineBase spline;
    SplineBase::load(&spline, stream);
    SplineBase::load(&spline, stream);
    QCOMPARE(timesOf(spline), (Times{1.0}));
    stream >> word;
    QCOMPARE(word, std::string("end"));
}

void TestSplineFile::anEmptySplineComesBackEmpty()
{
    const std::string file = path("empty.txt");
    {
        SplineBase spline;
        spline.setDefaultValue(4.0);
        std::ofstream stream(file);
        SplineBase::save(spline, stream);
    }
    SplineBase spline;
    spline.addPoint(1.0, 2.0);
    std::ifstream stream(file);
    SplineBase::load(&spline, stream);
    QCOMPARE(spline.getControlPointsNumber(), 0U);
    QCOMPARE(spline(3.0), 4.0);
}

void TestSplineFile::numbersOutsideTheEnumerationsComeBack()
{
    const std::string file = path("odd.txt");
    {
        SplineBase spline;
        put(spline, makeKey(0.0, 0.0, static_cast<zk_spline::interpolationType>(-1)));
        spline.setFirstNodeType(static_cast<SplineBase::nodeType>(-1));
        std::ofstream stream(file);
        SplineBase::save(spline, stream);
    }
    SplineBase spline;
    std::ifstream stream(file);
    SplineBase::load(&spline, stream);
    QCOMPARE(spline.getControlPointsNumber(), 1U);
    QCOMPARE(static_cast<int>(spline[0]->type), -1);
    QCOMPARE(static_cast<int>(spline.firstNodeType()), -1);
}

void TestSplineFile::loadPutsKeysInOrder()
{
    const std::string file = path("order.txt");
    write(file, "4 1 1 0\n5 0 0 0 0 0 0 0 0 2 0\n1 0 0 0 0 0 0 0 0 2 0\n3 6 0 0 0 0 0 0 0 2 0\n"
                "3 7 0 0 0 0 0 0 0 2 0\n");
    SplineBase spline;
    std::ifstream stream(file);
    SplineBase::load(&spline, stream);
    QCOMPARE(timesOf(spline), (Times{1.0, 3.0, 3.0, 5.0}));
    QCOMPARE(spline[1]->value, 6.0);
    QCOMPARE(spline[2]->value, 7.0);
}

void TestSplineFile::badDataLeavesTheSplineUnchanged_data()
{
    QTest::addColumn<QByteArray>("text");
    const QByteArray key("1 2 0 0 0 0 0 0 0 2 0\n");
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("words") << QByteArray("once upon a time");
    QTest::newRow("head cut short") << QByteArray("1 1 1");
    QTest::newRow("key cut short") << "1 1 1 0\n" + key.left(9);
    QTest::newRow("fewer keys than counted") << "2 1 1 0\n" + key;
    QTest::newRow("a count beyond all memory") << "4294967295 1 1 0\n" + key;
    QTest::newRow("a count beyond its type") << "4294967296 1 1 0\n" + key;
    QTest::newRow("a negative count") << "-1 1 1 0\n" + key;
    QTest::newRow("a broken count") << "1.5 1 1 0\n" + key;
    QTest::newRow("decimal comma") << "1 1 1 0,5\n" + key;
    QTest::newRow("letters behind a number") << QByteArray("1 1 1 0\n1x 2 0 0 0 0 0 0 0 2 0\n");
    QTest::newRow("number out of range") << QByteArray("1 1 1 0\n1e999 2 0 0 0 0 0 0 0 2 0\n");
    QTest::newRow("type beyond int") << QByteArray("1 1 1 0\n1 2 0 0 0 0 0 0 0 99999999999 0\n");
    QTest::newRow("unified is no yes or no") << QByteArray("1 1 1 0\n1 2 0 0 0 0 0 0 0 2 7\n");
    QTest::newRow("an endless word") << "1 1 1 " + QByteArray(100000, '1') + "\n" + key;
    QTest::newRow("zero bytes") << QByteArray(64, '\0');
}

void TestSplineFile::badDataLeavesTheSplineUnchanged()
{
    QFETCH(QByteArray, text);
    const std::string file = path("bad.txt");
    write(file, text.toStdString());
    SplineBase spline;
    spline.addPoint(8.0, 9.0);
    spline.setLastNodeType(SplineBase::loop);
    spline.setDefaultValue(3.0);
    spline.setChanged(false);
    const PointInfo* const key = spline[0];
    std::ifstream stream(file);
    SplineBase::load(&spline, stream);
    QCOMPARE(spline.getControlPointsNumber(), 1U);
    QVERIFY(spline[0] == key);
    QCOMPARE(key->value, 9.0);
    QCOMPARE(spline.lastNodeType(), SplineBase::loop);
    QCOMPARE(spline.getDefaultValue(), 3.0);
    QVERIFY(!spline.hasChanged());
}

void TestSplineFile::aStreamThatIsNotOpenLeavesTheSplineUnchanged()
{
    SplineBase spline;
    spline.addPoint(8.0, 9.0);
    std::ifstream missing(path("no such file.txt"));
    SplineBase::load(&spline, missing);
    QCOMPARE(timesOf(spline), (Times{8.0}));
    SplineBase::load(nullptr, missing);
    std::ofstream nowhere(path("no such folder/file.txt"));
    SplineBase::save(spline, nowhere);
}

void TestSplineFile::anyStreamIsRead()
{
    SplineBase spline;
    put(spline, makeKey(1.0, 2.0));
    put(spline, makeKey(0.1, 1.0 / 3.0));
    std::stringstream stream;
    SplineBase::save(spline, stream);
    SplineBase loaded;
    const SplineReadResult result = SplineBase::load(&loaded, stream);
    QVERIFY(result);
    QVERIFY(result.problem.empty());
    QCOMPARE(timesOf(loaded), Times({0.1, 1.0}));
    QCOMPARE(loaded[0]->value, 1.0 / 3.0);
    QVERIFY(!SplineBase::load(nullptr, stream));
}

void TestSplineFile::aBadWordIsToldWithItsPlace_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("line");
    QTest::addColumn<int>("column");
    QTest::newRow("nothing at all") << QByteArray() << 1 << 1;
    QTest::newRow("a word for the number of keys") << QByteArray("x 1 1 0") << 1 << 1;
    QTest::newRow("a word for the default value") << QByteArray("0 1 1  zero") << 1 << 8;
    QTest::newRow("an end too early") << QByteArray("1 1 1 0\n1 2 3\n") << 3 << 1;
    QTest::newRow("a word in a key") << QByteArray("1 1 1 0\n1 2 3 4 5 6 7 8 9 z 0\n") << 2 << 19;
    QTest::newRow("unified by 2") << QByteArray("1 1 1 0\n1 2 3 4 5 6 7 8 9 1 2\n") << 2 << 21;
    QTest::newRow("a word of 70 digits") << "0 1 1\n" + QByteArray(70, '1') << 2 << 1;
}

void TestSplineFile::aBadWordIsToldWithItsPlace()
{
    QFETCH(QByteArray, text);
    QFETCH(int, line);
    QFETCH(int, column);
    std::istringstream stream(text.toStdString());
    SplineBase spline;
    spline.addPoint(7.0, 0.0);
    const SplineReadResult result = SplineBase::load(&spline, stream);
    QVERIFY(!result);
    QVERIFY(!result.problem.empty());
    QCOMPARE(static_cast<int>(result.line), line);
    QCOMPARE(static_cast<int>(result.column), column);
    QCOMPARE(timesOf(spline), Times({7.0}));
}

void TestSplineFile::readingLeavesWhatFollows()
{
    std::istringstream stream("1 1 1 0\n1 2 3 4 5 6 7 8 9 1 0\nnext line");
    SplineBase spline;
    QVERIFY(SplineBase::load(&spline, stream));
    std::string rest;
    std::getline(stream, rest);
    QCOMPARE(rest, std::string());
    std::getline(stream, rest);
    QCOMPARE(rest, std::string("next line"));
}

QTEST_APPLESS_MAIN(TestSplineFile)
#include "test_spline_file.moc"
