#include "curves/ControlSplineNode.h"
#include "support/FailOnWarning.h"

#include <QTest>

#include <cmath>
#include <limits>
#include <memory>

class TestControlSplineNode : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void settingTheCurrentPointAppendsItOnce();
    void settingNullAsCurrentPointAppendsNullOnce();
    void selectingASinglePointReplacesTheSelection();
    void selectingASingleNullEmptiesTheSelection();
    void selectingAListOfOneBehavesAsSelectingASinglePoint();
    void selectingSeveralMakesTheFirstOneCurrent();
    void selectingAnEmptyListClearsTheSelection();
    void selectingTheOwnListKeepsIt();

    void togglingTheOnlySelectedKeyClearsTheSelection();
    void togglingASecondKeySelectsBothAndTheLaterOneBecomesCurrent_data();
    void togglingASecondKeySelectsBothAndTheLaterOneBecomesCurrent();
    void togglingOneOfThreeLeavesTwoAndTheLaterOneIsCurrent();
    void togglingTheLastOfTwoMakesTheOtherCurrent();
    void togglingNullOrAStrangersPointChangesNothing();
    void togglingWithNothingSelectedSelectsThePoint();

    void timeRangeIsOfTheFirstAndLastOfTheList();
    void timeRangeOfAnEmptyListIsThatOfTheCurrentPoint();
    void timeRangePassesOverKeysThatLeftTheSpline();

    void movingAKeySetsTimeAndValue();
    void movingAKeyPastItsNeighbourKeepsThePointer();
    void movingAHandleWritesTheSlopeTowardTheCursor_data();
    void movingAHandleWritesTheSlopeTowardTheCursor();
    void aHandleStraightAboveTheKeyGetsTheSlope1000();
    void aHandleStraightBelowTheKeyGetsTheSlopeMinus1000();
    void aHandleLeftOfTheKeyKeepsTheSignOfItsDistance();
    void aHandleExactlyOnTheKeyStoresNotANumber();
    void scalingMultipliesTimeAndValue();
    void offsetAddsToTimeAndValue();
    void movingMarksTheSplineChangedAndSelectsTheKeyAlone();
    void movingScalingAndOffsetWithTwoKeysSelectedChangeNothing();
    void movingWithNothingSelectedChangesNothing();
    void movingAKeyThatLeftTheSplineChangesNothing();

    void removingTakesTheCurrentPointOutWithoutFreeingIt();
    void removingTakesSeveralOut();
    void removingWithNothingSelectedChangesNothing();

    void theExtremePointsOfAList();
    void theExtremePointsWithoutASelectionAreNull();
    void theEarliestOfEqualTimesIsTheCurrentPoint();
    void theExtremePointsPassOverKeysThatLeftTheSpline();

    void commandPointsAreNoneOneOrAll();
    void aDestroyedSplineCountsAsNoSelection();
    void selectedPointsAsAVectorKeepTheirOrder();

private:
    PointInfo* key(const unsigned& index) { return spline->at(index); }

    std::unique_ptr<SplineBase> spline;
    std::unique_ptr<ControlSplineNode> node;
};

void TestControlSplineNode::init()
{
    failOnUnexpectedWarning();
    spline = std::make_unique<SplineBase>();
    spline->addPoint(0.0, 5.0);
    spline->addPoint(1.0, 3.0);
    spline->addPoint(2.0, 9.0);
    spline->setChanged(false);
    node = std::make_unique<ControlSplineNode>(nullptr, spline.get());
}

void TestControlSplineNode::settingTheCurrentPointAppendsItOnce()
{
    node->setCurrentPoint(key(1));
    node->setCurrentPoint(key(0));
    node->setCurrentPoint(key(1));
    QCOMPARE(node->currentPoint, key(1));
    QCOMPARE(node->selectedPoints, (QList<PointInfo*>{key(1), key(0)}));
}

