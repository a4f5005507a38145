// Texts that fit: how much room a text of a figure takes, whatever font shows it.
#pragma once

#include <string>

namespace corvane {

// Of a text whose letters have this height; about right for any proportional font.
double TextWidth(const std::wstring& text, double height_mm);

// The text, or its beginning with "..." where it is too long for the room; empty where not even
// that has room.
std::wstring FittingText(const std::wstring& text, double height_mm, double room_mm);

}  // namespace corvane
