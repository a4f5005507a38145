// The pane beside the list: the selected section drawn in PIC_Section, and the selected model's
// position and frame below it.
#pragma once

#include <string>

#include "database/model_kind.h"
#include "database/section.h"
#include "preview/section_preview.h"

namespace corvane {

struct ModelRow;  // shell/model_list.h

// What the pane shows.
struct PreviewPane {
    // The section as it was read when its row was selected; drawn again from here.
    SectionModel section;
    bool isShown = false;
};

// Shows a row's model. A section is read and drawn when the preview is on; of any other model the
// position alone is read, and the picture says why it is empty. What could not be read is reported;
// picture and labels are empty then.
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

// The text of LB_Frame for a position x [m] along the ship.
std::wstring FrameText(float x_m);

}  // namespace corvane
