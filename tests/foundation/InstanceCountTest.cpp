#include "foundation/BulwarkSupport.h"

#include <gtest/gtest.h>

#include <map>

namespace paperkite {

namespace {

class FakeServer;

class Endpoint : public DiagnosticEndpoint {
public:
    explicit Endpoint(FakeServer& server) : mServer(server) {}
    std::int32_t GetHandle() const override { return 11; }
    std::int32_t GetProcessId() const override { return 22; }
    std::string Send(std::int32_t serverHandle, int message, int timeOutMilliseconds,
                     const std::string& text) override;
    bool Ask(std::int32_t serverHandle, int timeOutMilliseconds) override;

private:
    FakeServer& mServer;
};

class Counters : public SharedCounters {
public:
    explicit Counters(std::map<std::int32_t, int>& counts) : mCounts(counts) {}
    void Add(std::int32_t slot, int difference) override { mCounts[slot] += difference; }

private:
    std::map<std::int32_t, int>& mCounts;
};

class FakeServer : public DiagnosticServer {
public:
    std::shared_ptr<DiagnosticEndpoint> CreateEndpoint() override {
        return std::make_shared<Endpoint>(*this);
    }
    std::vector<std::int32_t> ServerEndpoints() override { return Servers; }
    std::shared_ptr<SharedCounters> OpenSharedCounters(const std::string& name,
                                                       std::size_t bytes) override {
        Log.push_back("open " + name + " " + std::to_string(bytes));
        return std::make_shared<Counters>(Counts);
    }
    std::string CommandLine() override { return Command; }
    std::string ModuleFilename() override { return Module; }

    std::vector<std::int32_t> Servers{7};
    bool Answers = true;
    bool Skips = false;
    std::string Command = "paperkite --flag";
    std::string Module = "/lib/paperkite";
    std::vector<std::string> Log;
    std::map<std::int32_t, int> Counts;
    int NextId = 40;
};

std::string Endpoint::Send(std::int32_t serverHandle, int message, int timeOutMilliseconds,
                           const std::string& text) {
    mServer.Log.push_back("send " + std::to_string(serverHandle) + " " + std::to_string(message) +
                          " " + std::to_string(timeOutMilliseconds) + " " + text);
    return message == 502 ? std::to_string(++mServer.NextId) : mServer.Skips ? "1" : "0";
}

bool Endpoint::Ask(std::int32_t serverHandle, int timeOutMilliseconds) {
    mServer.Log.push_back("ask " + std::to_string(serverHandle) + " " +
                          std::to_string(timeOutMilliseconds));
    return mServer.Answers;
}

class InstanceCountTest : public ::testing::Test {
protected:
    ~InstanceCountTest() override { modBulwarkSupport::SetDiagnosticServer(nullptr); }

