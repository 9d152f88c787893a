#pragma once

#include "zk_curve_core_export.h"

class FunctionFloatBase;

/// An owner of variables who does not share them with other owners.
///
///     ParserScope scope;
///     parser->registerGuardedKey("body.width", 3, &width, refresh, &scope);
///     FunctionFloatBase* half = parser->parseWithin(&scope, "body.width/2", message);
///
/// What is parsed within a scope reads a name from the variables of that scope first, then from
/// those registered without one; those of other scopes it never sees. What is parsed without a
/// scope reads all of them.
///
/// Once the scope is destroyed, its expressions read as if they had been parsed without one, until
/// another scope adopts them.
class ZK_CURVE_CORE_EXPORT ParserScope
{
public:
    ParserScope();
    ~ParserScope();
    ParserScope(const ParserScope&) = delete;
    ParserScope& operator=(const ParserScope&) = delete;

    /// Lets an expression whose scope is gone read as if it had been parsed within this one. All
    /// others, and null, stay as they are.
    void adopt(const FunctionFloatBase* expression) const;
};
