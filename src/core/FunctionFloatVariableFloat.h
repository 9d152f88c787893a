#pragma once

#include "core/FunctionFloatVariable.h"

/// A variable that was of kind float when its expression was parsed.
class ZK_CURVE_CORE_EXPORT FunctionFloatVariableFloat : public FunctionFloatVariable
{
public:
    using FunctionFloatVariable::FunctionFloatVariable;
    ~FunctionFloatVariableFloat() override;

    bool isVariableFloat() const override;
    const FunctionFloatVariableFloat* getVariableFloatRef() const override;
};
