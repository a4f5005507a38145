// edit_model_tool delete|delete_backup|delete_history|copy|undo|click PATH NUMBER: deletes a model,
// without a backup, with one, or with one and a version in the history; copies it (a section, with
// a backup); puts the newest version of the history back, with a backup, as Undo does; or reads the
// section by its number. Prints the microseconds that this took by the process's own clock and, on
// the host, the most memory that the process held, in KiB. The database is listed before, as the
// window has it; that is not measured. LOCALAPPDATA is where the history is.
#include <cstdlib>
#include <string_view>

#include "benchmarks/measure.h"
#include "database/editing.h"
#include "database/section_block.h"
#include "files/rewrite.h"
#include "shell/edit_history.h"

namespace corvane {
namespace {

BlockNumbers List(const std::wstring& path) {
    TextReader reader;
    OpenText(reader, path);
    BlockNumbers blocks = ReadBlockNumbers(reader);
    system::GetFileStamp(reader.file, blocks.stamp);
    return blocks;
}

// Without the list that the window shows afterwards.
bool Undo(const std::wstring& path) {
    Rewrite rewrite;
    rewrite.keepBackup = true;
    std::vector<TextVersion> versions;
    if (!OpenOldText(rewrite, path) || ReadHistory(path, versions) != system::kErrorNone) {
        return false;
    }
    const UndoSteps steps = NextSteps(versions, rewrite.stamp);
    if (steps.undo == nullptr) return false;
    BeginRestoring(rewrite, steps.undo->file, TextSource::kVersion);
    return FinishRewrite(rewrite) == RewriteEnd::kDone;
}

bool Done(std::string_view edit, std::wstring path, int32_t number, const BlockNumbers& listed) {
    const EditName name(edit == "delete_history" || edit == "undo" ? L"Edit" : L"");
    if (edit == "delete") return DeleteModels(path, {number}, false, &listed);
    if (edit.starts_with("delete_")) return DeleteModels(path, {number}, true, &listed);
    if (edit == "copy") {
        return CopyModel(path, {number, ModelKind::kSection, L"Copy", {true, nullptr, &listed}}) !=
               0;
    }
    if (edit == "undo") return Undo(path);
    SectionModel section;
    return edit == "click" && ReadSectionBlock(path, number, true, section);
}

}  // namespace
}  // namespace corvane

int main(int count, char** arguments) {
    using namespace corvane;
    if (count != 4) {
        std::fputs("edit_model_tool EDIT PATH NUMBER\n", stderr);
        return 2;
    }
    const std::wstring path = system::WideFromAnsi(arguments[2]);
    const BlockNumbers listed = List(path);
    UseHistory();
    bool done = false;
    const long long time = benchmarks::Microseconds(
        [&] { done = Done(arguments[1], path, std::atoi(arguments[3]), listed); });
    if (!done) return 1;
    std::printf("%lld %ld\n", time, benchmarks::PeakMemoryKiB());
    return 0;
}
