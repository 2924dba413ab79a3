// Whatever a class declares can be written in UIL: by the compiler's own words, or by those of the module that
// clients include; and that module says nothing that the library does not know.

#include <tests/manual/Classes.h>
#include <tests/support/GoogleTest.h>
#include <tests/uil/Uil.h>

#include <corvidlmw/graph/Arc.h>
#include <corvidlmw/graph/Graph.h>
#include <corvidlmw/gadget/IconG.h>
#include <corvidlmw/managers/Grid.h>

#include <algorithm>
#include <map>
#include <regex>
#include <set>

#include <Xm/Xm.h>

namespace {

using namespace corvidlmw::test;

// By the name of the resource; with its type in words of UIL.
std::map<std::string, std::string> Declared() {
    std::map<std::string, std::string> types;
    for (const UilResource &each : UilResources()) {
        types[each.resource] = each.type;
    }
    return types;
}

std::string TypeInUil(const XtResource &resource) {
    const std::string type = resource.resource_type;
    const std::map<std::string, std::string> named = {{XmRPixel, "color"},
                                                      {XmRBoolean, "boolean"},
                                                      {XmRWidget, "widget"},
                                                      {XmRCallback, "reason"}};
    if (resource.resource_name == std::string(XmNto) ||
        resource.resource_name == std::string(XmNfrom)) {
        return "widget";
    }
    if (const auto at = named.find(type); at != named.end()) {
        return at->second;
    }
    return resource.resource_size < sizeof(void *) ? "integer" : "any";
}

std::vector<XtResource> ResourcesAndConstraints(const Class &one) {
    std::vector<XtResource> all = DeclaredBy(one).resources;
    const auto &constraints = DeclaredBy(one).constraints;
    all.insert(all.end(), constraints.begin(), constraints.end());
    return all;
}

TEST(UilModuleTest, DeclaresResourcesWithTheirTypes) {
    const auto declared = Declared();
    std::set<std::string> known;
    for (const Class &one : Classes()) {
        for (const XtResource &resource : ResourcesAndConstraints(one)) {
            known.insert(resource.resource_name);
            const auto at = declared.find(resource.resource_name);
            if (at != declared.end()) {
                EXPECT_EQ(at->second, TypeInUil(resource))
                    << one.name << " " << resource.resource_name;
            }
        }
    }
    for (const auto &[name, type] : declared) {
        EXPECT_TRUE(known.count(name)) << name << " is of no class";
    }
}

// An identifier goes for a value of any type. A name that nobody declared is an error.
TEST(UilModuleTest, LeavesNoResourceWithoutAName) {
    const auto declared = Declared();
    std::set<std::string> arguments, reasons;
    for (const Class &one : Classes()) {
        for (const XtResource &resource : ResourcesAndConstraints(one)) {
            if (!declared.count(resource.resource_name)) {
                const bool reason = TypeInUil(resource) == "reason";
                (reason ? reasons : arguments).insert(resource.resource_name);
            }
        }
    }
    std::string body = "identifier value_of_any_type;\nprocedure Heard();\n";
    for (const std::string &name : arguments) {
        body += "list arguments_" + std::to_string(body.size()) + " : arguments { XmN" + name +
                " = value_of_any_type; };\n";
    }
    for (const std::string &name : reasons) {
        body += "list reasons_" + std::to_string(body.size()) + " : callbacks { XmN" + name +
                " = procedure Heard(); };\n";
    }
    EXPECT_GT(arguments.size(), 30u);
    EXPECT_GT(reasons.size(), 5u);
    EXPECT_EQ(UilModule(body).complaints(), "");
    EXPECT_NE(UilModule(body + "list wrong : arguments { XmNnoSuchName = 1; };").complaints(), "");
}

TEST(UilModuleTest, NamesAreShortEnoughForTheCompiler) {
    for (const UilResource &each : UilResources()) {
        EXPECT_LE(each.name.size(), 31u) << each.name;
        EXPECT_TRUE(each.name == "XmN" + each.resource || each.resource.size() > 28 ||
                    each.name.starts_with("XmNhorz"))
            << each.name;
    }
}

// What stands for the pattern's first group, in all headers.
std::set<std::string> FoundInHeaders(const char *pattern) {
    std::set<std::string> found;
    const std::regex expression(pattern);
    const std::filesystem::path library = SOURCE_DIRECTORY "/corvidlmw";
    for (const auto &file : std::filesystem::recursive_directory_iterator(library)) {
        if (file.path().extension() == ".h") {
            const std::string text = ReadFile(file.path());
            for (std::sregex_iterator at(text.begin(), text.end(), expression), end; at != end;
                 ++at) {
                found.insert((*at)[1]);
            }
        }
    }
    return found;
}

// The functions that take a parent, a name and arguments.
TEST(UilModuleTest, DeclaresEveryCreationFunction) {
    const auto functions = FoundInHeaders(
        R"(CORVIDLMW_EXPORT Widget (\w+)\(Widget parent,\s+(?:char \*|String )name,\s+ArgList)");
    const auto procedures = UilProcedures();
    EXPECT_EQ(std::set<std::string>(procedures.begin(), procedures.end()), functions);
    EXPECT_EQ(UilModule("include file 'corvidlmw/uil/Corvidlmw.uil';").complaints(), "");
}

// What resources can be set to; no reasons, which no interface sets.
std::set<std::string> ValuesInHeaders() {
    auto values = FoundInHeaders(R"(\n#define (Xm[A-Z]+_[A-Z]+) \d)");
    const std::regex value(R"(\bXm[A-Z_]+\b)");
    for (const std::string &list : FoundInHeaders(R"(\nenum (\{[^}]*\});)")) {
        for (std::sregex_iterator at(list.begin(), list.end(), value), end; at != end; ++at) {
            if (!at->str().starts_with("XmCR_")) {
                values.insert(at->str());
            }
        }
    }
    EXPECT_GT(values.size(), 20u);
    return values;
}

TEST(UilModuleTest, ConstantsAreThoseOfTheHeaders) {
    struct Constant {
        const char *name;
        long header, module;
    };
    const Constant constants[] = {
#include <UilConstants.inc>
    };
    std::set<std::string> declared;
    for (const Constant &each : constants) {
        EXPECT_EQ(each.module, each.header) << each.name;
        declared.insert(each.name);
    }
    for (const std::string &value : ValuesInHeaders()) {
        EXPECT_TRUE(declared.count(value)) << value << " has no name in UIL";
    }
}

} // namespace
