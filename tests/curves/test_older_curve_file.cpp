#include "curves/OlderCurveFileTest.h"
#include "graphs/ViewPort.h"
#include "support/SplineState.h"

#include <QTest>

#include <cmath>
#include <limits>
#include <locale>

namespace {

struct CommaNumbers : std::numpunct<char>
{
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\1"; }
};

} // namespace

class TestOlderCurveFile : public OlderCurveFileTest
{
    Q_OBJECT

private slots:
    void init() { openCurve(); }
    void cleanup() { closeCurve(); }

    void aFileOfTypeZeroLooksLikeThis();
    void aFileOfTypeOneHasTheExpressionAlone();
    void aFileOfTypeTwoHasExpressionAndSpline();
    void aSumWithoutExpressionIsWrittenAsZero();
    void aCurveWhoseSplineIsGoneWritesAnEmptyOne();

    void everyBitComesBack_data();
    void everyBitComesBack();

    void aNumberThatIsNoBehaviourOrInterpolationComesBack();

    void aFileOfTypeOneLeavesTheKeys();
    void aFileOfTypeThreeGivesTheBoxAndLeavesTheCurve();
    void afterASumTheFlagIsSetAndAfterAnExpressionClear();
    void theColourInTheFileLeavesTheCurves();
    void aSplineFileLeavesTheExpressionAndEndsTheSum();
    void aSplineFileEndsTheSumOfACurveWithoutExpression();
    void onlyTheFirstWordOfAnExpressionIsRead();
    void theRestOfTheLineSpoilsTheSplineBehindIt();
    void anExpressionThatDoesNotParseLeavesTheSlotEmpty_data();
    void anExpressionThatDoesNotParseLeavesTheSlotEmpty();
    void aSumWhoseExpressionDoesNotParseBecomesASpline();
    void blanksAndLinesAroundTheNumbersDoNotMatter();
    void theTypeMayTouchTheExpression();
    void keysInAnyOrderAreSortedAndTimesThatAreNoNumberComeLast();
    void keysThatDoNotReadLeaveTheOldOnes();
    void theSelectionNamesNoFreedKey();
    void withoutASlotTheExpressionIsDropped();
    void withoutASplineTheKeysAreDropped();
    void readingMarksTheCurveAsChanged();
    void aParserOfNullStandsForTheParser();

    void aFileThatCannotBeOpenedChangesNothingWithoutABox();
    void aFolderHasNoType();
};

void TestOlderCurveFile::aFileOfTypeZeroLooksLikeThis()
{
    addKey(pointOf(zk_spline::bezier, false));
    spline->setLastNodeType(SplineBase::loopOffset);
    spline->setDefaultValue(0.5);
    QCOMPARE(body(), QByteArray("0\n"
                                "1 1 3 0.5\n"
                                "1 2 3 4 0.10000000000000001 0.20000000000000001 "
                                "0.29999999999999999 0.40000000000000002 0.5 1 0\n"));
}

void TestOlderCurveFile::aFileOfTypeOneHasTheExpressionAlone()
{
    spline->addPoint(1.0, 2.0);
    setExpression("sin( t ) * 2");
    QCOMPARE(body(), QByteArray("1\nsin(t)*2\n"));
}

void TestOlderCurveFile::aFileOfTypeTwoHasExpressionAndSpline()
{
    setExpression("sin( t ) * 2");
    spline->setAddFunc(true);
    QCOMPARE(body(), QByteArray("2\nsin(t)*2\n0 1 1 0\n"));
}

void TestOlderCurveFile::aSumWithoutExpressionIsWrittenAsZero()
{
    addKey(pointOf(zk_spline::linear, true));
    spline->setAddFunc(true);
    const QByteArray text = body();
    QVERIFY2(text.startsWith("2\n0\n1 1 1 0\n"), text.constData());

    const SplineState before(*spline);
    load(whole(text));
    QVERIFY(SplineState(*spline) == before);
    QVERIFY(expression);
    QCOMPARE(expression->value(), 0.0);
}

void TestOlderCurveFile::aCurveWhoseSplineIsGoneWritesAnEmptyOne()
{
    setExpression("t");
    spline.reset();
    QCOMPARE(body(), QByteArray("0\n0 1 1 0\n"));
}

