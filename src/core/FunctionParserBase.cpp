#include "core/FunctionParserBase.h"

#include "core/ExpressionGrammar.h"
#include "core/ExpressionName.h"
#include "core/ExpressionTables.h"
#include "core/FunctionFloatBase.h"
#include "core/ParseMessage.h"
#include "core/ParserKeyEntry.h"
#include "core/ParserVarMapper.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace {

constexpr std::size_t longestText = 1000000;

struct BuiltInVariable
{
    const char* name;
    double value;
};

BuiltInVariable builtInVariables[] = {{"t", 0.0}, {"f", 0.0}, {"fps", 10.0}};

bool isBuiltIn(const void* address)
{
    return std::any_of(std::begin(builtInVariables), std::end(builtInVariables),
                       [&](const BuiltInVariable& variable) { return address == &variable.value; });
}

bool isBuiltIn(const std::string& name)
{
    return std::any_of(std::begin(builtInVariables), std::end(builtInVariables),
                       [&](const BuiltInVariable& variable) { return name == variable.name; });
}

bool canRegister(const std::string& name, const void* address)
{
    return address && !isBuiltIn(address) && !isBuiltIn(name) && expression_name::isReachable(name);
}

// All parsers alive: an address that goes must be forgotten by the copies, too. Never freed, for
// the keys of a host may go after the statics of this library.
std::vector<FunctionParserBase*>& livingParsers()
{
    static auto* const parsers = new std::vector<FunctionParserBase*>;
    return *parsers;
}

// Of ASCII letters, by no locale.
std::string lowerCase(std::string name)
{
    for (char& c : name) {
        if (c >= 'A' && c <= 'Z') {
            c = static_cast<char>(c - 'A' + 'a');
        }
    }
    return name;
}

void writeError(ParseMessage& message, const ExpressionGrammar::Error& error)
{
    message.ok = false;
    message.errorKind = error.kind;
    message.errorDetail = static_cast<int>(error.start);
    message.errorSpans = {{static_cast<int>(error.start), static_cast<int>(error.length)}};
}

} // namespace

FunctionParserBase* FunctionParserBase::instance()
{
    static FunctionParserBase* const parser = new FunctionParserBase;
    return parser;
}

FunctionParserBase::FunctionParserBase()
{
    for (BuiltInVariable& variable : builtInVariables) {
        entryOf(variable.name).add({3, &variable.value, RefreshFunction(), false});
    }
    livingParsers().push_back(this);
}

FunctionParserBase::FunctionParserBase(const FunctionParserBase& other)
    : varMapper(other.varMapper)
{
    takeKeysOf(other);
    livingParsers().push_back(this);
}

FunctionParserBase& FunctionParserBase::operator=(const FunctionParserBase& other)
{
    if (this != &other) {
        takeKeysOf(other);
        varMapper = other.varMapper;
    }
    return *this;
}

FunctionParserBase::~FunctionParserBase()
{
    std::vector<FunctionParserBase*>& parsers = livingParsers();
    parsers.erase(std::remove(parsers.begin(), parsers.end(), this), parsers.end());
    for (const auto& [name, entry] : entries) {
        entry->forgetKey();
    }
}

FunctionFloatBase* FunctionParserBase::parseString(const std::string& text, ParseMessage& message,
                                                   bool)
{
    return parseWithin(nullptr, text, message);
}

FunctionFloatBase* FunctionParserBase::parseWithin(const ParserScope* scope,
                                                   const std::string& text, ParseMessage& message)
{
    const std::string source = text; // the message's own text may have been given
    message = ParseMessage();
    message.expressionText = source;
    if (source.size() > longestText) {
        writeError(message, {ParseMessage::otherError, longestText, 1});
        return nullptr;
    }
    ExpressionGrammar grammar(source,
                              [&](const std::string& name) { return findVariable(name, scope); });
    std::unique_ptr<FunctionFloatBase> tree = grammar.read();
    if (!tree) {
        writeError(message, grammar.error());
        return nullptr;
    }
    tree->text = tree->getString();
    if (tree->text.size() > longestText) {
        writeError(message, {ParseMessage::otherError, 0, source.size()});
        return nullptr;
    }
    return tree.release();
}

FunctionParserBase::keyStruct* FunctionParserBase::getKey(const std::string& name)
{
    const Entry entry = livingEntry(name);
    return entry ? entry->key : nullptr;
}

void FunctionParserBase::getAllKeyNames(std::vector<std::string>& names) const
{
    getAllKeyNames(names, nullptr);
}

