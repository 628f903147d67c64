#pragma once
// What the commands on tables of few men tell and ask.

#include "base/language.h"

namespace tarnwick {

inline constexpr TUserText TableRunPendingText = {.pl = "Trwa praca nad tablicami.",
                                                  .en = "Work on tables is pending.",
                                                  .uk = "Триває робота над таблицями."};
inline constexpr TUserText NoTypeOfBoardText = {
    .pl = "Tablica obejmuje od jednej do pięciu bierek oprócz królów; ta pozycja ma ich %s.",
    .en = "A table is of one to five men beside the kings; this position has %s.",
    .uk = "Таблиця охоплює від однієї до п'яти фігур, крім королів; у цій позиції їх %s."};
inline constexpr TUserText TablesKnowNoCastlingText = {
    .pl = "W tej pozycji możliwa jest jeszcze roszada, której tablice nie znają.",
    .en = "Castling is still possible in this position, and tables know no castling.",
    .uk = "У цій позиції ще можлива рокіровка, якої таблиці не знають."};
inline constexpr TUserText AdditionalPrecalcPathText = {
    .pl = "Ustawiono dodatkowy folder PrecalcPath = %s\nCzy kontynuować?",
    .en = "There is an additional PrecalcPath = %s\nDo you want to continue?",
    .uk = "Задано додаткову папку PrecalcPath = %s\nПродовжити?"};

/// Tables, file size, memory.
inline constexpr TUserText AskGenerateText = {
    .pl =
        "Do obliczenia: %s (%s na dysku, najwyżej %s pamięci). Pracę można przerwać i później "
        "kontynuować tym samym poleceniem.\nCzy zacząć?",
    .en =
        "To be made: %s (%s on disk, at most %s of memory). The work can be stopped; the same "
        "command goes on from there.\nBegin?",
    .uk =
        "Буде обчислено: %s (%s на диску, щонайбільше %s пам'яті). Роботу можна зупинити й "
        "продовжити тією самою командою.\nПочати?"};
inline constexpr TUserText AskMakeAnewText = {
    .pl = "Tablica %s jest już gotowa. Czy obliczyć ją od nowa?",
    .en = "The table of %s is complete. Make it anew?",
    .uk = "Таблиця %s вже готова. Обчислити її заново?"};
/// Type, percent.
inline constexpr TUserText TablePreparedText = {
    .pl = "%s: policzone ruchy i sprawdzone bicia: %s",
    .en = "%s: moves counted and captures looked up %s",
    .uk = "%s: пораховано ходи та перевірено взяття: %s"};
inline constexpr TUserText TimeLeftText = {
    .pl = "%s, zostało na to %s", .en = "%s, %s left for this", .uk = "%s, на це лишилося %s"};
/// Type, moves, positions.
inline constexpr TUserText TableInPassText = {.pl = "%s: mat w %s posunięciach, dotąd %s pozycji",
                                              .en = "%s: mate in %s, %s positions so far",
                                              .uk = "%s: мат за %s ходів, досі %s позицій"};
/// Number of the table, of all, what it is at.
inline constexpr TUserText TableOfAllText = {
    .pl = "Tablica %s z %s. %s", .en = "Table %s of %s. %s", .uk = "Таблиця %s з %s. %s"};
/// Type, moves, time.
inline constexpr TUserText TableMadeText = {.pl = "%s: najdłuższy mat #%s (%s)",
                                            .en = "%s: longest mate #%s (%s)",
                                            .uk = "%s: найдовший мат #%s (%s)"};
inline constexpr TUserText TableMadeNoMateText = {.pl = "%s: nie ma żadnego mata (%s)",
                                                  .en = "%s: there is no mate (%s)",
                                                  .uk = "%s: немає жодного мату (%s)"};
inline constexpr TUserText TableStoppedText = {
    .pl = "%s: przerwano; to samo polecenie będzie kontynuować.",
    .en = "%s: stopped; the same command goes on from there.",
    .uk = "%s: зупинено; та сама команда продовжить."};

inline constexpr TUserText AskTryToFixText = {
    .pl =
        "Czy program ma próbować naprawić dane w razie napotkania błędu?\n\nUwaga: ANULUJ "
        "oznacza, że program zapyta później",
    .en =
        "Should program try to fix data, in case an error is encountered?\n\nNote: select CANCEL "
        "to ask later",
    .uk =
        "Чи програма має намагатися виправити дані, якщо трапиться помилка?\n\nПримітка: "
        "СКАСУВАТИ - запитати пізніше"};
/// Type, the end.
inline constexpr TUserText TableVerifiedText = {.pl = "%s: %s", .en = "%s: %s", .uk = "%s: %s"};
inline constexpr TUserText FaultsInLogText = {
    .pl = "\nBłędy są w pliku %s: indeks, pozycja, zapisana i oczekiwana liczba półruchów.",
    .en = "\nThe faults stand in %s: index, position, plies stored, plies expected.",
    .uk =
        "\nПомилки записано у файлі %s: індекс, позиція, записана та очікувана кількість "
        "півходів."};
/// Types verified, types with faults, types missing.
inline constexpr TUserText AllVerifiedText = {
    .pl = "Sprawdzone typy: %s, z błędami: %s, brakujące: %s",
    .en = "Types verified: %s, with faults: %s, missing: %s",
    .uk = "Перевірено типів: %s, з помилками: %s, відсутніх: %s"};

inline constexpr TUserText LookingForMaxMateText = {.pl = "Szukanie najdłuższych matów: %s",
                                                    .en = "Looking for the longest mates: %s",
                                                    .uk = "Пошук найдовших матів: %s"};
inline constexpr TUserText NoFurtherPositionText = {
    .pl = "Nie ma dalszej pozycji tego typu.",
    .en = "There is no further position of this type.",
    .uk = "Далі немає позицій цього типу."};
inline constexpr TUserText NoMateInTypeText = {.pl = "W pozycjach tego typu nie ma żadnego mata.",
                                               .en = "There is no mate in positions of this type.",
                                               .uk = "У позиціях цього типу немає жодного мату."};
inline constexpr TUserText NoPositionOfIndexText = {
    .pl = "Indeks %s nie oznacza żadnej pozycji, która może powstać.",
    .en = "The index %s names no position that can arise.",
    .uk = "Індекс %s не позначає жодної можливої позиції."};

inline constexpr const TUserText* AllTableTasksTexts[] = {&TableRunPendingText,
                                                          &NoTypeOfBoardText,
                                                          &TablesKnowNoCastlingText,
                                                          &AdditionalPrecalcPathText,
                                                          &AskGenerateText,
                                                          &AskMakeAnewText,
                                                          &TablePreparedText,
                                                          &TimeLeftText,
                                                          &TableInPassText,
                                                          &TableOfAllText,
                                                          &TableMadeText,
                                                          &TableMadeNoMateText,
                                                          &TableStoppedText,
                                                          &AskTryToFixText,
                                                          &TableVerifiedText,
                                                          &FaultsInLogText,
                                                          &AllVerifiedText,
                                                          &LookingForMaxMateText,
                                                          &NoFurtherPositionText,
                                                          &NoMateInTypeText,
                                                          &NoPositionOfIndexText};

}  // namespace tarnwick
