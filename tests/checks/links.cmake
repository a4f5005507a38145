# corvane_check_links(library): the target `links` also links the whole of this library, and only
# the libraries that it links, into a program. What the library calls of a folder above it has no
# definition then, and the link fails. It also fails on a library that needs itself from below.
function(corvane_check_links library)
    if(NOT TARGET links)
        add_custom_target(links)
    endif()
    set(source ${CMAKE_BINARY_DIR}/links/main.cpp)
    if(NOT EXISTS ${source})
        file(WRITE ${source} "int main() {}\n")
    endif()
    add_executable(links_${library} EXCLUDE_FROM_ALL ${source})
    set_target_properties(links_${library} PROPERTIES RUNTIME_OUTPUT_DIRECTORY
                          ${CMAKE_BINARY_DIR}/links)
    target_link_libraries(links_${library} PRIVATE
                          -Wl,--whole-archive $<TARGET_FILE:${library}> -Wl,--no-whole-archive
                          $<TARGET_PROPERTY:${library},INTERFACE_LINK_LIBRARIES>)
    add_dependencies(links_${library} ${library})
    add_dependencies(links links_${library})
endfunction()
