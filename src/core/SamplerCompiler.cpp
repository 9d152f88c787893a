#include "core/SamplerCompiler.h"

#include "core/ExpressionTables.h"
#include "core/FunctionFloatBinary.h"
#include "core/FunctionFloatConstant.h"
#include "core/FunctionFloatTernary.h"
#include "core/FunctionFloatUnary.h"
#include "core/FunctionFloatVariable.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

namespace {

using Instruction = SamplerExpression::Instruction;

Instruction instructionOf(const UnaryOperation& operation)
{
    Instruction instruction;
    instruction.unary = operation.compute;
    if (&operation == &expression_tables::negation()) {
        instruction.code = Instruction::negate;
    } else if (operation.name == "abs") {
        instruction.code = Instruction::absolute;
    } else if (operation.name == "sqrt") {
        instruction.code = Instruction::squareRoot;
    }
    return instruction;
}

Instruction instructionOf(const BinaryOperation& operation)
{
    constexpr struct
    {
        std::string_view name;
        Instruction::operation code;
    } quick[] = {{"+", Instruction::add},      {"-", Instruction::subtract},
                 {"*", Instruction::multiply}, {"/", Instruction::divide},
                 {"<", Instruction::less},     {">", Instruction::greater}};
    Instruction instruction;
    instruction.code = Instruction::callBinary;
    instruction.binary = operation.compute;
    for (const auto& each : quick) {
        if (each.name == operation.name) {
            instruction.code = each.code;
        }
    }
    return instruction;
}

bool isComparison(Instruction::operation code)
{
    return code == Instruction::less || code == Instruction::greater;
}

bool isNumber(const SamplerExpression::Operand& operand, double number)
{
    return operand.kind == SamplerExpression::Operand::number && operand.value == number &&
           !std::signbit(operand.value);
}

} // namespace

SamplerCompiler::SamplerCompiler(LookUp variableLookUp)
    : lookUp(std::move(variableLookUp))
{}

std::unique_ptr<const SamplerExpression> SamplerCompiler::compile(const FunctionFloatBase& tree)
{
    if (!readNodes(tree)) {
        return nullptr;
    }
    const std::uint32_t root = waiting.back();
    tasks.push_back({Task::evaluate, root, 0});
    while (!tasks.empty()) {
        const Task task = tasks.back();
        tasks.pop_back();
        perform(task);
    }
    return std::make_unique<SamplerExpression>(std::move(code), places[root],
                                               nodes[root].registers);
}

/// Operands before the node that takes them, without recursion: long sums are deeper than a stack.
bool SamplerCompiler::readNodes(const FunctionFloatBase& tree)
{
    struct Step
    {
        const FunctionFloatBase* node;
        std::uint32_t operandsRead; // 0: none was asked for yet
    };
    std::vector<Step> coming = {{&tree, 0}};
    while (!coming.empty()) {
        const auto [node, operandsRead] = coming.back();
        coming.pop_back();
        if (operandsRead > 0) {
            readInner(*node, operandsRead);
        } else if (const FunctionFloatUnary* unary = node->getUnaryRef()) {
            coming.insert(coming.end(), {{node, 1}, {&unary->argument(), 0}});
        } else if (const FunctionFloatBinary* binary = node->getBinaryRef()) {
            coming.insert(coming.end(), {{node, 2}, {&binary->right(), 0}, {&binary->left(), 0}});
        } else if (const FunctionFloatTernary* choice = node->getTernaryRef()) {
            coming.insert(coming.end(), {{node, 3},
                                         {&choice->whenFalse(), 0},
                                         {&choice->whenTrue(), 0},
                                         {&choice->condition(), 0}});
        } else if (!readLeaf(*node)) {
            return false;
        }
    }
    return true;
}

bool SamplerCompiler::readLeaf(const FunctionFloatBase& node)
{
    Operand place;
    if (const FunctionFloatConstant* constant = node.getConstantRef()) {
        place.value = constant->value();
    } else if (const auto* variable = dynamic_cast<const FunctionFloatVariable*>(&node)) {
        place = lookUp(variable->name());
    } else {
        return false;
    }
    waiting.push_back(static_cast<std::uint32_t>(nodes.size()));
    nodes.push_back({&node, {}, 0, 0});
    places.push_back(place);
    return true;
}

void SamplerCompiler::readInner(const FunctionFloatBase& node, std::uint32_t operandsNumber)
{
    Node inner = {&node, {}, operandsNumber, 0};
    const std::size_t first = waiting.size() - operandsNumber;
    std::copy(waiting.begin() + static_cast<std::ptrdiff_t>(first), waiting.end(), inner.operands);
    waiting.resize(first);
    inner.registers = registersOf(inner);
    waiting.push_back(static_cast<std::uint32_t>(nodes.size()));
    nodes.push_back(inner);
    places.push_back({});
}

