#include "app/state.h"

namespace corvane {

ShellState shell;

}  // namespace corvane
