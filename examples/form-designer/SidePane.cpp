#include "SidePane.h"

#include <algorithm>
#include <utility>

#include <Xm/Label.h>
#include <Xm/LabelG.h>
#include <Xm/PushBG.h>
#include <Xm/RowColumn.h>
#include <Xm/TextF.h>
#include <Xm/ToggleB.h>
#include <Xm/Form.h>

#include <corvidlmw/managers/Grid.h>

#include <Text.h>

namespace form_designer {
namespace {

using graph_browser::Name;
using graph_browser::Text;

// A text is one line in the pane: a line break is written \n there, and a backslash \\.
std::string ToOneLine(const std::string &text) {
    std::string line;
    for (const char c : text)
        line += c == '\n' ? "\\n" : c == '\\' ? "\\\\" : std::string(1, c);
    return line;
}

std::string FromOneLine(const std::string &line) {
    std::string text;
    for (std::size_t i = 0; i < line.size(); ++i) {
        const bool escaped = line[i] == '\\' && i + 1 < line.size();
        if (escaped)
            ++i;
        text += escaped && line[i] == 'n' ? '\n' : line[i];
    }
    return text;
}

std::string TextIn(Widget field) {
    char *text = XmTextFieldGetString(field);
    std::string copy = text;
    XtFree(text);
    return copy;
}

} // namespace

SidePane::SidePane(Widget parent, Take to) : take(std::move(to)) {
    frame = XtVaCreateManagedWidget("sidePane", xmFormWidgetClass, parent, nullptr);
    heading = XtVaCreateManagedWidget("heading", xmLabelWidgetClass, frame, XmNtopAttachment,
                                      XmATTACH_FORM, XmNleftAttachment, XmATTACH_FORM,
                                      XmNrightAttachment, XmATTACH_FORM, XmNalignment,
                                      XmALIGNMENT_BEGINNING, XmNrecomputeSize, False, nullptr);
}

// An editor in which the user is typing stays when the same properties are shown again.
void SidePane::Show(const std::string &name, const std::string &title,
                    const std::vector<const Property *> &properties, const Values &values) {
    item = name;
    const Text text(title);
    XtVaSetValues(heading, XmNlabelString, text.Get(), nullptr);
    if (!std::ranges::equal(fields, properties, {}, &Field::property))
        Build(properties);
    for (Field &field : fields)
        ShowValue(field, ValueOf(values, *field.property));
}

void SidePane::Build(const std::vector<const Property *> &properties) {
    Widget old = std::exchange(table, nullptr);
    fields.clear();
    table = XtVaCreateWidget("table", xmGridWidgetClass, frame, XmNnumRows,
                             std::max<int>(static_cast<int>(properties.size()), 1), XmNnumColumns,
                             2, XmNdefaultSpacing, 2, XmNshadowThickness, 0, XmNtopAttachment,
                             XmATTACH_WIDGET, XmNtopWidget, heading, XmNleftAttachment,
                             XmATTACH_FORM, XmNrightAttachment, XmATTACH_FORM, nullptr);
    XmGridSetColumnResizability(table, 0, 0);
    for (int row = 0; const Property *property : properties) {
        XtVaCreateManagedWidget(property->name, xmLabelGadgetClass, table, XmNrow, row, XmNcolumn,
                                0, XmNresizeHorizontal, False, XmNresizeVertical, False, XmNgravity,
                                EastGravity, nullptr);
        fields.push_back({this, property, nullptr, {}});
        fields.back().editor = MakeEditor(fields.back(), row++);
    }
    if (old) {
        XtUnmanageChild(old);
        XtDestroyWidget(old);
    }
    XtManageChild(table);
}

Widget SidePane::MakeEditor(Field &field, int row) {
    if (field.property->type == Type::Choice)
        return MakeChoice(field, row);
    if (field.property->type == Type::Flag) {
        const Text none("");
        Widget toggle = XtVaCreateManagedWidget("flag", xmToggleButtonWidgetClass, table, XmNrow,
                                                row, XmNcolumn, 1, XmNlabelString, none.Get(),
                                                XmNalignment, XmALIGNMENT_BEGINNING, nullptr);
        XtAddCallback(toggle, XmNvalueChangedCallback, Toggled, &field);
        return toggle;
    }
    Widget text = XtVaCreateManagedWidget("value", xmTextFieldWidgetClass, table, XmNrow, row,
                                          XmNcolumn, 1, XmNcolumns, 10, nullptr);
    XtAddCallback(text, XmNactivateCallback, Typed, &field);
    XtAddCallback(text, XmNlosingFocusCallback, Typed, &field);
    return text;
}

Widget SidePane::MakeChoice(Field &field, int row) {
    Widget menu = XmCreatePulldownMenu(table, Name("choices"), nullptr, 0);
    for (const char *choice : field.property->choices) {
        Widget button = XtVaCreateManagedWidget(choice, xmPushButtonGadgetClass, menu, nullptr);
        XtAddCallback(button, XmNactivateCallback, Chosen, &field);
    }
    Arg args[3];
    XtSetArg(args[0], Name(XmNsubMenuId), menu);
    XtSetArg(args[1], Name(XmNrow), row);
    XtSetArg(args[2], Name(XmNcolumn), 1);
    Widget option = XmCreateOptionMenu(table, Name("choice"), args, XtNumber(args));
    XtUnmanageChild(XmOptionLabelGadget(option));
    XtManageChild(option);
    return option;
}

void SidePane::ShowValue(Field &field, const std::string &value) {
    switch (field.property->type) {
    case Type::Flag: XmToggleButtonSetState(field.editor, IsTrue(value), False); break;
    case Type::Choice: {
        Widget menu = nullptr;
        XtVaGetValues(field.editor, XmNsubMenuId, &menu, nullptr);
        XtVaSetValues(field.editor, XmNmenuHistory, XtNameToWidget(menu, value.c_str()), nullptr);
        break;
    }
    case Type::Number:
    case Type::Text:
        field.shown = ToOneLine(value);
        if (TextIn(field.editor) != field.shown)
            XmTextFieldSetString(field.editor, Name(field.shown.c_str()));
        break;
    }
}

Widget SidePane::Editor(const std::string &property) const {
    const auto found = std::ranges::find_if(
        fields, [&](const Field &field) { return property == field.property->name; });
    return found == fields.end() ? nullptr : found->editor;
}

// ---- Handing on ------------------------------------------------------------

// The fields may be others when `take` returns.
void SidePane::Commit() {
    for (std::size_t i = 0; i < fields.size(); ++i)
        CommitText(fields[i]);
}

void SidePane::CommitText(Field &field) {
    if (field.property->type == Type::Flag || field.property->type == Type::Choice)
        return;
    const std::string typed = TextIn(field.editor);
    if (typed == std::exchange(field.shown, typed))
        return;
    Hand(field, field.property->type == Type::Text ? FromOneLine(typed) : typed);
}

void SidePane::Hand(const Field &field, const std::string &value) {
    const std::string name = item;
    take(name, *field.property, value);
}

// A text field that is on its way out loses the focus, too.
void SidePane::Typed(Widget widget, XtPointer client_data, XtPointer) {
    auto &field = *static_cast<Field *>(client_data);
    if (field.editor == widget)
        field.pane->CommitText(field);
}

void SidePane::Toggled(Widget, XtPointer client_data, XtPointer call_data) {
    const auto &field = *static_cast<Field *>(client_data);
    const bool set = static_cast<XmToggleButtonCallbackStruct *>(call_data)->set != XmUNSET;
    field.pane->Hand(field, set ? "True" : "False");
}

void SidePane::Chosen(Widget button, XtPointer client_data, XtPointer) {
    const auto &field = *static_cast<Field *>(client_data);
    field.pane->Hand(field, XtName(button));
}

} // namespace form_designer
