// Any bytes as a section block: what is read can be written, and what was written reads back as
// itself: the texts of a second and a third writing are equal.
#include "fuzz/fuzz.h"

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <string>
#include <utility>

#include "app/messages.h"
#include "database/section_file.h"

namespace {

using namespace corvane;

void Require(bool condition) {
    if (!condition) std::abort();
}

// One buffer for all texts: a new one for each would cost more than the rest of a run.
std::unique_ptr<char[]>& Buffer() {
    static auto buffer = std::make_unique<char[]>(kTextBufferSize + 1);
    return buffer;
}

// Reads the bytes as the text of a file, straight from memory.
SectionModel Read(std::string_view bytes, ModelKind kind) {
    TextReader reader;
    reader.buffer = std::move(Buffer());
    std::copy(bytes.begin(), bytes.end(), reader.buffer.get());
    reader.end = bytes.size();
    reader.atEnd = true;
    SectionModel section;
    ReadSectionLines(reader, kind, section);
    Buffer() = std::move(reader.buffer);
    return section;
}

// The block as far as the reader looks at it, straight into memory. Empty when it has no room.
std::string Write(SectionModel& section) {
    TextWriter writer;
    writer.buffer = std::move(Buffer());
    writer.error = system::kErrorPathNotFound;  // so that nothing goes to a file
    const std::string marker = GetMessageBytes(kMsgModelMarker);
    WriteLine(writer, marker);
    WriteLine(writer, GetMessageBytes(kMsgNameLabel));
    WriteSectionBody(writer, section);
    std::string text(writer.buffer.get(), writer.used);
    Buffer() = std::move(writer.buffer);
    return text.starts_with(marker) ? text : std::string();
}

void RequireCounts(SectionModel& section) {
    Require(section.panels.size() <= INT16_MAX && section.compartments.size() <= INT16_MAX);
    for (const Panel& panel : section.panels) {
        Require(panel.stiffeners.size() == panel.stiffenerDetails.size());
        Require(panel.nodes.size() <= INT16_MAX);
    }
    LibraryView view;
    MakeLibraryView(section, view);
    for (const Strake& strake : view.strakes) {
        Require(strake.itemCount == std::max(strake.nodeCount - 1, 0));
    }
}

// The only power of ten whose text is not that of the single nearest to it; from then on it stays.
constexpr std::string_view kShiftingNumber = "1E+28";

}  // namespace

CORVANE_FUZZ_TARGET(section) {
    if (bytes.size() > 64 * 1024) return;
    SectionModel bulkheads = Read(bytes, ModelKind::kBulkhead);
    RequireCounts(bulkheads);

    SectionModel first = Read(bytes, ModelKind::kSection);
    RequireCounts(first);
    const std::string once = Write(first);
    if (once.empty()) return;
    SectionModel second = Read(once, ModelKind::kSection);
    const std::string twice = Write(second);
    if (twice == once) return;
    Require(once.find(kShiftingNumber) != once.npos);
    SectionModel third = Read(twice, ModelKind::kSection);
    Require(Write(third) == twice);
}