void TestOlderCurveFile::everyBitComesBack_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<bool>("commaLocale");
    QTest::newRow("spline") << 0 << false;
    QTest::newRow("expression") << 1 << false;
    QTest::newRow("spline plus expression") << 2 << false;
    QTest::newRow("spline plus expression under a locale of decimal commas") << 2 << true;
}

void TestOlderCurveFile::everyBitComesBack()
{
    QFETCH(int, type);
    QFETCH(bool, commaLocale);
    const std::locale before = std::locale::global(
        commaLocale ? std::locale(std::locale::classic(), new CommaNumbers) : std::locale());
    using Limits = std::numeric_limits<double>;
    const double ends[] = {Limits::infinity(), -Limits::infinity(), Limits::quiet_NaN(),
                           Limits::max(), Limits::denorm_min()};
    for (std::size_t i = 0; type != 1 && i < 8; ++i) {
        PointInfo key = pointOf(static_cast<zk_spline::interpolationType>(i % 4), i > 3);
        key.time = static_cast<double>(i) / 3.0;
        key.value = 1e100 / (static_cast<double>(i) + 7.0);
        key.bezier.tangentLeft = ends[i % std::size(ends)];
        addKey(key);
    }
    spline->setFirstNodeType(SplineBase::zero);
    spline->setLastNodeType(SplineBase::followTangent);
    spline->setAddFunc(type == 2);
    if (type != 0) {
        setExpression("if(t>0.1,sin(t)*1234567.891,-f)");
    }
    const SplineState state(*spline);
    const QByteArray text = body();

    SplineBase otherSpline;
    FunctionFloatBase* otherExpression = nullptr;
    CurveNodeBase other(nullptr, "d", "n", Qt::blue, 0.0f, &otherSpline, &otherExpression, -1.0f,
                        1.0f, true);
    write(whole(text, "255\n200\n100\n"));
    other.loadCrv(path("loaded.crv"), FunctionParserBase::instance());
    std::locale::global(before);
    QCOMPARE(other.curveType(), type);
    if (type != 1) {
        QVERIFY(SplineState(otherSpline) == state);
    }
    QCOMPARE(otherExpression ? otherExpression->getString() : std::string(),
             expression ? expression->getString() : std::string());
    delete otherExpression;
}

void TestOlderCurveFile::aNumberThatIsNoBehaviourOrInterpolationComesBack()
{
    PointInfo key = pointOf(static_cast<zk_spline::interpolationType>(-1), false);
    addKey(key);
    key.time = 5.0;
    addKey(key);
    for (const int number : {-1, 5, std::numeric_limits<int>::min()}) {
        spline->setFirstNodeType(static_cast<SplineBase::nodeType>(number));
        spline->setLastNodeType(static_cast<SplineBase::nodeType>(number));
        const QByteArray text = whole(body());
        spline->reset();
        load(text);
        QCOMPARE(spline->getControlPointsNumber(), 2u);
        QCOMPARE(int(spline->at(0)->type), -1);
        QCOMPARE(int(spline->firstNodeType()), number);
        QCOMPARE(int(spline->lastNodeType()), number);
    }
}

void TestOlderCurveFile::aFileOfTypeOneLeavesTheKeys()
{
    fillCurve();
    load(whole("1\nt*2\n"));
    QCOMPARE(spline->getControlPointsNumber(), 1u);
    QCOMPARE(spline->firstNodeType(), SplineBase::loop);
    QCOMPARE(QString::fromStdString(expression->getString()), QString("t*2"));
    QCOMPARE(curve->curveType(), 1);
}

void TestOlderCurveFile::aFileOfTypeThreeGivesTheBoxAndLeavesTheCurve()
{
    fillCurve();
    load(whole("3\nt*2\n0 1 1 0\n"));
    QCOMPARE(boxes->titles, QStringList("Error Loading Curve File"));
    QCOMPARE(boxes->texts, QStringList("Curve type not valid"));
    QCOMPARE(boxes->icons, QList<QMessageBox::Icon>{QMessageBox::Warning});
    verifyIsFilled();
}