void TestControlSplineNode::settingNullAsCurrentPointAppendsNullOnce()
{
    node->setCurrentPoint(nullptr);
    node->setCurrentPoint(nullptr);
    QVERIFY(!node->currentPoint);
    QCOMPARE(node->selectedPoints, QList<PointInfo*>{nullptr});
    QVERIFY(!node->hasSelection());
}

void TestControlSplineNode::selectingASinglePointReplacesTheSelection()
{
    node->selectPoints({key(0), key(1)});
    node->selectSinglePoint(key(2));
    QCOMPARE(node->currentPoint, key(2));
    QCOMPARE(node->selectedPoints, QList<PointInfo*>{key(2)});
}

void TestControlSplineNode::selectingASingleNullEmptiesTheSelection()
{
    node->selectPoints({key(0), key(1)});
    node->selectSinglePoint(nullptr);
    QVERIFY(!node->currentPoint);
    QVERIFY(node->selectedPoints.isEmpty());
}

void TestControlSplineNode::selectingAListOfOneBehavesAsSelectingASinglePoint()
{
    node->selectPoints({key(1)});
    QCOMPARE(node->currentPoint, key(1));
    QCOMPARE(node->selectedPoints, QList<PointInfo*>{key(1)});
}

void TestControlSplineNode::selectingSeveralMakesTheFirstOneCurrent()
{
    node->selectPoints({key(0), key(2)});
    QCOMPARE(node->currentPoint, key(0));
    QCOMPARE(node->selectedPoints, (QList<PointInfo*>{key(0), key(2)}));
}

void TestControlSplineNode::selectingAnEmptyListClearsTheSelection()
{
    node->selectPoints({key(0), key(2)});
    node->selectPoints({});
    QVERIFY(!node->currentPoint);
    QVERIFY(node->selectedPoints.isEmpty());
}

void TestControlSplineNode::selectingTheOwnListKeepsIt()
{
    node->selectPoints({key(0), key(2)});
    node->selectPoints(node->selectedPoints);
    QCOMPARE(node->selectedPoints, (QList<PointInfo*>{key(0), key(2)}));
}

void TestControlSplineNode::togglingTheOnlySelectedKeyClearsTheSelection()
{
    node->selectSinglePoint(key(1));
    node->togglePoint(key(1));
    QVERIFY(!node->currentPoint);
    QVERIFY(node->selectedPoints.isEmpty());
}

void TestControlSplineNode::togglingASecondKeySelectsBothAndTheLaterOneBecomesCurrent_data()
{
    QTest::addColumn<unsigned>("first");
    QTest::addColumn<unsigned>("second");
    QTest::newRow("the later one clicked last") << 0u << 2u;
    QTest::newRow("the earlier one clicked last") << 2u << 0u;
}

void TestControlSplineNode::togglingASecondKeySelectsBothAndTheLaterOneBecomesCurrent()
{
    QFETCH(unsigned, first);
    QFETCH(unsigned, second);
    node->selectSinglePoint(key(first));
    node->togglePoint(key(second));
    QCOMPARE(node->selectedPoints, (QList<PointInfo*>{key(0), key(2)}));
    QCOMPARE(node->currentPoint, key(2));
}

void TestControlSplineNode::togglingOneOfThreeLeavesTwoAndTheLaterOneIsCurrent()
{
    node->selectPoints({key(0), key(1), key(2)});
    node->togglePoint(key(0));
    QCOMPARE(node->selectedPoints, (QList<PointInfo*>{key(1), key(2)}));
    QCOMPARE(node->currentPoint, key(2));
}

void TestControlSplineNode::togglingTheLastOfTwoMakesTheOtherCurrent()
{
    node->selectPoints({key(0), key(1)});
    node->togglePoint(key(1));
    QCOMPARE(node->selectedPoints, QList<PointInfo*>{key(0)});
    QCOMPARE(node->currentPoint, key(0));
}

