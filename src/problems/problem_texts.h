#pragma once
// What this folder says to the user. A text that ends in a blank is followed by what was found.

#include "base/language.h"

namespace tarnwick {

inline constexpr TUserText MainVariantText = {
    .pl = "Wariant główny", .en = "Main variant", .uk = "Головний варіант"};

// The text of a file as such.
inline constexpr TUserText ErrorOpeningFileText = {
    .pl = "Błąd otwarcia pliku: ", .en = "Error opening file: ", .uk = "Помилка відкриття файлу: "};
inline constexpr TUserText UnexpectedEndText = {.pl = "Nieoczekiwany koniec pliku.",
                                                .en = "Unexpected end of file.",
                                                .uk = "Несподіваний кінець файлу."};
inline constexpr TUserText UnclosedCommentText = {
    .pl = "Nieoczekiwany koniec pliku przed zamknięciem komentarza.",
    .en = "Unexpected end of file before comment closed.",
    .uk = "Несподіваний кінець файлу перед закриттям коментаря."};
inline constexpr TUserText UnexpectedSlashText = {.pl = "Nieoczekiwany leksem (ukośnik).",
                                                  .en = "Unexpected lexem (slash).",
                                                  .uk = "Несподівана лексема (скісна риска)."};
inline constexpr TUserText IdentifierExpectedText = {
    .pl = "Oczekiwano identyfikatora alfanumerycznego. Znaleziono: ",
    .en = "Alphanumeric identifier expected. Found: ",
    .uk = "Очікувався буквено-цифровий ідентифікатор. Знайдено: "};
/// Followed by the allowed numbers, "): " and what was found.
inline constexpr TUserText InvalidNumberText = {.pl = "Nieprawidłowa liczba (dozwolone: ",
                                                .en = "Invalid number (allowed: ",
                                                .uk = "Неправильне число (дозволено: "};
inline constexpr TUserText DefaultClauseFormText = {.pl = "Nieprawidłowa klauzula 'default'.",
                                                    .en = "Incorrect 'default' clause.",
                                                    .uk = "Неправильна директива 'default'."};
inline constexpr TUserText DefaultClauseNumberText = {.pl = "Błąd w klauzuli 'default'.",
                                                      .en = "Error in 'default' clause.",
                                                      .uk = "Помилка в директиві 'default'."};

// Stipulation and options.
inline constexpr TUserText UnknownDefaultText = {
    .pl = "Nierozpoznana opcja: ", .en = "Unrecognizable option: ", .uk = "Нерозпізнана опція: "};
inline constexpr TUserText UnknownOptionText = {
    .pl = "Oczekiwano nawiasu otwierającego { lub napotkano nierozpoznaną opcję: ",
    .en = "Opening bracket expected { or unrecognized option encountered: ",
    .uk = "Очікувалася відкривна дужка { або трапилася нерозпізнана опція: "};
/// Followed by the heuristic's name, ": ", what was found, and the next text.
inline constexpr TUserText UnexpectedAfterText = {.pl = "Nieoczekiwany leksem po ",
                                                  .en = "Unexpected lexem after ",
                                                  .uk = "Несподівана лексема після "};
inline constexpr TUserText ExpectedBracketOrOffText = {
    .pl = " (oczekiwano nawiasu otwierającego lub OFF)",
    .en = " (expected opening bracket or OFF)",
    .uk = " (очікувалася відкривна дужка або OFF)"};

// The section in braces: description and position.
inline constexpr TUserText OpeningBracketText = {.pl = "Oczekiwano nawiasu otwierającego.",
                                                 .en = "Opening bracket expected.",
                                                 .uk = "Очікувалася відкривна дужка."};
inline constexpr TUserText ClosingBracketText = {.pl = "Oczekiwano nawiasu zamykającego.",
                                                 .en = "Closing bracket expected.",
                                                 .uk = "Очікувалася закривна дужка."};
inline constexpr TUserText DescriptionColonText = {
    .pl = "Oczekiwano dwukropka ':' po identyfikatorze opisu.",
    .en = "Colon ':' expected after description identifier.",
    .uk = "Очікувалася двокрапка ':' після ідентифікатора опису."};
inline constexpr TUserText FenColonText = {
    .pl = "Oczekiwano dwukropka ':' po identyfikatorze FEN.",
    .en = "Colon ':' expected after FEN identifier.",
    .uk = "Очікувалася двокрапка ':' після ідентифікатора FEN."};
inline constexpr TUserText ImproperFenText = {
    .pl = "Niewłaściwy kod FEN", .en = "Improper FEN code", .uk = "Неправильний код FEN"};
inline constexpr TUserText WhiteIdentifierText = {
    .pl = "Oczekiwano identyfikatora białych figur (W, WH lub WHITE).",
    .en = "White figures identifier expected (W, WH or WHITE).",
    .uk = "Очікувався ідентифікатор білих фігур (W, WH або WHITE)."};
inline constexpr TUserText WhiteColonText = {
    .pl = "Oczekiwano dwukropka ':' po identyfikatorze białych figur.",
    .en = "Colon ':' expected after white figures identifier.",
    .uk = "Очікувалася двокрапка ':' після ідентифікатора білих фігур."};
inline constexpr TUserText WhiteFigureText = {.pl = "Nieprawidłowa specyfikacja białej figury: ",
                                              .en = "White figure specification is invalid: ",
                                              .uk = "Неправильний опис білої фігури: "};
inline constexpr TUserText WhitePositionText = {.pl = "Nieprawidłowa pozycja białej figury: ",
                                                .en = "White figure position is invalid: ",
                                                .uk = "Неправильна позиція білої фігури: "};
inline constexpr TUserText BlackIdentifierText = {
    .pl = "Oczekiwano identyfikatora czarnych figur (B, BL lub BLACK).",
    .en = "Black figures identifier expected (B, BL or BLACK).",
    .uk = "Очікувався ідентифікатор чорних фігур (B, BL або BLACK)."};
inline constexpr TUserText BlackColonText = {
    .pl = "Oczekiwano dwukropka po identyfikatorze czarnych figur.",
    .en = "Colon expected after black figures identifier.",
    .uk = "Очікувалася двокрапка після ідентифікатора чорних фігур."};
inline constexpr TUserText BlackFigureText = {.pl = "Nieprawidłowa specyfikacja czarnej figury: ",
                                              .en = "Black figure specification is invalid: ",
                                              .uk = "Неправильний опис чорної фігури: "};
inline constexpr TUserText BlackPositionText = {.pl = "Nieprawidłowa pozycja czarnej figury: ",
                                                .en = "Black figure position is invalid: ",
                                                .uk = "Неправильна позиція чорної фігури: "};
/// The name of the field stands between the two.
inline constexpr TUserText FieldText = {.pl = "Pole ", .en = "Field ", .uk = "Поле "};
inline constexpr TUserText OccupiedText = {
    .pl = " jest już zajęte.", .en = " already occupied.", .uk = " вже зайняте."};

// Moves and answers.
inline constexpr TUserText MovesColonText = {
    .pl = "Oczekiwano dwukropka po początku sekcji Moves.",
    .en = "Colon expected after Moves section start.",
    .uk = "Очікувалася двокрапка після початку розділу Moves."};
inline constexpr TUserText MovesHyphenText = {
    .pl = "Oczekiwano łącznika.", .en = "Hyphen expected.", .uk = "Очікувався дефіс."};
inline constexpr TUserText CastlingSymbolText = {.pl = "Niewłaściwy symbol roszady: ",
                                                 .en = "Incorrect castling symbol: ",
                                                 .uk = "Неправильний символ рокіровки: "};
inline constexpr TUserText FromPositionText = {.pl = "Niewłaściwa pozycja 'z': ",
                                               .en = "Invalid 'from' position: ",
                                               .uk = "Неправильна позиція 'з': "};
inline constexpr TUserText InvalidLexemText = {.pl = "Napotkano niewłaściwy leksem: ",
                                               .en = "Invalid lexem encountered: ",
                                               .uk = "Трапилася неправильна лексема: "};
inline constexpr TUserText ToPositionText = {.pl = "Niewłaściwa pozycja 'na': ",
                                             .en = "Invalid 'to' position: ",
                                             .uk = "Неправильна позиція 'на': "};
inline constexpr TUserText IllegalLineMoveText = {.pl = "Nielegalne posunięcie w sekcji Moves: ",
                                                  .en = "Illegal move in the Moves section: ",
                                                  .uk = "Неможливий хід у розділі Moves: "};
inline constexpr TUserText LineTooLongText = {
    .pl = "Sekcja Moves może mieć najwyżej 255 posunięć (licząc białe i czarne).",
    .en = "A Moves section may have at most 255 moves (White's and Black's together).",
    .uk = "Розділ Moves може мати щонайбільше 255 ходів (білих і чорних разом)."};
inline constexpr TUserText AnswerColonText = {
    .pl = "Oczekiwano dwukropka po identyfikatorze poprawnej odpowiedzi.",
    .en = "Colon expected after correct answer identifier.",
    .uk = "Очікувалася двокрапка після ідентифікатора правильної відповіді."};
inline constexpr TUserText AnswerFromText = {
    .pl = "Nieprawidłowa poprawna odpowiedź (element 'z'): ",
    .en = "Invalid correct answer ('from' element): ",
    .uk = "Недійсна правильна відповідь (елемент 'з'): "};
inline constexpr TUserText AnswerHyphenText = {
    .pl = "Oczekiwano łącznika oddzielającego elementy poprawnej odpowiedzi",
    .en = "Hyphen expected to separate correct answer elements",
    .uk = "Очікувався дефіс між елементами правильної відповіді"};
inline constexpr TUserText AnswerCastlingText = {.pl = "Nieprawidłowa poprawna odpowiedź: ",
                                                 .en = "Invalid correct answer: ",
                                                 .uk = "Недійсна правильна відповідь: "};
inline constexpr TUserText AnswerToText = {
    .pl = "Nieprawidłowa poprawna odpowiedź (element 'na'): ",
    .en = "Invalid correct answer ('to' element): ",
    .uk = "Недійсна правильна відповідь (елемент 'на'): "};
inline constexpr TUserText AnswerCommaText = {
    .pl = "Różne rozwiązania zadania powinien oddzielać przecinek, a napotkano: ",
    .en = "Comma should separate various solutions of the problem, but encountered: ",
    .uk = "Різні розв'язки задачі має відокремлювати кома, а трапилося: "};

// Sort indications.
inline constexpr TUserText InvalidSortIndicationText = {
    .pl = "Nieprawidłowy opis SortIndication",
    .en = "Invalid description of SortIndication",
    .uk = "Неправильний опис SortIndication"};

// Transforms.
inline constexpr TUserText CastlingNotRotatedText = {
    .pl = "Niektóre warianty zawarte w pozycji nie zostały poprawnie obrócone (roszada)",
    .en = "Some variants that position contains were not rotated properly (castling)",
    .uk = "Деякі варіанти, що містить позиція, повернуто неправильно (рокіровка)"};
inline constexpr TUserText CastlingChangedText = {
    .pl = "Uwaga: w lustrzanej pozycji możliwości roszady są zmienione",
    .en = "Note: in the mirror position possibilities of castling are changed",
    .uk = "Примітка: у дзеркальній позиції можливості рокіровки змінено"};

// Lines of an EPD file.
inline constexpr TUserText EpdNoFenText = {.pl = "Wiersz nie zaczyna się kodem FEN",
                                           .en = "The line does not begin with a FEN code",
                                           .uk = "Рядок не починається з коду FEN"};
inline constexpr TUserText EpdNoSideText = {
    .pl = "Po pozycji oczekiwano strony na posunięciu (w lub b): ",
    .en = "Side to move (w or b) expected after the position: ",
    .uk = "Після позиції очікувалася сторона, що ходить (w або b): "};
inline constexpr TUserText EpdNoMateText = {.pl = "Brak liczby posunięć do mata (bm #N;)",
                                            .en = "No number of moves to mate (bm #N;)",
                                            .uk = "Немає кількості ходів до мату (bm #N;)"};
inline constexpr TUserText EpdNegativeText = {
    .pl = "Pominięto: mata daje strona, która nie jest na posunięciu: ",
    .en = "Passed over: the side that is not to move gives mate: ",
    .uk = "Пропущено: мат дає сторона, яка не ходить: "};
inline constexpr TUserText EpdUnclosedTextText = {.pl = "Brak zamykającego cudzysłowu",
                                                  .en = "Closing quotation mark missing",
                                                  .uk = "Бракує закривних лапок"};

}  // namespace tarnwick
