// Every section of the open database as a picture in a file of its own.
#pragma once

#include <string>

namespace corvane {

struct PicturesChoice {
    std::wstring folder;  // absolute
    size_t kind = 0;      // in PictureKinds (shell/picture_file.h)
    int count = 0;        // of the sections, for the user
};

// Asks for the folder and the kind, and once whether the files that are there may be replaced; then
// writes "DATABASE - NUMBER NAME.EXTENSION" for each section, in the order of the list's rows. A
// name that cannot be used, and a file that cannot be replaced, is reported before that question.
// The first file that cannot be written, which is reported, ends it, as the user can. A box says
// what was left out, and why.
void ExportAllPictures();

// What OK in the box requires: a folder that exists. What is missing is reported.
bool RequirePictureFolder(const PicturesChoice& choice);

}  // namespace corvane
