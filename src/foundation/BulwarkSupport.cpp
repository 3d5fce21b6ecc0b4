#include "foundation/BulwarkSupport.h"

#include "foundation/Settings.h"
#include "foundation/VariableDump.h"

#include <algorithm>
#include <filesystem>

namespace paperkite {

bulwarkClient::bulwarkClient(DiagnosticServer* server)
    : mServer(server), mIPC(server ? server->CreateEndpoint() : nullptr) {}

void bulwarkClient::pIPC_OnBroadcast() {
    modBulwarkSupport::StartUp();
}

std::string bulwarkClient::ProcessCommand() const {
    if (!mServer) return {};
    const std::string line = mServer->CommandLine();
    if (line.starts_with('"')) return line.substr(1, line.find('"', 1) - 1);
    return line.substr(0, line.find(' '));
}

namespace modBulwarkSupport {

std::int32_t bulwarkProjectId = 0;
std::int32_t bulwarkProcessId = 0;
std::string bulwarkModuleFilename;
Ref<bulwarkClient> bulwarkDebugClient;
bool bulwarkDebuggerListening = false;
bool bulwarkEnableInstanceCounts = false;
std::int32_t bulwarkInstanceCountsServerHandle = 0;
std::vector<std::string> bulwarkInstanceCountComponentNames;
std::vector<bool> bulwarkSkipInstanceCount;
std::shared_ptr<SharedCounters> bulwarkInstanceCountsMemory;
std::string bulwarkComponentID;
bool bulwarkHasInitialised = false;
std::string bulwarkVariableDump;
std::int32_t bulwarkErrorNumber = 0;
std::string bulwarkErrorDescription;
std::int32_t bulwarkErrorLine = 0;
std::string bulwarkErrorSource;
std::int32_t RunTimeErrorNumber = 0;

namespace {

constexpr std::size_t kModuleFilenameLength = 260;
constexpr std::size_t kCountersBytes = 10000;
constexpr int kAskTimeOut = 100;
constexpr int kSendTimeOut = 2000;
constexpr int kMessageRegister = 502;
constexpr int kMessageIsSkipped = 10;

DiagnosticServer* diagnosticServer = nullptr;
/// The ids that the server gave, by component index; 0 for none.
std::vector<std::int32_t> componentIds;

/// What the system says about this process, where it says so in its file system.
std::string ProcessLink(const char* name) {
    std::error_code unknown;
    return std::filesystem::read_symlink(std::string("/proc/") + name, unknown).string();
}

void Connect() {
    const auto client = MakeRef<bulwarkClient>(diagnosticServer);
    bulwarkDebugClient = client;
    if (client->GetIPC()) {
        bulwarkProjectId = client->GetIPC()->GetHandle();
        bulwarkProcessId = client->GetIPC()->GetProcessId();
    } else
        bulwarkProcessId = Value(ProcessLink("self")).ToInteger();
    bulwarkModuleFilename =
        (diagnosticServer ? diagnosticServer->ModuleFilename() : ProcessLink("self/exe"))
            .substr(0, kModuleFilenameLength);
    const auto servers =
        diagnosticServer ? diagnosticServer->ServerEndpoints() : std::vector<std::int32_t>();
    bulwarkDebuggerListening = !servers.empty();
    if (!bulwarkDebuggerListening) return;

    bulwarkInstanceCountsServerHandle = 0;
    bulwarkEnableInstanceCounts = false;
    bulwarkInstanceCountComponentNames.clear();
    bulwarkSkipInstanceCount.clear();
    componentIds.clear();
    bulwarkInstanceCountsMemory =
        diagnosticServer->OpenSharedCounters("#BulwarkInstanceCounting#", kCountersBytes);
    for (const std::int32_t server : servers) {
        if (!client->GetIPC()->Ask(server, kAskTimeOut)) continue;
        bulwarkInstanceCountsServerHandle = server;
        bulwarkEnableInstanceCounts = true;
    }
}

std::size_t ComponentIndex(const std::string& name) {
    auto& names = bulwarkInstanceCountComponentNames;
    const auto found = std::find(names.begin(), names.end(), name);
    if (found != names.end()) return static_cast<std::size_t>(found - names.begin());
    names.push_back(name);
    bulwarkSkipInstanceCount.push_back(false);
    componentIds.push_back(0);
    return names.size() - 1;
}

void Register(std::size_t index, const std::string& name, ComponentType type) {
    const auto& line = bulwarkDebugClient->GetIPC();
    const std::string process = std::to_string(bulwarkProcessId) + ",";
    const std::string id =
        line->Send(bulwarkInstanceCountsServerHandle, kMessageRegister, kSendTimeOut,
                   process + name + "," + std::to_string(static_cast<int>(type)) + ",");
    componentIds[index] = Value(id).ToInteger();
    const std::string skipped =
        line->Send(bulwarkInstanceCountsServerHandle, kMessageIsSkipped, kSendTimeOut,
                   process + bulwarkModuleFilename + "," + id);
    bulwarkSkipInstanceCount[index] = Value(skipped).ToBoolean();
}

} // namespace

void SetDiagnosticServer(DiagnosticServer* server) {
    diagnosticServer = server;
    bulwarkHasInitialised = false;
    bulwarkEnableInstanceCounts = false;
    bulwarkProjectId = 0;
    bulwarkProcessId = 0;
    bulwarkInstanceCountsServerHandle = 0;
    bulwarkDebugClient = {};
    bulwarkInstanceCountsMemory.reset();
}

void StartUp() {
    bulwarkHasInitialised = true;
    Ignoring(Connect);
}

void StartUpOnce() {
    if (!bulwarkHasInitialised) StartUp();
}

void CountInstance(const char* name, ComponentType type, int difference) noexcept {
    Ignoring([&] {
        const std::size_t index = ComponentIndex(name);
        if (bulwarkSkipInstanceCount[index]) return;
        if (componentIds[index] == 0) {
            // One that was begun before counting was on is not taken off either.
            if (difference < 0) return;
            Register(index, name, type);
        }
        if (!bulwarkSkipInstanceCount[index])
            bulwarkInstanceCountsMemory->Add(componentIds[index], difference);
    });
}

std::string DumpGlobalVariables() {
    std::vector<Value> skipped(bulwarkSkipInstanceCount.begin(), bulwarkSkipInstanceCount.end());
    const auto arrayOf = [](Value array, bool any) { return any ? array : Value(ValueArray{}); };
    VariableDump dump;
    dump.Add("bulwarkProjectId", bulwarkProjectId)
        .Add("bulwarkProcessId", bulwarkProcessId)
        .Add("bulwarkModuleFilename", bulwarkModuleFilename)
        .Add("bulwarkDebugClient", bulwarkDebugClient)
        .Add("bulwarkDebuggerListening", bulwarkDebuggerListening)
        .Add("bulwarkEnableInstanceCounts", bulwarkEnableInstanceCounts)
        .Add("bulwarkInstanceCountsServerHandle", bulwarkInstanceCountsServerHandle)
        .Add("bulwarkInstanceCountComponentNames",
             arrayOf(Value::ArrayOfTexts(bulwarkInstanceCountComponentNames),
                     !bulwarkInstanceCountComponentNames.empty()))
        .Add("bulwarkSkipInstanceCount", arrayOf(Value::ArrayOf(skipped), !skipped.empty()))
        .Add("bulwarkInstanceCountsMemory", bulwarkInstanceCountsMemory)
        .Add("bulwarkComponentID", bulwarkComponentID)
        .Add("bulwarkHasInitialised", bulwarkHasInitialised)
        .Add("bulwarkVariableDump", bulwarkVariableDump)
        .Add("bulwarkErrorNumber", bulwarkErrorNumber)
        .Add("bulwarkErrorDescription", bulwarkErrorDescription)
        .Add("bulwarkErrorLine", bulwarkErrorLine)
        .Add("bulwarkErrorSource", bulwarkErrorSource)
        .Add("LastPath", LastPath)
        .Add("mAppName", mAppName);
    return dump.GetText();
}

} // namespace modBulwarkSupport

} // namespace paperkite
