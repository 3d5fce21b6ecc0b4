#pragma once

#include "foundation/Ref.h"
#include "foundation/Value.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace paperkite {

/// A shared model object whose members are reached by name at run time.
///
/// A member that it does not have is error 438. Classes with members of their own answer through a
/// MemberTable; classes that are only referred to need not override anything but TypeName.
class Object : public std::enable_shared_from_this<Object> {
public:
    virtual ~Object() = default;

    /// The run-time type name, as reports and kind tests use it ("CodeModule").
    virtual std::string TypeName() const = 0;
    /// Whether that is the run-time type's name, letter case ignored. Classes whose type name is
    /// put together may answer more quickly.
    virtual bool IsOfType(std::string_view typeName) const;
    virtual Value Get(std::string_view member) const;
    virtual void Set(std::string_view member, const Value& value);
    virtual Value Call(std::string_view member, const std::vector<Value>& arguments);

    /// Whether Enumerate walks anything: true for collections, also empty ones.
    virtual bool IsEnumerable() const { return false; }

    /// Hands each entry to the visitor, in order, until it answers false.
    virtual void Enumerate(const std::function<bool(const Value&)>& visit) const;

protected:
    Object() = default;
    Object(const Object&) = default;
    Object& operator=(const Object&) = default;
};

/// The object itself as a reference; it must live in one already.
template <class T>
Ref<T> RefTo(T& object) {
    return Ref<T>(std::static_pointer_cast<T>(object.shared_from_this()));
}

/// Whether an object is there and of that run-time type, letter case ignored.
bool IsType(const Ref<Object>& object, std::string_view typeName);

} // namespace paperkite
