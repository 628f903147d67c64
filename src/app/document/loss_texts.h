#pragma once
// What is said before problems go out in a form with fewer words than our own.

#include "base/language.h"

namespace tarnwick {

/// Number of problems, and a line for each.
inline constexpr TUserText ExportLossesText = {
    .pl =
        "Ten format nie pomieści wszystkiego. Liczba zadań, które coś stracą: %s\n\n%s\nCzy mimo "
        "to "
        "zapisać?",
    .en =
        "This format cannot hold everything. Problems that lose something: %s\n\n%s\nSave all the "
        "same?",
    .uk =
        "Цей формат не вміщує всього. Кількість задач, які щось втратять: %s\n\n%s\nУсе одно "
        "зберегти?"};
/// Number of the problem, and what it loses.
inline constexpr TUserText ExportLossText = {.pl = "%s: %s", .en = "%s: %s", .uk = "%s: %s"};
inline constexpr TUserText ExportLeftOutText = {
    .pl = "%s: pominięto (%s)", .en = "%s: left out (%s)", .uk = "%s: пропущено (%s)"};

inline constexpr const TUserText* AllLossTexts[] = {&ExportLossesText, &ExportLossText,
                                                    &ExportLeftOutText};

}  // namespace tarnwick
