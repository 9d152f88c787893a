#include "core/SplineKeys.h"
#include "support/FailOnWarning.h"

#include <QTest>

#include <functional>

class TestSplineEditing : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void unifyingTheFirstKeyCopiesRightToLeft();
    void unifyingALaterKeyCopiesLeftToRight();
    void breakingKeepsTheTangents();
    void aUnifiedKeyDropsTheContinuityGivenToSetTcb();
    void aBrokenKeyKeepsTheContinuityGivenToSetTcb();
    void aUnifiedKeyTakesTheLeftSlopeForBoth();
    void aBrokenKeyTakesBothSlopes();
    void aTangentOfAUnifiedKeyMovesTheOther();
    void aTangentOfABrokenKeyMovesAlone();
    void settingTheTypeWritesNothingElse();
    void everyEditSetsTheChangedFlag_data();
    void everyEditSetsTheChangedFlag();
    void defaultValueAndAddFuncLeaveTheChangedFlag();
    void anIndexOutOfRangeEditsNothing();
};

namespace {

PointInfo twoSlopes(bool unified)
{
    PointInfo key = makeKey(0.0, 0.0, zk_spline::bezier);
    key.bezier = {1.0, 2.0};
    key.tcb.continuity = 3.0;
    key.unifiedTangents = unified;
    return key;
}

} // namespace

void TestSplineEditing::unifyingTheFirstKeyCopiesRightToLeft()
{
    SplineBase spline;
    const PointInfo* const key = put(spline, twoSlopes(false));
    spline.addPoint(1.0, 0.0);
    spline.unifyTangent(key);
    QVERIFY(key->unifiedTangents);
    QCOMPARE(key->bezier.tangentLeft, 2.0);
    QCOMPARE(key->bezier.tangentRight, 2.0);
    QCOMPARE(key->tcb.continuity, 0.0);
}

void TestSplineEditing::unifyingALaterKeyCopiesLeftToRight()
{
    SplineBase spline;
    spline.addPoint(-1.0, 0.0);
    const PointInfo* const key = put(spline, twoSlopes(false));
    spline.unifyTangent(key);
    QVERIFY(key->unifiedTangents);
    QCOMPARE(key->bezier.tangentLeft, 1.0);
    QCOMPARE(key->bezier.tangentRight, 1.0);
    QCOMPARE(key->tcb.continuity, 0.0);
}

void TestSplineEditing::breakingKeepsTheTangents()
{
    SplineBase spline;
    const PointInfo* const key = put(spline, twoSlopes(true));
    spline.breakTangent(key);
    QVERIFY(!key->unifiedTangents);
    QCOMPARE(key->bezier.tangentLeft, 1.0);
    QCOMPARE(key->bezier.tangentRight, 2.0);
}

void TestSplineEditing::aUnifiedKeyDropsTheContinuityGivenToSetTcb()
{
    SplineBase spline;
    const PointInfo* const key = put(spline, twoSlopes(true));
    const PointInfo::TcbData given{1.0, 3.0, 2.0, 0.25, 0.5};
    for (const bool byIndex : {false, true}) {
        if (byIndex) {
            spline.setTcb(0U, given);
        } else {
            spline.setTcb(key, given);
        }
        QCOMPARE(key->tcb.tension, 1.0);
        QCOMPARE(key->tcb.continuity, 0.0);
        QCOMPARE(key->tcb.bias, 2.0);
        QCOMPARE(key->tcb.easeTo, 0.25);
        QCOMPARE(key->tcb.easeFrom, 0.5);
    }
}

void TestSplineEditing::aBrokenKeyKeepsTheContinuityGivenToSetTcb()
{
    SplineBase spline;
    const PointInfo* const key = put(spline, twoSlopes(false));
    spline.setTcb(key, {1.0, -4.0, 2.0, 0.25, 0.5});
    QCOMPARE(key->tcb.continuity, -4.0);
}

void TestSplineEditing::aUnifiedKeyTakesTheLeftSlopeForBoth()
{
    SplineBase spline;
    const PointInfo* const key = put(spline, twoSlopes(true));
    spline.setBezier(key, {1.0, 2.0});
    QCOMPARE(key->bezier.tangentLeft, 1.0);
    QCOMPARE(key->bezier.tangentRight, 1.0);
    spline.setBezier(0U, {3.0, 4.0});
    QCOMPARE(key->bezier.tangentLeft, 3.0);
    QCOMPARE(key->bezier.tangentRight, 3.0);
}

void TestSplineEditing::aBrokenKeyTakesBothSlopes()
{
    SplineBase spline;
    const PointInfo* const key = put(spline, twoSlopes(false));
    spline.setBezier(key, {5.0, 6.0});
    QCOMPARE(key->bezier.tangentLeft, 5.0);
    QCOMPARE(key->bezier.tangentRight, 6.0);
}

