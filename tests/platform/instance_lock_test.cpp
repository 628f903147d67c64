#include "platform/instance_lock.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <csignal>

#include "support/child_process.h"
#include "support/temp_folder.h"

namespace tarnwick {
namespace {

namespace fs = std::filesystem;

TEST(InstanceLock, TellsTheSecondAndForgetsTheDead) {
    const CTempFolder folder;  // mode 0700
    {
        const CInstanceLock first(folder.Path());
        EXPECT_FALSE(first.IsSecondInstance());
        const CInstanceLock second(folder.Path());
        EXPECT_TRUE(second.IsSecondInstance());
        EXPECT_EQ(
            StatusOfChild([&] { return CInstanceLock(folder.Path()).IsSecondInstance() ? 2 : 1; }),
            2);
    }
    EXPECT_EQ(StatusOfChild([&] {
                  const CInstanceLock killed(folder.Path());
                  return killed.IsSecondInstance() ? 1 : ::raise(SIGKILL);
              }),
              -1);
    EXPECT_FALSE(CInstanceLock(folder.Path()).IsSecondInstance());
}

TEST(InstanceLock, TakesOnlyAFolderThatNobodyElseCanEnter) {
    const CTempFolder root;
    const fs::path runtime = root / "runtime";
    const fs::path temporary = root / "tmp";
    const fs::path own = temporary / ("tarnwick-" + std::to_string(::getuid()));
    fs::create_directory(runtime);
    fs::create_directory(temporary);

    fs::permissions(runtime, fs::perms::owner_all);
    EXPECT_EQ(FolderOfInstanceLock(runtime, temporary), runtime);
    fs::permissions(runtime, fs::perms::owner_all | fs::perms::others_exec);
    EXPECT_EQ(FolderOfInstanceLock(runtime, temporary), own);
    EXPECT_EQ(fs::status(own).permissions(), fs::perms::owner_all);
    EXPECT_EQ(FolderOfInstanceLock("", temporary), own) << "it exists by now";

    fs::remove(own);
    fs::permissions(runtime, fs::perms::owner_all);
    fs::create_directory_symlink(runtime, own);
    EXPECT_EQ(FolderOfInstanceLock("runtime", temporary), "") << "somebody laid a link there";
    EXPECT_FALSE(CInstanceLock("").IsSecondInstance());
}

TEST(InstanceLock, DoesNotFollowALinkInPlaceOfItsFile) {
    const CTempFolder folder;
    WriteBytes(folder / "victim", "x");
    fs::create_symlink(folder / "victim", folder / "tarnwick.lock");
    const CInstanceLock first(folder.Path());
    const CInstanceLock second(folder.Path());
    EXPECT_FALSE(second.IsSecondInstance()) << "no lock was taken through the link";
}

}  // namespace
}  // namespace tarnwick
