#include "support/KeyAddresses.h"

#include "core/SplineKeys.h"
#include "support/FailOnWarning.h"

#include <QElapsedTimer>
#include <QTest>

#include <limits>
#include <memory>
#include <utility>

namespace {

using Values = std::vector<double>;
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

Values valuesOf(SplineBase& spline)
{
    Values values;
    for (const PointInfo* key : spline.getControlPoints()) {
        values.push_back(key->value);
    }
    return values;
}

/// Keys of one time whose values are 0, 1, 2 and so on.
void addEquals(SplineBase& spline, const int& count, const double& time = 10.0)
{
    for (int i = 0; i < count; ++i) {
        spline.addPoint(time, i);
    }
}

KeyRef refOf(const SplineBase& spline, const unsigned& index)
{
    return {spline.at(index), spline.keySerial(spline.at(index))};
}

/// The value just before 10, at 10 and just after it.
Values aroundTheCut(const SplineBase& spline)
{
    return {spline(std::nextafter(10.0, 0.0)), spline(10.0), spline(std::nextafter(10.0, 20.0))};
}

} // namespace

/// Who a key is: its serial, and with it its place among keys of equal times.
class TestSplineIdentity : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void everyKeyHasASerialOfItsOwn();
    void aKeyThatIsNoMemberHasNoSerial();
    void aNewKeyAtTheAddressOfAFreedOneIsAnotherKey();
    void aKeyPutBackTakesItsFormerPlaceAmongItsEquals_data();
    void aKeyPutBackTakesItsFormerPlaceAmongItsEquals();
    void keysPutBackInAnyOrderStandAsBefore();
    void aKeyOfNoTimeAtAllComesBackToItsPlaceToo();
    void aNewKeyAtTheAddressOfARemovedOneGoesBehindItsEquals();
    void aKeyThatWasChangedOutsideIsANewOneUnlessItsSerialIsGiven();
    void aSerialThatWasNeverGivenMakesANewKey();
    void aTakenKeyIsRememberedByItsTakerAlone();
    void veryManyRemovedKeysAreForgotten();
    void aTimeSetThereAndBackLeavesTheOrderAsItWas();
    void anOldRecordCopiedBackLeavesTheOrderAsItWas();
    void timesWrittenPastSetTimeAreOrderedByTheSameRule();
    void aHardCutComesBackToTheBit();
    void copiedKeysAreNewAndStandLikeTheirModels();
    void combinedKeysGoBehindTheirEquals();
    void sharedKeysKeepTheirSerials();
    void contentsExchangedTakeTheirSerialsAlong();
    void splinesCopiedAfterARemovalDoNotShareItsMemory();
    void aHundredThousandKeysOfOneTimeAreFoundAndMovedQuickly();
    void aKeyTakesLittleMemoryBesideItsRecord();
    void keysThatComeAndGoLeaveNoMemoryBehind();
};

void TestSplineIdentity::everyKeyHasASerialOfItsOwn()
{
    SplineBase one;
    SplineBase other;
    addEquals(one, 2);
    addEquals(other, 2);
    const std::vector<std::uint64_t> serials{refOf(one, 0).serial, refOf(one, 1).serial,
                                             refOf(other, 0).serial, refOf(other, 1).serial};
    QVERIFY(serials[0] > 0);
    QVERIFY(std::is_sorted(serials.begin(), serials.end()));
    QVERIFY(std::adjacent_find(serials.begin(), serials.end()) == serials.end());
}

void TestSplineIdentity::aKeyThatIsNoMemberHasNoSerial()
{
    SplineBase spline;
    const PointInfo stranger;
    QCOMPARE(spline.keySerial(&stranger), std::uint64_t(0));
    addEquals(spline, 3);
    QCOMPARE(spline.keySerial(&stranger), std::uint64_t(0));
    QCOMPARE(spline.keySerial(nullptr), std::uint64_t(0));
    QVERIFY(!spline.holds(KeyRef()));
    QVERIFY(!spline.holds({spline.at(1), 0}));
    QVERIFY(spline.holds(refOf(spline, 1)));
    QVERIFY(!spline.holds({spline.at(1), refOf(spline, 2).serial}));
}

