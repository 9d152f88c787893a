#include "canvas/SplineCurveGraph.h"
#include "core/ParseMessage.h"
#include "curves/CurveNodeBase.h"
#include "curves/CurveType.h"
#include "curves/CurveXmlNames.h"
#include "support/BoxCatcher.h"
#include "support/FailOnWarning.h"
#include "support/ParsedExpression.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

#include <memory>

namespace {

const char* const errorTitle = "Error Reading XML File";

PointInfo pointOf(const zk_spline::interpolationType& type, const bool& unified)
{
    PointInfo point;
    point.time = 1.0;
    point.value = 2.0;
    point.type = type;
    point.unifiedTangents = unified;
    point.bezier = {3.0, unified ? 3.0 : 4.0};
    point.tcb = {0.1, unified ? 0.0 : 0.2, 0.3, 0.4, 0.5};
    return point;
}

QByteArray curveFile(const QByteArray& children, const QByteArray& attributes = "version=\"1.0\"")
{
    return "<?xml version=\"1.0\"?>\n<!DOCTYPE qxxml-curve>\n<curve " + attributes + ">" +
           children + "</curve>";
}

QByteArray splineFile(const QByteArray& points)
{
    return curveFile("<type>spline</type><control-points>" + points + "</control-points>");
}

} // namespace

class TestXmlCurveFile : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void namesOfCurveTypes_data();
    void namesOfCurveTypes();
    void namesOfNodeTypes_data();
    void namesOfNodeTypes();
    void namesOfInterpolations_data();
    void namesOfInterpolations();

    void aWholeFileLooksLikeThis();
    void anEmptySplineWritesAnEmptyListOfPoints();
    void aPointWritesTheElementsOfItsType_data();
    void aPointWritesTheElementsOfItsType();
    void anExpressionFileHasNoKeysAndNoNodeTypes();
    void splinePlusExpressionWithAnEmptySlotIsWrittenAndReadBack();
    void numbersHaveSixSignificantDigits();
    void savingToAPathThatCannotBeOpenedSaysNothing();

    void aUnifiedBezierKeyComesBackWithEqualTangents();
    void aUnifiedTcbKeyComesBackWithContinuityZero();
    void aLinearOrSteppedKeyComesBackWithoutTangentsAndTcb_data();
    void aLinearOrSteppedKeyComesBackWithoutTangentsAndTcb();
    void aBrokenKeyComesBackWhole_data();
    void aBrokenKeyComesBackWhole();
    void everyCurveTypeComesBack_data();
    void everyCurveTypeComesBack();
    void anEmptySplineLoadsWithNoKey();
    void pointsHaveDefaults();
    void pointsAreOrderedByTime();
    void linearInAnySpelling_data();
    void linearInAnySpelling();

    void anExpressionFileLeavesTheKeys();
    void aSplineFileLeavesTheExpression();
    void anExpressionThatDoesNotParseGivesAnEmptySlotWithoutAWord();
    void aLoadedFileClearsTheSelectionAndMarksTheCurveChanged();
    void missingNodeTypesAreStoredAsMinusOneAndSurviveEvaluation();
    void anUnknownPointTypeIsStoredAsMinusOneAndSurvivesEvaluation();
    void aNumberThatDoesNotParseIsZero_data();
    void aNumberThatDoesNotParseIsZero();

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
    void writingToAStreamGivesTheElementAlone();
    void aCurveWithoutSplineAndSlotReadsAndWrites();

private:
    QString path(const QString& name) const { return folder.filePath(name); }
    QByteArray saved();
    bool load(const QByteArray& text);
    void addKey(const PointInfo& point);
    void setExpression(const std::string& text);
    void fillCurve();
    void verifyIsFilled();

    QTemporaryDir folder;
    std::unique_ptr<SplineBase> spline;
    FunctionFloatBase* expression = nullptr;
    std::unique_ptr<CurveNodeBase> curve;
    std::unique_ptr<BoxCatcher> boxes;
};

