// Any bytes as a database that is compared: with itself nothing differs; with another one, what was
// added, renamed or changed one way round was removed, renamed or changed the other way round; and
// a model that has changed has a value that differs.
#include <algorithm>
#include <string>
#include <vector>

#include "database/comparing.h"
#include "files/paths.h"
#include "fuzz/fuzz.h"
#include "fuzz/scratch_file.h"

namespace corvane {
namespace {

using fuzz::Check;
using Compared = std::vector<ComparedModel>;

// A file that is no database is reported; there are no models then.
Compared Compare(const std::wstring& before, const std::wstring& now) {
    Compared models;
    if (!CompareDatabases(before, now, models)) return {};
    for (const ComparedModel& model : models) {
        if (!model.isChanged) continue;
        int64_t count = 0;
        Check(CompareModels(PlaceIn(before, *model.before), PlaceIn(now, *model.now),
                            [&count](const Difference& difference) {
                                Check(difference.before != difference.now);
                                ++count;
                                return true;
                            }));
        Check(count > (model.isRenamed ? 1 : 0));
    }
    return models;
}

int64_t Count(const Compared& models, bool (*has)(const ComparedModel&)) {
    return std::ranges::count_if(models, has);
}

void CheckMirrored(const Compared& there, const Compared& back) {
    const auto isAdded = [](const ComparedModel& model) { return !model.before; };
    const auto isRemoved = [](const ComparedModel& model) { return !model.now; };
    const auto isRenamed = [](const ComparedModel& model) { return model.isRenamed; };
    const auto isMoved = [](const ComparedModel& model) { return model.hasOtherNumber; };
    const auto isChanged = [](const ComparedModel& model) { return model.isChanged; };
    Check(there.size() == back.size());
    Check(Count(there, isAdded) == Count(back, isRemoved));
    Check(Count(there, isRemoved) == Count(back, isAdded));
    Check(Count(there, isRenamed) == Count(back, isRenamed));
    Check(Count(there, isMoved) == Count(back, isMoved));
    Check(Count(there, isChanged) == Count(back, isChanged));
}

}  // namespace
}  // namespace corvane

// The bytes are two databases, the second one after the line "NEXT"; without it, one.
CORVANE_FUZZ_TARGET(compare) {
    using namespace corvane;
    constexpr std::string_view kNext = "\nNEXT\n";
    if (bytes.size() > kLongestLine) return;
    static const fuzz::ScratchFile file;
    static const fuzz::ScratchFile other(BackupPath(file.path));
    const size_t end = std::min(bytes.find(kNext), bytes.size());
    fuzz::WriteBytesTo(file.path, bytes.substr(0, end));
    for (const ComparedModel& model : Compare(file.path, file.path)) {
        fuzz::Check(!model.HasDifference());
    }
    if (end == bytes.size()) return;
    fuzz::WriteBytesTo(other.path, bytes.substr(end + kNext.size()));
    CheckMirrored(Compare(file.path, other.path), Compare(other.path, file.path));
}
