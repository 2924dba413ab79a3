#pragma once

#include <X11/Intrinsic.h>

namespace workbench {

// The application's shell, with its locale, its options and its default resources.
Widget OpenWorkbench(XtAppContext &app, XrmOptionDescList options, Cardinal option_count, int &argc,
                     char **argv);

} // namespace workbench
