// graph-browser FILE: shows a DOT file in a scrolled XmGraph, or prints it.

#include <iostream>
#include <string_view>
#include <variant>

#include <Xm/Xm.h>

#include "Application.h"
#include "BrowserWindow.h"
#include "DotReader.h"
#include "PrintFile.h"

namespace {

using namespace graph_browser;

enum ExitStatus { ok = 0, bad_file = 1, bad_usage = 2 };

// ---- Resources -------------------------------------------------------------

struct Options {
    char *selected;
    char *find;
    char *print;
    Boolean arc_labels;
    Boolean icons;
};

#define OPTION(name, type, size, member, default_type, default_value)                              \
    {                                                                                              \
        const_cast<char *>(name), const_cast<char *>(name), const_cast<char *>(type), size,        \
            XtOffsetOf(Options, member), const_cast<char *>(default_type),                         \
            reinterpret_cast<XtPointer>(default_value)                                             \
    }

XtResource option_resources[] = {
    OPTION("selected", XmRString, sizeof(char *), selected, XmRImmediate, 0),
    OPTION("find", XmRString, sizeof(char *), find, XmRImmediate, 0),
    OPTION("print", XmRString, sizeof(char *), print, XmRImmediate, 0),
    OPTION("arcLabels", XmRBoolean, sizeof(Boolean), arc_labels, XmRImmediate, True),
    OPTION("icons", XmRBoolean, sizeof(Boolean), icons, XmRImmediate, False),
};

XrmOptionDescRec option_table[] = {
    {const_cast<char *>("-orientation"), const_cast<char *>("*graph.orientation"), XrmoptionSepArg,
     nullptr},
    {const_cast<char *>("-arcs"), const_cast<char *>("*graph.arcDrawMode"), XrmoptionSepArg,
     nullptr},
    {const_cast<char *>("-layout"), const_cast<char *>("*graph.layoutStyle"), XrmoptionSepArg,
     nullptr},
    {const_cast<char *>("-select"), const_cast<char *>(".selected"), XrmoptionSepArg, nullptr},
    {const_cast<char *>("-find"), const_cast<char *>(".find"), XrmoptionSepArg, nullptr},
    {const_cast<char *>("-print"), const_cast<char *>(".print"), XrmoptionSepArg, nullptr},
    {const_cast<char *>("-labels"), const_cast<char *>(".arcLabels"), XrmoptionSepArg, nullptr},
    {const_cast<char *>("-icons"), const_cast<char *>(".icons"), XrmoptionSepArg, nullptr},
};

constexpr const char *usage =
    "usage: graph-browser [OPTION...] FILE\n"
    "Shows the DOT file FILE. Besides the toolkit's options (-display, -geometry, -xrm):\n"
    "  -orientation horizontal|vertical\n"
    "  -arcs position_fixed|position_relative|position_proportional\n"
    "  -layout graph|butterfly   the whole graph, or the selected node with its neighbours\n"
    "  -select NODE              the node to begin with\n"
    "  -find TEXT                mark the nodes with this text, and go to the first\n"
    "  -print FILE.ps            print the graph to this file instead of showing it\n"
    "  -labels true|false        labels on arcs\n"
    "  -icons true|false         nodes with a picture of their shape\n";

// ---- What the user asked for -----------------------------------------------

ExitStatus Print(BrowserWindow &window, const std::string &file) {
    const auto error = PrintToFile(window.View().GraphWidget(), file);
    if (error)
        std::cerr << "graph-browser: " << file << ": " << *error << '\n';
    return error ? bad_file : ok;
}

ExitStatus ShowUntilQuit(XtAppContext app, Widget shell, BrowserWindow &window,
                         const Options &options) {
    XtRealizeWidget(shell);
    window.View().ScrollToSelected();
    if (options.find) {
        window.Finder().SetText(options.find);
        window.Finder().GoToNext();
    }
    XtAppMainLoop(app);
    return ok;
}

// The window object outlives its widgets, which call it.
ExitStatus ShowOrPrint(XtAppContext app, Widget shell, const std::string &file, Graph graph) {
    Options options{};
    XtGetApplicationResources(shell, &options, option_resources, XtNumber(option_resources),
                              nullptr, 0);
    BrowserWindow window{shell, [app] { XtAppSetExitFlag(app); }};
    window.View().SetArcLabels(options.arc_labels != False);
    window.View().SetIcons(options.icons != False);
    window.Show(file, std::move(graph));
    ExitStatus status = bad_usage;
    if (options.selected && !window.View().SelectByName(options.selected))
        std::cerr << "graph-browser: " << file << ": no node " << options.selected << '\n';
    else if (options.print)
        status = Print(window, options.print);
    else
        status = ShowUntilQuit(app, shell, window, options);
    XtDestroyWidget(shell);
    return status;
}

int Run(int argc, char **argv, const std::string &file, Graph graph) {
    XtAppContext app = nullptr;
    const Widget shell = OpenApplication(app, option_table, XtNumber(option_table), argc, argv);
    if (argc != 2) {
        std::cerr << "graph-browser: " << argv[1] << ": unknown option\n" << usage;
        return bad_usage;
    }
    const ExitStatus status = ShowOrPrint(app, shell, file, std::move(graph));
    XtDestroyApplicationContext(app);
    return status;
}

} // namespace

// The file is read before there is a display, so that what is wrong with it is said anywhere.
int main(int argc, char **argv) {
    const std::string_view last = argc > 1 ? argv[argc - 1] : "";
    if (last == "-help" || last == "--help") {
        std::cout << usage;
        return ok;
    }
    if (last.empty() || last.starts_with('-')) {
        std::cerr << usage;
        return bad_usage;
    }
    const std::string file{last};
    auto result = ReadDotFile(file);
    if (const auto *error = std::get_if<ReadError>(&result)) {
        std::cerr << "graph-browser: " << Describe(file, *error) << '\n';
        return bad_file;
    }
    return Run(argc, argv, file, std::move(std::get<Graph>(result)));
}
