#include "platform/memory_info.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "support/case_name.h"
#include "support/temp_folder.h"

namespace tarnwick {
namespace {

namespace fs = std::filesystem;

constexpr std::uint64_t MiB = 1U << 20;

/// A file of a made-up machine, its path below the root.
struct TMadeUpFile {
    std::string path;
    std::string content;
};

void WriteTree(const CTempFolder& root, const std::vector<TMadeUpFile>& files) {
    for (const TMadeUpFile& file : files) {
        fs::create_directories((root / file.path).parent_path());
        WriteBytes(root / file.path, file.content);
    }
}

const TMadeUpFile Installed8GiB = {"proc/meminfo", "MemTotal:        8388608 kB\nMemFree: 1 kB\n"};
const TMadeUpFile UnifiedMount = {
    "proc/self/mountinfo",
    "22 28 0:21 / /sys rw - sysfs sysfs rw\n"
    "29 22 0:26 / /sys/fs/cgroup rw,nosuid shared:4 - cgroup2 cgroup2 rw\n"};

struct TMemoryCase {
    const char* name;
    std::vector<TMadeUpFile> files;
    std::uint64_t expectedMiB;
};

class MemoryOfMachineTest : public testing::TestWithParam<TMemoryCase> {};

TEST_P(MemoryOfMachineTest, IsTheSmallestCredibleLimit) {
    const CTempFolder root;
    WriteTree(root, GetParam().files);
    EXPECT_EQ(MemoryOfMachine(root.Path()), GetParam().expectedMiB * MiB);
}

const TMemoryCase MemoryCases[] = {
    {"NothingIsKnown", {}, 0},
    {"NoGroups", {Installed8GiB}, 8192},
    {"LimitOfTheOwnGroup",
     {Installed8GiB,
      UnifiedMount,
      {"proc/self/cgroup", "0::/user.slice/job\n"},
      {"sys/fs/cgroup/user.slice/job/memory.max", "1073741824\n"}},
     1024},
    {"SmallestOfAllGroupsAround",
     {Installed8GiB,
      UnifiedMount,
      {"proc/self/cgroup", "0::/a/b/c\n"},
      {"sys/fs/cgroup/a/memory.max", "536870912\n"},
      {"sys/fs/cgroup/a/b/memory.max", "max\n"},
      {"sys/fs/cgroup/a/b/c/memory.max", "1073741824\n"}},
     512},
    {"ThrottlingComesBeforeTheLimit",
     {Installed8GiB,
      UnifiedMount,
      {"proc/self/cgroup", "0::/a\n"},
      {"sys/fs/cgroup/a/memory.max", "1073741824\n"},
      {"sys/fs/cgroup/a/memory.high", "268435456\n"}},
     256},
    {"LimitAboveTheInstalledMemory",
     {Installed8GiB,
      UnifiedMount,
      {"proc/self/cgroup", "0::/\n"},
      {"sys/fs/cgroup/memory.max", "99999999999999\n"}},
     8192},
    {"AbsurdLimitsDoNotCount",
     {Installed8GiB,
      UnifiedMount,
      {"proc/self/cgroup", "0::/a\n"},
      {"sys/fs/cgroup/a/memory.max", "0\n"},
      {"sys/fs/cgroup/a/memory.high", "garbage\n"},
      {"sys/fs/cgroup/memory.max", "99999999999999999999999999\n"}},
     8192},
    {"FirstGenerationInAContainer",  // the mount's top is the own group
     {Installed8GiB,
      {"proc/self/mountinfo",
       "33 31 0:27 /docker/1f /sys/fs/cgroup/cpu,cpuacct ro - cgroup cgroup rw,cpu,cpuacct\n"
       "35 31 0:28 /docker/1f /sys/fs/cgroup/memory ro master:1 - cgroup cgroup rw,memory\n"},
      {"proc/self/cgroup", "9:name=systemd:/docker/1f\n4:memory:/docker/1f/job\n"},
      {"sys/fs/cgroup/memory/memory.limit_in_bytes", "2147483648\n"},
      {"sys/fs/cgroup/memory/job/memory.limit_in_bytes", "9223372036854771712\n"}},
     2048},
    {"GroupOutsideTheMount",
     {Installed8GiB,
      {"proc/self/mountinfo", "29 22 0:26 /../.. /sys/fs/cgroup rw - cgroup2 cgroup2 rw\n"},
      {"proc/self/cgroup", "0::/../../elsewhere\n"},
      {"sys/fs/cgroup/memory.max", "1073741824\n"}},
     1024},
    {"BlankInTheMountPoint",
     {Installed8GiB,
      {"proc/self/mountinfo", "29 22 0:26 / /my\\040groups rw - cgroup2 cgroup2 rw\n"},
      {"proc/self/cgroup", "0::/a\n"},
      {"my groups/a/memory.max", "1073741824\n"}},
     1024},
    {"UsualPlaceWithoutMountInfo",
     {Installed8GiB,
      {"proc/self/cgroup", "0::/a\n"},
      {"sys/fs/cgroup/a/memory.max", "1073741824\n"}},
     1024},
    {"GarbledFiles",
     {Installed8GiB,
      {"proc/self/cgroup", "::\n:\nx\n0::\n"},
      {"proc/self/mountinfo", "29 22\n\n - \n29 22 0:26 / /x rw"}},
     8192},
};
INSTANTIATE_TEST_SUITE_P(Machines, MemoryOfMachineTest, testing::ValuesIn(MemoryCases), CaseName);

struct TProcessorCase {
    const char* name;
    std::vector<TMadeUpFile> files;
    int physical;
    int logical;
};

class ProcessorsOfMachineTest : public testing::TestWithParam<TProcessorCase> {};

TEST_P(ProcessorsOfMachineTest, CountsWhatTheProcessGets) {
    const CTempFolder root;
    WriteTree(root, GetParam().files);
    const TProcessors processors = ProcessorsOfMachine(root.Path());
    EXPECT_EQ(processors.physical, GetParam().physical);
    EXPECT_EQ(processors.logical, GetParam().logical);
}

/// Two cores of two threads each: 0 and 2, 1 and 3.
std::vector<TMadeUpFile> TwoCores(const std::string& allowed, std::vector<TMadeUpFile> more = {}) {
    const std::string folder = "sys/devices/system/cpu/cpu";
    const std::string file = "/topology/thread_siblings_list";
    for (int i = 0; i < 4; ++i) {
        more.push_back({folder + std::to_string(i) + file, i % 2 == 0 ? "0,2\n" : "1,3\n"});
    }
    more.push_back({"proc/self/status", "Name:\tx\nCpus_allowed_list:\t" + allowed + "\n"});
    return more;
}

const TProcessorCase ProcessorCases[] = {
    {"NothingIsKnown", {}, 1, 1},
    {"WholeMachine", TwoCores("0-3"), 2, 4},
    {"OneThreadOfEachCore", TwoCores("0-1"), 2, 2},
    {"BothThreadsOfOneCore", TwoCores("0,2"), 1, 2},
    {"UnknownTopology", {{"proc/self/status", "Cpus_allowed_list:\t0-5,8\n"}}, 7, 7},
    {"HostileList",
     {{"proc/self/status", "Cpus_allowed_list:\t3-1,x,0-99999999999999\n"}},
     8192,
     8192},
    {"QuotaIsRoundedUp",
     TwoCores("0-3", {UnifiedMount,
                      {"proc/self/cgroup", "0::/a/b\n"},
                      {"sys/fs/cgroup/a/cpu.max", "250000 100000\n"},
                      {"sys/fs/cgroup/a/b/cpu.max", "max 100000\n"}}),
     2, 3},
    {"QuotaBelowOneProcessor",
     TwoCores("0-3", {UnifiedMount,
                      {"proc/self/cgroup", "0::/a\n"},
                      {"sys/fs/cgroup/a/cpu.max", "5000 100000\n"}}),
     1, 1},
    {"QuotaOfTheFirstGeneration",
     TwoCores("0-3", {{"proc/self/cgroup", "2:cpuacct,cpu:/a\n"},
                      {"proc/self/mountinfo",
                       "30 29 0:30 / /sys/fs/cgroup/cpu rw - cgroup cgroup rw,cpu,cpuacct\n"},
                      {"sys/fs/cgroup/cpu/cpu.cfs_quota_us", "-1\n"},
                      {"sys/fs/cgroup/cpu/cpu.cfs_period_us", "100000\n"},
                      {"sys/fs/cgroup/cpu/a/cpu.cfs_quota_us", "200000\n"},
                      {"sys/fs/cgroup/cpu/a/cpu.cfs_period_us", "100000\n"}}),
     2, 2},
};
INSTANTIATE_TEST_SUITE_P(Machines, ProcessorsOfMachineTest, testing::ValuesIn(ProcessorCases),
                         CaseName);

TEST(MemoryInfo, TellsOfThisMachine) {
    constexpr std::size_t Block = 64 * MiB;
    EXPECT_GT(MemoryOfMachine(), Block);
    EXPECT_GE(ProcessorsOfMachine().logical, ProcessorsOfMachine().physical);
    const std::uint64_t before = ResidentBytes();
    const std::vector<char> block(Block, 'x');
    EXPECT_GE(ResidentBytes(), before + Block / 2);
}

}  // namespace
}  // namespace tarnwick
