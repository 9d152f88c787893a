#pragma once

#include "core/FunctionParserBase.h"

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

inline FunctionParserBase* parser()
{
    return FunctionParserBase::instance();
}

inline std::vector<std::string> allNames()
{
    std::vector<std::string> names;
    parser()->getAllKeyNames(names);
    return names;
}

inline bool isListed(const std::string& name)
{
    const std::vector<std::string> names = allNames();
    return std::find(names.begin(), names.end(), name) != names.end();
}

// A host's variable under a name, registered for as long as it lives.
class Variable
{
public:
    Variable(const std::string& variableName, double value)
        : name(variableName)
        , stored(std::make_unique<double>(value))
    {
        parser()->registerKey(name, 3, stored.get());
    }
    ~Variable() { parser()->unregisterKey(name, stored.get()); }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

    double* address() const { return stored.get(); }

private:
    std::string name;
    std::unique_ptr<double> stored; // on the heap, so that reading it too late is noticed
};
