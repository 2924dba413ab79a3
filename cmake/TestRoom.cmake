# corvidlmw_add_test(<name> [DISPLAY] [INTERNAL] [TIMEOUT <seconds>] <source>...)
#
# Makes the GoogleTest program <name> and registers it with CTest.
#   DISPLAY   the program needs an X server: it links the harness, which starts one for the program
#             as a whole, so the program is one test of CTest's.
#             Without it each test of the program is one of CTest's.
#   INTERNAL  the program calls what the shared library hides: it links the static one.

include(GoogleTest)

set(CORVIDLMW_TEST_ENVIRONMENT
    "ASAN_OPTIONS=detect_leaks=1:detect_stack_use_after_return=1:strict_init_order=1"
    "UBSAN_OPTIONS=print_stacktrace=1"
    "LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/tests/support/lsan.supp:print_suppressions=0")

function(corvidlmw_add_test name)
    cmake_parse_arguments(PARSE_ARGV 1 test "DISPLAY;INTERNAL" "TIMEOUT" "")
    if(NOT test_TIMEOUT)
        set(test_TIMEOUT 300)
    endif()

    add_executable(${name} ${test_UNPARSED_ARGUMENTS})
    if(test_INTERNAL)
        target_link_libraries(${name} PRIVATE corvidlmw_static)
    else()
        target_link_libraries(${name} PRIVATE corvidlmw)
    endif()

    set(properties TIMEOUT ${test_TIMEOUT} ENVIRONMENT "${CORVIDLMW_TEST_ENVIRONMENT}")
    if(test_DISPLAY)
        target_link_libraries(${name} PRIVATE corvidlmw_test_support GTest::gtest_main)
        add_test(NAME ${name} COMMAND ${name})
        set_tests_properties(${name} PROPERTIES ${properties})
    else()
        target_link_libraries(${name} PRIVATE GTest::gtest_main)
        # Asking the program for its tests only when they run keeps the build free of running it.
        gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST PROPERTIES ${properties})
    endif()
endfunction()
