/* The classes that have a page, what they declare, and a widget of each. */
#ifndef CORVIDLMW_TESTS_MANUAL_CLASSES_H
#define CORVIDLMW_TESTS_MANUAL_CLASSES_H

#include <X11/Intrinsic.h>

#include <iosfwd>
#include <set>
#include <string>
#include <vector>

namespace corvidlmw::test {

// What a class declares itself.
struct Declared {
    std::vector<XtResource> resources, constraints;
    std::string translations;
};

struct Class {
    const char *name;
    WidgetClass *pointer;
    Widget (*make)(Widget parent, ArgList args, Cardinal count) = nullptr;
    Widget (*make_parent)(Widget parent) = nullptr; // for children with constraints

    Widget Make(Widget parent, ArgList args, Cardinal count) const {
        return make ? make(parent, args, count)
                    : XtCreateWidget("widget", *pointer, parent, args, count);
    }
};

void PrintTo(const Class &each, std::ostream *out);

const std::vector<Class> &Classes();

// The first call must come before any widget is made.
const Declared &DeclaredBy(const Class &each);

// The resources, constraint ones aside, that the toolkit lists for a class.
std::vector<XtResource> ResourcesOf(WidgetClass widget_class);

} // namespace corvidlmw::test

#endif
