#pragma once
// What the analysis says of a position, in the user's words.

#include "base/language.h"

namespace tarnwick {

inline constexpr TUserText FreeKingText = {
    .pl = "czarny król ma dużo miejsca, a czarne mają niewiele poza nim",
    .en = "the black king has room, and Black has little else",
    .uk = "чорний король має багато місця, а крім нього в чорних мало що є"};
inline constexpr TUserText FiguresToSpareText = {
    .pl = "białe mogą poświęcić figurę",
    .en = "White can afford to lose a figure",
    .uk = "білі можуть собі дозволити втратити фігуру"};
inline constexpr TUserText OppositeBishopsText = {
    .pl = "gońce różnopolowe", .en = "bishops of opposite colours", .uk = "різнопольні слони"};
inline constexpr TUserText BlackAheadText = {.pl = "czarne mają przewagę materialną",
                                             .en = "Black is ahead in material",
                                             .uk = "чорні мають матеріальну перевагу"};
inline constexpr TUserText BareBlackKingText = {.pl = "czarne mają tylko króla",
                                                .en = "Black has only the king",
                                                .uk = "чорні мають лише короля"};
inline constexpr TUserText SafeModeForcedText = {.pl = "tryb szybki przeoczyłby tu zbyt wiele",
                                                 .en = "quick mode would overlook too much here",
                                                 .uk = "швидкий режим забагато б тут пропустив"};

}  // namespace tarnwick
