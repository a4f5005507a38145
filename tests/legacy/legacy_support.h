// Sections for the tests of the legacy form, and a library that records its calls.
#pragma once

#include <cstdint>
#include <cstring>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "database/section.h"
#include "legacy/section_from_legacy.h"
#include "legacy/section_to_legacy.h"
#include "platform/ztvelk32.h"
#include "report/messages.h"
#include "tests/support/support.h"

namespace corvane::test {

// A section by chance that the legacy form can hold: nodes of all kinds, some of which cannot be
// computed, everything that can be on a panel, compartments.
SectionModel GeneratedSection(uint32_t seed);

// Panels of this many nodes, one beside the other: nodes with coordinates first, then ones that
// are offset from the first.
Panel PanelOfNodes(int given, int offset, int16_t number);

// All that a file would have of the section, exact to the bit.
std::string ExactText(SectionModel& section);
// What an import makes of an exported section's head: identifier and what is always the same.
void SetImportedHead(SectionModel& section);

std::unique_ptr<LegacySectionRecord> RecordOf(SectionModel& section);
SectionModel SectionOf(const LegacySectionRecord& record);
bool SameBytes(const LegacySectionRecord& a, const LegacySectionRecord& b);

// A legacy database of these sections, by our own export: small ones, at 1, 2, 3 ... m. The
// ship's name has an accent.
void WriteLegacyDatabase(const std::wstring& path, const std::vector<std::wstring>& names);

// A loss as RecordOf and SectionOf record it: the event "lost text".
std::string LossText(int32_t number, MessageArguments arguments);

// What a report of this message shows; the events before are kept.
std::string WarningText(int32_t number, MessageArguments arguments);
// The same with a status of the legacy library in words below it; that it could not be read.
std::string FailureText(int32_t number, MessageArguments arguments, int16_t status);
std::string UnreadText(const std::wstring& path, int16_t status);

// The value at an offset of the whole record.
template <class Number>
Number ValueAt(const LegacySectionRecord& record, size_t offset) {
    Number number;
    std::memcpy(&number, reinterpret_cast<const char*>(&record) + offset, sizeof(number));
    return number;
}

// Replaces the legacy library. Calls are in `calls` with what they were given, as
// "extendvelkdb ship.vel"; a path is its last part.
struct FakeLegacyLibrary {
    FakeLegacyLibrary();
    ~FakeLegacyLibrary();
    FakeLegacyLibrary(const FakeLegacyLibrary&) = delete;
    FakeLegacyLibrary& operator=(const FakeLegacyLibrary&) = delete;

    static std::vector<std::string> calls;
    // What each function answers.
    static int16_t createStatus, extendStatus, nameStatus, listStatus, bsdStatus, naviStatus;
    static int16_t extendFailsAt;  // the call, from 1; 0: none
    static int16_t listCount;      // extendvelkdb adds one
    static LegacySectionEntry entries[kLegacyListedSections];
    static LegacyBsd bsd;               // given by importvelknavi, set by exportvelkbsd
    static LegacySectionRecord record;  // what was written last
    // What was written into each slot; what the others have is `record`.
    static std::map<int16_t, LegacySectionRecord> slots;

private:
    struct Fakes;
    std::unique_ptr<Fakes> fakes;
};

}  // namespace corvane::test
