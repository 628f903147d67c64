#include "cli/console_dialog.h"

#include <algorithm>
#include <cctype>
#include <iostream>

#include "base/encoding.h"
#include "platform/terminal.h"

namespace tarnwick {
namespace {

constexpr const char* EraseLine = "\r\x1b[K";

std::string LowerCase(std::string text) {
    std::ranges::transform(text, text.begin(), [](char c) {
        return static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    });
    return text;
}

/// At most so many characters of the text; "..." stands for the rest.
std::string CutToColumns(std::string_view text, std::size_t columns) {
    std::wstring wide = FromUtf8(text);
    if (wide.size() > columns) {
        wide = wide.substr(0, columns - 3) + L"...";
    }
    return ToUtf8(wide);
}

}  // namespace

CConsoleDialog::CConsoleDialog() : m_bShowsProgress(IsTerminal(TStandardStream::Error)) {}

CConsoleDialog::~CConsoleDialog() {
    ClearProgressLine();
}

void CConsoleDialog::ClearProgressLine() {
    if (m_bLineShown) {
        std::cerr << EraseLine << std::flush;
        m_bLineShown = false;
    }
}

void CConsoleDialog::Tell(std::string_view text) {
    const std::lock_guard guard(m_lock);
    ClearProgressLine();
    std::cerr << text << std::endl;
}

bool CConsoleDialog::Ask(std::string_view text) {
    if (!IsTerminal(TStandardStream::Input) || !IsTerminal(TStandardStream::Error)) {
        return false;
    }
    const std::lock_guard guard(m_lock);
    ClearProgressLine();
    std::cerr << text << " [y/N] " << std::flush;
    std::string answer;
    std::getline(std::cin, answer);
    answer = LowerCase(answer);
    return answer == "y" || answer == "yes";
}

void CConsoleDialog::Progress(std::string_view text) {
    const std::lock_guard guard(m_lock);
    if (!m_bShowsProgress) {
        return;
    }
    if (text.empty()) {
        ClearProgressLine();
        return;
    }
    // One column stays free: many terminals wrap a line that fills the last one.
    const int columns = TerminalColumns(TStandardStream::Error) - 1;
    std::cerr << EraseLine << CutToColumns(text, static_cast<std::size_t>(columns)) << std::flush;
    m_bLineShown = true;
}

}  // namespace tarnwick
