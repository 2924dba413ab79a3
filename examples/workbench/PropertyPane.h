// What is known of the selected node, in a table. Its label can be changed there.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <Xm/Xm.h>

#include "Document.h"

namespace workbench {

class PropertyPane {
public:
    // Takes a node and its new label.
    using Take = std::function<void(int, const std::string &)>;

    PropertyPane(Widget parent, const Document &document, Take take);
    PropertyPane(const PropertyPane &) = delete;
    PropertyPane &operator=(const PropertyPane &) = delete;

    Widget grid() const { return grid_; }

    void Show(const std::vector<int> &selected);
    // Hands over what was typed and not yet confirmed.
    void Commit();
    void TakeKeyboard();

private:
    static void Confirmed(Widget, XtPointer closure, XtPointer);

    void AddRow(int row, const char *name);
    void SetValue(std::size_t row, const std::string &value);
    void ShowNode(int node);
    void ShowNone(std::size_t count);

    const Document &document_;
    Take take_;
    Widget grid_;
    Widget label_;
    std::vector<Widget> values_;
    std::vector<std::string> shown_; // in the values
    std::optional<int> node_;
    std::string text_; // of the label, before the user typed
};

} // namespace workbench