void TestSplineIdentity::aNewKeyAtTheAddressOfAFreedOneIsAnotherKey()
{
    SplineBase spline;
    spline.addPoint(1.0, 1.0);
    const KeyRef former = refOf(spline, 0);
    spline.removeAllControlPoints();
    QVERIFY(!spline.holds(former));
    spline.addPoint(1.0, 1.0);
    QVERIFY(spline.at(0) == former.key); // else this program tests nothing
    QVERIFY(!spline.holds(former));
    QVERIFY(spline.holds(refOf(spline, 0)));
}

void TestSplineIdentity::aKeyPutBackTakesItsFormerPlaceAmongItsEquals_data()
{
    QTest::addColumn<unsigned>("index");
    QTest::addColumn<bool>("withSerial");
    for (const unsigned index : {0U, 1U, 3U, 4U}) {
        QTest::addRow("key %u by its pointer", index) << index << false;
        QTest::addRow("key %u by its serial", index) << index << true;
    }
}

void TestSplineIdentity::aKeyPutBackTakesItsFormerPlaceAmongItsEquals()
{
    QFETCH(unsigned, index);
    QFETCH(bool, withSerial);
    SplineBase spline;
    addEquals(spline, 5);
    const KeyRef key = refOf(spline, index);
    spline.remove(key.key);
    QVERIFY(!spline.holds(key));
    if (withSerial) {
        QVERIFY(spline.addPointPtr(key.key, key.serial) == key);
    } else {
        QVERIFY(spline.addPointPtr(key.key) == key.key);
    }
    QCOMPARE(valuesOf(spline), (Values{0, 1, 2, 3, 4}));
    QVERIFY(spline.holds(key));
}

void TestSplineIdentity::keysPutBackInAnyOrderStandAsBefore()
{
    SplineBase spline;
    addEquals(spline, 6);
    std::vector<PointInfo*> keys = spline.getControlPoints();
    std::swap(keys[0], keys[4]);
    std::swap(keys[1], keys[5]);
    for (const PointInfo* key : keys) {
        spline.remove(key);
    }
    spline.addPoint(10.0, 6.0); // newer than all of them
    std::swap(keys[2], keys[4]);
    for (PointInfo* key : keys) {
        spline.addPointPtr(key);
    }
    QCOMPARE(valuesOf(spline), (Values{0, 1, 2, 3, 4, 5, 6}));
}

void TestSplineIdentity::aKeyOfNoTimeAtAllComesBackToItsPlaceToo()
{
    SplineBase spline;
    addEquals(spline, 3, notANumber);
    spline.addPoint(1.0, 9.0);
    PointInfo* const key = spline.at(1);
    spline.remove(key);
    spline.addPointPtr(key);
    QCOMPARE(valuesOf(spline), (Values{9, 0, 1, 2}));
    spline.setTime(key, 2.0);
    spline.setTime(key, notANumber);
    QCOMPARE(valuesOf(spline), (Values{9, 0, 1, 2}));
}

void TestSplineIdentity::aNewKeyAtTheAddressOfARemovedOneGoesBehindItsEquals()
{
    SplineBase spline;
    addEquals(spline, 3);
    const KeyRef former = refOf(spline, 0);
    spline.remove(former.key);
    delete former.key;
    PointInfo* const fresh = put(spline, makeKey(10.0, 5.0));
    QVERIFY(fresh == former.key);
    QVERIFY(!spline.holds(former));
    QCOMPARE(valuesOf(spline), (Values{1, 2, 5}));
}

