#include "core/FunctionFloatUnary.h"

#include "core/ExpressionTables.h"

#include <utility>

FunctionFloatUnary::FunctionFloatUnary(const UnaryOperation& unaryOperation,
                                       std::unique_ptr<FunctionFloatBase> argumentNode)
    : applied(&unaryOperation)
    , compute(&unaryOperation == &expression_tables::negation() ? nullptr : unaryOperation.compute)
    , operand(std::move(argumentNode))
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
    const double argument = operand.value();
    return compute ? compute(argument) : -argument;
}

const UnaryOperation& FunctionFloatUnary::operation() const
{
    return *applied;
}

const FunctionFloatBase& FunctionFloatUnary::argument() const
{
    return operand.node();
}
