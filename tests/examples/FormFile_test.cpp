// Forms as resource files: what is written is read back, and what is broken is told by its line.
#include <FormFile.h>

#include <tests/support/Random.h>

#include <gtest/gtest.h>

#include <utility>

#include <X11/Xresource.h>

namespace form_designer {
namespace {

using corvidlmw::test::Random;

std::string RandomText(Random &random) {
    constexpr std::string_view letters = "ab \\n\n\t!#:.*'\"\x7f\xc3\xa4 ";
    std::string text;
    for (int i = random.Between(0, 8); i > 0; --i)
        text +=
            letters[static_cast<size_t>(random.Between(0, static_cast<int>(letters.size()) - 1))];
    return text;
}

std::string RandomValue(Random &random, const Property &property) {
    switch (property.type) {
    case Type::Number: return std::to_string(random.Between(property.least, property.most));
    case Type::Flag: return random.Chance(0.5) ? "True" : "False";
    case Type::Choice:
        return property.choices[static_cast<size_t>(
            random.Between(0, static_cast<int>(property.choices.size()) - 1))];
    default: return RandomText(random);
    }
}

// Items of the form come first, as a file has them.
Form RandomForm(Random &random) {
    Form form{{{"numRows", "7"}, {"numColumns", "3"}}, {}};
    const int in_form = random.Between(0, 12), in_all = in_form + random.Between(0, 6);
    for (int i = 0; i < in_all; ++i) {
        const Kind &kind =
            Kinds()[static_cast<size_t>(random.Between(0, static_cast<int>(Kinds().size()) - 1))];
        Item item{form.NewName(kind), &kind, "", {}};
        if (i >= in_form)
            for (const Item &container : form.items)
                if (container.kind->IsContainer() && !kind.IsContainer())
                    item.container = container.name;
        if (i >= in_form && item.container.empty())
            continue;
        for (const Property *property : form.PropertiesOf(item))
            if (random.Chance(0.5))
                item.values[property->name] = RandomValue(random, *property);
        if (item.container.empty()) {
            item.values["row"] = std::to_string(i / 3);
            item.values["column"] = std::to_string(i % 3);
        }
        form.items.push_back(std::move(item));
    }
    return form;
}

TEST(FormFile, WhatIsWrittenIsReadBack) {
    Random random;
    for (int round = 0; round < 300; ++round) {
        const Form form = RandomForm(random);
        const std::string text = WriteForm(form);
        const auto read = ReadForm(text);
        const auto *error = std::get_if<FileError>(&read);
        ASSERT_FALSE(error) << Describe("written", *error) << '\n' << text;
        EXPECT_EQ(WriteForm(std::get<Form>(read)), text);
        // The toolkit itself reads the same.
        XrmInitialize();
        XrmDatabase database = XrmGetStringDatabase(text.c_str());
        for (const Item &item : form.items)
            for (const auto &[name, value] : item.values) {
                char *type = nullptr;
                XrmValue found{};
                const std::string path = "x.form." +
                                         (item.container.empty() ? "" : item.container + ".") +
                                         item.name + "." + name;
                ASSERT_TRUE(XrmGetResource(database, path.c_str(), path.c_str(), &type, &found))
                    << path;
                EXPECT_EQ(found.addr, value);
            }
        XrmDestroyDatabase(database);
        for (const Item &item : std::get<Form>(read).items)
            EXPECT_EQ(item.values, form.Find(item.name)->values);
    }
}

TEST(FormFile, ABrokenFileIsRefusedWithItsLine) {
    const std::string head = "*form.numRows: 2\n*form.children: a b\n*form.a.widgetClass: XmLabel\n"
                             "*form.b.widgetClass: XmSpringBox\n*form.a.row: 0\n*form.a.column: "
                             "0\n*form.b.row: 1\n*form.b.column: 0\n";
    ASSERT_TRUE(std::holds_alternative<Form>(ReadForm(head)));
    const std::pair<std::string, const char *> cases[] = {
        {"", "f: the file holds no form"},
        {"! nothing\n\n", "f: the file holds no form"},
        {std::string("*form.numRows: 2\n*a\0", 20),
         "f:2: not a resource file: it holds a zero byte"},
        {head + "Dear reader\n", "f:9: 'Dear reader' is no resource of a form"},
        {head + "! \\\n comment\n*form.a.row 3", "f:11: '*form.a.row 3' is no resource of a form"},
        {head + "*grid.a.row: 3", "f:9: the name must be *form.WIDGET.RESOURCE"},
        {head + "*form.a..row: 3", "f:9: the name must be *form.WIDGET.RESOURCE"},
        {head + "*form.a.row: 3", "f:9: 'row' was already set in line 5"},
        {head + "*form.c.row: 3", "f:9: no \"children\" names the widget 'c'"},
        {head + "*form.b.a.row: 3", "f:9: no \"children\" names the widget 'a'"},
        {head + "*form.a.width: 12 pixels",
         "f:9: width must be a whole number from 1 to 5000, not '12 pixels'"},
        {head + "*form.a.width: 99999999999",
         "f:9: width must be a whole number from 1 to 5000, not '99999999999'"},
        {head + "*form.a.gravity: Up", "f:9: gravity must be one of NorthWest, North, NorthEast, "
                                       "West, Center, East, SouthWest, South, SouthEast, not 'Up'"},
        {head + "*form.a.resizeVertical: yes",
         "f:9: resizeVertical must be True or False, not 'yes'"},
        {head + "*form.a.leftSpring: 3", "f:9: 'leftSpring' is no resource of 'a'"},
        {head + "*form.b.children: a", "f:9: there are two widgets 'a'"},
        {head + "*form.b.children: x", "f:9: widget 'x' has no widgetClass"},
        {head + "*form.b.children: 7", "f:9: '7' cannot be a widget's name"},
        {head + "*form.b.children: x\n*form.b.x.widgetClass: XmBox",
         "f:10: there is no widget class 'XmBox'"},
        {head + "*form.b.children: x\n*form.b.x.widgetClass: XmSpringBox",
         "f:10: XmSpringBox must stand in the form"},
        {"*form.children: a\n*form.a.widgetClass: XmLabel\n", "f: 'a': it has no row or no column"},
        {"*form.children: a\n*form.a.widgetClass: XmLabel\n*form.a.row: 1\n*form.a.column: 0",
         "f:3: 'a': row 1, column 0 is outside of the form"},
        {"*form.children: a b\n*form.a.widgetClass: XmLabel\n*form.a.row: 0\n*form.a.column: "
         "0\n*form.b.widgetClass: XmLabel\n*form.b.row: 0\n*form.b.column: 0",
         "f:6: 'b': row 0, column 0 already holds a"},
    };
    for (const auto &[text, message] : cases) {
        const auto read = ReadForm(text);
        const auto *error = std::get_if<FileError>(&read);
        ASSERT_TRUE(error) << message;
        EXPECT_EQ(Describe("f", *error), message);
    }
}

// Whatever stands in a file, the answer is a form that can be shown or an error.
TEST(FormFile, MangledFilesEndWell) {
    Random random;
    for (int round = 0; round < 2000; ++round) {
        std::string text = WriteForm(RandomForm(random));
        for (int i = random.Between(1, 4); i > 0; --i) {
            const auto at =
                static_cast<size_t>(random.Between(0, static_cast<int>(text.size()) - 1));
            if (random.Chance(0.5))
                text[at] = static_cast<char>(random.Between(0, 255));
            else
                text.erase(at, static_cast<size_t>(random.Between(1, 40)));
            text += '\n';
        }
        const auto read = ReadForm(text);
        if (const auto *form = std::get_if<Form>(&read)) {
            EXPECT_FALSE(FindConflict(*form));
            EXPECT_TRUE(std::holds_alternative<Form>(ReadForm(WriteForm(*form)))) << text;
        }
    }
}

} // namespace
} // namespace form_designer
