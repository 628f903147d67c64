#include "problems/problem_transforms.h"

#include <algorithm>
#include <cassert>
#include <string_view>

#include "chess/board_stack.h"
#include "chess/castling.h"
#include "chess/fen.h"
#include "chess/field_transforms.h"

namespace tarnwick {
namespace {

constexpr std::wstring_view SwappedPrefix = L"B&Wh.swapped: ";
constexpr std::wstring_view RotatedStart = L"Rotated ";
constexpr std::wstring_view RotatedEnd = L"\u00B0: ";
constexpr std::wstring_view RotatedEndWithoutBlank = L"\u00B0:";
constexpr int LastRotation = 270;
constexpr std::size_t MaxAngleDigits = 3;

bool HasAnyCastlingRight(const TChessboard& board) {
    return HasCastlingRight(board, TCastling::WhiteShort) ||
           HasCastlingRight(board, TCastling::WhiteLong) ||
           HasCastlingRight(board, TCastling::BlackShort) ||
           HasCastlingRight(board, TCastling::BlackLong);
}

/// Moves whose fields leave the board are dropped.
std::vector<TMove> TransformedMoves(TTransform transform, const std::vector<TMove>& moves) {
    std::vector<TMove> transformed;
    for (TMove move : moves) {
        if (TransformMove(transform, move)) {
            transformed.push_back(move);
        }
    }
    return transformed;
}

void TransformAnswers(TTransform transform, TChessProblem& problem) {
    problem.m_answers = TransformedMoves(transform, problem.m_answers);
    if (problem.m_answers.empty()) {
        problem.m_shOptions.Clear(TProblemOption::HasAnswers);
    }
    problem.m_expectedSortWhiteMoves =
        TransformedMoves(transform, problem.m_expectedSortWhiteMoves);
    if (problem.m_expectedSortWhiteMoves.empty()) {
        problem.m_shOptions.Clear(TProblemOption::HasExpectedSort);
        problem.m_shOptions.Clear(TProblemOption::ExpectedSortOnly);
    }
}

bool IsLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

/// Puts the fields of the move into its text, which keeps its letters and its sign.
void RenameFields(TVariantEntry& entry) {
    constexpr std::size_t fieldsSize = 5;  // "e2-e4"
    const std::size_t promotionSize = IsLetter(entry.m_text.back()) ? 1 : 0;
    const std::size_t start = entry.m_text.size() - promotionSize - fieldsSize;
    entry.m_text.replace(start, 2, FieldName(entry.m_move.from));
    entry.m_text.replace(start + 3, 2, FieldName(entry.m_move.to));
}

/// A castling's text names no fields; the king's move it has become needs another text.
bool TransformEntry(TTransform transform, TVariantEntry& entry, TTransformNotes& notes) {
    if (!TransformMove(transform, entry.m_move)) {
        return false;
    }
    if (entry.m_text.starts_with('0')) {
        notes.bVariantHadCastling = true;
        entry.m_text = "Ka1-a1";
    }
    RenameFields(entry);
    return true;
}

void TransformVariants(TTransform transform, TChessProblem& problem, TTransformNotes& notes) {
    TVariantMap transformed;
    for (const auto& [key, variant] : problem.m_variants) {
        TVariant moved = variant;
        for (std::size_t i = 0; i < moved.m_entries.size(); ++i) {
            if (!TransformEntry(transform, moved.m_entries[i], notes)) {
                moved.m_entries.resize(i);
            }
        }
        std::wstring text = moved.ToText();
        transformed.insert_or_assign(std::move(text), std::move(moved));
    }
    problem.m_variants = std::move(transformed);
}

/// False when one of its fields leaves the board.
bool TransformIndication(TTransform transform, TSortIndication& indication) {
    const bool bHasFrom = indication.m_from != NoField;
    indication.m_to = TransformField(transform, indication.m_to);
    if (bHasFrom) {
        indication.m_from = TransformField(transform, indication.m_from);
    }
    return indication.m_to != NoField && (!bHasFrom || indication.m_from != NoField);
}

void TransformSortIndications(TTransform transform, TChessProblem& problem) {
    TSortIndications transformed;
    for (const auto& [number, list] : problem.m_sortIndications) {
        for (TSortIndication indication : list) {
            if (TransformIndication(transform, indication)) {
                transformed[number].push_back(indication);
            }
        }
    }
    problem.m_sortIndications = std::move(transformed);
}

void TransformLine(TTransform transform, TChessProblem& problem) {
    if (problem.m_lineBoards.empty()) {
        return;
    }
    std::vector<TMove> moves;
    for (const auto& pBoard : problem.m_lineBoards) {
        moves.push_back(pBoard->m_lastMove);
    }
    ClearLine(problem);
    TBoardStack stack;
    for (TMove& move : moves) {
        if (!TransformMove(transform, move) || !PlayOnLine(problem, move, stack)) {
            return;
        }
    }
}

TTransformNotes Transform(TTransform transform, TChessProblem& problem) {
    TChessboard board = *problem.m_pBoard;
    TTransformNotes notes{.bHadCastlingRights = HasAnyCastlingRight(board)};
    TransformPosition(transform, board);  // the one step that may refuse
    *problem.m_pBoard = board;
    problem.m_originalBoard = board;
    TransformLine(transform, problem);
    TransformAnswers(transform, problem);
    TransformVariants(transform, problem, notes);
    TransformSortIndications(transform, problem);
    return notes;
}

/// The angle in a description's prefix, a multiple of 90; 0 without such a prefix. `size` is the
/// prefix's length then.
int AngleOfPrefix(std::wstring_view description, std::size_t& size) {
    if (!description.starts_with(RotatedStart)) {
        return 0;
    }
    int angle = 0;
    std::size_t at = RotatedStart.size();
    const std::size_t last = at + MaxAngleDigits;
    for (; at < description.size() && at < last; ++at) {
        const wchar_t c = description[at];
        if (c < L'0' || c > L'9') {
            break;
        }
        angle = angle * 10 + (c - L'0');
    }
    // Nothing may follow: a description has no blanks at its end.
    const std::wstring_view rest = description.substr(at);
    const bool bEnds = rest.starts_with(RotatedEnd) || rest == RotatedEndWithoutBlank;
    if (!bEnds || angle % 90 != 0) {
        return 0;
    }
    size = description.size() - rest.size() + std::min(RotatedEnd.size(), rest.size());
    return angle;
}

std::wstring DescriptionAfterRotation(std::wstring_view description) {
    std::size_t size = 0;
    const int angle = AngleOfPrefix(description, size);
    std::wstring rest(description.substr(angle == 0 ? 0 : size));
    if (angle == LastRotation) {
        return rest;
    }
    return std::wstring(RotatedStart) + std::to_wstring(angle + 90) + std::wstring(RotatedEnd) +
           rest;
}

}  // namespace

TTransformNotes SwapColours(TChessProblem& problem) {
    const TTransformNotes notes = Transform(TTransform::SwapColours, problem);
    SetDescription(problem, std::wstring(SwappedPrefix) + problem.m_description);
    return notes;
}

TTransformNotes ShiftPosition(TChessProblem& problem, int delta) {
    switch (delta) {
        case -1:
            return Transform(TTransform::ShiftLeft, problem);
        case 1:
            return Transform(TTransform::ShiftRight, problem);
        case -8:
            return Transform(TTransform::ShiftDown, problem);
        default:
            assert(delta == 8);
            return Transform(TTransform::ShiftUp, problem);
    }
}

TTransformNotes RotatePosition(TChessProblem& problem) {
    const TTransformNotes notes = Transform(TTransform::Rotate, problem);
    SetDescription(problem, DescriptionAfterRotation(problem.m_description));
    return notes;
}

TTransformNotes MirrorPosition(TChessProblem& problem) {
    return Transform(TTransform::Mirror, problem);
}

}  // namespace tarnwick
