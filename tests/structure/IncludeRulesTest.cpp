#include "structure/IncludeRules.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace paperkite::test {

namespace {

/// A small repository of which one rule at a time is broken.
class IncludeRulesTest : public testing::Test {
protected:
    IncludeRulesTest() {
        mRoot.Write("src/CMakeLists.txt", "# level 0\n"
                                          "paperkite_module(base base)\n"
                                          "# level 1\n"
                                          "paperkite_module(parts parts USES base)\n"
                                          "# level 3\n"
                                          "paperkite_module(store store USES base # the files\n"
                                          "    LIBRARIES pugixml::pugixml)\n"
                                          "paperkite_module(shop shop USES parts store)\n"
                                          "paperkite_module(shop_front shop/front USES shop\n"
                                          "    LIBRARIES Qt6::Widgets)\n"
                                          "add_executable(run shop/program/main.cpp)\n"
                                          "target_link_libraries(run PRIVATE paperkite_shop_front\n"
                                          "    Qt6::Widgets)\n");
        mRoot.Write("tests/CMakeLists.txt", "paperkite_test(parts USES parts)\n");
        mRoot.Write("src/base/Base.h", "#pragma once\n#include <string>\n");
        mRoot.Write("src/parts/Part.h", "#pragma once\n#include \"base/Base.h\"\n");
        mRoot.Write("src/store/Store.cpp", "#include <pugixml.hpp>\n#include <unistd.h>\n");
        mRoot.Write("src/store/Store.h", "#pragma once\n");
        mRoot.Write("src/shop/Shop.h", "#include \"parts/Part.h\"\n#include \"base/Base.h\"\n");
        mRoot.Write("src/shop/front/Front.h", "#include \"shop/Shop.h\"\n#include <QWidget>\n");
        mRoot.Write("src/shop/program/main.cpp",
                    "#include \"shop/front/Front.h\"\n#include <QApplication>\n");
        mRoot.Write("tests/parts/PartTest.cpp",
                    "#include \"parts/Part.h\"\n#include <gtest/gtest.h>\n");
    }

    std::string Violations() const {
        std::string text;
        for (const std::string& line : IncludeRules(mRoot.Path()).Violations())
            text += line + "\n";
        return text;
    }

    TemporaryFolder mRoot;
};

TEST_F(IncludeRulesTest, WhatIsPermittedPasses) {
    EXPECT_EQ(Violations(), "");
}

TEST_F(IncludeRulesTest, EveryIncludeLineIsLookedAt) {
    const IncludeRules rules(mRoot.Path());
    rules.Violations();
    EXPECT_EQ(rules.GetIncludeCount(), 12u);
}

TEST_F(IncludeRulesTest, AFolderThatIsNotNamedIsForbidden) {
    mRoot.Write("src/base/Base.cpp", "#include \"base/Base.h\"\n#include \"parts/Part.h\"\n");
    EXPECT_EQ(Violations(), "src/base/Base.cpp:2: base may not include parts/Part.h\n");
}

TEST_F(IncludeRulesTest, AFolderBelowIsAnother) {
    mRoot.Write("src/shop/Shop.cpp", "  # include \"shop/front/Front.h\"\n");
    EXPECT_EQ(Violations(), "src/shop/Shop.cpp:1: shop may not include shop/front/Front.h\n");
}

TEST_F(IncludeRulesTest, ALibraryIsNamedOnlyWhereItBelongs) {
    mRoot.Write("src/shop/Shop.cpp", "#include <pugixml.hpp>\n#include <QString>\n");
    EXPECT_EQ(Violations(), "src/shop/Shop.cpp:1: shop may not name pugixml (<pugixml.hpp>)\n"
                            "src/shop/Shop.cpp:2: shop may not name Qt6 (<QString>)\n");
}

TEST_F(IncludeRulesTest, TheLowLevelsNameTheLanguageOnly) {
    mRoot.Write("src/parts/Part.cpp", "#include <vector>\n#include <unistd.h>\n");
    EXPECT_EQ(Violations(), "src/parts/Part.cpp:2: parts is of level 1 and may not include "
                            "<unistd.h>, which the language does not bring\n");
}

TEST_F(IncludeRulesTest, AnUnknownLibraryIsAskedAbout) {
    mRoot.Write("src/shop/Shop.cpp", "#include <zlib.h>\n");
    EXPECT_EQ(Violations(),
              "src/shop/Shop.cpp:1: nobody knows whose <zlib.h> is: name its library\n");
}

TEST_F(IncludeRulesTest, ATestSeesWhatItsFolderSees) {
    mRoot.Write("tests/parts/OtherTest.cpp", "#include \"store/Store.h\"\n");
    EXPECT_EQ(Violations(), "tests/parts/OtherTest.cpp:1: parts may not include store/Store.h\n");
}

TEST_F(IncludeRulesTest, AFolderThatNoLineNamesIsFound) {
    mRoot.Write("src/attic/Old.h", "#pragma once\n");
    EXPECT_EQ(Violations(), "src/attic/Old.h: no line of the build description names its folder\n");
}

TEST_F(IncludeRulesTest, AHeaderThatIsNotThereIsFound) {
    mRoot.Write("src/base/Base.cpp", "#include \"Base.h\"\n");
    EXPECT_EQ(Violations(), "src/base/Base.cpp:1: there is no Base.h below src\n");
}

} // namespace

} // namespace paperkite::test
