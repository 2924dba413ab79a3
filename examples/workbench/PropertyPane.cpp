#include "PropertyPane.h"

#include <array>
#include <utility>

#include <Xm/Label.h>
#include <Xm/LabelG.h>
#include <Xm/TextF.h>

#include <corvidlmw/managers/Grid.h>

#include <Directory.h>
#include <OneLine.h>
#include <Text.h>

namespace workbench {

namespace {

using graph_browser::Name;
using graph_browser::Text;

enum Row : std::size_t {
    name_row,
    label_row,
    kind_row,
    path_row,
    size_row,
    changed_row,
    in_row,
    out_row,
    cluster_row,
    note_row
};

constexpr std::array<const char *, 10> rows = {"Name",    "Label",   "Kind",     "Path",    "Size",
                                               "Changed", "Arcs in", "Arcs out", "Cluster", "Note"};
constexpr std::size_t line_length = 34;
constexpr std::size_t most_lines = 12;

std::string TextIn(Widget field) {
    char *text = XmTextFieldGetString(field);
    std::string copy = text ? text : "";
    XtFree(text);
    return copy;
}

// Broken after a comma, a slash or a blank where the pane ends.
std::string Broken(const std::string &text) {
    std::string broken;
    std::size_t length = 0;
    std::size_t lines = 1;
    for (const char c : text) {
        const bool may_break = c == ' ' || c == '/' || c == ',';
        broken += c;
        length++;
        if (may_break && length >= line_length - 8) {
            if (++lines > most_lines) {
                return broken + "\xe2\x80\xa6";
            }
            broken += '\n';
            length = 0;
        }
    }
    return broken;
}

std::string DateOf(const Item &item) {
    file_list::Entry entry;
    entry.changed = item.changed;
    return file_list::DateText(entry);
}

std::string SizeOf(const Item &item) {
    return item.kind == Kind::Node || item.kind == Kind::Directory
               ? ""
               : file_list::Grouped(item.size) + " bytes";
}

} // namespace

// ---- The table --------------------------------------------------------------------------------------

PropertyPane::PropertyPane(Widget parent, const Document &document, Take take)
    : document_(document), take_(std::move(take)),
      grid_(XtVaCreateWidget("properties", xmGridWidgetClass, parent, XmNnumRows, rows.size(),
                             XmNnumColumns, 2, XmNdefaultSpacing, 2, XmNshadowThickness, 0,
                             nullptr)) {
    XmGridSetColumnResizability(grid_, 0, 0);
    for (int row = 0; const char *name : rows) {
        XmGridSetRowResizability(grid_, row, 0);
        AddRow(row++, name);
    }
    shown_.assign(rows.size(), " ");
    label_ = values_[label_row];
    XtAddCallback(label_, XmNactivateCallback, Confirmed, this);
    XtAddCallback(label_, XmNlosingFocusCallback, Confirmed, this);
    ShowNone(0);
    XtManageChild(grid_);
}

void PropertyPane::AddRow(int row, const char *name) {
    const Text title(name);
    const Text nothing(" ");
    XtVaCreateManagedWidget("property", xmLabelGadgetClass, grid_, XmNlabelString, title.Get(),
                            XmNrow, row, XmNcolumn, 0, XmNresizeHorizontal, False,
                            XmNresizeVertical, False, XmNgravity, NorthEastGravity, nullptr);
    values_.push_back(row == label_row
                          ? XtVaCreateManagedWidget("label", xmTextFieldWidgetClass, grid_, XmNrow,
                                                    row, XmNcolumn, 1, XmNcolumns, 20, nullptr)
                          : XtVaCreateManagedWidget("value", xmLabelWidgetClass, grid_,
                                                    XmNlabelString, nothing.Get(), XmNalignment,
                                                    XmALIGNMENT_BEGINNING, XmNrow, row, XmNcolumn,
                                                    1, nullptr));
}

void PropertyPane::SetValue(std::size_t row, const std::string &value) {
    const std::string text = value.empty() ? " " : Broken(value);
    if (std::exchange(shown_[row], text) == text) {
        return;
    }
    const Text label(text);
    XtVaSetValues(values_[row], XmNlabelString, label.Get(), nullptr);
}

// ---- Values -----------------------------------------------------------------------------------------

void PropertyPane::Show(const std::vector<int> &selected) {
    Commit();
    node_ = selected.size() == 1 ? std::optional(selected.front()) : std::nullopt;
    if (node_) {
        ShowNode(*node_);
    } else {
        ShowNone(selected.size());
    }
}

void PropertyPane::ShowNode(int node) {
    const Node &shown = document_.graph.NodeAt(node);
    const Item &item = document_.ItemAt(node);
    const Degree degree = DegreesOf(document_.graph)[static_cast<std::size_t>(node)];
    SetValue(name_row, shown.name);
    SetValue(kind_row, KindName(ShownKind(item.kind, degree)));
    SetValue(path_row, item.path);
    SetValue(size_row, SizeOf(item));
    SetValue(changed_row, DateOf(item));
    SetValue(in_row, std::to_string(degree.in));
    SetValue(out_row, std::to_string(degree.out));
    SetValue(cluster_row, shown.cluster);
    SetValue(note_row, item.note);
    text_ = example::OneLine(shown.label);
    XtSetSensitive(label_, True);
    if (TextIn(label_) != text_) {
        XmTextFieldSetString(label_, Name(text_.c_str()));
    }
}

void PropertyPane::ShowNone(std::size_t count) {
    for (std::size_t row = 0; row < rows.size(); row++) {
        if (row != label_row) {
            SetValue(row, "");
        }
    }
    SetValue(name_row, count == 0 ? "nothing selected" : std::to_string(count) + " nodes selected");
    text_.clear();
    XmTextFieldSetString(label_, Name(""));
    XtSetSensitive(label_, False);
}

// ---- The label --------------------------------------------------------------------------------------

void PropertyPane::Commit() {
    const std::string typed = TextIn(label_);
    if (node_ && typed != std::exchange(text_, typed)) {
        take_(*node_, example::FromOneLine(typed));
    }
}

void PropertyPane::TakeKeyboard() {
    XmProcessTraversal(label_, XmTRAVERSE_CURRENT);
}

void PropertyPane::Confirmed(Widget, XtPointer closure, XtPointer) {
    static_cast<PropertyPane *>(closure)->Commit();
}

} // namespace workbench
