// Any bytes as the settings file: every field has a value that the program can work with, and what
// is written is read as the same.
#include "fuzz/fuzz.h"

#include <cmath>
#include <cstdlib>
#include <string>

#include "platform/system.h"
#include "shell/settings.h"

namespace corvane {
namespace {

void Require(bool condition) {
    if (!condition) std::abort();
}

std::wstring WriteFile(std::string_view bytes) {
    static std::wstring path;
    if (path.empty()) system::NewTemporaryName(system::TemporaryDirectory(), L"ini", path);
    system::File file;
    Require(system::CreateForWriting(path, file) == system::kErrorNone);
    Require(system::WriteBytes(file, bytes.data(), bytes.size()) == system::kErrorNone);
    system::CloseFile(file);
    return path;
}

ShellSettings Read(const std::wstring& path) {
    ShellSettings settings;
    ReadSettings(path, system::TemporaryDirectory(), settings);
    return settings;
}

void RequireUsable(const ShellSettings& settings) {
    for (const std::wstring& folder : {settings.DataDirectory, settings.WorkDirectory}) {
        Require(folder.ends_with(L'\\') && folder.size() <= kLongestSetting + 1);
    }
    Require(settings.BrowseDirectory.size() <= kLongestSetting + 1);
    Require(settings.DatabasePath.size() <= kLongestSetting);
    for (const float limit : {settings.FirstLimit, settings.SecondLimit, settings.ThirdLimit}) {
        Require(std::isfinite(limit));
    }
}

void RequireSameNumber(float a, float b) {
    // The file has 7 digits.
    Require(std::fabs(a - b) <= 1e-6F * std::fabs(a));
}

}  // namespace
}  // namespace corvane

CORVANE_FUZZ_TARGET(settings) {
    using namespace corvane;
    const std::wstring path = WriteFile(bytes);
    const ShellSettings first = Read(path);
    RequireUsable(first);
    Require(WriteSettings(path, first));
    const ShellSettings second = Read(path);
    Require(second.WorkDirectory == first.WorkDirectory);
    Require(second.BrowseDirectory == first.BrowseDirectory);
    Require(second.DatabasePath == first.DatabasePath);
    Require(second.IntegerSetting == first.IntegerSetting);
    RequireSameNumber(first.FirstLimit, second.FirstLimit);
    RequireSameNumber(first.SecondLimit, second.SecondLimit);
    RequireSameNumber(first.ThirdLimit, second.ThirdLimit);
}
