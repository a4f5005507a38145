// A pane with the picture of a model. The main window has one beside its list, PIC_Section with the
// selected model, whose position and frame are below it; the boxes FM_Export and FM_Inport have one
// of their own (shell/exchange_preview.h).
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "database/bulkhead.h"
#include "database/model_kind.h"
#include "database/scanning.h"
#include "database/section.h"
#include "preview/annotations.h"
#include "preview/bulkhead_layout.h"
#include "preview/section_preview.h"
#include "shell/picture_facts.h"

namespace corvane {

struct ModelRow;  // shell/model_list.h

// What a pane shows: a section, a bulkhead arrangement, or nothing.
struct PreviewPane {
    // The section as it was read when it was selected; drawn again from here.
    SectionModel section;
    bool isShown = false;
    // The bulkhead arrangement in the same way, with the ship around it once that was needed.
    BulkheadArrangement bulkheads;
    std::optional<ShipOutline> outline;
    bool areBulkheadsShown = false;
    size_t bulkhead = 0;   // which of them is shown, from 1; 0: all
    bool isLarge = false;  // it has the whole window
    PictureOptions options;
    // That the user clicked on in the section's picture: none, one, or two to measure.
    std::vector<PicturePlace> places;
};

// The ship of the model in a pane.
struct PaneShip {
    const BasicShipData& bsd;
    // What is around bulkheads without nodes of their own, at a position [m] along the ship.
    std::function<ShipOutline(float x_m)> outline;
};

// ---- Any pane ----------------------------------------------------------------------------------

// The pane shows nothing; its options stay.
void EmptyPane(PreviewPane& pane);
// Reads the section or the bulkhead arrangement at a place of a database, for ShowInPane. False
// when it could not be read, which is reported.
bool ReadIntoPane(PreviewPane& pane, const std::wstring& path, const BlockPlace& place,
                  ModelKind kind);
// Shows the section or the bulkhead arrangement that was read, all of it. Where there is nothing to
// draw the pane shows nothing, and the result says why; it is empty otherwise.
std::wstring ShowInPane(PreviewPane& pane, const PaneShip& ship, ModelKind kind);
bool HasPicture(const PreviewPane& pane);
// Draws what the pane shows into a picture; nothing leaves the picture as it is.
void DrawPane(PreviewPane& pane, const PaneShip& ship, Picture& picture);
// Draws bulkheads, with the legend and the scale bar where they are switched on.
void DrawBulkheadsWith(const PictureOptions& options, const BulkheadLayout& layout, Figure& figure);

// Of a bulkhead arrangement that is shown: its first bulkhead, the next one, after the last one all
// of them again. False, and nothing changes, when none is shown.
bool TurnToNextBulkhead(PreviewPane& pane);
// Which bulkhead of them that is.
std::wstring BulkheadText(const PreviewPane& pane);

// Why there is nothing to draw of a section of this ship; empty when there is something.
std::wstring WhyNoPicture(SectionModel& section, const BasicShipData& bsd);
// The same for all models of a kind.
std::wstring WhyNoPicture(ModelKind kind);

// ---- The main window's pane, shell.preview -----------------------------------------------------

// Shows a row's model. A section or a bulkhead arrangement is read and drawn when the preview is
// on; of any other model the position alone is read, and the picture says why it is empty. What
// could not be read is reported; picture and labels are empty then.
void ShowInPreview(const ModelRow& row);
// Empties picture and labels; the picture says why.
void ClearPreviewPane(const std::wstring& why = {});

// DrawPane.
void DrawPreview(Picture& picture);
// TurnToNextBulkhead; the status line says which it is.
void ShowNextBulkhead();

// The name of the model that has a picture now; empty without one.
std::wstring ShownModelName();

// The bulkheads that are shown, laid out for a sheet of this size.
BulkheadLayout LayOutShownBulkheads(double width_mm, double height_mm);

// The text of LB_Frame for a position x [m] along the ship.
std::wstring FrameText(float x_m);

}  // namespace corvane
