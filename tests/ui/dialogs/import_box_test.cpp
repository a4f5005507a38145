// FM_Inport as Windows shows it: what is listed, previewed and chosen.
#include "ui/dialogs/import_box.h"

#include <functional>
#include <string>
#include <vector>

#include "database/editing.h"
#include "database/listing.h"
#include "platform/ztutil32.h"
#include "report/messages.h"
#include "tests/companions/section_builder.h"
#include "tests/shell/fake_view.h"
#include "tests/ui/dialogs/exchange_box.h"

namespace corvane {
namespace {

using test::Narrow;
using Texts = std::vector<std::string>;

// What the file prompt was asked, and its answer.
std::string promptTypes, promptExtension, promptCaption, promptAnswer;

int16_t FakePrompt(char* extension, char* types, char* buffer, int32_t, int32_t, char* caption) {
    promptExtension = extension;
    promptTypes = types;
    promptCaption = caption;
    std::copy_n(promptAnswer.c_str(), promptAnswer.size() + 1, buffer);
    return promptAnswer.empty() ? int16_t{0} : int16_t{-1};
}

struct ImportBoxTest : test::ExchangeBoxTest {
    ImportChoice choice;
    std::wstring tag;

    // Shows the box to `look`, which may press OK; otherwise the box is cancelled.
    bool Ask(const std::function<void(HWND)>& look) {
        const test::WhenOpen open(kImportBoxClass, [&](HWND window) {
            look(window);
            if (IsOpen(window)) PostMessageW(window, WM_CLOSE, 0, 0);
        });
        return AskImport(choice, tag);
    }
    // As clicks with the Ctrl key select them; the last one is the current one.
    static void SelectItems(HWND window, const std::vector<int>& items) {
        const HWND list = GetDlgItem(window, LI_Sections);
        SendMessageW(list, LB_SETSEL, FALSE, -1);
        for (const int item : items) {
            SendMessageW(list, LB_SETSEL, TRUE, item);
            SendMessageW(list, LB_SETCARETINDEX, static_cast<WPARAM>(item), FALSE);
            Notify(window, LI_Sections, LBN_SELCHANGE);
        }
    }
    static LRESULT SelectedCount(HWND window) {
        return SendDlgItemMessageW(window, LI_Sections, LB_GETSELCOUNT, 0, 0);
    }
};

TEST_F(ImportBoxTest, ShowsCaptionsAndDefaults) {
    Ask([](HWND window) {
        EXPECT_EQ(Narrow(WindowText(window)), "DOS Velk Sections");
        EXPECT_EQ(test::TextOf(window, Panel3D2), "Location");
        EXPECT_EQ(test::TextOf(window, BT_Browse), "&Browse...");
        EXPECT_EQ(test::TextOf(window, OP_Preview), "&Preview");
        EXPECT_EQ(test::TextOf(window, BT_Cancel), "&Cancel");
        EXPECT_EQ(IsDlgButtonChecked(window, OP_Preview), BST_CHECKED);
        EXPECT_TRUE(ShowsNoPreview(window));
        EXPECT_EQ(GetFocus(), GetDlgItem(window, FIL_Db));
    });
}

TEST_F(ImportBoxTest, ListsLegacyAndModelDatabases) {
    for (const wchar_t* name : {L"a.vel", L"b.vew", L"C.VE2", L"d.bsd", L"e"}) Legacy(name);
    Ask([](HWND window) { EXPECT_EQ(Items(window, FIL_Db), (Texts{"a.vel", "b.vew", "C.VE2"})); });
}

TEST_F(ImportBoxTest, LegacyDatabaseShowsItsSectionsAndTheFirstOneAtOnce) {
    Legacy(L"ship.vel");
    Ask([](HWND window) {
        Choose(window, L"ship.vel");
        EXPECT_EQ(Count(window, LI_Sections), 9);
        EXPECT_EQ(Items(window, LI_Sections).at(0), "Engine room, frame 30");
        EXPECT_EQ(SelectedCount(window), 1);
        EXPECT_GT(SendDlgItemMessageW(window, LI_Sections, LB_GETSEL, 0, 0), 0);
        EXPECT_TRUE(ShowsPreview(window));
        EXPECT_EQ(test::TextOf(window, LB_Service), "Aurora Bay (Bulk carrier)");
    });
}

TEST_F(ImportBoxTest, ModelDatabaseShowsItsModelsNotLegacySections) {
    Model(L"ship.ve2");
    Model(L"older.vew");
    Ask([&](HWND window) {
        for (const wchar_t* name : {L"ship.ve2", L"older.vew"}) {
            Choose(window, name);
            const Texts items = Items(window, LI_Sections);
            const auto models = ListModels(folder.File(name));
            ASSERT_EQ(items.size(), models.size());
            EXPECT_EQ(items.size(), 14U);
            int bulkheads = 0;
            int torsions = 0;
            for (const std::string& item : items) {
                bulkheads += item.ends_with(" (bulkhead)") ? 1 : 0;
                torsions += item.ends_with(" (torsion)") ? 1 : 0;
            }
            EXPECT_GT(bulkheads, 0);
            EXPECT_GT(torsions, 0);
            EXPECT_TRUE(ShowsPreview(window));
            EXPECT_TRUE(test::TextOf(window, LB_Notes).starts_with("Section at x = "))
                << test::TextOf(window, LB_Notes);
        }
    });
}

TEST_F(ImportBoxTest, PreviewFollowsTheClickedItem) {
    Model(L"ship.ve2");
    Ask([](HWND window) {
        Choose(window, L"ship.ve2");
        const int first = DrawnPixels(window);
        SelectItems(window, {8});
        EXPECT_TRUE(ShowsPreview(window));
        EXPECT_NE(DrawnPixels(window), first);
        const int last = static_cast<int>(Count(window, LI_Sections)) - 1;
        SelectItems(window, {last});
        EXPECT_EQ(test::TextOf(window, PIC_Section), Narrow(GetMessage(kMsgTorsionLayout)));
        EXPECT_TRUE(test::TextOf(window, LB_Service).empty());
    });
}

// Rows of the sample ship's list.
constexpr int kCorrugated = 10;

TEST_F(ImportBoxTest, BulkheadsAreDrawnAsInTheMainWindow) {
    Model(L"ship.ve2");
    Model(L"older.vew");
    Ask([](HWND window) {
        for (const wchar_t* name : {L"ship.ve2", L"older.vew"}) {
            Choose(window, name);
            SelectItems(window, {kCorrugated});
            EXPECT_TRUE(ShowsLines(window));
            EXPECT_EQ(test::TextOf(window, PIC_Section), "Preview of the bulkheads");
            EXPECT_EQ(test::TextOf(window, LB_Service), "Aurora Bay (Bulk carrier)");
        }
    });
}

TEST_F(ImportBoxTest, ControlAndBShowsTheNextBulkheadWhereverTheFocusIs) {
    Model(L"ship.ve2");
    Ask([](HWND window) {
        Choose(window, L"ship.ve2");
        SelectItems(window, {kCorrugated});
        const std::vector<COLORREF> all = Pixels(window);
        PressControlKeyIn(window, LI_Sections, 'B');
        EXPECT_NE(Pixels(window), all);
        EXPECT_TRUE(test::TextOf(window, LB_Service).starts_with("Bulkhead 1 of "))
            << test::TextOf(window, LB_Service);
        for (const int id : {FIL_Db, PIC_Section, OP_Preview, DRV_Db, BT_Ok, DIR_Db, BT_Browse}) {
            if (test::TextOf(window, LB_Service).starts_with("All bulkheads: ")) break;
            PressControlKeyIn(window, id, 'B');
        }
        EXPECT_TRUE(test::TextOf(window, LB_Service).starts_with("All bulkheads: "));
        EXPECT_EQ(Pixels(window), all);
        PressKeyIn(window, LI_Sections, 'B');
        EXPECT_EQ(Pixels(window), all) << "B alone is a letter for the list";
    });
}

TEST_F(ImportBoxTest, ControlKeysZoomAndFit) {
    Legacy(L"ship.vel");
    Ask([](HWND window) {
        Choose(window, L"ship.vel");
        const std::vector<COLORREF> fitted = Pixels(window);
        PressControlKeyIn(window, FIL_Db, VK_OEM_PLUS);
        const std::vector<COLORREF> larger = Pixels(window);
        EXPECT_NE(larger, fitted);
        PressControlKeyIn(window, FIL_Db, VK_OEM_PLUS);
        PressControlKeyIn(window, FIL_Db, VK_OEM_MINUS);
        EXPECT_EQ(Pixels(window), larger);
        PressControlKeyIn(window, FIL_Db, '0');
        EXPECT_EQ(Pixels(window), fitted);
        PressControlKeyIn(window, FIL_Db, 'B');
        EXPECT_EQ(Pixels(window), fitted) << "a section has no bulkheads";
    });
}

TEST_F(ImportBoxTest, MarkedPlaceIsListedInATableThatCanBeCopied) {
    Model(L"ship.ve2");
    Ask([](HWND window) {
        Choose(window, L"ship.ve2");
        const RECT before = test::PlaceIn(window, PIC_Section);
        EXPECT_FALSE(test::IsShown(window, TX_Facts));
        ClickPicture(window, 0.5, 0.5);
        ASSERT_TRUE(test::IsShown(window, TX_Facts));
        EXPECT_TRUE(test::IsShown(window, LB_Facts));
        const HWND table = GetDlgItem(window, TX_Facts);
        EXPECT_NE(GetWindowLongPtrW(table, GWL_STYLE) & ES_READONLY, 0);
        EXPECT_TRUE(test::TextOf(window, TX_Facts).starts_with("y\t"))
            << test::TextOf(window, TX_Facts);
        const size_t one = test::TextOf(window, TX_Facts).size();
        ClickPicture(window, 0.3, 0.4);
        EXPECT_GT(test::TextOf(window, TX_Facts).size(), one) << "the distance comes on top";
        SendMessageW(table, EM_SETSEL, 0, 1);
        SendMessageW(table, WM_COPY, 0, 0);
        ASSERT_NE(OpenClipboard(window), 0);
        const HANDLE text = GetClipboardData(CF_UNICODETEXT);
        const std::wstring copied = static_cast<const wchar_t*>(GlobalLock(text));
        GlobalUnlock(text);
        CloseClipboard();
        EXPECT_EQ(Narrow(copied), "y");
        PressKeyIn(window, PIC_Section, VK_ESCAPE);
        EXPECT_TRUE(IsOpen(window)) << "Esc only forgets the places";
        EXPECT_FALSE(test::IsShown(window, TX_Facts));
        const RECT after = test::PlaceIn(window, PIC_Section);
        EXPECT_TRUE(EqualRect(&after, &before));
    });
}

TEST_F(ImportBoxTest, AnotherModelForgetsTheMarkedPlaces) {
    Model(L"ship.ve2");
    Ask([](HWND window) {
        for (const int row : {3, kCorrugated, 13}) {
            Choose(window, L"ship.ve2");
            ClickPicture(window, 0.5, 0.5);
            ASSERT_TRUE(test::IsShown(window, TX_Facts)) << row;
            SelectItems(window, {row});
            EXPECT_FALSE(test::IsShown(window, TX_Facts)) << row;
        }
        SelectItems(window, {kCorrugated});
        ClickPicture(window, 0.5, 0.5);
        EXPECT_FALSE(test::IsShown(window, TX_Facts)) << "nothing describes a bulkhead";
    });
}

TEST_F(ImportBoxTest, LabelStaysWhileThePointerIsInThePicture) {
    Legacy(L"ship.vel");
    Ask([](HWND window) {
        Choose(window, L"ship.vel");
        for (const int x : {60, 61}) {
            SendMessageW(GetDlgItem(window, PIC_Section), WM_MOUSEMOVE, 0, MAKELPARAM(x, 60));
        }
        EXPECT_EQ(test::TextOf(window, LB_Service), "Aurora Bay (Bulk carrier)");
    });
}

TEST_F(ImportBoxTest, SwitchesOfTheViewMenuAreThoseOfTheMainWindow) {
    Model(L"ship.ve2");
    std::vector<COLORREF> plain[2], switched[2];
    for (const bool areOn : {false, true}) {
        shell.preview.options.hasLegend = shell.preview.options.hasScaleBar = areOn;
        Ask([&](HWND window) {
            Choose(window, L"ship.ve2");
            (areOn ? switched : plain)[0] = Pixels(window);
            SelectItems(window, {kCorrugated});
            (areOn ? switched : plain)[1] = Pixels(window);
        });
    }
    EXPECT_NE(switched[0], plain[0]) << "section";
    EXPECT_NE(switched[1], plain[1]) << "bulkheads";
}

TEST_F(ImportBoxTest, PreviewIsTurnedOffAndOn) {
    Legacy(L"ship.vel");
    Ask([](HWND window) {
        Choose(window, L"ship.vel");
        SetOption(window, OP_Preview);
        EXPECT_TRUE(ShowsNoPreview(window));
        SelectItems(window, {3});
        EXPECT_TRUE(ShowsNoPreview(window));
        SetOption(window, OP_Preview);
        EXPECT_TRUE(ShowsPreview(window));
    });
}

TEST_F(ImportBoxTest, PreviewOfTheMainWindowIsNotTouched) {
    Legacy(L"ship.vel");
    shell.preview.section.x_m = 77;
    shell.database.bsd.MainData(1) = 88;
    Ask([](HWND window) {
        Choose(window, L"ship.vel");
        EXPECT_TRUE(ShowsPreview(window));
    });
    EXPECT_EQ(shell.preview.section.x_m, 77);
    EXPECT_EQ(shell.database.bsd.MainData(1), 88);
    EXPECT_FALSE(shell.preview.isShown);
}

TEST_F(ImportBoxTest, ListTakesNoClicksWhileTheyAreSuppressed) {
    Legacy(L"ship.vel");
    Ask([](HWND window) {
        Choose(window, L"ship.vel");
        const std::string service = test::TextOf(window, LB_Service);
        const int drawn = DrawnPixels(window);
        shell.suppressListEvents = true;
        SetOption(window, OP_Preview);
        SelectItems(window, {8});
        EXPECT_EQ(test::TextOf(window, LB_Service), service);
        EXPECT_EQ(DrawnPixels(window), drawn);
        shell.suppressListEvents = false;
        SelectItems(window, {8});
        EXPECT_TRUE(ShowsNoPreview(window));
    });
}

TEST_F(ImportBoxTest, PointerIsBusyWhileAFileIsListed) {
    Legacy(L"ship.vel");
    Ask([](HWND window) {
        test::RecordedReports::events.clear();
        Choose(window, L"ship.vel");
        EXPECT_EQ(test::RecordedReports::Of("pointer"), (Texts{"busy", "reset"}));
    });
}

TEST_F(ImportBoxTest, OkGivesTheSelectedItemsInTheOrderOfTheList) {
    const std::wstring path = Model(L"ship.ve2");
    EXPECT_TRUE(Ask([](HWND window) {
        Choose(window, L"ship.ve2");
        SelectItems(window, {13, 2, 0});
        PressOk(window);
    }));
    EXPECT_EQ(choice.path, path);
    ASSERT_EQ(choice.items.size(), 3U);
    EXPECT_EQ(choice.items[0].number, 1);
    EXPECT_EQ(choice.items[1].number, 3);
    EXPECT_EQ(choice.items[2].number, 14);
    EXPECT_EQ(choice.items[2].kind, ModelKind::kTorsion);
}

TEST_F(ImportBoxTest, OkWithNothingSelectedAsksForASectionAndStays) {
    Legacy(L"ship.vel");
    EXPECT_FALSE(Ask([](HWND window) {
        PressOk(window);
        EXPECT_TRUE(IsOpen(window));
        Choose(window, L"ship.vel");
        SelectItems(window, {});
        PressOk(window);
        EXPECT_TRUE(IsOpen(window));
        EXPECT_EQ(Shown(), (Texts{"Please select a file", "Please select a section"}));
    }));
    EXPECT_TRUE(choice.path.empty());
}

TEST_F(ImportBoxTest, FileWithAnEmptyListIsAcceptedOnlyWithTheTagCancel) {
    const std::wstring path = folder.File(L"damaged.vel");
    test::WriteFileBytes(path, "damaged");
    const auto pressOk = [](HWND window) {
        Choose(window, L"damaged.vel");
        EXPECT_EQ(Items(window, LI_Sections), Texts{"No Section neither bulkead"});
        EXPECT_FALSE(IsEnabled(window, LI_Sections));
        EXPECT_EQ(SelectedCount(window), 0);
        PressOk(window);
    };
    EXPECT_FALSE(Ask(pressOk));
    EXPECT_EQ(Shown(), Texts{"Please select a section"});
    tag = L"Cancel";
    EXPECT_TRUE(Ask(pressOk));
    EXPECT_EQ(choice.path, path);
    EXPECT_TRUE(choice.items.empty());
}

TEST_F(ImportBoxTest, TagCancelStillNeedsAFile) {
    tag = L"Cancel";
    EXPECT_FALSE(Ask([](HWND window) {
        PressOk(window);
        EXPECT_TRUE(IsOpen(window));
        EXPECT_EQ(Shown(), Texts{Narrow(GetMessage(kMsgNoFileSelected))});
    }));
}

TEST_F(ImportBoxTest, DamagedFileClearsThePreviewOfTheOneBefore) {
    Legacy(L"ship.vel");
    test::WriteFileBytes(folder.File(L"damaged.ve2"), "damaged");
    Ask([](HWND window) {
        Choose(window, L"ship.vel");
        EXPECT_TRUE(ShowsPreview(window));
        Choose(window, L"damaged.ve2");
        EXPECT_TRUE(ShowsNoPreview(window));
        EXPECT_EQ(test::RecordedReports::Of("warning").size(), 1U) << "reported once";
    });
}

TEST_F(ImportBoxTest, FileDamagedAfterItWasListedClearsThePreviewAndIsReported) {
    const std::wstring path = Model(L"ship.ve2");
    Ask([&](HWND window) {
        for (const int row : {2, kCorrugated}) {
            Choose(window, L"ship.ve2");
            EXPECT_TRUE(ShowsPreview(window));
            test::WriteFileBytes(path, "damaged");
            test::RecordedReports::events.clear();
            SelectItems(window, {row});
            EXPECT_TRUE(ShowsNoPreview(window)) << row;
            const Texts warnings = test::RecordedReports::Of("warning");
            ASSERT_EQ(warnings.size(), 1U) << row;
            EXPECT_NE(warnings[0].find("ship.ve2"), std::string::npos) << warnings[0];
            Model(L"ship.ve2");
        }
    });
}

// One without plating, and one whose nodes are all at one place.
TEST_F(ImportBoxTest, SectionThatCannotBeDrawnLeavesNothingOfTheOneBefore) {
    std::wstring path = Model(L"ship.ve2");
    SectionModel bare;
    bare.name = L"Bare";
    bare.panels.resize(2);
    ASSERT_TRUE(ReplaceSection(path, bare, 2));
    Panel point;
    point.nodes = {test::GivenNode(3, 4), test::GivenNode(3, 4)};
    SectionModel onePoint;
    onePoint.name = L"One point";
    onePoint.panels.assign(2, point);
    ASSERT_TRUE(ReplaceSection(path, onePoint, 3));
    Ask([](HWND window) {
        Choose(window, L"ship.ve2");
        SelectItems(window, {1});
        EXPECT_EQ(test::TextOf(window, PIC_Section), Narrow(GetMessage(kMsgNoPlating)));
        EXPECT_FALSE(ShowsLines(window));
        SelectItems(window, {0});
        EXPECT_TRUE(ShowsLines(window));
        SelectItems(window, {2});
        EXPECT_FALSE(ShowsLines(window));
        ClickPicture(window, 0.5, 0.5);
        PressControlKeyIn(window, PIC_Section, VK_OEM_PLUS);
        SelectItems(window, {0});
        EXPECT_TRUE(ShowsLines(window));
        EXPECT_TRUE(test::RecordedReports::Of("warning").empty());
    });
}

TEST_F(ImportBoxTest, OtherFolderClearsListAndPreview) {
    Subfolder(L"inner");
    Legacy(L"ship.vel");
    Ask([](HWND window) {
        Choose(window, L"ship.vel");
        Select(window, DIR_Db, static_cast<int>(Count(window, DIR_Db)) - 1);
        EXPECT_TRUE(ShowsPreview(window));
        Notify(window, DIR_Db, LBN_DBLCLK);
        EXPECT_EQ(Count(window, LI_Sections), 0);
        EXPECT_TRUE(ShowsNoPreview(window));
    });
}

TEST_F(ImportBoxTest, DoubleClickOnAFileOrASectionAccepts) {
    const std::wstring path = Legacy(L"ship.vel");
    for (const int list : {int{FIL_Db}, int{LI_Sections}}) {
        choice = {};
        const test::WhenOpen open(kImportBoxClass, [&](HWND window) {
            Choose(window, L"ship.vel");
            if (list == LI_Sections) SelectItems(window, {4});
            Notify(window, list, LBN_DBLCLK);
        });
        EXPECT_TRUE(AskImport(choice));
        EXPECT_EQ(choice.path, path);
        ASSERT_EQ(choice.items.size(), 1U);
        EXPECT_EQ(choice.items[0].number, list == LI_Sections ? 5 : 1);
    }
}

TEST_F(ImportBoxTest, CancelLeavesTheChoice) {
    Legacy(L"ship.vel");
    EXPECT_FALSE(Ask([](HWND window) {
        Choose(window, L"ship.vel");
        SetOption(window, BT_Cancel);
    }));
    EXPECT_TRUE(choice.path.empty());
    EXPECT_TRUE(choice.items.empty());
}

TEST_F(ImportBoxTest, BrowseMovesTheListsToTheFileAndShowsIt) {
    const test::FakeFunction prompt(ZTUtilPromptForName, FakePrompt);
    Subfolder(L"inner");
    const std::wstring path = Legacy(L"inner\\deep.vel");
    Legacy(L"inner\\another.vel");
    promptAnswer = Narrow(path);
    EXPECT_TRUE(Ask([](HWND window) {
        SetOption(window, BT_Browse);
        EXPECT_EQ(Items(window, FIL_Db), (Texts{"another.vel", "deep.vel"}));
        EXPECT_EQ(Selected(window, FIL_Db), 1);
        EXPECT_EQ(Items(window, DIR_Db).back(), "inner");
        EXPECT_EQ(Count(window, LI_Sections), 9);
        EXPECT_TRUE(ShowsPreview(window));
        PressOk(window);
    }));
    EXPECT_EQ(choice.path, path);
    EXPECT_EQ(promptTypes, Narrow(GetMessage(kMsgAllDatabaseFiles) + GetMessage(kMsgLegacyFiles)));
    EXPECT_EQ(promptExtension, "ve2");
    EXPECT_EQ(promptCaption, "Import");
}

TEST_F(ImportBoxTest, TypesOfBrowseFollowThePatternOfTheList) {
    const std::wstring all = GetMessage(kMsgAllDatabaseFiles);
    EXPECT_EQ(BrowseTypes(L"*.vel;*.vew;*.ve2"), all + GetMessage(kMsgLegacyFiles));
    const std::wstring models = GetMessage(kMsgOldDatabaseFiles) + GetMessage(kMsgDatabaseFiles);
    EXPECT_EQ(BrowseTypes(L"*.vew;*.ve2"), all + models);
    EXPECT_EQ(BrowseTypes(L"*.ve2;*.vel"), all + models);
}

TEST_F(ImportBoxTest, CancelledBrowseChangesNothing) {
    const test::FakeFunction prompt(ZTUtilPromptForName, FakePrompt);
    Legacy(L"ship.vel");
    promptAnswer.clear();
    Ask([](HWND window) {
        Choose(window, L"ship.vel");
        SelectItems(window, {4});
        SetOption(window, BT_Browse);
        EXPECT_EQ(Selected(window, FIL_Db), 0);
        EXPECT_EQ(Count(window, LI_Sections), 9);
        EXPECT_GT(SendDlgItemMessageW(window, LI_Sections, LB_GETSEL, 4, 0), 0);
    });
}

TEST_F(ImportBoxTest, BrowsedFileOfAnotherExtensionIsListedToo) {
    const test::FakeFunction prompt(ZTUtilPromptForName, FakePrompt);
    promptAnswer = Narrow(Model(L"ship.old"));
    Ask([](HWND window) {
        SetOption(window, BT_Browse);
        EXPECT_EQ(Items(window, FIL_Db), Texts{"ship.old"});
        EXPECT_EQ(Count(window, LI_Sections), 14);
    });
}

// ---- Layout and keys ---------------------------------------------------------------------------

TEST_F(ImportBoxTest, TabOrderIsAsItIsRead) {
    Legacy(L"ship.vel");
    Ask([](HWND window) {
        EXPECT_EQ(TabOrder(window, DRV_Db),
                  (std::vector<int>{DRV_Db, DIR_Db, FIL_Db, LI_Sections, OP_Preview, PIC_Section,
                                    BT_Browse, BT_Ok, BT_Cancel}));
        Choose(window, L"ship.vel");
        ClickPicture(window, 0.5, 0.5);
        EXPECT_EQ(TabOrder(window, DRV_Db),
                  (std::vector<int>{DRV_Db, DIR_Db, FIL_Db, LI_Sections, OP_Preview, PIC_Section,
                                    TX_Facts, BT_Browse, BT_Ok, BT_Cancel}));
        EXPECT_EQ(LabelBefore(window, LI_Sections), "Model&s:");
        EXPECT_EQ(LabelBefore(window, FIL_Db), "&Files:");
    });
}

TEST_F(ImportBoxTest, EnterAndEscAcceptAndCancel) {
    const std::wstring path = Legacy(L"ship.vel");
    EXPECT_TRUE(Ask([](HWND window) {
        Choose(window, L"ship.vel");
        PressKeyIn(window, FIL_Db, VK_RETURN);
    }));
    EXPECT_EQ(choice.path, path);
    EXPECT_FALSE(Ask([](HWND window) {
        Choose(window, L"ship.vel");
        PressKeyIn(window, LI_Sections, VK_ESCAPE);
    }));
}

TEST_F(ImportBoxTest, EveryResolutionScalesItWhole) {
    Legacy(L"ship.vel");
    Ask([](HWND window) {
        Choose(window, L"ship.vel");
        for (const WORD dpi : test::kResolutions) {
            test::ExpectWholeAt(window, dpi);
            EXPECT_TRUE(ShowsPreview(window));
            const RECT picture = test::PlaceIn(window, PIC_Section);
            EXPECT_GT(picture.bottom - picture.top, 180 * dpi / 96);
            EXPECT_LE(picture.bottom, test::PlaceIn(window, LB_Service).top);
            EXPECT_LE(test::PlaceIn(window, LB_Notes).bottom, test::PlaceIn(window, BT_Ok).top);
        }
        ExpectTableBesidePicture(window);
        ExpectFitsASmallScreen(window);
    });
}

}  // namespace
}  // namespace corvane
