#pragma once

#include "core/FunctionFloatBase.h"
#include "core/ParserKeyEntry.h"

#include <memory>
#include <utility>

/// An operand of a node of an expression tree. Most operands are numbers and variables, which are
/// read in place: a virtual call would cost more than the arithmetic around it.
class ExpressionOperand
{
public:
    /// The tree, which is not null, belongs to the operand.
    explicit ExpressionOperand(std::unique_ptr<FunctionFloatBase> operandTree);

    double value() const
    {
        switch (kind) {
        case number:
            return constant;
        case variable:
            return entry->read();
        default:
            return tree->value();
        }
    }

    const FunctionFloatBase& node() const { return *tree; }

    /// Hands the tree to the caller; the operand is of no use afterwards.
    std::unique_ptr<FunctionFloatBase> release() { return std::move(tree); }

private:
    enum operandKind : int
    {
        number,
        variable,
        other
    };

    std::unique_ptr<FunctionFloatBase> tree;
    operandKind kind = other;
    double constant = 0.0;           // of a number
    ParserKeyEntry* entry = nullptr; // of a variable; the tree shares in it
};
