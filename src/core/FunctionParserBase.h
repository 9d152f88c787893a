#pragma once

#include "zk_curve_core_export.h"

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

class FunctionFloatBase;
class ParseMessage;
class ParserKeyEntry;
class ParserScope;
class ParserVarMapper;

/// The parser and the variables that expressions read; one for the process.
///
///     double wind = 0.0;
///     FunctionParserBase* parser = FunctionParserBase::instance();
///     parser->registerKey("stage.wind", 3, &wind);
///     ParseMessage message;
///     FunctionFloatBase* sway = parser->parseString("sin(t)*stage.wind", message, false);
///     ...
///     parser->unregisterKey("stage.wind", &wind); // from now on sway reads 0 there
///
/// For the user-interface thread only.
class ZK_CURVE_CORE_EXPORT FunctionParserBase
{
public:
    /// One variable. A key that was handed out once stays valid for as long as its parser lives.
    struct keyStruct
    {
        std::string name;
        int kind = 3;          ///< 0 bool, 1 int, 2 float, 3 double
        void* value = nullptr; ///< where the value lives, of the type that kind names; not owned;
                               ///< null while nobody has the name registered
    };

    /// Called before the value of a key is read, so that its owner can bring it up to date; once or
    /// several times. It may evaluate expressions, and so run the refresh functions of others. What
    /// it throws reaches whoever evaluates, and leaves the parser as it was.
    using RefreshFunction = std::function<void()>;

    /// So many refresh functions run inside one another at most. A key that is mentioned deeper
    /// down, like one whose own refresh function is running, is read as it stands: the stack must
    /// bear any chain of variables.
    static constexpr int deepestRefresh = 50;

    /// With the keys "t" (seconds), "f" (frame) and "fps" (10 at the start), all double. Lives as
    /// long as the process.
    static FunctionParserBase* instance();

    /// A copy has keys of its own, that read the same values, and the same mapper; what its
    /// expressions name reads 0 once it is destroyed. Assigning keeps the keys handed out.
    FunctionParserBase(const FunctionParserBase& other);
    FunctionParserBase& operator=(const FunctionParserBase& other);
    ~FunctionParserBase();

    /// The tree of the text, owned by the caller, or null on an error. Writes every field of the
    /// message. The last argument has no effect.
    ///
    /// Text of more than 1,000,000 bytes, or whose canonical form is longer than that, is an
    /// error, and so is nesting deeper than 256. Variables are looked up as they are spelt, then in
    /// lower case (of ASCII letters), then by the mapper.
    FunctionFloatBase* parseString(const std::string& text, ParseMessage& message, bool unused);

    /// The same within a scope, which names come first in and those of other scopes are unknown in;
    /// null for none.
    FunctionFloatBase* parseWithin(const ParserScope* scope, const std::string& text,
                                   ParseMessage& message);

    /// A name as expressions write it: as it is, or between quotes where it would read as anything
    /// else: 'arm-left.x'. In quotes \' is a quote, \\ a backslash and \s a blank.
    static std::string writtenName(const std::string& name);

    /// The key of exactly this name, not owned; null if nobody has the name registered.
    keyStruct* getKey(const std::string& name);

    /// Replaces the list by the names of all keys, in the order of their bytes.
    void getAllKeyNames(std::vector<std::string>& names) const;
    /// The same of those that expressions parsed within the scope may read; null for no scope.
    void getAllKeyNames(std::vector<std::string>& names, const ParserScope* scope) const;

    /// The keys that the expression reads, each once, in the order of their first mention; none
    /// for null. The keys are not owned.
    std::vector<keyStruct*> getAllVars(const FunctionFloatBase* expression);

    /// Who is asked for the key of a name that nobody has registered; null for nobody. The mapper
    /// is not owned.
    void setVarMapper(const ParserVarMapper* mapper);

    /// Registrations of one name queue up: the first living one answers. `address`, which is not
    /// owned, holds a value of the kind and identifies the registration: registering it again
    /// under the same name replaces kind and refresh function.
    ///
    /// False, and nothing is registered, for null and the addresses of "t", "f" and "fps", and for
    /// names that no expression can reach: these three, constants, the empty one, and those with
    /// control characters.
    bool registerKey(const std::string& name, const int& kind, void* address,
                     RefreshFunction refresh = RefreshFunction());

    /// The same for a refresh function that sees to its end by itself: it is called at every read,
    /// also from inside of itself, and however deep refresh functions nest. The variable belongs to
    /// the scope, which must outlive the registration, or with null to nobody in particular.
    bool registerGuardedKey(const std::string& name, const int& kind, void* address,
                            RefreshFunction refresh, const ParserScope* scope = nullptr);

    /// To be called before the value at the address is destroyed. Unknown names and addresses, and
    /// those of "t", "f" and "fps", do nothing.
    void unregisterKey(const std::string& name, const void* address);

    /// Lets the owner of a key of this parser bring its value up to date, as evaluation does
    /// before it reads the key.
    void refreshKey(const keyStruct* key);

private:
    friend class ParserScope;

    using Entry = std::shared_ptr<ParserKeyEntry>;

    FunctionParserBase();

    static void endScope(const ParserScope* scope);
    static void adopt(const ParserKeyEntry& view, const ParserScope* scope);
    ParserKeyEntry& entryOf(const std::string& name);
    Entry livingEntry(const std::string& name, const ParserScope* scope = nullptr) const;
    Entry findVariable(const std::string& name, const ParserScope* scope) const;
    Entry askMapper(const std::string& name, const ParserScope* scope) const;
    void takeKeysOf(const FunctionParserBase& other);

    std::map<std::string, keyStruct> keys; // never erased: expressions point into it
    const ParserVarMapper* varMapper = nullptr;
    std::unordered_map<std::string, Entry> entries; // one for each key
};
