#pragma once

#include <string>
#include <string_view>

namespace graph_browser {

enum class LabelKind { Plain, Record };

// The label that shows this text (UTF-8, lines divided by '\n'), for a graph in UTF-8 or Latin-1.
std::string EscapedLabel(std::string_view text, LabelKind kind, bool latin1);

// Whether text can be the name of a node and is shown as it stands.
bool CanBeName(std::string_view text, bool latin1);

} // namespace graph_browser
