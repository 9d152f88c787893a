#include "core/FunctionFloatConstant.h"

#include "core/ExpressionTables.h"

FunctionFloatConstant::FunctionFloatConstant(const double& constantValue)
    : number(constantValue)
{}

FunctionFloatConstant::FunctionFloatConstant(const NamedConstant& constant)
    : number(constant.value)
    , named(&constant)
{}

bool FunctionFloatConstant::isConstant() const
{
    return true;
}

const FunctionFloatConstant* FunctionFloatConstant::getConstantRef() const
{
    return this;
}

double FunctionFloatConstant::value() const
{
    return number;
}

std::string FunctionFloatConstant::name() const
{
    return named ? std::string(named->name) : std::string();
}
