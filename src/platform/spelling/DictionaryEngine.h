#pragma once

#include "foundation/SpellEngine.h"
#include "platform/spelling/HunspellDictionary.h"
#include "platform/spelling/SpellingPlaces.h"
#include "platform/spelling/TaughtWords.h"

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

namespace paperkite {

/// See MakeSpelling.
class DictionaryEngine : public SpellEngine {
public:
    explicit DictionaryEngine(SpellingPlaces places);

    Value Get(std::string_view member) const override;
    void Set(std::string_view member, const Value& value) override;

    void SetOptions(const SpellOptions& options) override;
    const SpellOptions& GetOptions() const override { return mOptions; }
    std::string GetProblem() const override;
    void SetProject(ProjectSpelling project) override;
    bool Check(const std::string& word) override;
    std::vector<std::string> Suggest(const std::string& word) override;
    void AddIgnoreAll(const std::string& word) override;
    void AddToCustomDictionary(const std::string& word) override;

    const std::string& GetOptionBtnCaption() const { return mOptionBtnCaption; }
    void SetOptionBtnCaption(const std::string& value) { mOptionBtnCaption = value; }
    void SetMainDictFile(const std::string& file);
    void SetCustomDictFile(const std::string& file);

private:
    void Load() const;
    bool IsKnown(const std::string& word);
    bool IsTaught(const std::string& word) const;
    void ReadCustomFile();
    void WordsAreOthers();

    SpellingPlaces mPlaces;
    SpellOptions mOptions;
    ProjectSpelling mProject;
    std::string mOptionBtnCaption;
    TaughtWords mTaught;
    TaughtWords mIgnored;
    /// What the dictionary is, found out when somebody asks.
    mutable bool mIsLoaded = false;
    mutable std::unique_ptr<HunspellDictionary> mDictionary;
    mutable std::string mProblem;
    std::string mCustomProblem;
    std::unordered_map<std::string, bool> mChecked;
};

} // namespace paperkite