void TestXmlCurveFile::init()
{
    failOnUnexpectedWarning();
    spline = std::make_unique<SplineBase>();
    curve = std::make_unique<CurveNodeBase>(nullptr, "c", "n", Qt::red, 0.0f, spline.get(),
                                            &expression, -100.0f, 100.0f, true);
    boxes = std::make_unique<BoxCatcher>();
}

void TestXmlCurveFile::cleanup()
{
    boxes.reset();
    curve.reset();
    spline.reset();
    delete expression;
    expression = nullptr;
}

QByteArray TestXmlCurveFile::saved()
{
    curve->saveXML(path("saved.xml"));
    QFile file(path("saved.xml"));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool TestXmlCurveFile::load(const QByteArray& text)
{
    QFile file(path("loaded.xml"));
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size()) {
        return false;
    }
    file.close();
    return curve->LoadXML(path("loaded.xml"), FunctionParserBase::instance());
}

void TestXmlCurveFile::addKey(const PointInfo& point)
{
    spline->addPointPtr(new PointInfo(point));
}

void TestXmlCurveFile::setExpression(const std::string& text)
{
    delete expression;
    expression = ParsedExpression(text).tree.release();
}

/// Something that an unwanted change would show in.
void TestXmlCurveFile::fillCurve()
{
    spline->addPoint(7.0, 8.0);
    spline->setFirstNodeType(SplineBase::loop);
    spline->setLastNodeType(SplineBase::zero);
    spline->setAddFunc(true);
    setExpression("t+77");
}

void TestXmlCurveFile::verifyIsFilled()
{
    QCOMPARE(spline->getControlPointsNumber(), 1u);
    QCOMPARE(spline->at(0)->time, 7.0);
    QCOMPARE(spline->firstNodeType(), SplineBase::loop);
    QCOMPARE(spline->lastNodeType(), SplineBase::zero);
    QVERIFY(spline->isAddFunc());
    QVERIFY(expression);
    QCOMPARE(QString::fromStdString(expression->getString()), QString("t+77"));
}

void TestXmlCurveFile::namesOfCurveTypes_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("text");
    QTest::newRow("0") << 0 << "spline";
    QTest::newRow("1") << 1 << "expression";
    QTest::newRow("2") << 2 << "spline-plus-expression";
    QTest::newRow("mixed") << 3 << "unknown";
    QTest::newRow("negative") << -1 << "unknown";
}

void TestXmlCurveFile::namesOfCurveTypes()
{
    QFETCH(int, number);
    QFETCH(QString, text);
    QCOMPARE(curve_editor::curveTypeName(number), text);
    QCOMPARE(curve_editor::curveTypeFromName(text.toUpper()), text == "unknown" ? -1 : number);
}

void TestXmlCurveFile::namesOfNodeTypes_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("text");
    QTest::newRow("0") << 0 << "zero";
    QTest::newRow("1") << 1 << "constant";
    QTest::newRow("2") << 2 << "loop";
    QTest::newRow("3") << 3 << "loop-offset";
    QTest::newRow("4") << 4 << "follow-tangent";
    QTest::newRow("5") << 5 << "unknown";
    QTest::newRow("negative") << -1 << "unknown";
}

void TestXmlCurveFile::namesOfNodeTypes()
{
    QFETCH(int, number);
    QFETCH(QString, text);
    QCOMPARE(curve_editor::nodeTypeName(number), text);
    QCOMPARE(curve_editor::nodeTypeFromName(text.toUpper()), text == "unknown" ? -1 : number);
}

void TestXmlCurveFile::namesOfInterpolations_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("text");
    QTest::newRow("0") << 0 << "linear";
    QTest::newRow("1") << 1 << "bezier";
    QTest::newRow("2") << 2 << "tcb";
    QTest::newRow("3") << 3 << "step";
    QTest::newRow("4") << 4 << "unknown";
    QTest::newRow("negative") << -1 << "unknown";
}

