// What a message of another process may hand over: the path of a file, and nothing else.
#include "ui/main_window/running_instance.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/support.h"

namespace corvane {
namespace {

constexpr ULONG_PTR kOpenFile = 0x436F7276;
constexpr ULONG_PTR kCheckFile = 0x436F7277;
constexpr size_t kLongest = 32767;

std::wstring Handed(std::wstring text, ULONG_PTR mark = kOpenFile, size_t spare = 0) {
    const COPYDATASTRUCT data{mark, static_cast<DWORD>(text.size() * sizeof(wchar_t) + spare),
                              text.data()};
    return ReadHandedOver(data).file;
}

TEST(HandedOver, IsAFileOnADriveOrAShare) {
    for (const std::wstring path : {L"C:\\ship.ve2", L"z:\\a b\\\u0141\u00F3d\u017A \u4E2D.vew",
                                    L"\\\\machine\\share\\ship.ve2", L"C:\\a"}) {
        EXPECT_EQ(Handed(path), path);
    }
    const std::wstring longest = L"C:\\" + std::wstring(kLongest - 3, L'a');
    EXPECT_EQ(Handed(longest), longest);
}

TEST(HandedOver, RelativePathIsRefused) {
    for (const wchar_t* path :
         {L"ship.ve2", L"\\ship.ve2", L"C:ship.ve2", L"..\\ship.ve2", L"C:", L"C:\\",
          L"C:/ship.ve2", L"1:\\ship.ve2", L":\\ship.ve2", L"http://ship.ve2", L" C:\\ship.ve2"}) {
        EXPECT_EQ(Handed(path), L"") << test::Narrow(path);
    }
}

TEST(HandedOver, DevicesAndWhatLeadsToThemAreRefused) {
    for (const wchar_t* path : {L"\\\\.\\PhysicalDrive0", L"\\\\.\\pipe\\name",
                                L"\\\\?\\C:\\ship.ve2", L"\\\\?\\UNC\\machine\\share\\ship.ve2",
                                L"\\\\?\\GLOBALROOT\\Device\\Null", L"\\??\\C:\\ship.ve2"}) {
        EXPECT_EQ(Handed(path), L"") << test::Narrow(path);
    }
}

TEST(HandedOver, ShareNeedsMachineShareAndFile) {
    for (const wchar_t* path :
         {L"\\\\", L"\\\\machine", L"\\\\machine\\", L"\\\\machine\\share", L"\\\\machine\\share\\",
          L"\\\\\\share\\ship.ve2", L"\\\\machine\\\\ship.ve2", L"//machine/share/ship.ve2"}) {
        EXPECT_EQ(Handed(path), L"") << test::Narrow(path);
    }
}

TEST(HandedOver, TextThatIsNoWholePathIsRefused) {
    EXPECT_EQ(Handed(L""), L"");
    EXPECT_EQ(Handed(std::wstring(L"C:\\a\0.ve2", 10)), L"");
    EXPECT_EQ(Handed(std::wstring(L"C:\\a.ve2\0", 9)), L"") << "a NUL at the end";
    EXPECT_EQ(Handed(L"C:\\" + std::wstring(kLongest - 2, L'a')), L"") << "too long";
    EXPECT_EQ(Handed(L"C:\\a.ve2x", kOpenFile, DWORD(-1)), L"") << "half a character";
    std::wstring garbage;
    for (wchar_t letter = 1; letter < 300; ++letter) garbage += letter;
    EXPECT_EQ(Handed(garbage), L"");
}

TEST(HandedOver, MarkSaysWhetherTheFileIsToBeChecked) {
    std::wstring path = L"C:\\ship.ve2";
    for (const ULONG_PTR mark : {kOpenFile, kCheckFile}) {
        EXPECT_EQ(Handed(path, mark), path);
        EXPECT_EQ(ReadHandedOver({mark, 22, path.data()}).check, mark == kCheckFile);
    }
}

TEST(HandedOver, OtherMarksAreRefused) {
    for (const ULONG_PTR mark : {ULONG_PTR{0}, ULONG_PTR{1}, kOpenFile + 2, ~kOpenFile}) {
        EXPECT_EQ(Handed(L"C:\\ship.ve2", mark), L"");
    }
}

// The system itself refuses data that have a size and no address; a debugger's message may not.
TEST(HandedOver, DataWithoutAnAddressAreRefused) {
    EXPECT_EQ(ReadHandedOver({kOpenFile, 22, nullptr}).file, L"");
}

}  // namespace
}  // namespace corvane
