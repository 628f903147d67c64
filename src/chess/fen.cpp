#include "chess/fen.h"

#include <algorithm>
#include <optional>

#include "base/chess_exception.h"
#include "base/encoding.h"

#include "chess/board_tables.h"
#include "chess/castling.h"
#include "chess/notation_texts.h"
#include "chess/prepare_position.h"
#include "chess/trimmed_text.h"

namespace tarnwick {
namespace {

struct TCastlingMark {
    char letter;
    TCastling castling;
};
constexpr TCastlingMark CastlingMarks[4] = {{'K', TCastling::WhiteShort},
                                            {'Q', TCastling::WhiteLong},
                                            {'k', TCastling::BlackShort},
                                            {'q', TCastling::BlackLong}};

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

/// Reads the eight fields of one row, beginning at text[at], and moves `at` behind them.
bool ReadRow(std::string_view text, std::size_t& at, TFigureCode* row) {
    int file = 0;
    while (file < 8) {
        const char c = at < text.size() ? text[at++] : '\0';
        if (c >= '1' && c <= '8') {
            file += c - '0';
        } else if (const TFigureCode type = FigureTypeOfLetter(c); type != 0) {
            row[file++] = type | (c < 'a' ? WhiteFlag : BlackFlag);
        } else {
            return false;
        }
    }
    const bool bMoreFields =
        at < text.size() && (IsDigit(text[at]) || FigureTypeOfLetter(text[at]) != 0);
    return file == 8 && !bMoreFields;
}

/// What follows the eighth row is not looked at: a FEN in running text may end with a comma.
bool ReadPlacement(std::string_view placement, TChessboard& board) {
    if (placement.find('{') != std::string_view::npos) {
        return false;
    }
    std::size_t at = 0;
    for (int rank = 7; rank >= 0; --rank) {
        if (!ReadRow(placement, at, &board.m_fields[rank * 8])) {
            return false;
        }
        if (rank > 0 && (at == placement.size() || placement[at++] != '/')) {
            return false;
        }
    }
    return true;
}

/// The word of that number, counted from 0; empty if there are fewer.
std::string_view WordOf(std::string_view text, int number) {
    for (; number > 0; --number) {
        text = Trimmed(text.substr(std::min(text.find_first_of(Blanks), text.size())));
    }
    return text.substr(0, text.find_first_of(Blanks));
}

bool WithholdsCastling(std::string_view marks, const TChessboard& board) {
    return std::ranges::any_of(CastlingMarks, [&](const TCastlingMark& mark) {
        return marks.find(mark.letter) == std::string_view::npos &&
               HasCastlingRight(board, mark.castling);
    });
}

void AppendPlacement(const TChessboard& board, std::string& text) {
    for (int rank = 7; rank >= 0; --rank) {
        int empty = 0;
        for (int file = 0; file < 8; ++file) {
            const TFigureCode code = board.m_fields[FieldAt(file, rank)];
            if (code == EmptyField) {
                ++empty;
                continue;
            }
            if (empty > 0) {
                text += static_cast<char>('0' + empty);
                empty = 0;
            }
            text += CodeToLetter[code];
        }
        if (empty > 0) {
            text += static_cast<char>('0' + empty);
        }
        if (rank > 0) {
            text += '/';
        }
    }
}

/// The field that the last move, a double step, jumped over.
std::optional<int> FieldJumpedOver(const TChessboard& board) {
    const TMove last = board.m_lastMove;
    if (board.m_pPrevious == nullptr || TypeOf(board.m_fields[last.to]) != TypePawn) {
        return std::nullopt;
    }
    const int step = IsWhite(board.m_fields[last.to]) ? 16 : -16;
    if (last.to - last.from != step) {
        return std::nullopt;
    }
    return last.to - step / 2;
}

}  // namespace

TFigureCode FigureTypeOfLetter(char letter) noexcept {
    switch (letter) {
        case 'K':
        case 'k':
            return TypeKing;
        case 'P':
        case 'p':
            return TypePawn;
        case 'B':
        case 'b':
        case 'G':
        case 'g':
            return TypeBishop;
        case 'R':
        case 'r':
        case 'W':
        case 'w':
            return TypeRook;
        case 'Q':
        case 'q':
        case 'H':
        case 'h':
            return TypeQueen;
        case 'N':
        case 'n':
        case 'S':
        case 's':
            return TypeKnight;
        default:
            return 0;
    }
}

TFigureCode FigureCodeFromLetter(char letter) {
    const TFigureCode type = FigureTypeOfLetter(letter);
    if (type == 0) {
        throw ChessException(UserText(UnknownFigureLetterText) + ToValidUtf8({&letter, 1}));
    }
    return type;
}

bool BeginsWithField(std::string_view text) noexcept {
    if (text.size() < 2) {
        return false;
    }
    const char file = text[0];
    const bool bFile = (file >= 'a' && file <= 'h') || (file >= 'A' && file <= 'H');
    return bFile && text[1] >= '1' && text[1] <= '8';
}

TField String2Field(std::string_view text) {
    if (!BeginsWithField(text)) {
        throw ChessException(UserText(FieldNameText) + ToValidUtf8(text));
    }
    const int file = text[0] >= 'a' ? text[0] - 'a' : text[0] - 'A';
    return FieldAt(file, text[1] - '1');
}

std::string FieldName(int field) {
    return {static_cast<char>('a' + FileOf(field)), static_cast<char>('1' + RankOf(field))};
}

bool ReadFen(TChessboard& board, std::string_view text, bool& bCastlingWithheld,
             bool& bEnPassantGiven) {
    const std::string_view fen = Trimmed(text);
    const std::string_view placement = WordOf(fen, 0);
    TChessboard read = EmptyChessboard();
    read.m_shPlies = read.m_shRootPlies = 1;
    if (!ReadPlacement(placement, read)) {
        return false;
    }
    PreparePosition(read, true);
    // Texts that leave fields out are common, so castling marks are looked for behind any blank.
    const std::string_view rest = fen.substr(placement.size());
    const std::string_view enPassant = WordOf(fen, 3);
    bCastlingWithheld = !rest.empty() && WithholdsCastling(rest, read);
    bEnPassantGiven = !enPassant.empty() && enPassant.front() != '-';
    board = read;
    return true;
}

std::string WriteFen(const TChessboard& board, bool bPlacementOnly) {
    std::string text;
    AppendPlacement(board, text);
    if (bPlacementOnly) {
        return text;
    }
    text += IsWhiteToMove(board) ? " w" : " b";
    std::string marks;
    for (const TCastlingMark& mark : CastlingMarks) {
        if (HasCastlingRight(board, mark.castling)) {
            marks += mark.letter;
        }
    }
    text += ' ' + (marks.empty() ? "-" : marks);
    const std::optional<int> jumpedOver = FieldJumpedOver(board);
    text += ' ' + (jumpedOver ? FieldName(*jumpedOver) : "-");
    const int moveNumber = (board.m_shRootPlies - board.m_shPlies) / 2 + 1;
    return text + " 0 " + std::to_string(moveNumber);
}

}  // namespace tarnwick
