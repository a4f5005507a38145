#include "shell/state.h"

namespace corvane {

ShellState shell;

}  // namespace corvane
