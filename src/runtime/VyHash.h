#pragma once
// An unordered map with value semantics, on std::unordered_map.
#include <unordered_map>
#include <utility>

#include "runtime/VyList.h"

template <typename K, typename V, typename H = std::hash<K>>
class VyHash {
public:
    using iterator = typename std::unordered_map<K, V, H>::iterator;
    using const_iterator = typename std::unordered_map<K, V, H>::const_iterator;

    int size() const { return static_cast<int>(m_map.size()); }
    bool isEmpty() const { return m_map.empty(); }
    void clear() { m_map.clear(); }
    bool contains(const K& k) const { return m_map.count(k) != 0; }
    void insert(const K& k, const V& v) { m_map[k] = v; }
    V value(const K& k, const V& fallback = V()) const {
        auto it = m_map.find(k);
        return it == m_map.end() ? fallback : it->second;
    }
    V& operator[](const K& k) { return m_map[k]; }
    int remove(const K& k) { return static_cast<int>(m_map.erase(k)); }
    V take(const K& k) {
        auto it = m_map.find(k);
        if (it == m_map.end())
            return V();
        V v = std::move(it->second);
        m_map.erase(it);
        return v;
    }
    VyList<K> keys() const {
        VyList<K> out;
        for (const auto& kv : m_map)
            out.append(kv.first);
        return out;
    }
    iterator find(const K& k) { return m_map.find(k); }
    const_iterator find(const K& k) const { return m_map.find(k); }
    iterator begin() { return m_map.begin(); }
    iterator end() { return m_map.end(); }
    const_iterator begin() const { return m_map.begin(); }
    const_iterator end() const { return m_map.end(); }

private:
    std::unordered_map<K, V, H> m_map;
};
