#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

/// An expression as a list of instructions, each of which works off a whole block of times. It
/// never changes, and holds nothing of the tree it was made from.
///
/// What it gives is that of the tree to the bit. The branches of an "if" are worked out for all
/// times of a block as soon as one of them takes the branch.
class SamplerExpression
{
public:
    /// One number for each time of a block, or one number for all.
    struct View
    {
        const double* data = nullptr;
        bool isScalar = false;

        void copyTo(double* out, std::size_t count) const;
        void addTo(double* out, std::size_t count) const;
    };

    /// What a run works on. A line holds a number for each time, and lies `stride` behind the one
    /// before it.
    struct Block
    {
        std::size_t count; ///< of times
        std::size_t stride;
        const double* times;             ///< seconds
        const double* frames;            ///< needed if usesFrame()
        const double* fps;               ///< one number
        const double* inputLines;        ///< the values of what expressions name
        const std::int32_t* inputPlaces; ///< which line each input is; reads 0 where negative
        double* registers;               ///< room for registersNumber() lines
        double* firstRegister;           ///< what stands for the first of these lines
    };

    /// Where an instruction takes a number from.
    struct Operand
    {
        enum operandKind : std::uint8_t
        {
            number,
            seconds,
            frame,
            rate,
            input,
            result, ///< of an earlier instruction
        };

        operandKind kind = number;
        std::uint32_t index = 0; ///< of an input, or of the register of a result
        double value = 0.0;      ///< of a number
    };

    struct Instruction
    {
        enum operation : std::uint8_t
        {
            callUnary,
            negate,
            absolute,
            squareRoot,
            callBinary,
            add,
            subtract,
            multiply,
            divide,
            less,
            greater,
            chooseLeaf, ///< first is the condition; both branches are there
            choose,     ///< the same; a branch that no time takes was skipped
            skipIfAll,  ///< goes on at instruction `target` where the condition is never 0
            skipIfNone, ///< the same where it is 0 at all times of the block
        };

        operation code = callUnary;
        Operand first;
        Operand second;
        Operand third;
        std::uint32_t target = 0; ///< the register that is written; where a skip leads
        double (*unary)(double) = nullptr;
        double (*binary)(double, double) = nullptr;
    };

    /// Of the instructions in their order, the operand that holds the value in the end, and the
    /// number of registers that they use.
    SamplerExpression(std::vector<Instruction> instructions, const Operand& value,
                      std::size_t registersNumber);

    std::size_t registersNumber() const { return registers; }
    bool usesFrame() const { return readsFrame; }

    /// The values of the block; they stay where the view points until the block's registers are
    /// written again.
    View run(const Block& block) const;

private:
    std::vector<Instruction> code;
    Operand last;
    std::size_t registers;
    bool readsFrame = false;
};
