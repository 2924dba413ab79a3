# Settings for everything that is compiled here: library, tests, examples and benches.

set(CMAKE_C_STANDARD 99)
set(CMAKE_C_STANDARD_REQUIRED ON)
set(CMAKE_C_EXTENSIONS OFF)
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

# The geometry is in single precision, and each intermediate result is rounded on its own: a fused
# multiply-add would move an arc's end by a pixel on machines that have one.
add_compile_options(-ffp-contract=off)

add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wconversion)
# Class records name the slots they fill and leave the rest zero on purpose.
add_compile_options($<$<COMPILE_LANGUAGE:CXX>:-Wno-missing-field-initializers>)
if(CORVIDLMW_WERROR)
    add_compile_options(-Werror)
endif()

if(CORVIDLMW_SANITIZE)
    set(sanitizers -fsanitize=address,undefined -fno-sanitize-recover=undefined)
    add_compile_options(${sanitizers} -fno-omit-frame-pointer)
    # Instrumented shifts in the toolkit's macros look like conversions of ours. The other builds
    # keep the warning.
    add_compile_options(-Wno-conversion)
    add_link_options(${sanitizers})
endif()

# Counts the branches taken in what is fuzzed; the fuzzers themselves link the engine.
if(CORVIDLMW_FUZZ)
    add_compile_options(-fsanitize=fuzzer-no-link)
    add_link_options(-fsanitize=fuzzer-no-link)
endif()
