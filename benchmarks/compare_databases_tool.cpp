// compare_databases_tool BEFORE NOW --measure: compares two databases, and prints how many models
// differ, the microseconds of the comparison by this process's own clock, and the most memory that
// the process held, in KiB.
#include <algorithm>

#include "benchmarks/measure.h"
#include "database/comparing.h"
#include "platform/system.h"

int main(int count, char** arguments) {
    using namespace corvane;
    if (count < 3) {
        std::fputs("compare_databases_tool BEFORE NOW --measure\n", stderr);
        return 2;
    }
    std::vector<ComparedModel> models;
    bool isCompared = false;
    const long long time = benchmarks::Microseconds([&] {
        isCompared = CompareDatabases(system::WideFromAnsi(arguments[1]),
                                      system::WideFromAnsi(arguments[2]), models);
    });
    if (!isCompared) return 1;
    const auto differ = std::ranges::count_if(models, &ComparedModel::HasDifference);
    std::printf("%td %lld %ld\n", differ, time, benchmarks::PeakMemoryKiB());
    return 0;
}
