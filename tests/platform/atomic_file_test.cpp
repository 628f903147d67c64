#include "platform/atomic_file.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <random>
#include <string>
#include <thread>

#include "base/chess_exception.h"

#include "support/child_process.h"
#include "support/temp_folder.h"

namespace tarnwick {
namespace {

namespace fs = std::filesystem;

/// The text of the refusal; a save that succeeds fails the test.
std::string RefusalOf(const fs::path& path, std::string_view content, TBackup backup) {
    try {
        SaveFileAtomically(path, content, backup);
    } catch (const ChessException& exception) {
        return exception.what();
    }
    ADD_FAILURE() << "saved " << path;
    return "";
}

mode_t ModeOf(const fs::path& path) {
    struct stat state {};
    EXPECT_EQ(::stat(path.c_str(), &state), 0);
    return state.st_mode & 07777;
}

TEST(AtomicFile, MakesAndReplacesTheFileAndLeavesNothingElse) {
    const CTempFolder folder;
    const fs::path path = folder / "problems.cp";
    SaveFileAtomically(path, "first");
    EXPECT_EQ(ReadBytes(path), "first");
    SaveFileAtomically(path, std::string("a\0b\r\n", 5));
    EXPECT_EQ(ReadBytes(path), std::string("a\0b\r\n", 5));
    SaveFileAtomically(path, "");
    EXPECT_EQ(ReadBytes(path), "");
    EXPECT_EQ(folder.Count(), 1U);
}

TEST(AtomicFile, SavesByANameRelativeToTheCurrentFolder) {
    const CTempFolder folder;
    const fs::path before = fs::current_path();
    fs::current_path(folder.Path());
    SaveFileAtomically("problems.cp", "text", TBackup::Keep);
    fs::current_path(before);
    EXPECT_EQ(ReadBytes(folder / "problems.cp"), "text");
}

TEST(AtomicFile, SavesTheLongestNameThatTheFileSystemTakes) {
    const CTempFolder folder;
    const fs::path path = folder / std::string(255, 'n');
    SaveFileAtomically(path, "text");
    EXPECT_EQ(ReadBytes(path), "text");
}

TEST(AtomicFile, BackupIsTheContentBeforeTheLastSave) {
    const CTempFolder folder;
    const fs::path path = folder / "problems.cp";
    const fs::path backup = folder / "problems.cp.BAK";
    SaveFileAtomically(path, "one", TBackup::Keep);
    EXPECT_FALSE(fs::exists(backup)) << "there was nothing to keep";
    SaveFileAtomically(path, "two", TBackup::Keep);
    EXPECT_EQ(ReadBytes(backup), "one");
    SaveFileAtomically(path, "three", TBackup::Keep);
    EXPECT_EQ(ReadBytes(backup), "two");
    SaveFileAtomically(path, "four");
    EXPECT_EQ(ReadBytes(backup), "two");
    EXPECT_EQ(folder.Count(), 2U);
}

TEST(AtomicFile, BackupThatIsTheFileItselfLeavesNoThirdName) {
    // The state after a crash between the link and the rename.
    const CTempFolder folder;
    const fs::path path = folder / "problems.cp";
    WriteBytes(path, "old");
    fs::create_hard_link(path, folder / "problems.cp.BAK");
    SaveFileAtomically(path, "new", TBackup::Keep);
    EXPECT_EQ(ReadBytes(path), "new");
    EXPECT_EQ(ReadBytes(folder / "problems.cp.BAK"), "old");
    EXPECT_EQ(folder.Count(), 2U);
}

TEST(AtomicFile, FailedBackupLeavesTheFileAsItWas) {
    const CTempFolder folder;
    const fs::path path = folder / "problems.cp";
    WriteBytes(path, "old");
    for (const std::string number : {"", "2", "3", "4", "5", "6", "7", "8", "9"}) {
        fs::create_directory(folder / ("problems.cp.BAK" + number));
    }
    const std::string refusal = RefusalOf(path, "new", TBackup::Keep);
    EXPECT_NE(refusal.find(path.string()), std::string::npos) << refusal;
    EXPECT_EQ(ReadBytes(path), "old");
    EXPECT_EQ(folder.Count(), 10U);
}

TEST(AtomicFile, KeepsTheModeOfTheFile) {
    const CTempFolder folder;
    const fs::path path = folder / "problems.cp";
    WriteBytes(path, "old");
    for (const mode_t mode : {0600, 0640, 0666, 0755}) {
        ASSERT_EQ(::chmod(path.c_str(), mode), 0);
        SaveFileAtomically(path, "new");
        EXPECT_EQ(ModeOf(path), mode);
    }
}

TEST(AtomicFile, NewFileObeysTheUmask) {
    const CTempFolder folder;
    const mode_t before = ::umask(027);
    SaveFileAtomically(folder / "problems.cp", "text");
    ::umask(before);
    EXPECT_EQ(ModeOf(folder / "problems.cp"), 0640U);
}

TEST(AtomicFile, FollowsLinksToTheirTargetAndKeepsThem) {
    const CTempFolder folder;
    fs::create_directory(folder / "library");
    const fs::path target = folder / "library/problems.cp";
    WriteBytes(target, "old");
    fs::create_symlink("library/problems.cp", folder / "relative.cp");
    fs::create_symlink(folder / "relative.cp", folder / "chain.cp");
    SaveFileAtomically(folder / "chain.cp", "new", TBackup::Keep);
    EXPECT_TRUE(fs::is_symlink(folder / "chain.cp"));
    EXPECT_TRUE(fs::is_symlink(folder / "relative.cp"));
    EXPECT_EQ(ReadBytes(target), "new");
    EXPECT_EQ(ReadBytes(folder / "library/problems.cp.BAK"), "old");

    fs::create_symlink("library/not_yet.cp", folder / "dangling.cp");
    SaveFileAtomically(folder / "dangling.cp", "made");
    EXPECT_EQ(ReadBytes(folder / "library/not_yet.cp"), "made");

    fs::create_symlink("loop.cp", folder / "loop.cp");
    RefusalOf(folder / "loop.cp", "text", TBackup::None);
}

TEST(AtomicFile, RefusalNamesTheFileAndTheReason) {
    const CTempFolder folder;
    const fs::path missing = folder / "no_such_folder/problems.cp";
    EXPECT_EQ(RefusalOf(missing, "text", TBackup::None),
              "Cannot save file " + missing.string() + ": No such file or directory");
    EXPECT_EQ(RefusalOf(folder.Path(), "text", TBackup::None),
              "Cannot save file " + folder.Path().string() + ": it is not a plain file");
    EXPECT_EQ(folder.Count(), 0U);
}

/// Tries to save in the child: 0 refused, 1 saved.
int TryToSave(const fs::path& path, std::string_view content) {
    try {
        SaveFileAtomically(path, content, TBackup::Keep);
        return 1;
    } catch (const ChessException&) {
        return 0;
    }
}

TEST(AtomicFile, FolderOrFileWithoutWritePermissionIsRefused) {
    constexpr uid_t AnyoneElse = 65534;  // root may write everywhere, so root becomes somebody
    const CTempFolder folder;
    ASSERT_EQ(::chmod(folder.Path().c_str(), 0777), 0);
    const fs::path path = folder / "problems.cp";
    WriteBytes(path, "old");
    const auto tryAsAnyone = [&] {
        if (::geteuid() == 0 && ::setuid(AnyoneElse) != 0) {
            return 2;
        }
        return TryToSave(path, "new");
    };

    ASSERT_EQ(::chmod(path.c_str(), 0444), 0);
    EXPECT_EQ(StatusOfChild(tryAsAnyone), 0) << "file without write permission";
    ASSERT_EQ(::chmod(path.c_str(), 0666), 0);
    ASSERT_EQ(::chmod(folder.Path().c_str(), 0555), 0);
    EXPECT_EQ(StatusOfChild(tryAsAnyone), 0) << "folder without write permission";
    EXPECT_EQ(ReadBytes(path), "old");
    ASSERT_EQ(::chmod(folder.Path().c_str(), 0777), 0);
    EXPECT_EQ(StatusOfChild(tryAsAnyone), 1) << "both with it";
    EXPECT_EQ(ReadBytes(path), "new");
}

TEST(AtomicFile, FullDiskLeavesTheOldFileAlone) {
    const CTempFolder folder;
    const fs::path path = folder / "problems.cp";
    const std::string old(40'000, 'o');
    WriteBytes(path, old);
    const int status = StatusOfChild([&] {
        // The nearest thing to a full disk that needs no disk: writes beyond the limit fail.
        ::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit = {50'000, 50'000};
        return ::setrlimit(RLIMIT_FSIZE, &limit) == 0 ? TryToSave(path, std::string(60'000, 'n'))
                                                      : 2;
    });
    EXPECT_EQ(status, 0);
    EXPECT_EQ(ReadBytes(path), old);
    EXPECT_EQ(folder.Count(), 1U) << "neither backup nor stray file";
}

TEST(AtomicFile, BackupWhoseNameIsTakenGetsANumber) {
    const CTempFolder folder;
    const fs::path path = folder / "problems.cp";
    WriteBytes(path, "old");
    fs::create_directories(folder / "problems.cp.BAK" / "full");
    SaveFileAtomically(path, "new", TBackup::Keep);
    EXPECT_EQ(ReadBytes(path), "new");
    EXPECT_EQ(ReadBytes(folder / "problems.cp.BAK2"), "old");
    KeepBackupOf(path);
    EXPECT_EQ(ReadBytes(folder / "problems.cp.BAK2"), "new");
    EXPECT_EQ(folder.Count(), 3U);
}

TEST(AtomicFileWriter, RefusesToCommitWhatDoesNotReadBackAsExpected) {
    const CTempFolder folder;
    const fs::path path = folder / "problems.cp";
    WriteBytes(path, "old");
    for (const char* const expected : {"new", "newer and newer", "newest"}) {
        CAtomicFileWriter writer(path, TBackup::Keep);
        writer.Append("newer");
        EXPECT_THROW(writer.Commit(expected), ChessException) << expected;
    }
    EXPECT_EQ(ReadBytes(path), "old");
    EXPECT_EQ(folder.Count(), 1U);
}

TEST(AtomicFileWriter, GathersPiecesOfAllSizesAndReplacesTheFileOnlyAtTheCommit) {
    const CTempFolder folder;
    const fs::path path = folder / "register.tmpReg";
    WriteBytes(path, "old");
    std::string expected = "HEAD";
    CAtomicFileWriter writer(path, TBackup::Keep);
    writer.Append(expected);
    for (std::size_t size = 0; size < 1'000'000; size = size * 3 + 1) {
        const std::string piece(size, static_cast<char>('a' + size % 26));
        writer.Append(piece);
        expected += piece;
    }
    writer.Overwrite(0, "head");
    writer.Append("end");
    EXPECT_EQ(ReadBytes(path), "old");
    writer.Commit();
    EXPECT_EQ(ReadBytes(path), "head" + expected.substr(4) + "end");
    EXPECT_EQ(ReadBytes(folder / "register.tmpReg.BAK"), "old");
    EXPECT_EQ(folder.Count(), 2U);
}

TEST(AtomicFileWriter, WithoutACommitNothingHappened) {
    const CTempFolder folder;
    WriteBytes(folder / "kept", "old");
    for (const char* const name : {"kept", "never made"}) {
        CAtomicFileWriter writer(folder / name, TBackup::Keep);
        writer.Append(std::string(1'000'000, 'n'));
    }
    EXPECT_EQ(ReadBytes(folder / "kept"), "old");
    EXPECT_EQ(folder.Count(), 1U);
}

TEST(AtomicFileWriter, CannotCommitAfterAFailedAppend) {
    const CTempFolder folder;
    const fs::path path = folder / "register.tmpReg";
    WriteBytes(path, "old");
    const int status = StatusOfChild([&path] {
        ::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit = {50'000, 50'000};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        CAtomicFileWriter writer(path);
        try {
            writer.Append(std::string(1'000'000, 'n'));
            return 1;
        } catch (const ChessException&) {
        }
        try {
            writer.Commit();
            return 2;
        } catch (const ChessException&) {
            return 3;
        }
    });
    EXPECT_EQ(status, 3);
    EXPECT_EQ(ReadBytes(path), "old");
}

/// A content whose every part tells its round, so that a mixture or a cut shows.
std::string ContentOfRound(unsigned round) {
    const std::string line = "round " + std::to_string(round) + "\n";
    std::string content;
    for (unsigned i = 0; i < 200 + 997 * (round % 7); ++i) {
        content += line;
    }
    return content + "end\n";
}

bool IsWhole(const std::string& content) {
    unsigned round = 0;
    return std::sscanf(content.c_str(), "round %u", &round) == 1 &&
           content == ContentOfRound(round);
}

TEST(AtomicFile, KillAtAnyMomentLeavesWholeFiles) {
    constexpr int Kills = 300;
    const unsigned seed = std::random_device{}();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    const CTempFolder folder;
    const fs::path path = folder / "problems.cp";
    const fs::path backup = folder / "problems.cp.BAK";
    SaveFileAtomically(path, ContentOfRound(0), TBackup::Keep);
    SaveFileAtomically(path, ContentOfRound(1), TBackup::Keep);

    std::size_t interrupted = 0;
    for (int kill = 0; kill < Kills; ++kill) {
        const std::string before = ReadBytes(path);
        const pid_t child = ::fork();
        if (child == 0) {
            for (unsigned round = 0;; ++round) {
                SaveFileAtomically(path, ContentOfRound(round), TBackup::Keep);
            }
        }
        ::usleep(static_cast<useconds_t>(random() % 6000));
        ::kill(child, SIGKILL);
        ::waitpid(child, nullptr, 0);
        ASSERT_TRUE(IsWhole(ReadBytes(path))) << "kill " << kill;
        ASSERT_TRUE(IsWhole(ReadBytes(backup))) << "kill " << kill;
        interrupted += folder.Count() > 2 ? 1 : 0;
        for (const auto& entry : fs::directory_iterator(folder.Path())) {
            if (entry.path() != path && entry.path() != backup) {
                fs::remove(entry.path());
            }
        }
    }
    EXPECT_GT(interrupted, 0U) << "no kill met a save: the test proved nothing";
}

TEST(ThreadsAtomicFile, SavesAtTheSameTimeLeaveOneOfTheContentsWhole) {
    const CTempFolder folder;
    const fs::path path = folder / "problems.cp";
    const auto saveOften = [&path](unsigned first) {
        for (unsigned round = first; round < first + 30; ++round) {
            SaveFileAtomically(path, ContentOfRound(round), TBackup::Keep);
        }
    };
    std::thread other(saveOften, 0);
    saveOften(100);
    other.join();
    EXPECT_TRUE(IsWhole(ReadBytes(path)));
    EXPECT_TRUE(IsWhole(ReadBytes(folder / "problems.cp.BAK")));
    EXPECT_EQ(folder.Count(), 2U);
}

}  // namespace
}  // namespace tarnwick
