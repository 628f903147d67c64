#include "app/settings/second_instance.h"

#include "app/settings/settings_texts.h"

namespace tarnwick {

TSecondInstanceNotice SecondInstanceNotice(const std::filesystem::path& optionsFile) {
    const TReadOptions read = ReadOptions(optionsFile);
    const LanguageId language = read.bLanguageInFile ? read.options.languageId : LanguageId::Polish;
    TSecondInstanceNotice notice;
    switch (read.options.warnAboutSecondInstanceOfProgram) {
        case TSecondInstanceWarning::None:
            break;
        case TSecondInstanceWarning::StatusLine:
            notice.statusLine = UserText(SecondInstanceStatusText, read.options.languageId);
            break;
        case TSecondInstanceWarning::Box:
            notice.box = UserText(SecondInstanceBoxText, language);
            break;
    }
    return notice;
}

}  // namespace tarnwick
