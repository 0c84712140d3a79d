// SPDX-License-Identifier: Apache-2.0
// The table of operations against the declarations that hosts read: the text of the header itself.
#include <cstddef>
#include <fstream>
#include <map>
#include <regex>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <qel/api/camera/Operations.h>

namespace qel::api::camera {
namespace {

struct Declaration {
    std::string section; ///< the one-line comment that it stands under, up to its first punctuation
    std::string name;
    std::string result;
    std::vector<std::string> argumentTypes;
    std::vector<std::string> argumentNames;
};

std::string headerText() {
    std::ifstream file(CAMERA_SERVICE_HEADER);
    std::ostringstream text;
    text << file.rdbuf();
    if (!file || text.str().empty()) {
        throw std::runtime_error("cannot read " CAMERA_SERVICE_HEADER);
    }
    return text.str();
}

/// One argument as it is declared: a type, by reference and constant perhaps, and a name.
void addArgument(Declaration& declaration, const std::string& text) {
    static const std::regex pattern(R"(^\s*(?:const\s+)?([\w:]+)\s*&?\s+(\w+)\s*$)");
    std::smatch match;
    if (!std::regex_match(text, match, pattern)) {
        throw std::runtime_error(declaration.name + ": not understood: " + text);
    }
    declaration.argumentTypes.push_back(match[1]);
    declaration.argumentNames.push_back(match[2]);
}

Declaration parseDeclaration(const std::string& text, const std::string& section) {
    static const std::regex pattern(R"(^virtual void (\w+)\(([^)]*)\) = 0;$)");
    std::smatch match;
    if (!std::regex_match(text, match, pattern)) {
        throw std::runtime_error("not understood: " + text);
    }
    Declaration declaration{section, match[1], {}, {}, {}};
    std::istringstream arguments(match[2]);
    for (std::string argument; std::getline(arguments, argument, ',');) {
        addArgument(declaration, argument);
    }
    if (declaration.argumentNames.empty() || declaration.argumentNames.front() != "_return") {
        throw std::runtime_error(declaration.name + " does not begin with _return");
    }
    declaration.result = declaration.argumentTypes.front();
    declaration.argumentTypes.erase(declaration.argumentTypes.begin());
    declaration.argumentNames.erase(declaration.argumentNames.begin());
    return declaration;
}

/// The pure virtual functions of CameraAPIIf in the order of the text. A declaration may span lines.
std::vector<Declaration> declarations() {
    static const std::regex sectionPattern(R"(^\s*// ([A-Z][a-z]+(?: [a-z]+)?)[:.].*)");
    std::vector<Declaration> found;
    std::string section;
    std::string pending;
    std::istringstream text(headerText());
    for (std::string line; std::getline(text, line);) {
        std::smatch match;
        if (std::regex_match(line, match, sectionPattern)) {
            section = match[1];
        } else if (!pending.empty() || line.find("virtual void ") != std::string::npos) {
            pending += pending.empty() ? "" : " ";
            pending += line.substr(line.find_first_not_of(' '));
            if (pending.back() == ';') {
                found.push_back(parseDeclaration(pending, section));
                pending.clear();
            }
        }
    }
    return found;
}

std::string spelled(std::string_view type) {
    static const std::map<std::string_view, std::string> others{{"int32", "std::int32_t"},
                                                                {"ProjectionType", "ProjectionType::type"}};
    const auto other = others.find(type);
    return other != others.end() ? other->second : std::string(type);
}

TEST(OperationTable, HasTheNamesOfTheDeclarationsInTheirOrder) {
    const auto declared = declarations();
    ASSERT_EQ(declared.size(), operationCount);
    forEachOperation(
        [&](std::size_t slot, const auto& operation) { EXPECT_EQ(operation.name, declared[slot].name) << slot; });
}

TEST(OperationTable, HasTheArgumentNamesOfTheDeclarations) {
    const auto declared = declarations();
    ASSERT_EQ(declared.size(), operationCount);
    forEachOperation([&](std::size_t slot, const auto& operation) {
        EXPECT_THAT(operation.argumentNames, ::testing::ElementsAreArray(declared[slot].argumentNames))
            << operation.name;
    });
}

TEST(OperationTable, NamesTheTypesOfTheDeclarations) {
    const auto declared = declarations();
    ASSERT_EQ(declared.size(), operationCount);
    forEachOperation([&](std::size_t slot, const auto& operation) {
        std::vector<std::string> types;
        for (const std::string_view type : argumentTypes(operation)) {
            types.push_back(spelled(type));
        }
        EXPECT_EQ(types, declared[slot].argumentTypes) << operation.name;
        EXPECT_EQ(resultType(operation), declared[slot].result) << operation.name;
    });
}

TEST(OperationTable, GroupsTheOperationsAsTheDeclarationsAre) {
    static const std::map<std::string, std::string> groups{
        {"View", "View"},
        {"Projection", "Projection"},
        {"Surface", "Surface"},
        {"Planar camera", "PlanarCamera"},
        {"Navigation", "PlanarCamera"},
        {"Utilities", "Utilities"},
        {"Space transforms", "Transforms"},
    };
    const auto declared = declarations();
    ASSERT_EQ(declared.size(), operationCount);
    forEachOperation([&](std::size_t slot, const auto& operation) {
        const auto group = groups.find(declared[slot].section);
        ASSERT_NE(group, groups.end()) << operation.name << " stands under " << declared[slot].section;
        EXPECT_EQ(groupOf(operation.name), group->second) << operation.name;
    });
}

TEST(OperationTable, GivesNoGroupToANameThatBeginsLikeNoOperation) {
    EXPECT_EQ(groupOf("roll"), "");
    EXPECT_EQ(groupOf(""), "");
}

} // namespace
} // namespace qel::api::camera
