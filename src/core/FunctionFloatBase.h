#pragma once

#include "zk_curve_core_export.h"

#include <string>

class FunctionFloatUnary;
class FunctionFloatBinary;
class FunctionFloatTernary;
class FunctionFloatConstant;
class FunctionFloatVariableBool;
class FunctionFloatVariableInt;
class FunctionFloatVariableFloat;
class FunctionFloatVariableDouble;

/// A node of an expression tree.
///
///     ParseMessage message;
///     FunctionFloatBase* wave =
///         FunctionParserBase::instance()->parseString("sin(t)", message, false);
///     const double height = wave->value();
///     delete wave;
///
/// A tree is owned by one pointer to its root: deleting the root frees all of it. It is never
/// changed after it was parsed; a second tree is made by parsing its text again.
class ZK_CURVE_CORE_EXPORT FunctionFloatBase
{
public:
    FunctionFloatBase();
    FunctionFloatBase(const FunctionFloatBase& other);
    FunctionFloatBase& operator=(const FunctionFloatBase& other);
    virtual ~FunctionFloatBase();

    virtual bool isUnary() const;
    virtual bool isBinary() const;
    virtual bool isTernary() const;
    virtual bool isConstant() const;
    virtual bool isVariableBool() const;
    virtual bool isVariableInt() const;
    virtual bool isVariableFloat() const;
    virtual bool isVariableDouble() const;

    /// The node as its own class; null where it is of another kind.
    virtual const FunctionFloatUnary* getUnaryRef() const;
    virtual const FunctionFloatBinary* getBinaryRef() const;
    virtual const FunctionFloatTernary* getTernaryRef() const;
    virtual const FunctionFloatConstant* getConstantRef() const;
    virtual const FunctionFloatVariableBool* getVariableBoolRef() const;
    virtual const FunctionFloatVariableInt* getVariableIntRef() const;
    virtual const FunctionFloatVariableFloat* getVariableFloatRef() const;
    virtual const FunctionFloatVariableDouble* getVariableDoubleRef() const;

    /// The value at the present contents of the variables.
    virtual double value() const = 0;

    /// Canonical text without blanks, which the parser reads back into the same tree.
    virtual std::string getString() const;

private:
    friend class FunctionParserBase;

    // Kept at the root of a tree; empty in the nodes below, whose text is made when asked for.
    std::string text;
};
