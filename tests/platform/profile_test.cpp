#include <gtest/gtest.h>

#include "platform/system.h"
#include "tests/support/support.h"

namespace corvane::system {
namespace {

using test::ReadFileBytes;
using test::TemporaryFolder;
using test::WriteFileBytes;

constexpr size_t kMost = 400;

struct ReadRow {
    const char* name;
    const char* bytes;
    const char* section;
    const char* key;
    const char* expected;
};

class ReadProfile : public testing::TestWithParam<ReadRow> {};

TEST_P(ReadProfile, GivesTheValue) {
    const TemporaryFolder folder;
    const std::wstring path = folder.File(L"Corvane.ini");
    WriteFileBytes(path, GetParam().bytes);
    EXPECT_EQ(ReadProfileText(GetParam().section, GetParam().key, "none", path, kMost),
              GetParam().expected);
}

const ReadRow kReadRows[] = {
    {"Plain", "[A]\r\nkey=value\r\n", "A", "key", "value"},
    {"LineFeedsAlone", "[A]\nkey=value\nother=x\n", "A", "key", "value"},
    {"LastLineWithoutEnd", "[A]\r\nkey=value", "A", "key", "value"},
    {"NamesInOtherCase", "[SecTion]\r\nKEY=value\r\n", "section", "Key", "value"},
    {"BlanksAroundNameAndValue", "[A]\r\n  key \t=  a b  \r\n", "A", "key", "a b"},
    {"DoubleQuotesRemoved", "[A]\r\nkey=\" a \"\r\n", "A", "key", " a "},
    {"SingleQuotesRemoved", "[A]\r\nkey='a'\r\n", "A", "key", "a"},
    {"OneQuoteKept", "[A]\r\nkey=\"a\r\n", "A", "key", "\"a"},
    {"UnequalQuotesKept", "[A]\r\nkey='a\"\r\n", "A", "key", "'a\""},
    {"OnlyOuterQuotesRemoved", "[A]\r\nkey=\"\"a\"\"\r\n", "A", "key", "\"a\""},
    {"SemicolonInValueKept", "[A]\r\nkey=a;b ;c\r\n", "A", "key", "a;b ;c"},
    {"EqualsInValueKept", "[A]\r\nkey=a=b\r\n", "A", "key", "a=b"},
    {"EmptyValue", "[A]\r\nkey=\r\n", "A", "key", ""},
    {"CommentIsNoKey", "[A]\r\n;key=no\r\nkey=yes\r\n", "A", "key", "yes"},
    {"FirstOfTwoKeys", "[A]\r\nkey=1\r\nkey=2\r\n", "A", "key", "1"},
    {"OtherSectionsKey", "[A]\r\nx=1\r\n[B]\r\nkey=2\r\n", "A", "key", "none"},
    {"SecondSection", "[A]\r\nkey=1\r\n[B]\r\nkey=2\r\n", "B", "key", "2"},
    {"MissingSection", "[A]\r\nkey=1\r\n", "C", "key", "none"},
    {"MissingKey", "[A]\r\nkey=1\r\n", "A", "kei", "none"},
    {"EmptyFile", "", "A", "key", "none"},
    {"KeyOutsideAnySection", "key=1\r\n[A]\r\nx=2\r\n", "A", "key", "none"},
    {"AnsiBytes", "[A]\r\nkey=\xE9\xE7\xF8\r\n", "A", "key", "\xE9\xE7\xF8"},
};

INSTANTIATE_TEST_SUITE_P(Table, ReadProfile, testing::ValuesIn(kReadRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(Profile, MissingFileGivesTheFallbackWithoutTrailingBlanks) {
    const TemporaryFolder folder;
    EXPECT_EQ(ReadProfileText("A", "key", "default  ", folder.File(L"no.ini"), kMost), "default");
    EXPECT_EQ(ReadProfileText("A", "key", "", folder.File(L"no.ini"), kMost), "");
}

TEST(Profile, LongValueIsCut) {
    const TemporaryFolder folder;
    const std::wstring path = folder.File(L"a.ini");
    WriteFileBytes(path, "[A]\r\nkey=" + std::string(500, 'x') + "\r\n");
    EXPECT_EQ(ReadProfileText("A", "key", "", path, kMost), std::string(400, 'x'));
    EXPECT_EQ(ReadProfileText("A", "key", "", path, 3), "xxx");
    EXPECT_EQ(ReadProfileText("A", "key", "", path, 500), std::string(500, 'x'));
}

TEST(Profile, ValueOfExactlyTheMostIsWhole) {
    const TemporaryFolder folder;
    const std::wstring path = folder.File(L"a.ini");
    WriteFileBytes(path, "[A]\r\nkey=" + std::string(399, 'x') + "y\r\n");
    EXPECT_EQ(ReadProfileText("A", "key", "", path, kMost), std::string(399, 'x') + "y");
}

TEST(Profile, Integers) {
    struct Row {
        const char* text;
        int32_t expected;
    };
    const Row rows[] = {{"12", 12},
                        {"-7", -7},
                        {"+3", 3},
                        {"0", 0},
                        {"15abc", 15},
                        {" 42 ", 42},
                        {"", -1},
                        {"x", 0},
                        {"1.9", 1},
                        {"\"8\"", 8},
                        {"2147483647", 2147483647}};
    const TemporaryFolder folder;
    const std::wstring path = folder.File(L"a.ini");
    for (const Row& row : rows) {
        WriteFileBytes(path, std::string("[A]\r\nkey=") + row.text + "\r\n");
        EXPECT_EQ(ReadProfileInteger("a", "KEY", -1, path), row.expected) << row.text;
    }
    EXPECT_EQ(ReadProfileInteger("A", "missing", -1, path), -1);
    EXPECT_EQ(ReadProfileInteger("A", "key", 5, folder.File(L"no.ini")), 5);
}

struct WriteRow {
    const char* name;
    const char* before;
    const char* section;
    const char* key;
    const char* after;
};

class WriteProfile : public testing::TestWithParam<WriteRow> {};

TEST_P(WriteProfile, ChangesOneLine) {
    const TemporaryFolder folder;
    const std::wstring path = folder.File(L"Corvane.ini");
    WriteFileBytes(path, GetParam().before);
    ASSERT_EQ(WriteProfileText(GetParam().section, GetParam().key, "new", path), kErrorNone);
    EXPECT_EQ(ReadFileBytes(path), GetParam().after);
    EXPECT_EQ(ReadProfileText(GetParam().section, GetParam().key, "none", path, kMost), "new");
}

const WriteRow kWriteRows[] = {
    {"ValueReplaced", "[A]\r\nx=1\r\nkey=old\r\ny=2\r\n", "A", "key",
     "[A]\r\nx=1\r\nkey=new\r\ny=2\r\n"},
    {"NamesInOtherCaseKeepTheirSpelling", "[Sect]\r\nKey=old\r\n", "SECT", "KEY",
     "[Sect]\r\nKey=new\r\n"},
    {"KeyAddedAtTheSectionsEnd", "[A]\r\nx=1\r\n[B]\r\ny=2\r\n", "A", "key",
     "[A]\r\nx=1\r\nkey=new\r\n[B]\r\ny=2\r\n"},
    {"SectionAddedAtTheEnd", "[A]\r\nx=1\r\n", "B", "key", "[A]\r\nx=1\r\n[B]\r\nkey=new\r\n"},
    {"CommentsAreKept", ";first\r\n[A]\r\n;key=no\r\nkey=old\r\n", "A", "key",
     ";first\r\n[A]\r\n;key=no\r\nkey=new\r\n"},
    {"KeyOfTheSameNameElsewhereIsKept", "[A]\r\nkey=1\r\n[B]\r\nkey=2\r\n", "B", "key",
     "[A]\r\nkey=1\r\n[B]\r\nkey=new\r\n"},
    {"EmptyFile", "", "A", "key", "[A]\r\nkey=new\r\n"},
};

INSTANTIATE_TEST_SUITE_P(Table, WriteProfile, testing::ValuesIn(kWriteRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(Profile, WritingMakesTheFile) {
    const TemporaryFolder folder;
    const std::wstring path = folder.File(L"new.ini");
    ASSERT_EQ(WriteProfileText("Config", "Path", "C:\\data\\", path), kErrorNone);
    EXPECT_EQ(ReadFileBytes(path), "[Config]\r\nPath=C:\\data\\\r\n");
}

TEST(Profile, EmptyValueIsWritten) {
    const TemporaryFolder folder;
    const std::wstring path = folder.File(L"a.ini");
    WriteFileBytes(path, "[A]\r\nkey=old\r\n");
    ASSERT_EQ(WriteProfileText("A", "key", "", path), kErrorNone);
    EXPECT_EQ(ReadFileBytes(path), "[A]\r\nkey=\r\n");
    EXPECT_EQ(ReadProfileText("A", "key", "none", path, kMost), "");
}

TEST(Profile, AnsiBytesAreWrittenAsTheyAre) {
    const TemporaryFolder folder;
    const std::wstring path = folder.File(L"a.ini");
    ASSERT_EQ(WriteProfileText("A", "key", "\xE9\xE7\xF8", path), kErrorNone);
    EXPECT_EQ(ReadFileBytes(path), "[A]\r\nkey=\xE9\xE7\xF8\r\n");
}

TEST(Profile, WritingInAMissingFolderIsError3) {
    const TemporaryFolder folder;
    EXPECT_EQ(WriteProfileText("A", "key", "x", folder.File(L"no\\a.ini")), kErrorPathNotFound);
}

TEST(Profile, WritingAReadOnlyFileIsError5) {
    const TemporaryFolder folder;
    const std::wstring path = folder.File(L"a.ini");
    WriteFileBytes(path, "[A]\r\nkey=old\r\n");
    ASSERT_EQ(SetReadOnly(path, true), kErrorNone);
    File probe;
    const bool writable = CreateForWriting(path, probe) == kErrorNone;
    CloseFile(probe);
    if (writable) GTEST_SKIP() << "this user may write to read-only files";
    EXPECT_EQ(WriteProfileText("A", "key", "new", path), kErrorAccessDenied);
    EXPECT_EQ(ReadFileBytes(path), "[A]\r\nkey=old\r\n");
}

TEST(Profile, NameWithoutFolderIsInTheWindowsFolder) {
    const TemporaryFolder folder;
    const std::wstring name = L"corvane_profile_test.ini";
    ASSERT_EQ(WriteProfileText("A", "key", "here", name), kErrorNone);
    EXPECT_EQ(ReadProfileText("A", "key", "none", name, kMost), "here");
    FileStatus status;
    ASSERT_EQ(GetFileStatus(AbsolutePath(name), status), kErrorNone);
    EXPECT_FALSE(status.exists);
    for (const std::wstring& place : {TemporaryDirectory(), std::wstring(L"C:\\windows\\")}) {
        RemoveFile(place + name);
    }
    EXPECT_EQ(ReadProfileText("A", "key", "none", name, kMost), "none");
}

}  // namespace
}  // namespace corvane::system
