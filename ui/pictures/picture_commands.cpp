#include "ui/pictures/picture_commands.h"

#include "shell/commands/commands.h"
#include "ui/base/keys.h"
#include "ui/pictures/section_picture.h"

namespace corvane {

uint16_t CommandOfKey(const MSG& message) {
    const Command* command = FindCommand(KeyOf(message));
    return command == nullptr ? uint16_t{0} : command->id;
}

bool RunPictureCommand(HWND picture, uint16_t command) {
    switch (command) {
        case ME_ViewZoomIn:
            ZoomSectionPicture(picture, true);
            return true;
        case ME_ViewZoomOut:
            ZoomSectionPicture(picture, false);
            return true;
        case ME_ViewFit:
            FitSectionPicture(picture);
            return true;
        default:
            return false;
    }
}

}  // namespace corvane
