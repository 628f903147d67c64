#pragma once

// The three languages of the user's texts.
//
// A text is one record with its forms side by side, in the <folder>_texts.h of the code that shows
// it, and the form is picked at the moment of use: a change of language needs no restart. Polish is
// the language in which every text exists, so it is the last resort of the other two.

#include <atomic>

namespace tarnwick {

/// The numbers are those of the options file.
enum class LanguageId : int {
    Polish = 0,
    English = 1,
    Ukrainian = 2
};

/// One text of the program, UTF-8 literals. A null form is one that nobody has translated.
struct TUserText {
    const char* pl = nullptr;
    const char* en = nullptr;
    const char* uk = nullptr;
};

/// The language of the session. Written by the options and the language command, read by any thread.
extern std::atomic<LanguageId> g_language;

/// The form for the language: no Ukrainian means English, no English means Polish. Null only if the
/// record is empty.
const char* UserText(const TUserText& text, LanguageId language) noexcept;

/// The form for g_language.
const char* UserText(const TUserText& text) noexcept;

}  // namespace tarnwick
