#pragma once

// What reading any of the program's binary files says to the user when it fails.

#include <array>
#include <cstdint>
#include <string>

#include "base/language.h"

namespace tarnwick {

/// Followed by the file's name.
inline constexpr TUserText TextCannotOpenFile = {
    .pl = "Błąd otwarcia pliku: ", .en = "Error opening file: ", .uk = "Помилка відкриття файлу: "};

inline constexpr TUserText TextErrorReadingFile = {
    .pl = "Błąd odczytu pliku", .en = "Error reading file", .uk = "Помилка читання файлу"};

inline constexpr TUserText TextDamagedPackedData = {.pl = "Uszkodzone dane spakowane",
                                                    .en = "Damaged packed data",
                                                    .uk = "Пошкоджені стиснені дані"};

/// Follows a fault: the file's name comes behind it, then TextAtOffset and the number.
inline constexpr TUserText TextInFile = {.pl = " w pliku ", .en = " in file ", .uk = " у файлі "};
inline constexpr TUserText TextAtOffset = {
    .pl = ", pozycja w bajtach: ", .en = ", offset in bytes: ", .uk = ", позиція в байтах: "};

inline constexpr std::array AllFileFaultTexts = {
    &TextCannotOpenFile, &TextErrorReadingFile, &TextDamagedPackedData, &TextInFile, &TextAtOffset};

/// "Damaged packed data in file NAME, offset in bytes: 17".
inline std::string FaultInFile(const TUserText& fault, const std::string& name,
                               std::uint64_t offset) {
    return UserText(fault) + (UserText(TextInFile) + name) + UserText(TextAtOffset) +
           std::to_string(offset);
}

}  // namespace tarnwick
