// The resources-root override file: taken as written, cut at 256 bytes, optional.
#include "app/ResourcesOverride.h"
#include "runtime/VyResources.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

namespace {

class ResourcesOverrideTest : public ::testing::Test {
protected:
    void SetUp() override {
        char name[] = "/tmp/vy-resources-XXXXXX";
        const int fd = mkstemp(name);
        ASSERT_GE(fd, 0);
        close(fd);
        m_path = name;
        VyResources::setRoot(VyString());
    }
    void TearDown() override {
        std::remove(m_path.c_str());
        VyResources::setRoot(VyString());
    }
    void write(const std::string& text) { std::ofstream(m_path, std::ios::binary) << text; }

    std::string m_path;
};

} // namespace

TEST_F(ResourcesOverrideTest, TakesTheFirst256BytesWithATrailingNewline) {
    write("/opt/gui/res\n");
    EXPECT_TRUE(ResourcesOverride::apply(m_path.c_str()));
    EXPECT_EQ(VyResources::root(), "/opt/gui/res\n");
    EXPECT_TRUE(ResourcesOverride::isOverridden());

    const std::string longPath = "/" + std::string(299, 'r');
    write(longPath);
    EXPECT_TRUE(ResourcesOverride::apply(m_path.c_str()));
    EXPECT_EQ(VyResources::root().toStdString(), longPath.substr(0, 256));
}

TEST_F(ResourcesOverrideTest, MissingOrEmptyFileChangesNothing) {
    VyResources::setRoot("/keep");
    write("");
    EXPECT_FALSE(ResourcesOverride::apply(m_path.c_str()));
    EXPECT_FALSE(ResourcesOverride::apply("/nonexistent/vy-resources-path.txt"));
    EXPECT_EQ(VyResources::root(), "/keep");
}

TEST_F(ResourcesOverrideTest, InstalledDataFolderServesAGuiStartedElsewhere) {
    char made[] = "/tmp/vy-data-XXXXXX";
    ASSERT_NE(mkdtemp(made), nullptr);
    const std::string data = made;
    ASSERT_EQ(mkdir((data + "/style").c_str(), 0755), 0);
    std::ofstream(data + "/style/commonstyle.ini") << "[VyLabel]\n";
    char here[4096];
    ASSERT_NE(getcwd(here, sizeof here), nullptr);
    ASSERT_EQ(chdir("/"), 0);

    EXPECT_FALSE(ResourcesOverride::applyInstalledFallback("/nonexistent/dvrgui"));
    EXPECT_TRUE(VyResources::root().isEmpty());
    VyResources::setRoot("/from/the/override");
    EXPECT_FALSE(ResourcesOverride::applyInstalledFallback(data.c_str()));
    VyResources::setRoot(VyString());
    testing::internal::CaptureStdout();
    EXPECT_TRUE(ResourcesOverride::applyInstalledFallback(data.c_str()));
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "GUI: resources from " + data + "\n");
    EXPECT_EQ(VyResources::root().toStdString(), data);

    // Started from a resources folder, the working directory wins.
    VyResources::setRoot(VyString());
    ASSERT_EQ(chdir(data.c_str()), 0);
    EXPECT_FALSE(ResourcesOverride::applyInstalledFallback("/elsewhere"));
    EXPECT_TRUE(VyResources::root().isEmpty());

    ASSERT_EQ(chdir(here), 0);
    std::remove((data + "/style/commonstyle.ini").c_str());
    rmdir((data + "/style").c_str());
    rmdir(data.c_str());
}
