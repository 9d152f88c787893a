#include "core/FunctionFloatVariable.h"

#include "core/ParserKeyEntry.h"

#include <utility>

FunctionFloatVariable::FunctionFloatVariable(std::shared_ptr<ParserKeyEntry> variableEntry)
    : entry(std::move(variableEntry))
{}

FunctionFloatVariable::~FunctionFloatVariable() = default;

double FunctionFloatVariable::value() const
{
    return entry->read();
}

const std::string& FunctionFloatVariable::name() const
{
    return entry->name;
}

ParserKeyEntry& FunctionFloatVariable::sharedEntry() const
{
    return *entry;
}

FunctionParserBase::keyStruct* FunctionFloatVariable::key() const
{
    return entry->key;
}
