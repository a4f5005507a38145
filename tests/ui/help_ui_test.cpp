// The user guide and Copy details in the real program. What the system has for pages is a program
// of the test, so that no browser starts.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <utility>

#include "stand_ins/win32/form_control_ids.h"
#include "tests/ui/main_window_fixture.h"

namespace corvane::ui {
namespace {

using test::Narrow;

// A default value of the registry, set to another text while it lives.
class DefaultValue {
public:
    DefaultValue(HKEY root, std::wstring key, const std::wstring& value)
        : root_(root), key_(std::move(key)) {
        wchar_t old[MAX_PATH] = L"";
        DWORD size = sizeof old;
        wasThere_ = RegGetValueW(root, key_.c_str(), nullptr, RRF_RT_REG_SZ, nullptr, old, &size) ==
                    ERROR_SUCCESS;
        before_ = old;
        Set(value);
    }
    ~DefaultValue() {
        if (wasThere_) {
            Set(before_);
        } else {
            RegDeleteKeyValueW(root_, key_.c_str(), nullptr);
        }
    }
    DefaultValue(const DefaultValue&) = delete;
    DefaultValue& operator=(const DefaultValue&) = delete;

private:
    void Set(const std::wstring& value) const {
        const auto size = static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t));
        RegSetKeyValueW(root_, key_.c_str(), nullptr, REG_SZ, value.c_str(), size);
    }

    HKEY root_;
    std::wstring key_;
    std::wstring before_;
    bool wasThere_ = false;
};

// What the system has for pages of HTML in one of the registry's parts: a command.
class Opener {
public:
    Opener(HKEY root, const std::wstring& line)
        : root_(root),
          kind_(root, L"Software\\Classes\\.html", L"CorvaneTestPage"),
          command_(root, L"Software\\Classes\\CorvaneTestPage\\shell\\open\\command", line) {}
    ~Opener() { RegDeleteTreeW(root_, L"Software\\Classes\\CorvaneTestPage"); }
    Opener(const Opener&) = delete;
    Opener& operator=(const Opener&) = delete;

private:
    HKEY root_;
    DefaultValue kind_;
    DefaultValue command_;
};

// While it lives pages are opened by a program of the installation that writes its command line.
// The user's part of the registry decides, but not in each version of Wine.
class Browser {
public:
    explicit Browser(const Installation& installation)
        : program_(installation.File(L"page_program.exe")),
          ofUser_(HKEY_CURRENT_USER, L"\"" + program_ + L"\" \"%1\""),
          ofMachine_(HKEY_LOCAL_MACHINE, L"\"" + program_ + L"\" \"%1\"") {
        installation.Add(L"page_program.exe");
    }

    // The page that was opened since the last call, by its path below the folder of the guide.
    // Leaves `page` unchanged if no page was opened.
    void TakePage(const std::wstring& guide, std::string& page) const {
        const std::wstring ended = program_ + L".times";
        if (!std::filesystem::exists(ended)) return;
        page = test::ReadFileBytes(program_ + L".ran");
        // The program still has it open for a moment.
        std::error_code error;
        WaitUntil([&] { return std::filesystem::remove(ended, error) && !error; });
        page.erase(0, page.find('\n') + 1);
        const std::string begin = "\"" + Narrow(program_) + "\" \"" + Narrow(guide);
        if (page.rfind(begin, 0) != 0 || page.back() != '"') return;
        page = page.substr(begin.size(), page.size() - begin.size() - 1);
    }

    size_t TimesStarted() const { return test::ReadFileBytes(program_ + L".starts").size(); }

private:
    std::wstring program_;
    Opener ofUser_;
    Opener ofMachine_;
};

struct HelpUi : MainWindowFixture {
    Browser browser{installation};

    void SetUp() override {
        MainWindowFixture::SetUp();
        installation.AddGuide();
    }
    // What F1 opens in the window that gets the keys; a page that an earlier key opened late does
    // not count.
    std::string PageOfF1(const std::string& expected) const {
        std::string page = "no page";
        PressUntil(VK_F1, [&] { return TakesPage(expected, page); });
        return page;
    }
    bool TakesPage(const std::string& expected, std::string& page) const {
        browser.TakePage(installation.File(L"help\\"), page);
        return page == expected;
    }
};

