#pragma once

#include "core/ExpressionOperand.h"

#include <memory>

struct UnaryOperation;

/// A function of one argument, or a minus sign before its argument.
class ZK_CURVE_CORE_EXPORT FunctionFloatUnary : public FunctionFloatBase
{
public:
    FunctionFloatUnary(const UnaryOperation& unaryOperation,
                       std::unique_ptr<FunctionFloatBase> argumentNode);
    ~FunctionFloatUnary() override;

    bool isUnary() const override;
    const FunctionFloatUnary* getUnaryRef() const override;
    double value() const override;

    /// Of the language's tables; each operation has one record.
    const UnaryOperation& operation() const;
    /// Owned by this node.
    const FunctionFloatBase& argument() const;

private:
    const UnaryOperation* applied; // of the language's tables
    double (*compute)(double);     // what it applies; null for the sign, which needs no call
    ExpressionOperand operand;
};