void TestOlderCurveFile::afterASumTheFlagIsSetAndAfterAnExpressionClear()
{
    load(whole("2\nt*2\n0 1 1 0\n"));
    QVERIFY(spline->isAddFunc());
    QCOMPARE(curve->curveType(), 2);
    load(whole("1\nt*2\n"));
    QVERIFY(!spline->isAddFunc());
    QCOMPARE(curve->curveType(), 1);
}

void TestOlderCurveFile::theColourInTheFileLeavesTheCurves()
{
    load(whole("0\n0 1 1 0\n", "1\n-2\n3000\n"));
    QCOMPARE(curve->curveColor(), QColor(Qt::red));
    QVERIFY(boxes->titles.isEmpty());
}

void TestOlderCurveFile::aSplineFileLeavesTheExpressionAndEndsTheSum()
{
    fillCurve();
    load(whole("0\n2 0 0 5\n" + keyLine("1") + keyLine("2")));
    QCOMPARE(spline->getControlPointsNumber(), 2u);
    QCOMPARE(spline->getDefaultValue(), 5.0);
    QVERIFY(!spline->isAddFunc());
    QVERIFY(expression);
    QCOMPARE(QString::fromStdString(expression->getString()), QString("t+77"));
    QCOMPARE(curve->curveType(), 1);
}

void TestOlderCurveFile::aSplineFileEndsTheSumOfACurveWithoutExpression()
{
    spline->setAddFunc(true);
    load(whole("0\n0 1 1 0\n"));
    QVERIFY(!spline->isAddFunc());
    QCOMPARE(curve->curveType(), 0);
}

void TestOlderCurveFile::onlyTheFirstWordOfAnExpressionIsRead()
{
    load(whole("1\nt + 5\n"));
    QCOMPARE(QString::fromStdString(expression->getString()), QString("t"));
}

void TestOlderCurveFile::theRestOfTheLineSpoilsTheSplineBehindIt()
{
    fillCurve();
    load(whole("2\nt + 5\n0 1 1 0\n"));
    QCOMPARE(QString::fromStdString(expression->getString()), QString("t"));
    QCOMPARE(spline->getControlPointsNumber(), 1u);
    QCOMPARE(spline->at(0)->time, 7.0);
    QVERIFY(spline->isAddFunc());
    QVERIFY(boxes->titles.isEmpty());
}

void TestOlderCurveFile::anExpressionThatDoesNotParseLeavesTheSlotEmpty_data()
{
    QTest::addColumn<QByteArray>("word");
    QTest::newRow("open parenthesis") << QByteArray("sin(t");
    QTest::newRow("unknown name") << QByteArray("nobody.knows*2");
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("bytes of no text") << QByteArray("\xff\xfe\x00\x01", 4);
    QTest::newRow("deep nesting") << QByteArray(100000, '(');
    QTest::newRow("more than the parser takes") << QByteArray(2000000, '1');
}

void TestOlderCurveFile::anExpressionThatDoesNotParseLeavesTheSlotEmpty()
{
    QFETCH(QByteArray, word);
    fillCurve();
    load(whole("1\n" + word));
    QVERIFY(!expression);
    QCOMPARE(spline->getControlPointsNumber(), 1u);
    QVERIFY(!spline->isAddFunc());
    QVERIFY(boxes->titles.isEmpty());
}

void TestOlderCurveFile::aSumWhoseExpressionDoesNotParseBecomesASpline()
{
    load(whole("2\nsin(t\n0 1 1 7\n"));
    QVERIFY(!expression);
    QCOMPARE(spline->getDefaultValue(), 7.0);
    QCOMPARE(curve->curveType(), 0);
}

void TestOlderCurveFile::blanksAndLinesAroundTheNumbersDoNotMatter()
{
    write("  9 8\t7\r\n\r\n 2 \r\n t*2 \r\n1 1\r\n1 0\r\n" + keyLine("4").replace(' ', '\n'));
    curve->loadCrv(path("loaded.crv"), FunctionParserBase::instance());
    QCOMPARE(curve->curveType(), 2);
    QCOMPARE(spline->getControlPointsNumber(), 1u);
    QCOMPARE(spline->at(0)->time, 4.0);
}

void TestOlderCurveFile::theTypeMayTouchTheExpression()
{
    load(whole("12\n"));
    QVERIFY(expression);
    QCOMPARE(expression->value(), 2.0);
}

