#include "doctypes/source/ParameterList.h"

#include <gtest/gtest.h>

namespace paperkite::test {

namespace {

/// "name|type|default" of each parameter.
std::string Split(std::string_view signature, SourceLanguage language) {
    std::string result;
    const ParameterList list(signature, language);
    for (const SourceParameter& parameter : list.Parameters()) {
        result += (result.empty() ? "" : "; ") + parameter.Name + "|" + parameter.Type + "|" +
                  parameter.Default;
    }
    return result;
}

std::string Types(std::string_view signature) {
    return ParameterList(signature, SourceLanguage::Cpp).TypesText();
}

} // namespace

TEST(ParameterList, SplitsWhatCppWrites) {
    const auto cpp = SourceLanguage::Cpp;
    EXPECT_EQ(Split("(int a, const std::vector<int, A> & b={1,2}) const", cpp),
              "a|int|; b|const std::vector<int, A>&|{1,2}");
    EXPECT_EQ(Split("(unsigned long count, struct fwd * f)", cpp),
              "count|unsigned long|; f|struct fwd*|");
    EXPECT_EQ(Split("(const Slice &, unsigned, Widget)", cpp),
              "|const Slice&|; |unsigned|; |Widget|");
    EXPECT_EQ(Split("(int (*visit)(void *, int), char *argv[])", cpp),
              "visit|int (*)(void *, int)|; argv|char*[]|");
    EXPECT_EQ(Split("(Args && ... args)", cpp), "args|Args&&...|");
    EXPECT_EQ(Split("(std::function<void (int)> f = [](int) {})", cpp),
              "f|std::function<void (int)>|[](int) {}");
    EXPECT_EQ(Split("(void)", cpp), "");
    EXPECT_EQ(Split("()", cpp), "");
}

TEST(ParameterList, SplitsWhatOtherLanguagesWrite) {
    EXPECT_EQ(Split("(self, a: int = 3, *args, **rest)", SourceLanguage::Python),
              "self||; a|int|3; *args||; **rest||");
    EXPECT_EQ(Split("(final Map<String, U> m, int... rest)", SourceLanguage::Java),
              "m|Map<String, U>|; rest|int...|");
    EXPECT_EQ(Split("(string a, params object[] b)", SourceLanguage::CSharp),
              "a|string|; b|object[]|");
    EXPECT_EQ(Split("(a, b int, rest ...string)", SourceLanguage::Go),
              "a|int|; b|int|; rest|...string|");
    EXPECT_EQ(Split("(int, error)", SourceLanguage::Go), "|int|; |error|");
    EXPECT_EQ(Split("(&self, mut a: Vec<i32>)", SourceLanguage::Rust), "&self||; a|Vec<i32>|");
    EXPECT_EQ(Split("(private a: number, b?: (x: T) => void)", SourceLanguage::TypeScript),
              "a|number|; b?|(x: T) => void|");
    EXPECT_EQ(Split("(array $a, ?int &$b = null, $c)", SourceLanguage::Php),
              "$a|array|; $b|?int&|null; $c||");
    EXPECT_EQ(Split("(a, b = 1, k: 2, &block)", SourceLanguage::Ruby), "a||; b||1; k||2; &block||");
}

TEST(ParameterList, TypesDoNotDependOnNamesBlanksAndDefaults) {
    EXPECT_EQ(Types("(const Slice & key , int n = 3)"), Types("(const Slice&,int)"));
    EXPECT_EQ(Types("(const Slice & key)"), "(const Slice&)");
    EXPECT_NE(Types("(int)"), Types("(int) const"));
    EXPECT_NE(Types("(int) &"), Types("(int) &&"));
}

TEST(ParameterList, BrokenSignaturesGiveNothing) {
    EXPECT_EQ(Split("", SourceLanguage::Cpp), "");
    EXPECT_EQ(Split("(", SourceLanguage::Cpp), "");
    EXPECT_EQ(Split("((((", SourceLanguage::Java), "");
    EXPECT_EQ(Split(")(", SourceLanguage::Go), "");
}

} // namespace paperkite::test
