#pragma once

#include <functional>
#include <string>
#include <vector>

#include <Xm/Xm.h>

// Dialogs that stand before the whole application until they are answered.
namespace graph_browser {

struct Answer {
    const char *label;
    std::function<void()> act;
};

// Asks a question with these answers, the first of them the default, and "Cancel", which does
// nothing. A question that is still open gives way.
void Ask(Widget shell, const std::string &question, std::vector<Answer> answers);

// Asks for a text, which may have several lines: the user writes a line break as \n and a backslash
// as \\. `take` gets it; "Cancel" does nothing.
void AskText(Widget shell, const std::string &question, const std::string &text,
             std::function<void(const std::string &)> take);

void ShowError(Widget shell, const std::string &message);

} // namespace graph_browser
