#include "core/SplineKeys.h"
#include "support/FailOnWarning.h"

#include <QTest>

#include <limits>

namespace {

using Times = std::vector<double>;

/// Keys at 1, 2 and 4 s and nothing at its default.
void fill(SplineBase& spline)
{
    for (const double time : {1.0, 2.0, 4.0}) {
        PointInfo key = makeKey(time, time * 10.0, zk_spline::bezier);
        key.bezier = {time, time + 1.0};
        key.tcb = {0.1, 0.2, 0.3, 0.4, 0.5};
        key.unifiedTangents = true;
        put(spline, key);
    }
    spline.setFirstNodeType(SplineBase::zero);
    spline.setLastNodeType(SplineBase::loopOffset);
    spline.setDefaultValue(6.0);
    spline.setAddFunc(true);
    spline.setChanged(false);
}

bool isSameButTime(const PointInfo& key, const PointInfo& other)
{
    return key.value == other.value && key.bezier.tangentLeft == other.bezier.tangentLeft &&
           key.bezier.tangentRight == other.bezier.tangentRight &&
           key.tcb.tension == other.tcb.tension && key.tcb.continuity == other.tcb.continuity &&
           key.tcb.bias == other.tcb.bias && key.tcb.easeTo == other.tcb.easeTo &&
           key.tcb.easeFrom == other.tcb.easeFrom && key.type == other.type &&
           key.unifiedTangents == other.unifiedTangents;
}

} // namespace

class TestSplineCopying : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void copyMakesKeysOfItsOwnAndTakesAllFields();
    void copyOntoItselfChangesNothing();
    void copyFreesTheKeysThatWereThere();
    void copyRefsSharesTheKeysAndSetsChanged();
    void copyRefsDropsItsOldListWithoutFreeing();
    void copyRefsOntoItselfKeepsTheKeys();
    void copyDupMovesTheTimesAndTakesBehavioursAndDefault();
    void copySelectedTakesJustTheListedKeysInTimeOrder();
    void copySelectedPassesOverWhatIsNoKeyOfTheSource();
    void combineAddsBehindKeysOfTheSameTime();
    void combineReturnsTheAddedKeysInTimeOrder();
    void combineWithItselfDoublesTheKeys();
    void theCopiedObjectSharesItsKeys();
};

void TestSplineCopying::copyMakesKeysOfItsOwnAndTakesAllFields()
{
    SplineBase source;
    fill(source);
    SplineBase spline;
    spline.copy(source);
    QCOMPARE(timesOf(spline), timesOf(source));
    for (unsigned i = 0; i < 3; ++i) {
        QVERIFY(spline[i] != source[i]);
        QVERIFY(isSameButTime(*spline[i], *source[i]));
    }
    QCOMPARE(spline.firstNodeType(), SplineBase::zero);
    QCOMPARE(spline.lastNodeType(), SplineBase::loopOffset);
    QCOMPARE(spline.getDefaultValue(), 6.0);
    QVERIFY(spline.isAddFunc());
    QVERIFY(!spline.hasChanged());
}

void TestSplineCopying::copyOntoItselfChangesNothing()
{
    SplineBase spline;
    fill(spline);
    const std::vector<PointInfo*> keys = spline.getControlPoints();
    spline.copy(spline);
    QVERIFY(spline.getControlPoints() == keys);
}

void TestSplineCopying::copyFreesTheKeysThatWereThere()
{
    SplineBase source;
    fill(source);
    SplineBase spline;
    spline.addPoint(0.0, 0.0);
    spline.copy(source);
    QCOMPARE(timesOf(spline), (Times{1.0, 2.0, 4.0}));
}

void TestSplineCopying::copyRefsSharesTheKeysAndSetsChanged()
{
    SplineBase source;
    fill(source);
    SplineBase spline;
    spline.setChanged(false);
    spline.copyRefs(source);
    QVERIFY(spline.getControlPoints() == source.getControlPoints());
    QCOMPARE(spline.findIndex(source[2]), 2);
    QCOMPARE(spline.lastNodeType(), SplineBase::loopOffset);
    QCOMPARE(spline.getDefaultValue(), 6.0);
    QVERIFY(spline.isAddFunc());
    QVERIFY(spline.hasChanged());
    QVERIFY(!source.hasChanged());
    spline.clearCtrlPoints();
}

void TestSplineCopying::copyRefsDropsItsOldListWithoutFreeing()
{
    SplineBase empty;
    SplineBase spline;
    PointInfo* const key = put(spline, makeKey(1.0, 7.0));
    spline.copyRefs(empty);
    QCOMPARE(spline.getControlPointsNumber(), 0U);
    QCOMPARE(spline.findIndex(key), -1);
    QCOMPARE(key->value, 7.0);
    delete key;
}

