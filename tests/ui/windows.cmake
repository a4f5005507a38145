# The tests of windows link the program's windows.
target_link_libraries(unit_tests PRIVATE corvane_windows oleacc oleaut32 ole32)
