// The variables of expressions, and the scopes that they belong to.

#include "core/FunctionParserBase.h"

#include "core/ExpressionName.h"
#include "core/ExpressionVariables.h"
#include "core/FunctionFloatVariable.h"
#include "core/ParserKeyEntry.h"

#include <unordered_set>

std::vector<FunctionParserBase::keyStruct*>
FunctionParserBase::getAllVars(const FunctionFloatBase* expression)
{
    std::vector<keyStruct*> mentioned;
    std::unordered_set<const keyStruct*> seen;
    for (const FunctionFloatVariable* variable : variablesOf(expression)) {
        keyStruct* key = variable->key();
        if (key && seen.insert(key).second) {
            variable->sharedEntry().keepKey();
            mentioned.push_back(key);
        }
    }
    return mentioned;
}

std::string FunctionParserBase::writtenName(const std::string& name)
{
    return expression_name::written(name);
}
