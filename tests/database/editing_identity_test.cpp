// A model that is read and put back unchanged leaves the file as it was, but for what every rewrite
// makes regular: one comment rule between a marker and its number, the number of the model itself
// in print form, the time in its stamp, CR LF at the ends of lines that are written again, an end
// for the last line.
#include <algorithm>

#include "tests/database/bulkhead_sample.h"
#include "tests/database/editing_fixture.h"
#include "tests/support/recorded_reports.h"

namespace corvane {
namespace {

using test::BlockText;
using test::RandomArrangement;
using test::RandomSection;
using test::WithLineFeeds;
using test::WithoutStamps;

constexpr uint32_t kFiles = 10'000;

// A block of a generated file: as it is there, and as a rewrite leaves it.
struct Piece {
    std::string comments;  // before its marker
    std::string text;      // from its marker on
    std::string copied;
    std::string rewritten;  // by its own record; empty when that is not known
    int32_t number = 0;     // on its number line
    bool putBack = true;
    bool isBulkhead = false;
};

struct GeneratedFile {
    std::string head;
    std::vector<Piece> pieces;
    bool endless = false;  // the last line has no end
};

struct Random : test::Chance {
    using Chance::Chance;
    template <class Choice>
    Choice Of(std::initializer_list<Choice> choices) {
        return choices.begin()[Below(static_cast<uint32_t>(choices.size()))];
    }
};

std::string AsLines(std::string_view text, bool lineFeeds) {
    return lineFeeds ? WithLineFeeds(text) : std::string(text);
}

std::string RandomComments(Random& random) {
    std::string comments;
    for (uint32_t i = random.Below(4); i > 0 && random.OneIn(2); --i) {
        comments += random.Of({"*\r\n", "* a note\r\n", "**\r\n", "*\t*\r\n"});
    }
    return comments;
}

std::string RandomLines(Random& random) {
    std::string text;
    for (uint32_t i = random.Below(6); i > 0; --i) {
        text += random.Of({"\r\n", " 1 \t 2 \r\n", "* comment\r\n", "\ttail \xE9 \r\n",
                           "------------------ HOLDS ------------------\r\n", "*\r\n"});
    }
    return text;
}

// The text from the line after the number on.
std::string AfterNumber(std::string_view block) {
    size_t place = 0;
    for (int line = 0; line < 3; ++line) place = block.find('\n', place) + 1;
    return std::string(block.substr(place));
}

struct EditingIdentityTest : test::TemporaryFilesInMemory, test::EditingTest {
    std::vector<std::string> models;  // blocks after their numbers

    void SetUp() override {
        for (uint32_t seed = 0; seed < 60; ++seed) {
            SectionModel random = RandomSection(seed);
            if (random.panels.size() > 2) random.panels.resize(2);
            if (random.compartments.size() > 1) random.compartments.resize(1);
            models.push_back(AfterNumber(BlockText(random, 1)));
        }
        for (uint32_t seed = 0; seed < 30; ++seed) {
            BulkheadArrangement random = RandomArrangement(seed);
            if (random.bulkheads.size() > 1) random.bulkheads.resize(1);
            if (random.holds.size() > 1) random.holds.resize(1);
            models.push_back(AfterNumber(BlockText(random, 1)));
        }
    }

    // A block that no record can be read of and written back the same: the body of another program,
    // a damaged one.
    std::string OddBlock(Random& random, std::string& numberLine) {
        if (random.OneIn(3)) return random.Of({"TORSION\r\n", "HULL\r\n"}) + RandomLines(random);
        if (random.OneIn(2)) {
            numberLine = random.Of({"", "none\r\n", "- - 4\r\n"});
            return numberLine.empty() ? std::string() : "SECTION\r\n" + RandomLines(random);
        }
        const std::string& whole = models[random.Below(static_cast<uint32_t>(models.size()))];
        return whole.substr(0, whole.find('\n', random.Below(1 + uint32_t(whole.size() / 2))) + 1);
    }

