#include "curves/CurveHold.h"
#include "support/BoxCatcher.h"
#include "support/CanvasTest.h"

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

/// Which curves of the canvas are being edited, and what the set says of itself.
class TestCanvasEditingSet : public CanvasTest
{
    Q_OBJECT

private slots:
    void init() { openCanvas(); }
    void cleanup() { closeCanvas(); }

    void selectingAGroupTakesAllItsLeaves();
    void selectingSkipsUnknownNamesAndDoubles();
    void selectingTheEmptyListEmptiesTheSetAndStillSaysSo();
    void selectingActivatesExactlyTheSelected();
    void aDeselectedCurveLosesItsSelectionOfKeys();
    void selectingByNameAnnouncesTheNamesGiven();
    void selectingObjectsAnnouncesTheCurvesTakenIn();
    void aChangeIsAnnouncedTwice();
    void updatingWithoutAChangeAnnouncesNothing();

    void theFirstCurveOfAnEmptySetIsCalledNone();
    void theFirstCurveGivesSplineAndName();
    void keyContainersStandInTheOrderOfTheSet();
    void editingTypeOfAnEmptySetIsExpression();
    void editingTypeComesFromTheCurves_data();
    void editingTypeComesFromTheCurves();
    void commandLineTextOfCurves_data();
    void commandLineTextOfCurves();
    void markingExpressionsChangedReachesTheSetAndIsAnnounced();
    void savingWritesAFileForEachCurve();
    void noFileReplacesThatOfAnotherCurve();

    void aParseErrorIsToldInABox_data();
    void aParseErrorIsToldInABox();
    void aTextThatParsesShowsNoBox();
};

void TestCanvasEditingSet::selectingAGroupTakesAllItsLeaves()
{
    CurveNode* a = add("n.a");
    CurveNode* b = add("n.g.b");
    CurveNode* other = add("m.c");
    canvas->selectCurves({"n"});
    QCOMPARE(canvas->editingCurves(), (QList<CurveNode*>{a, b}));
    QVERIFY(a->splineGraph()->isActive);
    QVERIFY(b->splineGraph()->isActive);
    QVERIFY(!other->splineGraph()->isActive);
}

void TestCanvasEditingSet::selectingSkipsUnknownNamesAndDoubles()
{
    CurveNode* a = add("n.a");
    CurveNode* b = add("n.b");
    canvas->selectCurves({"n.b", "n.x", "n", "n.a", ""});
    QCOMPARE(canvas->editingCurves(), (QList<CurveNode*>{b, a}));
    QCOMPARE(canvas->editingCurveNames(), (QStringList{"n.b", "n.a"}));
    canvas->selectCurveObjects({a, nullptr, a});
    QCOMPARE(canvas->editingCurves(), QList<CurveNode*>{a});
}

void TestCanvasEditingSet::selectingTheEmptyListEmptiesTheSetAndStillSaysSo()
{
    add("n.a");
    canvas->selectCurves({"n.a"});
    QSignalSpy announced(canvas, &CanvasFunctionBase::selectionChanged);
    canvas->selectCurves({});
    QVERIFY(!canvas->isEditing());
    QCOMPARE(announced.size(), 1);
}

void TestCanvasEditingSet::selectingActivatesExactlyTheSelected()
{
    CurveNode* a = add("n.a");
    CurveNode* b = add("n.b");
    canvas->selectCurves({"n.a"});
    canvas->selectCurves({"n.b"});
    QVERIFY(!a->splineGraph()->isActive);
    QVERIFY(b->splineGraph()->isActive);
    canvas->selectCurveObjects(canvas->editingCurves());
    QVERIFY(b->splineGraph()->isActive);
}

void TestCanvasEditingSet::aDeselectedCurveLosesItsSelectionOfKeys()
{
    CurveNode* a = add("n.a");
    CurveNode* b = add("n.b");
    for (const char* name : {"n.a", "n.b"}) {
        hosts[name]->spline.addPoint(1.0, 1.0);
    }
    canvas->selectCurves({"n"});
    a->splineGraph()->selection().selectSinglePoint(a->spline()->at(0));
    b->splineGraph()->selection().selectSinglePoint(b->spline()->at(0));
    canvas->selectCurves({"n.b"});
    QVERIFY(a->splineGraph()->selection().selectedPoints.isEmpty());
    QVERIFY(!a->splineGraph()->selection().currentPoint);
    QVERIFY(b->splineGraph()->selection().hasSelection());
    canvas->updateCanvas();
    QVERIFY(b->splineGraph()->selection().hasSelection());
    const CurveHold kept(b);
    canvas->removeCanvasCurve("n.b"); // an undo may put it back as it was
    QVERIFY(b->splineGraph()->selection().hasSelection());
}

