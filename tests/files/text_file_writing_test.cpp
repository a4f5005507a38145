// Writing text files, and copying parts of them unchanged.
#include <gtest/gtest.h>

#include <algorithm>

#include "files/text_file.h"
#include "tests/support/support.h"

namespace corvane {
namespace {

using test::ReadFileBytes;
using test::TemporaryFolder;
using test::WriteFileBytes;

std::string LinesOfSize(size_t size) {
    std::string text;
    while (text.size() + 64 <= size) text += std::string(62, 'x') + "\r\n";
    return text + std::string(size - text.size(), '\n');
}

// ---- Writing -----------------------------------------------------------------------------------

TEST(TextWriter, LinesEndWithReturnAndLineFeed) {
    const TemporaryFolder folder;
    const std::wstring path = folder.File(L"out.txt");
    TextWriter writer;
    ASSERT_TRUE(CreateText(writer, path));
    WriteLine(writer, "one");
    WriteLine(writer, "");
    WriteText(writer, "tw");
    WriteText(writer, "");
    WriteText(writer, "o");
    EXPECT_TRUE(CloseText(writer));
    EXPECT_EQ(ReadFileBytes(path), "one\r\n\r\ntwo");
}

TEST(TextWriter, EmptiesAnOldFile) {
    const TemporaryFolder folder;
    const std::wstring path = folder.File(L"out.txt");
    WriteFileBytes(path, "a longer old text");
    TextWriter writer;
    ASSERT_TRUE(CreateText(writer, path));
    EXPECT_TRUE(CloseText(writer));
    EXPECT_EQ(ReadFileBytes(path), "");
}

TEST(TextWriter, TextsAroundTheBuffersSize) {
    const TemporaryFolder folder;
    const std::wstring path = folder.File(L"out.txt");
    for (const size_t first : {size_t{0}, size_t{1}, kTextBufferSize - 1, kTextBufferSize}) {
        for (const size_t second : {size_t{0}, size_t{1}, kTextBufferSize - 1, kTextBufferSize,
                                    kTextBufferSize + 1, 3 * kTextBufferSize}) {
            TextWriter writer;
            ASSERT_TRUE(CreateText(writer, path));
            WriteText(writer, std::string(first, 'a'));
            WriteText(writer, std::string(second, 'b'));
            WriteLine(writer, "c");
            EXPECT_TRUE(CloseText(writer));
            EXPECT_TRUE(ReadFileBytes(path) ==
                        std::string(first, 'a') + std::string(second, 'b') + "c\r\n")
                << first << ' ' << second;
        }
    }
}

TEST(TextWriter, WhatWasWrittenLastCanBeLookedAt) {
    const TemporaryFolder folder;
    const std::wstring path = folder.File(L"out.txt");
    TextWriter writer;
    ASSERT_TRUE(CreateText(writer, path));
    EXPECT_EQ(WrittenTail(writer), "");
    std::string written;
    for (const size_t size : {size_t{1}, kKeptTail - 1, kKeptTail, kTextBufferSize - kKeptTail,
                              kTextBufferSize - kKeptTail + 1, size_t{3}, kTextBufferSize,
                              3 * kTextBufferSize, kKeptTail, kTextBufferSize - 5, size_t{2}}) {
        std::string text(size, 'a');
        for (size_t i = 0; i < size; ++i) text[i] = static_cast<char>('a' + (i + size) % 23);
        WriteText(writer, text);
        written += text;
        const std::string_view tail = WrittenTail(writer);
        EXPECT_TRUE(written.ends_with(tail)) << size;
        EXPECT_GE(tail.size(), std::min(written.size(), kKeptTail)) << size;
    }
    EXPECT_TRUE(CloseText(writer));
    EXPECT_TRUE(ReadFileBytes(path) == written);
}

TEST(TextWriter, FileThatCannotBeMadeIsAnError) {
    const TemporaryFolder folder;
    TextWriter writer;
    EXPECT_FALSE(CreateText(writer, folder.File(L"none\\out.txt")));
    EXPECT_NE(writer.error, system::kErrorNone);
}

// A device whose every write fails for want of room.
constexpr wchar_t kFullDevice[] = L"Z:\\dev\\full";

TEST(TextWriter, FailedWriteIsRememberedToTheEnd) {
    TextWriter writer;
    if (!CreateText(writer, kFullDevice)) GTEST_SKIP() << "no device that is full";
    WriteText(writer, std::string(kTextBufferSize + 1, 'a'));
    EXPECT_NE(writer.error, system::kErrorNone);
    const system::ErrorNumber first = writer.error;
    WriteLine(writer, "more");
    EXPECT_EQ(writer.error, first);
    EXPECT_FALSE(CloseText(writer));
    EXPECT_EQ(writer.error, first);
}

TEST(TextWriter, FailureOfTheLastBufferShowsWhenItIsClosed) {
    TextWriter writer;
    if (!CreateText(writer, kFullDevice)) GTEST_SKIP() << "no device that is full";
    WriteLine(writer, "short");
    EXPECT_EQ(writer.error, system::kErrorNone);
    EXPECT_FALSE(CloseText(writer));
    EXPECT_NE(writer.error, system::kErrorNone);
}

// ---- Copying -----------------------------------------------------------------------------------

struct OneFile {
    TemporaryFolder folder;
    std::wstring path = folder.File(L"text.ve2");
    TextReader reader;

