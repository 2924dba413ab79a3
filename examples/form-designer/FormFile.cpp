// Reading goes in three steps: the lines; the widgets that "children" and "widgetClass" name; and what
// the other lines set of them. Each step stops at the first thing that is wrong.

#include "FormFile.h"

#include "ResourceText.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>

namespace form_designer {
namespace {

constexpr const char *children_name = "children";
constexpr const char *class_name = "widgetClass";
constexpr std::size_t most_bytes = 1 << 20;
constexpr std::size_t most_items = 1000;

// The resource's own name, and the widget's path before it.
const std::string &LastOf(const ResourceLine &line) {
    return line.path.back();
}

std::string OwnerOf(const ResourceLine &line) {
    return line.path.size() < 3 ? std::string{} : line.path[line.path.size() - 2];
}

std::string Quoted(const std::string &text) {
    return "'" + text.substr(0, 60) + "'";
}

class Reader {
public:
    std::variant<Form, FileError> Read(std::string_view text) {
        const bool good = TakeLines(text) && CheckPaths() && MakeItems() && SetValues();
        if (good)
            CheckCells();
        if (error)
            return *error;
        return form;
    }

private:
    bool Fail(int line, std::string text) {
        error = FileError{line, std::move(text)};
        return false;
    }

    bool TakeLines(std::string_view text) {
        ResourceReader reader(text);
        while (auto line = reader.Next())
            lines.push_back(std::move(*line));
        if (!reader.Problem().empty())
            return Fail(reader.Line(), reader.Problem());
        return !lines.empty() || Fail(0, "the file holds no form");
    }

    bool CheckPaths() {
        std::map<std::vector<std::string>, int> first;
        for (const ResourceLine &line : lines) {
            if (line.path.front() != "form" || line.path.size() < 2 || line.path.size() > 4 ||
                !std::ranges::all_of(line.path, IsName))
                return Fail(line.line, "the name must be *form.WIDGET.RESOURCE");
            const auto [entry, is_new] = first.emplace(line.path, line.line);
            if (!is_new)
                return Fail(line.line, Quoted(LastOf(line)) + " was already set in line " +
                                           std::to_string(entry->second));
        }
        return true;
    }

    // A widget is told in one place only: below what holds it.
    const ResourceLine *FindLine(const Item &item, const char *name) const {
        std::vector<std::string> path = {"form"};
        for (const std::string &word : {item.container, item.name})
            if (!word.empty())
                path.push_back(word);
        path.emplace_back(name);
        const auto found = std::ranges::find(lines, path, &ResourceLine::path);
        return found == lines.end() ? nullptr : &*found;
    }

    bool MakeItems() {
        if (!MakeChildren(Item{}))
            return false;
        for (std::size_t i = 0; i < form.items.size(); ++i) {
            const Item item = form.items[i];
            if (item.kind->IsContainer() && !MakeChildren(item))
                return false;
        }
        return true;
    }

    bool MakeChildren(const Item &container) {
        const ResourceLine *children = FindLine(container, children_name);
        std::istringstream names(children ? children->value : "");
        for (std::string name; names >> name;) {
            Item item{name, nullptr, container.name, {}};
            if (!CheckNewName(children->line, name) || !TakeKind(children->line, item))
                return false;
            form.items.push_back(std::move(item));
        }
        return true;
    }

    bool CheckNewName(int line, const std::string &name) {
        if (!IsName(name))
            return Fail(line, Quoted(name) + " cannot be a widget's name");
        if (form.Find(name))
            return Fail(line, "there are two widgets " + Quoted(name));
        return form.items.size() < most_items || Fail(line, "there are too many widgets");
    }

    bool TakeKind(int line, Item &item) {
        const ResourceLine *kind = FindLine(item, class_name);
        if (!kind)
            return Fail(line, "widget " + Quoted(item.name) + " has no " + class_name);
        item.kind = FindKind(kind->value);
        if (!item.kind)
            return Fail(kind->line, "there is no widget class " + Quoted(kind->value));
        if (item.kind->IsContainer() && !item.container.empty())
            return Fail(kind->line, std::string(item.kind->class_name) + " must stand in the form");
        return true;
    }

    bool SetValues() {
        return std::ranges::all_of(lines, [this](const ResourceLine &line) { return Set(line); });
    }

