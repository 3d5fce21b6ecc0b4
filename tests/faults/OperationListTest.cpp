#include "faults/WalkedOperations.h"

#include <fstream>
#include <regex>
#include <set>
#include <sstream>

#include <gtest/gtest.h>

namespace paperkite::test {

namespace {

std::string HeaderOf(const std::string& path) {
    std::ifstream stream(std::string(PAPERKITE_SOURCE_DIR) + "/src/" + path);
    std::ostringstream text;
    text << stream.rdbuf();
    return std::regex_replace(text.str(), std::regex("//[^\n]*"), "");
}

/// The public part of a class, without the bodies of its functions.
std::string PublicPart(const std::string& header, const std::string& className) {
    const std::size_t start = header.find("class " + className + " : public");
    const std::size_t open = header.find("\npublic:", start);
    const std::size_t close = header.find("\nprivate:", open);
    std::string part;
    int depth = 0;
    for (const char character : header.substr(open, close - open)) {
        depth += character == '{' ? 1 : character == '}' ? -1 : 0;
        if (depth == 0) part += character;
    }
    return part;
}

/// The names of the functions that a class offers, but for its making, ending and copying.
std::set<std::string> PublicFunctions(const std::string& header, const std::string& className) {
    const std::string part = PublicPart(header, className);
    std::set<std::string> names;
    const std::regex call("([~A-Za-z_0-9]+)\\(");
    for (std::sregex_iterator match(part.begin(), part.end(), call), end; match != end; ++match) {
        const std::string name = (*match)[1];
        if (name != className && name != "~" + className && name != "MakeRef") names.insert(name);
    }
    names.erase("operator");
    return names;
}

std::set<std::string> WalkedFunctions(const std::string& owner) {
    std::set<std::string> names;
    for (const WalkedOperation& operation : AllOperations())
        if (operation.Owner == owner) names.insert(operation.Name);
    return names;
}

std::set<std::string> GesturesOf(const std::string& control) {
    std::set<std::string> gestures;
    for (const std::string& name : PublicFunctions(HeaderOf("widgets/" + control + ".h"), control))
        if (name.starts_with("User")) gestures.insert(name);
    return gestures;
}

TEST(OperationListTest, EveryPublicFunctionOfTheComponentsIsWalked) {
    for (const auto& [name, header] :
         std::vector<std::pair<std::string, std::string>>{{"ProjectView", "itemtree"},
                                                          {"CommentEditor", "authoring"},
                                                          {"ProjectEditor", "authoring"},
                                                          {"InPlaceEditor", "authoring"},
                                                          {"LinkBuilder", "links"},
                                                          {"HelpLinkDesigner", "links"},
                                                          {"MemberLinkDesigner", "links"}}) {
        const auto offered = PublicFunctions(HeaderOf(header + "/" + name + ".h"), name);
        EXPECT_GT(offered.size(), header == "links" ? 4u : 15u) << name;
        EXPECT_EQ(WalkedFunctions(name), offered) << name;
    }
}

TEST(OperationListTest, EveryPublicFunctionOfElementsAndTheirDialogsIsWalked) {
    for (const auto& [name, header] :
         std::vector<std::pair<std::string, std::string>>{{"ElementBuilder", "pagelayout"},
                                                          {"frmEditMetaSpan", "pagelayout"},
                                                          {"MetaDocumentEdit", "pagelayout"},
                                                          {"HeaderBar", "widgets"},
                                                          {"frmBrowseHTMLColor", "widgets"}}) {
        const auto offered = PublicFunctions(HeaderOf(header + "/" + name + ".h"), name);
        EXPECT_GT(offered.size(), 4u) << name;
        const auto walked = WalkedFunctions(name);
        for (const std::string& function : offered)
            EXPECT_TRUE(walked.contains(function)) << name << "." << function;
    }
}

TEST(OperationListTest, EveryGestureOnTheComponentsControlsIsWalked) {
    for (const char* control : {"TreeControl", "DockHost", "PropertiesList", "CheckBox",
                                "ExplorerBar", "SplitPanel", "HtmlEdit", "FlatStrip"}) {
        const auto gestures = GesturesOf(control);
        EXPECT_FALSE(gestures.empty()) << control;
        EXPECT_EQ(WalkedFunctions(control), gestures) << control;
    }
}

} // namespace

} // namespace paperkite::test
