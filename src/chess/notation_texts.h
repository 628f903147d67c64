#pragma once
// Texts of the user about positions and moves in writing. A refused text is quoted behind those that
// end with a blank.

#include "base/language.h"

namespace tarnwick {

/// To be told once after ReadFen when it set any of its two flags.
inline constexpr TUserText FenNoteText = {
    .pl =
        "Uwaga: Program nie uwzględnia dodatkowych informacji o roszadzie i biciu w przelocie "
        "(zadania są rozwiązywane w zwykły sposób: wszystkie dostępne roszady uznaje się za "
        "możliwe; bicie w przelocie nie jest możliwe w pierwszym posunięciu)",
    .en =
        "Note: Program does not consider additional information about castling or en passant "
        "(problems are solved in a standard way: all available castlings are treated as "
        "possible; en passant is not possible in the first move)",
    .uk =
        "Примітка: Програма не враховує додаткової інформації про рокіровку та взяття на проході "
        "(задачі розв'язуються звичайним чином: усі наявні рокіровки вважаються можливими; "
        "взяття на проході неможливе в першому ході)"};

inline constexpr TUserText UnknownFigureLetterText = {.pl = "Nieznana litera figury: ",
                                                      .en = "Unknown figure letter: ",
                                                      .uk = "Невідома літера фігури: "};
inline constexpr TUserText FieldNameText = {.pl = "Błąd w String2Field() ",
                                            .en = "Error in String2Field() ",
                                            .uk = "Помилка в String2Field() "};

inline constexpr TUserText EmptyStringText = {
    .pl = "Pusty tekst", .en = "Empty string", .uk = "Порожній текст"};
inline constexpr TUserText MoveLengthText = {.pl = "Niewłaściwa długość tekstu",
                                             .en = "Improper string length",
                                             .uk = "Неправильна довжина тексту"};
inline constexpr TUserText FullMoveText = {.pl = "Niewłaściwy pełny zapis posunięcia",
                                           .en = "Improper full description of move",
                                           .uk = "Неправильний повний запис ходу"};
inline constexpr TUserText ShortNotationText = {.pl = "Notacja skrócona nie jest obsługiwana.",
                                                .en = "Short notation not supported.",
                                                .uk = "Скорочена нотація не підтримується."};
inline constexpr TUserText MoveDescriptionText = {.pl = "Niewłaściwy zapis posunięcia",
                                                  .en = "Improper move description",
                                                  .uk = "Неправильний запис ходу"};
inline constexpr TUserText IllegalMoveText = {
    .pl = "Nielegalne posunięcie", .en = "Illegal move", .uk = "Неможливий хід"};
inline constexpr TUserText InvalidStoredMoveText = {.pl = "Niewłaściwe posunięcie w MakeMove() : ",
                                                    .en = "Invalid move in MakeMove() : ",
                                                    .uk = "Неправильний хід у MakeMove() : "};

}  // namespace tarnwick
