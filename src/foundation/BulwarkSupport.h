#pragma once

#include "foundation/Object.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace paperkite {

/// One end of the line between this library and a diagnostic server.
class DiagnosticEndpoint {
public:
    virtual ~DiagnosticEndpoint() = default;
    virtual std::int32_t GetHandle() const = 0;
    virtual std::int32_t GetProcessId() const = 0;
    /// Sends a message and waits for the answer; empty when none came in time.
    virtual std::string Send(std::int32_t serverHandle, int message, int timeOutMilliseconds,
                             const std::string& text) = 0;
    /// Whether the server is there.
    virtual bool Ask(std::int32_t serverHandle, int timeOutMilliseconds) = 0;
};

/// A block of memory that several processes share, seen as counters.
class SharedCounters {
public:
    virtual ~SharedCounters() = default;
    virtual void Add(std::int32_t slot, int difference) = 0;
};

/// What a diagnostic server needs to bring along. Without one nothing is counted and nothing costs
/// more than one boolean test.
class DiagnosticServer {
public:
    virtual ~DiagnosticServer() = default;
    virtual std::shared_ptr<DiagnosticEndpoint> CreateEndpoint() = 0;
    /// The handles of the servers that listen, first one first.
    virtual std::vector<std::int32_t> ServerEndpoints() = 0;
    virtual std::shared_ptr<SharedCounters> OpenSharedCounters(const std::string& name,
                                                               std::size_t bytes) = 0;
    /// The command line of this process, as it was typed.
    virtual std::string CommandLine() = 0;
    /// The full path of this library.
    virtual std::string ModuleFilename() = 0;
};

/// This library's end of the line.
class bulwarkClient : public Object {
public:
    explicit bulwarkClient(DiagnosticServer* server);

    std::string TypeName() const override { return "bulwarkClient"; }

    const std::shared_ptr<DiagnosticEndpoint>& GetIPC() const { return mIPC; }
    /// A server has come or gone: start-up runs again.
    void pIPC_OnBroadcast();
    /// The program of this process: its command line up to the first blank, or in quotes.
    std::string ProcessCommand() const;

private:
    DiagnosticServer* mServer;
    std::shared_ptr<DiagnosticEndpoint> mIPC;
};

/// Which kind of component is counted; the digit stands in the count records.
enum class ComponentType : int { Class = 1, Form = 3, Control = 4 };

/// The process-wide values of the diagnostics, in the order in which a report shows them.
namespace modBulwarkSupport {

extern std::int32_t bulwarkProjectId;
extern std::int32_t bulwarkProcessId;
extern std::string bulwarkModuleFilename;
extern Ref<bulwarkClient> bulwarkDebugClient;
extern bool bulwarkDebuggerListening;
extern bool bulwarkEnableInstanceCounts;
extern std::int32_t bulwarkInstanceCountsServerHandle;
extern std::vector<std::string> bulwarkInstanceCountComponentNames;
extern std::vector<bool> bulwarkSkipInstanceCount;
extern std::shared_ptr<SharedCounters> bulwarkInstanceCountsMemory;
extern std::string bulwarkComponentID;
extern bool bulwarkHasInitialised;
extern std::string bulwarkVariableDump;
extern std::int32_t bulwarkErrorNumber;
extern std::string bulwarkErrorDescription;
extern std::int32_t bulwarkErrorLine;
extern std::string bulwarkErrorSource;

/// The error state of the run-time: the number of the last error, or the marker that a report left.
extern std::int32_t RunTimeErrorNumber;

/// What start-up talks to; nothing for none. The caller owns it and takes it back before it ends.
void SetDiagnosticServer(DiagnosticServer* server);

/// The library's first entry. It runs once by itself, and again when a server asks for it.
void StartUp();
void StartUpOnce();

/// A component begins (difference 1) or ends (-1). Called only while counting is on.
void CountInstance(const char* name, ComponentType type, int difference) noexcept;

/// The element texts of all values above, with LastPath and mAppName, a line each.
std::string DumpGlobalVariables();

} // namespace modBulwarkSupport

/// Counts its owner while it lives, where a diagnostic server counts instances.
class InstanceCount {
public:
    InstanceCount(const char* name, ComponentType type) : mName(name), mType(type) {
        if (!modBulwarkSupport::bulwarkHasInitialised) modBulwarkSupport::StartUpOnce();
        if (modBulwarkSupport::bulwarkEnableInstanceCounts)
            modBulwarkSupport::CountInstance(mName, mType, 1);
    }
    ~InstanceCount() {
        if (modBulwarkSupport::bulwarkEnableInstanceCounts)
            modBulwarkSupport::CountInstance(mName, mType, -1);
    }
    InstanceCount(const InstanceCount&) = delete;
    InstanceCount& operator=(const InstanceCount&) = delete;

private:
    const char* mName;
    ComponentType mType;
};

} // namespace paperkite
