// The box of File > Export all pictures: a folder and a kind of file.
#pragma once

#include "shell/all_pictures.h"

namespace corvane {

// False when the user cancels.
bool AskPictures(PicturesChoice& choice);

}  // namespace corvane
