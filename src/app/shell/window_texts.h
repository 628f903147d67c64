#pragma once
// What the window itself says to the user. Commands have their texts in app/commands.
//
// A text that ends in a blank is followed by what was found; "%s" and "%d" are filled in.

#include "base/language.h"

namespace tarnwick {

// Titles and buttons of boxes.
inline constexpr TUserText InformationTitle = {
    .pl = "Informacja", .en = "Information", .uk = "Інформація"};
inline constexpr TUserText WarningTitle = {
    .pl = "Ostrzeżenie", .en = "Warning", .uk = "Попередження"};
inline constexpr TUserText ErrorTitle = {
    .pl = "Wystąpił błąd", .en = "An error occurred", .uk = "Сталася помилка"};
inline constexpr TUserText YesText = {.pl = "&Tak", .en = "&Yes", .uk = "&Так"};
inline constexpr TUserText NoText = {.pl = "&Nie", .en = "&No", .uk = "&Ні"};
inline constexpr TUserText OkText = {.pl = "OK", .en = "OK", .uk = "OK"};
inline constexpr TUserText CancelBoxText = {.pl = "Anuluj", .en = "Cancel", .uk = "Скасувати"};
inline constexpr TUserText OutOfMemoryText = {.pl = "Za mało pamięci dla tego polecenia.",
                                              .en = "There is not enough memory for this command.",
                                              .uk = "Для цієї команди замало пам'яті."};

// Files.
inline constexpr TUserText ProblemFilesFilter = {.pl = "Zadania szachowe (*.cp *.epd)",
                                                 .en = "Chess problems (*.cp *.epd)",
                                                 .uk = "Шахові задачі (*.cp *.epd)"};
inline constexpr TUserText AllFilesFilter = {
    .pl = "Wszystkie pliki (*)", .en = "All files (*)", .uk = "Усі файли (*)"};
inline constexpr TUserText SavedText = {.pl = "Zapisano plik %s, liczba zadań: %d",
                                        .en = "File %s saved, number of problems: %d",
                                        .uk = "Файл %s збережено, кількість задач: %d"};
inline constexpr TUserText ClosesWhenSavedText = {
    .pl = "Plik jest jeszcze zapisywany. Okno zamknie się zaraz potem.",
    .en = "The file is still being saved. The window will close right after that.",
    .uk = "Файл ще зберігається. Вікно закриється одразу після цього."};
inline constexpr TUserText NoSamplesText = {
    .pl = "Nie znaleziono pliku z przykładowymi zadaniami (sample_problems.cp).",
    .en = "The file with sample compositions (sample_problems.cp) was not found.",
    .uk = "Файл із прикладами задач (sample_problems.cp) не знайдено."};
inline constexpr TUserText NoReadmeText = {
    .pl = "Nie znaleziono pliku z opisem programu.",
    .en = "The file that describes the program was not found.",
    .uk = "Файл з описом програми не знайдено."};

// Start and status.
inline constexpr TUserText InitializationText = {
    .pl = "Inicjalizacja... ", .en = "Initialization... ", .uk = "Ініціалізація... "};
inline constexpr TUserText NumberOfProblemsText = {.pl = "Liczba zadań szachowych w tym pliku: ",
                                                   .en = "Number of chess problems in this file: ",
                                                   .uk = "Кількість шахових задач у цьому файлі: "};
inline constexpr TUserText ProblemNumberText = {
    .pl = "Zadanie %d: %s", .en = "Problem %d: %s", .uk = "Задача %d: %s"};
inline constexpr TUserText SolvingProblemText = {.pl = "Rozwiązywanie zadania %d (%s)...",
                                                 .en = "Solving problem %d (%s)...",
                                                 .uk = "Розв'язування задачі %d (%s)..."};
inline constexpr TUserText SolvingFromStartText = {
    .pl = "Rozwiązywanie zadania %d (%s) od pozycji początkowej, a nie tej na szachownicy...",
    .en = "Solving problem %d (%s) from its start position, not the one on the board...",
    .uk = "Розв'язування задачі %d (%s) від початкової позиції, а не тієї, що на дошці..."};
inline constexpr TUserText NoPositionInHandText = {
    .pl = "Ten wątek nie pokazał jeszcze żadnej pozycji.",
    .en = "This thread has not shown any position yet.",
    .uk = "Цей потік ще не показав жодної позиції."};
inline constexpr TUserText NoNewInstanceText = {
    .pl = "Nie udało się uruchomić programu jeszcze raz.",
    .en = "The program could not be started once more.",
    .uk = "Не вдалося запустити програму ще раз."};
inline constexpr TUserText StoppingText = {
    .pl = "Zatrzymywanie...", .en = "Stopping...", .uk = "Зупинка..."};
inline constexpr TUserText SolutionFoundText = {
    .pl = "Znaleziono rozwiązanie: %s", .en = "Solution found: %s", .uk = "Знайдено розв'язок: %s"};
inline constexpr TUserText NoTrayText = {.pl = "Nie można umieścić ikony w zasobniku",
                                         .en = "Unable to Set Tray Icon",
                                         .uk = "Не вдається розмістити значок у треї"};
inline constexpr TUserText TooManyThreadsText = {
    .pl = "Liczba wątków musi wynosić od 1 do 64.",
    .en = "The number of threads must be from 1 to 64.",
    .uk = "Кількість потоків має бути від 1 до 64."};
inline constexpr TUserText ThreadsNowText = {.pl = "Liczba wątków dla 1. posunięcia: ",
                                             .en = "Number of threads for the 1st move: ",
                                             .uk = "Кількість потоків для 1-го ходу: "};
inline constexpr TUserText CannotSetPriorityText = {
    .pl =
        "System nie pozwala podnieść priorytetu: będzie on obowiązywał od następnego "
        "rozwiązywania.",
    .en =
        "The system does not allow a priority to be raised: this one will apply from the next "
        "solving on.",
    .uk = "Система не дозволяє підвищити пріоритет: він діятиме від наступного розв'язування."};
inline constexpr TUserText PriorityRefusedText = {
    .pl = "System nie pozwala temu użytkownikowi na taki priorytet.",
    .en = "The system does not allow this user such a priority.",
    .uk = "Система не дозволяє цьому користувачеві такого пріоритету."};
inline constexpr TUserText OneProcessorText = {
    .pl = "Program musi używać co najmniej jednego procesora.",
    .en = "The program must use at least one processor.",
    .uk = "Програма має використовувати принаймні один процесор."};

// Moves.
inline constexpr TUserText QueenText = {.pl = "&Hetman", .en = "&Queen", .uk = "&Ферзь"};
inline constexpr TUserText RookText = {.pl = "&Wieża", .en = "&Rook", .uk = "&Тура"};
inline constexpr TUserText BishopText = {.pl = "&Goniec", .en = "&Bishop", .uk = "&Слон"};
inline constexpr TUserText KnightText = {.pl = "&Skoczek", .en = "&Knight", .uk = "&Кінь"};

// Positions and the clipboard.
inline constexpr TUserText CopiedText = {
    .pl = "Skopiowano do schowka.", .en = "Copied to the clipboard.", .uk = "Скопійовано в буфер."};
inline constexpr TUserText PositionIdText = {.pl = " Id: %s\n Nazwa pliku: %s\n Kod FEN: %s",
                                             .en = " Id: %s\n File name: %s\n FEN code: %s",
                                             .uk = " Id: %s\n Назва файлу: %s\n Код FEN: %s"};

// The scale of the screen.
inline constexpr TUserText ScalingText = {
    .pl =
        "Wygląda na to, że włączone jest niestandardowe skalowanie ekranu. Okno dopasowuje się do "
        "niego, ale napisy mogą zajmować więcej miejsca niż zwykle.\n\nCzy pokazywać to "
        "ostrzeżenie "
        "także następnym razem?",
    .en =
        "It looks like non-standard display scaling is on. The window adapts to it, but texts may "
        "take more room than usual.\n\nDo you want to see this warning the next time too?",
    .uk =
        "Схоже, увімкнено нестандартне масштабування екрана. Вікно пристосовується до нього, але "
        "написи можуть займати більше місця, ніж звичайно.\n\nПоказувати це попередження й "
        "наступного разу?"};

inline constexpr const TUserText* AllWindowTexts[] = {&InformationTitle,
                                                      &WarningTitle,
                                                      &ErrorTitle,
                                                      &YesText,
                                                      &NoText,
                                                      &OkText,
                                                      &CancelBoxText,
                                                      &OutOfMemoryText,
                                                      &ProblemFilesFilter,
                                                      &AllFilesFilter,
                                                      &SavedText,
                                                      &ClosesWhenSavedText,
                                                      &NoSamplesText,
                                                      &NoReadmeText,
                                                      &InitializationText,
                                                      &NumberOfProblemsText,
                                                      &ProblemNumberText,
                                                      &SolvingProblemText,
                                                      &NoPositionInHandText,
                                                      &NoNewInstanceText,
                                                      &SolvingFromStartText,
                                                      &StoppingText,
                                                      &SolutionFoundText,
                                                      &NoTrayText,
                                                      &TooManyThreadsText,
                                                      &ThreadsNowText,
                                                      &CannotSetPriorityText,
                                                      &PriorityRefusedText,
                                                      &OneProcessorText,
                                                      &QueenText,
                                                      &RookText,
                                                      &BishopText,
                                                      &KnightText,
                                                      &CopiedText,
                                                      &PositionIdText,
                                                      &ScalingText};

}  // namespace tarnwick
