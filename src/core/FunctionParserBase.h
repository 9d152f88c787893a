#pragma once

#include "core/zk_curve_core_export.h"

#include <functional>
#include <string>
#include <vector>

class FunctionFloatBase;
class ParseMessage;
class ParserVarMapper;

/// The parser and the variables that expressions read; one for the process.
class ZK_CURVE_CORE_EXPORT FunctionParserBase
{
public:
    struct keyStruct
    {
        std::string name;
        int kind = 3;          ///< 0 bool, 1 int, 2 float, 3 double
        void* value = nullptr; ///< where the value lives, of the type that kind names; not owned
    };

    /// Called before the value of a key is read, so that its owner can bring it up to date.
    using RefreshFunction = std::function<void()>;

    /// With the keys "t", "f" and "fps" (10 at the start).
    static FunctionParserBase* instance();

    FunctionFloatBase* parseString(const std::string& text, ParseMessage& message, bool unused);
    keyStruct* getKey(const std::string& name);
    void getAllKeyNames(std::vector<std::string>& names) const;
    std::vector<keyStruct*> getAllVars(const FunctionFloatBase* expression);
    void setVarMapper(const ParserVarMapper* mapper);

    /// Registrations of one name queue up: the first living one answers. `address` identifies
    /// the registration.
    void registerKey(const std::string& name, const int& kind, void* address,
                     RefreshFunction refresh = RefreshFunction());
    void unregisterKey(const std::string& name, const void* address);
};
