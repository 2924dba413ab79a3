/* GoogleTest beside Xlib, in either order: Xlib's macros bear names that GoogleTest declares. */

#ifndef CORVIDLMW_TESTS_SUPPORT_GOOGLETEST_H
#define CORVIDLMW_TESTS_SUPPORT_GOOGLETEST_H

#pragma push_macro("None")
#pragma push_macro("Bool")
#undef None
#undef Bool
#include <gtest/gtest.h>
#pragma pop_macro("None")
#pragma pop_macro("Bool")

#endif
