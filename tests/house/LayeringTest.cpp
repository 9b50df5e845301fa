#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace quellbrook {

namespace {

namespace fs = std::filesystem;

// The floors from the ground up. A folder includes only from itself and from floors below.
const std::vector<std::string> Floors = {
    "base",      "host",         "access",      "data",     "core",     "ui/controls",
    "ui/labels", "ui/common",    "ui/locations", "ui/explorer", "ui/items", "ui/shell", "component",
    "app"};

struct SourceFile {
    std::vector<std::string> quoted;  // as written
    std::vector<std::string> angled;
};
using SourceTree = std::map<std::string, SourceFile>;  // by path from the project's root

SourceFile ReadIncludes(std::istream& text) {
    SourceFile file;
    for (std::string line; std::getline(text, line);) {
        size_t at = line.find_first_not_of(" \t");
        if (at == std::string::npos || line[at] != '#') continue;
        at = line.find_first_not_of(" \t", at + 1);
        if (at == std::string::npos || line.compare(at, 7, "include") != 0) continue;
        at = line.find_first_of("\"<", at + 7);
        if (at == std::string::npos) continue;
        const bool quoted = line[at] == '"';
        const size_t end = line.find(quoted ? '"' : '>', at + 1);
        (quoted ? file.quoted : file.angled).push_back(line.substr(at + 1, end - at - 1));
    }
    return file;
}

SourceTree ReadProject() {
    const fs::path root = QUELLBROOK_SOURCE_DIR;
    SourceTree tree;
    for (const char* top : {"app", "component", "ui", "input", "core", "data", "access", "host", "base"}) {
        if (!fs::exists(root / top)) continue;
        for (const auto& entry : fs::recursive_directory_iterator(root / top)) {
            const std::string extension = entry.path().extension().string();
            if (extension != ".h" && extension != ".cpp" && extension != ".mm") continue;
            std::ifstream text(entry.path());
            tree[fs::relative(entry.path(), root).generic_string()] = ReadIncludes(text);
        }
    }
    return tree;
}

std::string FolderOf(const std::string& path) { return path.substr(0, path.rfind('/')); }

// The folder whose rules hold for a file: the sub-folders of host count as host, those of any other as themselves.
std::string FloorOf(const std::string& path) {
    const std::string top = path.substr(0, path.find('/'));
    if (top != "ui") return top;
    const size_t second = path.find('/', 3);
    return second == std::string::npos ? top : path.substr(0, second);
}

int Height(const std::string& floor) {
    const auto found = std::find(Floors.begin(), Floors.end(), floor);
    return found == Floors.end() ? -1 : static_cast<int>(found - Floors.begin());
}

bool MayInclude(const std::string& from, const std::string& to) {
    const std::string source = FloorOf(from), target = FloorOf(to);
    if (source == target)
        return FolderOf(from) != "host/engines" || FolderOf(to) != "host" || to == "host/Row.h";
    if (source == "input") return target == "base";
    if (FolderOf(from) == "app/gallery" && (target == "ui/controls" || target == "ui/common")) return true;
    if (source == "app") return target == "component" || target == "host" || target == "base";
    if (target == "input") return Height(source) > Height("core");
    return Height(source) >= 0 && Height(target) >= 0 && Height(target) < Height(source);
}

bool KnowsNoToolkit(const std::string& path) {
    const std::string floor = FloorOf(path);
    return floor == "input" || (Height(floor) >= 0 && Height(floor) <= Height("core"));
}

bool IsToolkitHeader(const std::string& name) {
    return name.size() > 1 && name[0] == 'Q' && (std::isupper(static_cast<unsigned char>(name[1])) || name[1] == 't');
}

std::vector<std::string> UpwardArrows(const SourceTree& tree) {
    std::vector<std::string> faults;
    for (const auto& [path, file] : tree)
        for (const std::string& included : file.quoted)
            if (included.find('/') != std::string::npos && !MayInclude(path, included))
                faults.push_back(path + " includes " + included);
    return faults;
}

// A quoted include that is written from the project's root names a file that is there; one without a folder can only be
// what the build generates.
std::vector<std::string> UnknownIncludes(const SourceTree& tree) {
    std::vector<std::string> faults;
    for (const auto& [path, file] : tree)
        for (const std::string& included : file.quoted)
            if (tree.count(included) == 0 && included.find(".moc") == std::string::npos)
                faults.push_back(path + " includes " + included);
    return faults;
}

std::vector<std::string> ToolkitHeaders(const SourceTree& tree) {
    std::vector<std::string> faults;
    for (const auto& [path, file] : tree) {
        if (!KnowsNoToolkit(path)) continue;
        for (const auto* names : {&file.quoted, &file.angled})
            for (const std::string& name : *names)
                if (IsToolkitHeader(name)) faults.push_back(path + " includes " + name);
    }
    return faults;
}

using Graph = std::map<std::string, std::set<std::string>>;

Graph FileGraph(const SourceTree& tree) {
    Graph graph;
    for (const auto& [path, file] : tree)
        for (const std::string& included : file.quoted) graph[path].insert(included);
    return graph;
}

// Folders as floors: the parts of host are one.
Graph FolderGraph(const SourceTree& tree) {
    Graph graph;
    for (const auto& [path, file] : tree)
        for (const std::string& included : file.quoted)
            if (FloorOf(included) != FloorOf(path)) graph[FloorOf(path)].insert(FloorOf(included));
    return graph;
}

// One circle, written as "a > b > a"; empty when there is none.
std::string FindCircle(const Graph& graph) {
    std::set<std::string> done;
    std::vector<std::string> way;
    std::string circle;
    const std::function<void(const std::string&)> visit = [&](const std::string& node) {
        if (!circle.empty() || done.count(node) > 0) return;
        const auto onWay = std::find(way.begin(), way.end(), node);
        if (onWay != way.end()) {
            for (auto at = onWay; at != way.end(); ++at) circle += *at + " > ";
            circle += node;
            return;
        }
        way.push_back(node);
        if (const auto found = graph.find(node); found != graph.end())
            for (const std::string& next : found->second) visit(next);
        way.pop_back();
        done.insert(node);
    };
    for (const auto& [node, next] : graph) visit(node);
    return circle;
}

std::string Lines(const std::vector<std::string>& faults) {
    std::string text;
    for (const std::string& fault : faults) text += fault + "\n";
    return text;
}

// A tree made of lines "file: included, <included>".
SourceTree TreeOf(const std::map<std::string, std::string>& files) {
    SourceTree tree;
    for (const auto& [path, includes] : files) {
        std::istringstream text(includes);
        tree[path] = ReadIncludes(text);
    }
    return tree;
}

}  // namespace

