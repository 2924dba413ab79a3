// The locale of an example.
#pragma once

#include <X11/Intrinsic.h>

namespace example {

// For XtSetLanguageProc. The programs' text is UTF-8, also where the environment says nothing of a locale.
String SetLocale(Display *, String, XtPointer);

} // namespace example
