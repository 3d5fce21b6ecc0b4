#include "host/ItemTitle.h"

#include "host/HostTest.h"

namespace paperkite::test {

namespace {

class ItemTitleTest : public HostTest {};

TEST_F(ItemTitleTest, CaptionsAreThoseOfTheTreeWhateverTheNameEncodes) {
    mFolder.Write("zoo/words.h", "class Words {\npublic:\n    int put(const std::string& word);\n"
                                 "    int put(int count);\n    int operator/(int by);\n};\n");
    const auto session = Create();
    const auto item = [&](const char* name) {
        const auto found = session->GetProvider()->GetItem(name);
        if (!found) throw std::logic_error(name);
        return found;
    };
    const auto put = item("zoo~Words~put(const std%3A%3Astring&)");
    EXPECT_EQ(ItemCaption(*put), "put(const std::string&)");
    EXPECT_EQ(ItemScope(*put), "zoo ~ Words");
    EXPECT_EQ(ItemPath(*put), "zoo ~ Words ~ put(const std::string&)");
    EXPECT_EQ(ItemPath(*item("zoo~Words~operator%2F")), "zoo ~ Words ~ operator/");
    EXPECT_EQ(ItemPath(*item("zoo")), "zoo");
}

TEST(ShortenedInMiddleTest, BothEndsStayAndCharactersStayWhole) {
    EXPECT_EQ(ShortenedInMiddle("abcdefghij", 10), "abcdefghij");
    EXPECT_EQ(ShortenedInMiddle("abcdefghijk", 10), "abcd…ijk");
    EXPECT_EQ(ShortenedInMiddle("ääääääää", 11), "ää…ää");
    EXPECT_EQ(ShortenedInMiddle("", 8), "");
    EXPECT_LE(ShortenedInMiddle(std::string(100'000, 'a'), 300).size(), 300u);
}

} // namespace

} // namespace paperkite::test
