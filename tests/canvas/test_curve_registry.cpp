#include "canvas/CanvasFunctionBase.h"
#include "canvas/FunctionEditor.h"
#include "canvas/SplineCurveGraph.h"
#include "core/ParseMessage.h"
#include "curves/CurveNodeBase.h"
#include "curves/CurveType.h"
#include "support/BoxCatcher.h"
#include "support/FailOnWarning.h"
#include "support/ParsedExpression.h"

#include <QDir>
#include <QFile>
#include <QPointer>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <map>
#include <memory>

class TestCurveRegistry : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void aCurveMakesItsGroupOnceAndASecondOneFindsIt();
    void aDeepNameMakesAllItsGroups();
    void anExistingCurveIsGivenBack();
    void aCurveNamedLikeAGroupIsGivenTheGroup();
    void aCurveKeepsTheAddFuncFlagOfItsSpline();
    void aCurveWithoutSplineAndSlotIsAdded();
    void ensuringThePathOfASingleElementGivesNull();
    void ensuringAPathStopsAtAnElementThatEqualsTheLastOne();
    void aNameThatRepeatsAnElementLiesHigherAndReportsItsWholeName();
    void aNameThatRepeatsItsFirstElementStandsOnTop();
    void aCurveUnderACurveStandsOnTop();
    void aCurveOfOneElementStandsOnTop();
    void emptyElementsAreKept();

    void removingUnlinksWithoutFreeing();
    void removingAnUnknownNameDoesNothing();
    void removingTakesTheCurveOutOfTheEditingSet();
    void removingATopCurveUnlinksIt();
    void attachingPutsTheSameObjectBack();
    void attachingUnderATakenNameLeavesTheCurveUnattached();
    void attachingNullGivesNull();
    void attachingACurveFromAnUnlinkedGroupTakesItOutOfThere();
    void aCurvePutBackIsNotDrawnBeforeItIsSelected();
    void discardingFreesOnlyWhatIsUnlinked();
    void clearingDeletesTheTreeAndEmptiesTheEditingSetFirst();
    void unlinkedNodesDieWithTheCanvas();
    void deletingANodeDropsItFromEverywhere();

    void selectingAGroupTakesAllItsLeaves();
    void selectingSkipsUnknownNamesAndDoubles();
    void selectingTheEmptyListEmptiesTheSetAndStillSaysSo();
    void selectingActivatesExactlyTheSelected();
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

    void aParseErrorIsToldInABox_data();
    void aParseErrorIsToldInABox();
    void aTextThatParsesShowsNoBox();

private:
    struct Host
    {
        SplineBase spline;
        FunctionFloatBase* expression = nullptr;
        ~Host() { delete expression; }
    };

    CurveNode* add(const QString& name);
    CurveNode* addOfType(const QString& name, const int& type, const QString& text = "1");

    std::map<QString, std::unique_ptr<Host>> hosts;
    std::unique_ptr<FunctionEditor> widget;
    CanvasFunctionBase* canvas = nullptr;
};

void TestCurveRegistry::init()
{
    failOnUnexpectedWarning();
    widget = std::make_unique<FunctionEditor>(nullptr, nullptr);
    canvas = &widget->canvas();
}

void TestCurveRegistry::cleanup()
{
    widget.reset();
    hosts.clear();
}

CurveNode* TestCurveRegistry::add(const QString& name)
{
    auto& host = hosts[name];
    if (!host) {
        host = std::make_unique<Host>();
    }
    return canvas->addCanvasCurve(name, Qt::red, 0.0f, &host->spline, &host->expression, -10.0f,
                                  10.0f, true);
}

CurveNode* TestCurveRegistry::addOfType(const QString& name, const int& type, const QString& text)
{
    CurveNode* curve = add(name);
    ParseMessage message;
    if (type != splineCurve) {
        curve->setExpression(ParsedExpression(text.toStdString()).tree.release(), message);
    }
    curve->setAddFunc(type == splinePlusExpressionCurve);
    return curve;
}

void TestCurveRegistry::aCurveMakesItsGroupOnceAndASecondOneFindsIt()
{
    CurveNode* curve = add("node.curve");
    CurveNode* other = add("node.other");
    QCOMPARE(canvas->topNodes().size(), 1);
    CurveNode* group = canvas->topNodes().first();
    QVERIFY(!group->isCurve());
    QCOMPARE(group->dotName(), QString("node"));
    QCOMPARE(*group->children(), (QList<CurveNode*>{curve, other}));
    QCOMPARE(curve->dotName(), QString("node.curve"));
    QCOMPARE(curve->path(), QString("node"));
}

