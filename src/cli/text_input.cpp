#include "cli/text_input.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <system_error>

#include "base/chess_exception.h"
#include "base/encoding.h"

#include "chess/trimmed_text.h"

namespace tarnwick {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";

struct TFileCloser {
    void operator()(std::FILE* file) const {
        if (file != stdin) {
            std::fclose(file);
        }
    }
};
using TFile = std::unique_ptr<std::FILE, TFileCloser>;

[[noreturn]] void ThrowCannotRead(const std::string& name, const std::string& why) {
    throw ChessException("Cannot read " + name + ": " + why);
}

TFile OpenInput(const std::string& path, const std::string& name) {
    if (path == "-") {
        return TFile(stdin);
    }
    std::error_code ignored;
    if (fs::is_directory(path, ignored)) {
        ThrowCannotRead(name, "it is a folder. Name a file in it.");
    }
    errno = 0;
    TFile file(std::fopen(path.c_str(), "rb"));
    if (!file) {
        const int error = errno;
        const char* advice = error == ENOENT ? ". Check the spelling and the folder." : "";
        ThrowCannotRead(name, std::generic_category().message(error) + advice);
    }
    return file;
}

std::string ReadAll(std::FILE* file, const std::string& name, std::size_t maxBytes) {
    std::string text;
    std::array<char, 1 << 16> block;
    std::size_t count = 0;
    while ((count = std::fread(block.data(), 1, block.size(), file)) > 0) {
        if (count > maxBytes - text.size()) {
            ThrowCannotRead(name, "it has more than " + std::to_string(maxBytes) +
                                      " bytes. Split it into several files.");
        }
        text.append(block.data(), count);
    }
    if (std::ferror(file) != 0) {
        ThrowCannotRead(name, std::generic_category().message(errno));
    }
    return text;
}

std::string LowerCaseEnding(const std::string& path) {
    std::string ending = fs::path(path).extension().string();
    std::ranges::transform(ending, ending.begin(), [](char c) {
        return static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    });
    return ending;
}

TInputForm FormOf(const std::string& path, std::string_view text) {
    const std::string ending = LowerCaseEnding(path);
    if (ending == ".cp" || ending == ".cpx") {
        return TInputForm::ProblemFile;
    }
    return ending == ".epd" ? TInputForm::Epd : FormOfText(text);
}

bool BeginsWithPlacement(std::string_view line) {
    const std::string_view word = line.substr(0, line.find_first_of(Blanks));
    constexpr std::string_view PlacementSigns = "12345678/PNBRQKpnbrqk";
    return std::ranges::count(word, '/') == 7 &&
           word.find_first_not_of(PlacementSigns) == std::string_view::npos;
}

}  // namespace

TInputForm FormOfText(std::string_view text) {
    if (text.starts_with(ByteOrderMark)) {
        text.remove_prefix(ByteOrderMark.size());
    }
    while (!text.empty()) {
        const std::string_view line = Trimmed(text.substr(0, text.find('\n')));
        if (!line.empty() && line.front() != '#') {
            return BeginsWithPlacement(line) ? TInputForm::Epd : TInputForm::ProblemFile;
        }
        text.remove_prefix(std::min(text.find('\n'), text.size() - 1) + 1);
    }
    return TInputForm::ProblemFile;
}

TTextInput ReadTextInput(const std::string& path, std::size_t maxBytes) {
    TTextInput input;
    input.name = path == "-" ? "standard input" : ToValidUtf8(path);
    const TFile file = OpenInput(path, input.name);
    input.text = ReadAll(file.get(), input.name, maxBytes);
    if (Trimmed(input.text).empty()) {
        ThrowCannotRead(input.name, "there is nothing in it.");
    }
    input.form = FormOf(path, input.text);
    return input;
}

}  // namespace tarnwick
