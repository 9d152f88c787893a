#pragma once

#include "core/FunctionFloatBase.h"

struct NamedConstant;

/// A number, or a constant of the language such as "PI".
class ZK_CURVE_CORE_EXPORT FunctionFloatConstant : public FunctionFloatBase
{
public:
    explicit FunctionFloatConstant(const double& constantValue);
    explicit FunctionFloatConstant(const NamedConstant& constant);

    bool isConstant() const override;
    const FunctionFloatConstant* getConstantRef() const override;
    double value() const override;

    /// As expressions write it; empty for a plain number.
    std::string name() const;

private:
    double number;
    const NamedConstant* named = nullptr; // of the language's tables; null for a plain number
};