void TestCanvasEditingSet::selectingByNameAnnouncesTheNamesGiven()
{
    add("n.a");
    QSignalSpy announced(canvas, &CanvasFunctionBase::selectionChanged);
    canvas->selectCurves({"n", "unknown"});
    QCOMPARE(announced.first().first().toStringList(), (QStringList{"n", "unknown"}));
}

void TestCanvasEditingSet::selectingObjectsAnnouncesTheCurvesTakenIn()
{
    add("n.a");
    CurveNode* b = add("n.b");
    CurveNode* group = canvas->findCurve("n");
    QSignalSpy announced(canvas, &CanvasFunctionBase::selectionChanged);
    canvas->selectCurveObjects({b, group, nullptr});
    QCOMPARE(announced.first().first().toStringList(), (QStringList{"n.b", "n.a"}));
}

void TestCanvasEditingSet::aChangeIsAnnouncedTwice()
{
    add("n.a");
    QSignalSpy announced(canvas, &CanvasFunctionBase::selectionChanged);
    canvas->selectCurves({"n"});
    QCOMPARE(announced.size(), 1);
    canvas->updateCanvas();
    QCOMPARE(announced.size(), 2);
    QCOMPARE(announced.last().first().toStringList(), QStringList{"n.a"});
    canvas->updateCanvas();
    QCOMPARE(announced.size(), 2);
}

void TestCanvasEditingSet::updatingWithoutAChangeAnnouncesNothing()
{
    QSignalSpy announced(canvas, &CanvasFunctionBase::selectionChanged);
    canvas->updateCanvas();
    QCOMPARE(announced.size(), 0);
}

void TestCanvasEditingSet::theFirstCurveOfAnEmptySetIsCalledNone()
{
    QCOMPARE(canvas->firstCurveName(), QString("None"));
    QVERIFY(!canvas->firstSpline());
}

void TestCanvasEditingSet::theFirstCurveGivesSplineAndName()
{
    add("n.a");
    add("n.b");
    canvas->selectCurves({"n.b", "n.a"});
    QCOMPARE(canvas->firstCurveName(), QString("n.b"));
    QCOMPARE(canvas->firstSpline(), &hosts["n.b"]->spline);
}

void TestCanvasEditingSet::keyContainersStandInTheOrderOfTheSet()
{
    CurveNode* a = add("n.a");
    CurveNode* b = add("n.b");
    canvas->selectCurves({"n.b", "n.a"});
    QCOMPARE(canvas->keyContainers(),
             (QList<SplineCurveGraph*>{b->splineGraph(), a->splineGraph()}));
}

void TestCanvasEditingSet::editingTypeOfAnEmptySetIsExpression()
{
    QCOMPARE(canvas->editingType(), int(expressionCurve));
}

void TestCanvasEditingSet::editingTypeComesFromTheCurves_data()
{
    QTest::addColumn<QList<int>>("types");
    QTest::addColumn<int>("expected");
    QTest::newRow("a spline") << QList<int>{0} << 0;
    QTest::newRow("expression, then spline plus expression") << QList<int>{1, 2} << 1;
    QTest::newRow("spline plus expression, then expression") << QList<int>{2, 1} << 2;
    QTest::newRow("spline, then expression") << QList<int>{0, 1} << 3;
    QTest::newRow("expression, then spline") << QList<int>{1, 0} << 3;
    QTest::newRow("two splines") << QList<int>{0, 0} << 0;
    QTest::newRow("a spline at the end") << QList<int>{1, 2, 0} << 3;
}

void TestCanvasEditingSet::editingTypeComesFromTheCurves()
{
    QFETCH(QList<int>, types);
    QStringList names;
    for (const int& type : types) {
        names.append(QString("n.%1").arg(names.size()));
        addOfType(names.last(), type);
    }
    canvas->selectCurves(names);
    QTEST(canvas->editingType(), "expected");
}

