#include "core/FunctionFloatBinary.h"

#include "core/ExpressionTables.h"

#include <functional>
#include <utility>

namespace {

/// How many nodes of a left spine may be evaluated by recursion.
constexpr int longestRecursion = 16;

/// The commonest operators once more, for the compiler to take in: a call by pointer would cost
/// more than the arithmetic. `Compute` does what the table's function does.
template <typename Compute>
class QuickBinary final : public FunctionFloatBinary
{
public:
    using FunctionFloatBinary::FunctionFloatBinary;

    double value() const override
    {
        const double left = leftOperand.value();
        return Compute()(left, rightOperand.value());
    }
};

struct Less
{
    double operator()(double a, double b) const { return a < b ? 1.0 : 0.0; }
};

struct Greater
{
    double operator()(double a, double b) const { return a > b ? 1.0 : 0.0; }
};

} // namespace

std::unique_ptr<FunctionFloatBinary>
FunctionFloatBinary::make(const BinaryOperation& binaryOperation,
                          std::unique_ptr<FunctionFloatBase> leftNode,
                          std::unique_ptr<FunctionFloatBase> rightNode)
{
    const FunctionFloatBinary* chain = leftNode->getBinaryRef();
    const bool isLong = chain && chain->chainLength >= longestRecursion;
    switch (isLong ? '\0' : binaryOperation.name.front()) {
    case '+':
        return std::make_unique<QuickBinary<std::plus<>>>(binaryOperation, std::move(leftNode),
                                                          std::move(rightNode));
    case '-':
        return std::make_unique<QuickBinary<std::minus<>>>(binaryOperation, std::move(leftNode),
                                                           std::move(rightNode));
    case '*':
        return std::make_unique<QuickBinary<std::multiplies<>>>(
            binaryOperation, std::move(leftNode), std::move(rightNode));
    case '/':
        return std::make_unique<QuickBinary<std::divides<>>>(binaryOperation, std::move(leftNode),
                                                             std::move(rightNode));
    case '<':
        return std::make_unique<QuickBinary<Less>>(binaryOperation, std::move(leftNode),
                                                   std::move(rightNode));
    case '>':
        return std::make_unique<QuickBinary<Greater>>(binaryOperation, std::move(leftNode),
                                                      std::move(rightNode));
    default:
        return std::make_unique<FunctionFloatBinary>(binaryOperation, std::move(leftNode),
                                                     std::move(rightNode));
    }
}

FunctionFloatBinary::FunctionFloatBinary(const BinaryOperation& binaryOperation,
                                         std::unique_ptr<FunctionFloatBase> leftNode,
                                         std::unique_ptr<FunctionFloatBase> rightNode)
    : leftOperand(std::move(leftNode))
    , rightOperand(std::move(rightNode))
    , applied(&binaryOperation)
    , leftChain(const_cast<FunctionFloatBinary*>(leftOperand.node().getBinaryRef()))
{
    if (leftChain) {
        leftChain->above = this;
        spineEnd = leftChain->spineEnd;
        chainLength = leftChain->chainLength + 1;
    }
}

FunctionFloatBinary::~FunctionFloatBinary()
{
    // Each step frees one node whose left operand was taken off before.
    FunctionFloatBinary* next = leftChain;
    std::unique_ptr<FunctionFloatBase> chain = leftOperand.release();
    while (next) {
        FunctionFloatBinary* current = std::exchange(next, next->leftChain);
        current->leftChain = nullptr;
        chain = current->leftOperand.release();
    }
}

bool FunctionFloatBinary::isBinary() const
{
    return true;
}

const FunctionFloatBinary* FunctionFloatBinary::getBinaryRef() const
{
    return this;
}

double FunctionFloatBinary::value() const
{
    // From left to right, whatever the compiler does with arguments: variables may depend on it.
    const FunctionFloatBinary* node = spineEnd;
    const double first = node->leftOperand.value();
    double result = node->applied->compute(first, node->rightOperand.value());
    while (node != this) {
        node = node->above;
        result = node->applied->compute(result, node->rightOperand.value());
    }
    return result;
}

const BinaryOperation& FunctionFloatBinary::operation() const
{
    return *applied;
}

const FunctionFloatBase& FunctionFloatBinary::left() const
{
    return leftOperand.node();
}

const FunctionFloatBase& FunctionFloatBinary::right() const
{
    return rightOperand.node();
}