void TestXmlCurveFile::namesOfInterpolations()
{
    QFETCH(int, number);
    QFETCH(QString, text);
    QCOMPARE(curve_editor::interpolationTypeName(number), text);
    QCOMPARE(curve_editor::interpolationTypeFromName(text.toUpper()),
             text == "unknown" ? -1 : number);
    QCOMPARE(curve_editor::interpolationTypeFromName("Lineal"), 0);
}

void TestXmlCurveFile::aWholeFileLooksLikeThis()
{
    addKey(pointOf(zk_spline::bezier, false));
    spline->setLastNodeType(SplineBase::loopOffset);
    spline->setAddFunc(true);
    setExpression("sin( t ) * 2");
    QCOMPARE(QString::fromUtf8(saved()),
             QString("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                     "<!DOCTYPE qxxml-curve>\n"
                     "<curve version=\"1.0\">\n"
                     "    <type>spline-plus-expression</type>\n"
                     "    <expression>sin(t)*2</expression>\n"
                     "    <first-node-type>constant</first-node-type>\n"
                     "    <last-node-type>loop-offset</last-node-type>\n"
                     "    <control-points>\n"
                     "        <point>\n"
                     "            <x>1</x>\n"
                     "            <y>2</y>\n"
                     "            <type>bezier</type>\n"
                     "            <ease-from>0.5</ease-from>\n"
                     "            <ease-to>0.4</ease-to>\n"
                     "            <incoming>3</incoming>\n"
                     "            <outgoing>4</outgoing>\n"
                     "        </point>\n"
                     "    </control-points>\n"
                     "</curve>\n"));
}

void TestXmlCurveFile::anEmptySplineWritesAnEmptyListOfPoints()
{
    QVERIFY(saved().contains("<control-points/>") || saved().contains("<control-points></"));
}

void TestXmlCurveFile::aPointWritesTheElementsOfItsType_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<bool>("unified");
    QTest::addColumn<QStringList>("elements");
    const QStringList common = {"x", "y", "type", "ease-from", "ease-to"};
    QTest::newRow("linear") << 0 << false << common;
    QTest::newRow("unified linear") << 0 << true << common + QStringList{"unified-tangents"};
    QTest::newRow("Bezier") << 1 << false << common + QStringList{"incoming", "outgoing"};
    QTest::newRow("unified Bezier")
        << 1 << true << common + QStringList{"incoming", "unified-tangents"};
    QTest::newRow("TCB") << 2 << false << common + QStringList{"t", "c", "b"};
    QTest::newRow("unified TCB") << 2 << true << common + QStringList{"t", "b", "unified-tangents"};
    QTest::newRow("stepped") << 3 << false << common;
    QTest::newRow("none of the four") << -1 << false << common;
}

void TestXmlCurveFile::aPointWritesTheElementsOfItsType()
{
    QFETCH(int, type);
    QFETCH(bool, unified);
    addKey(pointOf(static_cast<zk_spline::interpolationType>(type), unified));
    QXmlStreamReader reader(saved());
    QStringList elements;
    bool inPoint = false;
    while (!reader.atEnd()) {
        reader.readNext();
        if (reader.isStartElement() && inPoint) {
            elements.append(reader.name().toString());
        }
        inPoint = inPoint || (reader.isStartElement() && reader.name() == QLatin1String("point"));
    }
    QTEST(elements, "elements");
}

void TestXmlCurveFile::anExpressionFileHasNoKeysAndNoNodeTypes()
{
    addKey(pointOf(zk_spline::tcb, false));
    setExpression("t");
    const QByteArray text = saved();
    QVERIFY(text.contains("<type>expression</type>"));
    QVERIFY(!text.contains("node-type"));
    QVERIFY(!text.contains("control-points"));
}

void TestXmlCurveFile::splinePlusExpressionWithAnEmptySlotIsWrittenAndReadBack()
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

