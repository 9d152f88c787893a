#include "core/ExpressionTables.h"

#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>

namespace {

double truth(bool holds)
{
    return holds ? 1.0 : 0.0;
}

// A number in [0, 1) made from the bits of x by the finaliser of SplitMix64 (Steele, Lea, Flood,
// "Fast Splittable Pseudorandom Number Generators", 2014). The same x gives the same number, so
// that repainting a curve does not change it.
double repeatableRandom(double x)
{
    const double unified = std::isnan(x) ? std::numeric_limits<double>::quiet_NaN() : x + 0.0;
    std::uint64_t bits = 0;
    std::memcpy(&bits, &unified, sizeof bits);
    bits += 0x9e3779b97f4a7c15U;
    bits = (bits ^ (bits >> 30U)) * 0xbf58476d1ce4e5b9U;
    bits = (bits ^ (bits >> 27U)) * 0x94d049bb133111ebU;
    bits ^= bits >> 31U;
    return static_cast<double>(bits >> 11U) * 0x1p-53;
}

// Not a number passes through from either side.
double smaller(double a, double b)
{
    return (a < b || std::isnan(a)) ? a : b;
}

double greater(double a, double b)
{
    return (a > b || std::isnan(a)) ? a : b;
}

// The C library's own functions, so that a node calls them without a step between.
constexpr UnaryOperation unaryFunctions[] = {
    {"cos", ::cos},
    {"sin", ::sin},
    {"tan", ::tan},
    {"exp", ::exp},
    {"log", ::log},
    {"log10", ::log10},
    {"rnd", repeatableRandom},
    {"abs", ::fabs},
    {"sqrt", ::sqrt},
    {"acos", ::acos},
    {"asin", ::asin},
    {"atan", ::atan},
    {"cosh", ::cosh},
    {"sinh", ::sinh},
    {"tanh", ::tanh},
    {"ceil", ::ceil},
    {"floor", ::floor},
    // std::cyl_bessel_j throws on negative arguments; this and j1 take any.
    {"j0", ::j0},
    {"logj1", [](double x) { return std::log(std::fabs(::j1(x))); }},
    {"not", [](double x) { return truth(x == 0.0); }},
};

constexpr UnaryOperation minusSign = {"-", [](double x) { return -x; }};

constexpr BinaryOperation binaryOperations[] = {
    {"|", 1, [](double a, double b) { return truth(a != 0.0 || b != 0.0); }},
    {"&", 2, [](double a, double b) { return truth(a != 0.0 && b != 0.0); }},
    {"=", 3, [](double a, double b) { return truth(a == b); }},
    {"<", 3, [](double a, double b) { return truth(a < b); }},
    {">", 3, [](double a, double b) { return truth(a > b); }},
    {"+", 4, [](double a, double b) { return a + b; }},
    {"-", 4, [](double a, double b) { return a - b; }},
    {"*", 5, [](double a, double b) { return a * b; }},
    {"/", 5, [](double a, double b) { return a / b; }},
    {"^", expression_level::power, [](double a, double b) { return std::pow(a, b); }},
    {"min", expression_level::primary, smaller},
    {"max", expression_level::primary, greater},
};

constexpr NamedConstant constants[] = {
    {"PI", 3.14159265358979323846},
    {"e", 2.71828182845904523536},
    {"EPSILON", std::numeric_limits<double>::epsilon()},
};

template <typename Record, std::size_t size>
const Record* find(const Record (&records)[size], std::string_view name)
{
    for (const Record& record : records) {
        if (record.name == name) {
            return &record;
        }
    }
    return nullptr;
}

} // namespace

bool BinaryOperation::isFunction() const
{
    return level == expression_level::primary;
}

namespace expression_tables {

const UnaryOperation* unaryFunction(std::string_view name)
{
    return find(unaryFunctions, name);
}

const UnaryOperation& negation()
{
    return minusSign;
}

const BinaryOperation* binaryFunction(std::string_view name)
{
    const BinaryOperation* operation = find(binaryOperations, name);
    return operation && operation->isFunction() ? operation : nullptr;
}

const BinaryOperation* binaryOperator(char symbol)
{
    return find(binaryOperations, std::string_view(&symbol, 1));
}

const NamedConstant* constant(std::string_view name)
{
    return find(constants, name);
}

bool isFunction(std::string_view name)
{
    return unaryFunction(name) || binaryFunction(name) || name == ternaryFunction;
}

} // namespace expression_tables
