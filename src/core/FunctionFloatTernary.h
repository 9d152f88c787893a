#pragma once

#include "core/ExpressionOperand.h"

#include <memory>

/// if(condition, whenTrue, whenFalse). Only the branch taken is evaluated; any condition but 0
/// takes the first one.
class ZK_CURVE_CORE_EXPORT FunctionFloatTernary : public FunctionFloatBase
{
public:
    FunctionFloatTernary(std::unique_ptr<FunctionFloatBase> conditionNode,
                         std::unique_ptr<FunctionFloatBase> trueNode,
                         std::unique_ptr<FunctionFloatBase> falseNode);
    ~FunctionFloatTernary() override;

    bool isTernary() const override;
    const FunctionFloatTernary* getTernaryRef() const override;
    double value() const override;

    /// The three are owned by this node.
    const FunctionFloatBase& condition() const;
    const FunctionFloatBase& whenTrue() const;
    const FunctionFloatBase& whenFalse() const;

private:
    ExpressionOperand question;
    ExpressionOperand answerTrue;
    ExpressionOperand answerFalse;
};
