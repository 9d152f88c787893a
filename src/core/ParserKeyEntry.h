#pragma once

#include "core/FunctionParserBase.h"

#include <memory>
#include <string>
#include <vector>

/// All that the parser knows of one name beyond its key: who registered it, and what refreshes
/// its value. Expressions share the entry, so that it outlives every registration.
class ParserKeyEntry
{
public:
    using keyStruct = FunctionParserBase::keyStruct;

    struct Registration
    {
        int kind;
        void* address; // the host's
        FunctionParserBase::RefreshFunction refresh;
        bool guardsItself; ///< refresh may be called from inside of itself, and however deep
    };

    ParserKeyEntry(std::string keyName, keyStruct* namedKey);

    /// Refreshes the value and reads it; 0 while there is none.
    double read()
    {
        // What "t" and "f" are, without a call.
        const bool isPlain = !hasRefresh && key && key->kind == doubleKind && key->value;
        return isPlain ? *static_cast<const double*>(key->value) : refreshAndRead();
    }

    /// Calls the answering registration's refresh function. One that does not guard itself is not
    /// called from inside of itself, nor where refresh functions nest too deep: the variable then
    /// reads its last value.
    void refresh();

    /// Whether any refresh function runs, of whatever entry.
    static bool isAnyRefreshed();

    /// A registration that knows the address already is replaced where it stands.
    void add(const Registration& registration);
    void remove(const void* address);
    void takeRegistrationsOf(const ParserKeyEntry& other);

    /// The value as it is stored, by kind; 0 for an unknown kind, a null key or a null address.
    static double stored(const keyStruct* key);

    const std::string name;
    keyStruct* key; // of the parser or a mapper; null once that parser is gone

private:
    static constexpr int doubleKind = 3;

    double refreshAndRead();
    void answer();

    // Ascending in age: the first one answers. Shared, so that a refresh function may
    // unregister itself while it runs.
    std::vector<std::shared_ptr<const Registration>> registrations;
    bool hasRefresh = false;
    bool refreshing = false;
};