TEST_F(HelpUi, F1OpensThePageAboutThePartThatHasTheFocus) {
    EXPECT_EQ(PageOfF1("long-lists.html"), "long-lists.html");
    const struct {
        int control;
        const char* page;
    } parts[] = {{TX_DataBase, "files.html"},
                 {TX_Filter, "long-lists.html"},
                 {OP_Preview, "the-picture.html"},
                 {BT_Bsd, "2-enter-the-basic-ship-data.html"},
                 {OP_Rule, "6-check-it-against-the-rules.html"}};
    for (const auto& part : parts) {
        PostMessageW(main, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(Control(part.control)), TRUE);
        ASSERT_TRUE(FocusBecomes(main, part.control));
        ASSERT_TRUE(TakesKeys(main));
        EXPECT_EQ(PageOfF1(part.page), part.page);
    }
    EXPECT_TRUE(IsWindowEnabled(main)) << "no box is up";
}

TEST_F(HelpUi, ContentsInTheMenuOpensTheFirstPage) {
    TypeWithAlt('H');
    ASSERT_TRUE(MenuIsOpen(true));
    Type({'C'});
    std::string page = "no page";
    EXPECT_TRUE(WaitUntil([&] { return TakesPage("index.html", page); })) << page;
}

TEST_F(HelpUi, F1InAnOpenMenuIsAboutItsItem) {
    TypeWithAlt('F');
    ASSERT_TRUE(MenuIsOpen(true));
    // Its first item, wherever the pointer is.
    Type({VK_HOME});
    EXPECT_EQ(PageOfF1("1-create-a-database.html"), "1-create-a-database.html");
}

TEST_F(HelpUi, F1InABoxIsAboutItsCommand) {
    const struct {
        uint16_t command;
        const wchar_t* window;
        const char* page;
    } boxes[] = {
        {ME_FileSettings, L"FM_Settings", "settings.html"},
        {ME_FilePrint, L"FM_Page", "pictures-for-reports-and-drawings.html"},
        {ME_FileExportAllPictures, L"FM_Pictures", "pictures-for-reports-and-drawings.html"},
        {ME_FileVersions, L"FM_Versions", "undo-and-earlier-versions.html"},
        {ME_FileCheck, L"FM_Report", "check-a-database.html"},
        {ME_SectionCopy, L"InputBox", "4-copy-it.html"},
        {ME_SectionProperties, L"FM_Properties", "4-copy-it.html"},
        {ME_SectionImport, L"FM_Inport", "exchange-models-with-other-databases.html"},
        {ME_SectionExport, L"FM_Export", "exchange-models-with-other-databases.html"},
        {ME_HelpAbout, L"FM_About", "help.html"}};
    for (const auto& box : boxes) {
        SCOPED_TRACE(Narrow(box.window));
        Choose(main, box.command);
        const HWND window = program.Window(box.window);
        ASSERT_NE(window, nullptr);
        ASSERT_TRUE(TakesKeys(window));
        EXPECT_EQ(PageOfF1(box.page), box.page);
        EXPECT_TRUE(IsWindow(window));
        PostMessageW(window, WM_COMMAND, IDCANCEL, 0);
        ASSERT_TRUE(HasClosed(window));
        ASSERT_TRUE(WaitUntil([&] { return IsWindowEnabled(main) != FALSE; }));
    }
}

TEST_F(HelpUi, F1InTheBoxOfAComparisonIsAboutIt) {
    const std::wstring other = installation.File(L"other.ve2");
    CopyFileW(installation.File(L"ship.ve2").c_str(), other.c_str(), FALSE);
    Choose(main, ME_FileCompare);
    ASSERT_TRUE(AnswerFilePrompt(program, other));
    const HWND box = program.Window(kCompareBoxClass);
    ASSERT_NE(box, nullptr);
    ASSERT_TRUE(TakesKeys(box));
    EXPECT_EQ(PageOfF1("compare-databases.html"), "compare-databases.html");
    ASSERT_TRUE(PressButton(box, IDCANCEL));
}

TEST_F(HelpUi, F1InAWarningIsAboutWarningsAndInAQuestionAboutItsCommand) {
    Choose(main, ME_SectionRemove);
    const Box question = WaitForBox(program);
    ASSERT_TRUE(TakesKeys(question.window));
    EXPECT_EQ(PageOfF1("5-delete-the-copy.html"), "5-delete-the-copy.html");
    ASSERT_TRUE(Press(question, IDNO));
    ASSERT_TRUE(TakesKeys(main));
    EXPECT_EQ(PageOfF1("long-lists.html"), "long-lists.html");
    EXPECT_EQ(browser.TimesStarted(), 2U) << "a page was opened twice";
    SetFileAttributesW(installation.File(L"ship.ve2").c_str(), FILE_ATTRIBUTE_READONLY);
    Choose(main, ME_SectionRemove);
    const Box warning = WaitForBox(program);
    ASSERT_TRUE(TakesKeys(warning.window)) << Message(warning);
    EXPECT_EQ(PageOfF1("when-corvane-refuses-a-command.html"),
              "when-corvane-refuses-a-command.html");
    EXPECT_TRUE(Press(warning, IDOK));
}

