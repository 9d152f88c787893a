#pragma once

#include <QString>
#include <QStringView>

#include <map>

namespace curve_editor {

/// Records of a list by a name of theirs. Several may share a name: each stands under the number
/// that tells its place in the list, and the lowest number answers.
template <class Record>
class NameIndex
{
public:
    using Number = unsigned long long;

    void add(const QString& name, const Number& number, Record* record)
    {
        byName[name].emplace(number, record);
    }

    void remove(const QString& name, const Number& number)
    {
        const auto found = byName.find(name);
        if (found == byName.end()) {
            return;
        }
        found->second.erase(number);
        if (found->second.empty()) {
            byName.erase(found);
        }
    }

    /// The first record of exactly that name, or null.
    Record* first(const QStringView& name) const
    {
        const auto found = byName.find(name);
        return found == byName.end() ? nullptr : found->second.begin()->second;
    }

    /// The first record of exactly that name, unless a record with a lower number bears a name
    /// that is a prefix of it or has it as prefix: then null.
    Record* firstWithoutPrefix(const QStringView& name) const
    {
        const auto found = byName.find(name);
        if (found == byName.end()) {
            return nullptr;
        }
        const Number limit = found->second.begin()->first;
        if (hasPrefixBefore(name, limit) || hasExtensionBefore(found, limit)) {
            return nullptr;
        }
        return found->second.begin()->second;
    }

private:
    struct Less
    {
        using is_transparent = void;
        bool operator()(const QStringView& a, const QStringView& b) const { return a < b; }
    };
    using Map = std::map<QString, std::map<Number, Record*>, Less>;

    static QStringView commonStart(const QStringView& a, const QStringView& b)
    {
        const qsizetype most = qMin(a.size(), b.size());
        qsizetype length = 0;
        while (length < most && a[length] == b[length]) {
            ++length;
        }
        return a.first(length);
    }

    /// All prefixes of a name sort before it, and what stands between a prefix and the name
    /// begins with that prefix: so the nearest entry before the name tells how long the next
    /// prefix can be at most, and few entries are looked at.
    bool hasPrefixBefore(const QStringView& name, const Number& limit) const
    {
        QStringView rest = name.chopped(name.isEmpty() ? 0 : 1);
        while (true) {
            auto entry = byName.upper_bound(rest);
            if (entry == byName.begin()) {
                return false;
            }
            --entry;
            const QStringView common = commonStart(rest, entry->first);
            const bool isPrefix = common.size() == entry->first.size();
            if (isPrefix && entry->second.begin()->first < limit) {
                return true;
            }
            if (common.isEmpty()) {
                return false;
            }
            rest = isPrefix ? common.chopped(1) : common;
        }
    }

    /// What begins with a name follows right behind it.
    bool hasExtensionBefore(typename Map::const_iterator entry, const Number& limit) const
    {
        const QStringView name = entry->first;
        for (++entry; entry != byName.end() && entry->first.startsWith(name); ++entry) {
            if (entry->second.begin()->first < limit) {
                return true;
            }
        }
        return false;
    }

    Map byName;
};

} // namespace curve_editor
