#include "journeys/CommandLineTest.h"

#include <filesystem>

// The whole way on code bases that were not written for a test.

namespace paperkite::test {

namespace {

namespace fs = std::filesystem;

class RealCodeJourneyTest : public CommandLineTest {
protected:
    /// New, tree, next, comment, comments, coverage and back again. `item` is any class there.
    /// Gives the project.
    std::string Walk(const std::string& source, const std::string& item, std::size_t leastItems) {
        const std::string project = mFolder / "real.kiteproject";
        Do({"new", project, "--source", source});
        const Json tree = DoJson({"tree", project, "--depth", "1"});
        EXPECT_FALSE(tree["children"].empty());
        const Json before = DoJson({"coverage", project});
        EXPECT_GE(before["all"]["total"].get<std::size_t>(), leastItems);
        EXPECT_EQ(before["all"]["documented"], 0);

        const Json found = DoJson({"tree", project, item, "--depth", "0"});
        const std::string name = found["qualifiedName"];
        EXPECT_TRUE(fs::exists(source + "/" + found["file"].get<std::string>()));
        Do({"comment", project, name, "--tag", "##", "--text", "Written in a test.\nTwice."});
        EXPECT_EQ(DoJson({"comments", project, name})["comments"][0]["text"],
                  "Written in a test.\nTwice.");
        EXPECT_TRUE(DoJson({"tree", project, name, "--depth", "0"})["documented"]);
        EXPECT_EQ(DoJson({"coverage", project})["all"]["documented"], 1);

        const std::string next = Do({"next", project, name});
        EXPECT_NE(next.substr(0, next.find(' ')), name);
        EXPECT_FALSE(DoJson(
            {"tree", project, next.substr(0, next.find(' ')), "--depth", "0"})["documented"]);

        const auto files = FilesBelow(mFolder.Path());
        Do({"comment", project, name, "--tag", "##", "--text", "Written in a test.\nTwice."});
        EXPECT_EQ(FilesBelow(mFolder.Path()), files);
        return project;
    }

    static std::string FirstFolder(const std::vector<std::string>& candidates) {
        for (const std::string& folder : candidates)
            if (fs::is_directory(folder)) return folder;
        return {};
    }
};

TEST_F(RealCodeJourneyTest, TheHeadersOfQt) {
    std::vector<std::string> candidates{"/usr/include/qt6/QtCore"};
    for (const auto& entry : fs::directory_iterator("/usr/include"))
        candidates.push_back((entry.path() / "qt6/QtCore").string());
    const std::string folder = FirstFolder(candidates);
    ASSERT_NE(folder, "") << "The program itself is built on these headers.";
    const std::string project = Walk(folder, "QByteArrayView", 5000);
    EXPECT_EQ(DoJson({"tree", project, "QObject", "--depth", "0"})["kind"], "Class");
}

TEST_F(RealCodeJourneyTest, APackageInPython) {
    std::vector<std::string> candidates;
    for (const auto& entry : fs::directory_iterator("/usr/lib"))
        if (entry.path().filename().string().starts_with("python3."))
            candidates.push_back((entry.path() / "json").string());
    const std::string folder = FirstFolder(candidates);
    if (folder.empty()) GTEST_SKIP() << "No Python is installed.";
    const std::string project = Walk(folder, "JSONDecoder", 20);
    EXPECT_EQ(DoJson({"tree", project, "JSONEncoder", "--depth", "0"})["kind"], "Class");
}

TEST_F(RealCodeJourneyTest, ACodeBaseInJava) {
    mFolder.Write("shop/src/org/shop/Basket.java",
                  "package org.shop;\n\nimport java.util.*;\n\n"
                  "/** What a customer has taken. */\n"
                  "public class Basket<T extends Article> implements Iterable<T> {\n"
                  "    public static final int MOST = 99;\n"
                  "    private final List<T> articles = new ArrayList<>();\n"
                  "    public Basket() {}\n"
                  "    public void add(T article) throws FullException { articles.add(article); }\n"
                  "    public void add(T article, int count) {}\n"
                  "    @Override public Iterator<T> iterator() { return articles.iterator(); }\n"
                  "    protected int size() { return articles.size(); }\n"
                  "    public enum State { OPEN, PAID }\n"
                  "    public interface Listener { void changed(Basket<?> basket); }\n"
                  "}\n");
    mFolder.Write("shop/src/org/shop/Article.java",
                  "package org.shop;\n\npublic interface Article {\n    String name();\n}\n");
    mFolder.Write("shop/src/org/shop/FullException.java",
                  "package org.shop;\n\npublic class FullException extends Exception {}\n");
    const std::string project = Walk(mFolder / "shop", "Basket", 12);
    EXPECT_EQ(DoJson({"tree", project, "Article", "--depth", "0"})["kind"], "Interface");
}

} // namespace

} // namespace paperkite::test
