#include "problems/cp_writer.h"

#include <algorithm>
#include <cstdlib>

#include "base/encoding.h"

#include "chess/board_tables.h"
#include "chess/fen.h"
#include "chess/move_text.h"
#include "chess/prepare_position.h"
#include "problems/file_text.h"
#include "problems/problem_options.h"
#include "problems/problem_texts.h"

namespace tarnwick {
namespace {

/// Appends a text that must stay on its line.
void AppendText(std::string& out, std::wstring text) {
    std::ranges::replace(text, L'\n', L' ');
    std::ranges::replace(text, L'\r', L' ');
    out += ToUtf8(text);
}

void AppendHead(std::string& out, const TChessProblem& problem) {
    out += std::to_string(problem.m_id) + ' ';
    switch (problem.m_type) {
        case TProblemType::DirectMate:
            out += '#' + std::to_string(MovesOfStipulation(problem));
            break;
        case TProblemType::SelfMate:
            out += "s#" + std::to_string(MovesOfStipulation(problem));
            break;
        case TProblemType::Position:
            break;
    }
    AppendOptions(out, problem);
    out += '\n';
}

void AppendSpecialLines(std::string& out, const TChessProblem& problem) {
    if (!problem.m_tags.empty()) {
        out += "//#TAGS\n";
    }
    for (const std::wstring& tag : problem.m_tags) {
        out += "//#";
        AppendText(out, tag);
        out += '\n';
    }
    if (!problem.m_variants.empty()) {
        out += "//!VARIANTS\n";
        for (const auto& [key, variant] : problem.m_variants) {
            out += "//!";
            AppendText(out, variant.ToText());
            out += '\n';
        }
        out += "//!ENDVARIANTS\n";
    }
    if (!problem.m_sortIndications.empty()) {
        out += "//@SortIndications: " + SortIndicationsToText(problem.m_sortIndications) + '\n';
    }
}

void AppendMen(std::string& out, const TChessboard& board, TFigureCode colour) {
    const char* separator = " ";
    for (int field = 0; field < FieldCount; ++field) {
        const TFigureCode code = board.m_fields[field];
        if (ColourOf(code) != colour) {
            continue;
        }
        out += separator;
        separator = ", ";
        if (TypeOf(code) != TypePawn) {
            out += CodeToLetter[TypeOf(code)];
        }
        out += FieldName(field);
    }
}

/// Listed men that make no position (two kings, say) can only be read again as lists: the reader tests
/// a FEN and would refuse the whole file.
void AppendPosition(std::string& out, const TChessboard& board) {
    TChessboard prepared = board;
    const bool bHasWhiteMen = std::ranges::any_of(board.m_fields, IsWhite);
    if (!bHasWhiteMen || PreparePositionNoThrow(prepared, true)) {
        out += "\tFEN: " + WriteFen(board, true) + '\n';
        return;
    }
    out += "\tWhite:";
    AppendMen(out, board, WhiteFlag);
    out += "\n\tBlack:";
    AppendMen(out, board, BlackFlag);
    out += '\n';
}

/// The castling texts stand for the white king's moves from e1 alone; an answer is not checked, so a
/// king may also be said to go elsewhere.
std::string AnswerText(TMove move, const TChessboard& board) {
    const TFigureCode moved = board.m_fields[move.from];
    const bool bCapture = board.m_fields[move.to] != EmptyField;
    const bool bHomeCastling = move.from == E1 && (move.to == C1 || move.to == G1);
    const bool bFar = std::abs(FileOf(move.from) - FileOf(move.to)) >= 2;
    if (TypeOf(moved) == TypeKing && bFar && (!bHomeCastling || move.PromotionType() != 0)) {
        return CodeToLetter[TypeKing] + MoveToFullText(move, WhitePawn, bCapture);
    }
    return MoveToFullText(move, moved, bCapture);
}

void AppendAnswers(std::string& out, const TChessProblem& problem) {
    if (!problem.m_shOptions.Has(TProblemOption::HasAnswers) || problem.m_answers.empty()) {
        return;
    }
    const char* separator = "\tAnswer: ";
    for (const TMove move : problem.m_answers) {
        out += separator + (' ' + AnswerText(move, *problem.m_pBoard));
        separator = ", ";
    }
    out += '\n';
}

void AppendMoves(std::string& out, const TChessProblem& problem) {
    if (problem.m_type != TProblemType::Position || problem.m_lineBoards.empty()) {
        return;
    }
    out += "   Moves:    ";
    for (std::size_t i = 0; i < problem.m_lineBoards.size(); ++i) {
        const TMove move = problem.m_lineBoards[i]->m_lastMove;
        out += ' ' + MoveToDisplayText(move, BoardBeforeMove(problem, i));
    }
    out += '\n';
}

}  // namespace

std::string ProblemToText(const TChessProblem& problem) {
    std::string text;
    AppendHead(text, problem);
    AppendSpecialLines(text, problem);
    text += "{\n";
    if (!problem.m_description.empty()) {
        text += "\tDescription: ";
        AppendText(text, problem.m_description);
        text += '\n';
    }
    AppendPosition(text, *problem.m_pBoard);
    AppendMoves(text,
                problem);  // in front of the answers, which the reader takes as the last section
    AppendAnswers(text, problem);
    text += "}\n";
    return text;
}

std::string EntryOfProblemFile(const TChessProblem& problem) {
    return '\n' + ProblemToText(problem);
}

std::string ProblemListToText(const TProblemList& list) {
    std::string text = BeginningOfProblemFile;
    for (const TChessProblem* pProblem : list.Problems()) {
        text += EntryOfProblemFile(*pProblem);
    }
    return text;
}

void WriteProblemFile(const std::filesystem::path& path, const TProblemList& list, TBackup backup) {
    const std::string text = ProblemListToText(list);
    try {
        SaveFileAtomically(path, text, backup);
    } catch (const ChessException& e) {
        throw ChessException(UserText(ErrorOpeningFileText) + FileNameForMessage(path) + '\n' +
                             e.what());
    }
}

}  // namespace tarnwick
