#pragma once

#include <string>
#include <string_view>

class FunctionFloatBase;
class FunctionFloatBinary;
class FunctionFloatConstant;

/// Writes an expression tree as canonical text: no blanks, parentheses and the quotes of names
/// only where the tree would read back as another one without them.
class ExpressionPrinter
{
public:
    std::string print(const FunctionFloatBase& root);

private:
    void write(const FunctionFloatBase& node);
    void writeWithin(const FunctionFloatBase& node, const int& loosestAllowed);
    void writeCall(std::string_view name, const FunctionFloatBase& first,
                   const FunctionFloatBase* second = nullptr,
                   const FunctionFloatBase* third = nullptr);
    void writeOperators(const FunctionFloatBinary& top);
    void writeConstant(const FunctionFloatConstant& constant);

    std::string text;
};
