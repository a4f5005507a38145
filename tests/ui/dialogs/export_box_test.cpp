// FM_Export as Windows shows it, with its lists of drives, folders and files.
#include "ui/dialogs/export_box.h"

#include <string>
#include <vector>

#include "files/paths.h"
#include "report/messages.h"
#include "tests/ui/dialogs/export_box_fixture.h"

namespace corvane {
namespace {

using test::Narrow;
using Texts = std::vector<std::string>;

constexpr int kReplace = OP_CreateNew;
constexpr int kCreateNew = OP_CreateNew + 1;

struct ExportBoxTest : test::ExportBoxFixture {};

TEST_F(ExportBoxTest, ShowsCaptionsAndDefaults) {
    choice.name = L"Frame 10";
    Ask([](HWND window) {
        EXPECT_EQ(Narrow(WindowText(window)), "Export to Velk Dos");
        EXPECT_EQ(test::TextOf(window, Panel3D2), "Location");
        EXPECT_EQ(test::TextOf(window, kCreateNew), "Create a new section in database");
        EXPECT_EQ(test::TextOf(window, kReplace), "Replace an existing section :");
        EXPECT_EQ(test::TextOf(window, BT_Cancel), "&Cancel");
        EXPECT_EQ(test::TextOf(window, TX_Name), "Frame 10");
        EXPECT_EQ(IsDlgButtonChecked(window, kCreateNew), BST_CHECKED);
        EXPECT_EQ(IsDlgButtonChecked(window, kReplace), BST_UNCHECKED);
        EXPECT_TRUE(IsEnabled(window, TX_Name));
        EXPECT_FALSE(IsEnabled(window, LI_Sections));
        EXPECT_EQ(GetFocus(), GetDlgItem(window, FIL_Db));
    });
}

TEST_F(ExportBoxTest, SeveralSectionsBecomeNewOnesWithTheirOwnNames) {
    choice.sections = 3;
    Legacy(L"b.vel");
    ASSERT_TRUE(Ask([&](HWND window) {
        EXPECT_EQ(test::TextOf(window, TX_Name), "3 sections, each with its own name");
        EXPECT_FALSE(IsEnabled(window, TX_Name));
        EXPECT_FALSE(IsEnabled(window, kReplace));
        Select(window, FIL_Db, 0);
        EXPECT_FALSE(IsEnabled(window, kReplace));
        PressOk(window);
    }));
    EXPECT_TRUE(choice.createNew);
    EXPECT_EQ(choice.sections, 3);
}

TEST_F(ExportBoxTest, ListsTheLegacyDatabasesOfTheLastFolder) {
    for (const wchar_t* name :
         {L"b.vel", L"A.VEL", L"c.ve2", L"d.velo", L"\u00E9t\u00E9.vel", L"\u03A9.vel"}) {
        Legacy(name);
    }
    Subfolder(L"folder.vel");
    Ask([&](HWND window) {
        EXPECT_EQ(Items(window, FIL_Db),
                  (Texts{"A.VEL", "b.vel", "\u00E9t\u00E9.vel", "\u03A9.vel"}));
        EXPECT_EQ(Selected(window, FIL_Db), LB_ERR);
    });
}

TEST_F(ExportBoxTest, HiddenFilesAreNotListed) {
    SetFileAttributesW(Legacy(L"a.vel").c_str(), FILE_ATTRIBUTE_HIDDEN);
    Legacy(L"b.vel");
    Ask([&](HWND window) { EXPECT_EQ(Items(window, FIL_Db), Texts{"b.vel"}); });
}

TEST_F(ExportBoxTest, CreatingANewSectionNeedsNoneSelected) {
    const std::wstring path = Legacy(L"ship.vel");
    choice.name = L"Frame 10";
    EXPECT_TRUE(Ask([](HWND window) {
        Choose(window, L"ship.vel");
        EXPECT_EQ(Count(window, LI_Sections), 9);
        EXPECT_FALSE(IsEnabled(window, LI_Sections));
        SetWindowTextW(GetDlgItem(window, TX_Name), L"Frame 11");
        PressOk(window);
    }));
    EXPECT_EQ(choice.path, path);
    EXPECT_TRUE(choice.createNew);
    EXPECT_EQ(choice.name, L"Frame 11");
    EXPECT_TRUE(Shown().empty());
}

TEST_F(ExportBoxTest, ReplacingGivesTheSlotOfTheSelectedSection) {
    const std::wstring path = Legacy(L"ship.vel");
    EXPECT_TRUE(Ask([](HWND window) {
        Choose(window, L"ship.vel");
        SetOption(window, kReplace);
        Select(window, LI_Sections, 4);
        PressOk(window);
    }));
    EXPECT_EQ(choice.path, path);
    EXPECT_FALSE(choice.createNew);
    EXPECT_EQ(choice.slot, 5);
}

TEST_F(ExportBoxTest, ReplacingWithoutASectionAsksForOneAndStays) {
    Legacy(L"ship.vel");
    EXPECT_FALSE(Ask([](HWND window) {
        Choose(window, L"ship.vel");
        SetOption(window, kReplace);
        PressOk(window);
        EXPECT_EQ(Shown(), Texts{"Please select a section"});
        EXPECT_TRUE(IsOpen(window));
    }));
    EXPECT_TRUE(choice.path.empty());
}

TEST_F(ExportBoxTest, OkWithoutAFileAsksForOneAndStays) {
    EXPECT_FALSE(Ask([](HWND window) {
        PressOk(window);
        EXPECT_EQ(Shown(), Texts{Narrow(GetMessage(kMsgNoFileSelected))});
        EXPECT_TRUE(IsOpen(window));
    }));
    EXPECT_TRUE(choice.path.empty());
}

TEST_F(ExportBoxTest, OptionsEnableTheNameOrTheSections) {
    Legacy(L"ship.vel");
    Ask([](HWND window) {
        for (const bool listed : {false, true}) {
            if (listed) Choose(window, L"ship.vel");
            SetOption(window, kReplace);
            EXPECT_TRUE(IsEnabled(window, LI_Sections));
            EXPECT_FALSE(IsEnabled(window, TX_Name));
            SetOption(window, kCreateNew);
            EXPECT_FALSE(IsEnabled(window, LI_Sections));
            EXPECT_TRUE(IsEnabled(window, TX_Name));
        }
        SetOption(window, kReplace);
        Choose(window, L"ship.vel");
        EXPECT_TRUE(IsEnabled(window, LI_Sections)) << "a file click keeps the option's enabling";
    });
}

TEST_F(ExportBoxTest, CancelAndEscLeaveTheChoice) {
    Legacy(L"ship.vel");
    choice.name = L"Frame 10";
    EXPECT_FALSE(Ask([](HWND window) {
        Choose(window, L"ship.vel");
        SetWindowTextW(GetDlgItem(window, TX_Name), L"typed");
        SetOption(window, BT_Cancel);
    }));
    EXPECT_FALSE(Ask([](HWND window) {
        Choose(window, L"ship.vel");
        PressKeyIn(window, FIL_Db, VK_ESCAPE);
    }));
    EXPECT_TRUE(choice.path.empty());
    EXPECT_EQ(choice.name, L"Frame 10");
}

TEST_F(ExportBoxTest, FileWithoutSectionsSaysSoAndNothingCanBeReplacedInIt) {
    test::WriteFileBytes(folder.File(L"damaged.vel"), "damaged");
    EXPECT_FALSE(Ask([](HWND window) {
        Choose(window, L"damaged.vel");
        EXPECT_EQ(Items(window, LI_Sections), Texts{"No Section neither bulkead"});
        SetOption(window, kReplace);
        Select(window, LI_Sections, 0);
        PressOk(window);
        EXPECT_EQ(Shown(), Texts{"Please select a section"});
    }));
}

TEST_F(ExportBoxTest, FileThatHasGoneSaysSo) {
    const std::wstring path = Legacy(L"ship.vel");
    Ask([&](HWND window) {
        DeleteFileW(path.c_str());
        Choose(window, L"ship.vel");
        EXPECT_EQ(Items(window, LI_Sections), Texts{"No DB Corvane"});
    });
}

TEST_F(ExportBoxTest, NameHoldsFortyCharacters) {
    choice.name = std::wstring(50, L'x');
    Legacy(L"ship.vel");
    EXPECT_TRUE(Ask([](HWND window) {
        const HWND name = GetDlgItem(window, TX_Name);
        EXPECT_EQ(WindowText(name).size(), 50U) << "what is proposed stays whole";
        SetWindowTextW(name, L"");
        for (int i = 0; i < 45; ++i) SendMessageW(name, WM_CHAR, L'y', 0);
        Choose(window, L"ship.vel");
        PressOk(window);
    }));
    EXPECT_EQ(choice.name, std::wstring(40, L'y'));
}

// ---- Preview -----------------------------------------------------------------------------------

constexpr char kExported[] = "To be exported: Midship section, hold 4";

TEST_F(ExportBoxTest, PreviewShowsTheSectionToBeExportedAtOnce) {
    Ask([](HWND window) {
        EXPECT_EQ(test::TextOf(window, OP_Preview), "&Preview");
        EXPECT_EQ(IsDlgButtonChecked(window, OP_Preview), BST_CHECKED);
        EXPECT_TRUE(ShowsLines(window));
        EXPECT_EQ(test::TextOf(window, LB_Service), kExported);
    });
    choice.sections = 3;
    Ask([](HWND window) {
        EXPECT_EQ(test::TextOf(window, LB_Service),
                  "The first of 3 to be exported: Midship section, hold 4");
    });
}

TEST_F(ExportBoxTest, PreviewShowsTheSectionToBeReplacedOnceThereIsOne) {
    Legacy(L"ship.vel");
    Ask([](HWND window) {
        const std::vector<COLORREF> exported = Pixels(window);
        Choose(window, L"ship.vel");
        EXPECT_EQ(test::TextOf(window, LB_Service), kExported) << "it becomes a new one";
        SetOption(window, kReplace);
        EXPECT_EQ(test::TextOf(window, LB_Service), kExported) << "none is selected";
        Select(window, LI_Sections, 8);
        EXPECT_EQ(test::TextOf(window, LB_Service), "To be replaced: Fore peak, frame 270");
        EXPECT_TRUE(ShowsLines(window));
        EXPECT_NE(Pixels(window), exported);
        SetOption(window, kCreateNew);
        EXPECT_EQ(test::TextOf(window, LB_Service), kExported);
        EXPECT_EQ(Pixels(window), exported);
        SetOption(window, kReplace);
        EXPECT_EQ(test::TextOf(window, LB_Service), "To be replaced: Fore peak, frame 270");
        Choose(window, L"ship.vel");
        EXPECT_EQ(test::TextOf(window, LB_Service), kExported) << "nothing is selected now";
        EXPECT_EQ(Pixels(window), exported);
    });
}

TEST_F(ExportBoxTest, PreviewIsTurnedOffAndOn) {
    Legacy(L"ship.vel");
    Ask([](HWND window) {
        SetOption(window, OP_Preview);
        EXPECT_TRUE(ShowsNoPreview(window));
        Choose(window, L"ship.vel");
        SetOption(window, kReplace);
        Select(window, LI_Sections, 2);
        EXPECT_TRUE(ShowsNoPreview(window));
        SetOption(window, OP_Preview);
        EXPECT_TRUE(ShowsLines(window));
        EXPECT_EQ(test::TextOf(window, LB_Service), "To be replaced: Hold 6, frame 91");
    });
}

TEST_F(ExportBoxTest, PreviewOfTheMainWindowIsNotTouched) {
    Legacy(L"ship.vel");
    shell.preview.section.x_m = 77;
    Ask([](HWND window) {
        Choose(window, L"ship.vel");
        SetOption(window, kReplace);
        Select(window, LI_Sections, 2);
    });
    EXPECT_EQ(shell.preview.section.x_m, 77);
    EXPECT_FALSE(HasPicture(shell.preview));
}

TEST_F(ExportBoxTest, FileDamagedAfterItWasListedClearsThePreviewAndIsReported) {
    const std::wstring path = Legacy(L"ship.vel");
    Ask([&](HWND window) {
        Choose(window, L"ship.vel");
        SetOption(window, kReplace);
        Select(window, LI_Sections, 2);
        EXPECT_TRUE(ShowsPreview(window));
        test::WriteFileBytes(path, "damaged");
        test::RecordedReports::events.clear();
        Select(window, LI_Sections, 3);
        EXPECT_TRUE(ShowsNoPreview(window));
        EXPECT_EQ(test::RecordedReports::Of("warning").size(), 1U);
    });
}

TEST_F(ExportBoxTest, SectionWithoutShipDataSaysWhyItIsNotDrawn) {
    shell.database.bsd.MainData(9) = 0;
    Ask([](HWND window) {
        EXPECT_EQ(test::TextOf(window, PIC_Section), Narrow(GetMessage(kMsgNoShipData)));
        EXPECT_FALSE(ShowsLines(window));
        EXPECT_EQ(test::TextOf(window, LB_Service), kExported);
    });
}

TEST_F(ExportBoxTest, KeysZoomAndMarkWithoutTakingLettersFromTheName) {
    Ask([](HWND window) {
        const std::vector<COLORREF> fitted = Pixels(window);
        PressControlKeyIn(window, TX_Name, VK_OEM_PLUS);
        EXPECT_NE(Pixels(window), fitted);
        PressControlKeyIn(window, TX_Name, '0');
        EXPECT_EQ(Pixels(window), fitted);
        SetWindowTextW(GetDlgItem(window, TX_Name), L"");
        PressKeyIn(window, TX_Name, 'B');
        EXPECT_EQ(test::TextOf(window, TX_Name), "b");
        PressKeyIn(window, PIC_Section, VK_SPACE);
        EXPECT_TRUE(test::IsShown(window, TX_Facts));
        EXPECT_TRUE(test::TextOf(window, TX_Facts).starts_with("y\t"));
    });
}

// ---- Drives, folders and files -----------------------------------------------------------------

TEST_F(ExportBoxTest, FolderListShowsTheWayDownAndTheSubfolders) {
    Subfolder(L"beta");
    Subfolder(L"Alpha");
    SetFileAttributesW(Subfolder(L"hidden").c_str(), FILE_ATTRIBUTE_HIDDEN);
    Ask([&](HWND window) {
        const Texts items = Items(window, DIR_Db);
        const auto current = static_cast<size_t>(Selected(window, DIR_Db));
        EXPECT_EQ(items.at(0), Narrow(folder.path.substr(0, 3)));
        EXPECT_EQ(items.at(current), Narrow(FileNameOf(StripTrailingBackslash(folder.path))));
        EXPECT_EQ(Texts(items.begin() + static_cast<ptrdiff_t>(current) + 1, items.end()),
                  (Texts{"Alpha", "beta"}));
    });
}

TEST_F(ExportBoxTest, DoubleClickAndEnterOpenAFolder) {
    const std::wstring inner = Subfolder(L"inner");
    Legacy(L"inner\\deep.vel");
    Legacy(L"ship.vel");
    for (const bool byKey : {false, true}) {
        EXPECT_TRUE(Ask([&](HWND window) {
            Choose(window, L"ship.vel");
            const int index = static_cast<int>(Count(window, DIR_Db)) - 1;
            Select(window, DIR_Db, index);
            EXPECT_EQ(Items(window, FIL_Db), Texts{"ship.vel"}) << "a click only selects";
            if (byKey) {
                PressKeyIn(window, DIR_Db, VK_RETURN);
            } else {
                Notify(window, DIR_Db, LBN_DBLCLK);
            }
            EXPECT_TRUE(IsOpen(window));
            EXPECT_EQ(Items(window, FIL_Db), Texts{"deep.vel"});
            EXPECT_EQ(Selected(window, DIR_Db), index);
            EXPECT_EQ(Count(window, LI_Sections), 0) << "no file is chosen now";
            Choose(window, L"deep.vel");
            PressOk(window);
        }));
        EXPECT_EQ(choice.path, inner + L"deep.vel");
    }
}

TEST_F(ExportBoxTest, EnterOnTheOpenFolderStays) {
    EXPECT_FALSE(Ask([](HWND window) {
        PressKeyIn(window, DIR_Db, VK_RETURN);
        EXPECT_TRUE(IsOpen(window));
        EXPECT_TRUE(Shown().empty());
    }));
}

TEST_F(ExportBoxTest, RootOfTheDriveIsOpenedFromItsItem) {
    Ask([&](HWND window) {
        Select(window, DIR_Db, 0);
        Notify(window, DIR_Db, LBN_DBLCLK);
        EXPECT_EQ(Selected(window, DIR_Db), 0);
        EXPECT_EQ(Items(window, DIR_Db).at(0), Narrow(folder.path.substr(0, 3)));
    });
}

TEST_F(ExportBoxTest, FolderThatHasGoneLeavesTheOldOne) {
    Legacy(L"ship.vel");
    const std::wstring inner = Subfolder(L"inner");
    Ask([&](HWND window) {
        Choose(window, L"ship.vel");
        RemoveDirectoryW(inner.c_str());
        Select(window, DIR_Db, static_cast<int>(Count(window, DIR_Db)) - 1);
        Notify(window, DIR_Db, LBN_DBLCLK);
        EXPECT_EQ(Items(window, FIL_Db), Texts{"ship.vel"});
        EXPECT_EQ(Selected(window, FIL_Db), 0);
        EXPECT_EQ(Count(window, LI_Sections), 9);
        EXPECT_TRUE(Shown().empty());
    });
}

std::string SelectedDrive(HWND window) {
    const HWND drives = GetDlgItem(window, DRV_Db);
    wchar_t text[20] = L"";
    SendMessageW(drives, CB_GETLBTEXT,
                 static_cast<WPARAM>(SendMessageW(drives, CB_GETCURSEL, 0, 0)),
                 reinterpret_cast<LPARAM>(text));
    return Narrow(text);
}

void SelectDrive(HWND window, const wchar_t* drive) {
    const HWND drives = GetDlgItem(window, DRV_Db);
    const LRESULT index = SendMessageW(drives, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                       reinterpret_cast<LPARAM>(drive));
    ASSERT_GE(index, 0) << "no drive " << Narrow(drive);
    SendMessageW(drives, CB_SETCURSEL, static_cast<WPARAM>(index), 0);
    SendMessageW(window, WM_COMMAND, MAKEWPARAM(DRV_Db, CBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(drives));
}

// Drive Q:, over a folder that is gone by the time that it is looked at.
struct ExtraDrive {
    std::wstring target;
    bool isThere;
    explicit ExtraDrive(const std::wstring& folder)
        : target(StripTrailingBackslash(folder)),
          isThere(DefineDosDeviceW(0, L"Q:", target.c_str()) != FALSE) {}
    ~ExtraDrive() { DefineDosDeviceW(DDD_REMOVE_DEFINITION, L"Q:", nullptr); }
    ExtraDrive(const ExtraDrive&) = delete;
    ExtraDrive& operator=(const ExtraDrive&) = delete;
};

// A drive that can be read and is not the path's own: "Z:".
std::wstring OtherDrive(const std::wstring& path) {
    for (wchar_t letter = L'C'; letter <= L'Z'; ++letter) {
        const std::wstring drive{letter, L':'};
        const bool isReady = GetFileAttributesW((drive + L"\\").c_str()) != INVALID_FILE_ATTRIBUTES;
        if (isReady && !path.starts_with(drive)) return drive;
    }
    return {};
}

TEST_F(ExportBoxTest, OtherDriveShowsItsRoot) {
    Legacy(L"ship.vel");
    const std::wstring other = OtherDrive(folder.path);
    ASSERT_FALSE(other.empty());
    Ask([&](HWND window) {
        Choose(window, L"ship.vel");
        SelectDrive(window, other.c_str());
        EXPECT_EQ(SelectedDrive(window), Narrow(other));
        EXPECT_EQ(Items(window, DIR_Db).at(0), Narrow(other) + "\\");
        EXPECT_EQ(Selected(window, DIR_Db), 0);
        EXPECT_EQ(Selected(window, FIL_Db), LB_ERR);
        EXPECT_EQ(Count(window, LI_Sections), 0);
    });
}

TEST_F(ExportBoxTest, DriveThatIsNotReadyIsIgnoredAndTheOldFolderStays) {
    Legacy(L"ship.vel");
    const std::wstring target = Subfolder(L"drive");
    const ExtraDrive drive(target);
    ASSERT_TRUE(drive.isThere);
    RemoveDirectoryW(target.c_str());
    Ask([&](HWND window) {
        Choose(window, L"ship.vel");
        const std::string before = SelectedDrive(window);
        SelectDrive(window, L"Q:");
        EXPECT_EQ(SelectedDrive(window), before);
        EXPECT_EQ(Items(window, FIL_Db), Texts{"ship.vel"});
        EXPECT_EQ(Count(window, LI_Sections), 9);
        EXPECT_TRUE(Shown().empty());
    });
}

TEST_F(ExportBoxTest, LastFolderThatHasGoneGivesTheCurrentOne) {
    shell.settings.BrowseDirectory = folder.File(L"gone\\");
    SetCurrentDirectoryW(folder.path.c_str());
    Legacy(L"ship.vel");
    Ask([](HWND window) { EXPECT_EQ(Items(window, FIL_Db), Texts{"ship.vel"}); });
}

TEST_F(ExportBoxTest, FiveThousandFilesAreListedQuickly) {
    for (int i = 0; i < 5000; ++i) {
        const std::wstring name = folder.File(L"ship " + std::to_wstring(i) + L".vel");
        CloseHandle(CreateFileW(name.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr));
    }
    const std::wstring inner = Subfolder(L"inner");
    Ask([&](HWND window) {
        EXPECT_EQ(Count(window, FIL_Db), 5000);
        Select(window, DIR_Db, static_cast<int>(Count(window, DIR_Db)) - 1);
        Notify(window, DIR_Db, LBN_DBLCLK);
        EXPECT_EQ(Count(window, FIL_Db), 0);
        Select(window, DIR_Db, static_cast<int>(Count(window, DIR_Db)) - 2);
        const ULONGLONG before = GetTickCount64();
        Notify(window, DIR_Db, LBN_DBLCLK);
        const ULONGLONG taken = GetTickCount64() - before;
        RecordProperty("milliseconds", static_cast<int>(taken));
        EXPECT_EQ(Count(window, FIL_Db), 5000);
        EXPECT_LT(taken, 2000U);
    });
}

// ---- Layout and keys ---------------------------------------------------------------------------

TEST_F(ExportBoxTest, TabOrderIsAsItIsRead) {
    Ask([](HWND window) {
        EXPECT_EQ(TabOrder(window, DRV_Db),
                  (std::vector<int>{DRV_Db, DIR_Db, FIL_Db, kCreateNew, TX_Name, OP_Preview,
                                    PIC_Section, BT_Browse, BT_NewLegacy, BT_Ok, BT_Cancel}));
        SetOption(window, kReplace);
        ClickPicture(window, 0.5, 0.5);
        EXPECT_EQ(
            TabOrder(window, DRV_Db),
            (std::vector<int>{DRV_Db, DIR_Db, FIL_Db, kReplace, LI_Sections, OP_Preview,
                              PIC_Section, TX_Facts, BT_Browse, BT_NewLegacy, BT_Ok, BT_Cancel}));
    });
}

TEST_F(ExportBoxTest, EveryListAndFieldHasALabelWithALetter) {
    Ask([](HWND window) {
        EXPECT_EQ(LabelBefore(window, DRV_Db), "D&rive:");
        EXPECT_EQ(LabelBefore(window, DIR_Db), "F&olders:");
        EXPECT_EQ(LabelBefore(window, FIL_Db), "&Files:");
        EXPECT_EQ(LabelBefore(window, TX_Name), "&Name:");
        EXPECT_EQ(LabelBefore(window, LI_Sections), "&Sections:");
    });
}

TEST_F(ExportBoxTest, EveryResolutionScalesItWhole) {
    Ask([](HWND window) {
        test::ScaleTo(window, 96);
        const RECT before = test::PlaceIn(window, FIL_Db);
        for (const WORD dpi : test::kResolutions) {
            test::ExpectWholeAt(window, dpi);
            const RECT files = test::PlaceIn(window, FIL_Db);
            EXPECT_NEAR(files.right - files.left, (before.right - before.left) * dpi / 96, 2);
            const RECT frame = test::PlaceIn(window, Panel3D2);
            EXPECT_LT(files.bottom, frame.bottom);
            EXPECT_LT(test::PlaceIn(window, DIR_Db).bottom,
                      test::PlaceIn(window, LB_Files).top + 1);
            EXPECT_GT(files.bottom - files.top, 6 * test::TextSizeOf(window, LB_Files).cy);
            const RECT picture = test::PlaceIn(window, PIC_Section);
            EXPECT_LT(test::PlaceIn(window, LI_Sections).bottom, picture.top);
            EXPECT_GT(picture.bottom - picture.top, 150 * dpi / 96);
            EXPECT_LE(test::PlaceIn(window, LB_Service).bottom,
                      test::PlaceIn(window, LB_Notes).top);
            EXPECT_LE(test::PlaceIn(window, LB_Notes).bottom, test::PlaceIn(window, BT_Ok).top);
            EXPECT_LT(test::PlaceIn(window, BT_Browse).right,
                      test::PlaceIn(window, BT_NewLegacy).left);
            EXPECT_LT(test::PlaceIn(window, BT_NewLegacy).right, test::PlaceIn(window, BT_Ok).left);
            EXPECT_TRUE(ShowsPreview(window));
        }
        ExpectTableBesidePicture(window);
        ExpectFitsASmallScreen(window);
    });
}

}  // namespace
}  // namespace corvane
