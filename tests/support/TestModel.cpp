#include "support/TestModel.h"

#include "foundation/Error.h"
#include "foundation/Text.h"

namespace paperkite::test {

namespace {

void Used(const char* way, std::string_view member) {
    if (TestItem::OnUse) TestItem::OnUse(std::string(way) + "(" + std::string(member) + ")");
}

std::string NameOf(const Ref<Object>& item) {
    return item ? item->Get("QualifiedName").ToText() : "nothing";
}

} // namespace

TestItem::TestItem(EventLog& log, std::string typeName, const std::string& qualifiedName)
    : mLog(log), mTypeName(std::move(typeName)) {
    mMembers.emplace("Examples", Value(Ref<Object>()));
    With("QualifiedName", qualifiedName);
    With("Name", qualifiedName.substr(qualifiedName.rfind('~') + 1));
    With("Access", "Public");
    With("TaggedComments", Value(MakeRef<TaggedCommentCollection>()));
    for (const char* flag : {"RootFlag", "IncludeFlag", "ExcludeFlag"})
        With(flag, false);
    if (mTypeName == "CodeModule") With("Analysed", false);
    if (mTypeName != "CodeProject") return;
    With("VBProjectGroup", Value(Ref<Object>()));
    With("Modules", Value(MakeRef<ObjectCollection>()));
}

Value TestItem::Get(std::string_view member) const {
    Used("Get", member);
    const auto found = mMembers.find(member);
    return found == mMembers.end() ? Object::Get(member) : found->second;
}

void TestItem::Set(std::string_view member, const Value& value) {
    Used("Set", member);
    const auto found = mMembers.find(member);
    if (found == mMembers.end()) return Object::Set(member, value);
    found->second = value;
    if (member == "Analysed") mLog.Add("Analysed(" + QualifiedName() + ")=" + value.ToText());
}

Value TestItem::Call(std::string_view member, const std::vector<Value>& arguments) {
    Used("Call", member);
    if (mTypeName != "CodeProject" || (member != "Prepare" && member != "Load"))
        return Object::Call(member, arguments);
    std::string call = std::string(member) + "(" + QualifiedName();
    for (const Value& argument : arguments)
        call += "," + argument.ToText();
    mLog.Add(call + ")");
    return member == "Prepare" ? Value(false) : Value();
}

TestItem& TestItem::With(const std::string& member, const Value& value) {
    mMembers.insert_or_assign(member, value);
    return *this;
}

TestItem& TestItem::Without(const std::string& member) {
    mMembers.erase(member);
    return *this;
}

Ref<TaggedCommentCollection> TestItem::Comments() const {
    return Get("TaggedComments").ToObjectOf<TaggedCommentCollection>();
}

Ref<TaggedComment> TestItem::Comment(const std::string& tag, const std::string& text,
                                     const std::string& id, int state) {
    const auto comment = MakeRef<TaggedComment>(id);
    comment->SetTagIdentifier(tag);
    comment->SetText(text);
    comment->SetState(state);
    comment->SetItem(RefTo(*this));
    Comments()->Add(comment, comment->GetId());
    return comment;
}

void TestDataProvider::SetCurrentRootItem(const Ref<Object>& item) {
    mRoot = item;
    mLog.Add("CurrentRootItem(" + NameOf(item) + ")");
}

std::string TestDataProvider::GetProperty(const std::string& name) {
    return mItem->Get(name).ToText();
}

std::string TestDataProvider::ParseForProperties(const std::string& text) {
    mLog.Add("Parse(" + text + ")");
    return ReplaceAll(text, "%%Name%%", GetProperty("Name"));
}

void TestDataProvider::SetCurrentItem(Ref<NamespaceDef>& definition, const Ref<Object>& item,
                                      const std::string& itemType, const Ref<Object>& parentItem) {
    mLog.Add("SetCurrentItem(" + definition->Name + "," + NameOf(item) + "," + itemType + "," +
             NameOf(parentItem) + ")");
    mItem = item;
    mItemType = itemType;
    mParent = parentItem;
    if (Replacement) definition = Replacement;
    mDefinition = definition;
}

void TestProvider::Told(const std::string& call) {
    mLog.Add(call);
    if (OnCall) OnCall(call);
}

Ref<Object> TestProvider::GetRootItem(Ref<NamespaceDef>& definition, const std::string& moniker) {
    Told("GetRootItem(" + definition->Name + "," + moniker + ")");
    return Root;
}

Ref<Object> TestProvider::GetItem(const std::string& qualifiedName) {
    Told("GetItem(" + qualifiedName + ")");
    const auto found = Items.find(qualifiedName);
    return found == Items.end() ? Ref<Object>() : Ref<Object>(found->second);
}

Ref<Object> TestProvider::ItemByQualifiedName(const std::string& qualifiedName) {
    return GetItem(qualifiedName);
}

Ref<ObjectCollection> TestProvider::GetItems(Ref<NamespaceDef>& definition,
                                             const Ref<Object>& parentItem,
                                             const std::string& filter) {
    const std::string name = definition->Name;
    Told("GetItems(" + name + (definition->Prepared ? "" : " unprepared") + "," +
         NameOf(parentItem) + "," + filter + ")");
    if (Silent.contains(name)) return {};
    if (const auto found = Replacements.find(name); found != Replacements.end())
        definition = found->second;
    const auto items = MakeRef<ObjectCollection>();
    if (const auto parent = parentItem.As<TestItem>())
        for (const auto& child : parent->Children)
            if (child->DefinitionName == name) items->Add(child);
    return items;
}

Ref<paperkite::NamespaceProvider> TestProject::NamespaceProvider(const std::string& moniker) {
    mLog.Add("NamespaceProvider(" + moniker + ")");
    const auto found = Providers.find(moniker);
    return found == Providers.end() ? Ref<paperkite::NamespaceProvider>() : found->second;
}

std::string TestProject::Scope() const {
    return std::string(mPrivate ? "p" : "-") + (mFriend ? "f" : "-") + (mProtected ? "t" : "-") +
           (mProtectedFriend ? "b" : "-");
}

Value TestWrapper::Call(std::string_view member, const std::vector<Value>& arguments) {
    std::string text;
    const auto shown = [](const Value& argument) {
        if (!argument.IsObject()) return argument.ToText();
        const auto object = argument.ToObject();
        return object ? object->TypeName() : std::string("nothing");
    };
    for (const Value& argument : arguments)
        text += (text.empty() ? "(" : ",") + shown(argument);
    mLog.Add(std::string(member) + text + (text.empty() ? "" : ")"));
    return {};
}

Ref<NamespaceDef> MakeDef(const std::string& name, const std::string& groupCaption) {
    const auto definition = MakeRef<NamespaceDef>();
    definition->Name = name;
    definition->Moniker = "test";
    definition->ImageKey = AfterColon(name);
    definition->ItemType = LowerCase(definition->ImageKey);
    definition->GroupCaption = groupCaption;
    return definition;
}

TestModel::TestModel()
    : Defs(MakeRef<NamespaceDefs>("kite.test")), Provider(MakeRef<TestProvider>(Log)),
      Project(MakeRef<TestProject>(Log)) {
    for (const auto& [name, caption] :
         std::vector<std::pair<std::string, std::string>>{{"Test:Project", ""},
                                                          {"Test:Class", "Classes"},
                                                          {"Test:Method", "Methods"},
                                                          {"Test:Field", "Fields"}})
        Definitions[name] = MakeDef(name, caption);
    Defs->SetScopeFlags("pift");
    Defs->Add(Def("Test:Project"), "Test:Project");
    Def("Test:Project")->GetChildDefs()->Add(Def("Test:Class"), "Test:Class");
    for (const char* name : {"Test:Method", "Test:Field"})
        Def("Test:Class")->GetChildDefs()->Add(Def(name), name);
    Def("Test:Class")->TreeFlags = "r";
    Project->Providers["test"] = Provider;
    GlobalConfig().ProjectViewOptions.Grouped = false;

    Provider->Root = Add("", "P", "Test:Project", "CodeProject");
    for (const char* name : {"A", "B", "C"})
        Add("P", name, "Test:Class", "ModuleElement");
    Add("P~A", "Run", "Test:Method", "BlockElement");
    Add("P~A", "Stop", "Test:Method", "BlockElement");
    Add("P~A", "Size", "Test:Field", "MemberElement");
    Add("P~B", "Go", "Test:Method", "BlockElement");
}

TestModel::~TestModel() {
    Defs->Release();
}

Ref<TestItem> TestModel::Add(const std::string& parent, const std::string& name,
                             const std::string& definition, const std::string& typeName) {
    const std::string qualifiedName = parent.empty() ? name : parent + "~" + name;
    const auto item = MakeRef<TestItem>(Log, typeName, qualifiedName);
    item->DefinitionName = definition;
    if (!parent.empty()) Item(parent)->Children.push_back(item);
    Provider->Items[qualifiedName] = item;
    return item;
}

Ref<TestItem> TestModel::Item(const std::string& qualifiedName) const {
    return Provider->Items.at(qualifiedName);
}

namespace {

std::string NodeText(const TreeNode& node) {
    std::string text = node.GetText() + "<" + node.GetKey() + ">" + node.GetImage();
    if (node.GetBold()) text += "*";
    if (node.GetChecked()) text += "v";
    if (node.GetExpanded()) text += "+";
    if (node.GetForeColor() == Colour(0x808080)) text += "grey";
    return text;
}

void Print(const TreeChildren& nodes, const std::string& indent,
           const std::function<std::string(const TreeNode&)>& line, std::string& text) {
    for (const auto& node : nodes) {
        text += indent + line(*node) + "\n";
        Print(node->GetChildren(), indent + "  ", line, text);
    }
}

} // namespace

std::string TreeText(const TreeControl& tree) {
    std::string text;
    Print(tree.GetTopLevel(), "", NodeText, text);
    return text;
}

std::string TreeShape(const TreeControl& tree) {
    std::string text;
    Print(
        tree.GetTopLevel(), "",
        [](const TreeNode& node) { return node.GetKey() + (node.GetExpanded() ? "+" : ""); }, text);
    return text;
}

std::string TextsOf(const TextCollection& texts) {
    std::string result;
    for (const auto& text : texts)
        result += (result.empty() ? "" : " ") + text;
    return result;
}

} // namespace paperkite::test
