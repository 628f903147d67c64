#pragma once
// What the user reads about running and finished solves, beside the engine's own texts.

#include "base/language.h"

namespace tarnwick {

// Refused starts and questions.
inline constexpr TUserText SolvingPendingText = {.pl = "Trwa rozwiązywanie zadania.",
                                                 .en = "Solving is pending.",
                                                 .uk = "Триває розв'язування задачі."};
inline constexpr TUserText NoDirectMateText = {
    .pl = "Program rozwiązuje tylko zadania, w których białe zaczynają i dają mata.",
    .en = "The engine solves only problems in which White begins and mates.",
    .uk = "Програма розв'язує лише задачі, у яких білі починають і дають мат."};
inline constexpr TUserText NoThreadText = {.pl = "Nie można uruchomić wątku.",
                                           .en = "Cannot start a thread.",
                                           .uk = "Не вдається запустити потік."};
inline constexpr TUserText ThreadAdviceText = {
    .pl = "Silnik chce wymusić inną liczbę wątków (%d). Czy zgadzasz się na to?",
    .en = "Engine wants to force a different number of threads (%d). Do you accept it?",
    .uk = "Рушій хоче використати іншу кількість потоків (%d). Чи погоджуєтеся ви?"};
inline constexpr TUserText StopAllThreadsText = {
    .pl =
        "Wszystkie wątki poszukujące mata zostaną zatrzymane.\n"
        "Czy chcesz kontynuować?",
    .en = "All pending threads of mate search will be stopped.\nDo you want to continue?",
    .uk = "Усі потоки пошуку мату буде зупинено.\nПродовжити?"};

// The progress panel.
inline constexpr TUserText TablesText = {.pl = " GR=", .en = " GR=", .uk = " GR="};
inline constexpr TUserText ThreadsText = {.pl = " Wątki=", .en = " Thrds=", .uk = " Потоки="};
inline constexpr TUserText PassRunsText = {.pl = "trwa", .en = "running", .uk = "триває"};
inline constexpr TUserText PassFoundNothingText = {
    .pl = "nic nie znaleziono", .en = "nothing found", .uk = "нічого не знайдено"};
inline constexpr TUserText PassFoundText = {
    .pl = "rozwiązań: %d", .en = "solutions: %d", .uk = "розв'язків: %d"};
inline constexpr TUserText PausedText = {
    .pl = " (wstrzymano)", .en = " (paused)", .uk = " (пауза)"};

// What is known of the position on the board.
inline constexpr TUserText NoMateFromHereText = {.pl = "Brak mata w tej pozycji",
                                                 .en = "No mate in this position",
                                                 .uk = "У цій позиції немає мату"};
inline constexpr TUserText MateInPositionText = {.pl = "#%d w bieżącej pozycji",
                                                 .en = "#%d in current position",
                                                 .uk = "#%d у поточній позиції"};
inline constexpr TUserText MateInRegisterText = {
    .pl = "Rejestr tymcz.: #%d (lub krócej) w bieżącej pozycji",
    .en = "Temp.reg.: #%d (or less) in current position",
    .uk = "Тимчас. реєстр: #%d (або коротше) у поточній позиції"};
inline constexpr TUserText StalemateText = {.pl = "Pat", .en = "Stalemate", .uk = "Пат"};
inline constexpr TUserText ThreatText = {
    .pl = "groźba: %s (#%d)", .en = "threat: %s (#%d)", .uk = "загроза: %s (#%d)"};

inline constexpr const TUserText* AllSolvingTexts[] = {
    &SolvingPendingText,   &NoDirectMateText,   &NoThreadText,  &ThreadAdviceText,
    &StopAllThreadsText,   &TablesText,         &ThreadsText,   &PassRunsText,
    &PassFoundNothingText, &PassFoundText,      &PausedText,    &NoMateFromHereText,
    &MateInPositionText,   &MateInRegisterText, &StalemateText, &ThreatText};

}  // namespace tarnwick
