#include "platform/spelling/DictionaryEngine.h"

#include "foundation/MemberTable.h"
#include "foundation/SpellWords.h"
#include "foundation/Text.h"
#include "model/SafeFile.h"
#include "platform/spelling/SpellServices.h"

#include <algorithm>
#include <filesystem>

namespace paperkite {

namespace {

namespace fs = std::filesystem;

/// So many answers are kept.
constexpr std::size_t kMostChecked = 200'000;
constexpr std::size_t kMostTaughtSuggestions = 3;

template <bool SpellOptions::*Option>
void SetOption(DictionaryEngine& engine, const Value& value) {
    SpellOptions options = engine.GetOptions();
    options.*Option = value.ToBoolean();
    engine.SetOptions(options);
}

const MemberTable<DictionaryEngine>& Members() {
    using E = DictionaryEngine;
    using O = SpellOptions;
    static const MemberTable<DictionaryEngine> members{
        {"OptionBtnCaption", [](const E& e) { return Value(e.GetOptionBtnCaption()); },
         [](E& e, const Value& v) { e.SetOptionBtnCaption(v.ToText()); }},
        {"Suggest", [](const E& e) { return Value(e.GetOptions().Suggest); },
         SetOption<&O::Suggest>},
        {"IgnoreInUpperCase", [](const E& e) { return Value(e.GetOptions().IgnoreInUpperCase); },
         SetOption<&O::IgnoreInUpperCase>},
        {"IgnoreWithNumbers", [](const E& e) { return Value(e.GetOptions().IgnoreWithNumbers); },
         SetOption<&O::IgnoreWithNumbers>},
        {"IgnoreInMixedCase", [](const E& e) { return Value(e.GetOptions().IgnoreInMixedCase); },
         SetOption<&O::IgnoreInMixedCase>},
        {"MainDictFile", [](const E& e) { return Value(e.GetOptions().MainDictionaryFile); },
         [](E& e, const Value& v) { e.SetMainDictFile(v.ToText()); }},
        {"CustomDictFile", [](const E& e) { return Value(e.GetOptions().CustomDictionaryFile); },
         [](E& e, const Value& v) { e.SetCustomDictFile(v.ToText()); }},
    };
    return members;
}

std::vector<std::string> LinesOf(const std::string& bytes) {
    std::vector<std::string> lines;
    for (const std::string& line : Split(bytes, "\n"))
        if (std::string word = TrimWhiteSpace(line); !word.empty())
            lines.push_back(std::move(word));
    return lines;
}

std::string WithoutPossessive(const std::string& word) {
    return word.ends_with("'s") || word.ends_with("'S") ? word.substr(0, word.size() - 2)
                                                        : std::string();
}

} // namespace

DictionaryEngine::DictionaryEngine(SpellingPlaces places) : mPlaces(std::move(places)) {
    mOptions.CustomDictionaryFile = mPlaces.CustomFile;
    ReadCustomFile();
}

Value DictionaryEngine::Get(std::string_view member) const {
    const auto getter = Members().FindGetter(member);
    return getter ? getter(*this) : Object::Get(member);
}

void DictionaryEngine::Set(std::string_view member, const Value& value) {
    if (!Members().Set(*this, member, value)) Object::Set(member, value);
}

void DictionaryEngine::SetMainDictFile(const std::string& file) {
    SpellOptions options = mOptions;
    options.MainDictionaryFile = EndsWithIgnoringCase(file, ".dic") ? file : std::string();
    SetOptions(options);
}

void DictionaryEngine::SetCustomDictFile(const std::string& file) {
    SpellOptions options = mOptions;
    options.CustomDictionaryFile = fs::path(file).is_absolute() ? file : mPlaces.CustomFile;
    SetOptions(options);
}

void DictionaryEngine::SetOptions(const SpellOptions& options) {
    if (mOptions == options) return;
    if (mOptions.MainDictionaryFile != options.MainDictionaryFile) mIsLoaded = false;
    mOptions = options;
    ReadCustomFile();
    WordsAreOthers();
}

void DictionaryEngine::SetProject(ProjectSpelling project) {
    mProject = std::move(project);
    ReadCustomFile();
    WordsAreOthers();
}

// Also takes what the options and the project know.
void DictionaryEngine::ReadCustomFile() {
    mTaught.Clear();
    mIgnored.Clear();
    mCustomProblem.clear();
    std::string bytes;
    std::error_code ignored;
    const std::string& file = mOptions.CustomDictionaryFile;
    if (!file.empty() && fs::exists(file, ignored))
        if (const auto problem = SafeFile::Read(file, bytes)) mCustomProblem = problem->Message();
    for (const std::string& word : LinesOf(bytes))
        mTaught.Add(word);
    for (const std::string& line : LinesOf(ReplaceAll(mOptions.IgnoreWordList, " ", "\n")))
        mIgnored.Add(line);
    for (const std::string& word : mProject.Learnt)
        mTaught.Add(word);
    for (const std::string& word : mProject.Ignored)
        mIgnored.Add(word);
}

void DictionaryEngine::WordsAreOthers() {
    mChecked.clear();
    Events.WordsChanged.Raise();
}

void DictionaryEngine::Load() const {
    if (mIsLoaded) return;
    mIsLoaded = true;
    mDictionary = nullptr;
    mProblem.clear();
    const std::string file = mOptions.MainDictionaryFile.empty() ? mPlaces.FindDictionary()
                                                                 : mOptions.MainDictionaryFile;
    if (!file.empty()) {
        mDictionary = HunspellDictionary::Open(file, mProblem);
        return;
    }
    mProblem = "There is no spelling dictionary for " + mPlaces.Language + ", nor for en_US, in " +
               Join(mPlaces.Folders, ", ") +
               ". Install one (on Debian the package hunspell-en-us), or choose a .dic file in the "
               "spelling options. Until then every word counts as right.";
}

std::string DictionaryEngine::GetProblem() const {
    Load();
    return mProblem.empty() ? mCustomProblem : mProblem;
}

bool DictionaryEngine::Check(const std::string& word) {
    if (const auto known = mChecked.find(word); known != mChecked.end()) return known->second;
    const bool isRight = SpellWords::IsPassedOver(word, mOptions) || IsKnown(word);
    if (mChecked.size() >= kMostChecked) mChecked.clear();
    mChecked.emplace(word, isRight);
    return isRight;
}

bool DictionaryEngine::IsTaught(const std::string& word) const {
    return mTaught.Knows(word) || mIgnored.Knows(word) ||
           (mProject.IsDeclared && mProject.IsDeclared(word));
}

bool DictionaryEngine::IsKnown(const std::string& word) {
    Load();
    if (!mDictionary || mDictionary->Check(word) || IsTaught(word)) return true;
    const std::string owner = WithoutPossessive(word);
    return !owner.empty() && IsTaught(owner);
}

std::vector<std::string> DictionaryEngine::Suggest(const std::string& word) {
    Load();
    std::vector<std::string> suggestions = mTaught.Like(word, kMostTaughtSuggestions);
    if (!mDictionary) return suggestions;
    for (std::string& one : mDictionary->Suggest(word))
        if (std::find(suggestions.begin(), suggestions.end(), one) == suggestions.end())
            suggestions.push_back(std::move(one));
    return suggestions;
}

void DictionaryEngine::AddIgnoreAll(const std::string& word) {
    if (word.empty() || mIgnored.Knows(word)) return;
    mIgnored.Add(word);
    mProject.Ignored.push_back(word);
    WordsAreOthers();
}

void DictionaryEngine::AddToCustomDictionary(const std::string& word) {
    if (word.empty()) return;
    if (mProject.Learn) {
        mProject.Learn(word);
        mProject.Learnt.push_back(word);
        mTaught.Add(word);
        return WordsAreOthers();
    }
    const std::string& file = mOptions.CustomDictionaryFile;
    if (file.empty())
        RaiseError(ErrorNumber::PathOrFileAccess,
                   "There is no custom dictionary to keep \"" + word +
                       "\" in. Choose a file for it in the spelling options.");
    std::error_code ignored;
    fs::create_directories(fs::path(file).parent_path(), ignored);
    // Another program may have added words meanwhile.
    std::string bytes;
    if (fs::exists(file, ignored))
        if (const auto problem = SafeFile::Read(file, bytes))
            RaiseError(ErrorNumber::PathOrFileAccess, problem->Message());
    std::vector<std::string> words = LinesOf(bytes);
    words.push_back(word);
    std::sort(words.begin(), words.end());
    words.erase(std::unique(words.begin(), words.end()), words.end());
    if (const auto problem = SafeFile::Write(file, Join(words, "\n") + "\n"))
        RaiseError(ErrorNumber::PathOrFileAccess, problem->Message());
    ReadCustomFile();
    WordsAreOthers();
}

Ref<SpellEngine> MakeSpelling(SpellingPlaces places) {
    return MakeRef<DictionaryEngine>(std::move(places));
}

} // namespace paperkite
