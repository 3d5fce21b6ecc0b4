#pragma once

#include "foundation/Error.h"

#include <compare>
#include <cstddef>
#include <memory>
#include <source_location>
#include <type_traits>
#include <utility>

namespace paperkite {

/// A shared reference that may be nothing. Using nothing raises run-time error 91, never a crash.
///
///     Ref<TaggedComment> comment = MakeRef<TaggedComment>();
///     comment->SetText("…");
///     Ref<TaggedComment> none;
///     none->GetText(); // raises ErrorNumber::ObjectNotSet
template <class T>
class Ref {
public:
    using element_type = T;

    Ref() = default;
    Ref(std::nullptr_t) {}
    Ref(std::shared_ptr<T> pointer) : mPointer(std::move(pointer)) {}
    template <class U>

    requires std::is_convertible_v<U*, T*> Ref(const Ref<U>& other) : mPointer(other.Pointer()) {}
    template <class U>

    requires std::is_convertible_v<U*, T*> Ref(Ref<U>&& other)
        : mPointer(std::move(other).Pointer()) {}

    T* operator->() const { return &**this; }

    T& operator*() const {
        if (!mPointer) RaiseError(ErrorNumber::ObjectNotSet);
        return *mPointer;
    }

    explicit operator bool() const { return mPointer != nullptr; }

    /// The bare address, nothing included: for comparisons and look-ups only.
    T* get() const { return mPointer.get(); }
    const std::shared_ptr<T>& Pointer() const& { return mPointer; }
    std::shared_ptr<T>&& Pointer() && { return std::move(mPointer); }

    /// The same object as a U, or nothing when it is none.
    template <class U>
    Ref<U> As() const {
        return Ref<U>(std::dynamic_pointer_cast<U>(mPointer));
    }

private:
    std::shared_ptr<T> mPointer;
};

/// Identity, not equality of contents.
template <class T, class U>
bool operator==(const Ref<T>& left, const Ref<U>& right) {
    return left.get() == right.get();
}

template <class T>
bool operator==(const Ref<T>& left, std::nullptr_t) {
    return left.get() == nullptr;
}

template <class T, class... Arguments>
Ref<T> MakeRef(Arguments&&... arguments) {
    return Ref<T>(std::make_shared<T>(std::forward<Arguments>(arguments)...));
}

/// A reference that does not keep its object alive.
template <class T>
class WeakRef {
public:
    WeakRef() = default;
    template <class U>

    requires std::is_convertible_v<U*, T*> WeakRef(const Ref<U>& reference)
        : mPointer(reference.Pointer()) {}

    /// The object, or nothing when it is gone.
    Ref<T> Lock() const { return Ref<T>(mPointer.lock()); }

private:
    std::weak_ptr<T> mPointer;
};

/// Holds one object that somebody else owns, and gives it back while it lives: what a component
/// uses for the project and the dynamic help host, so that no cycle keeps them alive.
template <class T>
class ObjectHolder {
public:
    void SetObject(const Ref<T>& object) { mObject = object; }

    /// Nothing when none was stored, or when its owner has let go of it.
    Ref<T> GetObject() const { return mObject.Lock(); }

private:
    WeakRef<T> mObject;
};

} // namespace paperkite
