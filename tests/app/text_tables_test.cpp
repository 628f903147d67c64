// Walks the texts of the window: a wrong conversion in one language is a crash or a wrong number in the hands
// of those who use it, and nobody else would see it.
//
// A new ..._texts.h adds its array of all texts to the table below.

#include <gtest/gtest.h>

#include <algorithm>
#include <regex>
#include <span>
#include <string>
#include <vector>

#include "base/encoding.h"
#include "base/file_fault_texts.h"
#include "base/language.h"

#include "app/clipboard/clipboard_texts.h"
#include "app/commands/all_names.h"
#include "app/commands/commands_texts.h"
#include "app/commands/tooltip_texts.h"
#include "app/document/document_texts.h"
#include "app/document/loss_texts.h"
#include "app/document/play_texts.h"
#include "app/settings/settings_texts.h"
#include "app/setup/setup_texts.h"
#include "app/shell/shell_texts.h"
#include "app/shell/window_texts.h"
#include "app/solving/solving_texts.h"
#include "app/tables/table_tasks_texts.h"
#include "app/view/view_texts.h"
#include "diagram/picture_texts.h"
#include "diagram/recognition_texts.h"
#include "problems/export_texts.h"
#include "tables/register/register_texts.h"
#include "tables/table_file_texts.h"
#include "tables/tables_texts.h"

namespace tarnwick {
namespace {

struct TTextTable {
    const char* name;
    std::span<const TUserText* const> texts;
};

const TTextTable Tables[] = {
    {"file faults", AllFileFaultTexts},
    {"table files", AllTableFileTexts},
    {"registers of tables", AllRegisterTexts},
    {"clipboard", AllClipboardTexts},
    {"losses", AllLossTexts},
    {"setup", AllSetupTexts},
    {"commands", AllCommandsTexts},
    {"command names", AllCommandNames},
    {"diagram recognition", AllRecognitionTexts},
    {"document", AllDocumentTexts},
    {"play", AllPlayTexts},
    {"settings", AllSettingsTexts},
    {"shell", AllShellTexts},
    {"solving", AllSolvingTexts},
    {"tooltips", AllTooltipTexts},
    {"export", AllExportTexts},
    {"pictures", AllPictureTexts},
    {"table tasks", AllTableTasksTexts},
    {"tables", AllTablesTexts},
    {"view", AllViewTexts},
    {"window", AllWindowTexts},
};

template <typename TCheck>
void ForEachText(TCheck check) {
    for (const TTextTable& table : Tables) {
        ASSERT_FALSE(table.texts.empty()) << table.name;
        for (const TUserText* const pText : table.texts) {
            SCOPED_TRACE(std::string(table.name) + ": " + (pText->en != nullptr ? pText->en : "?"));
            ASSERT_TRUE(pText->pl != nullptr && pText->en != nullptr && pText->uk != nullptr);
            check(*pText);
        }
    }
}

std::vector<std::string> Matches(const std::string& text, const char* pattern) {
    const std::regex expression(pattern);
    std::vector<std::string> found;
    for (std::sregex_iterator match(text.begin(), text.end(), expression), end; match != end;
         ++match) {
        found.push_back(match->str());
    }
    return found;
}

/// Calls it with the English form and each of the other two.
template <typename TCheck>
void ForEachTranslation(TCheck check) {
    ForEachText([&](const TUserText& text) {
        check(std::string(text.en), std::string(text.pl));
        check(std::string(text.en), std::string(text.uk));
    });
}

TEST(TextTables, TranslationsTakeTheSameValues) {
    ForEachTranslation([](const std::string& english, const std::string& other) {
        constexpr const char* Conversion = R"(%[-+#0]*\d*(\.\d+)?(ll|l|z|h)?[diuxXfgcs])";
        EXPECT_EQ(Matches(english, Conversion), Matches(other, Conversion)) << other;
    });
}

TEST(TextTables, TranslationsHaveTheSameShape) {
    ForEachTranslation([](const std::string& english, const std::string& other) {
        for (const char* sign : {"\t", R"((\.\.\.|…)$)", "\n+$", " \n", " $"}) {
            EXPECT_EQ(Matches(english, sign).size(), Matches(other, sign).size())
                << other << ": " << sign;
        }
    });
}

TEST(TextTables, NoFormIsForgottenOrDamaged) {
    ForEachText([](const TUserText& text) {
        for (const std::string form : {text.pl, text.en, text.uk}) {
            EXPECT_FALSE(form.empty());
            EXPECT_TRUE(IsValidUtf8(form)) << form;
            EXPECT_TRUE(Matches(form, "  ").empty()) << "stray blanks: " << form;
        }
        const bool bAName = std::string(text.en) == text.pl && std::string(text.en) == text.uk;
        const bool bWords = !Matches(text.en, "[a-z]{3}").empty();
        const std::wstring ukrainian = FromUtf8(text.uk);
        const bool bCyrillic =
            std::ranges::any_of(ukrainian, [](wchar_t c) { return c >= 0x400 && c < 0x500; });
        EXPECT_TRUE(bAName || !bWords || bCyrillic) << "not translated: " << text.uk;
        const bool bRussian = ukrainian.find_first_of(L"ыэъёЫЭЪЁ") != std::wstring::npos;
        EXPECT_FALSE(bRussian) << "letters that Ukrainian does not have: " << text.uk;
    });
}

}  // namespace
}  // namespace tarnwick
