#include "platform/settings/SettingsRegistry.h"

#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <filesystem>

#include <sys/wait.h>
#include <unistd.h>

namespace paperkite {

namespace {

using test::TemporaryFolder;

constexpr const char* kKey = "Software\\Brindlewick\\Paperkite";

std::string TextOf(SettingsRegistry& registry, const std::string& key, const std::string& name) {
    const Value value = registry.ReadValue(HKEY_CURRENT_USER, key, name);
    return value.IsEmpty() ? "(empty)" : value.ToText();
}

class SettingsRegistryTest : public testing::Test {
protected:
    void Write(const std::string& key, const std::string& name, const std::string& value) {
        mRegistry.WriteValue(HKEY_CURRENT_USER, key, name, kRegistryString, value);
    }

    std::string Read(const std::string& key, const std::string& name) {
        return TextOf(mRegistry, key, name);
    }

    TemporaryFolder mFolder;
    SettingsRegistry mRegistry{mFolder / "user.ini", mFolder / "machine.ini"};
};

/// Another process that writes a hundred values of its own.
pid_t WriterProcess(const TemporaryFolder& folder, const std::string& name) {
    const pid_t process = ::fork();
    if (process != 0) return process;
    int status = 0;
    try {
        SettingsRegistry registry(folder / "user.ini", folder / "machine.ini");
        for (int index = 0; index < 100; ++index)
            registry.WriteValue(HKEY_CURRENT_USER, kKey, name + std::to_string(index),
                                kRegistryString, name);
    } catch (...) {
        status = 1;
    }
    ::_exit(status);
}

int StatusOf(pid_t process) {
    int status = -1;
    ::waitpid(process, &status, 0);
    return status;
}

/// Another process that writes without end, and tells the number of each value that is written.
pid_t EndlessWriter(const TemporaryFolder& folder, int told) {
    const pid_t process = ::fork();
    if (process != 0) return process;
    try {
        SettingsRegistry registry(folder / "user.ini", folder / "machine.ini");
        for (int index = 0;; ++index) {
            registry.WriteValue(HKEY_CURRENT_USER, kKey, "Value" + std::to_string(index),
                                kRegistryString, "written");
            if (::write(told, &index, sizeof index) != sizeof index) break;
        }
    } catch (...) {}
    ::_exit(1);
}

} // namespace

TEST_F(SettingsRegistryTest, AWriterThatIsKilledLosesNothingAndKeepsNobodyFromWriting) {
    int last = -1;
    for (int round = 0; round < 8; ++round) {
        int ends[2];
        ASSERT_EQ(::pipe(ends), 0);
        const pid_t writer = EndlessWriter(mFolder, ends[1]);
        ::close(ends[1]);
        // Each writer is cut off somewhere else in its work.
        int written = -1;
        for (int wanted = 0; wanted <= round; ++wanted)
            ASSERT_EQ(::read(ends[0], &written, sizeof written),
                      static_cast<ssize_t>(sizeof written));
        ::usleep(static_cast<useconds_t>(97 * round));
        ::kill(writer, SIGKILL);
        const int status = StatusOf(writer);
        ASSERT_TRUE(WIFSIGNALED(status));
        ::close(ends[0]);
        last = std::max(last, written);
        for (int index = 0; index <= last; ++index)
            EXPECT_EQ(Read(kKey, "Value" + std::to_string(index)), "written") << index;
        Write(kKey, "Mine", std::to_string(round));
        SettingsRegistry other(mFolder / "user.ini", mFolder / "machine.ini");
        EXPECT_EQ(TextOf(other, kKey, "Mine"), std::to_string(round));
        EXPECT_EQ(TextOf(other, kKey, "Value0"), "written");
    }
}

TEST_F(SettingsRegistryTest, ALockThatNobodyHoldsKeepsNobodyFromWriting) {
    // Left by a program that was killed before it could say whose lock it is.
    mFolder.Write("user.ini.lock", "");
    Write(kKey, "Value", "1");
    SettingsRegistry other(mFolder / "user.ini", mFolder / "machine.ini");
    EXPECT_EQ(TextOf(other, kKey, "Value"), "1");
    EXPECT_FALSE(std::filesystem::exists(mFolder / "user.ini.lock"));
}

TEST_F(SettingsRegistryTest, AValueIsReadBackByAnotherRegistry) {
    Write(kKey, "ViewSplitterPercentage", "40");
    SettingsRegistry other(mFolder / "user.ini", mFolder / "machine.ini");
    EXPECT_EQ(TextOf(other, kKey, "ViewSplitterPercentage"), "40");
}

TEST_F(SettingsRegistryTest, AMissingValueIsEmptyAndAnEmptyTextIsText) {
    Write(kKey, "Empty", "");
    EXPECT_EQ(Read(kKey, "Missing"), "(empty)");
    EXPECT_EQ(Read("Software\\None", "Empty"), "(empty)");
    EXPECT_EQ(Read(kKey, "Empty"), "");
}

TEST_F(SettingsRegistryTest, KeysAndHivesAreKeptApart) {
    Write(kKey, "Value", "top");
    Write(std::string(kKey) + "\\Layout", "Value", "layout");
    mRegistry.WriteValue(HKEY_LOCAL_MACHINE, kKey, "Value", kRegistryString, "machine");
    EXPECT_EQ(Read(kKey, "Value"), "top");
    EXPECT_EQ(Read(std::string(kKey) + "\\Layout", "Value"), "layout");
    EXPECT_EQ(mRegistry.ReadValue(HKEY_LOCAL_MACHINE, kKey, "Value").ToText(), "machine");
}

TEST_F(SettingsRegistryTest, EmptyStepsOfAKeyCountForNothing) {
    Write("Software\\Brindlewick\\\\Spelling", "Value", "1");
    EXPECT_EQ(Read("Software\\Brindlewick\\Spelling\\", "Value"), "1");
}

TEST_F(SettingsRegistryTest, AnyNameAndAnyTextSurvive) {
    const std::vector<std::string> odd{
        "with blank", "a/b",      "a\\b",       "a%2Fb",       "100%",   "=;#[x]",     "\"q\"",
        "a,b, c",     "umläut",   "漢字🪁", "line\nbreak", "tab\t.", "@Invalid()", "%",
        "",           " blanks ", "a=b",        "[General]",   "@"};
    for (const std::string& name : odd)
        Write("Software\\Odd", name, name);
    for (const std::string& name : odd)
        Write("Software\\Odd\\x" + name, "value", name);
    SettingsRegistry other(mFolder / "user.ini", mFolder / "machine.ini");
    for (const std::string& name : odd)
        EXPECT_EQ(TextOf(other, "Software\\Odd", name), name);
    for (const std::string& name : odd)
        EXPECT_EQ(TextOf(other, "Software\\Odd\\x" + name, "value"), name);
}

TEST_F(SettingsRegistryTest, TwoProcessesLoseNothingOfEachOther) {
    const pid_t first = WriterProcess(mFolder, "first");
    const pid_t second = WriterProcess(mFolder, "second");
    EXPECT_EQ(StatusOf(first), 0);
    EXPECT_EQ(StatusOf(second), 0);
    int found = 0;
    for (const char* name : {"first", "second"})
        for (int index = 0; index < 100; ++index)
            if (Read(kKey, name + std::to_string(index)) == name) ++found;
    EXPECT_EQ(found, 200);
}

TEST_F(SettingsRegistryTest, WhatAnotherProcessWritesIsSeen) {
    Write(kKey, "Mine", "1");
    EXPECT_EQ(StatusOf(WriterProcess(mFolder, "other")), 0);
    EXPECT_EQ(Read(kKey, "other99"), "other");
    EXPECT_EQ(Read(kKey, "Mine"), "1");
}

TEST_F(SettingsRegistryTest, APlaceThatCannotBeWrittenToIsAnError) {
    mFolder.Write("file", "no folder");
    SettingsRegistry registry(mFolder / "file/user.ini", mFolder / "machine.ini");
    try {
        registry.WriteValue(HKEY_CURRENT_USER, kKey, "Value", kRegistryString, "1");
        ADD_FAILURE() << "nothing was raised";
    } catch (const Error& error) {
        EXPECT_EQ(error.GetNumber(), static_cast<int>(ErrorNumber::PermissionDenied));
    }
}

TEST_F(SettingsRegistryTest, CreatingAKeyMakesAWriteNoDifferent) {
    mRegistry.CreateKey(HKEY_CURRENT_USER, kKey);
    EXPECT_EQ(Read(kKey, "Value"), "(empty)");
    Write(kKey, "Value", "1");
    EXPECT_EQ(Read(kKey, "Value"), "1");
}

TEST_F(SettingsRegistryTest, AFileThatIsNoSettingsFileReadsAsEmptyAndTakesValues) {
    std::string binary;
    for (int byte = 0; byte < 256; ++byte)
        binary += static_cast<char>(byte);
    for (const std::string& bytes :
         {std::string("not a settings file\n"), std::string("[Software\nBrindlewick=\n"), binary,
          std::string(100000, '['), std::string("\xff\xfe[\0S\0", 6), std::string()}) {
        mFolder.Write("damaged.ini", bytes);
        SettingsRegistry registry(mFolder / "damaged.ini", mFolder / "machine.ini");
        EXPECT_EQ(TextOf(registry, kKey, "Value"), "(empty)");
        registry.WriteValue(HKEY_CURRENT_USER, kKey, "Value", kRegistryString, "1");
        SettingsRegistry again(mFolder / "damaged.ini", mFolder / "machine.ini");
        EXPECT_EQ(TextOf(again, kKey, "Value"), "1");
    }
}

TEST_F(SettingsRegistryTest, WhatADamagedFileStillSaysIsKept) {
    Write(kKey, "Kept", "some text");
    Write(std::string(kKey) + "\\Layout", "Share", "34");
    mFolder.Write("user.ini", mFolder.Read("user.ini") + "no setting at all\n[Cut off");
    SettingsRegistry registry(mFolder / "user.ini", mFolder / "machine.ini");
    registry.WriteValue(HKEY_CURRENT_USER, kKey, "Value", kRegistryString, "1");
    SettingsRegistry again(mFolder / "user.ini", mFolder / "machine.ini");
    EXPECT_EQ(TextOf(again, kKey, "Kept"), "some text");
    EXPECT_EQ(TextOf(again, std::string(kKey) + "\\Layout", "Share"), "34");
    EXPECT_EQ(TextOf(again, kKey, "Value"), "1");
}

TEST_F(SettingsRegistryTest, AFolderInTheFilesPlaceReadsAsEmptyAndCannotBeWrittenTo) {
    mFolder.Write("folder/inside", "kept");
    SettingsRegistry registry(mFolder / "folder", mFolder / "machine.ini");
    EXPECT_EQ(TextOf(registry, kKey, "Value"), "(empty)");
    for (int attempt = 0; attempt < 2; ++attempt) {
        int number = 0;
        try {
            registry.WriteValue(HKEY_CURRENT_USER, kKey, "Value", kRegistryString, "1");
        } catch (const Error& error) {
            number = error.GetNumber();
            EXPECT_NE(error.GetDescription().find(mFolder / "folder"), std::string::npos);
        }
        EXPECT_EQ(number, static_cast<int>(ErrorNumber::PermissionDenied));
    }
    EXPECT_EQ(mFolder.Read("folder/inside"), "kept");
}

} // namespace paperkite
