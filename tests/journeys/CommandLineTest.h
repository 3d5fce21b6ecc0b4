#pragma once

#include "journeys/Program.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <string>
#include <vector>

namespace paperkite::test {

using Json = nlohmann::json;

inline bool Contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

/// A folder for projects and code, and the program to work on them.
class CommandLineTest : public testing::Test {
protected:
    CommandLineTest() : mProgram(mAside.Path()) {}

    /// Runs a command that has to succeed without a word of complaint, and gives what it prints.
    std::string Do(const std::vector<std::string>& arguments) const {
        const ProgramResult result = mProgram.Run(arguments);
        EXPECT_EQ(result.ExitCode, 0) << Line(arguments);
        EXPECT_EQ(result.Err, "") << Line(arguments);
        return result.Out;
    }
    Json DoJson(std::vector<std::string> arguments) const {
        arguments.push_back("--json");
        return Json::parse(Do(arguments), nullptr, false);
    }
    /// Runs a command that has to refuse: exit code 2, one message on the error stream, nothing on
    /// the other, and every file as it was. Gives the message.
    std::string Refused(const std::vector<std::string>& arguments) const {
        const auto before = FilesBelow(mFolder.Path());
        const ProgramResult result = mProgram.Run(arguments);
        EXPECT_EQ(result.ExitCode, 2) << Line(arguments) << "\n" << result.Err;
        EXPECT_EQ(result.Out, "") << Line(arguments);
        EXPECT_EQ(FilesBelow(mFolder.Path()), before) << Line(arguments);
        const auto lines = std::count(result.Err.begin(), result.Err.end(), '\n');
        EXPECT_TRUE(lines == 1 || (lines == 2 && result.Err.ends_with("--help for more "
                                                                      "information.\n")))
            << Line(arguments) << "\n"
            << result.Err;
        return result.Err;
    }

    static std::string Line(const std::vector<std::string>& arguments) {
        std::string line = "paperkite";
        for (const std::string& argument : arguments)
            line += " " + argument;
        return line;
    }

    TemporaryFolder mFolder;
    TemporaryFolder mAside;
    Program mProgram;
};

} // namespace paperkite::test
