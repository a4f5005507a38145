#include "shell/exchange_preview.h"

#include "report/messages.h"
#include "shell/exchange_notes.h"
#include "shell/state.h"
#include "text/text.h"

namespace corvane {
namespace {

PaneShip ShipOf(const ExchangePreview& preview) {
    return {preview.bsd, [&preview](float x_m) {
                return OutlineAt(preview.path, preview.sections, preview.bsd, x_m);
            }};
}

std::vector<SectionPlace> SectionPlaces(const std::vector<ExchangeItem>& items) {
    std::vector<SectionPlace> sections;
    for (const ExchangeItem& item : items) {
        if (item.kind == ModelKind::kSection) sections.push_back({item.place, item.x_m});
    }
    return sections;
}

// False when nothing was read.
bool ShowItem(ExchangePreview& preview, const ListedFile& file, const ExchangeItem& item) {
    EmptyPreview(preview);
    preview.why = WhyNoPicture(item.kind);
    if (!ReadForExchange(file.path, item, preview.pane, preview.bsd)) return false;
    preview.path = file.path;
    preview.sections = SectionPlaces(file.items);
    preview.why = ShowInPane(preview.pane, ShipOf(preview), item.kind);
    return true;
}

}  // namespace

ExchangePreview NewExchangePreview() {
    ExchangePreview preview;
    preview.pane.options = shell.preview.options;
    return preview;
}

void EmptyPreview(ExchangePreview& preview) {
    EmptyPane(preview.pane);
    preview.why.clear();
    preview.label.clear();
    preview.note.clear();
}

void PreviewItem(ExchangePreview& preview, const ListedFile& file, size_t item) {
    const ExchangeItem& shown = file.items.at(item);
    const bool isRead = ShowItem(preview, file, shown);
    if (isRead) preview.label = ServiceText(preview.bsd);
    const bool isSection = isRead && shown.kind == ModelKind::kSection;
    preview.note = ModelNote(shown.kind, isSection ? preview.pane.section.x_m : shown.x_m);
}

void PreviewReplaced(ExchangePreview& preview, const ListedFile& file, size_t item) {
    if (!ShowItem(preview, file, file.items.at(item))) return;
    preview.label = FormatMessage(kMsgToBeReplaced, {Trim(preview.pane.section.name)});
}

void PreviewExported(ExchangePreview& preview, const ExportChoice& choice) {
    EmptyPreview(preview);
    preview.pane.section = choice.section;
    preview.bsd = shell.database.bsd;
    preview.why = ShowInPane(preview.pane, ShipOf(preview), ModelKind::kSection);
    const std::wstring name = Trim(choice.section.name);
    preview.label = choice.sections == 1
                        ? FormatMessage(kMsgToBeExported, {name})
                        : FormatMessage(kMsgFirstToBeExported, {choice.sections, name});
}

bool PreviewNextBulkhead(ExchangePreview& preview) {
    if (!TurnToNextBulkhead(preview.pane)) return false;
    preview.label = BulkheadText(preview.pane);
    return true;
}

void DrawExchangePreview(ExchangePreview& preview, Picture& picture) {
    DrawPane(preview.pane, ShipOf(preview), picture);
}

}  // namespace corvane
