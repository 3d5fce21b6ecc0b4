#pragma once

#include "foundation/Object.h"
#include "foundation/TaggedCommentCollection.h"
#include "model/ContentFile.h"
#include "model/NamedRecords.h"
#include "model/SharedText.h"
#include "model/XmlElement.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace paperkite {

/// All comments of a project, by the qualified names of their items, whether the items exist in the
/// scanned code or not: comments on an item that is gone are kept until somebody deletes them.
///
/// The collections that it gives are the comments themselves: what is added to or taken from one is
/// added to or taken from the store. They live as long as anybody holds them or comments are in
/// them.
class CommentStore : public Object {
public:
    /// What a reader found around a comment and did not understand; written back with it.
    struct KeptContent {
        std::vector<XmlElement> Before;
        std::vector<XmlElement::Attribute> Attributes;
        std::vector<XmlElement> Children;
    };

    /// Where a stored comment came from.
    struct Origin {
        Ref<ContentFile> File;
        std::shared_ptr<const KeptContent> Kept;
        /// The bytes that it was read from, in `Source`; empty where nobody knows them.
        std::string_view Stored = {};
        SharedText Source = {};
    };

    /// Comments of one item that stay bytes until somebody asks for them; see ContentFileIndex.
    struct Run {
        Ref<ContentFile> File;
        SharedText Source;
        std::size_t Offset = 0;
        std::size_t Length = 0;
        std::size_t Count = 0;

        std::string_view Bytes() const { return std::string_view(Source).substr(Offset, Length); }
    };

    std::string TypeName() const override { return "CommentStore"; }

    /// What paths in comments are relative to: the folder of the project file; empty for none.
    const std::string& GetFolder() const { return mFolder; }
    void SetFolder(std::string value) { mFolder = std::move(value); }

    /// The comments of an item, which become its own (their Item); an empty collection when it has
    /// none. Asking makes no comment.
    Ref<TaggedCommentCollection> CommentsOf(const Ref<Object>& item,
                                            const std::string& qualifiedName);
    /// The comments under a name, or nothing; their Item is left alone.
    Ref<TaggedCommentCollection> Find(const std::string& qualifiedName) const;
    /// Puts another collection in place, usually the same comments in another order.
    void SetComments(const std::string& qualifiedName,
                     const Ref<TaggedCommentCollection>& comments);

    /// Gives the comments of one name to another one, behind those that it has; they stay in their
    /// files. A collection of the old name that somebody holds is empty afterwards.
    void Move(const std::string& from, const std::string& to);

    /// How many comments an item has, tombstones not counted; makes nothing.
    std::size_t CountOf(const std::string& qualifiedName) const;
    /// An item is documented when it has any comment. It is the same test by which the tree shows
    /// it bold.
    bool IsDocumented(const std::string& qualifiedName) const { return CountOf(qualifiedName) > 0; }

    /// All comments, tombstones not counted.
    std::size_t Count() const;
    /// The names under which there are comments, sorted by their bytes.
    std::vector<std::string> QualifiedNames() const;

    /// Shows all comments, tombstones left out; the items in the order in which they were met, the
    /// comments of an item in theirs.
    void ForEach(const std::function<void(const std::string& qualifiedName,
                                          const TaggedComment& comment)>& visit) const;

    /// Adds a comment that was read. One whose Id the item has already gets a fresh one: two
    /// branches may have copied it.
    void Load(const std::string& qualifiedName, const Ref<TaggedComment>& comment, Origin origin);
    /// Adds comments as bytes.
    void LoadRun(std::string qualifiedName, Run run);
    /// How many runs are still to be expected, roughly.
    void Expect(std::size_t runs) { mRecords.Expect(runs); }
    /// The only run of an item of which nobody has asked for the comments yet; otherwise nothing.
    const Run* SoleRunOf(const std::string& qualifiedName) const;
    /// Where a comment came from; a new one from nowhere.
    Origin OriginOf(const std::string& qualifiedName, const TaggedComment& comment) const;

    /// After a successful save: new comments belong to the file, their State is 0, and tombstones
    /// are gone.
    void MarkStored(const Ref<ContentFile>& file,
                    const std::function<bool(const Origin&)>& belongs);
    void DropTombstones();
    /// Exchanges all comments; collections that somebody holds stay with their store.
    void SwapComments(CommentStore& other);
    /// Lets go of all comments of a Content File.
    void DropFile(const Ref<ContentFile>& file);
    void Clear();

private:
    class Pending;
    using PendingByName = std::unordered_map<std::string_view, Pending*>;

    struct Record {
        Ref<TaggedCommentCollection> Comments;
        std::vector<std::pair<std::string, Origin>> Origins;
        std::vector<Run> Runs;
    };

    Record& RecordOf(const std::string& qualifiedName);
    Record* FindRecord(const std::string& qualifiedName) const;
    static std::size_t CountOf(const Record& record);
    static void Parse(Record& record);
    static void AddTo(Record& record, const Ref<TaggedComment>& comment, Origin origin);
    Ref<Pending> FindPending(const std::string& qualifiedName) const;
    Ref<TaggedCommentCollection> PendingOf(const std::string& qualifiedName);
    void HandToHolders();
    void Keep(const std::string& qualifiedName, const Ref<TaggedCommentCollection>& comments);

    std::string mFolder;
    /// Comments are made of bytes when somebody asks, which changes nothing for anybody.
    mutable NamedRecords<Record> mRecords;
    /// The collections without comments that somebody holds, but for the newest.
    std::shared_ptr<PendingByName> mPending = std::make_shared<PendingByName>();
    Ref<Pending> mNewest;
};

} // namespace paperkite
