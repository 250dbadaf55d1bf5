#pragma once
// An ordered list with value semantics (a copy never aliases), on std::vector.
// Out-of-range indexing and taking from an empty list are fatal, with the runtime
// library's own assertion texts.
#include "runtime/VyGlobal.h"

#include <algorithm>
#include <initializer_list>
#include <utility>
#include <vector>

template <typename T>
class VyList {
public:
    using value_type = T;
    using iterator = typename std::vector<T>::iterator;
    using const_iterator = typename std::vector<T>::const_iterator;

    VyList() = default;
    VyList(std::initializer_list<T> items)
        : m_items(items) {}
    explicit VyList(std::vector<T> items)
        : m_items(std::move(items)) {}

    int size() const { return static_cast<int>(m_items.size()); }
    int count() const { return size(); }
    bool isEmpty() const { return m_items.empty(); }
    void clear() { m_items.clear(); }
    void reserve(int n) { m_items.reserve(static_cast<size_t>(n)); }

    const T& at(int i) const {
        checkIndex(i);
        return m_items[static_cast<size_t>(i)];
    }
    T& operator[](int i) {
        checkIndex(i);
        return m_items[static_cast<size_t>(i)];
    }
    const T& operator[](int i) const { return at(i); }
    T& first() {
        checkNotEmpty();
        return m_items.front();
    }
    const T& first() const {
        checkNotEmpty();
        return m_items.front();
    }
    T& last() {
        checkNotEmpty();
        return m_items.back();
    }
    const T& last() const {
        checkNotEmpty();
        return m_items.back();
    }

    void append(const T& v) { m_items.push_back(v); }
    void append(T&& v) { m_items.push_back(std::move(v)); }
    void append(const VyList& other) {
        m_items.insert(m_items.end(), other.m_items.begin(), other.m_items.end());
    }
    void prepend(const T& v) { m_items.insert(m_items.begin(), v); }
    void insert(int i, const T& v) {
        VY_ASSERT_X(i >= 0 && i <= size(), "i >= 0 && i <= p.size()");
        m_items.insert(m_items.begin() + i, v);
    }
    void removeAt(int i) {
        checkIndex(i);
        m_items.erase(m_items.begin() + i);
    }
    // Removes every occurrence; returns how many went.
    int removeAll(const T& v) {
        auto it = std::remove(m_items.begin(), m_items.end(), v);
        int n = static_cast<int>(m_items.end() - it);
        m_items.erase(it, m_items.end());
        return n;
    }
    bool removeOne(const T& v) {
        auto it = std::find(m_items.begin(), m_items.end(), v);
        if (it == m_items.end())
            return false;
        m_items.erase(it);
        return true;
    }
    T takeAt(int i) {
        checkIndex(i);
        T v = std::move(m_items[static_cast<size_t>(i)]);
        m_items.erase(m_items.begin() + i);
        return v;
    }
    T takeFirst() {
        checkNotEmpty();
        return takeAt(0);
    }
    T takeLast() {
        checkNotEmpty();
        T v = std::move(m_items.back());
        m_items.pop_back();
        return v;
    }
    void removeFirst() { (void)takeFirst(); }
    void removeLast() { (void)takeLast(); }

    int indexOf(const T& v, int from = 0) const {
        for (int i = std::max(from, 0); i < size(); ++i)
            if (m_items[static_cast<size_t>(i)] == v)
                return i;
        return -1;
    }
    int lastIndexOf(const T& v) const {
        for (int i = size() - 1; i >= 0; --i)
            if (m_items[static_cast<size_t>(i)] == v)
                return i;
        return -1;
    }
    bool contains(const T& v) const { return indexOf(v) >= 0; }

    iterator begin() { return m_items.begin(); }
    iterator end() { return m_items.end(); }
    const_iterator begin() const { return m_items.begin(); }
    const_iterator end() const { return m_items.end(); }

    VyList& operator<<(const T& v) {
        append(v);
        return *this;
    }
    bool operator==(const VyList& o) const { return m_items == o.m_items; }
    bool operator!=(const VyList& o) const { return m_items != o.m_items; }

    const std::vector<T>& toStdVector() const { return m_items; }

protected:
    std::vector<T>& storage() { return m_items; }

private:
    void checkIndex(int i) const { VY_ASSERT_X(i >= 0 && i < size(), "i >= 0 && i < p.size()"); }
    void checkNotEmpty() const { VY_ASSERT_X(!isEmpty(), "!isEmpty()"); }

    std::vector<T> m_items;
};
