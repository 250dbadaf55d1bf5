// The resources-root override file: taken as written, cut at 256 bytes, optional.
#include "app/ResourcesOverride.h"
#include "runtime/VyResources.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <string>
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
