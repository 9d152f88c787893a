#include "core/EvaluationTime.h"

#include "core/ExpressionDisposal.h"
#include "core/FunctionParserBase.h"
#include "core/KeyValue.h"
#include "core/ParserKeyEntry.h"
#include "core/RoundingNoise.h"
#include "core/VectorRegisters.h"

#include <cstring>

namespace {

unsigned long long currentEpoch = 0;
int livingObjects = 0;

struct TimeKeys
{
    FunctionParserBase::keyStruct* time = FunctionParserBase::instance()->getKey("t");
    FunctionParserBase::keyStruct* frame = FunctionParserBase::instance()->getKey("f");
    FunctionParserBase::keyStruct* fps = FunctionParserBase::instance()->getKey("fps");
};

const TimeKeys& timeKeys()
{
    static const TimeKeys keys;
    return keys;
}

// By bits, so that not a number is the same moment as itself.
bool sameBits(const double& a, const double& b)
{
    // NOLINTNEXTLINE(bugprone-suspicious-memory-comparison)
    return std::memcmp(&a, &b, sizeof a) == 0;
}

// Tells whether anything changed.
bool writeMoment(const double& time, const double& frame, const double& fps)
{
    const TimeKeys& keys = timeKeys();
    const bool same = sameBits(ParserKeyEntry::stored(keys.time), time) &&
                      sameBits(ParserKeyEntry::stored(keys.frame), frame) &&
                      sameBits(ParserKeyEntry::stored(keys.fps), fps);
    if (!same) {
        writeKeyValue(keys.time, time);
        writeKeyValue(keys.frame, frame);
        writeKeyValue(keys.fps, fps);
    }
    return !same;
}

// Inside of a refresh function values at the moments before and behind stay good: else curves that
// read one another at several moments would be worked out again and again.
void leaveMoment()
{
    if (!ParserKeyEntry::isAnyRefreshed()) {
        ++currentEpoch;
    }
}

} // namespace

EvaluationTime::EvaluationTime()
    : savedTime(ParserKeyEntry::stored(timeKeys().time))
    , savedFrame(ParserKeyEntry::stored(timeKeys().frame))
    , savedFps(ParserKeyEntry::stored(timeKeys().fps))
{
    VectorRegisters::clearUpperHalves();
    // What an earlier evaluation worked out may have been edited since.
    if (++livingObjects == 1) {
        ++currentEpoch;
    }
}

EvaluationTime::EvaluationTime(const double& time, const double& fps)
    : EvaluationTime()
{
    if (writeMoment(time, frameAt(time, fps), fps)) {
        leaveMoment();
    }
}

EvaluationTime::~EvaluationTime()
{
    if (restores && writeMoment(savedTime, savedFrame, savedFps)) {
        leaveMoment();
    }
    if (--livingObjects == 0) {
        ExpressionDisposal::freeKept();
    }
}

void EvaluationTime::set(const double& time, const double& fps)
{
    const bool isOther = writeMoment(time, frameAt(time, fps), fps);
    if (livingObjects == 1) {
        ++currentEpoch;
    } else if (isOther) {
        leaveMoment();
    }
}

void EvaluationTime::keep()
{
    restores = false;
}

std::array<double, 3> EvaluationTime::now()
{
    const TimeKeys& keys = timeKeys();
    return {ParserKeyEntry::stored(keys.time), ParserKeyEntry::stored(keys.frame),
            ParserKeyEntry::stored(keys.fps)};
}

unsigned long long EvaluationTime::epoch()
{
    return livingObjects > 0 ? currentEpoch : 0;
}
