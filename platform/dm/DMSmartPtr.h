// Intrusive reference counting of the DM library: trees and nodes carry their own count, and the last
// smart pointer that lets go destroys the object.
#pragma once

#include <cstddef>
#include <utility>

class DMRefCount {
public:
    DMRefCount() = default;
    DMRefCount(const DMRefCount&) = delete;
    DMRefCount& operator=(const DMRefCount&) = delete;

    void IncRef() { ++m_refs; }
    void DecRef()
    {
        if (--m_refs == 0)
            delete this;
    }
    int RefCount() const { return m_refs; }

protected:
    virtual ~DMRefCount() = default;

private:
    int m_refs = 0;
};

template <typename T>
class DMSmartPtr {
public:
    DMSmartPtr() = default;
    DMSmartPtr(std::nullptr_t) {}
    explicit DMSmartPtr(T* object)
        : m_object(object)
    {
        if (m_object)
            m_object->IncRef();
    }
    DMSmartPtr(const DMSmartPtr& other)
        : DMSmartPtr(other.m_object)
    {
    }
    DMSmartPtr(DMSmartPtr&& other) noexcept
        : m_object(std::exchange(other.m_object, nullptr))
    {
    }
    ~DMSmartPtr()
    {
        if (m_object)
            m_object->DecRef();
    }
    DMSmartPtr& operator=(DMSmartPtr other) noexcept
    {
        std::swap(m_object, other.m_object);
        return *this;
    }
    DMSmartPtr& operator=(std::nullptr_t)
    {
        DMSmartPtr().swap(*this);
        return *this;
    }

    void swap(DMSmartPtr& other) noexcept { std::swap(m_object, other.m_object); }
    T* GetPtr() const { return m_object; }
    T* operator->() const { return m_object; }
    T& operator*() const { return *m_object; }
    explicit operator bool() const { return m_object != nullptr; }
    bool operator==(std::nullptr_t) const { return m_object == nullptr; }
    bool operator!=(std::nullptr_t) const { return m_object != nullptr; }

private:
    T* m_object = nullptr;
};
