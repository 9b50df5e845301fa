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

// The layers, lowest first. A folder includes only from itself and from lower layers.
const std::vector<std::string> Layers = {"base",
                                         "input",
                                         "sql",
                                         "sql/tsql",
                                         "sql/query",
                                         "labels",
                                         "database/schema",
                                         "database",
                                         "database/odbc",
                                         "host",
                                         "access",
                                         "data",
                                         "core",
                                         "ui/platform",
                                         "ui/style",
                                         "ui/controls",
                                         "ui/accessibility",
                                         "ui/printing",
                                         "ui/common",
                                         "ui/locations",
                                         "ui/explorer",
                                         "ui/items",
                                         "ui/shell",
                                         "component",
                                         "demo/sample",
                                         "demo/tour",
                                         "demo/gallery",
                                         "app/common",
                                         "app/guide",
                                         "app/records",
                                         "app/scanner",
                                         "app",
                                         "designer"};

// For folders that may not include all lower layers, the layers that they may include.
const std::map<std::string, std::vector<std::string>> Narrow = {
    {"input", {"base"}},
    {"sql", {"base"}},
    {"sql/tsql", {"base", "sql"}},
    {"sql/query", {"base", "sql"}},
    {"labels", {"base"}},
    {"database/schema", {"base"}},
    {"database", {"base", "sql", "sql/tsql", "database/schema"}},
    {"database/odbc", {"base", "sql", "sql/tsql", "database", "database/schema"}},
    {"demo/sample", {"base", "host", "database", "database/schema"}},
    {"demo/tour", {"base", "sql", "database", "demo/sample"}},
    {"app/common", {"base"}},
    {"app/guide", {"base", "app/common"}},
    {"app/records", {"base", "host", "component", "app/common"}},
    {"app/scanner", {"base", "labels", "host", "component", "app/common"}},
    {"app",
     {"base", "database", "database/odbc", "database/schema", "host", "component", "demo/sample", "demo/tour",
      "app/common", "app/guide", "app/records", "app/scanner"}},
    {"designer", {"component", "ui/style", "ui/controls", "ui/common", "ui/shell"}},
};

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
    for (const char* top : {"access", "app", "base", "component", "core", "data", "database", "demo", "designer",
                            "host", "input", "labels", "sql", "ui"}) {
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

int Height(const std::string& folder) {
    const auto found = std::find(Layers.begin(), Layers.end(), folder);
    return found == Layers.end() ? -1 : static_cast<int>(found - Layers.begin());
}

bool MayInclude(const std::string& from, const std::string& to) {
    const std::string source = FolderOf(from), target = FolderOf(to);
    if (Height(source) < 0 || Height(target) < 0) return false;
    if (source == target) return true;
    if (const auto narrow = Narrow.find(source); narrow != Narrow.end())
        return std::find(narrow->second.begin(), narrow->second.end(), target) != narrow->second.end();
    if (target == "input") return Height(source) > Height("core");
    return Height(target) < Height(source);
}

bool IsWithoutQt(const std::string& path) {
    const int height = Height(FolderOf(path));
    return height >= 0 && height <= Height("core");
}

bool IsQtHeader(const std::string& name) {
    return name.size() > 1 && name[0] == 'Q' && (std::isupper(static_cast<unsigned char>(name[1])) || name[1] == 't');
}

std::vector<std::string> UpwardIncludes(const SourceTree& tree) {
    std::vector<std::string> faults;
    for (const auto& [path, file] : tree)
        for (const std::string& included : file.quoted)
            if (included.find('/') != std::string::npos && !MayInclude(path, included))
                faults.push_back(path + " includes " + included);
    return faults;
}

// A quoted include must name an existing file from the project's root. One without a folder can only be a file that the
// build generates.
std::vector<std::string> UnknownIncludes(const SourceTree& tree) {
    std::vector<std::string> faults;
    for (const auto& [path, file] : tree)
        for (const std::string& included : file.quoted)
            if (tree.count(included) == 0 && included.find(".moc") == std::string::npos)
                faults.push_back(path + " includes " + included);
    return faults;
}

std::vector<std::string> QtHeaders(const SourceTree& tree) {
    std::vector<std::string> faults;
    for (const auto& [path, file] : tree) {
        if (!IsWithoutQt(path)) continue;
        for (const auto* names : {&file.quoted, &file.angled})
            for (const std::string& name : *names)
                if (IsQtHeader(name)) faults.push_back(path + " includes " + name);
    }
    return faults;
}

// Headers with which Qt stores settings of a user, outside the reference host.
std::vector<std::string> HeadersForSettings(const SourceTree& tree) {
    std::vector<std::string> faults;
    for (const auto& [path, file] : tree)
        for (const std::string& name : file.angled)
            if (!path.starts_with("app/") && (name == "QSettings" || name == "QStandardPaths" || name == "QFileDialog"))
                faults.push_back(path + " includes " + name);
    return faults;
}

using Graph = std::map<std::string, std::set<std::string>>;

Graph FileGraph(const SourceTree& tree) {
    Graph graph;
    for (const auto& [path, file] : tree)
        for (const std::string& included : file.quoted) graph[path].insert(included);
    return graph;
}

Graph FolderGraph(const SourceTree& tree) {
    Graph graph;
    for (const auto& [path, file] : tree)
        for (const std::string& included : file.quoted)
            if (FolderOf(included) != FolderOf(path)) graph[FolderOf(path)].insert(FolderOf(included));
    return graph;
}

// One cycle, written as "a > b > a"; empty when there is none.
std::string FindCycle(const Graph& graph) {
    std::set<std::string> done;
    std::vector<std::string> path;
    std::string cycle;
    const std::function<void(const std::string&)> visit = [&](const std::string& node) {
        if (!cycle.empty() || done.count(node) > 0) return;
        const auto onPath = std::find(path.begin(), path.end(), node);
        if (onPath != path.end()) {
            for (auto at = onPath; at != path.end(); ++at) cycle += *at + " > ";
            cycle += node;
            return;
        }
        path.push_back(node);
        if (const auto found = graph.find(node); found != graph.end())
            for (const std::string& next : found->second) visit(next);
        path.pop_back();
        done.insert(node);
    };
    for (const auto& [node, next] : graph) visit(node);
    return cycle;
}

std::string Lines(const std::vector<std::string>& faults) {
    std::string text;
    for (const std::string& fault : faults) text += fault + "\n";
    return text;
}

// Builds a tree from lines "file: included, <included>".
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

TEST(Layering, EveryIncludePointsDown) { EXPECT_EQ(Lines(UpwardIncludes(ReadProject())), ""); }

TEST(Layering, OnlyTheReferenceHostStoresSettings) { EXPECT_EQ(Lines(HeadersForSettings(ReadProject())), ""); }

TEST(Layering, NoCycleBetweenFiles) { EXPECT_EQ(FindCycle(FileGraph(ReadProject())), ""); }

TEST(Layering, NoCycleBetweenFolders) { EXPECT_EQ(FindCycle(FolderGraph(ReadProject())), ""); }

TEST(Layering, TheModelDoesNotIncludeQt) { EXPECT_EQ(Lines(QtHeaders(ReadProject())), ""); }

// The rules themselves, on trees that break them.

TEST(LayeringRules, IncludesAreFoundHoweverTheyAreSpaced) {
    std::istringstream text(
        "#include \"base/Error.h\"\n  #  include <QString>\n// #include \"no/No.h\"\n#include<vector>\n");
    const SourceFile file = ReadIncludes(text);
    EXPECT_EQ(file.quoted, std::vector<std::string>{"base/Error.h"});
    EXPECT_EQ(file.angled, (std::vector<std::string>{"QString", "vector"}));
}

TEST(LayeringRules, IncludesOnlyPointDown) {
    EXPECT_TRUE(MayInclude("core/Actions.cpp", "data/StoredItem.h"));
    EXPECT_TRUE(MayInclude("ui/shell/EvidenceUI.cpp", "ui/controls/View.h"));
    EXPECT_TRUE(MayInclude("component/Module.cpp", "ui/shell/EvidenceUI.h"));
    EXPECT_FALSE(MayInclude("data/StoredItem.cpp", "core/Actions.h"));
    EXPECT_FALSE(MayInclude("ui/common/Dialogs.cpp", "ui/locations/Editor.h"));
    EXPECT_FALSE(MayInclude("base/Screen.cpp", "sql/Row.h"));
    EXPECT_FALSE(MayInclude("core/Actions.cpp", "somewhere/Else.h"));
    EXPECT_FALSE(MayInclude("somewhere/Else.cpp", "base/Error.h"));
    EXPECT_FALSE(MayInclude("ui/shell/EvidenceUI.cpp", "app/Main.h"));
    EXPECT_FALSE(MayInclude("ui/style/Theme.cpp", "ui/accessibility/Accessibility.h"));
}

TEST(LayeringRules, TheReferenceHostUsesOnlyThePublicHeadersOfTheComponent) {
    for (const char* allowed : {"component/Public.h", "host/HostServices.h", "base/Error.h", "app/Tabs.h"})
        EXPECT_TRUE(MayInclude("app/Main.cpp", allowed)) << allowed;
    for (const char* refused : {"core/Actions.h", "data/StoredItem.h", "ui/shell/EvidenceUI.h", "access/User.h",
                                "input/BarcodeListener.h", "ui/controls/FlatButton.h"})
        EXPECT_FALSE(MayInclude("app/Main.cpp", refused)) << refused;
    EXPECT_FALSE(MayInclude("demo/tour/TourPlayer.cpp", "app/Run.h"));
}

TEST(LayeringRules, OnlyTheGalleryIncludesTheControls) {
    EXPECT_TRUE(MayInclude("demo/gallery/Buttons.cpp", "ui/controls/FlatButton.h"));
    EXPECT_FALSE(MayInclude("demo/tour/TourPlayer.cpp", "ui/controls/FlatButton.h"));
    EXPECT_FALSE(MayInclude("demo/gallery/Tags.cpp", "app/common/HostGuard.h"));
}

TEST(LayeringRules, InputIncludesOnlyBase) {
    EXPECT_TRUE(MayInclude("input/BarcodeListener.cpp", "base/Clock.h"));
    EXPECT_FALSE(MayInclude("input/BarcodeListener.cpp", "sql/Row.h"));
    EXPECT_TRUE(MayInclude("ui/explorer/Explorer.cpp", "input/BarcodeListener.h"));
    EXPECT_FALSE(MayInclude("core/Actions.cpp", "input/BarcodeListener.h"));
}

TEST(LayeringRules, EnginesAndQueriesDoNotIncludeTheHostsServices) {
    EXPECT_TRUE(MayInclude("database/Connection.h", "sql/Row.h"));
    EXPECT_TRUE(MayInclude("database/SqliteEngine.cpp", "sql/tsql/TransactSqlRewriter.h"));
    EXPECT_FALSE(MayInclude("database/Connection.h", "host/HostDatabase.h"));
    EXPECT_FALSE(MayInclude("database/Connection.h", "labels/Label.h"));
    EXPECT_FALSE(MayInclude("sql/query/QueryComposer.cpp", "host/HostServices.h"));
    EXPECT_TRUE(MayInclude("host/HostServices.h", "database/ConnectionPool.h"));
}

TEST(LayeringRules, CyclesOfAnyLengthAreFound) {
    EXPECT_EQ(FindCycle({{"a", {"b"}}, {"b", {"c"}}, {"c", {}}}), "");
    EXPECT_EQ(FindCycle({{"a", {"b"}}, {"b", {"c"}}, {"c", {"b"}}}), "b > c > b");
    EXPECT_EQ(FindCycle({{"a", {"a"}}}), "a > a");
    EXPECT_EQ(FindCycle({{"a", {"b", "c"}}, {"b", {"d"}}, {"c", {"d"}}}), "") << "a diamond is not a cycle";
}

TEST(LayeringRules, QtHeadersAreFoundBelowTheViewsOnly) {
    const SourceTree tree =
        TreeOf({{"core/Actions.cpp", "#include <QString>\n#include <QtWidgets>\n#include <vector>\n"},
                {"input/BarcodeListener.h", "#include \"QObject\"\n"},
                {"sql/query/QueryNodes.h", "#include \"sql/query/QueryFactory.h\"\n"},
                {"ui/controls/View.h", "#include <QWidget>\n"}});
    EXPECT_EQ(Lines(QtHeaders(tree)),
              "core/Actions.cpp includes QString\ncore/Actions.cpp includes QtWidgets\n"
              "input/BarcodeListener.h includes QObject\n");
}

TEST(LayeringRules, HeadersForSettingsAreFoundOutsideTheReferenceHost) {
    const SourceTree tree = TreeOf({{"app/WindowSize.cpp", "#include <QSettings>\n"},
                                    {"ui/shell/Toast.cpp", "#include <QSettings>\n#include <QTimer>\n"}});
    EXPECT_EQ(Lines(HeadersForSettings(tree)), "ui/shell/Toast.cpp includes QSettings\n");
}

TEST(LayeringRules, FaultsAreNamedWithBothFiles) {
    const SourceTree tree = TreeOf({{"base/Error.h", ""},
                                    {"base/Bad.cpp", "#include \"core/Actions.h\"\n"},
                                    {"core/Actions.h", "#include \"Error.h\"\n#include \"base/Error.h\"\n"}});
    EXPECT_EQ(Lines(UpwardIncludes(tree)), "base/Bad.cpp includes core/Actions.h\n");
    EXPECT_EQ(Lines(UnknownIncludes(tree)), "core/Actions.h includes Error.h\n");
    EXPECT_EQ(FindCycle(FolderGraph(tree)), "base > core > base");
}

}  // namespace quellbrook
