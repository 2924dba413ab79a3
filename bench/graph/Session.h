/* One subject on the display, brought from stage to stage. */

#ifndef CORVIDLMW_BENCH_GRAPH_SESSION_H
#define CORVIDLMW_BENCH_GRAPH_SESSION_H

#include <bench/graph/Subject.h>

#include <memory>
#include <string>

namespace corvidlmw::bench {

// What a subject's window shows at most.
inline constexpr int view_width = 1000;
inline constexpr int view_height = 800;

// The connection under measurement, and a second one for what must not be counted.
struct Desk {
    Desk();

    XtAppContext context;
    Display *display;
    Display *robot;
};

enum class Stage { Nothing, Shell, Built, Shown };

class Session {
public:
    Session(Desk &desk, std::string subject_name, Shape shape);
    ~Session();
    Session(const Session &) = delete;
    Session &operator=(const Session &) = delete;

    // Goes on to this stage, or starts anew where there is no way on.
    void BringTo(Stage stage);

    void Build();
    void Show();
    void TearDown();

    Subject &subject() { return *subject_; }
    int MiddleNode() const { return shape_.nodes / 2; }

    // Dispatches all that the server has for us, until it has no more.
    void Pump();
    // Queues the exposures that come when another window went away that hid the whole view.
    void UncoverView();
    // Dispatches one exposure of the whole of the subject and of each of its nodes with a window.
    void ExposeEverything();

private:
    Desk &desk_;
    std::string subject_name_;
    Shape shape_;
    Stage stage_ = Stage::Nothing;
    std::unique_ptr<Subject> subject_;
    Widget shell_ = nullptr;
};

} // namespace corvidlmw::bench

#endif
