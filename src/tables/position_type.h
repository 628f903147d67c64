#pragma once
// Position types: which men a table of precalculated data is about.
//
// A type is written as one letter for each man beside the two kings, White's in upper case first, each
// side in the order Q R B N P: "Qr", "RBp", "NNn". Its key packs the same into a number. Kings alone
// have the empty type, the key 0 and no table.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "chess/chessboard.h"

namespace tarnwick {

/// Longest type: seven men on the board.
inline constexpr std::size_t MaxTypeLetters = 5;

/// The letters by their digits in a key, from 1. X and x count in the size rule alone: no board has them.
inline constexpr std::string_view TypeLetters = "QRBNPqrbnpXx";

/// The figure of a letter of a type, kings included; EmptyField for any other sign.
TFigureCode FigureOfLetter(char letter) noexcept;
/// The letter of a figure, 'Q' or 'q'; 0 for an empty field.
char LetterOfFigure(TFigureCode code) noexcept;

/// The type of the men on a board; empty for kings alone and for more than five men beside them.
std::string PositionTypeOf(const TChessboard& board);
/// Its key, without any text: 0 where there is no type. Never allocates.
std::uint64_t PositionTypeId(const TChessboard& board) noexcept;
/// The key of a type that is written in its proper order. PositionTypeName (chessboard_id.h) reads it back.
std::uint64_t PositionTypeId(std::string_view type) noexcept;

/// The type with its letters in order: "rQ" and "Qr" are "Qr". Throws ChessException for no letter, more
/// than five, or a sign that is no man.
std::string OrderedType(std::string_view letters);

/// The type without the first occurrence of the letter; throws ChessException if it has none.
std::string RemoveFromPosType(const std::string& type, char letter);

/// Compares beginnings only: the place of the last letter when the other type is this one without it,
/// -1 otherwise, also where a letter is missing inside. Throws ChessException unless the lengths differ
/// by one.
int GetIndexToRemoveToObtainOtherPosType(const std::string& type, const std::string& other);

/// Whether a pawn stands before any '+'.
bool HasPawns(std::string_view type) noexcept;

/// White cannot force mate, or so rarely that material and a short search tell: no table is asked for.
bool IsPositionTypeWithoutData(std::string_view type) noexcept;

/// Types that one capture, one promotion or both at once may lead to, each once, without the empty one.
std::vector<std::string> TypesReachedFrom(const std::string& type);

/// All types of so many letters, 1 to 5, those with pawns or those without, in the order in which disks
/// are verified: the last letter runs fastest through Q R B N P q r b n p.
std::vector<std::string> AllTypes(int letters, bool bWithPawns);

}  // namespace tarnwick
