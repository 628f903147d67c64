#include "problems/cp_problem_reader.h"

#include <algorithm>

#include "base/chess_exception.h"

#include "chess/fen.h"
#include "chess/prepare_position.h"
#include "chess/trimmed_text.h"
#include "problems/cp_answer_reader.h"
#include "problems/problem_options.h"
#include "problems/problem_texts.h"

namespace tarnwick {
namespace {

constexpr std::string_view TagsLine = "//#TAGS";
constexpr std::string_view VariantsLine = "//!VARIANTS";
constexpr std::string_view EndVariantsLine = "//!ENDVARIANTS";
constexpr std::string_view SortIndicationsStart = "//@SortIndications: ";
constexpr std::size_t SpecialPrefixSize = 3;  // "//#", "//!", "//@"

[[noreturn]] void Throw(const TUserText& text) {
    throw ChessException(UserText(text));
}
[[noreturn]] void Throw(const TUserText& text, const std::string& found) {
    throw ChessException(UserText(text) + found);
}

bool IsAnyOf(std::string_view token, std::initializer_list<std::string_view> keywords) {
    return std::ranges::any_of(
        keywords, [token](std::string_view word) { return EqualsIgnoringCase(token, word); });
}

bool IsSpecialLine(std::string_view token, std::string_view line) {
    return EqualsIgnoringCase(Trimmed(token), line);
}

void ApplyDefaults(TChessProblem& problem, int nMoves, const TProblemDefaults& defaults) {
    const auto found = defaults.find(nMoves);
    if (found == defaults.end()) {
        return;
    }
    for (const std::string& option : found->second) {
        if (!EqualsIgnoringCase(option, "AllSolutions")) {
            Throw(UnknownDefaultText, option);
        }
        problem.m_shOptions.Set(TProblemOption::AllSolutions);
    }
}

/// Reads "#n" or "s#n" and returns the token behind it; without a stipulation, the one in its place.
std::string_view ReadStipulation(TChessProblem& problem, CCpLexer& lexer,
                                 const TProblemDefaults& defaults) {
    std::string_view token = lexer.NextToken(true, true);
    if (token == "s") {
        problem.m_type = TProblemType::SelfMate;
        token = lexer.NextToken(true, true);
    }
    if (token != "#") {
        problem.m_type = TProblemType::Position;
        SetPlies(problem, PliesOfPosition);
        return token;
    }
    const int nMoves = NumberOfToken(lexer, lexer.NextIdentifier(), 1, MaxStipulationMoves);
    SetPlies(problem, PliesOfStipulation(problem.m_type, nMoves));
    ApplyDefaults(problem, nMoves, defaults);
    return lexer.NextToken(true, true);
}

void ReadHeuristicSetting(TChessProblem& problem, CCpLexer& lexer, std::string_view name,
                          std::uint32_t bit) {
    std::vector<std::string>& setting = problem.m_heuristicSettings[bit];
    std::string_view token = lexer.NextToken(true, true);
    if (EqualsIgnoringCase(token, "OFF")) {
        setting.emplace_back("OFF");
        return;
    }
    if (token != "(") {
        throw ChessException(UserText(UnexpectedAfterText) + lexer.ForMessage(name) + ": " +
                             lexer.ForMessage(token) + UserText(ExpectedBracketOrOffText));
    }
    for (token = lexer.NextToken(true, false); token != ")"; token = lexer.NextToken(true, false)) {
        setting.emplace_back(token);
    }
}

/// Some names have a slash, which ends the lexer's words: the longer word is tried first.
bool ReadHeuristic(TChessProblem& problem, CCpLexer& lexer, std::string_view token,
                   THeuristicBitOfName heuristicBitOfName) {
    if (heuristicBitOfName == nullptr || !IsCpIdentifier(token)) {
        return false;
    }
    const std::size_t behind = lexer.Position();
    std::string_view name = lexer.WidenOverSlashes(token);
    std::uint32_t bit = heuristicBitOfName(name);
    if (bit == 0) {
        lexer.SetPosition(behind);
        name = token;
        bit = heuristicBitOfName(name);
    }
    if (bit == 0) {
        return false;
    }
    ReadHeuristicSetting(problem, lexer, name, bit);
    return true;
}

bool EndsOptions(std::string_view token) {
    return token == "{" || token.starts_with("//@") || IsSpecialLine(token, TagsLine) ||
           IsSpecialLine(token, VariantsLine);
}

/// Reads options from the token on and returns the token that ends them.
std::string_view ReadOptions(TChessProblem& problem, CCpLexer& lexer, std::string_view token,
                             THeuristicBitOfName heuristicBitOfName) {
    for (; !EndsOptions(token); token = lexer.NextToken(true, true)) {
        if (const TOptionKeyword* keyword = FindOptionKeyword(token)) {
            ReadOptionValue(problem, *keyword, lexer);
        } else if (!ReadHeuristic(problem, lexer, token, heuristicBitOfName)) {
            Throw(UnknownOptionText, lexer.ForMessage(token));
        }
    }
    return token;
}

std::string_view ReadTags(TChessProblem& problem, CCpLexer& lexer) {
    while (true) {
        const std::string_view token = lexer.NextToken(true, true);
        if (!token.starts_with("//#")) {
            return token;
        }
        problem.m_tags.insert(lexer.Decode(token.substr(SpecialPrefixSize)));
    }
}

std::string_view ReadVariants(TChessProblem& problem, CCpLexer& lexer) {
    while (true) {
        const std::string_view token = lexer.NextToken(true, true);
        if (IsSpecialLine(token, EndVariantsLine)) {
            return lexer.NextToken(true, true);
        }
        if (!token.starts_with("//!")) {
            return token;
        }
        TVariant variant = TVariant::FromText(lexer.Decode(token.substr(SpecialPrefixSize)), true);
        std::wstring key = variant.ToText();
        problem.m_variants.insert_or_assign(std::move(key), std::move(variant));
    }
}

/// Reads the special lines from the token on and returns the token behind them.
std::string_view ReadSpecialLines(TChessProblem& problem, CCpLexer& lexer, std::string_view token) {
    if (IsSpecialLine(token, TagsLine)) {
        token = ReadTags(problem, lexer);
    }
    if (IsSpecialLine(token, VariantsLine)) {
        token = ReadVariants(problem, lexer);
    }
    if (token.starts_with(SortIndicationsStart)) {
        problem.m_sortIndications = ParseSortIndications(token.substr(SortIndicationsStart.size()));
        token = lexer.NextToken(true, true);
    }
    return token;
}

void ExpectColon(CCpLexer& lexer, const TUserText& otherwise) {
    if (lexer.NextToken(true, false) != ":") {
        Throw(otherwise);
    }
}

/// What differs between the two lists of men.
struct TSide {
    TFigureCode colour;
    const TUserText& badFigure;
    const TUserText& badPosition;
};

void PlaceMan(TChessboard& board, CCpLexer& lexer, const TSide& side) {
    const std::string_view token = lexer.NextIdentifier();
    if (token.size() != 2 && token.size() != 3) {
        Throw(side.badFigure, lexer.ForMessage(token));
    }
    const TFigureCode type = token.size() == 2 ? TypePawn : FigureCodeFromLetter(token.front());
    const std::string_view name = token.substr(token.size() - 2);
    if (!BeginsWithField(name)) {
        Throw(side.badPosition, lexer.ForMessage(token));
    }
    TFigureCode& field = board.m_fields[String2Field(name)];
    if (field != EmptyField) {
        throw ChessException(UserText(FieldText) + std::string(name) + UserText(OccupiedText));
    }
    field = side.colour | type;
}

/// Returns the token that ends the list.
std::string_view ReadMen(TChessboard& board, CCpLexer& lexer, const TSide& side) {
    if (lexer.PeekCharacter() == '}') {
        return lexer.NextToken(true, false);
    }
    while (true) {
        PlaceMan(board, lexer, side);
        const std::string_view token = lexer.NextToken(true, false);
        if (token != ",") {
            return token;
        }
    }
}

std::string_view ReadListsOfMen(TChessboard& board, CCpLexer& lexer) {
    ExpectColon(lexer, WhiteColonText);
    const std::string_view token =
        ReadMen(board, lexer, {WhiteFlag, WhiteFigureText, WhitePositionText});
    if (!IsAnyOf(token, {"B", "BL", "BLACK"})) {
        Throw(BlackIdentifierText);
    }
    ExpectColon(lexer, BlackColonText);
    return ReadMen(board, lexer, {BlackFlag, BlackFigureText, BlackPositionText});
}

void ReadPlacement(TChessboard& board, CCpLexer& lexer) {
    ExpectColon(lexer, FenColonText);
    bool bCastlingWithheld = false;
    bool bEnPassantGiven = false;
    if (!ReadFen(board, lexer.NextWord(), bCastlingWithheld, bEnPassantGiven)) {
        Throw(ImproperFenText);
    }
}

/// Reads description and position and returns the token behind them.
std::string_view ReadPosition(TChessProblem& problem, CCpLexer& lexer) {
    std::string_view token = lexer.NextIdentifier();
    if (IsAnyOf(token, {"D", "DESC", "DESCRIPTION"})) {
        ExpectColon(lexer, DescriptionColonText);
        SetDescription(problem, lexer.Decode(lexer.RestOfLine()));
        token = lexer.NextIdentifier();
    }
    if (EqualsIgnoringCase(token, "FEN")) {
        ReadPlacement(*problem.m_pBoard, lexer);
        token = lexer.NextToken(true, false);
    } else if (IsAnyOf(token, {"W", "WH", "WHITE"})) {
        token = ReadListsOfMen(*problem.m_pBoard, lexer);
    } else {
        Throw(WhiteIdentifierText);
    }
    SetPlies(problem, problem.m_shPlies);
    return token;
}

}  // namespace

void ReadProblem(TChessProblem& problem, CCpLexer& lexer, const TProblemDefaults& defaults,
                 THeuristicBitOfName heuristicBitOfName) {
    problem.m_id = NumberOfToken(lexer, lexer.NextIdentifier(), 0, MaxProblemId);
    std::string_view token = ReadStipulation(problem, lexer, defaults);
    token = ReadOptions(problem, lexer, token, heuristicBitOfName);
    token = ReadSpecialLines(problem, lexer, token);
    if (token != "{") {
        Throw(OpeningBracketText);
    }
    token = ReadPosition(problem, lexer);
    token = ReadMovesSection(problem, lexer, token);
    token = ReadAnswerSection(problem, lexer, token);
    if (token != "}") {
        Throw(ClosingBracketText);
    }
    // Men that were listed may make no position. The record is kept all the same, so that the user can
    // mend it; solving it will say what is wrong.
    PreparePositionNoThrow(*problem.m_pBoard, true);
    problem.m_originalBoard = *problem.m_pBoard;
}

}  // namespace tarnwick
