#pragma once
// What is said to the user about pictures that are written and read again.

#include "base/language.h"

namespace tarnwick {

inline constexpr TUserText NotAPngText = {
    .pl = "To nie jest obraz PNG", .en = "This is no PNG picture", .uk = "Це не зображення PNG"};

inline constexpr const TUserText* AllPictureTexts[] = {&NotAPngText};

}  // namespace tarnwick
