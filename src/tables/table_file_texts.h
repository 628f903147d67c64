#pragma once

// What the files of tables say to the user when they are read, checked and packed.

#include <array>

#include "base/language.h"

namespace tarnwick {

/// Path, the file's size and the right one, in bytes.
inline constexpr TUserText TextImproperTableFile = {
    .pl =
        "Rozmiar pliku danych lub jego nagłówek wydaje się niewłaściwy:\n\n%s\n\nRozmiar pliku=%s\n"
        "Oczekiwany rozmiar pliku=%s",
    .en =
        "Data file size and/or its header seems improper:\n\n%s\n\nFile size=%s\nExpected file "
        "size=%s",
    .uk =
        "Розмір файлу даних або його заголовок видається неправильним:\n\n%s\n\nРозмір файлу=%s\n"
        "Очікуваний розмір файлу=%s"};

/// The file's name.
inline constexpr TUserText TextDamagedTableFile = {.pl = "Uszkodzony plik tablicy: %s",
                                                   .en = "Damaged table file: %s",
                                                   .uk = "Пошкоджений файл таблиці: %s"};

/// The file's name, the number of elements in it and the right one.
inline constexpr TUserText TextTableOfOtherSize = {
    .pl = "Plik %s ma %s elementów zamiast %s: to nie jest tablica tego typu.",
    .en = "File %s has %s elements instead of %s: it is no table of this type.",
    .uk = "Файл %s має %s елементів замість %s: це не таблиця цього типу."};

/// The file's name and the number of the block.
inline constexpr TUserText TextDamagedTableBlock = {.pl = "Uszkodzony plik tablicy: %s, blok %s",
                                                    .en = "Damaged table file: %s, block %s",
                                                    .uk = "Пошкоджений файл таблиці: %s, блок %s"};

/// The index and the number of elements.
inline constexpr TUserText TextIndexBeyondTable = {.pl = "Indeks %s poza tablicą o %s elementach",
                                                   .en = "Index %s beyond a table of %s elements",
                                                   .uk = "Індекс %s поза таблицею з %s елементів"};

inline constexpr TUserText TextErrorUnpackingLzw = {.pl = "Błąd rozpakowywania danych LZW",
                                                    .en = "Error unpacking LZW data",
                                                    .uk = "Помилка розпакування даних LZW"};

inline constexpr TUserText TextNotEnoughMemory = {
    .pl = "Za mało pamięci", .en = "Not enough memory", .uk = "Недостатньо пам'яті"};

inline constexpr TUserText TextErrorReadingTable = {.pl = "Błąd odczytu danych z dysku",
                                                    .en = "Error reading data from disk",
                                                    .uk = "Помилка читання даних з диска"};

/// Percent of the plain table's size.
inline constexpr TUserText TextPossibleSaving = {
    .pl = "Możliwy stopień oszczędności pamięci = %s%. Kontynuować?",
    .en = "Possible mem.save ratio = %s%. Continue?",
    .uk = "Можливий ступінь економії пам'яті = %s%. Продовжити?"};

inline constexpr TUserText TextErrorOccurred = {
    .pl = "Wystąpił błąd", .en = "An error occurred", .uk = "Сталася помилка"};

inline constexpr std::array AllTableFileTexts = {
    &TextImproperTableFile, &TextDamagedTableFile,  &TextTableOfOtherSize, &TextDamagedTableBlock,
    &TextIndexBeyondTable,  &TextErrorUnpackingLzw, &TextNotEnoughMemory,  &TextErrorReadingTable,
    &TextPossibleSaving,    &TextErrorOccurred};

}  // namespace tarnwick
