// New files: made elsewhere first and put in place whole, so that a failure leaves the file of that
// name, or its absence, as it was.
#pragma once

#include <functional>
#include <string>

namespace corvane {

// Puts a copy of `source` at `target`; a copy onto itself is there already. A failure is reported.
bool PutFile(const std::wstring& source, const std::wstring& target);

// Has `make` write a file of a temporary name, and puts it at `target`. False when `make` says so,
// which then has reported it, and when the file cannot be put there, which is reported here. The
// temporary file goes.
bool MakeFile(const std::wstring& target,
              const std::function<bool(const std::wstring& temporary)>& make);

}  // namespace corvane
