#include "model/ConfigurationReader.h"

#include "foundation/Text.h"
#include "model/SafeFile.h"
#include "model/XmlReader.h"

#include <map>

namespace paperkite {

const char* StandardTaggedComments();

namespace {

using NamespaceLists = std::map<std::string, std::string>;

/// The levels of a list, with "@name" replaced by the list of that name; an unknown one is given
/// back in `unknown`.
std::string Expanded(const std::string& names, const NamespaceLists& lists, std::string& unknown) {
    std::vector<std::string> result;
    for (const std::string& part : Split(names, ",")) {
        const std::string name = TrimWhiteSpace(part);
        if (!name.starts_with('@')) {
            result.push_back(name);
            continue;
        }
        const auto found = lists.find(name.substr(1));
        if (found == lists.end())
            unknown = name;
        else
            result.push_back(found->second);
    }
    return Join(result, ",");
}

FileProblem UnknownList(const XmlReader& reader, const XmlElement& element,
                        const std::string& name) {
    return reader.ProblemAt(element, "There is no list of namespaces \"" + name + "\".",
                            "Put a <namespaces name=\"" + name.substr(1) + "\"> before it.");
}

Ref<TaggedCommentDef> DefinitionOf(const XmlElement& element) {
    auto definition = MakeRef<TaggedCommentDef>();
    definition->TagIdentifier = element.AttributeText("tag");
    definition->DisplayName = element.AttributeText("name");
    definition->DesignerProgID = element.AttributeText("designer");
    definition->TagType = element.AttributeText("type");
    definition->LegacyName = element.AttributeText("legacyname");
    definition->TabName = element.AttributeText("tab");
    definition->Tip = TrimWhiteSpace(element.ContentText());
    definition->Options = element.AttributeText("options");
    definition->GroupName = element.AttributeText("group");
    definition->XMLTags = element.AttributeText("xmltags");
    definition->IconName = element.AttributeText("icon");
    definition->AppendsToDescription = element.AttributeText("appendstodescription");
    definition->DescriptionFormat = element.AttributeText("descriptionformat");
    definition->IsGeneral = element.AttributeText("general") == "true";
    return definition;
}

std::optional<FileProblem> ReadDefinition(const XmlReader& reader, const XmlElement& element,
                                          const NamespaceLists& lists,
                                          TaggedCommentDefs& definitions) {
    const Ref<TaggedCommentDef> definition = DefinitionOf(element);
    if (definition->TagIdentifier.empty())
        return reader.ProblemAt(element, "This definition does not say its tag.",
                                "Add tag=\"##…\" to it, or remove it.");
    if (definitions.Find(definition->TagIdentifier))
        return reader.ProblemAt(element,
                                "The tag \"" + definition->TagIdentifier + "\" is defined twice.",
                                "Remove one of the two definitions.");
    std::string unknown;
    definition->Namespaces = Expanded(element.AttributeText("namespaces"), lists, unknown);
    if (!unknown.empty()) return UnknownList(reader, element, unknown);
    definitions.Add(definition);
    return {};
}

} // namespace

std::optional<FileProblem> ConfigurationReader::ReadBytes(const std::string& file,
                                                          std::string bytes,
                                                          Ref<TaggedCommentDefs>& definitions) {
    const XmlReader reader(file, std::move(bytes));
    XmlFile xml;
    if (auto problem = reader.Read(xml)) return problem;
    if (auto problem = reader.CheckRoot(xml.Root, "taggedcomments", kVersion,
                                        "a configuration of tagged comments"))
        return problem;
    auto result = MakeRef<TaggedCommentDefs>();
    result->SetDefaultDesignerProgID(xml.Root.AttributeText("defaultdesigner"));
    NamespaceLists lists;
    for (const XmlElement& child : xml.Root.Children) {
        if (child.IsElement() && child.Name == "namespaces") {
            std::string unknown;
            lists[child.AttributeText("name")] = Expanded(child.ContentText(), lists, unknown);
            if (!unknown.empty()) return UnknownList(reader, child, unknown);
        } else if (child.IsElement() && child.Name == "taggedcomment") {
            if (auto problem = ReadDefinition(reader, child, lists, *result)) return problem;
        }
    }
    definitions = result;
    return {};
}

Ref<TaggedCommentDefs> ConfigurationReader::Standard() {
    Ref<TaggedCommentDefs> definitions;
    if (const auto problem =
            ReadBytes("(standard definitions)", StandardTaggedComments(), definitions))
        RaiseError(ErrorNumber::InvalidCall, problem->Message());
    return definitions;
}

std::optional<FileProblem> ConfigurationReader::Load(const std::string& folder,
                                                     Ref<TaggedCommentDefs>& definitions) {
    const std::string path = folder + "/taggedcomments.xml";
    std::string bytes;
    std::optional<FileProblem> problem = SafeFile::Read(path, bytes);
    const bool isMissing = problem && problem->Reason == FileProblem::ReasonCode::Missing;
    if (!problem) problem = ReadBytes(path, std::move(bytes), definitions);
    if (problem) definitions = Standard();
    return isMissing ? std::optional<FileProblem>() : problem;
}

} // namespace paperkite
