#include "host/HostTest.h"
#include "support/GatedCtags.h"

namespace paperkite::test {

namespace {

/// Two folders of code: that in C++ is read whole, that in Python in parts.
class PartialReadingTest : public HostTest {
protected:
    PartialReadingTest() {
        mFolder.Write("farm/a.py", "class Hen:\n    def Lay(self):\n        pass\n");
        mFolder.Write("farm/b_gate1.py", "class Cow:\n    pass\n");
        mSources.resize(2);
        mSources[0].Folder = mFolder / "zoo";
        mSources[0].RootName = "zoo";
        mSources[1].Folder = mFolder / "farm";
        mSources[1].RootName = "farm";
    }
    static std::optional<SourceReading> FirstPartOf(RunningReading& reading) {
        while (!reading.IsFinished()) {
            reading.WaitForNews();
            if (auto part = reading.TakePart()) return part;
        }
        return std::nullopt;
    }
    static SourceReading EndOf(RunningReading& reading) {
        while (!reading.IsFinished())
            reading.WaitForNews();
        return reading.TakeResult();
    }

    std::vector<SourceSettings> mSources;
};

TEST_F(PartialReadingTest, APartHoldsTheSourcesBeforeItWhole) {
    const GatedCtags ctags;
    RunningReading reading(mSources, RunningReading::Parts::Wanted);
    const auto part = FirstPartOf(reading);
    ASSERT_TRUE(part);
    EXPECT_TRUE(part->IsPart);
    EXPECT_EQ(part->FileCount(), 2u);
    ASSERT_EQ(part->Scans.size(), 2u);
    EXPECT_TRUE(part->Scans[0].Index->Find("zoo~animals~Dog~Bark"));
    EXPECT_TRUE(part->Scans[1].Index->Find("farm~a~Hen~Lay"));
    EXPECT_FALSE(part->Scans[1].Index->Find("farm~b_gate1"));
    EXPECT_FALSE(reading.HasPart());
    ctags.OpenAll();
    const SourceReading all = EndOf(reading);
    EXPECT_EQ(all.Problem, "");
    EXPECT_FALSE(all.IsPart);
    EXPECT_EQ(all.FileCount(), 3u);
    EXPECT_TRUE(all.Scans[1].Index->Find("farm~b_gate1~Cow"));
    EXPECT_EQ(all.Digests(), ReadSources(mSources, {}).Digests());
}

TEST_F(PartialReadingTest, CancellingAndEndingStopIt) {
    const GatedCtags ctags;
    RunningReading reading(mSources, RunningReading::Parts::Wanted);
    ASSERT_TRUE(FirstPartOf(reading));
    reading.Cancel();
    EXPECT_TRUE(EndOf(reading).Cancelled);
    RunningReading dropped(mSources, RunningReading::Parts::Wanted);
    ASSERT_TRUE(FirstPartOf(dropped)); // and its destructor does not wait for the gate
}

TEST_F(PartialReadingTest, WhoWantsNoPartsGetsNone) {
    RunningReading reading(mSources, RunningReading::Parts::Unwanted);
    EXPECT_FALSE(FirstPartOf(reading));
    EXPECT_EQ(reading.TakeResult().FileCount(), 3u);
}

TEST_F(PartialReadingTest, AProjectOpensWithAPartAndTheRestGoesOn) {
    const GatedCtags ctags;
    auto made = ProjectSession::CreateSoon({ProjectFile(), mFolder / "farm", "Farm", {}});
    ASSERT_EQ(made.Problem, "");
    EXPECT_TRUE(made.Session->IsPart());
    EXPECT_FALSE(made.Session->IsUpToDate());
    EXPECT_TRUE(made.Session->GetProvider()->GetItem("farm~a~Hen"));
    ASSERT_TRUE(made.Rest);
    made = {};
    auto opened = ProjectSession::OpenSoon(ProjectFile());
    ASSERT_TRUE(opened.Rest);
    ctags.OpenAll();
    auto answer = opened.Session->Code(EndOf(*opened.Rest));
    ASSERT_TRUE(answer.Code);
    opened.Session->Adopt(std::move(*answer.Code));
    EXPECT_FALSE(opened.Session->IsPart());
    EXPECT_TRUE(opened.Session->IsUpToDate());
    EXPECT_TRUE(opened.Session->GetProvider()->GetItem("farm~b_gate1~Cow"));
}

TEST_F(PartialReadingTest, WhereNoPartComesAProjectOpensWithTheWhole) {
    auto made = ProjectSession::CreateSoon({ProjectFile(), mFolder / "zoo", "Zoo", {}});
    ASSERT_EQ(made.Problem, "");
    EXPECT_TRUE(made.Session->IsUpToDate());
    EXPECT_FALSE(made.Session->IsPart());
    EXPECT_FALSE(made.Rest);
    const auto known = ProjectSession::OpenSoon(ProjectFile());
    ASSERT_TRUE(known.Session);
    EXPECT_FALSE(known.Session->IsUpToDate()); // from the cache
    EXPECT_FALSE(known.Session->IsPart());
}

TEST_F(PartialReadingTest, CancellingBeforeAPartLeavesNothing) {
    const auto made = ProjectSession::CreateSoon({ProjectFile(), mFolder / "farm", "Farm", {}},
                                                 [](const ScanProgress&) { return false; });
    EXPECT_TRUE(made.Cancelled);
    EXPECT_FALSE(made.Session);
    EXPECT_FALSE(made.Rest);
    EXPECT_FALSE(std::filesystem::exists(ProjectFile()));
}

TEST_F(PartialReadingTest, TheCommandLineWaitsForTheWhole) {
    const auto session =
        Made(ProjectSession::Create({ProjectFile(), mFolder / "farm", "Farm", {}}));
    EXPECT_TRUE(session->IsUpToDate());
    EXPECT_TRUE(session->GetProvider()->GetItem("farm~b_gate1~Cow"));
}

} // namespace

} // namespace paperkite::test
