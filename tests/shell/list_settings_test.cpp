#include "shell/list_settings.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/system.h"
#include "shell/start_up.h"
#include "shell/state.h"
#include "tests/shell/fake_view.h"
#include "tests/support/support.h"

namespace corvane {
namespace {

using test::FakeView;
using test::Narrow;
using test::TemporaryFolder;

struct ListSettingsTest : testing::Test {
    FakeView screen;
    TemporaryFolder folder;
    std::wstring file = folder.File(L"test.ini");

    // Reads a file whose section has these keys.
    void Read(const std::string& keys) const {
        test::WriteFileBytes(file, "[Corvane window]\r\n" + keys);
        ReadListSettings(file);
    }
    // What a new start reads after this one's end.
    void WriteAndReadAgain() const {
        EXPECT_TRUE(WriteListSettings(file));
        shell.list = ShownList();
        ReadListSettings(file);
    }
};

TEST_F(ListSettingsTest, WithoutAFileTheListIsAsTheFileHasIt) {
    ReadListSettings(file);
    EXPECT_EQ(shell.list.order, ListOrder());
    EXPECT_EQ(shell.list.filter, L"");
    EXPECT_EQ(shell.list.widths, ColumnWidths());
}

TEST_F(ListSettingsTest, WhatIsWrittenComesBack) {
    const ListOrder orders[] = {{}, {ListColumn::kName, false}, {ListColumn::kFrame, true}};
    const wchar_t* const filters[] = {L"",    L"bhd fr 121", L"  x>100 ",     L"\"frame 121\"",
                                      L"'a'", L"a=b;c",      L"\u00E9t\u00E9"};
    for (const ListOrder& order : orders) {
        for (const wchar_t* filter : filters) {
            SetListOrder(order);
            SetListFilter(filter);
            SetColumnWidths({std::nullopt, 60, 0, std::nullopt, 250});
            WriteAndReadAgain();
            EXPECT_EQ(shell.list.order, order);
            EXPECT_EQ(Narrow(shell.list.filter), Narrow(filter));
            EXPECT_EQ(shell.list.widths, (ColumnWidths{std::nullopt, 60, 0, std::nullopt, 250}));
        }
    }
}

TEST_F(ListSettingsTest, FilterThatTheFileCannotHoldIsNotKept) {
    SetListFilter(L"\u4E2D");
    WriteAndReadAgain();
    EXPECT_EQ(shell.list.filter, L"");
}

TEST_F(ListSettingsTest, WhatCannotBeReadCountsAsNotSet) {
    Read("SortColumn=Weight\r\nSortDescending=maybe\r\nColumnWidths=wide -5 1e9 - \r\n");
    EXPECT_EQ(shell.list.order, ListOrder());
    EXPECT_EQ(shell.list.widths, (ColumnWidths{std::nullopt, 0, 10'000}));
    Read("ColumnWidths=1 2 3 4 5 6 7 8\r\n");
    EXPECT_EQ(shell.list.widths, (ColumnWidths{1, 2, 3, 4, 5}));
    Read("ColumnWidths=\r\nFilter=\r\n");
    EXPECT_EQ(shell.list.widths, ColumnWidths());
    EXPECT_EQ(shell.list.filter, L"");
}

TEST_F(ListSettingsTest, EndOfTheProgramWritesThem) {
    const test::FreshSettingsFile settings;
    const test::KeepCurrentDirectory keeper;
    shell.startDirectory = system::CurrentDirectory();
    SetListFilter(L"torsion");
    ShutDown(false);
    shell.list = ShownList();
    ReadListSettings(L"Corvane.ini");
    EXPECT_EQ(shell.list.filter, L"torsion");
}

}  // namespace
}  // namespace corvane
