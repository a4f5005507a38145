// The host's programs read and write numbers with "." whatever the user's settings are. A test
// makes them unsuitable with the environment variable CORVANE_DECIMAL, the decimal symbol.
#include <cstdlib>
#include <string_view>

#include "companions/ztutil32/boolean.h"
#include "platform/ztutil32.h"

CORVANE_EXPORT int16_t CORVANE_STDCALL IsRegionalOK() {
    const char* symbol = std::getenv("CORVANE_DECIMAL");
    return corvane::ztutil::Boolean(symbol == nullptr || std::string_view(symbol) == ".");
}

// The symbol "fixed" means settings that cannot be changed.
CORVANE_EXPORT int16_t CORVANE_STDCALL SetRegionalOK() {
    const char* symbol = std::getenv("CORVANE_DECIMAL");
    if (symbol != nullptr && std::string_view(symbol) != "fixed") {
        setenv("CORVANE_DECIMAL", ".", 1);
    }
    return IsRegionalOK();
}