void TestCanvasEditingSet::commandLineTextOfCurves_data()
{
    QTest::addColumn<QList<int>>("types");
    QTest::addColumn<QStringList>("texts");
    QTest::addColumn<QString>("expected");
    QTest::newRow("no curve") << QList<int>() << QStringList() << "";
    QTest::newRow("a spline") << QList<int>{0} << QStringList{""} << "";
    QTest::newRow("one") << QList<int>{1} << QStringList{"t + 1"} << "t+1";
    QTest::newRow("the same twice") << QList<int>{1, 2} << QStringList{"t+1", "t+1"} << "t+1";
    QTest::newRow("different ones") << QList<int>{1, 1} << QStringList{"t+1", "t+2"} << "...";
    QTest::newRow("mixed") << QList<int>{0, 1} << QStringList{"", "t"} << "Multiple Types";
}

void TestCanvasEditingSet::commandLineTextOfCurves()
{
    QFETCH(QList<int>, types);
    QFETCH(QStringList, texts);
    QStringList names;
    for (qsizetype i = 0; i < types.size(); ++i) {
        names.append(QString("n.%1").arg(i));
        addOfType(names.last(), types.at(i), texts.at(i));
    }
    canvas->selectCurves(names);
    QTEST(canvas->commandLineText(), "expected");
}

void TestCanvasEditingSet::markingExpressionsChangedReachesTheSetAndIsAnnounced()
{
    auto* curve = dynamic_cast<CurveNodeBase*>(add("n.a"));
    canvas->selectCurves({"n.a"});
    curve->updateGraph(widget.get());
    QVERIFY(!curve->hasChanged());
    QSignalSpy announced(canvas, &CanvasFunctionBase::changeCommandLine);
    canvas->markExpressionsChanged();
    QVERIFY(curve->hasChanged());
    QCOMPARE(announced.size(), 1);
}

void TestCanvasEditingSet::savingWritesAFileForEachCurve()
{
    const QTemporaryDir folder;
    add("n.a");
    add("n.b.c");
    add("n.d");
    add("n.in/../out");
    canvas->selectCurves({"n.a", "n.b.c", "n.in/../out"});
    canvas->saveCurvesXml(folder.path());
    // A name is no path.
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files, QDir::Name),
             (QStringList{"n.a.xml", "n.b.c.xml", "n.in_.._out.xml"}));
}

void TestCanvasEditingSet::noFileReplacesThatOfAnotherCurve()
{
    const QTemporaryDir folder;
    add("n.in/out");
    add("n.in_out");
    add("n.in_out_");
    canvas->selectCurves({"n.in/out", "n.in_out", "n.in_out_"});
    canvas->saveCurvesXml(folder.path());
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files, QDir::Name),
             (QStringList{"n.in_out.xml", "n.in_out_.xml", "n.in_out__.xml"}));
}

void TestCanvasEditingSet::aParseErrorIsToldInABox_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("box");
    QTest::newRow("unknown name") << "1+nobody*2" << 1 << "Variable nobody not found";
    QTest::newRow("open parenthesis") << "sin(t" << 3 << "Unmatched parenthesis";
    QTest::newRow("other") << "1+" << 4 << "Unknown";
}

void TestCanvasEditingSet::aParseErrorIsToldInABox()
{
    QFETCH(QString, text);
    ParseMessage message;
    BoxCatcher boxes;
    delete canvas->parseExpression(text, message);
    QCOMPARE(boxes.titles, QStringList{"Syntax error"});
    QTEST(boxes.texts.value(0), "box");
    QTEST(message.errorKind, "kind");
}

void TestCanvasEditingSet::aTextThatParsesShowsNoBox()
{
    ParseMessage message;
    message.errorKind = 2;
    message.errorSpans.emplace_back(0, 1);
    BoxCatcher boxes;
    const std::unique_ptr<FunctionFloatBase> expression(canvas->parseExpression("1+1", message));
    QCOMPARE(expression->value(), 2.0);
    QVERIFY(boxes.texts.isEmpty());
}

QTEST_MAIN(TestCanvasEditingSet)
#include "test_canvas_editing_set.moc"
