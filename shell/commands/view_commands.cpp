#include "shell/commands/view_commands.h"

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
    SortList({shell.list.order.column, !shell.list.order.isDescending});
}

bool IsDescending() {
    return shell.list.order.isDescending;
}

void ME_ViewRefresh_Click() {
    RefreshAtOnce();
}

}  // namespace corvane
