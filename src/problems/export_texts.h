#pragma once
// What is said to the user about problems that go out in forms with fewer words than our own.

#include "base/language.h"

namespace tarnwick {

// What one problem loses: parts of a list with commas.
inline constexpr TUserText LostTagsText = {.pl = "etykiety", .en = "tags", .uk = "мітки"};
inline constexpr TUserText LostVariantsText = {
    .pl = "warianty", .en = "variants", .uk = "варіанти"};
inline constexpr TUserText LostOptionsText = {
    .pl = "opcje zadania", .en = "options of the problem", .uk = "параметри задачі"};
inline constexpr TUserText LostSortIndicationsText = {.pl = "wskazówki kolejności posunięć",
                                                      .en = "hints on the order of moves",
                                                      .uk = "вказівки щодо порядку ходів"};
inline constexpr TUserText LostQuotesText = {
    .pl = "cudzysłowy w opisie", .en = "quotation marks of the description", .uk = "лапки в описі"};
/// The variant's name, and the move that cannot be played.
inline constexpr TUserText LostVariantEndText = {
    .pl = "wariant \"%s\" od nielegalnego posunięcia %s",
    .en = "the variant \"%s\" from the illegal move %s on",
    .uk = "варіант \"%s\" від неможливого ходу %s"};
inline constexpr TUserText LostKeyText = {.pl = "nielegalne rozwiązanie %s",
                                          .en = "the illegal answer %s",
                                          .uk = "неможлива відповідь %s"};

// Why a problem is left out.
inline constexpr TUserText EpdMatesOnlyText = {.pl = "zapis EPD zna tylko zadania na mata",
                                               .en = "EPD has a form for direct mates only",
                                               .uk = "запис EPD знає лише задачі на мат"};

inline constexpr const TUserText* AllExportTexts[] = {
    &LostTagsText,   &LostVariantsText,   &LostOptionsText, &LostSortIndicationsText,
    &LostQuotesText, &LostVariantEndText, &LostKeyText,     &EpdMatesOnlyText};

}  // namespace tarnwick