void TestXmlCurveFile::numbersHaveSixSignificantDigits()
{
    spline->addPoint(1.23456789, 123456789.0);
    const QByteArray text = saved();
    QVERIFY(text.contains("<x>1.23457</x>"));
    QVERIFY(text.contains("<y>1.23457e+08</y>"));
}

void TestXmlCurveFile::savingToAPathThatCannotBeOpenedSaysNothing()
{
    curve->saveXML(path("no/such/folder/c.xml"));
    QVERIFY(boxes->texts.isEmpty());
    QVERIFY(!QFile::exists(path("no")));
}

void TestXmlCurveFile::aUnifiedBezierKeyComesBackWithEqualTangents()
{
    addKey(pointOf(zk_spline::bezier, true));
    QVERIFY(load(saved()));
    QVERIFY(spline->at(0)->unifiedTangents);
    QCOMPARE(spline->at(0)->bezier.tangentLeft, 3.0);
    QCOMPARE(spline->at(0)->bezier.tangentRight, 3.0);
}

void TestXmlCurveFile::aUnifiedTcbKeyComesBackWithContinuityZero()
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

void TestXmlCurveFile::aLinearOrSteppedKeyComesBackWithoutTangentsAndTcb_data()
{
    QTest::addColumn<int>("type");
    QTest::newRow("linear") << int(zk_spline::linear);
    QTest::newRow("stepped") << int(zk_spline::stepped);
}

void TestXmlCurveFile::aLinearOrSteppedKeyComesBackWithoutTangentsAndTcb()
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

void TestXmlCurveFile::aBrokenKeyComesBackWhole_data()
{
    QTest::addColumn<int>("type");
    QTest::newRow("Bezier") << int(zk_spline::bezier);
    QTest::newRow("TCB") << int(zk_spline::tcb);
}

void TestXmlCurveFile::aBrokenKeyComesBackWhole()
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

void TestXmlCurveFile::everyCurveTypeComesBack_data()
{
    QTest::addColumn<int>("type");
    QTest::newRow("spline") << int(splineCurve);
    QTest::newRow("expression") << int(expressionCurve);
    QTest::newRow("spline plus expression") << int(splinePlusExpressionCurve);
}

void TestXmlCurveFile::everyCurveTypeComesBack()
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

void TestXmlCurveFile::anEmptySplineLoadsWithNoKey()
{
    const QByteArray text = saved();
    spline->addPoint(0.0, 5.0);
    QVERIFY(load(text));
    QCOMPARE(spline->getControlPointsNumber(), 0u);
}

void TestXmlCurveFile::pointsHaveDefaults()
{
    QVERIFY(load(splineFile("<point/>")));
    QCOMPARE(spline->getControlPointsNumber(), 1u);
    const PointInfo& point = *spline->at(0);
    QCOMPARE(point.time, 0.0);
    QCOMPARE(point.type, zk_spline::tcb);
    QVERIFY(!point.unifiedTangents);
}

void TestXmlCurveFile::pointsAreOrderedByTime()
{
    QVERIFY(load(splineFile("<point><x>2</x></point><point><x>1</x></point>")));
    QCOMPARE(spline->at(0)->time, 1.0);
    QCOMPARE(spline->at(1)->time, 2.0);
}

void TestXmlCurveFile::linearInAnySpelling_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("linear") << QByteArray("linear");
    QTest::newRow("lineal") << QByteArray("lineal");
    QTest::newRow("capitals") << QByteArray("LINEAR");
    QTest::newRow("mixed capitals") << QByteArray("LineaL");
}

void TestXmlCurveFile::linearInAnySpelling()
{
    QFETCH(QByteArray, text);
    QVERIFY(load(splineFile("<point><type>" + text + "</type></point>")));
    QCOMPARE(spline->at(0)->type, zk_spline::linear);
}

