#pragma once

#include "core/FunctionParserBase.h"
#include "zk_curve_core_export.h"

#include <memory>
#include <set>
#include <string>
#include <vector>

/// All that the parser knows of one name beyond its key: who registered it, and what refreshes
/// its value. Expressions share the entry, so that it outlives every registration.
///
/// Expressions parsed within a scope share a view of it instead: an entry that knows just the
/// registrations of that scope and, behind them, those without one. Once the scope is gone its
/// views know all.
class ZK_CURVE_CORE_EXPORT ParserKeyEntry : public std::enable_shared_from_this<ParserKeyEntry>
{
public:
    using keyStruct = FunctionParserBase::keyStruct;
    using Pointer = std::shared_ptr<ParserKeyEntry>;

    struct Registration
    {
        int kind;
        void* address; // the host's
        FunctionParserBase::RefreshFunction refresh;
        bool guardsItself; ///< refresh may be called from inside of itself, and however deep
        const ParserScope* scope = nullptr; ///< whose it is; not owned, and never read through
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

    /// Whether any registration is seen from the scope.
    bool isSeenFrom(const ParserScope* scope) const;
    /// What expressions of the scope share, made at need; the entry itself for no scope.
    static Pointer seenFrom(const Pointer& entry, const ParserScope* scope);
    /// This entry or that of its views which has the key; null for none.
    static Pointer withKey(const Pointer& entry, const keyStruct* key);
    /// To be called before the scope is destroyed.
    void endScope(const ParserScope* scope);
    /// Takes a view whose scope is gone into another scope; one that is none is passed over.
    void adopt(const ParserKeyEntry& view, const ParserScope* scope);
    /// To be called where the key is handed out: that of a view then stays valid for as long as its
    /// parser lives.
    void keepKey();
    /// To be called before the parser of the key is destroyed: from now on all reads give 0.
    void forgetKey();

    /// The value as it is stored, by kind; 0 for an unknown kind, a null key or a null address.
    static double stored(const keyStruct* key);

    const std::string name;
    keyStruct* key; // of the parser, a mapper or, of a view, its own; null once that parser is gone

private:
    static constexpr int doubleKind = 3;

    double refreshAndRead();
    void answer();
    void updateView(ParserKeyEntry& view) const;

    // Ascending in age: the first one answers. Shared, so that a refresh function may
    // unregister itself while it runs.
    std::vector<std::shared_ptr<const Registration>> registrations;
    bool hasRefresh = false;
    std::shared_ptr<bool> refreshing; // shared with the views

    std::vector<Pointer> views;                         // of scopes that live
    std::vector<std::weak_ptr<ParserKeyEntry>> orphans; // views whose scopes are gone
    std::set<Pointer> handedOut;                        // views whose keys somebody may hold
    std::weak_ptr<ParserKeyEntry> viewed;               // of a view: the entry that it is one of
    keyStruct ownKey;                                   // of a view
    const ParserScope* viewScope = nullptr;             // of a view; null once the scope is gone
};