/// Two values that are worked out both take a register; where only one is, none is kept meanwhile.
std::uint32_t SamplerCompiler::registersOf(const Node& node) const
{
    std::uint32_t count[3] = {};
    for (std::uint32_t i = 0; i < node.operandsNumber; ++i) {
        count[i] = nodes[node.operands[i]].registers;
    }
    const auto ofPair = [](std::uint32_t a, std::uint32_t b) {
        const std::uint32_t lighter = std::min(a, b);
        return std::max(std::max(a, b), lighter == 0 ? 0 : lighter + 1);
    };
    if (node.operandsNumber < 3) {
        return std::max(1U, ofPair(count[0], count[1]));
    }
    const std::uint32_t ofBranches = ofPair(count[1], count[2]);
    const std::uint32_t kept = count[0] == 0 ? 0 : 1; // the condition's
    return std::max({1U, count[0], kept + ofBranches});
}

void SamplerCompiler::perform(const Task& task)
{
    switch (task.kind) {
    case Task::evaluate:
        if (nodes[task.node].operandsNumber == 3) {
            evaluateChoice(task);
        } else if (nodes[task.node].operandsNumber > 0) {
            evaluateOperands(task);
        }
        break;
    case Task::write:
        writeInstruction(task);
        break;
    case Task::land:
        code[jumps.back()].target = static_cast<std::uint32_t>(code.size());
        jumps.pop_back();
        break;
    default:
        writeSkip(task);
        break;
    }
}

void SamplerCompiler::evaluateOperands(const Task& task)
{
    const Node& node = nodes[task.node];
    std::uint32_t heavier = node.operands[0];
    std::uint32_t lighter = node.operands[node.operandsNumber - 1];
    if (nodes[heavier].registers < nodes[lighter].registers) {
        std::swap(heavier, lighter);
    }
    tasks.push_back({Task::write, task.node, task.base});
    if (lighter != heavier) {
        tasks.push_back({Task::evaluate, lighter, task.base + 1});
    }
    tasks.push_back({Task::evaluate, heavier, task.base});
}

/// The condition, then each branch that is more than a leaf, with a jump around it.
void SamplerCompiler::evaluateChoice(const Task& task)
{
    const Node& node = nodes[task.node];
    const std::uint32_t base = task.base + (nodes[node.operands[0]].registers == 0 ? 0 : 1);
    const bool isTrueHeavier =
        nodes[node.operands[1]].registers >= nodes[node.operands[2]].registers;
    tasks.push_back({Task::write, task.node, task.base});
    const auto pushBranch = [&](bool isTrue, std::uint32_t branchBase) {
        const std::uint32_t branch = node.operands[isTrue ? 1 : 2];
        if (nodes[branch].registers > 0) {
            tasks.push_back({Task::land, task.node, 0});
            tasks.push_back({Task::evaluate, branch, branchBase});
            tasks.push_back({isTrue ? Task::skipIfNone : Task::skipIfAll, task.node, 0});
        }
    };
    pushBranch(!isTrueHeavier, base + 1);
    pushBranch(isTrueHeavier, base);
    tasks.push_back({Task::evaluate, node.operands[0], task.base});
}

void SamplerCompiler::writeInstruction(const Task& task)
{
    const Node& node = nodes[task.node];
    if (isTruthItself(node)) {
        places[task.node] = places[node.operands[0]];
        return;
    }
    Instruction instruction;
    if (const FunctionFloatUnary* unary = node.tree->getUnaryRef()) {
        instruction = instructionOf(unary->operation());
    } else if (const FunctionFloatBinary* binary = node.tree->getBinaryRef()) {
        instruction = instructionOf(binary->operation());
    } else {
        const bool areLeaves =
            nodes[node.operands[1]].registers == 0 && nodes[node.operands[2]].registers == 0;
        instruction.code = areLeaves ? Instruction::chooseLeaf : Instruction::choose;
    }
    Operand* const operands[3] = {&instruction.first, &instruction.second, &instruction.third};
    const auto count = std::min<std::size_t>(node.operandsNumber, std::size(operands));
    for (std::size_t i = 0; i < count; ++i) {
        *operands[i] = places[node.operands[i]];
    }
    instruction.target = task.base;
    code.push_back(instruction);
    places[task.node].kind = Operand::result;
    places[task.node].index = task.base;
}

/// "if(a>b, 1, 0)": what the comparison gives already.
bool SamplerCompiler::isTruthItself(const Node& node) const
{
    if (node.operandsNumber != 3) {
        return false;
    }
    const Operand& condition = places[node.operands[0]];
    const Operand& whenTrue = places[node.operands[1]];
    const Operand& whenFalse = places[node.operands[2]];
    return condition.kind == Operand::result && isComparison(code.back().code) &&
           isNumber(whenTrue, 1.0) && isNumber(whenFalse, 0.0);
}

void SamplerCompiler::writeSkip(const Task& task)
{
    Instruction instruction;
    instruction.code =
        task.kind == Task::skipIfAll ? Instruction::skipIfAll : Instruction::skipIfNone;
    instruction.first = places[nodes[task.node].operands[0]];
    jumps.push_back(code.size());
    code.push_back(instruction);
}
