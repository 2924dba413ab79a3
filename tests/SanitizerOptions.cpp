// How the sanitizers treat the test programs. It is linked into them rather than set by CTest, so
// that a program that is run by hand says the same.

#ifndef FURTHER_ASAN_OPTIONS
#define FURTHER_ASAN_OPTIONS ""
#endif

// Xlib compares the names of resources by the length of the longer one: memcmp is held to what it reads.
extern "C" const char *__asan_default_options() {
    return "detect_leaks=1:detect_stack_use_after_return=1:strict_init_order=1"
           ":strict_memcmp=0" FURTHER_ASAN_OPTIONS;
}

extern "C" const char *__ubsan_default_options() {
    return "print_stacktrace=1";
}

extern "C" const char *__lsan_default_options() {
    return "print_suppressions=0:suppressions=" LSAN_SUPPRESSIONS;
}
