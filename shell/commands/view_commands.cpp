#include "shell/commands/view_commands.h"

#include <optional>

#include "shell/state.h"

namespace corvane {

void SortList(const ListOrder& order) {
    SetListOrder(order);
    ShowLinesAgain();
}

void SortByColumn(ListColumn column) {
    SortList({column, shell.list.order.isDescending});
}

bool IsSortedBy(ListColumn column) {
    return shell.list.order.column == column;
}

void SortByNeighbour(bool isNext) {
    // The order of the file is before the first column, and after the last one.
    constexpr int kOrders = static_cast<int>(kColumnCount) + 1;
    const ListOrder& order = shell.list.order;
    const int now = order.column ? static_cast<int>(*order.column) + 1 : 0;
    const int then = (now + (isNext ? 1 : kOrders - 1)) % kOrders;
    if (then == 0) return SortList({std::nullopt, order.isDescending});
    SortByColumn(static_cast<ListColumn>(then - 1));
}

void SortDescending(bool isDescending) {
    SortList({shell.list.order.column, isDescending});
}

void ME_ViewFileOrder_Click() {
    SortList({});
}

bool IsInFileOrder() {
    return !shell.list.order.column;
}

void FilterList(const std::wstring& text) {
    if (text == shell.list.filter) return;
    SetListFilter(text);
    ShowLinesAgain();
}

void ME_EditFind_Click() {
    shell.view.focusFilter();
}

void ME_EditSelectAll_Click() {
    shell.view.selectAllLines();
    ShowSelection();
}

void ME_ViewDescending_Click() {
    SortDescending(!shell.list.order.isDescending);
}

bool IsDescending() {
    return shell.list.order.isDescending;
}

void ME_ViewRefresh_Click() {
    RefreshAtOnce();
}

void ShowLargerPreview(bool isLarge) {
    if (shell.preview.isLarge == isLarge) return;
    shell.preview.isLarge = isLarge;
    shell.view.showLargerPreview(isLarge);
    shell.view.updateEnabling();
}

void ME_ViewLarger_Click() {
    ShowLargerPreview(!shell.preview.isLarge);
}

bool IsPreviewLarger() {
    return shell.preview.isLarge;
}

void TurnPictureOption(bool PictureOptions::* option) {
    shell.preview.options.*option = !(shell.preview.options.*option);
    shell.view.annotatePreview();
    shell.view.updateEnabling();
}

}  // namespace corvane
