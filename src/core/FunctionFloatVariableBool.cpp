#include "core/FunctionFloatVariableBool.h"

FunctionFloatVariableBool::~FunctionFloatVariableBool() = default;

bool FunctionFloatVariableBool::isVariableBool() const
{
    return true;
}

const FunctionFloatVariableBool* FunctionFloatVariableBool::getVariableBoolRef() const
{
    return this;
}
