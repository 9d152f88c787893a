#include "core/ParserKeyEntry.h"

#include <algorithm>
#include <utility>

namespace {

int running = 0; ///< of refresh functions
int nesting = 0; ///< of those that do not guard themselves

/// A refresh function that runs, until it returns or throws.
class Running
{
public:
    Running() { ++running; }
    ~Running() { --running; }
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;
};

/// Marks a refresh function as running, until it returns or throws.
class Nested
{
public:
    explicit Nested(bool& runningMark)
        : mark(runningMark)
    {
        mark = true;
        ++nesting;
    }
    ~Nested()
    {
        mark = false;
        --nesting;
    }
    Nested(const Nested&) = delete;
    Nested& operator=(const Nested&) = delete;

private:
    bool& mark;
};

} // namespace

ParserKeyEntry::ParserKeyEntry(std::string keyName, keyStruct* namedKey)
    : name(std::move(keyName))
    , key(namedKey)
    , refreshing(std::make_shared<bool>(false))
{}

void ParserKeyEntry::refresh()
{
    if (!hasRefresh) {
        return;
    }
    const std::shared_ptr<const Registration> answering = registrations.front();
    const Running mark;
    if (answering->guardsItself) {
        answering->refresh();
    } else if (!*refreshing && nesting < FunctionParserBase::deepestRefresh) {
        const std::shared_ptr<bool> flag = refreshing; // the entry may go meanwhile
        const Nested nested(*flag);
        answering->refresh();
    }
}

bool ParserKeyEntry::isAnyRefreshed()
{
    return running > 0;
}

void ParserKeyEntry::add(const Registration& registration)
{
    const auto added = std::make_shared<const Registration>(registration);
    const auto known =
        std::find_if(registrations.begin(), registrations.end(),
                     [&](const auto& one) { return one->address == registration.address; });
    if (known != registrations.end()) {
        *known = added;
    } else {
        registrations.push_back(added);
    }
    answer();
}

void ParserKeyEntry::remove(const void* address)
{
    const auto gone = std::find_if(registrations.begin(), registrations.end(),
                                   [&](const auto& one) { return one->address == address; });
    if (gone != registrations.end()) {
        registrations.erase(gone);
        answer();
    }
}

void ParserKeyEntry::takeRegistrationsOf(const ParserKeyEntry& other)
{
    registrations = other.registrations;
    answer();
}

double ParserKeyEntry::stored(const keyStruct* key)
{
    if (!key || !key->value) {
        return 0.0;
    }
    switch (key->kind) {
    case 0:
        // Not as a bool: the host's byte may hold more than 0 and 1.
        return *static_cast<const unsigned char*>(key->value) != 0 ? 1.0 : 0.0;
    case 1:
        return *static_cast<const int*>(key->value);
    case 2:
        return static_cast<double>(*static_cast<const float*>(key->value));
    case doubleKind:
        return *static_cast<const double*>(key->value);
    default:
        return 0.0;
    }
}

double ParserKeyEntry::refreshAndRead()
{
    refresh();
    return stored(key);
}

void ParserKeyEntry::forgetKey()
{
    key = nullptr;
    registrations.clear(); // nobody would take them out of here any more
    hasRefresh = false;
    for (const Pointer& view : views) {
        view->forgetKey();
    }
    for (const auto& orphan : orphans) {
        if (const Pointer view = orphan.lock()) {
            view->forgetKey();
        }
    }
}

void ParserKeyEntry::answer()
{
    const bool lives = !registrations.empty();
    key->kind = lives ? registrations.front()->kind : doubleKind;
    key->value = lives ? registrations.front()->address : nullptr;
    hasRefresh = lives && registrations.front()->refresh;
    for (const Pointer& view : views) {
        updateView(*view);
    }
    const auto gone = std::remove_if(orphans.begin(), orphans.end(),
                                     [](const auto& orphan) { return orphan.expired(); });
    orphans.erase(gone, orphans.end());
    for (const auto& orphan : orphans) {
        updateView(*orphan.lock());
    }
}
