#include "shell/section_conversion.h"

#include <utility>

#include "database/copying.h"
#include "database/creating.h"
#include "database/section_block.h"
#include "files/file_system.h"
#include "files/rewrite.h"
#include "files/text_file.h"
#include "legacy/exchange.h"
#include "report/reporters.h"

namespace corvane {
namespace {

// What the library could not read is empty. Whether it read all is asked of the list, which reads
// the whole file: for such a section at once, so that it alone is left out, for the others at the
// end.
bool IsEmpty(const SectionModel& section) {
    return section.name.empty() && section.panels.empty();
}

// The next section goes behind the others. False when it could not be read.
bool WriteNext(TextWriter& writer, int32_t number, const ModelEntry& entry,
               SectionConversion& conversion) {
    SectionModel section;
    Losses losses;
    const std::wstring& source = conversion.source;
    if (!ImportSection(source, static_cast<int16_t>(entry.number), section, losses)) return false;
    if (conversion.leavesOut && IsEmpty(section) && !RequireAllRead(source)) return false;
    WriteSectionBlock(writer, section, number);
    AddSection(conversion.report, section.name, std::move(losses));
    return true;
}

bool WriteSections(TextWriter& writer, SectionConversion& conversion) {
    conversion.progress.total = static_cast<int64_t>(conversion.sections.size());
    int32_t written = 0;
    for (const ModelEntry& entry : conversion.sections) {
        if (!Advance(conversion.progress, 1)) return false;
        if (WriteNext(writer, written + 1, entry, conversion)) {
            ++written;
        } else if (conversion.leavesOut) {
            AddLeftOut(conversion.report, ModelKind::kSection, entry.name, kMsgCouldNotBeRead);
        } else {
            return false;
        }
    }
    return RequireAllRead(conversion.source);
}

// The head of a database that is there, and the sections.
bool WriteAll(const std::wstring& head, const std::wstring& path, SectionConversion& conversion) {
    TextReader reader;
    TextWriter writer;
    if (!OpenText(reader, head)) {
        ReportTextNotWritten(path, reader.error);
        return false;
    }
    bool isDone = CreateText(writer, path);
    if (isDone) CopyFileHead(reader, writer);
    isDone = isDone && WriteSections(writer, conversion);
    CloseText(writer);
    const system::ErrorNumber error = isDone ? reader.error : system::kErrorNone;
    if (writer.error != system::kErrorNone || error != system::kErrorNone) {
        ReportTextNotWritten(path, writer.error != system::kErrorNone ? writer.error : error);
        return false;
    }
    return isDone;
}

}  // namespace

TemporaryDatabase::~TemporaryDatabase() {
    if (!path.empty() && RemoveOwnFile(path) != system::kErrorNone) {
        ReportMessage(kMsgFileNotRemoved, {path});
    }
}

bool WriteConverted(const std::wstring& path, BasicShipData& bsd, SectionConversion& conversion) {
    const TemporaryDatabase head;
    if (head.error != system::kErrorNone) {
        ReportTextNotWritten(path, head.error);
        return false;
    }
    return CreateDatabaseFile(head.path, bsd) && WriteAll(head.path, path, conversion);
}

}  // namespace corvane
