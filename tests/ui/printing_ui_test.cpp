// Printing in the real program, on a printer of the test's own that writes PostScript.
#include <gtest/gtest.h>

#include <cstdlib>
#include <map>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "tests/ui/file_dialog.h"
#include "tests/ui/main_window_fixture.h"
// windows.h must come first.
#include <winspool.h>

namespace corvane::ui {
namespace {

using test::Narrow;
using test::ReadFileBytes;

// What the driver has to know of a printer: one on A4.
constexpr char kDescription[] =
    "*PPD-Adobe: \"4.3\"\n"
    "*FormatVersion: \"4.3\"\n"
    "*FileVersion: \"1.0\"\n"
    "*LanguageVersion: English\n"
    "*LanguageEncoding: ISOLatin1\n"
    "*PCFileName: \"CORVANE.PPD\"\n"
    "*Product: \"(Corvane test)\"\n"
    "*PSVersion: \"(3010.000) 0\"\n"
    "*ModelName: \"Corvane test\"\n"
    "*ShortNickName: \"Corvane test\"\n"
    "*NickName: \"Corvane test\"\n"
    "*LanguageLevel: \"3\"\n"
    "*ColorDevice: True\n"
    "*DefaultColorSpace: RGB\n"
    "*DefaultResolution: 300dpi\n"
    "*OpenUI *PageSize: PickOne\n"
    "*DefaultPageSize: A4\n"
    "*PageSize A4/A4: \"<</PageSize[595 842]>>setpagedevice\"\n"
    "*CloseUI: *PageSize\n"
    "*DefaultPageRegion: A4\n"
    "*DefaultImageableArea: A4\n"
    "*ImageableArea A4/A4: \"18 18 577 824\"\n"
    "*DefaultPaperDimension: A4\n"
    "*PaperDimension A4/A4: \"595 842\"\n"
    "*DefaultFont: Helvetica\n"
    "*Font Helvetica: Standard \"(001.000)\" Standard ROM\n";

// Whether the system's pages wait in a queue, from which the driver's own processor makes the
// PostScript: Wine since version 9.
bool HasQueue() {
    const auto version = AsFunction<const char*()>(
        GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version"));
    return version != nullptr && std::atoi(version()) >= 9;
}

// A printer at a port, which may be the path of a file: the default one for as long as this lives.
struct TestPrinter {
    static inline wchar_t driverName[] = L"Corvane test driver";
    static inline wchar_t printerName[] = L"Corvane test printer";
    bool isThere = false;

    TestPrinter(const Installation& installation, std::wstring port) {
        std::wstring description = installation.File(L"corvane.ppd");
        test::WriteFileBytes(description, kDescription);
        wchar_t library[] = L"wineps.drv";
        wchar_t rawText[] = L"RAW";
        wchar_t ownProcessor[] = L"wineps";
        wchar_t processor[] = L"WinPrint";
        DRIVER_INFO_3W driver{};
        driver.cVersion = 3;
        driver.pName = driverName;
        driver.pDriverPath = driver.pConfigFile = library;
        driver.pDataFile = description.data();
        driver.pDefaultDataType = rawText;
        constexpr DWORD kCopy = APD_COPY_NEW_FILES | APD_COPY_FROM_DIRECTORY;
        if (!AddPrinterDriverExW(nullptr, 3, reinterpret_cast<BYTE*>(&driver), kCopy)) return;
        PRINTER_INFO_2W printer{};
        printer.pPrinterName = printerName;
        printer.pPortName = port.data();
        printer.pDriverName = driverName;
        printer.pPrintProcessor = HasQueue() ? ownProcessor : processor;
        printer.pDatatype = rawText;
        const HANDLE added = AddPrinterW(nullptr, 2, reinterpret_cast<BYTE*>(&printer));
        isThere = added != nullptr && SetDefaultPrinterW(printerName) != FALSE;
        if (added != nullptr) ClosePrinter(added);
    }
    ~TestPrinter() {
        HANDLE printer = nullptr;
        if (OpenPrinterW(printerName, &printer, nullptr)) {
            DeletePrinter(printer);
            ClosePrinter(printer);
        }
        DeletePrinterDriverExW(nullptr, nullptr, driverName, 0, 0);
    }
    TestPrinter(const TestPrinter&) = delete;
    TestPrinter& operator=(const TestPrinter&) = delete;
};

int CountOf(const std::string& text, const std::string& part) {
    int count = 0;
    for (size_t at = text.find(part); at != text.npos; at = text.find(part, at + 1)) ++count;
    return count;
}

// The driver writes a text letter by letter, each by its name.
std::string LetterOf(const std::string& name) {
    static const std::map<std::string, std::string> kNames{
        {"space", " "},  {"uni00A0", " "}, {"slash", "/"}, {"comma", ","},
        {"period", "."}, {"colon", ":"},   {"zero", "0"},  {"one", "1"},
        {"two", "2"},    {"three", "3"},   {"four", "4"},  {"five", "5"},
        {"six", "6"},    {"seven", "7"},   {"eight", "8"}, {"nine", "9"}};
    const auto found = kNames.find(name);
    return found == kNames.end() ? name : found->second;
}

std::string TextsOf(const std::string& postScript) {
    std::istringstream lines(postScript);
    std::string texts;
    for (std::string line; std::getline(lines, line);) {
        if (line.ends_with('\r')) line.pop_back();
        constexpr std::string_view kShow = " glyphshow";
        if (!line.starts_with('/') || !line.ends_with(kShow)) continue;
        texts += LetterOf(line.substr(1, line.size() - 1 - kShow.size()));
    }
    return texts;
}

// A whole document of so many pages with these texts.
void ExpectDocument(const std::wstring& path, int pages, const std::vector<std::string>& texts) {
    const std::string file = ReadFileBytes(path);
    EXPECT_TRUE(file.starts_with("%!PS-Adobe-3.0"));
    EXPECT_EQ(CountOf(file, "\n%%Page: "), pages);
    EXPECT_NE(file.find("%%Pages: " + std::to_string(pages) + "\n%%EOF"), file.npos);
    EXPECT_EQ(CountOf(file, "\nshowpage"), pages);
    const std::string written = TextsOf(file);
    for (const std::string& text : texts)
        EXPECT_NE(written.find(text), written.npos) << text << " in " << written.substr(0, 300);
}

struct PrintingUi : MainWindowFixture {
    // Of the system's dialog: its list of printers, and "Print to file".
    static constexpr int kPrinters = 0x473;
    static constexpr int kToFile = 0x410;

    // The page preview of a command of the File menu, with the keyboard in it.
    HWND OpenPreview(int command) const {
        Choose(main, command);
        const HWND preview = program.Window(kPagePreviewClass);
        EXPECT_TRUE(preview != nullptr && TakesKeys(preview));
        return preview;
    }
    // Enter in the preview and in the system's dialog.
    void PrintOnPrinter(bool toFile = false) const {
        Type({VK_RETURN});
        HWND dialog = nullptr;
        EXPECT_TRUE(WaitUntil([&] {
            dialog = program.FindNow(L"#32770");
            return dialog != nullptr && GetDlgItem(dialog, kPrinters) != nullptr;
        }));
        EXPECT_TRUE(TakesKeys(dialog));
        if (toFile) Send(GetDlgItem(dialog, kToFile), BM_CLICK, 0, 0);
        Type({VK_RETURN});
        EXPECT_TRUE(HasClosed(dialog));
    }
    // Names the file that the program asks for, as a user does.
    std::wstring NameFile(const std::wstring& name) const {
        const FileDialog dialog = WaitForFileDialog(program);
        EXPECT_EQ(dialog.caption, L"Print");
        EXPECT_EQ(dialog.proposed, L"Engineroomframe30.prn");
        const std::wstring path = installation.File(name);
        EXPECT_TRUE(AnswerFilePrompt(program, path));
        return path;
    }
    void ExpectPrintedTo(const std::wstring& path) const {
        EXPECT_TRUE(TextBecomes(Control(PAN_Help),
                                L"'Engine room, frame 30' was printed, pages: 1,"
                                L" to the file '" +
                                    path + L"'"));
        ExpectDocument(path, 1, {"Engine room", "ship.ve2", "Corvane"});
    }
};

TEST_F(PrintingUi, PictureIsPrintedToAFileThatTheUserNames) {
    const std::wstring device = installation.File(L"printer.ps");
    const TestPrinter printer(installation, device);
    if (!printer.isThere) GTEST_SKIP() << "no such printer driver here";
    const HWND preview = OpenPreview(ME_FilePrint);
    PrintOnPrinter(true);
    const std::wstring path = NameFile(L"printed.prn");
    ASSERT_TRUE(HasClosed(preview));
    ExpectPrintedTo(path);
    EXPECT_EQ(GetFileAttributesW(device.c_str()), INVALID_FILE_ATTRIBUTES);
}

TEST_F(PrintingUi, PrinterAtThePortOfFilesAsksForTheName) {
    const TestPrinter printer(installation, L"FILE:");
    if (!printer.isThere) GTEST_SKIP() << "no such printer driver here";
    const HWND preview = OpenPreview(ME_FilePrint);
    PrintOnPrinter();
    const std::wstring path = NameFile(L"printed.prn");
    ASSERT_TRUE(HasClosed(preview));
    ExpectPrintedTo(path);
}

TEST_F(PrintingUi, AllSectionsAreOneDocumentOnThePrinter) {
    const std::wstring path = installation.File(L"printer.ps");
    const TestPrinter printer(installation, path);
    if (!printer.isThere) GTEST_SKIP() << "no such printer driver here";
    const HWND preview = OpenPreview(ME_FilePrintAll);
    PrintOnPrinter();
    ASSERT_TRUE(HasClosed(preview));
    EXPECT_TRUE(FocusBecomes(main, LI_Sections));
    ExpectDocument(path, 9, {"Engine room", "ship.ve2", "Corvane"});
}

TEST_F(PrintingUi, PrinterThatCannotWriteIsReportedAndThePreviewStays) {
    const std::wstring path = installation.File(L"no folder\\printer.ps");
    const TestPrinter printer(installation, path);
    if (!printer.isThere) GTEST_SKIP() << "no such printer driver here";
    const HWND preview = OpenPreview(ME_FilePrint);
    PrintOnPrinter();
    const Box box = WaitForPlainBox(program);
    EXPECT_EQ(Message(box).find("'Engine room, frame 30' could not be printed: "), 0U)
        << Narrow(box.text);
    ASSERT_TRUE(Press(box, IDOK));
    EXPECT_TRUE(IsWindow(preview));
    EXPECT_EQ(GetFileAttributesW(path.c_str()), INVALID_FILE_ATTRIBUTES);
    ASSERT_TRUE(PressButton(preview, IDCANCEL));
}

TEST_F(PrintingUi, NoNameForTheFileCancelsAndThePreviewStays) {
    const std::wstring device = installation.File(L"printer.ps");
    const TestPrinter printer(installation, device);
    if (!printer.isThere) GTEST_SKIP() << "no such printer driver here";
    const HWND preview = OpenPreview(ME_FilePrint);
    PrintOnPrinter(true);
    EXPECT_TRUE(AnswerFilePrompt(program, L""));
    EXPECT_TRUE(WaitUntil([&] { return IsWindowEnabled(preview) != FALSE; }));
    EXPECT_TRUE(IsWindow(preview));
    ASSERT_TRUE(PressButton(preview, IDCANCEL));
    EXPECT_EQ(GetFileAttributesW(device.c_str()), INVALID_FILE_ATTRIBUTES);
}

}  // namespace
}  // namespace corvane::ui
