#include "shell/status_parts.h"

#include "platform/system.h"
#include "report/messages.h"
#include "shell/rule_set.h"
#include "shell/shown_list.h"
#include "shell/state.h"

namespace corvane {
namespace {

// The time of a file that was written today, the date of any other.
std::wstring SavedText(const system::LocalTime& saved, const system::LocalTime& now) {
    const bool isToday = saved.year == now.year && saved.month == now.month && saved.day == now.day;
    return FormatMessage(kMsgFileSaved,
                         {isToday ? system::LongTimeText(saved) : system::ShortDateText(saved)});
}

std::wstring FileText() {
    const OpenDatabase& database = shell.database;
    if (!database.whyGone.empty()) return GetMessage(kMsgFileOutOfSight);
    if (database.isReadOnly) return GetMessage(kMsgFileReadOnly);
    return SavedText(system::LocalTimeOf(database.stamp.modified), system::Now());
}

}  // namespace

StatusParts CurrentStatusParts() {
    StatusParts parts;
    if (IsDatabaseOpen()) parts = {ModelCountText(), FileText(), {}};
    parts.ruleSet = RuleSetName(CurrentRuleSet());
    return parts;
}

void ShowCaptionAndParts() {
    shell.view.setMainCaption(MainWindowCaption());
    shell.view.showStatusParts(CurrentStatusParts());
}

}  // namespace corvane
