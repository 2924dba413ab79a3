#include <tests/storm/Workbench.h>

#include <tests/storm/World.h>

#include <corvidlmw/graph/Graph.h>

#include <GraphView.h>

#include <cstdlib>
#include <fstream>
#include <functional>
#include <map>

namespace corvidlmw::storm {

namespace {

using workbench::WorkbenchWindow;

int NumberIn(const Step &step, std::size_t word) {
    return word < step.words.size() ? std::atoi(step.words[word].c_str()) : 0;
}

// A node that there is, or any number where there is none.
int NodeIn(WorkbenchWindow &window, const Step &step, std::size_t word) {
    const int count = static_cast<int>(window.document().graph.nodes.size());
    return count ? std::abs(NumberIn(step, word) % count) : -1;
}

bool IsThere(WorkbenchWindow &window, int node) {
    return node >= 0 && !window.document().graph.NodeAt(node).removed;
}

void Select(WorkbenchWindow &window, const Step &step) {
    const int node = NodeIn(window, step, 2);
    window.Select(IsThere(window, node) ? std::vector<int>{node} : std::vector<int>{});
}

void Rename(WorkbenchWindow &window, const Step &step) {
    const int node = NodeIn(window, step, 2);
    if (IsThere(window, node) && step.words.size() > 3)
        window.Rename(node, Unquote(step.words[3]));
}

using Command = std::function<void(WorkbenchWindow &, const Step &)>;

const std::map<std::string, Command> &Commands() {
    static const std::map<std::string, Command> commands = {
        {"select", Select},
        {"rename", Rename},
        {"find", [](auto &w,
                    const Step &s) { w.Find(Unquote(s.From(2).words.empty() ? "" : s.words[2])); }},
        {"hit", [](auto &w, const Step &) { w.GoToNextHit(); }},
        {"add", [](auto &w, const Step &) { w.AddNode(); }},
        {"delete", [](auto &w, const Step &) { w.DeleteSelected(); }},
        {"layout", [](auto &w, const Step &) { w.LayOutAgain(); }},
        {"undo", [](auto &w, const Step &) { w.Undo(); }},
        {"redo", [](auto &w, const Step &) { w.Redo(); }},
        {"stop", [](auto &w, const Step &) { w.Stop(); }},
        {"zoom", [](auto &w, const Step &s) { w.pane().Zoom(static_cast<float>(NumberIn(s, 2))); }},
        {"turn", [](auto &w, const Step &) { w.pane().Turn(); }},
    };
    return commands;
}

} // namespace

Workbench::Workbench(World &world) : world_(world), window_(world.shell, [] {}) {
    std::string text = "digraph {";
    for (int i = 1; i < 20; i++)
        text += "n" + std::to_string(i / 3) + " -> n" + std::to_string(i) + ";";
    Open(text + "}");
}

Workbench::~Workbench() = default;

void Workbench::Open(const std::string &text) {
    const std::string path = world_.directory + "/storm.dot";
    std::ofstream(path) << text;
    window_.Open(workbench::Source::DotFile, path);
}

bool Workbench::Do(const Step &step) {
    const auto command = step.words.size() > 1 ? Commands().find(step.words[1]) : Commands().end();
    if (command == Commands().end())
        return false;
    command->second(window_, step);
    return true;
}

} // namespace corvidlmw::storm
