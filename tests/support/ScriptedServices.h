#pragma once

#include "foundation/Services.h"
#include "foundation/Settings.h"

#include <map>
#include <string>
#include <vector>

namespace paperkite::test {

/// Settings in memory, with a record of the calls.
class MemoryRegistry : public RegistryHelper {
public:
    void CreateKey(RegistryHive, const std::string& keyPath) override {
        Calls.push_back("create " + keyPath);
    }
    void WriteValue(RegistryHive root, const std::string& keyPath, const std::string& name,
                    int type, const std::string& value) override {
        Calls.push_back("write " + keyPath + "|" + name + "|" + std::to_string(type) + "|" + value);
        Values[Name(root, keyPath, name)] = value;
    }
    Value ReadValue(RegistryHive root, const std::string& keyPath,
                    const std::string& name) override {
        const auto found = Values.find(Name(root, keyPath, name));
        return found == Values.end() ? Value() : Value(found->second);
    }
    static std::string Name(RegistryHive root, const std::string& keyPath,
                            const std::string& name) {
        return (root == HKEY_CURRENT_USER ? "HKCU:" : "HKLM:") + keyPath + ":" + name;
    }

    std::map<std::string, std::string> Values;
    std::vector<std::string> Calls;
};

/// Answers each message as it was told to, and remembers what it was asked.
class ScriptedMessageBox : public MessageBox {
public:
    MessageAnswer Show(const std::string& text, const std::string& title, MessageIcon icon,
                       MessageButtons) override {
        static constexpr const char* kIcons[] = {"none", "information", "warning", "question",
                                                 "critical"};
        Shown.push_back(title + " [" + kIcons[static_cast<int>(icon)] + "] " + text);
        return Answer;
    }

    std::vector<std::string> Shown;
    MessageAnswer Answer = MessageAnswer::Ok;
};

class ScriptedShell : public Shell {
public:
    void ShellExecute(std::intptr_t, const std::string& verb, const std::string& file,
                      const std::string& parameters, const std::string& directory,
                      int showCommand) override {
        Calls.push_back(verb + " " + file + " [" + parameters + "] [" + directory + "] " +
                        std::to_string(showCommand));
    }

    std::vector<std::string> Calls;
};

/// Chooses the file that it was told to, and remembers how it was asked.
class ScriptedFilePicker : public FilePicker {
public:
    void SetTitle(const std::string& title) override { Title = title; }
    void SetFilter(const std::string& filter) override { Filter = filter; }
    void SetStartFolder(const std::string& folder) override { StartFolder = folder; }
    void SetOwner(std::intptr_t window) override { Owner = window; }
    std::string Run() override {
        ++Runs;
        return Answer;
    }

    std::string Title;
    std::string Filter;
    std::string StartFolder;
    std::intptr_t Owner = 0;
    int Runs = 0;
    /// Empty: the user cancels.
    std::string Answer;
};

class RecordingScreen : public Screen {
public:
    void SetMousePointer(MousePointer pointer) override {
        Pointer = pointer;
        Pointers.push_back(static_cast<int>(pointer));
    }
    MousePointer GetMousePointer() const override { return Pointer; }

    MousePointer Pointer = MousePointer::Default;
    std::vector<int> Pointers;
};

/// Installs scripted services for one test, and puts back what was there.
class ScriptedServices {
public:
    ScriptedServices() : mBefore(CurrentServices()), mAppNameBefore(mAppName) {
        Services services = mBefore;
        services.Registry = Registry;
        services.MessageBox = Messages;
        services.Shell = OutsideShell;
        services.Screen = Pointer;
        services.CreateFilePicker = [picker = Picker] { return picker; };
        services.CreateErrorComponent = {};
        CurrentServices() = services;
        mAppName = "Test";
        LastPath.clear();
    }
    ~ScriptedServices() {
        CurrentServices() = mBefore;
        mAppName = mAppNameBefore;
    }
    ScriptedServices(const ScriptedServices&) = delete;
    ScriptedServices& operator=(const ScriptedServices&) = delete;

    std::shared_ptr<MemoryRegistry> Registry = std::make_shared<MemoryRegistry>();
    std::shared_ptr<ScriptedMessageBox> Messages = std::make_shared<ScriptedMessageBox>();
    std::shared_ptr<ScriptedShell> OutsideShell = std::make_shared<ScriptedShell>();
    std::shared_ptr<ScriptedFilePicker> Picker = std::make_shared<ScriptedFilePicker>();
    std::shared_ptr<RecordingScreen> Pointer = std::make_shared<RecordingScreen>();

private:
    Services mBefore;
    std::string mAppNameBefore;
};

} // namespace paperkite::test
