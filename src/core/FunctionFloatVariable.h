#pragma once

#include "core/FunctionFloatBase.h"
#include "core/FunctionParserBase.h"

#include <memory>

class ParserKeyEntry;

/// A variable of the parser, read through its key at each evaluation. It reads 0 while nobody
/// has the name registered.
class ZK_CURVE_CORE_EXPORT FunctionFloatVariable : public FunctionFloatBase
{
public:
    explicit FunctionFloatVariable(std::shared_ptr<ParserKeyEntry> variableEntry);
    ~FunctionFloatVariable() override;

    double value() const override;

    /// As expressions write it.
    const std::string& name() const;

    /// The key that is read, not owned; null once the parser that it belonged to is gone.
    FunctionParserBase::keyStruct* key() const;

    /// Where the parser keeps what it knows of the name; lives as long as this node.
    ParserKeyEntry& sharedEntry() const;

private:
    std::shared_ptr<ParserKeyEntry> entry; // shared with the parser
};