void TestOlderCurveFile::keysInAnyOrderAreSortedAndTimesThatAreNoNumberComeLast()
{
    const QByteArray times[] = {"2", "nan", "-1", "inf", "nan", "0", "-inf", "-nan", "1"};
    QByteArray keys;
    for (const QByteArray& time : times) {
        keys += keyLine(time);
    }
    load(whole("0\n9 1 1 0\n" + keys));
    QCOMPARE(spline->getControlPointsNumber(), 9u);
    const double infinity = std::numeric_limits<double>::infinity();
    const double sorted[] = {-infinity, -1.0, 0.0, 1.0, 2.0, infinity};
    for (unsigned i = 0; i < 6; ++i) {
        QCOMPARE(spline->at(i)->time, sorted[i]);
    }
    for (unsigned i = 6; i < 9; ++i) {
        QVERIFY(std::isnan(spline->at(i)->time));
    }
    QVERIFY(!std::isnan(curve->evaluate(0.5))); // and the curve can be evaluated
}

void TestOlderCurveFile::keysThatDoNotReadLeaveTheOldOnes()
{
    fillCurve();
    load(whole("2\nt*2\n2 1 1 0\n" + keyLine("1") + "1 2 3"));
    QCOMPARE(spline->getControlPointsNumber(), 1u);
    QCOMPARE(spline->at(0)->time, 7.0);
    QCOMPARE(spline->firstNodeType(), SplineBase::loop);
    QCOMPARE(QString::fromStdString(expression->getString()), QString("t*2"));
    QVERIFY(boxes->titles.isEmpty());
}

void TestOlderCurveFile::theSelectionNamesNoFreedKey()
{
    fillCurve();
    curve->splineGraph()->selection().selectPoints({spline->at(0)});
    load(whole("0\n1 1 1 0\n" + keyLine("3")));
    QVERIFY(curve->splineGraph()->selection().selectedPoints.isEmpty());
    QVERIFY(!curve->splineGraph()->selection().currentPoint);
}

void TestOlderCurveFile::withoutASlotTheExpressionIsDropped()
{
    CurveNodeBase bare(nullptr, "d", "n", Qt::blue, 0.0f, spline.get(), nullptr, -1.0f, 1.0f, true);
    write(whole("2\nt*2\n1 1 1 0\n" + keyLine("3")));
    bare.loadCrv(path("loaded.crv"), FunctionParserBase::instance());
    QCOMPARE(spline->getControlPointsNumber(), 1u);
    QVERIFY(!bare.expression());
}

void TestOlderCurveFile::withoutASplineTheKeysAreDropped()
{
    CurveNodeBase bare(nullptr, "d", "n", Qt::blue, 0.0f, nullptr, &expression, -1.0f, 1.0f, true);
    write(whole("2\nt*2\n1 1 1 0\n" + keyLine("3")));
    bare.loadCrv(path("loaded.crv"), FunctionParserBase::instance());
    QCOMPARE(bare.curveType(), 1);
    QCOMPARE(QString::fromStdString(expression->getString()), QString("t*2"));
}

void TestOlderCurveFile::readingMarksTheCurveAsChanged()
{
    ViewPort view;
    curve->updateGraph(&view);
    QVERIFY(!curve->hasChanged());
    load(whole("1\nt*2\n"));
    QVERIFY(curve->hasChanged());
}

void TestOlderCurveFile::aParserOfNullStandsForTheParser()
{
    write(whole("1\nt*2\n"));
    curve->loadCrv(path("loaded.crv"), nullptr);
    QCOMPARE(QString::fromStdString(expression->getString()), QString("t*2"));
}

void TestOlderCurveFile::aFileThatCannotBeOpenedChangesNothingWithoutABox()
{
    fillCurve();
    curve->loadCrv(path("missing.crv"), FunctionParserBase::instance());
    curve->loadCrv(QString(), FunctionParserBase::instance());
    QVERIFY(boxes->titles.isEmpty());
    verifyIsFilled();
}

void TestOlderCurveFile::aFolderHasNoType()
{
    fillCurve();
    curve->loadCrv(folder.path(), FunctionParserBase::instance());
    QCOMPARE(boxes->texts, QStringList("Curve type not valid"));
    verifyIsFilled();
}

QTEST_MAIN(TestOlderCurveFile)
#include "test_older_curve_file.moc"
