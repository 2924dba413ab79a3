#include "EditMenu.h"

namespace graph_browser {

void AddEditMenu(Menus &menus, GraphView &view, Editor &editor, Search &search) {
    const auto editing = [&view] { return view.Editing(); };
    // clang-format off
    menus.AddMenu("Edit", 'E');
    menus.AddToggle({"Edit Mode", 'E', "Ctrl<Key>e", "Ctrl+E",
                     [&view] { view.SetEditing(!view.Editing()); }, editing});
    menus.AddSeparator();
    menus.AddCommand({"Add Node", 'A', "Ctrl<Key>n", "Ctrl+N",
                      [&editor] { editor.AddNode(); }, nullptr, editing});
    menus.AddCommand({"Name...", 'N', "<Key>F2", "F2",
                      [&editor] { editor.LabelSelected(); }, nullptr, editing});
    // The accelerator takes the key from the text to be found, too.
    menus.AddCommand({"Delete", 'D', "<Key>Delete", "Del",
                      [&editor, &search] {
                          if (search.HasKeyboard())
                              search.DeleteCharacter();
                          else
                              editor.DeleteSelected();
                      },
                      nullptr, [&view, &search] { return view.Editing() || search.HasKeyboard(); }});
    menus.AddSeparator();
    menus.AddCommand({"Select All", 'S', "Ctrl<Key>a", "Ctrl+A",
                      [&editor] { editor.SelectAll(); }, nullptr, editing});
    menus.AddCommand({"Lay Out Again", 'L', "Ctrl<Key>r", "Ctrl+R",
                      [&view] { view.LayOutAgain(); }});
    // clang-format on
}

} // namespace graph_browser
