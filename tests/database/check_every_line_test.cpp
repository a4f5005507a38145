// Every line of a database damaged once, in several ways: the check always ends, and what is lost
// of the lines that hold a database together is found where it was.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

#include "bsd/bsd_file.h"
#include "database/scanning.h"
#include "report/messages.h"
#include "tests/database/check_damage.h"
#include "tests/support/recorded_reports.h"
#include "text/numbers.h"

namespace corvane {
namespace {

using test::Joined;
using test::LinesOf;
using Lines = std::vector<std::string>;

constexpr char kGarbage[] = "\x8F?#\x01 q\xFF;%$ 7x\r\n";

struct EveryLineTest : testing::Test {
    test::RecordedReports screen;
    test::TemporaryFilesInMemory inMemory;
    test::TemporaryFolder folder;
    std::wstring path = folder.File(L"ship.ve2");
    StructuralLines structure = FetchStructuralLines();
    Lines lines = LinesOf(test::SoundDatabase());
    std::vector<size_t> markers;  // by model: the index of its marker's line

    EveryLineTest() {
        for (size_t i = 0; i < lines.size(); ++i) {
            if (Text(i) == structure.modelMarker) markers.push_back(i);
        }
    }
    std::string_view Text(size_t line) const {
        std::string_view text = lines[line];
        return text.substr(0, text.size() - 2);
    }
    // The model of a line, from 1; 0 in the head.
    size_t ModelOf(size_t line) const {
        return static_cast<size_t>(std::ranges::upper_bound(markers, line) - markers.begin());
    }
    bool IsInTorsionBody(size_t line) const {
        const size_t model = ModelOf(line);
        constexpr size_t kTorsion = 3;
        constexpr size_t kHeadLines = 13;
        return model == kTorsion && line > markers[kTorsion - 1] + kHeadLines;
    }
    // A line without which what comes after it is not what it was.
    bool IsStructural(size_t line) const {
        if (IsCommentLine(Text(line)) || IsInTorsionBody(line)) return false;
        const size_t model = ModelOf(line);
        if (IsHeaderLine(Text(line)) || Text(line) == structure.modelMarker) return true;
        if (model == 0) return line == 0 || Text(line) == structure.headLabel;
        constexpr size_t kHeadLines = 9;  // number, kind, version, labels
        return line <= markers[model - 1] + kHeadLines;
    }
    // Whether a finding is in the lines of the model, or of the one before it where its marker is
    // damaged.
    bool IsFoundIn(const test::CheckedFile& checked, size_t line, int64_t moved) const {
        const size_t model = ModelOf(line);
        const bool isMarker = Text(line) == structure.modelMarker;
        const size_t first = isMarker ? model - 1 : model;
        const int64_t begin = first == 0 ? 0 : static_cast<int64_t>(markers[first - 1]) + 1;
        const int64_t end = model == markers.size() ? static_cast<int64_t>(lines.size())
                                                    : static_cast<int64_t>(markers[model]);
        return std::ranges::any_of(checked.findings, [&](const Finding& finding) {
            return finding.line >= begin && finding.line <= end + moved;
        });
    }

    // Puts these texts in the place of the line.
    test::CheckedFile CheckedWith(size_t line, const Lines& texts) {
        Lines damaged = lines;
        damaged[line] = Joined(texts);
        test::WriteFileBytes(path, Joined(damaged));
        test::CheckedFile checked = test::Checked(path);
        EXPECT_TRUE(checked.isDone) << "line " << line + 1;
        for (const Finding& finding : checked.findings) {
            EXPECT_GE(finding.line, 0);
            EXPECT_LE(finding.line, checked.result.lines) << test::Narrow(ReportLineOf(finding));
            EXPECT_EQ(TextOf(finding).find(L'¤'), std::wstring::npos);
        }
        return checked;
    }
    void ExpectFound(size_t line, const Lines& texts) {
        const auto moved = static_cast<int64_t>(texts.size()) - 1;
        const test::CheckedFile checked = CheckedWith(line, texts);
        if (!IsStructural(line)) return;
        EXPECT_TRUE(IsFoundIn(checked, line, moved))
            << "line " << line + 1 << " '" << Text(line) << "'";
    }
};

TEST_F(EveryLineTest, Lost) {
    for (size_t i = 0; i < lines.size(); ++i) ExpectFound(i, {});
}

TEST_F(EveryLineTest, Garbage) {
    for (size_t i = 0; i < lines.size(); ++i) ExpectFound(i, {kGarbage});
}

TEST_F(EveryLineTest, Emptied) {
    for (size_t i = 0; i < lines.size(); ++i) ExpectFound(i, {"\r\n"});
}

TEST_F(EveryLineTest, CutInTheMiddle) {
    for (size_t i = 0; i < lines.size(); ++i) {
        const std::string half = lines[i].substr(0, Text(i).size() / 2);
        // Half of a version is a version.
        if (LeadingNumber(half) != 0) {
            CheckedWith(i, {half + "\r\n"});
        } else {
            ExpectFound(i, {half + "\r\n"});
        }
    }
}

TEST_F(EveryLineTest, Doubled) {
    for (size_t i = 0; i < lines.size(); ++i) CheckedWith(i, {lines[i], lines[i]});
}

TEST_F(EveryLineTest, LinesOfTheSampleShipInTurns) {
    constexpr size_t kStep = 13;
    const std::string marker = structure.modelMarker + "\r\n";
    const Lines ship = LinesOf(test::ReadFileBytes(test::DataPath("../samples/aurora_bay.ve2")));
    for (size_t i = 0; i < ship.size(); i += kStep) {
        const std::string half = ship[i].substr(0, ship[i].size() / 2) + "\r\n";
        const std::string texts[] = {"", kGarbage, "\r\n", half, ship[i] + ship[i]};
        Lines damaged = ship;
        damaged[i] = texts[i % std::size(texts)];
        test::WriteFileBytes(path, Joined(damaged));
        const test::CheckedFile checked = test::Checked(path);
        EXPECT_TRUE(checked.isDone) << "line " << i + 1;
        const auto model = static_cast<int32_t>(
            std::count(ship.begin(), ship.begin() + static_cast<ptrdiff_t>(i) + 1, marker));
        for (const Finding& finding : checked.findings) {
            if (!finding.isInModel) continue;
            EXPECT_LE(std::abs(finding.block - model), 1)
                << "line " << i + 1 << ": " << test::Narrow(ReportLineOf(finding));
        }
    }
}

TEST_F(EveryLineTest, FileCutOffAfterIt) {
    std::string text;
    for (const std::string& line : lines) {
        text += line.substr(0, line.size() / 2);
        test::WriteFileBytes(path, text);
        EXPECT_TRUE(test::Checked(path).isDone);
        text += line.substr(line.size() / 2);
    }
}

TEST_F(EveryLineTest, AllLinesDamagedInOneFile) {
    std::string text;
    for (size_t i = 0; i < lines.size(); ++i) text += i % 2 == 0 ? lines[i] : kGarbage;
    test::WriteFileBytes(path, text);
    const test::CheckedFile checked = test::Checked(path);
    EXPECT_TRUE(checked.isDone);
    EXPECT_FALSE(checked.findings.empty());
}

}  // namespace
}  // namespace corvane
