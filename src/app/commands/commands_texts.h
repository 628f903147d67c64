#pragma once

// The titles of menus, and why a command cannot be had now. The items themselves: names_....h.

#include "base/language.h"

namespace tarnwick {

inline constexpr TUserText FileMenuText = {.pl = "&Plik", .en = "&File", .uk = "&Файл"};
inline constexpr TUserText PositionMenuText = {
    .pl = "Po&zycja", .en = "&Position", .uk = "&Позиція"};
inline constexpr TUserText ProblemMenuText = {.pl = "Za&danie", .en = "P&roblem", .uk = "&Задача"};
inline constexpr TUserText ViewMenuText = {.pl = "&Widok", .en = "&View", .uk = "В&игляд"};
inline constexpr TUserText VariantMenuText = {.pl = "Waria&nt", .en = "Var&iant", .uk = "&Варіант"};
inline constexpr TUserText AdvancedMenuText = {
    .pl = "Z&aawansowane", .en = "&Advanced", .uk = "&Додатково"};
inline constexpr TUserText PriorityMenuText = {
    .pl = "Pri&orytet", .en = "Priori&ty", .uk = "П&ріоритет"};
inline constexpr TUserText HelpMenuText = {.pl = "Po&moc", .en = "&Help", .uk = "Д&овідка"};
inline constexpr TUserText LanguageMenuText = {.pl = "&Język", .en = "&Language", .uk = "&Мова"};
inline constexpr TUserText ProblemTypeMenuText = {
    .pl = "Rodzaj zadania", .en = "Problem type", .uk = "Тип задачі"};
inline constexpr TUserText AffinityMenuText = {
    .pl = "P&rzydział procesorów", .en = "Processor &affinity", .uk = "Прив'язка до &процесорів"};
/// Followed by the processor's number.
inline constexpr TUserText ProcessorText = {
    .pl = "Procesor ", .en = "Processor ", .uk = "Процесор "};

// Why an item is grey.
inline constexpr TUserText NotBuiltText = {
    .pl = "Tego polecenia nie ma jeszcze w tej wersji programu.",
    .en = "This command does not exist yet in this version of the program.",
    .uk = "Цієї команди ще немає в цій версії програми."};
inline constexpr TUserText InitialisationText = {.pl = "Program jeszcze się otwiera.",
                                                 .en = "The program is still opening.",
                                                 .uk = "Програма ще відкривається."};
inline constexpr TUserText FileIsSavedText = {.pl = "Plik jest właśnie zapisywany.",
                                              .en = "The file is being saved.",
                                              .uk = "Файл саме зберігається."};
inline constexpr TUserText SolvingIsPendingText = {
    .pl = "Trwa rozwiązywanie.", .en = "Solving is pending.", .uk = "Триває розв'язування."};
inline constexpr TUserText AnalysisIsPendingText = {
    .pl = "Trwa analiza.", .en = "Analysis is pending.", .uk = "Триває аналіз."};
inline constexpr TUserText BatchIsPendingText = {.pl = "Trwa test regresyjny.",
                                                 .en = "A regression test is running.",
                                                 .uk = "Триває регресійний тест."};
inline constexpr TUserText NothingIsSolvedText = {.pl = "Nic nie jest teraz rozwiązywane.",
                                                  .en = "Nothing is being solved.",
                                                  .uk = "Зараз нічого не розв'язується."};
inline constexpr TUserText IsPausedText = {.pl = "Rozwiązywanie jest wstrzymane.",
                                           .en = "Solving is paused.",
                                           .uk = "Розв'язування призупинено."};
inline constexpr TUserText IsNotPausedText = {.pl = "Rozwiązywanie nie jest wstrzymane.",
                                              .en = "Solving is not paused.",
                                              .uk = "Розв'язування не призупинено."};
inline constexpr TUserText OneThreadText = {.pl = "Działa tylko jeden wątek.",
                                            .en = "Only one thread is running.",
                                            .uk = "Працює лише один потік."};
inline constexpr TUserText PositionIsSetText = {.pl = "Trwa ustawianie pozycji.",
                                                .en = "A position is being set.",
                                                .uk = "Триває розставляння позиції."};
inline constexpr TUserText OnlyWhenSettingText = {
    .pl = "Dostępne tylko w trybie ustawiania pozycji.",
    .en = "Available only in position setting mode.",
    .uk = "Доступно лише в режимі розставляння позиції."};
inline constexpr TUserText BlackIsToMoveText = {
    .pl = "Posunięcie mają czarne.", .en = "Black is to move.", .uk = "Хід чорних."};
inline constexpr TUserText WhiteIsToMoveText = {
    .pl = "Posunięcie mają białe.", .en = "White is to move.", .uk = "Хід білих."};
inline constexpr TUserText NoProblemText = {.pl = "W pliku nie ma zadań.",
                                            .en = "There are no problems in the file.",
                                            .uk = "У файлі немає задач."};
inline constexpr TUserText FirstProblemText = {.pl = "To jest pierwsze zadanie.",
                                               .en = "This is the first problem.",
                                               .uk = "Це перша задача."};
inline constexpr TUserText LastProblemText = {.pl = "To jest ostatnie zadanie.",
                                              .en = "This is the last problem.",
                                              .uk = "Це остання задача."};
inline constexpr TUserText NothingViewedBeforeText = {
    .pl = "Przedtem nie oglądano żadnego zadania.",
    .en = "No problem was viewed before this one.",
    .uk = "Перед цією задачею нічого не переглядали."};
inline constexpr TUserText NoReturnText = {.pl = "Nie ma zadania, do którego można wrócić.",
                                           .en = "There is no problem to return to.",
                                           .uk = "Немає задачі, до якої можна повернутися."};
inline constexpr TUserText NothingToUndoText = {.pl = "Nie ma zmian do cofnięcia.",
                                                .en = "There is no change to undo.",
                                                .uk = "Немає змін, які можна скасувати."};
inline constexpr TUserText NothingToRedoText = {.pl = "Nie ma zmian do ponowienia.",
                                                .en = "There is no change to redo.",
                                                .uk = "Немає змін, які можна повторити."};
inline constexpr TUserText NoChangesText = {.pl = "Nie ma zmian do zapisania.",
                                            .en = "There are no changes to save.",
                                            .uk = "Немає змін для збереження."};
inline constexpr TUserText StartOfLineText = {.pl = "To jest pozycja początkowa.",
                                              .en = "This is the starting position.",
                                              .uk = "Це початкова позиція."};
inline constexpr TUserText EndOfLineText = {.pl = "To jest koniec zagranych posunięć.",
                                            .en = "This is the end of the moves played.",
                                            .uk = "Це кінець зіграних ходів."};
inline constexpr TUserText NoMainVariantText = {.pl = "Zadanie nie ma wariantu głównego.",
                                                .en = "The problem has no main variant.",
                                                .uk = "Задача не має головного варіанта."};
inline constexpr TUserText NoVariantsText = {.pl = "Zadanie nie ma wariantów.",
                                             .en = "The problem has no variants.",
                                             .uk = "Задача не має варіантів."};
inline constexpr TUserText NoAnimationText = {.pl = "Żaden wariant nie jest animowany.",
                                              .en = "No variant is being animated.",
                                              .uk = "Жоден варіант не анімується."};
inline constexpr TUserText AnimationText = {.pl = "Trwa animacja wariantu.",
                                            .en = "A variant is being animated.",
                                            .uk = "Триває анімація варіанта."};
inline constexpr TUserText NoTagsText = {.pl = "Zadanie nie ma etykiet.",
                                         .en = "The problem has no tags.",
                                         .uk = "Задача не має міток."};
inline constexpr TUserText ReadOnlyFileText = {.pl = "Plik jest tylko do odczytu.",
                                               .en = "The file is read-only.",
                                               .uk = "Файл доступний лише для читання."};
inline constexpr TUserText TypeOnlyFromFileText = {
    .pl = "Rodzaj zadania można tylko odczytać z pliku.",
    .en = "The type of a problem can only be read from a file.",
    .uk = "Тип задачі можна лише прочитати з файлу."};

inline constexpr const TUserText* AllCommandsTexts[] = {&FileMenuText,
                                                        &PositionMenuText,
                                                        &ProblemMenuText,
                                                        &ViewMenuText,
                                                        &VariantMenuText,
                                                        &AdvancedMenuText,
                                                        &PriorityMenuText,
                                                        &HelpMenuText,
                                                        &LanguageMenuText,
                                                        &ProblemTypeMenuText,
                                                        &AffinityMenuText,
                                                        &ProcessorText,
                                                        &NotBuiltText,
                                                        &InitialisationText,
                                                        &FileIsSavedText,
                                                        &SolvingIsPendingText,
                                                        &AnalysisIsPendingText,
                                                        &BatchIsPendingText,
                                                        &NothingIsSolvedText,
                                                        &IsPausedText,
                                                        &IsNotPausedText,
                                                        &OneThreadText,
                                                        &PositionIsSetText,
                                                        &OnlyWhenSettingText,
                                                        &BlackIsToMoveText,
                                                        &WhiteIsToMoveText,
                                                        &NoProblemText,
                                                        &FirstProblemText,
                                                        &LastProblemText,
                                                        &NothingViewedBeforeText,
                                                        &NoReturnText,
                                                        &NothingToUndoText,
                                                        &NothingToRedoText,
                                                        &NoChangesText,
                                                        &StartOfLineText,
                                                        &EndOfLineText,
                                                        &NoMainVariantText,
                                                        &NoVariantsText,
                                                        &NoAnimationText,
                                                        &AnimationText,
                                                        &NoTagsText,
                                                        &ReadOnlyFileText,
                                                        &TypeOnlyFromFileText};

}  // namespace tarnwick
