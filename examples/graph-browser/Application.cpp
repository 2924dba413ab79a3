#include "Application.h"

#include <Locale.h>

namespace graph_browser {
namespace {

char *fallback_resources[] = {
#include <GraphBrowserResources.inc>
    nullptr,
};

} // namespace

Widget OpenApplication(XtAppContext &app, XrmOptionDescList options, Cardinal option_count,
                       int &argc, char **argv) {
    XtSetLanguageProc(nullptr, example::SetLocale, nullptr);
    return XtOpenApplication(&app, const_cast<char *>("GraphBrowser"), options, option_count, &argc,
                             argv, fallback_resources, applicationShellWidgetClass, nullptr, 0);
}

} // namespace graph_browser
