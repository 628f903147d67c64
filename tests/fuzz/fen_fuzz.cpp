// Any bytes as FEN: they are refused, or give a position that is written, drawn and read again without
// a difference.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "base/chess_exception.h"

#include "chess/board_text.h"
#include "chess/fen.h"

namespace {

using namespace tarnwick;

void Require(bool bLawHolds) {
    if (!bLawHolds) {
        std::abort();
    }
}

void RequireSameWhenReadAgain(const std::string& text, const std::string& placement) {
    TChessboard board = EmptyChessboard();
    bool bWithheld = true;
    bool bEnPassant = true;
    Require(ReadFen(board, text, bWithheld, bEnPassant));
    Require(!bWithheld && !bEnPassant && WriteFen(board, true) == placement);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    TChessboard board = EmptyChessboard();
    bool bWithheld = false;
    bool bEnPassant = false;
    try {
        if (!ReadFen(board, text, bWithheld, bEnPassant)) {
            return 0;
        }
    } catch (const ChessException&) {
        Require(WriteFen(board, true) == "8/8/8/8/8/8/8/8");
        return 0;
    }
    const std::string placement = WriteFen(board, true);
    RequireSameWhenReadAgain(placement, placement);
    RequireSameWhenReadAgain(WriteFen(board, false), placement);
    for (const TBoardStyle style : {TBoardStyle::Ascii, TBoardStyle::Figures}) {
        Require(std::ranges::count(DrawBoard(board, style), '\n') == 11);
    }
    return 0;
}
