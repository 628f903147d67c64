#include "app/commands/command_table.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "base/encoding.h"

#include "app/commands/accelerators.h"

namespace tarnwick {
namespace {

void Gather(const TMenu& menu, std::vector<TCommand>& commands) {
    for (const TMenuItem& item : menu.items) {
        if (item.pSubMenu != nullptr) {
            Gather(*item.pSubMenu, commands);
        } else if (item.command != TCommand::None) {
            commands.push_back(item.command);
        }
    }
}

std::vector<TCommand> CommandsOfMenuBar() {
    std::vector<TCommand> commands;
    for (const TMenu& menu : MenuBar()) {
        Gather(menu, commands);
    }
    return commands;
}

const TContextMenu ContextMenusOfAll[] = {TContextMenu::TrayIcon, TContextMenu::MainVariantButton,
                                          TContextMenu::PositionOfThread, TContextMenu::ListedMove,
                                          TContextMenu::Link};

TEST(CommandTable, EveryCommandHasOneTextAndAPlace) {
    const std::set<TCommand> withText(AllCommands().begin(), AllCommands().end());
    EXPECT_EQ(withText.size(), AllCommands().size()) << "a command has two texts";

    const std::vector<TCommand> inBar = CommandsOfMenuBar();
    std::set<TCommand> placed(inBar.begin(), inBar.end());
    EXPECT_EQ(placed.size(), inBar.size()) << "a command stands in two menus";
    for (const TContextMenu menu : ContextMenusOfAll) {
        std::vector<TCommand> inContext;
        Gather(ContextMenu(menu), inContext);
        EXPECT_FALSE(inContext.empty());
        placed.insert(inContext.begin(), inContext.end());
    }
    for (const TAccelerator& key : Accelerators()) {
        placed.insert(key.command);
    }
    placed.erase(TCommand::None);
    EXPECT_EQ(placed, withText);
}

/// The label behind the tab as a key is written in the table of keys; empty if it names no key.
std::string KeyOfLabel(std::string label) {
    const std::pair<std::string, std::string> ways[] = {{" + ", "+"},
                                                        {"Shift+Ctrl+", "Ctrl+Shift+"},
                                                        {"Ctrl Minus", "Ctrl+-"},
                                                        {"Ctrl Plus", "Ctrl++"},
                                                        {"Right arrow", "Right"},
                                                        {" or middle-click", ""}};
    for (const auto& [from, to] : ways) {
        const std::size_t place = label.find(from);
        if (place != std::string::npos) {
            label.replace(place, from.size(), to);
        }
    }
    const bool bKey = label.starts_with("Ctrl") || label.starts_with("Shift") ||
                      label.starts_with("Alt") || label.starts_with("F");
    return bKey ? label : "";
}

TEST(CommandTable, LabelsInMenusNameTheKeysThatWork) {
    std::map<std::string, TCommand> keys;
    std::set<int> numbers;
    for (const TAccelerator& key : Accelerators()) {
        EXPECT_TRUE(keys.emplace(key.keys, key.command).second) << key.keys;
        EXPECT_TRUE(numbers.insert(key.nId).second) << key.nId;
    }
    for (const TCommand command : AllCommands()) {
        const std::string text = TextOfCommand(command)->en;
        const std::size_t tab = text.find('\t');
        const std::string label = tab == std::string::npos ? "" : KeyOfLabel(text.substr(tab + 1));
        // The key F5 serves both colours, and Shift turns the direction of Ctrl+M.
        if (label.empty() || command == TCommand::FindBestDefence ||
            command == TCommand::ShowPreviousMaxMate) {
            continue;
        }
        ASSERT_TRUE(keys.contains(label)) << text;
        EXPECT_EQ(keys[label], command) << text;
    }
}

TEST(CommandTable, NumbersOfKeysMenusAndProcessorsLeadToCommands) {
    EXPECT_EQ(CommandOfNumber(638), TCommand::SaveFile);
    EXPECT_EQ(CommandOfNumber(123), TCommand::SaveFile);
    EXPECT_EQ(CommandOfNumber(635), TCommand::None) << "Ctrl+P is taken, and does nothing";
    EXPECT_EQ(CommandOfNumber(612), TCommand::CopyFen);
    EXPECT_EQ(ProcessorOfCommand(CommandOfNumber(2063)), 63);
    EXPECT_EQ(CommandOfProcessor(3), static_cast<TCommand>(2003));
    EXPECT_FALSE(CommandOfProcessor(64).has_value());
    EXPECT_FALSE(CommandOfProcessor(-1).has_value());
    for (const int nothing : {-1, 0, 127, 1999, 2064, 1 << 30}) {
        EXPECT_EQ(CommandOfNumber(nothing), TCommand::None) << nothing;
    }
}

/// The letter behind "&", small; 0 if the text has none.
wchar_t Mnemonic(const std::string& text) {
    const std::wstring wide = FromUtf8(text);
    const std::size_t sign = wide.find(L'&');
    const wchar_t letter = sign == std::wstring::npos ? L'\0' : wide.at(sign + 1);
    const bool bCapital = (letter >= L'A' && letter <= L'Z') || (letter >= L'А' && letter <= L'Я');
    return bCapital ? letter + (L'a' - L'A') : letter;
}

/// In English some letters serve twice in one menu: users have them in their fingers. The menu then goes
/// from one to the other.
TEST(CommandTable, LettersOfPolishAndUkrainianMenusAreChosenOnce) {
    for (const LanguageId language : {LanguageId::Polish, LanguageId::Ukrainian}) {
        std::set<wchar_t> titles;
        for (const TMenu& menu : MenuBar()) {
            const std::string title = UserText(*menu.pTitle, language);
            EXPECT_TRUE(titles.insert(Mnemonic(title)).second) << title;
            std::set<wchar_t> letters;
            for (const TMenuItem& item : menu.items) {
                const TUserText* const pText =
                    item.pSubMenu != nullptr ? item.pSubMenu->pTitle : TextOfCommand(item.command);
                const std::string text = pText != nullptr ? UserText(*pText, language) : "";
                EXPECT_LE(std::ranges::count(text, '&'), 1) << text;
                const wchar_t letter = Mnemonic(text);
                if (letter != L'\0') {
                    EXPECT_TRUE(letters.insert(letter).second) << text;
                }
            }
        }
    }
}

}  // namespace
}  // namespace tarnwick
