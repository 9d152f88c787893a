#include "core/FunctionFloatBinary.h"

#include "core/ExpressionTables.h"

#include <utility>

FunctionFloatBinary::FunctionFloatBinary(const BinaryOperation& binaryOperation,
                                         std::unique_ptr<FunctionFloatBase> leftNode,
                                         std::unique_ptr<FunctionFloatBase> rightNode)
    : applied(&binaryOperation)
    , leftTree(std::move(leftNode))
    , rightTree(std::move(rightNode))
    , leftChain(dynamic_cast<FunctionFloatBinary*>(leftTree.get()))
{
    if (leftChain) {
        leftChain->above = this;
        spineEnd = leftChain->spineEnd;
    }
}

FunctionFloatBinary::~FunctionFloatBinary()
{
    // Each step frees one node whose left operand was taken off before.
    FunctionFloatBinary* next = leftChain;
    std::unique_ptr<FunctionFloatBase> chain = std::move(leftTree);
    while (next) {
        FunctionFloatBinary* current = std::exchange(next, next->leftChain);
        current->leftChain = nullptr;
        chain = std::move(current->leftTree);
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
    const FunctionFloatBinary* node = spineEnd;
    double result = node->applied->compute(node->leftTree->value(), node->rightTree->value());
    while (node != this) {
        node = node->above;
        result = node->applied->compute(result, node->rightTree->value());
    }
    return result;
}

const BinaryOperation& FunctionFloatBinary::operation() const
{
    return *applied;
}

const FunctionFloatBase& FunctionFloatBinary::left() const
{
    return *leftTree;
}

const FunctionFloatBase& FunctionFloatBinary::right() const
{
    return *rightTree;
}
