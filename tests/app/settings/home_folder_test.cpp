#include "app/settings/home_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "base/chess_exception.h"
#include "base/encoding.h"

#include "app/settings/application_log.h"
#include "support/temp_folder.h"

namespace tarnwick {
namespace {

namespace fs = std::filesystem;

class HomeFolderTest : public testing::Test {
  protected:
    HomeFolderTest() {
        fs::create_directories(m_root / "user/work");
        m_environment.home = m_root / "user";
        m_environment.currentFolder = m_root / "user/work";
    }

    CTempFolder m_root;
    TEnvironment m_environment;
};

TEST_F(HomeFolderTest, FollowsTheWishThenTheFolderThenTheDesktop) {
    THomeFolders home = FindHomeFolders(m_environment, {});
    EXPECT_EQ(home.OptionsFile(), m_root / "user/.config/tarnwick/options.ini");
    EXPECT_EQ(home.LogFile(), m_root / "user/.local/share/tarnwick/tarnwickApp.log");

    m_environment.xdgConfigHome = m_root / "c";
    m_environment.xdgDataHome = "relative/paths/do/not/count";
    home = FindHomeFolders(m_environment, {});
    EXPECT_EQ(home.config, m_root / "c/tarnwick");
    EXPECT_EQ(home.data, m_root / "user/.local/share/tarnwick");

    WriteBytes(m_root / "user/work/options.ini", "");
    home = FindHomeFolders(m_environment, {});
    EXPECT_EQ(home.config, m_root / "user/work");
    EXPECT_EQ(home.ProblemFile(), m_root / "user/work/myChessProblems.cp");

    home = FindHomeFolders(m_environment, "../chess/");
    EXPECT_EQ(home.OptionsFile(), m_root / "user/chess/options.ini");
    EXPECT_FALSE(fs::exists(m_root / "user/chess")) << "made only when needed";
}

TEST_F(HomeFolderTest, NothingGoesIntoTheUsersHomeItself) {
    WriteBytes(m_root / "user/options.ini", "of another program");
    m_environment.currentFolder = m_root / "user";
    EXPECT_EQ(FindHomeFolders(m_environment, {}).config, m_root / "user/.config/tarnwick");
    fs::create_directory_symlink(m_root / "user", m_root / "link");
    for (const char* wanted : {".", "../user/", "../link"}) {
        EXPECT_THROW(FindHomeFolders(m_environment, wanted), ChessException) << wanted;
    }
    m_environment.home = "";
    m_environment.currentFolder = m_root / "user/work";
    EXPECT_THROW(FindHomeFolders(m_environment, {}), ChessException);
}

TEST_F(HomeFolderTest, FoldersAreMadeForTheUserAlone) {
    MakePrivateFolder(m_root / "a/b/c/");
    for (const char* name : {"a", "a/b", "a/b/c"}) {
        EXPECT_EQ(fs::status(m_root / name).permissions(), fs::perms::owner_all) << name;
    }
    fs::permissions(m_root / "a", fs::perms::owner_all | fs::perms::group_read);
    MakePrivateFolder(m_root / "a");
    EXPECT_NE(fs::status(m_root / "a").permissions(), fs::perms::owner_all) << "not ours to change";
    WriteBytes(m_root / "file", "");
    EXPECT_THROW(MakePrivateFolder(m_root / "file/below"), ChessException);
}

TEST_F(HomeFolderTest, LogTakesOneLineForEachEvent) {
    const fs::path log = m_root / "data/tarnwickApp.log";
    LogApplicationEvent(log, "Program opened (%s)", "/usr/bin/100%s\nfake\xFF");
    LogApplicationEvent(log, "no text");
    const std::string text = ReadBytes(log);
    EXPECT_TRUE(IsValidUtf8(text));
    EXPECT_EQ(std::ranges::count(text, '\n'), 2);
    // "2024-03-09 17:05:00, 4711: Program opened"
    EXPECT_EQ(text.find(", "), std::string_view("2024-03-09 17:05:00").size());
    EXPECT_NE(text.find(": Program opened (/usr/bin/100%s fake"), std::string::npos);
}

TEST_F(HomeFolderTest, LogOfManyWritersDoesNotMix) {
    const fs::path log = m_root / "log";
    std::vector<std::thread> writers;
    for (const char letter : {'a', 'b', 'c', 'd'}) {
        writers.emplace_back([&log, letter] {
            for (int i = 0; i < 50; ++i) {
                LogApplicationEvent(log, "<%s>", std::string(3000, letter));
            }
        });
    }
    for (std::thread& writer : writers) {
        writer.join();
    }
    std::istringstream lines(ReadBytes(log));
    std::string line;
    int nLines = 0;
    for (; std::getline(lines, line); ++nLines) {
        const std::string body = line.substr(line.find('<'));
        ASSERT_EQ(body, "<" + std::string(3000, body[1]) + ">");
    }
    EXPECT_EQ(nLines, 200);
}

TEST_F(HomeFolderTest, LogThatCannotBeWrittenIsNoFault) {
    WriteBytes(m_root / "file", "x");
    LogApplicationEvent(m_root / "file/log", "lost");
    LogApplicationEvent(m_root.Path(), "a folder");
    EXPECT_EQ(ReadBytes(m_root / "file"), "x");
}

}  // namespace
}  // namespace tarnwick
