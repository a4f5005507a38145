// list_models_tool PATH [--measure]: lists the models of a database and prints how many there are;
// with --measure also the microseconds that the listing took by this process's own clock and, on
// the host, the most memory that the process held, in KiB (under Wine the figure is the server's).
#include <vector>

#include "benchmarks/measure.h"
#include "database/listing.h"
#include "platform/system.h"

int main(int count, char** arguments) {
    if (count < 2) {
        std::fputs("list_models_tool PATH [--measure]\n", stderr);
        return 2;
    }
    std::vector<corvane::ModelEntry> entries;
    const long long time = corvane::benchmarks::Microseconds([&] {
        entries = corvane::ListModelsWithPositions(corvane::system::WideFromAnsi(arguments[1]));
    });
    std::printf("%zu", entries.size());
    if (count > 2) std::printf(" %lld %ld", time, corvane::benchmarks::PeakMemoryKiB());
    std::printf("\n");
    return 0;
}
