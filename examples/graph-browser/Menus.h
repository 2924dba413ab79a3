#pragma once

#include <deque>
#include <functional>
#include <initializer_list>

#include <Xm/Xm.h>

namespace graph_browser {

// One line of a menu. A line with `is_set` is a toggle that shows what that answers; one without
// is a plain command.
struct MenuItem {
    const char *label;
    char mnemonic;
    const char *accelerator = nullptr;      // as translations write it; null for none
    const char *accelerator_text = nullptr; // as the menu shows it
    std::function<void()> act = nullptr;
    std::function<bool()> is_set = nullptr;
    std::function<bool()> is_enabled = nullptr; // always, without it
};

// A menu bar made from tables.
class Menus {
public:
    explicit Menus(Widget menu_bar) : bar(menu_bar) {}
    Menus(const Menus &) = delete;
    Menus &operator=(const Menus &) = delete;

    // Appends a menu; the items that follow go into it.
    void AddMenu(const char *label, char mnemonic);
    void AddSeparator();
    void AddCommand(MenuItem item);
    void AddToggle(MenuItem item);
    // A submenu of which one line at a time is set.
    void AddRadioMenu(const char *label, char mnemonic, std::initializer_list<MenuItem> choices);

    // Lets every toggle show the state of what it stands for, and every line whether it can be
    // chosen.
    void Refresh();

private:
    struct Entry {
        MenuItem item;
        Menus *menus;
        bool radio;
        Widget widget;
    };

    static void Chosen(Widget, XtPointer entry, XtPointer);
    Widget AddPulldown(Widget parent, const char *label, char mnemonic, bool radio);
    void AddEntry(Widget parent, WidgetClass kind, MenuItem item, bool radio);

    Widget bar;
    Widget menu = nullptr;
    std::deque<Entry> entries; // their addresses are the callbacks' client data
};

} // namespace graph_browser
