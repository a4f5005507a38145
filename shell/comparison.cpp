#include "shell/comparison.h"

#include "bsd/bsd_file.h"
#include "database/ship_differences.h"
#include "files/file_system.h"
#include "files/paths.h"
#include "report/reporters.h"
#include "text/text.h"

namespace corvane {
namespace {

bool GetStamps(const Comparison& comparison, system::FileStamp& before, system::FileStamp& now) {
    return system::GetFileStamp(comparison.before, before) == system::kErrorNone &&
           system::GetFileStamp(comparison.now, now) == system::kErrorNone;
}

void CompareShips(Comparison& comparison) {
    BasicShipData before;
    BasicShipData now;
    LoadBsdFromDatabase(comparison.before, before, NoBlock::kIsNoFault);
    LoadBsdFromDatabase(comparison.now, now, NoBlock::kIsNoFault);
    comparison.ship.clear();
    CompareShipRecords(before, now, [&comparison](const Difference& difference) {
        comparison.ship.push_back(difference);
        return true;
    });
}

bool Compare(Comparison& comparison) {
    system::FileStamp before;
    system::FileStamp now;
    system::FileStamp beforeThen;
    system::FileStamp nowThen;
    // A file that is not there is reported by those who read it.
    GetStamps(comparison, before, now);
    if (!CompareDatabases(comparison.before, comparison.now, comparison.models)) return false;
    CompareShips(comparison);
    GetStamps(comparison, beforeThen, nowThen);
    if (before == beforeThen && now == nowThen) return true;
    const bool isOther = before != beforeThen;
    ReportMessage(kMsgChangedInCompare, {isOther ? comparison.before : comparison.now});
    return false;
}

void AddText(std::wstring& text, const wchar_t* more) {
    if (!text.empty()) text += L", ";
    text += more;
}

std::wstring ModelText(const ComparedModel& model) {
    const ModelEntry& entry = AnyOf(model);
    return std::to_wstring(entry.number) + L' ' + entry.name;
}

void AddRows(const std::wstring& change, const std::wstring& model,
             const std::vector<Difference>& differences, Report& report) {
    for (const Difference& each : differences) {
        report.rows.push_back(
            {{change, model, each.where, each.field, each.before, each.now}, L""});
    }
    if (differences.empty()) report.rows.push_back({{change, model, L"", L"", L"", L""}, L""});
}

}  // namespace

bool CompareFiles(Comparison& comparison) {
    ReportStatus(kMsgComparing, {comparison.before});
    SetBusyPointer();
    const bool isDone = Compare(comparison);
    ResetMousePointer();
    if (isDone) ShowStatus(L"");
    return isDone;
}

ComparisonCounts CountsOf(const Comparison& comparison) {
    ComparisonCounts counts;
    for (const ComparedModel& model : comparison.models) {
        if (!model.before) ++counts.added;
        if (!model.now) ++counts.removed;
        if (model.isRenamed) ++counts.renamed;
        if (model.hasOtherNumber) ++counts.moved;
        if (model.isChanged) ++counts.changed;
        if (!model.HasDifference()) ++counts.same;
    }
    return counts;
}

bool AreSame(const Comparison& comparison) {
    const auto models = static_cast<int32_t>(comparison.models.size());
    return comparison.ship.empty() && CountsOf(comparison).same == models;
}

std::wstring SummaryOf(const Comparison& comparison) {
    const ComparisonCounts counts = CountsOf(comparison);
    if (AreSame(comparison)) return FormatMessage(kMsgNoDifferences, {counts.same});
    const std::wstring text = FormatMessage(
        kMsgDifferences,
        {counts.added, counts.removed, counts.renamed, counts.moved, counts.changed, counts.same});
    return comparison.ship.empty() ? text : text + L' ' + GetMessage(kMsgShipDiffers);
}

std::wstring ChangeText(const ComparedModel& model) {
    if (!model.before) return L"Added";
    if (!model.now) return L"Removed";
    std::wstring text;
    if (model.isRenamed) AddText(text, L"renamed");
    if (model.hasOtherNumber) AddText(text, L"other number");
    if (model.isChanged) AddText(text, L"changed");
    if (text.empty()) return L"Same";
    return WithCapital(text);
}

bool DifferencesOf(const Comparison& comparison, const ComparedModel& model,
                   std::vector<Difference>& differences) {
    differences.clear();
    if (!model.before || !model.now) return true;
    if (model.hasOtherNumber) {
        differences.push_back({L"Model", L"Number", std::to_wstring(model.before->number),
                               std::to_wstring(model.now->number)});
    }
    if (!model.isRenamed && !model.isChanged) return true;
    return CompareModels(PlaceIn(comparison.before, *model.before),
                         PlaceIn(comparison.now, *model.now),
                         [&differences](const Difference& difference) {
                             differences.push_back(difference);
                             return true;
                         });
}

std::wstring TextOf(const Difference& difference) {
    if (!difference.field.empty()) {
        return difference.field + L": " + difference.before + L" -> " + difference.now;
    }
    return difference.now.empty() ? L"removed: " + difference.before : L"added: " + difference.now;
}

bool ReportOf(const Comparison& comparison, Report& report) {
    report.title = FormatMessage(kMsgComparisonWith, {comparison.beforeName});
    report.summary = SummaryOf(comparison);
    report.fileName = StripExtension(FileNameOf(comparison.now)) + L" comparison";
    report.columns = {{L"Change", L"Renamed, changed"},
                      {L"Model", L"12 Midship section, hold 4"},
                      {L"Where", L"Panel 12 'Inner bottom', node 3"},
                      {L"Value", L"Flange thickness [mm]"},
                      {L"Before", L"1234.56"},
                      {L"Now", L"1234.56"}};
    report.rows.clear();
    if (!comparison.ship.empty()) AddRows(L"Changed", L"", comparison.ship, report);
    for (const ComparedModel& model : comparison.models) {
        std::vector<Difference> differences;
        if (!model.HasDifference()) continue;
        if (!DifferencesOf(comparison, model, differences)) return false;
        AddRows(ChangeText(model), ModelText(model), differences, report);
    }
    return true;
}

}  // namespace corvane
