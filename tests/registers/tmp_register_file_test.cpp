#include "registers/tmp_register_file.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <map>
#include <memory>
#include <random>
#include <tuple>

#include "base/chess_exception.h"
#include "base/little_endian.h"
#include "base/lz4_block.h"

#include "chess/fen.h"
#include "support/child_process.h"
#include "support/random_positions.h"
#include "support/temp_folder.h"

namespace tarnwick {
namespace {

namespace fs = std::filesystem;

using TAggregate = TAggregatedTemporaryChessboardRegister;

constexpr std::uint32_t Buckets = 16384;
constexpr std::uint64_t NoSizeLimit = std::uint64_t{1} << 40;
constexpr std::uint32_t Heuristics = 0x80000001;
constexpr std::uint32_t HeurParams = 0x00010203;
constexpr const char* ReadingFailed =
    "Error reading file in TAggregatedTemporaryChessboardRegister::Load";

std::unique_ptr<TAggregate> MakeRegister() {
    auto pRegister = std::make_unique<TAggregate>(TRegisterSettings{});
    pRegister->UpdateLimits(ComputeRegisterLimits(std::uint64_t{1} << 30, 1024));
    pRegister->SetBucketCount(Buckets, false);
    return pRegister;
}

TChessboardRegisterItem ItemOfFen(const std::string& fen) {
    TChessboard board = EmptyChessboard();
    bool bIgnored = false;
    EXPECT_TRUE(ReadFen(board, fen, bIgnored, bIgnored)) << fen;
    return ItemOf(board);
}

/// A register as it is after a job: exact results and two doubtful layers.
std::unique_ptr<TAggregate> FilledRegister(int positions, std::uint64_t seed = 1) {
    auto pRegister = MakeRegister();
    slow::CRandomPositions random(seed);
    slow::CDice dice(seed);
    for (int i = 0; i < positions; ++i) {
        const TChessboardRegisterItem item = ItemOfFen(random.Next());
        const TPositionHash hash = HashOf(item);
        const auto plies = static_cast<std::uint16_t>(3 + 2 * dice.Below(12));
        switch (dice.Below(4)) {
            case 0:
                pRegister->StoreResult(plies, item, hash, false);
                pRegister->StoreResult(static_cast<std::uint16_t>(plies + 4), item, hash, true);
                break;
            case 1:
                pRegister->StoreResult(plies, item, hash, dice.Chance(50));
                break;
            case 2:
                pRegister->InsertDoubtful(plies, item, hash, Heuristics, HeurParams);
                break;
            default:
                pRegister->InsertDoubtfulResult(plies, item, hash, 7, 0, dice.Chance(50));
                break;
        }
    }
    return pRegister;
}

using TDump = std::map<std::tuple<std::int64_t, std::string>, std::pair<int, int>>;

template <typename TLayer>
void DumpLayer(const TLayer& layer, std::int64_t key, TDump& dump) {
    layer.VisitInFileOrder([](TRecordValues) { return true; },
                           [&](const TChessboardRegisterItem& item, TRecordValues values) {
                               const std::string fields(
                                   reinterpret_cast<const char*>(item.m_fields),
                                   sizeof item.m_fields);
                               dump[{key, fields}] = {values.m_first, values.m_second};
                               return true;
                           });
}

/// All records of all layers.
TDump DumpOf(const TAggregate& aggregate) {
    TDump dump;
    DumpLayer(aggregate, 0, dump);
    for (const std::int64_t key : aggregate.DoubtfulKeys()) {
        DumpLayer(*aggregate.FindDoubtful(key), key, dump);
    }
    return dump;
}

TTmpRegisterSaved Save(const TAggregate& source, const fs::path& path, bool bCompress,
                       std::uint64_t maxBytes = NoSizeLimit, std::uint16_t plies = 99) {
    return SaveTmpRegister(source, path, plies,
                           {.maxBytes = maxBytes, .bCompress = bCompress, .progress = {}});
}

/// The text of the refusal to save; empty if it was saved.
std::string RefusalOf(const TAggregate& source, const fs::path& path) {
    try {
        Save(source, path, false);
    } catch (const ChessException& exception) {
        return exception.what();
    }
    return "";
}

TTmpRegisterLoaded Load(TAggregate& target, const fs::path& path) {
    TTmpRegisterLoadOptions options;
    options.scratchFolder = path.parent_path();
    return LoadTmpRegister(target, path, Buckets, options);
}

/// A file with these bytes, loaded into an empty register.
struct TLoadedBytes {
    std::unique_ptr<TAggregate> pRegister = MakeRegister();
    TTmpRegisterLoaded result;
};

TLoadedBytes LoadBytes(const CTempFolder& folder, std::string_view bytes) {
    TLoadedBytes loaded;
    WriteBytes(folder / "bytes.tmpReg", bytes);
    loaded.result = Load(*loaded.pRegister, folder / "bytes.tmpReg");
    return loaded;
}

std::string Section(std::int64_t key) {
    std::string bytes(12, '\xFF');
    StoreLittleEndian(reinterpret_cast<std::uint8_t*>(bytes.data()) + 4, key);
    return bytes;
}

std::string Record(std::uint16_t first, std::uint16_t second, const TChessboardRegisterItem& item) {
    std::string bytes(68, '\0');
    auto* const at = reinterpret_cast<std::uint8_t*>(bytes.data());
    StoreLittleEndian(at, first);
    StoreLittleEndian(at + 2, second);
    std::memcpy(at + 4, item.m_fields, sizeof item.m_fields);
    return bytes;
}

const std::string FenA = "8/8/8/8/8/k7/8/K1R5";
const std::string FenB = "8/8/8/8/8/k7/8/KR6";
const std::string FenC = "8/8/8/8/8/k7/4P3/K7";

TEST(TmpRegisterFile, WhatWasSavedIsLoaded) {
    const CTempFolder folder;
    const auto pSource = FilledRegister(3000);
    const TDump expected = DumpOf(*pSource);
    for (const bool bCompress : {false, true}) {
        const fs::path path = folder / "job.tmpReg";
        const TTmpRegisterSaved saved = Save(*pSource, path, bCompress);
        EXPECT_EQ(saved.records, expected.size());
        EXPECT_EQ(saved.fileBytes, fs::file_size(path));
        EXPECT_EQ(saved.bCompressed, bCompress);
        EXPECT_EQ(saved.fileBytes < saved.streamBytes, bCompress);
        EXPECT_FALSE(saved.stoppedAtPlies);
        const auto pTarget = MakeRegister();
        const TTmpRegisterLoaded loaded = Load(*pTarget, path);
        EXPECT_TRUE(loaded.IsWhole()) << loaded.message;
        EXPECT_EQ(loaded.records, expected.size());
        EXPECT_TRUE(DumpOf(*pTarget) == expected);
        EXPECT_EQ(folder.Count(), 1U) << "no copy of the stream stays";
    }
}

/// Three records of 7, 5 and 5 plies, the last one doubtful.
std::unique_ptr<TAggregate> RegisterOfThree() {
    auto pRegister = MakeRegister();
    const auto a = ItemOfFen(FenA);
    pRegister->StoreResult(7, a, HashOf(a), true);
    pRegister->StoreResult(3, a, HashOf(a), false);
    const auto b = ItemOfFen(FenB);
    pRegister->StoreResult(5, b, HashOf(b), false);
    const auto c = ItemOfFen(FenC);
    pRegister->InsertDoubtful(5, c, HashOf(c), Heuristics, HeurParams);
    return pRegister;
}

const std::int64_t Key = std::int64_t{HeurParams} << 32 | Heuristics;

/// Its stream for a problem of 7 or 8 plies.
std::string StreamOfThree() {
    const std::string heads = Section(0) + Section(Key);
    return Section(0) + Record(7, 3, ItemOfFen(FenA)) + Section(Key) + Section(0) +
           Record(0, 5, ItemOfFen(FenB)) + Section(Key) + Record(0, 5, ItemOfFen(FenC)) + heads +
           heads;
}

TEST(TmpRegisterFile, LongestComeFirstInSectionsForEachNumberOfPlies) {
    const CTempFolder folder;
    const fs::path path = folder / "job.tmpReg";
    const auto pRegister = RegisterOfThree();
    Save(*pRegister, path, false, NoSizeLimit, 8);
    EXPECT_TRUE(ReadBytes(path) == StreamOfThree());

    // A problem of five plies cannot use what is known of seven.
    EXPECT_EQ(Save(*pRegister, path, false, NoSizeLimit, 5).records, 2U);
    Save(*pRegister, path, false, NoSizeLimit, 0);
    EXPECT_EQ(ReadBytes(path), "");
}

TEST(TmpRegisterFile, ALayerThatWouldBeTakenForExactIsNotSaved) {
    const CTempFolder folder;
    const auto pRegister = MakeRegister();
    const auto item = ItemOfFen(FenA);
    pRegister->InsertDoubtful(5, item, HashOf(item), 0, 0);
    EXPECT_EQ(Save(*pRegister, folder / "job.tmpReg", false).records, 0U);
}

TEST(TmpRegisterFile, SizeLimitCutsOffTheShortest) {
    const CTempFolder folder;
    const fs::path path = folder / "job.tmpReg";
    const auto pRegister = RegisterOfThree();
    const std::string stream = StreamOfThree();
    const auto stopsAt = [&](std::uint64_t maxBytes) {
        const TTmpRegisterSaved saved = Save(*pRegister, path, false, maxBytes, 7);
        EXPECT_EQ(ReadBytes(path), stream.substr(0, saved.streamBytes));
        return std::make_pair(saved.records, static_cast<int>(saved.stoppedAtPlies.value_or(0)));
    };
    using TStop = std::pair<std::uint64_t, int>;
    EXPECT_EQ(stopsAt(0), TStop(0, 7));
    EXPECT_EQ(stopsAt(67), TStop(0, 7));
    EXPECT_EQ(fs::file_size(path), 12U);
    EXPECT_EQ(stopsAt(79), TStop(0, 7)) << "one byte short of head and record";
    EXPECT_EQ(stopsAt(80), TStop(1, 7)) << "no room for another record";
    EXPECT_EQ(stopsAt(80 + 67), TStop(1, 7));
    EXPECT_EQ(stopsAt(80 + 24 + 68), TStop(2, 5));
    EXPECT_EQ(stopsAt(stream.size() + 68), TStop(3, 0));
}

TEST(TmpRegisterFile, ACutLosesNothingButWhatIsCutOff) {
    const CTempFolder folder;
    const std::string stream = StreamOfThree();
    const std::size_t ends[] = {12 + 68, 12 + 68 + 24 + 68, 12 + 68 + 24 + 68 + 12 + 68};
    for (std::size_t size = 1; size < stream.size(); ++size) {
        SCOPED_TRACE(size);
        const auto [pRegister, result] = LoadBytes(folder, stream.substr(0, size));
        const auto whole =
            std::ranges::count_if(ends, [&](std::size_t end) { return end <= size; });
        EXPECT_EQ(result.records, static_cast<std::uint64_t>(whole));
        EXPECT_EQ(DumpOf(*pRegister).size(), result.records);
        if (result.lost != 0) {
            EXPECT_EQ(result.lost, 1U);
            EXPECT_EQ(result.message.find(ReadingFailed), 0U) << result.message;
            EXPECT_GT(result.firstFaultOffset.value() + 68, size);
        } else {
            EXPECT_TRUE(result.IsWhole()) << "a cut between records cannot be seen";
        }
    }
}

TEST(TmpRegisterFile, ACutInPackedDataLosesNothingButWhatIsCutOff) {
    const CTempFolder folder;
    const fs::path path = folder / "job.tmpReg";
    const auto pSource = FilledRegister(300);
    const TDump all = DumpOf(*pSource);
    Save(*pSource, path, true);
    const std::string packed = ReadBytes(path);
    std::uint64_t recordsBefore = 0;
    for (std::size_t size = 17; size < packed.size(); size += 97) {
        SCOPED_TRACE(size);
        const auto [pRegister, result] = LoadBytes(folder, packed.substr(0, size));
        ASSERT_FALSE(result.IsWhole());
        EXPECT_EQ(result.refused, 0U);
        EXPECT_GE(result.records + result.lost, all.size());
        EXPECT_GE(result.records, recordsBefore) << "a longer piece holds as much at least";
        EXPECT_NE(result.message.find("offset in bytes: " + std::to_string(size)),
                  std::string::npos)
            << result.message;
        EXPECT_TRUE(std::ranges::includes(all, DumpOf(*pRegister)));
        EXPECT_TRUE(fs::exists(folder / "UncompressedTmpRegLoadData.tmpReg"));
        recordsBefore = result.records;
    }
    EXPECT_GT(recordsBefore, 250U);
}

TEST(TmpRegisterFile, FlippedBitsNeverStoreWhatIsNoPosition) {
    const CTempFolder folder;
    const std::string plain = StreamOfThree();
    for (std::size_t bit = 0; bit < plain.size() * 8; bit += 7) {
        std::string flipped = plain;
        flipped[bit / 8] = static_cast<char>(flipped[bit / 8] ^ (1 << (bit % 8)));
        const auto [pRegister, result] = LoadBytes(folder, flipped);
        for (const auto& [place, values] : DumpOf(*pRegister)) {
            const std::string& fields = std::get<1>(place);
            EXPECT_EQ(std::ranges::count(fields, static_cast<char>(WhiteKing)), 1) << bit;
            EXPECT_EQ(std::ranges::count(fields, static_cast<char>(BlackKing)), 1) << bit;
            EXPECT_LE(std::max(values.first, values.second), 600) << bit;
        }
    }
}

TEST(TmpRegisterFile, RefusesWhatCannotBeARecordAndGoesOn) {
    const CTempFolder folder;
    const auto item = ItemOfFen(FenA);
    const auto with = [&item](int field, TFigureCode code) {
        TChessboardRegisterItem changed = item;
        changed.m_fields[field] = code;
        return changed;
    };
    TChessboardRegisterItem markedPawn = ItemOfFen(FenC);
    *std::ranges::find(markedPawn.m_fields, WhitePawn) |= MarkBit;
    const std::string stream =
        Section(0) + Record(5, 0, with(30, 0x40)) + Record(5, 0, with(30, WhiteKing)) +
        Record(5, 0, with(0, EmptyField)) + Record(5, 0, with(30, WhiteQueen | MarkBit)) +
        Record(601, 0, item) + Record(0, 65535, item) + Record(600, 0, item) +
        Record(0, 0, ItemOfFen(FenB)) + Record(5, 0, markedPawn);
    const auto [pRegister, result] = LoadBytes(folder, stream);
    EXPECT_EQ(result.refused, 6U);
    EXPECT_EQ(result.records, 3U);
    EXPECT_EQ(result.lost, 0U);
    EXPECT_EQ(result.firstFaultOffset, 12U);
    EXPECT_EQ(result.message, "Damaged records in file " + (folder / "bytes.tmpReg").string() +
                                  ", offset in bytes: 12\nRecords loaded: 3, refused: 6, lost: 0");
    EXPECT_EQ(DumpOf(*pRegister).size(), 2U) << "numbers of 0 store nothing";
}

TEST(TmpRegisterFile, TheGreatestNumberOfPliesIsToldSoThatTheNextSaveKeepsAll) {
    const CTempFolder folder;
    const std::string exact = Section(0) + Record(3, 9, ItemOfFen(FenA));
    const std::string doubtful = Section(Key) + Record(0, 21, ItemOfFen(FenC));
    EXPECT_EQ(LoadBytes(folder, "").result.mostPlies, 0);
    EXPECT_EQ(LoadBytes(folder, Section(0) + Record(11, 5, ItemOfFen(FenA))).result.mostPlies, 11);
    EXPECT_EQ(LoadBytes(folder, exact).result.mostPlies, 9);
    const auto [pRegister, result] =
        LoadBytes(folder, doubtful + exact + Record(601, 0, ItemOfFen(FenB)));
    EXPECT_EQ(result.mostPlies, 21) << "not that of the refused record";

    Save(*pRegister, folder / "again.tmpReg", false, NoSizeLimit, result.mostPlies);
    const auto pAgain = MakeRegister();
    EXPECT_TRUE(Load(*pAgain, folder / "again.tmpReg").IsWhole());
    EXPECT_EQ(DumpOf(*pAgain).size(), 2U);
    EXPECT_TRUE(DumpOf(*pAgain) == DumpOf(*pRegister));
}

TEST(TmpRegisterFile, ManyLayersOfAHostileFileAreRefused) {
    const CTempFolder folder;
    std::string stream;
    for (std::int64_t key = 1; key <= 3000; ++key) {
        stream += Section(key) + Record(0, 5, ItemOfFen(FenA));
    }
    const auto [pRegister, result] = LoadBytes(folder, stream);
    EXPECT_EQ(result.records + result.refused, 3000U);
    EXPECT_LE(pRegister->DoubtfulKeys().size(), 1024U);
    EXPECT_EQ(pRegister->DoubtfulKeys().size(), result.records);
}

TEST(TmpRegisterFile, OtherHeadsOfPackedFilesAreRead) {
    const CTempFolder folder;
    const std::string stream = StreamOfThree();
    // One run of literals: the sequences of all three forms are then the same.
    std::string packed = "\xF0";
    packed += std::string((stream.size() - 15) / 255, '\xFF');
    packed += static_cast<char>((stream.size() - 15) % 255);
    packed += stream;
    std::string size(4, '\0');
    StoreLittleEndian(reinterpret_cast<std::uint8_t*>(size.data()),
                      static_cast<std::uint32_t>(stream.size()));
    const std::string heads[] = {"LZ4 " + size + std::string(8, '?'),
                                 "LZ4e" + size + std::string(8, '\0'),
                                 "LZ42" + std::string(8, '?') + size,
                                 "LZ42" + std::string(8, '?') + size + std::string(4, '\0')};
    for (const std::string& head : heads) {
        const auto [pRegister, result] = LoadBytes(folder, head + packed);
        EXPECT_TRUE(result.IsWhole()) << head << result.message;
        EXPECT_EQ(DumpOf(*pRegister).size(), 3U) << head;
    }
    const std::string hostile = "LZ42" + std::string(8, '?') + std::string(7, '\0') + '\x7F';
    const auto [pRegister, result] = LoadBytes(folder, hostile + packed);
    EXPECT_FALSE(result.IsWhole());
    EXPECT_EQ(result.records, 3U) << "the claimed size is trusted with nothing";
}

TEST(TmpRegisterFile, ACopyLeftByAnEarlierLoadCanBeLoadedItself) {
    const CTempFolder folder;
    const fs::path path = folder / "UncompressedTmpRegLoadData.tmpReg";
    const auto pSource = FilledRegister(100);
    for (const bool bCompress : {false, true}) {
        Save(*pSource, path, bCompress);
        const auto pTarget = MakeRegister();
        EXPECT_TRUE(Load(*pTarget, path).IsWhole());
        EXPECT_TRUE(DumpOf(*pTarget) == DumpOf(*pSource));
        EXPECT_TRUE(fs::exists(path));
    }
}

TEST(TmpRegisterFile, AScratchFolderThatIsMissingStopsNothing) {
    const CTempFolder folder;
    const auto pSource = FilledRegister(100);
    Save(*pSource, folder / "job.tmpReg", true);
    const auto pTarget = MakeRegister();
    TTmpRegisterLoadOptions options;
    options.scratchFolder = folder / "missing";
    options.logFolder = folder / "missing";
    options.bLogRecords = true;
    EXPECT_TRUE(LoadTmpRegister(*pTarget, folder / "job.tmpReg", Buckets, options).IsWhole());
}

TEST(TmpRegisterFile, EveryRecordIsLogged) {
    const CTempFolder folder;
    WriteBytes(folder / "job.tmpReg", StreamOfThree());
    TTmpRegisterLoadOptions options;
    options.bLogRecords = true;
    options.logFolder = folder.Path();
    const std::string lines = "7,3,0,0," + FenA + " w - - 0 1\n0,5,0,0," + FenB +
                              " w - - 0 1\n0,5,-2147483647,66051," + FenC + " w - - 0 1\n";
    const std::string head =
        "nMovesMate/Doubtful,nMovesNoMate/NotDoubtful,Heuristics,HeurParams,FEN\n";
    const auto pTarget = MakeRegister();
    LoadTmpRegister(*pTarget, folder / "job.tmpReg", Buckets, options);
    EXPECT_EQ(ReadBytes(folder / "TmpRegLoad.log"), head + lines);
    LoadTmpRegister(*pTarget, folder / "job.tmpReg", Buckets, options);
    EXPECT_EQ(ReadBytes(folder / "TmpRegLoad.log"), head + lines + lines);
}

TEST(TmpRegisterFile, StopsWhenAskedAndASaveThenChangesNothing) {
    const CTempFolder folder;
    const fs::path path = folder / "job.tmpReg";
    const auto pSource = FilledRegister(3000);
    WriteBytes(path, "old");
    std::uint64_t total = 0;
    const TFileProgress stop = [&total](std::uint64_t, std::uint64_t ofTotal) {
        total = ofTotal;
        return false;
    };
    EXPECT_TRUE(
        SaveTmpRegister(*pSource, path, 99, {.maxBytes = NoSizeLimit, .progress = stop}).bStopped);
    EXPECT_EQ(ReadBytes(path), "old");
    EXPECT_EQ(folder.Count(), 1U);
    const std::uint64_t streamBytes = Save(*pSource, path, false).streamBytes;
    EXPECT_GE(total, streamBytes);

    const auto pTarget = MakeRegister();
    TTmpRegisterLoadOptions options;
    options.progress = stop;
    const TTmpRegisterLoaded loaded = LoadTmpRegister(*pTarget, path, Buckets, options);
    EXPECT_TRUE(loaded.bStopped);
    EXPECT_FALSE(loaded.IsWhole());
    EXPECT_EQ(total, streamBytes);
}

TEST(TmpRegisterFile, AFullRegisterIsTold) {
    const CTempFolder folder;
    Save(*FilledRegister(500), folder / "job.tmpReg", false);
    const auto pTarget = MakeRegister();
    pTarget->UpdateLimits({.m_memoryLimit = 1U << 30, .m_dataBudget = 9600, .m_maxElements = 100});
    EXPECT_TRUE(Load(*pTarget, folder / "job.tmpReg").bRegisterFull);
}

TEST(TmpRegisterFile, RefusalsNameTheFileAndTheOperation) {
    const CTempFolder folder;
    const fs::path missing = folder / "missing/job.tmpReg";
    EXPECT_EQ(RefusalOf(*RegisterOfThree(), missing),
              "Cannot save file " + missing.string() + ": No such file or directory");
    const auto pTarget = MakeRegister();
    EXPECT_THROW(Load(*pTarget, missing), ChessException);
    EXPECT_THROW(Load(*pTarget, folder.Path()), ChessException);
}

TEST(TmpRegisterFile, FullDiskLeavesTheOldFileAlone) {
    const CTempFolder folder;
    const fs::path path = folder / "job.tmpReg";
    const auto pSource = FilledRegister(10'000);
    WriteBytes(path, "old");
    const int status = StatusOfChild([&] {
        ::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit = {100'000, 100'000};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        const std::string refusal = RefusalOf(*pSource, path);
        return refusal.starts_with("Cannot write to file in TRegisterCombinedMap::SaveExact\n") ? 0
                                                                                                : 1;
    });
    EXPECT_EQ(status, 0);
    EXPECT_EQ(ReadBytes(path), "old");
    EXPECT_EQ(folder.Count(), 1U);
}

TEST(TmpRegisterFile, AKillAtAnyMomentLeavesTheOldOrTheNewFile) {
    constexpr int Kills = 200;
    const CTempFolder folder;
    const fs::path path = folder / "job.tmpReg";
    const std::unique_ptr<TAggregate> registers[] = {FilledRegister(300, 1),
                                                     FilledRegister(900, 2)};
    std::string contents[2];
    for (int i = 0; i < 2; ++i) {
        Save(*registers[i], path, i == 1);
        contents[i] = ReadBytes(path);
    }
    std::mt19937 random(3);
    int interrupted = 0;
    for (int kill = 0; kill < Kills; ++kill) {
        const pid_t child = ::fork();
        if (child == 0) {
            for (int i = 0;; i = 1 - i) {
                Save(*registers[i], path, i == 1);
            }
        }
        ::usleep(static_cast<useconds_t>(random() % 6000));
        ::kill(child, SIGKILL);
        ::waitpid(child, nullptr, 0);
        ASSERT_TRUE(std::ranges::find(contents, ReadBytes(path)) != std::end(contents)) << kill;
        interrupted += folder.Count() > 1 ? 1 : 0;
        for (const auto& entry : fs::directory_iterator(folder.Path())) {
            if (entry.path() != path) {
                fs::remove(entry.path());
            }
        }
    }
    EXPECT_GT(interrupted, 0) << "no kill met a save: the test proved nothing";
}

}  // namespace
}  // namespace tarnwick
