#include "graphs/ControlSplineNodeTest.h"

#include <QTest>

#include <limits>

class TestSelectedKeyEditing : public ControlSplineNodeTest
{
    Q_OBJECT

private slots:
    void init() { openNode(); }

    void movingAKeySetsTimeAndValue();
    void movingAKeyPastItsNeighbourKeepsThePointer();
    void movingAHandleWritesTheSlopeTowardTheCursor_data();
    void movingAHandleWritesTheSlopeTowardTheCursor();
    void aHandleStraightAboveTheKeyGetsTheSlope1000();
    void aHandleStraightBelowTheKeyGetsTheSlopeMinus1000();
    void aHandleLeftOfTheKeyKeepsTheSignOfItsDistance();
    void aHandleDroppedOnItsKeyLeavesTheTangentsAsTheyAre();
    void scalingMultipliesTimeAndValue();
    void offsetAddsToTimeAndValue();
    void movingMarksTheSplineChangedAndSelectsTheKeyAlone();
    void movingScalingAndOffsetWithTwoKeysSelectedChangeNothing();
    void movingWithNothingSelectedChangesNothing();
    void movingAKeyThatLeftTheSplineChangesNothing();

    void removingTakesTheCurrentPointOutWithoutFreeingIt();
    void removingTakesSeveralOut();
    void removingWithNothingSelectedChangesNothing();
};

void TestSelectedKeyEditing::movingAKeySetsTimeAndValue()
{
    node->selectSinglePoint(key(1));
    node->movePoint(1.5, 7.0);
    QCOMPARE(key(1)->time, 1.5);
    QCOMPARE(key(1)->value, 7.0);
}

void TestSelectedKeyEditing::movingAKeyPastItsNeighbourKeepsThePointer()
{
    PointInfo* moved = key(1);
    node->selectSinglePoint(moved);
    node->movePoint(4.0, 7.0);
    QCOMPARE(key(2), moved);
    QCOMPARE(node->currentPoint, moved);
}

void TestSelectedKeyEditing::movingAHandleWritesTheSlopeTowardTheCursor_data()
{
    QTest::addColumn<int>("part");
    QTest::addColumn<bool>("movesLeft");
    QTest::addColumn<bool>("movesRight");
    QTest::newRow("both") << int(ControlSplineNode::handleLine) << true << true;
    QTest::newRow("left") << int(ControlSplineNode::leftHandle) << true << false;
    QTest::newRow("right") << int(ControlSplineNode::rightHandle) << false << true;
    QTest::newRow("neither") << 4 << false << false;
}

void TestSelectedKeyEditing::movingAHandleWritesTheSlopeTowardTheCursor()
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

void TestSelectedKeyEditing::aHandleStraightAboveTheKeyGetsTheSlope1000()
{
    node->selectSinglePoint(key(1));
    node->keyPart = ControlSplineNode::rightHandle;
    node->movePoint(1.0, 3.0 + 8.0);
    QCOMPARE(key(1)->bezier.tangentRight, 1000.0);
}

void TestSelectedKeyEditing::aHandleStraightBelowTheKeyGetsTheSlopeMinus1000()
{
    node->selectSinglePoint(key(1));
    node->keyPart = ControlSplineNode::rightHandle;
    node->movePoint(1.0, 3.0 - 8.0);
    QCOMPARE(key(1)->bezier.tangentRight, -1000.0);
}

void TestSelectedKeyEditing::aHandleLeftOfTheKeyKeepsTheSignOfItsDistance()
{
    node->selectSinglePoint(key(1));
    node->keyPart = ControlSplineNode::leftHandle;
    node->movePoint(1.0 - 3.0, 3.0 + 4.0);
    QCOMPARE(key(1)->bezier.tangentLeft, 4.0 / (-3.0 - 0.001 * 5.0));
}

void TestSelectedKeyEditing::aHandleDroppedOnItsKeyLeavesTheTangentsAsTheyAre()
{
    const double nowhere = std::numeric_limits<double>::quiet_NaN();
    for (const bool isUnified : {false, true}) {
        for (const int part : {ControlSplineNode::leftHandle, ControlSplineNode::rightHandle,
                               ControlSplineNode::handleLine}) {
            key(1)->unifiedTangents = isUnified;
            spline->setBezier(key(1), {2.5, 2.5});
            node->selectSinglePoint(key(1));
            node->keyPart = part;
            spline->setChanged(false);
            node->movePoint(1.0, 3.0);
            node->movePoint(nowhere, 3.0);
            node->movePoint(1.0, nowhere);
            QCOMPARE(key(1)->bezier.tangentLeft, 2.5);
            QCOMPARE(key(1)->bezier.tangentRight, 2.5);
            QVERIFY(!spline->hasChanged());
            QCOMPARE(node->currentPoint, key(1));
        }
    }
}

void TestSelectedKeyEditing::scalingMultipliesTimeAndValue()
{
    node->selectSinglePoint(key(2));
    node->scalePoint(1.5, -2.0);
    QCOMPARE(key(2)->time, 3.0);
    QCOMPARE(key(2)->value, -18.0);
}

void TestSelectedKeyEditing::offsetAddsToTimeAndValue()
{
    node->selectSinglePoint(key(2));
    node->offsetPoint(1.5, -2.0);
    QCOMPARE(key(2)->time, 3.5);
    QCOMPARE(key(2)->value, 7.0);
}

void TestSelectedKeyEditing::movingMarksTheSplineChangedAndSelectsTheKeyAlone()
{
    node->currentPoint = key(1);
    node->movePoint(1.0, 3.0);
    QVERIFY(spline->hasChanged());
    QCOMPARE(node->selectedPoints, QList<PointInfo*>{key(1)});
}

void TestSelectedKeyEditing::movingScalingAndOffsetWithTwoKeysSelectedChangeNothing()
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

void TestSelectedKeyEditing::movingWithNothingSelectedChangesNothing()
{
    node->movePoint(8.0, 8.0);
    node->scalePoint(8.0, 8.0);
    node->offsetPoint(8.0, 8.0);
    QVERIFY(!spline->hasChanged());
}

void TestSelectedKeyEditing::movingAKeyThatLeftTheSplineChangesNothing()
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

void TestSelectedKeyEditing::removingTakesTheCurrentPointOutWithoutFreeingIt()
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

void TestSelectedKeyEditing::removingTakesSeveralOut()
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

void TestSelectedKeyEditing::removingWithNothingSelectedChangesNothing()
{
    node->removeSelected();
    QCOMPARE(spline->getControlPointsNumber(), 3u);
}

QTEST_APPLESS_MAIN(TestSelectedKeyEditing)
#include "test_selected_key_editing.moc"
