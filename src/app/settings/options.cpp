#include "app/settings/options.h"

#include <algorithm>
#include <charconv>
#include <fstream>
#include <optional>
#include <system_error>

#include "base/chess_exception.h"
#include "base/encoding.h"
#include "platform/atomic_file.h"

#include "app/settings/home_folder.h"
#include "app/settings/ini_text.h"
#include "app/settings/option_keys.h"
#include "app/settings/settings_texts.h"

namespace tarnwick {
namespace {

namespace fs = std::filesystem;

/// A file of options has about 1 KiB. Far more is something else, which nobody wants read or rewritten.
constexpr std::uintmax_t MaxFileBytes = std::uintmax_t{1} << 20;
constexpr std::size_t MaxPathCharacters = 255;
constexpr std::size_t MaxQuotedBytes = 40;
constexpr int DefaultTempRegPercent = 20;

/// What stands in the file; no text where none can be used, and why (null: there is no file).
struct TOptionsFile {
    std::optional<CIniText> ini;
    const TUserText* pFault = nullptr;
};

TOptionsFile ReadFile(const fs::path& path) {
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    if (status.type() == fs::file_type::not_found) {
        return {};
    }
    // A pipe or a device could keep the start waiting for ever.
    std::ifstream file;
    if (status.type() == fs::file_type::regular) {
        file.open(path, std::ios::binary);
    }
    if (!file.is_open()) {
        return {.ini = std::nullopt, .pFault = &OptionsUnreadableText};
    }
    std::string text(MaxFileBytes + 1, '\0');
    file.read(text.data(), static_cast<std::streamsize>(text.size()));
    text.resize(static_cast<std::size_t>(file.gcount()));
    if (text.size() > MaxFileBytes) {
        return {.ini = std::nullopt, .pFault = &OptionsTooLargeText};
    }
    if (text.starts_with("\xFF\xFE") || text.starts_with("\xFE\xFF")) {
        return {.ini = std::nullopt, .pFault = &OptionsInUtf16Text};
    }
    return {.ini = CIniText(std::move(text)), .pFault = nullptr};
}

/// A value as a note shows it: short, and on one line.
std::string Quoted(std::string_view value) {
    std::string shown(value.substr(0, MaxQuotedBytes));
    std::ranges::replace_if(
        shown, [](char c) { return static_cast<unsigned char>(c) < ' ' || c == 127; }, '?');
    return "\"" + ToValidUtf8(shown) + (value.size() > MaxQuotedBytes ? "...\"" : "\"");
}

/// "options.ini, line 7: QuickMode = "yes" ..., default 1".
void Note(TReadOptions& result, const TIniValue& value, const char* key, const TUserText& fault,
          const std::string& used) {
    const LanguageId language = result.options.languageId;
    result.notes.push_back("options.ini" + std::string(UserText(OptionsLineText, language)) +
                           std::to_string(value.nLine) + ": " + key + " = " + Quoted(value.text) +
                           UserText(fault, language) + used);
}

struct TWholeNumber {
    int nValue = 0;
    bool bTooLarge = false;  ///< For an int: nValue is the nearest one.
};

/// Nothing where the text is no whole number as a whole.
std::optional<TWholeNumber> WholeNumber(std::string_view text) {
    if (text.starts_with('+')) {
        text.remove_prefix(1);
        if (text.starts_with('-')) {
            return std::nullopt;
        }
    }
    int nValue = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, nValue);
    if (stop != end || error == std::errc::invalid_argument) {
        return std::nullopt;
    }
    if (error == std::errc::result_out_of_range) {
        constexpr int Largest = 1'000'000'000;
        return TWholeNumber{text.starts_with('-') ? -Largest : Largest, true};
    }
    return TWholeNumber{nValue, false};
}

void ReadKey(const CIniText& ini, const TOptionKey& key, TReadOptions& result) {
    const std::optional<TIniValue> value = ini.Find(OptionsSection, key.name);
    if (!value) {
        return;
    }
    const int nDefault = ValueOf(key, result.options) - key.nMoreInMemory;
    const std::optional<TWholeNumber> number = WholeNumber(WithoutRemark(value->text));
    if (!number) {
        Note(result, *value, key.name, OptionNoNumberText, std::to_string(nDefault));
        return;
    }
    if (std::holds_alternative<bool TOptions::*>(key.member)) {
        SetValue(key, number->nValue != 0 ? 1 : 0, result.options);
        return;
    }
    const int nUsed =
        std::clamp(number->nValue, key.nLeast - key.nMoreInMemory, key.nMost - key.nMoreInMemory);
    if (nUsed != number->nValue || number->bTooLarge) {
        Note(result, *value, key.name, OptionOutOfRangeText, std::to_string(nUsed));
    }
    SetValue(key, nUsed + key.nMoreInMemory, result.options);
}

/// The folder of the tables. Quotation marks around it are not part of it.
void ReadPrecalcPath(const CIniText& ini, TReadOptions& result) {
    const std::optional<TIniValue> value = ini.Find(OptionsSection, PrecalcPathKey);
    if (!value) {
        return;
    }
    std::string_view text = value->text;
    if (text.size() >= 2 && text.front() == '"' && text.back() == '"') {
        text = text.substr(1, text.size() - 2);
    }
    const bool bOneLine = text.find('\0') == std::string_view::npos;
    if (!bOneLine || FromUtf8(text).size() > MaxPathCharacters) {
        // Half of a path is the path of something else.
        Note(result, *value, PrecalcPathKey, OptionNoPathText, "");
        return;
    }
    result.options.precalcPath = text;
}

/// Packing further than the packed data can be used would only cost the user time.
void LimitRecompression(TReadOptions& result) {
    TOptions& options = result.options;
    if (options.askForGlobalRegisterRecompression > options.useDataPackedForRandomAccess) {
        options.askForGlobalRegisterRecompression = options.useDataPackedForRandomAccess;
        result.warnings.emplace_back(UserText(RecompressionTooFarText, options.languageId));
    }
}

CIniText ReadFileForChange(const fs::path& path) {
    TOptionsFile file = ReadFile(path);
    if (file.pFault != nullptr) {
        throw ChessException(UserText(CannotSaveOptionsText) + ToValidUtf8(path.string()) + ": " +
                             UserText(*file.pFault));
    }
    return std::move(file.ini).value_or(CIniText());
}

/// A number that is written otherwise ("05", with a remark) stays as its user wrote it.
void SetNumber(CIniText& ini, std::string_view key, int nValue) {
    const std::optional<TIniValue> old = ini.Find(OptionsSection, key);
    const std::optional<TWholeNumber> number =
        old ? WholeNumber(WithoutRemark(old->text)) : std::nullopt;
    if (!number || number->nValue != nValue) {
        ini.Set(OptionsSection, key, std::to_string(nValue));
    }
}

void SaveIfChanged(const fs::path& path, const std::string& before, const CIniText& ini) {
    if (ini.Text() != before) {
        MakePrivateFolder(path.parent_path());
        SaveFileAtomically(path, ini.Text());
    }
}

}  // namespace