void TestXmlCurveFile::anExpressionFileLeavesTheKeys()
{
    fillCurve();
    QVERIFY(load(curveFile("<type>Expression</type><expression>2 * t</expression>")));
    QCOMPARE(spline->getControlPointsNumber(), 1u);
    QCOMPARE(spline->firstNodeType(), SplineBase::loop);
    QCOMPARE(curve->curveType(), int(expressionCurve));
    QCOMPARE(curve->evaluate(3.0), 6.0);
}

void TestXmlCurveFile::aSplineFileLeavesTheExpression()
{
    fillCurve();
    QVERIFY(load(splineFile("<point><x>3</x></point>")));
    QCOMPARE(spline->at(0)->time, 3.0);
    QVERIFY(!spline->isAddFunc());
    QCOMPARE(curve->curveType(), int(expressionCurve));
    QCOMPARE(QString::fromStdString(expression->getString()), QString("t+77"));
}

void TestXmlCurveFile::anExpressionThatDoesNotParseGivesAnEmptySlotWithoutAWord()
{
    fillCurve();
    QVERIFY(load(curveFile("<type>expression</type><expression>nobody+</expression>")));
    QVERIFY(!expression);
    QVERIFY(!spline->isAddFunc());
    QVERIFY(boxes->texts.isEmpty());
}

void TestXmlCurveFile::aLoadedFileClearsTheSelectionAndMarksTheCurveChanged()
{
    spline->addPoint(1.0, 1.0);
    ControlSplineNode& selection = curve->splineGraph()->selection();
    selection.selectSinglePoint(spline->at(0));
    QVERIFY(load(splineFile("<point><x>3</x></point>")));
    QVERIFY(!selection.currentPoint);
    QVERIFY(selection.selectedPoints.isEmpty());
    QVERIFY(curve->hasChanged());
    QVERIFY(spline->hasChanged());
}

void TestXmlCurveFile::missingNodeTypesAreStoredAsMinusOneAndSurviveEvaluation()
{
    QVERIFY(load(splineFile("<point><x>3</x><y>5</y></point>")));
    QCOMPARE(int(spline->firstNodeType()), -1);
    QCOMPARE(int(spline->lastNodeType()), -1);
    QCOMPARE(curve->evaluate(0.0), 5.0);
    QCOMPARE(curve->evaluate(9.0), 5.0);
    QVERIFY(saved().contains("<first-node-type>unknown</first-node-type>"));
}

void TestXmlCurveFile::anUnknownPointTypeIsStoredAsMinusOneAndSurvivesEvaluation()
{
    QVERIFY(load(splineFile("<point><x>0</x><y>1</y><type>wavy</type></point>"
                            "<point><x>2</x><y>3</y><type>wavy</type></point>")));
    QCOMPARE(int(spline->at(0)->type), -1);
    QCOMPARE(curve->evaluate(1.0), 2.0);
    QVERIFY(boxes->texts.isEmpty());
}

void TestXmlCurveFile::aNumberThatDoesNotParseIsZero_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<double>("expected");
    QTest::newRow("word") << QByteArray("many") << 0.0;
    QTest::newRow("empty") << QByteArray("") << 0.0;
    QTest::newRow("nan") << QByteArray("nan") << 0.0;
    QTest::newRow("inf") << QByteArray("inf") << 0.0;
    QTest::newRow("minus inf") << QByteArray("-inf") << 0.0;
    QTest::newRow("out of range") << QByteArray("1e999") << 0.0;
    QTest::newRow("comma") << QByteArray("1,5") << 0.0;
    QTest::newRow("a number") << QByteArray("-1.5e2") << -150.0;
}

void TestXmlCurveFile::aNumberThatDoesNotParseIsZero()
{
    QFETCH(QByteArray, text);
    QFETCH(double, expected);
    QVERIFY(load(splineFile("<point><x>3</x><y>" + text + "</y></point>")));
    QCOMPARE(spline->at(0)->value, expected);
    QCOMPARE(spline->at(0)->time, 3.0);
}

