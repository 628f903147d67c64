#include "problems/cp_answer_reader.h"

#include <algorithm>
#include <optional>

#include "base/chess_exception.h"

#include "chess/board_stack.h"
#include "chess/fen.h"
#include "chess/prepare_position.h"
#include "problems/problem_texts.h"

namespace tarnwick {
namespace {

[[noreturn]] void Throw(const TUserText& text) {
    throw ChessException(UserText(text));
}
[[noreturn]] void Throw(const TUserText& text, const CCpLexer& lexer, std::string_view token) {
    throw ChessException(UserText(text) + lexer.ForMessage(token));
}

struct TAnswerKeyword {
    std::string_view word;
    TProblemOption section;
    bool bOnly;  ///< The order of moves is all that is wanted of the problem.
};
constexpr TAnswerKeyword AnswerKeywords[] = {
    {"SOLUTION", TProblemOption::HasAnswers, false},
    {"ANSWER", TProblemOption::HasAnswers, false},
    {"A", TProblemOption::HasAnswers, false},
    {"EXPECTEDSORTWHITEMOVES", TProblemOption::HasExpectedSort, false},
    {"SWM", TProblemOption::HasExpectedSort, false},
    {"EXPECTEDSORTWHITEMOVESONLY", TProblemOption::HasExpectedSort, true},
};

const TAnswerKeyword* FindAnswerKeyword(std::string_view token) {
    const auto* found = std::ranges::find_if(AnswerKeywords, [token](const TAnswerKeyword& k) {
        return EqualsIgnoringCase(k.word, token);
    });
    return found == std::end(AnswerKeywords) ? nullptr : found;
}

bool HasFieldSize(std::string_view token) {
    return token.size() == 2 || token.size() == 3;
}

TMove CastlingOf(bool bShort, bool bWhite) {
    const TField king = bWhite ? E1 : E8;
    return {.from = king, .to = static_cast<TField>(bShort ? king + 2 : king - 2)};
}

/// Type of the new figure; none for a letter that names king or pawn.
std::optional<TFigureCode> PromotionOf(char letter) {
    const TFigureCode type = FigureCodeFromLetter(letter);
    if (type == TypeKing || type == TypePawn) {
        return std::nullopt;
    }
    return type;
}

// --- The line of play ---

/// Reads a castling whose first "0" has been read.
TMove ReadLineCastling(CCpLexer& lexer, bool bWhite) {
    if (lexer.NextToken(true, false) != "-") {
        Throw(MovesHyphenText);
    }
    std::string_view token = lexer.NextToken(true, false);
    if (token != "0") {
        Throw(CastlingSymbolText, lexer, token);
    }
    const std::size_t behind = lexer.Position();
    if (lexer.NextToken(true, false) != "-") {
        lexer.SetPosition(behind);
        return CastlingOf(true, bWhite);
    }
    token = lexer.NextToken(true, false);
    if (token != "0") {
        Throw(CastlingSymbolText, lexer, token);
    }
    return CastlingOf(false, bWhite);
}

TField FieldOfToken(const CCpLexer& lexer, std::string_view token, std::string_view name,
                    const TUserText& otherwise) {
    if (!BeginsWithField(name)) {
        Throw(otherwise, lexer, token);
    }
    return String2Field(name);
}

/// Reads the next move into `move`. False, and the lexer back in front of the token, if there is none.
bool ReadProblemMove(CCpLexer& lexer, bool bWhite, TMove& move) {
    const std::size_t before = lexer.Position();
    std::string_view token = lexer.NextToken(true, false);
    if (token == "0") {
        move = ReadLineCastling(lexer, bWhite);
        return true;
    }
    if (!IsCpIdentifier(token) || !HasFieldSize(token)) {
        lexer.SetPosition(before);
        return false;
    }
    move = {};
    move.from = FieldOfToken(lexer, token, token.substr(token.size() - 2), FromPositionText);
    token = lexer.NextToken(true, false);
    if (token != "-" && token != ":") {
        Throw(InvalidLexemText, lexer, token);
    }
    token = lexer.NextToken(true, false);
    if (!HasFieldSize(token)) {
        Throw(ToPositionText, lexer, token);
    }
    move.to = FieldOfToken(lexer, token, token, ToPositionText);
    if (token.size() == 3) {
        const std::optional<TFigureCode> promotion = PromotionOf(token[2]);
        if (!promotion) {
            Throw(ToPositionText, lexer, token);
        }
        move.promotion = *promotion;
    }
    return true;
}

[[noreturn]] void ThrowIllegalMove(const TChessProblem& problem, TMove move) {
    if (problem.m_lineBoards.size() == MaxMovesOfLine) {
        Throw(LineTooLongText);
    }
    throw ChessException(UserText(IllegalLineMoveText) + FieldName(move.from) + '-' +
                         FieldName(move.to));
}

// --- Answers ---

/// Reads a castling whose first "0" has been read, and the token behind it.
TMove ReadAnswerCastling(CCpLexer& lexer, std::string_view& next) {
    if (lexer.NextToken(true, false) != "-") {
        Throw(AnswerHyphenText);
    }
    next = lexer.NextToken(true, false);
    if (next != "0") {
        Throw(AnswerCastlingText, lexer, next);
    }
    next = lexer.NextToken(true, false);
    if (next != "-") {
        return CastlingOf(true, true);
    }
    next = lexer.NextToken(true, false);
    if (next != "0") {
        Throw(AnswerCastlingText, lexer, next);
    }
    next = lexer.NextToken(true, false);
    return CastlingOf(false, true);
}

/// Reads one answer, and the token behind it.
TMove ReadAnswer(CCpLexer& lexer, std::string_view& next) {
    const std::string_view first = lexer.NextToken(true, false);
    if (first == "0") {
        return ReadAnswerCastling(lexer, next);
    }
    if (!IsCpIdentifier(first) || !HasFieldSize(first)) {
        Throw(AnswerFromText, lexer, first);
    }
    TMove move;
    move.from = String2Field(first.substr(first.size() - 2));
    const std::string_view sign = lexer.NextToken(true, false);
    if (sign != "-" && sign != ":") {
        Throw(AnswerHyphenText);
    }
    const std::string_view second = lexer.NextIdentifier();
    if (!HasFieldSize(second)) {
        Throw(AnswerToText, lexer, second);
    }
    move.to = String2Field(second.substr(0, 2));
    const std::optional<TFigureCode> promotion =
        second.size() == 3 ? PromotionOf(second[2]) : TFigureCode{0};
    if (!promotion || move.IsPass()) {
        Throw(AnswerToText, lexer, second);
    }
    move.promotion = *promotion;
    next = lexer.NextToken(true, false);
    return move;
}

}  // namespace

std::string_view ReadMovesSection(TChessProblem& problem, CCpLexer& lexer, std::string_view token) {
    if (!EqualsIgnoringCase(token, "MOVES")) {
        return token;
    }
    if (lexer.NextToken(true, false) != ":") {
        Throw(MovesColonText);
    }
    TChessboard& start = *problem.m_pBoard;
    start.m_pPrevious = nullptr;
    start.m_lastMove = {};
    SetPlies(problem, PliesOfPosition);
    PreparePosition(start, true);
    TBoardStack stack;
    TMove move;
    while (ReadProblemMove(lexer, IsWhiteToMove(*problem.m_pLastBoard), move)) {
        if (!PlayOnLine(problem, move, stack)) {
            ThrowIllegalMove(problem, move);
        }
    }
    return lexer.NextToken(true, false);
}

std::string_view ReadAnswerSection(TChessProblem& problem, CCpLexer& lexer,
                                   std::string_view token) {
    const TAnswerKeyword* keyword = FindAnswerKeyword(token);
    if (keyword == nullptr) {
        return token;
    }
    if (lexer.NextToken(true, false) != ":") {
        Throw(AnswerColonText);
    }
    problem.m_shOptions.Set(keyword->section);
    if (keyword->bOnly) {
        problem.m_shOptions.Set(TProblemOption::ExpectedSortOnly);
    }
    std::vector<TMove>& moves = keyword->section == TProblemOption::HasAnswers
                                    ? problem.m_answers
                                    : problem.m_expectedSortWhiteMoves;
    std::string_view next;
    do {
        moves.push_back(ReadAnswer(lexer, next));
    } while (next == ",");
    if (next == "}" || FindAnswerKeyword(next) != nullptr) {
        return next;  // a second section of answers is the caller's to refuse
    }
    Throw(AnswerCommaText, lexer, next);
}

}  // namespace tarnwick
