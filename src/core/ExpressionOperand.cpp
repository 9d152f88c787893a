#include "core/ExpressionOperand.h"

#include "core/FunctionFloatConstant.h"
#include "core/FunctionFloatVariable.h"

ExpressionOperand::ExpressionOperand(std::unique_ptr<FunctionFloatBase> operandTree)
    : tree(std::move(operandTree))
{
    if (const FunctionFloatConstant* leaf = tree->getConstantRef()) {
        kind = number;
        constant = leaf->value();
    } else if (const auto* read = dynamic_cast<const FunctionFloatVariable*>(tree.get())) {
        kind = variable;
        entry = &read->sharedEntry();
    }
}
