#pragma once
// What the user is told about copying, pasting and dropping.

#include "base/language.h"

namespace tarnwick {

inline constexpr TUserText NoTextText = {.pl = "Brak danych tekstowych w schowku",
                                         .en = "No text data in clipboard",
                                         .uk = "У буфері немає текстових даних"};
inline constexpr TUserText OperationFailedText = {
    .pl = "Operacja nie powiodła się", .en = "Operation failed", .uk = "Операція не вдалася"};
/// Behind OperationFailedText: the word, and why it is no move.
inline constexpr TUserText NoPositionFoundText = {
    .pl = "To nie jest zadanie ani kod FEN, a \"%s\" nie jest posunięciem: %s",
    .en = "The text is no problem and has no FEN code, and \"%s\" is no move: %s",
    .uk = "Це не задача й не код FEN, а \"%s\" - не хід: %s"};
/// Before a pasted problem takes the place of one whose variants it does not have.
inline constexpr TUserText ReplaceProblemText = {
    .pl = "Wklejone zadanie zastąpi obecne, wraz z jego wariantami (%s). Kontynuować?",
    .en = "The pasted problem takes the place of this one and of its variants (%s). Go on?",
    .uk = "Вставлена задача замінить поточну разом із її варіантами (%s). Продовжити?"};
inline constexpr TUserText PastedMovesText = {
    .pl = "Wklejone posunięcia: %s", .en = "Moves pasted: %s", .uk = "Вставлено ходів: %s"};
inline constexpr TUserText PastedPositionText = {
    .pl = "Wklejono pozycję.", .en = "Position pasted.", .uk = "Позицію вставлено."};
inline constexpr TUserText PastedProblemText = {
    .pl = "Wklejono zadanie.", .en = "Problem pasted.", .uk = "Задачу вставлено."};
inline constexpr TUserText PastedFirstProblemText = {
    .pl = "Wklejono pierwsze zadanie z tekstu; pozostałe dołączysz, zapisując je w pliku .cp.",
    .en = "The first problem of the text was pasted; the others can be appended from a .cp file.",
    .uk = "Вставлено першу задачу тексту; решту можна додати з файлу .cp."};
inline constexpr TUserText NoFenText = {
    .pl = "Kod FEN jest niedostępny", .en = "FEN code is unavailable", .uk = "Код FEN недоступний"};
inline constexpr TUserText RecognisedText = {
    .pl = "Rozpoznano diagram. Liczba pól do sprawdzenia: %s",
    .en = "The diagram was recognised. Fields to check: %s",
    .uk = "Діаграму розпізнано. Полів для перевірки: %s"};
inline constexpr TUserText RecognisedRefusedText = {
    .pl = "Rozpoznano diagram, lecz pozycja wymaga poprawek.",
    .en = "The diagram was recognised, but its position needs to be corrected.",
    .uk = "Діаграму розпізнано, але позицію треба виправити."};
inline constexpr TUserText NoPictureText = {.pl = "Program nie potrafi odczytać tego obrazu",
                                            .en = "Program is unable to read this picture",
                                            .uk = "Програма не може прочитати це зображення"};
inline constexpr TUserText DropUnknownText = {
    .pl =
        "Tego nie można upuścić w oknie: program otwiera pliki .cp, .cpx i .epd, teksty i obrazy.",
    .en =
        "This cannot be dropped here: the program takes .cp, .cpx and .epd files, texts and "
        "pictures.",
    .uk =
        "Це не можна кинути у вікно: програма приймає файли .cp, .cpx і .epd, тексти й "
        "зображення."};
inline constexpr TUserText OneFileOnlyText = {
    .pl = "Otwarto tylko pierwszy z upuszczonych plików.",
    .en = "Only the first of the dropped files was opened.",
    .uk = "Відкрито лише перший із кинутих файлів."};
inline constexpr TUserText TooBigToPasteText = {.pl = "Za dużo danych, aby je wkleić",
                                                .en = "Too much data to paste",
                                                .uk = "Забагато даних, щоб вставити"};
inline constexpr TUserText PictureFilesFilter = {
    .pl = "Obrazy (*.svg *.png)", .en = "Pictures (*.svg *.png)", .uk = "Зображення (*.svg *.png)"};
inline constexpr TUserText PgnFilesFilter = {
    .pl = "Partie (*.pgn)", .en = "Games (*.pgn)", .uk = "Партії (*.pgn)"};
inline constexpr TUserText ReplaceFileText = {.pl = "Plik już istnieje: %s\nZastąpić go?",
                                              .en = "The file exists already: %s\nReplace it?",
                                              .uk = "Файл уже існує: %s\nЗамінити його?"};
inline constexpr TUserText PictureSavedText = {
    .pl = "Zapisano: %s", .en = "Saved: %s", .uk = "Збережено: %s"};

inline constexpr const TUserText* AllClipboardTexts[] = {
    &NoTextText,      &OperationFailedText, &NoPositionFoundText,   &ReplaceProblemText,
    &PastedMovesText, &PastedPositionText,  &PastedProblemText,     &PastedFirstProblemText,
    &NoFenText,       &RecognisedText,      &RecognisedRefusedText, &NoPictureText,
    &DropUnknownText, &OneFileOnlyText,     &TooBigToPasteText,     &PictureFilesFilter,
    &PgnFilesFilter,  &ReplaceFileText,     &PictureSavedText};

}  // namespace tarnwick
