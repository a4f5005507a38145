// What holds for the blocks of sections and for those of bulkhead arrangements: how they are read,
// written and reported, and what damage does to them.
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

#include "database/scanning.h"
#include "platform/system.h"
#include "report/messages.h"
#include "tests/database/bulkhead_sample.h"
#include "tests/database/editing_fixture.h"
#include "tests/database/section_sample.h"
#include "tests/support/recorded_reports.h"
#include "tests/support/support.h"

namespace corvane {
namespace {

using test::BlockText;
using test::BodyOf;
using test::BodyText;
using test::RecordedReports;
using test::Replaced;

struct Sections {
    using Model = SectionModel;
    static constexpr char kTest[] = "Section";
    static constexpr char kFull[] = "golden/section_full.ve2";
    static constexpr char kBare[] = "golden/section_bare.ve2";
    static constexpr char kHead[] = "SECTION\r\n*\r\nFORMAT VERSION\r\n 2.002 \r\n*";
    static constexpr char kName[] = "Frame 100";
    static constexpr char kIdentifier[] = "ID-0001";
    // Places in the golden file.
    static constexpr const char* kPlaces[] = {"------------------ NODES", " 12.5 \t 32.2 ", "Void",
                                              " 100 \t-90 "};

    static Model Read(std::string_view text) { return test::ReadText(text); }
    static bool ReadFile(const std::wstring& path, int32_t number, Model& model) {
        return ReadSectionBlock(path, number, false, model);
    }
    static void Write(TextWriter& writer, Model& model) { WriteSectionBlock(writer, model, 1); }
    static Model Random(uint32_t seed) { return test::RandomSection(seed); }
    static size_t Panels(const Model& model) { return model.panels.size(); }
    static size_t Compartments(const Model& model) { return model.compartments.size(); }
};

struct Arrangements {
    using Model = BulkheadArrangement;
    static constexpr char kTest[] = "Bulkhead";
    static constexpr char kFull[] = "golden/bulkhead_full.ve2";
    static constexpr char kBare[] = "golden/bulkhead_bare.ve2";
    static constexpr char kHead[] = "BHA\r\n*\r\nFORMAT VERSION\r\n .443 \r\n*";
    static constexpr char kName[] = "Bulkheads of hold 3";
    static constexpr char kIdentifier[] = "ID-0003";
    static constexpr const char* kPlaces[] = {
        "------------------ NODES", " 104.75 ", "Hold 3", "no node list", " 2 \t .8 ",
        " 2 \t 1 \t 2 \t .35 "};

    static Model Read(std::string_view text) { return test::ReadArrangement(text); }
    static bool ReadFile(const std::wstring& path, int32_t number, Model& model) {
        return ReadBulkheadBlock(path, number, model);
    }
    static void Write(TextWriter& writer, Model& model) { WriteBulkheadBlock(writer, model, 1); }
    static Model Random(uint32_t seed) { return test::RandomArrangement(seed); }
    static size_t Panels(const Model& model) { return model.bulkheads.size(); }
    static size_t Compartments(const Model& model) { return model.holds.size(); }
};

template <class Kind>
struct BlockTest : testing::Test {
    using Model = typename Kind::Model;

    RecordedReports screen;
    test::TemporaryFolder folder;
    std::wstring path = folder.File(L"ship.ve2");
    std::string golden = test::ReadFileBytes(test::DataPath(Kind::kFull));
    std::string body = BodyOf(golden);
    std::string block = golden.substr(golden.find(FetchStructuralLines().modelMarker));

