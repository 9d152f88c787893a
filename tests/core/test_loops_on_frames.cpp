#include "core/EvaluationTime.h"
#include "core/FunctionParserBase.h"
#include "core/KeyValue.h"
#include "core/SplineKeys.h"
#include "support/FailOnWarning.h"

#include <QTest>

#include <cmath>
#include <limits>

namespace {

constexpr double rates[] = {23.976, 24.0, 25.0, 29.97, 30.0, 48.0, 50.0, 59.94, 60.0, 120.0};
constexpr int firstFrames[] = {-100, -1, 0, 1, 7, 99, 1000, 54321, 1000000};
constexpr int longestCycle = 48;
constexpr int cycles = 199;

void addRowsByRate()
{
    QTest::addColumn<double>("fps");
    for (const double fps : rates) {
        QTest::addRow("%g frames a second", fps) << fps;
    }
}

/// Stepped keys on frames, each holding the number of its frame within the cycle: at 0, at the
/// end, and at every third frame between.
void fillWithSteps(SplineBase& spline, int firstFrame, int length, double fps)
{
    spline.removeAllControlPoints();
    for (int frame = 0; frame < length; frame += 3) {
        put(spline, makeKey((firstFrame + frame) / fps, frame, zk_spline::stepped));
    }
    put(spline, makeKey((firstFrame + length) / fps, length, zk_spline::stepped));
}

/// The frame of the cycle in which a frame lies, from 0 up to the length.
int frameInCycle(int frame, int length)
{
    return (frame % length + length) % length;
}

/// The last stepped key at or before that frame.
int stepAt(int frame, int length)
{
    return frameInCycle(frame, length) / 3 * 3;
}

QByteArray place(int firstFrame, int length, int frame)
{
    return QByteArray("first frame " + QByteArray::number(firstFrame) + ", cycle of " +
                      QByteArray::number(length) + ", frame " + QByteArray::number(frame));
}

} // namespace

/// Times are frames in disguise: frame / fps, rounded to a double.
class TestLoopsOnFrames : public QObject
{
    Q_OBJECT

private slots:
    void init() { failOnUnexpectedWarning(); }

    void everyCycleStartsWithItsFirstKey_data() { addRowsByRate(); }
    void everyCycleStartsWithItsFirstKey();
    void steppedKeysComeOnTheirFrame_data() { addRowsByRate(); }
    void steppedKeysComeOnTheirFrame();
    void cyclesBeforeTheFirstKeyStartOnTheirFrameToo_data() { addRowsByRate(); }
    void cyclesBeforeTheFirstKeyStartOnTheirFrameToo();
    void loopsWithOffsetCountTheirRoundsByFrames_data() { addRowsByRate(); }
    void loopsWithOffsetCountTheirRoundsByFrames();
    void exactTimesAnswerAsTheyStand();
    void farFromZeroExactKeysRepeatExactly();
    void aTimeBesideAKeyIsThatKeyOnlyWithinTheNoiseOfRounding();
    void insideTheKeysATimeIsTakenAsItStands();
    void keysCloserThanTheNoiseOfRoundingBothReturn();

    void theFrameOfAFramesTimeIsThatFrame_data() { addRowsByRate(); }
    void theFrameOfAFramesTimeIsThatFrame();
    void betweenFramesTheFrameKeepsItsFraction();
    void theFrameOfATimeBeyondAllNumbersIsOneToo();
};

void TestLoopsOnFrames::everyCycleStartsWithItsFirstKey()
{
    QFETCH(double, fps);
    SplineBase spline;
    spline.setLastNodeType(SplineBase::loop);
    for (const int firstFrame : firstFrames) {
        for (int length = 1; length <= longestCycle; ++length) {
            spline.removeAllControlPoints();
            put(spline, makeKey(firstFrame / fps, 1.0));
            put(spline, makeKey((firstFrame + length) / fps, 5.0));
            for (int cycle = 2; cycle <= cycles; ++cycle) {
                const int frame = firstFrame + cycle * length;
                const double value = spline(frame / fps);
                if (value != 1.0) {
                    QFAIL(place(firstFrame, length, frame));
                }
            }
        }
    }
}

