// Any bytes as a saved register: the load ends, accounts for every record, and lets nothing in that is no
// position; and what it let in is saved and loaded once more without a loss.

#include <unistd.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>

#include "registers/register_record_check.h"
#include "registers/tmp_register_file.h"

namespace tarnwick {
namespace {

namespace fs = std::filesystem;

using TAggregate = TAggregatedTemporaryChessboardRegister;

constexpr std::uint32_t Buckets = 64;

std::unique_ptr<TAggregate> MakeRegister() {
    auto pRegister = std::make_unique<TAggregate>(TRegisterSettings{});
    pRegister->UpdateLimits(ComputeRegisterLimits(std::uint64_t{1} << 28, 256));
    return pRegister;
}

/// Number of records, all of which must be positions.
template <typename TLayer>
std::uint64_t CheckedRecords(const TLayer& layer) {
    std::uint64_t count = 0;
    layer.VisitInFileOrder([](TRecordValues) { return true; },
                           [&count](const TChessboardRegisterItem& position, TRecordValues values) {
                               if (!CanBeStoredPosition(position) ||
                                   std::max(values.m_first, values.m_second) > MostPliesOfRecord) {
                                   std::abort();
                               }
                               ++count;
                               return true;
                           });
    return count;
}

std::uint64_t CheckedRecords(const TAggregate& aggregate) {
    std::uint64_t count = CheckedRecords<TTemporaryChessboardRegister<0>>(aggregate);
    for (const std::int64_t key : aggregate.DoubtfulKeys()) {
        count += CheckedRecords(*aggregate.FindDoubtful(key));
    }
    return count;
}

TTmpRegisterLoaded Load(TAggregate& target, const fs::path& path) {
    TTmpRegisterLoadOptions options;
    options.scratchFolder = path.parent_path();
    options.progress = [calls = 0](std::uint64_t, std::uint64_t) mutable { return ++calls < 100; };
    return LoadTmpRegister(target, path, Buckets, options);
}

/// A folder in memory where there is one: a disk would be the bottleneck.
fs::path Folder() {
    const fs::path memory = "/dev/shm";
    const fs::path folder = (fs::is_directory(memory) ? memory : fs::temp_directory_path()) /
                            ("tarnwick-fuzz-" + std::to_string(::getpid()));
    fs::create_directories(folder);
    return folder;
}

}  // namespace
}  // namespace tarnwick

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tarnwick;
    const fs::path folder = Folder();
    std::ofstream(folder / "in.tmpReg", std::ios::binary | std::ios::trunc)
        .write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));

    const auto pFirst = MakeRegister();
    const TTmpRegisterLoaded loaded = Load(*pFirst, folder / "in.tmpReg");
    const std::uint64_t held = CheckedRecords(*pFirst);
    if (held > loaded.records || loaded.message.empty() != !loaded.firstFaultOffset) {
        std::abort();
    }
    const TTmpRegisterSaved saved =
        SaveTmpRegister(*pFirst, folder / "out.tmpReg", MostPliesOfRecord,
                        {.maxBytes = 1U << 30, .bCompress = size % 2 == 0, .progress = {}});
    const auto pSecond = MakeRegister();
    const TTmpRegisterLoaded again = Load(*pSecond, folder / "out.tmpReg");
    const bool bSame = again.IsWhole() && again.records == saved.records && saved.records <= held;
    fs::remove_all(folder);
    if (!bSame || CheckedRecords(*pSecond) != saved.records) {
        std::abort();
    }
    return 0;
}
