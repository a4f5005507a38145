// A process of its own is a fork.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

#include "platform/host/native.h"
#include "tests/faults/holder.h"
#include "tests/faults/scene.h"

namespace corvane::faults {

bool IsKilled(const Scene& scene, const Plan& plan) {
    const pid_t child = fork();
    EXPECT_NE(child, -1);
    if (child == 0) {
        RunEdit(scene, plan);
        _exit(0);
    }
    int status = 0;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    return WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
}

const int kSharingModes = 1;

// The holder locks the file, as one that writes it.
Holder::Holder(const std::wstring& path, int) {
    std::string native;
    EXPECT_EQ(system::NativePath(path, native), system::kErrorNone);
    int ready[2];
    EXPECT_EQ(pipe(ready), 0);
    process = fork();
    EXPECT_NE(process, -1);
    if (process == 0) {
        const int file = open(native.c_str(), O_RDWR);
        flock(file, LOCK_EX);
        close(ready[0]);
        close(ready[1]);
        sleep(600);
        _exit(0);
    }
    close(ready[1]);
    char byte = 0;
    EXPECT_EQ(read(ready[0], &byte, 1), 0);  // the end of the pipe
    close(ready[0]);
}

void Holder::End() {
    if (process == 0) return;
    kill(static_cast<pid_t>(process), SIGKILL);
    waitpid(static_cast<pid_t>(process), nullptr, 0);
    process = 0;
}

bool WriteInPlace(const std::wstring& path, const std::string& text) {
    std::string native;
    if (system::NativePath(path, native) != system::kErrorNone) return false;
    const int file = open(native.c_str(), O_WRONLY);
    const bool isOurs = file != -1 && flock(file, LOCK_EX | LOCK_NB) == 0;
    if (isOurs) {
        EXPECT_EQ(write(file, text.data(), text.size()), static_cast<ssize_t>(text.size()));
        EXPECT_EQ(ftruncate(file, static_cast<off_t>(text.size())), 0);
    }
    if (file != -1) close(file);
    return isOurs;
}

bool CanBeReplaced(int) {
    return false;
}

}  // namespace corvane::faults
