#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <Xm/Xm.h>

#include "FindNodes.h"
#include "GraphView.h"

namespace graph_browser {

// A field for a text. The nodes that have it bear a mark in the overview; Return goes from one to the
// next, each in the middle of the view. It has the keyboard from a click or TakeKeyboard() to a press in
// the graph, so that keys meant for nodes do not reach it, nor the other way round.
class Search {
public:
    // The line of the field is a child of `parent`. `on_keyboard` is called when the field gets the
    // keyboard or gives it back.
    Search(Widget parent, GraphView &view, std::function<void()> on_keyboard);
    Search(const Search &) = delete;
    Search &operator=(const Search &) = delete;

    Widget Line() const { return line; }
    bool HasKeyboard() const;
    void TakeKeyboard(); // the whole text is selected then
    void DeleteCharacter();
    void SetText(const std::string &text);
    void GoToNext();
    // The view shows something else, or other text.
    void Refresh();

private:
    static void TextChanged(Widget, XtPointer search, XtPointer);
    static void FieldPressed(Widget, XtPointer search, XEvent *, Boolean *);
    static void GraphPressed(Widget, XtPointer search, XEvent *, Boolean *);
    static void Activated(Widget, XtPointer search, XtPointer);

    std::string Wanted() const;
    void Mark(int node, Pixel color);
    void ShowCount();
    void SetTraversal(bool on);

    GraphView &view;
    std::function<void()> keyboard_changed;
    Widget line;
    Widget field;
    Widget count;
    Pixel color = 0;
    std::vector<int> hits;
    std::vector<int> marked;
    std::optional<int> at; // the node that was gone to last
};

} // namespace graph_browser
