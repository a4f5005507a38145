#include "companions/grvelk/drawing.h"

namespace corvane::grvelk {

bool OpenDrawing(WindowHandle /*window*/, DeviceHandle dc, Drawing& drawing) {
    if (dc == nullptr) return false;
    drawing = *static_cast<const Drawing*>(dc);
    return drawing.width > 0 && drawing.height > 0;
}

void CloseDrawing(const Drawing& /*drawing*/) {}

}  // namespace corvane::grvelk
