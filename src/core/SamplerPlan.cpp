#include "core/SamplerPlan.h"

#include "core/RoundingNoise.h"
#include "core/SamplerOrder.h"
#include "core/VectorRegisters.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <functional>
#include <utility>

namespace {

/// Of times that are worked off together.
constexpr std::size_t longestBlock = 512;

/// Numbers on the stack: 32 KiB.
constexpr std::size_t scratchSize = 4096;

constexpr std::int32_t closesRing = SamplerOrder::closesRing;

/// What frameAt tells, without branches and calls, for the compiler to work off several at a time.
/// Up to 2^48 what rounding alone parts from a whole number is far from the middle between two, so
/// any way to round will do: beside 1.5 * 2^52 a number has no room for decimals.
void writeFrames(const double* __restrict times, double* __restrict frames, std::size_t count,
                 double fps)
{
    constexpr double noDecimals = 0x1.8p52;
    constexpr double farthest = 0x1p48;
    std::int64_t areFar = 0; // negative if one is
    for (std::size_t i = 0; i < count; ++i) {
        const double frame = times[i] * fps;
        const double whole = (frame + noDecimals) - noDecimals;
        const double distance = std::abs(frame - whole);
        const double size = std::abs(whole);
        const bool isNoise = (distance <= roundingNoise(size)) & (distance > 0.0);
        frames[i] = isNoise ? whole : frame;
        const double room = farthest - size;
        std::int64_t bits = 0;
        std::memcpy(&bits, &room, sizeof bits);
        areFar |= bits;
    }
    for (std::size_t i = 0; areFar < 0 && i < count; ++i) {
        frames[i] = frameAt(times[i], fps);
    }
}

} // namespace

SamplerPlan::SamplerPlan(std::shared_ptr<const SamplerGraph> curvesGraph,
                         const SamplerCurve& rootCurve)
    : curves(std::move(curvesGraph))
    , rootOf(&rootCurve)
{
    SamplerOrder order(rootCurve);
    places = std::move(order.places);
    for (const SamplerOrder::Step& step : order.steps) {
        steps.push_back({step.what, step.firstPlace, 0});
    }
    assignLines();
    for (const Step& step : steps) {
        if (step.what.function) {
            usesFrame = usesFrame || step.what.function->index() != 0;
        } else if (step.what.curve->expression) {
            usesFrame = usesFrame || step.what.curve->expression->usesFrame();
            registers = std::max(registers, step.what.curve->expression->registersNumber());
        }
    }
    blockLength = longestBlock;
    while (blockLength > 1 && blockLength * linesNumber() > scratchSize) {
        blockLength /= 2;
    }
}

/// A line is free again behind the last step that reads it.
void SamplerPlan::assignLines()
{
    std::vector<std::size_t> lastReader(steps.size(), 0);
    const auto inputsOf = [&](const Step& step) {
        return step.what.curve ? step.what.curve->inputs.size() : 0;
    };
    for (std::size_t reader = 0; reader < steps.size(); ++reader) {
        for (std::size_t i = 0; i < inputsOf(steps[reader]); ++i) {
            const std::int32_t read = places[steps[reader].firstPlace + i];
            if (read != closesRing) {
                lastReader[static_cast<std::size_t>(read)] = reader;
            }
        }
    }
    std::vector<std::int32_t> freeLines;
    for (std::size_t current = 0; current < steps.size(); ++current) {
        Step& step = steps[current];
        if (freeLines.empty()) {
            freeLines.push_back(static_cast<std::int32_t>(inputLines++));
        }
        step.line = freeLines.back();
        freeLines.pop_back();
        for (std::size_t i = 0; i < inputsOf(step); ++i) {
            std::int32_t& place = places[step.firstPlace + i];
            if (place != closesRing) {
                const Step& read = steps[static_cast<std::size_t>(place)];
                if (lastReader[static_cast<std::size_t>(place)] == current) {
                    freeLines.push_back(read.line);
                }
                place = read.line;
            }
        }
    }
}

/// Frames, what is read, and registers.
std::size_t SamplerPlan::linesNumber() const
{
    return 1 + inputLines + registers;
}

void SamplerPlan::run(const double* times, double* out, std::size_t count, double fps) const
{
    VectorRegisters::clearUpperHalves();
    if (!rootOf->expression) {
        Block block = {};
        block.count = count;
        block.times = times;
        runCurve(steps.back(), block, out);
        return;
    }
    double onStack[scratchSize];
    std::vector<double> onHeap;
    double* lines = onStack;
    if (blockLength * linesNumber() > scratchSize) {
        onHeap.resize(blockLength * linesNumber());
        lines = onHeap.data();
    }
    for (std::size_t done = 0; done < count; done += blockLength) {
        Block block = {};
        block.count = std::min(blockLength, count - done);
        block.stride = block.count;
        block.times = times + done;
        block.fps = &fps;
        runBlock(block, lines, out + done);
    }
}

void SamplerPlan::runBlock(Block block, double* lines, double* out) const
{
    double* const inputs = lines + block.stride;
    block.frames = lines;
    block.inputLines = inputs;
    block.registers = inputs + inputLines * block.stride;
    if (usesFrame) {
        writeFrames(block.times, lines, block.count, *block.fps);
    }
    for (const Step& step : steps) {
        double* const line = inputs + static_cast<std::size_t>(step.line) * block.stride;
        if (step.what.function) {
            callFunction(*step.what.function, block, line);
        } else {
            runCurve(step, block, &step == &steps.back() ? out : line);
        }
    }
}

void SamplerPlan::runCurve(const Step& step, const Block& timesBlock, double* out) const
{
    const SamplerCurve& curve = *step.what.curve;
    if (curve.keys) {
        curve.keys->values(timesBlock.times, out, timesBlock.count);
    } else if (!curve.expression) {
        std::fill(out, out + timesBlock.count, 0.0);
    }
    if (curve.expression) {
        Block block = timesBlock;
        block.inputPlaces = places.data() + step.firstPlace;
        // Where there are no keys, the last instruction may write its register in place.
        block.firstRegister = curve.keys ? block.registers : out;
        const SamplerExpression::View values = curve.expression->run(block);
        if (curve.keys) {
            values.addTo(out, block.count);
        } else if (values.data != out) {
            values.copyTo(out, block.count);
        }
    }
    for (std::size_t i = 0; curve.hasLimits() && i < timesBlock.count; ++i) {
        out[i] = curve.held(out[i]);
    }
}

void SamplerPlan::callFunction(const SamplerFunction& function, const Block& block, double* out)
{
    if (const auto* const ofTime = std::get_if<CurveSampler::Function>(&function)) {
        std::transform(block.times, block.times + block.count, out, std::cref(*ofTime));
        return;
    }
    const auto& ofMoment = std::get<CurveSampler::MomentFunction>(function);
    for (std::size_t i = 0; i < block.count; ++i) {
        out[i] = ofMoment({block.times[i], block.frames[i], *block.fps});
    }
}
