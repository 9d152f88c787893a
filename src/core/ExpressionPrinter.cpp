#include "core/ExpressionPrinter.h"

#include "core/ExpressionName.h"
#include "core/ExpressionTables.h"
#include "core/FunctionFloatBinary.h"
#include "core/FunctionFloatConstant.h"
#include "core/FunctionFloatTernary.h"
#include "core/FunctionFloatUnary.h"
#include "core/FunctionFloatVariable.h"

#include <charconv>
#include <utility>
#include <vector>

namespace {

bool isSign(const UnaryOperation& operation)
{
    return &operation == &expression_tables::negation();
}

// The level at which the text of a node binds.
int levelOf(const FunctionFloatBase& node)
{
    if (const FunctionFloatBinary* binary = node.getBinaryRef()) {
        return binary->operation().level;
    }
    if (const FunctionFloatUnary* unary = node.getUnaryRef()) {
        return isSign(unary->operation()) ? expression_level::sign : expression_level::primary;
    }
    return expression_level::primary;
}

// Operators group to the left, but for the power, which groups to the right and bears a sign there.
int loosestLeftOf(const BinaryOperation& operation)
{
    return operation.level == expression_level::power ? expression_level::primary : operation.level;
}

int loosestRightOf(const BinaryOperation& operation)
{
    return operation.level == expression_level::power ? expression_level::sign
                                                      : operation.level + 1;
}

} // namespace

std::string ExpressionPrinter::print(const FunctionFloatBase& root)
{
    text.clear();
    write(root);
    return std::move(text);
}

void ExpressionPrinter::write(const FunctionFloatBase& node)
{
    if (const FunctionFloatBinary* binary = node.getBinaryRef()) {
        if (binary->operation().isFunction()) {
            writeCall(binary->operation().name, binary->left(), &binary->right());
        } else {
            writeOperators(*binary);
        }
    } else if (const FunctionFloatUnary* unary = node.getUnaryRef()) {
        if (isSign(unary->operation())) {
            text += unary->operation().name;
            writeWithin(unary->argument(), expression_level::sign);
        } else {
            writeCall(unary->operation().name, unary->argument());
        }
    } else if (const FunctionFloatTernary* choice = node.getTernaryRef()) {
        writeCall(expression_tables::ternaryFunction, choice->condition(), &choice->whenTrue(),
                  &choice->whenFalse());
    } else if (const FunctionFloatConstant* constant = node.getConstantRef()) {
        writeConstant(*constant);
    } else if (const auto* variable = dynamic_cast<const FunctionFloatVariable*>(&node)) {
        text += expression_name::written(variable->name());
    }
}

void ExpressionPrinter::writeWithin(const FunctionFloatBase& node, const int& loosestAllowed)
{
    const bool grouped = levelOf(node) < loosestAllowed;
    if (grouped) {
        text += '(';
    }
    write(node);
    if (grouped) {
        text += ')';
    }
}

void ExpressionPrinter::writeCall(std::string_view name, const FunctionFloatBase& first,
                                  const FunctionFloatBase* second, const FunctionFloatBase* third)
{
    text += name;
    text += '(';
    write(first);
    for (const FunctionFloatBase* argument : {second, third}) {
        if (argument) {
            text += ',';
            write(*argument);
        }
    }
    text += ')';
}

// Long sums lean to the left, so the left spine is walked in a loop: down it for the opening
// parentheses, then up for operators and right operands.
void ExpressionPrinter::writeOperators(const FunctionFloatBinary& top)
{
    struct Level
    {
        const FunctionFloatBinary* node;
        bool grouped;
    };
    std::vector<Level> spine = {{&top, false}};
    for (;;) {
        const FunctionFloatBinary& lowest = *spine.back().node;
        const FunctionFloatBinary* next = lowest.left().getBinaryRef();
        if (!next || next->operation().isFunction()) {
            break;
        }
        const bool grouped = levelOf(*next) < loosestLeftOf(lowest.operation());
        if (grouped) {
            text += '(';
        }
        spine.push_back({next, grouped});
    }
    const FunctionFloatBinary& bottom = *spine.back().node;
    writeWithin(bottom.left(), loosestLeftOf(bottom.operation()));
    for (auto level = spine.rbegin(); level != spine.rend(); ++level) {
        text += level->node->operation().name;
        writeWithin(level->node->right(), loosestRightOf(level->node->operation()));
        if (level->grouped) {
            text += ')';
        }
    }
}

// The shortest digits that read back to the same bits; "1e+05" is written 1e5.
void ExpressionPrinter::writeConstant(const FunctionFloatConstant& constant)
{
    if (!constant.name().empty()) {
        text += constant.name();
        return;
    }
    char buffer[32];
    const std::to_chars_result end =
        std::to_chars(buffer, buffer + sizeof buffer, constant.value());
    const std::string_view digits(buffer, static_cast<std::size_t>(end.ptr - buffer));
    const std::size_t exponent = digits.find('e');
    text += digits.substr(0, exponent);
    if (exponent == std::string_view::npos) {
        return;
    }
    text += 'e';
    std::string_view power = digits.substr(exponent + 1);
    if (power.front() == '-') {
        text += '-';
    }
    power.remove_prefix(1);
    while (power.size() > 1 && power.front() == '0') {
        power.remove_prefix(1);
    }
    text += power;
}
