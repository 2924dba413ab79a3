// Each check is asked of a class of ours and of the toolkit's nearest one, in the same surroundings; the
// answers should be the same. An answer is a list of findings under names.
#pragma once

// First: it mends declarations of the toolkit's private headers.
#include <corvidlmw/toolkit/MotifPrivate.h>

#include <tests/support/Harness.h>

#include <map>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

namespace corvidlmw::test {

using Answer = std::map<std::string, std::string>;
using Settings = std::vector<std::pair<const char *, XtArgVal>>;

// Makes a widget `subject`, unmanaged, with children where the class has some.
using Creator = Widget (*)(Widget parent, char *name, ArgList args, Cardinal count);

struct Pair {
    const char *name;
    WidgetClass our_class;
    Creator ours;
    WidgetClass toolkits_class;
    Creator toolkits;
    // A line from one place to another, drawn by the manager that it is in.
    bool is_line = false;
};

extern const std::vector<Pair> pairs;

inline void PrintTo(const Pair &pair, std::ostream *out) {
    *out << pair.name;
}

// A bulletin board with a push button `before`, the subject, and a push button `after` it.
class Bed : public DisplayTest {
public:
    // The first settings of each subject are its x, y, width and height.
    static constexpr Cardinal place_settings = 4;

    // ---- The checks, told in the table of Conformance_test.cpp
    void WidgetTree();
    void ResourcesByEditres();
    void GeometryByEditres();
    void SetValuesByEditres();
    void TakesADrop();
    void IsDragged();
    void UnitsAtCreation();
    void UnitsAfterwards();
    void LayoutDirection();
    void RightToLeftLooks();
    void ChangeColor();
    void ColoursSetAfterwards();
    void Help();
    void HelpOfTheParent();
    void TraversalByKeys();
    void TraversalByFunction();
    void NoTraversal();
    void Insensitive();
    void FocusLooks();
    void FocusCallbacks();
    void FirstFocus();
    void GadgetInside();

protected:
    // Makes all of it, the subject with these settings beside its place and size.
    void Make(const Settings &settings = {}, const Settings &of_board = {});
    // Makes it with what the keyboard needs, and shows it.
    void ShowTraversable(const Settings &settings = {});

    // What is on the screen of the subject, or all around it where it is but a line.
    Widget Canvas() const;
    Picture Look() const { return Picture::Of(Canvas()); }
    XPoint Middle() const;
    // The protocol has 32 bits for an address.
    bool EditresCanName() const;
    EditresStream Ask(EditresCommand command, const EditresStream &question);
    Settings Measures() const;
    void NoteMeasures();
    void NoteHalves(const std::string &where);
    void NoteColours(const std::vector<std::pair<const char *, Pixel>> &old);
    void NoteHelp(const std::vector<Widget> &helpers);
    void NoteSteps();
    void NoteClick();
    void NoteGadget(Widget gadget);

    void Note(const std::string &name, const std::string &finding) { answer[name] = finding; }
    void Note(const std::string &name, const char *finding) { answer[name] = finding; }
    void Note(const std::string &name, long finding) { answer[name] = std::to_string(finding); }

    // The name of a widget; "a part" for what the class made itself inside of the subject.
    std::string NameOf(Widget w) const;
    std::string Focus() { return NameOf(XmGetFocusWidget(shell)); }
    // The resources that both classes of the pair have, by name.
    std::map<std::string, XtResource> SharedResources() const;
    Pixel Colour(const char *name);

    template <class T = int>
    static T Get(Widget w, const char *resource) {
        T value{};
        XtVaGetValues(w, resource, &value, nullptr);
        return value;
    }
    static void Set(Widget w, const Settings &settings);

    // What the check in progress found.
    Answer answer;
    const Pair *pair = nullptr;
    Creator create = nullptr;
    Widget board = nullptr;
    Widget before = nullptr;
    Widget subject = nullptr;
    Widget after = nullptr;
};

} // namespace corvidlmw::test
