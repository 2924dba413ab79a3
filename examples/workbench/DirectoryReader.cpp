#include "DirectoryReader.h"

#include <filesystem>
#include <system_error>
#include <utility>

#include <Utf8.h>

namespace workbench {

namespace {

namespace fs = std::filesystem;

Kind KindOf(file_list::Kind kind) {
    switch (kind) {
    case file_list::Kind::Directory: return Kind::Directory;
    case file_list::Kind::Closed: return Kind::Closed;
    case file_list::Kind::File: return Kind::File;
    case file_list::Kind::Program: return Kind::Program;
    case file_list::Kind::Link: return Kind::Link;
    case file_list::Kind::Other: break;
    }
    return Kind::Other;
}

std::string Shown(const fs::path &path) {
    return graph_browser::CleanUtf8(path.string(), false);
}

// A path may end with a slash, or be a dot.
std::string NameOf(const std::string &path) {
    std::error_code error;
    const fs::path whole = fs::weakly_canonical(path, error);
    return whole.has_filename() ? Shown(whole.filename()) : Shown(whole);
}

} // namespace

DirectoryReader::DirectoryReader(const std::string &path) {
    document_.source = Source::Directory;
    document_.path = path;
    document_.graph.name = NameOf(path);
    document_.graph.orientation = graph_browser::Orientation::Horizontal;
    std::error_code error;
    const fs::directory_iterator first(path, error);
    found_ = !error;
    Node root{.name = Shown(path), .label = NameOf(path)};
    document_.AddNode(std::move(root), {.kind = Kind::Directory, .path = path});
    PutOff(path, 0);
}

int DirectoryReader::AddEntry(const file_list::Entry &entry) {
    Node node{.name = Shown(entry.path), .label = Shown(entry.name)};
    return document_.AddNode(
        std::move(node), {.kind = KindOf(entry.kind),
                          .size = entry.size,
                          .changed = entry.changed,
                          .path = Shown(entry.path),
                          .note = entry.target.empty() ? "" : "leads to " + Shown(entry.target)});
}

void DirectoryReader::PutOff(const std::string &directory, int parent) {
    auto entries = file_list::ReadTree(directory, 1);
    for (auto entry = entries.rbegin(); entry != entries.rend(); ++entry) {
        if (!entry->name.starts_with('.')) {
            waiting_.push_back({std::move(*entry), parent});
        }
    }
}

// Entries until one of them is a directory, which is then read.
bool DirectoryReader::Step() {
    while (!waiting_.empty()) {
        if (static_cast<int>(document_.items.size()) >= most_nodes) {
            document_.cut = true;
            return false;
        }
        const Waiting next = std::move(waiting_.back());
        waiting_.pop_back();
        const int node = AddEntry(next.entry);
        document_.AddEdge(next.parent, node);
        if (next.entry.kind == file_list::Kind::Directory) {
            PutOff(next.entry.path, node);
            return true;
        }
    }
    return false;
}

std::string DirectoryReader::Progress() const {
    return std::to_string(document_.items.size()) + " entries read";
}

std::variant<Document, Failure> DirectoryReader::Take() {
    if (!found_) {
        return Failure{document_.path + ": no directory that can be read"};
    }
    return std::move(document_);
}

} // namespace workbench
