// Any bytes as a database that is checked, and repaired: the check ends, names lines that are
// there, has the models of a list, and finds nothing any more of what was repaired; a repair leaves
// the models their names, kinds and places.
#include <string>
#include <vector>

#include "database/check.h"
#include "database/listing.h"
#include "database/repair.h"
#include "files/paths.h"
#include "fuzz/fuzz.h"
#include "fuzz/scratch_file.h"

namespace corvane {
namespace {

using fuzz::Check;

CheckResult CheckedFile(const std::wstring& path, bool isRepaired) {
    CheckResult result;
    std::vector<Finding> findings;
    Check(
        CheckDatabase(path, [&](const Finding& finding) { findings.push_back(finding); }, result));
    int64_t counted = 0;
    for (const int64_t count : result.findings) counted += count;
    Check(counted == static_cast<int64_t>(findings.size()));
    for (const Finding& finding : findings) {
        Check(finding.line >= 0 && finding.line <= result.lines + 1);
        Check(!finding.isInModel || (finding.block >= 1 && finding.block <= result.models));
        Check(!ReportLineOf(finding).empty());
        if (isRepaired) Check(finding.rule != CheckRule::kNoLastLineEnd);
    }
    return result;
}

void CheckSameModels(const std::vector<ModelEntry>& before, const std::vector<ModelEntry>& after) {
    Check(before.size() == after.size());
    for (size_t i = 0; i < before.size(); ++i) {
        const ModelEntry& old = before[i];
        const bool hasNumber = old.number > 0;
        Check(after[i].name == old.name && (!hasNumber || after[i].kind == old.kind));
    }
}

}  // namespace
}  // namespace corvane

CORVANE_FUZZ_TARGET(check) {
    using namespace corvane;
    if (bytes.size() > kLongestLine) return;
    static const fuzz::ScratchFile file;
    static const fuzz::ScratchFile backup(BackupPath(file.path));
    fuzz::WriteBytesTo(file.path, bytes);
    const std::vector<ModelEntry> before = ListModels(file.path);
    const CheckResult checked = CheckedFile(file.path, false);
    fuzz::Check(checked.models == static_cast<int32_t>(before.size()));
    std::vector<Repair> repairs;
    for (const Repair& repair : checked.repairs) {
        if (repair.kind != RepairKind::kLeftOver) repairs.push_back(repair);
    }
    if (repairs.empty()) return;
    RepairCounts done{};
    fuzz::Check(RepairDatabase(file.path, checked.stamp, repairs, done));
    CheckSameModels(before, ListModels(file.path));
    const CheckResult again = CheckedFile(file.path, true);
    for (const Repair& repair : again.repairs) {
        fuzz::Check(repair.kind == RepairKind::kLeftOver);
    }
}
