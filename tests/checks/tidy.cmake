# corvane_tidy(target root sources...): a target that has clang-tidy look at each source, as often
# as it or what it includes has changed. The sources' paths begin at root; each must be compiled by
# this build, whose flags are used.
function(corvane_tidy target root)
    set(script ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/tidy_file)
    set(extra)
    if(CMAKE_CROSSCOMPILING)
        # clang does not find the cross compiler's headers by itself. Of the intrinsics it has its
        # own, which are in the folder .../include of the compiler.
        foreach(folder ${CMAKE_CXX_IMPLICIT_INCLUDE_DIRECTORIES})
            if(NOT folder MATCHES "^/usr/lib/gcc/.*/include(-fixed)?$")
                list(APPEND extra --extra-arg=-isystem${folder})
            endif()
        endforeach()
    endif()
    set(stamps)
    foreach(source ${ARGN})
        set(stamp ${CMAKE_CURRENT_BINARY_DIR}/tidy/${source}.stamp)
        add_custom_command(
            OUTPUT ${stamp}
            COMMAND ${script} ${CMAKE_CXX_COMPILER} ${root} ${CMAKE_BINARY_DIR} ${source} ${stamp}
                    ${extra}
            DEPENDS ${root}/${source} ${root}/.clang-tidy ${script}
            DEPFILE ${stamp}.d
            COMMENT "clang-tidy ${source}"
            VERBATIM)
        list(APPEND stamps ${stamp})
    endforeach()
    add_custom_target(${target} DEPENDS ${stamps})
endfunction()
