#include "engine/ordering/sort_hints.h"

#include "chess/generate_moves.h"
#include "chess/make_move.h"
#include "problems/chess_problem.h"

namespace tarnwick {
namespace {

TCheckKind CheckOf(const TMoveInfo& info) {
    if (!info.bGivesCheck) {
        return TCheckKind::Any;
    }
    return info.bDoubleCheck ? TCheckKind::Double : TCheckKind::Single;
}

bool Matches(const TSortIndication& item, const TChessboard& board, const TMoveInfo& info) {
    const TMove move = info.move;
    const bool bCaptureFits = item.m_capture == TCaptureKind::Either ||
                              (item.m_capture == TCaptureKind::Capture) == info.bCaptures;
    return item.m_to == move.to && (item.m_from == NoField || item.m_from == move.from) &&
           bCaptureFits &&
           (item.m_figure == EmptyField || item.m_figure == board.m_fields[move.from]) &&
           item.m_check <= CheckOf(info) &&
           (item.m_promotion == 0 || TypeOf(item.m_promotion) == move.PromotionType());
}

bool IsPseudoLegal(const TChessboard& board, TMove move, bool bWhite) {
    TMove moves[MaxMovesOfMan];
    const int count = bWhite ? GenerateWhiteMoves(board, move.from, moves)
                             : GenerateBlackMoves(board, move.from, moves);
    for (int i = 0; i < count; ++i) {
        if (moves[i].SameAs(move)) {
            return true;
        }
    }
    return false;
}

}  // namespace

TSortHints::TSortHints(const TSortIndications& indications) {
    for (const auto& [number, items] : indications) {
        m_items.insert(m_items.end(), items.begin(), items.end());
    }
    m_spent = std::make_unique<std::atomic<bool>[]>(m_items.size());
}

void TSortHints::UseVariant(const TChessboard& start, const TVariant& variant) {
    TBoardStack stack;
    TChessboard root = start;
    root.m_pThread = &stack;
    stack.m_pRootBoard = &root;
    const auto plies = static_cast<std::uint16_t>(variant.m_entries.size());
    root.m_shPlies = root.m_shRootPlies = static_cast<std::uint16_t>(plies | 1);
    TChessboard* board = &root;
    for (const TVariantEntry& entry : variant.m_entries) {
        const bool bWhite = IsWhiteToMove(*board);
        const TMove move = entry.m_move;
        if (plies >= MaxPlies || !IsPseudoLegal(*board, move, bWhite)) {
            return;
        }
        TChessboard* next = CopyToNextSlot(*board);
        if ((bWhite ? MakeWhiteMove(*next, move) : MakeBlackMove(*next, move, false)) ==
            MoveRefused) {
            return;
        }
        if (bWhite && m_image.figure[move.from] == EmptyField) {
            m_image.figure[move.from] = board->m_fields[move.from];
            m_image.to[move.from] = move.to;
            m_image.blackKing[move.from] = static_cast<TField>(BlackKingField(*board));
            m_image.bInUse = true;
        }
        board = next;
    }
}

TSortHints HintsOfProblem(const TChessProblem& problem, bool bMainVariant) {
    TSortHints hints(problem.m_sortIndications);
    if (bMainVariant || problem.m_shOptions.Has(TProblemOption::UseMainVariant)) {
        for (const auto& [text, variant] : problem.m_variants) {
            if (IsMainVariantName(variant.m_name)) {
                hints.UseVariant(*problem.m_pBoard, variant);
                break;
            }
        }
    }
    return hints;
}

bool TSortHints::Takes(std::size_t item, const TChessboard& board,
                       const TMoveInfo& info) const noexcept {
    if (!Matches(m_items[item], board, info)) {
        return false;
    }
    return m_items[item].m_check != TCheckKind::Single || !m_spent[item].exchange(true);
}

std::optional<std::uint8_t> TSortHints::ScoreFor(const TChessboard& board, const TMoveInfo& info,
                                                 int moveNumber) const noexcept {
    for (const int number : {moveNumber, 0}) {
        for (std::size_t i = 0; i < m_items.size(); ++i) {
            if (m_items[i].m_moveNumber == number && Takes(i, board, info)) {
                return m_items[i].m_bNegated ? ScoreNegativeHint : ScoreFirst;
            }
        }
    }
    const TMove move = info.move;
    if (m_image.bInUse && m_image.figure[move.from] == board.m_fields[move.from] &&
        m_image.to[move.from] == move.to && m_image.blackKing[move.from] == BlackKingField(board)) {
        return ScoreFirst;
    }
    return std::nullopt;
}

}  // namespace tarnwick
