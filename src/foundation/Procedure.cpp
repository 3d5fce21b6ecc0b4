#include "foundation/Procedure.h"

#include "foundation/BulwarkSupport.h"
#include "foundation/Services.h"
#include "foundation/Version.h"

#include <new>

namespace paperkite {

namespace {

constexpr int kReportedMarker = 65535;
constexpr const char* kProjectName = "Paperkite4Controls";

std::string Reversed(const std::vector<std::string>& elements) {
    VariableDump dump;
    for (auto element = elements.rbegin(); element != elements.rend(); ++element)
        dump.Append(*element);
    return dump.GetText();
}

std::string Section(const std::string& tag, const std::string& text) {
    return "<" + tag + ">\r\n" + text + "</" + tag + ">\r\n";
}

std::string VariablesText(const std::string& locals, const std::string& module,
                          const std::string& parameters) {
    modBulwarkSupport::bulwarkVariableDump.clear();
    return Section("Variables",
                   Section("LocalVariables", locals) + Section("ModuleVariables", module) +
                       Section("GlobalVariables", modBulwarkSupport::DumpGlobalVariables())) +
           Section("Parameters", parameters);
}

std::shared_ptr<ErrorComponent> CreateErrorComponent() {
    std::shared_ptr<ErrorComponent> component;
    Ignoring([&] {
        if (CurrentServices().CreateErrorComponent)
            component = CurrentServices().CreateErrorComponent();
    });
    return component;
}

void ShowReport(const ErrorComponent::Report& report) {
    const std::string text =
        "Paperkite4Controls has encountered a problem. We are sorry for the inconvenience.\n\n"
        "Module: " +
        report.ModuleName + "\nProcedure: " + report.ProcedureName +
        "\nLine Number: " + std::to_string(report.LineNumber) + "\n\n" + report.Description + " (" +
        std::to_string(report.ErrorNumber) + ")";
    Required(CurrentServices().MessageBox).Show(text, "Application Error", MessageIcon::Critical);
}

/// The exception under way as an Error.
Error CurrentError() {
    try {
        throw;
    } catch (const Error& error) {
        return error;
    } catch (const std::bad_alloc&) {
        return Error(7, "Out of memory");
    } catch (const std::exception& exception) {
        return Error(ErrorNumber::InvalidCall, exception.what());
    } catch (...) {
        return Error(ErrorNumber::InvalidCall);
    }
}

std::string SourceOf(const Error& error) {
    const std::string file = error.GetWhere().file_name();
    return file.substr(file.find_last_of("/\\") + 1);
}

} // namespace

void Frame::TakeParameter(std::string element) noexcept {
    Ignoring([&] { mParameters.push_back(std::move(element)); });
}

void Frame::TakeLocal(std::string element) noexcept {
    Ignoring([&] { mLocals.push_back(std::move(element)); });
}

std::string Frame::ParameterDump() const {
    return Reversed(mParameters);
}

std::string Frame::LocalDump() const {
    return Reversed(mLocals);
}

void CaptureError(const Error& error) {
    using namespace modBulwarkSupport;
    bulwarkErrorNumber = error.GetNumber();
    bulwarkErrorDescription = error.GetDescription();
    bulwarkErrorLine = static_cast<std::int32_t>(error.GetWhere().line());
    bulwarkErrorSource = SourceOf(error);
}

std::string ReportError(int ErrorNumber, const std::string& ModuleName,
                        const std::string& ProcedureName, const std::string& Description,
                        int LineNumber, const std::string& LocalDump, const std::string& ModuleDump,
                        const std::string& ParameterDump) noexcept {
    std::string action;
    Ignoring([&] {
        ErrorComponent::Report report{ErrorNumber,   kProjectName,  ModuleName,
                                      ProcedureName, Description,   LineNumber,
                                      std::string(), ParameterDump, kVersion};
        const auto component = CreateErrorComponent();
        if (!component) {
            ShowReport(report);
            return;
        }
        Ignoring([&] { report.Variables = VariablesText(LocalDump, ModuleDump, ParameterDump); });
        Ignoring([&] { component->ErrorHandler(report); });
        Ignoring([&] { action = component->GetAction(); });
        modBulwarkSupport::RunTimeErrorNumber = kReportedMarker;
    });
    return action;
}

void HandleProcedureFailure(const Shielded& owner, const char* procedure,
                            const Frame& frame) noexcept {
    Ignoring([&] {
        const Error error = CurrentError();
        modBulwarkSupport::RunTimeErrorNumber = error.GetNumber();
        CaptureError(error);
        VariableDump module;
        // A message box shows none of it, and a load of many failing items must not dump all that
        // its component holds for each of them.
        if (CurrentServices().CreateErrorComponent) Ignoring([&] { owner.DumpVariables(module); });
        ReportError(error.GetNumber(), owner.ModuleName(), procedure, error.GetDescription(),
                    static_cast<int>(error.GetWhere().line()), frame.LocalDump(), module.GetText(),
                    frame.ParameterDump());
    });
}

} // namespace paperkite
