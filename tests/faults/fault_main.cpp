// The tests; with "--edit EDIT FOLDER TEMPORARIES FAULT CALL", one edit with one fault; with
// "--hold", nothing until it is ended.
#include <gtest/gtest.h>

#include <chrono>
#include <thread>

#include "tests/faults/scene.h"
#include "tests/support/support.h"

int main(int count, char** arguments) {
    const std::string mode = count > 1 ? arguments[1] : "";
    // Whoever started it ends it; if that one cannot, it ends after a while.
    if (mode == "--hold") {
        std::this_thread::sleep_for(std::chrono::minutes(10));
        return 0;
    }
    corvane::faults::InstallHooks();
    if (mode == "--edit") return corvane::faults::RunAsChild({arguments + 2, arguments + count});
    testing::InitGoogleTest(&count, arguments);
    // A file that has just been written is read with other calls than an older one.
    const corvane::test::FreshSettingsFile settings;
    // A disk would be asked some ten thousand times to keep what is thrown away.
    const corvane::test::TemporaryFilesInMemory memory;
    return RUN_ALL_TESTS();
}