TEST(Layering, TheProjectIsRead) {
    const SourceTree tree = ReadProject();
    EXPECT_GT(tree.size(), 50u);
    ASSERT_EQ(tree.count("core/CartStore.h"), 1u);
    const auto& includes = tree.at("core/CartStore.h").quoted;
    EXPECT_NE(std::find(includes.begin(), includes.end(), "core/Dispatcher.h"), includes.end());
}

TEST(Layering, EveryIncludeIsWrittenFromTheProjectsRoot) { EXPECT_EQ(Lines(UnknownIncludes(ReadProject())), ""); }

TEST(Layering, NoArrowRunsUp) { EXPECT_EQ(Lines(UpwardArrows(ReadProject())), ""); }

TEST(Layering, NoCircleBetweenFiles) { EXPECT_EQ(FindCircle(FileGraph(ReadProject())), ""); }

TEST(Layering, NoCircleBetweenFolders) { EXPECT_EQ(FindCircle(FolderGraph(ReadProject())), ""); }

TEST(Layering, TheModelKnowsNoToolkit) { EXPECT_EQ(Lines(ToolkitHeaders(ReadProject())), ""); }

// The rules themselves, on trees that break them.

TEST(LayeringRules, IncludesAreFoundHoweverTheyAreSpaced) {
    std::istringstream text(
        "#include \"base/Error.h\"\n  #  include <QString>\n// #include \"no/No.h\"\n#include<vector>\n");
    const SourceFile file = ReadIncludes(text);
    EXPECT_EQ(file.quoted, std::vector<std::string>{"base/Error.h"});
    EXPECT_EQ(file.angled, (std::vector<std::string>{"QString", "vector"}));
}

TEST(LayeringRules, OnlyArrowsThatRunDownAreAllowed) {
    EXPECT_TRUE(MayInclude("core/Actions.cpp", "data/StoredItem.h"));
    EXPECT_TRUE(MayInclude("ui/shell/EvidenceUI.cpp", "ui/controls/View.h"));
    EXPECT_TRUE(MayInclude("component/Module.cpp", "ui/shell/EvidenceUI.h"));
    EXPECT_FALSE(MayInclude("data/StoredItem.cpp", "core/Actions.h"));
    EXPECT_FALSE(MayInclude("ui/common/Dialogs.cpp", "ui/locations/Editor.h"));
    EXPECT_FALSE(MayInclude("host/sql/QueryPlanner.cpp", "access/User.h"));
    EXPECT_FALSE(MayInclude("base/Screen.cpp", "host/Row.h"));
    EXPECT_FALSE(MayInclude("core/Actions.cpp", "somewhere/Else.h"));
    EXPECT_FALSE(MayInclude("ui/shell/EvidenceUI.cpp", "app/Main.h"));
}

