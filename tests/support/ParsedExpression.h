#pragma once

#include "core/FunctionFloatBase.h"
#include "core/FunctionFloatBinary.h"
#include "core/FunctionFloatConstant.h"
#include "core/FunctionFloatTernary.h"
#include "core/FunctionFloatUnary.h"
#include "core/FunctionFloatVariable.h"
#include "core/FunctionParserBase.h"
#include "core/ParseMessage.h"

#include <cstdint>
#include <cstring>
#include <memory>
#include <string>

/// A text with its tree and message, freed at the end of the test.
struct ParsedExpression
{
    explicit ParsedExpression(const std::string& text)
        : tree(FunctionParserBase::instance()->parseString(text, message, false))
    {}

    ParseMessage message;
    std::unique_ptr<FunctionFloatBase> tree;
};

/// The structure of a tree in full, numbers by their bits: equal for equal trees only. For trees
/// of moderate depth.
inline std::string structureOf(const FunctionFloatBase& node)
{
    if (const FunctionFloatUnary* unary = node.getUnaryRef()) {
        // The operation's record has one address for each operation.
        return "u" + std::to_string(reinterpret_cast<std::uintptr_t>(&unary->operation())) + "{" +
               structureOf(unary->argument()) + "}";
    }
    if (const FunctionFloatBinary* binary = node.getBinaryRef()) {
        return "b" + std::to_string(reinterpret_cast<std::uintptr_t>(&binary->operation())) + "{" +
               structureOf(binary->left()) + ";" + structureOf(binary->right()) + "}";
    }
    if (const FunctionFloatTernary* choice = node.getTernaryRef()) {
        return "if{" + structureOf(choice->condition()) + ";" + structureOf(choice->whenTrue()) +
               ";" + structureOf(choice->whenFalse()) + "}";
    }
    if (const FunctionFloatConstant* constant = node.getConstantRef()) {
        std::uint64_t bits = 0;
        const double number = constant->value();
        std::memcpy(&bits, &number, sizeof bits);
        return "c" + constant->name() + std::to_string(bits);
    }
    if (const auto* variable = dynamic_cast<const FunctionFloatVariable*>(&node)) {
        return "v" + variable->name();
    }
    return "?";
}
