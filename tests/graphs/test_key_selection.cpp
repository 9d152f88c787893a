#include "graphs/ControlSplineNodeTest.h"

#include <QTest>

#include <vector>

class TestKeySelection : public ControlSplineNodeTest
{
    Q_OBJECT

private slots:
    void init() { openNode(); }

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
    void aKeyToggledBesideOneOfTheSameTimeStandsBehindIt();

    void timeRangeIsOfTheFirstAndLastOfTheList();
    void timeRangeOfAnEmptyListIsThatOfTheCurrentPoint();
    void timeRangePassesOverKeysThatLeftTheSpline();

    void theExtremePointsOfAList();
    void theExtremePointsWithoutASelectionAreNull();
    void theEarliestOfEqualTimesIsTheCurrentPoint();
    void theExtremePointsPassOverKeysThatLeftTheSpline();

    void commandKeysAreNoneOneOrAll();
    void aDestroyedSplineCountsAsNoSelection();
    void selectedPointsAsAVectorKeepTheirOrder();

    void keysThatLeftTheSplineAreDropped();
    void aSelectionOfKeysOfTheSplineStaysAsItIs();
};

void TestKeySelection::keysThatLeftTheSplineAreDropped()
{
    const QList<PointInfo*> keys{key(0), key(1), key(2)};
    node->selectPoints(keys);
    node->currentPoint = keys[2];
    spline->remove(keys[0]);
    node->dropDeparted();
    QCOMPARE(node->selectedPoints, keys.mid(1));
    QCOMPARE(node->currentPoint, keys[2]);
    spline->remove(keys[2]);
    node->dropDeparted();
    QCOMPARE(node->selectedPoints, QList<PointInfo*>{keys[1]});
    QCOMPARE(node->currentPoint, keys[1]);
    spline->removeAllControlPoints();
    node->dropDeparted();
    QVERIFY(node->selectedPoints.isEmpty());
    QVERIFY(!node->currentPoint);
    delete keys[0];
    delete keys[2];
}

void TestKeySelection::aSelectionOfKeysOfTheSplineStaysAsItIs()
{
    node->selectPoints({key(1), key(2)});
    node->currentPoint = key(2);
    node->dropDeparted();
    QCOMPARE(node->selectedPoints, (QList<PointInfo*>{key(1), key(2)}));
    QCOMPARE(node->currentPoint, key(2));
}

void TestKeySelection::settingTheCurrentPointAppendsItOnce()
{
    node->setCurrentPoint(key(1));
    node->setCurrentPoint(key(0));
    node->setCurrentPoint(key(1));
    QCOMPARE(node->currentPoint, key(1));
    QCOMPARE(node->selectedPoints, (QList<PointInfo*>{key(1), key(0)}));
}

void TestKeySelection::settingNullAsCurrentPointAppendsNullOnce()
{
    node->setCurrentPoint(nullptr);
    node->setCurrentPoint(nullptr);
    QVERIFY(!node->currentPoint);
    QCOMPARE(node->selectedPoints, QList<PointInfo*>{nullptr});
    QVERIFY(!node->hasSelection());
}

void TestKeySelection::selectingASinglePointReplacesTheSelection()
{
    node->selectPoints({key(0), key(1)});
    node->selectSinglePoint(key(2));
    QCOMPARE(node->currentPoint, key(2));
    QCOMPARE(node->selectedPoints, QList<PointInfo*>{key(2)});
}

void TestKeySelection::selectingASingleNullEmptiesTheSelection()
{
    node->selectPoints({key(0), key(1)});
    node->selectSinglePoint(nullptr);
    QVERIFY(!node->currentPoint);
    QVERIFY(node->selectedPoints.isEmpty());
}

void TestKeySelection::selectingAListOfOneBehavesAsSelectingASinglePoint()
{
    node->selectPoints({key(1)});
    QCOMPARE(node->currentPoint, key(1));
    QCOMPARE(node->selectedPoints, QList<PointInfo*>{key(1)});
}

void TestKeySelection::selectingSeveralMakesTheFirstOneCurrent()
{
    node->selectPoints({key(0), key(2)});
    QCOMPARE(node->currentPoint, key(0));
    QCOMPARE(node->selectedPoints, (QList<PointInfo*>{key(0), key(2)}));
}

void TestKeySelection::selectingAnEmptyListClearsTheSelection()
{
    node->selectPoints({key(0), key(2)});
    node->selectPoints({});
    QVERIFY(!node->currentPoint);
    QVERIFY(node->selectedPoints.isEmpty());
}

void TestKeySelection::selectingTheOwnListKeepsIt()
{
    node->selectPoints({key(0), key(2)});
    node->selectPoints(node->selectedPoints);
    QCOMPARE(node->selectedPoints, (QList<PointInfo*>{key(0), key(2)}));
}

void TestKeySelection::togglingTheOnlySelectedKeyClearsTheSelection()
{
    node->selectSinglePoint(key(1));
    node->togglePoint(key(1));
    QVERIFY(!node->currentPoint);
    QVERIFY(node->selectedPoints.isEmpty());
}

void TestKeySelection::togglingASecondKeySelectsBothAndTheLaterOneBecomesCurrent_data()
{
    QTest::addColumn<unsigned>("first");
    QTest::addColumn<unsigned>("second");
    QTest::newRow("the later one clicked last") << 0u << 2u;
    QTest::newRow("the earlier one clicked last") << 2u << 0u;
}

