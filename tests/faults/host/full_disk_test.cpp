// A small disk with every amount of room, from nothing to more than an edit takes, in steps of a
// page: the edit succeeds, or leaves the old file and says so. The file, the temporary files, or
// both lie on that disk.
#include <fcntl.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fstream>

#include "platform/host/native.h"
#include "tests/faults/scene.h"
#include "tests/faults/tally.h"

namespace corvane::faults {
namespace {

constexpr int64_t kPage = 4096;
constexpr char kDiskSize[] = "size=4m";

std::string NativeName(const std::wstring& path) {
    std::string native;
    EXPECT_EQ(system::NativePath(path, native), system::kErrorNone);
    return native;
}

void WriteSystemFile(const char* path, const std::string& text) {
    std::ofstream(path) << text;
}

// Mounts of this process are its own from here on. An ordinary user may mount in a user namespace,
// where the system permits those.
bool LeaveMountNamespace() {
    if (unshare(CLONE_NEWNS) == -1) {
        const std::string user = std::to_string(getuid());
        const std::string group = std::to_string(getgid());
        if (unshare(CLONE_NEWUSER | CLONE_NEWNS) == -1) return false;
        WriteSystemFile("/proc/self/setgroups", "deny");
        WriteSystemFile("/proc/self/uid_map", "0 " + user + " 1");
        WriteSystemFile("/proc/self/gid_map", "0 " + group + " 1");
    }
    return mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
}

// A disk in memory, in the place of a folder.
struct SmallDisk {
    test::TemporaryFolder folder;
    std::string native = NativeName(folder.path);
    bool isMounted = false;

    SmallDisk() {
        static const bool mayMount = LeaveMountNamespace();
        isMounted = mayMount && mount("corvane", native.c_str(), "tmpfs", 0, kDiskSize) == 0;
    }
    ~SmallDisk() {
        if (isMounted) umount2(native.c_str(), MNT_DETACH);
    }
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;

    int64_t Room() const {
        struct statvfs status{};
        EXPECT_EQ(statvfs(native.c_str(), &status), 0);
        return static_cast<int64_t>(status.f_bavail * status.f_frsize);
    }
    // Fills the disk up to so many bytes.
    void LeaveRoom(int64_t bytes) const {
        const int file = open((native + "/filler").c_str(), O_CREAT | O_WRONLY, 0600);
        const int64_t excess = Room() - bytes;
        if (excess > 0) {
            EXPECT_EQ(posix_fallocate(file, 0, excess), 0);
        }
        close(file);
        EXPECT_EQ(Room(), bytes);
    }
    void RemoveFiller() const { unlink((native + "/filler").c_str()); }
};

struct Place {
    const char* name;
    bool file;         // lies on the small disk
    bool temporaries;  // lie there
};
constexpr Place kPlaces[] = {
    {"file", true, false}, {"temporaries", false, true}, {"both", true, true}};

class FullDisk : public testing::TestWithParam<Edit> {
protected:
    const SmallDisk disk;
    const test::TemporaryFolder elsewhere;

    std::wstring Folder(bool onDisk, const wchar_t* name) const {
        const std::wstring folder = (onDisk ? disk.folder : elsewhere).File(name);
        EXPECT_EQ(system::MakeDirectory(folder), system::kErrorNone);
        return folder + L'\\';
    }
    // The room that the edit takes, at most.
    static int64_t Needed(const Scene& scene, const Place& place) {
        const auto pages = [](size_t bytes) {
            return (static_cast<int64_t>(bytes) + kPage - 1) / kPage * kPage;
        };
        const int64_t text = pages(scene.newText.size());
        const int64_t backup = scene.edit.keepsBackup ? pages(OldDatabase().size()) : 0;
        const int64_t temporary = text * scene.edit.temporaryTexts;
        return (place.file ? text + backup : 0) + (place.temporaries ? temporary : 0);
    }
    void FillUp(const Place& place);
};

void FullDisk::FillUp(const Place& place) {
    Scene scene{GetParam(), Folder(place.file, L"ship"), Folder(place.temporaries, L"temp")};
    Measure(scene);
    Tally tally{"full disk (" + std::string(place.name) + ") " + scene.edit.name};
    const int64_t needed = Needed(scene, place);
    bool done = false;
    std::vector<int64_t> rooms;
    for (int64_t room = 0; room <= needed; room += kPage) rooms.push_back(room);
    for (const int64_t room : tally.Taken(rooms)) {
        Prepare(scene);
        disk.LeaveRoom(room);
        const Outcome outcome = RunEdit(scene, {});
        disk.RemoveFiller();
        done = outcome.done;
        // What comes back from the history is on the disk already, if that is the same one.
        const bool isThere = scene.edit.prepare != nullptr && place.temporaries;
        EXPECT_TRUE(room > 0 || done == isThere);
        tally.Count(std::to_string(room) + " bytes of room", FaultAfterEnd(scene, outcome));
    }
    EXPECT_TRUE(done) << "with room for all";
    tally.Print();
    Prepare(scene);
    for (const std::wstring& path : {scene.path, scene.backup, scene.source}) {
        system::RemoveFile(path);
    }
    for (const std::wstring& path : {scene.folder, scene.temporaries}) {
        system::RemoveEmptyDirectory(path.substr(0, path.size() - 1));
    }
}

TEST_P(FullDisk, LeavesTheOldFileOrTheNewOneAndSaysSo) {
    if (!disk.isMounted) GTEST_SKIP() << "no disk can be mounted here: " << std::strerror(errno);
    for (const Place& place : kPlaces) {
        if (place.file || GetParam().temporaryTexts > 0) FillUp(place);
    }
}

INSTANTIATE_TEST_SUITE_P(Every, FullDisk, testing::ValuesIn(Edits()),
                         [](const auto& edit) { return edit.param.name; });

}  // namespace
}  // namespace corvane::faults
