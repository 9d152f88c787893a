#include "core/FunctionFloatBase.h"

#include "core/ExpressionPrinter.h"

FunctionFloatBase::FunctionFloatBase() = default;

FunctionFloatBase::FunctionFloatBase(const FunctionFloatBase& other) = default;

FunctionFloatBase& FunctionFloatBase::operator=(const FunctionFloatBase& other) = default;

FunctionFloatBase::~FunctionFloatBase() = default;

bool FunctionFloatBase::isUnary() const
{
    return false;
}

bool FunctionFloatBase::isBinary() const
{
    return false;
}

bool FunctionFloatBase::isTernary() const
{
    return false;
}

bool FunctionFloatBase::isConstant() const
{
    return false;
}

bool FunctionFloatBase::isVariableBool() const
{
    return false;
}

bool FunctionFloatBase::isVariableInt() const
{
    return false;
}

bool FunctionFloatBase::isVariableFloat() const
{
    return false;
}

bool FunctionFloatBase::isVariableDouble() const
{
    return false;
}

const FunctionFloatUnary* FunctionFloatBase::getUnaryRef() const
{
    return nullptr;
}

const FunctionFloatBinary* FunctionFloatBase::getBinaryRef() const
{
    return nullptr;
}

const FunctionFloatTernary* FunctionFloatBase::getTernaryRef() const
{
    return nullptr;
}

const FunctionFloatConstant* FunctionFloatBase::getConstantRef() const
{
    return nullptr;
}

const FunctionFloatVariableBool* FunctionFloatBase::getVariableBoolRef() const
{
    return nullptr;
}

const FunctionFloatVariableInt* FunctionFloatBase::getVariableIntRef() const
{
    return nullptr;
}

const FunctionFloatVariableFloat* FunctionFloatBase::getVariableFloatRef() const
{
    return nullptr;
}

const FunctionFloatVariableDouble* FunctionFloatBase::getVariableDoubleRef() const
{
    return nullptr;
}

std::string FunctionFloatBase::getString() const
{
    return text.empty() ? ExpressionPrinter().print(*this) : text;
}
