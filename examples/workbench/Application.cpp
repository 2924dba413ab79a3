#include "Application.h"

#include <Xm/Xm.h>

#include <Locale.h>

namespace workbench {

namespace {

char *fallback_resources[] = {
#include <WorkbenchResources.inc>
    nullptr,
};

} // namespace

Widget OpenWorkbench(XtAppContext &app, XrmOptionDescList options, Cardinal option_count, int &argc,
                     char **argv) {
    XtSetLanguageProc(nullptr, example::SetLocale, nullptr);
    return XtOpenApplication(&app, const_cast<char *>("Workbench"), options, option_count, &argc,
                             argv, fallback_resources, applicationShellWidgetClass, nullptr, 0);
}

} // namespace workbench
