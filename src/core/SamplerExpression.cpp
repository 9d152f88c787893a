#include "core/SamplerExpression.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <utility>

// A register may be written over the operand that lies in it: number by number, no harm.
#if defined(__GNUC__) && !defined(__clang__)
#define ZK_EACH_ALONE _Pragma("GCC ivdep")
#else
#define ZK_EACH_ALONE
#endif

namespace {

using Block = SamplerExpression::Block;
using Instruction = SamplerExpression::Instruction;
using Operand = SamplerExpression::Operand;
using View = SamplerExpression::View;

constexpr double nothing = 0.0;

double* registerAt(std::uint32_t index, const Block& block)
{
    return index == 0 ? block.firstRegister : block.registers + index * block.stride;
}

View inputOf(std::int32_t place, const Block& block)
{
    if (place < 0) {
        return {&nothing, true};
    }
    return {block.inputLines + static_cast<std::size_t>(place) * block.stride, false};
}

[[gnu::always_inline]] inline View viewOf(const Operand& operand, const Block& block)
{
    switch (operand.kind) {
    case Operand::seconds:
        return {block.times, false};
    case Operand::frame:
        return {block.frames, false};
    case Operand::rate:
        return {block.fps, true};
    case Operand::input:
        return inputOf(block.inputPlaces[operand.index], block);
    case Operand::result:
        return {registerAt(operand.index, block), false};
    default:
        return {&operand.value, true};
    }
}

template <typename Compute>
void forEach(const View& first, double* out, std::size_t count, Compute compute)
{
    if (first.isScalar) {
        std::fill(out, out + count, compute(*first.data));
        return;
    }
    const double* const numbers = first.data;
    ZK_EACH_ALONE
    for (std::size_t i = 0; i < count; ++i) {
        out[i] = compute(numbers[i]);
    }
}

/// A loop of its own for each pairing, for the compiler to work off several times at once.
template <typename Compute>
void forEach(const View& first, const View& second, double* out, std::size_t count, Compute compute)
{
    if (first.isScalar) {
        const double left = *first.data;
        forEach(second, out, count, [&](double right) { return compute(left, right); });
    } else if (second.isScalar) {
        const double right = *second.data;
        forEach(first, out, count, [&](double left) { return compute(left, right); });
    } else {
        const double* const left = first.data;
        const double* const right = second.data;
        ZK_EACH_ALONE
        for (std::size_t i = 0; i < count; ++i) {
            out[i] = compute(left[i], right[i]);
        }
    }
}

/// Whether the condition is 0, or is not, at each time of the block.
bool isEverywhere(bool truth, const View& condition, std::size_t count)
{
    const std::size_t length = condition.isScalar ? 1 : count;
    return std::all_of(condition.data, condition.data + length,
                       [&](double each) { return (each != 0.0) == truth; });
}

/// Both branches were worked out.
void chooseEach(const View& condition, const View& whenTrue, const View& whenFalse, double* out,
                std::size_t count)
{
    const double* const question = condition.data;
    const double* const yes = whenTrue.data;
    const double* const no = whenFalse.data;
    const auto choose = [&](auto answerTrue, auto answerFalse) {
        ZK_EACH_ALONE
        for (std::size_t i = 0; i < count; ++i) {
            const double right = answerTrue(i);
            const double wrong = answerFalse(i);
            out[i] = question[i] != 0.0 ? right : wrong;
        }
    };
    const auto ofNumber = [](double number) { return [number](std::size_t) { return number; }; };
    const auto ofLine = [](const double* line) {
        return [line](std::size_t i) { return line[i]; };
    };
    if (whenTrue.isScalar && whenFalse.isScalar) {
        choose(ofNumber(*yes), ofNumber(*no));
    } else if (whenTrue.isScalar) {
        choose(ofNumber(*yes), ofLine(no));
    } else if (whenFalse.isScalar) {
        choose(ofLine(yes), ofNumber(*no));
    } else {
        choose(ofLine(yes), ofLine(no));
    }
}

void choose(const View& condition, const View& whenTrue, const View& whenFalse, double* out,
            std::size_t count)
{
    if (isEverywhere(true, condition, count)) {
        whenTrue.copyTo(out, count);
    } else if (isEverywhere(false, condition, count)) {
        whenFalse.copyTo(out, count);
    } else {
        chooseEach(condition, whenTrue, whenFalse, out, count);
    }
}

void compute(const Instruction& step, const Block& block)
{
    const View a = viewOf(step.first, block);
    const View b = viewOf(step.second, block);
    double* const out = registerAt(step.target, block);
    const std::size_t count = block.count;
    switch (step.code) {
    case Instruction::callUnary:
        forEach(a, out, count, step.unary);
        break;
    case Instruction::negate:
        forEach(a, out, count, [](double x) { return -x; });
        break;
    case Instruction::absolute:
        forEach(a, out, count, [](double x) { return std::fabs(x); });
        break;
    case Instruction::squareRoot:
        forEach(a, out, count, [](double x) { return std::sqrt(x); });
        break;
    case Instruction::callBinary:
        forEach(a, b, out, count, step.binary);
        break;
    case Instruction::add:
        forEach(a, b, out, count, std::plus<>());
        break;
    case Instruction::subtract:
        forEach(a, b, out, count, std::minus<>());
        break;
    case Instruction::multiply:
        forEach(a, b, out, count, std::multiplies<>());
        break;
    case Instruction::divide:
        forEach(a, b, out, count, std::divides<>());
        break;
    case Instruction::less:
        forEach(a, b, out, count, [](double x, double y) { return x < y ? 1.0 : 0.0; });
        break;
    case Instruction::greater:
        forEach(a, b, out, count, [](double x, double y) { return x > y ? 1.0 : 0.0; });
        break;
    case Instruction::chooseLeaf:
        if (!a.isScalar) {
            chooseEach(a, b, viewOf(step.third, block), out, count);
            break;
        }
        [[fallthrough]];
    default:
        choose(a, b, viewOf(step.third, block), out, count);
        break;
    }
}

} // namespace

void SamplerExpression::View::copyTo(double* out, std::size_t count) const
{
    forEach(*this, out, count, [](double x) { return x; });
}

void SamplerExpression::View::addTo(double* out, std::size_t count) const
{
    forEach({out, false}, *this, out, count, std::plus<>());
}

SamplerExpression::SamplerExpression(std::vector<Instruction> instructions, const Operand& value,
                                     std::size_t registersNumber)
    : code(std::move(instructions))
    , last(value)
    , registers(registersNumber)
    , readsFrame(last.kind == Operand::frame)
{
    for (const Instruction& step : code) {
        for (const Operand* operand : {&step.first, &step.second, &step.third}) {
            readsFrame = readsFrame || operand->kind == Operand::frame;
        }
    }
}

SamplerExpression::View SamplerExpression::run(const Block& block) const
{
    for (std::size_t next = 0; next < code.size(); ++next) {
        const Instruction& step = code[next];
        if (step.code == Instruction::skipIfAll || step.code == Instruction::skipIfNone) {
            const bool truth = step.code == Instruction::skipIfAll;
            if (isEverywhere(truth, viewOf(step.first, block), block.count)) {
                next = step.target - 1;
            }
        } else {
            compute(step, block);
        }
    }
    return viewOf(last, block);
}