TReadOptions ReadOptions(const fs::path& file) {
    TReadOptions result;
    const TOptionsFile content = ReadFile(file);
    if (content.pFault != nullptr) {
        result.notes.push_back("options.ini: " + std::string(UserText(*content.pFault)));
    }
    if (!content.ini) {
        return result;
    }
    for (const TOptionKey& key : OptionKeys()) {
        ReadKey(*content.ini, key, result);
    }
    result.bLanguageInFile = content.ini->Find(OptionsSection, LanguageKey).has_value();
    ReadPrecalcPath(*content.ini, result);
    LimitRecompression(result);
    if (result.options.logMoves) {
        result.warnings.emplace_back(UserText(LogMovesIsOnText, result.options.languageId));
    }
    return result;
}

void WriteOptions(const fs::path& file, const TOptions& options) {
    CIniText ini = ReadFileForChange(file);
    const std::string before = ini.Text();
    for (const TOptionKey& key : OptionKeys()) {
        if (key.bWrittenBack) {
            SetNumber(ini, key.name, ValueOf(key, options) - key.nMoreInMemory);
        }
    }
    SaveIfChanged(file, before, ini);
}

void WriteOption(const fs::path& file, std::string_view key, int nValue) {
    CIniText ini = ReadFileForChange(file);
    const std::string before = ini.Text();
    SetNumber(ini, key, nValue);
    SaveIfChanged(file, before, ini);
}

TMemoryLimits MemoryLimits(const TOptions& options, std::uint64_t memoryBytes) {
    const auto percentOf = [](std::uint64_t whole, int percent) {
        const auto part = static_cast<std::uint64_t>(percent);
        return whole / 100 * part + whole % 100 * part / 100;  // the product may not fit
    };
    const std::uint64_t memoryMiB = memoryBytes >> 20;
    return {.temporaryMiB = percentOf(memoryMiB, options.maxMemRatioForTempReg),
            .temporaryMiBByDefault = percentOf(memoryMiB, DefaultTempRegPercent),
            .precalculatedBytes = percentOf(memoryBytes, options.maxMemRatioForPrecalculatedData)};
}

}  // namespace tarnwick