void TestSplineIdentity::aKeyThatWasChangedOutsideIsANewOneUnlessItsSerialIsGiven()
{
    SplineBase spline;
    addEquals(spline, 3);
    const KeyRef key = refOf(spline, 0);
    spline.remove(key.key);
    key.key->value = 7.0;
    spline.addPointPtr(key.key);
    QCOMPARE(valuesOf(spline), (Values{1, 2, 7}));
    QVERIFY(!spline.holds(key));
    spline.remove(key.key);
    key.key->value = 8.0;
    QVERIFY(spline.addPointPtr(key.key, key.serial) == key);
    QCOMPARE(valuesOf(spline), (Values{8, 1, 2}));
    spline.remove(key.key);
    QVERIFY(spline.addPointPtr(key.key, 0) != key); // it is said to be new
    QCOMPARE(valuesOf(spline), (Values{1, 2, 8}));
}

void TestSplineIdentity::aSerialThatWasNeverGivenMakesANewKey()
{
    SplineBase spline;
    addEquals(spline, 2);
    const std::uint64_t future = spline.keySerial(spline.at(1)) + 1000;
    auto* const foreign = new PointInfo;
    foreign->time = 10.0;
    const KeyRef added = spline.addPointPtr(foreign, future);
    QVERIFY(added.serial < future);
    QVERIFY(spline.holds(added));
    // Keys that come later go behind it, and none gets the serial that was asked for.
    for (int i = 0; i < 2000; ++i) {
        spline.addPoint(10.0, i);
        QVERIFY(spline.keySerial(spline.at(spline.getControlPointsNumber() - 1)) > added.serial);
    }
    QCOMPARE(spline.findIndex(foreign), 2);
}

void TestSplineIdentity::aTakenKeyIsRememberedByItsTakerAlone()
{
    SplineBase spline;
    spline.addPoint(10.0, 5.0);
    spline.addPoint(10.0, 20.0);
    PointInfo* const key = spline.at(0);
    const KeyRef taken = spline.take(key);
    QCOMPARE(taken.key, key);
    QCOMPARE(spline.getControlPointsNumber(), 1U);
    QVERIFY(!spline.holds(taken));
    QCOMPARE(spline.take(key), KeyRef());
    spline.addPointPtr(key, taken.serial);
    QVERIFY(spline.holds(taken));
    QCOMPARE(spline.findIndex(key), 0);
    spline.take(key);
    spline.addPointPtr(key);
    QVERIFY(!spline.holds(taken));
    QCOMPARE(spline.findIndex(key), 1);
}

void TestSplineIdentity::veryManyRemovedKeysAreForgotten()
{
    SplineBase spline;
    addEquals(spline, 2000);
    const std::vector<PointInfo*> keys = spline.getControlPoints();
    for (const PointInfo* key : keys) {
        spline.remove(key);
    }
    spline.addPoint(10.0, 5000.0);
    spline.addPointPtr(keys.back());
    spline.addPointPtr(keys.front());
    QCOMPARE(valuesOf(spline), (Values{1999, 5000, 0}));
    for (std::size_t i = 1; i + 1 < keys.size(); ++i) {
        delete keys[i];
    }
}

void TestSplineIdentity::aTimeSetThereAndBackLeavesTheOrderAsItWas()
{
    for (const double there : {5.0, 15.0, 12.0, notANumber, 9.0}) {
        SplineBase spline;
        addEquals(spline, 4);
        spline.addPoint(12.0, 4.0);
        spline.addPoint(9.0, 5.0);
        const Values before = valuesOf(spline);
        const std::vector<PointInfo*> keys = spline.getControlPoints();
        for (const PointInfo* key : keys) {
            const double back = key->time;
            spline.setTime(key, there);
            spline.setTime(key, back);
            QCOMPARE(valuesOf(spline), before);
        }
    }
}

void TestSplineIdentity::anOldRecordCopiedBackLeavesTheOrderAsItWas()
{
    SplineBase spline;
    addEquals(spline, 4);
    const PointInfo* const key = spline[1];
    const PointInfo record = *key;
    const PointInfo other = makeKey(20.0, 8.0);
    spline.copyPoint(key, &other);
    QCOMPARE(valuesOf(spline), (Values{0, 2, 3, 8}));
    spline.copyPoint(key, &record);
    QCOMPARE(valuesOf(spline), (Values{0, 1, 2, 3}));
}

