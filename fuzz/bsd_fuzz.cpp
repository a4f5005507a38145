// Any bytes as a standalone file of Basic Ship Data: what is read can be written, reads back as
// the same record as far as the file can hold it, and is then written as the same bytes.
#include "fuzz/fuzz.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <vector>

#include "bsd/bsd_layout.h"
#include "bsd/bsd_records.h"

namespace {

using namespace corvane;

void Require(bool condition) {
    if (!condition) std::abort();
}

// Reads the bytes as the text of a file, straight from memory.
BasicShipData Read(std::string_view bytes) {
    TextReader reader;
    reader.buffer = std::make_unique_for_overwrite<char[]>(bytes.size());
    std::copy(bytes.begin(), bytes.end(), reader.buffer.get());
    reader.end = bytes.size();
    reader.atEnd = true;
    BasicShipData bsd;
    ReadBasicShipData(reader, bsd);
    return bsd;
}

// The text of the record, which stays in the writer's buffer.
std::string Write(BasicShipData& bsd) {
    constexpr size_t kRoom = 8 * 1024;
    TextWriter writer;
    writer.buffer = std::make_unique_for_overwrite<char[]>(kRoom);
    WriteBasicShipData(writer, bsd);
    Require(writer.used <= kRoom);
    return std::string(writer.buffer.get(), writer.used);
}

std::vector<double> NumbersOf(BasicShipData& bsd) {
    std::vector<double> numbers;
    const auto take = [&numbers](auto number, std::string_view) { numbers.push_back(number); };
    VisitNumbers(bsd, take);
    VisitReductionFactor(bsd, take);
    VisitExtraData(bsd, take);
    return numbers;
}

// The file has 7 digits of a number; integers have at most 5.
void RequireSameNumbers(BasicShipData& a, BasicShipData& b) {
    const std::vector<double> as = NumbersOf(a);
    const std::vector<double> bs = NumbersOf(b);
    for (size_t i = 0; i < as.size(); ++i) {
        Require(std::fabs(as[i] - bs[i]) <= 1e-6 * std::fabs(as[i]));
    }
}

// What the writer must change in a title: a line break.
bool IsWrittenOtherwise(std::wstring_view title) {
    return title.find(L'\r') != std::wstring_view::npos;
}

void RequireSameTitles(const BasicShipData& a, const BasicShipData& b) {
    for (int i = 1; i <= 5; ++i) {
        Require(IsWrittenOtherwise(a.Titles(i).Whole()) || a.Titles(i) == b.Titles(i));
    }
}

}  // namespace

CORVANE_FUZZ_TARGET(bsd) {
    if (bytes.size() > kLongestLine) return;
    BasicShipData first = Read(bytes);
    const std::string text = Write(first);
    BasicShipData second = Read(text);
    RequireSameNumbers(first, second);
    RequireSameTitles(first, second);
    Require(Write(second) == text);
}
