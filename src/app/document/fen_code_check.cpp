// CheckFenCodes of problem_merge.h.

#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include "base/chess_exception.h"
#include "base/filled_text.h"
#include "platform/atomic_file.h"

#include "app/document/document_texts.h"
#include "app/document/problem_merge.h"
#include "app/document/same_positions.h"
#include "chess/fen.h"
#include "problems/cp_lexer.h"
#include "problems/file_text.h"

namespace tarnwick {
namespace {

namespace fs = std::filesystem;

bool MayStandInFen(char c) {
    return c == '/' || IsCpAlphanumeric(c);
}

/// A word that is no position at all costs no more than its letters.
bool ReadPlacement(std::string_view word, TChessboard& board) {
    if (std::ranges::count(word, '/') != 7) {
        return false;
    }
    bool bCastlingWithheld = false;
    bool bEnPassantGiven = false;
    try {
        return ReadFen(board, word, bCastlingWithheld, bEnPassantGiven);
    } catch (const ChessException&) {
        return false;  // well written, but two kings or the like
    }
}

struct TFoundPositions {
    std::set<std::string> all;         ///< Their placements; each position counts once.
    std::vector<std::string> missing;  ///< FEN of those that no problem has, in the text's order.
};

TFoundPositions FindPositions(std::string_view text, const TProblemsByPosition& here) {
    TFoundPositions found;
    TChessboard board = EmptyChessboard();
    auto at = text.begin();
    while (at != text.end()) {
        const auto begin = std::find_if(at, text.end(), MayStandInFen);
        const auto end = std::find_if_not(begin, text.end(), MayStandInFen);
        at = end;
        if (!ReadPlacement({begin, end}, board)) {
            continue;
        }
        const std::string_view placement = PlacementOf(board);
        if (found.all.emplace(placement).second && !here.contains(placement)) {
            found.missing.push_back(WriteFen(board, true));
        }
    }
    return found;
}

std::string Lines(const std::vector<std::string>& words) {
    std::string lines;
    for (const std::string& word : words) {
        lines += word + '\n';
    }
    return lines;
}

}  // namespace

bool CheckFenCodes(const CDocument& document, const fs::path& path, const TFileHost& host) {
    if (!host.dialog.Ask(UserText(SearchFenText))) {
        return false;
    }
    fs::path listPath = path;
    listPath += ".FENNotFound.txt";
    try {
        const TFoundPositions found =
            FindPositions(ReadFileText(path), ProblemsByPosition(document.Problems()));
        if (found.all.empty()) {
            host.dialog.Tell(UserText(NoFenFoundText));
        } else if (found.missing.empty()) {
            host.dialog.Tell(UserText(AllFenPresentText));
        } else {
            SaveFileAtomically(listPath, Lines(found.missing));
            host.dialog.Tell(FilledText(FenMissingText, {std::to_string(found.all.size()),
                                                         std::to_string(found.missing.size()),
                                                         FileNameForMessage(listPath)}));
        }
    } catch (const ChessException& error) {
        host.dialog.Tell(error.what());
        return false;
    }
    return true;
}

}  // namespace tarnwick
