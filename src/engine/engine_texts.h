#pragma once
// The engine's user texts.

#include "base/language.h"

namespace tarnwick {

inline constexpr TUserText StipulationTooLongText = {
    .pl = "Zadanie jest za długie: program rozwiązuje maty do 300 posunięć.",
    .en = "The stipulation is too long: the engine solves mates in up to 300 moves.",
    .uk = "Завдання задовге: програма розв'язує мати до 300 ходів."};
inline constexpr TUserText StipulationTooShortText = {
    .pl = "Zadanie musi mieć co najmniej jedno posunięcie.",
    .en = "The stipulation must be at least one move.",
    .uk = "Завдання мусить мати принаймні один хід."};
inline constexpr TUserText StoppedOnDualText = {
    .pl = "Poszukiwanie rozwiązań zostało zatrzymane po wykryciu dualu.",
    .en = "Search for solutions has been stopped after detection of dual.",
    .uk = "Пошук розв'язків зупинено після виявлення дуалі."};
inline constexpr TUserText StoppedOnThreeText = {
    .pl = "Poszukiwanie rozwiązań zostało zatrzymane po znalezieniu 3 rozwiązań",
    .en = "Search for solutions has been stopped after finding 3 solutions",
    .uk = "Пошук розв'язків зупинено після знаходження 3 розв'язків"};

}  // namespace tarnwick
