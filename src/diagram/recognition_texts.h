#pragma once
// What the recogniser of diagrams says to the user.

#include "base/language.h"

namespace tarnwick {

inline constexpr TUserText UnknownPictureFormatText = {.pl = "Program nie obsługuje tego formatu",
                                                       .en = "Program is unable handle this format",
                                                       .uk = "Програма не підтримує цей формат"};
inline constexpr TUserText NotRecognizedText = {.pl = "Obraz nie został prawidłowo rozpoznany",
                                                .en = "Image was not recognized properly",
                                                .uk = "Зображення не вдалося розпізнати як слід"};

inline constexpr const TUserText* AllRecognitionTexts[] = {&UnknownPictureFormatText,
                                                           &NotRecognizedText};

}  // namespace tarnwick
