// Which other files a program names: those that its table of imports has, and those in its texts,
// which it may look for later.
#pragma once

#include <set>
#include <string>

namespace corvane::ui {

// Names in the program's table of imports, in lower case.
std::set<std::wstring> ImportsOf(const std::wstring& program);

// All names of libraries and programs (dll, drv, exe, com, cpl) anywhere in the file, as single
// bytes or as UTF-16, in lower case; the imports are among them.
std::set<std::wstring> NamesIn(const std::wstring& program);

}  // namespace corvane::ui
