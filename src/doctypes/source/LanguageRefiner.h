#pragma once

#include "doctypes/source/CtagsTag.h"
#include "doctypes/source/SourceDeclaration.h"
#include "doctypes/source/SourceText.h"

#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace paperkite {

/// One scanned file with all that ctags reported of it.
struct TaggedFile {
    std::string Path; ///< relative to the project's folder
    std::vector<CtagsTag> Tags;
};

/// The code around the tags of one file, comments and strings blanked.
class TaggedCode {
public:
    TaggedCode(const SourceText& text, SourceLanguage language, std::string_view languageName);

    const SourceText& Text() const { return mText; }

    const std::string& Masked() const { return mMasked; }

    /// Where the name of a tag stands, or npos. Several tags of one name in one line get one place
    /// after the other.
    std::size_t Locate(const CtagsTag& tag);

    /// The code before the place back to the last ; { } or the beginning, on one line.
    std::string HeadBefore(std::size_t place) const;

    /// Whether the innermost braces around the place are the body of a function.
    bool IsInFunctionBody(std::size_t place) const;

    /// The line where the body ends that opens behind the place; 0 when there is none.
    std::uint32_t EndOfBody(std::size_t place) const;

private:
    const SourceText& mText;
    bool mHasSigils; ///< a $ before a variable is not part of its name
    std::string mMasked;
    std::map<std::pair<std::uint32_t, std::string>, std::size_t> mFound;
};

/// Turns what ctags says about one language into declarations, and mends what it does not say: it
/// looks into the source for access, types and kinds. Objects have no state; the state of one file
/// is in its Work.
class LanguageRefiner {
public:
    virtual ~LanguageRefiner() = default;

    static const LanguageRefiner& For(SourceLanguage language);

    /// The declarations of the file, sorted by line.
    std::vector<SourceDeclaration> Refine(const TaggedFile& file, const SourceText& text) const;

    /// The package or module of a file where its path alone tells: then all that it declares stands
    /// there or below. Nothing where the content has a say.
    virtual std::optional<std::vector<ScopeStep>> GroupOfPath(std::string_view) const {
        return std::nullopt;
    }

protected:
    struct Work {
        const TaggedFile& File;
        TaggedCode& Code;
        std::vector<ScopeStep> Group; ///< the package or module of the file
        std::set<std::string> Locals; ///< scopes inside of callables
        std::map<std::string, const CtagsTag*>
            Namers;                                   ///< what names a type that ctags calls __anon
        std::map<std::string, const CtagsTag*> Types; ///< what others of the file need to find
        std::vector<const CtagsTag*> Specialised;     ///< template specialisations of the file
        std::set<std::pair<std::uint32_t, std::string>> Signals; ///< of Qt: line and name
        std::string Trait; ///< of the Rust implementation at hand
    };

    /// A tag on its way.
    struct Draft {
        const CtagsTag& Tag;
        std::size_t Place; ///< of the name in the code, or npos
        std::string Head;  ///< the code before it
        SourceDeclaration Declaration;
    };

    virtual std::string_view ScopeSeparator() const { return "."; }

    /// Where GroupOfPath gives nothing, there is no group unless this one says so.
    virtual std::vector<ScopeStep> GroupOf(Work& work) const;

    virtual void Prepare(Work&) const {}

    /// Tags in the place of those of ctags; nothing where those are good.
    virtual std::optional<std::vector<CtagsTag>> BetterTags(const Work&) const { return {}; }

    virtual bool IsWanted(const CtagsTag& tag, const Work& work) const;
    virtual SourceKind KindOf(const CtagsTag& tag) const = 0;

    /// Whether Mend wants to see the head of what has that kind; to find it takes time.
    virtual bool NeedsHead(SourceKind) const { return true; }

    /// The last touch; false leaves the declaration out.
    virtual bool Mend(Draft&, Work&) const { return true; }

    /// Whether the tag stands in a body and is a local of it.
    virtual bool IsLocal(const CtagsTag& tag, Work& work) const;
    virtual std::vector<ScopeStep> ScopeOf(const CtagsTag& tag, const Work& work) const;

    /// Whether the head holds the word.
    static bool HasWord(std::string_view head, std::string_view word);
    /// The head without annotations, modifiers and what stands before them: a type, mostly.
    static std::string TypeInHead(std::string_view head);
    /// As TypeInHead, also for the second name of "int a, b".
    static std::string DeclaredType(std::string_view head);
    /// The folders and the bare file name of a path, as packages and a module.
    static std::vector<ScopeStep> ModulePath(std::string_view path);
    /// The text at the place when it opens with `open`, up to its closing bracket, on one line.
    static std::string BracketedText(const Work& work, std::size_t place, char open);
    /// The type behind "name:", up to where it ends; empty when there is no colon at the place.
    static std::string TypeBehind(const Work& work, std::size_t place);
    /// The code behind the name of the tag.
    static std::size_t Behind(const Draft& draft);

private:
    void AddModule(const Work& work, std::vector<SourceDeclaration>& declarations) const;
    std::optional<SourceDeclaration> RefineTag(const CtagsTag& tag, Work& work) const;
    void TakeCommonFacts(Draft& draft) const;
};

/// What any other language that ctags knows gets: kinds by ctags' words, a module for each file.
class PlainRefiner : public LanguageRefiner {
public:
    std::optional<std::vector<ScopeStep>> GroupOfPath(std::string_view path) const override;

protected:
    SourceKind KindOf(const CtagsTag& tag) const override;
};

/// The kind that most languages of ctags mean by the word; Other when it says nothing.
SourceKind CommonKind(std::string_view ctagsKind);

} // namespace paperkite
