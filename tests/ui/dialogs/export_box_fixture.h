// FM_Export, open in the test's own process for a section of the sample ship.
#pragma once

#include <functional>
#include <string>

#include "bsd/bsd_file.h"
#include "database/section_block.h"
#include "tests/shell/sample_models.h"
#include "tests/ui/dialogs/exchange_box.h"
#include "ui/dialogs/export_box.h"

namespace corvane::test {

struct ExportBoxFixture : ExchangeBoxTest {
    ExportChoice choice;

    // The sample ship's midship section is exported.
    ExportBoxFixture() {
        const std::wstring path = SamplePath();
        EXPECT_TRUE(LoadBsdFromDatabase(path, shell.database.bsd));
        EXPECT_TRUE(ReadSectionBlock(path, 5, false, choice.section));
        RecordedReports::events.clear();
    }

    // Shows the box to `look`, which may press OK; otherwise the box is cancelled.
    bool Ask(const std::function<void(HWND)>& look) {
        const WhenOpen open(kExportBoxClass, [&](HWND window) {
            look(window);
            if (IsOpen(window)) PostMessageW(window, WM_CLOSE, 0, 0);
        });
        return AskExport(choice);
    }
};

}  // namespace corvane::test
