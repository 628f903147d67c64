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

inline constexpr TUserText ResultTitleText = {
    .pl = "Wynik poszukiwania mata", .en = "Mate search result", .uk = "Результат пошуку мату"};
inline constexpr TUserText ManySolutionsText = {.pl = "Znaleziono więcej niż jedno rozwiązanie: ",
                                                .en = "More than one solution found: ",
                                                .uk = "Знайдено більше одного розв'язку: "};
inline constexpr TUserText NoSolutionsText = {.pl = "Nie znaleziono rozwiązań zadania #",
                                              .en = "Not found any solutions for #",
                                              .uk = "Не знайдено розв'язків задачі #"};
inline constexpr TUserText NoteText = {
    .pl = "\n\nUwaga:\n", .en = "\n\nNote:\n", .uk = "\n\nПримітка:\n"};
inline constexpr TUserText NoRelaxationNote = {
    .pl =
        "\t* wykonano tylko jeden przebieg z heurystykami (rozluźnianie heurystyk wyłączono na "
        "życzenie użytkownika)\n",
    .en =
        "\t* there was only one pass with heuristcs (relaxation of heuristics was switched off by "
        "user's request)\n",
    .uk =
        "\t* виконано лише один прохід з евристиками (послаблення евристик вимкнено на бажання "
        "користувача)\n"};
inline constexpr TUserText NoFinalPassNote = {
    .pl = "\t* przebieg bez heurystyk pominięto (na życzenie użytkownika)\n",
    .en = "\t* pass without heuristics has been skipped (on user's request)\n",
    .uk = "\t* прохід без евристик пропущено (на бажання користувача)\n"};
inline constexpr TUserText QuickModeNote = {
    .pl =
        "\t* w trybie szybkim (menu Zaawansowane->Opcje) istnieje małe prawdopodobieństwo (~0.3%) "
        "przeoczenia rozwiązania\n",
    .en =
        "\t* in Quick Mode (see menu Advanced->Options) there exists a small probability (~0.3%) "
        "of "
        "false negatives\n",
    .uk =
        "\t* у швидкому режимі (меню Додатково->Параметри) існує мала ймовірність (~0.3%) "
        "пропустити розв'язок\n"};
inline constexpr TUserText StoppedByUserText = {.pl = "Analiza przerwana przez użytkownika",
                                                .en = "Analysis stopped by user",
                                                .uk = "Аналіз зупинено користувачем"};
inline constexpr TUserText EngineStoppedText = {
    .pl = "Zatrzymano silnik: ", .en = "Engine stopped: ", .uk = "Рушій зупинено: "};
inline constexpr TUserText EngineCompletedText = {.pl = "Silnik zakończył pracę: ",
                                                  .en = "Engine has completed: ",
                                                  .uk = "Рушій завершив роботу: "};
inline constexpr TUserText FromRegisterText = {
    .pl = " (z rejestru)", .en = " (from register)", .uk = " (з реєстру)"};
inline constexpr TUserText NoSolutionFoundText = {
    .pl = "Nie znaleziono rozwiązania", .en = "No solution found", .uk = "Розв'язку не знайдено"};
inline constexpr TUserText SecondsText = {.pl = " s", .en = " sec.", .uk = " с"};
inline constexpr TUserText FinalPassOffPanelNote = {
    .pl = " UWAGA: przebieg bez heurystyk jest teraz wyłączony (patrz okno wyboru heurystyk)",
    .en =
        " NOTE: Pass without heuristics is currently switched off (see heuristics selection dialog "
        "box)",
    .uk = " УВАГА: прохід без евристик зараз вимкнено (див. вікно вибору евристик)"};
inline constexpr TUserText ThreadSolvingText = {.pl = "Wątek rozwiązujący zadanie ",
                                                .en = "Thread solving problem ",
                                                .uk = "Потік, що розв'язує задачу "};
inline constexpr TUserText CompletedWellText = {.pl = " zakończył się pomyślnie.",
                                                .en = " completed successfully.",
                                                .uk = " завершився успішно."};
inline constexpr TUserText CompletedBadlyText = {.pl = " zakończył się błędem:",
                                                 .en = " completed with error:",
                                                 .uk = " завершився з помилкою:"};
inline constexpr TUserText NoSolutionOfText = {.pl = "Nie znaleziono rozwiązania zadania ",
                                               .en = "No solution found of the problem ",
                                               .uk = "Не знайдено розв'язку задачі "};
inline constexpr TUserText SolutionsOfText = {.pl = " - tyle znaleziono rozwiązań zadania ",
                                              .en = " solution(s) found of the problem ",
                                              .uk = " - стільки знайдено розв'язків задачі "};
inline constexpr TUserText OutOfMemoryText = {
    .pl = "Brak pamięci.", .en = "Out of memory.", .uk = "Бракує пам'яті."};
inline constexpr TUserText TooManyProblemsText = {
    .pl = "Zbyt wiele zadań jest rozwiązywanych jednocześnie.",
    .en = "Too many problems being solved at the same time.",
    .uk = "Забагато задач розв'язується одночасно."};
inline constexpr TUserText TooManyThreadsText = {
    .pl = "Za dużo wątków lub poziomów wielowątkowości.",
    .en = "Too many threads and/or multithreading levels.",
    .uk = "Забагато потоків або рівнів багатопотоковості."};

inline constexpr TUserText InitialCheckText = {.pl = "Wstępne sprawdzanie typu pozycji...",
                                               .en = "Initial position type check...",
                                               .uk = "Початкова перевірка типу позиції..."};
inline constexpr TUserText SafeModeText = {
    .pl = "Tryb bezpieczny WŁ. ", .en = "Safe mode ON ", .uk = "Безпечний режим УВІМК. "};
inline constexpr TUserText NoHeuristicsText = {.pl = "Nie wybrano żadnych heurystyk.",
                                               .en = "No heuristics selected.",
                                               .uk = "Не вибрано жодних евристик."};
inline constexpr TUserText PassHeadText = {.pl = "Przebieg ", .en = "Pass ", .uk = "Прохід "};
inline constexpr TUserText TimeDependentText = {
    .pl =
        "\n\n* rozluźnienie zależne od czasu (niedeterministyczne) - możliwe, ale następuje tylko "
        "wtedy, gdy wszystkie poprzednie przebiegi zakończą się w krótkim czasie",
    .en =
        "\n\n* time-dependent relaxation (non-deterministic) - possible, but actually occurs only "
        "if all previous passes are completed in a short time",
    .uk =
        "\n\n* послаблення, залежне від часу (недетерміноване) - можливе, але відбувається лише "
        "тоді, коли всі попередні проходи завершено за короткий час"};

}  // namespace tarnwick
