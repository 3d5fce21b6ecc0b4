#include "faults/FailingModel.h"

#include "doctypes/source/SourceNamespaceDefs.h"
#include "doctypes/source/SourceScanner.h"
#include "model/ContentFileReader.h"

#include <algorithm>
#include <set>

namespace paperkite::test {

namespace {

constexpr const char* kCode = R"(
namespace app {
class A {
public:
    void Run();
    void Stop();
    int Size;
private:
    void Hidden();
};
class B {
public:
    void Go();
};
class C {};
}
)";

constexpr const char* kComments = R"(<?xml version="1.0" encoding="UTF-8"?>
<contentfile version="1">
  <comment item="demo~app~A" tag="##" id="a-general">General of A.</comment>
  <comment item="demo~app~A" tag="#note" id="a-note">Note of A.</comment>
  <comment item="demo~app~A" tag="#todo" id="a-todo"></comment>
  <comment item="demo~app~A~Run" tag="#note" id="run-note">Note of Run.</comment>
  <comment item="demo~app~B" tag="#note" id="b-note">Note of B.</comment>
  <comment item="demo~gone" tag="#note" id="gone-note">Its item is gone.</comment>
</contentfile>
)";

const std::set<std::string> kIds{"a-general", "a-note", "a-todo",
                                 "run-note",  "b-note", "gone-note"};

} // namespace

ScannedProject::ScannedProject() {
    Folder.Write("src/demo.cpp", kCode);
    Folder.Write("demo.ktc", kComments);
    Project = ProjectDocument::New(Folder / "demo.kiteproject").Project;
    Project->AddSource(Folder / "src").RootName = "demo";
    Provider = MakeRef<SourceNamespaceProvider>(Project->GetComments());
    ScanResult scan = SourceScanner(Folder / "src", "demo").Scan();
    if (!scan.Index) throw std::runtime_error(scan.Outcome.Message);
    Provider->AddRoot(std::move(*scan.Index), Folder / "src");
    Definitions = MakeSourceNamespaceDefs({&Provider->GetIndex(0)});
    Project->RegisterProvider(kSourceMoniker, Provider);
}

ScannedProject::~ScannedProject() {
    Definitions->Release();
}

void ScannedProject::Reset() {
    const std::string path = Folder / "demo.ktc";
    Project->GetComments()->Clear();
    Project->RemoveContentFile(path);
    Folder.Write("demo.ktc", kComments);
    Project->AddContentFile(path);
    Provider->ForEachName([this](const std::string& name) {
        const auto item = Provider->GetItem(name);
        item->Set("IncludeFlag", true);
        item->Set("ExcludeFlag", false);
        item->Set("RootFlag", false);
        item->Set("TaggedDescription", "");
        return true;
    });
    Project->SetDirty(false);
}

std::string ScannedProject::Listing(const CommentStore& store) {
    std::string text;
    for (const std::string& item : store.QualifiedNames()) {
        std::vector<std::string> lines;
        const auto comments = store.Find(item);
        for (const auto& comment : *comments) {
            if (comment->GetState() == kTaggedCommentTombstone) continue;
            const std::string& id = comment->GetId();
            lines.push_back(item + " " + comment->GetTagIdentifier() + " " +
                            (kIds.contains(id) ? id : "new") + ": " + comment->GetText() + "\n");
        }
        // A collection that is open stands in another order.
        std::sort(lines.begin(), lines.end());
        for (const std::string& line : lines)
            text += line;
    }
    return text;
}

std::string ScannedProject::Comments() const {
    return Listing(*Project->GetComments());
}

std::string ScannedProject::StoredComments() const {
    const auto store = MakeRef<CommentStore>();
    const auto file = MakeRef<ContentFile>();
    file->Path = Folder / "demo.ktc";
    if (const auto problem = ContentFileReader::Read(file, *store)) return problem->Message();
    return Listing(*store);
}

Value FailingItem::Get(std::string_view member) const {
    mFailure.Use("Item.Get(" + std::string(member) + ")");
    const Value value = mInner->Get(member);
    if (member == "Parent") return Value(mProvider.Wrapped(value.ToObject()));
    if (member != "TaggedComments") return value;
    const auto comments = value.ToObjectOf<TaggedCommentCollection>();
    for (const auto& comment : *comments)
        comment->SetItem(RefTo(const_cast<FailingItem&>(*this)));
    return value;
}

void FailingItem::Set(std::string_view member, const Value& value) {
    mFailure.Use("Item.Set(" + std::string(member) + ")");
    mInner->Set(member, value);
}

namespace {

/// The real provider knows its own items only.
Value Unwrapped(const Value& value) {
    if (!value.IsObject()) return value;
    const auto item = value.ToObject().As<FailingItem>();
    return item ? Value(item->GetInner()) : value;
}

} // namespace

void FailingDataProvider::Set(std::string_view member, const Value& value) {
    mFailure.Use("Data.Set(" + std::string(member) + ")");
    mInner->Set(member, Unwrapped(value));
}