void TestKeySelection::togglingASecondKeySelectsBothAndTheLaterOneBecomesCurrent()
{
    QFETCH(unsigned, first);
    QFETCH(unsigned, second);
    node->selectSinglePoint(key(first));
    node->togglePoint(key(second));
    QCOMPARE(node->selectedPoints, (QList<PointInfo*>{key(0), key(2)}));
    QCOMPARE(node->currentPoint, key(2));
}

void TestKeySelection::togglingOneOfThreeLeavesTwoAndTheLaterOneIsCurrent()
{
    node->selectPoints({key(0), key(1), key(2)});
    node->togglePoint(key(0));
    QCOMPARE(node->selectedPoints, (QList<PointInfo*>{key(1), key(2)}));
    QCOMPARE(node->currentPoint, key(2));
}

void TestKeySelection::togglingTheLastOfTwoMakesTheOtherCurrent()
{
    node->selectPoints({key(0), key(1)});
    node->togglePoint(key(1));
    QCOMPARE(node->selectedPoints, QList<PointInfo*>{key(0)});
    QCOMPARE(node->currentPoint, key(0));
}

void TestKeySelection::togglingNullOrAStrangersPointChangesNothing()
{
    PointInfo stranger;
    node->selectSinglePoint(key(1));
    node->togglePoint(nullptr);
    node->togglePoint(&stranger);
    QCOMPARE(node->currentPoint, key(1));
    QCOMPARE(node->selectedPoints, QList<PointInfo*>{key(1)});
}

void TestKeySelection::togglingWithNothingSelectedSelectsThePoint()
{
    node->togglePoint(key(1));
    QCOMPARE(node->currentPoint, key(1));
    QCOMPARE(node->selectedPoints, QList<PointInfo*>{key(1)});
}

void TestKeySelection::aKeyToggledBesideOneOfTheSameTimeStandsBehindIt()
{
    spline->setTime(key(1), 0.0);
    node->selectPoints({key(1), key(2)});
    node->togglePoint(key(0));
    QCOMPARE(node->selectedPoints, (QList<PointInfo*>{key(1), key(0), key(2)}));
    QCOMPARE(node->currentPoint, key(2));
}

void TestKeySelection::timeRangeIsOfTheFirstAndLastOfTheList()
{
    double first = -1.0;
    double last = -1.0;
    node->selectPoints({key(1), key(2)});
    node->selectedTimeRange(first, last);
    QCOMPARE(first, 1.0);
    QCOMPARE(last, 2.0);
}

void TestKeySelection::timeRangeOfAnEmptyListIsThatOfTheCurrentPoint()
{
    double first = -1.0;
    double last = -1.0;
    node->currentPoint = key(1);
    node->selectedTimeRange(first, last);
    QCOMPARE(first, 1.0);
    QCOMPARE(last, 1.0);
}

void TestKeySelection::timeRangePassesOverKeysThatLeftTheSpline()
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

void TestKeySelection::theExtremePointsOfAList()
{
    node->selectPoints({key(0), key(1), key(2)});
    QCOMPARE(node->earliestPoint(), key(0));
    QCOMPARE(node->latestPoint(), key(2));
    QCOMPARE(node->lowestPoint(), key(1));
    QCOMPARE(node->highestPoint(), key(2));
}

void TestKeySelection::theExtremePointsWithoutASelectionAreNull()
{
    QVERIFY(!node->earliestPoint());
    node->currentPoint = key(1);
    QVERIFY(!node->latestPoint());
    node->clear();
    node->selectedPoints = {key(1)};
    QVERIFY(!node->lowestPoint());
    QVERIFY(!node->highestPoint());
}

void TestKeySelection::theEarliestOfEqualTimesIsTheCurrentPoint()
{
    spline->setTime(key(1), 0.0);
    node->selectPoints({key(0), key(1)});
    node->currentPoint = key(1);
    QCOMPARE(node->earliestPoint(), key(1));
    node->currentPoint = key(0);
    QCOMPARE(node->earliestPoint(), key(0));
}

void TestKeySelection::theExtremePointsPassOverKeysThatLeftTheSpline()
{
    node->selectPoints({key(0), key(1), key(2)});
    PointInfo* gone = key(0);
    spline->remove(gone);
    delete gone;
    QCOMPARE(node->earliestPoint(), key(0));
    QCOMPARE(node->highestPoint(), key(1));
}

void TestKeySelection::commandKeysAreNoneOneOrAll()
{
    QVERIFY(node->commandKeys().isEmpty());
    node->selectSinglePoint(key(1));
    QCOMPARE(node->commandKeys(), QList<KeyRef>{ref(1)});
    node->selectPoints({key(0), key(2)});
    QCOMPARE(node->commandKeys(), (QList<KeyRef>{ref(0), ref(2)}));
    node->currentPoint = nullptr;
    QVERIFY(node->commandKeys().isEmpty());
}

void TestKeySelection::aDestroyedSplineCountsAsNoSelection()
{
    node->selectPoints({key(0), key(1)});
    spline.reset();
    QVERIFY(!node->spline());
    QVERIFY(!node->hasSelection());
    QVERIFY(node->commandKeys().isEmpty());
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

void TestKeySelection::selectedPointsAsAVectorKeepTheirOrder()
{
    node->selectPoints({key(0), key(2)});
    QCOMPARE(node->selectedPointsVector(), (std::vector<const PointInfo*>{key(0), key(2)}));
}

QTEST_APPLESS_MAIN(TestKeySelection)
#include "test_key_selection.moc"
