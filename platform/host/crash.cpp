#include "platform/crash.h"

namespace corvane::system {

void CatchCrashes(const std::wstring&, const std::wstring&) {}

void CrashIfAsked() {}

}  // namespace corvane::system
