#pragma once
// The board for screen readers and other assistive tools: 64 children, a1 to h8, each with the name of
// its field and man, its place on screen, its state and one action, which is what Enter does there.
// Changes are told as they happen; nothing is computed while nobody listens.

#include "chess/chessboard.h"

namespace tarnwick {

class CBoardWidget;

/// Makes boards accessible. Once for the process is enough; further calls do nothing.
void InstallBoardAccessibility();

/// Another position or language: the names of the fields changed, and the last move is announced.
void TellBoardChanged(CBoardWidget& widget);
/// Men were picked up or put down there.
void TellFieldsChanged(CBoardWidget& widget, TFieldSet fields);
/// The keyboard went to the field, or to none.
void TellCursorMoved(CBoardWidget& widget, int field);

}  // namespace tarnwick
