#pragma once

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include <Xm/Xm.h>

#include "Form.h"

namespace form_designer {

// Shows the properties of one widget, or of the form, and lets the user edit them.
class SidePane {
public:
    // Takes the item's name, the property and its new value.
    using Take = std::function<void(const std::string &, const Property &, const std::string &)>;

    SidePane(Widget parent, Take to);
    SidePane(const SidePane &) = delete;
    SidePane &operator=(const SidePane &) = delete;

    void Show(const std::string &name, const std::string &title,
              const std::vector<const Property *> &properties, const Values &values);
    // Hands on what was typed and not yet confirmed.
    void Commit();
    // The widget that edits a property; null if it is not shown.
    Widget Editor(const std::string &property) const;

private:
    struct Field {
        SidePane *pane;
        const Property *property;
        Widget editor;
        std::string shown; // what the editor showed before the user typed
    };

    static void Typed(Widget, XtPointer field, XtPointer);
    static void Toggled(Widget, XtPointer field, XtPointer call_data);
    static void Chosen(Widget, XtPointer field, XtPointer);

    void Build(const std::vector<const Property *> &properties);
    Widget MakeEditor(Field &field, int row);
    Widget MakeChoice(Field &field, int row);
    void ShowValue(Field &field, const std::string &value);
    void CommitText(Field &field);
    void Hand(const Field &field, const std::string &value);

    Widget frame;
    Widget heading;
    Widget table = nullptr;
    Take take;
    std::string item;
    std::deque<Field> fields; // their addresses are the callbacks' client data
};

} // namespace form_designer
