#include "foundation/ProjectSettings.h"

#include <gtest/gtest.h>

namespace paperkite {

TEST(ProjectSettings, AnOptionHasItsDefaultUntilItIsSet) {
    ProjectSettings settings;
    EXPECT_EQ(settings.Get("Language").ToText(), "English");
    EXPECT_TRUE(settings.IsDefault("Language"));
    settings.Set("Language", Value("German"));
    EXPECT_EQ(settings.Get("Language").ToText(), "German");
    EXPECT_FALSE(settings.IsDefault("Language"));
    settings.Set("Language", Value("English"));
    EXPECT_TRUE(settings.IsDefault("Language"));
}

TEST(ProjectSettings, AValueIsConvertedToTheOptionsType) {
    ProjectSettings settings;
    settings.Set("CompileHelpFile", Value("true"));
    settings.Set("PageNestingLevels", Value("7 levels"));
    settings.Set("HTMLHelpVersion", Value(2));
    EXPECT_TRUE(settings.Get("CompileHelpFile").IsBoolean());
    EXPECT_TRUE(settings.Get("CompileHelpFile").ToBoolean());
    EXPECT_TRUE(settings.Get("PageNestingLevels").IsInteger());
    EXPECT_EQ(settings.Get("PageNestingLevels").ToInteger(), 7);
    EXPECT_TRUE(settings.Get("HTMLHelpVersion").IsText());
}

TEST(ProjectSettings, AnUnknownOptionIsAnError) {
    ProjectSettings settings;
    EXPECT_FALSE(ProjectSettings::Has("language"));
    EXPECT_THROW(settings.Get("language"), Error);
    EXPECT_THROW(settings.Set("language", Value("x")), Error);
}

TEST(ProjectSettings, EveryNameHasADefault) {
    EXPECT_GE(ProjectSettings::Names().size(), 30u);
    for (const std::string& name : ProjectSettings::Names())
        EXPECT_FALSE(ProjectSettings::DefaultOf(name).IsEmpty()) << name;
}

} // namespace paperkite
