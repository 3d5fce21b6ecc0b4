#pragma once

#include <memory>
#include <string>
#include <vector>

namespace paperkite {

/// A dictionary with its rules, read by Hunspell. Words are UTF-8, whatever the dictionary is
/// written in.
class HunspellDictionary {
public:
    /// The dictionary of a ".dic" file, whose rules stand beside it in an ".aff" file. Nothing
    /// where one of both cannot be read; `problem` then says so in a sentence.
    static std::unique_ptr<HunspellDictionary> Open(const std::string& file, std::string& problem);
    ~HunspellDictionary();
    HunspellDictionary(const HunspellDictionary&) = delete;
    HunspellDictionary& operator=(const HunspellDictionary&) = delete;

    bool Check(const std::string& word);
    /// The likeliest first.
    std::vector<std::string> Suggest(const std::string& word);

private:
    struct Parts;
    explicit HunspellDictionary(std::unique_ptr<Parts> parts);

    std::unique_ptr<Parts> mParts;
};

} // namespace paperkite
