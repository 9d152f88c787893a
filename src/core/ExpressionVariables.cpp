#include "core/ExpressionVariables.h"

#include "core/FunctionFloatBinary.h"
#include "core/FunctionFloatTernary.h"
#include "core/FunctionFloatUnary.h"
#include "core/FunctionFloatVariable.h"

// A list of nodes to come instead of recursion: long sums are deeper than any stack. What stands
// first in the text is taken last in, first out.
std::vector<const FunctionFloatVariable*> variablesOf(const FunctionFloatBase* expression)
{
    std::vector<const FunctionFloatVariable*> mentioned;
    std::vector<const FunctionFloatBase*> coming = {expression};
    while (!coming.empty()) {
        const FunctionFloatBase* node = coming.back();
        coming.pop_back();
        if (!node) {
            continue;
        }
        if (const FunctionFloatUnary* unary = node->getUnaryRef()) {
            coming.push_back(&unary->argument());
        } else if (const FunctionFloatBinary* binary = node->getBinaryRef()) {
            coming.insert(coming.end(), {&binary->right(), &binary->left()});
        } else if (const FunctionFloatTernary* choice = node->getTernaryRef()) {
            coming.insert(coming.end(),
                          {&choice->whenFalse(), &choice->whenTrue(), &choice->condition()});
        } else if (const auto* variable = dynamic_cast<const FunctionFloatVariable*>(node)) {
            mentioned.push_back(variable);
        }
    }
    return mentioned;
}
