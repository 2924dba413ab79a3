#include "WorkbenchWindow.h"

namespace workbench {

void AddMenus(graph_browser::Menus &menus, WorkbenchWindow &window) {
    const auto idle = [&window] { return !window.IsBusy(); };
    const auto view = [&window](auto change) {
        return [&window, change] {
            change(window.pane());
            window.UpdateStatus();
        };
    };
    // clang-format off
    menus.AddMenu("File", 'F');
    menus.AddCommand({"Open DOT File...", 'O', "Ctrl<Key>o", "Ctrl+O",
                      [&window] { window.files().AskOpen(Source::DotFile); }, nullptr, idle});
    menus.AddCommand({"Open Directory...", 'D', "Ctrl<Key>r", "Ctrl+R",
                      [&window] { window.files().AskOpen(Source::Directory); }, nullptr, idle});
    menus.AddCommand({"Open Include Graph...", 'I', "Ctrl<Key>i", "Ctrl+I",
                      [&window] { window.files().AskOpen(Source::Includes); }, nullptr, idle});
    menus.AddCommand({"Stop Reading", 'R', "Ctrl<Key>c", "Ctrl+C",
                      [&window] { window.Stop(); }, nullptr, [&window] { return window.IsBusy(); }});
    menus.AddSeparator();
    menus.AddCommand({"Save", 'S', "Ctrl<Key>s", "Ctrl+S",
                      [&window] { window.files().Save(nullptr); }, nullptr, idle});
    menus.AddCommand({"Save As...", 'A', nullptr, nullptr,
                      [&window] { window.files().SaveAs(nullptr); }, nullptr, idle});
    menus.AddCommand({"Print to File...", 'P', "Ctrl<Key>p", "Ctrl+P",
                      [&window] { window.files().Print(); }, nullptr, idle});
    menus.AddSeparator();
    menus.AddCommand({"Quit", 'Q', "Ctrl<Key>q", "Ctrl+Q", [&window] { window.files().Quit(); }});

    menus.AddMenu("Edit", 'E');
    menus.AddCommand({"Undo", 'U', "Ctrl<Key>z", "Ctrl+Z", [&window] { window.Undo(); }, nullptr,
                      [&window, idle] { return idle() && !window.history().UndoName().empty(); }});
    menus.AddCommand({"Redo", 'R', "Ctrl<Key>y", "Ctrl+Y", [&window] { window.Redo(); }, nullptr,
                      [&window, idle] { return idle() && !window.history().RedoName().empty(); }});
    menus.AddSeparator();
    menus.AddCommand({"Add Node", 'A', "Ctrl<Key>n", "Ctrl+N",
                      [&window] { window.AddNode(); }, nullptr, idle});
    menus.AddCommand({"Rename", 'N', "<Key>F2", "F2",
                      [&window] { window.properties().TakeKeyboard(); }, nullptr, idle});
    menus.AddCommand({"Delete", 'D', "Ctrl<Key>d", "Ctrl+D",
                      [&window] { window.DeleteSelected(); }, nullptr, idle});
    menus.AddCommand({"Select All", 'S', "Ctrl<Key>a", "Ctrl+A",
                      [&window] { window.Select(graph_browser::NodesOf(window.document().graph)); },
                      nullptr, idle});
    menus.AddCommand({"Lay Out Again", 'L', "Ctrl<Key>l", "Ctrl+L",
                      [&window] { window.LayOutAgain(); }, nullptr, idle});

    menus.AddMenu("View", 'V');
    menus.AddCommand({"Find", 'F', "Ctrl<Key>f", "Ctrl+F", [&window] { window.finder().TakeKeyboard(); }});
    menus.AddCommand({"Find Next", 'N', "Ctrl<Key>g", "Ctrl+G",
                      [&window] { window.GoToNextHit(); }, nullptr, idle});
    menus.AddSeparator();
    menus.AddCommand({"Zoom In", 'I', "Ctrl<Key>equal", "Ctrl+=",
                      view([](GraphPane &pane) { pane.Zoom(2); }), nullptr, idle});
    menus.AddCommand({"Zoom Out", 'O', "Ctrl<Key>minus", "Ctrl+-",
                      view([](GraphPane &pane) { pane.Zoom(-2); }), nullptr, idle});
    menus.AddToggle({"Left to Right", 'L', "Ctrl<Key>t", "Ctrl+T",
                     view([](GraphPane &pane) { pane.Turn(); }),
                     [&window] { return window.pane().IsHorizontal(); }, idle});
    // clang-format on
}

} // namespace workbench
