#include <bench/graph/Table.h>

#include <cmath>
#include <cstdio>
#include <functional>
#include <iomanip>

namespace corvidlmw::bench {

namespace {

constexpr int column_width = 8;

// Three digits that count, and a unit: "17.4M".
std::string Short(double value) {
    struct Unit {
        double size;
        const char *name;
    };
    std::string text(16, '\0');
    for (const Unit &unit : {Unit{1e9, "G"}, Unit{1e6, "M"}, Unit{1e4, "k"}}) {
        const double scaled = value / (unit.size == 1e4 ? 1e3 : unit.size);
        if (std::abs(value) >= unit.size) {
            const int decimals = scaled < 10 ? 2 : scaled < 100 ? 1 : 0;
            text.resize(static_cast<std::size_t>(
                std::snprintf(text.data(), text.size(), "%.*f%s", decimals, scaled, unit.name)));
            return text;
        }
    }
    text.resize(static_cast<std::size_t>(std::snprintf(text.data(), text.size(), "%.0f", value)));
    return text;
}

std::string Fixed(double value, int decimals) {
    std::string text(32, '\0');
    text.resize(
        static_cast<std::size_t>(std::snprintf(text.data(), text.size(), "%.*f", decimals, value)));
    return text;
}

struct Column {
    const char *title;
    std::function<std::optional<double>(const Cost &, const Combination &, std::string_view)> value;
    std::string (*text)(double);
};

std::string Microseconds(double seconds) {
    return Short(seconds * 1e6);
}

const std::vector<Column> &Columns() {
    static const std::vector<Column> columns = {
        {"cpu us", [](const Cost &c, auto &, auto) { return c.seconds; }, Microseconds},
        {"instr", [](const Cost &c, auto &, auto) { return c.instructions; }, Short},
        {"requests", [](const Cost &c, auto &, auto) { return c.requests; }, Short},
        {"trips", [](const Cost &c, auto &, auto) { return c.round_trips; }, Short},
        {"B/node",
         [](const Cost &c, const Combination &one, std::string_view case_name) {
             return case_name == "build" && c.bytes ? std::optional(*c.bytes / one.nodes)
                                                    : std::nullopt;
         },
         Short},
    };
    return columns;
}

void PrintCell(std::ostream &out, const std::string &text) {
    out << std::setw(column_width) << text << ' ';
}

void PrintCosts(std::ostream &out, const Results &results, const Combination &one,
                std::string_view case_name) {
    for (const Column &column : Columns()) {
        const auto value = column.value(results.Of(one, case_name), one, case_name);
        PrintCell(out, value ? column.text(*value) : "-");
    }
    out << "| ";
}

void PrintRatios(std::ostream &out, const Results &results, const Combination &ours,
                 const Combination &theirs, std::string_view case_name) {
    for (const Column &column : Columns()) {
        const auto a = column.value(results.Of(ours, case_name), ours, case_name);
        const auto b = column.value(results.Of(theirs, case_name), theirs, case_name);
        PrintCell(out, a && b && *b != 0 ? Fixed(*a / *b, *a / *b < 0.01 ? 4 : 2) : "-");
    }
    out << '\n';
}

void PrintHeading(std::ostream &out) {
    const int group = static_cast<int>(Columns().size()) * (column_width + 1);
    out << std::left << std::setw(28) << "";
    for (const char *title : {"| XmGraph, push button gadgets", "| XmTree, push buttons",
                              "| XmContainer, icon gadgets, outline", "| XmGraph : XmTree"}) {
        out << std::setw(group + 2) << title;
    }
    out << '\n'
        << std::setw(16) << "case" << std::setw(6) << "shape" << std::right << std::setw(5) << "n"
        << " | ";
    for (int widget = 0; widget < 4; ++widget) {
        for (const Column &column : Columns()) {
            PrintCell(out, column.title);
        }
        out << (widget < 3 ? "| " : "\n");
    }
}

} // namespace

void PrintTable(std::ostream &out, const Results &results) {
    PrintHeading(out);
    for (const CaseTitle &one_case : case_titles) {
        for (const std::string_view shape : shapes) {
            for (const int nodes : sizes) {
                auto with = [&](const char *subject) {
                    return Combination{subject, std::string(shape), nodes};
                };
                out << std::left << std::setw(16) << one_case.title << std::setw(6) << shape
                    << std::right << std::setw(5) << nodes << " | ";
                for (const char *subject : {"graph", "tree", "container"}) {
                    PrintCosts(out, results, with(subject), one_case.name);
                }
                PrintRatios(out, results, with("graph"), with("tree"), one_case.name);
            }
        }
    }
}

} // namespace corvidlmw::bench
