// The tables in the pages of the classes against the tables in the code, and against a widget that has
// just been made: name, class, type, default and access of every resource, and the names of actions,
// translations and inherited resources.

#include <corvidlmw/graph/Arc.h>
#include <corvidlmw/list/LmList.h>
#include <corvidlmw/managers/Grid.h>

#include <tests/manual/Classes.h>
#include <tests/manual/PageSource.h>
#include <tests/manual/ResourceTypes.h>
#include <tests/support/Harness.h>

#include <X11/IntrinsicP.h>
#include <X11/cursorfont.h>
#include <Xm/BulletinB.h>
#include <Xm/PushB.h>

#include <algorithm>
#include <regex>

namespace {

using namespace corvidlmw::test;

// ---- Values ------------------------------------------------------------------------------------------

XtArgVal Cut(XtArgVal value, unsigned size) {
    return size >= sizeof value ? value : value & ((XtArgVal{1} << (8 * size)) - 1);
}

// Of a list of callbacks, whether it has some: the toolkit gives an empty list for none.
XtArgVal ValueOf(Widget w, const XtResource &resource) {
    if (std::string(resource.resource_type) == XmRCallback) {
        return XtHasCallbacks(w, resource.resource_name) == XtCallbackHasSome;
    }
    XtArgVal value = 0;
    XtVaGetValues(w, resource.resource_name, &value, NULL);
    if (std::string(resource.resource_type) == XmRXmString) { // a copy
        XmStringFree(reinterpret_cast<XmString>(value));
    }
    return Cut(value, resource.resource_size);
}

// ---- Names -----------------------------------------------------------------------------------------------

// As the headers spell it: a name's macro is XmN and the string, a class's XmC and the string.
std::string Macro(const char *prefix, const char *text) {
    return std::string(prefix) + text;
}

const PageResource *RowOf(const std::vector<PageResource> &rows, const XtResource &resource) {
    const auto found = std::find_if(rows.begin(), rows.end(), [&](const PageResource &row) {
        return row.name == Macro("XmN", resource.resource_name);
    });
    return found == rows.end() ? nullptr : &*found;
}

class ResourcePages : public DisplayTest, public ::testing::WithParamInterface<Class> {
protected:
    void SetUp() override {
        DeclaredBy(GetParam());
        DisplayTest::SetUp();
    }

    const Declared &declared() const { return DeclaredBy(GetParam()); }
    const Page &page() const {
        static const Page none;
        const auto found = Pages().find(GetParam().name);
        return found == Pages().end() ? none : found->second;
    }
    const std::vector<PageResource> &RowsOf(bool constraints) const {
        static const std::vector<PageResource> none;
        const auto found = page().resource_sets.find(
            std::string(GetParam().name) + (constraints ? " Constraint" : "") + " Resource Set");
        return found == page().resource_sets.end() ? none : found->second;
    }

    // A widget of the class, or for constraint resources a child of one, with these arguments.
    Widget Make(bool constraints, ArgList args = nullptr, Cardinal count = 0) {
        if (!constraints) {
            return GetParam().Make(MakeForm(), args, count);
        }
        const auto make_parent = GetParam().make_parent;
        Widget parent =
            make_parent ? make_parent(MakeForm()) : GetParam().Make(MakeForm(), nullptr, 0);
        return XmCreatePushButton(parent, Name("child"), args, count);
    }
    // The shell takes one child; what is made for the test lies below a form.
    Widget MakeForm() {
        return XtCreateManagedWidget("form", xmBulletinBoardWidgetClass, shell, nullptr, 0);
    }

    template <class Check>
    void ForEachRow(Check check) {
        for (const bool constraints : {false, true}) {
            const auto &resources = constraints ? declared().constraints : declared().resources;
            for (const XtResource &resource : resources) {
                SCOPED_TRACE(resource.resource_name);
                if (const PageResource *row = RowOf(RowsOf(constraints), resource)) {
                    check(constraints, resource, *row);
                } else {
                    ADD_FAILURE() << "not in the page";
                }
            }
        }
    }