void TestXmlCurveFile::theVersionDecidesWhetherAFileIsRead_data()
{
    QTest::addColumn<QByteArray>("attribute");
    QTest::addColumn<QString>("error");
    QTest::newRow("current") << QByteArray("version='1.0'") << "";
    QTest::newRow("older") << QByteArray("version='0.5'") << "";
    QTest::newRow("later") << QByteArray("version='1.01'") << "Unsupported Version: 1.01 > 1.0";
    QTest::newRow("infinite") << QByteArray("version='inf'") << "Unsupported Version: inf > 1.0";
    QTest::newRow("missing") << QByteArray("") << "Undefined Version";
    QTest::newRow("empty") << QByteArray("version=''") << "Undefined Version";
    QTest::newRow("a word") << QByteArray("version='new'") << "Undefined Version";
    QTest::newRow("zero") << QByteArray("version='0'") << "Undefined Version";
    QTest::newRow("negative") << QByteArray("version='-1'") << "Undefined Version";
    QTest::newRow("nan") << QByteArray("version='nan'") << "Undefined Version";
}

void TestXmlCurveFile::theVersionDecidesWhetherAFileIsRead()
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

void TestXmlCurveFile::aDoctypeOfAnyNameOrNoneIsNoError_data()
{
    QTest::addColumn<QByteArray>("doctype");
    QTest::newRow("another") << QByteArray("<!DOCTYPE something-else>");
    QTest::newRow("none") << QByteArray();
}

void TestXmlCurveFile::aDoctypeOfAnyNameOrNoneIsNoError()
{
    QFETCH(QByteArray, doctype);
    QVERIFY(load(doctype + "<curve version=\"1.0\"><type>spline</type></curve>"));
}

void TestXmlCurveFile::errorsAreToldInABoxAndNothingChanges_data()
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

void TestXmlCurveFile::errorsAreToldInABoxAndNothingChanges()
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

void TestXmlCurveFile::malformedXmlIsToldInTheReadersOwnWords()
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

void TestXmlCurveFile::aFileThatCannotBeOpenedIsRefusedWithoutAWord()
{
    fillCurve();
    QVERIFY(!curve->LoadXML(path("missing.xml"), FunctionParserBase::instance()));
    QVERIFY(boxes->texts.isEmpty());
    verifyIsFilled();
}

void TestXmlCurveFile::unknownElementsOfACurveEndIt()
{
    // The end tag of the unknown element ends the curve; the reader of the document meets the
    // next element.
    QVERIFY(!load(curveFile("<type>spline</type><note/><first-node-type>loop</first-node-type>")));
    QVERIFY(
        boxes->texts.first().contains("Bad Format: Expected <curve> instead of <first-node-type>"));
    QCOMPARE(int(spline->firstNodeType()), -1);
}

void TestXmlCurveFile::anUnknownElementAtTheStartOfAPointEndsPointListAndCurve()
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

void TestXmlCurveFile::anUnknownElementAfterOthersOfAPointEndsItThere()
{
    QVERIFY(load(splineFile("<point><x>1</x><y>2</y><note/></point>")));
    QCOMPARE(spline->at(0)->time, 1.0);
    QCOMPARE(spline->at(0)->value, 2.0);
}

void TestXmlCurveFile::readingFromAStreamShowsNoBox()
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

void TestXmlCurveFile::writingToAStreamGivesTheElementAlone()
{
    QByteArray text;
    QXmlStreamWriter writer(&text);
    setExpression("1");
    curve->writeXmlStream(writer);
    QCOMPARE(QString::fromUtf8(text), QString("<curve version=\"1.0\"><type>expression</type>"
                                              "<expression>1</expression></curve>"));
}

void TestXmlCurveFile::aCurveWithoutSplineAndSlotReadsAndWrites()
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

QTEST_MAIN(TestXmlCurveFile)
#include "test_xml_curve_file.moc"