    explicit OneFile(std::string_view bytes) {
        WriteFileBytes(path, bytes);
        EXPECT_TRUE(OpenText(reader, path));
    }
    std::string Next() {
        std::string_view line;
        return ReadLine(reader, line) ? std::string(line) : "<end>";
    }
};

std::string CopyOf(OneFile& file, int64_t from, int64_t to, std::string_view before = "") {
    const std::wstring path = file.folder.File(L"copy.txt");
    TextWriter writer;
    EXPECT_TRUE(CreateText(writer, path));
    WriteText(writer, before);
    SeekLine(file.reader, from);
    CopySpan(file.reader, to, writer);
    EXPECT_TRUE(CloseText(writer));
    return ReadFileBytes(path);
}

TEST(CopySpan, EveryPartOfAFile) {
    const std::string bytes = "one\r\ntwo\n\r\n* three\r\nfour\r\n";
    OneFile file(bytes);
    const int64_t positions[] = {0, 5, 9, 11, 20, 26};  // of the lines, and the end
    for (const int64_t from : positions) {
        for (const int64_t to : positions) {
            const size_t count = to > from ? static_cast<size_t>(to - from) : 0;
            EXPECT_EQ(CopyOf(file, from, to), bytes.substr(static_cast<size_t>(from), count));
            EXPECT_EQ(LinePosition(file.reader), std::max(from, to));
        }
        EXPECT_EQ(CopyOf(file, from, -1), bytes.substr(static_cast<size_t>(from)));
        EXPECT_EQ(file.Next(), "<end>");
    }
}

TEST(CopySpan, LastLineWithoutAnEndGetsOne) {
    OneFile file("one\r\ntwo");
    EXPECT_EQ(CopyOf(file, 0, -1), "one\r\ntwo\r\n");
    EXPECT_EQ(CopyOf(file, 5, -1), "two\r\n");
    EXPECT_EQ(CopyOf(file, 5, 8), "two\r\n");
    EXPECT_EQ(CopyOf(file, 0, 5), "one\r\n");
    EXPECT_EQ(CopyOf(file, 8, -1), "");
}

TEST(CopySpan, LastLineCutInTheMiddleOfItsEndGetsTheOtherHalf) {
    OneFile file("one\r\ntwo\r");
    EXPECT_EQ(CopyOf(file, 0, -1), "one\r\ntwo\r\n");
    EXPECT_EQ(CopyOf(file, 5, -1), "two\r\n");
}

TEST(CopySpan, EmptyFileGivesNothing) {
    OneFile file("");
    EXPECT_EQ(CopyOf(file, 0, -1), "");
}

TEST(CopySpan, LargeFilesAndLongLinesAreCopiedUnchanged) {
    std::string bytes = LinesOfSize(2 * kTextBufferSize + 5);
    const auto middle = static_cast<int64_t>(bytes.size());
    bytes += std::string(3 * kTextBufferSize, 'l') + "\r\n" + std::string("\0\r\n", 3);
    OneFile file(bytes);
    EXPECT_TRUE(CopyOf(file, 0, -1) == bytes);
    EXPECT_TRUE(CopyOf(file, 0, -1, "head\r\n") == "head\r\n" + bytes);
    EXPECT_TRUE(CopyOf(file, 0, middle) == bytes.substr(0, static_cast<size_t>(middle)));
    EXPECT_TRUE(CopyOf(file, middle, -1) == bytes.substr(static_cast<size_t>(middle)));
}

TEST(CopySpan, AfterALineThatWasCut) {
    const std::string bytes = std::string(2 * kTextBufferSize, 'l') + "\r\none\r\ntwo\r\n";
    OneFile file(bytes);
    file.Next();
    const std::wstring path = file.folder.File(L"copy.txt");
    TextWriter writer;
    ASSERT_TRUE(CreateText(writer, path));
    CopySpan(file.reader, -1, writer);
    EXPECT_TRUE(CloseText(writer));
    EXPECT_EQ(ReadFileBytes(path), "one\r\ntwo\r\n");
}

TEST(CopySpan, GoesOnFromALineThatWasFound) {
    const std::string before = LinesOfSize(kTextBufferSize - 7);
    OneFile file(before + "MARK\r\nafter\r\n");
    ASSERT_TRUE(FindLine(file.reader, "MARK"));
    const int64_t position = LinePosition(file.reader);
    EXPECT_TRUE(CopyOf(file, 0, position) == before);
    EXPECT_EQ(file.Next(), "MARK");
}

// What CopyToLine writes before each line "MARK", one after the other; the last piece is what it
// writes up to the end of the file.
std::vector<std::string> PiecesBetweenMarks(OneFile& file) {
    std::vector<std::string> pieces;
    for (bool found = true; found;) {
        const std::wstring path = file.folder.File(L"copy.txt");
        TextWriter writer;
        EXPECT_TRUE(CreateText(writer, path));
        found = CopyToLine(file.reader, "MARK", writer);
        EXPECT_TRUE(CloseText(writer));
        pieces.push_back(ReadFileBytes(path));
        EXPECT_EQ(file.Next(), found ? "MARK" : "<end>");
    }
    return pieces;
}

TEST(CopyToLine, CopiesTheLinesBeforeEachMark) {
    OneFile file("MARK\r\none\n\r\nMARK \r\nMARK\n*\r\nMARK\r\nMARK");
    EXPECT_EQ(PiecesBetweenMarks(file),
              (std::vector<std::string>{"", "one\n\r\nMARK \r\n", "*\r\n", "", ""}));
}

TEST(CopyToLine, WithoutTheLineTheLastOneGetsItsEnd) {
    for (const char* text : {"one\r\ntwo", "one\r\ntwo\r", "one\r\ntwo\r\n"}) {
        OneFile file(text);
        EXPECT_EQ(PiecesBetweenMarks(file), std::vector<std::string>{"one\r\ntwo\r\n"});
    }
    OneFile empty("");
    EXPECT_EQ(PiecesBetweenMarks(empty), std::vector<std::string>{""});
}

TEST(CopyToLine, MarkAtEveryOffsetFromTheBuffersEnd) {
    for (size_t offset = 0; offset < 12; ++offset) {
        const std::string before = LinesOfSize(kTextBufferSize - offset);
        const std::string after = LinesOfSize(kTextBufferSize + offset);
        OneFile file(before + "MARK\r\n" + after + "MARK");
        EXPECT_TRUE(PiecesBetweenMarks(file) == (std::vector<std::string>{before, after, ""}))
            << offset;
    }
}

TEST(CopyToLine, LineLongerThanTheBufferPassesWhole) {
    const std::string text = std::string(3 * kTextBufferSize, 'x') + "\r\n";
    OneFile file(text + "MARK\r\n" + text);
    EXPECT_TRUE(PiecesBetweenMarks(file) == (std::vector<std::string>{text, text}));
}

TEST(CopyToLine, ReadThatFailsEndsTheCopy) {
    OneFile file(LinesOfSize(2 * kTextBufferSize) + "MARK\r\n");
    EXPECT_NE(file.Next(), "<end>");
    system::CloseFile(file.reader.file);
    TextWriter writer;
    ASSERT_TRUE(CreateText(writer, file.folder.File(L"copy.txt")));
    EXPECT_FALSE(CopyToLine(file.reader, "MARK", writer));
    EXPECT_NE(file.reader.error, system::kErrorNone);
    EXPECT_TRUE(CloseText(writer));
}

}  // namespace
}  // namespace corvane
