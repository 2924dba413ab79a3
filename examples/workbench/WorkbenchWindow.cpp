#include "WorkbenchWindow.h"

#include <algorithm>
#include <utility>

#include <Xm/Form.h>
#include <Xm/Frame.h>
#include <Xm/Label.h>
#include <Xm/MainW.h>
#include <Xm/Protocols.h>
#include <Xm/RowColumn.h>
#include <Xm/Scale.h>

#include <corvidlmw/managers/HPanedW.h>

#include <Dialogs.h>
#include <FindNodes.h>
#include <Text.h>

namespace workbench {

namespace {

using graph_browser::Name;
using graph_browser::Text;

std::string Count(std::size_t count, const char *what) {
    return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

void Attach(Widget w, Widget below, Widget above) {
    XtVaSetValues(w, XmNleftAttachment, XmATTACH_FORM, XmNrightAttachment, XmATTACH_FORM,
                  XmNtopAttachment, below ? XmATTACH_WIDGET : XmATTACH_FORM, XmNtopWidget, below,
                  nullptr);
    XtVaSetValues(w, XmNbottomAttachment, above ? XmATTACH_WIDGET : XmATTACH_FORM, XmNbottomWidget,
                  above, nullptr);
}

constexpr int list_width = 440;
constexpr int properties_width = 300;

// A pane begins with the width that it has when it is managed.
Widget MakeForm(Widget parent, const char *name, int width) {
    return XtVaCreateManagedWidget(name, xmFormWidgetClass, parent, XmNresizePolicy, XmRESIZE_NONE,
                                   XmNwidth, width, nullptr);
}

} // namespace

// ---- Building ---------------------------------------------------------------------------------------

WorkbenchWindow::WorkbenchWindow(Widget shell, std::function<void()> on_quit)
    : shell_(shell), worker_(XtWidgetToApplicationContext(shell), [this] { ShowProgress(); }) {
    const Widget main_window =
        XtCreateManagedWidget("mainWindow", xmMainWindowWidgetClass, shell, nullptr, 0);
    const Widget menu_bar = XmCreateMenuBar(main_window, Name("menuBar"), nullptr, 0);
    menus_ = std::make_unique<graph_browser::Menus>(menu_bar);
    files_ = std::make_unique<Files>(*this, shell, std::move(on_quit));
    AddMenus(*menus_, *this);
    XtManageChild(menu_bar);
    BuildPanes(main_window);
    BuildStatus(main_window);
    XtVaSetValues(main_window, XmNmenuBar, menu_bar, nullptr);
    mark_ = std::make_unique<graph_browser::ShownMark>(shell, pane_->graph());
    XtVaSetValues(shell, XmNdeleteResponse, XmDO_NOTHING, nullptr);
    XmAddWMProtocolCallback(shell, XInternAtom(XtDisplay(shell), "WM_DELETE_WINDOW", False),
                            CloseWindow, this);
    UpdateStatus();
}

WorkbenchWindow::~WorkbenchWindow() = default;

// What the window has more or less, the graph gets or gives.
void WorkbenchWindow::BuildPanes(Widget main_window) {
    const Widget panes = XmCreateHorzPanedWindow(main_window, Name("panes"), nullptr, 0);
    const Widget left = MakeForm(panes, "left", list_width);
    finder_ = std::make_unique<FindLine>(left);
    list_ = std::make_unique<NodeList>(left, document_);
    Attach(list_->header(), finder_->line(), nullptr);
    XtVaSetValues(list_->header(), XmNbottomAttachment, XmATTACH_NONE, nullptr);
    Attach(list_->window(), list_->header(), nullptr);
    pane_ = std::make_unique<GraphPane>(panes, document_, worker_);
    const Widget right = BuildRightPane(panes);
    XtVaSetValues(left, XmNpaneMinimum, 120, XmNskipAdjust, True, nullptr);
    XtVaSetValues(pane_->window(), XmNpaneMinimum, 100, XmNpaneMaximum, 32000, nullptr);
    XtVaSetValues(right, XmNpaneMinimum, 120, XmNskipAdjust, True, nullptr);
    XtManageChild(panes);
    XtVaSetValues(main_window, XmNworkWindow, panes, nullptr);
    gestures_ = std::make_unique<GraphGestures>(*this);
    list_->WhenSelected([this] { TakeListSelection(); });
    finder_->WhenTyped([this] { FindAgain(); });
    finder_->WhenNext([this] { GoToNextHit(); });
}

Widget WorkbenchWindow::BuildRightPane(Widget panes) {
    const Widget right = MakeForm(panes, "right", properties_width);
    const Widget frame = XtVaCreateManagedWidget(
        "overviewFrame", xmFrameWidgetClass, right, XmNtopAttachment, XmATTACH_FORM,
        XmNleftAttachment, XmATTACH_FORM, XmNrightAttachment, XmATTACH_FORM, nullptr);
    XtManageChild(XmGraphCreateOverView(pane_->graph(), frame));
    properties_ = std::make_unique<PropertyPane>(
        right, document_, [this](int node, const std::string &label) { Rename(node, label); });
    Attach(properties_->grid(), frame, nullptr);
    XtVaSetValues(properties_->grid(), XmNbottomAttachment, XmATTACH_NONE, nullptr);
    return right;
}

// The bar is there while something takes long.
void WorkbenchWindow::BuildStatus(Widget main_window) {
    const Widget form =
        XtVaCreateManagedWidget("statusLine", xmFormWidgetClass, main_window, nullptr);
    const Text nothing(" ");
    progress_ =
        XtVaCreateWidget("progress", xmScaleWidgetClass, form, XmNorientation, XmHORIZONTAL,
                         XmNslidingMode, XmTHERMOMETER, XmNeditable, False, XmNrightAttachment,
                         XmATTACH_FORM, XmNtopAttachment, XmATTACH_FORM, XmNtopOffset, 3, nullptr);
    status_ = XtVaCreateManagedWidget("status", xmLabelWidgetClass, form, XmNlabelString,
                                      nothing.Get(), XmNalignment, XmALIGNMENT_BEGINNING,
                                      XmNrecomputeSize, False, nullptr);
    Attach(status_, nullptr, nullptr);
    XtVaSetValues(status_, XmNrightOffset, 170, nullptr);
    XtVaSetValues(main_window, XmNmessageWindow, form, nullptr);
}

void WorkbenchWindow::CloseWindow(Widget, XtPointer closure, XtPointer) {
    static_cast<WorkbenchWindow *>(closure)->files_->Quit();
}

// ---- Opening ----------------------------------------------------------------------------------------

void WorkbenchWindow::Open(Source source, const std::string &path) {
    files_->UnlessChanged([this, source, path] { Read(source, path); });
}

// What is shown stays until the other document is read.
void WorkbenchWindow::Read(Source source, const std::string &path) {
    if (IsBusy()) {
        return;
    }
    reader_ = MakeReader(source, path);
    worker_.Add("reading", [this] { return reader_->Step(); });
    Later("reading", [this] { TakeRead(); });
    UpdateStatus();
}

void WorkbenchWindow::TakeRead() {
    auto read = reader_->Take();
    reader_.reset();
    if (const auto *failure = std::get_if<Failure>(&read)) {
        return graph_browser::ShowError(shell_, failure->message);
    }
    ShowDocument(std::move(std::get<Document>(read)));
}

void WorkbenchWindow::ShowDocument(Document document) {
    selected_.clear();
    properties_->Show({});
    pane_->Clear();
    history_.Clear();
    document_ = std::move(document);
    files_->Shown();
    list_->Show(worker_);
    pane_->Show();
    Later("the search", [this] {
        FindAgain();
        if (const auto shown = std::exchange(shown_, nullptr)) {
            shown();
        }
        TellWhenDrawn();
    });
}

// The mark comes with an exposure, of which there may be none any more.
void WorkbenchWindow::TellWhenDrawn() {
    mark_->Expect(document_.path);
    const Widget graph = pane_->graph();
    if (XtIsRealized(graph)) {
        XClearArea(XtDisplay(graph), XtWindow(graph), 0, 0, 0, 0, True);
    }
}

// What is half made of another document cannot stay.
void WorkbenchWindow::Stop() {
    if (reader_) {
        worker_.GiveUp();
        reader_.reset();
    }
    UpdateStatus();
}

// ---- Selection and search ---------------------------------------------------------------------------

void WorkbenchWindow::Select(std::vector<int> nodes) {
    selected_ = std::move(nodes);
    list_->Select(worker_, selected_);
    pane_->Select(selected_);
    properties_->Show(selected_);
    UpdateStatus();
}

void WorkbenchWindow::TakeListSelection() {
    selected_ = list_->Selected();
    pane_->Select(selected_);
    if (!selected_.empty()) {
        pane_->BringIntoSight(selected_.front());
    }
    properties_->Show(selected_);
    UpdateStatus();
}

void WorkbenchWindow::FindAgain() {
    hits_ = graph_browser::FindNodes(document_.graph, finder_->Text());
    list_->Mark(hits_);
    pane_->Mark(hits_);
    finder_->ShowCount(static_cast<int>(hits_.size()));
}

// Behind the selected one, or the first.
void WorkbenchWindow::GoToNextHit() {
    if (hits_.empty() || IsBusy()) {
        return;
    }
    auto next = selected_.empty() ? hits_.begin()
                                  : std::upper_bound(hits_.begin(), hits_.end(), selected_.front());
    if (next == hits_.end()) {
        next = hits_.begin();
    }
    const int node = *next;
    Select({node});
    pane_->BringIntoSight(node);
}

// ---- Status -----------------------------------------------------------------------------------------

std::string WorkbenchWindow::StatusText() const {
    if (reader_) {
        return reader_->Progress() + " (Ctrl+C stops)";
    }
    if (document_.path.empty()) {
        return "nothing opened yet";
    }
    std::string text = document_.path + ": " +
                       Count(graph_browser::NodesOf(document_.graph).size(), "node") + ", " +
                       Count(graph_browser::EdgesOf(document_.graph).size(), "arc");
    if (document_.cut) {
        text += ", and more that is not shown";
    }
    if (pane_->is_too_big()) {
        text += " - larger than a window can be, some nodes are out of place";
    }
    if (!history_.UndoName().empty()) {
        text += " - last: " + history_.UndoName();
    }
    return text;
}

void WorkbenchWindow::UpdateStatus() {
    const Text text(StatusText());
    XtVaSetValues(status_, XmNlabelString, text.Get(), nullptr);
    const std::string title = "workbench: " + document_.path + (history_.IsChanged() ? " *" : "");
    XtVaSetValues(shell_, XmNtitle, title.c_str(), nullptr);
    menus_->Refresh();
}

void WorkbenchWindow::ShowProgress() {
    UpdateStatus();
    if (IsBusy()) {
        XmScaleSetValue(progress_, worker_.Percent());
        XtManageChild(progress_);
    } else {
        XtUnmanageChild(progress_);
    }
}

} // namespace workbench
