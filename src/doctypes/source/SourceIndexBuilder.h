#pragma once

#include "doctypes/source/SettledFiles.h"
#include "doctypes/source/SourceDeclaration.h"
#include "doctypes/source/SourceIndex.h"

#include <functional>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace paperkite {

/// Makes a SourceIndex out of declarations, which may come in any order: a member may come before
/// its type, a definition before its declaration.
///
/// Declarations become one entity when they mean the same thing: a prototype and its definition, a
/// namespace or type that is opened again, a getter and its setter. What only the scope of others
/// mentions gets an entity without a place.
class SourceIndexBuilder {
public:
    /// The name is the first step of every qualified name. It must not be empty.
    explicit SourceIndexBuilder(std::string_view projectName);

    /// Files are told in the order in which their content is to stand in the tree.
    std::uint32_t AddFile(std::string_view relativePath);

    void Add(const SourceDeclaration& declaration);

    std::size_t Size() const { return mIndex.Size(); }

    /// Asked between the steps of finishing, of which each takes a fraction of a second also for
    /// a million declarations.
    using KeepGoing = std::function<bool()>;

    /// The index of what is known so far and bears its qualified name and kind for good, whatever
    /// the open files will declare; nothing when there is none, or when it was told to stop. Files
    /// that were added are closed by then. The building goes on afterwards. Takes as long as a copy
    /// of all that is known, and finishing it.
    std::optional<SourceIndex> Settled(const OpenGroups& open, const KeepGoing& keepGoing) const;

    /// Ends the building; the builder is empty afterwards. Nothing when it was told to stop.
    std::optional<SourceIndex> Finish(const KeepGoing& keepGoing = {});

private:
    using Id = SourceIndex::Id;
    using Text = StringPool::Id;

    /// What is known of an entity only while building.
    struct Draft {
        Id nextOfName = SourceIndex::Nothing; ///< next one of the same parent and name
        Text types = 0;                       ///< of a callable: its normalised parameter types
        std::uint32_t localFile = SourceIndex::Nothing; ///< when others may have one of this name
        std::uint32_t lastPlace = SourceIndex::Nothing;
        bool isImplied = false; ///< known from scopes only
        bool hasForward = false;
        bool hasDefinition = false;
        bool isGone = false; ///< merged into another
    };

    static std::uint64_t Key(Id parent, Text name) { return (std::uint64_t{parent} << 32) | name; }

    // SourceIndexBuilder.cpp: placing
    Id Create(Id parent, Text name, SourceKind kind);
    Id FirstOfName(Id parent, Text name) const;
    Id Container(const SourceDeclaration& declaration);
    Id ContainerStep(Id parent, const ScopeStep& step, const SourceDeclaration& declaration);
    Id FindSame(Id parent, Text name, const SourceDeclaration& declaration, Text types) const;
    bool IsSameCallable(Id entity, const SourceDeclaration& declaration, Text types) const;
    bool IsOfFile(Id entity, std::uint32_t file) const;
    Text TypesOf(const SourceDeclaration& declaration);
    void TakeFacts(Id entity, const SourceDeclaration& declaration);
    void AddPlace(Id entity, const SourceDeclaration& declaration);

    // SourceIndexSettling.cpp: what stays as it is
    SourceIndexBuilder(const SourceIndexBuilder& other, SourceIndex index);
    std::vector<bool> Unsettled(const OpenGroups& open) const;
    bool StaysBeside(Id entity) const;

    // SourceIndexFinishing.cpp: what needs the whole
    void MatchDefinitions();
    void MatchDefinitionsOf(Id first);
    void MergeInto(Id entity, Id definition);
    void SettleCallableKinds();
    void Compact();
    void NameSteps();
    void NameStepsOf(Id first);
    std::string Discriminator(Id entity) const;
    void OrderChildren();
    void FillNameTable();
    void SettleNames();

    SourceIndex mIndex;
    std::vector<Draft> mDrafts;
    std::unordered_map<std::uint64_t, Id> mFirstOfName;
};

/// A name as a step of a qualified name: ~ : % / \ and control characters percent-encoded.
std::string EncodedStep(std::string_view name);

} // namespace paperkite
