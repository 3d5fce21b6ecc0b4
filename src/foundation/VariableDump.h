#pragma once

#include "foundation/Object.h"
#include "foundation/Value.h"

#include <string>
#include <string_view>
#include <type_traits>

namespace paperkite {

/// The depth with which a procedure's own variables are dumped.
inline constexpr int kDumpDepth = 99;

/// One value as a mark-up element. `name` may carry attributes behind a blank; the closing tag has
/// none. Depth goes down by one with each level of an array or an enumeration, the entries of an
/// enumeration have at most depth 3, and at depth 0 an object is its type's name and an array
/// nothing. A failure while the text is made becomes the text.
std::string DumpValue(std::string_view name, const Value& value, int depth);

/// An element whose text is fixed, for what cannot be dumped.
std::string DumpFixed(std::string_view name, std::string_view text);

inline constexpr std::string_view kUndumpableParameter = "{Can't dump UDT parameters}";
inline constexpr std::string_view kUndumpableVariable = "{Cannot dump external UDTs}";

/// What a variable of the code is worth in a dump.
struct DumpOperand {
    Value Content;
    /// Its type has no dump; the fixed text is used instead.
    bool Undumpable = false;
};

template <class T>
DumpOperand OperandOf(const T& variable) {
    if constexpr (std::is_same_v<T, Value>)
        return {variable};
    else if constexpr (std::is_same_v<T, bool>)
        return {Value(variable)};
    else if constexpr (std::is_enum_v<T>)
        return {{}, true};
    else if constexpr (std::is_integral_v<T> && sizeof(T) <= 4)
        return {Value(static_cast<std::int32_t>(variable))};
    else if constexpr (std::is_arithmetic_v<T>)
        return {Value(static_cast<double>(variable))};
    else if constexpr (std::is_convertible_v<const T&, std::string_view>)
        return {Value(std::string_view(variable))};
    // A host, of which only the interface is known.
    else if constexpr (std::is_pointer_v<T>)
        return {variable ? Value(InterfaceValue{}) : Value(Ref<Object>())};
    else if constexpr (requires { Value(variable); })
        return {Value(variable)};
    else if constexpr (requires { variable.GetObject(); })
        return {Value(variable.GetObject())};
    // A widget, which has a name but no members that are reached by name.
    else if constexpr (requires {
                           variable.get();
                           static_cast<bool>(variable);
                       })
        return {variable ? Value(InterfaceValue{}) : Value(Ref<Object>())};
    else
        return {{}, true};
}

/// Gathers dumps of variables, an element a line.
class VariableDump {
public:
    template <class T>
    VariableDump& Add(std::string_view name, const T& variable) {
        const DumpOperand operand = OperandOf(variable);
        Append(operand.Undumpable ? DumpFixed(name, kUndumpableVariable)
                                  : DumpValue(name, operand.Content, kDumpDepth));
        return *this;
    }
    void Append(std::string_view element);
    const std::string& GetText() const { return mText; }

private:
    std::string mText;
};

} // namespace paperkite
