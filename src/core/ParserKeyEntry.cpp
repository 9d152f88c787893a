#include "core/ParserKeyEntry.h"

#include <algorithm>
#include <utility>

ParserKeyEntry::ParserKeyEntry(std::string keyName, keyStruct* namedKey)
    : name(std::move(keyName))
    , key(namedKey)
{}

void ParserKeyEntry::refresh()
{
    if (refreshing || !hasRefresh) {
        return;
    }
    const std::shared_ptr<const Registration> answering = registrations.front();
    refreshing = true;
    answering->refresh();
    refreshing = false;
}

void ParserKeyEntry::add(const int& kind, void* address,
                         FunctionParserBase::RefreshFunction refreshFunction)
{
    const auto added = std::make_shared<const Registration>(
        Registration{kind, address, std::move(refreshFunction)});
    const auto known = std::find_if(registrations.begin(), registrations.end(),
                                    [&](const auto& one) { return one->address == address; });
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

void ParserKeyEntry::answer()
{
    const bool lives = !registrations.empty();
    key->kind = lives ? registrations.front()->kind : doubleKind;
    key->value = lives ? registrations.front()->address : nullptr;
    hasRefresh = lives && registrations.front()->refresh;
}