void FunctionParserBase::getAllKeyNames(std::vector<std::string>& names,
                                        const ParserScope* scope) const
{
    names.clear();
    for (const auto& [name, key] : keys) {
        if (key.value && entries.at(name)->isSeenFrom(scope)) {
            names.push_back(name);
        }
    }
}

void FunctionParserBase::setVarMapper(const ParserVarMapper* mapper)
{
    varMapper = mapper;
}

bool FunctionParserBase::registerKey(const std::string& name, const int& kind, void* address,
                                     RefreshFunction refresh)
{
    const bool can = canRegister(name, address);
    if (can) {
        entryOf(name).add({kind, address, std::move(refresh), false});
    }
    return can;
}

bool FunctionParserBase::registerGuardedKey(const std::string& name, const int& kind, void* address,
                                            RefreshFunction refresh, const ParserScope* scope)
{
    const bool can = canRegister(name, address);
    if (can) {
        entryOf(name).add({kind, address, std::move(refresh), true, scope});
    }
    return can;
}

void FunctionParserBase::unregisterKey(const std::string& name, const void* address)
{
    if (isBuiltIn(address)) {
        return;
    }
    for (FunctionParserBase* parser : livingParsers()) {
        const auto found = parser->entries.find(name);
        if (found != parser->entries.end()) {
            found->second->remove(address);
        }
    }
}

void FunctionParserBase::endScope(const ParserScope* scope)
{
    for (const FunctionParserBase* parser : livingParsers()) {
        for (const auto& [name, entry] : parser->entries) {
            entry->endScope(scope);
        }
    }
}

void FunctionParserBase::adopt(const ParserKeyEntry& view, const ParserScope* scope)
{
    for (const FunctionParserBase* parser : livingParsers()) {
        const auto found = parser->entries.find(view.name);
        if (found != parser->entries.end()) {
            found->second->adopt(view, scope);
        }
    }
}

void FunctionParserBase::refreshKey(const keyStruct* key)
{
    if (!key) {
        return;
    }
    const auto found = entries.find(key->name);
    if (found == entries.end()) {
        return;
    }
    if (const Entry kept = ParserKeyEntry::withKey(found->second, key)) {
        kept->refresh();
    }
}

ParserKeyEntry& FunctionParserBase::entryOf(const std::string& name)
{
    Entry& entry = entries[name];
    if (!entry) {
        keyStruct& key = keys[name];
        key.name = name;
        entry = std::make_shared<ParserKeyEntry>(name, &key);
    }
    return *entry;
}

FunctionParserBase::Entry FunctionParserBase::livingEntry(const std::string& name,
                                                          const ParserScope* scope) const
{
    const auto found = entries.find(name);
    if (found == entries.end() || !found->second->isSeenFrom(scope)) {
        return nullptr;
    }
    // The built-in ones are the same everywhere.
    return ParserKeyEntry::seenFrom(found->second, isBuiltIn(name) ? nullptr : scope);
}

// As it is spelt, then in lower case; but no variable answers in lower case to what is a constant
// there, for the canonical text would read back as the constant.
FunctionParserBase::Entry FunctionParserBase::findVariable(const std::string& name,
                                                           const ParserScope* scope) const
{
    const std::string lower = lowerCase(name);
    const bool hasLowerCase = lower != name && !expression_tables::constant(lower);
    if (Entry entry = livingEntry(name, scope)) {
        return entry;
    }
    if (Entry entry = hasLowerCase ? livingEntry(lower, scope) : nullptr) {
        return entry;
    }
    if (Entry entry = askMapper(name, scope)) {
        return entry;
    }
    return hasLowerCase ? askMapper(lower, scope) : nullptr;
}

FunctionParserBase::Entry FunctionParserBase::askMapper(const std::string& name,
                                                        const ParserScope* scope) const
{
    keyStruct* key = varMapper ? varMapper->keyOf(name) : nullptr;
    if (!key) {
        return nullptr;
    }
    // The mapper may have registered the name meanwhile.
    const Entry registered = livingEntry(name);
    if (!registered || registered->key != key) {
        return std::make_shared<ParserKeyEntry>(name, key);
    }
    const Entry seen = livingEntry(name, scope);
    return seen ? seen : registered;
}

void FunctionParserBase::takeKeysOf(const FunctionParserBase& other)
{
    const ParserKeyEntry none(std::string(), nullptr);
    for (const auto& [name, entry] : entries) {
        if (other.entries.find(name) == other.entries.end()) {
            entry->takeRegistrationsOf(none);
        }
    }
    for (const auto& [name, entry] : other.entries) {
        ParserKeyEntry& own = entryOf(name);
        own.takeRegistrationsOf(*entry);
        *own.key = *entry->key;
    }
}
