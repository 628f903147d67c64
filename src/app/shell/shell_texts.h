#pragma once
// What the window's parts and its small questions say. Names of commands and tooltips: app/commands.

#include "base/language.h"

namespace tarnwick {

// Names of the window's parts, for those who listen to them.
inline constexpr TUserText DescriptionNameText = {
    .pl = "Opis zadania", .en = "Problem description", .uk = "Опис задачі"};
inline constexpr TUserText ProgressNameText = {
    .pl = "Postęp rozwiązywania", .en = "Progress of solving", .uk = "Перебіг розв'язування"};
inline constexpr TUserText MovesNameText = {.pl = "Posunięcia", .en = "Moves", .uk = "Ходи"};
inline constexpr TUserText VariantsNameText = {
    .pl = "Warianty", .en = "Variants", .uk = "Варіанти"};
inline constexpr TUserText TagsNameText = {.pl = "Etykiety", .en = "Tags", .uk = "Мітки"};
inline constexpr TUserText StatusNameText = {.pl = "Stan", .en = "Status", .uk = "Стан"};
inline constexpr TUserText NumberOfMovesNameText = {
    .pl = "Liczba posunięć", .en = "Number of moves", .uk = "Кількість ходів"};
inline constexpr TUserText ThreadsNameText = {
    .pl = "Liczba wątków: %d", .en = "Number of threads: %d", .uk = "Кількість потоків: %d"};
inline constexpr TUserText PeekedThreadNameText = {
    .pl = "Podglądany wątek: %s", .en = "Thread to peek: %s", .uk = "Потік для перегляду: %s"};
inline constexpr TUserText KnownPositionNameText = {
    .pl = "Wiadomo o pozycji", .en = "Known of the position", .uk = "Відомо про позицію"};
inline constexpr TUserText CommentNameText = {.pl = "Komentarz lub wyjaśnienie",
                                              .en = "Comment or explanation",
                                              .uk = "Коментар чи пояснення"};

// The title bar.
inline constexpr TUserText NoDescriptionText = {.pl = "Kliknij tutaj, aby dodać opis zadania",
                                                .en = "Click here to describe the problem",
                                                .uk = "Клацніть тут, щоб описати задачу"};

// The list of moves, the variants and the tags.
inline constexpr TUserText WhiteColumnText = {.pl = "Białe", .en = "White", .uk = "Білі"};
inline constexpr TUserText BlackColumnText = {.pl = "Czarne", .en = "Black", .uk = "Чорні"};
inline constexpr TUserText RemainingMovesText = {
    .pl = "Pozostałe posunięcia", .en = "Remaining moves", .uk = "Ходи, що лишилися"};
inline constexpr TUserText RemoveThisTagText = {
    .pl = "Usuń etykietę: %s", .en = "Remove tag: %s", .uk = "Вилучити мітку: %s"};
inline constexpr TUserText MoreTagsText = {
    .pl = "Dalsze etykiety: %s", .en = "Further tags: %s", .uk = "Інші мітки: %s"};

// The message strip.
inline constexpr TUserText TypeMoveText = {
    .pl = "Wpisz posunięcie", .en = "Type a move", .uk = "Наберіть хід"};
inline constexpr TUserText TypeMoveTooltip = {
    .pl = "Wpisz posunięcie, na przykład e2e4, Sf3 albo 0-0, i naciśnij Enter",
    .en = "Type a move, for example e2e4, Nf3 or 0-0, and press Enter",
    .uk = "Наберіть хід, наприклад e2e4, Nf3 чи 0-0, і натисніть Enter"};

// The progress panel.
inline constexpr TUserText SolvingThisText = {
    .pl = "Rozwiązywanie #%d", .en = "Solving #%d", .uk = "Розв'язування #%d"};
inline constexpr TUserText SolvingOtherText = {.pl = "W toku: zadanie %d (#%d)",
                                               .en = "Solving problem %d (#%d)",
                                               .uk = "Триває: задача %d (#%d)"};

// The list of problems.
inline constexpr TUserText ProblemListText = {
    .pl = "Lista zadań", .en = "List of problems", .uk = "Список задач"};
inline constexpr TUserText NumberColumnText = {.pl = "Nr", .en = "No.", .uk = "№"};
inline constexpr TUserText StipulationColumnText = {
    .pl = "Zadanie", .en = "Stipulation", .uk = "Завдання"};
inline constexpr TUserText DescriptionColumnText = {
    .pl = "Opis", .en = "Description", .uk = "Опис"};
inline constexpr TUserText FilterText = {.pl = "Szukaj: numer, słowa opisu, etykiety",
                                         .en = "Filter: number, words of the description, tags",
                                         .uk = "Пошук: номер, слова опису, мітки"};
inline constexpr TUserText CountText = {
    .pl = "Zadania: %d z %d", .en = "Problems: %d of %d", .uk = "Задачі: %d із %d"};

// Questions.
inline constexpr TUserText DialogOkText = {.pl = "OK", .en = "OK", .uk = "OK"};
inline constexpr TUserText CancelText = {.pl = "Anuluj", .en = "Cancel", .uk = "Скасувати"};
inline constexpr TUserText CloseText = {.pl = "Zamknij", .en = "Close", .uk = "Закрити"};
inline constexpr TUserText NumberPromptText = {.pl = "Numer zadania (%d do %d):",
                                               .en = "Number of the problem (%d to %d):",
                                               .uk = "Номер задачі (%d до %d):"};
inline constexpr TUserText NoSuchProblemText = {.pl = "W tym pliku nie ma zadania o numerze %s.",
                                                .en = "This file has no problem number %s.",
                                                .uk = "У цьому файлі немає задачі номер %s."};
inline constexpr TUserText CommentPromptText = {.pl = "Komentarz do posunięcia %s:",
                                                .en = "Comment on the move %s:",
                                                .uk = "Коментар до ходу %s:"};
inline constexpr TUserText TagPromptText = {.pl = "Nowa lub znana etykieta:",
                                            .en = "A new tag or a known one:",
                                            .uk = "Нова чи відома мітка:"};
inline constexpr TUserText HasTagText = {.pl = "Zadanie ma już tę etykietę.",
                                         .en = "The problem has this tag already.",
                                         .uk = "Задача вже має цю мітку."};
inline constexpr TUserText TagToRemoveText = {
    .pl = "Etykieta do usunięcia:", .en = "Tag to remove:", .uk = "Яку мітку вилучити:"};
inline constexpr TUserText VariantPromptText = {
    .pl = "Nazwa wariantu:", .en = "Name of the variant:", .uk = "Назва варіанта:"};
inline constexpr TUserText WillReplaceText = {.pl = "Wariant o tej nazwie zostanie zastąpiony.",
                                              .en = "The variant of this name will be replaced.",
                                              .uk = "Варіант із цією назвою буде замінено."};
inline constexpr TUserText WhichVariantText = {
    .pl = "Który wariant?", .en = "Which variant?", .uk = "Який варіант?"};

// The about box.
inline constexpr TUserText VersionLineText = {
    .pl = "Wersja %s", .en = "Version %s", .uk = "Версія %s"};
inline constexpr TUserText AboutProgramText = {
    .pl =
        "Warsztat zadań szachowych: białe zaczynają i dają mata w n posunięciach. Rozwiązuje "
        "zadania, przechowuje ich zbiory, warianty i komentarze.",
    .en =
        "A workbench for chess problems in which White begins and mates in n moves. It solves "
        "them and keeps collections with their variants and comments.",
    .uk =
        "Майстерня шахових задач, у яких білі починають і дають мат за n ходів. Розв'язує задачі, "
        "зберігає їхні збірки, варіанти й коментарі."};
inline constexpr TUserText ToolkitText = {.pl = "Okno korzysta z biblioteki Qt %s.",
                                          .en = "The window uses the library Qt %s.",
                                          .uk = "Вікно використовує бібліотеку Qt %s."};

inline constexpr const TUserText* AllShellTexts[] = {
    &DescriptionNameText,   &ProgressNameText,  &MovesNameText,
    &VariantsNameText,      &TagsNameText,      &StatusNameText,
    &NumberOfMovesNameText, &ThreadsNameText,   &PeekedThreadNameText,
    &KnownPositionNameText, &CommentNameText,   &NoDescriptionText,
    &WhiteColumnText,       &BlackColumnText,   &RemainingMovesText,
    &RemoveThisTagText,     &MoreTagsText,      &TypeMoveText,
    &TypeMoveTooltip,       &SolvingThisText,   &SolvingOtherText,
    &ProblemListText,       &NumberColumnText,  &StipulationColumnText,
    &DescriptionColumnText, &FilterText,        &CountText,
    &DialogOkText,          &CancelText,        &CloseText,
    &NumberPromptText,      &NoSuchProblemText, &CommentPromptText,
    &TagPromptText,         &HasTagText,        &TagToRemoveText,
    &VariantPromptText,     &WillReplaceText,   &WhichVariantText,
    &VersionLineText,       &AboutProgramText,  &ToolkitText};

}  // namespace tarnwick
