// The rest of ztutil32: identifiers, names, command lines, file types, regional settings.
#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <set>
#include <string>

#include "companions/ztutil32/file_types.h"
#include "companions/ztutil32/program_name.h"
#include "platform/ztutil32.h"

namespace corvane {
namespace {

using namespace std::string_literals;

std::string NewIdentifier() {
    std::array<char, 100> buffer;
    buffer.fill('#');
    GenerateID(buffer.data(), 100);
    return buffer.data();
}

TEST(IdentifierTest, HasTheUsualForm) {
    const std::string id = NewIdentifier();
    ASSERT_EQ(id.size(), 36U);
    for (size_t i = 0; i < id.size(); ++i) {
        const bool isDash = i == 8 || i == 13 || i == 18 || i == 23;
        EXPECT_NE(std::strchr(isDash ? "-" : "0123456789ABCDEF", id[i]), nullptr) << id;
    }
}

TEST(IdentifierTest, IsAnotherOneAtEachCall) {
    std::set<std::string> ids;
    for (int i = 0; i < 10000; ++i) ids.insert(NewIdentifier());
    EXPECT_EQ(ids.size(), 10000U);
}

TEST(IdentifierTest, IsCutToTheBuffer) {
    std::array<char, 12> buffer;
    buffer.fill('#');
    GenerateID(buffer.data(), 9);
    EXPECT_EQ(std::strlen(buffer.data()), 8U);
    EXPECT_EQ(buffer[9], '#');
    GenerateID(buffer.data(), 0);
    GenerateID(nullptr, 10);
    EXPECT_EQ(std::strlen(buffer.data()), 8U);
}

TEST(LoginNameTest, IsClosedAndCutToTheBuffer) {
    std::array<char, 400> name;
    name.fill('#');
    LoginName(name.data(), 400);
    ASSERT_NE(std::memchr(name.data(), '\0', name.size()), nullptr);
    const std::string whole = name.data();
    EXPECT_NE(whole, "");

    std::array<char, 4> start;
    start.fill('#');
    LoginName(start.data(), 3);
    EXPECT_EQ(std::string(start.data()), whole.substr(0, 2));
    EXPECT_EQ(start[3], '#');
    LoginName(nullptr, 10);
}

// Where `file` is the one file that there is; without it, any name is a file's.
std::string Program(std::string_view commandLine, std::string_view file = {}) {
    return ztutil::ProgramName(
        commandLine, [file](std::string_view name) { return file.empty() || name == file; });
}

TEST(ProgramNameTest, EndsWithTheExtension) {
    EXPECT_EQ(Program(R"(C:\Velk\SectInput.exe /d "C:\ship.ve2" 3)"), R"(C:\Velk\SectInput.exe)");
    EXPECT_EQ(Program(R"(C:\Velk\SectInput.exe)"), R"(C:\Velk\SectInput.exe)");
    EXPECT_EQ(Program(R"(C:\Velk\BHDINPUT.EXE 1)"), R"(C:\Velk\BHDINPUT.EXE)");
    EXPECT_EQ(Program(R"(C:\Velk\BhdInput.Exe )"), R"(C:\Velk\BhdInput.Exe)");
}

TEST(ProgramNameTest, MayHoldBlanks) {
    EXPECT_EQ(Program(R"(C:\Program Files\Velk\SectInput.exe "C:\My ship.ve2" 3)"),
              R"(C:\Program Files\Velk\SectInput.exe)");
}

TEST(ProgramNameTest, ExtensionInsideAWordDoesNotEndIt) {
    EXPECT_EQ(Program(R"(C:\a.exe.d\b.exe x)"), R"(C:\a.exe.d\b.exe)");
    EXPECT_EQ(Program(R"(C:\a.exercise\b.exe)"), R"(C:\a.exercise\b.exe)");
}

TEST(ProgramNameTest, IsTheLongestBeginningThatIsAFile) {
    const std::string_view line = R"(C:\v1.exe files\b.exe "C:\c.exe d.ve2" 3)";
    EXPECT_EQ(Program(line, R"(C:\v1.exe files\b.exe)"), R"(C:\v1.exe files\b.exe)");
    EXPECT_EQ(Program(line, R"(C:\v1.exe)"), R"(C:\v1.exe)");
    EXPECT_EQ(Program(line, "none"), R"(C:\v1.exe)") << "for the error that the start gives";
    EXPECT_EQ(Program(R"(C:\v1.exe files\b.exe 3)"), R"(C:\v1.exe files\b.exe)");
}

TEST(ProgramNameTest, QuotesAroundItAreStripped) {
    EXPECT_EQ(Program(R"("C:\Program Files\a.exe" "b.exe")"), R"(C:\Program Files\a.exe)");
    EXPECT_EQ(Program(R"("C:\a.exe")"), R"(C:\a.exe)");
}

TEST(ProgramNameTest, IsEmptyWhereNoProgramIsNamed) {
    for (const char* line :
         {"", " ", "C:\\Program", "exe", ".ex", "\"C:\\a.exe", "\"\"", "\"", "dir C:\\"}) {
        EXPECT_EQ(Program(line), "") << line;
    }
}

TEST(ProgramNameTest, IsTheSameInWideText) {
    EXPECT_EQ(ztutil::ProgramName(std::wstring_view(L"C:\\\u00C9 x\\a.EXE /d"),
                                  [](std::wstring_view) { return true; }),
              L"C:\\\u00C9 x\\a.EXE");
}

TEST(ChildProgramTest, MissingProgramIsNotStarted) {
    EXPECT_EQ(ShellAndWait("C:\\no such folder\\nothing.exe 1", 0), 0);
    EXPECT_EQ(ShellAndWait("", 0), 0);
    EXPECT_EQ(ShellAndWait("no program here", 0), 0);
    EXPECT_EQ(ShellAndWait(nullptr, 0), 0);
}

std::wstring Filter(std::wstring_view list, const std::wstring& extension) {
    return ztutil::FilterOf(ztutil::FileTypesOf(list, extension));
}

TEST(FileTypesTest, PairsBecomeTheFilter) {
    EXPECT_EQ(Filter(L"Databases|*.ve2;*.vew|All files|*.*", L"ve2"),
              L"Databases\0*.ve2;*.vew\0All files\0*.*\0\0"s);
}

TEST(FileTypesTest, BarAtTheEndAddsNothing) {
    EXPECT_EQ(Filter(L"Databases|*.ve2|", L"ve2"), L"Databases\0*.ve2\0\0"s);
}

TEST(FileTypesTest, DescriptionAloneGetsTheExtensionsPattern) {
    EXPECT_EQ(Filter(L"Databases", L"ve2"), L"Databases\0*.ve2\0\0"s);
    EXPECT_EQ(Filter(L"A|*.a|Databases", L"ve2"), L"A\0*.a\0Databases\0*.ve2\0\0"s);
    EXPECT_EQ(Filter(L"All", L""), L"All\0*.*\0\0"s);
}

TEST(FileTypesTest, PatternAloneDescribesItself) {
    EXPECT_EQ(Filter(L"|*.ve2", L""), L"*.ve2\0*.ve2\0\0"s);
}

TEST(FileTypesTest, EmptyListGivesOneType) {
    EXPECT_EQ(Filter(L"", L"ve2"), L"*.ve2\0*.ve2\0\0"s);
}

}  // namespace
}  // namespace corvane
