// Map of the DM library that keeps its keys in insertion order (a node's leaves in creation order).
#pragma once

#include <cstddef>
#include <utility>
#include <vector>

template <typename K, typename V>
class DMMap {
public:
    using Entry = std::pair<K, V>;
    using const_iterator = typename std::vector<Entry>::const_iterator;

    std::size_t size() const { return m_entries.size(); }
    bool empty() const { return m_entries.empty(); }
    void clear() { m_entries.clear(); }
    const_iterator begin() const { return m_entries.begin(); }
    const_iterator end() const { return m_entries.end(); }

    const_iterator find(const K& key) const
    {
        for (auto it = m_entries.begin(); it != m_entries.end(); ++it)
            if (it->first == key)
                return it;
        return m_entries.end();
    }
    bool contains(const K& key) const { return find(key) != end(); }

    // True with *value set when the key is present.
    bool lookup(const K& key, V* value) const
    {
        const auto it = find(key);
        if (it == end())
            return false;
        *value = it->second;
        return true;
    }

    // A present key keeps its place and takes the new value; a new key goes last.
    void put(const K& key, const V& value)
    {
        for (Entry& entry : m_entries)
            if (entry.first == key) {
                entry.second = value;
                return;
            }
        m_entries.emplace_back(key, value);
    }

    bool remove(const K& key)
    {
        for (auto it = m_entries.begin(); it != m_entries.end(); ++it)
            if (it->first == key) {
                m_entries.erase(it);
                return true;
            }
        return false;
    }

private:
    std::vector<Entry> m_entries;
};