void TestSplineCopying::copyRefsOntoItselfKeepsTheKeys()
{
    SplineBase spline;
    fill(spline);
    spline.copyRefs(spline);
    QCOMPARE(timesOf(spline), (Times{1.0, 2.0, 4.0}));
    QCOMPARE(spline.findIndex(spline[1]), 1);
    QVERIFY(spline.hasChanged());
}

void TestSplineCopying::copyDupMovesTheTimesAndTakesBehavioursAndDefault()
{
    SplineBase source;
    fill(source);
    SplineBase spline;
    spline.copyDup(source, 0.5);
    QCOMPARE(timesOf(spline), (Times{1.5, 2.5, 4.5}));
    QCOMPARE(timesOf(source), (Times{1.0, 2.0, 4.0}));
    for (unsigned i = 0; i < 3; ++i) {
        QVERIFY(isSameButTime(*spline[i], *source[i]));
    }
    QCOMPARE(spline.firstNodeType(), SplineBase::zero);
    QCOMPARE(spline.lastNodeType(), SplineBase::loopOffset);
    QCOMPARE(spline.getDefaultValue(), 6.0);
    QVERIFY(!spline.isAddFunc());
}

void TestSplineCopying::copySelectedTakesJustTheListedKeysInTimeOrder()
{
    SplineBase source;
    fill(source);
    SplineBase spline;
    spline.copySelected(source, {source[2], source[0], source[2]});
    QCOMPARE(timesOf(spline), (Times{1.0, 4.0}));
    QVERIFY(spline[0] != source[0]);
    QVERIFY(isSameButTime(*spline[1], *source[2]));
    QCOMPARE(spline.firstNodeType(), SplineBase::zero);
    QCOMPARE(spline.lastNodeType(), SplineBase::loopOffset);
    QCOMPARE(spline.getDefaultValue(), 0.0);
}

void TestSplineCopying::copySelectedPassesOverWhatIsNoKeyOfTheSource()
{
    SplineBase source;
    fill(source);
    auto* const freed = new PointInfo;
    delete freed;
    SplineBase spline;
    spline.copySelected(source, {nullptr, freed, source[1]});
    QCOMPARE(timesOf(spline), (Times{2.0}));
}

void TestSplineCopying::combineAddsBehindKeysOfTheSameTime()
{
    SplineBase source;
    fill(source);
    SplineBase spline;
    for (const double time : {0.0, 2.0, 5.0}) {
        spline.addPoint(time, 0.0);
    }
    spline.setLastNodeType(SplineBase::loop);
    const std::vector<PointInfo*> old = spline.getControlPoints();
    spline.setChanged(false);
    const std::vector<const PointInfo*> added = spline.combine(source, 0.0);
    QVERIFY(spline.hasChanged());
    QCOMPARE(timesOf(spline), (Times{0.0, 1.0, 2.0, 2.0, 4.0, 5.0}));
    QVERIFY(spline[2] == old[1]);
    QVERIFY(spline[3] == added[1]);
    QCOMPARE(spline.lastNodeType(), SplineBase::loop);
    QCOMPARE(spline.getDefaultValue(), 0.0);
}

void TestSplineCopying::combineReturnsTheAddedKeysInTimeOrder()
{
    SplineBase source;
    fill(source);
    SplineBase spline;
    spline.addPoint(0.0, 0.0);
    const std::vector<const PointInfo*> added = spline.combine(source, -3.0);
    QCOMPARE(timesOf(spline), (Times{-2.0, -1.0, 0.0, 1.0}));
    QCOMPARE(added.size(), std::size_t{3});
    QVERIFY(added[0] == spline[0] && added[1] == spline[1] && added[2] == spline[3]);
    for (unsigned i = 0; i < 3; ++i) {
        QVERIFY(isSameButTime(*added[i], *source[i]));
        QVERIFY(spline.findIndex(added[i]) >= 0);
        QCOMPARE(source.findIndex(added[i]), -1);
    }
    SplineBase empty;
    QVERIFY(spline.combine(empty, 1.0).empty());
}

void TestSplineCopying::combineWithItselfDoublesTheKeys()
{
    SplineBase spline;
    fill(spline);
    QCOMPARE(spline.combine(spline, 1.0).size(), std::size_t{3});
    QCOMPARE(timesOf(spline), (Times{1.0, 2.0, 2.0, 3.0, 4.0, 5.0}));
}

void TestSplineCopying::theCopiedObjectSharesItsKeys()
{
    SplineBase spline;
    fill(spline);
    SplineBase shared(spline);
    QVERIFY(shared.getControlPoints() == spline.getControlPoints());
    QCOMPARE(shared.findIndex(spline[1]), 1);
    QVERIFY(!shared.hasChanged());
    SplineBase assigned;
    assigned = spline;
    QVERIFY(assigned.getControlPoints() == spline.getControlPoints());
    QVERIFY(!assigned.hasChanged());
    shared.clearCtrlPoints();
    assigned.clearCtrlPoints();
}

QTEST_APPLESS_MAIN(TestSplineCopying)
#include "test_spline_copying.moc"
