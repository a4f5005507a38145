#include "bsd/bsd_records.h"

#include <algorithm>
#include <array>

#include "bsd/bsd_layout.h"
#include "report/messages.h"
#include "text/numbers.h"

namespace corvane {
namespace {

constexpr std::string_view kWrittenVersion = "5";

template <class Number>
void WriteNumber(TextWriter& writer, Number value) {
    std::array<char, kLongestNumber> text;
    const char* const end = AppendGeneral(text.data(), value);
    WriteText(writer, {text.data(), static_cast<size_t>(end - text.data())});
}

// A text on its own line, blanks at its end included. A line break in the text becomes a blank, and
// a text that is the model marker gets another first character: either would cut the records short.
void WriteTextLine(TextWriter& writer, std::wstring_view text, std::string_view modelMarker) {
    std::string line = system::AnsiFromWide(text);
    std::replace(line.begin(), line.end(), '\r', ' ');
    std::replace(line.begin(), line.end(), '\n', ' ');
    if (line == modelMarker) line.front() = '=';
    WriteLine(writer, line);
}

}  // namespace

void WriteBasicShipData(TextWriter& writer, BasicShipData& bsd) {
    const std::string modelMarker = GetMessageBytes(kMsgModelMarker);
    const auto write = [&writer](auto& value, std::string_view after) {
        WriteNumber(writer, value);
        WriteText(writer, after);
    };
    if (IsNearZero(bsd.MainData(4))) bsd.MainData(4) = bsd.MainData(3);
    WriteLine(writer, kWrittenVersion);
    for (const FixedText<30>& title : bsd.Titles.elements)
        WriteTextLine(writer, title.Whole(), modelMarker);
    VisitNumbers(bsd, write);
    WriteTextLine(writer, bsd.Remark.Whole(), modelMarker);
    VisitReductionFactor(bsd, write);
    VisitExtraData(bsd, write);
}

}  // namespace corvane
