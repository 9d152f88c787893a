#pragma once

#include "core/FunctionFloatVariable.h"

/// A variable that was of kind bool when its expression was parsed.
class ZK_CURVE_CORE_EXPORT FunctionFloatVariableBool : public FunctionFloatVariable
{
public:
    using FunctionFloatVariable::FunctionFloatVariable;
    ~FunctionFloatVariableBool() override;

    bool isVariableBool() const override;
    const FunctionFloatVariableBool* getVariableBoolRef() const override;
};