TEST(LayeringRules, TheHostApplicationReachesTheModuleThroughItsPublicFaceAlone) {
    for (const char* allowed : {"component/Public.h", "host/HostServices.h", "base/Error.h", "app/Tabs.h"})
        EXPECT_TRUE(MayInclude("app/Main.cpp", allowed)) << allowed;
    for (const char* refused : {"core/Actions.h", "data/StoredItem.h", "ui/shell/EvidenceUI.h", "access/User.h",
                                "input/BarcodeListener.h"})
        EXPECT_FALSE(MayInclude("app/Main.cpp", refused)) << refused;
}

TEST(LayeringRules, TheGalleryAloneKnowsTheControlsThatItShows) {
    EXPECT_TRUE(MayInclude("app/gallery/Buttons.cpp", "ui/controls/FlatButton.h"));
    EXPECT_TRUE(MayInclude("app/gallery/Tags.cpp", "ui/common/RelatedIncidentStrip.h"));
    EXPECT_FALSE(MayInclude("app/gallery/Tags.cpp", "ui/shell/EvidenceUI.h"));
    EXPECT_FALSE(MayInclude("app/gallery/Tags.cpp", "core/Actions.h"));
    EXPECT_FALSE(MayInclude("app/MainWindow.cpp", "ui/controls/FlatButton.h"));
}

TEST(LayeringRules, InputStandsOnBaseAlone) {
    EXPECT_TRUE(MayInclude("input/BarcodeListener.cpp", "base/Clock.h"));
    EXPECT_FALSE(MayInclude("input/BarcodeListener.cpp", "host/Row.h"));
    EXPECT_TRUE(MayInclude("ui/explorer/Explorer.cpp", "input/BarcodeListener.h"));
    EXPECT_FALSE(MayInclude("core/Actions.cpp", "input/BarcodeListener.h"));
}

TEST(LayeringRules, EnginesKnowNothingOfTheHostAboveThemButRows) {
    EXPECT_TRUE(MayInclude("host/engines/Connection.h", "host/Row.h"));
    EXPECT_TRUE(MayInclude("host/engines/SqliteEngine.cpp", "host/sql/TransactSqlRewriter.h"));
    EXPECT_FALSE(MayInclude("host/engines/Connection.h", "host/HostDatabase.h"));
    EXPECT_TRUE(MayInclude("host/HostServices.h", "host/engines/ConnectionPool.h"));
}

TEST(LayeringRules, CirclesOfAnyLengthAreFound) {
    EXPECT_EQ(FindCircle({{"a", {"b"}}, {"b", {"c"}}, {"c", {}}}), "");
    EXPECT_EQ(FindCircle({{"a", {"b"}}, {"b", {"c"}}, {"c", {"b"}}}), "b > c > b");
    EXPECT_EQ(FindCircle({{"a", {"a"}}}), "a > a");
    EXPECT_EQ(FindCircle({{"a", {"b", "c"}}, {"b", {"d"}}, {"c", {"d"}}}), "") << "a diamond is no circle";
}

TEST(LayeringRules, ToolkitHeadersAreFoundBelowTheViewsOnly) {
    const SourceTree tree =
        TreeOf({{"core/Actions.cpp", "#include <QString>\n#include <QtWidgets>\n#include <vector>\n"},
                {"input/BarcodeListener.h", "#include \"QObject\"\n"},
                {"host/QueryNodes.h", "#include \"host/QueryFactory.h\"\n"},
                {"ui/controls/View.h", "#include <QWidget>\n"}});
    EXPECT_EQ(Lines(ToolkitHeaders(tree)), "core/Actions.cpp includes QString\ncore/Actions.cpp includes QtWidgets\n"
                                           "input/BarcodeListener.h includes QObject\n");
}

TEST(LayeringRules, FaultsAreNamedWithBothFiles) {
    const SourceTree tree = TreeOf({{"base/Error.h", ""},
                                    {"base/Bad.cpp", "#include \"core/Actions.h\"\n"},
                                    {"core/Actions.h", "#include \"Error.h\"\n#include \"base/Error.h\"\n"}});
    EXPECT_EQ(Lines(UpwardArrows(tree)), "base/Bad.cpp includes core/Actions.h\n");
    EXPECT_EQ(Lines(UnknownIncludes(tree)), "core/Actions.h includes Error.h\n");
    EXPECT_EQ(FindCircle(FolderGraph(tree)), "base > core > base");
}

}  // namespace quellbrook