void TestSplineIdentity::timesWrittenPastSetTimeAreOrderedByTheSameRule()
{
    SplineBase spline;
    for (int i = 0; i < 6; ++i) {
        spline.addPoint(6 - i, i);
    }
    for (unsigned i = 0; i < 6; ++i) {
        spline.at(i)->time = 3.0;
    }
    spline.setTime(spline[0], 3.0);
    QCOMPARE(valuesOf(spline), (Values{0, 1, 2, 3, 4, 5}));
}

void TestSplineIdentity::aHardCutComesBackToTheBit()
{
    SplineBase spline;
    for (const auto& [time, value] :
         {std::pair{0.0, 0.0}, {10.0, 5.0}, {10.0, 20.0}, {20.0, 0.0}}) {
        put(spline, makeKey(time, value));
    }
    const Values before = aroundTheCut(spline);
    QCOMPARE(before[0], 5.0);
    QCOMPARE(before[2], 20.0);
    for (const unsigned index : {1U, 2U}) {
        PointInfo* const key = spline.at(index);
        spline.remove(key);
        spline.addPointPtr(key);
        QCOMPARE(aroundTheCut(spline), before);
        spline.setTime(key, 15.0);
        spline.setTime(key, 10.0);
        QCOMPARE(aroundTheCut(spline), before);
        const PointInfo record = *key;
        const PointInfo elsewhere = makeKey(2.0, 3.0);
        spline.copyPoint(key, &elsewhere);
        spline.copyPoint(key, &record);
        QCOMPARE(aroundTheCut(spline), before);
    }
}

void TestSplineIdentity::copiedKeysAreNewAndStandLikeTheirModels()
{
    SplineBase source;
    addEquals(source, 4);
    source.setTime(source[3], 5.0);
    source.setTime(source[0], 10.0);
    PointInfo* const first = source.at(1);
    source.remove(first);
    source.addPointPtr(first);
    const Values model = valuesOf(source);
    SplineBase copied;
    copied.copy(source);
    QCOMPARE(valuesOf(copied), model);
    SplineBase duplicate;
    duplicate.copyDup(source, 1.0);
    QCOMPARE(valuesOf(duplicate), model);
    SplineBase selected;
    selected.copySelected(source, {source[3], source[1], source[2]});
    QCOMPARE(valuesOf(selected), (Values{model[1], model[2], model[3]}));
    for (unsigned i = 0; i < 4; ++i) {
        QVERIFY(refOf(duplicate, i).serial > refOf(source, i).serial);
        QVERIFY(!source.holds(refOf(copied, i)));
    }
}

void TestSplineIdentity::combinedKeysGoBehindTheirEquals()
{
    SplineBase source;
    source.addPoint(10.0, 7.0);
    source.addPoint(10.0, 8.0);
    SplineBase spline;
    addEquals(spline, 2);
    spline.addPoint(11.0, 2.0);
    PointInfo* const first = spline.at(0);
    spline.remove(first);
    const std::vector<const PointInfo*> added = spline.combine(source, 0.0);
    QCOMPARE(valuesOf(spline), (Values{1, 7, 8, 2}));
    QVERIFY(spline.keySerial(added[0]) < spline.keySerial(added[1]));
    spline.addPointPtr(first);
    QCOMPARE(valuesOf(spline), (Values{0, 1, 7, 8, 2}));
}