    FakeServer mServer;
};

} // namespace

TEST_F(InstanceCountTest, WithoutAServerNothingIsCounted) {
    modBulwarkSupport::SetDiagnosticServer(nullptr);
    InstanceCount count("ProjectView", ComponentType::Control);
    EXPECT_TRUE(modBulwarkSupport::bulwarkHasInitialised);
    EXPECT_FALSE(modBulwarkSupport::bulwarkDebuggerListening);
    EXPECT_FALSE(modBulwarkSupport::bulwarkEnableInstanceCounts);
}

TEST_F(InstanceCountTest, StartUpTakesTheProcessDown) {
    mServer.Servers.clear();
    modBulwarkSupport::SetDiagnosticServer(&mServer);
    modBulwarkSupport::StartUp();
    EXPECT_EQ(modBulwarkSupport::bulwarkProjectId, 11);
    EXPECT_EQ(modBulwarkSupport::bulwarkProcessId, 22);
    EXPECT_EQ(modBulwarkSupport::bulwarkModuleFilename, "/lib/paperkite");
    EXPECT_FALSE(modBulwarkSupport::bulwarkDebuggerListening);
    EXPECT_TRUE(mServer.Log.empty());
}

TEST_F(InstanceCountTest, AServerThatDoesNotAnswerDoesNotCount) {
    mServer.Answers = false;
    modBulwarkSupport::SetDiagnosticServer(&mServer);
    modBulwarkSupport::StartUp();
    EXPECT_TRUE(modBulwarkSupport::bulwarkDebuggerListening);
    EXPECT_FALSE(modBulwarkSupport::bulwarkEnableInstanceCounts);
    EXPECT_EQ(mServer.Log,
              (std::vector<std::string>{"open #BulwarkInstanceCounting# 10000", "ask 7 100"}));
}

TEST_F(InstanceCountTest, EachServerIsAskedInTurnAndTheLastThatAnswersCounts) {
    mServer.Servers = {7, 9};
    modBulwarkSupport::SetDiagnosticServer(&mServer);
    modBulwarkSupport::StartUp();
    EXPECT_EQ(mServer.Log, (std::vector<std::string>{"open #BulwarkInstanceCounting# 10000",
                                                     "ask 7 100", "ask 9 100"}));
    EXPECT_EQ(modBulwarkSupport::bulwarkInstanceCountsServerHandle, 9);
}

TEST_F(InstanceCountTest, StartingAgainForgetsWhatWasCounted) {
    modBulwarkSupport::SetDiagnosticServer(&mServer);
    modBulwarkSupport::StartUp();
    { InstanceCount count("ProjectView", ComponentType::Control); }
    EXPECT_EQ(modBulwarkSupport::bulwarkInstanceCountComponentNames,
              std::vector<std::string>{"ProjectView"});
    mServer.Answers = false;
    modBulwarkSupport::StartUp();
    EXPECT_TRUE(modBulwarkSupport::bulwarkInstanceCountComponentNames.empty());
    EXPECT_TRUE(modBulwarkSupport::bulwarkSkipInstanceCount.empty());
    EXPECT_EQ(modBulwarkSupport::bulwarkInstanceCountsServerHandle, 0);
    EXPECT_FALSE(modBulwarkSupport::bulwarkEnableInstanceCounts);
}

TEST_F(InstanceCountTest, TheLibrarysPathIsCutAtTheLengthOfItsBuffer) {
    mServer.Module = "/" + std::string(300, 'x');
    modBulwarkSupport::SetDiagnosticServer(&mServer);
    modBulwarkSupport::StartUp();
    EXPECT_EQ(modBulwarkSupport::bulwarkModuleFilename, "/" + std::string(259, 'x'));
}

TEST_F(InstanceCountTest, TheGlobalValuesAreDumpedInDeclaredOrder) {
    mServer.Skips = true;
    modBulwarkSupport::SetDiagnosticServer(&mServer);
    modBulwarkSupport::StartUp();
    InstanceCount count("Enums", ComponentType::Class);
    const std::string dump = modBulwarkSupport::DumpGlobalVariables();
    std::size_t from = 0;
    for (const char* element : {"<bulwarkProjectId>11<",
                                "<bulwarkProcessId>22<",
                                "<bulwarkModuleFilename>/lib/paperkite<",
                                "<bulwarkDebugClient>{bulwarkClient}<",
                                "<bulwarkDebuggerListening>True<",
                                "<bulwarkEnableInstanceCounts>True<",
                                "<bulwarkInstanceCountsServerHandle>7<",
                                "<bulwarkInstanceCountComponentNames>",
                                "<bulwarkInstanceCountComponentNames Index=\"0\">Enums<",
                                "<bulwarkSkipInstanceCount>",
                                "<bulwarkSkipInstanceCount Index=\"0\">True<",
                                "<bulwarkInstanceCountsMemory>{DataObject}<",
                                "<bulwarkComponentID><",
                                "<bulwarkHasInitialised>True<",
                                "<bulwarkVariableDump><",
                                "<bulwarkErrorNumber>",
                                "<bulwarkErrorDescription>",
                                "<bulwarkErrorLine>",
                                "<bulwarkErrorSource>",
                                "<LastPath>",
                                "<mAppName>"}) {
        const std::size_t found = dump.find(element, from);
        ASSERT_NE(found, std::string::npos) << element << "\n" << dump;
        from = found;
    }
    modBulwarkSupport::SetDiagnosticServer(nullptr);
    modBulwarkSupport::bulwarkInstanceCountComponentNames.clear();
    EXPECT_NE(modBulwarkSupport::DumpGlobalVariables().find(
                  "<bulwarkInstanceCountComponentNames>{UnInitialised Array}<"),
              std::string::npos);
}

TEST_F(InstanceCountTest, InstancesAreCountedWhileTheyLive) {
    modBulwarkSupport::SetDiagnosticServer(&mServer);
    modBulwarkSupport::StartUp();
    mServer.Log.clear();
    {
        InstanceCount first("ProjectView", ComponentType::Control);
        InstanceCount second("ProjectView", ComponentType::Control);
        EXPECT_EQ(mServer.Counts[41], 2);
    }
    EXPECT_EQ(mServer.Counts[41], 0);
    EXPECT_EQ(mServer.Log, (std::vector<std::string>{"send 7 502 2000 22,ProjectView,4,",
                                                     "send 7 10 2000 22,/lib/paperkite,41"}));
}

TEST_F(InstanceCountTest, ASkippedComponentIsNotCounted) {
    mServer.Skips = true;
    modBulwarkSupport::SetDiagnosticServer(&mServer);
    modBulwarkSupport::StartUp();
    InstanceCount count("frmCustomTOC", ComponentType::Form);
    InstanceCount again("frmCustomTOC", ComponentType::Form);
    EXPECT_TRUE(mServer.Counts.empty());
}

TEST_F(InstanceCountTest, ABroadcastRunsTheStartUpAgain) {
    mServer.Servers.clear();
    modBulwarkSupport::SetDiagnosticServer(&mServer);
    modBulwarkSupport::StartUp();
    mServer.Servers = {9};
    modBulwarkSupport::bulwarkDebugClient->pIPC_OnBroadcast();
    EXPECT_TRUE(modBulwarkSupport::bulwarkEnableInstanceCounts);
    EXPECT_EQ(modBulwarkSupport::bulwarkInstanceCountsServerHandle, 9);
}

TEST_F(InstanceCountTest, TheProcessCommandEndsAtABlankOutsideQuotes) {
    bulwarkClient client(&mServer);
    EXPECT_EQ(client.ProcessCommand(), "paperkite");
    mServer.Command = "\"/program files/paperkite\" --flag";
    EXPECT_EQ(client.ProcessCommand(), "/program files/paperkite");
}

} // namespace paperkite