void TestCurveRegistry::aDeepNameMakesAllItsGroups()
{
    CurveNode* curve = add("a.b.c.d");
    QCOMPARE(curve->parentNode()->dotName(), QString("a.b.c"));
    QCOMPARE(canvas->findCurve("a.b")->children()->first(), canvas->findCurve("a.b.c"));
    CurveNode* other = add("a.b.e");
    QCOMPARE(other->parentNode(), canvas->findCurve("a.b"));
}

void TestCurveRegistry::anExistingCurveIsGivenBack()
{
    CurveNode* curve = add("n.a");
    QCOMPARE(add("n.a"), curve);
    QCOMPARE(canvas->findCurve("n")->children()->size(), 1);
}

void TestCurveRegistry::aCurveNamedLikeAGroupIsGivenTheGroup()
{
    add("n.a.b");
    CurveNode* found = add("n.a");
    QVERIFY(!found->isCurve());
    QCOMPARE(found, canvas->findCurve("n.a"));
}

void TestCurveRegistry::aCurveKeepsTheAddFuncFlagOfItsSpline()
{
    hosts["n.a"] = std::make_unique<Host>();
    hosts["n.a"]->spline.setAddFunc(true);
    QCOMPARE(add("n.a")->curveType(), int(splinePlusExpressionCurve));
}

void TestCurveRegistry::aCurveWithoutSplineAndSlotIsAdded()
{
    CurveNode* curve =
        canvas->addCanvasCurve("n.a", Qt::red, 0.0f, nullptr, nullptr, 0.0f, 1.0f, false);
    QVERIFY(!curve->spline());
    QVERIFY(!curve->notifiesHost());
}

void TestCurveRegistry::ensuringThePathOfASingleElementGivesNull()
{
    QVERIFY(!canvas->ensurePath("solo"));
    QVERIFY(!canvas->ensurePath(""));
    QVERIFY(canvas->topNodes().isEmpty());
}

void TestCurveRegistry::ensuringAPathStopsAtAnElementThatEqualsTheLastOne()
{
    CurveNode* group = canvas->ensurePath("a.b.b");
    QCOMPARE(group->dotName(), QString("a"));
    QVERIFY(group->children()->isEmpty());
    QVERIFY(!canvas->ensurePath("body.body"));
    QVERIFY(!canvas->ensurePath("body.x.body"));
}

void TestCurveRegistry::aNameThatRepeatsAnElementLiesHigherAndReportsItsWholeName()
{
    CurveNode* curve = add("a.b.b");
    QCOMPARE(curve->parentNode()->dotName(), QString("a"));
    QCOMPARE(curve->dotName(), QString("a.b.b"));
    QCOMPARE(canvas->findCurve("a.b.b"), curve);
    QVERIFY(!canvas->findCurve("a.b"));
    canvas->findCurve("a")->setDotName("x");
    QCOMPARE(curve->dotName(), QString("x.b.b"));
    QCOMPARE(canvas->findCurve("x.b.b"), curve);
    canvas->removeCanvasCurve("x.b.b");
    QVERIFY(!canvas->findCurve("x.b.b"));
    QCOMPARE(canvas->attachCanvasCurve(curve), curve);
    QCOMPARE(curve->parentNode(), canvas->findCurve("x"));
}

void TestCurveRegistry::aNameThatRepeatsItsFirstElementStandsOnTop()
{
    CurveNode* curve = add("body.body");
    QCOMPARE(canvas->topNodes(), QList<CurveNode*>{curve});
    QCOMPARE(curve->dotName(), QString("body.body"));
    curve->setDotName("hull.body");
    QCOMPARE(canvas->findCurve("hull.body"), curve);
}

void TestCurveRegistry::aCurveUnderACurveStandsOnTop()
{
    CurveNode* upper = add("n.a");
    CurveNode* lower = add("n.a.b");
    QVERIFY(!lower->parentNode());
    QCOMPARE(lower->dotName(), QString("n.a.b"));
    QCOMPARE(canvas->findCurve("n.a"), upper);
    QCOMPARE(canvas->findCurve("n.a.b"), lower);
    QVERIFY(!canvas->ensurePath("n.a.b.c"));
}

