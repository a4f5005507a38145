// The program's version, and the texts of versions and dates, as the title, the About window and
// the stamps show them.
#pragma once

#include <string>

#include "platform/system.h"

namespace corvane {

struct ProgramVersion {
    int major = 0;
    int minor = 0;
    int revision = 0;
};

// The version of the project in CMakeLists.txt.
extern const ProgramVersion kProgramVersion;

// A version number as text, "2.5" or "1.2346"; 0 is "Unknown ver.".
std::wstring VersionText(float version);
// The program's own version: "3.2", a letter or " t4" from the revision, and " (r215)" when the
// revision is wanted or before version 1.
std::wstring VersionText(const ProgramVersion& version, bool withRevision);

// Whether the version is experimental (revision 2000 or more): its results are not for official
// calculations.
bool IsExperimental(const ProgramVersion& version = kProgramVersion);

// "dd/mm/yyyy", or the user's short date format.
std::wstring DateText(const system::LocalTime& date, bool useLocale = false);

}  // namespace corvane
