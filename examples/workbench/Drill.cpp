#include "Drill.h"

#include <filesystem>
#include <iomanip>
#include <iostream>

#include <unistd.h>

#include <PrintFile.h>

#include "WriteDocument.h"

namespace workbench {

namespace {

constexpr unsigned long interval = 20; // milliseconds

void SelectAll(WorkbenchWindow &window) {
    window.Select(graph_browser::NodesOf(window.document().graph));
}

void PrintAndForget(WorkbenchWindow &window) {
    const auto file =
        std::filesystem::temp_directory_path() / ("workbench." + std::to_string(getpid()) + ".ps");
    graph_browser::PrintToFile(window.pane().graph(), file);
    std::filesystem::remove(file);
}

} // namespace

Drill::Drill(WorkbenchWindow &window, Clock::time_point start)
    : window_(window), app_(XtWidgetToApplicationContext(window.status())), start_(start) {
    auto &w = window_;
    exercises_ = {
        {"find one letter", [&w] { w.Find("e"); }},
        {"find a word", [&w] { w.Find("xm"); }},
        {"go to the next hit", [&w] { w.GoToNextHit(); }},
        {"select all", [&w] { SelectAll(w); }},
        {"select one", [&w] { w.Select({0}); }},
        {"add a node", [&w] { w.AddNode(); }},
        {"rename", [&w] { w.Rename(0, "another name"); }},
        {"delete one", [&w] { w.DeleteSelected(); }},
        {"undo", [&w] { w.Undo(); }},
        {"select all", [&w] { SelectAll(w); }},
        {"delete all", [&w] { w.DeleteSelected(); }},
        {"undo that", [&w] { w.Undo(); }},
        {"lay out again", [&w] { w.LayOutAgain(); }},
        {"zoom in", [&w] { w.pane().Zoom(2); }},
        {"zoom out", [&w] { w.pane().Zoom(-2); }},
        {"turn", [&w] { w.pane().Turn(); }},
        {"turn back", [&w] { w.pane().Turn(); }},
        {"print", [&w] { PrintAndForget(w); }},
        {"write as DOT", [&w] { WriteDocument(w.document()); }},
    };
}

Drill::~Drill() {
    if (timer_) {
        XtRemoveTimeOut(timer_);
    }
}

void Drill::Begin() {
    LookAgain();
}

void Drill::LookAgain() {
    timer_ = XtAppAddTimeOut(app_, interval, Look, this);
}

// An exercise is over when the window is idle and the server has drawn all of it.
void Drill::Look(XtPointer closure, XtIntervalId *) {
    auto &drill = *static_cast<Drill *>(closure);
    drill.timer_ = 0;
    if (!drill.window_.IsBusy() && XtAppPending(drill.app_) == 0) {
        drill.Tell();
        drill.GoOn();
    }
    drill.LookAgain();
}

void Drill::Tell() {
    const Stay stay = TakeLongestStay();
    const std::string what = next_ == 0 ? "start" : exercises_[next_ - 1].name;
    std::cout << std::left << std::setw(20) << what << std::right << std::fixed
              << std::setprecision(1) << std::setw(9) << MillisecondsSince(start_) << " ms"
              << std::setw(9) << stay.milliseconds << " ms in " << stay.at << '\n';
}

void Drill::GoOn() {
    const int nodes = XmGraphNumNodes(window_.pane().graph());
    if (next_ == 0) {
        std::cout << "with " << nodes << " nodes and " << XmGraphNumArcs(window_.pane().graph())
                  << " arcs; each with all its time, and the longest stay\n";
    }
    const bool nothing_to_do = next_ == 0 && nodes == 0;
    if (nothing_to_do || next_ == exercises_.size()) {
        XtAppSetExitFlag(app_);
        return;
    }
    start_ = Clock::now();
    const Exercise &exercise = exercises_[next_++];
    exercise.act();
    NoteStay(start_, exercise.name);
}

} // namespace workbench
