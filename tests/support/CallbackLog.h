/* Records callbacks: who, which list, which reason, in which order, and a copy of the data. */

#ifndef CORVIDLMW_TESTS_SUPPORT_CALLBACKLOG_H
#define CORVIDLMW_TESTS_SUPPORT_CALLBACKLOG_H

#include <Xm/Xm.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace corvidlmw::test {

// `Data` is what is kept of the call data; the default keeps the structure that all the toolkit's
// begin with. Anything that the structure points at is gone after the callback: a copier can keep
// what it needs of it.
//
//     CallbackLog<int> log([](XtPointer data) {
//         return static_cast<XmGraphCallbackStruct *>(data)->...; });
template <class Data = XmAnyCallbackStruct>
class CallbackLog {
public:
    struct Entry {
        Widget widget;
        std::string list;
        int reason; // 0 if there was no call data
        Data data;
    };
    using Copier = std::function<Data(XtPointer call_data)>;

    CallbackLog() : CallbackLog([](XtPointer data) { return *static_cast<Data *>(data); }) {}
    explicit CallbackLog(Copier copier) : copier_(std::move(copier)) {}
    CallbackLog(const CallbackLog &) = delete;
    CallbackLog &operator=(const CallbackLog &) = delete;

    ~CallbackLog() {
        for (auto &binding : bindings_)
            if (binding->widget) {
                XtRemoveCallback(binding->widget, binding->list.c_str(), Note, binding.get());
                XtRemoveCallback(binding->widget, XtNdestroyCallback, Forget, binding.get());
            }
    }

    // Joins a callback list. The log may outlive the widget, and the widget the log.
    void Add(Widget widget, const char *list) {
        bindings_.push_back(std::make_unique<Binding>(Binding{this, widget, list}));
        XtAddCallback(widget, list, Note, bindings_.back().get());
        XtAddCallback(widget, XtNdestroyCallback, Forget, bindings_.back().get());
    }

    // Runs inside of each callback, after it was recorded: for clients that misbehave there.
    void OnEach(std::function<void(const Entry &)> act) { act_ = std::move(act); }

    const std::vector<Entry> &entries() const { return entries_; }
    size_t size() const { return entries_.size(); }
    bool empty() const { return entries_.empty(); }
    const Entry &back() const { return entries_.back(); }
    void Clear() { entries_.clear(); }

    std::vector<int> reasons() const {
        std::vector<int> all;
        for (const auto &entry : entries_)
            all.push_back(entry.reason);
        return all;
    }

    std::vector<std::string> lists() const {
        std::vector<std::string> all;
        for (const auto &entry : entries_)
            all.push_back(entry.list);
        return all;
    }

private:
    struct Binding {
        CallbackLog *log;
        Widget widget;
        std::string list;
    };

    static void Note(Widget widget, XtPointer closure, XtPointer call_data) {
        auto *binding = static_cast<Binding *>(closure);
        auto *log = binding->log;
        const int reason = call_data ? static_cast<XmAnyCallbackStruct *>(call_data)->reason : 0;
        log->entries_.push_back(
            {widget, binding->list, reason, call_data ? log->copier_(call_data) : Data{}});
        if (log->act_) {
            const Entry entry = log->entries_.back();
            log->act_(entry);
        }
    }

    static void Forget(Widget, XtPointer closure, XtPointer) {
        static_cast<Binding *>(closure)->widget = nullptr;
    }

    Copier copier_;
    std::function<void(const Entry &)> act_;
    std::vector<std::unique_ptr<Binding>> bindings_;
    std::vector<Entry> entries_;
};

} // namespace corvidlmw::test

#endif
