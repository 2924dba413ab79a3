// form-designer [FILE]: designs a form of widgets in an XmGrid, and keeps it as an X resource file.

#include <iostream>
#include <string_view>

#include "DesignerWindow.h"
#include "FormFile.h"

#include <Locale.h>

namespace {

using namespace form_designer;

enum ExitStatus { ok = 0, bad_file = 1, bad_usage = 2 };

constexpr const char *usage =
    "usage: form-designer [OPTION...] [FILE]\n"
    "Designs the form in FILE, or a new one. Besides the toolkit's options (-display, -geometry,\n"
    "-xrm) there is\n"
    "  -select WIDGET    the widget to begin with\n";

char *fallback_resources[] = {
#include <FormDesignerResources.inc>
    nullptr,
};

struct Options {
    char *selected;
};

XtResource option_resources[] = {
    {const_cast<char *>("selected"), const_cast<char *>("Selected"), const_cast<char *>(XmRString),
     sizeof(char *), XtOffsetOf(Options, selected), const_cast<char *>(XmRImmediate), nullptr},
};

XrmOptionDescRec option_table[] = {
    {const_cast<char *>("-select"), const_cast<char *>(".selected"), XrmoptionSepArg, nullptr},
};

// The window object outlives its widgets, which call it.
void ShowUntilQuit(XtAppContext app, Widget shell, const std::string &file, Form form) {
    Options options{};
    XtGetApplicationResources(shell, &options, option_resources, XtNumber(option_resources),
                              nullptr, 0);
    DesignerWindow window{shell, [app] { XtAppSetExitFlag(app); }};
    window.Show(file, std::move(form));
    if (options.selected)
        window.TheCanvas().Select(options.selected);
    XtRealizeWidget(shell);
    XtAppMainLoop(app);
    XtDestroyWidget(shell);
}

int Run(int argc, char **argv, const std::string &file, Form form) {
    XtSetLanguageProc(nullptr, example::SetLocale, nullptr);
    XtAppContext app = nullptr;
    const Widget shell = XtOpenApplication(&app, const_cast<char *>("FormDesigner"), option_table,
                                           XtNumber(option_table), &argc, argv, fallback_resources,
                                           applicationShellWidgetClass, nullptr, 0);
    if (argc > (file.empty() ? 1 : 2)) {
        std::cerr << "form-designer: " << argv[1] << ": unknown option\n" << usage;
        return bad_usage;
    }
    ShowUntilQuit(app, shell, file, std::move(form));
    XtDestroyApplicationContext(app);
    return ok;
}

} // namespace

// The file is read before there is a display, so that what is wrong with it is said anywhere.
int main(int argc, char **argv) {
    const std::string_view last = argc > 1 ? argv[argc - 1] : "";
    if (last == "-help" || last == "--help") {
        std::cout << usage;
        return ok;
    }
    // The argument of an option is no file.
    const bool has_file =
        !last.empty() && !last.starts_with('-') && (argc == 2 || argv[argc - 2][0] != '-');
    if (!has_file)
        return Run(argc, argv, "", NewForm());
    const std::string file{last};
    auto result = ReadFormFile(file);
    if (const auto *error = std::get_if<FileError>(&result)) {
        std::cerr << "form-designer: " << Describe(file, *error) << '\n';
        return bad_file;
    }
    return Run(argc, argv, file, std::move(std::get<Form>(result)));
}