Value FailingDataProvider::Call(std::string_view member, const std::vector<Value>& arguments) {
    mFailure.Use("Data.Call(" + std::string(member) + ")");
    std::vector<Value> unwrapped;
    for (const Value& argument : arguments)
        unwrapped.push_back(Unwrapped(argument));
    return mInner->Call(member, unwrapped);
}

void FailingDataProvider::SetCurrentRootItem(const Ref<Object>& item) {
    mFailure.Use("Data.SetCurrentRootItem");
    mInner->SetCurrentRootItem(item);
}

std::string FailingDataProvider::GetProperty(const std::string& name) {
    mFailure.Use("Data.GetProperty");
    return mInner->GetProperty(name);
}

std::string FailingDataProvider::ParseForProperties(const std::string& text) {
    mFailure.Use("Data.ParseForProperties");
    return mInner->ParseForProperties(text);
}

std::string FailingDataProvider::ProvideData(const Ref<ParserElement>& element,
                                             const Ref<FileSystem>& files) {
    mFailure.Use("Data.ProvideData");
    return mInner->ProvideData(element, files);
}

void FailingDataProvider::SetCurrentItem(Ref<NamespaceDef>& definition, const Ref<Object>& item,
                                         const std::string& itemType,
                                         const Ref<Object>& parentItem) {
    mFailure.Use("Data.SetCurrentItem");
    mInner->SetCurrentItem(definition, item, itemType, parentItem);
}

FailingProvider::FailingProvider(FailureSwitch& failure, Ref<SourceNamespaceProvider> inner)
    : mFailure(failure), mInner(std::move(inner)),
      mDataProvider(MakeRef<FailingDataProvider>(failure, mInner->GetDataProvider())) {}

Ref<DataProvider> FailingProvider::GetDataProvider() {
    mFailure.Use("Provider.DataProvider");
    return mDataProvider;
}

Ref<Object> FailingProvider::GetRootItem(Ref<NamespaceDef>& definition,
                                         const std::string& moniker) {
    mFailure.Use("Provider.GetRootItem");
    return Wrapped(mInner->GetRootItem(definition, moniker));
}

Ref<Object> FailingProvider::GetItem(const std::string& qualifiedName) {
    mFailure.Use("Provider.GetItem");
    return Wrapped(mInner->GetItem(qualifiedName));
}

Ref<Object> FailingProvider::ItemByQualifiedName(const std::string& qualifiedName) {
    mFailure.Use("Provider.ItemByQualifiedName");
    return Wrapped(mInner->ItemByQualifiedName(qualifiedName));
}

Ref<ObjectCollection> FailingProvider::GetItems(Ref<NamespaceDef>& definition,
                                                const Ref<Object>& parentItem,
                                                const std::string& filter) {
    mFailure.Use("Provider.GetItems");
    const auto parent = parentItem.As<FailingItem>();
    const auto items =
        mInner->GetItems(definition, parent ? parent->GetInner() : parentItem, filter);
    if (!items) return items;
    auto wrapped = MakeRef<ObjectCollection>();
    for (const auto& item : *items)
        wrapped->Add(Wrapped(item));
    return wrapped;
}

Ref<Object> FailingProvider::Wrapped(const Ref<Object>& inner) {
    if (!inner) return inner;
    Ref<FailingItem>& item = mItems[inner.get()];
    if (!item) item = MakeRef<FailingItem>(mFailure, *this, inner);
    return item;
}

FailingProject::FailingProject(FailureSwitch& failure, const ScannedProject& scanned)
    : mFailure(failure), mInner(scanned.Project),
      mProvider(MakeRef<FailingProvider>(failure, scanned.Provider)) {}

Ref<paperkite::NamespaceProvider> FailingProject::NamespaceProvider(const std::string& moniker) {
    mFailure.Use("Project.NamespaceProvider");
    return moniker == kSourceMoniker ? Ref<paperkite::NamespaceProvider>(mProvider)
                                     : Ref<paperkite::NamespaceProvider>();
}

Ref<TextCollection> FailingProject::GetNamespaceExclusions() {
    mFailure.Use("Project.NamespaceExclusions");
    return mInner->GetNamespaceExclusions();
}

void FailingProject::SetIncludePrivate(bool value) {
    mFailure.Use("Project.IncludePrivate");
    mInner->SetIncludePrivate(value);
}

void FailingProject::SetIncludeFriend(bool value) {
    mFailure.Use("Project.IncludeFriend");
    mInner->SetIncludeFriend(value);
}

bool FailingProject::GetIncludeProtected() const {
    mFailure.Use("Project.IncludeProtected");
    return mInner->GetIncludeProtected();
}

void FailingProject::SetIncludeProtected(bool value) {
    mFailure.Use("Project.IncludeProtected");
    mInner->SetIncludeProtected(value);
}

void FailingProject::SetIncludeProtectedFriend(bool value) {
    mFailure.Use("Project.IncludeProtectedFriend");
    mInner->SetIncludeProtectedFriend(value);
}

} // namespace paperkite::test
