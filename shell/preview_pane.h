// The pane beside the list: the selected section drawn in PIC_Section, and the selected model's
// position and frame below it.
#pragma once

#include <optional>
#include <string>

#include "database/bulkhead.h"
#include "database/model_kind.h"
#include "database/section.h"
#include "preview/annotations.h"
#include "preview/bulkhead_layout.h"
#include "preview/section_preview.h"

namespace corvane {

struct ModelRow;  // shell/model_list.h

// What the pane shows.
struct PreviewPane {
    // The section as it was read when its row was selected; drawn again from here.
    SectionModel section;
    bool isShown = false;
    // The bulkhead arrangement in the same way, with the ship around it once that was needed.
    BulkheadArrangement bulkheads;
    std::optional<ShipOutline> outline;
    bool areBulkheadsShown = false;
    size_t bulkhead = 0;   // which of them is shown, from 1; 0: all
    bool isLarge = false;  // it has the whole window
    PictureOptions options;
};

// Shows a row's model. A section or a bulkhead arrangement is read and drawn when the preview is
// on; of any other model the position alone is read, and the picture says why it is empty. What
// could not be read is reported; picture and labels are empty then.
void ShowInPreview(const ModelRow& row);
// Empties picture and labels; the picture says why.
void ClearPreviewPane(const std::wstring& why = {});

// Why there is nothing to draw of a section of this ship; empty when there is something.
std::wstring WhyNoPicture(SectionModel& section, const BasicShipData& bsd);
// The same for a model that is not a section.
std::wstring WhyNoPicture(ModelKind kind);

// Draws a section of a ship into a picture.
void DrawSection(SectionModel& section, const BasicShipData& bsd, Picture& picture);
// Draws the section that is shown into a picture; without one, the picture stays as it is.
void DrawPreview(Picture& picture);

// Of a bulkhead arrangement that is shown: its first bulkhead, the next one, after the last one all
// of them again. The status line says which.
void ShowNextBulkhead();

// The name of the model that has a picture now; empty without one.
std::wstring ShownModelName();

// The bulkheads that are shown, laid out for a sheet of this size.
BulkheadLayout LayOutShownBulkheads(double width_mm, double height_mm);

// The text of LB_Frame for a position x [m] along the ship.
std::wstring FrameText(float x_m);

}  // namespace corvane
