#include "support/FailOnWarning.h"
#include "support/GraphFixture.h"

#include <QTest>

#include <limits>
#include <memory>

class TestSplineCurveGraphHits : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        failOnUnexpectedWarning();
        on = std::make_unique<GraphFixture>();
    }

    void cleanup() { on.reset(); }

    void aKeyIsHitWithin5PixelsOfWay_data()
    {
        QTest::addColumn<QPoint>("offset");
        QTest::addColumn<bool>("hit");
        QTest::newRow("on it") << QPoint(0, 0) << true;
        QTest::newRow("5 to the right") << QPoint(5, 0) << true;
        QTest::newRow("6 to the right") << QPoint(6, 0) << false;
        QTest::newRow("3 left and 2 up") << QPoint(-3, -2) << true;
        QTest::newRow("3 left and 3 up") << QPoint(-3, -3) << false;
    }
    void aKeyIsHitWithin5PixelsOfWay()
    {
        QFETCH(QPoint, offset);
        QFETCH(bool, hit);
        PointInfo* key = on->addKey(5.0, 0.0);
        on->rebuild();
        on->graph.selection().keyPart = ControlSplineNode::leftHandle;
        PointInfo* found = on->graph.hitTest(QPoint(200, 100) + offset);
        QCOMPARE(found, hit ? key : nullptr);
        QCOMPARE(on->graph.selection().keyPart, int(ControlSplineNode::keyItself));
    }

    void ofTwoKeysWithinReachTheEarlierIsTaken()
    {
        PointInfo* earlier = on->addKey(5.0, 0.0);
        on->addKey(5.075, 0.0);
        on->rebuild();
        QCOMPARE(on->graph.keyPixels.at(1), QPoint(203, 100));
        QCOMPARE(on->graph.hitTest(QPoint(203, 100)), earlier);
    }

    /// A flat Bezier key in the middle of three, selected alone: its handles reach 45 pixels to
    /// either side.
    PointInfo* selectFlatBezier()
    {
        on->addBezier(0.0, 0.0, 0.0);
        PointInfo* key = on->addBezier(5.0, 0.0, 0.0);
        on->addBezier(10.0, 0.0, 0.0);
        on->rebuild();
        on->graph.selection().selectSinglePoint(key);
        return key;
    }

    void aSelectedBezierKeyIsHitByItsParts_data()
    {
        QTest::addColumn<QPoint>("at");
        QTest::addColumn<int>("part");
        QTest::newRow("key") << QPoint(200, 100) << int(ControlSplineNode::keyItself);
        QTest::newRow("right handle") << QPoint(245, 100) << int(ControlSplineNode::rightHandle);
        QTest::newRow("near the right handle")
            << QPoint(242, 102) << int(ControlSplineNode::rightHandle);
        QTest::newRow("left handle") << QPoint(155, 100) << int(ControlSplineNode::leftHandle);
        QTest::newRow("line to the right")
            << QPoint(225, 104) << int(ControlSplineNode::handleLine);
        QTest::newRow("line to the left") << QPoint(175, 100) << int(ControlSplineNode::handleLine);
        QTest::newRow("off the line") << QPoint(225, 111) << -1;
        QTest::newRow("behind the right handle") << QPoint(255, 100) << -1;
    }
    void aSelectedBezierKeyIsHitByItsParts()
    {
        QFETCH(QPoint, at);
        QFETCH(int, part);
        PointInfo* key = selectFlatBezier();
        // 5.0 pixels a key away from (0.667 + 0.333) * 45
        QVERIFY((on->graph.rightHandlePos(QPoint(200, 100), 1, false) - QPoint(245, 100))
                    .manhattanLength() <= 1);
        QCOMPARE(on->graph.hitTest(at), part < 0 ? nullptr : key);
        QCOMPARE(on->graph.selection().keyPart, std::max(part, 0));
    }

    void theLineIsHitByASumOfProducts()
    {
        // The sum is small on the mirror image of a steep line, not on the line itself.
        on->addBezier(0.0, 0.0, 0.0);
        PointInfo* key = on->addBezier(5.0, 0.0, 0.4);
        on->addBezier(10.0, 0.0, 0.0);
        on->rebuild();
        on->graph.selection().selectSinglePoint(key);
        QVERIFY(!on->graph.hitTest(QPoint(215, 85)));
        QCOMPARE(on->graph.hitTest(QPoint(218, 100)), key);
        QCOMPARE(on->graph.selection().keyPart, int(ControlSplineNode::handleLine));
    }

    void withTwoKeysSelectedNoHandleIsHit()
    {
        PointInfo* key = selectFlatBezier();
        on->graph.selection().selectPoints({on->spline.at(0), key});
        on->graph.selection().currentPoint = key;
        QVERIFY(!on->graph.hitTest(QPoint(245, 100)));
    }

    void theHandlesOfATcbKeyAreNotHit()
    {
        on->addKey(0.0, 0.0, zk_spline::tcb);
        PointInfo* key = on->addKey(5.0, 0.0, zk_spline::tcb);
        on->addKey(10.0, 0.0, zk_spline::tcb);
        on->rebuild();
        on->graph.selection().selectSinglePoint(key);
        const QPoint handle = on->graph.rightHandlePos(QPoint(200, 100), 1, false);
        QVERIFY(handle.x() > 210);
        QVERIFY(!on->graph.hitTest(handle));
        QCOMPARE(on->graph.hitTest(QPoint(200, 100)), key);
    }

    void theUndrawnHandlesAtTheEndsAreHitAllTheSame()
    {
        PointInfo* first = on->addBezier(5.0, 0.0, 0.0);
        PointInfo* last = on->addBezier(8.0, 0.0, 0.0);
        on->rebuild();
        on->graph.selection().selectSinglePoint(first);
        QCOMPARE(on->graph.hitTest(QPoint(157, 100)), first);
        QCOMPARE(on->graph.selection().keyPart, int(ControlSplineNode::leftHandle));
        on->graph.selection().selectSinglePoint(last);
        QCOMPARE(on->graph.hitTest(QPoint(363, 100)), last);
        QCOMPARE(on->graph.selection().keyPart, int(ControlSplineNode::rightHandle));
    }

    void aHandleHasTheSlopeOfItsTangentInPixels()
    {
        // A unit of value is 100 pixels and a second 40: slope 0.4 is one pixel up for one across.
        on->addBezier(0.0, 0.0, 0.4);
        on->addBezier(5.0, 0.0, 0.4);
        on->addBezier(10.0, 0.0, 0.4);
        on->rebuild();
        QCOMPARE(on->graph.rightHandlePos(QPoint(200, 100), 1, true), QPoint(231, 68));
        QCOMPARE(on->graph.leftHandlePos(QPoint(200, 100), 1, true), QPoint(168, 131));
    }

    void aHandleOfATcbKeyShrinksWithItsTension()
    {
        on->addKey(0.0, 0.0, zk_spline::tcb);
        PointInfo* key = on->addKey(5.0, 0.0, zk_spline::tcb);
        on->addKey(10.0, 0.0, zk_spline::tcb);
        const QPoint at(200, 100);
        QCOMPARE(on->graph.rightHandlePos(at, 1, false), QPoint(237, 100));
        key->tcb.tension = 1.0;
        QCOMPARE(on->graph.rightHandlePos(at, 1, false), QPoint(214, 100));
        key->tcb.tension = -1.0;
        QCOMPARE(on->graph.rightHandlePos(at, 1, false), QPoint(259, 100));
        QCOMPARE(on->graph.rightHandlePos(at, 1, true), QPoint(245, 100));
    }

    void aHandleWithoutAUsableSlopeLiesOnItsKey()
    {
        PointInfo* key = on->addBezier(5.0, 0.0, 0.0);
        const QPoint at(200, 100);
        for (const double& slope : {std::numeric_limits<double>::quiet_NaN(),
                                    std::numeric_limits<double>::infinity(), 1e300, 1e30}) {
            key->bezier.tangentRight = slope;
            key->bezier.tangentLeft = slope;
            QCOMPARE(on->graph.rightHandlePos(at, 0, true), at);
            QCOMPARE(on->graph.leftHandlePos(at, 0, true), at);
        }
        key->bezier.tangentRight = 1e6;
        QCOMPARE(on->graph.rightHandlePos(at, 0, true), QPoint(200, 55));
        on->view.viewWidth = 0;
        QCOMPARE(on->graph.rightHandlePos(at, 0, true), at);
    }

    void aChangedSplineIsHitWhereItStandsNow()
    {
        PointInfo* key = on->addKey(5.0, 0.0);
        on->rebuild();
        on->spline.setPos(key, 0.5);
        QVERIFY(!on->graph.hitTest(QPoint(200, 100)));
        QCOMPARE(on->graph.hitTest(QPoint(200, 50)), key);
    }

    void aSplineOfAnotherSizeIsHitWhereItStandsNow()
    {
        PointInfo* key = on->addKey(5.0, 0.0);
        on->rebuild();
        PointInfo* added = on->addKey(2.0, 0.0);
        on->spline.setChanged(false);
        QCOMPARE(on->graph.hitTest(QPoint(80, 100)), added);
        QCOMPARE(on->graph.hitTest(QPoint(200, 100)), key);
        on->spline.removeAllControlPoints();
        on->spline.setChanged(false);
        QVERIFY(!on->graph.hitTest(QPoint(80, 100)));
    }

    void oldPixelsAreRenewedBeforeAHit()
    {
        PointInfo* key = on->addKey(5.0, 0.0);
        on->rebuild();
        key->value = 0.5;
        on->graph.markPixelsOld();
        QCOMPARE(on->graph.hitTest(QPoint(200, 50)), key);
    }

    void aCurrentKeyThatLeftTheSplineIsNotHit()
    {
        PointInfo* key = selectFlatBezier();
        on->spline.remove(key);
        QVERIFY(!on->graph.hitTest(QPoint(245, 100)));
        delete key;
    }

    void aRectangleTakesWhatLiesStrictlyInside()
    {
        on->addKey(1.0, 0.0);
        PointInfo* inside = on->addKey(2.0, 0.0);
        PointInfo* last = on->addKey(2.5, 0.4);
        on->addKey(3.0, 0.0);
        on->addKey(3.5, 0.5);
        QVERIFY(on->graph.selectInRect(false, 1.0, 3.0, -0.5, 0.5));
        QCOMPARE(on->graph.selection().selectedPoints, QList<PointInfo*>({inside, last}));
        QCOMPARE(on->graph.selection().currentPoint, last);
        QVERIFY(!on->graph.selectInRect(false, 2.0, 3.0, 0.4, 0.5));
        QVERIFY(on->graph.selection().selectedPoints.isEmpty());
        QVERIFY(!on->graph.selection().currentPoint);
    }

    void anAddingRectangleKeepsWhatIsOutsideInKeyOrder()
    {
        PointInfo* first = on->addKey(1.0, 0.0);
        PointInfo* second = on->addKey(2.0, 0.0);
        PointInfo* third = on->addKey(3.0, 0.0);
        on->graph.selection().selectPoints({third, first});
        QVERIFY(on->graph.selectInRect(true, 1.5, 2.5, -1.0, 1.0));
        QCOMPARE(on->graph.selection().selectedPoints, QList<PointInfo*>({first, second, third}));
        QCOMPARE(on->graph.selection().currentPoint, third);
    }

private:
    std::unique_ptr<GraphFixture> on;
};

QTEST_MAIN(TestSplineCurveGraphHits)
#include "test_spline_curve_graph_hits.moc"