    void CheckDefault(bool constraints, const XtResource &resource, const PageResource &row);
    void CheckAccess(bool constraints, const XtResource &resource, const PageResource &row);
    std::vector<XtArgVal> OtherValues(Widget w, const XtResource &resource);
    bool TakesAtCreation(bool constraints, const XtResource &resource);
    bool TakesLater(bool constraints, const XtResource &resource);
};

// ---- Names, classes, types -----------------------------------------------------------------------------

// Other words with that prefix, such as XmRESIZE_ANY, are in capitals.
std::string RepresentationsIn(const std::string &text) {
    std::string found;
    const std::regex representation(R"(XmR[A-Z][a-z]\w+)");
    for (std::sregex_iterator at(text.begin(), text.end(), representation), end; at != end; ++at) {
        found += at->str();
    }
    return found;
}

TEST_P(ResourcePages, HaveTheResourcesOfTheClass) {
    EXPECT_EQ(RowsOf(false).size(), declared().resources.size());
    EXPECT_EQ(RowsOf(true).size(), declared().constraints.size());
    ForEachRow([&](bool, const XtResource &resource, const PageResource &row) {
        EXPECT_EQ(row.class_name, Macro("XmC", resource.resource_class));
        EXPECT_TRUE(TypeFits(resource, row.type))
            << row.type << " for " << resource.resource_type << " of " << resource.resource_size;
        const auto entry = page().entries.find(row.name);
        if (entry == page().entries.end()) {
            ADD_FAILURE() << "is not described";
            return;
        }
        EXPECT_EQ(RepresentationsIn(entry->second),
                  IsPlain(resource) ? "" : Macro("XmR", resource.resource_type));
    });
}

// ---- Defaults ------------------------------------------------------------------------------------------

// Left at their defaults they ask for a place, and read as the place that the child then got.
bool IsFilledIn(const XtResource &resource) {
    static const std::set<std::string> places = {XmNrow, XmNcolumn, XmNpositionIndex};
    return places.count(resource.resource_name) > 0;
}

// What the text is as a value of the resource.
XtArgVal Converted(Widget w, const std::string &text, const XtResource &resource) {
    XtArgVal value = 0;
    XrmValue from = {static_cast<unsigned>(text.size() + 1), Name(text.c_str())};
    XrmValue to = {resource.resource_size, reinterpret_cast<XPointer>(&value)};
    EXPECT_TRUE(XtConvertAndStore(w, XtRString, &from, resource.resource_type, &to)) << text;
    return value;
}

void ResourcePages::CheckDefault(bool constraints, const XtResource &resource,
                                 const PageResource &row) {
    Widget w = Make(constraints);
    const XtArgVal fresh = ValueOf(w, resource);
    const std::string type = resource.default_type ? resource.default_type : "";
    const XtArgVal stored =
        Cut(reinterpret_cast<XtArgVal>(resource.default_addr), resource.resource_size);
    if (row.preset == "dynamic") {
        EXPECT_TRUE(type == XtRCallProc || fresh != stored) << "is always " << fresh;
    } else if (row.preset == "built-in") {
        EXPECT_TRUE(fresh == stored && fresh != 0);
    } else if (row.preset.front() == '"') {
        const std::string text = row.preset.substr(1, row.preset.size() - 2);
        if (type == XtRString) {
            EXPECT_EQ(text, static_cast<const char *>(resource.default_addr));
        } else {
            EXPECT_EQ(type, XtRCallProc);
            EXPECT_EQ(fresh, Converted(w, text, resource));
        }
    } else if (const auto number = NumberOf(row.preset)) {
        EXPECT_EQ(IsFilledIn(resource) ? stored : fresh, Cut(*number, resource.resource_size))
            << row.preset;
    } else {
        ADD_FAILURE() << "what is " << row.preset << "?";
    }
    XtDestroyWidget(w);
}

TEST_P(ResourcePages, HaveTheDefaultsOfAFreshWidget) {
    ForEachRow([&](bool constraints, const XtResource &resource, const PageResource &row) {
        CheckDefault(constraints, resource, row);
    });
}

// ---- Access ---------------------------------------------------------------------------------------------

// Other values than the present one, of which a widget takes one if it takes any.
std::vector<XtArgVal> ResourcePages::OtherValues(Widget w, const XtResource &resource) {
    const XtArgVal now = ValueOf(w, resource);
    const std::string type = resource.resource_type;
    if (type == XmRBoolean) {
        return {!now};
    }
    if (type == XmRPixel) {
        return {now ^ 0x10203};
    }
    if (type == XmRCursor) {
        return {static_cast<XtArgVal>(XCreateFontCursor(display, XC_watch))};
    }
    if (!IsPlain(resource)) {
        std::vector<XtArgVal> others = {0, 1, 2, 3, 4, 5};
        std::erase(others, now);
        return others;
    }
    return {Cut(now + 1, resource.resource_size), Cut(now - 1, resource.resource_size), 50};
}

TEST_P(ResourcePages, TellWhatCanBeSet) {
    ForEachRow([&](bool constraints, const XtResource &resource, const PageResource &row) {
        CheckAccess(constraints, resource, row);
    });
}

bool ResourcePages::TakesAtCreation(bool constraints, const XtResource &resource) {
    const auto others = OtherValues(Make(constraints), resource);
    return std::any_of(others.begin(), others.end(), [&](XtArgVal other) {
        Arg arg = {resource.resource_name, other};
        return ValueOf(Make(constraints, &arg, 1), resource) == other;
    });
}

// An arc takes nothing without nodes, and a list without rows is as high as it is.
void Prepare(Widget w) {
    if (XmIsArc(w)) {
        int count = 0;
        WidgetList nodes = XmGraphGetNodes(XtParent(w), &count);
        XtVaSetValues(w, XmNfrom, nodes[0], XmNto, nodes[1], NULL);
    } else if (LmIsList(w)) {
        LmListAddItem(w, nullptr, 0);
    }
}

bool ResourcePages::TakesLater(bool constraints, const XtResource &resource) {
    Widget w = Make(constraints);
    Prepare(w);
    const auto others = OtherValues(w, resource);
    return std::any_of(others.begin(), others.end(), [&](XtArgVal other) {
        XtVaSetValues(w, resource.resource_name, other, NULL);
        return ValueOf(w, resource) == other;
    });
}

// What is more than a number, what counts something else, and what asks for something and is forgotten:
// the classes' own tests tell how these are set.
bool IsMereNumber(const XtResource &resource) {
    static const std::set<std::string> pointers = {
        XmRCallback, XmRFontList, XmRXmString, XmRXmStringTable,
        XmRPointer,  XmRFunction, XtRWindow,   XmRGadgetPixmap,
    };
    static const std::set<std::string> requests = {
        XmNreLayout, XmNreorient, XmNitemCount, XmNselectedItemCount, XmNbuilderAction,
    };
    // Of gadgets that differ in nothing else, the first one decides.
    static const std::set<std::string> shared = {XmNtopShadowColor, XmNbottomShadowColor};
    return !pointers.count(resource.resource_type) && !requests.count(resource.resource_name) &&
           !shared.count(resource.resource_name);
}

void ResourcePages::CheckAccess(bool constraints, const XtResource &resource,
                                const PageResource &row) {
    static const std::set<std::string> known = {"C", "CG", "CS", "CSG", "G", "SG", "S"};
    EXPECT_EQ(known.count(row.access), 1u) << row.access;
    const auto allows = [&](char letter) { return row.access.find(letter) != std::string::npos; };
    if (std::string(resource.resource_type) == XmRCallback) {
        EXPECT_EQ(row.access, "C");
    } else if (IsMereNumber(resource)) {
        EXPECT_EQ(TakesAtCreation(constraints, resource), allows('C')) << row.access;
        EXPECT_EQ(TakesLater(constraints, resource), allows('S')) << row.access;
        Complaints::Current().warnings.clear(); // of values that are none
    }
}

// ---- Inherited resources -----------------------------------------------------------------------------------

// Of a class and its superclasses, which share a page where the toolkit's classes do.
std::string PageOfClass(WidgetClass widget_class) {
    const std::string name = widget_class->core_class.class_name;
    return name == "Object" || name == "Rect" || name == "UnNamedObj" || name == "RectObj" ? "Core"
                                                                                           : name;
}

std::set<std::string> NamesOf(const std::vector<XtResource> &resources) {
    std::set<std::string> names;
    for (const XtResource &resource : resources) {
        names.insert(Macro("XmN", resource.resource_name));
    }
    return names;
}

TEST_P(ResourcePages, NameWhatIsInherited) {
    XtInitializeWidgetClass(*GetParam().pointer);
    std::map<std::string, std::set<std::string>> inherited;
    const auto own = NamesOf(declared().resources);
    for (WidgetClass at = (*GetParam().pointer)->core_class.superclass; at;
         at = at->core_class.superclass) {
        WidgetClass above = at->core_class.superclass;
        const auto old = above ? NamesOf(ResourcesOf(above)) : std::set<std::string>();
        for (const std::string &name : NamesOf(ResourcesOf(at))) {
            const bool is_private = name.find('.') != std::string::npos;
            if (!is_private && !old.count(name) && !own.count(name)) {
                inherited[PageOfClass(at)].insert(name);
            }
        }
    }
    EXPECT_EQ(page().inherited, inherited);
}

// ---- Actions and translations ---------------------------------------------------------------------------

TEST_P(ResourcePages, NameEveryAction) {
    XtInitializeWidgetClass(*GetParam().pointer);
    XtActionList actions = nullptr;
    Cardinal count = 0;
    XtGetActionList(*GetParam().pointer, &actions, &count);
    for (Cardinal i = 0; i < count; i++) {
        EXPECT_NE(page().text.find(std::string(actions[i].string) + "()"), std::string::npos)
            << actions[i].string;
    }
    XtFree(reinterpret_cast<char *>(actions));
}

TEST_P(ResourcePages, ShowTheTranslations) {
    EXPECT_NE(Squeezed(page().text).find(Squeezed(declared().translations)), std::string::npos)
        << declared().translations;
}

INSTANTIATE_TEST_SUITE_P(All, ResourcePages, ::testing::ValuesIn(Classes()),
                         [](const auto &row) { return std::string(row.param.name); });

} // namespace
