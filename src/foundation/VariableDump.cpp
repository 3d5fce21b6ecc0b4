#include "foundation/VariableDump.h"

#include "foundation/Text.h"

#include <algorithm>

namespace paperkite {

namespace {

constexpr std::string_view kLineEnd = "\r\n";
constexpr int kEnumerationDepth = 3;

std::string Element(std::string_view name, std::string_view text) {
    std::string result = "<";
    result.append(name).append(">").append(text).append("</");
    return result.append(name.substr(0, name.find(' '))).append(">");
}

std::string Indexed(std::string_view name, const std::string& index) {
    return std::string(name.substr(0, name.find(' '))) + " Index=\"" + index + "\"";
}

/// The children of an element, each on a line of its own.
class Children {
public:
    void Add(const std::string& element) {
        if (mText.empty()) mText += kLineEnd;
        mText.append(element).append(kLineEnd);
    }
    const std::string& GetText() const { return mText; }

private:
    std::string mText;
};

std::string ObjectText(std::string_view name, const Ref<Object>& object, int depth) {
    if (!object) return "{Nothing}";
    if (!object->IsEnumerable() || depth < 1) return "{" + object->TypeName() + "}";
    Children children;
    int index = 0;
    object->Enumerate([&](const Value& entry) {
        children.Add(DumpValue(Indexed(name, std::to_string(++index)), entry,
                               std::min(depth - 1, kEnumerationDepth)));
        return true;
    });
    return children.GetText();
}

std::string IndexText(const ValueArray& array, std::size_t position) {
    std::string text;
    for (auto bounds = array.Dimensions.rbegin(); bounds != array.Dimensions.rend(); ++bounds) {
        const auto length = static_cast<std::size_t>(bounds->Length);
        const auto offset = static_cast<std::int32_t>(position % length);
        text = std::to_string(bounds->Lower + offset) + (text.empty() ? "" : ",") + text;
        position /= length;
    }
    return text;
}

std::string ArrayText(std::string_view name, const ValueArray& array, int depth) {
    const std::size_t dimensions = array.Dimensions.size();
    if (dimensions == 0) return "{UnInitialised Array}";
    if (dimensions > 3) return "{Dump truncated at " + std::to_string(dimensions) + " dimensions}";
    for (std::size_t index = 1; index < dimensions; ++index)
        if (array.Dimensions[index].Length <= 0)
            return "{UnInitialised Array Dimension " + std::to_string(index + 1) + "}";
    Children children;
    for (std::size_t index = 0; depth > 0 && index < array.Entries.size(); ++index)
        children.Add(
            DumpValue(Indexed(name, IndexText(array, index)), array.Entries[index], depth - 1));
    return children.GetText();
}

std::string TextForm(std::string_view name, const Value& value, int depth) {
    if (value.IsEmpty()) return "{Empty}";
    if (value.IsNull()) return "{Null}";
    if (value.IsObject()) return ObjectText(name, value.ToObject(), depth);
    if (value.IsArray()) return ArrayText(name, value.ToArray(), depth);
    if (value.IsInterface()) return "{DataObject}";
    if (value.IsRecord()) return "{UDT - " + value.ToRecord().TypeName + "}";
    return ReplaceAll(value.ToText(), std::string_view("\0", 1), "{Null}");
}

} // namespace

std::string DumpValue(std::string_view name, const Value& value, int depth) {
    try {
        return Element(name, TextForm(name, value, depth));
    } catch (const Error& error) {
        return Element(name,
                       "{Error " + std::to_string(error.GetNumber()) + " formatting for output}");
    } catch (...) {
        return Element(name, "{Error 5 formatting for output}");
    }
}

std::string DumpFixed(std::string_view name, std::string_view text) {
    return Element(name, text);
}

void VariableDump::Append(std::string_view element) {
    mText.append(element).append(kLineEnd);
}

} // namespace paperkite
