// What the tests of the database's edits share.
#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <vector>

#include "database/editing.h"
#include "report/messages.h"
#include "tests/database/sample_database.h"
#include "tests/database/section_sample.h"
#include "tests/support/recorded_reports.h"
#include "tests/support/support.h"
#include "tests/support/without_stamps.h"
#include "text/text.h"

namespace corvane::test {

// What a box shows of a message.
inline std::string BoxText(int32_t message, MessageArguments arguments) {
    return Narrow(SubstituteArguments(ExpandLineBreaks(GetMessage(message)), arguments));
}

struct EditingTest : testing::Test {
    RecordedReports screen;
    TemporaryFolder folder;
    std::wstring path = folder.File(L"ship.ve2");
    StructuralLines lines = FetchStructuralLines();
    SectionModel section = FullSection();

    void Write(std::string_view text) { WriteFileBytes(path, text); }
    std::string Text() const { return ReadFileBytes(path); }

    // The file, and its folder, are as this text and one file; the only message was this one.
    void ExpectRefusal(std::string_view text, int32_t message, MessageArguments arguments) {
        EXPECT_EQ(RecordedReports::Of("warning"),
                  std::vector<std::string>{BoxText(message, arguments)});
        RecordedReports::events.clear();
        EXPECT_EQ(Text(), text);
        EXPECT_EQ(FilesIn(folder.path).size(), 1U);
    }
    void ExpectRefusalOfNumber(std::string_view text, int32_t number) {
        ExpectRefusal(text, kMsgNumberNotOwn, {number, path, GetMessage(kMsgModelMarker)});
    }
    // The captions that the status label had, in order.
    std::vector<std::string> Captions() const { return RecordedReports::Of("caption"); }

    // Head and blocks as an edit leaves them.
    static std::string Copied(std::initializer_list<SampleBlock> blocks) {
        std::string text = SampleHead();
        for (const SampleBlock& block : blocks) text += CopiedBlockText(block, 0);
        return text;
    }
    // Blocks of FiveBlocks with these number lines.
    static std::vector<SampleBlock> Numbered(const std::vector<const char*>& numbers) {
        std::vector<SampleBlock> blocks = FiveBlocks();
        size_t i = 0;
        for (const char* number : numbers) blocks[i++].number = number;
        return blocks;
    }
};

}  // namespace corvane::test
