#include "tables/verification/table_verifier.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <fstream>
#include <span>
#include <thread>
#include <vector>

#include "base/chess_exception.h"
#include "base/encoding.h"
#include "base/file_fault_texts.h"
#include "base/filled_text.h"
#include "platform/append_line.h"
#include "platform/atomic_file.h"

#include "chess/board_stack.h"
#include "chess/fen.h"
#include "chess/prepare_position.h"
#include "tables/generation/parallel_ranges.h"
#include "tables/open_values.h"
#include "tables/tables_texts.h"
#include "tables/verification/side_moves.h"

namespace tarnwick {
namespace {

/// Plies left on a verified board: enough for two moves of each side, and White is to move.
constexpr std::uint16_t PliesOnBoard = 13;
constexpr std::uint64_t Piece = 1 << 14;
/// Bytes for tables of other types: all of three and four men, and twice the table itself if that is more. A type of two
/// pawns leads to dozens of five men, of which only the rows behind promotions are wanted.
constexpr std::uint64_t LeastBudget = 256U << 20;

/// One index in 64 by the top bits of a product that spreads neighbours (Fibonacci hashing, Knuth 3, 6.4).
bool IsInSample(std::uint64_t index) {
    return (index * 0x9E3779B97F4A7C15ULL) >> 58 == 0;
}

std::string CountsText(const TVerifyCounts& counts) {
    return FilledText(VerifyCountsText,
                      {std::to_string(counts.faults), std::to_string(counts.fixable),
                       std::to_string(counts.fixed)});
}

/// The numbers before the first comma of each line.
std::set<std::uint64_t> IndicesOfLog(const std::filesystem::path& path) {
    std::ifstream file(path);
    if (!file) {
        throw ChessException("Cannot open file " + ToValidUtf8(path.string()));
    }
    std::set<std::uint64_t> indices;
    for (std::string line; std::getline(file, line);) {
        std::uint64_t index = 0;
        const auto read = std::from_chars(line.data(), line.data() + line.size(), index);
        if (read.ec == std::errc() && read.ptr != line.data() + line.size() && *read.ptr == ',') {
            indices.insert(index);
        }
    }
    return indices;
}

}  // namespace

std::string VerifyEndText(const TVerifyCounts& counts) {
    return counts.bStopped ? UserText(VerifyCancelledText)
                           : UserText(VerifyCompleteText) + CountsText(counts);
}

std::string VerifyProgressText(const TVerifyCounts& counts) {
    char percent[32];
    std::snprintf(percent, sizeof(percent), "%0.1f%% ", 100.0 * counts.share);
    return percent + CountsText(counts);
}

/// A thread's board with slots for the moves.
struct CTableVerifier::TWorker {
    TBoardStack stack;
    TChessboard board = EmptyChessboard();
    std::uint64_t judged = 0;
};

CTableVerifier::CTableVerifier(const CTableFolders& folders, TUserDialog& dialog,
                               TVerifyOptions options)
    : m_folders(folders), m_dialog(dialog), m_options(std::move(options)) {}

TVerifyCounts CTableVerifier::Verify(const std::string& type) {
    m_own = Open(type, ~std::uint64_t{0}, !m_options.bPartial);
    if (!m_own.pValues) {
        throw ChessException(FilledText(MissingTableText, {type}));
    }
    m_tables.clear();
    m_tables[PositionTypeId(type)] = m_own;
    m_budget = std::max(2 * m_own.pIndex->GetIndexCount(), LeastBudget);
    FindLimit();
    ChooseLog(type);
    const auto caller = std::this_thread::get_id();
    ShowProgress();
    const bool bScreened = Screen(type);
    const std::uint64_t piece =
        m_pScreen ? Piece / m_pScreen->RowCells() * m_pScreen->RowCells() : Piece;
    const auto lookAt = [&](std::uint64_t begin, std::uint64_t end) {
        LookAt(begin, end);
        if (std::this_thread::get_id() == caller) {
            ShowProgressNowAndThen();
        }
    };
    const bool bAll = bScreened && ForRanges(m_own.pIndex->GetIndexCount(), piece,
                                             m_options.threads, *m_options.pControl, lookAt);
    m_pScreen.reset();
    m_dialog.Progress("");
    if (m_nFixed > 0) {
        SaveRepaired();
    }
    TVerifyCounts counts = Counts();
    counts.bStopped = !bAll;
    if (counts.disputed > 0 && counts.faults == 0) {
        m_dialog.Tell(FilledText(DisputedTableText, {type, std::to_string(counts.disputed)}));
    }
    return counts;
}

/// Prepares the screen if there can be one; false after a stop.
bool CTableVerifier::Screen(const std::string& type) {
    if (m_options.bBoardRules) {
        return true;
    }
    m_pGraph = std::make_unique<CTypeGraph>(
        type, [](const std::string&) { return std::shared_ptr<CTableValues>(); });
    m_pScreen = MakeTableScreen(m_pGraph->Root(), [this](const std::string& other) {
        return TableOfKey(PositionTypeId(other), [&] { return other; });
    });
    const auto report = [this](double share) {
        m_preparedShare = share;
        ShowProgressNowAndThen();
    };
    if (m_pScreen && !m_pScreen->Prepare(m_options.threads, *m_options.pControl, report)) {
        return false;
    }
    m_preparedShare = 1;
    if (m_pScreen && !m_pScreen->IsOfOneMind()) {
        m_pScreen.reset();
    }
    return true;
}

/// What needs more than the budget stays on the disk.
TFoundTable CTableVerifier::Open(const std::string& type, std::uint64_t budget,
                                 bool bCompleteOnly) {
    TFoundTable found;
    found.pIndex = std::make_shared<const CTableIndex>(type);
    TOpenedValues opened = OpenValues(m_folders, *found.pIndex, budget, bCompleteOnly);
    m_budget -= std::min(m_budget, opened.bytesInMemory);
    found.pValues = std::move(opened.pValues);
    return found;
}

const TFoundTable* CTableVerifier::TableOf(const TChessboard& board) {
    const std::uint64_t key = PositionTypeId(board);
    if (key == 0 || WhiteFigureCount(board) + board.m_whitePawns == 0) {
        return nullptr;
    }
    return TableOfKey(key, [&] { return PositionTypeOf(board); });
}

/// typeName() gives the type of the key; it is asked once.
template <typename TName>
const TFoundTable* CTableVerifier::TableOfKey(std::uint64_t key, const TName& typeName) {
    const std::scoped_lock guard(m_tablesLock);
    auto found = m_tables.find(key);
    if (found == m_tables.end()) {
        found = m_tables.emplace(key, Open(typeName(), m_budget, true)).first;
    }
    return found->second.pValues ? &found->second : nullptr;
}

void CTableVerifier::FindLimit() {
    m_limitPlies = 0;
    if (!m_options.bPartial) {
        return;
    }
    unsigned longest = 0;
    for (std::uint64_t index = 1; index < m_own.pIndex->GetIndexCount(); ++index) {
        const unsigned value = m_own.pValues->ValueAt(index);
        longest = value != NotGenerated ? std::max(longest, value) : longest;
    }
    m_dialog.Tell(FilledText(MaxMateOfPartialText, {std::to_string(longest)}));
    m_limitPlies = PliesOfMoves(longest);
}

void CTableVerifier::ChooseLog(const std::string& type) {
    const auto first = m_options.logFolder / ("PrecalcFailures" + type + ".txt");
    const auto second = m_options.logFolder / ("PrecalcFailures" + type + "_pass2.txt");
    m_firstPass.reset();
    m_log = first;
    std::error_code none;
    if (!std::filesystem::exists(first) || std::filesystem::file_size(first, none) == 0 ||
        !m_dialog.Ask(FilledText(AskSecondPassText, {ToValidUtf8(first.string())}))) {
        return;
    }
    if (std::filesystem::exists(second)) {
        throw ChessException(FilledText(
            SecondPassExistsText, {ToValidUtf8(second.string()), ToValidUtf8(first.string())}));
    }
    m_firstPass = IndicesOfLog(first);
    m_log = second;
}

void CTableVerifier::LookAt(std::uint64_t begin, std::uint64_t end) {
    TWorker worker;
    worker.board.m_pThread = &worker.stack;
    worker.stack.m_pRootBoard = &worker.board;
    std::vector<TScreenMark> marks(end - begin, TScreenMark::Unknown);
    const std::uint64_t cells = m_pScreen ? m_pScreen->RowCells() : marks.size();
    const unsigned partialMoves = m_options.bPartial ? (m_limitPlies + 1) / 2 : NotPartial;
    for (std::uint64_t row = 0; m_pScreen && row < marks.size(); row += cells) {
        m_pScreen->Mark(begin + row, partialMoves, std::span(marks).subspan(row, cells));
    }
    for (std::uint64_t index = begin; index < end; ++index) {
        const TScreenMark mark = marks[index - begin];
        if (mark != TScreenMark::Agrees || IsInSample(index)) {
            LookAtIndex(index, mark, worker);
        }
    }
    m_nIndices += end - begin;
    m_nByBoard += worker.judged;
}

void CTableVerifier::LookAtIndex(std::uint64_t index, TScreenMark mark, TWorker& worker) {
    TChessboard& board = worker.board;
    unsigned stored = PliesOfMoves(m_own.pValues->ValueAt(index));
    if (m_firstPass && stored > 0 && !m_firstPass->contains(index)) {
        return;
    }
    if (!m_own.pIndex->PositionOfIndex(index, board)) {
        return;
    }
    board.m_shPlies = PliesOnBoard;
    board.m_shRootPlies = PliesOnBoard;
    if (!PreparePositionNoThrow(board, true) || board.m_blackChecker != NoChecker) {
        return;
    }
    const unsigned expected =
        ExpectedPlies(board, m_own, [this](const TChessboard& other) { return TableOf(other); });
    ++worker.judged;
    const bool bNotYet = m_options.bPartial && (stored == 0 || stored == PliesUnknown);
    if (expected == stored || (bNotYet && (expected == 0 || expected >= m_limitPlies))) {
        m_nDisputed += mark == TScreenMark::Differs ? 1 : 0;
        return;
    }
    Report(index, board, stored, expected);
}

void CTableVerifier::Report(std::uint64_t index, const TChessboard& board, unsigned stored,
                            unsigned expected) {
    const std::scoped_lock guard(m_reportLock);
    const std::string line = std::to_string(index) + ',' + WriteFen(board, false) + ',' +
                             std::to_string(stored) + ',' + std::to_string(expected);
    if (!AppendLine(m_log, line + '\n')) {
        throw ChessException(UserText(TextCannotOpenFile) + ToValidUtf8(m_log.string()));
    }
    ++m_nFaults;
    const bool bUnknown = stored == 0 || stored == PliesUnknown;
    const bool bFixable = bUnknown || (expected >= 1 && expected < stored);
    m_nFixable += bFixable ? 1 : 0;
    if (!bFixable || expected == 0 || !MayRepair(stored)) {
        return;
    }
    m_own.pValues->SetValueAt(index, expected / 2 + 1);
    ++m_nFixed;
}

/// Whoever wished to be asked is asked once.
bool CTableVerifier::MayRepair(unsigned stored) {
    if (m_options.repair == TRepair::Ask && stored == 0) {
        m_options.repair = m_dialog.Ask(UserText(AskTryFixText)) ? TRepair::Yes : TRepair::No;
    }
    return m_options.repair == TRepair::Yes;
}

void CTableVerifier::SaveRepaired() {
    const CTableIndex& index = *m_own.pIndex;
    const auto path =
        m_folders.MakeFileName(TableNameOf(index.Type()), TTableFileMode::Unpacked, false, false);
    const CRandomAccessFile old(path);
    const auto flags = ReadTableFlags(old);
    if (!flags) {
        m_dialog.Tell(FilledText(CannotUpdateTableText, {ToValidUtf8(path.string())}));
        m_nFixed = 0;
        return;
    }
    const bool bTwoBytes = old.Size() > index.GetIndexCount();
    CAtomicFileWriter writer(path);
    std::string piece;
    for (std::uint64_t i = 0; i < index.GetIndexCount(); ++i) {
        const unsigned value = i == 0 ? *flags : m_own.pValues->ValueAt(i);
        piece += static_cast<char>(value & 0xFF);
        if (bTwoBytes) {
            piece += static_cast<char>(value >> 8);
        }
        if (piece.size() >= (1U << 20) || i + 1 == index.GetIndexCount()) {
            writer.Append(piece);
            piece.clear();
        }
    }
    writer.Commit();
}

void CTableVerifier::ShowProgressNowAndThen() {
    if (std::chrono::steady_clock::now() - m_shown > std::chrono::milliseconds(200)) {
        ShowProgress();
    }
}

void CTableVerifier::ShowProgress() {
    m_shown = std::chrono::steady_clock::now();
    m_dialog.Progress(VerifyProgressText(Counts()));
}

TVerifyCounts CTableVerifier::Counts() const {
    const std::scoped_lock guard(m_reportLock);
    TVerifyCounts counts;
    counts.indices = m_nIndices;
    counts.byBoard = m_nByBoard;
    counts.disputed = m_nDisputed;
    counts.all = m_own.pIndex->GetIndexCount();
    const double looked = static_cast<double>(counts.indices) / static_cast<double>(counts.all);
    counts.share = m_pScreen ? (m_preparedShare + looked) / 2 : looked;
    counts.faults = m_nFaults;
    counts.fixable = m_nFixable;
    counts.fixed = m_nFixed;
    counts.longestOfPartial = (m_limitPlies + 1) / 2;
    return counts;
}

}  // namespace tarnwick
