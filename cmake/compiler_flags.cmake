# Flags of every target: C++20, strict warnings, assertions in every build, hardening. They go by
# the compiler: GCC and Clang, on whatever system, or MSVC (msvc_flags.cmake).
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

# Flags for our own sources; third-party code (GoogleTest) compiles without them.
add_library(corvane_flags INTERFACE)
target_include_directories(corvane_flags INTERFACE ${CMAKE_SOURCE_DIR})
if(WIN32)
    add_compile_definitions(UNICODE _UNICODE WIN32_LEAN_AND_MEAN NOMINMAX _WIN32_WINNT=0x0601
                            WINVER=0x0601 _WIN32_IE=0x0900)
endif()
# What the program says of its compiler.
string(REPLACE GNU GCC CORVANE_COMPILER "${CMAKE_CXX_COMPILER_ID} ${CMAKE_CXX_COMPILER_VERSION}")

if(MSVC)
    include(${CMAKE_CURRENT_LIST_DIR}/msvc_flags.cmake)
    return()
endif()

# Assertions stay in the program that ships: an assertion that fails is a bug of ours.
set(CMAKE_CXX_FLAGS_RELEASE "-O2 -g1")
set(CMAKE_CXX_FLAGS_DEBUG "-O1 -g1")

# No binary names a folder of the machine that built it: a source is named by its path in this tree,
# a header of the compiler by what follows the compiler's folder.
add_compile_options(-ffile-prefix-map=${CMAKE_SOURCE_DIR}/= -fmacro-prefix-map=/usr/lib/gcc/=
                    -fmacro-prefix-map=/usr/include/=)

# corvane_ships(target): the target's debug sections are kept apart, in symbols/<file>.debug, where
# a debugger finds them; the file that ships has none.
function(corvane_ships target)
    if(CORVANE_SANITIZE OR CORVANE_FUZZ)
        return()
    endif()
    if(NOT WIN32)
        # Linux systems differ in these libraries.
        target_link_options(${target} PRIVATE -static-libstdc++ -static-libgcc -Wl,-z,relro,-z,now)
    endif()
    # It notes the time of the day otherwise.
    set(objcopy ${CMAKE_COMMAND} -E env SOURCE_DATE_EPOCH=0 ${CMAKE_OBJCOPY})
    set(symbols ${CMAKE_BINARY_DIR}/symbols/$<TARGET_FILE_NAME:${target}>.debug)
    add_custom_command(TARGET ${target} POST_BUILD
        COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_BINARY_DIR}/symbols
        COMMAND ${objcopy} --only-keep-debug $<TARGET_FILE:${target}> ${symbols}
        COMMAND ${objcopy} --strip-all --add-gnu-debuglink=${symbols} $<TARGET_FILE:${target}>
        VERBATIM)
endfunction()

target_compile_options(corvane_flags INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wno-sign-conversion -Wcast-qual
    -Wformat=2 -Wnon-virtual-dtor -Wold-style-cast -Wundef -Wunused)
target_compile_definitions(corvane_flags INTERFACE _GLIBCXX_ASSERTIONS)

# ./test sets the option. Another compiler may warn of correct code, in its own headers even, so
# its warnings never stop a build.
option(CORVANE_WERROR "Warnings are errors, with the compilers that the checks know" OFF)
set(known_compilers GNU-12 GNU-14 Clang-19)
string(REGEX MATCH "^[0-9]+" compiler ${CMAKE_CXX_COMPILER_VERSION})
string(PREPEND compiler ${CMAKE_CXX_COMPILER_ID}-)
if(NOT compiler IN_LIST known_compilers)
    message(STATUS "The checks do not know ${compiler}: its warnings are not errors")
elseif(CORVANE_WERROR)
    target_compile_options(corvane_flags INTERFACE -Werror)
endif()
if(compiler STREQUAL GNU-14 OR (WIN32 AND compiler STREQUAL GNU-12))
    # In the standard library's code for texts, its optimiser warns of overruns that cannot be.
    target_compile_options(corvane_flags INTERFACE
        -Wno-array-bounds -Wno-stringop-overflow -Wno-stringop-overread)
elseif(compiler STREQUAL Clang-19)
    # GCC 12's standard library sorts with a function that is deprecated.
    target_compile_options(corvane_flags INTERFACE -Wno-deprecated-declarations)
endif()

if(CORVANE_SANITIZE)
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all
                        -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
elseif(CORVANE_FUZZ)
    add_compile_options(-fsanitize=address,undefined,fuzzer-no-link -fno-sanitize-recover=all)
    add_link_options(-fsanitize=address,undefined)
else()
    add_compile_options(-fstack-protector-strong)
    add_compile_definitions(_FORTIFY_SOURCE=2)
endif()

if(WIN32)
    # -static: the program needs no library of the compiler. The rest is the linker's hardening.
    # The stack protector's own option brings in its library.
    # No time of the link: the same sources give the same bytes.
    add_link_options(-static -fstack-protector-strong -Wl,--dynamicbase -Wl,--nxcompat
                     -Wl,--no-insert-timestamp)
    if(CMAKE_SIZEOF_VOID_P EQUAL 8)
        add_link_options(-Wl,--high-entropy-va)
    else()
        # The companion libraries export undecorated names of stdcall functions.
        add_compile_options(-msse2 -mfpmath=sse -mstackrealign)
        add_link_options(-Wl,--kill-at)
    endif()
endif()
