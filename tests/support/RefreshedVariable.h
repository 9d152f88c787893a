#pragma once

#include "core/FunctionParserBase.h"

#include <functional>
#include <string>
#include <utility>

/// A host's variable that is worked out whenever it is read, registered for as long as it lives.
class RefreshedVariable
{
public:
    RefreshedVariable(std::string variableName, std::function<void(double&)> work)
        : name(std::move(variableName))
    {
        FunctionParserBase::instance()->registerKey(name, 3, &value, [this, work] { work(value); });
    }
    ~RefreshedVariable() { FunctionParserBase::instance()->unregisterKey(name, &value); }
    RefreshedVariable(const RefreshedVariable&) = delete;
    RefreshedVariable& operator=(const RefreshedVariable&) = delete;

    double value = 0.0;

private:
    std::string name;
};
