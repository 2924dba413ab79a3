#include <corvidlmw/managers/DialogShell.h>

#include <Xm/DialogS.h>

namespace corvidlmw {

Widget CreateInDialogShell(Widget parent, String name, WidgetClass widget_class, ArgList args,
                           Cardinal argcount) {
    String own_name = name ? name : Name("");
    Text shell_name = Text(own_name) + "_popup";
    const std::span<Arg> given = Span(args, &argcount);
    Vector<Arg> shell_args(given.begin(), given.end());
    shell_args.push_back({Name(XmNallowShellResize), True});
    Widget shell = XmCreateDialogShell(parent, shell_name.data(), shell_args.data(),
                                       static_cast<Cardinal>(shell_args.size()));
    Widget dialog = XtCreateWidget(own_name, widget_class, shell, given.data(),
                                   static_cast<Cardinal>(given.size()));
    XtAddCallback(dialog, XmNdestroyCallback, _XmDestroyParentCallback, nullptr);
    return dialog;
}

} // namespace corvidlmw
