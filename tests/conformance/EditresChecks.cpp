// What editres asks of a client: its tree of widgets, their resources, geometry and values.

#include <tests/conformance/Bed.h>

#include <Xm/Xm.h>

#include <algorithm>

namespace corvidlmw::test {

namespace {

constexpr uint32_t object_without_window = 2;

std::string Kind(uint32_t window) {
    return window == object_without_window ? "object" : window ? "window" : "unrealised";
}

// The widget at the end of a path.
uint32_t IdOf(const std::vector<uint32_t> &path) {
    return path.empty() ? 0 : path.back();
}

} // namespace

bool Bed::EditresCanName() const {
    return reinterpret_cast<uintptr_t>(subject) == EditresId(subject);
}

EditresStream Bed::Ask(EditresCommand command, const EditresStream &question) {
    MoveTo(before, 1, 1); // for an event with a time
    return AskEditres(shell, command, question, [this] { Pump(); });
}

void Bed::WidgetTree() {
    Make();
    Show();
    auto tree = Ask(EditresCommand::WidgetTree, {});
    for (auto left = tree.Get(2); left > 0 && !tree.bad(); --left) {
        const auto path = tree.GetWidget();
        const std::string name = tree.GetString();
        const std::string class_name = tree.GetString();
        const std::string kind = Kind(tree.Get(4));
        if (IdOf(path) == EditresId(subject)) {
            Note("kind", kind);
            Note("depth", static_cast<long>(path.size()));
            EXPECT_EQ(class_name, XtClass(subject)->core_class.class_name);
        } else if (path.size() > 1 && path[path.size() - 2] == EditresId(subject))
            Note("child " + name, class_name + " " + kind);
    }
    EXPECT_FALSE(tree.bad());
}

void Bed::ResourcesByEditres() {
    Make();
    Show();
    if (!EditresCanName())
        GTEST_SKIP() << "the addresses are too long for the protocol";
    auto reply = Ask(EditresCommand::Resources, EditresStream().PutWidgets({subject}));
    EXPECT_EQ(reply.Get(2), 1u);
    EXPECT_EQ(IdOf(reply.GetWidget()), EditresId(subject));
    EXPECT_EQ(reply.Get(1), 0u) << reply.GetString();
    const auto shared = SharedResources();
    for (auto left = reply.Get(2); left > 0 && !reply.bad(); --left) {
        const bool constraint = reply.Get(1);
        const std::string name = reply.GetString();
        const std::string class_name = reply.GetString();
        const std::string type = reply.GetString();
        if (!constraint && shared.contains(name))
            Note(name, class_name + " of " + type);
    }
    EXPECT_FALSE(reply.bad());
}

void Bed::GeometryByEditres() {
    Make();
    Show();
    if (!EditresCanName())
        GTEST_SKIP() << "the addresses are too long for the protocol";
    auto reply = Ask(EditresCommand::Geometry, EditresStream().PutWidgets({subject}));
    EXPECT_EQ(reply.Get(2), 1u);
    EXPECT_EQ(IdOf(reply.GetWidget()), EditresId(subject));
    EXPECT_EQ(reply.Get(1), 0u) << reply.GetString();
    for (const char *name : {"mapped"})
        Note(name, reply.Get(1));
    for (const char *name : {"x", "y", "width", "height", "border"})
        Note(name, reply.GetSigned16());

    const auto place = EditresStream().PutWidget(shell).Put(12, 2).Put(62, 2);
    const auto found = Ask(EditresCommand::FindChild, place).GetWidget();
    const bool inside = std::count(found.begin(), found.end(), EditresId(subject));
    Note("found", inside ? "in the subject" : "elsewhere");
}

void Bed::SetValuesByEditres() {
    Make();
    Show();
    if (!EditresCanName())
        GTEST_SKIP() << "the addresses are too long for the protocol";
    const auto set = [this](const char *name, const char *value) {
        auto errors =
            Ask(EditresCommand::SetValues,
                EditresStream().PutString(name).PutString(XtRString).PutString(value).PutWidgets(
                    {subject}));
        Note(std::string(name) + ", errors", errors.Get(2));
        auto values =
            Ask(EditresCommand::Values, EditresStream().PutString(name).PutWidgets({subject}));
        values.Get(2);
        Note(std::string(name) + ", told", values.GetString());
    };
    set(XmNbackground, "red");
    set(XmNforeground, "blue");
    set(XmNwidth, "177");
    set(XmNsensitive, "False");
    Note("background", Get<Pixel>(subject, XmNbackground) == Colour("red"));
    Note("foreground", Get<Pixel>(subject, XmNforeground) == Colour("blue"));
    Note("width", Get<Dimension>(subject, XmNwidth));
    Note("sensitive", XtIsSensitive(subject));
}

} // namespace corvidlmw::test
