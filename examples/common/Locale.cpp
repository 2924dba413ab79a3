#include "Locale.h"

#include <clocale>
#include <cstring>
#include <langinfo.h>

namespace example {

String SetLocale(Display *, String, XtPointer) {
    std::setlocale(LC_ALL, "");
    if (std::strcmp(nl_langinfo(CODESET), "UTF-8") != 0)
        std::setlocale(LC_CTYPE, "C.UTF-8");
    return std::setlocale(LC_CTYPE, nullptr);
}

} // namespace example
