# compiler_flags.cmake for MSVC. Not tried yet: this project's own builds use GCC and Clang.
set(CMAKE_MSVC_RUNTIME_LIBRARY "MultiThreaded$<$<CONFIG:Debug>:Debug>")
set(CMAKE_CXX_FLAGS_RELEASE "/O2 /Zi")
target_compile_options(corvane_flags INTERFACE /W4 /permissive- /utf-8 /EHsc)
add_compile_options(/GS /guard:cf)
add_link_options(/DEBUG /OPT:REF /OPT:ICF /DYNAMICBASE /NXCOMPAT /guard:cf)
if(CMAKE_SIZEOF_VOID_P EQUAL 8)
    add_link_options(/HIGHENTROPYVA)
endif()
option(CORVANE_WERROR "Warnings are errors" OFF)
if(CORVANE_WERROR)
    target_compile_options(corvane_flags INTERFACE /WX)
endif()

# The debug information is in a file of its own, <file>.pdb.
function(corvane_ships target)
endfunction()
