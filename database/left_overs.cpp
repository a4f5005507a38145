#include "database/left_overs.h"

#include <array>
#include <string_view>

#include "database/scanning.h"
#include "files/file_system.h"
#include "files/paths.h"
#include "platform/system.h"

namespace corvane {
namespace {

bool IsWritten(const std::wstring& path) {
    system::File file;
    const bool isHeld = system::OpenForEditing(path, file) != system::kErrorNone;
    system::CloseFile(file);
    return isHeld;
}

// The next bytes of a file, as many as there is room for; false after a failure.
template <size_t size>
bool ReadPart(system::File file, std::array<char, size>& part, size_t& used) {
    for (used = 0; used < size;) {
        size_t count = 0;
        if (system::ReadBytes(file, part.data() + used, size - used, count) != system::kErrorNone) {
            return false;
        }
        if (count == 0) break;
        used += count;
    }
    return true;
}

bool BeginsWith(system::File database, system::File file) {
    std::array<char, 32 * 1024> part;
    std::array<char, 32 * 1024> ours;
    for (;;) {
        size_t used = 0;
        size_t oursUsed = 0;
        if (!ReadPart(file, part, used) || !ReadPart(database, ours, oursUsed)) return false;
        if (oursUsed < used) return false;
        if (std::string_view(part.data(), used) != std::string_view(ours.data(), used)) {
            return false;
        }
        if (used < part.size()) return true;
    }
}

}  // namespace

bool IsPartOfDatabase(const std::wstring& file, const std::wstring& database) {
    system::File part;
    system::File whole;
    const bool isOpen = system::OpenForReading(file, part) == system::kErrorNone &&
                        system::OpenForReading(database, whole) == system::kErrorNone;
    const bool isPart = isOpen && BeginsWith(whole, part);
    system::CloseFile(part);
    system::CloseFile(whole);
    return isPart;
}

std::vector<LeftOver> FindLeftOvers(const std::wstring& database) {
    std::vector<LeftOver> found;
    const std::wstring folder = WithTrailingBackslash(DirectoryOf(database));
    for (const std::wstring& name : system::NamesIn(folder)) {
        const std::wstring path = folder + name;
        if (!HasTemporaryName(path) || !IsDatabaseFile(path) || IsWritten(path)) continue;
        if (IsSameFile(path, database)) continue;
        found.push_back({path, IsPartOfDatabase(path, database)});
    }
    return found;
}

}  // namespace corvane
