#include "DotFileReader.h"

#include <chrono>
#include <utility>

#include <DotReader.h>
#include <DotSource.h>
#include <DotWriter.h>

namespace workbench {

namespace {

// How long a step waits, so that waiting costs no time of the processor.
constexpr std::chrono::milliseconds patience{5};

std::variant<Document, Failure> ReadDocument(const std::string &path) {
    auto read = graph_browser::ReadDotFile(path);
    if (const auto *error = std::get_if<graph_browser::ReadError>(&read)) {
        return Failure{graph_browser::Describe(path, *error)};
    }
    Document document;
    document.path = path;
    document.graph = std::move(std::get<Graph>(read));
    document.dot = graph_browser::WriteDot(document.graph);
    document.graph.source.reset();
    document.nodes_in_dot = static_cast<int>(document.graph.nodes.size());
    document.edges_in_dot = static_cast<int>(document.graph.edges.size());
    document.items.resize(document.graph.nodes.size());
    return document;
}

} // namespace

DotFileReader::DotFileReader(const std::string &path)
    : path_(path), result_(std::async(std::launch::async, ReadDocument, path)) {}

bool DotFileReader::Step() {
    return result_.wait_for(patience) != std::future_status::ready;
}

std::string DotFileReader::Progress() const {
    return "reading " + path_;
}

} // namespace workbench
