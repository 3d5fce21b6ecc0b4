#include "fuzz/ProblemCheck.h"
#include "model/ConfigurationReader.h"

#include <set>

namespace paperkite::fuzz {
namespace {

const FuzzTarget target("configuration", [](std::string_view input) {
    const auto before = MakeRef<TaggedCommentDefs>();
    Ref<TaggedCommentDefs> definitions = before;
    if (const auto problem = ConfigurationReader::ReadBytes("/taggedcomments.xml",
                                                            std::string(input), definitions)) {
        RequireClear(*problem, input);
        Require(definitions == before, "a refused configuration changed the definitions");
        return;
    }
    Require(definitions && definitions != before, "no definitions came of a good configuration");
    std::set<std::string> tags;
    for (const auto& definition : *definitions) {
        Require(!definition->TagIdentifier.empty(), "a definition without a tag");
        Require(tags.insert(definition->TagIdentifier).second, "a tag is defined twice");
        Require(definition->Namespaces.find('@') == std::string::npos ||
                    input.find('@') != std::string_view::npos,
                "a list of namespaces came from nowhere");
        Require(definitions->Find(definition->TagIdentifier) == definition,
                "a definition is not found under its tag");
    }
});

} // namespace
} // namespace paperkite::fuzz
