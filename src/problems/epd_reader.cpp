#include "problems/epd_reader.h"

#include <algorithm>
#include <charconv>
#include <optional>

#include "base/encoding.h"

#include "chess/fen.h"
#include "chess/field_transforms.h"
#include "chess/notation_texts.h"
#include "chess/trimmed_text.h"
#include "problems/cp_lexer.h"
#include "problems/problem_texts.h"

namespace tarnwick {
namespace {

constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";
constexpr std::size_t MaxShownBytes = 200;

/// What the operations of a line say.
struct TEpdOperations {
    std::optional<int> moves;  ///< Negative: the side to move is mated.
    std::string_view id;
    std::vector<std::string> passedOver;
};

[[noreturn]] void Throw(const TUserText& text) {
    throw ChessException(UserText(text));
}

std::string ForMessage(std::string_view text) {
    return ToValidUtf8(text.substr(0, MaxShownBytes));
}

bool IsNumber(std::string_view word) {
    return !word.empty() && word.find_first_not_of("0123456789") == std::string_view::npos;
}

/// Cuts the next word off; empty at the end.
std::string_view TakeWord(std::string_view& rest) {
    rest = Trimmed(rest);
    const std::string_view word = rest.substr(0, rest.find_first_of(Blanks));
    rest.remove_prefix(word.size());
    return word;
}

/// Some collections keep the two move counters of a FEN.
void SkipCounters(std::string_view& rest) {
    for (int i = 0; i < 2; ++i) {
        std::string_view behind = rest;
        if (!IsNumber(TakeWord(behind))) {
            return;
        }
        rest = behind;
    }
}

/// Cuts the next operation, up to its semicolon, off; a semicolon in a quoted text does not count.
std::string_view TakeOperation(std::string_view& rest) {
    bool bInQuotes = false;
    std::size_t end = 0;
    for (; end < rest.size() && (bInQuotes || rest[end] != ';'); ++end) {
        bInQuotes = bInQuotes != (rest[end] == '"');
    }
    if (bInQuotes) {
        Throw(EpdUnclosedTextText);
    }
    const std::string_view operation = rest.substr(0, end);
    rest.remove_prefix(std::min(end + 1, rest.size()));
    return operation;
}

/// N of "#N" or "#-N".
int MovesToMate(std::string_view operand) {
    operand.remove_prefix(1);
    int moves = 0;
    const auto [end, error] = std::from_chars(operand.begin(), operand.end(), moves);
    const bool bInRange =
        moves != 0 && moves >= -MaxStipulationMoves && moves <= MaxStipulationMoves;
    if (error != std::errc{} || end != operand.end() || !bInRange) {
        throw ChessException(InvalidNumberMessage(1, MaxStipulationMoves, ForMessage(operand)));
    }
    return moves;
}

TEpdOperations ReadOperations(std::string_view rest) {
    TEpdOperations operations;
    while (!Trimmed(rest).empty()) {
        std::string_view operand = TakeOperation(rest);
        const std::string_view opcode = TakeWord(operand);
        operand = Trimmed(operand);
        // bm may name moves as well.
        if (opcode == "bm" && !operations.moves && operand.starts_with('#')) {
            operations.moves = MovesToMate(operand);
        } else if (opcode == "id") {
            const bool bQuoted = operand.size() >= 2 && operand.starts_with('"');
            operations.id = bQuoted ? operand.substr(1, operand.size() - 2) : operand;
        } else if (!opcode.empty()) {
            operations.passedOver.push_back(ForMessage(opcode));
        }
    }
    if (!operations.moves) {
        Throw(EpdNoMateText);
    }
    return operations;
}

std::unique_ptr<TChessProblem> MakeProblem(const TChessboard& board, int id,
                                           const TEpdOperations& operations) {
    auto pProblem = std::make_unique<TChessProblem>();
    pProblem->m_id = id;
    SetDescription(*pProblem, FromUtf8(operations.id));
    *pProblem->m_pBoard = board;
    SetPlies(*pProblem, PliesOfStipulation(TProblemType::DirectMate, *operations.moves));
    pProblem->m_originalBoard = *pProblem->m_pBoard;
    return pProblem;
}

void ReadLine(std::string_view line, int nLine, int id, TEpdFile& file) {
    std::string_view rest = line;
    TakeWord(rest);
    const std::string_view side = TakeWord(rest);
    TakeWord(rest);
    TakeWord(rest);
    const std::string_view fen = line.substr(0, line.size() - rest.size());
    TChessboard board = EmptyChessboard();
    bool bCastlingWithheld = false;
    bool bEnPassantGiven = false;
    if (!ReadFen(board, fen, bCastlingWithheld, bEnPassantGiven)) {
        Throw(EpdNoFenText);
    }
    if (side != "w" && side != "b") {
        throw ChessException(UserText(EpdNoSideText) + ForMessage(side));
    }
    SkipCounters(rest);
    const TEpdOperations operations = ReadOperations(rest);
    if (*operations.moves < 0) {
        std::string note = UserText(EpdNegativeText);
        note += '#';
        note += std::to_string(*operations.moves);
        file.notes.push_back({nLine, std::move(note)});
        return;
    }
    if (bCastlingWithheld || bEnPassantGiven) {
        file.notes.push_back({nLine, UserText(FenNoteText)});
    }
    const bool bBlackMates = side == "b";
    if (bBlackMates) {
        TransformPosition(TTransform::SwapColours, board);
    }
    file.problems.push_back(
        {MakeProblem(board, id, operations), nLine, bBlackMates, operations.passedOver});
}

}  // namespace

void ReadEpdFile(const std::filesystem::path& path, TEpdFile& file) {
    ReadEpdText(ReadFileText(path), FileNameForMessage(path), file);
}

void ReadEpdText(std::string_view text, const std::string& fileName, TEpdFile& file) {
    if (text.starts_with(ByteOrderMark)) {
        text.remove_prefix(ByteOrderMark.size());
    }
    int id = 0;
    for (int nLine = 1; !text.empty(); ++nLine) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        const std::string_view line = Trimmed(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
        if (line.empty()) {
            continue;
        }
        try {
            ReadLine(line, nLine, ++id, file);
        } catch (const ChessException& e) {
            throw TProblemFileError(fileName, nLine, e.what());
        }
    }
}

}  // namespace tarnwick
