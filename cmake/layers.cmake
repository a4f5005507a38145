# The layers of the program: each folder is a library that links only what is below it.
include(${CMAKE_CURRENT_LIST_DIR}/../tests/checks/links.cmake)

set(CORVANE_STANDARD_HEADERS <algorithm> <array> <functional> <map> <memory> <string> <string_view>
                             <vector>)

# corvane_layer(folder libraries...): the library corvane_<folder> (corvane_ui_base for ui/base) of
# the sources in the folder, in its commands/ if there is such a folder, and in the twin folder of
# this build; it links the libraries.
function(corvane_layer folder)
    string(REPLACE "/" "_" name corvane_${folder})
    corvane_sources(sources ${folder} ${folder}/commands ${folder}/${CORVANE_TWIN})
    list(FILTER sources EXCLUDE REGEX "/main\\.cpp$")
    add_library(${name} STATIC ${sources})
    target_link_libraries(${name} PUBLIC corvane_flags ${ARGN})
    corvane_check_links(${name})
    # Half of the time to compile a small source is its headers. clang-tidy reads every source
    # without these, so that none leans on them.
    if(folder STREQUAL platform)
        target_precompile_headers(${name} PRIVATE ${CORVANE_STANDARD_HEADERS})
    elseif(folder STREQUAL ui/base)
        target_precompile_headers(${name} PRIVATE ${CMAKE_SOURCE_DIR}/platform/win32/win32.h
                                  ${CORVANE_STANDARD_HEADERS})
    elseif(folder MATCHES "^ui/")
        target_precompile_headers(${name} REUSE_FROM corvane_ui_base)
    else()
        target_precompile_headers(${name} REUSE_FROM corvane_platform)
    endif()
endfunction()
