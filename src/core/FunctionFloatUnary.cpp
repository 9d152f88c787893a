#include "core/FunctionFloatUnary.h"

#include "core/ExpressionTables.h"

#include <utility>

FunctionFloatUnary::FunctionFloatUnary(const UnaryOperation& unaryOperation,
                                       std::unique_ptr<FunctionFloatBase> argumentNode)
    : applied(&unaryOperation)
    , argumentTree(std::move(argumentNode))
{}

FunctionFloatUnary::~FunctionFloatUnary() = default;

bool FunctionFloatUnary::isUnary() const
{
    return true;
}

const FunctionFloatUnary* FunctionFloatUnary::getUnaryRef() const
{
    return this;
}

double FunctionFloatUnary::value() const
{
    return applied->compute(argumentTree->value());
}

const UnaryOperation& FunctionFloatUnary::operation() const
{
    return *applied;
}

const FunctionFloatBase& FunctionFloatUnary::argument() const
{
    return *argumentTree;
}
