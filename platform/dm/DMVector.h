// Sequence container of the DM library.
#pragma once

#include <cstddef>
#include <utility>
#include <vector>

template <typename T>
class DMVector {
public:
    using const_iterator = typename std::vector<T>::const_iterator;
    using iterator = typename std::vector<T>::iterator;

    DMVector() = default;
    DMVector(const T* items, std::size_t count)
        : m_items(items, items + count)
    {
    }

    std::size_t size() const { return m_items.size(); }
    bool empty() const { return m_items.empty(); }
    void clear() { m_items.clear(); }
    void push_back(T item) { m_items.push_back(std::move(item)); }
    void reserve(std::size_t count) { m_items.reserve(count); }
    const T& operator[](std::size_t i) const { return m_items[i]; }
    T& operator[](std::size_t i) { return m_items[i]; }
    const T* data() const { return m_items.data(); }
    const_iterator begin() const { return m_items.begin(); }
    const_iterator end() const { return m_items.end(); }
    iterator begin() { return m_items.begin(); }
    iterator end() { return m_items.end(); }
    bool operator==(const DMVector& other) const { return m_items == other.m_items; }

private:
    std::vector<T> m_items;
};
