#include "foundation/Object.h"

#include "foundation/Text.h"

namespace paperkite {

namespace {

[[noreturn]] void NoSuchMember(const Object& object, std::string_view member) {
    RaiseError(ErrorNumber::NoSuchMember,
               object.TypeName() + " has no member \"" + std::string(member) + "\"");
}

} // namespace

bool Object::IsOfType(std::string_view typeName) const {
    return EqualIgnoringCase(TypeName(), typeName);
}

Value Object::Get(std::string_view member) const {
    NoSuchMember(*this, member);
}

void Object::Set(std::string_view member, const Value&) {
    NoSuchMember(*this, member);
}

Value Object::Call(std::string_view member, const std::vector<Value>&) {
    NoSuchMember(*this, member);
}

void Object::Enumerate(const std::function<bool(const Value&)>&) const {}

bool IsType(const Ref<Object>& object, std::string_view typeName) {
    return object && object->IsOfType(typeName);
}

} // namespace paperkite
