// What the tests of the command line program share: a folder that is the current one, with the
// sample ship in it, and a history of its own.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/system.h"
#include "report/messages.h"
#include "tests/support/support.h"
#include "tests/tools/run_program.h"

namespace corvane::test {

struct ProgramTest : testing::Test {
    OwnHistory history;
    TemporaryFolder folder;
    KeepCurrentDirectory keeper;

    ProgramTest() {
        EXPECT_EQ(system::SetCurrentTo(folder.path), system::kErrorNone);
        Write(L"ship.ve2", Sample());
        Write(L"old.vel", ReadFileBytes(DataPath("../samples/aurora_bay.vel")));
    }

    static std::string Sample() { return ReadFileBytes(DataPath("../samples/aurora_bay.ve2")); }
    void Write(std::wstring_view name, std::string_view bytes) const {
        WriteFileBytes(folder.File(name), bytes);
    }
    std::string Bytes(std::wstring_view name) const { return ReadFileBytes(folder.File(name)); }
    bool IsThere(std::wstring_view name) const {
        system::FileStatus status;
        system::GetFileStatus(folder.File(name), status);
        return status.exists;
    }
    // Runs the program, which must end with this status; what it printed.
    static std::string Out(int status, const std::vector<std::wstring>& arguments) {
        const ProgramRun run = RunProgram(arguments);
        EXPECT_EQ(run.status, status) << run.err;
        EXPECT_TRUE(status != 0 || run.err.empty()) << run.err;
        return run.out;
    }
    // The same, what it complained of; it must have printed nothing.
    static std::string Err(int status, const std::vector<std::wstring>& arguments) {
        const ProgramRun run = RunProgram(arguments);
        EXPECT_EQ(run.status, status) << run.err;
        EXPECT_EQ(run.out, "");
        return run.err;
    }

    // Head and blocks of a database's text, the blocks with their markers.
    static std::vector<std::string> PartsOf(const std::string& text) {
        const std::string marker = "\n" + GetMessageBytes(kMsgModelMarker) + "\r\n";
        std::vector<std::string> parts;
        size_t begin = 0;
        while (true) {
            const size_t end = text.find(marker, begin);
            if (end == std::string::npos) break;
            parts.push_back(text.substr(begin, end + 1 - begin));
            begin = end + 1;
        }
        parts.push_back(text.substr(begin));
        return parts;
    }
    // A block of the sample with another number; it has one comment before the number.
    static std::string Numbered(const std::string& block, int number) {
        const size_t begin = block.find("*\r\n") + 3;
        const size_t end = block.find("\r\n", begin);
        return block.substr(0, begin) + " " + std::to_string(number) + " " + block.substr(end);
    }
    // The sample with these numbers, in the order of its models.
    static std::string SampleNumbered(const std::vector<int>& numbers) {
        const std::vector<std::string> parts = PartsOf(Sample());
        std::string text = parts[0];
        for (size_t i = 1; i < parts.size(); ++i) text += Numbered(parts[i], numbers.at(i - 1));
        return text;
    }
};

}  // namespace corvane::test
