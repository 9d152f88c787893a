#pragma once

#include <string_view>

/// Binding of operators in the grammar: the higher binds the tighter.
namespace expression_level {
inline constexpr int loosest = 1;
inline constexpr int sign = 6;
inline constexpr int power = 7;
inline constexpr int primary = 8; ///< numbers, names, function calls
} // namespace expression_level

/// A function of one argument, or the sign "-".
struct UnaryOperation
{
    std::string_view name;
    double (*compute)(double);
};

/// An operator, with the level at which it binds, or a function of two arguments at level primary.
struct BinaryOperation
{
    std::string_view name;
    int level;
    double (*compute)(double, double);

    bool isFunction() const;
};

struct NamedConstant
{
    std::string_view name;
    double value;
};

/// The vocabulary of the expression language. Names count exactly as spelt; an unknown one gives
/// null. The records live as long as the process.
namespace expression_tables {
const UnaryOperation* unaryFunction(std::string_view name);
const UnaryOperation& negation();
const BinaryOperation* binaryFunction(std::string_view name);
const BinaryOperation* binaryOperator(char symbol);
const NamedConstant* constant(std::string_view name);
inline constexpr std::string_view ternaryFunction = "if";
bool isFunction(std::string_view name);
} // namespace expression_tables
