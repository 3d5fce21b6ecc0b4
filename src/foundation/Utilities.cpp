#include "foundation/Utilities.h"

namespace paperkite::Utilities {

Collection<std::string> SplitToCollection(std::string_view text, std::string_view separator) {
    Collection<std::string> fields;
    for (std::string& field : Split(text, separator))
        fields.Add(std::move(field));
    return fields;
}

std::string TextOf(const Value& value) {
    std::string text;
    Ignoring([&] { text = value.ToText(); });
    return text;
}

} // namespace paperkite::Utilities
