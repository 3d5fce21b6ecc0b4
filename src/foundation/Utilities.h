#pragma once

#include "foundation/Collection.h"
#include "foundation/Text.h"
#include "foundation/Value.h"

#include <string>

namespace paperkite::Utilities {

/// Key tests that never raise; the first is for entries that are objects and finds only those that
/// are something.
template <class T>
bool ContainsObject(const Collection<Ref<T>>& collection, const std::string& key) {
    const Ref<T>* entry = collection.Find(key);
    return entry && *entry;
}
template <class T>

requires requires(const T& keyed, const std::string& key) {
    keyed.Contains(key);
}

bool ContainsObject(const T& keyed, const std::string& key) {
    return keyed.Contains(key);
}
template <class T>

requires requires(const T& keyed, const std::string& key) {
    keyed.Contains(key);
}

bool ContainsKey(const T& keyed, const std::string& key) {
    return keyed.Contains(key);
}

inline std::string Token(std::string_view text, std::string_view separator, std::size_t index) {
    return paperkite::Token(text, separator, index);
}

inline std::string BeforeColon(std::string_view text) {
    return paperkite::BeforeColon(text);
}

inline std::string AfterColon(std::string_view text) {
    return paperkite::AfterColon(text);
}

/// The fields of a text as a collection without keys.
Collection<std::string> SplitToCollection(std::string_view text, std::string_view separator);

/// A value as text; what has no text form reads as the empty text.
std::string TextOf(const Value& value);

} // namespace paperkite::Utilities
