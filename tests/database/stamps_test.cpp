#include "database/stamps.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "database/model_kind.h"
#include "files/paths.h"
#include "files/text_file.h"
#include "platform/system.h"
#include "platform/ztutil32.h"
#include "report/messages.h"
#include "tests/support/support.h"
#include "text/text.h"

namespace corvane {
namespace {

struct StampsTest : testing::Test {
    test::TemporaryFolder folder;

    std::string Written(const Stamp& stamp, float version) {
        const std::wstring path = folder.File(L"stamps.txt");
        TextWriter writer;
        EXPECT_TRUE(CreateText(writer, path));
        WriteStampLines(writer, stamp, version);
        EXPECT_TRUE(CloseText(writer));
        return test::ReadFileBytes(path);
    }
};

Stamp SampleStamp() {
    return {L"Yard", L"Oslo", L"20/11/2026", L"17:45:00", L"ann"};
}

const std::map<int32_t, std::string> kTexts = {{kMsgCommentRule, "*-"},
                                               {kMsgStampProgram, " P "},
                                               {kMsgStampFormat, " F"},
                                               {kMsgStampWritten, "by"},
                                               {kMsgStampUser, " U "}};

TEST_F(StampsTest, LinesHaveTheTextsOfTheCatalogueInTheirOrder) {
    const test::FakeCatalogue catalogue(kTexts);
    EXPECT_EQ(Written(SampleStamp(), kSectionFormatVersion),
              "*- P 1.0 R0 32bit\r\n"
              "*- F 2.002 \r\n"
              "*- by : Yard, Oslo 20/11/2026,  17:45:00\r\n"
              "*- U ann\r\n");
}

TEST_F(StampsTest, FormatVersionIsWrittenAsANumber) {
    const test::FakeCatalogue catalogue(kTexts);
    const std::string text = Written(SampleStamp(), kBulkheadFormatVersion);
    EXPECT_NE(text.find("*- F .443 \r\n"), std::string::npos) << text;
}

TEST_F(StampsTest, UserWithoutNameHasNoLine) {
    const test::FakeCatalogue catalogue(kTexts);
    Stamp stamp = SampleStamp();
    stamp.userName.clear();
    const std::string text = Written(stamp, kSectionFormatVersion);
    EXPECT_EQ(text.find("*- U"), std::string::npos) << text;
}

TEST_F(StampsTest, MissingIdentificationsLeaveTheirPlacesEmpty) {
    const test::FakeCatalogue catalogue(kTexts);
    Stamp stamp = SampleStamp();
    stamp.firstIdentification.clear();
    stamp.secondIdentification.clear();
    const std::string text = Written(stamp, kSectionFormatVersion);
    EXPECT_NE(text.find("*- by : , 20/11/2026,  17:45:00\r\n"), std::string::npos) << text;
}

TEST_F(StampsTest, TextsAreWrittenInTheAnsiCodePage) {
    const test::FakeCatalogue catalogue(kTexts);
    Stamp stamp = SampleStamp();
    stamp.firstIdentification = system::WideFromAnsi("Ch\xE2ntier ") + L'\u4E2D';
    stamp.userName = system::WideFromAnsi("Ren\xE9");
    const std::string text = Written(stamp, kSectionFormatVersion);
    EXPECT_NE(text.find("Ch\xE2ntier ?,"), std::string::npos) << text;
    EXPECT_NE(text.find("Ren\xE9\r\n"), std::string::npos) << text;
}

TEST_F(StampsTest, LinesAreCommentsWithTheRealCatalogue) {
    const std::string path = Written(SampleStamp(), kSectionFormatVersion);
    size_t lines = 0;
    for (size_t at = 0; at < path.size(); at = path.find('\n', at) + 1, ++lines) {
        EXPECT_EQ(path[at], '*');
    }
    EXPECT_EQ(lines, 4u);
}

TEST_F(StampsTest, IdentificationsComeTrimmedFromTheSettingsFile) {
    const test::FreshSettingsFile settings;
    const std::string section = GetMessageBytes(kMsgSettingsSection);
    const auto write = [&section](MessageNumber key, const std::string& value) {
        return system::WriteProfileText(section, GetMessageBytes(key), value, kSettingsFile);
    };
    ASSERT_EQ(write(kMsgFirstIdentificationKey, "\"  Yard of \xC5s \""), system::kErrorNone);
    ASSERT_EQ(write(kMsgSecondIdentificationKey, "  Oslo  "), system::kErrorNone);
    const Stamp stamp = CurrentStamp();
    EXPECT_EQ(stamp.firstIdentification, system::WideFromAnsi("Yard of \xC5s"));
    EXPECT_EQ(stamp.secondIdentification, L"Oslo");
}

TEST_F(StampsTest, IdentificationsAreEmptyWithoutSettings) {
    const test::FreshSettingsFile settings;
    const Stamp stamp = CurrentStamp();
    EXPECT_TRUE(stamp.firstIdentification.empty());
    EXPECT_TRUE(stamp.secondIdentification.empty());
}

TEST_F(StampsTest, UserNameEndsAtItsFirstNul) {
    const test::FakeFunction fake(corvane::LoginName, [](char* buffer, int32_t size) {
        ASSERT_GE(size, 32);
        std::memcpy(buffer, "ann\0left over", 14);
    });
    EXPECT_EQ(CurrentStamp().userName, L"ann");
}

TEST_F(StampsTest, UserNameThatFillsTheBufferIsKept) {
    const test::FakeFunction fake(corvane::LoginName, [](char* buffer, int32_t size) {
        std::memset(buffer, 'x', static_cast<size_t>(size));
    });
    EXPECT_GE(CurrentStamp().userName.size(), 200u);
}

TEST_F(StampsTest, UserNameIsEmptyWhenTheLibraryDoesNotKnowIt) {
    const test::FakeFunction fake(corvane::LoginName, [](char*, int32_t) {});
    EXPECT_TRUE(CurrentStamp().userName.empty());
}

TEST_F(StampsTest, DateAndTimeAreTheUsersForms) {
    const Stamp stamp = CurrentStamp();
    EXPECT_FALSE(stamp.date.empty());
    EXPECT_FALSE(stamp.time.empty());
    EXPECT_EQ(stamp.date, Trim(stamp.date));
}

}  // namespace
}  // namespace corvane
