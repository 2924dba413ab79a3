#pragma once

#include <Xm/Xm.h>

namespace graph_browser {

// Starts the toolkit with the browser's resources, and gives the shell of its window. The options
// that it knows are taken out of the command line.
Widget OpenApplication(XtAppContext &app, XrmOptionDescList options, Cardinal option_count,
                       int &argc, char **argv);

} // namespace graph_browser