void TestControlSplineNode::togglingNullOrAStrangersPointChangesNothing()
{
    PointInfo stranger;
    node->selectSinglePoint(key(1));
    node->togglePoint(nullptr);
    node->togglePoint(&stranger);
    QCOMPARE(node->currentPoint, key(1));
    QCOMPARE(node->selectedPoints, QList<PointInfo*>{key(1)});
}

void TestControlSplineNode::togglingWithNothingSelectedSelectsThePoint()
{
    node->togglePoint(key(1));
    QCOMPARE(node->currentPoint, key(1));
    QCOMPARE(node->selectedPoints, QList<PointInfo*>{key(1)});
}

void TestControlSplineNode::timeRangeIsOfTheFirstAndLastOfTheList()
{
    double first = -1.0;
    double last = -1.0;
    node->selectPoints({key(1), key(2)});
    node->selectedTimeRange(first, last);
    QCOMPARE(first, 1.0);
    QCOMPARE(last, 2.0);
}

void TestControlSplineNode::timeRangeOfAnEmptyListIsThatOfTheCurrentPoint()
{
    double first = -1.0;
    double last = -1.0;
    node->currentPoint = key(1);
    node->selectedTimeRange(first, last);
    QCOMPARE(first, 1.0);
    QCOMPARE(last, 1.0);
}

void TestControlSplineNode::timeRangePassesOverKeysThatLeftTheSpline()
{
    node->selectPoints({key(0), key(1), key(2)});
    PointInfo* gone = key(2);
    spline->remove(gone);
    delete gone;
    double first = -1.0;
    double last = -1.0;
    node->selectedTimeRange(first, last);
    QCOMPARE(first, 0.0);
    QCOMPARE(last, 1.0);
}

void TestControlSplineNode::movingAKeySetsTimeAndValue()
{
    node->selectSinglePoint(key(1));
    node->movePoint(1.5, 7.0);
    QCOMPARE(key(1)->time, 1.5);
    QCOMPARE(key(1)->value, 7.0);
}

void TestControlSplineNode::movingAKeyPastItsNeighbourKeepsThePointer()
{
    PointInfo* moved = key(1);
    node->selectSinglePoint(moved);
    node->movePoint(4.0, 7.0);
    QCOMPARE(key(2), moved);
    QCOMPARE(node->currentPoint, moved);
}

void TestControlSplineNode::movingAHandleWritesTheSlopeTowardTheCursor_data()
{
    QTest::addColumn<int>("part");
    QTest::addColumn<bool>("movesLeft");
    QTest::addColumn<bool>("movesRight");
    QTest::newRow("both") << int(ControlSplineNode::handleLine) << true << true;
    QTest::newRow("left") << int(ControlSplineNode::leftHandle) << true << false;
    QTest::newRow("right") << int(ControlSplineNode::rightHandle) << false << true;
    QTest::newRow("neither") << 4 << false << false;
}

void TestControlSplineNode::movingAHandleWritesTheSlopeTowardTheCursor()
{
    QFETCH(int, part);
    QFETCH(bool, movesLeft);
    QFETCH(bool, movesRight);
    node->selectSinglePoint(key(1));
    node->keyPart = part;
    node->movePoint(1.0 + 3.0, 3.0 + 4.0);
    const double slope = 4.0 / (3.0 + 0.001 * 5.0);
    QCOMPARE(key(1)->bezier.tangentLeft, movesLeft ? slope : 0.0);
    QCOMPARE(key(1)->bezier.tangentRight, movesRight ? slope : 0.0);
    QCOMPARE(key(1)->time, 1.0);
    QCOMPARE(key(1)->value, 3.0);
}

void TestControlSplineNode::aHandleStraightAboveTheKeyGetsTheSlope1000()
{
    node->selectSinglePoint(key(1));
    node->keyPart = ControlSplineNode::rightHandle;
    node->movePoint(1.0, 3.0 + 8.0);
    QCOMPARE(key(1)->bezier.tangentRight, 1000.0);
}

