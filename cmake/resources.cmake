# Resources of the programs and libraries for Windows, all of one template: program.rc.in.

# corvane_resources(target file version description resources...): the target, whose file has this
# name, gets the version (up to four numbers) and description, and the resources, lines of a
# resource script. The version of the product is the project's.
function(corvane_resources target file version description)
    cmake_path(GET file STEM name)
    corvane_four_numbers(numbers ${version})
    corvane_four_numbers(product_numbers ${PROJECT_VERSION})
    set(type VFT_APP)
    if(file MATCHES "\\.dll$")
        set(type VFT_DLL)
    endif()
    list(JOIN ARGN "\n" resources)
    configure_file(${CMAKE_SOURCE_DIR}/cmake/program.rc.in ${target}.rc @ONLY)
    target_sources(${target} PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/${target}.rc)
endfunction()

# "1.2" as "1,2,0,0".
function(corvane_four_numbers variable version)
    string(REPLACE "." ";" numbers ${version}.0.0.0)
    list(SUBLIST numbers 0 4 numbers)
    list(JOIN numbers "," numbers)
    set(${variable} ${numbers} PARENT_SCOPE)
endfunction()

# Icon and manifest of a program with windows; the icon's number is 1.
set(CORVANE_MANIFEST "1 24 \"${CMAKE_SOURCE_DIR}/ui/main_window/corvane.manifest\"")
set(CORVANE_ICON "1 ICON \"${CMAKE_SOURCE_DIR}/ui/pictures/icons/corvane.ico\"")
set(CORVANE_PICTURES "#include \"${CMAKE_SOURCE_DIR}/ui/pictures/pictures.rc\"")
