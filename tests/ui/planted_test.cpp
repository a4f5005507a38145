// Files that somebody has planted: libraries and programs by every name that Corvane or the command
// line program has, in the current folder, in the database's folder and in a folder of PATH. None
// of them may run. And what a process may do without rights.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "shell/commands/commands.h"
#include "shell/suite_programs.h"
#include "tests/support/support.h"
#include "tests/ui/binary_names.h"
#include "tests/ui/driver.h"
#include "ui/base/control_ids.h"
// windows.h must come first.
#include <psapi.h>
#include <sddl.h>

namespace corvane::ui {
namespace {

namespace fs = std::filesystem;
using test::Narrow;

const std::wstring kCompanions[] = {L"grvelk.dll", L"bsdvelk.dll", L"ztutil32.dll",
                                    L"ztvelk32.dll"};

std::wstring OwnFile(const wchar_t* name) {
    wchar_t path[1024] = L"";
    GetModuleFileNameW(nullptr, path, 1024);
    return (fs::path(path).parent_path() / name).wstring();
}

std::wstring Lower(std::wstring text) {
    CharLowerBuffW(text.data(), static_cast<DWORD>(text.size()));
    return text;
}

bool IsProgram(const std::wstring& name) {
    return name.ends_with(L".exe") || name.ends_with(L".com");
}

// Wine takes its own library wherever a file of its name is found, unless this says otherwise;
// other systems do not know it.
struct FilesBeforeWinesOwn {
    static constexpr const wchar_t* kPrograms[] = {L"Corvane.exe", L"corvane.com"};
    static std::wstring Key(const wchar_t* program) {
        return std::wstring(L"Software\\Wine\\AppDefaults\\") + program;
    }
    explicit FilesBeforeWinesOwn(const std::set<std::wstring>& names) {
        constexpr wchar_t kOrder[] = L"native,builtin";
        for (const wchar_t* program : kPrograms) {
            for (const std::wstring& name : names) {
                const std::wstring stem =
                    name.ends_with(L".dll") ? name.substr(0, name.size() - 4) : name;
                RegSetKeyValueW(HKEY_CURRENT_USER, (Key(program) + L"\\DllOverrides").c_str(),
                                (L"*" + stem).c_str(), REG_SZ, kOrder, sizeof kOrder);
            }
        }
    }
    ~FilesBeforeWinesOwn() {
        for (const wchar_t* program : kPrograms) {
            RegDeleteTreeW(HKEY_CURRENT_USER, Key(program).c_str());
        }
    }
    FilesBeforeWinesOwn(const FilesBeforeWinesOwn&) = delete;
    FilesBeforeWinesOwn& operator=(const FilesBeforeWinesOwn&) = delete;
};

// Full paths of what a process has loaded, in lower case.
std::vector<std::wstring> ModulesOf(const Program& program) {
    std::vector<HMODULE> modules(1024);
    DWORD bytes = 0;
    K32EnumProcessModules(program.process, modules.data(),
                          static_cast<DWORD>(modules.size() * sizeof(HMODULE)), &bytes);
    modules.resize(bytes / sizeof(HMODULE));
    std::vector<std::wstring> paths;
    for (const HMODULE module : modules) {
        wchar_t path[1024] = L"";
        K32GetModuleFileNameExW(program.process, module, path, 1024);
        paths.push_back(Lower(path));
    }
    return paths;
}

struct Planted : testing::Test {
    Settings settings;
    Installation installation;
    test::TemporaryFolder current, databases, searched;
    test::TemporaryFolder notes;
    std::wstring songs = notes.File(L"songs.txt");
    std::wstring ship = databases.File(L"ship.ve2");
    std::wstring searchPath;
    FilesBeforeWinesOwn order{Names()};

    // Every name that the programs have in their texts, and those of the suite's programs.
    static std::set<std::wstring> Names() {
        std::set<std::wstring> names = NamesIn(OwnFile(L"Corvane.exe"));
        names.merge(NamesIn(OwnFile(L"corvane.com")));
        for (const std::wstring& program : SuitePrograms()) names.insert(Lower(program));
        for (const std::wstring& companion : kCompanions) names.insert(companion);
        // What the system starts for a program, by such names.
        for (const wchar_t* name : {L"cmd.exe", L"explorer.exe", L"rundll32.exe"}) {
            names.insert(name);
        }
        return names;
    }

