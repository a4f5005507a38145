#include "tests/support/support.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "files/paths.h"
#include "platform/grvelk.h"
#include "platform/system.h"
#include "report/reporters.h"
#include "tests/support/damage.h"
#include "text/utf8.h"

namespace corvane::test {
namespace {

namespace fs = std::filesystem;

#if !defined(_WIN32)
// Names the folder of settings files on the host.
constexpr char kFolderVariable[] = "CORVANE_WINDOWS_DIRECTORY";
// Names the folder of temporary files there.
constexpr char kTemporaryVariable[] = "TMPDIR";
#endif

}  // namespace

fs::path NativePath(const std::wstring& path) {
#if defined(_WIN32)
    return fs::path(path);
#else
    std::wstring native = path;
    std::replace(native.begin(), native.end(), L'\\', L'/');
    if (native.size() > 1 && native[1] == L':') native.erase(0, 2);
    return fs::path(Narrow(native));
#endif
}

TemporaryFolder::TemporaryFolder() {
    static int counter = 0;
    const auto* info = testing::UnitTest::GetInstance()->current_test_info();
    std::string name = std::string("corvane_") + (info ? info->name() : "test") + "_" +
                       std::to_string(system::Milliseconds()) + "_" + std::to_string(++counter);
    // A test with parameters has a slash in its name.
    std::replace(name.begin(), name.end(), '/', '_');
    path = system::TemporaryDirectory() + std::wstring(name.begin(), name.end()) + L"\\";
    fs::create_directories(NativePath(path));
}

TemporaryFolder::~TemporaryFolder() {
    std::error_code ignored;
    for (const auto& entry : fs::recursive_directory_iterator(NativePath(path), ignored)) {
        fs::permissions(entry.path(), fs::perms::owner_write, fs::perm_options::add, ignored);
    }
    fs::remove_all(NativePath(path), ignored);
}

void WriteFileBytes(const std::wstring& path, std::string_view bytes) {
    std::ofstream file(NativePath(path), std::ios::binary | std::ios::trunc);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    ASSERT_TRUE(file.good()) << Narrow(path);
}

std::string ReadFileBytes(const std::wstring& path) {
    std::ifstream file(NativePath(path), std::ios::binary);
    EXPECT_TRUE(file.good()) << Narrow(path);
    std::ostringstream bytes;
    bytes << file.rdbuf();
    return bytes.str();
}

std::vector<std::wstring> FilesIn(const std::wstring& folder) {
    std::vector<std::wstring> names;
    for (const auto& entry : fs::directory_iterator(NativePath(folder))) {
        // wstring() would ask the C locale, which may know no letter but English ones.
        const std::u32string name = entry.path().filename().u32string();
        names.emplace_back(name.begin(), name.end());
    }
    std::sort(names.begin(), names.end());
    return names;
}

std::wstring DataPath(std::string_view name) {
    const char* folder = std::getenv("CORVANE_TEST_DATA");
    std::string path =
        std::string(folder != nullptr ? folder : CORVANE_TESTS_FOLDER) + "/" + std::string(name);
    std::replace(path.begin(), path.end(), '/', '\\');
    if (path.size() > 1 && path[1] != ':') path.insert(0, "Z:");
    return std::wstring(path.begin(), path.end());
}

bool ReadOnlyHasEffect() {
    const TemporaryFolder folder;
    const std::wstring path = folder.File(L"read_only");
    WriteFileBytes(path, "");
    EXPECT_EQ(system::SetReadOnly(path, true), system::kErrorNone);
    return !std::ofstream(NativePath(path), std::ios::binary | std::ios::app).is_open();
}

namespace {

void SetTemporaryDirectory(const std::wstring& folder) {
#if defined(_WIN32)
    _wputenv_s(L"TMP", folder.c_str());
#else
    setenv(kTemporaryVariable, NativePath(folder).c_str(), 1);
#endif
}

}  // namespace

void SetLocalDataDirectory(const std::wstring& folder) {
#if defined(_WIN32)
    _wputenv_s(L"LOCALAPPDATA", folder.c_str());
#else
    setenv("LOCALAPPDATA", NativePath(folder).c_str(), 1);
#endif
}

KeepCurrentDirectory::KeepCurrentDirectory() : path(system::CurrentDirectory()) {}

KeepCurrentDirectory::~KeepCurrentDirectory() {
    EXPECT_EQ(system::SetCurrentTo(path), system::kErrorNone);
}

NoTemporaryFolder::NoTemporaryFolder() : usual(system::TemporaryDirectory()) {
    SetTemporaryDirectory(usual + L"missing\\");
}

NoTemporaryFolder::~NoTemporaryFolder() {
    SetTemporaryDirectory(usual);
}

OwnHistory::OwnHistory() : usual(system::LocalDataDirectory()) {
    SetLocalDataDirectory(folder.path);
}

OwnHistory::~OwnHistory() {
    SetLocalDataDirectory(usual);
}

TemporaryFilesInMemory::TemporaryFilesInMemory() : usual(system::TemporaryDirectory()) {
    const std::wstring memory = L"Z:\\dev\\shm\\";
    if (fs::is_directory(NativePath(memory))) SetTemporaryDirectory(memory);
}

TemporaryFilesInMemory::~TemporaryFilesInMemory() {
    SetTemporaryDirectory(usual);
}

#if defined(_WIN32)

// The file in the Windows folder makes room, and the user has no folder for a file of his own.
FreshSettingsFile::FreshSettingsFile() : userFolder(_wgetenv(L"APPDATA")) {
    _wputenv_s(L"APPDATA", L"");
    path = fs::path(std::getenv("SystemRoot")).wstring() + L"\\" + kSettingsFile;
    wasThere = fs::exists(path);
    if (wasThere) before = ReadFileBytes(path);
    fs::remove(path);
}

FreshSettingsFile::~FreshSettingsFile() {
    if (wasThere) {
        WriteFileBytes(path, before);
    } else {
        fs::remove(path);
    }
    _wputenv_s(L"APPDATA", userFolder.c_str());
}

#else

FreshSettingsFile::FreshSettingsFile() : path(folder.File(kSettingsFile)) {
    const char* old = std::getenv(kFolderVariable);
    wasThere = old != nullptr;
    if (wasThere) before = old;
    setenv(kFolderVariable, NativePath(folder.path).c_str(), 1);
}

FreshSettingsFile::~FreshSettingsFile() {
    if (wasThere) {
        setenv(kFolderVariable, before.c_str(), 1);
    } else {
        unsetenv(kFolderVariable);
    }
}

#endif

std::map<int32_t, std::string> FakeCatalogue::texts;
std::vector<int32_t> FakeCatalogue::asked;

namespace {

int32_t CORVANE_STDCALL LoadFakeString(int32_t number, char* buffer, int32_t size) {
    FakeCatalogue::asked.push_back(number);
    const auto found = FakeCatalogue::texts.find(number);
    if (found == FakeCatalogue::texts.end()) return 0;
    return static_cast<int32_t>(found->second.copy(buffer, static_cast<size_t>(size)));
}

}  // namespace

FakeCatalogue::FakeCatalogue(std::map<int32_t, std::string> newTexts) {
    texts = std::move(newTexts);
    asked.clear();
    ZTGrVel32_LoadVelkinString.pointer = LoadFakeString;
}

FakeCatalogue::~FakeCatalogue() {
    // The next call finds the library's own function.
    ZTGrVel32_LoadVelkinString.pointer = nullptr;
}

std::map<int32_t, std::string> CatalogueTexts() {
    constexpr int32_t kLastNumber = 3999;
    std::map<int32_t, std::string> texts;
    std::array<char, 3000> buffer;
    for (int32_t number = 1; number <= kLastNumber; ++number) {
        const int32_t length = ZTGrVel32_LoadVelkinString(number, buffer.data(), 3000);
        if (length > 0) texts[number].assign(buffer.data(), static_cast<size_t>(length));
    }
    return texts;
}

std::string WithLineFeeds(std::string_view text) {
    std::string result(text);
    std::erase(result, '\r');
    return result;
}

std::string Narrow(std::wstring_view text) {
    return Utf8Text(text);
}

}  // namespace corvane::test
