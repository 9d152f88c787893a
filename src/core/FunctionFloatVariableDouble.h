#pragma once

#include "core/FunctionFloatVariable.h"

/// A variable that was of kind double when its expression was parsed.
class ZK_CURVE_CORE_EXPORT FunctionFloatVariableDouble : public FunctionFloatVariable
{
public:
    using FunctionFloatVariable::FunctionFloatVariable;
    ~FunctionFloatVariableDouble() override;

    bool isVariableDouble() const override;
    const FunctionFloatVariableDouble* getVariableDoubleRef() const override;
};
