#pragma once

#include "base/Error.h"

#include <list>
#include <string>
#include <unordered_map>
#include <vector>

namespace quellbrook {

// Entries in insertion order, each under a unique, case-sensitive text key. Lookup and removal by key take constant
// time. Error 457 for adding an existing key, Error 5 for reading or removing an absent one.
template <typename T>
class KeyedCollection {
    struct Entry {
        std::string key;
        T value;
    };
    using Entries = std::list<Entry>;

    template <typename Iterator, typename Value>
    class ValueIterator {
    public:
        explicit ValueIterator(Iterator at) : m_at(at) {}
        Value& operator*() const { return m_at->value; }
        ValueIterator& operator++() {
            ++m_at;
            return *this;
        }
        bool operator==(const ValueIterator&) const = default;

    private:
        Iterator m_at;
    };

public:
    KeyedCollection() = default;
    KeyedCollection(const KeyedCollection& other) { CopyFrom(other); }
    KeyedCollection& operator=(const KeyedCollection& other) {
        if (this != &other) {
            Clear();
            CopyFrom(other);
        }
        return *this;
    }
    KeyedCollection(KeyedCollection&&) noexcept = default;
    KeyedCollection& operator=(KeyedCollection&&) noexcept = default;

    void Add(T value, const std::string& key) {
        if (!TryAdd(std::move(value), key)) Raise(ErrorNumber::KeyTaken, "KeyedCollection.Add");
    }

    // False, with no change, if the key exists.
    bool TryAdd(T value, const std::string& key) {
        if (m_index.count(key) > 0) return false;
        m_entries.push_back({key, std::move(value)});
        m_index.emplace(key, std::prev(m_entries.end()));
        return true;
    }

    void Remove(const std::string& key) {
        const auto found = m_index.find(key);
        if (found == m_index.end()) Raise(ErrorNumber::General, "KeyedCollection.Remove", AbsentKeyText());
        m_entries.erase(found->second);
        m_index.erase(found);
    }

    void Clear() {
        m_index.clear();
        m_entries.clear();
    }

    bool Contains(const std::string& key) const { return m_index.count(key) > 0; }

    const T& Item(const std::string& key) const {
        const auto found = m_index.find(key);
        if (found == m_index.end()) Raise(ErrorNumber::General, "KeyedCollection.Item", AbsentKeyText());
        return found->second->value;
    }

    // A copy of the entries.
    std::vector<T> Values() const {
        std::vector<T> values;
        values.reserve(Count());
        for (const Entry& entry : m_entries) values.push_back(entry.value);
        return values;
    }

    size_t Count() const { return m_entries.size(); }
    bool IsEmpty() const { return m_entries.empty(); }

    auto begin() const { return ValueIterator<typename Entries::const_iterator, const T>(m_entries.begin()); }
    auto end() const { return ValueIterator<typename Entries::const_iterator, const T>(m_entries.end()); }

    static const char* AbsentKeyText() { return "There is no such key in the collection."; }

private:
    void CopyFrom(const KeyedCollection& other) {
        for (const Entry& entry : other.m_entries) Add(entry.value, entry.key);
    }

    Entries m_entries;
    std::unordered_map<std::string, typename Entries::iterator> m_index;
};

}  // namespace quellbrook
