# corvidlmw_add_test(<name> [DISPLAY] [INTERNAL] [WHOLE_STACKS] [TIMEOUT <seconds>] <source>...)
#
# Makes the GoogleTest program <name> and registers it with CTest.
#   DISPLAY   the program needs an X server: it links the harness, which starts one for the program
#             as a whole, so the program is one test of CTest's.
#             Without it each test of the program is one of CTest's.
#   INTERNAL  the program calls what the shared library hides: it links the static one.
#   WHOLE_STACKS  the toolkit leaks in what the program does: to tell such leaks by the functions in
#             tests/support/lsan.supp, the leak sanitizer unwinds through the toolkit, which is slow.

include(GoogleTest)

# corvidlmw_set_sanitizer_options(<program>): see tests/SanitizerOptions.cpp.
function(corvidlmw_set_sanitizer_options program)
    if(CORVIDLMW_SANITIZE)
        target_sources(${program} PRIVATE ${PROJECT_SOURCE_DIR}/tests/SanitizerOptions.cpp)
        target_compile_definitions(${program} PRIVATE
            LSAN_SUPPRESSIONS="${PROJECT_SOURCE_DIR}/tests/support/lsan.supp")
    endif()
endfunction()

function(corvidlmw_add_test name)
    cmake_parse_arguments(PARSE_ARGV 1 test "DISPLAY;INTERNAL;WHOLE_STACKS" "TIMEOUT" "")
    if(NOT test_TIMEOUT)
        set(test_TIMEOUT 300)
    endif()

    add_executable(${name} ${test_UNPARSED_ARGUMENTS})
    corvidlmw_set_sanitizer_options(${name})
    if(test_WHOLE_STACKS)
        target_compile_definitions(${name} PRIVATE FURTHER_ASAN_OPTIONS=":fast_unwind_on_malloc=0")
    endif()
    if(test_INTERNAL)
        target_link_libraries(${name} PRIVATE corvidlmw_static)
    else()
        target_link_libraries(${name} PRIVATE corvidlmw)
    endif()

    if(test_DISPLAY)
        target_link_libraries(${name} PRIVATE corvidlmw_test_support GTest::gtest_main)
        add_test(NAME ${name} COMMAND ${name})
        set_tests_properties(${name} PROPERTIES TIMEOUT ${test_TIMEOUT})
    else()
        target_link_libraries(${name} PRIVATE GTest::gtest_main)
        # Asking the program for its tests only when they run keeps the build free of running it.
        gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST PROPERTIES TIMEOUT ${test_TIMEOUT})
    endif()
endfunction()