    Piece RandomPiece(Random& random, int32_t number, bool lineFeeds) {
        const std::string print = PrintForm(number) + "\r\n";
        std::string numberLine = print;
        if (random.OneIn(6))
            numberLine = std::to_string(number) + random.Of({"\r\n", " aft ;\r\n"});
        const bool odd = random.OneIn(4);
        const std::string body = odd ? OddBlock(random, numberLine)
                                     : models[random.Below(static_cast<uint32_t>(models.size()))];
        const std::string marker = lines.modelMarker + "\r\n";
        const std::string rule = lines.commentRule + "\r\n";
        std::string between = RandomComments(random);
        Piece piece;
        piece.comments = AsLines(RandomComments(random), lineFeeds);
        piece.text = AsLines(marker + between + numberLine + body, lineFeeds);
        piece.copied = numberLine.empty() ? piece.text
                                          : AsLines(marker, lineFeeds) + rule +
                                                AsLines(numberLine + body, lineFeeds);
        if (!odd) piece.rewritten = marker + rule + print + body;
        piece.number = LeadingInteger(numberLine);
        piece.isBulkhead = body.starts_with("BHA\r\n");
        piece.putBack = piece.number >= 1 && !body.starts_with("TORSION");
        return piece;
    }

    GeneratedFile RandomFile(uint32_t seed) {
        Random random(seed);
        const bool lineFeeds = random.OneIn(3);
        GeneratedFile file;
        file.head = RandomComments(random) + lines.signature + "\r\n" + RandomLines(random);
        file.head = AsLines(file.head, lineFeeds);
        const bool dense = !random.OneIn(3);
        const uint32_t count = random.Below(5);
        for (uint32_t i = 0; i < count; ++i) {
            int32_t number = static_cast<int32_t>(i) + 1;
            if (!dense && random.OneIn(2)) number = random.Of({1, 2, 7, INT32_MAX, -3, 2});
            Piece piece = RandomPiece(random, number, lineFeeds);
            // What closes a damaged block is no matter of this test.
            if (i > 0 && file.pieces.back().rewritten.empty()) piece.comments.clear();
            // A number that two blocks have is refused.
            for (Piece& earlier : file.pieces) {
                if (earlier.number == piece.number) earlier.putBack = piece.putBack = false;
            }
            file.pieces.push_back(std::move(piece));
        }
        file.endless = random.OneIn(4);
        return file;
    }

    static std::string TextOf(const GeneratedFile& file) {
        std::string text = file.head;
        for (const Piece& piece : file.pieces) text += piece.comments + piece.text;
        return file.endless ? WithoutLastEnd(text) : text;
    }
    static std::string WithoutLastEnd(std::string text) {
        if (text.ends_with('\n')) text.pop_back();
        if (text.ends_with('\r')) text.pop_back();
        return text;
    }

    // Reads the model of one piece and puts it back. The file has its text before and after.
    void PutBack(const GeneratedFile& file, size_t place) {
        Write(TextOf(file));
        const int32_t number = file.pieces[place].number;
        if (file.pieces[place].isBulkhead) {
            BulkheadArrangement record;
            ASSERT_TRUE(ReadBulkheadBlock(path, number, record));
            ASSERT_TRUE(ReplaceBulkheadArrangement(path, record, number));
        } else {
            SectionModel record;
            ASSERT_TRUE(ReadSectionBlock(path, number, false, record));
            ASSERT_TRUE(ReplaceSection(path, record, number));
        }
        const std::string text = Text();

        std::string before = file.head;
        std::string after;
        for (size_t i = 0; i < file.pieces.size(); ++i) {
            std::string& side = i <= place ? before : after;
            side += file.pieces[i].comments;
            if (i != place) side += file.pieces[i].copied;
        }
        if (file.endless) after = WithoutLastEnd(after);
        if (!after.empty() && !after.ends_with('\n')) after += "\r\n";
        ASSERT_GE(text.size(), before.size() + after.size());
        EXPECT_TRUE(text.starts_with(before));
        EXPECT_TRUE(text.ends_with(after));
        const std::string& rewritten = file.pieces[place].rewritten;
        if (rewritten.empty()) return;
        EXPECT_EQ(
            WithoutStamps(text.substr(before.size(), text.size() - before.size() - after.size())),
            WithoutStamps(rewritten));
    }
};

TEST_F(EditingIdentityTest, ModelReadAndPutBackLeavesTheFileAsItWas) {
    size_t replaced = 0;
    for (uint32_t seed = 0; seed < kFiles && !HasFailure(); ++seed) {
        const GeneratedFile file = RandomFile(seed);
        for (size_t i = 0; i < file.pieces.size(); ++i) {
            if (!file.pieces[i].putBack) continue;
            SCOPED_TRACE(testing::Message() << "file " << seed << ", block " << i);
            test::RecordedReports::events.clear();
            PutBack(file, i);
            EXPECT_TRUE(test::RecordedReports::Of("warning").empty());
            ++replaced;
        }
    }
    EXPECT_GT(replaced, kFiles);
}

}  // namespace
}  // namespace corvane