void TestLoopsOnFrames::steppedKeysComeOnTheirFrame()
{
    QFETCH(double, fps);
    SplineBase spline;
    spline.setLastNodeType(SplineBase::loop);
    for (const int firstFrame : firstFrames) {
        for (int length = 1; length <= longestCycle; ++length) {
            fillWithSteps(spline, firstFrame, length, fps);
            for (int frame = length + 1; frame < 20 * length; ++frame) {
                const double value = spline((firstFrame + frame) / fps);
                if (value != stepAt(frame, length)) {
                    QFAIL(place(firstFrame, length, frame));
                }
            }
        }
    }
}

void TestLoopsOnFrames::cyclesBeforeTheFirstKeyStartOnTheirFrameToo()
{
    QFETCH(double, fps);
    SplineBase spline;
    spline.setFirstNodeType(SplineBase::loop);
    for (const int firstFrame : firstFrames) {
        for (int length = 1; length <= longestCycle; ++length) {
            fillWithSteps(spline, firstFrame, length, fps);
            for (int frame = -10 * length; frame < 0; ++frame) {
                const double value = spline((firstFrame + frame) / fps);
                if (value != stepAt(frame, length)) {
                    QFAIL(place(firstFrame, length, frame));
                }
            }
        }
    }
}

void TestLoopsOnFrames::loopsWithOffsetCountTheirRoundsByFrames()
{
    QFETCH(double, fps);
    SplineBase spline;
    spline.setLastNodeType(SplineBase::loopOffset);
    spline.setFirstNodeType(SplineBase::loopOffset);
    for (const int firstFrame : firstFrames) {
        for (int length = 1; length <= longestCycle; ++length) {
            fillWithSteps(spline, firstFrame, length, fps);
            for (int frame = -5 * length; frame < 20 * length; ++frame) {
                const double value = spline((firstFrame + frame) / fps);
                const int rounds = (frame - frameInCycle(frame, length)) / length;
                const int expected = stepAt(frame, length) + rounds * length;
                if (value != expected) {
                    QFAIL(place(firstFrame, length, frame));
                }
            }
        }
    }
}

void TestLoopsOnFrames::exactTimesAnswerAsTheyStand()
{
    SplineBase spline;
    put(spline, makeKey(0.0, 0.0));
    put(spline, makeKey(1.0, 1.0));
    put(spline, makeKey(4.0, 7.0, zk_spline::stepped));
    spline.setFirstNodeType(SplineBase::loop);
    spline.setLastNodeType(SplineBase::loop);
    QCOMPARE(spline(4.0), 7.0);
    QCOMPARE(spline(8.0), 0.0);
    QCOMPARE(spline(8.5), 0.5);
    QCOMPARE(spline(-1.5), 4.0);
    QCOMPARE(spline(-4.0), 0.0);
    QCOMPARE(spline(4e9 + 0.5), 0.5);
    // So far out that the noise of rounding is longer than the cycle.
    QCOMPARE(spline(4e15 + 0.5), 0.5);
    QCOMPARE(spline(4e15 + 2.0), 3.0);
}

void TestLoopsOnFrames::farFromZeroExactKeysRepeatExactly()
{
    SplineBase spline;
    put(spline, makeKey(1e6, 1.0));
    put(spline, makeKey(1e6 + 1.0, 5.0));
    spline.setLastNodeType(SplineBase::loop);
    for (const double& time : {1e6 + 1e3 + 1e-7, 1e6 + 1e4 + 1e-6, 1.4e6 + 5e-5}) {
        QCOMPARE(spline(time), 1.0 + 4.0 * (time - std::floor(time)));
    }
    QCOMPARE(spline(1.4e6), 1.0);
}

