#include "shell/settings_choice.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "files/paths.h"
#include "files/settings_file.h"
#include "platform/system.h"
#include "report/messages.h"
#include "shell/commands/file_commands.h"
#include "shell/edit_history.h"
#include "shell/settings.h"
#include "shell/suite_programs.h"
#include "tests/shell/command_support.h"

namespace corvane {
namespace {

using test::FakeView;
using test::Narrow;
using test::RecordedReports;
using Events = std::vector<std::string>;

struct SettingsChoiceTest : testing::Test {
    FakeView screen;
    test::FreshSettingsFile file;
    test::TemporaryFolder folder;
    test::KeepCurrentDirectory directory;

    SettingsChoiceTest() {
        ShellSettings& settings = shell.settings;
        settings = {folder.path, folder.path, folder.path, L"C:\\ship.ve2", 1.5F, -1, 3.0F, 2.25F};
    }
    std::wstring Folder(const wchar_t* name) const {
        system::MakeDirectory(folder.File(name));
        return folder.File(name);
    }
    // Typed into a field and accepted: what is reported, and whether the right field is wrong.
    static std::string Fault(SettingsField field, const std::wstring& text) {
        SettingsChoice choice = ReadSettingsChoice();
        choice.texts[static_cast<size_t>(field)] = text;
        SettingsField wrong = kSettingsFieldCount;
        RecordedReports::events.clear();
        if (RequireValidSettings(choice, wrong)) return {};
        EXPECT_EQ(wrong, field);
        const Events warnings = RecordedReports::Of("warning");
        return warnings.size() == 1 ? warnings[0] : "no warning, or more than one";
    }
    std::string Written(const char* key, const char* section = "Corvane") const {
        return system::ReadProfileText(section, key, "none", SettingsFile(), kLongestSetting);
    }
};

// ---- What is shown -----------------------------------------------------------------------------

TEST_F(SettingsChoiceTest, ShowsTheSettingsAsTexts) {
    const SettingsChoice choice = ReadSettingsChoice();
    const std::vector<std::wstring> texts(choice.texts.begin(), choice.texts.end());
    EXPECT_EQ(texts, (std::vector<std::wstring>{folder.path, folder.path, folder.path, L"1.5", L"3",
                                                L"2.25", L"-1", L"50", L"1024"}));
    EXPECT_EQ(choice.file, SettingsFilePath());
    EXPECT_FALSE(choice.isProgramsFolderFixed);
}

TEST_F(SettingsChoiceTest, LettersOfTheLabelsDiffer) {
    std::wstring letters;
    for (const std::wstring label : SettingsLabels()) {
        const wchar_t letter = label[label.find(L'&') + 1] | 0x20;
        EXPECT_EQ(letters.find(letter), std::wstring::npos) << Narrow(label);
        letters += letter;
    }
    EXPECT_EQ(letters.find(L'l'), std::wstring::npos) << "the letter of the settings file";
}

TEST_F(SettingsChoiceTest, MissingProgramsAreNamed) {
    const std::vector<std::wstring> programs = SuitePrograms();
    ASSERT_EQ(programs.size(), 7U);
    std::wstring all;
    for (const std::wstring& program : programs) all += (all.empty() ? L"" : L", ") + program;
    EXPECT_EQ(ProgramsText(folder.path), FormatMessage(kMsgProgramsMissing, {all}));
    for (size_t i = 0; i + 1 < programs.size(); ++i) {
        test::WriteFileBytes(folder.File(programs[i]), "");
    }
    EXPECT_EQ(ProgramsText(StripTrailingBackslash(folder.path)),
              FormatMessage(kMsgProgramsMissing, {programs.back()}));
    test::WriteFileBytes(folder.File(programs.back()), "");
    EXPECT_EQ(ProgramsText(folder.path), GetMessage(kMsgAllProgramsThere));
}

// ---- What is refused ---------------------------------------------------------------------------

TEST_F(SettingsChoiceTest, SettingsAsTheyAreAreValid) {
    EXPECT_EQ(Fault(kProgramsFolder, folder.path), "");
    EXPECT_EQ(Fault(kFirstLimit, L" -1.5e3 "), "");
    EXPECT_EQ(Fault(kIntegerSetting, L"-2147483648"), "");
    EXPECT_EQ(Fault(kHistoryVersions, L"1000"), "");
    EXPECT_EQ(Fault(kHistoryMegabytes, L"1"), "");
}

TEST_F(SettingsChoiceTest, FolderThatIsNotOneIsNamedWithItsField) {
    const std::wstring missing = folder.File(L"missing");
    EXPECT_EQ(Fault(kWorkFolder, missing),
              Narrow(BoxText(kMsgSettingsFolderMissing, {L"Working folder", missing})));
    EXPECT_EQ(Fault(kBrowseFolder, L"ships"),
              Narrow(BoxText(kMsgFolderNotFull, {L"Folder of the file dialogs", L"ships"})));
    EXPECT_EQ(Fault(kProgramsFolder, L""),
              Narrow(BoxText(kMsgFolderNotFull, {L"Programs of the suite", L""})));
    test::WriteFileBytes(folder.File(L"file"), "");
    EXPECT_NE(Fault(kWorkFolder, folder.File(L"file")), "");
}

TEST_F(SettingsChoiceTest, FolderThatTheFileCannotHoldIsRefused) {
    const std::wstring name = Folder(L"\u65E5\u672C");
    EXPECT_EQ(Fault(kWorkFolder, name),
              Narrow(BoxText(kMsgFolderNotKept, {L"Working folder", name, kLongestSetting})));
}

TEST_F(SettingsChoiceTest, LimitThatIsNotANumberIsRefused) {
    for (const wchar_t* text : {L"", L"2,5", L"1.5 m", L"nan", L"inf", L"1e39", L"0x10"}) {
        EXPECT_EQ(Fault(kSecondLimit, text),
                  Narrow(BoxText(kMsgNotANumber, {L"Second limit", text})));
    }
}

TEST_F(SettingsChoiceTest, NumberThatIsNotWholeOrOutOfBoundsIsRefused) {
    for (const wchar_t* text : {L"", L"0", L"1001", L"50.5", L"many", L"99999999999"}) {
        EXPECT_EQ(Fault(kHistoryVersions, text),
                  Narrow(BoxText(kMsgNotWholeNumber,
                                 {L"Earlier versions of a database", text, 1, 1000})));
    }
    EXPECT_NE(Fault(kHistoryMegabytes, L"1048577"), "");
    EXPECT_EQ(Fault(kIntegerSetting, L"2147483648"),
              Narrow(BoxText(kMsgNotWholeNumber,
                             {L"Integer setting", L"2147483648", INT32_MIN, INT32_MAX})));
}

// ---- What becomes of it ------------------------------------------------------------------------

TEST_F(SettingsChoiceTest, CancelChangesNothing) {
    const ShellSettings before = shell.settings;
    FakeView::askSettings = [](SettingsChoice& choice) {
        for (std::wstring& text : choice.texts) text = L"7";
        return false;
    };
    ME_FileSettings_Click();
    EXPECT_EQ(shell.settings.WorkDirectory, before.WorkDirectory);
    EXPECT_EQ(shell.settings.FirstLimit, before.FirstLimit);
    EXPECT_EQ(Written("WorkDirectory"), "none");
}

TEST_F(SettingsChoiceTest, AcceptedSettingsAreKeptAtOnce) {
    static std::wstring programs, work, browse;
    programs = Folder(L"programs");
    work = Folder(L"work");
    browse = Folder(L"browse");
    FakeView::askSettings = [](SettingsChoice& choice) {
        choice.texts = {L' ' + programs, work, browse, L"1.75", L"-4", L"5e-1", L"0", L"7", L"64"};
        return true;
    };
    ME_FileSettings_Click();
    const ShellSettings& settings = shell.settings;
    EXPECT_EQ(settings.DataDirectory, programs + L'\\');
    EXPECT_EQ(settings.WorkDirectory, work + L'\\');
    EXPECT_EQ(settings.BrowseDirectory, browse + L'\\');
    EXPECT_EQ(settings.FirstLimit, 1.75F);
    EXPECT_EQ(settings.SecondLimit, -4.0F);
    EXPECT_EQ(settings.ThirdLimit, 0.5F);
    EXPECT_EQ(settings.IntegerSetting, 0);
    EXPECT_EQ(shell.history.limits.versions, 7);
    EXPECT_EQ(shell.history.limits.bytes, int64_t{64} << 20);
    EXPECT_EQ(StripTrailingBackslash(system::CurrentDirectory()), work);

    ShellSettings read;
    ReadSettings(SettingsFile(), read);
    EXPECT_EQ(read.DataDirectory, programs + L'\\');
    EXPECT_EQ(read.WorkDirectory, work + L'\\');
    EXPECT_EQ(read.ThirdLimit, 0.5F);
    EXPECT_EQ(Written("Versions", "Corvane history"), "7");
    EXPECT_EQ(Written("Megabytes", "Corvane history"), "64");
    EXPECT_EQ(RecordedReports::Of("caption").back(),
              Narrow(FormatMessage(kMsgSettingsKept, {SettingsFilePath()})));
}

// Whoever set none of them by hand gets the usual values of a later version.
TEST_F(SettingsChoiceTest, ProgramsFolderAndHistoryAreWrittenOnlyWhenTheyChange) {
    FakeView::askSettings = [](SettingsChoice&) { return true; };
    ME_FileSettings_Click();
    EXPECT_EQ(Written("DataDirectory"), "none");
    EXPECT_EQ(Written("Versions", "Corvane history"), "none");
    EXPECT_NE(Written("WorkDirectory"), "none");
}

}  // namespace
}  // namespace corvane