void TestCurveRegistry::aCurveOfOneElementStandsOnTop()
{
    CurveNode* curve = add("solo");
    QCOMPARE(canvas->topNodes(), QList<CurveNode*>{curve});
    QCOMPARE(curve->dotName(), QString("solo"));
}

void TestCurveRegistry::emptyElementsAreKept()
{
    CurveNode* curve = add("n..a");
    QCOMPARE(curve->dotName(), QString("n..a"));
    QCOMPARE(curve->parentNode()->name(), QString());
    QCOMPARE(canvas->findCurve("n..a"), curve);
    CurveNode* nameless = add("m.");
    QCOMPARE(nameless->dotName(), QString("m."));
    QCOMPARE(canvas->findCurve("m."), nameless);
}

void TestCurveRegistry::removingUnlinksWithoutFreeing()
{
    CurveNode* curve = add("n.a");
    canvas->removeCanvasCurve("n.a");
    QVERIFY(!canvas->findCurve("n.a"));
    QVERIFY(canvas->findCurve("n"));
    QVERIFY(!curve->parentNode());
    QCOMPARE(curve->dotName(), QString("n.a"));
    canvas->removeCanvasCurve("n");
    QVERIFY(canvas->topNodes().isEmpty());
}

void TestCurveRegistry::removingAnUnknownNameDoesNothing()
{
    add("n.a");
    canvas->removeCanvasCurve("n.b");
    QVERIFY(canvas->findCurve("n.a"));
}

void TestCurveRegistry::removingTakesTheCurveOutOfTheEditingSet()
{
    CurveNode* curve = add("n.a");
    CurveNode* other = add("n.b");
    canvas->selectCurves({"n.a", "n.b"});
    canvas->removeCanvasCurve("n.a");
    QCOMPARE(canvas->editingCurves(), QList<CurveNode*>{other});
    QVERIFY(!curve->splineGraph()->isActive);
}

void TestCurveRegistry::removingATopCurveUnlinksIt()
{
    CurveNode* curve = add("body.body");
    canvas->removeCanvasCurve("body.body");
    QVERIFY(canvas->topNodes().isEmpty());
    QCOMPARE(canvas->attachCanvasCurve(curve), curve);
    QCOMPARE(canvas->topNodes(), QList<CurveNode*>{curve});
}

void TestCurveRegistry::attachingPutsTheSameObjectBack()
{
    CurveNode* curve = add("n.a.b");
    canvas->removeCanvasCurve("n.a.b");
    canvas->removeCanvasCurve("n.a");
    canvas->removeCanvasCurve("n");
    QCOMPARE(canvas->attachCanvasCurve(curve), curve);
    QCOMPARE(canvas->findCurve("n.a.b"), curve);
    QCOMPARE(curve->parentNode(), canvas->findCurve("n.a"));
    QCOMPARE(canvas->attachCanvasCurve(curve), curve);
    QCOMPARE(canvas->findCurve("n.a")->children()->size(), 1);
}

void TestCurveRegistry::attachingUnderATakenNameLeavesTheCurveUnattached()
{
    CurveNode* curve = add("n.a");
    canvas->removeCanvasCurve("n.a");
    CurveNode* other = add("n.a");
    QVERIFY(other != curve);
    QCOMPARE(canvas->attachCanvasCurve(curve), other);
    QVERIFY(!curve->parentNode());
}

void TestCurveRegistry::attachingNullGivesNull()
{
    QVERIFY(!canvas->attachCanvasCurve(nullptr));
}

void TestCurveRegistry::attachingACurveFromAnUnlinkedGroupTakesItOutOfThere()
{
    CurveNode* curve = add("n.a");
    CurveNode* top = add("body.body");
    CurveNode* group = canvas->findCurve("n");
    canvas->removeCanvasCurve("n");
    canvas->attachCanvasCurve(curve);
    QVERIFY(group->children()->isEmpty());
    QVERIFY(curve->parentNode() != group);
    QCOMPARE(canvas->findCurve("n.a"), curve);
    canvas->removeCanvasCurve("body.body");
    group->addChild(top);
    canvas->attachCanvasCurve(top);
    QVERIFY(group->children()->isEmpty());
    canvas->discardUnlinked(group);
    QCOMPARE(canvas->findCurve("n.a"), curve);
    QCOMPARE(canvas->findCurve("body.body"), top);
}

