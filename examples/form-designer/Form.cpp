#include "Form.h"

#include <algorithm>
#include <cctype>

namespace form_designer {
namespace {

const Property &FormProperty(const char *name) {
    return *std::ranges::find(FormKind().own, std::string_view(name), &Property::name);
}

int NumberIn(const Values &values, const Property &property) {
    return NumberOf(ValueOf(values, property)).value_or(0);
}

std::optional<int> NumberIn(const Values &values, const char *name) {
    const auto found = values.find(name);
    return found == values.end() ? std::nullopt : NumberOf(found->second);
}

void Append(std::vector<const Property *> &all, std::span<const Property> some) {
    for (const Property &property : some)
        all.push_back(&property);
}

} // namespace

const Item *Form::Find(const std::string &name) const {
    const auto found = std::ranges::find(items, name, &Item::name);
    return found == items.end() ? nullptr : &*found;
}

Item *Form::Find(const std::string &name) {
    return const_cast<Item *>(static_cast<const Form &>(*this).Find(name));
}

const Kind &Form::ContainerKind(const Item &item) const {
    const Item *container = Find(item.container);
    return container ? *container->kind : FormKind();
}

std::vector<const Property *> Form::PropertiesOf(const Item &item) const {
    std::vector<const Property *> all;
    if (item.kind->has_label)
        all.push_back(&LabelProperty());
    Append(all, item.kind->own);
    Append(all, ContainerKind(item).of_children);
    return all;
}

std::vector<const Property *> Form::Properties() const {
    std::vector<const Property *> all;
    Append(all, FormKind().own);
    return all;
}

std::string Form::NewName(const Kind &kind) const {
    std::string stem = std::string(kind.class_name).substr(2);
    std::ranges::transform(stem, stem.begin(),
                           [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    int number = 1;
    while (Find(stem + std::to_string(number)))
        ++number;
    return stem + std::to_string(number);
}

void Form::Remove(const std::string &name) {
    std::erase_if(items,
                  [&](const Item &item) { return item.name == name || item.container == name; });
}

int Form::Rows() const {
    return NumberIn(values, FormProperty("numRows"));
}

int Form::Columns() const {
    return NumberIn(values, FormProperty("numColumns"));
}

std::string ValueOf(const Values &values, const Property &property) {
    const auto found = values.find(property.name);
    return found == values.end() ? property.preset : found->second;
}

bool IsName(const std::string &name) {
    const auto fits = [](unsigned char c) { return c == '_' || c == '-' || std::isalnum(c); };
    return !name.empty() && std::isalpha(static_cast<unsigned char>(name.front())) &&
           std::ranges::all_of(name, fits);
}

std::optional<Conflict> FindConflict(const Form &form) {
    std::map<std::pair<int, int>, const Item *> holders;
    for (const Item &item : form.items) {
        if (!item.container.empty())
            continue;
        const auto row = NumberIn(item.values, "row");
        const auto column = NumberIn(item.values, "column");
        if (!row || !column)
            return Conflict{item.name, "it has no row or no column"};
        if (*row >= form.Rows() || *column >= form.Columns())
            return Conflict{item.name, "row " + std::to_string(*row) + ", column " +
                                           std::to_string(*column) + " is outside of the form"};
        const auto [holder, is_first] = holders.try_emplace({*row, *column}, &item);
        if (!is_first)
            return Conflict{item.name, "row " + std::to_string(*row) + ", column " +
                                           std::to_string(*column) + " already holds " +
                                           holder->second->name};
    }
    return std::nullopt;
}

} // namespace form_designer
