#pragma once
// What the user's hand does to a position that is being set up. Dragging, clicking and typing come here,
// so that they cannot come to differ:
//
//   a man of the palette dragged to a field      puts it there
//   a man of the palette clicked                 is the stamp: each click on a field puts it there
//   a man of the board dragged to another field  moves it; dragged off the board removes it
//   a right click on a field                     clears it
//   a click without a stamp                      confirms a doubtful field
//
// The window forwards the events, draws Held() at the mouse, and shows the position after each.

#include <optional>

#include "app/setup/position_setup.h"
#include "app/view/board_geometry.h"

namespace tarnwick {

class CSetupHand {
  public:
    explicit CSetupHand(CPositionSetup& setup) : m_setup(setup) {}

    /// The mode begins or ends: nothing is held, no stamp.
    void Reset();

    // The mouse. Field: 0 to 63; NoFieldUnderMouse beside the board.

    /// Left button on a man of the palette, or on the eraser (EmptyField).
    void PressPalette(TFigureCode man);
    void PressBoard(int field, bool bRightButton);
    /// bOverPalette: over the place that was pressed in the palette, which makes it a click.
    void Release(int field, bool bOverPalette);
    /// What is held goes back to where it was.
    void DropHeld();

    // The keyboard.

    /// Enter on a field: a click.
    void Click(int field);
    /// Chooses the stamp, or gives it up if it is chosen already; the eraser is EmptyField.
    void ToggleStamp(TFigureCode man);
    void DropStamp() { m_stamp.reset(); }

    /// The man that follows the mouse; EmptyField for none.
    TFigureCode Held() const;
    /// The field whose man is being dragged, drawn faintly; NoFieldUnderMouse for none.
    int HeldFrom() const { return m_from; }
    std::optional<TFigureCode> Stamp() const { return m_stamp; }

  private:
    CPositionSetup& m_setup;
    std::optional<TFigureCode> m_stamp;
    std::optional<TFigureCode> m_fromPalette;  ///< Pressed in the palette.
    int m_from = NoFieldUnderMouse;            ///< Pressed on the board.
};

/// The man of a typed letter, capital for White: English, Polish, and Ukrainian with К for the knight and
/// Р for the king, as only one of them can have the first letter of both. EmptyField for any other.
TFigureCode ManOfLetter(char32_t letter);

}  // namespace tarnwick
