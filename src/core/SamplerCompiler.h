#pragma once

#include "core/SamplerExpression.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

class FunctionFloatBase;

/// Makes the instructions of an expression tree. Of two operands the one that takes more registers
/// is worked out first, so that a tree of a million nodes takes but a few.
class SamplerCompiler
{
public:
    using Instruction = SamplerExpression::Instruction;
    using Operand = SamplerExpression::Operand;

    /// What a variable of the expression is, by its name; asked at each mention, as they stand in
    /// the text.
    using LookUp = std::function<Operand(const std::string&)>;

    explicit SamplerCompiler(LookUp variableLookUp);

    /// Null for a tree with nodes that are none of this library's. The tree is only read. For use
    /// once.
    std::unique_ptr<const SamplerExpression> compile(const FunctionFloatBase& tree);

private:
    /// A node of the tree; its operands stand before it in the list.
    struct Node
    {
        const FunctionFloatBase* tree;
        std::uint32_t operands[3];
        std::uint32_t operandsNumber; // 0 for a leaf, else 1 to 3
        std::uint32_t registers;      // that it takes to work it out; 0 for a leaf
    };

    struct Task
    {
        enum taskKind : int
        {
            evaluate,   // into the register `base`, with those behind it for the parts
            write,      // the node's own instruction
            skipIfAll,  // a jump over what comes until `land`, by the condition of the node
            skipIfNone, //
            land,
        };

        taskKind kind;
        std::uint32_t node;
        std::uint32_t base;
    };

    bool readNodes(const FunctionFloatBase& tree);
    bool readLeaf(const FunctionFloatBase& node);
    void readInner(const FunctionFloatBase& node, std::uint32_t operandsNumber);
    std::uint32_t registersOf(const Node& node) const;

    void perform(const Task& task);
    void evaluateOperands(const Task& task);
    void evaluateChoice(const Task& task);
    void writeInstruction(const Task& task);
    bool isTruthItself(const Node& node) const;
    void writeSkip(const Task& task);

    LookUp lookUp;
    std::vector<Node> nodes;
    std::vector<std::uint32_t> waiting; // nodes that no other one has taken as an operand yet
    std::vector<Operand> places;        // of the nodes' values; known for leaves from the start
    std::vector<Task> tasks;            // what is still to be written, last in, first out
    std::vector<std::size_t> jumps;     // instructions that wait to hear where they lead
    std::vector<Instruction> code;
};
