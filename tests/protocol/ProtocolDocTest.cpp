// docs/protocol.md is what App's developers and the simulator's users read; it must name
// every constant the protocol headers define, so that a new message or field cannot land
// without its line in the document.
#include <gtest/gtest.h>

#include <dirent.h>
#include <fstream>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace {

std::string readFile(const std::string& path) {
    std::ifstream in(path);
    std::stringstream s;
    s << in.rdbuf();
    return s.str();
}

std::vector<std::string> protocolHeaders() {
    const std::string dir = std::string(VY_SOURCE_DIR) + "/src/protocol";
    std::vector<std::string> out;
    if (DIR* d = opendir(dir.c_str())) {
        while (dirent* e = readdir(d)) {
            const std::string name = e->d_name;
            if (name.size() > 2 && name.compare(name.size() - 2, 2, ".h") == 0) {
                out.push_back(dir);
                out.back().append("/").append(name);
            }
        }
        closedir(d);
    }
    return out;
}

// "Scope::name" for every constexpr constant of a header, the scope being the innermost
// namespace or struct (top-level constants go by their bare name).
std::set<std::string> constantsOf(const std::string& text) {
    static const std::regex open(R"(^\s*(?:namespace|struct|class) (\w+)\b[^;]*\{\s*$)");
    static const std::regex constant(
        R"(^\s*(?:static )?constexpr [\w:<>,* ]+?[ *](\w+)\s*(?:=|\{|\[))");
    struct Scope {
        std::string name;
        int depth; // brace depth outside the scope
    };
    std::vector<Scope> scopes;
    std::set<std::string> out;
    int depth = 0;
    std::istringstream lines(text);
    std::string line;
    std::smatch m;
    while (std::getline(lines, line)) {
        if (std::regex_match(line, m, open)) {
            scopes.push_back({m[1], depth});
        } else if (std::regex_search(line, m, constant)) {
            const std::string name = m[1];
            out.insert(scopes.empty() ? name : scopes.back().name + "::" + name);
        }
        for (char c : line)
            depth += c == '{' ? 1 : c == '}' ? -1 : 0;
        while (!scopes.empty() && depth <= scopes.back().depth)
            scopes.pop_back();
    }
    return out;
}

bool mentions(const std::string& doc, const std::string& name) {
    for (size_t at = doc.find(name); at != std::string::npos; at = doc.find(name, at + 1)) {
        const size_t end = at + name.size();
        const bool wordStart = at == 0 || !(std::isalnum(uint8_t(doc[at - 1])) ||
                                            doc[at - 1] == '_' || doc[at - 1] == ':');
        const bool wordEnd =
            end >= doc.size() || !(std::isalnum(uint8_t(doc[end])) || doc[end] == '_');
        if (wordStart && wordEnd)
            return true;
    }
    return false;
}

} // namespace

TEST(ProtocolDoc, NamesEveryConstantOfTheProtocolHeaders) {
    const std::string doc = readFile(std::string(VY_SOURCE_DIR) + "/docs/protocol.md");
    ASSERT_FALSE(doc.empty()) << "docs/protocol.md is missing";

    std::set<std::string> all;
    for (const std::string& header : protocolHeaders()) {
        for (const std::string& c : constantsOf(readFile(header)))
            all.insert(c);
    }
    // The scan itself must keep working: these are known to be there.
    ASSERT_TRUE(all.count("MainType::System"));
    ASSERT_TRUE(all.count("SystemInfoRecord::kSize"));
    ASSERT_TRUE(all.count("DeviceDefaultRecord::kTail"));
    ASSERT_TRUE(all.count("ParamBlock::Camera"));

    std::vector<std::string> missing;
    for (const std::string& c : all) {
        if (!mentions(doc, c))
            missing.push_back(c);
    }
    std::string list;
    for (const std::string& c : missing)
        list += "\n  " + c;
    EXPECT_TRUE(missing.empty()) << missing.size() << " of " << all.size()
                                 << " constants are not in docs/protocol.md:" << list;
}
