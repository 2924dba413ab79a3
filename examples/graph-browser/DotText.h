#pragma once

#include <string>
#include <string_view>

// Labels in DOT's three little languages (escapes, records, HTML), each reduced to plain lines.
namespace graph_browser {

// What the escapes of a label stand for; unused ones stay empty.
struct LabelNames {
    std::string_view graph; // \G
    std::string_view node;  // \N
    std::string_view edge;  // \E
    std::string_view tail;  // \T
    std::string_view head;  // \H
};

struct LabelText {
    std::string text;
    bool left_aligned = false; // every line ended in \l
};

// Expands the escapes and entities of an ordinary label.
LabelText PlainLabel(std::string_view label, const LabelNames &names);

// Fields side by side are divided by " | ", fields above one another by a line break; port names
// are left out.
LabelText RecordLabel(std::string_view label, const LabelNames &names);

// Tags are left out; <BR> and the end of a table row break the line, the end of a cell leaves a
// blank.
std::string HtmlLabel(std::string_view label);

} // namespace graph_browser
