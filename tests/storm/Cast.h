// The widgets of a storm as its author imagines them: by number, class and parent. What callbacks and gestures
// did meanwhile is unknown to it, so that a seed alone decides the steps.
#pragma once

#include <tests/storm/Chance.h>

#include <X11/Intrinsic.h>

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace corvidlmw::storm {

struct Role {
    std::string kind; // the name of its class
    int parent = 0;
};

class Cast {
public:
    void Add(int id, const std::string &kind, int parent) { roles_[id] = {kind, parent}; }
    // With all that is below it.
    void Remove(int id);
    const std::map<int, Role> &roles() const { return roles_; }
    int size() const { return static_cast<int>(roles_.size()); }

    std::string KindOf(int id) const;
    WidgetClass ClassOf(int id) const;
    int ParentOf(int id) const;
    bool IsA(int id, WidgetClass widget_class) const;

    // Any one for which that holds; 0, the shell, if there is none.
    int Any(Chance &chance, const std::function<bool(int id)> &holds) const;
    int Any(Chance &chance) const;
    int AnyOf(Chance &chance, WidgetClass widget_class) const;
    int AnyChildOf(Chance &chance, int parent) const;

private:
    std::map<int, Role> roles_;
};

} // namespace corvidlmw::storm
