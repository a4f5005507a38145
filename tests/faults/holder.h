// Other programs: a process that has a file open, and one that writes into it.
#pragma once

#include <cstdint>
#include <string>

namespace corvane::faults {

// Bits of a sharing mode: what the holder lets others do.
inline constexpr int kShareRead = 1;
inline constexpr int kShareWrite = 2;
inline constexpr int kShareDelete = 4;
// How many modes the system has: on the host one.
extern const int kSharingModes;

struct Holder {
    // Starts the process and waits until it has the file open for reading; it ends with this
    // record.
    Holder(const std::wstring& path, int sharing);
    ~Holder() { End(); }
    Holder(const Holder&) = delete;
    Holder& operator=(const Holder&) = delete;

    // Ends the process, if it has not ended yet, and waits until it has.
    void End();

    intptr_t process = 0;  // 0 after its end
};

// Writes the text into the file itself, as another program does, unless somebody keeps it from
// that. True when the file has the text.
bool WriteInPlace(const std::wstring& path, const std::string& text);

// Whether a file that is held in this way can be read and replaced all the same.
bool CanBeReplaced(int sharing);

}  // namespace corvane::faults
