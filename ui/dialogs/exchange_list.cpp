#include "ui/dialogs/exchange_list.h"

#include "files/file_system.h"
#include "report/messages.h"
#include "shell/state.h"
#include "ui/dialogs/list_controls.h"

namespace corvane {
namespace {

bool IsSelected(HWND list, size_t index) {
    return SendMessageW(list, LB_GETSEL, index, 0) > 0;
}

void ShowNothing(HWND list, const wchar_t* why) {
    FillList(list, {why});
    EnableWindow(list, FALSE);
}

}  // namespace

std::vector<ExchangeItem> FillExchangeList(HWND list, const std::wstring& path) {
    FillList(list, {});
    if (!FileExists(path)) {
        ShowNothing(list, L"No DB Corvane");
        return {};
    }
    std::vector<ExchangeItem> items = ListForExchange(path);
    std::vector<std::wstring> texts;
    texts.reserve(items.size());
    for (const ExchangeItem& item : items) texts.push_back(item.text);
    EnableWindow(list, TRUE);
    FillList(list, texts);
    if (items.empty()) ShowNothing(list, L"No Section neither bulkead");
    FitScrolling(list);
    return items;
}

std::vector<ExchangeItem> SelectedItems(HWND list, const std::vector<ExchangeItem>& items) {
    std::vector<ExchangeItem> selected;
    for (size_t i = 0; i < items.size(); ++i) {
        if (IsSelected(list, i)) selected.push_back(items[i]);
    }
    return selected;
}

void AskForSection() {
    reportView.showPlainBox(L"Please select a section");
}

void AskForChosenFile() {
    reportView.showPlainBox(GetMessage(kMsgNoFileSelected));
}

}  // namespace corvane
