#pragma once

#include "foundation/Ref.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace paperkite {

class Object;
class Value;

/// One dimension of an array: its first index and how many entries it has.
struct ArrayBounds {
    std::int32_t Lower = 0;
    std::int32_t Length = 0;
};

/// An array value. One that was never dimensioned has no bounds at all. Entries stand with the last
/// index running fastest.
struct ValueArray {
    std::vector<ArrayBounds> Dimensions;
    std::vector<Value> Entries;
};

/// A value of a structured type, known by its type's name only.
struct RecordValue {
    std::string TypeName;
};

/// A reference to something outside the object model, of which only the interface is known.
struct InterfaceValue {};

/// What a member that is reached at run time holds: empty, null, a boolean, a 32-bit integer, a
/// double, text, an object (or nothing), an array, or a record. Copies share objects and arrays.
class Value {
public:
    struct Null {};

    using Array = std::shared_ptr<const ValueArray>;

    Value() = default;
    Value(Null value) : mContent(value) {}
    Value(bool value) : mContent(value) {}
    Value(std::int32_t value) : mContent(value) {}
    Value(double value) : mContent(value) {}
    Value(std::string value) : mContent(std::move(value)) {}
    Value(std::string_view value) : mContent(std::string(value)) {}
    Value(const char* value) : mContent(std::string(value)) {}
    Value(Ref<Object> value) : mContent(std::move(value)) {}
    template <class T>

    requires std::is_convertible_v<T*, Object*> Value(const Ref<T>& value)
        : mContent(Ref<Object>(value)) {}

    Value(RecordValue value) : mContent(std::move(value)) {}
    Value(InterfaceValue value) : mContent(value) {}

    /// An array of any shape; its entries must be as many as its bounds say.
    explicit Value(ValueArray value);
    /// A one-dimensional array that counts from `lower`.
    static Value ArrayOf(std::vector<Value> entries, std::int32_t lower = 0);
    static Value ArrayOfTexts(const std::vector<std::string>& texts);
    bool IsEmpty() const { return std::holds_alternative<std::monostate>(mContent); }
    bool IsNull() const { return std::holds_alternative<Null>(mContent); }
    bool IsObject() const { return std::holds_alternative<Ref<Object>>(mContent); }
    bool IsText() const { return std::holds_alternative<std::string>(mContent); }
    bool IsBoolean() const { return std::holds_alternative<bool>(mContent); }
    bool IsInteger() const { return std::holds_alternative<std::int32_t>(mContent); }
    bool IsDouble() const { return std::holds_alternative<double>(mContent); }
    bool IsArray() const { return std::holds_alternative<Array>(mContent); }
    bool IsInterface() const { return std::holds_alternative<InterfaceValue>(mContent); }
    bool IsRecord() const { return std::holds_alternative<RecordValue>(mContent); }

    // What follows converts where a conversion makes sense and raises error 13 where none does.

    /// Booleans read "True" and "False"; empty reads as the empty text.
    std::string ToText() const&;
    std::string ToText() &&;
    /// True reads as -1, text by the leading-digits rule.
    double ToNumber() const;
    /// Rounded to the nearest, halves to even; outside 32 bits is error 6.
    std::int32_t ToInteger() const;
    bool ToBoolean() const;
    /// The object, which may be nothing; empty reads as nothing.
    Ref<Object> ToObject() const;
    const ValueArray& ToArray() const;
    const RecordValue& ToRecord() const;

    /// The object as a T; nothing stays nothing, an object of another kind is error 13.
    template <class T>
    Ref<T> ToObjectOf() const {
        const Ref<Object> object = ToObject();
        if (!object) return {};
        Ref<T> result = object.template As<T>();
        if (!result) RaiseError(ErrorNumber::TypeMismatch);
        return result;
    }

private:
    std::variant<std::monostate, Null, bool, std::int32_t, double, std::string, Ref<Object>, Array,
                 RecordValue, InterfaceValue>
        mContent;
};

} // namespace paperkite
