#pragma once
// The value-semantics map interface shared by VyMap (ordered) and VyHash (unordered), on the
// standard container given.
#include <utility>

#include "runtime/VyList.h"

template <typename Container>
class VyMapBase {
public:
    using key_type = typename Container::key_type;
    using mapped_type = typename Container::mapped_type;
    using iterator = typename Container::iterator;
    using const_iterator = typename Container::const_iterator;

    int size() const { return static_cast<int>(m_map.size()); }
    bool isEmpty() const { return m_map.empty(); }
    void clear() { m_map.clear(); }
    bool contains(const key_type& k) const { return m_map.count(k) != 0; }

    void insert(const key_type& k, const mapped_type& v) { m_map[k] = v; }
    // The stored value, or a default-constructed one when the key is absent.
    mapped_type value(const key_type& k, const mapped_type& fallback = mapped_type()) const {
        auto it = m_map.find(k);
        return it == m_map.end() ? fallback : it->second;
    }
    mapped_type& operator[](const key_type& k) { return m_map[k]; }
    int remove(const key_type& k) { return static_cast<int>(m_map.erase(k)); }
    mapped_type take(const key_type& k) {
        auto it = m_map.find(k);
        if (it == m_map.end())
            return mapped_type();
        mapped_type v = std::move(it->second);
        m_map.erase(it);
        return v;
    }
    VyList<key_type> keys() const {
        VyList<key_type> out;
        for (const auto& kv : m_map)
            out.append(kv.first);
        return out;
    }

    iterator find(const key_type& k) { return m_map.find(k); }
    const_iterator find(const key_type& k) const { return m_map.find(k); }
    iterator begin() { return m_map.begin(); }
    iterator end() { return m_map.end(); }
    const_iterator begin() const { return m_map.begin(); }
    const_iterator end() const { return m_map.end(); }
    iterator erase(iterator it) { return m_map.erase(it); }

protected:
    Container m_map;
};
