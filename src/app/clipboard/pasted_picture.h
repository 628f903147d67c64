#pragma once
// The position in a picture of a board.

#include "app/setup/position_faults.h"
#include "diagram/grey_image.h"

namespace tarnwick {

struct TPastedPicture {
    TSetupFields fields{};
    TFieldSet doubtful = 0;  ///< For the user to check.
};

/// Recognises the board. Throws ChessException with what the recogniser says against the picture.
TPastedPicture ReadPastedPicture(const TBitmap& bitmap);

/// The same seen in a mirror.
TPastedPicture Mirrored(const TPastedPicture& picture);

}  // namespace tarnwick
