#include "model/ProjectDocument.h"

#include <gtest/gtest.h>

namespace paperkite {

TEST(ProjectMembers, SettingsAndScopeAreReachedByName) {
    auto project = MakeRef<ProjectDocument>();
    project->Set("OutputFolder", Value("/out"));
    project->Set("IncludePrivate", Value(true));
    project->Set("Dirty", Value(true));
    EXPECT_EQ(project->Get("OutputFolder").ToText(), "/out");
    EXPECT_TRUE(project->GetIncludePrivate());
    EXPECT_TRUE(project->Get("IncludePrivate").ToBoolean());
    EXPECT_TRUE(project->GetDirty());
    EXPECT_EQ(project->Get("SourceProjectCount").ToInteger(), 0);
}

TEST(ProjectMembers, DirtyIsOnlyWritten) {
    EXPECT_THROW(MakeRef<ProjectDocument>()->Get("Dirty"), Error);
}

TEST(ProjectMembers, AMissingMemberIsAnError) {
    try {
        MakeRef<ProjectDocument>()->Get("NoSuchSetting");
        ADD_FAILURE() << "nothing was raised";
    } catch (const Error& error) {
        EXPECT_EQ(error.GetNumber(), static_cast<int>(ErrorNumber::NoSuchMember));
    }
}

TEST(ProjectMembers, TemplatesAreBoundByName) {
    auto project = MakeRef<ProjectDocument>();
    auto layouts = MakeRef<PageTemplate>();
    layouts->Name = "Standard";
    const auto bound = project->AddTemplate(layouts);
    EXPECT_EQ(project->GetTemplates().Item("standard"), bound);
    EXPECT_EQ(bound->Template, layouts);
    EXPECT_EQ(project->AddTemplate(layouts), bound);
    auto another = MakeRef<PageTemplate>();
    another->Name = "standard";
    EXPECT_THROW(project->AddTemplate(another), Error);
}

TEST(ProjectMembers, TheOutputIsUtf8UntilSaidOtherwise) {
    auto project = MakeRef<ProjectDocument>();
    EXPECT_EQ(project->GetOutputCodePage(), 65001);
    project->SetOutputCodePage(1252);
    EXPECT_EQ(project->GetOutputCodePage(), 1252);
}

} // namespace paperkite