void TestSplineIdentity::sharedKeysKeepTheirSerials()
{
    SplineBase spline;
    addEquals(spline, 3);
    SplineBase assigned;
    assigned = spline;
    const SplineBase constructed(spline);
    SplineBase shared;
    shared.copyRefs(spline);
    for (unsigned i = 0; i < 3; ++i) {
        QVERIFY(assigned.holds(refOf(spline, i)));
        QVERIFY(constructed.holds(refOf(spline, i)));
        QVERIFY(shared.holds(refOf(spline, i)));
    }
    const_cast<SplineBase&>(constructed).clearCtrlPoints();
    assigned.clearCtrlPoints();
    shared.clearCtrlPoints();
}

void TestSplineIdentity::contentsExchangedTakeTheirSerialsAlong()
{
    SplineBase a;
    addEquals(a, 3);
    SplineBase b;
    b.addPoint(1.0, 9.0);
    const KeyRef ofA = refOf(a, 1);
    const KeyRef ofB = refOf(b, 0);
    SplineBase former;
    former.copyRefs(a);
    a.copyRefs(b);
    b.copyRefs(former);
    former.clearCtrlPoints();
    QVERIFY(a.holds(ofB) && !a.holds(ofA));
    QVERIFY(b.holds(ofA) && !b.holds(ofB));
    b.remove(ofA.key);
    b.addPointPtr(ofA.key);
    QCOMPARE(valuesOf(b), (Values{0, 1, 2}));
}

void TestSplineIdentity::splinesCopiedAfterARemovalDoNotShareItsMemory()
{
    SplineBase spline;
    addEquals(spline, 3);
    const std::unique_ptr<PointInfo> key(spline.at(0));
    spline.remove(key.get());
    SplineBase copied;
    copied.copyRefs(spline);
    spline.clearCtrlPoints();
    copied.addPointPtr(key.get());
    QCOMPARE(valuesOf(copied), (Values{1, 2, 0})); // it never was a key of this one
    copied.remove(key.get());
}

/// Seconds at most even under the sanitizers; a search along the equals would take hours.
void TestSplineIdentity::aHundredThousandKeysOfOneTimeAreFoundAndMovedQuickly()
{
    constexpr int count = 100000;
    SplineBase spline;
    addEquals(spline, count);
    QElapsedTimer timer;
    timer.start();
    long long sum = 0;
    for (unsigned i = 0; i < count; ++i) {
        sum += spline.findIndex(spline[i]);
    }
    QCOMPARE(sum, static_cast<long long>(count) * (count - 1) / 2);
    for (unsigned i = 0; i < count; i += 100) {
        PointInfo* const key = spline.at(i);
        spline.setTime(key, 20.0);
        spline.setTime(key, 10.0);
        spline.remove(key);
        spline.addPointPtr(key);
        QVERIFY(spline.at(i) == key);
    }
    QVERIFY2(timer.elapsed() < 20000, qPrintable(QString::number(timer.elapsed())));
}

void TestSplineIdentity::aKeyTakesLittleMemoryBesideItsRecord()
{
    for (const int count : {100, 1000, 1793, 1800, 2049, 10000, 14400, 16500, 40000}) {
        const std::size_t before = KeyAddresses::usedBytes();
        SplineBase spline;
        addEquals(spline, count);
        const auto used = static_cast<double>(KeyAddresses::usedBytes() - before);
        const double bare = sizeof(PointInfo) + sizeof(PointInfo*);
        QVERIFY2(used <= 1.5 * bare * count, qPrintable(QString::number(used / count)));
    }
}

void TestSplineIdentity::keysThatComeAndGoLeaveNoMemoryBehind()
{
    SplineBase spline;
    addEquals(spline, 3);
    const auto comeAndGo = [&spline](const int& times) {
        for (int i = 0; i < times; ++i) {
            PointInfo* const key = put(spline, makeKey(5.0, i));
            spline.remove(key);
            delete key;
        }
    };
    comeAndGo(20000);
    const std::size_t before = KeyAddresses::usedBytes();
    comeAndGo(20000);
    QVERIFY(KeyAddresses::usedBytes() <= before + 1000);
}

QTEST_APPLESS_MAIN(TestSplineIdentity)
#include "test_spline_identity.moc"
