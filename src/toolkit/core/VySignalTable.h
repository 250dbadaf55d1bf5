#pragma once
// A sender's connected signals, ordered by the signal's address. An object has a handful
// of connected signals at most, so a flat array searched from the front beats a tree: the
// lookup is on the path of every emission.
#include "toolkit/core/ConnectionList.h"

#include <algorithm>
#include <utility>
#include <vector>

class VySignal;

class VySignalTable {
public:
    using Entry = std::pair<const VySignal*, ConnectionList*>;

    bool isEmpty() const { return m_entries.empty(); }
    int size() const { return static_cast<int>(m_entries.size()); }

    ConnectionList* value(const VySignal* signal) const {
        for (const Entry& e : m_entries) {
            if (e.first == signal)
                return e.second;
        }
        return nullptr;
    }
    void insert(const VySignal* signal, ConnectionList* list) {
        auto it = std::lower_bound(m_entries.begin(), m_entries.end(), signal,
                                   [](const Entry& e, const VySignal* s) { return e.first < s; });
        if (it != m_entries.end() && it->first == signal)
            it->second = list;
        else
            m_entries.insert(it, Entry(signal, list));
    }
    void remove(const VySignal* signal) {
        m_entries.erase(std::remove_if(m_entries.begin(), m_entries.end(),
                                       [signal](const Entry& e) { return e.first == signal; }),
                        m_entries.end());
    }
    void clear() { m_entries.clear(); }

    std::vector<Entry>::iterator begin() { return m_entries.begin(); }
    std::vector<Entry>::iterator end() { return m_entries.end(); }
    std::vector<Entry>::iterator erase(std::vector<Entry>::iterator it) {
        return m_entries.erase(it);
    }

private:
    std::vector<Entry> m_entries;
};
