#include "core/FunctionFloatVariableInt.h"

FunctionFloatVariableInt::~FunctionFloatVariableInt() = default;

bool FunctionFloatVariableInt::isVariableInt() const
{
    return true;
}

const FunctionFloatVariableInt* FunctionFloatVariableInt::getVariableIntRef() const
{
    return this;
}
