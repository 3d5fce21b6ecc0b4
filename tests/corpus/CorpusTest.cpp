#include "fuzz/FuzzTarget.h"

#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>

#include <gtest/gtest.h>

namespace paperkite::test {
namespace {

namespace fs = std::filesystem;
using fuzz::FuzzTarget;

fs::path FuzzFolder() {
    return fs::path(PAPERKITE_SOURCE_DIR) / "fuzz";
}

std::string BytesOf(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    std::ostringstream bytes;
    bytes << stream.rdbuf();
    return bytes.str();
}

/// The inputs of a target: those it begins with, and those that fuzzing found.
std::vector<fs::path> InputsOf(const std::string& target) {
    std::vector<fs::path> files;
    for (const char* folder : {"corpus", "found"}) {
        const fs::path path = FuzzFolder() / folder / target;
        if (!fs::exists(path)) continue;
        for (const auto& entry : fs::directory_iterator(path))
            files.push_back(entry.path());
    }
    std::sort(files.begin(), files.end());
    return files;
}

/// What is broken for an input; empty when all holds.
std::string Broken(const FuzzTarget& target, const std::string& input) {
    try {
        target.Run(input);
    } catch (const std::exception& exception) {
        return exception.what();
    }
    return {};
}

class CorpusTest : public testing::TestWithParam<const FuzzTarget*> {};

TEST_P(CorpusTest, EveryPropertyHoldsForEveryInput) {
    const auto inputs = InputsOf(GetParam()->Name);
    EXPECT_GE(inputs.size(), 3u);
    for (const fs::path& file : inputs)
        EXPECT_EQ(Broken(*GetParam(), BytesOf(file)), "") << file;
}

TEST_P(CorpusTest, EveryPropertyHoldsForInputsThatBreakOff) {
    for (const fs::path& file : InputsOf(GetParam()->Name)) {
        const std::string whole = BytesOf(file);
        const std::size_t step = 1 + whole.size() / 40;
        for (std::size_t length = 0; length < whole.size(); length += step)
            EXPECT_EQ(Broken(*GetParam(), whole.substr(0, length)), "") << file << ":" << length;
    }
}

TEST_P(CorpusTest, EveryPropertyHoldsForInputsWithAForeignByte) {
    for (const fs::path& file : InputsOf(GetParam()->Name)) {
        const std::string whole = BytesOf(file);
        const std::size_t step = 1 + whole.size() / 20;
        for (std::size_t place = 0; place < whole.size(); place += step)
            for (const char foreign : {'\0', '<', '"', '\\', '~', '\xC3'}) {
                std::string input = whole;
                input[place] = foreign;
                EXPECT_EQ(Broken(*GetParam(), input), "") << file << ":" << place;
            }
    }
}

INSTANTIATE_TEST_SUITE_P(Targets, CorpusTest, testing::ValuesIn(FuzzTarget::All()),
                         [](const auto& target) { return std::string(target.param->Name); });

TEST(CorpusTest, EachFolderOfInputsHasItsTarget) {
    std::set<std::string> names;
    for (const FuzzTarget* target : FuzzTarget::All())
        names.insert(target->Name);
    std::set<std::string> folders;
    for (const auto& entry : fs::directory_iterator(FuzzFolder() / "corpus"))
        folders.insert(entry.path().filename().string());
    EXPECT_EQ(names, folders);
}

} // namespace
} // namespace paperkite::test
