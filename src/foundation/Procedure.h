#pragma once

#include "foundation/Error.h"
#include "foundation/VariableDump.h"

#include <exception>
#include <string>
#include <vector>

namespace paperkite {

/// What every component that runs procedures tells a report about itself.
class Shielded {
public:
    virtual ~Shielded() = default;
    /// The name under which reports know this module, class, control or form.
    virtual const char* ModuleName() const = 0;
    /// Its module-level variables, in declared order; asked only for an error component.
    virtual void DumpVariables(VariableDump&) const {}
};

/// A running procedure: takes in what its watches dump when it fails.
class Frame {
public:
    Frame() : mExceptions(std::uncaught_exceptions()) {}
    Frame(const Frame&) = delete;
    Frame& operator=(const Frame&) = delete;

    // Watches end in reverse order, so that what comes last stands first.
    void TakeParameter(std::string element) noexcept;
    void TakeLocal(std::string element) noexcept;
    std::string ParameterDump() const;
    std::string LocalDump() const;
    /// Whether an exception is leaving the procedure at this moment.
    bool IsFailing() const { return std::uncaught_exceptions() > mExceptions; }

private:
    int mExceptions;
    std::vector<std::string> mParameters;
    std::vector<std::string> mLocals;
};

enum class WatchKind { Parameter, Local };

/// Dumps a variable as it stands when the procedure fails; costs nothing while nothing does.
/// The variable must outlive the watch.
template <class T, WatchKind Kind = WatchKind::Parameter>
class Watch {
public:
    Watch(Frame& frame, const char* name, const T& variable)
        : mFrame(frame), mName(name), mVariable(variable) {}
    ~Watch() {
        if (mFrame.IsFailing()) Dump();
    }
    Watch(const Watch&) = delete;
    Watch& operator=(const Watch&) = delete;

private:
    void Dump() noexcept {
        Ignoring([this] {
            constexpr bool isParameter = Kind == WatchKind::Parameter;
            const DumpOperand operand = OperandOf(mVariable);
            std::string element =
                operand.Undumpable
                    ? DumpFixed(mName, isParameter ? kUndumpableParameter : kUndumpableVariable)
                    : DumpValue(mName, operand.Content, kDumpDepth);
            if (isParameter)
                mFrame.TakeParameter(std::move(element));
            else
                mFrame.TakeLocal(std::move(element));
        });
    }

    Frame& mFrame;
    const char* mName;
    const T& mVariable;
};

template <class T>
struct Local : Watch<T, WatchKind::Local> {
    Local(Frame& frame, const char* name, const T& variable)
        : Watch<T, WatchKind::Local>(frame, name, variable) {}
};

/// Stores an error as the last one that was caught.
void CaptureError(const Error& error);

/// Hands a failure to the error component, or shows the message box where there is none. Gives the
/// action that the component asks for. Never fails.
std::string ReportError(int ErrorNumber, const std::string& ModuleName,
                        const std::string& ProcedureName, const std::string& Description,
                        int LineNumber, const std::string& LocalDump, const std::string& ModuleDump,
                        const std::string& ParameterDump) noexcept;

/// The tail of a failed procedure; runs inside a catch clause.
void HandleProcedureFailure(const Shielded& owner, const char* procedure,
                            const Frame& frame) noexcept;

/// Runs a body as a procedure of its owner: a failure inside ends the body, is reported once, and
/// the caller goes on with the result as it stood, at first the default of its type.
///
///     bool ProjectView::SelectItem(const std::string& QualifiedName) {
///         return Procedure<bool>(*this, "SelectItem", [&](bool& result, Frame& frame) {
///             Watch watchName(frame, "QualifiedName", QualifiedName);
///             …
///         });
///     }
template <class Result, class Body>
Result Procedure(const Shielded& owner, const char* name, Body&& body) {
    Result result{};
    Frame frame;
    try {
        body(result, frame);
    } catch (...) {
        HandleProcedureFailure(owner, name, frame);
    }
    return result;
}

template <class Body>
void Procedure(const Shielded& owner, const char* name, Body&& body) {
    Frame frame;
    try {
        body(frame);
    } catch (...) {
        HandleProcedureFailure(owner, name, frame);
    }
}

} // namespace paperkite
