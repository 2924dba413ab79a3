#include "Menus.h"

#include <utility>

#include <Xm/CascadeBG.h>
#include <Xm/PushBG.h>
#include <Xm/RowColumn.h>
#include <Xm/SeparatoG.h>
#include <Xm/ToggleBG.h>

#include "Text.h"

namespace graph_browser {
namespace {

void SetMnemonic(Widget widget, char mnemonic) {
    XtVaSetValues(widget, XmNmnemonic, static_cast<KeySym>(mnemonic), nullptr);
}

} // namespace

Widget Menus::AddPulldown(Widget parent, const char *label, char mnemonic, bool radio) {
    Arg arguments[2];
    XtSetArg(arguments[0], XmNradioBehavior, radio ? True : False);
    XtSetArg(arguments[1], XmNtearOffModel, XmTEAR_OFF_DISABLED);
    const Widget pulldown = XmCreatePulldownMenu(parent, Name(label), arguments, 2);
    const Text text{label};
    const Widget cascade =
        XtVaCreateManagedWidget(Name(label), xmCascadeButtonGadgetClass, parent, XmNlabelString,
                                text.Get(), XmNsubMenuId, pulldown, nullptr);
    SetMnemonic(cascade, mnemonic);
    return pulldown;
}

void Menus::AddMenu(const char *label, char mnemonic) {
    menu = AddPulldown(bar, label, mnemonic, false);
}

void Menus::AddSeparator() {
    XtCreateManagedWidget("separator", xmSeparatorGadgetClass, menu, nullptr, 0);
}

void Menus::AddEntry(Widget parent, WidgetClass kind, MenuItem item, bool radio) {
    Entry &entry = entries.emplace_back(Entry{std::move(item), this, radio, nullptr});
    const Text label{entry.item.label};
    entry.widget = XtVaCreateManagedWidget(entry.item.label, kind, parent, XmNlabelString,
                                           label.Get(), nullptr);
    SetMnemonic(entry.widget, entry.item.mnemonic);
    if (entry.item.accelerator) {
        const Text text{entry.item.accelerator_text};
        XtVaSetValues(entry.widget, XmNaccelerator, entry.item.accelerator, XmNacceleratorText,
                      text.Get(), nullptr);
    }
    const bool toggle = static_cast<bool>(entry.item.is_set);
    if (toggle)
        XtVaSetValues(entry.widget, XmNindicatorType, radio ? XmONE_OF_MANY_ROUND : XmN_OF_MANY,
                      XmNindicatorOn, radio ? XmINDICATOR_FILL : XmINDICATOR_CHECK_BOX,
                      XmNvisibleWhenOff, True, nullptr);
    XtAddCallback(entry.widget, toggle ? XmNvalueChangedCallback : XmNactivateCallback, Chosen,
                  &entry);
}

void Menus::AddCommand(MenuItem item) {
    AddEntry(menu, xmPushButtonGadgetClass, std::move(item), false);
}

void Menus::AddToggle(MenuItem item) {
    AddEntry(menu, xmToggleButtonGadgetClass, std::move(item), false);
}

void Menus::AddRadioMenu(const char *label, char mnemonic,
                         std::initializer_list<MenuItem> choices) {
    const Widget pulldown = AddPulldown(menu, label, mnemonic, true);
    for (const MenuItem &choice : choices)
        AddEntry(pulldown, xmToggleButtonGadgetClass, choice, true);
}

// A radio menu tells of the button that is left as well as of the one that is taken.
void Menus::Chosen(Widget widget, XtPointer client_data, XtPointer) {
    auto &entry = *static_cast<Entry *>(client_data);
    if (entry.radio && !XmToggleButtonGadgetGetState(widget))
        return;
    entry.item.act();
    entry.menus->Refresh();
}

void Menus::Refresh() {
    for (Entry &entry : entries) {
        if (entry.item.is_set)
            XmToggleButtonGadgetSetState(entry.widget, entry.item.is_set() ? True : False, False);
        if (entry.item.is_enabled)
            XtSetSensitive(entry.widget, entry.item.is_enabled() ? True : False);
    }
}

} // namespace graph_browser
