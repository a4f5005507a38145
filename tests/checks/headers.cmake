# corvane_headers_alone(target root headers...): a target that compiles each header by itself, as
# often as it or what it includes has changed. The headers' paths begin at root.
function(corvane_headers_alone target root)
    set(sources)
    foreach(header ${ARGN})
        string(REPLACE "/" "__" name ${header})
        set(source ${CMAKE_CURRENT_BINARY_DIR}/headers/${name}.cpp)
        # Twice: a second time it must add nothing.
        file(CONFIGURE OUTPUT ${source}
             CONTENT "#include \"${header}\"\n#include \"${header}\"\n" @ONLY)
        list(APPEND sources ${source})
    endforeach()
    add_library(${target} OBJECT EXCLUDE_FROM_ALL ${sources})
    target_include_directories(${target} PRIVATE ${root})
    target_compile_options(${target} PRIVATE -O0 -g0 -U_FORTIFY_SOURCE)
endfunction()
