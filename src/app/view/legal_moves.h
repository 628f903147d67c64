#pragma once
// The legal moves of the position on screen, for marks on the board and for moves that are typed.

#include "chess/legal_moves.h"  // IWYU pragma: export
