// The values in the words of a step:
//
//     42  -1             a number
//     nil                no pointer
//     @3                 the widget of that number
//     ~3                 also while it is being destroyed
//     "text              a compound string, or a text where one is asked for
//     pixmap:2 fonts:1 cursor:0 atom:1 class:XmArc layout:0 callbacks:1
//     [@3,@4] [1,2] ["a,"b]  arrays; what is behind their last entry is zero
//     nodes@3 arcs@3 selected@3 selectedArcs@3 roots@3
//                        the graph's own lists, just asked for
//     all                how many entries the array before has
#pragma once

#include <tests/storm/World.h>

#include <deque>
#include <string>
#include <type_traits>
#include <vector>

namespace corvidlmw::storm {

// Of one step; the values live as long as this.
class Values {
public:
    explicit Values(World &world) : world_(world) {}
    ~Values();
    Values(const Values &) = delete;
    Values &operator=(const Values &) = delete;

    // Not Good() afterwards where the word means nothing, or a widget that is dead.
    XtArgVal Of(const std::string &word);
    bool Good() const { return good_; }

    template <typename T>
    T As(const std::string &word) {
        if constexpr (std::is_same_v<T, const char *> || std::is_same_v<T, char *>)
            return Text(word);
        else if constexpr (std::is_floating_point_v<T>)
            return static_cast<T>(std::stod(word));
        else if constexpr (std::is_pointer_v<T>)
            return reinterpret_cast<T>(Of(word));
        else
            return static_cast<T>(Of(word));
    }
    char *Text(const std::string &word);

private:
    // Behind the end of each array there is room for this many entries.
    static constexpr std::size_t slack = 64;

    XtArgVal Fail();
    XtArgVal Named(const std::string &word);
    XtArgVal WidgetIn(const std::string &word);
    XtArgVal DyingIn(const std::string &word);
    XtArgVal OwnList(const std::string &word);
    XtArgVal Array(const std::string &word);
    XtArgVal String(const std::string &word);

    World &world_;
    bool good_ = true;
    int last_count_ = 0;
    std::vector<XmString> strings_;
    std::deque<std::vector<XtArgVal>> arrays_;
    std::deque<std::vector<int>> numbers_;
    std::deque<std::string> texts_;
};

// The classes that a storm makes widgets of, by the names of their creation functions.
using Creator = Widget (*)(Widget parent, char *name, ArgList args, Cardinal count);
Creator CreatorOf(const std::string &name);
// NULL where there is none of that name.
WidgetClass ClassOf(const std::string &name);

} // namespace corvidlmw::storm