void TestLoopsOnFrames::aTimeBesideAKeyIsThatKeyOnlyWithinTheNoiseOfRounding()
{
    SplineBase spline;
    put(spline, makeKey(0.0, 1.0, zk_spline::stepped));
    put(spline, makeKey(1.0, 2.0, zk_spline::stepped));
    put(spline, makeKey(4.0, 3.0, zk_spline::stepped));
    spline.setLastNodeType(SplineBase::loop);
    double early = 9.0;
    for (int units = 1; units <= 3; ++units) {
        early = std::nextafter(early, 0.0);
        QCOMPARE(spline(early), 2.0);
    }
    QCOMPARE(spline(9.0 - 1e-12), 1.0);
    QCOMPARE(spline(std::nextafter(8.0, 0.0)), 1.0);
    QCOMPARE(spline(8.0 - 1e-12), 2.0);
}

void TestLoopsOnFrames::insideTheKeysATimeIsTakenAsItStands()
{
    SplineBase spline;
    put(spline, makeKey(0.0, 1.0, zk_spline::stepped));
    put(spline, makeKey(1.0, 2.0, zk_spline::stepped));
    put(spline, makeKey(4.0, 3.0, zk_spline::stepped));
    spline.setLastNodeType(SplineBase::loop);
    QCOMPARE(spline(std::nextafter(1.0, 0.0)), 1.0);
    QCOMPARE(spline(std::nextafter(4.0, 0.0)), 2.0);
}

void TestLoopsOnFrames::keysCloserThanTheNoiseOfRoundingBothReturn()
{
    const double cut = std::nextafter(2.0, 3.0);
    SplineBase spline;
    put(spline, makeKey(0.0, 1.0, zk_spline::stepped));
    put(spline, makeKey(2.0, 2.0, zk_spline::stepped));
    put(spline, makeKey(cut, 3.0, zk_spline::stepped));
    put(spline, makeKey(3.0, 4.0, zk_spline::stepped));
    spline.setLastNodeType(SplineBase::loop);
    QCOMPARE(spline(5.0), 2.0);
    QCOMPARE(spline(5.0 + 1e-9), 3.0);
}

void TestLoopsOnFrames::theFrameOfAFramesTimeIsThatFrame()
{
    QFETCH(double, fps);
    const FunctionParserBase::keyStruct* key = FunctionParserBase::instance()->getKey("f");
    EvaluationTime moment;
    for (int frame = -20000; frame <= 1000000; frame += frame < 20000 ? 1 : 7) {
        moment.set(frame / fps, fps);
        if (readKeyValue(key) != frame) {
            QFAIL(QByteArray::number(frame));
        }
    }
}

void TestLoopsOnFrames::betweenFramesTheFrameKeepsItsFraction()
{
    const FunctionParserBase::keyStruct* key = FunctionParserBase::instance()->getKey("f");
    for (const double time : {0.1, -0.3, 1.0 / 3.0, 100.01, 1e-17, -1e-300, 2.0 + 1e-12}) {
        const EvaluationTime moment(time, 25.0);
        QCOMPARE(readKeyValue(key), time * 25.0);
        QVERIFY(std::abs(readKeyValue(key) - time * 25.0) == 0.0);
    }
}

void TestLoopsOnFrames::theFrameOfATimeBeyondAllNumbersIsOneToo()
{
    const FunctionParserBase::keyStruct* key = FunctionParserBase::instance()->getKey("f");
    constexpr double infinity = std::numeric_limits<double>::infinity();
    for (const double time : {1e308, -1e308, infinity, -infinity}) {
        const EvaluationTime moment(time, 25.0);
        QCOMPARE(readKeyValue(key), time * 25.0);
    }
    const EvaluationTime moment(std::numeric_limits<double>::quiet_NaN(), 25.0);
    QVERIFY(std::isnan(readKeyValue(key)));
}

QTEST_APPLESS_MAIN(TestLoopsOnFrames)
#include "test_loops_on_frames.moc"