void TestControlSplineNode::aHandleStraightBelowTheKeyGetsTheSlopeMinus1000()
{
    node->selectSinglePoint(key(1));
    node->keyPart = ControlSplineNode::rightHandle;
    node->movePoint(1.0, 3.0 - 8.0);
    QCOMPARE(key(1)->bezier.tangentRight, -1000.0);
}

void TestControlSplineNode::aHandleLeftOfTheKeyKeepsTheSignOfItsDistance()
{
    node->selectSinglePoint(key(1));
    node->keyPart = ControlSplineNode::leftHandle;
    node->movePoint(1.0 - 3.0, 3.0 + 4.0);
    QCOMPARE(key(1)->bezier.tangentLeft, 4.0 / (-3.0 - 0.001 * 5.0));
}

void TestControlSplineNode::aHandleExactlyOnTheKeyStoresNotANumber()
{
    node->selectSinglePoint(key(1));
    node->keyPart = ControlSplineNode::leftHandle;
    node->movePoint(1.0, 3.0);
    QVERIFY(std::isnan(key(1)->bezier.tangentLeft));
}

void TestControlSplineNode::scalingMultipliesTimeAndValue()
{
    node->selectSinglePoint(key(2));
    node->scalePoint(1.5, -2.0);
    QCOMPARE(key(2)->time, 3.0);
    QCOMPARE(key(2)->value, -18.0);
}

void TestControlSplineNode::offsetAddsToTimeAndValue()
{
    node->selectSinglePoint(key(2));
    node->offsetPoint(1.5, -2.0);
    QCOMPARE(key(2)->time, 3.5);
    QCOMPARE(key(2)->value, 7.0);
}

void TestControlSplineNode::movingMarksTheSplineChangedAndSelectsTheKeyAlone()
{
    node->currentPoint = key(1);
    node->movePoint(1.0, 3.0);
    QVERIFY(spline->hasChanged());
    QCOMPARE(node->selectedPoints, QList<PointInfo*>{key(1)});
}

void TestControlSplineNode::movingScalingAndOffsetWithTwoKeysSelectedChangeNothing()
{
    node->selectPoints({key(0), key(1)});
    node->movePoint(8.0, 8.0);
    node->scalePoint(8.0, 8.0);
    node->offsetPoint(8.0, 8.0);
    node->keyPart = ControlSplineNode::handleLine;
    node->movePoint(8.0, 8.0);
    QCOMPARE(key(0)->time, 0.0);
    QCOMPARE(key(0)->value, 5.0);
    QCOMPARE(key(0)->bezier.tangentLeft, 0.0);
    QVERIFY(!spline->hasChanged());
    QCOMPARE(node->selectedPoints, (QList<PointInfo*>{key(0), key(1)}));
}

void TestControlSplineNode::movingWithNothingSelectedChangesNothing()
{
    node->movePoint(8.0, 8.0);
    node->scalePoint(8.0, 8.0);
    node->offsetPoint(8.0, 8.0);
    QVERIFY(!spline->hasChanged());
}

void TestControlSplineNode::movingAKeyThatLeftTheSplineChangesNothing()
{
    PointInfo* gone = key(1);
    node->selectSinglePoint(gone);
    spline->remove(gone);
    delete gone;
    spline->setChanged(false);
    node->movePoint(8.0, 8.0);
    node->scalePoint(8.0, 8.0);
    node->offsetPoint(8.0, 8.0);
    QVERIFY(!spline->hasChanged());
}

void TestControlSplineNode::removingTakesTheCurrentPointOutWithoutFreeingIt()
{
    PointInfo* removed = key(1);
    node->selectSinglePoint(removed);
    node->removeSelected();
    QCOMPARE(spline->getControlPointsNumber(), 2u);
    QCOMPARE(removed->value, 3.0);
    QVERIFY(!node->currentPoint);
    QVERIFY(node->selectedPoints.isEmpty());
    spline->addPointPtr(removed);
}