void TestSplineEditing::aTangentOfAUnifiedKeyMovesTheOther()
{
    SplineBase spline;
    const PointInfo* const key = put(spline, twoSlopes(true));
    spline.setTanRight(key, 7.0);
    QCOMPARE(key->bezier.tangentLeft, 7.0);
    QCOMPARE(key->bezier.tangentRight, 7.0);
    spline.setTanLeft(key, 8.0);
    QCOMPARE(key->bezier.tangentLeft, 8.0);
    QCOMPARE(key->bezier.tangentRight, 8.0);
}

void TestSplineEditing::aTangentOfABrokenKeyMovesAlone()
{
    SplineBase spline;
    const PointInfo* const key = put(spline, twoSlopes(false));
    spline.setTanRight(key, 7.0);
    QCOMPARE(key->bezier.tangentLeft, 1.0);
    spline.setTanLeft(key, 8.0);
    QCOMPARE(key->bezier.tangentRight, 7.0);
    QCOMPARE(key->bezier.tangentLeft, 8.0);
}

void TestSplineEditing::settingTheTypeWritesNothingElse()
{
    SplineBase spline;
    const PointInfo* const key = put(spline, twoSlopes(true));
    spline.setType(key, zk_spline::stepped);
    QCOMPARE(key->type, zk_spline::stepped);
    spline.setInterpolationType(key, zk_spline::linear);
    QCOMPARE(key->type, zk_spline::linear);
    spline.setInterpolationType(0U, zk_spline::tcb);
    QCOMPARE(key->type, zk_spline::tcb);
    QCOMPARE(key->bezier.tangentLeft, 1.0);
    QCOMPARE(key->bezier.tangentRight, 2.0);
    QCOMPARE(key->tcb.continuity, 3.0);
    QVERIFY(key->unifiedTangents);
}

using Edit = std::function<void(SplineBase&, const PointInfo*)>;
Q_DECLARE_METATYPE(Edit)

void TestSplineEditing::everyEditSetsTheChangedFlag_data()
{
    QTest::addColumn<Edit>("edit");
    const auto row = [](const char* name, const Edit& edit) { QTest::newRow(name) << edit; };
    using Key = const PointInfo*;
    row("setPos", [](SplineBase& s, Key k) { s.setPos(k, 3.0); });
    row("setTime", [](SplineBase& s, Key k) { s.setTime(k, 3.0); });
    row("setType", [](SplineBase& s, Key k) { s.setType(k, zk_spline::linear); });
    row("setInterpolationType",
        [](SplineBase& s, Key k) { s.setInterpolationType(k, zk_spline::linear); });
    row("setInterpolationType by index",
        [](SplineBase& s, Key) { s.setInterpolationType(0U, zk_spline::linear); });
    row("breakTangent", [](SplineBase& s, Key k) { s.breakTangent(k); });
    row("unifyTangent", [](SplineBase& s, Key k) { s.unifyTangent(k); });
    row("setTanLeft", [](SplineBase& s, Key k) { s.setTanLeft(k, 1.0); });
    row("setTanRight", [](SplineBase& s, Key k) { s.setTanRight(k, 1.0); });
    row("setTcb", [](SplineBase& s, Key k) { s.setTcb(k, PointInfo::TcbData()); });
    row("setTcb by index", [](SplineBase& s, Key) { s.setTcb(0U, PointInfo::TcbData()); });
    row("setBezier", [](SplineBase& s, Key k) { s.setBezier(k, PointInfo::BezierData()); });
    row("setBezier by index", [](SplineBase& s, Key) { s.setBezier(0U, PointInfo::BezierData()); });
    row("setFirstNodeType", [](SplineBase& s, Key) { s.setFirstNodeType(SplineBase::zero); });
    row("setLastNodeType", [](SplineBase& s, Key) { s.setLastNodeType(SplineBase::zero); });
}

void TestSplineEditing::everyEditSetsTheChangedFlag()
{
    QFETCH(Edit, edit);
    SplineBase spline;
    spline.addPoint(0.0, 0.0);
    spline.setChanged(false);
    edit(spline, spline[0]);
    QVERIFY(spline.hasChanged());
}

void TestSplineEditing::defaultValueAndAddFuncLeaveTheChangedFlag()
{
    SplineBase spline;
    spline.setChanged(false);
    spline.setDefaultValue(3.0);
    spline.setAddFunc(true);
    QVERIFY(!spline.hasChanged());
    QCOMPARE(spline.getDefaultValue(), 3.0);
    QVERIFY(spline.isAddFunc());
    spline.setFirstNodeType(SplineBase::loop);
    QVERIFY(spline.hasChanged());
    QCOMPARE(spline.firstNodeType(), SplineBase::loop);
}

void TestSplineEditing::anIndexOutOfRangeEditsNothing()
{
    SplineBase spline;
    spline.addPoint(0.0, 0.0);
    spline.setChanged(false);
    spline.setTcb(1U, PointInfo::TcbData());
    spline.setBezier(1U, PointInfo::BezierData());
    spline.setInterpolationType(1U, zk_spline::linear);
    QVERIFY(!spline.hasChanged());
}

QTEST_APPLESS_MAIN(TestSplineEditing)
#include "test_spline_editing.moc"