void TestCurveRegistry::aCurvePutBackIsNotDrawnBeforeItIsSelected()
{
    CurveNode* curve = add("n.a");
    canvas->selectCurves({"n.a"});
    canvas->removeCanvasCurve("n.a");
    canvas->attachCanvasCurve(curve);
    QVERIFY(!curve->splineGraph()->isActive);
    canvas->selectCurves({"n.a"});
    QVERIFY(curve->splineGraph()->isActive);
}

void TestCurveRegistry::discardingFreesOnlyWhatIsUnlinked()
{
    QPointer<CurveNodeBase> curve = dynamic_cast<CurveNodeBase*>(add("n.a"));
    CurveNode* node = curve;
    canvas->discardUnlinked(node);
    QVERIFY(curve);
    canvas->discardUnlinked(canvas->findCurve("n"));
    QVERIFY(canvas->findCurve("n"));
    canvas->removeCanvasCurve("n.a");
    canvas->discardUnlinked(node);
    QVERIFY(!curve);
    canvas->discardUnlinked(node); // known by its address alone
    canvas->discardUnlinked(nullptr);
}

void TestCurveRegistry::clearingDeletesTheTreeAndEmptiesTheEditingSetFirst()
{
    QPointer<CurveNodeBase> curve = dynamic_cast<CurveNodeBase*>(add("n.a"));
    QPointer<CurveNodeBase> unlinked = dynamic_cast<CurveNodeBase*>(add("n.b"));
    canvas->selectCurves({"n.a"});
    canvas->removeCanvasCurve("n.b");
    connect(curve, &QObject::destroyed, this, [this] { QVERIFY(!canvas->isEditing()); });
    QSignalSpy announced(canvas, &CanvasFunctionBase::selectionChanged);
    canvas->clearCurves();
    QVERIFY(!curve);
    QVERIFY(unlinked);
    QVERIFY(canvas->topNodes().isEmpty());
    QVERIFY(canvas->editingCurves().isEmpty());
    QCOMPARE(announced.size(), 1);
    QCOMPARE(announced.first().first().toStringList(), QStringList());
}

void TestCurveRegistry::unlinkedNodesDieWithTheCanvas()
{
    QPointer<CurveNodeBase> curve = dynamic_cast<CurveNodeBase*>(add("n.a"));
    QPointer<CurveNodeBase> inGroup = dynamic_cast<CurveNodeBase*>(add("m.a"));
    canvas->removeCanvasCurve("n.a");
    canvas->removeCanvasCurve("m");
    widget.reset();
    QVERIFY(!curve);
    QVERIFY(!inGroup);
}

void TestCurveRegistry::deletingANodeDropsItFromEverywhere()
{
    add("n.a");
    CurveNode* top = add("body.body");
    canvas->selectCurves({"n.a", "body.body"});
    delete top;
    QCOMPARE(canvas->editingCurveNames(), QStringList{"n.a"});
    QCOMPARE(canvas->topNodes().size(), 1);
    delete canvas->findCurve("n");
    QVERIFY(canvas->topNodes().isEmpty());
    QVERIFY(!canvas->isEditing());
}

void TestCurveRegistry::selectingAGroupTakesAllItsLeaves()
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

void TestCurveRegistry::selectingSkipsUnknownNamesAndDoubles()
{
    CurveNode* a = add("n.a");
    CurveNode* b = add("n.b");
    canvas->selectCurves({"n.b", "n.x", "n", "n.a", ""});
    QCOMPARE(canvas->editingCurves(), (QList<CurveNode*>{b, a}));
    QCOMPARE(canvas->editingCurveNames(), (QStringList{"n.b", "n.a"}));
    canvas->selectCurveObjects({a, nullptr, a});
    QCOMPARE(canvas->editingCurves(), QList<CurveNode*>{a});
}

void TestCurveRegistry::selectingTheEmptyListEmptiesTheSetAndStillSaysSo()
{
    add("n.a");
    canvas->selectCurves({"n.a"});
    QSignalSpy announced(canvas, &CanvasFunctionBase::selectionChanged);
    canvas->selectCurves({});
    QVERIFY(!canvas->isEditing());
    QCOMPARE(announced.size(), 1);
}

void TestCurveRegistry::selectingActivatesExactlyTheSelected()
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

