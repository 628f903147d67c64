#pragma once
// Reads the position from a picture of a diagram: of a book, a web page or another program, with White below.
// Pictures of all sizes; the board may be anywhere in it, with or without coordinates and frame. No state: any
// thread may call it.

#include <array>

#include "chess/figure_codes.h"
#include "diagram/board_frame.h"
#include "diagram/field_images.h"
#include "diagram/grey_image.h"

namespace tarnwick {

struct TRecognizedField {
    TFigureCode man = EmptyField;
    TFigureCode secondMan = EmptyField;  ///< What else it may be; never equal to man.
    bool bDoubtful = false;              ///< The user should look at this field.
};

struct TRecognizedDiagram {
    std::array<TRecognizedField, 64> fields;  ///< By field number, a1 = 0.
    TBoardFrame frame;                        ///< The eight by eight fields, pixels of the picture.
    int lightThreshold = 0;                   ///< See LightThreshold.
    TGreyLevels levels;                       ///< Grey values of the board's black and white.
};

/// Throws ChessException: UnknownPictureFormatText unless the picture has 32 bits a pixel, NotRecognizedText if
/// there is no board in it or its sizes and bytes do not fit each other.
///
/// Chess decides where shapes leave a choice: no pawn on the first or last rank, one king a side. What was
/// changed for that, and the least sure men of a side that has too many, are doubtful. A side whose king is
/// nowhere to be seen stays without.
TRecognizedDiagram RecognizeDiagram(const TBitmap& bitmap);

}  // namespace tarnwick
