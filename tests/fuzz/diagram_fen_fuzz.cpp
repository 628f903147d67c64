// Any bytes as a picture file: there is a FEN in it that ReadFen takes, or there is none; and a picture that
// takes a FEN gives it back.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "base/chess_exception.h"

#include "chess/fen.h"
#include "diagram/diagram_fen.h"
#include "diagram/picture_frames.h"

namespace {

using namespace tarnwick;

constexpr const char* SomeFen = "7k/8/5K2/8/8/8/8/6R1 b - - 3 40";

void Require(bool bLawHolds) {
    if (!bLawHolds) {
        std::abort();
    }
}

void RequirePosition(const std::string& fen) {
    TChessboard board = EmptyChessboard();
    bool bWithheld = false;
    bool bEnPassant = false;
    Require(ReadFen(board, fen, bWithheld, bEnPassant));
}

void RequireFrames(std::string_view bytes) {
    const std::string framed = PictureFrame(bytes);
    std::string_view rest = framed;
    Require(TakePictureFrame(rest) == bytes && rest.empty());
    while (TakePictureFrame(bytes)) {
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    if (const auto fen = ReadDiagramFen(bytes)) {
        RequirePosition(*fen);
    }
    try {
        Require(ReadDiagramFen(AddFenToPng(bytes, SomeFen)) == SomeFen);
    } catch (const ChessException&) {
        // No picture, or one without its head.
    }
    RequireFrames(bytes);
    return 0;
}
