#pragma once

#include "host/HeadlessServices.h"
#include "host/Workspace.h"

#include "foundation/GlobalConfig.h"
#include "foundation/Services.h"
#include "support/EnvironmentChange.h"
#include "support/ListedTags.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace paperkite::test {

/// A small code base in a folder of its own, with the services of the program without a screen.
class HostTest : public testing::Test {
protected:
    HostTest()
        : mSettings("XDG_CONFIG_HOME", mFolder / "settings"),
          mState("XDG_STATE_HOME", mFolder / "state"),
          mCacheHome("XDG_CACHE_HOME", mCacheFolder.Path()) {
        InstallHeadlessServices(PAPERKITE_SOURCE_DIR);
        ListAllTags();
        GlobalConfig().ProjectViewOptions = {};
        GlobalConfig().ProjectViewOptions.Grouped = false;
        mFolder.Write("zoo/animals.h", "namespace animals {\n"
                                       "/// Barks.\n"
                                       "class Dog {\n"
                                       "public:\n"
                                       "    void Bark(int times);\n"
                                       "    int Age() const;\n"
                                       "private:\n"
                                       "    int mAge;\n"
                                       "};\n"
                                       "class Cat {\n"
                                       "public:\n"
                                       "    void Purr();\n"
                                       "    int Age() const;\n"
                                       "};\n"
                                       "}\n");
    }

    std::string ProjectFile() const { return mFolder / "zoo.kiteproject"; }

    /// The session, or a failed test with the problem.
    std::unique_ptr<ProjectSession> Made(ProjectSession::OpenResult result) const {
        EXPECT_EQ(result.Problem, "");
        return std::move(result.Session);
    }
    std::unique_ptr<ProjectSession> Create(const std::string& title = {}) const {
        return Made(ProjectSession::Create({ProjectFile(), mFolder / "zoo", title, {}}));
    }

    TemporaryFolder mFolder;
    TemporaryFolder mCacheFolder;
    EnvironmentChange mSettings;
    EnvironmentChange mState;
    EnvironmentChange mCacheHome;
};

} // namespace paperkite::test
