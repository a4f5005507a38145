// The real program with a copy of the sample ship, its main window ready for keys.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "shell/commands/commands.h"
#include "tests/support/support.h"
#include "tests/ui/driver.h"
#include "tests/ui/keyboard.h"
#include "ui/base/control_ids.h"

namespace corvane::ui {

inline constexpr wchar_t kMenuClass[] = L"#32768";

struct MainWindowFixture : testing::Test {
    Settings settings;
    Installation installation;
    Program program{installation, L"\"" + CopyOfSample() + L"\""};
    HWND main = program.Main();

    void SetUp() override {
        ASSERT_NE(main, nullptr);
        SetWindowPos(main, nullptr, 20, 20, 1000, 700, SWP_NOZORDER);
        ASSERT_TRUE(TakesKeys(main));
        ASSERT_TRUE(FocusBecomes(main, LI_Sections)) << "the list has the focus at the start";
    }

    std::wstring CopyOfSample() const {
        std::wstring path = installation.File(L"ship.ve2");
        CopyFileW(test::DataPath("../samples/aurora_bay.ve2").c_str(), path.c_str(), FALSE);
        return path;
    }
    HWND Control(int id) const { return GetDlgItem(main, id); }
    RECT Place(int id) const {
        RECT place{};
        GetWindowRect(Control(id), &place);
        return place;
    }
    bool IsShown(int id) const { return IsWindowVisible(Control(id)) != FALSE; }
    bool IsOn(int id) const { return SendMessageW(Control(id), BM_GETCHECK, 0, 0) == BST_CHECKED; }
    bool MenuIsOpen(bool open) const {
        return WaitUntil([&] { return (program.FindNow(kMenuClass) != nullptr) == open; });
    }
    bool ShowsPosition(const wchar_t* text) const { return TextBecomes(Control(LB_X), text); }
};

}  // namespace corvane::ui
