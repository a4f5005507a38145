#include "shell/model_properties.h"

#include "database/describing.h"
#include "report/messages.h"
#include "shell/preview_pane.h"
#include "shell/state.h"
#include "text/numbers.h"

namespace corvane {
namespace {

// The frame as the label of the window has it, without the words before the colon.
std::wstring NearestFrameOf(float x_m) {
    const std::wstring text = FrameText(x_m);
    const size_t colon = text.find(L": ");
    return colon == std::wstring::npos ? text : text.substr(colon + 2);
}

std::wstring PositionOf(const ModelDescription& description) {
    if (!description.hasPosition) return {};
    return FormatMessage(kMsgPositionOfModel, {DecimalText(double{description.x_m} + 0.0, 3, 3),
                                               NearestFrameOf(description.x_m)});
}

}  // namespace

bool ReadProperties(const ModelEntry& model, std::wstring& text) {
    ModelDescription found;
    if (!DescribeModel(shell.database.path, PlaceOf(model), found)) return false;
    const StampTexts& stamp = found.stamp;
    text = FormatMessage(
        kMsgPropertiesOfModel,
        {model.name, KindName(model.kind), model.number, PositionOf(found), found.contents,
         FormatMessage(kMsgStampOfModel,
                       {stamp.written, stamp.user, stamp.program, stamp.formatVersion}),
         std::to_wstring(found.size), found.identifier});
    return true;
}

}  // namespace corvane
