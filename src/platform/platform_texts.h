#pragma once

// What this folder says to the user.

#include "base/language.h"

namespace tarnwick {

/// Followed by the file's name, ": " and the system's reason.
inline constexpr TUserText TextCannotSaveFile = {
    .pl = "Nie można zapisać pliku ",
    .en = "Cannot save file ",
    .uk = "Не вдалося зберегти файл ",
};

inline constexpr TUserText TextNotAPlainFile = {
    .pl = "to nie jest zwykły plik",
    .en = "it is not a plain file",
    .uk = "це не звичайний файл",
};

}  // namespace tarnwick
