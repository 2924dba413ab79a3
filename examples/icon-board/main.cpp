// icon-board [-insensitive]: icon gadgets of all placements, alignments, shadows and states.

#include "Board.h"

#include "../graph-browser/ShownMark.h"

#include <Xm/BulletinB.h>

#include <clocale>
#include <iostream>
#include <string_view>

namespace {

char *fallback_resources[] = {
#include <IconBoardResources.inc>
    nullptr,
};

} // namespace

int main(int argc, char **argv) {
    XtSetLanguageProc(nullptr, nullptr, nullptr);
    XtAppContext app = nullptr;
    Widget shell =
        XtVaOpenApplication(&app, "IconBoard", nullptr, 0, &argc, argv, fallback_resources,
                            applicationShellWidgetClass, XmNtitle, "looks of icons", nullptr);
    // Texts are UTF-8, also where the environment says nothing of a locale.
    std::setlocale(LC_CTYPE, "C.UTF-8");
    const bool insensitive = argc == 2 && std::string_view(argv[1]) == "-insensitive";
    if (argc > 1 && !insensitive) {
        std::cerr << "usage: icon-board [-insensitive]\n";
        return EXIT_FAILURE;
    }
    Widget board = XtVaCreateManagedWidget("board", xmBulletinBoardWidgetClass, shell, nullptr);
    const icon_board::Board icons(board, !insensitive);
    graph_browser::ShownMark mark(shell, board);
    mark.Expect("icons");
    XtRealizeWidget(shell);
    XtAppMainLoop(app);
    return EXIT_SUCCESS;
}
