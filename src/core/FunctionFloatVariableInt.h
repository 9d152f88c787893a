#pragma once

#include "core/FunctionFloatVariable.h"

/// A variable that was of kind int when its expression was parsed.
class ZK_CURVE_CORE_EXPORT FunctionFloatVariableInt : public FunctionFloatVariable
{
public:
    using FunctionFloatVariable::FunctionFloatVariable;
    ~FunctionFloatVariableInt() override;

    bool isVariableInt() const override;
    const FunctionFloatVariableInt* getVariableIntRef() const override;
};
