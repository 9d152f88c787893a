#pragma once

#include "core/FunctionFloatBase.h"

#include <memory>

struct BinaryOperation;

/// An operator between two operands, or a function of two arguments.
///
/// Sums such as a+b+c+... make chains of hundreds of thousands of nodes that lean to the left;
/// whoever walks one goes along its left spine in a loop, not by recursion.
class ZK_CURVE_CORE_EXPORT FunctionFloatBinary : public FunctionFloatBase
{
public:
    FunctionFloatBinary(const BinaryOperation& binaryOperation,
                        std::unique_ptr<FunctionFloatBase> leftNode,
                        std::unique_ptr<FunctionFloatBase> rightNode);
    FunctionFloatBinary(const FunctionFloatBinary&) = delete;
    FunctionFloatBinary& operator=(const FunctionFloatBinary&) = delete;
    ~FunctionFloatBinary() override;

    bool isBinary() const override;
    const FunctionFloatBinary* getBinaryRef() const override;
    double value() const override;

    /// Of the language's tables; each operation has one record.
    const BinaryOperation& operation() const;
    /// The operands are owned by this node.
    const FunctionFloatBase& left() const;
    const FunctionFloatBase& right() const;

private:
    const BinaryOperation* applied; // of the language's tables
    std::unique_ptr<FunctionFloatBase> leftTree;
    std::unique_ptr<FunctionFloatBase> rightTree;
    FunctionFloatBinary* leftChain;             // leftTree if that is binary, else null
    const FunctionFloatBinary* spineEnd = this; // the lowest binary node of the left spine
    const FunctionFloatBinary* above = nullptr; // the binary node whose left operand this is
};
