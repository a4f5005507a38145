// The page preview: which page of a document it shows, on which paper, at which scale, and what it
// says of it. The window shows it and passes on what the user does.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "shell/printing.h"

namespace corvane {

// The paper without a printer: A4.
Paper UsualPaper(bool isPortrait);

struct PagePreview {
    const PrintJob& job;
    // The paper that would be printed on, upright or not.
    std::function<Paper(bool isPortrait)> paperFor = UsualPaper;
    int page = 1;
    Paper paper{};
    Page shown{};  // that page on that paper, as shell.pages says
};

// Asks for the paper, at the beginning and when it may be another one, and lays the page out on it.
void TakePaper(PagePreview& preview);

// What the user does; the page is laid out again where it changes.
void ShowPage(PagePreview& preview, int page);  // the nearest one that there is
void ChooseScale(PagePreview& preview, size_t choice);
void ChoosePortrait(PagePreview& preview, bool isPortrait);
void SwitchTable(PagePreview& preview, bool isOn);

// The choices of scale: to fit, then kPageScales. Which one it is now.
std::vector<std::wstring> ScaleChoices();
size_t ScaleChoiceNow();

bool HasPageBefore(const PagePreview& preview);
bool HasPageAfter(const PagePreview& preview);
// "Page 2 of 9".
std::wstring PageText(const PagePreview& preview);
// The scale that the page has.
std::wstring PageScaleText(const PagePreview& preview);
// That the model is larger than the page; empty while it is not.
std::wstring PageRemark(const PagePreview& preview);

}  // namespace corvane
