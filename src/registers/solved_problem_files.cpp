#include "registers/solved_problem_files.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "base/byte_source.h"
#include "base/chess_exception.h"
#include "base/little_endian.h"
#include "platform/atomic_file.h"

#include "registers/register_record_check.h"

namespace tarnwick {
namespace {

namespace fs = std::filesystem;

using TRegister = TChessboardRegister<bool>;
using TSummary = TSolvedProblemSummary;

constexpr std::size_t ItemBytes = sizeof(TChessboardRegisterItem);
constexpr std::size_t AnswerRecordBytes = ItemBytes + sizeof(TRegister::TInfo);
constexpr std::size_t MoveBytes = 4;
/// Far more records than any file has: bounds what a hostile one can cost.
constexpr std::size_t MostRecordsRead = 1'000'000;

/// A stored name without the folder that it begins with: the folder is the caller's.
fs::path PathIn(const fs::path& folder, const std::string& storedName) {
    return folder / storedName.substr(std::string_view(SolvedProblemsFolder).size());
}

/// The file, null if it cannot be opened.
std::unique_ptr<CFileSource> TryToOpen(const fs::path& path) {
    try {
        return std::make_unique<CFileSource>(path);
    } catch (const ChessException&) {
        return nullptr;
    }
}

/// Fills the bytes; false if they are not all there or the disk fails.
bool ReadWhole(TByteSource& source, std::span<std::uint8_t> bytes) {
    try {
        return ReadFully(source, bytes) == bytes.size();
    } catch (const ChessException&) {
        return false;
    }
}

bool TryToSave(const fs::path& path, std::string_view content, TBackup backup) {
    try {
        SaveFileAtomically(path, content, backup);
        return true;
    } catch (const ChessException&) {
        return false;
    }
}

void AppendMove(std::string& content, TMove move) {
    for (const std::uint8_t byte : {move.from, move.to, move.promotion, move.fourth}) {
        content += static_cast<char>(byte);
    }
}

/// Nothing if the fields are none: the search would look beyond the board.
std::optional<TMove> MoveFrom(const std::uint8_t* bytes) {
    const TMove move = {bytes[0], bytes[1], bytes[2], bytes[3]};
    if (move.from >= FieldCount || move.to >= FieldCount) {
        return std::nullopt;
    }
    return move;
}

/// Layout of a record: figure codes, plies (16 bits), marker (16 bits), move, answer, three zero bytes.
void AppendAnswer(std::string& content, const TChessboardRegisterItem& position,
                  const TRegister::TInfo& info) {
    std::array<std::uint8_t, ItemBytes + 4> start{};
    std::ranges::copy(position.m_fields, start.begin());
    StoreLittleEndian(&start[ItemBytes], info.m_plies);
    StoreLittleEndian(&start[ItemBytes + 2], info.m_moveMarker);
    content.append(start.begin(), start.end());
    AppendMove(content, info.m_move);
    content += static_cast<char>(info.m_answer ? 1 : 0);
    content.append(sizeof info.m_padding, '\0');
}

void InsertAnswer(TRegister& target, const std::array<std::uint8_t, AnswerRecordBytes>& record) {
    TChessboardRegisterItem position;
    std::memcpy(position.m_fields, record.data(), ItemBytes);
    const auto plies = LoadLittleEndian<std::uint16_t>(&record[ItemBytes]);
    const auto marker = LoadLittleEndian<std::uint16_t>(&record[ItemBytes + 2]);
    const std::optional<TMove> move = MoveFrom(&record[ItemBytes + 4]);
    const bool bAnswer = record[ItemBytes + 8] != 0;
    if (!move || marker != TRegister::TInfo::MoveMarker || plies > MostPliesOfRecord ||
        !CanBeStoredPosition(position)) {
        return;
    }
    if (plies % 2 != 0) {
        target.Insert(plies, position, bAnswer, &*move, false);
    } else {
        target.InsertDefence(plies, position, bAnswer, &*move, false);
    }
}

/// The moves behind the block. False, with no moves, if they are not whole.
bool ReadMoves(CFileSource& file, TSummary& summary) {
    const auto count = LoadLittleEndian<std::uint32_t>(&summary.m_block[TSummary::MoveCountOffset]);
    if (count > (file.Size() - file.Offset()) / MoveBytes) {
        return false;
    }
    std::vector<TMove> moves;
    for (std::uint32_t i = 0; i < count; ++i) {
        std::array<std::uint8_t, MoveBytes> bytes{};
        const bool bWhole = ReadWhole(file, bytes);
        const std::optional<TMove> move = MoveFrom(bytes.data());
        if (!bWhole || !move) {
            return false;
        }
        moves.push_back(*move);
    }
    summary.m_moves = std::move(moves);
    return true;
}

}  // namespace

void CSolvedProblemFiles::LoadAnswers(TRegister& target) {
    const auto pFile = TryToOpen(PathIn(m_folder, SolvedProblemName(target.RootId())));
    std::array<std::uint8_t, AnswerRecordBytes> record{};
    for (std::size_t i = 0; pFile && i < MostRecordsRead && ReadWhole(*pFile, record); ++i) {
        InsertAnswer(target, record);
    }
}

bool CSolvedProblemFiles::LoadSummary(TRegister& target) {
    const auto pFile = TryToOpen(PathIn(m_folder, UnfinishedProblemName(target.RootId())));
    std::array<std::uint8_t, TSummary::BlockSize> block{};
    if (!pFile || !ReadWhole(*pFile, block)) {
        return false;
    }
    block[TSummary::FieldByte] %= FieldCount;
    TSummary& summary = target.Summary();
    summary.m_block = block;
    summary.m_moves.clear();
    return block[TSummary::SolvedMovesByte] == 0 || ReadMoves(*pFile, summary);
}

bool CSolvedProblemFiles::SaveAnswers(const TRegister& source) {
    std::string content;
    std::size_t count = 0;
    for (const auto& [plies, positions] : source.Answers()) {
        for (const auto& [position, info] : positions) {
            if (count < MostAnswers) {
                AppendAnswer(content, position, info);
                ++count;
            }
        }
    }
    const fs::path path = PathIn(m_folder, SolvedProblemName(source.RootId()));
    m_bLostAnswers = !TryToSave(path, content, TBackup::Keep) || count >= MostAnswers;
    return !m_bLostAnswers;
}

bool CSolvedProblemFiles::SaveSummary(const TRegister& source) {
    const TSummary& summary = source.Summary();
    std::array<std::uint8_t, TSummary::BlockSize> block = summary.m_block;
    const bool bMoves = block[TSummary::SolvedMovesByte] != 0;
    if (bMoves) {
        StoreLittleEndian(&block[TSummary::MoveCountOffset],
                          static_cast<std::uint32_t>(summary.m_moves.size()));
    }
    std::string content(block.begin(), block.end());
    for (std::size_t i = 0; bMoves && i < summary.m_moves.size(); ++i) {
        AppendMove(content, summary.m_moves[i]);
    }
    const fs::path path = PathIn(m_folder, UnfinishedProblemName(source.RootId()));
    return TryToSave(path, content, TBackup::None);
}

}  // namespace tarnwick
