# The layers of the program: each folder is a library that links only what is below it.
include(${CMAKE_CURRENT_LIST_DIR}/../tests/checks/links.cmake)

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
endfunction()