void TestCurveRegistry::selectingByNameAnnouncesTheNamesGiven()
{
    add("n.a");
    QSignalSpy announced(canvas, &CanvasFunctionBase::selectionChanged);
    canvas->selectCurves({"n", "unknown"});
    QCOMPARE(announced.first().first().toStringList(), (QStringList{"n", "unknown"}));
}

void TestCurveRegistry::selectingObjectsAnnouncesTheCurvesTakenIn()
{
    add("n.a");
    CurveNode* b = add("n.b");
    CurveNode* group = canvas->findCurve("n");
    QSignalSpy announced(canvas, &CanvasFunctionBase::selectionChanged);
    canvas->selectCurveObjects({b, group, nullptr});
    QCOMPARE(announced.first().first().toStringList(), (QStringList{"n.b", "n.a"}));
}

void TestCurveRegistry::aChangeIsAnnouncedTwice()
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

void TestCurveRegistry::updatingWithoutAChangeAnnouncesNothing()
{
    QSignalSpy announced(canvas, &CanvasFunctionBase::selectionChanged);
    canvas->updateCanvas();
    QCOMPARE(announced.size(), 0);
}

void TestCurveRegistry::theFirstCurveOfAnEmptySetIsCalledNone()
{
    QCOMPARE(canvas->firstCurveName(), QString("None"));
    QVERIFY(!canvas->firstSpline());
}

void TestCurveRegistry::theFirstCurveGivesSplineAndName()
{
    add("n.a");
    add("n.b");
    canvas->selectCurves({"n.b", "n.a"});
    QCOMPARE(canvas->firstCurveName(), QString("n.b"));
    QCOMPARE(canvas->firstSpline(), &hosts["n.b"]->spline);
}

void TestCurveRegistry::keyContainersStandInTheOrderOfTheSet()
{
    CurveNode* a = add("n.a");
    CurveNode* b = add("n.b");
    canvas->selectCurves({"n.b", "n.a"});
    QCOMPARE(canvas->keyContainers(),
             (QList<SplineCurveGraph*>{b->splineGraph(), a->splineGraph()}));
}

void TestCurveRegistry::editingTypeOfAnEmptySetIsExpression()
{
    QCOMPARE(canvas->editingType(), int(expressionCurve));
}

void TestCurveRegistry::editingTypeComesFromTheCurves_data()
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

void TestCurveRegistry::editingTypeComesFromTheCurves()
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

void TestCurveRegistry::commandLineTextOfCurves_data()
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

void TestCurveRegistry::commandLineTextOfCurves()
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

void TestCurveRegistry::markingExpressionsChangedReachesTheSetAndIsAnnounced()
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

void TestCurveRegistry::savingWritesAFileForEachCurve()
{
    const QTemporaryDir folder;
    add("n.a");
    add("n.b.c");
    add("n.d");
    canvas->selectCurves({"n.a", "n.b.c"});
    canvas->saveCurvesXml(folder.path());
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files, QDir::Name),
             (QStringList{"n.a.xml", "n.b.c.xml"}));
}

void TestCurveRegistry::aParseErrorIsToldInABox_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("box");
    QTest::newRow("unknown name") << "1+nobody*2" << 1 << "Variable nobody not found";
    QTest::newRow("open parenthesis") << "sin(t" << 3 << "Unmatched parenthesis";
    QTest::newRow("other") << "1+" << 4 << "Unknown";
}

void TestCurveRegistry::aParseErrorIsToldInABox()
{
    QFETCH(QString, text);
    ParseMessage message;
    BoxCatcher boxes;
    delete canvas->parseExpression(text, message);
    QCOMPARE(boxes.titles, QStringList{"Syntax error"});
    QTEST(boxes.texts.value(0), "box");
    QTEST(message.errorKind, "kind");
}

void TestCurveRegistry::aTextThatParsesShowsNoBox()
{
    ParseMessage message;
    message.errorKind = 2;
    message.errorSpans.emplace_back(0, 1);
    BoxCatcher boxes;
    const std::unique_ptr<FunctionFloatBase> expression(canvas->parseExpression("1+1", message));
    QCOMPARE(expression->value(), 2.0);
    QVERIFY(boxes.texts.isEmpty());
}

QTEST_MAIN(TestCurveRegistry)
#include "test_curve_registry.moc"
