#include "core/FunctionFloatVariableDouble.h"

FunctionFloatVariableDouble::~FunctionFloatVariableDouble() = default;

bool FunctionFloatVariableDouble::isVariableDouble() const
{
    return true;
}

const FunctionFloatVariableDouble* FunctionFloatVariableDouble::getVariableDoubleRef() const
{
    return this;
}
