// check_database_tool PATH [--measure]: checks a database and prints its report; with --measure
// only how many findings there are, the microseconds of the check by this process's own clock, and
// the most memory that the process held, in KiB.
#include "benchmarks/measure.h"
#include "database/check.h"
#include "platform/system.h"

int main(int count, char** arguments) {
    using namespace corvane;
    if (count < 2) {
        std::fputs("check_database_tool PATH [--measure]\n", stderr);
        return 2;
    }
    const bool isMeasured = count > 2;
    long long findings = 0;
    const auto print = [&](const Finding& finding) {
        ++findings;
        if (isMeasured) return;
        std::printf("%s\n", system::AnsiFromWide(ReportLineOf(finding)).c_str());
    };
    CheckResult result;
    bool isChecked = false;
    const long long time = benchmarks::Microseconds(
        [&] { isChecked = CheckDatabase(system::WideFromAnsi(arguments[1]), print, result); });
    if (!isChecked) return 1;
    if (isMeasured) std::printf("%lld %lld %ld\n", findings, time, benchmarks::PeakMemoryKiB());
    return 0;
}
