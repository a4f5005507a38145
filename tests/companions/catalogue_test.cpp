// The catalogues of messages and labels, asked through the libraries themselves.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <set>
#include <string>
#include <vector>

#include "platform/bsdvelk.h"
#include "platform/grvelk.h"
#include "platform/ztutil32.h"
#include "platform/ztvelk32.h"
#include "report/message_numbers.h"

namespace corvane {
namespace {

constexpr int32_t kBufferSize = 3000;

std::string MessageText(int32_t number) {
    std::array<char, kBufferSize> buffer;
    const int32_t length = ZTGrVel32_LoadVelkinString(number, buffer.data(), kBufferSize);
    return std::string(buffer.data(), static_cast<size_t>(length));
}

std::string LabelText(int32_t number) {
    std::array<char, kBufferSize> buffer;
    const int32_t length = BsdVelk_LoadBsdString(number, buffer.data(), kBufferSize);
    return std::string(buffer.data(), static_cast<size_t>(length));
}

struct Message {
    int32_t number;
    std::string arguments;
    std::string text;
};

// The catalogue's source, in UTF-8.
std::vector<Message> MessagesOfSource() {
#define MESSAGE(number, meaning, arguments, text) Message{number, arguments, text},
    return {
#include "companions/grvelk/messages.txt"
    };
#undef MESSAGE
}

size_t CountOf(const std::string& text, const std::string& part) {
    size_t count = 0;
    for (size_t at = text.find(part); at != text.npos; at = text.find(part, at + part.size())) {
        ++count;
    }
    return count;
}

bool BeginsWith(const std::string& text, const std::string& start) {
    return text.compare(0, start.size(), start) == 0;
}

TEST(CatalogueTest, HasEveryNumberThatTheCodeUses){
#define EXPECT_MESSAGE(name, number) EXPECT_NE(MessageText(number), "") << #name;
    CORVANE_MESSAGE_NUMBERS(EXPECT_MESSAGE)
#undef EXPECT_MESSAGE
}

TEST(CatalogueTest, HasEveryNumberOfTheSuite) {
    struct Range {
        int32_t first;
        int32_t last;
    };
    const std::vector<Range> ranges = {
        {102, 105},   {111, 111},   {116, 116},   {161, 162},   {203, 205},   {286, 286},
        {300, 300},   {308, 308},   {400, 406},   {423, 424},   {428, 431},   {601, 603},
        {610, 613},   {616, 616},   {619, 622},   {801, 801},   {1002, 1003}, {1011, 1011},
        {1020, 1020}, {1025, 1025}, {1042, 1052}, {1066, 1068}, {1074, 1074}, {1083, 1083},
        {1086, 1086}, {2001, 2001}, {2006, 2007}, {2009, 2010}, {2013, 2013}, {2015, 2015},
        {2017, 2017}, {2019, 2021}, {3001, 3011}, {3013, 3017}, {3021, 3021}, {3101, 3131},
    };
    for (const Range& range : ranges) {
        for (int32_t number = range.first; number <= range.last; ++number) {
            EXPECT_NE(MessageText(number), "") << number;
        }
    }
}

TEST(CatalogueTest, EveryCodeOfAStrakeHasItsOwnMessage) {
    std::set<std::string> texts;
    for (int32_t code = kCodeCoincidentNodes; code <= kCodeBadNumber; ++code) {
        texts.insert(MessageText(1041 + code));
    }
    EXPECT_EQ(texts.size(), 10U);
    EXPECT_EQ(texts.count(""), 0U);
    EXPECT_EQ(texts.count(MessageText(kMsgLibraryVersion)), 0U);
}

TEST(CatalogueTest, NumbersAscendWithoutDoubles) {
    int32_t previous = 0;
    for (const Message& message : MessagesOfSource()) {
        EXPECT_GT(message.number, previous);
        previous = message.number;
    }
}

TEST(CatalogueTest, OwnNumbersAreBetween3500And3999) {
    for (const Message& message : MessagesOfSource()) {
        EXPECT_LE(message.number, 3999);
        if (message.number > 3131) {
            EXPECT_GE(message.number, 3500);
        }
    }
}

TEST(CatalogueTest, EveryCharacterIsASingleByte) {
    for (const Message& message : MessagesOfSource()) {
        // In UTF-8, characters from U+0100 on begin with a byte from C4 on.
        const bool isSingle = std::none_of(message.text.begin(), message.text.end(), [](char byte) {
            return static_cast<unsigned char>(byte) >= 0xC4;
        });
        EXPECT_TRUE(isSingle) << message.number;
    }
}

TEST(CatalogueTest, EveryArgumentHasItsPlace) {
    for (const Message& message : MessagesOfSource()) {
        const size_t count = message.arguments == "none" ? 0 : CountOf(message.arguments, ";") + 1;
        EXPECT_EQ(CountOf(message.text, "¤"), count) << message.number;
    }
}

TEST(CatalogueTest, TextsAreHandedOutAsAnsi) {
    EXPECT_EQ(MessageText(kMsgPosition), "X = \xA4 m");
    EXPECT_NE(MessageText(3111).find("Abs\xB0"), std::string::npos);
    for (const Message& message : MessagesOfSource()) {
        const size_t pairs = CountOf(message.text, "\xC2") + CountOf(message.text, "\xC3");
        EXPECT_EQ(MessageText(message.number).size(), message.text.size() - pairs)
            << message.number;
    }
}

TEST(CatalogueTest, NoTextIsLongerThanTheShellsBuffer) {
    for (const Message& message : MessagesOfSource()) {
        EXPECT_LT(message.text.size(), static_cast<size_t>(kBufferSize)) << message.number;
    }
}

TEST(CatalogueTest, UnknownNumberGivesZeroAndAnEmptyText) {
    for (const int32_t number : {-1, 0, 1, 2, 101, 3012, 3018, 3132, 3499, 99999}) {
        std::array<char, 8> buffer = {'x', 'x', 'x', 'x', 'x', 'x', 'x', '\0'};
        EXPECT_EQ(ZTGrVel32_LoadVelkinString(number, buffer.data(), 8), 0) << number;
        EXPECT_STREQ(buffer.data(), "") << number;
    }
}

TEST(CatalogueTest, TextLongerThanTheBufferIsCut) {
    std::array<char, 8> buffer;
    buffer.fill('#');
    EXPECT_EQ(ZTGrVel32_LoadVelkinString(kMsgDataDirectoryKey, buffer.data(), 5), 4);
    EXPECT_STREQ(buffer.data(), "Data");
    EXPECT_EQ(buffer[5], '#');
    EXPECT_EQ(ZTGrVel32_LoadVelkinString(kMsgDataDirectoryKey, buffer.data(), 1), 0);
    EXPECT_STREQ(buffer.data(), "");
}

TEST(CatalogueTest, NoBufferGivesZero) {
    std::array<char, 2> buffer = {'x', '\0'};
    EXPECT_EQ(ZTGrVel32_LoadVelkinString(kMsgDataDirectoryKey, buffer.data(), 0), 0);
    EXPECT_EQ(ZTGrVel32_LoadVelkinString(kMsgDataDirectoryKey, buffer.data(), -5), 0);
    EXPECT_EQ(ZTGrVel32_LoadVelkinString(kMsgDataDirectoryKey, nullptr, 100), 0);
    EXPECT_EQ(BsdVelk_LoadBsdString(101, nullptr, 100), 0);
    EXPECT_STREQ(buffer.data(), "x");
}

TEST(StructuralLinesTest, CommentRuleBeginsWithAStar) {
    EXPECT_TRUE(BeginsWith(MessageText(kMsgCommentRule), "*"));
}

TEST(StructuralLinesTest, MarkerIsNotACommentNoHeaderAndNoKeyword) {
    const std::string marker = MessageText(kMsgModelMarker);
    EXPECT_FALSE(BeginsWith(marker, "*"));
    EXPECT_FALSE(BeginsWith(marker, "------"));
    EXPECT_FALSE(BeginsWith(marker, " "));
    for (const char* other : {"SECTION", "BHA", "TORSION"}) EXPECT_NE(marker, other);
    for (const Message& message : MessagesOfSource()) {
        if (message.number != kMsgModelMarker) {
            EXPECT_NE(message.text, marker);
        }
    }
}

TEST(StructuralLinesTest, NameLabelIsNotAComment) {
    EXPECT_FALSE(BeginsWith(MessageText(kMsgNameLabel), "*"));
}

TEST(StructuralLinesTest, SignatureIsUpperCase) {
    const std::string signature = MessageText(kMsgSignature);
    EXPECT_FALSE(BeginsWith(signature, "*"));
    EXPECT_TRUE(std::none_of(signature.begin(), signature.end(), [](char character) {
        return (character >= 'a' && character <= 'z') ||
               static_cast<unsigned char>(character) > 126;
    }));
}

TEST(StructuralLinesTest, LabelsOfTablesAreHeaderLines) {
    const std::string dashes(18, '-');
    std::set<std::string> labels;
    for (const int32_t number :
         {3005, 3006, 3007, 3008, 3009, 3010, 3011, 3013, 3014, 3015, 3021}) {
        const std::string label = MessageText(number);
        EXPECT_TRUE(BeginsWith(label, dashes + ' ')) << label;
        ASSERT_GT(label.size(), 2 * dashes.size() + 2) << label;
        EXPECT_EQ(label.substr(label.size() - dashes.size() - 1), ' ' + dashes) << label;
        labels.insert(label);
    }
    EXPECT_EQ(labels.size(), 11U) << "two tables have the same label";
}

TEST(StructuralLinesTest, LabelsOfTablesAreNoneOfTheFixedOnes) {
    for (const char* name : {"BSD", "PRIMARY STIFF", "SECONDARY STIFF", "BRACK SCANT", "SPAN SCANT",
                             "SPAN BRACK", "BH CORR", "BH STRAKE", "HOLDS", "TRANS BEAM",
                             "BEAM MODELS", "LONG BEAM", "TOR RESULTS"}) {
        const std::string line = std::string(18, '-') + ' ' + name + ' ' + std::string(18, '-');
        for (int32_t number = 3001; number <= 3021; ++number) {
            EXPECT_NE(MessageText(number), line) << number;
        }
    }
}

TEST(StructuralLinesTest, LinesOfFilesHoldNoPlaceholder) {
    for (const Message& message : MessagesOfSource()) {
        const bool isLine =
            (message.number >= 3001 && message.number <= 3131) || message.number == 3503;
        if (!isLine) continue;
        for (const char* placeholder : {"¤", "²", "§", "\r", "\n"}) {
            EXPECT_EQ(CountOf(message.text, placeholder), 0U) << message.number;
        }
    }
}

TEST(SettingsTextsTest, SectionsAndKeysAreDistinctWords) {
    std::set<std::string> keys;
    for (const int32_t number : {400, 401, 402, 403, 404, 405, 406, 428, 429, 430, 431}) {
        const std::string key = MessageText(number);
        EXPECT_EQ(key.find_first_of("=;[] \t"), std::string::npos) << key;
        keys.insert(key);
    }
    EXPECT_EQ(keys.size(), 11U);
    EXPECT_NE(MessageText(kMsgSettingsSection), MessageText(kMsgStartSection));
}

TEST(FileTypeTextsTest, ListsCanBeJoined) {
    for (const int32_t number : {103, 104, 105, 111, 162}) {
        const std::string list = MessageText(number);
        EXPECT_EQ(CountOf(list, "|") % 2, 0U) << list;
        EXPECT_EQ(list.back(), '|') << list;
    }
}

TEST(LabelsTest, HasEveryNumber) {
    for (const int32_t number : {101, 102, 650, 651, 652, 653, 1002, 5000}) {
        EXPECT_NE(LabelText(number), "") << number;
    }
    std::set<std::string> types;
    for (int32_t type = 1; type <= 21; ++type) types.insert(LabelText(500 + type));
    EXPECT_EQ(types.size(), 21U);
    EXPECT_EQ(types.count(""), 0U);
}

TEST(LabelsTest, UnknownNumberGivesZero) {
    for (const int32_t number : {0, 100, 103, 500, 522, 649, 654, 4999}) {
        EXPECT_EQ(LabelText(number), "") << number;
    }
}

TEST(LabelsTest, DisplayNamesFitTheirField) {
    EXPECT_LE(LabelText(101).size(), 30U);
    EXPECT_LE(LabelText(102).size(), 30U);
}

TEST(VersionsTest, AreThoseThatTheShellAsksFor) {
    EXPECT_EQ(GetGrVelkDataVersion(), 2.002F);
    EXPECT_EQ(GetGrVelkBhaVersion(), 0.443F);
    EXPECT_GE(GetBsdVelkVersion(), 5.0F);
    EXPECT_GE(GetZTUtilVersion(), 3.73F);
    EXPECT_GE(getztvelk32version(), 2.0F);
}

}  // namespace
}  // namespace corvane
