#include "files/progress.h"

#include <algorithm>

#include "platform/system.h"
#include "report/reporters.h"

namespace corvane {
namespace {

constexpr int64_t kPatience_ms = 500;
// Often enough for the eye, and rarely enough to cost nothing.
constexpr int64_t kBetweenShows_ms = 50;

// What is left after the last step takes time, too.
constexpr int64_t kMostPercent = 99;

int PercentOf(const Progress& progress) {
    if (progress.total <= 0) return 0;
    const double share = static_cast<double>(progress.done) / static_cast<double>(progress.total);
    return static_cast<int>(std::min<double>(share * 100, kMostPercent));
}

}  // namespace

Progress::Progress(int64_t itsTotal)
    : total(itsTotal), nextShow_ms(system::Milliseconds() + kPatience_ms) {}

Progress::~Progress() {
    if (isShown) reportView.showProgress(kNoProgress);
}

bool Advance(Progress& progress, int64_t more) {
    progress.done += more;
    const int64_t now_ms = system::Milliseconds();
    if (progress.isCancelled || now_ms < progress.nextShow_ms) return !progress.isCancelled;
    progress.nextShow_ms = now_ms + kBetweenShows_ms;
    progress.isShown = true;
    progress.isCancelled = reportView.showProgress(PercentOf(progress));
    return !progress.isCancelled;
}

}  // namespace corvane
