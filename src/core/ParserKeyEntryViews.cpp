// How the expressions of a scope see a name.

#include "core/ParserKeyEntry.h"

#include <algorithm>
#include <iterator>

namespace {

bool isSeen(const ParserKeyEntry::Registration& registration, const ParserScope* scope)
{
    return !scope || !registration.scope || registration.scope == scope;
}

} // namespace

bool ParserKeyEntry::isSeenFrom(const ParserScope* scope) const
{
    return std::any_of(registrations.begin(), registrations.end(),
                       [&](const auto& one) { return isSeen(*one, scope); });
}

ParserKeyEntry::Pointer ParserKeyEntry::seenFrom(const Pointer& entry, const ParserScope* scope)
{
    if (!scope) {
        return entry;
    }
    const auto known = std::find_if(entry->views.begin(), entry->views.end(),
                                    [&](const Pointer& view) { return view->viewScope == scope; });
    if (known != entry->views.end()) {
        return *known;
    }
    auto view = std::make_shared<ParserKeyEntry>(entry->name, nullptr);
    view->ownKey.name = entry->name;
    view->key = &view->ownKey;
    view->viewScope = scope;
    view->viewed = entry;
    view->refreshing = entry->refreshing;
    entry->updateView(*view);
    entry->views.push_back(view);
    return view;
}

ParserKeyEntry::Pointer ParserKeyEntry::withKey(const Pointer& entry, const keyStruct* key)
{
    if (entry->key == key) {
        return entry;
    }
    for (const Pointer& view : entry->views) {
        if (view->key == key) {
            return view;
        }
    }
    for (const auto& orphan : entry->orphans) {
        Pointer view = orphan.lock();
        if (view && view->key == key) {
            return view;
        }
    }
    return nullptr;
}

void ParserKeyEntry::endScope(const ParserScope* scope)
{
    const auto first = std::stable_partition(
        views.begin(), views.end(), [&](const Pointer& view) { return view->viewScope != scope; });
    const std::vector<Pointer> left(first, views.end());
    views.erase(first, views.end());
    for (const Pointer& view : left) {
        const bool isUsed = view.use_count() > 1;
        if (isUsed) {
            view->viewScope = nullptr;
            updateView(*view);
            orphans.emplace_back(view);
        }
    }
}

void ParserKeyEntry::keepKey()
{
    if (const Pointer entry = viewed.lock()) {
        entry->handedOut.insert(shared_from_this());
    }
}

void ParserKeyEntry::adopt(const ParserKeyEntry& view, const ParserScope* scope)
{
    const auto found = std::find_if(orphans.begin(), orphans.end(), [&](const auto& orphan) {
        return orphan.lock().get() == &view;
    });
    if (found == orphans.end()) {
        return;
    }
    const Pointer adopted = found->lock();
    orphans.erase(found);
    adopted->viewScope = scope;
    updateView(*adopted);
    views.push_back(adopted);
}

/// Own registrations come first, then those of nobody in particular.
void ParserKeyEntry::updateView(ParserKeyEntry& view) const
{
    view.registrations.clear();
    std::copy_if(registrations.begin(), registrations.end(), std::back_inserter(view.registrations),
                 [&](const auto& one) { return isSeen(*one, view.viewScope); });
    if (view.viewScope) {
        std::stable_partition(view.registrations.begin(), view.registrations.end(),
                              [&](const auto& one) { return one->scope == view.viewScope; });
    }
    view.answer();
}
