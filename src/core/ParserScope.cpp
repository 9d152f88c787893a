#include "core/ParserScope.h"

#include "core/ExpressionVariables.h"
#include "core/FunctionFloatVariable.h"
#include "core/FunctionParserBase.h"
#include "core/ParserKeyEntry.h"

ParserScope::ParserScope() = default;

ParserScope::~ParserScope()
{
    FunctionParserBase::endScope(this);
}

void ParserScope::adopt(const FunctionFloatBase* expression) const
{
    for (const FunctionFloatVariable* variable : variablesOf(expression)) {
        FunctionParserBase::adopt(variable->sharedEntry(), this);
    }
}
