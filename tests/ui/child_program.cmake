# The program that tests start; it lies beside unit_tests. Its source ends in .cc, or it would be
# taken for a test.
add_executable(child_program ${CMAKE_CURRENT_SOURCE_DIR}/ui/child_program.cc)
target_link_libraries(child_program PRIVATE corvane_flags)
add_dependencies(unit_tests child_program)