void TestControlSplineNode::removingTakesSeveralOut()
{
    PointInfo* first = key(0);
    PointInfo* last = key(2);
    node->selectPoints({first, last});
    node->removeSelected();
    QCOMPARE(spline->getControlPointsNumber(), 1u);
    QVERIFY(!node->hasSelection());
    spline->addPointPtr(first);
    spline->addPointPtr(last);
}

void TestControlSplineNode::removingWithNothingSelectedChangesNothing()
{
    node->removeSelected();
    QCOMPARE(spline->getControlPointsNumber(), 3u);
}

void TestControlSplineNode::theExtremePointsOfAList()
{
    node->selectPoints({key(0), key(1), key(2)});
    QCOMPARE(node->earliestPoint(), key(0));
    QCOMPARE(node->latestPoint(), key(2));
    QCOMPARE(node->lowestPoint(), key(1));
    QCOMPARE(node->highestPoint(), key(2));
}

void TestControlSplineNode::theExtremePointsWithoutASelectionAreNull()
{
    QVERIFY(!node->earliestPoint());
    node->currentPoint = key(1);
    QVERIFY(!node->latestPoint());
    node->clear();
    node->selectedPoints = {key(1)};
    QVERIFY(!node->lowestPoint());
    QVERIFY(!node->highestPoint());
}

void TestControlSplineNode::theEarliestOfEqualTimesIsTheCurrentPoint()
{
    spline->setTime(key(1), 0.0);
    node->selectPoints({key(0), key(1)});
    node->currentPoint = key(1);
    QCOMPARE(node->earliestPoint(), key(1));
    node->currentPoint = key(0);
    QCOMPARE(node->earliestPoint(), key(0));
}

void TestControlSplineNode::theExtremePointsPassOverKeysThatLeftTheSpline()
{
    node->selectPoints({key(0), key(1), key(2)});
    PointInfo* gone = key(0);
    spline->remove(gone);
    delete gone;
    QCOMPARE(node->earliestPoint(), key(0));
    QCOMPARE(node->highestPoint(), key(1));
}

void TestControlSplineNode::commandPointsAreNoneOneOrAll()
{
    QVERIFY(node->commandPoints().isEmpty());
    node->selectSinglePoint(key(1));
    QCOMPARE(node->commandPoints(), QList<PointInfo*>{key(1)});
    node->selectPoints({key(0), key(2)});
    QCOMPARE(node->commandPoints(), (QList<PointInfo*>{key(0), key(2)}));
    node->currentPoint = nullptr;
    QVERIFY(node->commandPoints().isEmpty());
}

void TestControlSplineNode::aDestroyedSplineCountsAsNoSelection()
{
    node->selectPoints({key(0), key(1)});
    spline.reset();
    QVERIFY(!node->spline());
    QVERIFY(!node->hasSelection());
    QVERIFY(node->commandPoints().isEmpty());
    QVERIFY(node->selectedPointsVector().empty());
    QVERIFY(!node->earliestPoint());
    double first = -1.0;
    double last = -1.0;
    node->selectedTimeRange(first, last);
    QCOMPARE(first, 0.0);
    QCOMPARE(last, 0.0);
    node->togglePoint(node->selectedPoints.first());
    node->removeSelected();
    QVERIFY(node->selectedPoints.isEmpty());
    node->movePoint(1.0, 1.0);
}

void TestControlSplineNode::selectedPointsAsAVectorKeepTheirOrder()
{
    node->selectPoints({key(0), key(2)});
    QCOMPARE(node->selectedPointsVector(), (std::vector<const PointInfo*>{key(0), key(2)}));
}

QTEST_APPLESS_MAIN(TestControlSplineNode)
#include "test_control_spline_node.moc"
