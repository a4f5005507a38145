# The user guide as HTML, in help/ beside the program: target guide.
file(GLOB_RECURSE guide_sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/docs/*.md
     ${CMAKE_SOURCE_DIR}/docs/images/*.png)
set(guide_folder ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/help)
set(make_guide ${CMAKE_CURRENT_LIST_DIR}/make_guide.py)

# Debian's own Python: it has Debian's python3-markdown.
add_custom_command(OUTPUT ${guide_folder}/index.html
    COMMAND /usr/bin/python3 -B ${make_guide} ${CMAKE_SOURCE_DIR}/docs ${guide_folder}
    DEPENDS ${make_guide} ${CMAKE_CURRENT_LIST_DIR}/guide.css
            ${CMAKE_CURRENT_LIST_DIR}/guide_search.js ${guide_sources}
    COMMENT "Making the pages of the user guide"
    VERBATIM)
add_custom_target(guide DEPENDS ${guide_folder}/index.html)
