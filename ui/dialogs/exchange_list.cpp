#include "ui/dialogs/exchange_list.h"

#include <utility>

#include "ui/dialogs/list_controls.h"

namespace corvane {
namespace {

bool IsSelected(HWND list, size_t index) {
    return SendMessageW(list, LB_GETSEL, index, 0) > 0;
}

}  // namespace

std::vector<ExchangeItem> FillExchangeList(HWND list, const std::wstring& path) {
    FillList(list, {});
    ExchangeList contents = ListOfFile(path);
    std::vector<std::wstring> texts;
    texts.reserve(contents.items.size());
    for (const ExchangeItem& item : contents.items) texts.push_back(item.text);
    if (contents.hint != nullptr) texts = {contents.hint};
    EnableWindow(list, contents.hint == nullptr);
    FillList(list, texts);
    FitScrolling(list);
    return std::move(contents.items);
}

std::vector<ExchangeItem> SelectedItems(HWND list, const std::vector<ExchangeItem>& items) {
    std::vector<ExchangeItem> selected;
    for (size_t i = 0; i < items.size(); ++i) {
        if (IsSelected(list, i)) selected.push_back(items[i]);
    }
    return selected;
}

}  // namespace corvane
