// The creation of a manager in a dialog shell of its own, the same for all that offer it.
#pragma once

#include <corvidlmw/toolkit/Toolkit.h>

namespace corvidlmw {

// An unmanaged widget of that class in a new dialog shell, named after it with "_popup" added, that
// dies with the widget. Both get the arguments; the shell allows its child to resize it.
Widget CreateInDialogShell(Widget parent, String name, WidgetClass widget_class, ArgList args,
                           Cardinal argcount);

} // namespace corvidlmw
