#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace form_designer {

// "*form.ok.row: 3" in line 7 is {7, {"form", "ok", "row"}, "3"}.
struct ResourceLine {
    int line = 0;
    std::vector<std::string> path;
    std::string value;
};

// Takes the lines of a resource file one by one: skips comments and empty lines, joins continued ones,
// resolves escapes.
class ResourceReader {
public:
    explicit ResourceReader(std::string_view of_text) : text(of_text) {}

    // None at the end, or when a line is no resource: Problem() says what it is instead.
    std::optional<ResourceLine> Next();
    const std::string &Problem() const { return problem; }
    int Line() const { return line; }

private:
    std::string TakeLogicalLine();

    std::string_view text;
    int line = 0; // of the resource taken last, where it begins
    int next_line = 1;
    std::string problem;
};

// The line of a resource, with its end.
std::string ResourceText(const std::vector<std::string> &path, std::string_view value);

} // namespace form_designer
