// The stand-ins for the suite's other programs, through their real windows.
#include <gtest/gtest.h>
#include <objbase.h>

#include <string>
#include <vector>

#include "bsd/basic_ship_data.h"
#include "bsd/bsd_file.h"
#include "database/listing.h"
#include "database/scanning.h"
#include "stand_ins/win32/form_control_ids.h"
#include "tests/support/support.h"
#include "tests/ui/accessible.h"
#include "tests/ui/driver.h"

namespace corvane::ui {
namespace {

using stand_ins::kFactId;
using stand_ins::kFieldId;
using stand_ins::kNoteId;
using stand_ins::kStandInClass;
using stand_ins::kStatusId;
using test::Narrow;

constexpr const wchar_t* kPrograms[] = {L"BsdEdit.exe",  L"SectInput.exe", L"SectRule.exe",
                                        L"BhdInput.exe", L"BhdCheck.exe",  L"CsrCheck.exe",
                                        L"TorModel.exe"};

struct StandInUiTest : testing::Test {
    Installation installation;
    std::wstring database = installation.File(L"my ship.ve2");

    StandInUiTest() { CoInitialize(nullptr); }
    ~StandInUiTest() override { CoUninitialize(); }
    void SetUp() override {
        for (const wchar_t* name : kPrograms) installation.Add(name);
        const std::wstring sample = test::DataPath("../samples/aurora_bay.ve2");
        ASSERT_TRUE(CopyFileW(sample.c_str(), database.c_str(), FALSE)) << GetLastError();
    }
    // What Corvane writes after the program's name.
    std::wstring Line(const std::wstring& rest = L"") const {
        return L"\"" + database + L"\"" + rest;
    }
    std::string Bytes() const { return test::ReadFileBytes(database); }
};

std::string Text(HWND window, int id) {
    return Narrow(TextOf(GetDlgItem(window, id)));
}

std::string Fact(HWND window, int index) {
    return Text(window, kFactId + 2 * index) + " " + Text(window, kFactId + 2 * index + 1);
}

void Enter(HWND window, int field, const wchar_t* text) {
    const HWND input = GetDlgItem(window, kFieldId + field);
    ASSERT_NE(input, nullptr) << field;
    Send(input, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text));
}

void Click(HWND window, int button) {
    PostMessageW(GetDlgItem(window, button), BM_CLICK, 0, 0);
}

// Presses Save; the status after it.
std::string Save(HWND window) {
    Click(window, IDOK);
    EXPECT_TRUE(WaitUntil([&] { return Text(window, kStatusId).starts_with("Saved"); }))
        << Text(window, kStatusId);
    return Text(window, kStatusId);
}

bool Close(const Program& program, HWND window) {
    Click(window, IDCANCEL);
    return program.HasEnded() && program.ExitCode() == 0;
}

struct Start {
    const wchar_t* program;
    const wchar_t* rest;
    const char* title;
    const char* model;  // the fourth fact
};

TEST_F(StandInUiTest, EachShowsItsRequestAndCloseChangesNothing) {
    const std::string before = Bytes();
    for (const Start& start : std::vector<Start>{
             {L"BsdEdit.exe", L"", "Basic Ship Data (stand-in)", " "},
             {L"SectInput.exe", L"", "Section input (stand-in)", "Model: a new one"},
             {L"SectInput.exe", L" 5", "Section input (stand-in)",
              "Model: 5, Midship section, hold 4"},
             {L"SectRule.exe", L" 5", "Section rules (stand-in)",
              "Model: 5, Midship section, hold 4"},
             {L"CsrCheck.exe", L" 5", "Section rules CSR (stand-in)",
              "Model: 5, Midship section, hold 4"},
             {L"BhdInput.exe", L" 10", "Bulkhead input (stand-in)",
              "Model: 10, Engine room bulkhead, frame 46"},
             {L"BhdCheck.exe", L" 10", "Bulkhead rules (stand-in)",
              "Model: 10, Engine room bulkhead, frame 46"},
             {L"TorModel.exe", L" 13", "Torsion model (stand-in)",
              "Model: 13, Torsion model, holds 7 to 1"},
         }) {
        SCOPED_TRACE(Narrow(start.program));
        const Program program(installation, L"/d /mil " + Line(start.rest), start.program);
        const HWND window = program.Window(kStandInClass);
        ASSERT_NE(window, nullptr);
        EXPECT_EQ(Narrow(TextOf(window)), start.title);
        EXPECT_NE(Text(window, kNoteId).find("his stand-in"), std::string::npos);
        EXPECT_EQ(Fact(window, 0), "Program: " + Narrow(start.program));
        EXPECT_EQ(Fact(window, 1), "Switches: /d /mil");
        EXPECT_EQ(Fact(window, 2), "Database: " + Narrow(database));
        EXPECT_EQ(Fact(window, 3), start.model);
        ExpectNamedControls(window);
        RECT place{};
        GetWindowRect(window, &place);
        EXPECT_LE(place.right - place.left, 800) << "a small screen";
        EXPECT_LE(place.bottom - place.top, 600 - 40) << "above its task bar";
        // On a screen of 800 by 600 with a taskbar of 40, without the caption and frame of 39.
        RECT client{};
        GetClientRect(window, &client);
        EXPECT_LE(client.right, 784);
        EXPECT_LE(client.bottom, 521);
        EXPECT_TRUE(Close(program, window));
        EXPECT_EQ(Bytes(), before);
    }
}

TEST_F(StandInUiTest, RuleProgramsSayThatNothingIsCheckedAndHaveNoSave) {
    for (const wchar_t* name : {L"SectRule.exe", L"CsrCheck.exe"}) {
        const Program program(installation, Line(L" 5"), name);
        const HWND window = program.Window(kStandInClass);
        ASSERT_NE(window, nullptr);
        EXPECT_TRUE(Text(window, kNoteId).starts_with("This stand-in checks nothing"));
        EXPECT_EQ(GetDlgItem(window, IDOK), nullptr);
        // Enter is Close here.
        PressKey(GetDlgItem(window, IDCANCEL), VK_RETURN);
        EXPECT_TRUE(program.HasEnded());
    }
}

TEST_F(StandInUiTest, BsdEditorSavesTheShip) {
    const Program program(installation, Line(), L"BsdEdit.exe");
    const HWND window = program.Window(kStandInClass);
    ASSERT_NE(window, nullptr);
    Enter(window, 0, L"Boreal Bay");
    const HWND type = GetDlgItem(window, kFieldId + 2);
    Send(type, CB_SETCURSEL, 4, 0);
    Enter(window, 4, L"30.5");
    Enter(window, 11, L"20 0.7\r\n100 0.8");
    EXPECT_EQ(Save(window), "Saved: Basic Ship Data, in my ship.ve2");
    BasicShipData bsd;
    ASSERT_TRUE(LoadBsdFromDatabase(database, bsd));
    EXPECT_EQ(Narrow(bsd.Titles(1).Trimmed()), "Boreal Bay");
    EXPECT_EQ(bsd.ShipType(), 5);
    EXPECT_EQ(bsd.MainData(2), 30.5F);
    EXPECT_EQ(bsd.FrameZoneCount, 2);
    EXPECT_EQ(bsd.FrameNumbers(2), 100);
    EXPECT_EQ(CountModels(database), 14);
    EXPECT_TRUE(Close(program, window));
}

TEST_F(StandInUiTest, EnterSavesEscapeClosesAndTabGoesThroughTheFields) {
    const Program program(installation, Line(L" 13"), L"TorModel.exe");
    const HWND window = program.Window(kStandInClass);
    ASSERT_NE(window, nullptr);
    const HWND name = GetDlgItem(window, kFieldId);
    Enter(window, 0, L"By keyboard");
    PressKey(name, VK_RETURN);
    EXPECT_TRUE(TextBecomes(GetDlgItem(window, kStatusId),
                            L"Saved: torsion 13, By keyboard, in my ship.ve2"));
    const HWND save = GetDlgItem(window, IDOK);
    const HWND close = GetDlgItem(window, IDCANCEL);
    EXPECT_TRUE(WaitUntil([&] { return FocusOf(window) == name; }));
    for (const HWND next : {save, close, name}) {
        PressKey(FocusOf(window), VK_TAB);
        EXPECT_TRUE(WaitUntil([&] { return FocusOf(window) == next; }));
    }
    PressKey(name, VK_ESCAPE);
    EXPECT_TRUE(program.HasEnded());
    EXPECT_EQ(Narrow(ListModels(database).at(12).name), "By keyboard");
}

TEST_F(StandInUiTest, EnterBreaksLinesAndTabAndEscapeLeaveThem) {
    const std::string before = Bytes();
    const Program program(installation, Line(), L"BsdEdit.exe");
    const HWND window = program.Window(kStandInClass);
    ASSERT_NE(window, nullptr);
    const HWND zones = GetDlgItem(window, kFieldId + 11);
    PostMessageW(window, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(zones), TRUE);
    EXPECT_TRUE(WaitUntil([&] { return FocusOf(window) == zones; }));
    Enter(window, 11, L"");
    PressKey(zones, VK_RETURN);
    EXPECT_TRUE(WaitUntil([&] { return TextOf(zones) == L"\r\n"; })) << Narrow(TextOf(zones));
    PressKey(zones, VK_TAB);
    EXPECT_TRUE(WaitUntil([&] { return FocusOf(window) == GetDlgItem(window, IDOK); }));
    PostMessageW(window, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(zones), TRUE);
    EXPECT_TRUE(WaitUntil([&] { return FocusOf(window) == zones; }));
    PressKey(zones, VK_ESCAPE);
    EXPECT_TRUE(program.HasEnded());
    EXPECT_EQ(Bytes(), before);
}

TEST_F(StandInUiTest, WrongFieldIsReportedAndHasTheFocus) {
    const std::string before = Bytes();
    const Program program(installation, Line(), L"SectInput.exe");
    const HWND window = program.Window(kStandInClass);
    ASSERT_NE(window, nullptr);
    Enter(window, 3, L"deep");
    Click(window, IDOK);
    const Box box = WaitForBox(program);
    EXPECT_EQ(Narrow(box.title), "Section input (stand-in)");
    EXPECT_TRUE(Narrow(box.text).starts_with("Depth: 'deep' is not a number from 3 to 40 m."))
        << Narrow(box.text);
    EXPECT_TRUE(Press(box, IDOK));
    const HWND depth = GetDlgItem(window, kFieldId + 3);
    EXPECT_TRUE(WaitUntil([&] { return FocusOf(window) == depth; }));
    EXPECT_EQ(Bytes(), before);
}

TEST_F(StandInUiTest, ReplacingAForeignSectionIsAskedAndNoChangesNothing) {
    const std::string before = Bytes();
    const Program program(installation, Line(L" 5"), L"SectInput.exe");
    const HWND window = program.Window(kStandInClass);
    ASSERT_NE(window, nullptr);
    Enter(window, 3, L"20");
    Click(window, IDOK);
    const Box box = WaitForBox(program);
    EXPECT_NE(Narrow(box.text).find("Replace them?"), std::string::npos) << Narrow(box.text);
    EXPECT_TRUE(Press(box, IDNO));
    EXPECT_TRUE(Close(program, window));
    EXPECT_EQ(Bytes(), before);
}

// SectInput shows a box with these words, and ends.
void ExpectRefusal(const Installation& installation, const std::wstring& line, const char* words) {
    const Program program(installation, line, L"SectInput.exe");
    const Box box = WaitForBox(program);
    EXPECT_NE(Narrow(box.text).find(words), std::string::npos) << Narrow(box.text);
    EXPECT_TRUE(Press(box, IDOK));
    EXPECT_TRUE(program.HasEnded());
    EXPECT_EQ(program.ExitCode(), 1U);
}

TEST_F(StandInUiTest, WhatCannotBeOpenedIsReportedAndTheProgramEnds) {
    ExpectRefusal(installation, L"", "No database was given.");
    ExpectRefusal(installation, Line(L" 99"), "There is no model 99 in the database '");
}

// Holds a file as another program would.
struct Holder {
    HANDLE file;
    Holder(const std::wstring& path, DWORD sharing)
        : file(CreateFileW(path.c_str(), GENERIC_READ, sharing, nullptr, OPEN_EXISTING, 0,
                           nullptr)) {
        EXPECT_NE(file, INVALID_HANDLE_VALUE) << GetLastError();
    }
    ~Holder() { CloseHandle(file); }
    Holder(const Holder&) = delete;
    Holder& operator=(const Holder&) = delete;
};

TEST_F(StandInUiTest, LockedDatabaseIsReported) {
    const Holder holder(database, 0);
    ExpectRefusal(installation, Line(), "cannot be read:");
}

TEST_F(StandInUiTest, DatabaseThatAnotherProgramHoldsIsNotWritten) {
    const std::string before = Bytes();
    const Program program(installation, Line(L" 13"), L"TorModel.exe");
    const HWND window = program.Window(kStandInClass);
    ASSERT_NE(window, nullptr);
    {
        const Holder holder(database, FILE_SHARE_READ | FILE_SHARE_WRITE);
        Enter(window, 0, L"Held");
        Click(window, IDOK);
        const Box box = WaitForBox(program);
        EXPECT_NE(Narrow(box.text).find("was not changed"), std::string::npos) << Narrow(box.text);
        EXPECT_TRUE(Press(box, IDOK));
    }
    EXPECT_EQ(Bytes(), before);
    EXPECT_EQ(Save(window), "Saved: torsion 13, Held, in my ship.ve2") << "and now it is";
    EXPECT_TRUE(Close(program, window));
}

TEST_F(StandInUiTest, MissingLibraryIsReported) {
    ASSERT_TRUE(DeleteFileW(installation.File(L"ztutil32.dll").c_str()));
    ExpectRefusal(installation, Line(), "ZTUtil32");
}

}  // namespace
}  // namespace corvane::ui
