#include "host/HostTest.h"

#include <filesystem>

namespace paperkite::test {

namespace {

namespace fs = std::filesystem;

class SourceReadingTest : public HostTest {
protected:
    void WriteEmu() const {
        mFolder.Write("zoo/animals.h", "class Emu {\npublic:\n    void Run();\n};\n");
    }
};

TEST_F(SourceReadingTest, TheCacheStandsWhereTheStandardSays) {
    EXPECT_EQ(ScanCachePath(), mCacheFolder.Path() + "/paperkite");
    {
        const EnvironmentChange relative("XDG_CACHE_HOME", "not/absolute");
        const EnvironmentChange home("HOME", "/home/somebody");
        EXPECT_EQ(ScanCachePath(), "/home/somebody/.cache/paperkite");
    }
    const EnvironmentChange own("PAPERKITE_CACHE", "/elsewhere");
    EXPECT_EQ(ScanCachePath(), "/elsewhere");
    const EnvironmentChange off("PAPERKITE_CACHE", "off");
    EXPECT_EQ(ScanCachePath(), "");
}

TEST_F(SourceReadingTest, OpeningChecksForChangesBeforeItAnswers) {
    Create();
    WriteEmu();
    const auto session = Made(ProjectSession::Open(ProjectFile()));
    EXPECT_TRUE(session->IsUpToDate());
    EXPECT_TRUE(session->GetProvider()->GetItem("zoo~Emu~Run"));
    EXPECT_FALSE(session->GetProvider()->GetItem("zoo~animals~Dog"));
}

TEST_F(SourceReadingTest, WhatWasKnownIsThereAtOnceAndWhatChangedIsAdopted) {
    Create();
    WriteEmu();
    const auto session = Made(ProjectSession::OpenLastKnown(ProjectFile()));
    EXPECT_FALSE(session->IsUpToDate());
    EXPECT_EQ(session->GetFileCount(), 1u);
    EXPECT_TRUE(session->GetProvider()->GetItem("zoo~animals~Dog"));
    SourceReading reading = ReadSources(session->GetProject()->GetSources(), {});
    EXPECT_NE(reading.Digests(), session->GetDigests());
    auto answer = session->Code(std::move(reading));
    ASSERT_TRUE(answer.Code);
    session->Adopt(std::move(*answer.Code));
    EXPECT_TRUE(session->IsUpToDate());
    EXPECT_TRUE(session->GetProvider()->GetItem("zoo~Emu~Run"));
}

TEST_F(SourceReadingTest, CodeThatDidNotChangeHasTheSameDigests) {
    Create();
    const auto session = Made(ProjectSession::OpenLastKnown(ProjectFile()));
    EXPECT_EQ(ReadSources(session->GetProject()->GetSources(), {}).Digests(),
              session->GetDigests());
}

TEST_F(SourceReadingTest, WithoutACacheTheCodeIsReadFirst) {
    Create();
    fs::remove_all(mCacheFolder / "paperkite");
    EXPECT_TRUE(Made(ProjectSession::OpenLastKnown(ProjectFile()))->IsUpToDate());
    EXPECT_FALSE(Made(ProjectSession::OpenLastKnown(ProjectFile()))->IsUpToDate());
    const EnvironmentChange off("PAPERKITE_CACHE", "off");
    EXPECT_TRUE(Made(ProjectSession::OpenLastKnown(ProjectFile()))->IsUpToDate());
}

TEST_F(SourceReadingTest, ProblemsAndCancellingAreToldAsValues) {
    const auto session = Create();
    const auto& sources = session->GetProject()->GetSources();
    EXPECT_TRUE(ReadSources(sources, [](const ScanProgress&) { return false; }).Cancelled);
    fs::remove_all(mFolder / "zoo");
    const SourceReading reading = ReadSources(sources, {});
    EXPECT_FALSE(reading.Cancelled);
    EXPECT_TRUE(reading.Problem.find("does not exist") != std::string::npos) << reading.Problem;
}

} // namespace

} // namespace paperkite::test
