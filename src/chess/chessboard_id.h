#pragma once
// The compact identifier of a position: its men as a string of bits, and the texts that name files.
//
// Castling and en passant are no part of it: they follow from the root position and the line of play.
// The bits run over the fields in order: 0 for an empty field, else 1 and the four bits of the figure's
// short code, lowest first. Bytes are filled from the lowest bit upward.

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "chess/chessboard.h"

namespace tarnwick {

class TChessboardId {
  public:
    static constexpr int ByteCapacity = 40;

    /// Throws ChessException "Unknown figure code" for a byte of the board that is no figure (the mark
    /// bit of a pawn does not count), and "Exception in TChessboardId" for 64 men: their 40 bytes would
    /// be full, and the text of such an identifier could not be read back.
    static TChessboardId Build(const TChessboard& board);

    /// Writes the figure codes of the 64 fields; bits behind them are not looked at. Throws
    /// ChessException "Wrong chessboard id" when the bits end too early, "Unknown figure short code" for
    /// a code that names no figure; the fields then stay as they were.
    void ToBoard(TFigureCode (&fields)[FieldCount]) const;

    /// Reads the text of ToAlphanum6. False when it holds any other character; throws ChessException
    /// "Exception in TChessboardId" when it is longer than an identifier can be. The identifier then
    /// stays as it was. As the text has whole characters, up to five zero bits more are read than
    /// were written.
    bool FromAlphanum6(std::string_view text);

    int BitCount() const { return m_shBits; }
    /// All 40 bytes; what lies beyond BitCount is zero.
    std::span<const std::uint8_t, ByteCapacity> Bytes() const { return m_bytes; }

  private:
    void AppendBits(unsigned value, int count);

    std::int16_t m_shBits = 0;
    std::array<std::uint8_t, ByteCapacity> m_bytes{};
};

/// Six bits a character, lowest first: 0-9 a-z A-Z ( ).
std::string ToAlphanum6(const TChessboardId& id);

/// Five bits a character, lowest first: 0-9 a-v. bitCount is at most 8 * bytes.size().
std::string ToAlphanum5(std::span<const std::uint8_t> bytes, int bitCount);

/// ToAlphanum5 of one bit for each letter of the text, 1 for upper case; empty if there is no letter.
/// Beside the text it tells two names apart where the file system ignores case.
std::string CaseBitsToAlphanum5(std::string_view text);

// Files of a position, below the working directory: the text of the identifier, a full stop, its case
// bits, the extension. Folders are parted by backslashes; who opens a file puts its own system's sign.
inline constexpr const char* SolvedProblemsFolder = ".\\SolvedProblemsDB\\";
inline constexpr const char* TablebaseAnswersFolder = ".\\SavedTmpSyzygyData\\";

std::string SolvedProblemName(const TChessboardId& id);
std::string UnfinishedProblemName(const TChessboardId& id);
std::string TablebaseAnswersName(const TChessboardId& id);

/// The letters of a position type of the precalculated data, one a man beside the kings, as "QRr". The
/// type's number holds a digit of four bits for each man, the last man lowest, above one bit that is
/// not part of the text. Empty for 0 and for a number with a digit that names no man.
std::string PositionTypeName(std::uint64_t typeNumber);

}  // namespace tarnwick
