#include "platform/spelling/HunspellDictionary.h"

#include "foundation/Text.h"

#include <filesystem>
#include <fstream>
#include <optional>

#include <hunspell/hunspell.hxx>
#include <iconv.h>

namespace paperkite {

namespace {

/// Brings texts from one encoding into another.
class Converter {
public:
    Converter(const char* to, const char* from) : mHandle(iconv_open(to, from)) {}
    ~Converter() {
        if (IsThere()) iconv_close(mHandle);
    }
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;

    bool IsThere() const { return mHandle != reinterpret_cast<iconv_t>(-1); }

    /// Nothing for what the other encoding cannot write.
    std::optional<std::string> Convert(std::string text) const {
        if (!IsThere()) return std::nullopt;
        std::string result(text.size() * 4 + 8, '\0');
        char* in = text.data();
        char* out = result.data();
        std::size_t left = text.size();
        std::size_t room = result.size();
        iconv(mHandle, nullptr, nullptr, nullptr, nullptr);
        if (iconv(mHandle, &in, &left, &out, &room) != 0) return std::nullopt;
        result.resize(result.size() - room);
        return result;
    }

private:
    iconv_t mHandle;
};

bool CanRead(const std::string& file) {
    std::error_code ignored;
    return std::filesystem::is_regular_file(file, ignored) &&
           std::ifstream(file, std::ios::binary).good();
}

} // namespace

struct HunspellDictionary::Parts {
    Parts(const std::string& rules, const std::string& words)
        : Engine(rules.c_str(), words.c_str()), Encoding(Engine.get_dict_encoding()),
          IsUtf8(EqualIgnoringCase(Encoding, "UTF-8")), To(Encoding.c_str(), "UTF-8"),
          From("UTF-8", Encoding.c_str()) {}

    std::optional<std::string> Encoded(const std::string& word) const {
        return IsUtf8 ? word : To.Convert(word);
    }

    Hunspell Engine;
    std::string Encoding;
    bool IsUtf8;
    Converter To;
    Converter From;
};

HunspellDictionary::HunspellDictionary(std::unique_ptr<Parts> parts) : mParts(std::move(parts)) {}

HunspellDictionary::~HunspellDictionary() = default;

std::unique_ptr<HunspellDictionary> HunspellDictionary::Open(const std::string& file,
                                                             std::string& problem) {
    const std::string rules = std::filesystem::path(file).replace_extension(".aff").string();
    for (const std::string& needed : {file, rules}) {
        if (CanRead(needed)) continue;
        problem = "The spelling dictionary \"" + needed +
                  "\" cannot be read. Choose another one in the spelling options, or put it "
                  "there. Until then every word counts as right.";
        return nullptr;
    }
    auto parts = std::make_unique<Parts>(rules, file);
    if (!parts->IsUtf8 && !parts->To.IsThere()) {
        problem = "The spelling dictionary \"" + file + "\" is written in \"" + parts->Encoding +
                  "\", which this system does not know. Choose another one in the spelling "
                  "options. Until then every word counts as right.";
        return nullptr;
    }
    return std::unique_ptr<HunspellDictionary>(new HunspellDictionary(std::move(parts)));
}

bool HunspellDictionary::Check(const std::string& word) {
    const auto encoded = mParts->Encoded(word);
    return encoded && mParts->Engine.spell(*encoded);
}

std::vector<std::string> HunspellDictionary::Suggest(const std::string& word) {
    std::vector<std::string> suggestions;
    const auto encoded = mParts->Encoded(word);
    if (!encoded) return suggestions;
    for (const std::string& one : mParts->Engine.suggest(*encoded)) {
        if (mParts->IsUtf8)
            suggestions.push_back(one);
        else if (auto converted = mParts->From.Convert(one))
            suggestions.push_back(std::move(*converted));
    }
    return suggestions;
}

} // namespace paperkite
