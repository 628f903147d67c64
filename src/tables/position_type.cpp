#include "tables/position_type.h"

#include <algorithm>
#include <array>
#include <set>
#include <span>

#include "base/chess_exception.h"
#include "base/filled_text.h"

#include "tables/tables_texts.h"

namespace tarnwick {
namespace {

struct TKind {
    char letter;
    TFigureCode code;
};

/// In the order of a key's digits.
constexpr std::array<TKind, 10> Kinds = {{{'Q', WhiteQueen},
                                          {'R', WhiteRook},
                                          {'B', WhiteBishop},
                                          {'N', WhiteKnight},
                                          {'P', WhitePawn},
                                          {'q', BlackQueen},
                                          {'r', BlackRook},
                                          {'b', BlackBishop},
                                          {'n', BlackKnight},
                                          {'p', BlackPawn}}};

/// How many men of each kind the board has.
std::array<int, Kinds.size()> MenByKind(const TChessboard& board) noexcept {
    return {board.m_whiteQueens,  board.m_whiteRooks,  board.m_whiteBishops, board.m_whiteKnights,
            board.m_whitePawns,   board.m_blackQueens, board.m_blackRooks,   board.m_blackBishops,
            board.m_blackKnights, board.m_blackPawns};
}

std::size_t PlaceInAlphabet(char letter) noexcept {
    return TypeLetters.find(letter);
}

/// What the letter may become by promotion; empty for a figure.
std::string_view PromotionsOf(char letter) noexcept {
    return letter == 'P' ? "QRBN" : letter == 'p' ? "qrbn" : "";
}

bool IsBlackLetter(char letter) noexcept {
    return letter >= 'a' && letter <= 'z';
}

/// The two captures of one type: a man of either side is gone.
bool IsOwnLetter(char letter, char other) noexcept {
    return IsBlackLetter(letter) == IsBlackLetter(other);
}

}  // namespace

TFigureCode FigureOfLetter(char letter) noexcept {
    if (letter == 'K' || letter == 'k') {
        return letter == 'K' ? WhiteKing : BlackKing;
    }
    const auto found = std::ranges::find(Kinds, letter, &TKind::letter);
    return found == Kinds.end() ? EmptyField : found->code;
}

char LetterOfFigure(TFigureCode code) noexcept {
    const TFigureCode figure = ColourOf(code) | TypeOf(code);
    if (figure == WhiteKing || figure == BlackKing) {
        return figure == WhiteKing ? 'K' : 'k';
    }
    const auto found = std::ranges::find(Kinds, figure, &TKind::code);
    return found == Kinds.end() ? '\0' : found->letter;
}

std::string PositionTypeOf(const TChessboard& board) {
    const auto men = MenByKind(board);
    std::string type;
    for (std::size_t kind = 0; kind < Kinds.size(); ++kind) {
        type.append(static_cast<std::size_t>(men[kind]), Kinds[kind].letter);
    }
    return type.size() <= MaxTypeLetters ? type : std::string();
}

std::uint64_t PositionTypeId(const TChessboard& board) noexcept {
    const auto men = MenByKind(board);
    std::uint64_t key = 0;
    std::size_t letters = 0;
    for (std::size_t kind = 0; kind < Kinds.size(); ++kind) {
        for (int i = 0; i < men[kind]; ++i) {
            if (++letters > MaxTypeLetters) {
                return 0;
            }
            key = (key << 4) | (kind + 1);
        }
    }
    return key * 2;
}

std::uint64_t PositionTypeId(std::string_view type) noexcept {
    std::uint64_t key = 0;
    for (const char letter : type) {
        key = (key << 4) | (PlaceInAlphabet(letter) + 1);
    }
    return key * 2;
}

std::string OrderedType(std::string_view letters) {
    std::string type(letters);
    const bool bAllMen = std::ranges::all_of(type, [](char letter) {
        return FigureOfLetter(letter) != EmptyField && letter != 'K' && letter != 'k';
    });
    if (!bAllMen || type.empty() || type.size() > MaxTypeLetters) {
        throw ChessException(FilledText(NoPositionTypeText, {std::string(letters)}));
    }
    std::ranges::sort(type, {}, PlaceInAlphabet);
    return type;
}

std::string RemoveFromPosType(const std::string& type, char letter) {
    const std::size_t place = type.find(letter);
    if (place == std::string::npos) {
        throw ChessException("Error in RemoveFromPosType: pos.type " + type + " does not contain " +
                             letter);
    }
    std::string rest = type;
    rest.erase(place, 1);
    return rest;
}

int GetIndexToRemoveToObtainOtherPosType(const std::string& type, const std::string& other) {
    if (type.size() != other.size() + 1) {
        throw ChessException("Error in GetIndexToRemoveToObtainOtherPosType: " + type + " and " +
                             other + " passed to function");
    }
    for (std::size_t i = 0; i < type.size(); ++i) {
        if (type.compare(0, i, other) == 0) {
            return static_cast<int>(i);
        }
    }
    return -1;
}

bool HasPawns(std::string_view type) noexcept {
    return type.substr(0, type.find('+')).find_first_of("Pp") != std::string_view::npos;
}

bool IsPositionTypeWithoutData(std::string_view type) noexcept {
    static constexpr std::array<std::string_view, 16> Listed = {
        "N",  "B",  "NN", "Nq", "Nr",  "Nb",  "Nn",  "Bq",
        "Br", "Bb", "Bn", "Bp", "NNq", "NNr", "Bqp", "Brp"};
    if (std::ranges::find(Listed, type) != Listed.end()) {
        return true;
    }
    return type.size() == 3 && (type[0] == 'N' || type[0] == 'B') && IsBlackLetter(type[1]) &&
           type[1] != 'p';
}

std::vector<std::string> TypesReachedFrom(const std::string& type) {
    std::set<std::string> reached;
    const auto add = [&](const std::string& letters) {
        if (!letters.empty()) {
            reached.insert(OrderedType(letters));
        }
    };
    for (std::size_t taken = 0; taken < type.size(); ++taken) {
        add(RemoveFromPosType(type, type[taken]));
    }
    for (std::size_t pawn = 0; pawn < type.size(); ++pawn) {
        for (const char figure : PromotionsOf(type[pawn])) {
            std::string promoted = type;
            promoted[pawn] = figure;
            add(promoted);
            for (const char taken : type) {
                if (!IsOwnLetter(taken, figure)) {
                    add(RemoveFromPosType(promoted, taken));
                }
            }
        }
    }
    return {reached.begin(), reached.end()};
}

std::vector<std::string> AllTypes(int letters, bool bWithPawns) {
    std::vector<std::string> types;
    const auto extend = [&](const auto& self, std::string& type) -> void {
        if (static_cast<int>(type.size()) == letters) {
            if (HasPawns(type) == bWithPawns && !IsBlackLetter(type[0])) {
                types.push_back(type);
            }
            return;
        }
        for (std::size_t kind = type.empty() ? 0 : PlaceInAlphabet(type.back());
             kind < Kinds.size(); ++kind) {
            type.push_back(Kinds[kind].letter);
            self(self, type);
            type.pop_back();
        }
    };
    std::string type;
    extend(extend, type);
    return types;
}

}  // namespace tarnwick
