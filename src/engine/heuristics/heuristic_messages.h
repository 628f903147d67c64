#pragma once
// What is said to the user about settings of heuristics that contradict each other or cannot be read.
// The spelling of the English texts is fixed, slips included.

#include "base/language.h"

namespace tarnwick {

inline constexpr TUserText ExtEdgeConflictText = {
    .pl =
        "Konflikt heurystyk: wybierz tylko jedną z 'Nie wypuszczaj czarnego króla poza (pod)pas' i "
        "'(Nie pozwól czarnemu królowi) ruszać się, chyba że na pas'",
    .en =
        "Conflict of heuristics: select only one of 'Don't let black king out of (sub)band' and "
        "'(Don't let black king) move unless on band'",
    .uk =
        "Конфлікт евристик: виберіть лише одну з 'Не випускати чорного короля за (під)смугу' і "
        "'(Не давати чорному королю) ходити, хіба що на смугу'"};
inline constexpr TUserText KingMoveConflictText = {
    .pl =
        "Konflikt heurystyk (\"Nie daj ruszyć się czarnemu królowi\" oraz \"Nie wypuszczaj "
        "czarnego "
        "króla poza pas i/lub podpas\") ",
    .en =
        "Conflict of heuristics (\"Don't let black king move\" and \"Don't let black king out of "
        "band and/or subband\") ",
    .uk =
        "Конфлікт евристик (\"Не давати ходити чорному королю\" та \"Не випускати чорного короля "
        "за смугу і/або підсмугу\") "};
inline constexpr TUserText ExceptionsWithoutKingText = {
    .pl =
        "Heurystyka 'Nie daj ruszyć się czarnemu królowi' jest wyłączona, a 'dopuść wyj.' "
        "włączone.\nTo wymaga poprawienia.",
    .en =
        "Heuristics 'Don't let black king move' is off, while 'allow exc' is on.\nIt requires "
        "correction.",
    .uk =
        "Евристику 'Не давати ходити чорному королю' вимкнено, а 'дозв.винятки' увімкнено.\nЦе "
        "потребує виправлення."};
inline constexpr TUserText CornerDistanceText = {
    .pl =
        "Nieprawidłowa największa odległość od rogu w parametrze heurystyki 'Trzymaj króla przy "
        "rogu'",
    .en =
        "Invalid maximum distance from corner in the parameter of heuristics 'Keep king near "
        "corner'",
    .uk =
        "Неправильна найбільша відстань від кута в параметрі евристики 'Тримати короля біля кута'"};
inline constexpr TUserText RelaxCapturesText = {
    .pl = "Nieprawidłowa liczba figur do zbicia w rozluźnianiu heurystyk pasa",
    .en = "Invalid number of figures to capture for relaxation of band heuristics",
    .uk = "Неправильна кількість фігур для взяття в послабленні евристик смуги"};
inline constexpr TUserText DeferMovesText = {.pl = "Nieprawidłowa liczba posunięć odroczenia",
                                             .en = "Invalid number of moves to defer",
                                             .uk = "Неправильна кількість ходів відкладення"};
inline constexpr TUserText DeferWithoutRelaxText = {
    .pl =
        "Odroczenie sprawdzenia ma sens tylko wtedy, gdy wybrano 'przy zaawansowanym pionie' lub "
        "'po zbiciu figury'.",
    .en =
        "Defer check is meaningful only when 'on advanced pawn' or 'on figure captured' selected.",
    .uk =
        "Відкладення перевірки має сенс лише тоді, коли вибрано 'за просунутого пішака' або 'після "
        "взяття фігури'."};
inline constexpr TUserText LosePawnsConflictText = {
    .pl =
        "Można wybrać tylko jedną z dodatkowych opcji 'Nie trać żadnych figur' (łącznie z pionami "
        "+ łącznie z pionami bliskimi promocji).",
    .en =
        "Only one of additional options of Don't lose any figures (incl. pawns + incl.promotable "
        "pawns) can be selected.",
    .uk =
        "Можна вибрати лише один із додаткових параметрів 'Не втрачати жодних фігур' (разом із "
        "пішаками + разом із пішаками, близькими до перетворення)."};
inline constexpr TUserText MainDiagonalFieldText = {
    .pl = "Niewłaściwe pole (czarna figura trzymana na głównej przekątnej)",
    .en = "Improper field (Black figure not let leave main diagonal)",
    .uk = "Неправильне поле (чорна фігура, яку тримають на головній діагоналі)"};
inline constexpr TUserText ImproperFieldText = {
    .pl = "Niewłaściwe pole:", .en = "Improper field:", .uk = "Неправильне поле:"};
/// Behind ImproperFieldText, and before the number of the box.
inline constexpr TUserText UnblockFieldText = {.pl = " Figura nieodblokowywana #",
                                               .en = " Figure not let unblock #",
                                               .uk = " Фігура, яку не розблоковувати, #"};
inline constexpr TUserText KeyWhiteFigureText = {.pl = "Nieprawidłowa kluczowa biała figura",
                                                 .en = "Invalid key white figure",
                                                 .uk = "Неправильна ключова біла фігура"};
inline constexpr TUserText PinnedPieceMissingText = {
    .pl = "Nieprawidłowa kluczowa biała figura (nie znaleziono związanej bierki)",
    .en = "Invalid key white figure (pinned piece not found)",
    .uk = "Неправильна ключова біла фігура (зв'язаної фігури не знайдено)"};
inline constexpr TUserText KeyLineFieldText = {.pl = "Nieprawidłowe pole Linia kluczowa",
                                               .en = "Invalid field Key line",
                                               .uk = "Неправильне поле Ключова лінія"};
inline constexpr TUserText KeyDiagonalFieldText = {.pl = "Nieprawidłowe pole Przekątna kluczowa",
                                                   .en = "Invalid field Key diagonal",
                                                   .uk = "Неправильне поле Ключова діагональ"};
inline constexpr TUserText ForcedMateWithSeaSnakeText = {
    .pl = "FindForcedMate nie może być używane razem z wężem morskim.",
    .en = "FindForcedMate cannot be used together with SeaSnake.",
    .uk = "FindForcedMate не можна вживати разом із морським змієм."};
inline constexpr TUserText ForcedCountText = {
    .pl = "Nieprawidłowa wartość w polu liczby rozluźnień heurystyki FFM (FindForcedMate)",
    .en = "Invalid value in field with number of heuristics relaxations for FFM (FindForcedMate)",
    .uk = "Неправильне значення в полі кількості послаблень евристики FFM (FindForcedMate)"};
/// Followed by the greatest number and ForcedCountTooLargeEnd.
inline constexpr TUserText ForcedCountTooLargeText = {
    .pl = "Liczba rozluźnień heurystyki FFM jest za duża (maks. = ",
    .en = "Number of heuristics relaxations for FFM is too large (max = ",
    .uk = "Кількість послаблень евристики FFM завелика (макс. = "};
inline constexpr TUserText ForcedCountTooLargeEnd = {
    .pl = " => #5)", .en = " => #5)", .uk = " => #5)"};
/// Followed by the number and ForcedCountIgnoredEnd. The settings are taken all the same.
inline constexpr TUserText ForcedCountIgnoredText = {
    .pl = "Uwaga: rozluźnianie heurystyk jest wyłączone, więc ustawienie dla FFM (",
    .en = "Note: relaxation of heuristics is off, so setting for FFM (",
    .uk = "Примітка: послаблення евристик вимкнено, тому налаштування для FFM ("};
inline constexpr TUserText ForcedCountIgnoredEnd = {.pl = " raz(y)) zostanie pominięte",
                                                    .en = " time(s)) will be ignored",
                                                    .uk = " раз(и)) буде проігноровано"};

// Names of fields that hold no field of the board.
inline constexpr TUserText SeaSnakeApproachText = {.pl = "Wąż morski - pole podejścia",
                                                   .en = "Sea snake - approach field",
                                                   .uk = "Морський змій - поле підходу"};
inline constexpr TUserText SeaSnakeTurnBackText = {.pl = "Wąż morski - pole zawrócenia",
                                                   .en = "Sea snake - turn back field",
                                                   .uk = "Морський змій - поле розвороту"};
inline constexpr TUserText SeaSnakePendulum1Text = {
    .pl = "Wąż morski - pole wahadła 1 (dostępne)",
    .en = "Sea snake - pendulum field 1 (approachable)",
    .uk = "Морський змій - поле маятника 1 (досяжне)"};
inline constexpr TUserText SeaSnakePendulum2Text = {.pl = "Wąż morski - pole wahadła 2",
                                                    .en = "Sea snake - pendulum field 2",
                                                    .uk = "Морський змій - поле маятника 2"};
inline constexpr TUserText KeyDiagonal1Text = {.pl = "Przekątna kluczowa - pole 1",
                                               .en = "Key diagonal - field 1",
                                               .uk = "Ключова діагональ - поле 1"};
inline constexpr TUserText KeyDiagonal2Text = {.pl = "Przekątna kluczowa - pole 2",
                                               .en = "Key diagonal - field 2",
                                               .uk = "Ключова діагональ - поле 2"};

// A list of heuristics in writing.
/// Followed by what was found, NameAllowedText and the known names.
inline constexpr TUserText UnknownHeuristicText = {
    .pl = "Nieznana heurystyka: ", .en = "Unknown heuristic: ", .uk = "Невідома евристика: "};
inline constexpr TUserText NamesAllowedText = {
    .pl = "\nDozwolone są: ", .en = "\nAllowed are: ", .uk = "\nДозволено: "};
inline constexpr TUserText HeuristicTwiceText = {.pl = "Heurystyka podana dwa razy: ",
                                                 .en = "Heuristic given twice: ",
                                                 .uk = "Евристику вказано двічі: "};
inline constexpr TUserText HeuristicBracketText = {
    .pl = "Nawias nie jest zamknięty lub coś stoi za nim: ",
    .en = "A bracket is not closed, or something stands behind it: ",
    .uk = "Дужку не закрито, або за нею щось є: "};
/// Followed by the name, the parameters in brackets, ParametersAllowedText and what may stand there.
inline constexpr TUserText WrongParametersText = {.pl = "Błędne parametry heurystyki: ",
                                                  .en = "Wrong parameters of a heuristic: ",
                                                  .uk = "Неправильні параметри евристики: "};
inline constexpr TUserText ParametersAllowedText = {
    .pl = ". Dozwolone: ", .en = ". Allowed: ", .uk = ". Дозволено: "};
inline constexpr TUserText NoParametersText = {.pl = "brak", .en = "none", .uk = "жодних"};

/// All of them, for whoever checks the texts.
inline constexpr const TUserText* HeuristicMessages[] = {
    &ExtEdgeConflictText,       &KingMoveConflictText,
    &ExceptionsWithoutKingText, &CornerDistanceText,
    &RelaxCapturesText,         &DeferMovesText,
    &DeferWithoutRelaxText,     &LosePawnsConflictText,
    &MainDiagonalFieldText,     &ImproperFieldText,
    &UnblockFieldText,          &KeyWhiteFigureText,
    &PinnedPieceMissingText,    &KeyLineFieldText,
    &KeyDiagonalFieldText,      &ForcedMateWithSeaSnakeText,
    &ForcedCountText,           &ForcedCountTooLargeText,
    &ForcedCountTooLargeEnd,    &ForcedCountIgnoredText,
    &ForcedCountIgnoredEnd,     &SeaSnakeApproachText,
    &SeaSnakeTurnBackText,      &SeaSnakePendulum1Text,
    &SeaSnakePendulum2Text,     &KeyDiagonal1Text,
    &KeyDiagonal2Text,          &UnknownHeuristicText,
    &NamesAllowedText,          &HeuristicTwiceText,
    &HeuristicBracketText,      &WrongParametersText,
    &ParametersAllowedText,     &NoParametersText};

}  // namespace tarnwick
