#pragma once

#include <string>

namespace paperkite {

enum class ScanStatus { Done, Cancelled, Failed };

/// How a step of a scan ended. A failure is expected now and then and therefore a value: Message
/// says what went wrong, where, and how to mend it. It is empty when the step is done.
struct ScanOutcome {
    ScanStatus Status = ScanStatus::Done;
    std::string Message;

    bool IsDone() const { return Status == ScanStatus::Done; }

    static ScanOutcome Failure(std::string message) {
        return {ScanStatus::Failed, std::move(message)};
    }

    static ScanOutcome Cancellation(std::string message) {
        return {ScanStatus::Cancelled, std::move(message)};
    }
};

} // namespace paperkite
