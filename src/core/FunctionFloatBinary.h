#pragma once

#include "core/ExpressionOperand.h"

#include <memory>

struct BinaryOperation;

/// An operator between two operands, or a function of two arguments.
///
/// Sums such as a+b+c+... make chains of hundreds of thousands of nodes that lean to the left;
/// whoever walks one goes along its left spine in a loop, not by recursion.
class ZK_CURVE_CORE_EXPORT FunctionFloatBinary : public FunctionFloatBase
{
public:
    /// A node of the class that computes this operation quickest.
    static std::unique_ptr<FunctionFloatBinary> make(const BinaryOperation& binaryOperation,
                                                     std::unique_ptr<FunctionFloatBase> leftNode,
                                                     std::unique_ptr<FunctionFloatBase> rightNode);

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

protected:
    ExpressionOperand leftOperand;
    ExpressionOperand rightOperand;

private:
    const BinaryOperation* applied;             // of the language's tables
    FunctionFloatBinary* leftChain;             // the left operand if that is binary, else null
    const FunctionFloatBinary* spineEnd = this; // the lowest binary node of the left spine
    const FunctionFloatBinary* above = nullptr; // the binary node whose left operand this is
    int chainLength = 1;                        // binary nodes of the left spine from here down
};
