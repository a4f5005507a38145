// What differs between a database and another one, or an earlier version of it, for the box of File
// > Compare with and for the command line: model by model, and value by value of each model.
//
// "Before" is the file that the user compares with, "now" the other one, usually the open database.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "database/comparing.h"
#include "database/differences.h"
#include "shell/report.h"

namespace corvane {

struct Comparison {
    std::wstring before;      // path
    std::wstring beforeName;  // as texts call it: a file's name, or when a version was replaced
    std::wstring now;         // path
    // Of both files, when they were compared:
    system::FileStamp beforeStamp;
    system::FileStamp nowStamp;
    std::vector<Difference> ship;       // of the ship records
    std::vector<ComparedModel> models;  // all, in the order of CompareDatabases
};

// Compares the files that `before` and `now` name. What cannot be read is reported; false then, and
// when the user cancels. A file that another program has changed meanwhile is reported (3840), too.
bool CompareFiles(Comparison& comparison);

struct ComparisonCounts {
    int32_t added = 0;
    int32_t removed = 0;
    int32_t renamed = 0;
    int32_t moved = 0;    // with another number
    int32_t changed = 0;  // in anything else
    int32_t same = 0;
};
// Which of the files is no longer as it was compared, as a text for the user; empty: none.
std::wstring WhyOutdated(const Comparison& comparison);

ComparisonCounts CountsOf(const Comparison& comparison);
// Neither a model nor the ship record differs.
bool AreSame(const Comparison& comparison);
// How many models of each kind there are; one line.
std::wstring SummaryOf(const Comparison& comparison);

// What happened to a model: "Added", "Renamed, changed"; "Same" of one without a difference.
std::wstring ChangeText(const ComparedModel& model);

// What differs in a model: its number, and all values that differ; of one that only one of the
// databases has: nothing. False, and reported, when it can no longer be read. Only of files that
// are as they were compared: in another one, the model's place may be another model's.
bool DifferencesOf(const Comparison& comparison, const ComparedModel& model,
                   std::vector<Difference>& differences);

// "Thickness [mm]: 12 -> 13", or that the item was added or removed, with its values.
std::wstring TextOf(const Difference& difference);

// All of it as a report: a row for each difference. False, and reported, when a file is not as it
// was compared, when a model can no longer be read, and when the user cancels.
bool ReportOf(const Comparison& comparison, Report& report);

}  // namespace corvane
