#include "text/version.h"

#include <string_view>

#include "text/numbers.h"

namespace corvane {
namespace {

// One letter for each hundred of revisions from 100 on; "j" and "k" are not version letters.
constexpr std::wstring_view kRevisionLetters = L"abcdefghilmno";

// Experimental versions have revisions from 2000 on; those up to 2099 are numbered test versions.
constexpr int kFirstTestRevision = 2000;
constexpr int kLastTestRevision = 2099;

std::wstring RevisionSuffix(int revision) {
    if (revision >= kFirstTestRevision && revision <= kLastTestRevision) {
        return L" t" + std::to_wstring(revision - kFirstTestRevision);
    }
    if (revision < 100) return {};
    const auto letter = static_cast<size_t>(revision / 100 - 1);
    return letter < kRevisionLetters.size() ? std::wstring(1, kRevisionLetters[letter])
                                            : std::wstring();
}

}  // namespace

// The build gives the three numbers.
const ProgramVersion kProgramVersion{CORVANE_VERSION};

std::wstring VersionText(float version) {
    if (version == 0) return L"Unknown ver.";
    return DecimalText(version, 1, 4);
}

std::wstring VersionText(const ProgramVersion& version, bool withRevision) {
    std::wstring text = std::to_wstring(version.major) + L'.' + std::to_wstring(version.minor) +
                        RevisionSuffix(version.revision);
    if (version.major < 1 || withRevision) {
        text += L" (r" + std::to_wstring(version.revision) + L')';
    }
    return text;
}

bool IsExperimental(const ProgramVersion& version) {
    return version.revision >= kFirstTestRevision;
}

std::wstring DateText(const system::LocalTime& date, bool useLocale) {
    if (useLocale) return system::ShortDateText(date);
    const auto padded = [](int number, size_t width) {
        std::wstring digits = std::to_wstring(number);
        if (digits.size() < width) digits.insert(0, width - digits.size(), L'0');
        return digits;
    };
    return padded(date.day, 2) + L'/' + padded(date.month, 2) + L'/' + padded(date.year, 4);
}

}  // namespace corvane
