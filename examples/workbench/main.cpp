// workbench [PATH]: a directory, a DOT file, or with -includes the include graph of a project.

#include <cstdlib>
#include <iostream>
#include <string>
#include <string_view>

#include <Xm/Xm.h>

#include "Application.h"
#include "Drill.h"
#include "Stopwatch.h"
#include "WorkbenchWindow.h"

namespace {

using namespace workbench;

enum ExitStatus { ok = 0, bad_usage = 2 };

struct Options {
    Boolean includes;
    Boolean measure;
    char *find;
    char *select;
};

#define OPTION(name, type, size, member)                                                           \
    {                                                                                              \
        const_cast<char *>(name), const_cast<char *>(name), const_cast<char *>(type), size,        \
            XtOffsetOf(Options, member), const_cast<char *>(XmRImmediate), nullptr                 \
    }

XtResource option_resources[] = {
    OPTION("includes", XmRBoolean, sizeof(Boolean), includes),
    OPTION("measure", XmRBoolean, sizeof(Boolean), measure),
    OPTION("find", XmRString, sizeof(char *), find),
    OPTION("select", XmRString, sizeof(char *), select),
};

XrmOptionDescRec option_table[] = {
    {const_cast<char *>("-includes"), const_cast<char *>(".includes"), XrmoptionNoArg,
     const_cast<char *>("True")},
    {const_cast<char *>("-measure"), const_cast<char *>(".measure"), XrmoptionNoArg,
     const_cast<char *>("True")},
    {const_cast<char *>("-find"), const_cast<char *>(".find"), XrmoptionSepArg, nullptr},
    {const_cast<char *>("-select"), const_cast<char *>(".select"), XrmoptionSepArg, nullptr},
};

constexpr const char *usage =
    "usage: workbench [OPTION...] [PATH]\n"
    "Shows the directory or the DOT file PATH. Besides the toolkit's options (-display, -geometry, "
    "-xrm):\n"
    "  -includes      which source file in the directory PATH includes which\n"
    "  -find TEXT     mark the nodes with this text\n"
    "  -select NODE   the node to begin with\n"
    "  -measure       go through the commands, tell how long the longest stay away from the event "
    "loop\n"
    "                 was in each, and quit\n";

void SelectByName(WorkbenchWindow &window, const std::string &name) {
    const auto &nodes = window.document().graph.nodes;
    for (int i = 0; const auto &node : nodes) {
        if (node.name == name || node.label == name) {
            window.Select({i});
            window.pane().BringIntoSight(i);
            return;
        }
        i++;
    }
    std::cerr << "workbench: no node " << name << '\n';
}

void Open(WorkbenchWindow &window, const Options &options, const std::string &path) {
    window.Open(options.includes ? Source::Includes : GuessSource(path), path);
    if (options.select) {
        window.WhenShown(
            [&window, name = std::string(options.select)] { SelectByName(window, name); });
    }
    if (options.find) {
        window.Find(options.find);
    }
}

void Run(XtAppContext app, Widget shell, const std::string &path, Clock::time_point begin) {
    Options options{};
    XtGetApplicationResources(shell, &options, option_resources, XtNumber(option_resources),
                              nullptr, 0);
    WorkbenchWindow window(shell, [app] { XtAppSetExitFlag(app); });
    if (!path.empty()) {
        Open(window, options, path);
    }
    XtRealizeWidget(shell);
    if (options.measure) {
        WatchEvents(XtDisplay(shell));
    }
    Drill drill(window, begin);
    if (options.measure) {
        drill.Begin();
    }
    XtAppMainLoop(app);
    XtDestroyWidget(shell);
}

} // namespace

int main(int argc, char **argv) {
    const auto begin = Clock::now();
    const std::string_view last = argc > 1 ? argv[argc - 1] : "";
    if (last == "-help" || last == "--help") {
        std::cout << usage;
        return ok;
    }
    XtAppContext app = nullptr;
    const Widget shell = OpenWorkbench(app, option_table, XtNumber(option_table), argc, argv);
    if (argc > 2 || (argc == 2 && argv[1][0] == '-')) {
        std::cerr << usage;
        return bad_usage;
    }
    Run(app, shell, argc == 2 ? argv[1] : "", begin);
    XtDestroyApplicationContext(app);
    return ok;
}
