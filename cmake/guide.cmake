# The user guide as HTML, in help/ beside the program: target guide.
file(GLOB_RECURSE guide_sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/docs/*.md
     ${CMAKE_SOURCE_DIR}/docs/images/*.png)
set(guide_folder ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/help)
set(make_guide ${CMAKE_CURRENT_LIST_DIR}/make_guide.py)

# Debian's own Python has Debian's python3-markdown; on Windows it is the one in the path.
if(CMAKE_HOST_WIN32)
    find_package(Python3 REQUIRED COMPONENTS Interpreter)
    set(guide_python ${Python3_EXECUTABLE})
else()
    set(guide_python /usr/bin/python3)
endif()
add_custom_command(OUTPUT ${guide_folder}/index.html
    COMMAND ${guide_python} -B ${make_guide} ${CMAKE_SOURCE_DIR}/docs ${guide_folder}
    DEPENDS ${make_guide} ${CMAKE_CURRENT_LIST_DIR}/guide.css
            ${CMAKE_CURRENT_LIST_DIR}/guide_search.js ${guide_sources}
    COMMENT "Making the pages of the user guide"
    VERBATIM)
add_custom_target(guide DEPENDS ${guide_folder}/index.html)
