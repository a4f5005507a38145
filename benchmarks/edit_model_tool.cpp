// edit_model_tool delete|delete_backup|copy|click PATH NUMBER: deletes a model, without a backup or
// with one, copies it (a section, with a backup), or reads the section by its number. Prints the
// microseconds that this took by the process's own clock and, on the host, the most memory that the
// process held, in KiB.
#include <cstdlib>
#include <string_view>

#include "benchmarks/measure.h"
#include "database/editing.h"
#include "database/section_block.h"

namespace corvane {
namespace {

bool Done(std::string_view edit, std::wstring path, int32_t number) {
    if (edit == "delete") return DeleteModel(path, number, false);
    if (edit == "delete_backup") return DeleteModel(path, number, true);
    if (edit == "copy") return CopyModel(path, {number, ModelKind::kSection, L"Copy", {true}}) != 0;
    SectionModel section;
    return edit == "click" && ReadSectionBlock(path, number, true, section);
}

}  // namespace
}  // namespace corvane

int main(int count, char** arguments) {
    using namespace corvane;
    if (count != 4) {
        std::fputs("edit_model_tool delete|delete_backup|copy|click PATH NUMBER\n", stderr);
        return 2;
    }
    bool done = false;
    const long long time = benchmarks::Microseconds([&] {
        done = Done(arguments[1], system::WideFromAnsi(arguments[2]), std::atoi(arguments[3]));
    });
    if (!done) return 1;
    std::printf("%lld %ld\n", time, benchmarks::PeakMemoryKiB());
    return 0;
}
