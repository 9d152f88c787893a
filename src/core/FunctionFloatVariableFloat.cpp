#include "core/FunctionFloatVariableFloat.h"

FunctionFloatVariableFloat::~FunctionFloatVariableFloat() = default;

bool FunctionFloatVariableFloat::isVariableFloat() const
{
    return true;
}

const FunctionFloatVariableFloat* FunctionFloatVariableFloat::getVariableFloatRef() const
{
    return this;
}
