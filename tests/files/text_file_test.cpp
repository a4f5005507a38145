#include "files/text_file.h"

#include <gtest/gtest.h>

#include <random>

#include "tests/support/support.h"

namespace corvane {
namespace {

using test::ReadFileBytes;
using test::TemporaryFolder;
using test::WriteFileBytes;

// ---- The long way round ------------------------------------------------------------------------

struct NaiveLine {
    int64_t position;
    std::string text;
};

// All lines of a text, as the readers must give them.
std::vector<NaiveLine> NaiveLines(const std::string& bytes) {
    std::vector<NaiveLine> lines;
    size_t at = 0;
    while (at < bytes.size()) {
        size_t feed = bytes.find('\n', at);
        if (feed == std::string::npos) feed = bytes.size();
        std::string text = bytes.substr(at, feed - at);
        if (text.ends_with('\r')) text.pop_back();
        if (text.size() > kLongestLine) text.resize(kLongestLine);
        lines.push_back({static_cast<int64_t>(at), text});
        at = feed + 1;
    }
    return lines;
}

void ExpectLinesOf(const std::wstring& path, const std::string& bytes) {
    TextReader reader;
    ASSERT_TRUE(OpenText(reader, path));
    std::string_view line;
    for (const NaiveLine& expected : NaiveLines(bytes)) {
        ASSERT_EQ(LinePosition(reader), expected.position);
        ASSERT_TRUE(ReadLine(reader, line)) << expected.position;
        ASSERT_TRUE(line == expected.text) << "at " << expected.position << ": " << line.size()
                                           << " bytes for " << expected.text.size();
    }
    EXPECT_FALSE(ReadLine(reader, line));
    EXPECT_EQ(LinePosition(reader), static_cast<int64_t>(bytes.size()));
    EXPECT_EQ(reader.error, system::kErrorNone);
}

// Lines of 60 bytes and CR LF that fill exactly `size` bytes.
std::string Filler(size_t size) {
    std::string text;
    text.reserve(size);
    while (size - text.size() >= 124) text += std::string(60, 'x') + "\r\n";
    const size_t rest = size - text.size();
    if (rest == 1) return text + "\n";
    return rest == 0 ? text : text + std::string(rest - 2, 'y') + "\r\n";
}

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

// ---- Kinds of lines ----------------------------------------------------------------------------

TEST(KindsOfLines, CommentBeginsWithAStar) {
    EXPECT_TRUE(IsCommentLine("* remark"));
    EXPECT_TRUE(IsCommentLine("*"));
    EXPECT_FALSE(IsCommentLine(" * remark"));
    EXPECT_FALSE(IsCommentLine(""));
    EXPECT_FALSE(IsCommentLine("1 * 2"));
}

TEST(KindsOfLines, HeaderBeginsWithSixDashesAfterBlanks) {
    EXPECT_TRUE(IsHeaderLine("------"));
    EXPECT_TRUE(IsHeaderLine("   ------ MODEL"));
    EXPECT_TRUE(IsHeaderLine("-------------"));
    EXPECT_FALSE(IsHeaderLine("-----"));
    EXPECT_FALSE(IsHeaderLine("-----  "));
    EXPECT_FALSE(IsHeaderLine("\t------"));
    EXPECT_FALSE(IsHeaderLine("* ------"));
    EXPECT_FALSE(IsHeaderLine(""));
}

// ---- Lines -------------------------------------------------------------------------------------

TEST(ReadLine, TableOfLineEnds) {
    const TemporaryFolder folder;
    const std::wstring path = folder.File(L"ends.txt");
    const std::string cases[] = {
        "",       "\n",        "\r\n",     "\r",         "a",          "a\n",
        "a\r\n",  "a\nb\r\nc", "\n\n\n",   "\r\n\r\n",   "a\r\n\r\nb", "a\r",
        "a\rb\n", "a\r\r\n",   "\r\r\n\r", "a\n\rb\r\n", " a \r\n\t",  "\x1A\r\n\xFF",
    };
    for (const std::string& bytes : cases) {
        WriteFileBytes(path, bytes);
        ExpectLinesOf(path, bytes);
    }
}

TEST(ReadLine, EmptyFileHasNoLine) {
    OneFile file("");
    EXPECT_EQ(file.Next(), "<end>");
    EXPECT_EQ(file.Next(), "<end>");
    EXPECT_EQ(LinePosition(file.reader), 0);
}

TEST(ReadLine, LastLineWithoutAnEndIsALine) {
    OneFile file("one\r\ntwo");
    EXPECT_EQ(file.Next(), "one");
    EXPECT_EQ(file.Next(), "two");
    EXPECT_EQ(file.Next(), "<end>");
}

TEST(ReadLine, BinaryBytesAndNulsAreKept) {
    std::string bytes;
    for (int i = 0; i < 4096; ++i) bytes += static_cast<char>(i * 7);
    OneFile file(bytes);
    ExpectLinesOf(file.path, bytes);
}

TEST(ReadLine, FileOfNulsIsOneLineCutAtTheLongest) {
    const std::string bytes(3 * kTextBufferSize, '\0');
    OneFile file(bytes);
    ExpectLinesOf(file.path, bytes);
}

TEST(ReadLine, LinesStraddlingTheBufferAtEveryOffset) {
    const TemporaryFolder folder;
    const std::wstring path = folder.File(L"edge.txt");
    for (const char* end : {"\r\n", "\n"}) {
        for (size_t back = 0; back <= 14; ++back) {
            const std::string bytes =
                Filler(kTextBufferSize - back) + "0123456789" + end + "after" + end;
            WriteFileBytes(path, bytes);
            ExpectLinesOf(path, bytes);
        }
    }
}

TEST(ReadLine, FileThatFillsTheBufferExactly) {
    const TemporaryFolder folder;
    const std::wstring path = folder.File(L"full.txt");
    for (const size_t size : {kTextBufferSize - 1, kTextBufferSize, kTextBufferSize + 1,
                              2 * kTextBufferSize, 2 * kTextBufferSize + 1}) {
        std::string bytes = Filler(size);
        WriteFileBytes(path, bytes);
        ExpectLinesOf(path, bytes);
        bytes.back() = 'z';  // a last line without an end
        WriteFileBytes(path, bytes);
        ExpectLinesOf(path, bytes);
    }
}

TEST(ReadLine, LineAroundTheLongestLength) {
    const TemporaryFolder folder;
    const std::wstring path = folder.File(L"long.txt");
    for (const char* end : {"\r\n", "\n", ""}) {
        for (size_t length = kLongestLine - 2; length <= kLongestLine + 2; ++length) {
            const std::string bytes =
                "before\r\n" + std::string(length, 'l') + end + (*end != '\0' ? "after\r\n" : "");
            WriteFileBytes(path, bytes);
            ExpectLinesOf(path, bytes);
        }
    }
}

TEST(ReadLine, LongLinesAreCutAndTheNextLineIsWhole) {
    const TemporaryFolder folder;
    const std::wstring path = folder.File(L"long.txt");
    for (const size_t length : {kLongestLine + 100, kTextBufferSize - 1, kTextBufferSize,
                                kTextBufferSize + 1, 2 * kTextBufferSize + 77}) {
        for (const size_t before :
             {size_t{0}, size_t{1000}, kTextBufferSize - kLongestLine, kTextBufferSize - 5}) {
            std::string bytes = Filler(before);
            for (size_t i = 0; i < length; ++i) bytes += static_cast<char>('a' + i % 26);
            bytes += "\r\nnext\r\n" + std::string(length, 'm');
            WriteFileBytes(path, bytes);
            ExpectLinesOf(path, bytes);
        }
    }
}

// The cut line's end may be exactly where a read of its rest ends.
TEST(ReadLine, EndOfALongLineAtEveryOffsetAroundTheReads) {
    const TemporaryFolder folder;
    const std::wstring path = folder.File(L"long.txt");
    for (const size_t edge : {kTextBufferSize, 2 * kTextBufferSize - kLongestLine}) {
        for (size_t length = edge - 3; length <= edge + 3; ++length) {
            const std::string bytes = std::string(length, 'l') + "\r\nnext\n" + "last";
            WriteFileBytes(path, bytes);
            ExpectLinesOf(path, bytes);
        }
    }
}

TEST(ReadSignificantLine, PassesOverComments) {
    OneFile file("* one\r\n*\r\n\r\n two\r\n* three\r\n* four");
    std::string_view line;
    ASSERT_TRUE(ReadSignificantLine(file.reader, line));
    EXPECT_EQ(line, "");
    ASSERT_TRUE(ReadSignificantLine(file.reader, line));
    EXPECT_EQ(line, " two");
    EXPECT_FALSE(ReadSignificantLine(file.reader, line));
}

TEST(OpenText, MissingFileIsAnError) {
    const TemporaryFolder folder;
    TextReader reader;
    EXPECT_FALSE(OpenText(reader, folder.File(L"none.txt")));
    EXPECT_EQ(reader.error, system::kErrorFileNotFound);
}

TEST(OpenText, FileCanBeRenamedAndDeletedWhileItIsRead) {
    OneFile file("one\r\ntwo\r\n");
    EXPECT_EQ(system::RenameOver(file.path, file.folder.File(L"other.txt")), system::kErrorNone);
    EXPECT_EQ(file.Next(), "one");
    EXPECT_EQ(system::RemoveFile(file.folder.File(L"other.txt")), system::kErrorNone);
    EXPECT_EQ(file.Next(), "two");
}

// The process's memory cannot be read at place 0: a file that opens and whose reads fail.
constexpr wchar_t kUnreadable[] = L"Z:\\proc\\self\\mem";

TEST(ReadLine, FailedReadEndsTheFileAndIsRemembered) {
    TextReader reader;
    if (!OpenText(reader, kUnreadable)) GTEST_SKIP() << "no file whose reads fail";
    std::string_view line;
    EXPECT_FALSE(ReadLine(reader, line));
    EXPECT_NE(reader.error, system::kErrorNone);
    EXPECT_FALSE(FindLine(reader, "text"));
    SeekLine(reader, 100);
    EXPECT_NE(reader.error, system::kErrorNone);
    EXPECT_FALSE(ReadLine(reader, line));
}

// ---- Seeking -----------------------------------------------------------------------------------

TEST(SeekLine, EveryLineIsReadAgainInAnyOrder) {
    const std::string bytes = Filler(3 * kTextBufferSize / 2) + "last";
    OneFile file(bytes);
    const std::vector<NaiveLine> lines = NaiveLines(bytes);
    std::mt19937 random(7);
    for (int i = 0; i < 500; ++i) {
        const NaiveLine& line = lines[random() % lines.size()];
        SeekLine(file.reader, line.position);
        EXPECT_EQ(LinePosition(file.reader), line.position);
        ASSERT_EQ(file.Next(), line.text);
    }
}

TEST(SeekLine, BackFromTheEndOfTheFile) {
    OneFile file("one\r\ntwo\r\n");
    while (file.Next() != "<end>") {
    }
    SeekLine(file.reader, 5);
    EXPECT_EQ(file.Next(), "two");
    EXPECT_EQ(file.Next(), "<end>");
    SeekLine(file.reader, 0);
    EXPECT_EQ(file.Next(), "one");
}

TEST(SeekLine, ToTheEndOfTheFile) {
    const std::string bytes = Filler(2 * kTextBufferSize);
    OneFile file(bytes);
    SeekLine(file.reader, static_cast<int64_t>(bytes.size()));
    EXPECT_EQ(file.Next(), "<end>");
    EXPECT_EQ(LinePosition(file.reader), static_cast<int64_t>(bytes.size()));
}

TEST(SeekLine, BackIntoALineThatWasCut) {
    for (const size_t length : {kLongestLine + 10, 2 * kTextBufferSize}) {
        const std::string bytes = "first\r\n" + std::string(length, 'l') + "\r\nnext\r\n";
        OneFile file(bytes);
        EXPECT_EQ(file.Next(), "first");
        const int64_t position = LinePosition(file.reader);
        for (int round = 0; round < 2; ++round) {
            EXPECT_EQ(file.Next(), std::string(kLongestLine, 'l'));
            EXPECT_EQ(file.Next(), "next");
            SeekLine(file.reader, position);
        }
        SeekLine(file.reader, 0);
        EXPECT_EQ(file.Next(), "first");
    }
}

// ---- Finding -----------------------------------------------------------------------------------

void ExpectFound(std::string_view bytes, std::string_view text, int64_t position) {
    OneFile file(bytes);
    const bool found = FindLine(file.reader, text);
    EXPECT_EQ(found, position >= 0) << bytes;
    if (position >= 0) {
        EXPECT_EQ(LinePosition(file.reader), position) << bytes;
        EXPECT_EQ(file.Next(), text);
    } else {
        EXPECT_EQ(LinePosition(file.reader), static_cast<int64_t>(bytes.size()));
        EXPECT_EQ(file.Next(), "<end>");
    }
}

TEST(FindLine, AtTheFilesStartAndEnd) {
    for (const char* end : {"\r\n", "\n"}) {
        const std::string marker = std::string("MARK") + end;
        const std::string other = std::string("other line") + end;
        ExpectFound(marker + other, "MARK", 0);
        ExpectFound(other + marker, "MARK", static_cast<int64_t>(other.size()));
        ExpectFound(other + "MARK", "MARK", static_cast<int64_t>(other.size()));
    }
    ExpectFound("MARK", "MARK", 0);
    ExpectFound("MARK\r", "MARK", 0);
    ExpectFound("a\nMARK\r", "MARK", 2);
}

TEST(FindLine, WholeLineOnly) {
    ExpectFound("MARK 1\r\nMARKER\r\n MARK\r\nMARK \r\nMAR\r\nmark\r\n", "MARK", -1);
    ExpectFound("MARK\rx\nMARK\r\r\nxMARK\r\n", "MARK", -1);
    ExpectFound(std::string_view("MARK\0\r\n\0MARK\r\n", 14), "MARK", -1);
    ExpectFound("MARKER\r\nMARK\r\n", "MARK", 8);
    ExpectFound("MAR\nMARK\n", "MARK", 4);
}

TEST(FindLine, AfterACommentAndEmptyLines) {
    ExpectFound("* MARK\r\nMARK\r\n", "MARK", 8);
    ExpectFound("*MARK\nMARK\n", "MARK", 6);
    ExpectFound("\n\n\nMARK\n", "MARK", 3);
    ExpectFound("\r\n\r\nMARK", "MARK", 4);
}

TEST(FindLine, NothingToFind) {
    ExpectFound("", "MARK", -1);
    ExpectFound("\n", "MARK", -1);
    ExpectFound("M", "MARK", -1);
    ExpectFound("\nMAR", "MARK", -1);
    ExpectFound("no\r\nmarker\r\nhere", "MARK", -1);
}

TEST(FindLine, TextOfOneByteAndOfTheLongestMarker) {
    ExpectFound("a\r\nM\r\n", "M", 3);
    ExpectFound("a\nM", "M", 2);
    const std::string longest(1000, 'M');
    ExpectFound("a\n" + longest, longest, 2);
    ExpectFound(longest + "M\n" + longest + "\r\n", longest, 1002);
    ExpectFound(Filler(kTextBufferSize - 500) + longest + "\n", longest,
                static_cast<int64_t>(kTextBufferSize) - 500);
}

TEST(FindLine, FindsTheLineItIsAtAgainAndThenTheNext) {
    OneFile file("MARK\r\none\r\nMARK\r\ntwo\r\nMARK");
    for (const int64_t position : {0, 11, 22}) {
        ASSERT_TRUE(FindLine(file.reader, "MARK"));
        EXPECT_EQ(LinePosition(file.reader), position);
        ASSERT_TRUE(FindLine(file.reader, "MARK"));
        EXPECT_EQ(LinePosition(file.reader), position);
        EXPECT_EQ(file.Next(), "MARK");
    }
    EXPECT_FALSE(FindLine(file.reader, "MARK"));
}

TEST(FindLine, MarkerStraddlingTheBufferAtEveryOffset) {
    const std::string marker = "------ MARK ------";
    for (const char* end : {"\r\n", "\n"}) {
        for (size_t back = 0; back <= marker.size() + 6; ++back) {
            const std::string before = Filler(kTextBufferSize + 3 - back);
            ExpectFound(before + marker + end + "after\r\n", marker,
                        static_cast<int64_t>(before.size()));
            ExpectFound(before + marker, marker, static_cast<int64_t>(before.size()));
            ExpectFound(before + marker + "x" + end + marker, marker,
                        static_cast<int64_t>(before.size() + marker.size() + 1 +
                                             std::string_view(end).size()));
            ExpectFound(before + marker + "x" + end, marker, -1);
        }
    }
}

// One line feed and marker at every place of the blocks in which memory is looked through.
TEST(FindLine, MarkerAtEveryOffsetOfAShortFile) {
    for (size_t before = 0; before < 70; ++before) {
        for (size_t after = 0; after < 3; ++after) {
            const std::string text =
                std::string(before, 'M') + "\nMARK\n" + std::string(after, 'M');
            ExpectFound(text, "MARK", static_cast<int64_t>(before) + 1);
        }
        ExpectFound(std::string(before, 'M') + "\nMARK", "MARK", static_cast<int64_t>(before) + 1);
        ExpectFound(std::string(before, 'x') + "\nMARX\nMARK.", "MARK", -1);
    }
}

TEST(FindLine, AfterALineLongerThanTheBuffer) {
    const std::string longLine = std::string(3 * kTextBufferSize, 'M') + "\r\n";
    ExpectFound(longLine + "MARK\r\n", "MARK", static_cast<int64_t>(longLine.size()));
    ExpectFound("MARK" + longLine + "MARK\r\n", "MARK", static_cast<int64_t>(longLine.size()) + 4);
    ExpectFound(longLine, "MARK", -1);
}

// ---- Reading and finding at random -------------------------------------------------------------

const std::string_view kMarkers[] = {"------ SECTION", "------ SECT", "-", "BEGIN", "END 1"};

std::string RandomText(std::mt19937& random) {
    std::string text;
    const size_t size = random() % (3 * kTextBufferSize);
    while (text.size() < size) {
        const auto kind = random() % 1000;
        if (kind < 60) {
            text += kMarkers[random() % 5];
        } else if (kind < 70) {
            text += std::string(kMarkers[random() % 5]) + " ";
        } else if (kind < 71) {
            text += std::string(random() % (2 * kTextBufferSize), 'l');
        } else {
            for (size_t left = random() % 120; left > 0; --left) {
                text += "-BENDSCTIOG 1\r\0*"[random() % 16];
            }
        }
        text += random() % 4 == 0 ? "\n" : "\r\n";
    }
    if (random() % 2 == 0) text.resize(text.size() - std::min<size_t>(text.size(), random() % 4));
    return text;
}

size_t NaiveFind(const std::vector<NaiveLine>& lines, size_t from, std::string_view text) {
    while (from < lines.size() && lines[from].text != text) ++from;
    return from;
}

TEST(TextReader, TenThousandRandomCasesAgreeWithTheLongWayRound) {
    std::mt19937 random(99);
    int cases = 0;
    while (cases < 10000) {
        const std::string bytes = RandomText(random);
        const std::vector<NaiveLine> lines = NaiveLines(bytes);
        OneFile file(bytes);
        for (int i = 0; i < 200; ++i, ++cases) {
            size_t at = lines.empty() ? 0 : random() % lines.size();
            SeekLine(file.reader, lines.empty() ? 0 : lines[at].position);
            if (random() % 2 == 0) {
                const std::string_view marker = kMarkers[random() % 5];
                at = NaiveFind(lines, at, marker);
                ASSERT_EQ(FindLine(file.reader, marker), at < lines.size()) << cases;
            }
            for (auto count = random() % 40; count > 0; --count, ++at) {
                const bool more = at < lines.size();
                ASSERT_EQ(LinePosition(file.reader),
                          more ? lines[at].position : static_cast<int64_t>(bytes.size()))
                    << cases;
                std::string_view line;
                ASSERT_EQ(ReadLine(file.reader, line), more) << cases;
                if (!more) break;
                ASSERT_TRUE(line == lines[at].text) << cases << " at " << lines[at].position;
            }
        }
    }
}

}  // namespace
}  // namespace corvane
