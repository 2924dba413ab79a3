#include <bench/graph/Cases.h>

namespace corvidlmw::bench {

namespace {

bool Build(Session &session) {
    session.Build();
    return true;
}

bool Layout(Session &session) {
    session.subject().Layout();
    return true;
}

bool Show(Session &session) {
    session.Show();
    return true;
}

bool RedrawAll(Session &session) {
    session.ExposeEverything();
    return true;
}

void Uncover(Session &session) {
    session.UncoverView();
}

bool Pump(Session &session) {
    session.Pump();
    return true;
}

bool AddNode(Session &session) {
    session.subject().AddNode(session.MiddleNode());
    session.Pump();
    return true;
}

bool AddNodeInAutomaticLayout(Session &session) {
    const bool can = session.subject().AddNodeInAutomaticLayout(session.MiddleNode());
    session.Pump();
    return can;
}

void RemoveNode(Session &session) {
    session.subject().RemoveAddedNode();
    session.Pump();
}

bool Relayout(Session &session) {
    session.subject().Layout();
    session.Pump();
    return true;
}

bool TearDown(Session &session) {
    session.TearDown();
    return true;
}

constexpr Case cases[] = {
    {"build", Stage::Shell, nullptr, Build, nullptr, 1},
    {"layout", Stage::Built, nullptr, Layout, nullptr, 5},
    {"first-expose", Stage::Built, nullptr, Show, nullptr, 1},
    {"full-redraw", Stage::Shown, nullptr, RedrawAll, nullptr, 5},
    {"view-redraw", Stage::Shown, Uncover, Pump, nullptr, 5},
    {"relayout", Stage::Shown, nullptr, Relayout, nullptr, 5},
    {"add", Stage::Shown, nullptr, AddNode, RemoveNode, 5},
    {"add-automatic", Stage::Shown, nullptr, AddNodeInAutomaticLayout, RemoveNode, 5},
    {"teardown", Stage::Shown, nullptr, TearDown, nullptr, 1, true},
};

} // namespace

std::span<const Case> Cases() {
    return cases;
}

} // namespace corvidlmw::bench
