#include "core/FunctionFloatTernary.h"

#include <utility>

FunctionFloatTernary::FunctionFloatTernary(std::unique_ptr<FunctionFloatBase> conditionNode,
                                           std::unique_ptr<FunctionFloatBase> trueNode,
                                           std::unique_ptr<FunctionFloatBase> falseNode)
    : conditionTree(std::move(conditionNode))
    , trueTree(std::move(trueNode))
    , falseTree(std::move(falseNode))
{}

FunctionFloatTernary::~FunctionFloatTernary() = default;

bool FunctionFloatTernary::isTernary() const
{
    return true;
}

const FunctionFloatTernary* FunctionFloatTernary::getTernaryRef() const
{
    return this;
}

double FunctionFloatTernary::value() const
{
    return conditionTree->value() != 0.0 ? trueTree->value() : falseTree->value();
}

const FunctionFloatBase& FunctionFloatTernary::condition() const
{
    return *conditionTree;
}

const FunctionFloatBase& FunctionFloatTernary::whenTrue() const
{
    return *trueTree;
}

const FunctionFloatBase& FunctionFloatTernary::whenFalse() const
{
    return *falseTree;
}
