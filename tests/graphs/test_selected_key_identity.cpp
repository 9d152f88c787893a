#include "support/KeyAddresses.h"

#include "graphs/ControlSplineNodeTest.h"

#include <QTest>

/// A selection whose keys are freed and whose addresses then hold new keys. Three keys are
/// selected and freed, and three new ones lie where they lay.
class TestSelectedKeyIdentity : public ControlSplineNodeTest
{
    Q_OBJECT

private slots:
    void init() { openNode(); }

    void aNewKeyAtASelectedAddressIsNotSelected_data();
    void aNewKeyAtASelectedAddressIsNotSelected();
    void togglingANewKeyAtASelectedAddressSelectsIt();
    void selectingANewKeyAtASelectedAddressSelectsIt();
    void aKeyThatComesBackIsSelectedAsBefore();
    void anAddressWrittenDirectlyNamesTheKeyThatLiesThere();
    void addressesThatStayWhenTheListIsWrittenKeepTheirKeys();
    void aKeyOfAnotherSplineIsNotHeldButNamed();

private:
    /// Frees all keys; the new ones are at 10, 11 and 12 seconds.
    void refill()
    {
        const std::vector<PointInfo*> former = spline->getControlPoints();
        spline->removeAllControlPoints();
        for (int i = 0; i < 3; ++i) {
            spline->addPoint(10.0 + i, 20.0 + i);
        }
        for (PointInfo* key : former) {
            QVERIFY(spline->findIndex(key) >= 0); // else this program tests nothing
        }
    }
};

void TestSelectedKeyIdentity::aNewKeyAtASelectedAddressIsNotSelected_data()
{
    QTest::addColumn<int>("count");
    QTest::newRow("one key") << 1;
    QTest::newRow("three keys") << 3;
}

void TestSelectedKeyIdentity::aNewKeyAtASelectedAddressIsNotSelected()
{
    QFETCH(int, count);
    node->selectPoints(QList<PointInfo*>{key(0), key(1), key(2)}.mid(0, count));
    refill();
    QVERIFY(node->heldPoints().isEmpty());
    QVERIFY(!node->heldCurrent());
    QVERIFY(node->selectedPointsVector().empty());
    QVERIFY(!node->earliestPoint());
    QVERIFY(!node->highestPoint());
    for (unsigned i = 0; i < 3; ++i) {
        QVERIFY(!node->isSelected(key(i)));
    }
    double first = -1.0;
    double last = -1.0;
    node->selectedTimeRange(first, last);
    QCOMPARE(first, 0.0);
    QCOMPARE(last, 0.0);
    node->movePoint(40.0, 40.0);
    node->scalePoint(2.0, 2.0);
    node->offsetPoint(1.0, 1.0);
    node->removeSelected();
    QCOMPARE(spline->getControlPointsNumber(), 3u);
    for (unsigned i = 0; i < 3; ++i) {
        QCOMPARE(key(i)->time, 10.0 + i);
        QCOMPARE(key(i)->value, 20.0 + i);
    }
}

void TestSelectedKeyIdentity::togglingANewKeyAtASelectedAddressSelectsIt()
{
    node->selectPoints({key(0), key(1)});
    refill();
    for (unsigned i = 0; i < 3; ++i) {
        node->togglePoint(key(i));
        QVERIFY(node->isSelected(key(i)));
    }
    QCOMPARE(node->heldPoints(), (QList<PointInfo*>{key(0), key(1), key(2)}));
    node->togglePoint(key(1));
    QCOMPARE(node->heldPoints(), (QList<PointInfo*>{key(0), key(2)}));
}

void TestSelectedKeyIdentity::selectingANewKeyAtASelectedAddressSelectsIt()
{
    node->selectPoints({key(0), key(1), key(2)});
    refill();
    node->setCurrentPoint(key(1));
    QCOMPARE(node->heldCurrent(), key(1));
    QCOMPARE(node->heldPoints(), QList<PointInfo*>{key(1)});
    node->dropDeparted();
    QCOMPARE(node->selectedPoints, QList<PointInfo*>{key(1)});
    node->selectSinglePoint(key(2));
    QCOMPARE(node->heldCurrent(), key(2));
}

void TestSelectedKeyIdentity::aKeyThatComesBackIsSelectedAsBefore()
{
    node->selectPoints({key(0), key(1), key(2)});
    PointInfo* const gone = key(0);
    spline->remove(gone);
    QCOMPARE(node->heldPoints(), (QList<PointInfo*>{key(0), key(1)}));
    QVERIFY(!node->heldCurrent());
    spline->addPointPtr(gone);
    QCOMPARE(node->heldPoints().size(), 3);
    QCOMPARE(node->heldCurrent(), gone);
}

void TestSelectedKeyIdentity::anAddressWrittenDirectlyNamesTheKeyThatLiesThere()
{
    node->selectSinglePoint(key(0));
    node->selectedPoints = {key(1), key(2)};
    node->currentPoint = key(2);
    QCOMPARE(node->heldPoints(), (QList<PointInfo*>{key(1), key(2)}));
    QCOMPARE(node->heldCurrent(), key(2));
    refill();
    QVERIFY(node->heldPoints().isEmpty());
    node->selectedPoints = {};
    node->currentPoint = nullptr;
    QVERIFY(node->selectedKeys().isEmpty());
    node->selectedPoints = {key(1)};
    node->currentPoint = key(1);
    QCOMPARE(node->heldPoints(), QList<PointInfo*>{key(1)});
    QCOMPARE(node->heldCurrent(), key(1));
}

void TestSelectedKeyIdentity::addressesThatStayWhenTheListIsWrittenKeepTheirKeys()
{
    node->selectPoints({key(0), key(1)});
    const KeyRef first = ref(0);
    refill();
    for (PointInfo* each : spline->getControlPoints()) {
        if (!node->selectedPoints.contains(each)) {
            node->selectedPoints.append(each);
            break;
        }
    }
    QCOMPARE(node->heldPoints(), QList<PointInfo*>{node->selectedPoints.last()});
    QCOMPARE(node->selectedKeys().first(), first);
}

void TestSelectedKeyIdentity::aKeyOfAnotherSplineIsNotHeldButNamed()
{
    SplineBase other;
    other.addPoint(1.0, 1.0);
    const KeyRef foreign{other.at(0), other.keySerial(other.at(0))};
    node->selectSingleKey(foreign);
    QCOMPARE(node->currentPoint, foreign.key);
    QVERIFY(node->hasSelection());
    QVERIFY(!node->heldCurrent());
    QCOMPARE(node->commandKeys(), QList<KeyRef>{foreign});
    QVERIFY(other.holds(node->selectedKeys().first()));
}

QTEST_APPLESS_MAIN(TestSelectedKeyIdentity)
#include "test_selected_key_identity.moc"
