// Any bytes as the texts of a replaced catalogue, and as the length that its library gives: every
// argument is in the text that is shown, once for each mark and no oftener.
#include "fuzz/fuzz.h"

#include <algorithm>
#include <cstdlib>
#include <string>

#include "bsd/labels.h"
#include "platform/bsdvelk.h"
#include "platform/grvelk.h"
#include "report/reporters.h"

namespace corvane {
namespace {

void Require(bool condition) {
    if (!condition) std::abort();
}

// What the libraries answer: the text, and a length that need not be its own.
std::string_view catalogueText;
int32_t claimedLength;

int32_t CORVANE_STDCALL LoadText(int32_t, char* buffer, int32_t size) {
    std::fill_n(buffer, size, ' ');
    std::copy_n(catalogueText.data(), std::min<size_t>(catalogueText.size(), size), buffer);
    return claimedLength;
}

// No text of the catalogue holds this: it has only characters of one byte.
constexpr wchar_t kArgument = L'\x4E00';

void CheckArguments() {
    const std::wstring text = GetMessage(1020);
    const auto marks = std::ranges::count(text, L'¤');
    const std::wstring argument(1, kArgument);
    const std::wstring shown = SubstituteArguments(text, {argument, argument, argument});
    Require(std::ranges::count(shown, kArgument) == 3);
    Require(std::ranges::count(shown, L'¤') == std::max<decltype(marks)>(0, marks - 3));
}

}  // namespace
}  // namespace corvane

CORVANE_FUZZ_TARGET(message_text) {
    using namespace corvane;
    if (bytes.size() < 2) return;
    const auto byte = [&](size_t i) { return static_cast<unsigned char>(bytes[i]); };
    claimedLength = static_cast<int16_t>(byte(0) << 8 | byte(1));
    catalogueText = bytes.substr(2);

    const auto loadMessage = corvane::ZTGrVel32_LoadVelkinString;
    const auto loadLabel = corvane::BsdVelk_LoadBsdString;
    corvane::ZTGrVel32_LoadVelkinString.pointer = LoadText;
    corvane::BsdVelk_LoadBsdString.pointer = LoadText;
    CheckArguments();
    Require(!BsdLabel(500).empty());
    Require(!ShipTypeName(byte(0), byte(1) % 2 == 0).empty() || byte(1) % 2 == 0);
    // The reporters' own ways of reading a text.
    ReportMessage(1020, {L"a", 1, 2.5});
    ReportMessage(GetMessage(1020), {L"b"});
    ReportStatus(1020, {L"c"});
    ReportSilent(GetMessage(1020));
    corvane::ZTGrVel32_LoadVelkinString = loadMessage;
    corvane::BsdVelk_LoadBsdString = loadLabel;
}
