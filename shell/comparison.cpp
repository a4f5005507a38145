#include "shell/comparison.h"

#include "bsd/bsd_file.h"
#include "database/ship_differences.h"
#include "files/file_system.h"
#include "files/paths.h"
#include "files/progress.h"
#include "report/reporters.h"
#include "text/text.h"

namespace corvane {
namespace {

// A file that is not there has the stamp of none; those who read it report it.
system::FileStamp StampOf(const std::wstring& path) {
    system::FileStamp stamp;
    if (system::GetFileStamp(path, stamp) != system::kErrorNone) stamp = {};
    return stamp;
}

// The file that has another stamp now; null: none.
const std::wstring* ChangedFile(const Comparison& comparison) {
    if (StampOf(comparison.before) != comparison.beforeStamp) return &comparison.before;
    if (StampOf(comparison.now) != comparison.nowStamp) return &comparison.now;
    return nullptr;
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
    comparison.beforeStamp = StampOf(comparison.before);
    comparison.nowStamp = StampOf(comparison.now);
    if (!CompareDatabases(comparison.before, comparison.now, comparison.models)) return false;
    CompareShips(comparison);
    const std::wstring* changed = ChangedFile(comparison);
    if (changed != nullptr) ReportMessage(kMsgChangedInCompare, {*changed});
    return changed == nullptr;
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

std::wstring WhyOutdated(const Comparison& comparison) {
    const std::wstring* changed = ChangedFile(comparison);
    return changed == nullptr ? std::wstring()
                              : FormatMessage(kMsgNotAsCompared, {FileNameOf(*changed)});
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
    if (ChangedFile(comparison) != nullptr) {
        ReportMessage(WhyOutdated(comparison));
        return false;
    }
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
    Progress progress(static_cast<int64_t>(comparison.models.size()));
    for (const ComparedModel& model : comparison.models) {
        if (!Advance(progress, 1)) {
            ReportNote(kMsgReadingCancelled, {comparison.before});
            return false;
        }
        std::vector<Difference> differences;
        if (!model.HasDifference()) continue;
        if (!DifferencesOf(comparison, model, differences)) return false;
        AddRows(ChangeText(model), ModelText(model), differences, report);
    }
    return true;
}

}  // namespace corvane
