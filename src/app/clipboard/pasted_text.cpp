#include "app/clipboard/pasted_text.h"

#include <algorithm>

#include "base/chess_exception.h"
#include "base/filled_text.h"

#include "app/clipboard/clipboard_texts.h"
#include "app/document/move_refusal.h"
#include "app/document/played_line.h"
#include "app/document/problem_state.h"
#include "chess/fen.h"
#include "chess/field_transforms.h"
#include "engine/heuristics/heuristic_names.h"
#include "problems/cp_file_reader.h"
#include "problems/cp_lexer.h"
#include "problems/problem_list.h"

namespace tarnwick {
namespace {

constexpr std::string_view Blanks = " \t\r\n\f\v";

TSetupFields FieldsOf(const TChessboard& board) {
    TSetupFields fields{};
    std::ranges::copy(board.m_fields, fields.begin());
    return fields;
}

void RefuseFaults(const TSetupFields& fields) {
    const TPositionFault fault = AllFaults(FaultsOfPosition(fields));
    if (!fault.text.empty()) {
        throw ChessException(fault.text);
    }
}

/// Cuts the next word off the rest; empty at the end.
std::string_view NextWord(std::string_view& rest) {
    rest.remove_prefix(std::min(rest.find_first_not_of(Blanks), rest.size()));
    const std::string_view word = rest.substr(0, rest.find_first_of(Blanks));
    rest.remove_prefix(word.size());
    return word;
}

// A problem.

/// As the text of a file: what comes from a clipboard is UTF-8, whether or not a mark says so.
std::string FileText(std::string_view text) {
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    constexpr std::string_view mark = "UTF-8";
    text.remove_prefix(text.starts_with(byteOrderMark) ? byteOrderMark.size() : 0);
    text.remove_prefix(std::min(text.find_first_not_of(Blanks), text.size()));
    text.remove_prefix(text.starts_with(mark) ? mark.size() : 0);
    return std::string(mark) + "\n" + std::string(text);
}

/// False if the text cannot be a problem at all. Throws if it looks like one and is not.
bool ReadPastedProblem(std::string_view text, TPastedText& pasted) {
    if (text.find('{') == std::string_view::npos) {
        return false;
    }
    TProblemList problems;
    std::optional<int> first;
    TCpReadOptions options;
    options.heuristicBitOfName = &HeuristicBitOfName;
    options.onProblem = [&](const TChessProblem& problem, std::size_t /*position*/) {
        pasted.bMoreProblems = first.has_value();
        first = first.value_or(problem.m_id);
    };
    try {
        ReadProblemText(FileText(text), "", problems, options);
    } catch (const ChessException&) {
        if (!first) {
            throw;
        }
    }
    if (!first) {
        return false;
    }
    RefuseFaults(FieldsOf(*problems.Find(*first)->m_pBoard));
    pasted.pProblem = problems.Remove(*first);
    return true;
}

// A FEN code.

bool MayStandInPlacement(char c) {
    return c == '/' || IsCpAlphanumeric(c);
}

bool IsOf(std::string_view word, std::string_view characters) {
    return !word.empty() && word.find_first_not_of(characters) == std::string_view::npos;
}

/// The side, castlings and en-passant field behind a placement, as far as they are there: a word of the
/// text behind them must not count as a castling because it has a K.
std::string FieldsBehindPlacement(std::string_view rest) {
    std::string fields;
    const std::string_view side = NextWord(rest);
    if (side != "w" && side != "b") {
        return fields;
    }
    fields = " " + std::string(side);
    const std::string_view castlings = NextWord(rest);
    if (!IsOf(castlings, "KQkq") && castlings != "-") {
        return fields;
    }
    fields += " " + std::string(castlings);
    std::string_view enPassant = NextWord(rest);
    enPassant = enPassant.substr(0, enPassant.find_last_not_of("\"]);,.") + 1);
    const bool bField = enPassant.size() == 2 && BeginsWithField(enPassant);
    return bField || enPassant == "-" ? fields + " " + std::string(enPassant) : fields;
}

/// The first word that is a position. False without any; throws what is wrong with the last one that has
/// the form of a position and is none.
bool ReadPastedFen(std::string_view text, TPastedText& pasted) {
    std::string fault;
    for (auto at = text.begin(); at != text.end();) {
        const auto begin = std::find_if(at, text.end(), MayStandInPlacement);
        at = std::find_if_not(begin, text.end(), MayStandInPlacement);
        const std::string_view placement(begin, at);
        if (std::ranges::count(placement, '/') != 7) {
            continue;
        }
        TChessboard board = EmptyChessboard();
        bool bWithheld = false;
        bool bEnPassant = false;
        try {
            const std::string fen =
                std::string(placement) + FieldsBehindPlacement({at, text.end()});
            if (ReadFen(board, fen, bWithheld, bEnPassant)) {
                RefuseFaults(FieldsOf(board));
                pasted.fields = FieldsOf(board);
                pasted.bFenNote = bWithheld || bEnPassant;
                return true;
            }
        } catch (const ChessException& error) {
            fault = error.what();
        }
    }
    if (!fault.empty()) {
        throw ChessException(fault);
    }
    return false;
}

// Moves.

/// Without the number in front and the signs behind; empty for what is no move, like "12." or a result.
std::string_view MoveOfWord(std::string_view word) {
    constexpr std::string_view digits = "0123456789";
    const std::size_t number = std::min(word.find_first_not_of(digits), word.size());
    const std::size_t dots = std::min(word.find_first_not_of('.', number), word.size());
    if (dots > number || number == word.size()) {
        word.remove_prefix(dots);
    }
    word = word.substr(0, word.find_last_not_of(",;.") + 1);
    const bool bNoMove = word == "*" || word == "1-0" || word == "0-1" || word == "1/2-1/2";
    return bNoMove ? std::string_view() : word;
}

/// "Main variant: 1.Qd1-d8" has its moves behind the colon.
std::string_view WithoutName(std::string_view text) {
    const std::size_t colon = text.find(": ");
    return colon == std::string_view::npos ? text : text.substr(colon + 2);
}

TMove PlayWord(std::string_view word, CPlayedLine& line) {
    const TMove move = MoveOfTypedText(line.Board(), word);
    const TMoveRefusal refusal = line.Play(move);
    if (refusal != TMoveRefusal::None) {
        throw ChessException(line.RefusalText(refusal, move));
    }
    return move;
}

std::vector<TMove> ReadMoves(std::string_view rest, CPlayedLine& line) {
    std::vector<TMove> moves;
    for (std::string_view word = NextWord(rest); !word.empty(); word = NextWord(rest)) {
        // A word too long for a message is no move either, and refusals quote it.
        const std::string text = CCpLexer("", true).ForMessage(MoveOfWord(word));
        if (text.empty()) {
            continue;
        }
        try {
            moves.push_back(PlayWord(text, line));
        } catch (const ChessException& error) {
            throw ChessException(FilledText(NoPositionFoundText, {text, error.what()}));
        }
    }
    return moves;
}

void Mirror(std::vector<TMove>& moves) {
    for (TMove& move : moves) {
        TransformMove(TTransform::Mirror, move);
    }
}

/// Reads on a line of its own, which begins where the user's line stands: all moves can be made or none.
void ReadPastedMoves(std::string_view text, const TChessProblem& problem, const CPlayedLine& line,
                     bool bMirror, TPastedText& pasted) {
    TChessProblem start;
    RestoreState(start, StateOf(problem));
    std::vector<TMove> played = line.Moves(line.Ply());
    if (bMirror) {
        MirrorPosition(start);
        Mirror(played);
    }
    const auto read = [&](std::string_view words) {
        CPlayedLine trial;
        trial.Start(start);
        trial.SetMoves(played);
        trial.GoTo(static_cast<int>(played.size()));
        return ReadMoves(words, trial);
    };
    try {
        pasted.moves = read(text);
    } catch (const ChessException&) {
        if (WithoutName(text).size() == text.size()) {
            throw;
        }
        pasted.moves = read(WithoutName(text));
    }
    if (bMirror) {
        Mirror(pasted.moves);
    }
}

}  // namespace

TPastedText ReadPastedText(std::string_view text, const TChessProblem* pProblem,
                           const CPlayedLine& line, bool bMirror) {
    TPastedText pasted;
    std::string reason;
    if (text.size() > MaxPastedText) {
        throw ChessException(UserText(TooBigToPasteText));
    }
    const auto tried = [&](auto read) {
        try {
            return read();
        } catch (const ChessException& error) {
            reason = reason.empty() ? error.what() : reason;
            return false;
        }
    };
    if (tried([&] { return ReadPastedProblem(text, pasted); }) ||
        tried([&] { return ReadPastedFen(text, pasted); })) {
        return pasted;
    }
    const bool bMoves = pProblem != nullptr && tried([&] {
                            ReadPastedMoves(text, *pProblem, line, bMirror, pasted);
                            return !pasted.moves.empty();
                        });
    if (!bMoves) {
        throw ChessException(UserText(OperationFailedText) + (reason.empty() ? "" : "\n" + reason));
    }
    return pasted;
}

TTransformNotes MirrorPasted(TChessProblem& problem) {
    // The same in all languages, as files travel. A description keeps no blank at its end.
    constexpr std::wstring_view prefix = L"Mirror:";
    const TTransformNotes notes = MirrorPosition(problem);
    const std::wstring& description = problem.m_description;
    SetDescription(problem, description.starts_with(prefix) ? description.substr(prefix.size())
                                                            : L"Mirror: " + description);
    return notes;
}

}  // namespace tarnwick