TEST_F(HelpUi, F1InAWarningOfABoxOpensOnePageAboutWarnings) {
    Choose(main, ME_FileSettings);
    const HWND settingsBox = program.Window(L"FM_Settings");
    ASSERT_NE(settingsBox, nullptr);
    Send(GetDlgItem(settingsBox, TX_Setting + 3), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"x"));
    PostMessageW(GetDlgItem(settingsBox, IDOK), BM_CLICK, 0, 0);
    const Box warning = WaitForBox(program);
    ASSERT_TRUE(TakesKeys(warning.window));
    EXPECT_EQ(PageOfF1("when-corvane-refuses-a-command.html"),
              "when-corvane-refuses-a-command.html");
    ASSERT_TRUE(Press(warning, IDOK));
    ASSERT_TRUE(TakesKeys(settingsBox));
    EXPECT_EQ(PageOfF1("settings.html"), "settings.html");
    EXPECT_EQ(browser.TimesStarted(), 2U) << "a page was opened twice";
}

TEST_F(HelpUi, PageThatIsMissingIsNamedOnce) {
    std::filesystem::remove_all(installation.File(L"help"));
    Type({VK_F1});
    const Box box = WaitForBox(program);
    EXPECT_EQ(Message(box), "The page '" + Narrow(installation.File(L"help\\long-lists.html")) +
                                "' of the user guide is not there.");
    ASSERT_TRUE(TakesKeys(box.window));
    // F1 in that box does nothing: the next key closes the only one.
    Type({VK_F1, VK_ESCAPE});
    EXPECT_TRUE(HasClosed(box.window));
    EXPECT_TRUE(FocusBecomes(main, LI_Sections));
    EXPECT_EQ(program.FindNow(L"#32770"), nullptr);
    std::string page;
    browser.TakePage(installation.File(L"help\\"), page);
    EXPECT_EQ(page, "");
}

TEST_F(HelpUi, F1InAStandInIsAboutTheStandIns) {
    installation.Add(L"SectInput.exe");
    const Program input(installation, L"\"" + installation.File(L"ship.ve2") + L"\" 1",
                        L"SectInput.exe");
    const HWND window = input.Window(stand_ins::kStandInClass);
    ASSERT_NE(window, nullptr);
    ASSERT_TRUE(TakesKeys(window));
    EXPECT_EQ(PageOfF1("stand-ins.html"), "stand-ins.html");
}

TEST_F(HelpUi, CopyDetailsPutsThemOnTheClipboardAndSaysSo) {
    TypeWithAlt('H');
    ASSERT_TRUE(MenuIsOpen(true));
    Type({'D'});
    EXPECT_TRUE(TextBecomes(Control(PAN_Help), L"The details for a report are on the clipboard"));
    const std::string text = Narrow(ClipboardText());
    RECT screen{};
    GetWindowRect(GetDesktopWindow(), &screen);
    const auto size = std::filesystem::file_size(installation.File(L"ship.ve2"));
    for (const std::string& part :
         {std::string("Corvane 1.0 (r0)\r\nBuild: 64 bits, GCC "),
          std::string("\r\nSystem: Windows "),
          "\r\nScreen: " + std::to_string(screen.right) + " x " + std::to_string(screen.bottom) +
              " pixels, 96 dots per inch\r\n",
          "\r\nSettings file: " + Narrow(Settings::Path()) + "\r\n",
          "\r\nPrograms of the suite: " + Narrow(installation.folder) + "\r\n",
          std::string("\tGrVelk Data: 2.002\r\n"),
          "\r\nDatabase: " + Narrow(installation.File(L"ship.ve2")) + ", " + std::to_string(size) +
              " bytes, 14 models, Saved "}) {
        EXPECT_NE(text.find(part), std::string::npos) << part << "is not in\n" << text;
    }
}

}  // namespace
}  // namespace corvane::ui