    bool Set(const ResourceLine &line) {
        const std::string owner = OwnerOf(line);
        Item *item = owner.empty() ? nullptr : form.Find(owner);
        const std::string container = line.path.size() == 4 ? line.path[1] : "";
        if (!owner.empty() && (!item || item->container != container))
            return Fail(line.line, "no \"children\" names the widget " + Quoted(owner));
        const bool holds = !item || item->kind->IsContainer();
        if ((LastOf(line) == children_name && holds) || (LastOf(line) == class_name && item))
            return true;
        return SetProperty(line, item);
    }

    bool SetProperty(const ResourceLine &line, Item *item) {
        const auto properties = item ? form.PropertiesOf(*item) : form.Properties();
        const auto found = std::ranges::find_if(
            properties, [&](const Property *one) { return LastOf(line) == one->name; });
        if (found == properties.end())
            return Fail(line.line, Quoted(LastOf(line)) + " is no resource of " +
                                       (item ? Quoted(item->name) : "the form"));
        if (const auto problem = ProblemWith(**found, line.value))
            return Fail(line.line, LastOf(line) + " " + *problem + ", not " + Quoted(line.value));
        (item ? item->values : form.values)[LastOf(line)] = line.value;
        return true;
    }

    void CheckCells() {
        if (const auto conflict = FindConflict(form)) {
            const ResourceLine *line = FindLine(*form.Find(conflict->item), "row");
            Fail(line ? line->line : 0, Quoted(conflict->item) + ": " + conflict->problem);
        }
    }

    Form form;
    std::vector<ResourceLine> lines;
    std::optional<FileError> error;
};

std::string ChildrenOf(const Form &form, const std::string &container) {
    std::string names;
    for (const Item &item : form.items)
        if (item.container == container)
            names += (names.empty() ? "" : " ") + item.name;
    return names;
}

std::vector<std::string> With(std::vector<std::string> path, const std::string &last) {
    path.push_back(last);
    return path;
}

std::string TextOf(const Form &form, const Item &item) {
    std::vector<std::string> path = {"form"};
    if (!item.container.empty())
        path.push_back(item.container);
    path.push_back(item.name);
    std::string text = '\n' + ResourceText(With(path, class_name), item.kind->class_name);
    if (item.kind->IsContainer())
        text += ResourceText(With(path, children_name), ChildrenOf(form, item.name));
    for (const auto &[name, value] : item.values)
        text += ResourceText(With(path, name), value);
    return text;
}

} // namespace

std::string Describe(const std::string &file, const FileError &error) {
    return file + (error.line > 0 ? ":" + std::to_string(error.line) : "") + ": " + error.text;
}

std::string WriteForm(const Form &form) {
    std::string text = "! A form, as an X resource file.\n";
    for (const auto &[name, value] : form.values)
        text += ResourceText({"form", name}, value);
    text += ResourceText({"form", children_name}, ChildrenOf(form, ""));
    for (const Item &item : form.items)
        if (item.container.empty())
            text += TextOf(form, item);
    for (const Item &item : form.items)
        if (!item.container.empty())
            text += TextOf(form, item);
    return text;
}

std::variant<Form, FileError> ReadForm(std::string_view text) {
    const auto zero = text.find('\0');
    if (zero != std::string_view::npos)
        return FileError{static_cast<int>(std::ranges::count(text.substr(0, zero), '\n')) + 1,
                         "not a resource file: it holds a zero byte"};
    return Reader{}.Read(text);
}

std::variant<Form, FileError> ReadFormFile(const std::string &file) {
    std::error_code is_directory;
    if (std::filesystem::is_directory(file, is_directory))
        return FileError{0, std::strerror(EISDIR)};
    errno = 0;
    std::ifstream stream(file, std::ios::binary);
    std::string text;
    char chunk[4096];
    while (stream && text.size() <= most_bytes) {
        stream.read(chunk, sizeof chunk);
        text.append(chunk, static_cast<std::size_t>(stream.gcount()));
    }
    if (!stream.eof() && text.size() <= most_bytes)
        return FileError{0, std::strerror(errno ? errno : EIO)};
    if (text.size() > most_bytes)
        return FileError{0, "the file is too large for a form"};
    return ReadForm(text);
}

} // namespace form_designer