    void SetUp() override {
        for (const test::TemporaryFolder* folder : {&current, &databases, &searched}) {
            for (const std::wstring& name : Names()) {
                fs::copy_file(
                    OwnFile(IsProgram(name) ? L"canary\\canary.exe" : L"canary\\canary.dll"),
                    folder->File(name));
            }
        }
        CopyFileW(test::DataPath("../samples/aurora_bay.ve2").c_str(), ship.c_str(), FALSE);
        searchPath.resize(32767);
        searchPath.resize(GetEnvironmentVariableW(L"PATH", searchPath.data(), 32767));
        SetEnvironmentVariableW(L"PATH", (searched.path + L";" + searchPath).c_str());
        SetEnvironmentVariableW(L"CORVANE_CANARY", songs.c_str());
    }
    void TearDown() override {
        SetEnvironmentVariableW(L"PATH", searchPath.c_str());
        SetEnvironmentVariableW(L"CORVANE_CANARY", nullptr);
    }
    // What has run of what was planted.
    std::string Songs() const {
        const std::string bytes = fs::exists(songs) ? test::ReadFileBytes(songs) : "";
        return Narrow(std::wstring(reinterpret_cast<const wchar_t*>(bytes.data()),
                                   bytes.size() / sizeof(wchar_t)));
    }
    // Closes a box or dialog that a command shows.
    static void Dismiss(const Program& program, const wchar_t* className = L"#32770") {
        const HWND window = program.Window(className);
        ASSERT_NE(window, nullptr) << Narrow(className);
        int button = IDCANCEL;
        for (const int other : {IDNO, IDOK}) {
            if (GetDlgItem(window, button) == nullptr) button = other;
        }
        ASSERT_TRUE(PressButton(window, button));
    }
};

// The planted program loads what it is asked to, by full paths.
TEST_F(Planted, CanariesSing) {
    const std::wstring program = notes.File(L"Corvane.exe");
    fs::copy_file(OwnFile(L"canary\\canary.exe"), program);
    std::wstring line = L"\"" + program + L"\"";
    std::vector<std::wstring> singers{program};
    for (const std::wstring& name : Names()) {
        if (IsProgram(name)) continue;
        line += L" \"" + current.File(name) + L"\"";
        singers.push_back(current.File(name));
    }
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION information{};
    ASSERT_TRUE(CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, FALSE, 0, nullptr,
                               nullptr, &startup, &information));
    const Program canary(information);
    ASSERT_TRUE(canary.HasEnded());
    for (const std::wstring& singer : singers) {
        // Every process has these before it could load others by their names.
        const std::wstring name = fs::path(singer).filename().wstring();
        if (name == L"kernel32.dll" || name == L"ntdll.dll" || name == L"msvcrt.dll") continue;
        EXPECT_NE(Songs().find(Narrow(singer) + "\n"), std::string::npos) << Narrow(name);
    }
}

// So that no name can be forgotten, they are those of the programs' files.
TEST_F(Planted, NamesHaveTheImportsAndTheLibrariesOfTheContracts) {
    const std::set<std::wstring> names = Names();
    for (const wchar_t* program : {L"Corvane.exe", L"corvane.com"}) {
        const std::set<std::wstring> imports = ImportsOf(OwnFile(program));
        EXPECT_TRUE(imports.contains(L"kernel32.dll"));
        EXPECT_TRUE(std::ranges::includes(names, imports));
    }
    for (const wchar_t* late : {L"dbghelp.dll", L"rstrtmgr.dll", L"comdlg32.dll", L"winspool.drv",
                                L"grvelk.dll", L"sectinput.exe"}) {
        EXPECT_TRUE(names.contains(late)) << Narrow(late);
    }
}

TEST_F(Planted, NoneRunsInTheProgram) {
    const Program program(installation, L"\"" + ship + L"\"", L"Corvane.exe", current.path);
    const HWND main = program.Main();
    ASSERT_NE(main, nullptr);
    ASSERT_TRUE(RowCountBecomes(GetDlgItem(main, LI_Sections), 14));
    // The suite's programs are not in the program's folder, but they are planted.
    for (const int command : {int{ME_SectionInput}, int{ME_SectionVelkRule}, int{ME_FileBSD},
                              int{ME_NewTorsion}, int{ME_HelpContents}}) {
        Choose(main, command);
        Dismiss(program);
        ASSERT_TRUE(WaitUntil([&] { return IsWindowEnabled(main) != FALSE; }));
    }
    // Files, printers, and who holds a file: what is looked for late.
    Choose(main, ME_FileOpen);
    Dismiss(program);
    Choose(main, ME_FilePrint);
    const HWND pages = program.Window(kPagePreviewClass);
    ASSERT_NE(pages, nullptr);
    PostMessageW(GetDlgItem(pages, IDOK), BM_CLICK, 0, 0);
    Dismiss(program);
    Dismiss(program, kPagePreviewClass);
    const HANDLE held =
        CreateFileW(ship.c_str(), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                    nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(held, INVALID_HANDLE_VALUE);
    Choose(main, ME_SectionRemove);
    ASSERT_TRUE(Press(WaitForBox(program), IDYES));
    Dismiss(program);
    CloseHandle(held);
    EXPECT_EQ(Songs(), "");
    EXPECT_FALSE(program.HasEnded(0));
}

TEST_F(Planted, CompanionLibraryThatIsMissingIsNotReplaced) {
    ASSERT_TRUE(DeleteFileW(installation.File(L"ZTVelk32.dll").c_str()));
    const Program program(installation, L"\"" + ship + L"\"", L"Corvane.exe", current.path);
    const Box box = WaitForBox(program);
    EXPECT_NE(Narrow(box.text).find("ZTVelk32"), std::string::npos) << Narrow(box.text);
    ASSERT_TRUE(Press(box, IDOK));
    EXPECT_TRUE(program.HasEnded());
    EXPECT_EQ(Songs(), "");
}

TEST_F(Planted, AllThatIsLoadedIsTheSystemsOrACompanionLibrary) {
    const Program program(installation, L"\"" + ship + L"\"", L"Corvane.exe", current.path);
    const HWND main = program.Main();
    ASSERT_NE(main, nullptr);
    wchar_t windows[MAX_PATH] = L"";
    GetWindowsDirectoryW(windows, MAX_PATH);
    size_t own = 0;
    const std::wstring folder = Lower(installation.folder);
    for (const std::wstring& module : ModulesOf(program)) {
        if (module.starts_with(Lower(windows))) continue;
        ++own;
        EXPECT_TRUE(module.starts_with(folder)) << Narrow(module);
        const std::wstring name = module.substr(folder.size());
        EXPECT_TRUE(name == L"corvane.exe" ||
                    std::ranges::find(kCompanions, name) != std::end(kCompanions))
            << Narrow(module);
    }
    EXPECT_EQ(own, 1U + std::size(kCompanions));
}

TEST_F(Planted, NoneRunsInTheCommandLineProgram) {
    installation.Add(L"corvane.com");
    for (const std::wstring& arguments :
         {L"list \"" + ship + L"\"", L"check \"" + ship + L"\"",
          L"draw \"" + ship + L"\" 1 \"" + notes.File(L"picture.png") + L"\""}) {
        const Program program(installation, arguments, L"corvane.com", current.path);
        ASSERT_TRUE(program.HasEnded());
        EXPECT_LT(program.ExitCode(), 2U) << Narrow(arguments);
    }
    EXPECT_EQ(Songs(), "");
}

// ---- Without rights ----------------------------------------------------------------------------

// The rights of this process without privileges, at low integrity. Null, and why, where the system
// cannot.
HANDLE LowToken(std::string& why) {
    HANDLE own = nullptr;
    HANDLE low = nullptr;
    PSID level = nullptr;
    OpenProcessToken(GetCurrentProcess(), TOKEN_ALL_ACCESS, &own);
    if (CreateRestrictedToken(own, DISABLE_MAX_PRIVILEGE, 0, nullptr, 0, nullptr, 0, nullptr,
                              &low) == 0) {
        why = "CreateRestrictedToken: error " + std::to_string(GetLastError());
    } else if (ConvertStringSidToSidW(L"S-1-16-4096", &level) == 0) {
        why = "ConvertStringSidToSid: error " + std::to_string(GetLastError());
    } else {
        TOKEN_MANDATORY_LABEL label{{level, SE_GROUP_INTEGRITY}};
        if (SetTokenInformation(low, TokenIntegrityLevel, &label,
                                sizeof label + GetLengthSid(level)) == 0) {
            why = "SetTokenInformation: error " + std::to_string(GetLastError());
        }
    }
    CloseHandle(own);
    LocalFree(level);
    return why.empty() ? low : nullptr;
}

struct WithoutRights : testing::Test {
    Settings settings;
    Installation installation;
    std::wstring ship = installation.File(L"ship.ve2");

    void SetUp() override {
        CopyFileW(test::DataPath("../samples/aurora_bay.ve2").c_str(), ship.c_str(), FALSE);
    }
    // The list, and the position that goes with the picture of the first model.
    static void ExpectShown(const Program& program) {
        const HWND main = program.Main();
        ASSERT_NE(main, nullptr);
        EXPECT_TRUE(RowCountBecomes(GetDlgItem(main, LI_Sections), 14));
        EXPECT_NE(TextOf(GetDlgItem(main, LB_X)), L"");
        EXPECT_EQ(program.FindNow(L"#32770"), nullptr);
    }
};

TEST_F(WithoutRights, LowIntegrityOpensAndShows) {
    std::string why;
    const HANDLE token = LowToken(why);
    if (token == nullptr) GTEST_SKIP() << why;
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION information{};
    const std::wstring file = installation.File(L"Corvane.exe");
    std::wstring line = L"\"" + file + L"\" \"" + ship + L"\"";
    const BOOL isStarted =
        CreateProcessAsUserW(token, file.c_str(), line.data(), nullptr, nullptr, FALSE, 0, nullptr,
                             installation.folder.c_str(), &startup, &information);
    const DWORD error = GetLastError();
    CloseHandle(token);
    if (isStarted == 0) GTEST_SKIP() << "CreateProcessAsUser: error " << error;
    const Program program(information);
    ExpectShown(program);
}

TEST_F(WithoutRights, NothingThatCanBeWrittenIsNeededToOpenAndShow) {
    // The database and the settings are read-only, and there is no room for log and history.
    test::WriteFileBytes(installation.File(L"Corvane"), "a file in the way");
    test::WriteFileBytes(Settings::Path(), "");
    for (const std::wstring& path : {ship, installation.File(L"Corvane"), Settings::Path()}) {
        SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_READONLY);
    }
    const Program program(installation, L"\"" + ship + L"\"");
    ExpectShown(program);
}

}  // namespace
}  // namespace corvane::ui
