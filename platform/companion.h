// What the headers of the companion libraries share: the calling convention, and the object
// through which the shell calls a library function that is bound late. A library is one of ours
// (companions/) or any other of the same name with the same functions: nothing is known of it but
// the contract in its header.
#pragma once

#include <cstdint>

#if defined(_WIN32)
#define CORVANE_STDCALL __stdcall
#define CORVANE_EXPORT extern "C" __declspec(dllexport)
#else
#define CORVANE_STDCALL
#define CORVANE_EXPORT extern "C" __attribute__((visibility("default")))
#endif

namespace corvane {

// The address of a function of a companion library, or null. The library is looked for in the
// program's own folder and in the system folder, nowhere else; once loaded it stays loaded.
// `error` gets the system's error number, 0 on success.
void* FindLibraryFunction(const char* library, const char* function, uint32_t& error);

// From now on a library that some part of the system asks for by its name alone comes from the
// system folder, never from the program's folder, the current one or PATH. Nothing on the host.
void RestrictLibrarySearch();

// A function of a companion library, called like the function itself. It is resolved at the first
// call. While library or function is missing every call tries again and gives the neutral result
// (zero), and `error` holds the system's error number.
template <class Signature>
struct LibraryFunction;

template <class Result, class... Arguments>
struct LibraryFunction<Result CORVANE_STDCALL(Arguments...)> {
    using Pointer = Result(CORVANE_STDCALL*)(Arguments...);

    const char* fileName;       // of the library, such as "GrVelk.dll"
    const char* function;       // its exported name
    Pointer pointer = nullptr;  // null until it is resolved; tests put their own function here
    uint32_t error = 0;         // the system's, of the last attempt to resolve it

    // Whether the function can be called; the first success is kept.
    bool Resolve() {
        if (pointer == nullptr) {
            pointer = reinterpret_cast<Pointer>(FindLibraryFunction(fileName, function, error));
        }
        return pointer != nullptr;
    }

    Result operator()(Arguments... arguments) {
        if (!Resolve()) return Result();
        return pointer(arguments...);
    }
};

}  // namespace corvane

// Declares the late-bound twin, in namespace corvane, of a library function declared above it.
// NOLINTBEGIN(bugprone-macro-parentheses): the name declared cannot be in parentheses.
#define CORVANE_LATE_BOUND(libraryName, functionName)                                          \
    namespace corvane {                                                                        \
    inline LibraryFunction<decltype(::functionName)> functionName{libraryName, #functionName}; \
    }
// NOLINTEND(bugprone-macro-parentheses)
