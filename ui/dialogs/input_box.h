// The input box: a question and a line of text as the answer.
#pragma once

#include <string>

namespace corvane {

// The most that can be typed: a model's name is cut there when it is written. A proposed answer may
// be longer.
inline constexpr int kLongestAnswer = 1000;

// Asks in a modal box; `answer` is proposed, selected, so that typing replaces it. OK and Enter
// accept: `answer` becomes what the field holds. Cancel, Esc and the close button leave it and
// return false.
bool AskText(const std::wstring& caption, const std::wstring& question, std::wstring& answer);

}  // namespace corvane