    // As read and written again.
    static std::string Rewritten(std::string_view text) {
        Model model = Kind::Read(text);
        return BodyText(model);
    }
    // Written and read again, what was read of a damaged block stays the same.
    static void ExpectStable(Model model) {
        const std::string once = BlockText(model, 1);
        EXPECT_EQ(Rewritten(once), BodyOf(once));
    }
    void ExpectNotRead(const std::string& warning) const {
        Model model;
        model.name = L"kept";
        EXPECT_FALSE(Kind::ReadFile(path, 1, model));
        EXPECT_EQ(RecordedReports::Of("warning"), std::vector{warning});
        EXPECT_EQ(model.name, L"kept");
    }
};

struct KindNames {
    template <class Kind>
    static std::string GetName(int) {
        return Kind::kTest;
    }
};
using BlockKinds = testing::Types<Sections, Arrangements>;
TYPED_TEST_SUITE(BlockTest, BlockKinds, KindNames);

// ---- Written -----------------------------------------------------------------------------------

TYPED_TEST(BlockTest, GoldenFilesAreWrittenAgainByteForByte) {
    EXPECT_EQ(this->Rewritten(this->golden), this->body);
    const std::string bare = test::ReadFileBytes(test::DataPath(TypeParam::kBare));
    EXPECT_EQ(this->Rewritten(bare), BodyOf(bare));
}

TYPED_TEST(BlockTest, RandomModelsAreWrittenAgainByteForByte) {
    for (uint32_t seed = 1; seed <= 200; ++seed) {
        auto model = TypeParam::Random(seed);
        const std::string text = BlockText(model, 1);
        ASSERT_EQ(this->Rewritten(text), BodyOf(text)) << seed;
    }
}

TYPED_TEST(BlockTest, HeadHasTheNumberTheKeywordAndTheLayoutVersion) {
    auto model = TypeParam::Random(1);
    EXPECT_TRUE(BlockText(model, 7).starts_with(FetchStructuralLines().modelMarker +
                                                "\r\n*\r\n 7 \r\n" + TypeParam::kHead));
}

TYPED_TEST(BlockTest, ModelWithoutIdentifierGetsOneAndTheRecordKeepsIt) {
    auto model = TypeParam::Random(1);
    model.identifier.clear();
    const std::string first = BodyText(model);
    ASSERT_FALSE(model.identifier.empty());
    EXPECT_NE(first.find("\r\n" + model.identifier + "\r\n"), std::string::npos);
    const std::string kept = model.identifier;
    EXPECT_EQ(BodyText(model), first);
    EXPECT_EQ(model.identifier, kept);
}

TYPED_TEST(BlockTest, WriteThatFailsIsTheWritersError) {
    TextWriter writer;
    writer.buffer = std::make_unique<char[]>(kTextBufferSize);
    writer.error = system::kErrorPathNotFound;
    auto model = TypeParam::Random(1);
    TypeParam::Write(writer, model);
    EXPECT_EQ(writer.error, system::kErrorPathNotFound);
}

// ---- Reported ----------------------------------------------------------------------------------

TYPED_TEST(BlockTest, StatusShowsThePathWhileItReadsAndIsClearedThen) {
    typename TypeParam::Model model;
    test::WriteFileBytes(this->path, this->golden);
    ASSERT_TRUE(TypeParam::ReadFile(this->path, 7, model));
    const auto captions = RecordedReports::Of("caption");
    const std::string reading = test::Narrow(FormatMessage(kMsgReadingModel, {this->path}));
    EXPECT_TRUE(std::ranges::any_of(
        captions, [&](const std::string& caption) { return caption.starts_with(reading); }));
    EXPECT_EQ(RecordedReports::caption, L"");
    EXPECT_TRUE(RecordedReports::Of("warning").empty());
}

TYPED_TEST(BlockTest, FileThatIsNotADatabaseIsMessage1083) {
    test::WriteFileBytes(this->path, "something else\r\n");
    this->ExpectNotRead(test::Narrow(FormatMessage(1083, {this->path})));
}

TYPED_TEST(BlockTest, MissingFileIsReportedAsMissing) {
    this->ExpectNotRead(test::ShownText(kMsgDatabaseMissing, {this->path}));
}

// ---- Other layouts -----------------------------------------------------------------------------

TYPED_TEST(BlockTest, LineFeedsAloneAreLineEnds) {
    std::string text = test::WithLineFeeds(this->golden);
    EXPECT_EQ(this->Rewritten(text), this->body);
    text.pop_back();  // the last line without its end
    EXPECT_EQ(this->Rewritten(text), this->body);
}

TYPED_TEST(BlockTest, CommentLinesMayBeAnywhere) {
    EXPECT_EQ(this->Rewritten(test::WithLineAfterEach(this->golden, "* a comment, 1 2 3")),
              this->body);
}

TYPED_TEST(BlockTest, TablesMayBeInAnyOrder) {
    ASSERT_EQ(test::Tables(this->golden).size(), test::kBlockParts);
    EXPECT_EQ(this->Rewritten(test::WithTablesReversed(this->golden)), this->body);
}

TYPED_TEST(BlockTest, UnknownTablesAreSkipped) {
    const std::string text =
        Replaced(this->golden, "------------------ NODES",
                 "------------------ NOTES ------------------\r\n 1 \t 2 \r\nwords\r\n"
                 "------------------ NODES");
    EXPECT_EQ(this->Rewritten(text), this->body);
}

TYPED_TEST(BlockTest, LabelsMayBeIndented) {
    const std::string text =
        Replaced(this->golden, "------------------ NODES", "   ------------------ NODES");
    EXPECT_EQ(this->Rewritten(text), this->body);
}

// What makes a block's head, the name label aside, is data.
TYPED_TEST(BlockTest, NameAndIdentifierOfDashesAreData) {
    for (const char* dashes : {"------ dashes", "------------------ NODES ------------------"}) {
        const std::string line = "\r\n" + std::string(dashes) + "\r\n";
        std::string text =
            Replaced(this->golden, "\r\n" + std::string(TypeParam::kName) + "\r\n", line);
        text = Replaced(text, "\r\n" + std::string(TypeParam::kIdentifier) + "\r\n", line);
        const auto model = TypeParam::Read(text);
        EXPECT_EQ(test::Narrow(model.name), dashes);
        EXPECT_EQ(model.identifier, dashes);
        EXPECT_EQ(this->Rewritten(text), BodyOf(text));
    }
}

// ---- Damage ------------------------------------------------------------------------------------

TYPED_TEST(BlockTest, BlockCutOffAtAnyByteIsReadAsFarAsItGoes) {
    for (size_t length = 0; length < this->block.size(); length += 5) {
        const auto model = TypeParam::Read(std::string_view(this->block).substr(0, length));
        // The first dashes of a label can look like one more name.
        EXPECT_LE(TypeParam::Panels(model), 3u);
        EXPECT_LE(TypeParam::Compartments(model), 3u);
        if (length % 7 == 0) this->ExpectStable(model);
    }
}

TYPED_TEST(BlockTest, BlockWithoutNameLabelStillHasItsTables) {
    const std::string label = FetchStructuralLines().nameLabel + "\r\n";
    EXPECT_EQ(TypeParam::Panels(TypeParam::Read(Replaced(this->block, label, ""))), 2u);
}

TYPED_TEST(BlockTest, LongLinesAndBinaryBytesAreHarmless) {
    std::string line(200000, '7');
    std::string binary;
    for (int i = 0; i < 4000; ++i) binary += static_cast<char>(i * 37 % 256);
    for (const std::string& damage : {line, binary, std::string(5000, '\0')}) {
        for (const char* before : TypeParam::kPlaces) {
            this->ExpectStable(TypeParam::Read(Replaced(this->block, before, damage + before)));
        }
    }
}

TYPED_TEST(BlockTest, EmptyFileAndFileWithoutABlockGiveAnEmptyModel) {
    for (const char* text : {"", "CORVANE DATABASE\r\n", "------\r\n------\r\n"}) {
        const auto model = TypeParam::Read(text);
        EXPECT_EQ(TypeParam::Panels(model), 0u);
        EXPECT_TRUE(model.name.empty());
    }
}

}  // namespace
}  // namespace corvane
